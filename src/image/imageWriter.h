// imageWriter.h - writes process images in one of several forms; docs/image.md describes them.
#pragma once

#include "image/imageRows.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>

namespace image {

/// How process images are written.
enum class Form : std::uint8_t
{
    Text,
    Csv,
    Json,
    Svg,
};

/// Writes the files of a call, one after another.
class Writer
{
public:
    Writer() = default;
    virtual ~Writer() = default;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    Writer(Writer&&) = delete;
    Writer& operator=(Writer&&) = delete;

    /// To be called once, before the first file.
    virtual void begin() {}
    virtual void write(const File& file) = 0;
    /// To be called once, after the last file.
    virtual void end() {}
};

/// Makes a writer.
/// @param out        has to outlive it
/// @param lineWidth  columns that a line of text may take
[[nodiscard]] std::unique_ptr<Writer> makeWriter(Form form, std::ostream& out, std::size_t lineWidth);

} // namespace image
