#include "facts/esiFileFacts.h"

#include "esi/xml/treeIteration.h"
#include "facts/esiUnits.h"
#include "facts/startupOrder.h"
#include "model/moduleAccess.h"

#include <algorithm>
#include <cstddef>

namespace facts {

namespace {

std::vector<xml::Element> modulesIn(const std::vector<xml::Element>& lists)
{
    std::vector<xml::Element> modules;
    for (const xml::Element& list : lists) {
        ModuleRun run;
        for (const xml::Node node : list.children())
            if (run.take(node))
                modules.emplace_back(node);
    }
    return modules;
}

/// The dictionaries directly in profiles of a device or module.
std::vector<xml::Element> dictionariesIn(const std::vector<xml::Element>& profiles)
{
    std::vector<xml::Element> dictionaries;
    for (const xml::Element& profile : profiles)
        xml::forEachChildElement(profile, "Dictionary",
                                 [&](const xml::Element& dictionary) { dictionaries.push_back(dictionary); });
    return dictionaries;
}

void addDictionary(EsiFileFacts& facts, UnitFacts& unit, const std::vector<xml::Element>& profiles)
{
    const std::vector<xml::Element> dictionaries = dictionariesIn(profiles);
    if (!dictionaries.empty())
        unit.dictionary = &facts.dictionaries.emplace_back(dictionaries);
}

void addDevices(EsiFileFacts& facts, const struct_FilenameDevice& file, const std::vector<bool>& areComplete)
{
    const std::size_t count = std::min(file.device.size(), facts.devices.size());
    for (std::size_t index = 0; index < count; ++index) {
        const DeviceElements& elements = facts.devices[index];
        UnitFacts& unit = facts.units.emplace_back(deviceFactsOf(file, index, elements));
        unit.isComplete = index >= areComplete.size() || areComplete[index];
        unit.startupFaults = startupFaultsOf(unit);
        addDictionary(facts, unit, elements.sections[static_cast<std::size_t>(DeviceSection::Profile)]);
    }
}

void addModules(EsiFileFacts& facts, const struct_FilenameDevice& file)
{
    std::size_t index = 0;
    forEachModule(file, [&](const struct_module& module) {
        if (index >= facts.modules.size())
            return;
        const xml::Element& element = facts.modules[index];
        UnitFacts& unit = facts.units.emplace_back(moduleFactsOf(module, index, element));
        std::vector<xml::Element> profiles;
        xml::forEachChildElement(element, "Profile", [&](const xml::Element& profile) { profiles.push_back(profile); });
        addDictionary(facts, unit, profiles);
        ++index;
    });
}

} // namespace

EsiFileFacts esiFileFactsOf(const xml::Tree& tree, const struct_FilenameDevice& file,
                            const std::vector<bool>& areComplete)
{
    EsiFileFacts facts{tree.root(), {}, {}, {}, {}};
    const FileElements elements =
        walkFile(tree.root(), [&](const DeviceElements& device) { facts.devices.push_back(device); });
    facts.vendor = elements.vendor.value_or(facts.vendor);
    facts.modules = modulesIn(elements.moduleLists);
    addDevices(facts, file, areComplete);
    addModules(facts, file);
    return facts;
}

} // namespace facts
