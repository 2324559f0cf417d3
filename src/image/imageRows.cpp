#include "image/imageRows.h"

namespace image {

namespace {

Row rowOf(const facts::ImageEntry& mapped)
{
    const facts::EntryFacts& entry = *mapped.entry;
    Row row;
    row.kind = mapped.isGap() ? RowKind::Gap : RowKind::Entry;
    row.bit = mapped.bit;
    row.bits = mapped.bits;
    row.index = entry.index;
    row.subIndex = entry.subIndex;
    row.link = entry.link;
    row.name = entry.name;
    row.type = entry.dataType;
    return row;
}

/// The length with which a sync manager goes out, and the most that it takes.
void setLengths(Area& area, const facts::SyncManagerFacts& syncManager)
{
    area.length = syncManager.exportedBytes;
    area.maxLength = syncManager.attributes.MaxSize;
}

} // namespace

Area areaOf(const facts::SyncManagerImage& one)
{
    Area area;
    area.number = one.number;
    area.isInput = one.isInput;
    area.bits = one.bits;
    area.bytes = one.bytes();
    if (one.syncManager != nullptr)
        setLengths(area, *one.syncManager);
    auto entry = one.entries.begin();
    std::int64_t bit = 0;
    for (const facts::PdoFacts* const source : one.pdos) {
        Pdo& pdo = area.pdos.emplace_back();
        pdo.index = source->index;
        pdo.place = source->place;
        pdo.name = source->name;
        pdo.bit = bit;
        for (; entry != one.entries.end() && entry->pdo == source; ++entry) {
            pdo.rows.push_back(rowOf(*entry));
            bit += entry->bits;
        }
        pdo.bits = bit - pdo.bit;
    }
    constexpr std::int64_t bitsPerByte = 8;
    if (const std::int64_t unused = area.bytes * bitsPerByte - area.bits; unused > 0)
        area.padding = {RowKind::Padding, area.bits, unused, 0, 0, 0, {}, {}};
    return area;
}

Device deviceOf(const facts::UnitFacts& unit, const std::vector<facts::PdoFacts>& modulePdos)
{
    Device device;
    device.owner = unit.owner;
    device.vendor = unit.vendor;
    device.product = unit.product;
    device.revision = unit.revision;
    device.type = unit.type;
    device.name = unit.name;
    device.isComplete = unit.isComplete;
    for (const facts::SyncManagerImage& one : facts::processImageOf(unit, modulePdos))
        device.areas.push_back(areaOf(one));
    return device;
}

} // namespace image
