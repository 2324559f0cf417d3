// The names of slot groups at the end of the names of their slots.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

class tst_SlotGroups : public QObject
{
    Q_OBJECT

private slots:
    static void names_data();
    static void names();
    static void slotsOfAnEarlierElementCountToo();
};

namespace {

QStringList namesOf(const struct_EtherCatDevice& device)
{
    QStringList found;
    for (const struct_Slot& slot : device.Slots.vslot)
        found << text(slot.Name);
    return found;
}

} // namespace

void tst_SlotGroups::names_data()
{
    QTest::addColumn<QString>("groups");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("no groups") << "" << QStringList{"A", "B", "C", "D"};
    QTest::addRow("all slots of the group, the group 0 too")
        << "<SlotGroupData SlotGroup='0'><Name>X axis</Name></SlotGroupData>"
        << QStringList{"A", "B-->X axis", "C", "D-->X axis"};
    QTest::addRow("two groups")
        << "<SlotGroupData SlotGroup='0'><Name>X</Name></SlotGroupData><SlotGroupData SlotGroup='1'><Name>Y</Name>"
           "</SlotGroupData>"
        << QStringList{"A", "B-->X", "C-->Y", "D-->X"};
    QTest::addRow("two names make two tails")
        << "<SlotGroupData SlotGroup='1'><Name>Y</Name><Name>Z</Name></SlotGroupData>"
        << QStringList{"A", "B", "C-->Y-->Z", "D"};
    QTest::addRow("an empty name makes a bare arrow")
        << "<SlotGroupData SlotGroup='1'><Name/></SlotGroupData>" << QStringList{"A", "B", "C-->", "D"};
    QTest::addRow("a group without a name") << "<SlotGroupData SlotGroup='1'/>" << QStringList{"A", "B", "C", "D"};
    QTest::addRow("only children of the group are its names")
        << "<SlotGroupData SlotGroup='1'><Other><Name>Y</Name></Other><name>Z</name></SlotGroupData>"
        << QStringList{"A", "B", "C", "D"};
    QTest::addRow("a number that no slot has")
        << "<SlotGroupData SlotGroup='7'><Name>Y</Name></SlotGroupData>" << QStringList{"A", "B", "C", "D"};
    QTest::addRow("a negative number does not match slots in no group")
        << "<SlotGroupData SlotGroup='-1'><Name>Y</Name></SlotGroupData>" << QStringList{"A", "B", "C", "D"};
    QTest::addRow("a missing number does not match slots in no group")
        << "<SlotGroupData><Name>Y</Name></SlotGroupData>" << QStringList{"A", "B", "C", "D"};
    QTest::addRow("a number that does not convert is group 0")
        << "<SlotGroupData SlotGroup='#xFFFFFFFF'><Name>Y</Name></SlotGroupData>"
        << QStringList{"A", "B-->Y", "C", "D-->Y"};
    QTest::addRow("hexadecimal number") << "<SlotGroupData SlotGroup='#x1'><Name>Y</Name></SlotGroupData>"
                                        << QStringList{"A", "B", "C-->Y", "D"};
    QTest::addRow("at any depth") << "<Extra><SlotGroupData SlotGroup='1'><Name>Y</Name></SlotGroupData></Extra>"
                                  << QStringList{"A", "B", "C-->Y", "D"};
    QTest::addRow("tag in other case") << "<slotGroupData SlotGroup='1'><Name>Y</Name></slotGroupData>"
                                       << QStringList{"A", "B", "C", "D"};
}

void tst_SlotGroups::names()
{
    QFETCH(QString, groups);
    QFETCH(QStringList, expected);
    // The groups come before the slots: all slots are read first, wherever the groups are.
    const QString xml = QStringLiteral("<Slots>%1<Slot><Name>A</Name></Slot><Slot SlotGroup='0'><Name>B</Name></Slot>"
                                       "<Slot SlotGroup='1'><Name>C</Name></Slot><Slot SlotGroup='0'><Name>D</Name>"
                                       "</Slot></Slots>")
                            .arg(groups);
    QCOMPARE(namesOf(readSection(read_device_Slotsinfo, xml)), expected);
}

void tst_SlotGroups::slotsOfAnEarlierElementCountToo()
{
    const struct_EtherCatDevice first =
        readSection(read_device_Slotsinfo, "<Slots><Slot SlotGroup='2'><Name>A</Name></Slot></Slots>");
    const struct_EtherCatDevice both = readSection(
        read_device_Slotsinfo, "<Slots><SlotGroupData SlotGroup='2'><Name>G</Name></SlotGroupData></Slots>", first);
    QCOMPARE(namesOf(both), QStringList{"A-->G"});
}

static const testMain::Registration<tst_SlotGroups, QCoreApplication> registration;
#include "tst_SlotGroups.moc"
