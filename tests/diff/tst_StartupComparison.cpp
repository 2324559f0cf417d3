// Startup commands as a sequence, by what differs.
#include "comparedFiles.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

class tst_StartupComparison : public QObject
{
    Q_OBJECT

private slots:
    static void commands_data();
    static void commands();
    static void madeFromPdos();
};

namespace {

QByteArray command(const QByteArray& index, const QByteArray& data, const QByteArray& transition = "PS",
                   const QByteArray& comment = {})
{
    return "<InitCmd><Transition>" + transition + "</Transition><Index>" + index
           + "</Index><SubIndex>1</SubIndex><Data>" + data + "</Data><Comment>" + comment + "</Comment></InitCmd>";
}

QByteArray file(const QByteArray& commands)
{
    return unitParts::deviceFile("<Mailbox><CoE>" + commands + "</CoE></Mailbox>");
}

void add(const char* row, const QByteArray& before, const QByteArray& after, const QStringList& lines = {})
{
    QTest::newRow(row) << file(before) << file(after) << lines;
}

} // namespace

void tst_StartupComparison::commands_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    const QByteArray a = command("#x8000", "01");
    const QByteArray b = command("#x8001", "0200");
    const QByteArray c = command("#x8002", "03");
    add("the same", a + b, a + b);
    add("written in another way", a, command("32768", "01"));
    add("added", a + c, a + b + c, {"behaviour added startup command PS 0x8001:1 0x2"});
    add("removed", a + b, b, {"behaviour removed startup command PS 0x8000:1 0x1"});
    add("value", a + b, command("#x8000", "02") + b,
        {"behaviour changed startup command PS 0x8000:1 value 0x1 -> 0x2"});
    add("length", a, command("#x8000", "0100"), {"behaviour changed startup command PS 0x8000:1 bytes 1 -> 2"});
    add("a long value", command("#x8000", "0102030405"), command("#x8000", "0102030406"),
        {"behaviour changed startup command PS 0x8000:1 value 0102030405 -> 0102030406"});
    add("transition", a, command("#x8000", "01", "SO"),
        {"behaviour changed startup command 0x8000:1 transition PS -> SO"});
    add("comment", command("#x8000", "01", "PS", "old"), command("#x8000", "01", "PS", "new"),
        {"text changed startup command PS 0x8000:1 comment old -> new"});
    add("order", a + b + c, c + a + b, {"behaviour moved startup command PS 0x8002:1 place place 3 -> place 1"});
    add("one of two that are equal", a + b + a, a + b, {"behaviour removed startup command PS 0x8000:1 0x1"});
}

void tst_StartupComparison::commands()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(comparedFiles::linesOf(before, after), "lines");
}

/// Commands that map and assign PDOs are made from these, and told with them alone.
void tst_StartupComparison::madeFromPdos()
{
    const auto fileWith = [](const char* subIndex) {
        return unitParts::deviceFile(
            QByteArray("<Sm>Inputs</Sm><Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>"
                       "<TxPdo Sm='0'><Index>#x1a00</Index><Entry><Index>#x6000</Index><SubIndex>")
            + subIndex + "</SubIndex><BitLen>8</BitLen></Entry></TxPdo>");
    };
    QCOMPARE(
        comparedFiles::linesOf(fileWith("1"), fileWith("2")),
        (QStringList{"breaking removed TxPdo 0x1a00, entry 0x6000:1", "breaking added TxPdo 0x1a00, entry 0x6000:2"}));
}

static const testMain::Registration<tst_StartupComparison, testMain::NoApplication> registration;
#include "tst_StartupComparison.moc"
