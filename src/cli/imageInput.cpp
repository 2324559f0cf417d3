#include "cli/imageInput.h"

#include "cli/ktlEnd.h"
#include "cli/streamName.h"
#include "facts/esiFileFacts.h"
#include "facts/ktlFacts.h"
#include "facts/presetPdos.h"
#include "facts/processData.h"
#include "show/busModules.h"
#include "show/cutText.h"
#include "show/showWords.h"

#include <QFile>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

namespace {

constexpr const char* tooManyEntries =
    "The preset modules have more entries or bits than a device can have; the last ones are left out.";

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

/// What kind of sync manager is not in the image.
std::string kindOf(const facts::UnitFacts& unit, int syncManager)
{
    const auto place = static_cast<std::size_t>(syncManager);
    if (place >= unit.syncManagers.size())
        return "which the file does not have";
    const facts::SyncManagerFacts& facts = unit.syncManagers[place];
    if (facts::isVirtual(facts))
        return "which is virtual";
    constexpr std::size_t maxColumns = 60;
    return facts.name.empty() ? "which is of another kind"
                              : "which is \"" + show::cutText(std::string(facts.name), maxColumns) + '"';
}

/// Says how many PDOs are assigned and have no place, by their sync managers; nothing if all have one.
/// @param device  the image of the unit, with the PDOs of modules
void noteUnplaced(const facts::UnitFacts& unit, const std::vector<facts::PdoFacts>& modulePdos, image::Device& device)
{
    std::map<int, std::ptrdiff_t> unplaced;
    for (const std::vector<facts::PdoFacts>* const pdos : {&unit.pdos, &modulePdos})
        for (const facts::PdoFacts& pdo : *pdos)
            if (pdo.syncManager >= 0)
                ++unplaced[pdo.syncManager];
    for (const image::Area& area : device.areas)
        unplaced[area.number] -= static_cast<std::ptrdiff_t>(area.pdos.size());
    for (const auto& [number, pdos] : unplaced)
        if (pdos > 0)
            device.notes.push_back("Not shown: " + show::counted(pdos, "PDO") + " on sync manager "
                                   + std::to_string(number) + ", " + kindOf(unit, number) + '.');
}

/// An ESI file.
class EsiImageSource final : public ImageSource
{
public:
    EsiImageSource(std::shared_ptr<const TreeInput> input, const struct_FilenameDevice& record)
        : m_input(std::move(input))
        , m_record(record)
        , m_known(facts::esiFileFactsOf(*m_input->tree, m_record, m_input->areComplete))
    {
        for (const facts::UnitFacts& unit : m_known.units)
            if (unit.isDevice())
                m_units.push_back(&unit);
    }

    [[nodiscard]] std::size_t devices() const override { return m_units.size(); }
    [[nodiscard]] const facts::UnitFacts& unit(std::size_t device) const override { return *m_units.at(device); }
    [[nodiscard]] image::Device imageOf(std::size_t index) const override
    {
        const facts::UnitFacts& facts = unit(index);
        image::Device device = image::deviceOf(facts);
        if (!facts.isComplete)
            device.notes.push_back(incompleteNote(facts));
        else
            noteUnplaced(facts, {}, device);
        addNote(show::busModulesNote(m_record.device[facts.owner.index], facts), device);
        return device;
    }

private:
    std::shared_ptr<const TreeInput> m_input;
    const struct_FilenameDevice& m_record;
    facts::EsiFileFacts m_known;
    std::vector<const facts::UnitFacts*> m_units; ///< of devices
};

/// A KTL file.
class KtlImageSource final : public ImageSource
{
public:
    explicit KtlImageSource(std::shared_ptr<const TreeInput> input)
        : m_input(std::move(input))
        , m_known(facts::ktlFactsOf(m_input->bytes))
    {}

    [[nodiscard]] QString problemAtEnd() const { return cli::problemAtEnd(m_known.walk); }
    [[nodiscard]] std::size_t devices() const override { return m_known.units.size(); }
    [[nodiscard]] const facts::UnitFacts& unit(std::size_t device) const override { return m_known.units.at(device); }
    [[nodiscard]] image::Device imageOf(std::size_t index) const override
    {
        const KtlDeviceBlock& block = m_known.blocks.at(index);
        const facts::PresetPdos preset = facts::presetPdosOf(block);
        image::Device device = image::deviceOf(unit(index), preset.pdos);
        noteUnplaced(unit(index), preset.pdos, device);
        addNote(show::busModulesNote(block), device);
        if (!preset.areAll)
            device.notes.emplace_back(tooManyEntries);
        return device;
    }

private:
    std::shared_ptr<const TreeInput> m_input;
    facts::KtlFacts m_known;
};

} // namespace

ImageInput imageInputOf(const QString& path, const std::shared_ptr<const TreeInput>& input,
                        const struct_FilenameDevice* record)
{
    ImageInput result;
    result.road = input->road;
    result.fault = input->fault;
    result.isOutOfMemory = input->isOutOfMemory;
    if (input->fault.has_value())
        return result;
    try {
        result.file = {QFile::encodeName(shownName(path)).toStdString(), !input->tree.has_value()};
        if (input->tree.has_value()) {
            result.source = std::make_unique<EsiImageSource>(input, record != nullptr ? *record : input->record);
        } else {
            auto source = std::make_unique<KtlImageSource>(input);
            result.problemAtEnd = source->problemAtEnd();
            result.source = std::move(source);
        }
        result.devices = result.source->devices();
    } catch (const std::bad_alloc&) {
        result = {};
        result.fault = noMemory();
        result.isOutOfMemory = true;
        result.road = input->road;
    }
    return result;
}

} // namespace cli
