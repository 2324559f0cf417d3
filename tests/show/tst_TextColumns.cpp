// Columns of a terminal that texts take, and the lines into which they break.
#include "show/textColumns.h"
#include "testMain.h"

#include <QtTest>

class tst_TextColumns : public QObject
{
    Q_OBJECT

private slots:
    static void columns_data();
    static void columns();
    static void maxWordColumns();
    static void lines_data();
    static void lines();
};

void tst_TextColumns::columns_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("columns");
    QTest::addRow("nothing") << QByteArray() << 0;
    QTest::addRow("Latin") << QByteArray("ab c") << 4;
    QTest::addRow("Chinese") << QByteArray("单轴") << 4;
    QTest::addRow("outside the first plane") << QByteArray("\xF0\xA0\x80\x80") << 2;
    QTest::addRow("accent of its own") << QByteArray("e\xCC\x81") << 1;
    QTest::addRow("joiner") << QByteArray("a\xE2\x80\x8D") << 1;
    QTest::addRow("soft hyphen") << QByteArray("a\xC2\xAD") << 2;
    QTest::addRow("before the wide ranges") << QByteArray("\xE1\x83\xBF") << 1; // U+10FF
    QTest::addRow("first of the wide ranges") << QByteArray("\xE1\x84\x80") << 2; // U+1100
    QTest::addRow("Hangul vowel, which joins the letter before it") << QByteArray("\xE1\x85\xA1") << 0; // U+1161
}

void tst_TextColumns::columns()
{
    QFETCH(QByteArray, text);
    QFETCH(int, columns);
    QCOMPARE(show::columnsOf(text.toStdString()), static_cast<std::size_t>(columns));
}

void tst_TextColumns::maxWordColumns()
{
    QCOMPARE(show::maxWordColumns(""), std::size_t{0});
    QCOMPARE(show::maxWordColumns("one three two"), std::size_t{5});
    QCOMPARE(show::maxWordColumns("abc 单轴"), std::size_t{4});
    QCOMPARE(show::maxWordColumns("alone"), std::size_t{5});
    QCOMPARE(show::maxWordColumns("  ab  c "), std::size_t{2});
    QCOMPARE(show::maxWordColumns("  "), std::size_t{0});
}

void tst_TextColumns::lines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QByteArrayList>("expected");
    QTest::addRow("fits") << QByteArray("one two") << 7 << QByteArrayList{"one two"};
    QTest::addRow("blanks stay where it fits") << QByteArray(" a  b ") << 6 << QByteArrayList{" a  b "};
    QTest::addRow("nothing") << QByteArray() << 5 << QByteArrayList{""};
    QTest::addRow("at a blank") << QByteArray("one two three") << 7 << QByteArrayList{"one two", "three"};
    QTest::addRow("a word that is too long")
        << QByteArray("a bcdefgh i") << 3 << QByteArrayList{"a", "bcd", "efg", "h i"};
    QTest::addRow("wide characters") << QByteArray("单轴伺服") << 5 << QByteArrayList{"单轴", "伺服"};
    QTest::addRow("a character wider than the line") << QByteArray("单a") << 1 << QByteArrayList{"单", "a"};
    QTest::addRow("lines that never end") << QByteArray(300, 'x') << -1 << QByteArrayList{QByteArray(300, 'x')};
}

void tst_TextColumns::lines()
{
    QFETCH(QByteArray, text);
    QFETCH(int, columns);
    QFETCH(QByteArrayList, expected);
    QByteArrayList lines;
    for (const std::string& line :
         show::brokenInto(text.toStdString(), columns < 0 ? show::anyWidth : static_cast<std::size_t>(columns)))
        lines.append(QByteArray::fromStdString(line));
    QCOMPARE(lines, expected);
}

static const testMain::Registration<tst_TextColumns, testMain::NoApplication> registration;
#include "tst_TextColumns.moc"
