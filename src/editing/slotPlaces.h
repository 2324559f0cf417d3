// slotPlaces.h - the places of a device's slots, and the modules in them. A slot has as many consecutive places as it
// takes modules, and the places of all slots are counted from 0. `Instances` of a module that was put in by hand is its
// place, that of a default module the number of its slot.
#pragma once

#include "model/slotRecords.h"

#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

/// Places in 16 bits: the place behind a slot's last one wraps.
struct PlaceRange
{
    std::uint16_t first = 0;
    std::uint16_t behind = 0;

    [[nodiscard]] bool holds(int place) const { return place >= first && place < behind; }
};

/// The slot that a place belongs to, null if there is none. It is valid as long as the slots.
[[nodiscard]] struct_Slot* slotAt(DeviceSlots& deviceSlots, int place);

/// Whether a module may stand in a slot: the slot names its ident, or names none at all. Its class is not looked at.
[[nodiscard]] bool acceptsModule(const struct_Slot& slot, std::uint32_t moduleIdent);

/// Order of the modules in a slot.
[[nodiscard]] bool SortByInstances(const struct_slotmodule& left, const struct_slotmodule& right);

/// Puts a module into a place of a slot; one that stands there is replaced. The modules stay in the order of their
/// places.
void putModule(struct_Slot& slot, int place, const struct_module& module);

/// Takes the first module of a place out of a slot; an empty place changes nothing.
void takeModule(struct_Slot& slot, int place);

/// Rows of the slot table.
struct SlotTable
{
    std::vector<QStringList> rows; ///< "Slot", "Module", "ModuleIdent"; a null text is a cell without an item
    int overflows = 0; ///< slots with too many places; they have no rows
};

/// The slot table: a row per place with its name, and the modules in the rows that their `Instances` name.
/// ODD, KEPT: a default module is in the row of its slot's number, so after slots of several places it is further up
/// than its slot. A slot with more than 99 places has no rows, although its places count when a module is put in. One
/// would expect each module in a row of its slot. Pinned by tst_SlotPlaces::defaultModules and
/// tst_SlotPlaces::tooManyPlaces.
[[nodiscard]] SlotTable slotTableOf(const DeviceSlots& deviceSlots);

/// The list of configured module idents of a slot as text: the number of places, then the ident of each place, 0 for an
/// empty one, each number followed by a blank. Empty for a slot without modules.
[[nodiscard]] std::string moduleIdentList(const struct_Slot& slot);
