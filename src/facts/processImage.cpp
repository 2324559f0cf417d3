#include "facts/processImage.h"

#include "facts/processData.h"
#include "model/syncDirection.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace facts {

namespace {

/// The images of a device by direction, outputs first, and number of the sync manager.
using Images = std::map<std::pair<bool, int>, SyncManagerImage>;

/// Images of the sync managers of a device whose PDOs name them by their places.
Images imagesOf(const std::vector<SyncManagerFacts>& syncManagers)
{
    Images images;
    for (std::size_t place = 0; place < syncManagers.size(); ++place) {
        const SyncManagerFacts& syncManager = syncManagers[place];
        if (!carriesProcessData(syncManager.direction) || isVirtual(syncManager))
            continue;
        const bool isInput = syncManager.direction == KTL_Inputs;
        const int number = static_cast<int>(place);
        images[{isInput, number}] = {number, isInput, &syncManager, {}, {}, 0};
    }
    return images;
}

/// The image that a PDO is in; null if it is in none.
/// @param hasPlaces  whether PDOs name sync managers by their places
SyncManagerImage* imageFor(const PdoFacts& pdo, bool hasPlaces, Images& images)
{
    if (pdo.syncManager < 0)
        return nullptr;
    if (!hasPlaces) {
        const auto added = images.emplace(std::pair(pdo.isInput, pdo.syncManager),
                                          SyncManagerImage{pdo.syncManager, pdo.isInput, nullptr, {}, {}, 0});
        return &added.first->second;
    }
    for (const bool isInput : {false, true})
        if (const auto found = images.find({isInput, pdo.syncManager}); found != images.end())
            return &found->second;
    return nullptr;
}

void addPdo(SyncManagerImage& image, const PdoFacts& pdo)
{
    image.pdos.push_back(&pdo);
    for (const EntryFacts& entry : pdo.entries) {
        const std::int64_t bits = std::max(entry.bits, 0);
        image.entries.push_back({&pdo, &entry, image.bits, bits});
        image.bits += bits;
    }
}

} // namespace

std::int64_t SyncManagerImage::bytes() const noexcept
{
    constexpr std::int64_t bitsPerByte = 8;
    return (bits + bitsPerByte - 1) / bitsPerByte;
}

ProcessImage processImageOf(const UnitFacts& unit, const std::vector<PdoFacts>& modulePdos)
{
    const bool hasPlaces =
        unit.hasPlacesOfSyncManagers && std::all_of(modulePdos.begin(), modulePdos.end(), [&unit](const PdoFacts& pdo) {
            return fitsPlaceOfSyncManager(pdo, unit.syncManagers);
        });
    Images images = hasPlaces ? imagesOf(unit.syncManagers) : Images();
    for (const bool isInput : {false, true})
        for (const std::vector<PdoFacts>* const pdos : {&unit.pdos, &modulePdos})
            for (const PdoFacts& pdo : *pdos)
                if (pdo.isInput == isInput)
                    if (SyncManagerImage* const image = imageFor(pdo, hasPlaces, images))
                        addPdo(*image, pdo);
    ProcessImage image;
    image.reserve(images.size());
    for (auto& [key, one] : images)
        image.push_back(std::move(one));
    return image;
}

} // namespace facts
