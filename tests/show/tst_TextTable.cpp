// Tables of texts that fit a line.
#include "show/textColumns.h"
#include "show/textTable.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>

class tst_TextTable : public QObject
{
    Q_OBJECT

private slots:
    static void fits_data();
    static void fits();
    static void doesNotFit();
    static void namesThatReadAsNo();
    static void nothingLeft();
    static void rowOfAnotherSize();
};

namespace {

/// A table with its labels, indented by one blank; "does not fit" if it does not.
QByteArray written(const show::TextRow& labels, const std::vector<show::TextRow>& rows, std::size_t lineWidth,
                   show::LeftOut leftOut = show::LeftOut::EmptyOrNo)
{
    show::TextTable table(labels, leftOut);
    for (const show::TextRow& row : rows)
        if (!table.measure(row))
            return "row of another size";
    if (!table.fit(lineWidth))
        return "does not fit";
    std::ostringstream out;
    table.writeLabels(out, 1);
    for (const show::TextRow& row : rows)
        table.writeRow(out, row, 1);
    return QByteArray::fromStdString(out.str());
}

} // namespace

Q_DECLARE_METATYPE(show::TextRow)

void tst_TextTable::fits_data()
{
    QTest::addColumn<show::TextRow>("labels");
    QTest::addColumn<show::TextRow>("row");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<QByteArray>("expected");
    using show::TextRow;
    QTest::addRow("two blanks between columns")
        << TextRow{"a", "long label"} << TextRow{"12345", "6"} << 17 << QByteArray(" a      long label\n 12345  6\n");
    QTest::addRow("labels break at blanks") << TextRow{"a", "long label"} << TextRow{"12345", "6"} << 16
                                            << QByteArray(" a      long\n        label\n"
                                                          " 12345  6\n");
    QTest::addRow("one blank where room is short") << TextRow{"a", "long label"} << TextRow{"12345", "6"} << 11
                                                   << QByteArray(" a     long\n       label\n"
                                                                 " 12345 6\n");
    QTest::addRow("cells break at blanks") << TextRow{"a", "b"} << TextRow{"one two three", "4"} << 8
                                           << QByteArray(" a      b\n one    4\n two\n three\n");
    QTest::addRow("empty column") << TextRow{"a", "b", "c"} << TextRow{"1", "", "3"} << 80
                                  << QByteArray(" a  c\n 1  3\n");
    QTest::addRow("columns of no and of nothing known")
        << TextRow{"a", "b", "c"} << TextRow{"no", "-", "3"} << 80 << QByteArray(" c\n 3\n");
    QTest::addRow("wide characters count twice")
        << TextRow{"a", "b"} << TextRow{"单轴", "1"} << 80 << QByteArray(" a     b\n 单轴  1\n");
    QTest::addRow("a word of 13 may break, one of 12 may not")
        << TextRow{"a"} << TextRow{"1234567890123"} << 12 << QByteArray(" a\n 123456789012\n 3\n");
}

void tst_TextTable::fits()
{
    QFETCH(show::TextRow, labels);
    QFETCH(show::TextRow, row);
    QFETCH(int, lineWidth);
    QFETCH(QByteArray, expected);
    QCOMPARE(written(labels, {row}, static_cast<std::size_t>(lineWidth)), expected);
}

void tst_TextTable::doesNotFit()
{
    QCOMPARE(written({"a", "b"}, {{"123456789012", "1"}}, 14), " a" + QByteArray(12, ' ') + "b\n 123456789012 1\n");
    QCOMPARE(written({"a", "b"}, {{"123456789012", "1"}}, 13), QByteArray("does not fit"));
}

/// A name may be "no" or "-".
void tst_TextTable::namesThatReadAsNo()
{
    QCOMPARE(written({"a", "b", "c"}, {{"no", "", "-"}}, 80, show::LeftOut::Empty), QByteArray(" a   c\n no  -\n"));
}

/// Rows of which nothing is told have no head.
void tst_TextTable::nothingLeft()
{
    QCOMPARE(written({"a", "b"}, {}, 80), QByteArray());
}

void tst_TextTable::rowOfAnotherSize()
{
    QCOMPARE(written({"a", "b"}, {{"1"}}, 80), QByteArray("row of another size"));
}

static const testMain::Registration<tst_TextTable, testMain::NoApplication> registration;
#include "tst_TextTable.moc"
