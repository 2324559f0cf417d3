// svgParts.h - where the rows of a sync manager are in a picture of its bytes.
#pragma once

#include "image/imageRows.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace image {

/// A line of a picture: one byte, or many whole bytes of one entry.
struct Line
{
    std::int64_t firstByte = 0;
    std::int64_t lastByte = 0;
};

/// A rectangle of a picture.
struct Part
{
    std::size_t line = 0; ///< the first one, from 0
    std::size_t lines = 1;
    int lowBit = 0;
    int highBit = 0;
};

/// A row in a picture: one to three parts, for bits of its first byte, whole bytes, and bits of its last one.
struct Box
{
    const Pdo* pdo = nullptr; ///< null for padding
    const Row* row = nullptr;
    std::size_t number = 0; ///< of the row in its sync manager, from 1
    std::vector<Part> parts;
};

/// A picture of a sync manager.
struct Picture
{
    std::vector<Line> lines;
    std::vector<Box> boxes; ///< rows without bits have none
};

/// More whole bytes of one entry take one line.
inline constexpr std::int64_t maxBytesOnLines = 8;

/// @param area  has to outlive the picture
[[nodiscard]] Picture pictureOf(const Area& area);

} // namespace image
