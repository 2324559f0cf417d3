// An ESI file against a KTL file, and KTL files against each other.
// Covers compareDevices.cpp, deviceBytes.cpp, ktlSubject.cpp, source.cpp.
#include "comparedFiles.h"
#include "diff/compareDevices.h"
#include "diffParts.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

using comparedFiles::differencesOf;
using comparedFiles::EsiFile;
using unitParts::deviceFile;

class tst_ExportedDevice : public QObject
{
    Q_OBJECT

private slots:
    static void ownExport();
    static void lossesOfAnExport();
    static void olderExport();
    static void places();
    static void exportsOfTwoVersions();
    static void cannotBeExported();
    static void modulesOfCouplers();
    static void namesOfModules();
};

namespace {

/// A device with all that a KTL file leaves out: names, types, times, a virtual sync manager, a PDO without entries.
QByteArray drive(const QByteArray& bits = "16")
{
    return deviceFile("<Fmmu>Outputs</Fmmu><Sm>Outputs</Sm>\n<Sm>Inputs</Sm>\n<Sm Virtual='1'>Inputs</Sm>\n"
                      "<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>"
                      "<Dc><OpMode><Name>DC</Name><CycleTimeSync0>5</CycleTimeSync0></OpMode></Dc>\n"
                      "<TxPdo Sm='1'><Index>#x1a00</Index><Name>Inputs</Name>"
                      "<Entry><Index>#x6000</Index><BitLen>"
                      + bits
                      + "</BitLen><Name>Value</Name><DataType>INT</DataType></Entry></TxPdo>\n"
                        "<TxPdo><Index>#x1a01</Index></TxPdo>\n");
}

} // namespace

void tst_ExportedDevice::ownExport()
{
    EsiFile esi(drive());
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(esi);
    diff::Source ktl(bytes);
    QCOMPARE(diffParts::linesOf(differencesOf(esi.source, ktl)), QStringList());
    QCOMPARE(diffParts::linesOf(differencesOf(ktl, esi.source)), QStringList());
}

void tst_ExportedDevice::lossesOfAnExport()
{
    EsiFile esi(drive());
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(esi);
    diff::Source ktl(bytes);
    const std::vector<diff::Difference> differences = differencesOf(esi.source, ktl, true);
    QCOMPARE(
        diffParts::linesOf(differences),
        (QStringList{"text changed type T1 -> -", "text changed name Device -> -",
                     "text changed sync manager 0 name Outputs -> -", "text changed sync manager 1 name Inputs -> -",
                     "text changed operation mode 1 \"DC\" cycle time of SYNC 0 (ns) 5 -> -",
                     "text changed TxPdo 0x1a00 \"Inputs\" name Inputs -> -",
                     "text changed TxPdo 0x1a00 \"Inputs\", entry 0x6000:0 \"Value\" data type INT -> -",
                     "text changed TxPdo 0x1a00 \"Inputs\", entry 0x6000:0 \"Value\" name Value -> -",
                     "text changed startup command PS 0x1c10:0 comment clear pdo 0x1c10 entry -> -",
                     "text changed startup command PS 0x1c11:0 comment clear pdo 0x1c11 entry -> -",
                     "text changed startup command PS 0x1a00:0 comment clear pdo 0x1a00 entry -> -",
                     "text changed startup command PS 0x1a00:1 comment download pdo 0x1a00 entry -> -",
                     "text changed startup command PS 0x1a00:0 comment download pdo 0x1a00 entry count -> -",
                     "text changed startup command PS 0x1a01:0 comment download pdo 0x1a01 entries -> -",
                     "text changed startup command PS 0x1c11:1 comment download pdo 0x1c11 index -> -",
                     "text changed startup command PS 0x1c11:0 comment download pdo 0x1c11  count -> -",
                     "text removed virtual sync manager 2", "text removed TxPdo 0x1a01"}));
    QCOMPARE(diffParts::withoutDirection(differencesOf(ktl, esi.source, true)),
             diffParts::withoutDirectionSwapped(differences));
}

/// The description has a longer entry now; its names are told, as the KTL file has none.
void tst_ExportedDevice::olderExport()
{
    EsiFile old(drive("16"));
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(old);
    diff::Source ktl(bytes);
    EsiFile esi(drive("32"));
    QCOMPARE(diffParts::linesOf(differencesOf(esi.source, ktl)),
             (QStringList{"breaking changed sync manager 1 length 4 -> 2",
                          "breaking changed TxPdo 0x1a00 \"Inputs\" length in bits 32 -> 16",
                          "breaking changed TxPdo 0x1a00 \"Inputs\", entry 0x6000:0 \"Value\" length in bits 32 -> 16",
                          "breaking changed inputs, sync manager 1 bytes of the process image 4 -> 2",
                          "behaviour changed startup command PS 0x1a00:1 value 0x60000020 -> 0x60000010"}));
}

/// The file begins with a device of 52 bytes, then come FMMUs in 20, and the sync managers with a head of 12.
void tst_ExportedDevice::places()
{
    EsiFile old(drive("16"));
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(old);
    diff::Source ktl(bytes);
    EsiFile esi(drive("32"));
    const diff::Difference length = differencesOf(esi.source, ktl).at(0);
    const diff::FilePlace before = esi.source.placeOf(length.spot.before.value());
    QVERIFY(before.isLine);
    QCOMPARE(before.number, 4);
    const diff::FilePlace after = ktl.placeOf(length.spot.after.value());
    QVERIFY(!after.isLine);
    QCOMPARE(after.number, 52 + 20 + 12 + 16);
}

/// Commands that are made from PDOs are compared too: a KTL file does not tell which these are.
void tst_ExportedDevice::exportsOfTwoVersions()
{
    EsiFile oldEsi(drive("16"));
    EsiFile newEsi(drive("24"));
    const std::vector<unsigned char> oldBytes = comparedFiles::exportOf(oldEsi);
    const std::vector<unsigned char> newBytes = comparedFiles::exportOf(newEsi);
    diff::Source before(oldBytes);
    diff::Source after(newBytes);
    QCOMPARE(diffParts::linesOf(differencesOf(before, before)), QStringList());
    QCOMPARE(diffParts::linesOf(differencesOf(before, after)),
             (QStringList{"breaking changed sync manager 1 length 2 -> 3",
                          "breaking changed TxPdo 0x1a00 length in bits 16 -> 24",
                          "breaking changed TxPdo 0x1a00, entry 0x6000:0 length in bits 16 -> 24",
                          "breaking changed inputs, sync manager 1 bytes of the process image 2 -> 3",
                          "behaviour changed startup command PS 0x1a00:1 value 0x60000010 -> 0x60000018"}));
}

void tst_ExportedDevice::cannotBeExported()
{
    EsiFile esi(deviceFile("<Sm>Inputs</Sm><TxPdo Sm='3'><Index>#x1a00</Index></TxPdo>"));
    EsiFile other(drive());
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(other);
    diff::Source ktl(bytes);
    diff::CompareRequest request;
    request.pairs = {{0, 0, false}};
    QString problem;
    diff::compareSources(esi.source, ktl, request,
                         [&](const diff::ComparedDevices& compared) { problem = compared.problem; });
    QVERIFY2(problem.contains("0x1a00"), qPrintable(problem));
    QVERIFY2(problem.contains("sync manager 3"), qPrintable(problem));
}

/// Couplers have the modules of their file in their KTL file, and these are compared as the file has them.
void tst_ExportedDevice::modulesOfCouplers()
{
    const auto coupler = [](const char* bits) {
        return deviceFile("<Slots><Slot MaxInstances='1'><ModuleIdent>#x10</ModuleIdent></Slot></Slots>"
                          "<Sm>Outputs</Sm><Sm>Inputs</Sm>",
                          QByteArray("<Module><Type ModuleIdent='#x10'>M</Type><Name>Module</Name><TxPdo Sm='1'>"
                                     "<Index>#x1a00</Index><Entry><Index>#x6000</Index><BitLen>")
                              + bits + "</BitLen></Entry></TxPdo></Module>");
    };
    EsiFile old(coupler("8"));
    for (struct_EtherCatDevice& device : old.file.device)
        device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    EsiFile esi(coupler("16"));
    for (struct_EtherCatDevice& device : esi.file.device)
        device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(old);
    diff::Source ktl(bytes);
    QCOMPARE(diffParts::linesOf(differencesOf(old.source, ktl)), QStringList());
    QCOMPARE(diffParts::linesOf(differencesOf(esi.source, ktl)),
             (QStringList{"breaking changed module 0x10 \"Module\", TxPdo 0x1a00 length in bits 16 -> 8",
                          "breaking changed module 0x10 \"Module\", TxPdo 0x1a00, entry 0x6000:0 length in bits "
                          "16 -> 8"}));
}

/// A KTL file has the names of all modules, also where it has no module.
void tst_ExportedDevice::namesOfModules()
{
    const auto fileWith = [](const char* name) {
        return deviceFile("<Sm>Outputs</Sm>", QByteArray("<Module><Type ModuleIdent='1'>A</Type><Name>A</Name></Module>"
                                                         "<Module><Type ModuleIdent='2'>B</Type><Name>")
                                                  + name + "</Name></Module>");
    };
    EsiFile old(fileWith("old"));
    EsiFile esi(fileWith("new"));
    const std::vector<unsigned char> bytes = comparedFiles::exportOf(old);
    diff::Source ktl(bytes);
    QCOMPARE(diffParts::linesOf(differencesOf(old.source, ktl)), QStringList());
    QCOMPARE(diffParts::linesOf(differencesOf(esi.source, ktl)),
             QStringList{"text changed name 2 of the modules name new -> old"});
}

static const testMain::Registration<tst_ExportedDevice, testMain::NoApplication> registration;
#include "tst_ExportedDevice.moc"
