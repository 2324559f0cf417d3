// Devices of the types 3 and 5, which the modules of the file follow as blocks, and the preset of places that
// type 5 has: every byte of the export is worked out from the ESI text.
#include "testMain.h"
#include "workbench/modularEsi.h"
#include "workbench/roundTripParts.h"

using namespace byHand;

class tst_ModularDevicesBlocks : public RoundTripFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void couplerUntouched();
    void couplerSelected();
    void presetUntouched();
    void presetEdited();
    void backToTheCoupler();
    void placesWrapAtByteWidth();
};

constexpr Identity identity{0x77, 17, 0x20, 5};
constexpr std::uint32_t alphaIdent = 0x0A;
constexpr std::uint32_t betaIdent = 0x0B;
constexpr std::uint32_t gammaIdent = 0x0C;

constexpr const char* bySlot = "DependOnSlot=\"1\"";

/// Outputs: the first PDO is on no sync manager, the other two make one item. Inputs: entries longer than a byte can
/// tell. All but the inputs are fixed.
static QString alphaText()
{
    return moduleText(
        "ModuleIdent=\"10\" ModulePdoGroup=\"3\" SRA_ParamterSupported=\"1\"", "Alpha",
        pdoText("RxPdo", "Fixed=\"1\"", indexText("#x1600"), {entryText(indexText("#x7000"), 1, 8)})
            + pdoText("RxPdo", "Fixed=\"1\" Mandatory=\"1\" Sm=\"2\" Su=\"2\"", indexText("#x1601", bySlot),
                      {entryText(indexText("#x7001"), 1, 264), entryText(indexText("#x7002", bySlot), 2, 16)})
            + pdoText("RxPdo", "Fixed=\"1\" Sm=\"2\"", indexText("#x1602"), {entryText(indexText("#x7003"), 3, 8)})
            + pdoText("TxPdo", "Sm=\"3\"", indexText("#x1A00", bySlot),
                      {entryText(indexText("#x6000", bySlot), 1, 264), entryText(indexText("#x6000", bySlot), 2, 256)}),
        {initCmdText("SO", indexText("#x8000", bySlot), 9, "CDAB")});
}

/// One PDO that is on no sync manager.
static QString betaText()
{
    return moduleText(
        "ModuleIdent=\"11\"", "Beta",
        pdoText("RxPdo", "", indexText("#x1610", bySlot), {entryText(indexText("#x7100", bySlot), 1, 8)}));
}

/// One PDO without entries, and one that is on no sync manager.
static QString gammaText()
{
    return moduleText("ModuleIdent=\"12\"", "Gamma",
                      pdoText("RxPdo", "Sm=\"2\"", indexText("#x1620", bySlot), {})
                          + pdoText("RxPdo", "", indexText("#x1621", bySlot), {entryText(indexText("#x7200"), 1, 16)}));
}

/// A coupler with two slots of two places each, and one without places, whose default module is never put in.
static QString coupler()
{
    return modularText({
        "5001",
        "PdoAssign=\"1\" PdoConfig=\"1\"",
        QString(),
        "SlotPdoIncrement=\"2\" SlotIndexIncrement=\"16\" DownloadModuleAddressList=\"0\"",
        slotText("MaxInstances=\"2\"", defaultIdent("10"))
            + slotText("MaxInstances=\"2\" MinInstances=\"1\"", ident("11") + defaultIdent("12"))
            + slotText("MaxInstances=\"0\"", defaultIdent("11")),
        "<!--one-->" + alphaText() + betaText() + "<!--two-->" + gammaText(),
    });
}

static QByteArray channels(std::uint32_t outputs, std::uint32_t inputs)
{
    return syncManagers({syncManager(0x1000, 0, 0, 64, 0x26, 1), syncManager(0x1080, 0, 0, 64, 0x22, 1),
                         syncManager(0x1100, 0, 0, outputs, 0x64, 1), syncManager(0x1200, 0, 0, inputs, 0x20, 1)});
}

static QByteArray slotTable()
{
    return slotItem({false, 2, 16}, {slot(0, 2, 16, 2), slot(1, 2, 16, 2), slot(0, 0, 16, 2)});
}

static QByteArray names()
{
    return moreInfoItem({"Modular", "Alpha", "Beta", "Gamma"});
}

static QByteArrayList alphaBlock(int linkOfSecondInput)
{
    return {
        module(alphaIdent, 3, true),
        pdoItem(
            moduleOutputs, {0x1601, 2, true, true, 2},
            {moduleEntry(false, 0x7001, 1, 264), moduleEntry(true, 0x7002, 2, 16), moduleEntry(false, 0x7003, 3, 8)}),
        // Of the lengths of inputs the low byte is written.
        pdoItem(moduleInputs, {0x1A00, 3},
                {moduleEntry(true, 0x6000, 1, 8), moduleEntry(true, 0x6000, 2, 0, linkOfSecondInput)}),
        // The value of a mapped entry is a plain sum, so these lengths carry into the subindex. Both outputs are
        // assigned at subindex 1.
        moduleStartup({moduleCommand(true, 0x1A00, 0, 1, 0), moduleCommand(true, 0x1A00, 1, 4, 0x60000208),
                       moduleCommand(true, 0x1A00, 2, 4, 0x60000300), moduleCommand(true, 0x1A00, 0, 1, 2),
                       moduleCommand(true, 0x8000, 9, 2, 0xABCD), moduleCommand(true, 0x1C12, 1, 2, 0x1601),
                       moduleCommand(true, 0x1C12, 1, 2, 0x1602), moduleCommand(true, 0x1C13, 1, 2, 0x1A00)}),
    };
}

/// Gamma announces 1 record for the assignment and 0 + 2 for the PDO without entries on a sync manager; written are
/// the 3 of the PDO on none, and the assignment. A reader that goes by sizes loses its way here.
static QByteArray gammaStartup()
{
    constexpr std::uint32_t announced = 3;
    return le32(40104) + le32(12 + 16 * announced) + le32(announced) + moduleCommand(true, 0x1621, 0, 1, 0)
           + moduleCommand(true, 0x1621, 1, 4, 0x72000110) + moduleCommand(true, 0x1621, 0, 1, 1)
           + moduleCommand(true, 0x1C12, 1, 2, 0x1620);
}

/// Beta has no item but its own: none of its PDOs is on a sync manager, and without one no records are counted.
static QByteArrayList blocks(int linkOfSecondInput = 0)
{
    return alphaBlock(linkOfSecondInput)
           + QByteArrayList{module(betaIdent), module(gammaIdent), pdoItem(moduleOutputs, {0x1620, 2}, {}),
                            gammaStartup(), byHand::end()};
}

/// Alpha's inputs, the only PDO of Alpha that is mapped.
static QByteArrayList alphaMapping()
{
    return mapping(0x1A00, {0x60000208, 0x60000300});
}

/// Gamma at place 1: the PDO without entries is cleared, the other one is mapped.
static QByteArrayList gammaMapping()
{
    return QByteArrayList{command(0x1622, 0, 1, 0)} + mapping(0x1623, {0x72000110});
}

/// What Alpha at place 0 and Gamma at place 1 bring.
static QByteArrayList defaultCommands()
{
    return QByteArrayList{command(safeopToOp, 0x8000, 9, 2, 0xABCD)} + gammaMapping() + alphaMapping()
           + assignment(0x1C12, {0x1601, 0x1602, 0x1622}) + assignment(0x1C13, {0x1A00});
}

static QByteArrayList mailbox(const QByteArrayList& moduleCommands)
{
    return {eoe(false, false, {}),
            coe("00 01 00 01 00 00 00",
                QByteArrayList{command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)} + moduleCommands)};
}

void tst_ModularDevicesBlocks::couplerUntouched()
{
    openText("coupler.xml", coupler());
    compareExport(QByteArrayList{general(identity, 3, false, 0, 4, 3), channels(0, 0)} + mailbox(defaultCommands())
                  + QByteArrayList{slotTable(), names()} + blocks());
}

/// A coupler that finds its modules itself has no commands of modules, nor of anything else, once it is selected.
void tst_ModularDevicesBlocks::couplerSelected()
{
    openText("coupler.xml", coupler());
    select(0);
    deleteModule(0, {pressing(QMessageBox::Ok)}); // refused
    compareExport(QByteArrayList{general(identity, 3, false, 0, 4, 3), channels(0, 0)} + mailbox({})
                  + QByteArrayList{slotTable(), names()} + blocks());
}

/// Outputs 264 + 16 and 8 bits, inputs 520 bits.
static QByteArrayList presetItems(const QByteArrayList& behindLengths)
{
    return QByteArrayList{general(identity, 5, false, 0, 4, 3), channels(36, 65)} + behindLengths;
}

void tst_ModularDevicesBlocks::presetUntouched()
{
    openText("coupler.xml", coupler());
    select(0);
    setDeviceType(5);
    compareExport(presetItems(mailbox(defaultCommands())
                              + QByteArrayList{slotTable(), slotPreset(2, {alphaIdent, gammaIdent, 0, 0}), names()}
                              + blocks()));
}

/// The slots have the places 0, 1 and 2, 3. The default of the second slot is at place 1, which is one of the first.
void tst_ModularDevicesBlocks::presetEdited()
{
    openText("coupler.xml", coupler());
    select(0);
    setDeviceType(5);
    setModuleLink(0, 0, 3, 1, QStringLiteral("AIN32 Type")); // as the file declares it: modules in slots are copies
    insertModule(3, 0, 1); // Beta
    insertModule(2, 0, 0, {pressing(QMessageBox::Ok)}); // Alpha does not fit into the second slot
    deleteModule(1); // the first slot has nothing there
    deleteModule(0);
    const QByteArrayList commands = gammaMapping() + mapping(0x1616, {0x71300108}) + assignment(0x1C12, {0x1622});
    const auto items = [](const QByteArrayList& behindLengths) {
        return QByteArrayList{general(identity, 5, false, 0, 4, 3), channels(0, 0)} + behindLengths;
    };
    compareExport(items(mailbox(commands)
                        + QByteArrayList{slotTable(), slotPreset(2, {0, gammaIdent, 0, betaIdent}), names()}
                        + blocks(-5)));
    insertModule(3, 1, 0); // Gamma in place of Beta
    deleteModule(2); // is empty
    const QByteArrayList twoGammas = gammaMapping() + QByteArrayList{command(0x1626, 0, 1, 0)}
                                     + mapping(0x1627, {0x72000110}) + assignment(0x1C12, {0x1622, 0x1626});
    compareExport(items(mailbox(twoGammas)
                        + QByteArrayList{slotTable(), slotPreset(2, {0, gammaIdent, 0, gammaIdent}), names()}
                        + blocks(-5)));
}

/// The modules stay in the slots while the type has none; set back, they are there again.
void tst_ModularDevicesBlocks::backToTheCoupler()
{
    openText("coupler.xml", coupler());
    select(0);
    setDeviceType(5);
    setDeviceType(3);
    compareExport(QByteArrayList{general(identity, 3, false, 0, 4, 3), channels(0, 0)} + mailbox({})
                  + QByteArrayList{slotTable(), names()} + blocks());
    setDeviceType(5);
    compareExport(presetItems(mailbox(defaultCommands())
                              + QByteArrayList{slotTable(), slotPreset(2, {alphaIdent, gammaIdent, 0, 0}), names()}
                              + blocks()));
}

/// 17 slots: 16 of 16 places, though the file says more, and one of 3. The preset counts 259 places in a byte.
void tst_ModularDevicesBlocks::placesWrapAtByteWidth()
{
    QString slotTexts = slotText("MaxInstances=\"3\"", defaultIdent("11"));
    QByteArrayList slotRecords{slot(0, 3, 0, 0)};
    for (int number = 1; number <= 16; ++number) {
        slotTexts += slotText("MaxInstances=\"100\"", number == 2 || number == 3 ? defaultIdent("11") : QString());
        slotRecords += slot(0, 16, 0, 0);
    }
    openText("wide.xml", modularText({"0", "", QString(), "", slotTexts, betaText()}));
    select(0);
    setDeviceType(5);
    // Default modules are at the places 0, 2 and 3; of these the preset of 3 places has two.
    compareExport({general(identity, 5, false, 0, 259, 1), channels(0, 0), noMailbox(),
                   slotItem({false, 0, 0}, slotRecords), slotPreset(2, {betaIdent, 0, betaIdent}),
                   moreInfoItem({"Modular", "Beta"}), module(betaIdent), byHand::end()});
}

static const testMain::Registration<tst_ModularDevicesBlocks, QApplication> registration;
#include "tst_ModularDevicesBlocks.moc"
