// The samples without mailbox, from their ESI files to the bytes of the export, with edits on the way.
#include "testMain.h"
#include "workbench/roundTripParts.h"

using namespace byHand;

class tst_SampleRoundTripsIo : public RoundTripFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void ioBlock();
    void ioBlockUntouched();
    void oversamplingTerminal();
    void oversamplingTerminalUntouched();
};

/// FB-1616D. Its process data is 2 bytes each way, whatever the default size of the sync manager says.
static QByteArrayList digitalBlock(int deviceType, int driveAxes, int linkOfSecondOutput)
{
    return {
        general({0x7E570003, 0x16160001, 0x00010003}, std::uint32_t(deviceType), false, std::uint32_t(driveAxes)),
        fmmus({fmmu(3, true, 0), fmmu(4, false, 1)}),
        syncManagers({syncManager(0x0F00, 1, 2, 2, 0x44, 9), syncManager(0x1000, 1, 4, 2, 0x20, 1)}),
        pdoItem(deviceOutputs, {0x1600, 0, true, true}, {entry(0x7000, 1, 8), entry(0x7000, 2, 8, linkOfSecondOutput)}),
        pdoItem(deviceInputs, {0x1A00, 1, true, false}, {entry(0x6000, 1, 8), entry(0x6000, 2, 8)}),
        noMailbox(),
    };
}

/// FB-0504M. The third sync manager is virtual: neither it nor the PDO on it is written.
static QByteArrayList mixedBlock(int linkOfMeasurements)
{
    return {
        general({0x7E570003, 0x05040002, 0x00020001}, 0, false, 0),
        fmmus({fmmu(3), fmmu(4)}),
        syncManagers({syncManager(0x1000, 4, 4, 4, 0x64, 1), syncManager(0x1100, 5, 5, 5, 0x20, 1)}),
        pdoItem(deviceOutputs, {0x1600, 0, true},
                {entry(0x7000, 1, 1), entry(0x7000, 2, 1), entry(0x7000, 3, 1), gap(5), entry(0x7010, 1, 16),
                 entry(0x7010, 2, 8)}),
        pdoItem(deviceInputs, {0x1A00, 1, true},
                {entry(0x6000, 1, 1), entry(0x6000, 2, 1), entry(0x6000, 3, 3), gap(3),
                 entry(0x6010, 1, 16, linkOfMeasurements), entry(0x6010, 2, 12, linkOfMeasurements), gap(4)}),
        noMailbox(),
    };
}

void tst_SampleRoundTripsIo::ioBlock()
{
    open(samplePath("io-block"));
    select(0);
    setDeviceType(1); // a single drive has one axis
    setLink(0, 1, QStringLiteral("DOUT Type"));
    compareAddRefused();
    select(1);
    setLinks(1, {4, 5}, QStringLiteral("AIN16 Type")); // two marked rows at once
    compareExport(digitalBlock(1, 1, -2) + mixedBlock(-4) + QByteArrayList{byHand::end()});
}

void tst_SampleRoundTripsIo::ioBlockUntouched()
{
    open(samplePath("io-block"));
    compareExport(digitalBlock(0, 0, 0) + mixedBlock(0) + QByteArrayList{byHand::end()});
}

/// The samples of an output of FT-AO02 from the first one on: the PDO index steps by 1, the object index by 16; the
/// tenth and all later ones are on no sync manager.
static QByteArrayList outputSamples(std::uint32_t firstPdo, std::uint32_t firstObject, int count, int syncManager)
{
    QByteArrayList items;
    for (int sample = 0; sample < count; ++sample)
        items.append(pdoItem(deviceOutputs, {firstPdo + std::uint32_t(sample), sample < 9 ? syncManager : -1, true},
                             {entry(firstObject + 16 * std::uint32_t(sample), 1, 16)}));
    return items;
}

/// FT-AO02: nine of twelve samples of 2 bytes count for the first sync manager. The attribute of the sync unit is
/// written "Su", which counts for PDOs of modules only.
static QByteArrayList analogOutputs(int deviceType, int linkOfThirdSample)
{
    QByteArrayList items{
        general({0x7E570004, 0x04020001, 0x00010001}, std::uint32_t(deviceType), false, 0),
        fmmus({fmmu(3), fmmu(3), fmmu(4)}),
        syncManagers({syncManager(0x1000, 2, 24, 18, 0x64, 1), syncManager(0x1080, 2, 10, 10, 0x64, 1),
                      syncManager(0x1100, 4, 4, 4, 0x20, 1)}),
        operationModes({0x730, 0x730, 0x730}),
    };
    items += outputSamples(0x1600, 0x7000, 12, 0) + outputSamples(0x1680, 0x7800, 5, 1);
    items[6] = pdoItem(deviceOutputs, {0x1602, 0, true}, {entry(0x7020, 1, 16, linkOfThirdSample)});
    items += pdoItem(deviceInputs, {0x1A00, 2, true}, {entry(0x1D09, 144, 32)});
    items += noMailbox();
    return items;
}

/// FT-AI02: four samples of 4 bytes after a PDO that has none.
static QByteArrayList analogInputs(int deviceType, int driveAxes, int linkOfLastSample)
{
    return {
        general({0x7E570004, 0x03020001, 0x00010002}, std::uint32_t(deviceType), false, std::uint32_t(driveAxes)),
        fmmus({fmmu(4), fmmu(4)}),
        syncManagers({syncManager(0x1000, 4, 4, 4, 0x20, 1), syncManager(0x1080, 4, 16, 16, 0x20, 1)}),
        operationModes({0x730, 0x730}),
        pdoItem(deviceInputs, {0x1A80, 0, true}, {entry(0x6800, 1, 16), entry(0x6800, 2, 1), gap(15)}),
        pdoItem(deviceInputs, {0x1A00, 1, true}, {entry(0x6000, 1, 16), entry(0x6000, 2, 16)}),
        pdoItem(deviceInputs, {0x1A01, 1, true}, {entry(0x6010, 1, 16), entry(0x6010, 2, 16)}),
        pdoItem(deviceInputs, {0x1A02, 1, true}, {entry(0x6020, 1, 16), entry(0x6020, 2, 16)}),
        pdoItem(deviceInputs, {0x1A03, 1, true}, {entry(0x6030, 1, 16), entry(0x6030, 2, 16, linkOfLastSample)}),
        noMailbox(),
    };
}

void tst_SampleRoundTripsIo::oversamplingTerminal()
{
    open(samplePath("oversampling-terminal"));
    select(0);
    setDeviceType(3); // a coupler, though without slots and modules: its counts stay 0
    setOperationMode(2);
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->currentText(), QStringLiteral("4 samples per cycle"));
    setLink(2, 0, QStringLiteral("AOUT16 Type"));
    compareAddRefused();
    select(1);
    setDeviceType(2); // no slots, so no axes until some are typed
    QCOMPARE(part<QLineEdit>(*m_window, "DriveAxies")->text(), QStringLiteral("0x00"));
    setDriveAxes(QStringLiteral("#x12"));
    setOperationMode(1);
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->currentText(), QStringLiteral("4 samples per cycle"));
    setLink(4, 1, QStringLiteral("ENCODER32 Type"));
    compareAddRefused();
    compareExport(analogOutputs(3, -7) + analogInputs(2, 18, -10) + QByteArrayList{byHand::end()});
}

void tst_SampleRoundTripsIo::oversamplingTerminalUntouched()
{
    open(samplePath("oversampling-terminal"));
    compareExport(analogOutputs(0, 0) + analogInputs(0, 0, 0) + QByteArrayList{byHand::end()});
}

static const testMain::Registration<tst_SampleRoundTripsIo, QApplication> registration;
#include "tst_SampleRoundTripsIo.moc"
