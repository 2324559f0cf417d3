// What a module in a slot brings into its device: moved indexes, and the lists that are rebuilt when slots change.
#include "derivation/startupBuilders.h"
#include "esi/derivation/moduleInSlot.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <utility>

class tst_ModuleInSlot : public QObject
{
    Q_OBJECT

private slots:
    static void shifts_data();
    static void shifts();
    static void eachIndexByItself_data();
    static void eachIndexByItself();
    static void rebuild();
    static void placeIsTheStoredNumber();
    static void typesWithoutModules_data();
    static void typesWithoutModules();
    static void typeAndAxesStay();
    static void withoutSlots();
};

namespace {

constexpr std::uint16_t special = 4;

/// Steps of PDO indexes and of object indexes.
using Steps = QVector<unsigned int>;

template<typename Index> void setFlags(Index& index, bool bySlot, bool byGroup)
{
    index.DependOnSlot = bySlot;
    index.DependOnSlotGroup = byGroup;
}

void setFlags(ModuleEntryIndex& index, bool bySlot, bool byGroup)
{
    index.DependOnSlot = bySlot;
    index.m_DependOnSlotGroup = byGroup;
}

/// A module with a PDO 1600 of one entry 7000 in both directions, and a command 8000; "slot" and "group" are its flags.
struct_module movableModule(const QString& flags)
{
    const bool bySlot = flags.contains("slot");
    const bool byGroup = flags.contains("group");
    struct_module module = moduleFrom(1, "module", "1600 7000:1:16");
    setFlags(module.RxPdo.vpdo[0].indexAttributes, bySlot, byGroup);
    setFlags(module.RxPdo.vpdo[0].vEntry[0].indexAttributes, bySlot, byGroup);
    module.TxPdo = module.RxPdo;
    module.Mailbox.COE.vinitcmd = {declaredModuleCommand("declared")};
    setFlags(module.Mailbox.COE.vinitcmd[0].indexAttributes, bySlot, byGroup);
    return module;
}

/// Indexes of the last output PDO, its entry, the input PDO, its entry and the command: "1600 7000 1600 7000 8000".
QString lastIndexes(const struct_EtherCatDevice& device)
{
    QStringList found;
    for (const modulePdo& pdo : {device.mRxPdo.mpdo.back(), device.mTxPdo.mpdo.back()})
        found << QString::number(pdo.indexAttributes.index, 16)
              << QString::number(pdo.vEntry.at(0).indexAttributes.index, 16);
    found << QString::number(device.mMailbox.COE.vinitcmd.back().indexAttributes.index, 16);
    return found.join(' ');
}

/// A device of a type that takes modules, with the slots of one place each and a movable module in each of them.
struct_EtherCatDevice deviceWithSlots(int slotCount)
{
    struct_EtherCatDevice device;
    device.m_iDeviceType = special;
    device.Slots.Attributes.SlotPdoIncrement = 0x10;
    device.Slots.Attributes.SlotIndexIncrement = 0x100;
    for (int place = 0; place < slotCount; ++place) {
        struct_Slot slot;
        slot.Attributes.MaxInstances = 1;
        slot.slotmodule = {placedModule(place, movableModule("slot"))};
        slot.slotmodule[0].module.Dictionary.vobject.resize(2);
        slot.slotmodule[0].module.Dictionary.vdatatype.resize(3);
        device.Slots.vslot.push_back(std::move(slot));
    }
    return device;
}

/// Each list with one element that no module brings.
void fillWithOldData(struct_EtherCatDevice& device)
{
    device.mRxPdo.mpdo = {pdoFrom<modulePdo>("1fff")};
    device.mTxPdo.mpdo = {pdoFrom<modulePdo>("1fff")};
    device.mMailbox.COE.vinitcmd = {declaredModuleCommand("old")};
    device.mDictionary.mobject.resize(1);
    device.mDictionary.mdatatype.resize(1);
}

} // namespace

static const Steps none{0, 0};
static const Steps usual{0x10, 0x100};
static const Steps other{0x40, 0x400};

/// By what a module shifts: the flags of its indexes.
static void addFlagRows()
{
    QTest::addRow("depends on nothing, by the slot") << 0 << -1 << usual << usual << other << 3 << ""
                                                     << "1600 7000 8000";
    QTest::addRow("depends on nothing, by the group") << 4 << 2 << usual << usual << other << 3 << ""
                                                      << "1600 7000 8000";
    QTest::addRow("depends on the group, moved by the slot") << 0 << -1 << usual << usual << other << 3 << "group"
                                                             << "1600 7000 8000";
    QTest::addRow("depends on the group that is not in use") << 0 << 2 << usual << usual << other << 3 << "group"
                                                             << "1600 7000 8000";
    QTest::addRow("depends on the slot, moved by the group") << 4 << 2 << usual << usual << other << 3 << "slot"
                                                             << "1600 7000 8000";
    QTest::addRow("depends on both, by the slot") << 0 << -1 << usual << usual << other << 3 << "slot group"
                                                  << "1630 7300 8300";
    QTest::addRow("depends on both, by the group: the slot goes first and does not move")
        << 4 << 2 << usual << usual << other << 3 << "slot group"
        << "1600 7000 8000";
}

/// Where the arithmetic comes to its end.
static void addWideRows()
{
    // 2 * ffff = 1fffe and 2 * 10001 = 20002, cut to fffe and 2; 1600 + fffe = 115fe.
    QTest::addRow("the product is cut to 16 bits") << 0 << -1 << Steps{0xFFFF, 0x10001} << none << other << 2 << "slot"
                                                   << "15fe 7002 8002";
    QTest::addRow("the sum is cut to 16 bits") << 0 << -1 << Steps{0xF000, 0xF000} << none << other << 1 << "slot"
                                               << "600 6000 7000";
    QTest::addRow("the sum of a group is cut too") << 4 << 2 << usual << usual << Steps{0xFFFF, 0x7800} << 0 << "group"
                                                   << "15fe 6000 7000";
    // 2 * 80000000 does not fit 32 bits; 2 * 80000003 leaves 6.
    QTest::addRow("a product beyond 32 bits")
        << 0 << -1 << Steps{0x80000000, 0x80000003} << none << other << 2 << "slot"
        << "1600 7006 8006";
    QTest::addRow("greatest place") << 0 << -1 << Steps{1, 0x10} << none << other << 65535 << "slot"
                                    << "15ff 6ff0 7ff0";
    // 7fffffff * 1 ends with ffff, which is one less than nothing.
    QTest::addRow("greatest group") << 4 << 0x7FFFFFFF << usual << usual << Steps{1, 2} << 0 << "group"
                                    << "15ff 6ffe 7ffe";
}

void tst_ModuleInSlot::shifts_data()
{
    QTest::addColumn<int>("groupCount"); // of the device
    QTest::addColumn<int>("slotGroup");
    QTest::addColumn<Steps>("ofDevice");
    QTest::addColumn<Steps>("ofSlot");
    QTest::addColumn<Steps>("ofGroup"); // as the slot holds them
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QString>("expected"); // PDO, entry, command

    QTest::addRow("by the slot, steps of the device") << 0 << -1 << usual << none << other << 3 << "slot"
                                                      << "1630 7300 8300";
    QTest::addRow("by the slot, its own steps") << 0 << -1 << usual << Steps{0x20, 0x200} << other << 3 << "slot"
                                                << "1660 7600 8600";
    QTest::addRow("own PDO step, the device's object step")
        << 0 << -1 << usual << Steps{0x20, 0} << other << 3 << "slot"
        << "1660 7300 8300";
    QTest::addRow("own object step, the device's PDO step")
        << 0 << -1 << usual << Steps{0, 0x200} << other << 3 << "slot"
        << "1630 7600 8600";
    QTest::addRow("no steps") << 0 << -1 << none << none << other << 3 << "slot"
                              << "1600 7000 8000";
    QTest::addRow("first place") << 0 << -1 << usual << none << other << 0 << "slot"
                                 << "1600 7000 8000";
    QTest::addRow("a group counts only where the device has groups") << 0 << 2 << usual << none << other << 3 << "slot"
                                                                     << "1630 7300 8300";
    QTest::addRow("a slot outside the groups") << 4 << -1 << usual << none << other << 3 << "slot"
                                               << "1630 7300 8300";
    QTest::addRow("any negative group is none") << 4 << -7 << usual << none << other << 3 << "slot"
                                                << "1630 7300 8300";

    QTest::addRow("by the group, not the place") << 4 << 2 << usual << usual << other << 3 << "group"
                                                 << "1680 7800 8800";
    QTest::addRow("first group") << 4 << 0 << usual << usual << other << 3 << "group"
                                 << "1600 7000 8000";
    QTest::addRow("a group beyond the count") << 1 << 5 << usual << usual << other << 3 << "group"
                                              << "1740 8400 9400";
    QTest::addRow("a group without steps takes none from elsewhere") << 4 << 2 << usual << usual << none << 3 << "group"
                                                                     << "1600 7000 8000";

    addFlagRows();
    addWideRows();
}

void tst_ModuleInSlot::shifts()
{
    QFETCH(int, groupCount);
    QFETCH(int, slotGroup);
    QFETCH(Steps, ofDevice);
    QFETCH(Steps, ofSlot);
    QFETCH(Steps, ofGroup);
    QFETCH(int, place);
    QFETCH(QString, flags);
    QFETCH(QString, expected);
    struct_EtherCatDevice device;
    SlotsAttributes& whole = device.Slots.Attributes;
    whole.m_MaxSlotGroupCount = static_cast<std::uint32_t>(groupCount);
    whole.SlotPdoIncrement = ofDevice.at(0);
    whole.SlotIndexIncrement = ofDevice.at(1);
    whole.m_SlotGroupPdoIncrement = 0x1111; // only the slot's own steps of the group count
    whole.m_SlotGroupIndexIncrement = 0x1111;
    struct_Slot slot;
    slot.Attributes.m_SlotGroup = slotGroup;
    slot.Attributes.SlotPdoIncrement = ofSlot.at(0);
    slot.Attributes.SlotIndexIncrement = ofSlot.at(1);
    slot.Attributes.m_SlotGroupPdoIncrement = ofGroup.at(0);
    slot.Attributes.m_SlotGroupIndexIncrement = ofGroup.at(1);
    bringIntoDevice(device, slot, movableModule(flags), place);
    const QString pdoAndEntry = expected.section(' ', 0, 1);
    QCOMPARE(lastIndexes(device), pdoAndEntry + ' ' + pdoAndEntry + ' ' + expected.section(' ', 2));
}

void tst_ModuleInSlot::eachIndexByItself_data()
{
    QTest::addColumn<QString>("flagged");
    QTest::addColumn<QString>("whenSlot"); // output PDO, entry, input PDO, entry, command
    QTest::addRow("PDO") << "pdo"
                         << "1610 7000 1600 7000 8000";
    QTest::addRow("entry") << "entry"
                           << "1600 7100 1600 7000 8000";
    QTest::addRow("command") << "command"
                             << "1600 7000 1600 7000 8100";
}

void tst_ModuleInSlot::eachIndexByItself()
{
    QFETCH(QString, flagged);
    QFETCH(QString, whenSlot);
    for (const bool inGroup : {false, true}) {
        struct_module module = movableModule("");
        modulePdo& pdo = module.RxPdo.vpdo[0];
        if (flagged == "pdo")
            setFlags(pdo.indexAttributes, !inGroup, inGroup);
        else if (flagged == "entry")
            setFlags(pdo.vEntry[0].indexAttributes, !inGroup, inGroup);
        else
            setFlags(module.Mailbox.COE.vinitcmd[0].indexAttributes, !inGroup, inGroup);
        struct_EtherCatDevice device;
        device.Slots.Attributes.m_MaxSlotGroupCount = 1;
        struct_Slot slot;
        slot.Attributes.m_SlotGroup = inGroup ? 1 : -1;
        slot.Attributes.SlotPdoIncrement = slot.Attributes.m_SlotGroupPdoIncrement = 0x10;
        slot.Attributes.SlotIndexIncrement = slot.Attributes.m_SlotGroupIndexIncrement = 0x100;
        bringIntoDevice(device, slot, module, 1);
        QCOMPARE(lastIndexes(device), whenSlot);
    }
}

void tst_ModuleInSlot::rebuild()
{
    struct_EtherCatDevice device = deviceWithSlots(3);
    fillWithOldData(device);
    for (int run = 0; run < 2; ++run) {
        rebuildModuleLists(device);
        QCOMPARE(listSizes(device), QStringLiteral("3 3 3 6 9"));
        QCOMPARE(lastIndexes(device), QStringLiteral("1620 7200 1620 7200 8200"));
        QCOMPARE(moduleLines(device),
                 (QStringList{"slotwise IP 8000:0 0B 0 '' declared", "[slot 1] slotwise IP 8100:0 0B 0 '' declared",
                              "[slot 2] slotwise IP 8200:0 0B 0 '' declared"}));
    }
    // The modules in the slots keep their indexes.
    QCOMPARE(int{device.Slots.vslot[2].slotmodule[0].module.RxPdo.vpdo[0].indexAttributes.index}, 0x1600);
    QCOMPARE(device.Slots.vslot[2].slotmodule[0].module.RxPdo.vpdo[0].Instances, 0);
}

void tst_ModuleInSlot::placeIsTheStoredNumber()
{
    // A slot of several places holds several modules, and their places are stored with them.
    struct_EtherCatDevice device = deviceWithSlots(2);
    struct_Slot& first = device.Slots.vslot[0];
    first.slotmodule = {placedModule(1, movableModule("slot")), placedModule(3, movableModule("slot"))};
    device.Slots.vslot[1].slotmodule[0].Instances = 4;
    rebuildModuleLists(device);
    QCOMPARE(moduleLines(device), (QStringList{"[slot 1] slotwise IP 8100:0 0B 0 '' declared",
                                               "[slot 3] slotwise IP 8300:0 0B 0 '' declared",
                                               "[slot 4] slotwise IP 8400:0 0B 0 '' declared"}));
    QCOMPARE(device.mRxPdo.mpdo[1].Instances, 3);
    QCOMPARE(lastIndexes(device), QStringLiteral("1640 7400 1640 7400 8400"));
}

void tst_ModuleInSlot::typesWithoutModules_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<bool>("takesModules");
    QTest::addRow("I/O block") << 0 << false;
    QTest::addRow("single drive") << 1 << false;
    QTest::addRow("multi-axis drive") << 2 << true;
    QTest::addRow("coupler that finds its modules") << 3 << false;
    QTest::addRow("special device") << 4 << true;
    QTest::addRow("coupler set by hand") << 5 << true;
    QTest::addRow("number without a name") << 6 << true;
    QTest::addRow("greatest number") << 65535 << true;
}

void tst_ModuleInSlot::typesWithoutModules()
{
    QFETCH(int, deviceType);
    QFETCH(bool, takesModules);
    struct_EtherCatDevice device = deviceWithSlots(2);
    fillWithOldData(device);
    device.m_iDeviceType = static_cast<std::uint16_t>(deviceType);
    rebuildModuleLists(device);
    QCOMPARE(listSizes(device), takesModules ? QStringLiteral("2 2 2 4 6") : QStringLiteral("0 0 0 0 0"));
    QCOMPARE(device.Slots.vslot[1].slotmodule.size(), std::size_t{1});
    // Set to another type, the device has its modules again.
    device.m_iDeviceType = special;
    rebuildModuleLists(device);
    QCOMPARE(listSizes(device), QStringLiteral("2 2 2 4 6"));
}

void tst_ModuleInSlot::typeAndAxesStay()
{
    struct_EtherCatDevice device = deviceWithSlots(2);
    device.m_iDriveAxies = 7;
    for (struct_Slot& slot : device.Slots.vslot)
        slot.slotmodule[0].module.m_profileNO = 402;
    rebuildModuleLists(device);
    QCOMPARE(int{device.m_iDeviceType}, int{special});
    QCOMPARE(int{device.m_iDriveAxies}, 7);
    device.m_iDeviceType = 2;
    rebuildModuleLists(device);
    QCOMPARE(int{device.m_iDriveAxies}, 7);
}

void tst_ModuleInSlot::withoutSlots()
{
    for (const std::uint16_t deviceType : {std::uint16_t{0}, std::uint16_t{3}, special}) {
        struct_EtherCatDevice device = deviceWithSlots(0);
        device.m_iDeviceType = deviceType;
        fillWithOldData(device);
        rebuildModuleLists(device);
        QCOMPARE(listSizes(device), QStringLiteral("1 1 1 1 1"));
    }
    // Slots that are all empty are slots.
    struct_EtherCatDevice device = deviceWithSlots(1);
    device.Slots.vslot[0].slotmodule.clear();
    fillWithOldData(device);
    rebuildModuleLists(device);
    QCOMPARE(listSizes(device), QStringLiteral("0 0 0 0 0"));
}

static const testMain::Registration<tst_ModuleInSlot, QCoreApplication> registration;
#include "tst_ModuleInSlot.moc"
