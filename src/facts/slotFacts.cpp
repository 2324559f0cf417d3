#include "facts/slotFacts.h"

#include "model/moduleAccess.h"
#include "model/valueTexts.h"

#include <algorithm>

namespace facts {

namespace {

/// The slots of one device: its record has those of all `Slots` elements one after another.
void addSlots(std::vector<SlotFacts>& to, std::size_t device, const DeviceElements& elements,
              const std::vector<struct_Slot>& records)
{
    std::size_t number = 0;
    for (const xml::Element& list : elements.sections[static_cast<std::size_t>(DeviceSection::Slots)])
        for (const xml::Node node : list.descendants())
            if (node.isElement() && node.characters() == "Slot" && number < records.size()) {
                to.push_back({{OwnerKind::Device, device}, number, list, xml::Element(node), &records[number]});
                ++number;
            }
}

/// Adds the room of one more slot to that of its device, which is the last one if it is there.
void addRoom(std::vector<ModuleRoom>& rooms, const ModuleRoom& room)
{
    if (rooms.empty() || rooms.back().device != room.device) {
        rooms.push_back(room);
        return;
    }
    rooms.back().places += room.places;
    rooms.back().pdoStep = std::max(rooms.back().pdoStep, room.pdoStep);
    rooms.back().objectStep = std::max(rooms.back().objectStep, room.objectStep);
}

bool areAlike(const ModuleRoom& left, const ModuleRoom& right)
{
    return left.places == right.places && left.pdoStep == right.pdoStep && left.objectStep == right.objectStep;
}

/// Leaves the rooms that differ, a few of them at most.
void keepDifferent(std::vector<ModuleRoom>& rooms)
{
    constexpr std::size_t enough = 16;
    std::vector<ModuleRoom> kept;
    for (const ModuleRoom& room : rooms)
        if (kept.size() < enough
            && std::none_of(kept.begin(), kept.end(), [&](const ModuleRoom& other) { return areAlike(room, other); }))
            kept.push_back(room);
    rooms = std::move(kept);
}

} // namespace

std::vector<SlotFacts> slotsOf(const struct_FilenameDevice& file, const std::vector<DeviceElements>& devices)
{
    std::vector<SlotFacts> found;
    for (std::size_t device = 0; device < std::min(devices.size(), file.device.size()); ++device)
        addSlots(found, device, devices[device], file.device[device].Slots.vslot);
    return found;
}

std::uint32_t declaredStep(const SlotFacts& slot, std::string_view name)
{
    const std::string_view own = slot.element.attribute(name);
    return toUint(own.data() != nullptr ? own : slot.slotList.attribute(name));
}

std::vector<std::string_view> classesOf(const struct_Slot& slot)
{
    std::vector<std::string_view> classes;
    for (const struct_ModuleClass& moduleClass : slot.ModuleClass)
        if (!moduleClass.Class.empty())
            classes.emplace_back(moduleClass.Class);
    return classes;
}

ModuleLookUp::ModuleLookUp(const struct_FilenameDevice& file, const std::vector<UnitFacts>& units)
{
    for (const UnitFacts& unit : units)
        if (!unit.isDevice()) {
            m_modules.push_back(&unit);
            m_byIdent.emplace(unit.moduleIdent, &unit);
        }
    forEachModule(file,
                  [this](const struct_module& module) { m_classes.emplace_back(module.TypeAttributes.ModuleClass); });
}

const UnitFacts* ModuleLookUp::withIdent(std::uint32_t ident) const
{
    const auto found = m_byIdent.find(ident);
    return found == m_byIdent.end() ? nullptr : found->second;
}

ModuleRooms::ModuleRooms(const std::vector<SlotFacts>& allSlots, const ModuleLookUp& modules)
{
    for (const SlotFacts& slot : allSlots) {
        if (slot.record->Attributes.m_SlotGroup >= 0)
            continue;
        const ModuleRoom room{slot.device.index, slot.record->Attributes.MaxInstances,
                              declaredStep(slot, "SlotPdoIncrement"), declaredStep(slot, "SlotIndexIncrement")};
        for (const std::string_view moduleClass : classesOf(*slot.record))
            addRoom(m_ofClass[moduleClass], room);
        for (const struct_ModuleIdent& ident : slot.record->ModuleIdent)
            if (const UnitFacts* const module = modules.withIdent(ident.ModuleIdent); module != nullptr)
                addRoom(m_ofModule[module], room);
    }
    for (auto& [module, rooms] : m_ofModule)
        keepDifferent(rooms);
    for (auto& [moduleClass, rooms] : m_ofClass)
        keepDifferent(rooms);
}

const std::vector<ModuleRoom>& ModuleRooms::of(const UnitFacts& module, std::string_view moduleClass) const
{
    static const std::vector<ModuleRoom> none;
    if (const auto byIdent = m_ofModule.find(&module); byIdent != m_ofModule.end())
        return byIdent->second;
    const auto byClass = m_ofClass.find(moduleClass);
    return byClass == m_ofClass.end() ? none : byClass->second;
}

} // namespace facts
