#include "image/imageWords.h"

#include "image/cutText.h"
#include "model/valueTexts.h"
#include "show/showWords.h"

namespace image {

namespace {

constexpr std::size_t maxColumns = 120; // of a name in a heading

std::string quoted(const std::string& name)
{
    return '"' + cutText(name, maxColumns) + '"';
}

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

std::string_view directionName(const Area& area)
{
    return area.isInput ? "inputs" : "outputs";
}

std::string identityOf(const Device& device)
{
    return numberText(device.vendor) + ':' + numberText(device.product) + ':' + numberText(device.revision);
}

std::string labelOf(const Device& device)
{
    std::string label = "device " + std::to_string(device.number) + ", " + identityOf(device);
    if (!device.type.empty())
        label += ", " + cutText(device.type, maxColumns);
    if (!device.name.empty())
        label += (device.type.empty() ? ", " : " ") + quoted(device.name);
    return label;
}

std::string labelOf(const Area& area)
{
    constexpr std::int64_t bitsPerByte = 8;
    std::string label = area.isInput ? "Inputs" : "Outputs";
    label += ", sync manager " + std::to_string(area.number) + ": ";
    label += area.bits == 0 ? "no process data" : counted(area.bytes, "byte") + " used";
    if (area.bits % bitsPerByte != 0)
        label += " (" + counted(area.bits, "bit") + ')';
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
    std::string label = "PDO " + show::hexText(pdo.index);
    if (!pdo.name.empty())
        label += ' ' + quoted(pdo.name);
    if (pdo.place >= 0)
        label += ", slot " + slotText(pdo);
    return label;
}

std::string placeText(std::int64_t bit)
{
    return std::to_string(facts::byteOf(bit)) + '.' + std::to_string(facts::bitInByte(bit));
}

std::string objectText(const Row& row)
{
    return show::hexText(row.index) + ':' + std::to_string(row.subIndex);
}

std::string slotText(const Pdo& pdo)
{
    return pdo.place < 0 ? std::string() : std::to_string(pdo.place + 1);
}

std::string counted(std::int64_t number, std::string_view unit)
{
    return std::to_string(number) + ' ' + std::string(unit) + (number == 1 ? "" : "s");
}

} // namespace image
