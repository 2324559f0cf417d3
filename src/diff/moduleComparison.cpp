#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/sideItems.h"
#include "diff/words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace diff {

namespace {

using facts::UnitFacts;

constexpr std::array moduleFields{
    Field<UnitFacts>{"name", "name", Weight::Text, [](const UnitFacts& module) { return text(module.name); }, In::Esi},
    Field<UnitFacts>{"type", "type", Weight::Text, [](const UnitFacts& module) { return text(module.type); }, In::Esi},
    Field<UnitFacts>{"moduleClass", "class", Weight::Breaking,
                     [](const UnitFacts& module) { return text(module.moduleClass); }, In::Esi},
    Field<UnitFacts>{"profileNo", "profile", Weight::Behaviour,
                     [](const UnitFacts& module) { return decimal(module.profile); }, In::Esi},
    Field<UnitFacts>{"modulePdoGroup", "PDO group", Weight::Behaviour,
                     [](const UnitFacts& module) { return decimal(module.modulePdoGroup); }},
    Field<UnitFacts>{"sraParameters", "SRA parameters", Weight::Behaviour,
                     [](const UnitFacts& module) { return flag(module.supportsSraParameters); }},
};

std::vector<std::uint32_t> identsOf(const std::vector<const UnitFacts*>& modules)
{
    std::vector<std::uint32_t> idents;
    idents.reserve(modules.size());
    for (const UnitFacts* const module : modules)
        idents.push_back(module->moduleIdent);
    return idents;
}

void compareModule(const SideItems<UnitFacts>& modules, const std::string& part, Comparison& out)
{
    const UnitFacts& before = *modules.before;
    const UnitFacts& after = *modules.after;
    const std::string owner = part + ", ";
    out.compare(moduleFields, before, after, [&] { return spotOf(Area::Module, part, modules); });
    comparePdos(before, after, Area::Module, owner, out);
    compareStartup(before.commands, after.commands, Area::Module, owner, out);
    compareDictionaries(before, after, owner, out);
}

} // namespace

void compareModules(const std::vector<const UnitFacts*>& before, const std::vector<const UnitFacts*>& after,
                    Comparison& out)
{
    for (const Pair& pair : pairsByKey(identsOf(before), identsOf(after))) {
        const SideItems<UnitFacts> modules{pair.before ? before[*pair.before] : nullptr,
                                           pair.after ? after[*pair.after] : nullptr};
        const UnitFacts& any = modules.any();
        const std::string part = named("module " + hexadecimal(any.moduleIdent).text, text(any.name).text);
        const auto spot = [&] { return spotOf(Area::Module, part, modules); };
        if (!isOnOneSide(modules, Weight::Behaviour, Weight::Breaking, out, spot))
            compareModule(modules, part, out);
    }
}

void compareModuleNames(const Subject& before, const Subject& after, Comparison& out)
{
    static constexpr Field<std::string_view> name{"name", "name", Weight::Text,
                                                  [](const std::string_view& words) { return text(words); }};
    for (std::size_t index = 0; index < std::max(before.moduleNames.size(), after.moduleNames.size()); ++index) {
        const std::string_view oldName = index < before.moduleNames.size() ? before.moduleNames[index] : "";
        const std::string_view newName = index < after.moduleNames.size() ? after.moduleNames[index] : "";
        out.compare(name, oldName, newName, [&] {
            return Spot{Area::Module, "name " + std::to_string(index + 1) + " of the modules", before.unit->where,
                        after.unit->where};
        });
    }
}

} // namespace diff
