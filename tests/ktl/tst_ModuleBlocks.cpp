// The module blocks: identity and entries of each module, byte for byte. Startup records have a test of their own.
// Covers moduleBlockWriters.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/moduleBuilders.h"
#include "testMain.h"

#include <QtTest>

namespace {

/// What tells the two directions of a module apart.
struct Direction
{
    ModulePdoList struct_module::*list = nullptr;
    QByteArray code; ///< as it is in the file
};

const Direction outputs{&struct_module::RxPdo, bytes("A7 9C 00 00")};
const Direction inputs{&struct_module::TxPdo, bytes("A6 9C 00 00")};

/// The blocks of a file of one module, after its identity.
QByteArray entriesWritten(const struct_module& module)
{
    return moduleBlocks(struct_EtherCatDevice(), fileOf({{module}})).mid(20);
}

} // namespace

Q_DECLARE_METATYPE(Direction)

class tst_ModuleBlocks : public QObject
{
    Q_OBJECT

private slots:
    void identity();
    void identityOfAClearedModule();
    void modulesOfAllGroupsInOrder();
    void blocksAreWrittenForEachDevice();
    void wholeEntryItem_data() { addDirections(); }
    void wholeEntryItem();
    void outputsBeforeInputs();
    void pdosAreMerged_data() { addDirections(); }
    void pdosAreMerged();
    void syncManagerOfPdo_data();
    void syncManagerOfPdo();
    void firstPdoWithoutEntries_data() { addDirections(); }
    void firstPdoWithoutEntries();
    void lengthOfAnEntry_data();
    void lengthOfAnEntry();
    void nullArgumentsWriteNothing();

private:
    static void addDirections();
};

void tst_ModuleBlocks::addDirections()
{
    QTest::addColumn<Direction>("direction");
    QTest::addRow("outputs") << outputs;
    QTest::addRow("inputs") << inputs;
}

void tst_ModuleBlocks::identity()
{
    struct_module module;
    module.Name = "not stored";
    module.m_profileNO = 402;
    module.TypeAttributes.Name = "not stored";
    module.TypeAttributes.ModuleClass = "not stored";
    module.TypeAttributes.ModuleIdent = 0x89ABCDEF;
    module.TypeAttributes.ModulePdoGroup = -2;
    module.TypeAttributes.SRA_ParamterSupported = true;
    QCOMPARE(moduleBlocks(struct_EtherCatDevice(), fileOf({{module}})),
             bytes("4D 9C 00 00" // m_iItemType 40013
                   "14 00 00 00" // m_iSize 20
                   "EF CD AB 89" // ModuleIdent
                   "FE FF FF FF" // ModulePdoGroup
                   "01 00 00 00")); // SRA_ParamterSupported, m_attrRev, m_u16Rev
}

void tst_ModuleBlocks::identityOfAClearedModule()
{
    QCOMPARE(moduleBlocks(struct_EtherCatDevice(), fileOf({{struct_module()}})),
             bytes("4D 9C 00 00  14 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00"));
}

void tst_ModuleBlocks::modulesOfAllGroupsInOrder()
{
    const auto block = [](std::uint32_t ident) { return bytes("4D 9C 00 00  14 00 00 00") + le32(ident) + zeros(8); };
    QCOMPARE(moduleBlocks(struct_EtherCatDevice(), fileOf({{moduleOf(3), moduleOf(1)}, {}, {moduleOf(2)}})),
             block(3) + block(1) + block(2));
    QCOMPARE(moduleBlocks(struct_EtherCatDevice(), fileOf({})), QByteArray());
}

/// The blocks are those of the file, whatever is in the slots of the device.
void tst_ModuleBlocks::blocksAreWrittenForEachDevice()
{
    const struct_FilenameDevice file = fileOf({{moduleOf(7)}});
    struct_EtherCatDevice device;
    device.mRxPdo.mpdo = {pdoOf(0x1600, 0, {entryOf(0x7000, 1, 8)})};
    device.mMailbox.COE.vinitcmd.resize(1);
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].slotmodule.resize(1);
    QCOMPARE(moduleBlocks(device, file), moduleBlocks(struct_EtherCatDevice(), file));
}

void tst_ModuleBlocks::wholeEntryItem()
{
    QFETCH(Direction, direction);
    modulePdo pdo = pdoOf(0x1A12, 2, {struct_moduleEntry(), entryOf(0x6041, 0x0203, 16)});
    pdo.Name = "not stored";
    pdo.size = 2.0F;
    pdo.Instances = 9;
    pdo.Attributes.Fixed = true;
    pdo.Attributes.SU = -7;
    pdo.indexAttributes.DependOnSlot = true; // of the PDO: not stored
    struct_moduleEntry& entry = pdo.vEntry[1];
    entry.indexAttributes.DependOnSlot = true;
    entry.indexAttributes.m_DependOnSlotGroup = true; // not stored
    entry.Linkto = KTL_PDO_TYPE_I16_AIN;
    entry.Name = "not stored";
    entry.DataType = "UINT";
    entry.DefaultData = 0x77777777;
    entry.Offs = 1.4F;
    struct_module module;
    (module.*direction.list).vpdo = {pdo};
    QCOMPARE(entriesWritten(module), direction.code + // m_iItemType
                                         bytes("34 00 00 00" // m_iSize 28 + 2 * 12 = 52
                                               "01 00 00 00" // Fixed, Mandatory, m_bVirtual
                                               "02 00 00 00" // SM
                                               "F9 FF FF FF" // SU
                                               "12 1A 00 00" // IndexAttributes, m_rev
                                               "02 00 00 00" // m_iCount
                                               "00 00 00 00  00 00 00 00  00 00 00 00"
                                               "01 00" // DependOnSlot, m_AttrRev
                                               "41 60" // index
                                               "03 02" // SubIndex
                                               "10 00" // BitLen
                                               "FC FF FF FF")); // LinkToData
    (module.*direction.list).vpdo[0].Attributes.Fixed = false;
    (module.*direction.list).vpdo[0].Attributes.Mandatory = true;
    QCOMPARE(entriesWritten(module).mid(8, 4), bytes("00 01 00 00"));
}

void tst_ModuleBlocks::outputsBeforeInputs()
{
    struct_module module;
    module.TxPdo.vpdo = {pdoOf(0x1A00, 3, {})};
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, {})};
    QCOMPARE(entriesWritten(module),
             bytes("A7 9C 00 00  1C 00 00 00  00 00 00 00  02 00 00 00  00 00 00 00  00 16 00 00  00 00 00 00"
                   "A6 9C 00 00  1C 00 00 00  00 00 00 00  03 00 00 00  00 00 00 00  00 1A 00 00  00 00 00 00"));
}

/// Two PDOs of 2 and 3 entries, and one between them that is on no sync manager: one item of 5 entries with the head of
/// the first.
void tst_ModuleBlocks::pdosAreMerged()
{
    QFETCH(Direction, direction);
    modulePdo second = pdoOf(0x1602, 5, {entryOf(0x7003, 3, 3), entryOf(0x7004, 4, 4), entryOf(0x7005, 5, 5)});
    second.Attributes.Fixed = true;
    second.Attributes.Mandatory = true;
    second.Attributes.SU = 8;
    struct_module module;
    (module.*direction.list).vpdo = {
        pdoOf(0x1600, 2, {entryOf(0x7001, 1, 1), entryOf(0x7002, 2, 2)}),
        pdoOf(0x1601, -1, {entryOf(0x7777, 7, 7)}),
        second,
    };
    QCOMPARE(entriesWritten(module), direction.code
                                         + bytes("58 00 00 00" // m_iSize 28 + 5 * 12 = 88
                                                 "00 00 00 00  02 00 00 00  00 00 00 00  00 16 00 00"
                                                 "05 00 00 00" // m_iCount
                                                 "00 00 01 70  01 00 01 00  00 00 00 00"
                                                 "00 00 02 70  02 00 02 00  00 00 00 00"
                                                 "00 00 03 70  03 00 03 00  00 00 00 00"
                                                 "00 00 04 70  04 00 04 00  00 00 00 00"
                                                 "00 00 05 70  05 00 05 00  00 00 00 00"));
}

void tst_ModuleBlocks::syncManagerOfPdo_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QList<int>>("syncManagers"); // of the PDOs 0x1600, 0x1601, ... with one entry each
    QTest::addColumn<int>("first"); // of the PDO whose head is taken; -1 for no item
    QTest::addColumn<int>("entries");
    for (const Direction& direction : {outputs, inputs}) {
        const char* name = direction.list == outputs.list ? "outputs" : "inputs";
        QTest::addRow("%s, all on none: no item", name) << direction << QList<int>{-1, -2, -1} << -1 << 0;
        QTest::addRow("%s, no PDO: no item", name) << direction << QList<int>{} << -1 << 0;
        QTest::addRow("%s, the first on none", name) << direction << QList<int>{-1, 3, 2, -5} << 1 << 2;
        QTest::addRow("%s, 0 is a sync manager", name) << direction << QList<int>{0} << 0 << 1;
        QTest::addRow("%s, one that no device has", name) << direction << QList<int>{70000} << 0 << 1;
    }
}

/// A number of 0 or more is enough: sync managers of the device are not looked up.
void tst_ModuleBlocks::syncManagerOfPdo()
{
    QFETCH(Direction, direction);
    QFETCH(QList<int>, syncManagers);
    QFETCH(int, first);
    QFETCH(int, entries);
    struct_module module;
    for (int index = 0; index < syncManagers.size(); ++index)
        (module.*direction.list)
            .vpdo.push_back(
                pdoOf(static_cast<std::uint16_t>(0x1600 + index), syncManagers.at(index), {struct_moduleEntry()}));
    QByteArray expected;
    if (first >= 0) {
        const auto count = static_cast<std::uint32_t>(entries);
        expected = direction.code + le32(28 + 12 * count) + zeros(4)
                   + le32(static_cast<std::uint32_t>(syncManagers.at(first))) + zeros(4)
                   + le32(static_cast<std::uint32_t>(0x1600 + first)) + le32(count) + zeros(12 * entries);
    }
    QCOMPARE(entriesWritten(module), expected);
}

/// The head is that of the first PDO on a sync manager, also if it has no entry of its own.
void tst_ModuleBlocks::firstPdoWithoutEntries()
{
    QFETCH(Direction, direction);
    struct_module module;
    (module.*direction.list).vpdo = {pdoOf(0x1600, 4, {}), pdoOf(0x1601, 5, {struct_moduleEntry()})};
    QCOMPARE(entriesWritten(module),
             direction.code + bytes("28 00 00 00  00 00 00 00  04 00 00 00  00 00 00 00  00 16 00 00  01 00 00 00")
                 + zeros(12));
    (module.*direction.list).vpdo.pop_back();
    QCOMPARE(entriesWritten(module),
             direction.code + bytes("1C 00 00 00  00 00 00 00  04 00 00 00  00 00 00 00  00 16 00 00  00 00 00 00"));
}

void tst_ModuleBlocks::lengthOfAnEntry_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("asOutput");
    QTest::addColumn<QByteArray>("asInput");
    QTest::addRow("255") << 255 << bytes("FF 00") << bytes("FF 00");
    QTest::addRow("256 is 0 as an input") << 256 << bytes("00 01") << bytes("00 00");
    QTest::addRow("264 is 8 as an input") << 264 << bytes("08 01") << bytes("08 00");
    QTest::addRow("65535") << 65535 << bytes("FF FF") << bytes("FF 00");
    QTest::addRow("65544 is 8 in both") << 65544 << bytes("08 00") << bytes("08 00");
    QTest::addRow("negative") << -1 << bytes("FF FF") << bytes("FF 00");
}

void tst_ModuleBlocks::lengthOfAnEntry()
{
    QFETCH(int, length);
    QFETCH(QByteArray, asOutput);
    QFETCH(QByteArray, asInput);
    struct_module module;
    module.RxPdo.vpdo = {pdoOf(0x1600, 2, {entryOf(0x7000, 1, length)})};
    module.TxPdo.vpdo = {pdoOf(0x1A00, 3, {entryOf(0x6000, 1, length)})};
    const QByteArray written = entriesWritten(module);
    QCOMPARE(written.size(), 80);
    QCOMPARE(written.mid(32, 8), bytes("01 00") + asOutput + zeros(4)); // SubIndex, BitLen, LinkToData
    QCOMPARE(written.mid(72, 8), bytes("01 00") + asInput + zeros(4));
}

void tst_ModuleBlocks::nullArgumentsWriteNothing()
{
    struct_EtherCatDevice device;
    struct_FilenameDevice file = fileOf({{moduleOf(1)}});
    KTL_write_device_Module(nullptr, &device, &file);
    QCOMPARE(writtenBy([&](std::FILE* out) {
                 KTL_write_device_Module(out, nullptr, &file);
                 KTL_write_device_Module(out, &device, nullptr);
             }),
             QByteArray());
}

static const testMain::Registration<tst_ModuleBlocks, QCoreApplication> registration;
#include "tst_ModuleBlocks.moc"
