// Startup commands that choices change, remove and add, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "editing/startupValues.h"
#include "testMain.h"

class tst_StartupChoices : public QObject
{
    Q_OBJECT

private slots:
    static void made();
    static void nothingIsMadeOfWrongOnes();
    static void rows_data();
    static void rows();
    static void values_data();
    static void values();
    static void uncheckedValues();
};

namespace {

QByteArray startup(const QByteArray& members)
{
    return "\"startup\": {" + members + '}';
}

QStringList problemsOfServo(const QByteArray& members)
{
    return applied(loadedSample("servo-drive"), choicesOfFirst(members)).problems;
}

/// "index:subindex" of the CoE commands of the coupler itself and of its modules.
QStringList commandsOf(const struct_EtherCatDevice& device)
{
    QStringList commands;
    for (const auto& command : device.Mailbox.COE.InitCmd.vinitcmd)
        commands += QString::number(startupValuesOf(command).index, 16);
    return commands;
}

} // namespace

/// All rows are counted before the first of the changes.
void tst_StartupChoices::made()
{
    const AppliedChoices result =
        applied(loadedSample("bus-coupler"),
                choicesOfFirst(startup(R"("removed": [{"row": 0}], "changed": [{"row": 1, "index": "0x2000"}],
                                  "added": [{"behind": 0, "index": "0x3000", "dataBytes": 1, "data": 5}])")));
    QCOMPARE(result.problems, QStringList());
    QCOMPARE(commandsOf(result.files.at(0).device.at(0)), (QStringList{"3000", "2000"}));
}

void tst_StartupChoices::nothingIsMadeOfWrongOnes()
{
    const AppliedChoices result =
        applied(loadedSample("bus-coupler"), choicesOfFirst(startup(R"("removed": [{"row": 0}, {"row": 99}])")));
    QCOMPARE(result.problems.size(), 1);
    QCOMPARE(commandsOf(result.files.at(0).device.at(0)), (QStringList{"1c12", "1c13"}));
}

void tst_StartupChoices::rows_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("changed row") << startup(R"("changed": [{"row": 43, "data": 1}])")
                                 << "startup.changed[0].row: there is no row 43, the list has 43 [row]";
    QTest::addRow("removed row") << startup(R"("removed": [{"row": 65536}])")
                                 << "startup.removed[0].row: there is no row 65536, the list has 43 [row]";
    QTest::addRow("added after no row") << startup(
        R"("added": [{"behind": 99, "index": 1, "dataBytes": 1, "data": 0}])")
                                        << "startup.added[0].behind: there is no row 99, the list has 43 [row]";
    QTest::addRow("another index is there") << startup(R"("changed": [{"row": 0, "was": {"index": 1}, "data": 1}])")
                                            << "startup.changed[0].was.index: 0x2010 stands there, not 0x1 [check]";
    QTest::addRow("another sub-index is there") << startup(R"("removed": [{"row": 0, "was": {"subIndex": 2}}])")
                                                << "startup.removed[0].was.subIndex: 1 stands there, not 2 [check]";
    QTest::addRow("another comment is there")
        << startup(R"("added": [{"behind": 0, "was": {"comment": "gain"}, "index": 1, "dataBytes": 1, "data": 0}])")
        << "startup.added[0].was.comment: \"Proportional gain 10000\" stands there, not \"gain\" [check]";
    QTest::addRow("row changed twice") << startup(R"("changed": [{"row": 1, "data": 1}, {"row": 1, "data": 2}])")
                                       << "startup.changed[1]: row 1 is changed or removed twice [row]";
    QTest::addRow("row changed and removed")
        << startup(R"("changed": [{"row": 1, "data": 1}], "removed": [{"row": 1}])")
        << "startup.removed[0]: row 1 is changed or removed twice [row]";
}

/// The servo drive has 43 commands.
void tst_StartupChoices::rows()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(problemsOfServo(members), QStringList{"devices[0]." + message});
}

void tst_StartupChoices::values_data()
{
    // Row 0 of the servo drive is declared with four bytes, row 4 with eight, which are 0 in the format.
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message"); // empty if it is taken
    const auto changed = [](const QByteArray& values) { return "\"changed\": [{" + values + "}]"; };
    const auto added = [](const QByteArray& values) {
        return "\"added\": [{\"behind\": 0, \"index\": 1, " + values + "}]";
    };
    QTest::addRow("largest value of a byte") << added(R"("dataBytes": 1, "data": 255)") << "";
    QTest::addRow("one above") << added(R"("dataBytes": 1, "data": 256)")
                               << "added[0].data: 256 does not fit into dataBytes 1 [startup-data]";
    QTest::addRow("17 bits in two bytes") << added(R"("dataBytes": 2, "data": 65536)")
                                          << "added[0].data: 65536 does not fit into dataBytes 2 [startup-data]";
    QTest::addRow("largest value of three bytes") << added(R"("dataBytes": 3, "data": "0xFFFFFF")") << "";
    QTest::addRow("25 bits in three bytes") << added(R"("dataBytes": 3, "data": "0x1000000")")
                                            << "added[0].data: 16777216 does not fit into dataBytes 3 [startup-data]";
    QTest::addRow("value without bytes") << added(R"("dataBytes": 0, "data": 1)")
                                         << "added[0].data: 1 does not fit into dataBytes 0 [startup-data]";
    QTest::addRow("five bytes") << added(R"("dataBytes": 5, "data": 1)")
                                << "added[0].dataBytes: 5 is not a number from 0 to 4 [startup-data]";
    QTest::addRow("sub-index of 9 bits") << added(R"("subIndex": 256, "dataBytes": 1, "data": 1)")
                                         << "added[0].subIndex: 256 is not a number from 0 to 255 [startup-data]";
    QTest::addRow("changed sub-index of 9 bits")
        << changed(R"("row": 0, "subIndex": 256)")
        << "changed[0].subIndex: 256 is not a number from 0 to 255 [startup-data]";
    QTest::addRow("changed to fewer bytes than the value has")
        << changed(R"("row": 0, "dataBytes": 1)")
        << "changed[0].data: 10000 does not fit into dataBytes 1 [startup-data]";
    QTest::addRow("changed to more bytes than a value has")
        << changed(R"("row": 0, "dataBytes": 255)")
        << "changed[0].dataBytes: 255 is not a number from 0 to 4 [startup-data]";
    QTest::addRow("declared with more bytes and as it was") << changed(R"("row": 4, "dataBytes": 8, "data": 0)") << "";
    QTest::addRow("declared with more bytes, another index") << changed(R"("row": 4, "index": 1)") << "";
    QTest::addRow("declared with more bytes, another value")
        << changed(R"("row": 4, "data": 1)")
        << "changed[0].data: the command has 8 data bytes, a value has 4 at most; give dataBytes too [startup-data]";
    QTest::addRow("declared with more bytes, now with four") << changed(R"("row": 4, "dataBytes": 4, "data": 1)") << "";
}

/// On the bus a value has as many bytes as the command says, and four at most.
void tst_StartupChoices::values()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(problemsOfServo(startup(members)),
             message.isEmpty() ? QStringList() : QStringList{"devices[0].startup." + message});
}

/// They are cut to the widths of the fields, as in the editor: a sub-index of the device has 8 bits.
void tst_StartupChoices::uncheckedValues()
{
    const AppliedChoices result = applied(loadedSample("servo-drive"), choicesOfFirst(startup(R"(
            "changed": [{"row": 0, "subIndex": 258, "dataBytes": 1, "data": 65535, "unchecked": true},
                        {"row": 4, "data": 1, "unchecked": true}],
            "added": [{"behind": 0, "index": 1, "dataBytes": 65535, "data": 4294967295, "unchecked": true}])")));
    QCOMPARE(result.problems, QStringList());
    QStringList values;
    const auto& commands = result.files.at(0).device.at(0).Mailbox.COE.InitCmd.vinitcmd;
    for (const std::size_t row : {0U, 1U, 5U}) {
        const StartupValues is = startupValuesOf(commands.at(row));
        values += QStringLiteral("%1 %2 %3").arg(is.subIndex).arg(is.dataBytes).arg(is.data);
    }
    QCOMPARE(values, (QStringList{"2 1 65535", "0 65535 4294967295", "0 8 1"}));
}

static const testMain::Registration<tst_StartupChoices, testMain::NoApplication> registration;
#include "tst_StartupChoices.moc"
