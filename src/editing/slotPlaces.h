// slotPlaces.h - the places of a device's slots, and the modules in them. A slot has as many consecutive places as it
// takes modules, and the places of all slots are counted from 0. `Instances` of a module that was put in by hand is its
// place, that of a default module the number of its slot.
#pragma once

#include "model/slotRecords.h"

#include <cstdint>

/// Places of a slot, in 16 bits: the place after the last one wraps.
struct PlaceRange
{
    std::uint16_t first = 0;
    std::uint16_t end = 0; ///< the place after the last one

    [[nodiscard]] bool holds(int place) const { return place >= first && place < end; }
};

/// The slot that a place belongs to, null if there is none. It is valid as long as the slots. Places without a row in
/// the slot table count too.
[[nodiscard]] struct_Slot* slotAt(DeviceSlots& deviceSlots, int place);

/// Whether a module may be put into a slot: the slot names its ident, or names none at all. Its class is not looked at.
[[nodiscard]] bool acceptsModule(const struct_Slot& slot, std::uint32_t moduleIdent);

/// Order of the modules in a slot.
[[nodiscard]] bool SortByInstances(const struct_slotmodule& left, const struct_slotmodule& right);

/// Puts a module into a place of a slot; one that is there already is replaced. The modules stay in the order of their
/// places.
void putModule(struct_Slot& slot, int place, const struct_module& module);

/// Takes the first module of a place out of a slot; an empty place changes nothing.
void takeModule(struct_Slot& slot, int place);
