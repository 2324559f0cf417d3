#include "retrace/moduleFillings.h"

#include "editing/slotPlaces.h"
#include "esi/derivation/moduleInSlot.h"
#include "ktl/writing/commandRecord.h"
#include "model/missingSyncManager.h"
#include "model/pdoAccess.h"
#include "model/syncDirection.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
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
        , m_scratch(scratch)
    {
        std::set<std::uint32_t> idents;
        for (const struct_ModuleIdent& ident : slot.ModuleIdent)
            idents.insert(ident.ModuleIdent);
        for (const NamedModule& named : modules) // as `acceptsModule`, for many modules
            if (idents.empty() || idents.count(named.module->TypeAttributes.ModuleIdent) > 0)
                m_accepted.push_back(&named);
    }

    [[nodiscard]] FillablePlace fixed(int place, const PlacedModules& there) const
    {
        return {place, {}, {fillingOf(place, there, {})}};
    }

    /// How many ways there are to fill a place with so many modules in it.
    [[nodiscard]] std::size_t waysFor(std::size_t there) const { return (there + 1) * (m_accepted.size() + 1); }

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
        for (const NamedModule* const accepted : m_accepted) {
            const NamedModule& named = *accepted;
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
    std::vector<const NamedModule*> m_accepted; ///< the modules that the slot takes
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

/// Adds what a filling brings in, or takes it off.
/// @param times  1 or -1
void add(const Filling& filling, int times, FixedShare& share)
{
    share.outputs += static_cast<std::size_t>(times) * filling.outputs.size();
    share.inputs += static_cast<std::size_t>(times) * filling.inputs.size();
    for (const BroughtPdo& pdo : filling.brought)
        if (pdo.size != 0)
            share.lengths[static_cast<std::size_t>(pdo.syncManager)] += static_cast<float>(times) * pdo.size;
}

/// A look at all places before they are filled.
struct Survey
{
    std::size_t ways = 0; ///< to fill them, at most
    FixedShare fixed;
};

Survey surveyOf(const struct_EtherCatDevice& device, const std::vector<NamedModule>& modules,
                struct_EtherCatDevice& scratch)
{
    Survey survey;
    survey.fixed.lengths.resize(device.vSM.size());
    forEachSlot(device, [&](const struct_Slot& slot, const PlaceRange& range, const auto& places) {
        const SlotFillings fillings(slot, modules, scratch);
        for (const auto& [place, there] : places) {
            survey.ways += range.holds(place) ? fillings.waysFor(there.size()) : 1;
            if (!range.holds(place))
                add(fillings.fixed(place, there).fillings.front(), 1, survey.fixed);
        }
    });
    return survey;
}

} // namespace

bool forEachFillablePlace(const struct_EtherCatDevice& device, const std::vector<NamedModule>& modules,
                          const std::function<void(const FillablePlace& place)>& visit)
{
    constexpr std::size_t maxWays = 300'000;
    constexpr std::size_t maxSlotsTimesModules = 10'000'000; // which takes seconds to look at
    if (device.Slots.vslot.size() * modules.size() > maxSlotsTimesModules)
        return false;
    struct_EtherCatDevice scratch;
    scratch.Slots.Attributes = device.Slots.Attributes;
    scratch.vSM = device.vSM;
    scratch.m_iDeviceType = device.m_iDeviceType;
    Survey survey = surveyOf(device, modules, scratch);
    if (survey.ways > maxWays)
        return false;
    forEachSlot(device, [&](const struct_Slot& slot, const PlaceRange& range, const auto& places) {
        const SlotFillings fillings(slot, modules, scratch);
        for (const auto& [place, there] : places) {
            FillablePlace fillable = range.holds(place) ? fillings.free(place, there) : fillings.fixed(place, there);
            if (!range.holds(place))
                add(fillable.fillings.front(), -1, survey.fixed);
            fillable.fixedAfter = survey.fixed;
            visit(fillable);
        }
    });
    return true;
}

} // namespace retrace
