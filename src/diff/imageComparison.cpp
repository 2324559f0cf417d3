#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/words.h"

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace diff {

namespace {

/// A signal with the sync manager that it is in.
struct PlacedSignal
{
    const facts::SyncManagerImage* image;
    const facts::ImageEntry* entry;
};

std::vector<PlacedSignal> signalsIn(const facts::ProcessImage& image)
{
    std::vector<PlacedSignal> found;
    for (const facts::SyncManagerImage& one : image)
        for (const facts::ImageEntry& entry : one.entries)
            if (!entry.isGap())
                found.push_back({&one, &entry});
    return found;
}

using Key = std::tuple<bool, std::uint16_t, std::uint16_t, std::uint32_t>;

/// What signals are paired by: direction, PDO and object.
std::vector<Key> keysOf(const std::vector<PlacedSignal>& placed)
{
    std::vector<Key> keys;
    keys.reserve(placed.size());
    for (const PlacedSignal& one : placed)
        keys.emplace_back(one.entry->pdo->isInput, one.entry->pdo->index, one.entry->entry->index,
                          one.entry->entry->subIndex);
    return keys;
}

/// "byte 2.4", and in which sync manager where that has changed.
std::string placeOf(const PlacedSignal& placed, bool hasSyncManager)
{
    const std::string byte = "byte " + std::to_string(facts::byteOf(placed.entry->bit)) + "."
                             + std::to_string(facts::bitInByte(placed.entry->bit));
    return hasSyncManager ? "sync manager " + std::to_string(placed.image->number) + ", " + byte : byte;
}

/// `signal 0x6000:1 "Input 1" in TxPdo 0x1a00 "Inputs"`
std::string wordsOf(const PlacedSignal& placed)
{
    const facts::EntryFacts& entry = *placed.entry->entry;
    const facts::PdoFacts& pdo = *placed.entry->pdo;
    return "signal " + named(objectWords(entry.index, entry.subIndex), entry.name) + " in "
           + pdoWords(pdo.isInput, pdo.index, pdo.name);
}

Spot spotOf(const PlacedSignal& before, const PlacedSignal& after)
{
    return {Area::Image, wordsOf(before), before.entry->entry->where, after.entry->entry->where};
}

/// Bytes of process data by direction and number of the sync manager.
std::vector<std::pair<bool, int>> keysOf(const facts::ProcessImage& image)
{
    std::vector<std::pair<bool, int>> keys;
    keys.reserve(image.size());
    for (const facts::SyncManagerImage& one : image)
        keys.emplace_back(one.isInput, one.number);
    return keys;
}

/// What is on one side only is told with the sync managers.
void compareSizes(const Subject& before, const Subject& after, Comparison& out)
{
    static constexpr Field<facts::SyncManagerImage> size{
        "imageBytes", "bytes of the process image", Weight::Breaking,
        [](const facts::SyncManagerImage& image) { return decimal(image.bytes()); }};
    for (const Pair& pair : pairsByKey(keysOf(before.image), keysOf(after.image)))
        if (pair.before.has_value() && pair.after.has_value()) {
            const facts::SyncManagerImage& image = before.image[*pair.before];
            out.compare(size, image, after.image[*pair.after], [&] {
                return Spot{Area::Image,
                            std::string(image.isInput ? "inputs" : "outputs") + ", sync manager "
                                + std::to_string(image.number),
                            before.unit->where, after.unit->where};
            });
        }
}

/// A signal of a module that has come or gone. Those of the device are told with its PDOs.
void tellOneSided(const PlacedSignal& placed, bool isBefore, Comparison& out)
{
    const facts::PdoFacts& pdo = *placed.entry->pdo;
    if (pdo.place < 0)
        return;
    Spot spot;
    spot.area = Area::Image;
    spot.part = wordsOf(placed);
    (isBefore ? spot.before : spot.after) = placed.entry->entry->where;
    if (isBefore)
        out.removed(std::move(spot), Weight::Breaking, words(placeOf(placed, true)));
    else
        out.added(std::move(spot), Weight::Breaking, words(placeOf(placed, true)));
}

} // namespace

void compareImages(const Subject& before, const Subject& after, Comparison& out)
{
    compareSizes(before, after, out);
    const std::vector<PlacedSignal> oldSignals = signalsIn(before.image);
    const std::vector<PlacedSignal> newSignals = signalsIn(after.image);
    for (const Pair& pair : pairsByKey(keysOf(oldSignals), keysOf(newSignals))) {
        if (!pair.before.has_value() || !pair.after.has_value()) {
            tellOneSided(pair.before.has_value() ? oldSignals[*pair.before] : newSignals[*pair.after],
                         pair.before.has_value(), out);
            continue;
        }
        const PlacedSignal& oldSignal = oldSignals[*pair.before];
        const PlacedSignal& newSignal = newSignals[*pair.after];
        const bool hasOtherSyncManager = oldSignal.image->number != newSignal.image->number;
        if (hasOtherSyncManager || oldSignal.entry->bit != newSignal.entry->bit)
            out.moved(spotOf(oldSignal, newSignal), Weight::Breaking, placeOf(oldSignal, hasOtherSyncManager),
                      placeOf(newSignal, hasOtherSyncManager));
    }
}

} // namespace diff
