#include "image/imageWords.h"

#include "show/cutText.h"
#include "show/showWords.h"

namespace image {

namespace {

/// Whether the length is that of the PDOs of the device itself.
bool lacksModules(const Area& area)
{
    facts::SyncManagerImage own;
    for (const Pdo& pdo : area.pdos)
        own.bits += pdo.place < 0 ? pdo.bits : 0;
    return area.length == own.bytes();
}

} // namespace

std::string_view kindName(RowKind kind)
{
    switch (kind) {
    case RowKind::Entry:
        break;
    case RowKind::Gap:
        return "gap";
    case RowKind::Padding:
        return "padding";
    }
    return "entry";
}

std::string labelOf(const Device& device)
{
    std::string label = "device " + std::to_string(device.number) + ", "
                        + show::identityText(device.vendor, device.product, device.revision);
    if (!device.type.empty())
        label += ", " + show::cutName(device.type);
    if (!device.name.empty())
        label += (device.type.empty() ? ", \"" : " \"") + show::cutName(device.name) + '"';
    return label;
}

std::string labelOf(const Area& area)
{
    constexpr std::int64_t bitsPerByte = 8;
    std::string label = area.isInput ? "Inputs" : "Outputs";
    label += ", sync manager " + std::to_string(area.number) + ": ";
    label += area.bits == 0 ? "no process data" : show::counted(area.bytes, "byte") + " used";
    if (area.bits % bitsPerByte != 0)
        label += " (" + show::counted(area.bits, "bit") + ')';
    label += area.length < 0 ? ", length not known" : ", length " + std::to_string(area.length);
    if (area.maxLength > 0)
        label += ", at most " + std::to_string(area.maxLength);
    if (area.hasOtherLength())
        label += lacksModules(area) ? "; warning: the length lacks the PDOs of modules"
                                    : "; warning: the length is not that of the PDOs";
    if (area.isTooLong())
        label += "; warning: the PDOs take more than the sync manager can have";
    return label;
}

std::string labelOf(const Pdo& pdo)
{
    return show::pdoLabel(pdo.index, pdo.name, pdo.place);
}

} // namespace image
