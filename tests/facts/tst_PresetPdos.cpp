// PDOs of modules that a KTL file presets in the places of a device.
// Covers ktlFacts.cpp.
#include "facts/ktlFacts.h"
#include "testMain.h"

#include <QtTest>

class tst_PresetPdos : public QObject
{
    Q_OBJECT

private slots:
    static void places();
    static void noPreset();
    static void tooManyEntries();
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

} // namespace

void tst_PresetPdos::places()
{
    const facts::PresetPdos preset = facts::presetPdosOf(coupler({0x20, 0, 0x99, 0x10}));
    QVERIFY(preset.areAll);
    QCOMPARE(preset.pdos.size(), std::size_t{2});
    QCOMPARE(preset.pdos[0].place, 0);
    QCOMPARE(preset.pdos[0].index, std::uint16_t{0x1A00});
    QCOMPARE(preset.pdos[1].place, 3);
    QCOMPARE(preset.pdos[1].index, std::uint16_t{0x1A03});
    QVERIFY(preset.pdos[1].isInput);
    QCOMPARE(preset.pdos[1].syncManager, 3);
    QCOMPARE(preset.pdos[1].entries[0].index, std::uint16_t{0x6030});
    QCOMPARE(preset.pdos[1].entries[1].index, std::uint16_t{0x7000});
    QCOMPARE(preset.pdos[1].entries[1].bits, 4);
}

void tst_PresetPdos::noPreset()
{
    KtlDeviceBlock block = coupler({0x10});
    block.preset.reset();
    QVERIFY(facts::presetPdosOf(block).pdos.empty());
}

/// A file of a few megabytes could ask for as many entries as there are places times entries of a module.
void tst_PresetPdos::tooManyEntries()
{
    KtlDeviceBlock block = coupler(std::vector<std::uint32_t>(255, 0x10));
    block.modules[0].pdos[0].entries.resize(2054);
    const facts::PresetPdos most = facts::presetPdosOf(block);
    QVERIFY(most.areAll);
    QCOMPARE(most.pdos.size(), std::size_t{255});
    block.modules[0].pdos[0].entries.resize(2056);
    const facts::PresetPdos preset = facts::presetPdosOf(block);
    QVERIFY(!preset.areAll);
    QCOMPARE(preset.pdos.size(), std::size_t{254});
}

static const testMain::Registration<tst_PresetPdos, testMain::NoApplication> registration;
#include "tst_PresetPdos.moc"
