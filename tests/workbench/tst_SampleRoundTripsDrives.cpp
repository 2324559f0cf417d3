// The samples of drives, from their ESI files to the bytes of the export, with edits on the way.
#include "testMain.h"
#include "workbench/roundTripParts.h"

using namespace byHand;

class tst_SampleRoundTripsDrives : public RoundTripFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void servoDrive();
    void servoDriveUntouched();
    void dualAxisDrive();
    void dualAxisDriveAsIoBlock();
    void dualAxisDriveUntouched();
    void dualAxisDriveModules();
};

constexpr Identity servo{0x7E570001, 0x00010400, 0x00010002};

/// Everything of SX1-400 between the General item and the PDOs. Outputs: 16 + 8 + 8 + 32 + 32 + 16 bits; inputs:
/// 160 bits of the first PDO and 48 of the touch probe; the PDOs without sync manager count nowhere.
static QByteArrayList servoChannels(const QList<std::uint32_t>& modes)
{
    return {
        fmmus({fmmu(3), fmmu(4), fmmu(0)}),
        syncManagers({syncManager(0x1000, 64, 256, 256, 0x26, 1), syncManager(0x1100, 64, 256, 256, 0x22, 1),
                      syncManager(0x1200, 0, 64, 14, 0x64, 1), syncManager(0x1400, 0, 64, 26, 0x20, 1)}),
        operationModes(modes),
    };
}

static QByteArrayList servoPdos(int linkOfTargetPosition, int linkOfDigitalInputs)
{
    return {
        pdoItem(deviceOutputs, {0x1600, 2},
                {entry(0x6040, 0, 16), entry(0x6060, 0, 8), gap(8), entry(0x607A, 0, 32, linkOfTargetPosition),
                 entry(0x60FF, 0, 32), entry(0x6071, 0, 16)}),
        pdoItem(deviceOutputs, {0x1601, -1}, {entry(0x6040, 0, 16), entry(0x607A, 0, 32)}),
        pdoItem(deviceOutputs, {0x1602, -1}, {entry(0x6040, 0, 16), entry(0x6071, 0, 16)}),
        pdoItem(deviceInputs, {0x1A00, 3},
                {entry(0x6041, 0, 16), entry(0x6061, 0, 8), gap(8), entry(0x6064, 0, 32), entry(0x606C, 0, 32),
                 entry(0x6077, 0, 16), entry(0x603F, 0, 16), entry(0x60FD, 0, 32, linkOfDigitalInputs)}),
        pdoItem(deviceInputs, {0x1A01, -1}, {entry(0x6041, 0, 16), entry(0x6064, 0, 32)}),
        pdoItem(deviceInputs, {0x1A10, 3, true}, {entry(0x60B9, 0, 16), entry(0x60BA, 0, 32)}),
    };
}

/// What is generated after the commands of the ESI file: both assign objects are cleared, all PDOs but the fixed one
/// are mapped, those without sync manager too, and those on a sync manager are assigned, the fixed one too.
static QByteArrayList servoGenerated()
{
    return QByteArrayList{command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)}
           + mapping(0x1600, {0x60400010, 0x60600008, 0x00000008, 0x607A0020, 0x60FF0020, 0x60710010})
           + mapping(0x1601, {0x60400010, 0x607A0020}) + mapping(0x1602, {0x60400010, 0x60710010})
           + mapping(0x1A00,
                     {0x60410010, 0x60610008, 0x00000008, 0x60640020, 0x606C0020, 0x60770010, 0x603F0010, 0x60FD0020})
           + mapping(0x1A01, {0x60410010, 0x60640020}) + assignment(0x1C12, {0x1600})
           + assignment(0x1C13, {0x1A00, 0x1A10});
}

/// SdoInfo, PdoAssign, PdoUpload, PdoConfig and SegmentedSdo; complete access is read from no file.
constexpr const char* servoFlags = "01 01 01 01 01 00 00";

void tst_SampleRoundTripsDrives::servoDrive()
{
    open(samplePath("servo-drive"));
    select(0);
    setDeviceType(2); // no slots, so the axes are those that are typed
    setDriveAxes(QStringLiteral("3"));
    setOperationMode(2);
    setLink(0, 3, QStringLiteral("AOUT32 Type"));
    setLink(3, 7, QStringLiteral("DIN Type"));
    changeCommand(1, {QStringLiteral("#x6060"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("9")});
    addCommand(2, {QStringLiteral("0x2011"), QStringLiteral("7"), QStringLiteral("2"), QStringLiteral("500")});
    deleteCommand(5); // the application tag, which was the fifth before the new one
    changeCommand(37, {QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("6"), QStringLiteral("65536")}); // EoE
    const QByteArrayList commands =
        QByteArrayList{command(0x2010, 1, 4, 10000), command(0x6060, 0, 1, 9), command(0x60C2, 1, 1, 2),
                       command(0x2011, 7, 2, 500), command(0x60C2, 2, 1, 0xFD)}
        + servoGenerated();
    QCOMPARE(commands.size(), 37 + 5); // of the device and of the assignments; the EoE command is listed between them
    compareExport(QByteArrayList{general(servo, 2, true, 3)} + servoChannels({0x000, 0x700, 0x300}) + servoPdos(-8, -1)
                  + QByteArrayList{eoe(true, true, {command(initToSafeop, 0, 3, 6, 0x10000)}),
                                   coe(servoFlags, commands), byHand::end()});
}

void tst_SampleRoundTripsDrives::servoDriveUntouched()
{
    open(samplePath("servo-drive"));
    // The tag of eight bytes keeps its length, though no value of that length is held.
    const QByteArrayList commands =
        QByteArrayList{command(0x2010, 1, 4, 10000), command(0x6060, 0, 1, 8), command(0x60C2, 1, 1, 2),
                       command(0x60C2, 2, 1, 0xFD), command(safeopToOp, 0x2F10, 0, 8, 0)}
        + servoGenerated();
    compareExport(QByteArrayList{general(servo, 1, true, 1)} + servoChannels({0x300, 0x700, 0x000}) + servoPdos(0, 0)
                  + QByteArrayList{eoe(true, true, {command(initToSafeop, 0, 0, 1, 0)}), coe(servoFlags, commands),
                                   byHand::end()});
}

constexpr Identity dualAxis{0x7E570001, 0x00020400, 0x00010005};

/// SX2-400 from the FMMUs to the operation modes. Each axis brings 8 bytes each way, and the drive itself 4 bytes of
/// inputs.
static QByteArrayList dualAxisChannels(std::uint32_t outputs, std::uint32_t inputs)
{
    return {
        fmmus({fmmu(3), fmmu(4), fmmu(0)}),
        syncManagers({syncManager(0x1000, 34, 256, 128, 0x26, 1), syncManager(0x1100, 34, 256, 128, 0x22, 1),
                      syncManager(0x1200, 0, 64, outputs, 0x64, 1), syncManager(0x1400, 0, 128, inputs, 0x20, 1)}),
        operationModes({0x300}),
    };
}

static QByteArray commonInputs(int linkOfVoltage)
{
    return pdoItem(deviceInputs, {0x1AF0, 3, true, true},
                   {entry(0x2000, 1, 16, linkOfVoltage), entry(0x2000, 2, 8), gap(8)});
}

/// The PDOs of both axes: the second axis is in slot group 1, so its PDO indexes are 16 and its objects 0x800 above.
static QByteArrayList axisPdos(int linkOfFirstTarget)
{
    return {
        pdoItem(deviceOutputs, {0x1600, 2},
                {entry(0x6040, 0, 16), entry(0x607A, 0, 32, linkOfFirstTarget), entry(0x60B2, 0, 16)}),
        pdoItem(deviceOutputs, {0x1610, 2}, {entry(0x6840, 0, 16), entry(0x687A, 0, 32), entry(0x68B2, 0, 16)}),
        pdoItem(deviceInputs, {0x1A00, 3}, {entry(0x6041, 0, 16), entry(0x6064, 0, 32), entry(0x6077, 0, 16)}),
        pdoItem(deviceInputs, {0x1A10, 3}, {entry(0x6841, 0, 16), entry(0x6864, 0, 32), entry(0x6877, 0, 16)}),
    };
}

/// The module list: the mode of each axis, the mappings of their PDOs.
static QByteArrayList axisCommands()
{
    return QByteArrayList{command(0x6060, 0, 1, 8), command(0x6860, 0, 1, 8)}
           + mapping(0x1600, {0x60400010, 0x607A0020, 0x60B20010})
           + mapping(0x1610, {0x68400010, 0x687A0020, 0x68B20010})
           + mapping(0x1A00, {0x60410010, 0x60640020, 0x60770010})
           + mapping(0x1A10, {0x68410010, 0x68640020, 0x68770010});
}

static QByteArrayList axisAssignments()
{
    return assignment(0x1C12, {0x1600, 0x1610}) + assignment(0x1C13, {0x1AF0, 0x1A00, 0x1A10});
}

static QByteArrayList dualAxisTail()
{
    return {
        slotItem({false, 16, 0x800},
                 {slot(1, 1, 0x800, 16), slot(0, 1, 0x800, 16), slot(1, 1, 0x800, 16), slot(0, 1, 0x800, 16)}),
        moreInfoItem({"SX2-400 two-axis servo drive, 2 x 400 W", "Cyclic synchronous position axis",
                      "Cyclic synchronous velocity axis", "Cyclic synchronous torque axis",
                      "Second encoder of the axis"}),
        byHand::end(),
    };
}

constexpr const char* dualAxisFlags = "01 01 00 01 01 00 00";

/// The fixed PDO of the drive is not mapped.
static QByteArrayList clearedAssignments()
{
    return {command(0x1C12, 0, 1, 0), command(0x1C13, 0, 1, 0)};
}

void tst_SampleRoundTripsDrives::dualAxisDrive()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    setDeviceType(4); // a special device: no axes, but the PDOs of its modules are written
    setOperationMode(0); // the only one
    setLink(0, 0, QStringLiteral("AIN16 Type"));
    setLink(1, 1, QStringLiteral("AOUT32 Type")); // after the own PDO, the first one of the modules
    changeCommand(0, {QStringLiteral("#x2001"), QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("3")});
    addCommand(1, {QStringLiteral("#x2002"), QStringLiteral("1"), QStringLiteral("4"), QStringLiteral("4294967295")});
    deleteCommand(3); // the second of the two that clear the assign objects
    addCommand(3, {QStringLiteral("#x6072"), QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("1000")});
    changeCommand(5, {QStringLiteral("#x6860"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("10")});
    QByteArrayList modules = axisCommands();
    modules[1] = command(0x6860, 0, 1, 10);
    modules.insert(1, command(0x6072, 0, 2, 1000));
    compareExport(QByteArrayList{general(dualAxis, 4, true, 0)} + dualAxisChannels(16, 20)
                  + QByteArrayList{commonInputs(-4)} + axisPdos(-8)
                  + QByteArrayList{eoe(false, false, {}),
                                   coe(dualAxisFlags, QByteArrayList{command(0x2001, 0, 2, 3), command(0x1C12, 0, 1, 0),
                                                                     command(0x2002, 1, 4, 0xFFFFFFFF)}
                                                          + modules + axisAssignments())}
                  + dualAxisTail());
}

/// As a plain block the drive has no module data; its own PDO is still assigned, and the slots are still written.
void tst_SampleRoundTripsDrives::dualAxisDriveAsIoBlock()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    setDeviceType(0);
    compareExport(QByteArrayList{general(dualAxis, 0, true, 0)} + dualAxisChannels(0, 4)
                  + QByteArrayList{commonInputs(0), eoe(false, false, {}),
                                   coe(dualAxisFlags, QByteArrayList{command(0x2001, 0, 2, 1)} + clearedAssignments()
                                                          + assignment(0x1C13, {0x1AF0}))}
                  + dualAxisTail());
}

/// Never selected: the module PDOs are not yet counted for the sync managers.
void tst_SampleRoundTripsDrives::dualAxisDriveUntouched()
{
    open(samplePath("dual-axis-drive"));
    compareExport(QByteArrayList{general(dualAxis, 2, true, 2)} + dualAxisChannels(0, 4)
                  + QByteArrayList{commonInputs(0)} + axisPdos(0)
                  + QByteArrayList{eoe(false, false, {}),
                                   coe(dualAxisFlags, QByteArrayList{command(0x2001, 0, 2, 1)} + clearedAssignments()
                                                          + axisCommands() + axisAssignments())}
                  + dualAxisTail());
}

/// A second encoder for each axis, and another mode for the second one; the first one is taken out. The axes are
/// counted by the names of the slots, not by the modules in them.
void tst_SampleRoundTripsDrives::dualAxisDriveModules()
{
    open(samplePath("dual-axis-drive"));
    select(0);
    setDeviceType(1);
    setDeviceType(2);
    QCOMPARE(part<QLineEdit>(*m_window, "DriveAxies")->text(), QStringLiteral("0x2"));
    insertModule(1, 0, 3); // the encoder of the first axis
    insertModule(3, 0, 3); // and that of the second
    insertModule(2, 0, 2); // the second axis: torque instead of position
    insertModule(0, 0, 3, {pressing(QMessageBox::Ok)}); // an encoder is no axis
    deleteModule(0);
    const auto encoder = [](std::uint32_t pdo, std::uint32_t object) {
        return pdoItem(deviceInputs, {pdo, 3, true},
                       {entry(object, 1, 32), entry(object, 2, 1), entry(object, 3, 1), gap(14)});
    };
    const QByteArrayList pdos{
        pdoItem(deviceOutputs, {0x1612, 2}, {entry(0x6840, 0, 16), entry(0x6871, 0, 16)}),
        encoder(0x1A08, 0x2100),
        pdoItem(deviceInputs, {0x1A12, 3}, {entry(0x6841, 0, 16), entry(0x6877, 0, 16)}),
        encoder(0x1A18, 0x2900),
    };
    const QByteArrayList modules = QByteArrayList{command(0x6860, 0, 1, 10), command(0x6872, 0, 2, 1000)}
                                   + mapping(0x1612, {0x68400010, 0x68710010})
                                   + mapping(0x1A12, {0x68410010, 0x68770010}) + assignment(0x1C12, {0x1612})
                                   + assignment(0x1C13, {0x1AF0, 0x1A08, 0x1A12, 0x1A18});
    // Outputs 4 bytes; inputs 4 of the drive, 6 of each encoder, 4 of the axis.
    compareExport(
        QByteArrayList{general(dualAxis, 2, true, 2)} + dualAxisChannels(4, 20) + QByteArrayList{commonInputs(0)} + pdos
        + QByteArrayList{eoe(false, false, {}),
                         coe(dualAxisFlags, QByteArrayList{command(0x2001, 0, 2, 1)} + clearedAssignments() + modules)}
        + dualAxisTail());
}

static const testMain::Registration<tst_SampleRoundTripsDrives, QApplication> registration;
#include "tst_SampleRoundTripsDrives.moc"
