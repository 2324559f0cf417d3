// The startup records at the end of a module block, byte for byte: which there are, and how many the item announces.
// Covers moduleBlockWriters.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "ktl/moduleBuilders.h"
#include "testMain.h"

#include <QtTest>

#include <initializer_list>

namespace {

/// A device with CoE flags and sync managers; the number of a sync manager is its place.
struct_EtherCatDevice deviceOf(bool assigns, bool configures, const QList<int>& syncManagerTypes = {1, 2, 3, 4})
{
    struct_EtherCatDevice device;
    device.Mailbox.COE.Attributes.PdoAssign = assigns;
    device.Mailbox.COE.Attributes.PdoConfig = configures;
    for (const int type : syncManagerTypes) {
        struct_SM syncManager;
        syncManager.SM = static_cast<std::uint8_t>(device.vSM.size());
        syncManager.Smtype = static_cast<std::uint8_t>(type);
        device.vSM.push_back(syncManager);
    }
    return device;
}

struct_moduleInitCmd commandOf(std::uint16_t index)
{
    struct_moduleInitCmd command;
    command.indexAttributes.index = index;
    return command;
}

modulePdo fixed(modulePdo pdo)
{
    pdo.Attributes.Fixed = true;
    return pdo;
}

/// What follows identity and entries in the block of a module.
QByteArray startupWritten(const struct_EtherCatDevice& device, const struct_module& module)
{
    const QByteArray block = moduleBlocks(device, fileOf({{module}}));
    int offset = 0;
    for (const std::uint32_t type : {40013U, 40103U, 40102U})
        if (numberAt(block, offset, 4) == type)
            offset += static_cast<int>(numberAt(block, offset + 4, 4));
    return block.mid(offset);
}

QByteArray head(std::uint32_t count)
{
    return bytes("A8 9C 00 00") + le32(12 + 16 * count) + le32(count);
}

/// A record that the export makes itself.
QByteArray record(std::uint32_t dataBytes, std::uint32_t index, std::uint32_t subIndex, std::uint32_t data)
{
    return bytes("01 00 00") + le16(dataBytes).left(1) + le16(index) + zeros(4) + le16(subIndex).left(1) + zeros(1)
           + le32(data);
}

/// Record of a command that has an index and nothing else.
QByteArray commandRecord(std::uint32_t index)
{
    return zeros(4) + le16(index) + zeros(10);
}

/// Records that map one entry 0x7000:01 of 8 bits into a PDO.
QByteArray mappingOfOneEntry(std::uint32_t pdoIndex)
{
    return record(1, pdoIndex, 0, 0) + record(4, pdoIndex, 1, 0x70000108) + record(1, pdoIndex, 0, 1);
}

const std::vector<struct_moduleEntry> oneEntry{entryOf(0x7000, 1, 8)};

} // namespace

class tst_ModuleBlockStartup : public QObject
{
    Q_OBJECT

private slots:
    void noRecordNoItem();
    void declaredCommand();
    void assignment();
    void mapping();
    void flags_data();
    void flags();
    void orderOfRecords();
    void secondPdoOnASyncManager();
    void syncManagerOfAPdo_data();
    void syncManagerOfAPdo();
    void numberOfASyncManager();
    void fixedPdoIsNotMapped();
    void longMappings();
    void valueOfAMapping_data();
    void valueOfAMapping();
    void fewerRecordsThanAnnounced_data();
    void fewerRecordsThanAnnounced();
    void moreRecordsThanAnnounced_data();
    void moreRecordsThanAnnounced();
    void nothingAnnounced();
    void nextModuleFollowsAtOnce();
};

void tst_ModuleBlockStartup::noRecordNoItem()
{
    struct_module module;
    QCOMPARE(startupWritten(deviceOf(true, true), module), QByteArray());
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, oneEntry)};
    module.TxPdo.vpdo = {pdoOf(0x1A00, 3, oneEntry)};
    QCOMPARE(startupWritten(deviceOf(false, false), module), QByteArray());
}

void tst_ModuleBlockStartup::declaredCommand()
{
    struct_moduleInitCmd command = commandOf(0x8010);
    command.indexAttributes.DependOnSlot = true;
    command.indexAttributes.DependOnSlotGroup = true; // not stored
    command.indexAttributes.AdaptAutomatically = true; // not stored
    command.Transition = PS; // not stored
    command.SubIndex = 0x1203; // the low 8 bits of this and the next one
    command.DataBytes = 0x3404;
    command.Data = 0x89ABCDEF;
    command.Comment = "not stored";
    command.strData = "not stored";
    command.Instances = 5;
    command.bIfCA = 1; // neither stored, nor are the values
    command.m_CADataList = {1, 2, 3};
    struct_module module;
    module.Mailbox.COE.vinitcmd = {command, commandOf(0x8020)};
    QCOMPARE(startupWritten(deviceOf(false, false), module),
             bytes("A8 9C 00 00" // m_iItemType 40104
                   "2C 00 00 00" // m_iSize 12 + 2 * 16 = 44
                   "02 00 00 00" // m_iCount
                   "01 00 00" // DependOnSlot and two that are reserved
                   "04" // m_DataBytes
                   "10 80" // index
                   "00 00" // m_u16AttrRev
                   "00 00" // Transition
                   "03" // SubIndex
                   "00" // bifCA
                   "EF CD AB 89" // Data
                   "00 00 00 00  20 80 00 00  00 00 00 00  00 00 00 00"));
}

void tst_ModuleBlockStartup::assignment()
{
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1605, 2, {})};
    QCOMPARE(startupWritten(deviceOf(true, false), module), bytes("A8 9C 00 00  1C 00 00 00  01 00 00 00"
                                                                  "01 00 00 02  12 1C 00 00" // 2 bytes, 0x1C12
                                                                  "00 00 01 00  05 16 00 00")); // sub-index 1, 0x1605
}

void tst_ModuleBlockStartup::mapping()
{
    struct_module module;
    module.TxPdo.vpdo = {pdoOf(0x1A02, 3, {entryOf(0x6000, 0x11, 16), entryOf(0, 0, 4)})};
    QCOMPARE(startupWritten(deviceOf(false, true), module),
             bytes("A8 9C 00 00  4C 00 00 00  04 00 00 00" // m_iSize 12 + 4 * 16 = 76
                   "01 00 00 01  02 1A 00 00  00 00 00 00  00 00 00 00" // clears the PDO
                   "01 00 00 04  02 1A 00 00  00 00 01 00  10 11 00 60" // 0x6000:11, 16 bits
                   "01 00 00 04  02 1A 00 00  00 00 02 00  04 00 00 00" // a gap of 4 bits
                   "01 00 00 01  02 1A 00 00  00 00 00 00  02 00 00 00")); // two entries
}

void tst_ModuleBlockStartup::flags_data()
{
    QTest::addColumn<bool>("assigns");
    QTest::addColumn<bool>("configures");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray command = commandRecord(0x8000);
    const QByteArray mapped = mappingOfOneEntry(0x1600);
    const QByteArray assigned = record(2, 0x1C12, 1, 0x1600);
    QTest::addRow("neither") << false << false << head(1) + command;
    QTest::addRow("assignment") << true << false << head(2) + command + assigned;
    QTest::addRow("configuration") << false << true << head(4) + mapped + command;
    QTest::addRow("both") << true << true << head(5) + mapped + command + assigned;
}

void tst_ModuleBlockStartup::flags()
{
    QFETCH(bool, assigns);
    QFETCH(bool, configures);
    QFETCH(QByteArray, expected);
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, oneEntry)};
    module.Mailbox.COE.vinitcmd = {commandOf(0x8000)};
    struct_EtherCatDevice device = deviceOf(assigns, configures);
    QCOMPARE(startupWritten(device, module), expected);
    device.Mailbox.COE.Attributes.SdoInfo = true; // the other flags change nothing
    device.Mailbox.COE.Attributes.PdoUpload = true;
    device.Mailbox.COE.Attributes.SegmentedSdo = true;
    device.Mailbox.COE.Attributes.DiagHistory = true;
    QCOMPARE(startupWritten(device, module), expected);
}

/// Mappings by direction, commands, and assignments by sync manager in the order of the device, in it by direction.
void tst_ModuleBlockStartup::orderOfRecords()
{
    struct_EtherCatDevice device = deviceOf(true, true);
    std::swap(device.vSM[2], device.vSM[3]); // now the one of number 3 is first
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1601, 2, oneEntry), pdoOf(0x1600, 3, oneEntry), pdoOf(0x1602, 2, oneEntry)};
    module.TxPdo.vpdo = {pdoOf(0x1A01, 3, oneEntry), pdoOf(0x1A00, 2, oneEntry)};
    module.Mailbox.COE.vinitcmd = {commandOf(0x8002), commandOf(0x8001)};
    QByteArray mappings;
    for (const std::uint32_t pdo : {0x1601U, 0x1600U, 0x1602U, 0x1A01U, 0x1A00U})
        mappings += mappingOfOneEntry(pdo);
    QCOMPARE(startupWritten(device, module), head(5 * 3 + 2 + 5) + mappings + commandRecord(0x8002)
                                                 + commandRecord(0x8001) + record(2, 0x1C13, 1, 0x1600)
                                                 + record(2, 0x1C13, 1, 0x1A01) + record(2, 0x1C12, 1, 0x1601)
                                                 + record(2, 0x1C12, 1, 0x1602) + record(2, 0x1C12, 1, 0x1A00));
}

void tst_ModuleBlockStartup::secondPdoOnASyncManager()
{
    struct_module module;
    module.TxPdo.vpdo = {pdoOf(0x1A00, 3, {}), pdoOf(0x1A01, 3, {})};
    QCOMPARE(startupWritten(deviceOf(true, false), module),
             head(2) + record(2, 0x1C13, 1, 0x1A00) + record(2, 0x1C13, 1, 0x1A01));
}

void tst_ModuleBlockStartup::syncManagerOfAPdo_data()
{
    QTest::addColumn<int>("pdoOn");
    QTest::addColumn<int>("type"); // of each of the device's three sync managers
    QTest::addColumn<bool>("isAssigned");
    QTest::addRow("outputs") << 1 << 3 << true;
    QTest::addRow("inputs, of an output PDO") << 1 << 4 << true;
    QTest::addRow("unknown") << 1 << 0 << false;
    QTest::addRow("mailbox out") << 1 << 1 << false;
    QTest::addRow("mailbox in") << 1 << 2 << false;
    QTest::addRow("dynamic outputs") << 1 << 5 << false;
    QTest::addRow("first one") << 0 << 3 << true;
    QTest::addRow("last one") << 2 << 3 << true;
    QTest::addRow("one that the device does not have") << 3 << 3 << false;
    QTest::addRow("none") << -1 << 3 << false;
    QTest::addRow("low 8 bits are not enough") << 257 << 3 << false;
}

void tst_ModuleBlockStartup::syncManagerOfAPdo()
{
    QFETCH(int, pdoOn);
    QFETCH(int, type);
    QFETCH(bool, isAssigned);
    struct_EtherCatDevice device = deviceOf(true, false, {type, type, type});
    for (struct_SM& syncManager : device.vSM)
        syncManager.Attributes.m_Virtual = 1; // changes nothing here
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, pdoOn, oneEntry)};
    const auto index = static_cast<std::uint32_t>(0x1C10 + pdoOn);
    QCOMPARE(startupWritten(device, module), isAssigned ? head(1) + record(2, index, 1, 0x1600) : QByteArray());
}

/// The number that a sync manager has counts, not its place; one number twice counts twice.
void tst_ModuleBlockStartup::numberOfASyncManager()
{
    struct_EtherCatDevice device = deviceOf(true, true, {3, 4});
    device.vSM[0].SM = 255;
    device.vSM[1].SM = 255;
    struct_module module;
    module.RxPdo.vpdo = {fixed(pdoOf(0x1600, 255, {})), fixed(pdoOf(0x1601, 0, {}))};
    QCOMPARE(startupWritten(device, module), head(2) + record(2, 0x1D0F, 1, 0x1600) + record(2, 0x1D0F, 1, 0x1600));
}

void tst_ModuleBlockStartup::fixedPdoIsNotMapped()
{
    struct_module module;
    module.RxPdo.vpdo = {fixed(pdoOf(0x1600, 2, oneEntry))};
    QCOMPARE(startupWritten(deviceOf(false, true), module), QByteArray());
    QCOMPARE(startupWritten(deviceOf(true, true), module), head(1) + record(2, 0x1C12, 1, 0x1600));
}

/// The running number of an entry keeps its low 8 bits; the count is whole.
void tst_ModuleBlockStartup::longMappings()
{
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, std::vector<struct_moduleEntry>(300, entryOf(0x7000, 1, 8)))};
    QByteArray mappings;
    for (std::uint32_t number = 1; number <= 300; ++number)
        mappings += record(4, 0x1600, number % 256, 0x70000108);
    QCOMPARE(startupWritten(deviceOf(false, true), module),
             head(302) + record(1, 0x1600, 0, 0) + mappings + record(1, 0x1600, 0, 300));
}

void tst_ModuleBlockStartup::valueOfAMapping_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("subIndex");
    QTest::addColumn<int>("bits");
    QTest::addColumn<quint32>("value");
    QTest::addRow("all parts at their largest") << 0xFFFF << 0xFF << 0xFF << 0xFFFFFFFFU;
    QTest::addRow("256 bits carry into the sub-index") << 0x7000 << 1 << 256 << 0x70000200U;
    QTest::addRow("sub-index of 9 bits carries into the index") << 0x7000 << 0x102 << 8 << 0x70010208U;
    QTest::addRow("beyond 32 bits is cut off") << 0xFFFF << 0x100 << 1 << 0x00000001U;
    QTest::addRow("negative length") << 0x7000 << 1 << -1 << 0x700000FFU;
}

void tst_ModuleBlockStartup::valueOfAMapping()
{
    QFETCH(int, index);
    QFETCH(int, subIndex);
    QFETCH(int, bits);
    QFETCH(quint32, value);
    struct_module module;
    module.RxPdo.vpdo = {
        pdoOf(0x1600, 2, {entryOf(static_cast<std::uint16_t>(index), static_cast<std::uint16_t>(subIndex), bits)})};
    QCOMPARE(startupWritten(deviceOf(false, true), module),
             head(3) + record(1, 0x1600, 0, 0) + record(4, 0x1600, 1, value) + record(1, 0x1600, 0, 1));
}

void tst_ModuleBlockStartup::fewerRecordsThanAnnounced_data()
{
    QTest::addColumn<bool>("usesCompleteAccess");
    QTest::addColumn<int>("entries");
    QTest::addColumn<quint32>("announced"); // 1 for the command, 1 for the assignment, entries + 2 for the mapping
    QTest::addRow("complete access") << true << 1 << 5U;
    QTest::addRow("no entry") << false << 0 << 4U;
    QTest::addRow("complete access and no entry") << true << 0 << 4U;
}

/// A PDO that is counted and has no records of its mapping: nothing takes their place.
void tst_ModuleBlockStartup::fewerRecordsThanAnnounced()
{
    QFETCH(bool, usesCompleteAccess);
    QFETCH(int, entries);
    QFETCH(quint32, announced);
    struct_EtherCatDevice device = deviceOf(true, true);
    device.Mailbox.COE.Attributes.CompleteAccess = usesCompleteAccess;
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, std::vector<struct_moduleEntry>(static_cast<std::size_t>(entries)))};
    module.Mailbox.COE.vinitcmd = {commandOf(0x8000)};
    QCOMPARE(startupWritten(device, module), head(announced) + commandRecord(0x8000) + record(2, 0x1C12, 1, 0x1600));
}

void tst_ModuleBlockStartup::moreRecordsThanAnnounced_data()
{
    QTest::addColumn<int>("pdoOn");
    QTest::addRow("no sync manager") << -1;
    QTest::addRow("a mailbox") << 0;
    QTest::addRow("one that the device does not have") << 9;
}

/// A PDO that is not counted and has records of its mapping: the item ends after them, later than announced.
void tst_ModuleBlockStartup::moreRecordsThanAnnounced()
{
    QFETCH(int, pdoOn);
    struct_module module;
    module.TxPdo.vpdo = {pdoOf(0x1A00, pdoOn, oneEntry)};
    module.Mailbox.COE.vinitcmd = {commandOf(0x8000)};
    QCOMPARE(startupWritten(deviceOf(true, true), module), head(1) + mappingOfOneEntry(0x1A00) + commandRecord(0x8000));
}

/// Where nothing is counted there is no item, though the mapping would have records.
void tst_ModuleBlockStartup::nothingAnnounced()
{
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, -1, oneEntry)};
    QCOMPARE(startupWritten(deviceOf(true, true), module), QByteArray());
}

/// No fill follows an item that is shorter than announced.
void tst_ModuleBlockStartup::nextModuleFollowsAtOnce()
{
    struct_EtherCatDevice device = deviceOf(false, true);
    device.Mailbox.COE.Attributes.CompleteAccess = true;
    struct_module module = moduleOf(1);
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, {})};
    QCOMPARE(moduleBlocks(device, fileOf({{module, moduleOf(2)}})).mid(20 + 28),
             head(2) + bytes("4D 9C 00 00  14 00 00 00  02 00 00 00  00 00 00 00  00 00 00 00"));
}

static const testMain::Registration<tst_ModuleBlockStartup, QCoreApplication> registration;
#include "tst_ModuleBlockStartup.moc"
