// PDOs of modules that a KTL file presets in the places of a device.
// Covers presetPdos.cpp.
#include "facts/presetPdos.h"
#include "testMain.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::vector<std::uint32_t>)
Q_DECLARE_METATYPE(std::vector<struct_KTL_InitCmd>)

class tst_PresetPdos : public QObject
{
    Q_OBJECT

private slots:
    static void places();
    static void indexes_data();
    static void indexes();
    static void wholeAssignment();
    static void severalKinds();
    static void noPreset();
    static void tooMany_data();
    static void tooMany();
};

namespace {

/// A module with an input of 8 bits whose index depends on the slot, and one of 4 bits whose index does not.
KtlModule inputModule(std::uint32_t ident)
{
    KtlModule module;
    module.attributes.ModuleIdent = ident;
    KtlModulePdo pdo;
    pdo.isInput = true;
    pdo.head.SM = 3;
    pdo.head.IndexAttributes = 0x1A00;
    struct_KTL_modulePdoOne moving{};
    moving.DependOnSlot = 1;
    moving.index = 0x6000;
    moving.SubIndex = 1;
    moving.BitLen = 8;
    struct_KTL_modulePdoOne fixed{};
    fixed.index = 0x7000;
    fixed.BitLen = 4;
    pdo.entries = {moving, fixed};
    module.pdos = {pdo};
    return module;
}

KtlPreset presetOf(const std::vector<std::uint32_t>& idents)
{
    KtlPreset preset;
    for (const std::uint32_t ident : idents)
        preset.records.push_back({ident, 0});
    return preset;
}

KtlDeviceBlock coupler(const std::vector<std::uint32_t>& idents)
{
    KtlDeviceBlock block;
    KtlSlots slotItem;
    slotItem.head.m_iSlotPdoIncrement = 1;
    slotItem.head.m_iSlotIndexIncrement = 0x10;
    block.deviceSlots = slotItem;
    block.preset = presetOf(idents);
    block.modules = {inputModule(0x10), inputModule(0x20)};
    return block;
}

struct_KTL_InitCmd command(std::uint16_t index, std::uint8_t subIndex, std::uint32_t data)
{
    struct_KTL_InitCmd record{};
    record.Index = index;
    record.SubIndex = subIndex;
    record.DataBytes = 2;
    record.Data = data;
    return record;
}

QStringList indexesOf(const facts::PresetPdos& preset)
{
    QStringList indexes;
    for (const facts::PdoFacts& pdo : preset.pdos)
        indexes += QString::number(pdo.index, 16);
    return indexes;
}

} // namespace

void tst_PresetPdos::places()
{
    const facts::PresetPdos preset = facts::presetPdosOf(coupler({0x20, 0, 0x99, 0x10}));
    QVERIFY(preset.areAll);
    QCOMPARE(preset.pdos.size(), std::size_t{2});
    QCOMPARE(preset.pdos[0].place, 0);
    QCOMPARE(preset.pdos[0].index, std::uint16_t{0x1A00});
    QCOMPARE(preset.pdos[1].place, 3);
    QCOMPARE(preset.pdos[1].index, std::uint16_t{0x1A00});
    QVERIFY(preset.pdos[1].isInput);
    QCOMPARE(preset.pdos[1].syncManager, 3);
    QCOMPARE(preset.pdos[1].entries[0].index, std::uint16_t{0x6030});
    QCOMPARE(preset.pdos[1].entries[1].index, std::uint16_t{0x7000});
    QCOMPARE(preset.pdos[1].entries[1].bits, 4);
}

void tst_PresetPdos::indexes_data()
{
    using Places = std::vector<std::uint32_t>;
    using Commands = std::vector<struct_KTL_InitCmd>;
    QTest::addColumn<Places>("idents");
    QTest::addColumn<Commands>("commands");
    QTest::addColumn<QStringList>("expected");
    const Places third{0, 0, 0x10};
    const auto assigned = [](std::uint16_t index) { return command(0x1C13, 1, index); };
    QTest::newRow("nothing tells") << third << Commands{} << QStringList{"1a00"};
    QTest::newRow("assigned as moved") << third << Commands{assigned(0x1A02)} << QStringList{"1a02"};
    QTest::newRow("mapped as moved") << third << Commands{command(0x1A02, 0, 0)} << QStringList{"1a02"};
    QTest::newRow("assigned as declared") << third << Commands{assigned(0x1A00)} << QStringList{"1a00"};
    QTest::newRow("by a slot group") << third << Commands{assigned(0x1A01)} << QStringList{"1a00"};
    QTest::newRow("both, so it may be either")
        << third << Commands{assigned(0x1A00), assigned(0x1A02)} << QStringList{"1a00"};
    QTest::newRow("the index as a value elsewhere")
        << third << Commands{command(0x8000, 1, 0x1A02)} << QStringList{"1a00"};
    QTest::newRow("the index as a number of PDOs")
        << third << Commands{command(0x1C13, 0, 0x1A02)} << QStringList{"1a00"};
    QTest::newRow("the first place has the declared one")
        << Places{0x10, 0x20} << Commands{assigned(0x1A00), assigned(0x1A01)} << QStringList{"1a00", "1a01"};
    QTest::newRow("all have the declared one")
        << Places{0x10, 0x20} << Commands{assigned(0x1A00)} << QStringList{"1a00", "1a00"};
    QTest::newRow("one of two places is told")
        << Places{0, 0x10, 0x10} << Commands{assigned(0x1A01)} << QStringList{"1a00", "1a00"};
}

/// Each place moves an index by 1, if it moves: startup commands tell.
void tst_PresetPdos::indexes()
{
    QFETCH(const std::vector<std::uint32_t>, idents);
    QFETCH(const std::vector<struct_KTL_InitCmd>, commands);
    KtlDeviceBlock block = coupler(idents);
    block.coeCommands = commands;
    QTEST(indexesOf(facts::presetPdosOf(block)), "expected");
}

/// Indexes that one complete access assigns.
void tst_PresetPdos::wholeAssignment()
{
    KtlDeviceBlock block = coupler({0, 0, 0x10});
    struct_KTL_InitCmd whole = command(0x1C13, 0, 0);
    whole.bIfCA = 1;
    whole.DataBytes = 4;
    block.coeCommands = {whole};
    block.accessValues = {0x1A02};
    QCOMPARE(indexesOf(facts::presetPdosOf(block)), QStringList{"1a02"});
}

/// The second module declares the index to which the first one moves: what is known of the first tells of the second.
/// An index of the device itself tells nothing.
void tst_PresetPdos::severalKinds()
{
    KtlDeviceBlock block = coupler({0, 0x10, 0x20});
    block.modules[1].pdos[0].head.IndexAttributes = 0x1A01;
    block.coeCommands = {command(0x1C13, 1, 0x1A01), command(0x1C13, 2, 0x1A03)};
    QCOMPARE(indexesOf(facts::presetPdosOf(block)), (QStringList{"1a01", "1a03"}));
    KtlPdo own;
    own.head.IndexAttributes = 0x1A03;
    block.pdos = {own};
    QCOMPARE(indexesOf(facts::presetPdosOf(block)), (QStringList{"1a01", "1a01"}));
}

void tst_PresetPdos::noPreset()
{
    KtlDeviceBlock block = coupler({0x10});
    block.preset.reset();
    QVERIFY(facts::presetPdosOf(block).pdos.empty());
}

void tst_PresetPdos::tooMany_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("pdos");
    QTest::newRow("65,535 entries") << 256 << 1 << 255;
    QTest::newRow("65,790 entries, a PDO counts as one") << 257 << 1 << 254;
    QTest::newRow("524,280 bits") << 1 << 2056 << 255;
    QTest::newRow("524,535 bits") << 1 << 2057 << 254;
}

/// A file of a few megabytes could ask for as many entries as there are places times entries of a module.
void tst_PresetPdos::tooMany()
{
    QFETCH(int, entries);
    QFETCH(int, bits);
    QFETCH(int, pdos);
    KtlDeviceBlock block = coupler(std::vector<std::uint32_t>(255, 0x10));
    struct_KTL_modulePdoOne entry{};
    entry.BitLen = static_cast<std::uint16_t>(bits);
    block.modules[0].pdos[0].entries.assign(static_cast<std::size_t>(entries), entry);
    const facts::PresetPdos preset = facts::presetPdosOf(block);
    QCOMPARE(static_cast<int>(preset.pdos.size()), pdos);
    QCOMPARE(preset.areAll, pdos == 255);
}

static const testMain::Registration<tst_PresetPdos, testMain::NoApplication> registration;
#include "tst_PresetPdos.moc"
