#include "facts/esiChannels.h"

#include "esi/directionName.h"
#include "esi/xml/treeIteration.h"
#include "facts/matchedPlaces.h"
#include "model/byteBit.h"
#include "model/syncDirection.h"
#include "model/valueTexts.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace facts {

namespace {

using Elements = std::vector<xml::Element>;

Where placeOf(const Elements& elements, std::size_t index, Where without)
{
    return index < elements.size() ? elements[index].placeKey() : without;
}

/// Factors of the cycle times, which no record has.
void addFactors(ModeFacts& facts, const xml::Element& mode)
{
    xml::forEachChildElement(mode, "CycleTimeSync0", [&](const xml::Element& time) {
        facts.cycleFactorSync0 = toInt(time.attribute("Factor"));
    });
    xml::forEachChildElement(mode, "CycleTimeSync1", [&](const xml::Element& time) {
        facts.cycleFactorSync1 = toInt(time.attribute("Factor"));
    });
}

} // namespace

void addChannels(UnitFacts& unit, const struct_EtherCatDevice& device, const Elements& syncManagers,
                 const Elements& fmmus)
{
    for (const struct_SM& syncManager : device.vSM) {
        SyncManagerFacts& facts = unit.syncManagers.emplace_back();
        facts.where = placeOf(syncManagers, unit.syncManagers.size() - 1, unit.where);
        facts.direction = directionByName(syncManager.Name, KTL_UnknownType);
        facts.attributes = syncManager.Attributes;
        if (carriesProcessData(facts.direction) && syncManager.Attributes.m_Virtual == 0)
            facts.exportedBytes = static_cast<std::uint16_t>(wholeBytes(syncManager.Length));
        facts.name = syncManager.Name;
    }
    for (const Struct_Fmmu& fmmu : device.vFmmu)
        unit.fmmus.push_back({placeOf(fmmus, unit.fmmus.size(), unit.where), static_cast<std::uint8_t>(fmmu.m_FmmuType),
                              fmmu.m_Name, fmmu.m_Sm, fmmu.m_Su, fmmu.m_OpOnly});
}

void addModes(UnitFacts& unit, const struct_EtherCatDevice& device, const Elements& clockElements)
{
    MatchedPlaces<std::string> places;
    Elements modes;
    for (const xml::Element& clocks : clockElements)
        xml::forEachChildElement(clocks, "OpMode", [&](const xml::Element& mode) {
            std::string name;
            xml::forEachChildElement(mode, "Name", [&](const xml::Element& child) { name = child.text().toString(); });
            places.add(name, mode.placeKey());
            modes.push_back(mode);
        });
    for (const Struct_DCOpMode& mode : device.vopmode) {
        const auto found = places.take(mode.Name);
        unit.modes.push_back({found.has_value() ? places.whereOf(*found) : unit.where,
                              mode.Name,
                              mode.AssignActivate,
                              mode.m_CycleTimeSync0,
                              mode.m_ShiftTimeSync0,
                              mode.m_CycleTimeSync1,
                              mode.m_ShiftTimeSync1,
                              {},
                              mode.Desc,
                              mode.vendorSpecific.twinCAT.oversampling.m_DefaultFactor,
                              mode.vendorSpecific.twinCAT.oversampling.m_MinCycleTime});
        if (found.has_value())
            addFactors(unit.modes.back(), modes[*found]);
        for (const Struct_DCSm& syncManager : mode.m_Sm)
            for (const Struct_DCPdo& pdo : syncManager.m_Pdo)
                unit.modes.back().pdos.push_back({syncManager.Attributes.m_No, pdo.m_index, pdo.Attributes.m_OsFac});
    }
}

} // namespace facts
