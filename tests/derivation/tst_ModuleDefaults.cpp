// Default modules in the slots, what they bring into their device, and the axes that they make.
#include "derivation/startupBuilders.h"
#include "esi/derivation/moduleDefaults.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <string>

class tst_ModuleDefaults : public QObject
{
    Q_OBJECT

private slots:
    static void placing_data();
    static void placing();
    static void placedModuleIsAsDeclared();
    static void whatTheDeviceGets();
    static void movedByGroup();
    static void emptyTypeName();
    static void types_data();
    static void types();
    static void typeChangesDuringThePass_data();
    static void typeChangesDuringThePass();
    static void axesInSixteenBits();
    static void sameIdentTwice();
    static void manySlots();
    static void slotNumberInSixteenBits();
    static void manyModules();
    static void secondRunAppendsAgain();
    static void everyDeviceOfTheFile();
};

namespace {

constexpr std::uint16_t special = 4;
constexpr std::uint32_t drive = 402; // profile

/// A slot in words: its `MaxInstances`, then the idents it takes; "*7" is a default.
struct_Slot slotFrom(const QString& text)
{
    QStringList words = text.split(' ');
    struct_Slot slot;
    slot.Attributes.MaxInstances = words.takeFirst().toUInt();
    for (const QString& word : words) {
        struct_ModuleIdent ident;
        ident.Attributes.Default = word.startsWith('*') ? 1 : 0;
        ident.ModuleIdent = word.mid(word.startsWith('*') ? 1 : 0).toUInt();
        slot.ModuleIdent.push_back(ident);
    }
    return slot;
}

struct_EtherCatDevice deviceWithSlots(const QStringList& slotList, std::uint16_t deviceType = special)
{
    struct_EtherCatDevice device;
    device.m_iDeviceType = deviceType;
    for (const QString& slot : slotList)
        device.Slots.vslot.push_back(slotFrom(slot));
    return device;
}

/// A file with this device and modules "A" to "D" with idents 1 to 4, of no profile but for "D", a drive. Module "A"
/// has an output PDO 1600 that moves with its slot.
struct_FilenameDevice fileWith(const struct_EtherCatDevice& device)
{
    struct_FilenameDevice file;
    file.device = {device};
    file.vcommentmodule.resize(2);
    file.vcommentmodule[0].vmodule = {moduleFrom(1, "A", "1600 7000:1:16"), moduleFrom(2, "B")};
    file.vcommentmodule[0].vmodule[0].RxPdo.vpdo[0].indexAttributes.DependOnSlot = true;
    file.vcommentmodule[1].vmodule = {moduleFrom(3, "C"), moduleFrom(4, "D")};
    file.vcommentmodule[1].vmodule[1].m_profileNO = drive;
    return file;
}

/// Puts the default modules into the slots of each device of a file.
void putInDefaults(struct_FilenameDevice& file)
{
    const ModulesByIdent modules(file);
    for (struct_EtherCatDevice& device : file.device)
        putInDefaultModules(device, modules);
}

struct_EtherCatDevice withModules(const struct_EtherCatDevice& device)
{
    struct_FilenameDevice file = fileWith(device);
    putInDefaults(file);
    return file.device.at(0);
}

/// What is in each slot: "A0 B0" are modules A and B with the slot number 0.
QStringList placedIn(const struct_EtherCatDevice& device)
{
    QStringList found;
    for (const struct_Slot& slot : device.Slots.vslot) {
        QStringList modules;
        for (const struct_slotmodule& placed : slot.slotmodule)
            modules << QString::fromStdString(placed.module.Name) + QString::number(placed.Instances);
        found << modules.join(' ');
    }
    return found;
}

} // namespace

void tst_ModuleDefaults::placing_data()
{
    QTest::addColumn<QStringList>("slotList");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("a default") << QStringList{"1 *1"} << QStringList{"A0"};
    QTest::addRow("a choice for the user") << QStringList{"1 1"} << QStringList{""};
    QTest::addRow("the default among choices") << QStringList{"1 1 *2 3"} << QStringList{"B0"};
    QTest::addRow("several defaults, in their order") << QStringList{"1 *3 2 *1"} << QStringList{"C0 A0"};
    QTest::addRow("the same default twice") << QStringList{"1 *2 *2"} << QStringList{"B0 B0"};
    QTest::addRow("more defaults than places") << QStringList{"1 *1 *2 *3"} << QStringList{"A0 B0 C0"};
    QTest::addRow("several places: one module each default all the same") << QStringList{"4 *1"} << QStringList{"A0"};
    QTest::addRow("no place") << QStringList{"0 *1"} << QStringList{""};
    QTest::addRow("no such module") << QStringList{"1 *9"} << QStringList{""};
    QTest::addRow("no such module, then one that is there") << QStringList{"1 *9 *2"} << QStringList{"B0"};
    QTest::addRow("no idents") << QStringList{"1"} << QStringList{""};
    QTest::addRow("the number counts slots, empty or not")
        << QStringList{"1", "1 2", "0 *1", "1 *9", "1 *1"} << QStringList{"", "", "", "", "A4"};
    QTest::addRow("the number counts slots, not places")
        << QStringList{"3 *1", "2 *2 *1", "1 *3"} << QStringList{"A0", "B1 A1", "C2"};
    QTest::addRow("no slots") << QStringList{} << QStringList{};
}

void tst_ModuleDefaults::placing()
{
    QFETCH(QStringList, slotList);
    QFETCH(QStringList, expected);
    QCOMPARE(placedIn(withModules(deviceWithSlots(slotList))), expected);
}

void tst_ModuleDefaults::placedModuleIsAsDeclared()
{
    struct_EtherCatDevice device = deviceWithSlots({"1", "1 *1"});
    device.Slots.Attributes.SlotPdoIncrement = 0x10;
    device = withModules(device);
    const struct_module& placed = device.Slots.vslot[1].slotmodule.at(0).module;
    QCOMPARE(placed.TypeAttributes.ModuleIdent, 1U);
    QCOMPARE(int{placed.RxPdo.vpdo.at(0).indexAttributes.index}, 0x1600);
    QCOMPARE(placed.RxPdo.vpdo.at(0).Instances, 0);
    QCOMPARE(int{device.mRxPdo.mpdo.at(0).indexAttributes.index}, 0x1610);
    QCOMPARE(device.mRxPdo.mpdo.at(0).Instances, 1);
}

void tst_ModuleDefaults::whatTheDeviceGets()
{
    struct_EtherCatDevice device = deviceWithSlots({"1 *1", "1 *1"});
    device.Slots.Attributes.SlotPdoIncrement = 0x10;
    device.Slots.Attributes.SlotIndexIncrement = 0x100;
    struct_FilenameDevice file = fileWith(device);
    struct_module& module = file.vcommentmodule[0].vmodule[0];
    module.TxPdo.vpdo = {pdoFrom<modulePdo>("1a00 6000:1:16")};
    module.TxPdo.vpdo[0].vEntry[0].indexAttributes.DependOnSlot = true;
    module.Mailbox.COE.vinitcmd = {declaredModuleCommand("fixed"), declaredModuleCommand("moved")};
    module.Mailbox.COE.vinitcmd[1].indexAttributes.DependOnSlot = true;
    module.Dictionary.vobject.resize(2);
    module.Dictionary.vdatatype.resize(3);
    putInDefaults(file);
    device = file.device[0];

    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{2});
    QCOMPARE(int{device.mRxPdo.mpdo[1].indexAttributes.index}, 0x1610);
    QCOMPARE(int{device.mRxPdo.mpdo[1].vEntry[0].indexAttributes.index}, 0x7000);
    QCOMPARE(device.mTxPdo.mpdo.size(), std::size_t{2});
    QCOMPARE(int{device.mTxPdo.mpdo[1].indexAttributes.index}, 0x1A00);
    QCOMPARE(int{device.mTxPdo.mpdo[1].vEntry[0].indexAttributes.index}, 0x6100);
    QCOMPARE(moduleLines(device),
             (QStringList{"IP 8000:0 0B 0 '' fixed", "slotwise IP 8000:0 0B 0 '' moved",
                          "[slot 1] IP 8000:0 0B 0 '' fixed", "[slot 1] slotwise IP 8100:0 0B 0 '' moved"}));
    QCOMPARE(device.mDictionary.mobject.size(), std::size_t{4});
    QCOMPARE(device.mDictionary.mdatatype.size(), std::size_t{6});
}

void tst_ModuleDefaults::movedByGroup()
{
    struct_EtherCatDevice device = deviceWithSlots({"1", "1 *1"});
    device.Slots.Attributes.m_MaxSlotGroupCount = 3;
    device.Slots.vslot[1].Attributes.m_SlotGroup = 2;
    device.Slots.vslot[1].Attributes.m_SlotGroupPdoIncrement = 0x40;
    struct_FilenameDevice file = fileWith(device);
    ModulePdoIndex& index = file.vcommentmodule[0].vmodule[0].RxPdo.vpdo[0].indexAttributes;
    index.DependOnSlot = false;
    index.DependOnSlotGroup = true;
    putInDefaults(file);
    QCOMPARE(int{file.device[0].mRxPdo.mpdo.at(0).indexAttributes.index}, 0x1680);
    QCOMPARE(file.device[0].mRxPdo.mpdo.at(0).Instances, 1); // the slot, not the group
}

void tst_ModuleDefaults::emptyTypeName()
{
    const struct_EtherCatDevice device = withModules(deviceWithSlots({"1 *1"}));
    const struct_module& placed = device.Slots.vslot[0].slotmodule.at(0).module;
    QCOMPARE(placed.TypeAttributes.Name, std::string());
    QCOMPARE(placed.TypeAttributes.ModuleClass, std::string());
    QCOMPARE(placed.Name, std::string("A"));
}

void tst_ModuleDefaults::types_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("axes"); // 7 before
    QTest::addRow("I/O block: passed over") << 0 << QStringList{"", ""} << 7;
    QTest::addRow("single drive: passed over") << 1 << QStringList{"", ""} << 7;
    QTest::addRow("multi-axis drive: its modules are counted") << 2 << QStringList{"A0", "B1"} << 2;
    QTest::addRow("coupler that finds its modules: none counts") << 3 << QStringList{"A0", "B1"} << 0;
    QTest::addRow("special device keeps its axes") << 4 << QStringList{"A0", "B1"} << 7;
    QTest::addRow("coupler set by hand keeps its axes") << 5 << QStringList{"A0", "B1"} << 7;
    QTest::addRow("number without a name keeps its axes") << 6 << QStringList{"A0", "B1"} << 7;
}

void tst_ModuleDefaults::types()
{
    QFETCH(int, deviceType);
    QFETCH(QStringList, expected);
    QFETCH(int, axes);
    struct_EtherCatDevice device = deviceWithSlots({"1 *1", "1 *2"}, static_cast<std::uint16_t>(deviceType));
    device.m_iDriveAxies = 7;
    device = withModules(device);
    QCOMPARE(placedIn(device), expected);
    QCOMPARE(int{device.m_iDeviceType}, deviceType);
    QCOMPARE(int{device.m_iDriveAxies}, axes);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{deviceType > 1 ? 1U : 0U});
}

void tst_ModuleDefaults::typeChangesDuringThePass_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<QStringList>("slotList"); // module 4 is a drive, the others are not
    QTest::addColumn<int>("typeAfter");
    QTest::addColumn<int>("axes"); // 7 before
    QTest::addRow("single drive: passed over, a drive module or not") << 1 << QStringList{"1 *4"} << 1 << 7;
    QTest::addRow("I/O block: passed over, a drive module or not") << 0 << QStringList{"1 *4"} << 0 << 7;
    QTest::addRow("multi-axis drive: every module is an axis") << 2 << QStringList{"1 *4", "1 *1", "1 *4"} << 2 << 3;
    QTest::addRow("multi-axis drive without modules") << 2 << QStringList{"1", "1 4", "0 *4", "1 *9"} << 2 << 0;
    QTest::addRow("multi-axis drive without slots") << 2 << QStringList{} << 2 << 0;
    QTest::addRow("coupler without slots") << 3 << QStringList{} << 3 << 0;
    QTest::addRow("coupler with a drive module: counts from 0") << 3 << QStringList{"1 *4"} << 2 << 1;
    QTest::addRow("modules ahead of the drive do not count") << 3 << QStringList{"1 *1", "1 *2", "1 *4"} << 2 << 1;
    QTest::addRow("modules after the drive count") << 3 << QStringList{"1 *4", "1 *1", "1 *2"} << 2 << 3;
    QTest::addRow("modules after the drive in the same slot count") << 3 << QStringList{"1 *1 *4 *2"} << 2 << 2;
    QTest::addRow("a drive module for the user to choose changes nothing") << 3 << QStringList{"1 4 *1"} << 3 << 0;
    QTest::addRow("a drive module in a slot without places changes nothing")
        << 3 << QStringList{"0 *4", "1 *1"} << 3 << 0;
    QTest::addRow("special device: the count goes on from what it was")
        << 4 << QStringList{"1 *1", "1 *4", "1 *1"} << 2 << 9;
    QTest::addRow("coupler set by hand: the count goes on from what it was") << 5 << QStringList{"1 *4"} << 2 << 8;
    QTest::addRow("special device without a drive module") << 4 << QStringList{"1 *1", "1 *2"} << 4 << 7;
}

void tst_ModuleDefaults::typeChangesDuringThePass()
{
    QFETCH(int, deviceType);
    QFETCH(QStringList, slotList);
    QFETCH(int, typeAfter);
    QFETCH(int, axes);
    struct_EtherCatDevice device = deviceWithSlots(slotList, static_cast<std::uint16_t>(deviceType));
    device.m_iDriveAxies = 7;
    device = withModules(device);
    QCOMPARE(int{device.m_iDeviceType}, typeAfter);
    QCOMPARE(int{device.m_iDriveAxies}, axes);
}

void tst_ModuleDefaults::axesInSixteenBits()
{
    struct_EtherCatDevice device = deviceWithSlots({"1 *4"});
    device.m_iDriveAxies = 65535;
    QCOMPARE(int{withModules(device).m_iDriveAxies}, 0);
}

void tst_ModuleDefaults::sameIdentTwice()
{
    struct_FilenameDevice file = fileWith(deviceWithSlots({"1 *1", "1 *3"}));
    file.vcommentmodule[1].vmodule.insert(file.vcommentmodule[1].vmodule.begin(), moduleFrom(1, "later group"));
    file.vcommentmodule[1].vmodule.push_back(moduleFrom(3, "later in its group"));
    putInDefaults(file);
    QCOMPARE(placedIn(file.device[0]), (QStringList{"A0", "C1"}));
    QCOMPARE(file.device[0].mRxPdo.mpdo.size(), std::size_t{1});
}

void tst_ModuleDefaults::manySlots()
{
    QStringList slotList;
    for (int number = 0; number < 300; ++number)
        slotList << "1 *1";
    struct_EtherCatDevice device = deviceWithSlots(slotList);
    device.Slots.Attributes.SlotPdoIncrement = 0x100;
    device = withModules(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{300});
    QCOMPARE(device.mRxPdo.mpdo[299].Instances, 299);
    QCOMPARE(device.Slots.vslot[299].slotmodule.at(0).Instances, 299);
    // 233 slots lead to 1600 + e900 = ff00, one more wraps to 0. 299 * 100 = 12b00, and 1600 + 2b00 = 4100.
    QCOMPARE(int{device.mRxPdo.mpdo[233].indexAttributes.index}, 0xFF00);
    QCOMPARE(int{device.mRxPdo.mpdo[234].indexAttributes.index}, 0);
    QCOMPARE(int{device.mRxPdo.mpdo[299].indexAttributes.index}, 0x4100);
}

void tst_ModuleDefaults::slotNumberInSixteenBits()
{
    struct_EtherCatDevice device;
    device.m_iDeviceType = special;
    device.Slots.Attributes.SlotPdoIncrement = 0x10;
    device.Slots.vslot.resize(65538);
    device.Slots.vslot[65535] = slotFrom("1 *1");
    device.Slots.vslot[65537] = slotFrom("1 *1");
    device = withModules(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{2});
    QCOMPARE(device.mRxPdo.mpdo[0].Instances, 65535);
    QCOMPARE(device.mRxPdo.mpdo[1].Instances, 1);
    QCOMPARE(device.Slots.vslot[65537].slotmodule.at(0).Instances, 1);
    QCOMPARE(int{device.mRxPdo.mpdo[1].indexAttributes.index}, 0x1610);
}

void tst_ModuleDefaults::manyModules()
{
    struct_FilenameDevice file = fileWith(deviceWithSlots({"1 *1000", "1 *1499", "1 *1999", "1 *2000"}));
    for (std::uint32_t ident = 1000; ident < 2000; ++ident)
        file.vcommentmodule[ident < 1500 ? 0 : 1].vmodule.push_back(
            moduleFrom(ident, ("M" + std::to_string(ident) + "@").c_str()));
    putInDefaults(file);
    QCOMPARE(placedIn(file.device[0]), (QStringList{"M1000@0", "M1499@1", "M1999@2", ""}));
}

void tst_ModuleDefaults::secondRunAppendsAgain()
{
    struct_FilenameDevice file = fileWith(deviceWithSlots({"1 *1"}));
    putInDefaults(file);
    putInDefaults(file);
    QCOMPARE(placedIn(file.device[0]), QStringList{"A0 A0"});
    QCOMPARE(file.device[0].mRxPdo.mpdo.size(), std::size_t{2});
}

void tst_ModuleDefaults::everyDeviceOfTheFile()
{
    // A device that is passed over, one that becomes a drive, and one that does not although the one before did.
    struct_FilenameDevice file = fileWith(deviceWithSlots({"1 *4"}, 0));
    file.device.push_back(deviceWithSlots({"1", "1 *4"}));
    file.device.push_back(deviceWithSlots({"1 *1"}));
    putInDefaults(file);
    QCOMPARE(placedIn(file.device[0]), QStringList{""});
    QCOMPARE(placedIn(file.device[1]), (QStringList{"", "D1"}));
    QCOMPARE(placedIn(file.device[2]), QStringList{"A0"});
    QCOMPARE(int{file.device[1].m_iDeviceType}, 2);
    QCOMPARE(int{file.device[2].m_iDeviceType}, int{special});
}

static const testMain::Registration<tst_ModuleDefaults, QCoreApplication> registration;
#include "tst_ModuleDefaults.moc"
