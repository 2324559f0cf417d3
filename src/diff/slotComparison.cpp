#include "diff/pairing.h"
#include "diff/sections.h"
#include "diff/sideItems.h"
#include "diff/words.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace diff {

namespace {

constexpr std::array listFields{
    Field<SlotListTraits>{"downloadModuleIdentList", "download of module idents", Weight::Behaviour,
                          [](const SlotListTraits& list) { return flag(list.sendsIdents); }},
    Field<SlotListTraits>{"downloadModuleAddressList", "download of module addresses", Weight::Behaviour,
                          [](const SlotListTraits& list) { return flag(list.sendsAddresses); }},
    Field<SlotListTraits>{"slotIndexIncrement", "step of objects per slot", Weight::Breaking,
                          [](const SlotListTraits& list) { return hexadecimal(list.indexStep); }},
    Field<SlotListTraits>{"slotPdoIncrement", "step of PDOs per slot", Weight::Breaking,
                          [](const SlotListTraits& list) { return hexadecimal(list.pdoStep); }},
    Field<SlotListTraits>{"maxSlotCount", "slots at most", Weight::Behaviour,
                          [](const SlotListTraits& list) { return decimal(list.most); }, In::Esi},
    Field<SlotListTraits>{"maxSlotGroupCount", "slot groups", Weight::Behaviour,
                          [](const SlotListTraits& list) { return decimal(list.groups); }, In::Esi},
    Field<SlotListTraits>{"slotGroupIndexIncrement", "step of objects per slot group", Weight::Breaking,
                          [](const SlotListTraits& list) { return hexadecimal(list.groupIndexStep); }, In::Esi},
    Field<SlotListTraits>{"slotGroupPdoIncrement", "step of PDOs per slot group", Weight::Breaking,
                          [](const SlotListTraits& list) { return hexadecimal(list.groupPdoStep); }, In::Esi},
    Field<SlotListTraits>{"identifyModuleBy", "what modules are identified by", Weight::Behaviour,
                          [](const SlotListTraits& list) { return text(list.identifiedBy); }, In::Esi},
    Field<SlotListTraits>{"downloadModuleListTransition", "transition of the module list", Weight::Behaviour,
                          [](const SlotListTraits& list) { return words(list.transition); }, In::Esi},
};

constexpr std::array slotFields{
    Field<SlotTraits>{"name", "name", Weight::Text, [](const SlotTraits& slot) { return text(slot.name); }, In::Esi},
    Field<SlotTraits>{"minInstances", "modules at least", Weight::Behaviour,
                      [](const SlotTraits& slot) { return decimal(slot.least); }},
    Field<SlotTraits>{"maxInstances", "modules at most", Weight::Behaviour,
                      [](const SlotTraits& slot) { return decimal(slot.most); }},
    Field<SlotTraits>{"slotIndexIncrement", "step of objects", Weight::Breaking,
                      [](const SlotTraits& slot) { return hexadecimal(slot.indexStep); }},
    Field<SlotTraits>{"slotPdoIncrement", "step of PDOs", Weight::Breaking,
                      [](const SlotTraits& slot) { return hexadecimal(slot.pdoStep); }},
    Field<SlotTraits>{"slotGroup", "group", Weight::Breaking,
                      [](const SlotTraits& slot) { return slot.group < 0 ? noValue() : decimal(slot.group); }, In::Esi},
};

constexpr std::array acceptedFields{
    Field<bool>{"default", "default", Weight::Behaviour, [](const bool& isDefault) { return flag(isDefault); }},
};

constexpr std::array placedFields{
    Field<PlacedModule>{"moduleIdent", "module in it", Weight::Behaviour,
                        [](const PlacedModule& placed) { return hexadecimal(placed.ident); }},
};

/// What a slot accepts, and whether that is a default.
template<typename Key> using Accepted = std::map<Key, bool>;

Accepted<std::string> classesOf(const SlotTraits& slot)
{
    Accepted<std::string> classes;
    for (const std::string_view name : slot.classes)
        classes.emplace(text(name).text, false);
    return classes;
}

Accepted<std::uint32_t> identsOf(const SlotTraits& slot)
{
    Accepted<std::uint32_t> idents;
    for (const SlotIdent& ident : slot.idents) {
        bool& isDefault = idents[ident.ident];
        isDefault = isDefault || ident.isDefault;
    }
    return idents;
}

/// @param partOf  `partOf(key)` gives the words for what the slot accepts
template<typename Key, typename PartOf>
void compareAccepted(const Accepted<Key>& before, const Accepted<Key>& after, const SideItems<SlotTraits>& slot,
                     Comparison& out, PartOf partOf)
{
    const auto spotOn = [&](bool isBefore, bool isAfter, const Key& key) {
        const SideItems<SlotTraits> sides{isBefore ? slot.before : nullptr, isAfter ? slot.after : nullptr};
        return spotOf(Area::Slot, partOf(key), sides);
    };
    for (const auto& [key, isDefault] : before) {
        const Key& accepted = key;
        if (const auto found = after.find(key); found != after.end())
            out.compare(acceptedFields, isDefault, found->second, [&] { return spotOn(true, true, accepted); });
        else
            out.removed(spotOn(true, false, key), out.weightOf(In::Esi, Weight::Breaking));
    }
    for (const auto& [key, isDefault] : after)
        if (before.count(key) == 0)
            out.added(spotOn(false, true, key), out.weightOf(In::Esi, Weight::Behaviour));
}

void compareSlot(const SideItems<SlotTraits>& slot, const std::string& part, Comparison& out)
{
    out.compare(slotFields, *slot.before, *slot.after, [&] { return spotOf(Area::Slot, part, slot); });
    if (out.sides() != Sides::Esi && !out.isOfAll()) // a KTL file has no such lists
        return;
    compareAccepted(classesOf(*slot.before), classesOf(*slot.after), slot, out,
                    [&](const std::string& name) { return part + ", " + named("class", name); });
    compareAccepted(identsOf(*slot.before), identsOf(*slot.after), slot, out,
                    [&](std::uint32_t ident) { return part + ", module " + hexadecimal(ident).text; });
}

/// @return  whether both have slots; what only one has is told at once
bool compareSlotLists(const SlotListTraits& before, const SlotListTraits& after, Comparison& out)
{
    const SideItems<SlotListTraits> lists{before.isThere ? &before : nullptr, after.isThere ? &after : nullptr};
    const auto spot = [&] { return spotOf(Area::Slot, "slots", lists); };
    if ((lists.before == nullptr && lists.after == nullptr)
        || isOnOneSide(lists, Weight::Breaking, Weight::Breaking, out, spot))
        return false;
    out.compare(listFields, before, after, spot);
    return true;
}

void compareEachSlot(const std::vector<SlotTraits>& before, const std::vector<SlotTraits>& after, Comparison& out)
{
    for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
        const SideItems<SlotTraits> slot{index < before.size() ? &before[index] : nullptr,
                                         index < after.size() ? &after[index] : nullptr};
        const std::string part = named("slot " + std::to_string(index + 1), text(slot.any().name).text);
        if (!isOnOneSide(slot, Weight::Behaviour, Weight::Breaking, out,
                         [&] { return spotOf(Area::Slot, part, slot); }))
            compareSlot(slot, part, out);
    }
}

std::vector<std::size_t> placesOf(const std::vector<PlacedModule>& modules)
{
    std::vector<std::size_t> places;
    places.reserve(modules.size());
    for (const PlacedModule& module : modules)
        places.push_back(module.place);
    return places;
}

void comparePlaced(const std::vector<PlacedModule>& before, const std::vector<PlacedModule>& after, Comparison& out)
{
    // As an ESI file comes, its modules are in the places of the numbers of their slots.
    const std::string place = out.sides() == Sides::Esi ? "slot " : "place ";
    for (const Pair& pair : pairsByKey(placesOf(before), placesOf(after))) {
        const SideItems<PlacedModule> modules = itemsOf(pair, before, after);
        const auto spot = [&] { return spotOf(Area::Slot, place + std::to_string(modules.any().place + 1), modules); };
        if (modules.areBoth())
            out.compare(placedFields, *modules.before, *modules.after, spot);
        else if (modules.before != nullptr)
            out.removed(spot(), Weight::Behaviour, hexadecimal(modules.before->ident));
        else
            out.added(spot(), Weight::Behaviour, hexadecimal(modules.after->ident));
    }
}

} // namespace

void compareSlots(const Subject& before, const Subject& after, Comparison& out)
{
    if (compareSlotLists(before.slotList, after.slotList, out))
        compareEachSlot(before.slotTraits, after.slotTraits, out);
    comparePlaced(before.placed, after.placed, out);
}

} // namespace diff
