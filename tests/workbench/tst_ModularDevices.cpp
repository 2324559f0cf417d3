// Devices of the types 2 and 4, whose module PDOs are written as their own: modules are put in, replaced and taken out
// through the Module tab, and every byte of the export is worked out from the ESI text.
#include "testMain.h"
#include "workbench/modularEsi.h"
#include "workbench/roundTripParts.h"

using namespace byHand;

class tst_ModularDevices : public RoundTripFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void multiDriveUntouched();
    void multiDriveEdited();
    void specialDeviceUntouched();
    void specialDeviceEdited();
    static void driveByItsModules_data();
    void driveByItsModules();
};

constexpr Identity identity{0x77, 17, 0x20, 5};
constexpr std::uint32_t preopToInit = 4; // transition PI

static QByteArray channels(std::uint32_t outputs, std::uint32_t inputs)
{
    return syncManagers({syncManager(0x1000, 0, 0, 64, 0x26, 1), syncManager(0x1080, 0, 0, 64, 0x22, 1),
                         syncManager(0x1100, 0, 0, outputs, 0x64, 1), syncManager(0x1200, 0, 0, inputs, 0x20, 1)});
}

/// A drive whose slots have 2, 1 and 3 places: two default modules in the first slot, none in the second, which takes
/// any module, and one in the third. The first slot declares steps of its own, which do not count.
static QString multiDrive()
{
    const char* const bySlot = "DependOnSlot=\"1\"";
    const QString output = pdoText("RxPdo", "Sm=\"2\"", indexText("#x1600", bySlot),
                                   {entryText(indexText("#x7000", bySlot), 1, 16), entryText(indexText("#x7800"), 2, 8),
                                    entryText(indexText("#x0"), 0, 8)});
    const QString inputs =
        pdoText("TxPdo", "Sm=\"3\" Fixed=\"1\"", indexText("#x1A00", bySlot),
                {entryText(indexText("#x6000", bySlot), 1, 12), entryText(indexText("#x6000", bySlot), 2, 3)})
        + pdoText("TxPdo", "Su=\"3\"", indexText("#x1AE0"), {entryText(indexText("#x6100"), 1, 32)});
    const QString both =
        pdoText("RxPdo", "Sm=\"2\" Su=\"1\" Mandatory=\"1\"", indexText("#x1601", bySlot), {})
        + pdoText("TxPdo", "Sm=\"3\"", indexText("#x1A01", bySlot), {entryText(indexText("#x6200", bySlot), 1, 8)});
    return modularText({
        "402",
        "PdoAssign=\"1\" PdoConfig=\"1\"",
        pdoText("RxPdo", "Sm=\"2\"", indexText("#x1700"), {entryText(indexText("#x3000"), 1, 8)}),
        "SlotPdoIncrement=\"4\" SlotIndexIncrement=\"#x100\"",
        slotText("MaxInstances=\"2\" SlotPdoIncrement=\"9\" SlotIndexIncrement=\"7\"",
                 defaultIdent("1") + defaultIdent("2") + ident("3"))
            + slotText("MaxInstances=\"1\" MinInstances=\"1\"", QString())
            + slotText("MaxInstances=\"3\"", ident("1") + defaultIdent("2")),
        "<!--all-->"
            + moduleText("ModuleIdent=\"1\"", "Out", output,
                         {initCmdText("PS", indexText("#x8000", bySlot), 1, "0A00"),
                          initCmdText("PI", indexText("#x8100"), 2, "01")})
            + moduleText("ModuleIdent=\"2\"", "In", inputs) + moduleText("ModuleIdent=\"3\"", "Both", both),
    });
}

static QByteArray ownOutput()
{
    return pdoItem(deviceOutputs, {0x1700, 2}, {entry(0x3000, 1, 8)});
}

static QByteArray outputOf(std::uint32_t pdo, std::uint32_t object)
{
    return pdoItem(deviceOutputs, {pdo, 2}, {entry(object, 1, 16), entry(0x7800, 2, 8), gap(8)});
}

/// The two PDOs of the module with inputs; the second one is on no sync manager and does not move.
static QByteArrayList inputsOf(std::uint32_t pdo, std::uint32_t object)
{
    return {
        pdoItem(deviceInputs, {pdo, 3, true}, {entry(object, 1, 12), entry(object, 2, 3)}),
        pdoItem(deviceInputs, {0x1AE0, -1, false, false, 3}, {entry(0x6100, 1, 32)}),
    };
}

/// What the device itself has: its assign objects are cleared, its PDO is mapped.
static QByteArrayList ownCommands()
{
    return QByteArrayList{command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)} + mapping(0x1700, {0x30000108});
}

static QByteArrayList outputCommands(std::uint32_t object)
{
    return {command(object, 1, 2, 10), command(preopToInit, 0x8100, 2, 1, 1)};
}

static QByteArrayList freeInputs()
{
    return mapping(0x1AE0, {0x61000120});
}

static QByteArrayList multiDriveTail()
{
    return {slotItem({false, 4, 0x100}, {slot(0, 2, 0x100, 4), slot(1, 1, 0x100, 4), slot(0, 3, 0x100, 4)}),
            moreInfoItem({"Modular", "Out", "In", "Both"}), byHand::end()};
}

constexpr const char* assignAndConfig = "00 01 00 01 00 00 00";

/// At load a module moves by the number of its slot: 0, 0 and 2. Each of the three counts as an axis, and none of
/// their PDOs for the sync managers.
void tst_ModularDevices::multiDriveUntouched()
{
    openText("multi.xml", multiDrive());
    compareExport(
        QByteArrayList{general(identity, 2, false, 3), channels(1, 0), ownOutput(), outputOf(0x1600, 0x7000)}
        + inputsOf(0x1A00, 0x6000) + inputsOf(0x1A08, 0x6200)
        + QByteArrayList{eoe(false, false, {}),
                         coe(assignAndConfig, ownCommands() + outputCommands(0x8000)
                                                  + mapping(0x1600, {0x70000110, 0x78000208, 0x00000008}) + freeInputs()
                                                  + freeInputs() + assignment(0x1C12, {0x1700, 0x1600})
                                                  + assignment(0x1C13, {0x1A00, 0x1A08}))}
        + multiDriveTail());
}

/// Through the tab a module moves by its place, counted over all slots. The place of a default module is the number of
/// its slot, so the one of the third slot is out of reach: its slot has the places 3 to 5.
void tst_ModularDevices::multiDriveEdited()
{
    openText("multi.xml", multiDrive());
    select(0);
    insertModule(1, 0, 2); // "Both"
    insertModule(0, 0, 1); // "In" in place of the first of the two modules at place 0
    insertModule(2, 0, 0); // "Out", in the slot that takes any
    insertModule(4, 0, 1); // "In" after the one that is there by default
    insertModule(3, 0, 2, {pressing(QMessageBox::Ok)}); // "Both" does not fit
    deleteModule(3); // is empty
    const QByteArrayList inputs = inputsOf(0x1A00, 0x6000) + inputsOf(0x1A00, 0x6000)
                                  + QByteArrayList{pdoItem(deviceInputs, {0x1A05, 3}, {entry(0x6300, 1, 8)})}
                                  + inputsOf(0x1A08, 0x6200) + inputsOf(0x1A10, 0x6400);
    const QByteArrayList inputMapping =
        freeInputs() + freeInputs() + mapping(0x1A05, {0x63000108}) + freeInputs() + freeInputs();
    const QByteArrayList inputAssignment = assignment(0x1C13, {0x1A00, 0x1A00, 0x1A05, 0x1A08, 0x1A10});
    // Outputs 1 + 0 + 4. Inputs: four times 15 bits, which is 1.7, and 1 are 7.8: tenths carry nothing over.
    // The PDO without entries is cleared and assigned, but it has no item.
    compareExport(QByteArrayList{general(identity, 2, false, 3), channels(5, 7), ownOutput(), outputOf(0x1608, 0x7200)}
                  + inputs
                  + QByteArrayList{eoe(false, false, {}),
                                   coe(assignAndConfig,
                                       ownCommands() + outputCommands(0x8200) + QByteArrayList{command(0x1605, 0, 1, 0)}
                                           + mapping(0x1608, {0x72000110, 0x78000208, 0x00000008}) + inputMapping
                                           + assignment(0x1C12, {0x1700, 0x1605, 0x1608}) + inputAssignment)}
                  + multiDriveTail());
    deleteModule(2); // the slot of this place has "Out" there; the default of the third slot, of the same number, stays
    compareExport(
        QByteArrayList{general(identity, 2, false, 3), channels(1, 7), ownOutput()} + inputs
        + QByteArrayList{eoe(false, false, {}),
                         coe(assignAndConfig, ownCommands() + QByteArrayList{command(0x1605, 0, 1, 0)} + inputMapping
                                                  + assignment(0x1C12, {0x1700, 0x1605}) + inputAssignment)}
        + multiDriveTail());
}

/// A special device whose slots are in group 0, in group 3 and in none, with steps that wrap at 16 bits.
static QString specialDevice()
{
    const char* const bySlot = "DependOnSlot=\"1\"";
    const char* const byGroup = "DependOnSlotGroup=\"1\"";
    const char* const byBoth = "DependOnSlotGroup=\"1\" DependOnSlot=\"1\"";
    const QString pdos =
        pdoText("RxPdo", "Sm=\"2\" Fixed=\"1\"", indexText("#x1600", byGroup),
                {entryText(indexText("#x7000", byGroup), 1, 8), entryText(indexText("#x7100", bySlot), 2, 8)})
        + pdoText("TxPdo", "Sm=\"3\"", indexText("#x1A00", byBoth), {entryText(indexText("#x6000", byBoth), 1, 16)});
    return modularText({
        "9999",
        "SdoInfo=\"1\" PdoAssign=\"1\"",
        QString(),
        "MaxSlotGroupCount=\"4\" SlotPdoIncrement=\"1\" SlotIndexIncrement=\"#x7000\""
        " SlotGroupPdoIncrement=\"#x8000\" SlotGroupIndexIncrement=\"#xFF00\"",
        slotText("MaxInstances=\"1\" SlotGroup=\"0\"", ident("7"))
            + slotText("MaxInstances=\"1\" SlotGroup=\"3\"", defaultIdent("7"))
            + slotText("MaxInstances=\"2\"", defaultIdent("7")),
        moduleText("ModuleIdent=\"7\"", "Seven", pdos,
                   {initCmdText("PS", indexText("#x8000", byGroup), 1, "05"),
                    initCmdText("PS", indexText("#x9000", bySlot), 2, "06")}),
    });
}

namespace {

struct MovedModule
{
    std::uint32_t outputs;
    std::uint32_t firstOutput;
    std::uint32_t secondOutput;
    std::uint32_t inputs;
    std::uint32_t input;
    std::uint32_t firstCommand;
    std::uint32_t secondCommand;
};

} // namespace

constexpr MovedModule inGroup0{0x1600, 0x7000, 0x7100, 0x1A00, 0x6000, 0x8000, 0x9000};
// 3 * 0x8000 is 0x8000 in 16 bits, 3 * 0xFF00 is 0xFD00; what depends on the slot does not move, even where it
// depends on the group as well.
constexpr MovedModule inGroup3{0x9600, 0x6D00, 0x7100, 0x1A00, 0x6000, 0x7D00, 0x9000};
// 2 * 0x7000 is 0xE000; what depends on the group does not move.
constexpr MovedModule atPlace2{0x1600, 0x7000, 0x5100, 0x1A02, 0x4000, 0x8000, 0x7000};
// 3 * 0x7000 is 0x5000 in 16 bits.
constexpr MovedModule atPlace3{0x1600, 0x7000, 0xC100, 0x1A03, 0xB000, 0x8000, 0xE000};

static QByteArrayList specialDeviceItems(const QList<MovedModule>& modules, std::uint32_t length)
{
    QByteArrayList outputItems;
    QByteArrayList inputItems;
    QByteArrayList commands{command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)};
    QList<std::uint32_t> outputs;
    QList<std::uint32_t> inputs;
    for (const MovedModule& moved : modules) {
        outputItems += pdoItem(deviceOutputs, {moved.outputs, 2, true},
                               {entry(moved.firstOutput, 1, 8), entry(moved.secondOutput, 2, 8)});
        inputItems += pdoItem(deviceInputs, {moved.inputs, 3}, {entry(moved.input, 1, 16)});
        commands += command(moved.firstCommand, 1, 1, 5);
        commands += command(moved.secondCommand, 2, 1, 6);
        outputs += moved.outputs;
        inputs += moved.inputs;
    }
    commands += assignment(0x1C12, outputs) + assignment(0x1C13, inputs); // without PdoConfig nothing is mapped
    return QByteArrayList{general(identity, 4, true, 0), channels(length, length)} + outputItems + inputItems
           + QByteArrayList{eoe(false, false, {}), coe("01 01 00 00 00 00 00", commands),
                            slotItem({false, 1, 0x7000},
                                     {slot(0, 1, 0xFF00, 0x8000), slot(0, 1, 0xFF00, 0x8000), slot(0, 2, 0x7000, 1)}),
                            moreInfoItem({"Modular", "Seven"}), byHand::end()};
}

/// The steps of groups differ from those of slots, of which the export warns once.
void tst_ModularDevices::specialDeviceUntouched()
{
    openText("special.xml", specialDevice());
    compareExport(specialDeviceItems({inGroup3, atPlace2}, 0), {pressing(QMessageBox::Ok)});
}

void tst_ModularDevices::specialDeviceEdited()
{
    openText("special.xml", specialDevice());
    select(0);
    insertModule(3, 0, 0);
    insertModule(0, 0, 0);
    compareExport(specialDeviceItems({inGroup0, inGroup3, atPlace2, atPlace3}, 8), {pressing(QMessageBox::Ok)});
    deleteModule(1);
    insertModule(2, 0, 0); // by itself
    compareExport(specialDeviceItems({inGroup0, atPlace2, atPlace3}, 6), {pressing(QMessageBox::Ok)});
}

void tst_ModularDevices::driveByItsModules_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addRow("special device") << "9999";
    QTest::addRow("coupler") << "5001";
}

/// A module of profile 402 makes its device a multi-axis drive. The module before it is no axis, the one after it is.
void tst_ModularDevices::driveByItsModules()
{
    QFETCH(QString, profile);
    const QByteArray profileText = profile.toLatin1();
    const QString input = pdoText("TxPdo", "Sm=\"3\" Fixed=\"1\"", indexText("#x1A00", "DependOnSlot=\"1\""),
                                  {entryText(indexText("#x6000"), 1, 8)});
    openText(
        "turning.xml",
        modularText(
            {profileText.constData(), "", QString(), "SlotPdoIncrement=\"2\" SlotIndexIncrement=\"0\"",
             slotText("MaxInstances=\"1\"", defaultIdent("1")) + slotText("MaxInstances=\"1\"", defaultIdent("2"))
                 + slotText("MaxInstances=\"1\"", defaultIdent("1")),
             moduleText("ModuleIdent=\"1\"", "Plain", input)
                 + moduleText("ModuleIdent=\"2\"", "Axis", input + "<Profile><ProfileNo>402</ProfileNo></Profile>")}));
    const auto inputItem = [](std::uint32_t pdo) {
        return pdoItem(deviceInputs, {pdo, 3, true}, {entry(0x6000, 1, 8)});
    };
    const auto items = [&](std::uint32_t inputs) {
        return QByteArrayList{general(identity, 2, false, 2),
                              channels(0, inputs),
                              inputItem(0x1A00),
                              inputItem(0x1A02),
                              inputItem(0x1A04),
                              noMailbox(),
                              slotItem({false, 2, 0}, {slot(0, 1, 0, 2), slot(0, 1, 0, 2), slot(0, 1, 0, 2)}),
                              moreInfoItem({"Modular", "Plain", "Axis"}),
                              byHand::end()};
    };
    compareExport(items(0));
    select(0); // keeps the axes that were counted
    compareExport(items(3));
}

static const testMain::Registration<tst_ModularDevices, QApplication> registration;
#include "tst_ModularDevices.moc"
