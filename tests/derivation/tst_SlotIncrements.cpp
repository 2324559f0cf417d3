// Slot increments in one form, and the axes of a multi-axis drive.
#include "esi/derivation/slotIncrements.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>

class tst_SlotIncrements : public QObject
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
};

namespace {

constexpr std::uint16_t axesBefore = 7;

/// Object and PDO index steps: device, then group.
using Steps = QVector<unsigned int>;

struct_EtherCatDevice checked(struct_EtherCatDevice device)
{
    completeSlots(device);
    return device;
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

struct_Slot slotWith(std::uint32_t indexStep, std::uint32_t pdoStep, std::int32_t group = -1)
{
    struct_Slot slot;
    slot.Attributes.SlotIndexIncrement = indexStep;
    slot.Attributes.SlotPdoIncrement = pdoStep;
    slot.Attributes.m_SlotGroup = group;
    return slot;
}

} // namespace

void tst_SlotIncrements::deviceIncrements_data()
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

void tst_SlotIncrements::deviceIncrements()
{
    QFETCH(Steps, before);
    QFETCH(Steps, expected);
    struct_EtherCatDevice device;
    setSteps(device.Slots.Attributes, before);
    device.Slots.vslot = {slotWith(16, 2), slotWith(32, 4)};
    QCOMPARE(stepsOf(checked(device).Slots.Attributes), expected);
}

void tst_SlotIncrements::slotIncrements_data()
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

void tst_SlotIncrements::slotIncrements()
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

void tst_SlotIncrements::groupAttributesOfSlotsAreKept()
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

void tst_SlotIncrements::noSlots()
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

void tst_SlotIncrements::axesWithoutGroups_data()
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

void tst_SlotIncrements::axesWithoutGroups()
{
    QFETCH(int, deviceType);
    QFETCH(int, slotCount);
    QFETCH(int, expected);
    struct_EtherCatDevice device;
    device.m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    device.m_iDriveAxies = axesBefore;
    device.Slots.vslot.resize(static_cast<std::size_t>(slotCount));
    QCOMPARE(int{checked(device).m_iDriveAxies}, expected);
}

static const testMain::Registration<tst_SlotIncrements, QCoreApplication> registration;
#include "tst_SlotIncrements.moc"
