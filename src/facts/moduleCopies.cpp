#include "facts/moduleCopies.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace facts {

namespace {

using Pdos = std::vector<const PdoFacts*>;

/// The PDOs of the modules in the slots of a device, in the order in which they are copied into it; null for one whose
/// module is not known.
Pdos originalsOf(const struct_EtherCatDevice& device, bool isInput,
                 const std::unordered_map<std::uint32_t, const UnitFacts*>& modules)
{
    Pdos originals;
    for (const struct_Slot& slot : device.Slots.vslot)
        for (const struct_slotmodule& placed : slot.slotmodule) {
            const std::size_t count = (isInput ? placed.module.TxPdo : placed.module.RxPdo).vpdo.size();
            const auto module = modules.find(placed.module.TypeAttributes.ModuleIdent);
            Pdos own;
            if (module != modules.end())
                for (const PdoFacts& pdo : module->second->pdos)
                    if (pdo.isInput == isInput)
                        own.push_back(&pdo);
            own.resize(count); // the record has the last word
            originals.insert(originals.end(), own.begin(), own.end());
        }
    return originals;
}

void setPlaces(PdoFacts& copy, const PdoFacts& original)
{
    copy.where = original.where;
    for (std::size_t index = 0; index < copy.entries.size(); ++index)
        copy.entries[index].where = index < original.entries.size() ? original.entries[index].where : original.where;
}

} // namespace

void placeModuleCopies(UnitFacts& unit, const struct_EtherCatDevice& device,
                       const std::vector<const UnitFacts*>& modules)
{
    std::unordered_map<std::uint32_t, const UnitFacts*> byIdent;
    for (const UnitFacts* const module : modules)
        byIdent.emplace(module->moduleIdent, module); // the first of an ident counts
    for (const bool isInput : {false, true}) {
        const Pdos originals = originalsOf(device, isInput, byIdent);
        std::vector<PdoFacts*> copies;
        for (PdoFacts& pdo : unit.pdos)
            if (pdo.isInput == isInput && pdo.place >= 0)
                copies.push_back(&pdo);
        if (copies.size() != originals.size())
            continue; // it cannot be told which is which
        for (std::size_t index = 0; index < copies.size(); ++index)
            if (originals[index] != nullptr)
                setPlaces(*copies[index], *originals[index]);
    }
}

} // namespace facts
