// slotsSection.cpp - the `Slots` element of a modular device: slots, what they accept, and the names of slot groups.
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

const std::array slotsRules{
    attribute("DownloadModuleIdentList", storeBool<&SlotsAttributes::DownloadModuleIdentList>),
    attribute("DownloadModuleAddressList", storeBool<&SlotsAttributes::DownloadModuleAddressList>),
    attribute("SlotIndexIncrement", storeUint<&SlotsAttributes::SlotIndexIncrement>),
    attribute("SlotPdoIncrement", storeUint<&SlotsAttributes::SlotPdoIncrement>),
    attribute("IdentifyModuleBy", storeText<&SlotsAttributes::IdentifyModuleBy>),
    attribute("DownloadModuleListTransition", storeToken<&SlotsAttributes::m_DownloadModuleListTransition>),
    attribute("MaxSlotCount", storeUint<&SlotsAttributes::m_MaxSlotCount>),
    attribute("MaxSlotGroupCount", storeUint<&SlotsAttributes::m_MaxSlotGroupCount>),
    attribute("SlotGroupIndexIncrement", storeUint<&SlotsAttributes::m_SlotGroupIndexIncrement>),
    attribute("SlotGroupPdoIncrement", storeUint<&SlotsAttributes::m_SlotGroupPdoIncrement>),
};

void storeMaxInstances(SlotAttributes& to, std::string_view value)
{
    constexpr std::uint32_t maxInstances = 16; // places per slot that the controller can hold
    to.MaxInstances = std::min(toUint(value), maxInstances);
}

const std::array slotRules{
    attribute("MinInstances", storeUint<&SlotAttributes::MinInstances>),
    attribute("MaxInstances", storeMaxInstances),
    attribute("SlotPdoIncrement", storeUint<&SlotAttributes::SlotPdoIncrement>),
    attribute("SlotIndexIncrement", storeUint<&SlotAttributes::SlotIndexIncrement>),
    attribute("SlotGroup", storeUint<&SlotAttributes::m_SlotGroup>),
    attribute("SlotGroupIndexIncrement", storeUint<&SlotAttributes::m_SlotGroupIndexIncrement>),
    attribute("SlotGroupPdoIncrement", storeUint<&SlotAttributes::m_SlotGroupPdoIncrement>),
};

/// ODD, KEPT: each child node makes a record of its own, so a class with a `Class` and a `Name` gives two records with
/// one text each, and a bare text gives an empty one. One would expect one record with both texts. Pinned by
/// tst_SlotsSection::moduleClass.
void appendModuleClasses(struct_Slot& slot, const xml::Element& element)
{
    for (const xml::Node node : element.children()) {
        struct_ModuleClass moduleClass;
        if (node.isElement()) {
            const xml::Element child(node);
            if (child.name() == "Class")
                moduleClass.Class = child.text().toString();
            else if (child.name() == "Name")
                moduleClass.Name = child.text().toString();
        }
        slot.ModuleClass.push_back(std::move(moduleClass));
    }
}

/// One record per child node: an ordinary element has one, its text, and an empty element gives none.
void appendModuleIdents(struct_Slot& slot, const xml::Element& element)
{
    struct_ModuleIdent ident;
    ident.Attributes.Default = toBool(element.attribute("Default")) ? 1 : 0;
    ident.ModuleIdent = toUint(element.text());
    for ([[maybe_unused]] const xml::Node node : element.children())
        slot.ModuleIdent.push_back(ident);
}

const std::array slotChildRules{
    child("Name", storeText<&struct_Slot::Name>),
    child("ModuleClass", appendModuleClasses),
    child("ModuleIdent", appendModuleIdents),
};

struct_Slot slotFrom(const xml::Element& element, const SlotsAttributes& defaults)
{
    struct_Slot slot;
    slot.Attributes.SlotIndexIncrement = defaults.SlotIndexIncrement;
    slot.Attributes.SlotPdoIncrement = defaults.SlotPdoIncrement;
    slot.Attributes.m_SlotGroupIndexIncrement = defaults.m_SlotGroupIndexIncrement;
    slot.Attributes.m_SlotGroupPdoIncrement = defaults.m_SlotGroupPdoIncrement;
    readAttributes(element, slotRules, slot.Attributes);
    readChildren(element, slotChildRules, slot);
    return slot;
}

/// What the names of the slots of each group end with, by group number.
using GroupTails = std::unordered_map<std::int32_t, std::string>;

void addTail(GroupTails& tails, const xml::Element& groupData)
{
    const std::string_view number = groupData.attribute("SlotGroup");
    const std::int32_t group = number.data() != nullptr ? toInt(number) : -1;
    if (group < 0)
        return;
    xml::forEachChildElement(groupData, "Name", [&](const xml::Element& name) {
        tails[group].append("-->").append(std::string_view(name.text()));
    });
}

void nameSlotsByGroup(std::vector<struct_Slot>& allSlots, const std::vector<xml::Element>& groups)
{
    GroupTails tails;
    for (const xml::Element& group : groups)
        addTail(tails, group);
    if (tails.empty()) // else a device with many lists of slots would go through all its slots for each
        return;
    for (struct_Slot& slot : allSlots)
        if (const auto tail = tails.find(slot.Attributes.m_SlotGroup); tail != tails.end())
            slot.Name += tail->second;
}

} // namespace

void readSlots(struct_EtherCatDevice& device, const xml::Element& element)
{
    DeviceSlots& deviceSlots = device.Slots;
    // A second `Slots` element starts its increments again from 0; the other attributes keep what the first one said.
    deviceSlots.Attributes.SlotIndexIncrement = 0;
    deviceSlots.Attributes.SlotPdoIncrement = 0;
    deviceSlots.Attributes.m_SlotGroupIndexIncrement = 0;
    deviceSlots.Attributes.m_SlotGroupPdoIncrement = 0;
    readAttributes(element, slotsRules, deviceSlots.Attributes);

    const auto [slotElements, groupElements] = xml::descendantsByName<2>(element, {"Slot", "SlotGroupData"});
    for (const xml::Element& slotElement : slotElements)
        deviceSlots.vslot.push_back(slotFrom(slotElement, deviceSlots.Attributes));
    nameSlotsByGroup(deviceSlots.vslot, groupElements);
}
