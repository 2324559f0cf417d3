// Links of PDO entries, and entries that were removed and added.
// Covers entryAlignment.cpp, exportedPdos.cpp, pdoRetrace.cpp.
#include "editing/pdoEdits.h"
#include "model/deviceType.h"
#include "model/pdoAccess.h"
#include "model/pdoLink.h"
#include "retrace/choiceLines.h"
#include "retrace/exportedPdos.h"
#include "retrace/pdoRetrace.h"
#include "retrace/retracedDevices.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

/// Rows 0 to 3 are outputs, of which 1 is on a virtual sync manager and 3 has no entries, rows 4 and 5 inputs; rows 6
/// and 7 are of a module. The second entry of row 0 is linked.
struct_EtherCatDevice deviceWithPdos()
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.m_iDeviceType = KTL_DEVICE_TYPE_Special;
    device.vSM.push_back(syncManager("Outputs", 3));
    device.vSM[2].Attributes.m_Virtual = 1;
    device.RxPdo.vpdo = {pdo(0x1600, 0, {entry(0x7000, 1, "A"), entry(0x7000, 2, "B")}),
                         pdo(0x1601, 2, {entry(0x7001, 1, "V")}), pdo(0x1602, 0, {entry(0x7002, 1, "C")}),
                         pdo(0x1603, 0, {})};
    entriesOf(device.RxPdo.vpdo[0])[1].Linkto = KTL_PDO_TYPE_DOUT;
    device.TxPdo.vpdo = {pdo(0x1A00, 1, {entry(0x6000, 1, "D"), entry(0x6000, 2, "E")}),
                         pdo(0x1A01, -1, {entry(0x6001, 1, "F")})};
    device.mRxPdo.mpdo = {pdoOfModule(0x1610, 0, {moduleEntry(0x7010, 1, "M")})};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10, 1, {moduleEntry(0x6010, 1, "N"), moduleEntry(0x6010, 2, "O")})};
    return device;
}

/// Outputs A and B in a PDO, and C in another one of the same index.
struct_EtherCatDevice deviceWithTwinPdos()
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.RxPdo.vpdo = {pdo(0x1600, 0, {entry(0x7000, 1, "A"), entry(0x7000, 2, "B")}),
                         pdo(0x1600, 0, {entry(0x7000, 3, "C")})};
    return device;
}

std::vector<struct_EntryPDOContent>& outputsOf(struct_EtherCatDevice& device, std::size_t pdo)
{
    return entriesOf(device.RxPdo.vpdo[pdo]);
}

std::vector<struct_EntryPDOContent>& inputsOf(struct_EtherCatDevice& device, std::size_t pdo)
{
    return entriesOf(device.TxPdo.vpdo[pdo]);
}

struct_EntryPDOContent emptyEntry(std::int32_t link)
{
    struct_EntryPDOContent entry;
    entry.Linkto = link;
    return entry;
}

/// Compares what is found for a device after an edit, and what an export after these choices gives.
void compareRetraced(const struct_EtherCatDevice& device, Edit edit, const QStringList& expected, bool isMade)
{
    struct_EtherCatDevice edited = clicked(device);
    edit(edited);
    const retrace::ExportedBlock block = exportOf(edited, {});
    choices::DeviceChoices choices;
    retrace::retracePdos(clicked(device), block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QCOMPARE(bytesAfter(choices, device, {}) == block.bytes, isMade);
}

void addColumns()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
}

} // namespace

class tst_PdoRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void links_data();
    static void links();
    static void entries_data();
    static void entries();
    static void impossibleEdits_data();
    static void impossibleEdits();
    static void pdosOfOneIndex_data();
    static void pdosOfOneIndex();
    static void pdosOfModulesThatStayOutside();
    static void missingSyncManager();
    static void samePdo_data();
    static void samePdo();
    static void sameEntry_data();
    static void sameEntry();
};

void tst_PdoRetrace::links_data()
{
    addColumns();
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("output") << Edit([](struct_EtherCatDevice& device) {
        outputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList("link pdo=0 entry=0 index=1600 object=7000:1 name=A link=-2");
    QTest::addRow("link taken away") << Edit([](struct_EtherCatDevice& device) {
        outputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_NONE;
    }) << QStringList("link pdo=0 entry=1 index=1600 object=7000:2 name=B link=0");
    QTest::addRow("output after PDOs that are not exported")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 2)[0].Linkto = KTL_PDO_TYPE_I32_AOUT; })
        << QStringList("link pdo=2 entry=0 index=1602 object=7002:1 name=C link=-8");
    QTest::addRow("input") << Edit([](struct_EtherCatDevice& device) {
        inputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_ENCODER32;
    }) << QStringList("link pdo=4 entry=1 index=1a00 object=6000:2 name=E link=-10");
    QTest::addRow("input of a PDO without a sync manager")
        << Edit([](struct_EtherCatDevice& device) { inputsOf(device, 1)[0].Linkto = KTL_PDO_TYPE_DIN; })
        << QStringList("link pdo=5 entry=0 index=1a01 object=6001:1 name=F link=-1");
    QTest::addRow("output of a module") << Edit([](struct_EtherCatDevice& device) {
        device.mRxPdo.mpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList("link pdo=6 entry=0 index=1610 object=7010:1 name=M link=-2");
    QTest::addRow("input of a module") << Edit([](struct_EtherCatDevice& device) {
        device.mTxPdo.mpdo[0].vEntry[1].Linkto = KTL_PDO_TYPE_DIN;
    }) << QStringList("link pdo=7 entry=1 index=1a10 object=6010:2 name=O link=-1");
    QTest::addRow("both directions") << Edit([](struct_EtherCatDevice& device) {
        inputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DIN;
        outputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DOUT;
    })
                                     << QStringList{"link pdo=0 entry=0 index=1600 object=7000:1 name=A link=-2",
                                                    "link pdo=4 entry=0 index=1a00 object=6000:1 name=D link=-1"};
}

void tst_PdoRetrace::links()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithPdos(), edit, expected, true);
}

void tst_PdoRetrace::entries_data()
{
    addColumns();
    const QString first = "pdo=0 entry=0 index=1600 object=7000:1 name=A";
    const QString second = "pdo=0 entry=1 index=1600 object=7000:2 name=B";
    QTest::addRow("first removed") << Edit([](struct_EtherCatDevice& device) { erasePdoEntry(device, 0, 0); })
                                   << QStringList("removeEntry " + first);
    QTest::addRow("last removed") << Edit([](struct_EtherCatDevice& device) { erasePdoEntry(device, 0, 1); })
                                  << QStringList("removeEntry " + second);
    QTest::addRow("entry of a module removed")
        << Edit([](struct_EtherCatDevice& device) { erasePdoEntry(device, 7, 0); })
        << QStringList("removeEntry pdo=7 entry=0 index=1a10 object=6010:1 name=N");
    QTest::addRow("all of a PDO removed") << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0).clear(); })
                                          << QStringList{"removeEntry " + first, "removeEntry " + second};
    QTest::addRow("all of the last PDO removed")
        << Edit([](struct_EtherCatDevice& device) { device.mTxPdo.mpdo[0].vEntry.clear(); })
        << QStringList{"removeEntry pdo=7 entry=0 index=1a10 object=6010:1 name=N",
                       "removeEntry pdo=7 entry=1 index=1a10 object=6010:2 name=O"};
    QTest::addRow("added behind the first") << Edit([](struct_EtherCatDevice& device) { insertPdoEntry(device, 0, 0); })
                                            << QStringList("addEntry " + first);
    QTest::addRow("added behind the last") << Edit([](struct_EtherCatDevice& device) { insertPdoEntry(device, 0, 1); })
                                           << QStringList("addEntry " + second);
    QTest::addRow("added with a link") << Edit([](struct_EtherCatDevice& device) {
        insertPdoEntry(device, 4, 0);
        inputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_I16_AIN;
    }) << QStringList("addEntry pdo=4 entry=0 index=1a00 object=6000:1 name=D link=-4");
    QTest::addRow("two added behind one, in their order") << Edit([](struct_EtherCatDevice& device) {
        insertPdoEntry(device, 0, 0);
        insertPdoEntry(device, 0, 0);
        outputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList{"addEntry " + first + " link=-2", "addEntry " + first};
    QTest::addRow("added to a PDO of a module")
        << Edit([](struct_EtherCatDevice& device) { insertPdoEntry(device, 6, 0); })
        << QStringList("addEntry pdo=6 entry=0 index=1610 object=7010:1 name=M");
    QTest::addRow("removed, added and linked") << Edit([](struct_EtherCatDevice& device) {
        outputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_I16_AOUT;
        insertPdoEntry(device, 0, 1);
        erasePdoEntry(device, 0, 0);
    }) << QStringList{"link " + second + " link=-7", "removeEntry " + first, "addEntry " + second};
    // To remove A and to add an empty one behind it is the same as to put one in its place.
    QTest::addRow("empty in the place of the first")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0)[0] = {}; })
        << QStringList{"removeEntry " + first, "addEntry " + first};
}

void tst_PdoRetrace::entries()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithPdos(), edit, expected, true);
}

/// What is left is not chosen.
void tst_PdoRetrace::impossibleEdits_data()
{
    addColumns();
    QTest::addRow("link that outputs do not have")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DIN; })
        << QStringList();
    QTest::addRow("link that inputs do not have")
        << Edit([](struct_EtherCatDevice& device) { inputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DOUT; })
        << QStringList();
    QTest::addRow("number that is no link")
        << Edit([](struct_EtherCatDevice& device) { inputsOf(device, 0)[0].Linkto = -3; }) << QStringList();
    QTest::addRow("added before the first") << Edit([](struct_EtherCatDevice& device) {
        outputsOf(device, 0).insert(outputsOf(device, 0).begin(), emptyEntry(0));
    }) << QStringList();
    QTest::addRow("added with a link that outputs do not have")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0).push_back(emptyEntry(KTL_PDO_TYPE_DIN)); })
        << QStringList();
    QTest::addRow("added with an object")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0).push_back(entry(0x7000, 3, "X")); })
        << QStringList();
    QTest::addRow("added PDO, with a link elsewhere") << Edit([](struct_EtherCatDevice& device) {
        device.RxPdo.vpdo.push_back(pdo(0x1604, 0, {entry(0x7004, 1, "X")}));
        inputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DIN;
    }) << QStringList("link pdo=4 entry=0 index=1a00 object=6000:1 name=D link=-1");
    QTest::addRow("entry of another length, with a link") << Edit([](struct_EtherCatDevice& device) {
        outputsOf(device, 0)[0].Bitlen = 16;
        outputsOf(device, 0)[0].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList("link pdo=0 entry=0 index=1600 object=7000:1 name=A link=-2");
    QTest::addRow("all entries of another length") << Edit([](struct_EtherCatDevice& device) {
        for (struct_EntryPDOContent& entry : inputsOf(device, 0))
            entry.Bitlen = 16;
    }) << QStringList();
    QTest::addRow("fixed PDO, with a link and without an entry")
        << Edit([](struct_EtherCatDevice& device) {
               device.TxPdo.vpdo[0].Attributes.Fixed = 1;
               inputsOf(device, 0)[1].Linkto = KTL_PDO_TYPE_DIN;
               erasePdoEntry(device, 4, 0);
           })
        << QStringList{"link pdo=4 entry=1 index=1a00 object=6000:2 name=E link=-1",
                       "removeEntry pdo=4 entry=0 index=1a00 object=6000:1 name=D"};
    QTest::addRow("entry of another object in its place")
        << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0)[0].SubIndex = 5; })
        << QStringList("removeEntry pdo=0 entry=0 index=1600 object=7000:1 name=A");
}

void tst_PdoRetrace::impossibleEdits()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithPdos(), edit, expected, false);
}

void tst_PdoRetrace::pdosOfOneIndex_data()
{
    addColumns();
    QTest::addRow("the first has gone") << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 0).clear(); })
                                        << QStringList{"removeEntry pdo=0 entry=0 index=1600 object=7000:1 name=A",
                                                       "removeEntry pdo=0 entry=1 index=1600 object=7000:2 name=B"};
    QTest::addRow("the second has gone") << Edit([](struct_EtherCatDevice& device) { outputsOf(device, 1).clear(); })
                                         << QStringList("removeEntry pdo=1 entry=0 index=1600 object=7000:3 name=C");
    QTest::addRow("the first has gone, the second is linked")
        << Edit([](struct_EtherCatDevice& device) {
               outputsOf(device, 0).clear();
               outputsOf(device, 1)[0].Linkto = KTL_PDO_TYPE_DOUT;
           })
        << QStringList{"link pdo=1 entry=0 index=1600 object=7000:3 name=C link=-2",
                       "removeEntry pdo=0 entry=0 index=1600 object=7000:1 name=A",
                       "removeEntry pdo=0 entry=1 index=1600 object=7000:2 name=B"};
}

void tst_PdoRetrace::pdosOfOneIndex()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    compareRetraced(deviceWithTwinPdos(), edit, expected, true);
}

/// A coupler's modules have blocks of their own: their PDOs are none of the device.
void tst_PdoRetrace::pdosOfModulesThatStayOutside()
{
    struct_EtherCatDevice device = deviceWithPdos();
    device.m_iDeviceType = KTL_DEVICE_TYPE_ManualIOBlock;
    std::vector<std::uint32_t> rows;
    for (const retrace::DeclaredPdo& declared : retrace::exportedPdosOf(device))
        rows.push_back(declared.row);
    QCOMPARE(rows, (std::vector<std::uint32_t>{0, 2, 4, 5}));
}

void tst_PdoRetrace::missingSyncManager()
{
    struct_EtherCatDevice device = deviceWithPdos();
    device.vSM.resize(1);
    choices::DeviceChoices choices;
    QVERIFY_EXCEPTION_THROWN(retrace::retracePdos(device, {}, choices), MissingSyncManager);
}

namespace {

using PdoEdit = void (*)(KtlPdo& pdo);
using EntryEdit = void (*)(struct_KTL_EntryPDOContent& entry);

} // namespace

Q_DECLARE_METATYPE(PdoEdit)
Q_DECLARE_METATYPE(EntryEdit)

void tst_PdoRetrace::samePdo_data()
{
    QTest::addColumn<PdoEdit>("edit");
    QTest::addColumn<bool>("expected");
    QTest::addRow("nothing") << PdoEdit([](KtlPdo&) {}) << true;
    QTest::addRow("entries") << PdoEdit([](KtlPdo& pdo) { pdo.entries.clear(); }) << true;
    QTest::addRow("number of entries") << PdoEdit([](KtlPdo& pdo) { pdo.head.m_iCount = 7; }) << true;
    QTest::addRow("direction") << PdoEdit([](KtlPdo& pdo) { pdo.isInput = true; }) << false;
    QTest::addRow("fixed") << PdoEdit([](KtlPdo& pdo) { pdo.head.Fixed = 1; }) << false;
    QTest::addRow("mandatory") << PdoEdit([](KtlPdo& pdo) { pdo.head.Mandatory = 1; }) << false;
    QTest::addRow("sync manager") << PdoEdit([](KtlPdo& pdo) { pdo.head.SM = 1; }) << false;
    QTest::addRow("sync unit") << PdoEdit([](KtlPdo& pdo) { pdo.head.SU = 1; }) << false;
    QTest::addRow("index") << PdoEdit([](KtlPdo& pdo) { pdo.head.IndexAttributes = 0x1601; }) << false;
}

void tst_PdoRetrace::samePdo()
{
    QFETCH(PdoEdit, edit);
    const struct_EtherCatDevice device = deviceWithTwinPdos();
    KtlPdo exported = exportOf(device, {}).content.pdos.at(0);
    edit(exported);
    QTEST(retrace::areSamePdo(retrace::exportedPdosOf(device).at(0), exported), "expected");
}

void tst_PdoRetrace::sameEntry_data()
{
    QTest::addColumn<EntryEdit>("edit");
    QTest::addColumn<bool>("expected");
    QTest::addRow("nothing") << EntryEdit([](struct_KTL_EntryPDOContent&) {}) << true;
    QTest::addRow("link") << EntryEdit([](struct_KTL_EntryPDOContent& entry) { entry.LinkToData = -2; }) << true;
    QTest::addRow("fixed") << EntryEdit([](struct_KTL_EntryPDOContent& entry) { entry.m_bFixed = 1; }) << false;
    QTest::addRow("index") << EntryEdit([](struct_KTL_EntryPDOContent& entry) { entry.Index = 1; }) << false;
    QTest::addRow("sub-index") << EntryEdit([](struct_KTL_EntryPDOContent& entry) { entry.SubIndex = 1; }) << false;
    QTest::addRow("length") << EntryEdit([](struct_KTL_EntryPDOContent& entry) { entry.Bitlen = 1; }) << false;
}

void tst_PdoRetrace::sameEntry()
{
    QFETCH(EntryEdit, edit);
    struct_KTL_EntryPDOContent edited{};
    edit(edited);
    QTEST(retrace::areSameEntry({}, edited), "expected");
}

static const testMain::Registration<tst_PdoRetrace, testMain::NoApplication> registration;
#include "tst_PdoRetrace.moc"
