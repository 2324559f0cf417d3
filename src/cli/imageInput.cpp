#include "cli/imageInput.h"

#include "cli/ktlEnd.h"
#include "cli/streamName.h"
#include "facts/esiFileFacts.h"
#include "facts/ktlFacts.h"
#include "facts/processData.h"
#include "show/busModules.h"
#include "show/showWords.h"

#include <QFile>

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace cli {

namespace {

constexpr const char* tooManyEntries =
    "The preset modules have more entries than a sync manager can have bits; the last ones are left out.";

void addNote(std::string_view note, image::Device& device)
{
    if (!note.empty())
        device.notes.emplace_back(note);
}

/// Why a device is not complete, and what that means.
std::string incompleteNote(const facts::UnitFacts& unit)
{
    const auto wrong = std::find_if(unit.pdos.begin(), unit.pdos.end(), [&](const facts::PdoFacts& pdo) {
        return pdo.syncManager >= 0 && !facts::isOnSyncManager(pdo, unit);
    });
    std::string why = "A PDO is on a sync manager that the device does not have";
    if (wrong != unit.pdos.end())
        why = "PDO " + show::hexText(wrong->index) + " is on sync manager " + std::to_string(wrong->syncManager)
              + ", the device has " + std::to_string(unit.syncManagers.size());
    return why + ": samples, PDOs of modules and lengths may be missing.";
}

/// Says how many PDOs are assigned and have no place; nothing if all have one.
/// @param device  the image of the unit
void noteUnplaced(const facts::UnitFacts& unit, image::Device& device)
{
    auto unplaced = std::count_if(unit.pdos.begin(), unit.pdos.end(),
                                  [](const facts::PdoFacts& pdo) { return pdo.syncManager >= 0; });
    for (const image::Area& area : device.areas)
        unplaced -= static_cast<std::ptrdiff_t>(area.pdos.size());
    if (unplaced > 0)
        device.notes.push_back("PDOs on sync managers that are neither Outputs nor Inputs, or virtual, are not shown: "
                               + std::to_string(unplaced) + '.');
}

void addEsi(const TreeInput& input, const struct_FilenameDevice& record, image::File& file)
{
    const facts::EsiFileFacts known = facts::esiFileFactsOf(*input.tree, record, input.areComplete);
    for (const facts::UnitFacts& unit : known.units) {
        if (!unit.isDevice())
            continue;
        image::Device& device = file.devices.emplace_back(image::deviceOf(unit));
        if (!unit.isComplete)
            device.notes.push_back(incompleteNote(unit));
        else
            noteUnplaced(unit, device);
        addNote(show::busModulesNote(record.device[unit.owner.index], unit), device);
    }
}

void addKtl(const TreeInput& input, ImageInput& result)
{
    const facts::KtlFacts known = facts::ktlFactsOf(input.bytes);
    for (std::size_t index = 0; index < known.units.size(); ++index) {
        const KtlDeviceBlock& block = known.blocks[index];
        const facts::PresetPdos preset = facts::presetPdosOf(block);
        image::Device& device = result.file.devices.emplace_back(image::deviceOf(known.units[index], preset.pdos));
        addNote(show::busModulesNote(block), device);
        if (!preset.areAll)
            device.notes.emplace_back(tooManyEntries);
    }
    result.problemAtEnd = problemAtEnd(known.walk);
}

} // namespace

ImageInput imageInputOf(const QString& path, const TreeInput& input, const struct_FilenameDevice& record)
{
    ImageInput result;
    result.road = input.road;
    result.fault = input.fault;
    result.isOutOfMemory = input.isOutOfMemory;
    if (input.fault.has_value())
        return result;
    try {
        result.file.name = QFile::encodeName(shownName(path)).toStdString();
        result.file.isKtl = !input.tree.has_value();
        if (result.file.isKtl)
            addKtl(input, result);
        else
            addEsi(input, record, result.file);
    } catch (const std::bad_alloc&) {
        result.file = {};
        result.fault = noMemory();
        result.isOutOfMemory = true;
    }
    return result;
}

} // namespace cli
