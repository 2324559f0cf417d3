#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/words.h"
#include "model/valueTexts.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace diff {

namespace {

using facts::ModeFacts;

/// "2: 0x1600; 3: 0x1a00 x 10", with a factor of the oversampling.
Value pdosOf(const ModeFacts& mode)
{
    std::string list;
    for (const facts::ModePdoFacts& pdo : mode.pdos)
        list += (list.empty() ? "" : "; ") + std::to_string(pdo.syncManager) + ": " + numberText(pdo.index)
                + (pdo.oversamplingFactor == 0 ? "" : " x " + std::to_string(pdo.oversamplingFactor));
    return words(list);
}

constexpr std::array fields{
    Field<ModeFacts>{"assignActivate", "assign-activate word", Weight::Behaviour,
                     [](const ModeFacts& mode) { return hexadecimal(mode.assignActivate); }},
    Field<ModeFacts>{"cycleTimeSync0", "cycle time of SYNC 0 (ns)", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.cycleTimeSync0); }, In::Esi},
    Field<ModeFacts>{"shiftTimeSync0", "shift time of SYNC 0 (ns)", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.shiftTimeSync0); }, In::Esi},
    Field<ModeFacts>{"cycleTimeSync1", "cycle time of SYNC 1 (ns)", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.cycleTimeSync1); }, In::Esi},
    Field<ModeFacts>{"shiftTimeSync1", "shift time of SYNC 1 (ns)", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.shiftTimeSync1); }, In::Esi},
    Field<ModeFacts>{"cycleFactorSync0", "factor of the cycle time of SYNC 0", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.cycleFactorSync0); }, In::Esi},
    Field<ModeFacts>{"cycleFactorSync1", "factor of the cycle time of SYNC 1", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.cycleFactorSync1); }, In::Esi},
    Field<ModeFacts>{"oversampling", "oversampling factor", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.oversamplingFactor); }, In::Esi},
    Field<ModeFacts>{"minCycleTime", "least cycle time (ns)", Weight::Behaviour,
                     [](const ModeFacts& mode) { return decimal(mode.minCycleTime); }, In::Esi},
    Field<ModeFacts>{"pdos", "PDOs by sync manager", Weight::Behaviour, pdosOf, In::Esi},
    Field<ModeFacts>{"description", "description", Weight::Text,
                     [](const ModeFacts& mode) { return text(mode.description); }, In::Esi},
};

/// The mode that the controller uses.
constexpr Field<Subject> chosenMode{"chosenMode", "chosen operation mode", Weight::Behaviour,
                                    [](const Subject& device) {
                                        const std::vector<ModeFacts>& modes = device.unit->modes;
                                        return modes.empty() ? noValue() : text(modes.front().name);
                                    }};

/// What modes are paired by: their names, and their places where a file has no names.
std::vector<std::pair<std::string_view, std::size_t>> keysOf(const std::vector<ModeFacts>& modes, Sides sides)
{
    std::vector<std::pair<std::string_view, std::size_t>> keys;
    keys.reserve(modes.size());
    for (std::size_t place = 0; place < modes.size(); ++place)
        if (sides == Sides::Esi)
            keys.emplace_back(modes[place].name, 0);
        else
            keys.emplace_back(std::string_view(), place);
    return keys;
}

/// `operation mode "DC"`; with its number, from 1, where modes are paired by their places.
std::string wordsOf(const ModeFacts& mode, std::size_t place, Sides sides)
{
    return named(sides == Sides::Esi ? "operation mode" : "operation mode " + std::to_string(place + 1), mode.name);
}

} // namespace

void compareClocks(const Subject& before, const Subject& after, Comparison& out)
{
    const std::vector<ModeFacts>& oldModes = before.unit->modes;
    const std::vector<ModeFacts>& newModes = after.unit->modes;
    if (out.sides() == Sides::Esi && !oldModes.empty() && !newModes.empty())
        out.compare(chosenMode, before, after, [&] {
            return Spot{Area::Clocks, {}, oldModes.front().where, newModes.front().where};
        });
    for (const Pair& pair : pairsByKey(keysOf(oldModes, out.sides()), keysOf(newModes, out.sides()))) {
        if (!pair.after.has_value()) {
            const ModeFacts& mode = oldModes[*pair.before];
            out.removed({Area::Clocks, wordsOf(mode, *pair.before, out.sides()), mode.where, {}}, Weight::Behaviour);
        } else if (!pair.before.has_value()) {
            const ModeFacts& mode = newModes[*pair.after];
            out.added({Area::Clocks, wordsOf(mode, *pair.after, out.sides()), {}, mode.where}, Weight::Behaviour);
        } else {
            const ModeFacts& mode = oldModes[*pair.before];
            const ModeFacts& other = newModes[*pair.after];
            out.compare(fields, mode, other, [&] {
                return Spot{Area::Clocks, wordsOf(mode, *pair.before, out.sides()), mode.where, other.where};
            });
        }
    }
}

} // namespace diff
