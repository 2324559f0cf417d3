// Parts of a summary as lines of a terminal.
#include "show/summaryWriter.h"
#include "show/textColumns.h"
#include "testMain.h"

#include <QtTest>

#include <sstream>

class tst_SummaryWriter : public QObject
{
    Q_OBJECT

private slots:
    static void texts_data();
    static void texts();
    static void tables();
    static void tableThatDoesNotFit();
    static void controls();
};

namespace {

QByteArray written(const show::SummaryParts& parts, std::size_t lineWidth)
{
    std::ostringstream out;
    show::SummaryWriter(out, lineWidth).writeParts(parts);
    return QByteArray::fromStdString(out.str());
}

} // namespace

void tst_SummaryWriter::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("lines");
    const QByteArray margin(21, ' ');
    QTest::addRow("short") << QByteArray("one") << QByteArray("  name               one\n");
    QTest::addRow("to the last column") << QByteArray("one two nine")
                                        << QByteArray("  name               one two nine\n");
    QTest::addRow("longer") << QByteArray("one two three")
                            << QByteArray("  name               one two\n" + margin + "three\n");
    QTest::addRow("wide characters") << QByteArray("单轴伺服驱动器")
                                     << QByteArray("  name               单轴伺服驱动\n" + margin + "器\n");
    QTest::addRow("blanks at the end") << QByteArray("one  ") << QByteArray("  name               one\n");
}

/// In 33 columns, 12 of them behind the label.
void tst_SummaryWriter::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, lines);
    QCOMPARE(written({{"name", text.toStdString(), {}, {}}}, 33), lines);
}

/// Rows under a heading stand further right; columns in which nothing is are left out.
void tst_SummaryWriter::tables()
{
    const show::SummaryPart plain{"list", {}, show::TextRow(3), {{{}, {"1", "", "a"}}, {{}, {"22", "", "b"}}}};
    QCOMPARE(written({plain}, 80), QByteArray("  list\n    1   a\n    22  b\n"));
    const show::SummaryPart grouped{
        "list", {}, {"no", "name"}, {{"group", {}}, {{}, {"1", "a"}}, {"next", {"2", "b"}}}};
    QCOMPARE(written({grouped}, 80),
             QByteArray("  list\n      no  name\n    group\n      1   a\n    next\n      2   b\n"));
}

/// Its cells follow one another.
void tst_SummaryWriter::tableThatDoesNotFit()
{
    const show::SummaryPart part{"list", {}, show::TextRow(2), {{{}, {"abcdefgh", "ijklmnop"}}}};
    QCOMPARE(written({part}, 18), QByteArray("  list\n    abcdefgh\n      ijklmnop\n"));
}

/// A text of a file begins no line of its own.
void tst_SummaryWriter::controls()
{
    QCOMPARE(written({{"name", "a\nb\x1b[1m", {}, {}}}, 80), QByteArray("  name               a b [1m\n"));
}

static const testMain::Registration<tst_SummaryWriter, testMain::NoApplication> registration;
#include "tst_SummaryWriter.moc"
