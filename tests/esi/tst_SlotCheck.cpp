// The slot check: increments in one form, and the axes of a multi-axis drive.
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>

class tst_SlotCheck : public QObject
{
    Q_OBJECT

private slots:
    static void deviceIncrements_data();
    static void deviceIncrements();
    static void slotIncrements_data();
    static void slotIncrements();
    static void groupAttributesOfSlotsAreKept();
    static void noSlots();
    static void axesWithoutGroups_data();
    static void axesWithoutGroups();
    static void axesWithGroups_data();
    static void axesWithGroups();
    static void everyDeviceOfTheFile();
    static void nullPointer();
};

namespace {

constexpr std::uint16_t multiDrive = 2;
constexpr std::uint16_t axesBefore = 7;

/// Object and PDO index steps: device, then group.
using Steps = QVector<unsigned int>;

struct_EtherCatDevice checked(const struct_EtherCatDevice& device)
{
    struct_FilenameDevice file;
    file.device.push_back(device);
    device_check_Slots(&file);
    return file.device.at(0);
}

Steps stepsOf(const SlotsAttributes& whole)
{
    return {whole.SlotIndexIncrement, whole.SlotPdoIncrement, whole.m_SlotGroupIndexIncrement,
            whole.m_SlotGroupPdoIncrement};
}

void setSteps(SlotsAttributes& whole, const Steps& steps)
{
    whole.SlotIndexIncrement = steps.at(0);
    whole.SlotPdoIncrement = steps.at(1);
    whole.m_SlotGroupIndexIncrement = steps.at(2);
    whole.m_SlotGroupPdoIncrement = steps.at(3);
}

struct_Slot slotWith(std::uint32_t indexStep, std::uint32_t pdoStep, std::int32_t group = -1, const char* name = "")
{
    struct_Slot slot;
    slot.Attributes.SlotIndexIncrement = indexStep;
    slot.Attributes.SlotPdoIncrement = pdoStep;
    slot.Attributes.m_SlotGroup = group;
    slot.Name = name;
    return slot;
}

} // namespace

void tst_SlotCheck::deviceIncrements_data()
{
    QTest::addColumn<Steps>("before"); // index, PDO, group index, group PDO
    QTest::addColumn<Steps>("expected");
    // The first slot says 16 and 2, the second one 32 and 4.
    QTest::addRow("nothing at the device: the first slot counts, for groups too")
        << Steps{0, 0, 0, 0} << Steps{16, 2, 16, 2};
    QTest::addRow("the device's own values win") << Steps{5, 6, 7, 8} << Steps{5, 6, 7, 8};
    QTest::addRow("the groups take the device's own values") << Steps{5, 6, 0, 0} << Steps{5, 6, 5, 6};
    QTest::addRow("each value by itself: index missing") << Steps{0, 6, 7, 0} << Steps{16, 6, 7, 6};
    QTest::addRow("each value by itself: PDO missing") << Steps{5, 0, 0, 8} << Steps{5, 2, 5, 8};
    QTest::addRow("groups declared, device not") << Steps{0, 0, 7, 8} << Steps{16, 2, 7, 8};
}

void tst_SlotCheck::deviceIncrements()
{
    QFETCH(Steps, before);
    QFETCH(Steps, expected);
    struct_EtherCatDevice device;
    setSteps(device.Slots.Attributes, before);
    device.Slots.vslot = {slotWith(16, 2), slotWith(32, 4)};
    QCOMPARE(stepsOf(checked(device).Slots.Attributes), expected);
}

void tst_SlotCheck::slotIncrements_data()
{
    QTest::addColumn<Steps>("device");
    QTest::addColumn<int>("group");
    QTest::addColumn<Steps>("expected"); // of the second slot: index, PDO
    // The first slot says 16 and 2, the second one 32 and 4.
    QTest::addRow("the second slot's own value is lost to the first slot's") << Steps{0, 0, 0, 0} << -1 << Steps{16, 2};
    QTest::addRow("the second slot's own value is lost to the device's") << Steps{5, 6, 7, 8} << -1 << Steps{5, 6};
    QTest::addRow("in the first group: the group's values") << Steps{5, 6, 7, 8} << 0 << Steps{7, 8};
    QTest::addRow("in a later group: the group's values") << Steps{5, 6, 7, 8} << 3 << Steps{7, 8};
    QTest::addRow("in a group without values: the device's") << Steps{5, 6, 0, 0} << 0 << Steps{5, 6};
    QTest::addRow("any negative group is no group") << Steps{5, 6, 7, 8} << -2 << Steps{5, 6};
}

void tst_SlotCheck::slotIncrements()
{
    QFETCH(Steps, device);
    QFETCH(int, group);
    QFETCH(Steps, expected);
    struct_EtherCatDevice record;
    setSteps(record.Slots.Attributes, device);
    record.Slots.vslot = {slotWith(16, 2), slotWith(32, 4, group)};
    record = checked(record);
    const SlotAttributes& second = record.Slots.vslot.at(1).Attributes;
    QCOMPARE((Steps{second.SlotIndexIncrement, second.SlotPdoIncrement}), expected);
    QVERIFY2(second.m_SlotGroup == group, "the group is only read");
}

void tst_SlotCheck::groupAttributesOfSlotsAreKept()
{
    struct_EtherCatDevice device;
    setSteps(device.Slots.Attributes, {5, 6, 7, 8});
    device.Slots.vslot = {slotWith(1, 1, 0)};
    device.Slots.vslot[0].Attributes.m_SlotGroupIndexIncrement = 70;
    device.Slots.vslot[0].Attributes.m_SlotGroupPdoIncrement = 80;
    device = checked(device);
    QCOMPARE(device.Slots.vslot[0].Attributes.m_SlotGroupIndexIncrement, 70U);
    QCOMPARE(device.Slots.vslot[0].Attributes.m_SlotGroupPdoIncrement, 80U);
}

void tst_SlotCheck::noSlots()
{
    struct_EtherCatDevice device;
    setSteps(device.Slots.Attributes, {5, 0, 0, 8});
    QCOMPARE(stepsOf(checked(device).Slots.Attributes), (Steps{5, 0, 0, 8}));

    // Slots that say nothing leave everything 0.
    setSteps(device.Slots.Attributes, {0, 0, 0, 0});
    device.Slots.vslot = {slotWith(0, 0), slotWith(32, 4)};
    device = checked(device);
    QCOMPARE(stepsOf(device.Slots.Attributes), (Steps{0, 0, 0, 0}));
    QCOMPARE(device.Slots.vslot[1].Attributes.SlotIndexIncrement, 0U);
    QCOMPARE(device.Slots.vslot[1].Attributes.SlotPdoIncrement, 0U);
}

void tst_SlotCheck::axesWithoutGroups_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("expected");
    QTest::addRow("a slot is an axis") << 2 << 3 << 3;
    QTest::addRow("no slot, no axis") << 2 << 0 << 0;
    QTest::addRow("number of slots in 16 bits") << 2 << 65538 << 2;
    QTest::addRow("I/O block keeps its axes") << 0 << 3 << int{axesBefore};
    QTest::addRow("single drive keeps its axes") << 1 << 3 << int{axesBefore};
    QTest::addRow("coupler keeps its axes") << 3 << 3 << int{axesBefore};
    QTest::addRow("special device keeps its axes") << 4 << 3 << int{axesBefore};
    QTest::addRow("coupler set by hand keeps its axes") << 5 << 3 << int{axesBefore};
}

void tst_SlotCheck::axesWithoutGroups()
{
    QFETCH(int, deviceType);
    QFETCH(int, slotCount);
    QFETCH(int, expected);
    struct_FilenameDevice file;
    file.device.resize(1);
    file.device[0].m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    file.device[0].m_iDriveAxies = axesBefore;
    file.device[0].Slots.vslot.resize(static_cast<std::size_t>(slotCount));
    device_check_Slots(&file);
    QCOMPARE(int{file.device[0].m_iDriveAxies}, expected);
}

void tst_SlotCheck::axesWithGroups_data()
{
    QTest::addColumn<QStringList>("slotList"); // "group name"
    QTest::addColumn<int>("expected");
    QTest::addRow("two axes") << QStringList{"0 Axis 1", "1 Axis 2"} << 2;
    QTest::addRow("two slots of a group make one axis") << QStringList{"0 Axis outputs", "0 Axis inputs"} << 1;
    QTest::addRow("the highest group counts, not the number of groups") << QStringList{"4 Axis"} << 5;
    QTest::addRow("in any order") << QStringList{"1 Axis 2", "0 Axis 1"} << 2;
    QTest::addRow("the word may stand in the group's name") << QStringList{"0 Slot-->X Axis"} << 1;
    QTest::addRow("the word may stand in Chinese text") << QStringList{QStringLiteral("0 主轴Axis一")} << 1;
    QTest::addRow("other case does not count") << QStringList{"0 axis", "1 AXIS"} << 0;
    QTest::addRow("a group without an axis does not count") << QStringList{"0 Axis", "1 I/O"} << 1;
    QTest::addRow("an axis in no group does not count") << QStringList{"-1 Axis"} << 0;
    QTest::addRow("no slots") << QStringList{} << 0;
    QTest::addRow("greatest number in 16 bits") << QStringList{"65534 Axis"} << 65535;
    QTest::addRow("one more is cut to 0") << QStringList{"65535 Axis"} << 0;
    QTest::addRow("behind a cut number counting starts again") << QStringList{"65535 Axis", "1 Axis"} << 2;
    QTest::addRow("greatest group") << QStringList{"2147483647 Axis"} << 0;
}

void tst_SlotCheck::axesWithGroups()
{
    QFETCH(QStringList, slotList);
    QFETCH(int, expected);
    struct_EtherCatDevice device;
    device.m_iDeviceType = multiDrive;
    device.m_iDriveAxies = axesBefore;
    device.Slots.Attributes.m_MaxSlotGroupCount = 1;
    for (const QString& slot : slotList)
        device.Slots.vslot.push_back(
            slotWith(0, 0, slot.section(' ', 0, 0).toInt(), slot.section(' ', 1).toUtf8().constData()));
    QCOMPARE(int{checked(device).m_iDriveAxies}, expected);
}

void tst_SlotCheck::everyDeviceOfTheFile()
{
    struct_FilenameDevice file;
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.m_iDeviceType = multiDrive;
        device.Slots.vslot = {slotWith(16, 2)};
    }
    file.device[1].Slots.vslot.push_back(slotWith(1, 1));
    device_check_Slots(&file);
    QCOMPARE(int{file.device[0].m_iDriveAxies}, 1);
    QCOMPARE(int{file.device[1].m_iDriveAxies}, 2);
    QCOMPARE(file.device[1].Slots.vslot[1].Attributes.SlotIndexIncrement, 16U);
}

void tst_SlotCheck::nullPointer()
{
    device_check_Slots(nullptr); // must come back
    struct_FilenameDevice empty;
    device_check_Slots(&empty);
    QVERIFY(empty.device.empty());
}

static const testMain::Registration<tst_SlotCheck, QCoreApplication> registration;
#include "tst_SlotCheck.moc"
