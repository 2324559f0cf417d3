// The SlotPreConfig item, byte for byte.
// Covers slotWriters.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace {

/// A module in a slot: the number that it has for its slot, and its ident.
using Placed = std::pair<int, std::uint32_t>;

struct_Slot slotOf(std::uint32_t maxInstances, const std::vector<Placed>& modules = {})
{
    struct_Slot made;
    made.Attributes.MaxInstances = maxInstances;
    for (const Placed& placed : modules) {
        made.slotmodule.emplace_back();
        made.slotmodule.back().Instances = placed.first;
        made.slotmodule.back().module.TypeAttributes.ModuleIdent = placed.second;
    }
    return made;
}

QByteArray written(const std::vector<struct_Slot>& deviceSlots)
{
    struct_EtherCatDevice device;
    device.Slots.vslot = deviceSlots;
    return writtenBy([&](std::FILE* out) { KTL_write_device_SlotPreConfig(out, &device); });
}

QByteArray head(std::uint32_t size, std::uint32_t count, std::uint32_t countReal)
{
    return bytes("4F 9C 00 00") + le32(size) + le32(count) + le32(countReal);
}

/// Records of the given idents; the other half of each is reserved.
QByteArray records(const std::vector<std::uint32_t>& idents)
{
    return std::accumulate(
        idents.cbegin(), idents.cend(), QByteArray(),
        [](const QByteArray& all, std::uint32_t ident) { return all + le32(ident) + bytes("00 00 00 00"); });
}

} // namespace

class tst_SlotPreset : public QObject
{
    Q_OBJECT

private slots:
    void twoSlotsOfTwoPlaces();
    void modulesPutInByHand();
    void noSlotNoItem();
    void noPlaceNoRecord();
    void otherFieldsDoNotCount();
    void lastModuleOfASlotCounts();
    void slotNumber_data();
    void slotNumber();
    void positionsWrap_data();
    void positionsWrap();
    void modulesWrap();
    void nullArgumentsWriteNothing();
};

void tst_SlotPreset::twoSlotsOfTwoPlaces()
{
    QCOMPARE(written({slotOf(2, {{0, 0x11223344}}), slotOf(2, {{1, 0x55667788}})}),
             bytes("4F 9C 00 00" // m_iItemType 40015
                   "30 00 00 00" // m_iSize 16 + 4 * 8 = 48
                   "04 00 00 00" // m_iCount
                   "02 00 00 00" // m_iCountReal
                   "44 33 22 11  00 00 00 00" // m_iModuleIdent, m_ireserve
                   "88 77 66 55  00 00 00 00"
                   "00 00 00 00  00 00 00 00"
                   "00 00 00 00  00 00 00 00"));
}

/// A module that was put in by hand has the number of its place, and not that of its slot as a default module has.
void tst_SlotPreset::modulesPutInByHand()
{
    // In the first place of each slot.
    QCOMPARE(written({slotOf(2, {{0, 0xA1}}), slotOf(2, {{2, 0xB1}})}), head(48, 4, 2) + records({0xA1, 0, 0xB1, 0}));
    // In the second place of the first slot, while the second slot, number 1, has a default module.
    QCOMPARE(written({slotOf(2, {{1, 0xA1}}), slotOf(2, {{1, 0xB1}})}), head(48, 4, 2) + records({0, 0xB1, 0, 0}));
}

void tst_SlotPreset::noSlotNoItem()
{
    QCOMPARE(written({}), QByteArray());
}

/// With no place for a module the head is the whole item, whatever is in the slots.
void tst_SlotPreset::noPlaceNoRecord()
{
    QCOMPARE(written({slotOf(0, {{0, 0x11}}), slotOf(0)}), bytes("4F 9C 00 00  10 00 00 00  00 00 00 00  00 00 00 00"));
}

/// Idents that a slot accepts, defaults too, are not what is in it.
void tst_SlotPreset::otherFieldsDoNotCount()
{
    struct_Slot made = slotOf(1);
    made.Attributes.MinInstances = 5;
    made.ModuleIdent.resize(1);
    made.ModuleIdent[0].ModuleIdent = 0x99;
    made.ModuleIdent[0].Attributes.Default = 1;
    QCOMPARE(written({made}), head(24, 1, 0) + records({0}));
}

/// All modules of a slot count, and the last one is in its record: of one slot, and of several slots that hold
/// modules of the same number. An ident of 0 replaces another one too.
void tst_SlotPreset::lastModuleOfASlotCounts()
{
    QCOMPARE(written({slotOf(2, {{0, 0xA1}, {0, 0xA2}}), slotOf(1, {{1, 0xB1}})}),
             head(40, 3, 3) + records({0xA2, 0xB1, 0}));
    QCOMPARE(written({slotOf(1, {{1, 0xA1}, {0, 0xA2}}), slotOf(1, {{1, 0xB1}, {0, 0}})}),
             head(32, 2, 4) + records({0, 0xB1}));
}

void tst_SlotPreset::slotNumber_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("first") << 0 << head(32, 2, 1) + records({0x77, 0});
    QTest::addRow("last") << 1 << head(32, 2, 1) + records({0, 0x77});
    QTest::addRow("after the last: neither counted nor written") << 2 << head(32, 2, 0) + records({0, 0});
    QTest::addRow("negative") << -1 << head(32, 2, 0) + records({0, 0});
    QTest::addRow("as far below 0 as can be") << std::numeric_limits<int>::min() << head(32, 2, 0) + records({0, 0});
    QTest::addRow("256 is not 0") << 256 << head(32, 2, 0) + records({0, 0});
}

void tst_SlotPreset::slotNumber()
{
    QFETCH(int, number);
    QFETCH(QByteArray, expected);
    QCOMPARE(written({slotOf(1, {{number, 0x77}}), slotOf(1)}), expected);
}

void tst_SlotPreset::positionsWrap_data()
{
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<quint32>("maxInstances");
    QTest::addColumn<int>("positions");
    QTest::addRow("255 positions") << 255 << quint32(1) << 255;
    QTest::addRow("256 positions are 0") << 16 << quint32(16) << 0;
    QTest::addRow("300 positions are 44") << 300 << quint32(1) << 44;
    QTest::addRow("each of 257: 3 slots give 771, so 3") << 3 << quint32(257) << 3;
    QTest::addRow("each of the greatest number: 2 slots give 254") << 2 << quint32(0xFFFFFFFF) << 254;
}

/// The sum of the places is kept in 8 bits, and there are only so many records.
void tst_SlotPreset::positionsWrap()
{
    QFETCH(int, slotCount);
    QFETCH(quint32, maxInstances);
    QFETCH(int, positions);
    std::vector<struct_Slot> made;
    std::vector<std::uint32_t> idents;
    for (int slot = 0; slot < slotCount; ++slot) {
        const auto ident = 0x1000U + static_cast<std::uint32_t>(slot);
        made.push_back(slotOf(maxInstances, {{slot, ident}}));
        idents.push_back(ident);
    }
    const int real = std::min(slotCount, positions); // of each slot with a number below that of the positions, one
    idents.resize(static_cast<std::size_t>(real));
    idents.resize(static_cast<std::size_t>(positions), 0);
    const auto count = static_cast<std::uint32_t>(positions);
    QCOMPARE(written(made), head(16 + 8 * count, count, static_cast<std::uint32_t>(real)) + records(idents));
}

/// The number of modules is kept in 8 bits too: 257 modules in one slot count as 1.
void tst_SlotPreset::modulesWrap()
{
    std::vector<Placed> modules(256, {0, 0x11});
    modules.push_back({0, 0x22});
    QCOMPARE(written({slotOf(1, modules)}), head(24, 1, 1) + records({0x22}));
}

void tst_SlotPreset::nullArgumentsWriteNothing()
{
    struct_EtherCatDevice device;
    device.Slots.vslot = {slotOf(1)};
    KTL_write_device_SlotPreConfig(nullptr, &device);
    QCOMPARE(writtenBy([](std::FILE* out) { KTL_write_device_SlotPreConfig(out, nullptr); }), QByteArray());
}

static const testMain::Registration<tst_SlotPreset, QCoreApplication> registration;
#include "tst_SlotPreset.moc"
