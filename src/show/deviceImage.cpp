#include "show/deviceImage.h"

#include "facts/esiUnits.h"
#include "facts/processData.h"

#include <functional>

namespace show {

DeviceImage deviceImageOf(const ShownFile& file, std::size_t index)
{
    DeviceImage device;
    if (file.esi != nullptr) {
        device.unit = facts::deviceFactsOf(*file.esi, index);
    } else {
        const KtlDeviceBlock& block = file.devices[index].block;
        device.unit = facts::ktlUnitOf(block, index, file.walk, file.places[index]);
        device.preset = facts::presetPdosOf(block);
    }
    device.image = facts::processImageOf(device.unit, device.preset.pdos);
    return device;
}

std::vector<std::optional<std::int64_t>> firstBitsOf(const DeviceImage& device)
{
    const std::vector<facts::PdoFacts>& pdos = device.unit.pdos;
    std::vector<std::optional<std::int64_t>> bits(pdos.size());
    const std::less<> isBefore;
    for (const facts::SyncManagerImage& image : device.image) {
        std::int64_t bit = 0;
        for (const facts::PdoFacts* const pdo : image.pdos) {
            if (!isBefore(pdo, pdos.data()) && isBefore(pdo, pdos.data() + pdos.size()))
                bits[static_cast<std::size_t>(pdo - pdos.data())] = bit;
            bit += facts::bitsOf(*pdo);
        }
    }
    return bits;
}

} // namespace show
