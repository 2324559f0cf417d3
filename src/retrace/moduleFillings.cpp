#include "retrace/moduleFillings.h"

#include "editing/slotPlaces.h"
#include "esi/derivation/moduleInSlot.h"
#include "ktl/writing/commandRecord.h"
#include "model/missingSyncManager.h"
#include "model/pdoAccess.h"
#include "model/syncDirection.h"

#include <cstddef>
#include <map>
#include <utility>

namespace retrace {

namespace {

/// The modules of one place, in their order.
using PlacedModules = std::vector<const struct_module*>;

/// Makes the ways to fill the places of one slot.
class SlotFillings
{
public:
    /// @param scratch  a device with the slots' attributes and the sync managers, else empty
    SlotFillings(const struct_Slot& slot, const std::vector<NamedModule>& modules, struct_EtherCatDevice& scratch)
        : m_slot(slot)
        , m_modules(modules)
        , m_scratch(scratch)
    {}

    [[nodiscard]] FillablePlace fixed(int place, const PlacedModules& there) const
    {
        return {place, {fillingOf(place, there, {})}};
    }

    /// A module that is taken out is the first of its place, and one that is put in replaces the first.
    [[nodiscard]] FillablePlace free(int place, const PlacedModules& there) const
    {
        FillablePlace fillable = fixed(place, there);
        std::vector<choices::ModuleChoice> taken;
        PlacedModules left = there;
        addPutIns(fillable, taken, left);
        while (!left.empty()) {
            left.erase(left.begin());
            taken.push_back(choiceOf(place, std::nullopt));
            fillable.fillings.push_back(fillingOf(place, left, taken));
            if (!left.empty()) // a module in the emptied place is the same as one in the place of the last one
                addPutIns(fillable, taken, left);
        }
        return fillable;
    }

private:
    static choices::ModuleChoice choiceOf(int place, const std::optional<choices::ModuleName>& module)
    {
        choices::ModuleChoice choice;
        choice.place = static_cast<std::uint32_t>(place);
        choice.module = module;
        return choice;
    }

    void addPutIns(FillablePlace& fillable, const std::vector<choices::ModuleChoice>& taken,
                   const PlacedModules& left) const
    {
        for (const NamedModule& named : m_modules) {
            if (!acceptsModule(m_slot, named.module->TypeAttributes.ModuleIdent))
                continue;
            PlacedModules there = left;
            if (there.empty())
                there.push_back(named.module);
            else
                there.front() = named.module;
            std::vector<choices::ModuleChoice> made = taken;
            made.push_back(choiceOf(fillable.place, named.name));
            made.back().about = QString::fromStdString(named.module->Name);
            try {
                fillable.fillings.push_back(fillingOf(fillable.place, there, std::move(made)));
            } catch (const MissingSyncManager&) {
                continue; // with it the device could not have been exported
            }
        }
    }

    [[nodiscard]] Filling fillingOf(int place, const PlacedModules& there,
                                    std::vector<choices::ModuleChoice> made) const
    {
        m_scratch.mRxPdo.mpdo.clear();
        m_scratch.mTxPdo.mpdo.clear();
        m_scratch.mMailbox.COE.vinitcmd.clear();
        Filling filling;
        filling.choices = std::move(made);
        filling.count = there.size();
        for (const struct_module* const module : there) {
            bringIntoDevice(m_scratch, m_slot, *module, place);
            filling.ident = module->TypeAttributes.ModuleIdent;
        }
        for (DeclaredPdo& pdo : exportedPdosOf(m_scratch)) {
            pdo.names.clear(); // they are the scratch device's
            (pdo.isInput ? filling.inputs : filling.outputs).push_back(std::move(pdo));
        }
        addBrought(m_scratch.mRxPdo.mpdo, KTL_Outputs, filling);
        addBrought(m_scratch.mTxPdo.mpdo, KTL_Inputs, filling);
        for (const struct_moduleInitCmd& command : m_scratch.mMailbox.COE.vinitcmd)
            filling.commands.push_back(commandRecordOf(command));
        m_scratch.mDictionary = {};
        return filling;
    }

    /// @param direction  of sync managers whose length the PDOs count for
    void addBrought(const std::vector<modulePdo>& pdos, enum_KTL_SMFMMU_TYPE direction, Filling& filling) const
    {
        for (const modulePdo& pdo : pdos) {
            const int number = pdo.Attributes.SM;
            const bool isThere = number >= 0 && static_cast<std::size_t>(number) < m_scratch.vSM.size();
            const bool counts = isThere && m_scratch.vSM[static_cast<std::size_t>(number)].Smtype == direction;
            filling.brought.push_back({indexOf(pdo), number, counts ? sizeOf(pdo) : 0});
        }
    }

    const struct_Slot& m_slot;
    const std::vector<NamedModule>& m_modules;
    struct_EtherCatDevice& m_scratch;
};

/// The modules that are in a slot, by their places, with the empty places of the slot.
std::map<int, PlacedModules> placesOf(const struct_Slot& slot, const PlaceRange& range)
{
    std::map<int, PlacedModules> places;
    for (int place = range.first; place < range.end; ++place)
        places[place];
    for (const struct_slotmodule& placed : slot.slotmodule)
        places[placed.Instances].push_back(&placed.module);
    return places;
}

/// Calls `visit(slot, range, places)` for each slot.
template<typename Visit> void forEachSlot(const struct_EtherCatDevice& device, Visit visit)
{
    PlaceRange range;
    for (const struct_Slot& slot : device.Slots.vslot) {
        range.first = range.end;
        range.end = static_cast<std::uint16_t>(range.first + slot.Attributes.MaxInstances);
        visit(slot, range, placesOf(slot, range));
    }
}

/// How many ways there are to fill the places of a device, at most.
std::size_t waysOf(const struct_EtherCatDevice& device, std::size_t modules)
{
    std::size_t count = 0;
    forEachSlot(device, [&](const struct_Slot& /*slot*/, const PlaceRange& range, const auto& places) {
        for (const auto& [place, there] : places)
            count += range.holds(place) ? (there.size() + 1) * (modules + 1) : 1;
    });
    return count;
}

} // namespace

bool forEachFillablePlace(const struct_EtherCatDevice& device, const std::vector<NamedModule>& modules,
                          const std::function<void(const FillablePlace& place)>& visit)
{
    constexpr std::size_t maxWays = 300'000;
    if (waysOf(device, modules.size()) > maxWays)
        return false;
    struct_EtherCatDevice scratch;
    scratch.Slots.Attributes = device.Slots.Attributes;
    scratch.vSM = device.vSM;
    scratch.m_iDeviceType = device.m_iDeviceType;
    forEachSlot(device, [&](const struct_Slot& slot, const PlaceRange& range, const auto& places) {
        const SlotFillings fillings(slot, modules, scratch);
        for (const auto& [place, there] : places)
            visit(range.holds(place) ? fillings.free(place, there) : fillings.fixed(place, there));
    });
    return true;
}

} // namespace retrace
