// Startup commands of the module list when the modules of one device change, and how that differs from load time.
#include "derivation/startupBuilders.h"
#include "esi/derivation/moduleDefaults.h"
#include "esi/derivation/moduleInSlot.h"
#include "esi/derivation/startupCommands.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>

class tst_ModuleStartup : public QObject
{
    Q_OBJECT

private slots:
    static void conditions_data();
    static void conditions();
    static void onlyTheDeviceThatChanges();
    static void sameForms_data();
    static void sameForms();
    static void otherListsStay();
    static void appends();
    static void pairTwice();
    static void pairAfterLoading();
    static void declaredCommandsComeFirst();
    static void allModulesRemoved();
    static void deviceWithoutSlots();
    static void withoutFlags();
};

namespace {

const QStringList tooFar{"std::out_of_range"};

/// The module list that a device gets under these conditions.
QStringList generated(const QStringList& lines, const ModuleStartupConditions& under)
{
    struct_EtherCatDevice device = deviceFrom(lines);
    try {
        appendModuleStartup(device, under);
    } catch (const std::out_of_range&) {
        return tooFar;
    }
    return moduleLines(device);
}

/// What the window does when modules change, and on each selection of a device.
struct_EtherCatDevice rebuilt(struct_EtherCatDevice device)
{
    rebuildModuleLists(device);
    appendModuleStartup(device, atEditTime);
    return device;
}

/// A device with two slots of one place each, steps of 0x10 for PDOs and 0x100 for objects, and a module in each slot.
struct_EtherCatDevice deviceWithModules()
{
    constexpr std::uint16_t special = 4;
    struct_EtherCatDevice device = deviceFrom(usualDevice("assign config", {"Rx 1600 @2", "slot", "slot"}));
    device.m_iDeviceType = special;
    device.Slots.Attributes.SlotPdoIncrement = 0x10;
    device.Slots.Attributes.SlotIndexIncrement = 0x100;
    int place = 0;
    for (struct_Slot& slot : device.Slots.vslot) {
        struct_module module = moduleFrom(1, "module", "1700 @2 7000:1:16");
        module.RxPdo.vpdo[0].indexAttributes.DependOnSlot = true;
        module.RxPdo.vpdo[0].vEntry[0].indexAttributes.DependOnSlot = true;
        module.Mailbox.COE.vinitcmd = {declaredModuleCommand("declared")};
        module.Mailbox.COE.vinitcmd[0].indexAttributes.DependOnSlot = true;
        slot.Attributes.MaxInstances = 1;
        slot.slotmodule = {placedModule(place++, std::move(module))};
    }
    return device;
}

/// The module list of that device.
const QStringList linesWithModules{"slotwise IP 8000:0 0B 0 '' declared",
                                   "[slot 1] slotwise IP 8100:0 0B 0 '' declared",
                                   "PS 1700:0 1B 0 '0x00 ' clear mpdo 0x1700 entry",
                                   "PS 1700:1 4B 70000110 '0x70000110' download mpdo 0x1700 entry",
                                   "PS 1700:0 1B 1 '0x1 ' download mpdo 0x1700 entry count",
                                   "PS 1710:0 1B 0 '0x00 ' clear mpdo 0x1710 entry",
                                   "PS 1710:1 4B 71000110 '0x71000110' download mpdo 0x1710 entry",
                                   "PS 1710:0 1B 1 '0x1 ' download mpdo 0x1710 entry count",
                                   "PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                                   "PS 1c12:2 2B 1700 '0x1700' download pdo 0x1c12 index",
                                   "PS 1c12:3 2B 1710 '0x1710' download pdo 0x1c12 index",
                                   "PS 1c12:0 1B 3 '0x3 ' download pdo 0x1c12  count"};

} // namespace

void tst_ModuleStartup::conditions_data()
{
    QTest::addColumn<QStringList>("device");
    QTest::addColumn<QStringList>("whenLoaded");
    QTest::addColumn<QStringList>("whenEdited");
    const QStringList mapped{"PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries"};
    const QStringList assigned{"PS 1c10:1 2B 1700 '0x1700' download pdo 0x1c10 index",
                               "PS 1c10:0 1B 1 '0x1 ' download pdo 0x1c10  count"};
    const QStringList assignedAtOnce{"PS 1c10:0 4B 0 CA1{1700} '0x1 0x1700 ' download mpdo 0x1c10 entries"};

    QTest::addRow("without slots: nothing when edited")
        << QStringList{"flags config assign", "SM 0 outputs", "mRx 1700 @0"} << mapped + assigned << QStringList{};
    QTest::addRow("an output PDO on a virtual sync manager: mapped when edited")
        << QStringList{"slot", "flags config", "SM 0 outputs virtual", "mRx 1700 @0"} << QStringList{} << mapped;
    QTest::addRow("an input PDO on a virtual sync manager: mapped when edited")
        << QStringList{"slot", "flags config", "SM 0 inputs virtual", "mTx 1700 @0"} << QStringList{} << mapped;
    QTest::addRow("an output PDO on a sync manager that is not there: mapped when edited")
        << QStringList{"slot", "flags config", "SM 0 outputs", "mRx 1700 @1"} << tooFar << mapped;
    QTest::addRow("an input PDO on a sync manager that is not there: mapped when edited")
        << QStringList{"slot", "flags config", "mTx 1700 @0"} << tooFar << mapped;
    QTest::addRow("a virtual sync manager: assigned when edited")
        << QStringList{"slot", "flags assign", "SM 0 outputs virtual", "mRx 1700 @0"} << QStringList{} << assigned;
    QTest::addRow("a virtual sync manager, at once: assigned when edited")
        << QStringList{"slot", "flags assign complete", "SM 0 inputs virtual", "mRx 1700 @0"} << QStringList{}
        << assignedAtOnce;
    // And what does not differ.
    QTest::addRow("with slots: the same") << QStringList{"slot", "flags config assign", "SM 0 outputs", "mRx 1700 @0"}
                                          << mapped + assigned << mapped + assigned;
    QTest::addRow("fixed, on a virtual sync manager: not mapped")
        << QStringList{"slot", "flags config", "SM 0 outputs virtual", "mRx 1700 @0 fixed"} << QStringList{}
        << QStringList{};
    QTest::addRow("virtual, of no process data: not assigned")
        << QStringList{"slot", "flags assign", "SM 0 mailboxOut virtual", "mRx 1700 @0"} << QStringList{}
        << QStringList{};
    QTest::addRow("a PDO of the device on a virtual sync manager: not mapped here")
        << QStringList{"slot", "flags config", "SM 0 outputs virtual", "Rx 1600 @0"} << QStringList{} << QStringList{};
}

void tst_ModuleStartup::conditions()
{
    QFETCH(QStringList, device);
    QFETCH(QStringList, whenLoaded);
    QFETCH(QStringList, whenEdited);
    QCOMPARE(generated(device, atLoadTime), whenLoaded);
    QCOMPARE(generated(device, atEditTime), whenEdited);
}

void tst_ModuleStartup::onlyTheDeviceThatChanges()
{
    struct_FilenameDevice file;
    file.device.assign(2, deviceFrom({"slot", "flags config", "mRx 1700"}));
    appendModuleStartup(file.device[1], atEditTime);
    QCOMPARE(moduleLines(file.device[0]), QStringList());
    QCOMPARE(moduleLines(file.device[1]), QStringList{"PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries"});
}

void tst_ModuleStartup::sameForms_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QStringList>("expected");
    // Of the PDOs one is fixed, one without entries, and one of each direction has entries.
    QTest::addRow("single commands") << "config assign"
                                     << QStringList{"PS 1701:0 1B 0 '0x00 ' download mpdo 0x1701 entries",
                                                    "PS 1702:0 1B 0 '0x00 ' clear mpdo 0x1702 entry",
                                                    "PS 1702:1 4B 70000110 '0x70000110' download mpdo 0x1702 entry",
                                                    "PS 1702:0 1B 1 '0x1 ' download mpdo 0x1702 entry count",
                                                    "PS 1a00:0 1B 0 '0x00 ' clear mpdo 0x1a00 entry",
                                                    "PS 1a00:1 4B 60000110 '0x60000110' download mpdo 0x1a00 entry",
                                                    "PS 1a00:0 1B 1 '0x1 ' download mpdo 0x1a00 entry count",
                                                    "PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                                                    "PS 1c12:2 2B 1700 '0x1700' download pdo 0x1c12 index",
                                                    "PS 1c12:3 2B 1701 '0x1701' download pdo 0x1c12 index",
                                                    "PS 1c12:4 2B 1702 '0x1702' download pdo 0x1c12 index",
                                                    "PS 1c12:5 2B 1a80 '0x1a80' download pdo 0x1c12 index",
                                                    "PS 1c12:6 2B 1a00 '0x1a00' download pdo 0x1c12 index",
                                                    "PS 1c12:0 1B 6 '0x6 ' download pdo 0x1c12  count"};
    QTest::addRow("complete access")
        << "config assign complete"
        << QStringList{"PS 1701:0 1B 0 '0x00 ' download mpdo 0x1701 entries",
                       "PS 1702:0 4B 0 CA1{70000110} '0x1 0x70000110 ' download mpdo 0x1702 entries",
                       "PS 1a00:0 2B 0 CA1{60000110} '0x1 0x60000110 ' download mpdo 0x1a00 entries",
                       "PS 1c12:0 20B 0 CA1{1600,1701,1702,1a80,1a00} '0x5 0x1600 0x1701 0x1702 0x1a80 0x1a00 ' "
                       "download mpdo 0x1c12 entries",
                       "PS 1c13:0 0B 0 CA1{} '0x00 ' download mpdo 0x1c13 entries"};
}

void tst_ModuleStartup::sameForms()
{
    QFETCH(QString, flags);
    QFETCH(QStringList, expected);
    const QStringList device = usualDevice(flags, {"slot", "mTx 1a00 @2 6000:1:16", "Tx 1a80 @2", "mRx 1700 @2 fixed",
                                                   "mRx 1701 @2", "mRx 1702 @2 7000:1:16", "Rx 1600 @2"});
    QCOMPARE(generated(device, atEditTime), expected);
    QCOMPARE(generated(device, atLoadTime), expected);
}

void tst_ModuleStartup::otherListsStay()
{
    struct_EtherCatDevice device = deviceFrom(usualDevice("assign config ip mac", {"slot", "Rx 1600 @2 7000:1:8"}));
    device.Mailbox.COE.InitCmd.vinitcmd = {declaredCommand("of the device")};
    device.Mailbox.EOE.InitCmd.vinitcmd = {declaredCommand("of EoE")};
    device = rebuilt(device);
    QCOMPARE(deviceLines(device), QStringList{"IP 8000:0 0B 0 '' of the device"});
    QCOMPARE(eoeLines(device), QStringList{"IP 8000:0 0B 0 '' of EoE"});
}

void tst_ModuleStartup::appends()
{
    struct_EtherCatDevice device = deviceFrom({"slot", "flags config", "mRx 1700"});
    appendModuleStartup(device, atEditTime);
    appendModuleStartup(device, atEditTime);
    const QString mapped = QStringLiteral("PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries");
    QCOMPARE(moduleLines(device), (QStringList{mapped, mapped}));
}

void tst_ModuleStartup::pairTwice()
{
    struct_EtherCatDevice device = deviceWithModules();
    for (const char* const run : {"first", "second"}) {
        device = rebuilt(device);
        QVERIFY2(moduleLines(device) == linesWithModules, run);
        QVERIFY2(device.mRxPdo.mpdo.size() == 2, run);
    }
}

void tst_ModuleStartup::pairAfterLoading()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    file.vcommentmodule[0].vmodule = {deviceWithModules().Slots.vslot[0].slotmodule[0].module};
    file.device = {deviceWithModules()};
    for (struct_Slot& slot : file.device[0].Slots.vslot) {
        slot.slotmodule.clear();
        slot.ModuleIdent.resize(1);
        slot.ModuleIdent[0].ModuleIdent = 1;
        slot.ModuleIdent[0].Attributes.Default = 1;
    }
    putInDefaultModules(file.device[0], ModulesByIdent(file));
    generateStartup(file.device[0]);
    QCOMPARE(moduleLines(file.device[0]), linesWithModules);
    const QStringList deviceList = deviceLines(file.device[0]);
    QCOMPARE(deviceList, (QStringList{"PS 1c12:0 1B 0 '0x00 ' clear pdo 0x1c12 entry",
                                      "PS 1c13:0 1B 0 '0x00 ' clear pdo 0x1c13 entry",
                                      "PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries"}));
    // A change by hand does not outlive the pair; the list of the device, with its clearing, does.
    file.device[0].mMailbox.COE.vinitcmd.push_back(declaredModuleCommand("by hand"));
    const struct_EtherCatDevice device = rebuilt(file.device[0]);
    QCOMPARE(moduleLines(device), linesWithModules);
    QCOMPARE(deviceLines(device), deviceList);
}

void tst_ModuleStartup::declaredCommandsComeFirst()
{
    struct_EtherCatDevice device = deviceWithModules();
    device.Slots.vslot[0].slotmodule[0].module.Mailbox.COE.vinitcmd = {declaredModuleCommand("first"),
                                                                       declaredModuleCommand("second")};
    device.Slots.vslot[1].slotmodule[0].module.Mailbox.COE.vinitcmd = {declaredModuleCommand("third")};
    QCOMPARE(moduleLines(rebuilt(device)).mid(0, 4),
             (QStringList{"IP 8000:0 0B 0 '' first", "IP 8000:0 0B 0 '' second", "[slot 1] IP 8000:0 0B 0 '' third",
                          "PS 1700:0 1B 0 '0x00 ' clear mpdo 0x1700 entry"}));
}

void tst_ModuleStartup::allModulesRemoved()
{
    struct_EtherCatDevice device = rebuilt(deviceWithModules());
    for (struct_Slot& slot : device.Slots.vslot)
        slot.slotmodule.clear();
    QCOMPARE(moduleLines(rebuilt(device)), (QStringList{"PS 1c12:1 2B 1600 '0x1600' download pdo 0x1c12 index",
                                                        "PS 1c12:0 1B 1 '0x1 ' download pdo 0x1c12  count"}));
}

void tst_ModuleStartup::deviceWithoutSlots()
{
    const struct_EtherCatDevice loaded =
        withStartup(deviceFrom({"flags assign config", "SM 0 outputs", "Rx 1600 @0", "mRx 1700 @0"}));
    const QStringList expected{
        "PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries", "PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
        "PS 1c10:2 2B 1700 '0x1700' download pdo 0x1c10 index", "PS 1c10:0 1B 2 '0x2 ' download pdo 0x1c10  count"};
    QCOMPARE(moduleLines(loaded), expected);
    QCOMPARE(moduleLines(rebuilt(loaded)), expected);
}

void tst_ModuleStartup::withoutFlags()
{
    QCOMPARE(generated({"slot", "flags ip mac complete", "SM 0 outputs", "mRx 1700 @0"}, atEditTime), QStringList());
    QCOMPARE(generated({"slot", "flags assign", "SM 0 outputs", "mRx 1700 @0 7000:1:8"}, atEditTime),
             (QStringList{"PS 1c10:1 2B 1700 '0x1700' download pdo 0x1c10 index",
                          "PS 1c10:0 1B 1 '0x1 ' download pdo 0x1c10  count"}));
    QCOMPARE(generated({"slot", "flags config", "SM 0 outputs", "mRx 1700 @0"}, atEditTime),
             QStringList{"PS 1700:0 1B 0 '0x00 ' download mpdo 0x1700 entries"});
}

static const testMain::Registration<tst_ModuleStartup, QCoreApplication> registration;
#include "tst_ModuleStartup.moc"
