#include "show/summary.h"

#include "model/moduleAccess.h"
#include "show/cutText.h"
#include "show/deviceImage.h"
#include "show/namedDevice.h"
#include "show/showWords.h"
#include "show/summarySections.h"
#include "show/summaryWriter.h"

#include <array>
#include <ostream>

namespace show {

namespace {

using Section = SummaryParts (*)(const SummaryDevice& device);

constexpr std::array<Section, 7> sections{identitySection, clockSection, channelSection,   pdoSection,
                                          startupSection,  slotSection,  dictionarySection};

void writeList(SummaryWriter& text, const ShownFile& file)
{
    SummaryPart list{{}, {}, TextRow(4), {}};
    for (const std::size_t index : file.shown) {
        const NamedDevice device = namedDevice(file, index);
        list.rows.push_back(
            {{}, {std::to_string(index + 1), identityText(device), cutName(device.type), cutName(device.name)}});
    }
    text.writeTable(list, 2);
}

void writeDevice(SummaryWriter& text, const ShownFile& file, std::size_t index)
{
    text.writeLine("Device " + std::to_string(index + 1) + " of " + std::to_string(file.devices.size()) + ": "
                   + identityText(namedDevice(file, index)));
    const DeviceImage facts = deviceImageOf(file, index);
    const SummaryDevice device{facts.unit, facts.preset, facts.image, file.devices[index],
                               file.esi != nullptr ? &file.esi->device[index] : nullptr};
    for (const Section section : sections)
        text.writeParts(section(device));
}

/// The modules of an ESI file.
SummaryPart modulesOf(const struct_FilenameDevice& file)
{
    SummaryPart part{{}, {}, TextRow(3), {}};
    forEachModule(file, [&](const struct_module& module) {
        const ModuleTypeAttributes& type = module.TypeAttributes;
        part.rows.push_back({{},
                             {hexText(type.ModuleIdent), type.Name == module.Name ? std::string() : cutName(type.Name),
                              cutName(module.Name)}});
    });
    return part;
}

} // namespace

void writeSummary(std::ostream& out, const ShownFile& file, std::size_t lineWidth)
{
    SummaryWriter text(out, lineWidth);
    if (file.shown.size() > 1)
        writeList(text, file);
    for (const std::size_t index : file.shown) {
        out << '\n';
        writeDevice(text, file, index);
    }
    if (file.esi == nullptr || file.isPart)
        return;
    const SummaryPart modules = modulesOf(*file.esi);
    if (modules.rows.empty())
        return;
    out << '\n';
    text.writeLine(counted(modules.rows.size(), "module") + " of the file");
    text.writeTable(modules, 2);
}

} // namespace show
