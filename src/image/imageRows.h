// imageRows.h - the process image of a device as rows, without the file that it comes from.
#pragma once

#include "facts/owner.h"
#include "facts/processImage.h"
#include "facts/unitFacts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace image {

/// What a row is.
enum class RowKind : std::uint8_t
{
    Entry,
    Gap, ///< an entry of a PDO to which nothing is mapped
    Padding, ///< bits up to the end of the last byte, in no PDO
};

/// Some bits of a sync manager.
struct Row
{
    RowKind kind = RowKind::Entry;
    std::int64_t bit = 0; ///< the first one, from the start of the sync manager
    std::int64_t bits = 0; ///< 0 for an entry with a length that the format does not have
    std::uint16_t index = 0;
    std::uint32_t subIndex = 0;
    std::int32_t link = 0;
    std::string name;
    std::string type;
};

/// A PDO and its rows.
struct Pdo
{
    std::uint16_t index = 0;
    int place = -1; ///< of the module that it belongs to, from 0; -1 for one of the device itself
    std::string name;
    std::int64_t bit = 0; ///< the first one, from the start of the sync manager
    std::int64_t bits = 0;
    std::vector<Row> rows;
};

/// The process image in one sync manager.
struct Area
{
    int number = 0;
    bool isInput = false;
    std::int64_t length = -1; ///< bytes, with which it goes out; -1 if it is not known
    std::int64_t maxLength = 0; ///< bytes; 0 if the file has none
    std::vector<Pdo> pdos; ///< one after another
    std::optional<Row> padding; ///< nothing where the last byte is full
    std::int64_t bits = 0; ///< without the padding
    std::int64_t bytes = 0;

    /// Whether the length is known and not that of the PDOs.
    [[nodiscard]] bool hasOtherLength() const noexcept { return length >= 0 && length != bytes; }

    /// Whether the PDOs take more than the sync manager can have.
    [[nodiscard]] bool isTooLong() const noexcept { return maxLength > 0 && bytes > maxLength; }
};

/// The process image of a device.
struct Device
{
    facts::Owner owner; ///< its place in its file
    std::size_t number = 0; ///< from 1, over all files of a call
    std::uint32_t vendor = 0;
    std::uint32_t product = 0;
    std::uint32_t revision = 0;
    std::string type;
    std::string name;
    bool isComplete = true; ///< false where a mistake in the file ends it: PDOs and lengths may be missing
    std::vector<Area> areas; ///< outputs first
    std::vector<std::string> notes; ///< what the image lacks, in words
};

/// A file that has devices.
struct File
{
    std::string name; ///< every byte of it
    bool isKtl = false;
};

/// The rows of a sync manager.
[[nodiscard]] Area areaOf(const facts::SyncManagerImage& one);

/// The image of a device, without number and notes.
/// @param modulePdos  as for `facts::processImageOf`
[[nodiscard]] Device deviceOf(const facts::UnitFacts& unit, const std::vector<facts::PdoFacts>& modulePdos = {});

} // namespace image
