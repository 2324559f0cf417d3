#include "editing/slotPlaces.h"

#include <algorithm>

/// The first module of a place, or the end of the list.
template<typename Modules> static auto moduleAt(Modules& modules, int place)
{
    return std::find_if(modules.begin(), modules.end(),
                        [place](const struct_slotmodule& placed) { return placed.Instances == place; });
}

struct_Slot* slotAt(DeviceSlots& deviceSlots, int place)
{
    PlaceRange places;
    for (struct_Slot& slot : deviceSlots.vslot) {
        places.first = places.end;
        places.end = static_cast<std::uint16_t>(places.first + slot.Attributes.MaxInstances);
        if (places.holds(place))
            return &slot;
    }
    return nullptr;
}

bool acceptsModule(const struct_Slot& slot, std::uint32_t moduleIdent)
{
    const std::vector<struct_ModuleIdent>& idents = slot.ModuleIdent;
    return idents.empty() || std::any_of(idents.begin(), idents.end(), [moduleIdent](const struct_ModuleIdent& ident) {
               return ident.ModuleIdent == moduleIdent;
           });
}

bool SortByInstances(const struct_slotmodule& left, const struct_slotmodule& right)
{
    return left.Instances < right.Instances;
}

void putModule(struct_Slot& slot, int place, const struct_module& module)
{
    if (const auto placed = moduleAt(slot.slotmodule, place); placed != slot.slotmodule.end()) {
        placed->module = module;
        return;
    }
    slot.slotmodule.push_back({place, module});
    std::stable_sort(slot.slotmodule.begin(), slot.slotmodule.end(), SortByInstances);
}

void takeModule(struct_Slot& slot, int place)
{
    if (const auto placed = moduleAt(slot.slotmodule, place); placed != slot.slotmodule.end())
        slot.slotmodule.erase(placed);
}
