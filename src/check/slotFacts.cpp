#include "check/slotFacts.h"

#include "esi/xml/treeIteration.h"
#include "model/moduleAccess.h"
#include "model/valueTexts.h"

#include <algorithm>
#include <map>

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

/// What slots have for a module.
struct Room
{
    std::uint32_t places = 0;
    std::uint32_t pdoStep = 0;
    std::uint32_t objectStep = 0;

    void add(const Room& more)
    {
        places += more.places;
        pdoStep = std::max(pdoStep, more.pdoStep);
        objectStep = std::max(objectStep, more.objectStep);
    }
};

/// Adds up the places of one device.
class RoomCount
{
public:
    void add(const SlotFacts& slot, const ModuleLookUp& modules)
    {
        const Room room{slot.record->Attributes.MaxInstances, declaredStep(slot, "SlotPdoIncrement"),
                        declaredStep(slot, "SlotIndexIncrement")};
        for (const std::string_view moduleClass : classesOf(*slot.record))
            m_ofClass[moduleClass].add(room);
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent)
            if (const UnitFacts* const module = modules.withIdent(ident.ModuleIdent); module != nullptr)
                m_ofModule[module].add(room);
    }

    /// A module that is named by its ident in one slot and by its class in another has the room of its ident.
    [[nodiscard]] Room of(const UnitFacts& module, std::string_view moduleClass) const
    {
        if (const auto byIdent = m_ofModule.find(&module); byIdent != m_ofModule.end())
            return byIdent->second;
        const auto byClass = m_ofClass.find(moduleClass);
        return byClass == m_ofClass.end() ? Room() : byClass->second;
    }

private:
    std::unordered_map<const UnitFacts*, Room> m_ofModule;
    std::unordered_map<std::string_view, Room> m_ofClass;
};

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

std::uint32_t declaredStep(const SlotFacts& slot, std::string_view name)
{
    const std::string_view own = slot.element.attribute(name);
    return toUint(own.data() != nullptr ? own : slot.slotList.attribute(name));
}

std::vector<ModulePlaces> modulePlacesOf(const EsiFacts& facts, const ModuleLookUp& modules)
{
    std::map<std::size_t, RoomCount> counts; // by the place of the device
    for (const SlotFacts& slot : slotsOf(facts))
        if (slot.record->Attributes.m_SlotGroup < 0)
            counts[slot.device->owner.index].add(slot, modules);
    std::vector<ModulePlaces> found;
    for (const auto& [device, count] : counts)
        for (const UnitFacts* const module : modules.modules())
            if (const Room room = count.of(*module, modules.classOf(*module)); room.places > 0)
                found.push_back({module, device, room.places, room.pdoStep, room.objectStep});
    return found;
}

} // namespace check
