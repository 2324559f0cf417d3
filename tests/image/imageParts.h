// imageParts.h - process images for tests, and what writers make of them.
#pragma once

#include "image/imageWriter.h"
#include "show/textColumns.h"

#include <QByteArray>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace imageParts {

inline image::Row entry(std::int64_t bit, std::int64_t bits, std::uint16_t index, std::string name)
{
    image::Row row;
    row.kind = index == 0 ? image::RowKind::Gap : image::RowKind::Entry;
    row.bit = bit;
    row.bits = bits;
    row.index = index;
    row.subIndex = index == 0 ? 0 : 1;
    row.name = std::move(name);
    row.type = index == 0 ? "" : "UINT";
    return row;
}

inline image::Row padding(std::int64_t bit, std::int64_t bits)
{
    image::Row row = entry(bit, bits, 0, {});
    row.kind = image::RowKind::Padding;
    return row;
}

/// Inputs of 3 bytes on sync manager 3: 1 bit, 12 bits in the rest of the first byte and in the second one, a gap of 2
/// bits, then 3 bits of a module, and 6 unused ones.
inline image::Area mixedArea()
{
    image::Area area;
    area.number = 3;
    area.isInput = true;
    area.length = 2;
    area.maxLength = 64;
    area.bits = 18;
    area.bytes = 3;
    area.pdos = {{0x1a00,
                  -1,
                  "Status",
                  0,
                  15,
                  {entry(0, 1, 0x6000, "Ready"), entry(1, 12, 0x6001, "Level"), entry(13, 2, 0, {})}},
                 {0x1a10, 1, "Module", 15, 3, {entry(15, 3, 0x6010, "Mode")}}};
    area.padding = padding(18, 6);
    return area;
}

inline image::Device deviceWith(std::vector<image::Area> areas)
{
    image::Device device;
    device.number = 2;
    device.vendor = 0x7e57;
    device.product = 1;
    device.revision = 0x20;
    device.type = "T1";
    device.name = "Drive, left";
    device.areas = std::move(areas);
    return device;
}

/// What a writer makes of one file with one device.
inline QByteArray written(image::Form form, const image::Device& device, std::size_t lineWidth = show::anyWidth)
{
    std::ostringstream out;
    const image::File file{"a.xml", false};
    const auto writer = image::makeWriter(form, out, {lineWidth, image::svgHeightOf(file, device)});
    writer->begin();
    writer->beginFile(file);
    writer->write(device);
    writer->endFile();
    writer->end();
    return QByteArray::fromStdString(out.str());
}

} // namespace imageParts
