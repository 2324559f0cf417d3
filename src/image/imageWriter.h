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

/// How much room there is.
struct Page
{
    std::size_t lineWidth = 0; ///< columns that a line of text may take
    std::int64_t height = 0; ///< pixels of a picture: the sum of `svgHeightOf` for all devices
};

/// Writes the devices of the files of a call, one after another, so that not all of them have to be there at a time.
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
    /// @param file  has to be there up to `endFile`
    virtual void beginFile(const File& file) { m_file = &file; }
    /// Writes the next device of the file.
    virtual void write(const Device& device) = 0;
    virtual void endFile() {}
    /// To be called once, after the last file.
    virtual void end() {}

protected:
    [[nodiscard]] const File& file() const { return *m_file; }

private:
    const File* m_file = nullptr; ///< the one that is being written
};

/// Makes a writer.
/// @param out  has to outlive it
[[nodiscard]] std::unique_ptr<Writer> makeWriter(Form form, std::ostream& out, const Page& page);

/// Pixels that a device takes in the height of a picture, which begins with its height.
[[nodiscard]] std::int64_t svgHeightOf(const File& file, const Device& device);

} // namespace image
