// processImage.h - the process image of a device: at which bit each signal is.
#pragma once

#include "facts/unitFacts.h"

#include <cstdint>
#include <vector>

namespace facts {

/// An entry of an assigned PDO at its place.
struct ImageEntry
{
    const PdoFacts* pdo;
    const EntryFacts* entry;
    std::int64_t bit = 0; ///< from the start of the sync manager
    std::int64_t bits = 0; ///< 0 for an entry with a negative length

    /// Whether nothing is mapped there.
    [[nodiscard]] bool isGap() const noexcept { return entry->index == 0; }
};

/// The process image in one sync manager.
struct SyncManagerImage
{
    int number = 0; ///< as PDOs name it
    bool isInput = false;
    const SyncManagerFacts* syncManager = nullptr; ///< null if the file does not tell which one has the number
    std::vector<const PdoFacts*> pdos; ///< that are assigned, in the order of their assignment
    std::vector<ImageEntry> entries; ///< of all these, one after another
    std::int64_t bits = 0; ///< of all signals

    /// Bytes that the signals take; the last one may have bits that are not used.
    [[nodiscard]] std::int64_t bytes() const noexcept;
};

/// The process image of a device, outputs first, then by the numbers of the sync managers.
using ProcessImage = std::vector<SyncManagerImage>;

/// The process image of a device: in each sync manager that carries process data, the entries of the PDOs that are
/// assigned to it, bit after bit, in the order in which the PDOs are assigned: outputs of the device, of its modules,
/// inputs of the device, of its modules. Sync managers that exist in the description only are left out; one without
/// PDOs is there and empty. A PDO of a module on a sync manager that cannot be the one at that place shows that numbers
/// are not places, as it does in a KTL file.
/// @param unit        a device; has to outlive the image
/// @param modulePdos  of modules, besides those among its own, see `presetPdosOf`; have to outlive the image
[[nodiscard]] ProcessImage processImageOf(const UnitFacts& unit, const std::vector<PdoFacts>& modulePdos = {});

/// Whole bytes before a bit.
[[nodiscard]] constexpr std::int64_t byteOf(std::int64_t bit) noexcept
{
    constexpr std::int64_t bitsPerByte = 8;
    return bit / bitsPerByte;
}

/// Number of a bit in its byte.
[[nodiscard]] constexpr int bitInByte(std::int64_t bit) noexcept
{
    constexpr std::int64_t bitsPerByte = 8;
    return static_cast<int>(bit % bitsPerByte);
}

} // namespace facts
