// How many axes the slots of a drive make, and how many a device takes with its type.
#include "esi/derivation/driveAxes.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>

class tst_DriveAxes : public QObject
{
    Q_OBJECT

private slots:
    static void withoutGroups_data();
    static void withoutGroups();
    static void withGroups_data();
    static void withGroups();
    static void axesOfAType_data();
    static void axesOfAType();
};

void tst_DriveAxes::withoutGroups_data()
{
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("expected");
    QTest::addRow("a slot is an axis") << 3 << 3;
    QTest::addRow("no slot, no axis") << 0 << 0;
    QTest::addRow("number of slots in 16 bits") << 65538 << 2;
}

void tst_DriveAxes::withoutGroups()
{
    QFETCH(int, slotCount);
    QFETCH(int, expected);
    DeviceSlots deviceSlots;
    deviceSlots.vslot.resize(static_cast<std::size_t>(slotCount));
    QCOMPARE(int{driveAxesOf(deviceSlots)}, expected);
}

void tst_DriveAxes::withGroups_data()
{
    QTest::addColumn<QStringList>("slotList"); // "group name"
    QTest::addColumn<int>("expected");
    QTest::addRow("two axes") << QStringList{"0 Axis 1", "1 Axis 2"} << 2;
    QTest::addRow("two slots of a group make one axis") << QStringList{"0 Axis outputs", "0 Axis inputs"} << 1;
    QTest::addRow("the highest group counts, not the number of groups") << QStringList{"4 Axis"} << 5;
    QTest::addRow("in any order") << QStringList{"1 Axis 2", "0 Axis 1"} << 2;
    QTest::addRow("the word may be in the group's name") << QStringList{"0 Slot-->X Axis"} << 1;
    QTest::addRow("the word may be in Chinese text") << QStringList{QStringLiteral("0 主轴Axis一")} << 1;
    QTest::addRow("other case does not count") << QStringList{"0 axis", "1 AXIS"} << 0;
    QTest::addRow("a group without an axis does not count") << QStringList{"0 Axis", "1 I/O"} << 1;
    QTest::addRow("an axis in no group does not count") << QStringList{"-1 Axis"} << 0;
    QTest::addRow("no slots") << QStringList{} << 0;
    QTest::addRow("greatest number in 16 bits") << QStringList{"65534 Axis"} << 65535;
    QTest::addRow("one more is cut to 0") << QStringList{"65535 Axis"} << 0;
    QTest::addRow("after a cut number counting starts again") << QStringList{"65535 Axis", "1 Axis"} << 2;
    QTest::addRow("greatest group") << QStringList{"2147483647 Axis"} << 0;
}

void tst_DriveAxes::withGroups()
{
    QFETCH(QStringList, slotList);
    QFETCH(int, expected);
    DeviceSlots deviceSlots;
    deviceSlots.Attributes.m_MaxSlotGroupCount = 1;
    for (const QString& text : slotList) {
        struct_Slot slot;
        slot.Attributes.m_SlotGroup = text.section(' ', 0, 0).toInt();
        slot.Name = text.section(' ', 1).toStdString();
        deviceSlots.vslot.push_back(slot);
    }
    QCOMPARE(int{driveAxesOf(deviceSlots)}, expected);
}

void tst_DriveAxes::axesOfAType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("expected"); // with three slots
    QTest::addRow("I/O block") << 0 << 0;
    QTest::addRow("single drive") << 1 << 1;
    QTest::addRow("multi-axis drive: as its slots") << 2 << 3;
    QTest::addRow("coupler") << 3 << 0;
    QTest::addRow("special device") << 4 << 0;
    QTest::addRow("coupler set by hand") << 5 << 0;
}

void tst_DriveAxes::axesOfAType()
{
    QFETCH(int, type);
    QFETCH(int, expected);
    struct_EtherCatDevice device;
    device.m_iDeviceType = static_cast<std::uint16_t>(type);
    device.m_iDriveAxies = 7; // what it had before plays no part
    device.Slots.vslot.resize(3);
    QCOMPARE(int{axesOfType(device)}, expected);
}

static const testMain::Registration<tst_DriveAxes, QCoreApplication> registration;
#include "tst_DriveAxes.moc"
