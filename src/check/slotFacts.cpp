#include "check/slotFacts.h"

#include "esi/xml/treeIteration.h"
#include "model/moduleAccess.h"

#include <algorithm>

namespace check {

namespace {

/// The slots of one device: its record has those of all `Slots` elements one after another.
void addSlots(std::vector<SlotFacts>& to, const UnitFacts& device, const DeviceElements& elements,
              const std::vector<struct_Slot>& records)
{
    std::size_t number = 0;
    for (const xml::Element& list : elements.sections[static_cast<std::size_t>(DeviceSection::Slots)])
        for (const xml::Node node : list.descendants())
            if (node.isElement() && node.characters() == "Slot" && number < records.size()) {
                to.push_back({&device, number, list, xml::Element(node), &records[number]});
                ++number;
            }
}

} // namespace

std::vector<SlotFacts> slotsOf(const EsiFacts& facts)
{
    std::vector<SlotFacts> found;
    for (const UnitFacts& unit : facts.units)
        if (unit.isDevice())
            addSlots(found, unit, facts.devices[unit.owner.index],
                     facts.subject.file.device[unit.owner.index].Slots.vslot);
    return found;
}

std::vector<std::string_view> classesOf(const struct_Slot& slot)
{
    std::vector<std::string_view> classes;
    for (const struct_ModuleClass& moduleClass : slot.ModuleClass)
        if (!moduleClass.Class.empty())
            classes.emplace_back(moduleClass.Class);
    return classes;
}

ModuleLookUp::ModuleLookUp(const EsiFacts& facts)
{
    for (const UnitFacts& unit : facts.units)
        if (!unit.isDevice()) {
            m_modules.push_back(&unit);
            m_byIdent.emplace(unit.moduleIdent, &unit);
        }
    forEachModule(facts.subject.file,
                  [this](const struct_module& module) { m_classes.emplace_back(module.TypeAttributes.ModuleClass); });
}

const UnitFacts* ModuleLookUp::withIdent(std::uint32_t ident) const
{
    const auto found = m_byIdent.find(ident);
    return found == m_byIdent.end() ? nullptr : found->second;
}

} // namespace check
