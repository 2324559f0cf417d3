// Texts as short as people read them.
// Covers cutText.cpp.
#include "show/cutText.h"
#include "testMain.h"

#include <QtTest>

class tst_CutText : public QObject
{
    Q_OBJECT

private slots:
    static void cuts_data();
    static void cuts();
    static void starts();
    static void names();
};

void tst_CutText::cuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("expected");
    QTest::addRow("fits") << "Ready" << 5 << "Ready";
    QTest::addRow("one too long") << "Steady" << 5 << "St...";
    QTest::addRow("wide letters") << QStringLiteral(u"\u63A7\u5236\u5B57\u63A7") << 7
                                  << QStringLiteral(u"\u63A7\u5236...");
    QTest::addRow("half of a wide letter")
        << QStringLiteral(u"\u63A7\u5236\u5B57\u63A7") << 6 << QStringLiteral(u"\u63A7...");
    QTest::addRow("no room for dots") << "Steady" << 2 << "St";
    QTest::addRow("nothing") << "" << 5 << "";
    QTest::addRow("no room") << "Steady" << 0 << "";
    QTest::addRow("several lines") << "a\nb\tc" << 20 << "a b c";
    QTest::addRow("blanks around") << "  a  " << 20 << "a";
    QTest::addRow("change of direction") << QStringLiteral(u"a\u202Eb") << 20 << "a b";
    QTest::addRow("accents without a letter")
        << QString(1000000, QChar(0x0301)) << 3 << QString(QChar(0x0301)).repeated(24);
    QTest::addRow("blank at the end of what fits") << "ab " << 3 << "ab";
    QTest::addRow("a megabyte") << QString(1000000, QLatin1Char('x')) << 10 << "xxxxxxx...";
}

void tst_CutText::cuts()
{
    QFETCH(QString, text);
    QFETCH(int, columns);
    const std::string cut = show::cutText(text.toStdString(), static_cast<std::size_t>(columns));
    QTEST(QString::fromStdString(cut), "expected");
}

/// A table keeps 256 bytes, and no part of a letter: each of these has 3.
void tst_CutText::starts()
{
    const std::string kept(256, 'x');
    QCOMPARE(show::startOf(kept), kept);
    QCOMPARE(show::startOf(kept + 'x'), kept + "...");
    QCOMPARE(show::startOf("a\nb"), std::string("a\nb"));
    const QString wide(2000, QChar(0x63A7));
    QCOMPARE(QString::fromStdString(show::startOf(wide.toStdString())), wide.left(85) + QStringLiteral("..."));
}

/// Of 120 columns at most.
void tst_CutText::names()
{
    const std::string kept(120, 'x');
    QCOMPARE(show::cutName(kept), kept);
    QCOMPARE(show::cutName(kept + 'x'), std::string(117, 'x') + "...");
}

static const testMain::Registration<tst_CutText, testMain::NoApplication> registration;
#include "tst_CutText.moc"
