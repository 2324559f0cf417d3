// smSection.cpp - one `Sm` element of a device.
#include "esi/directionName.h"
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>
#include <cstdint>
#include <utility>

namespace {

const std::array smRules{
    attribute("DefaultSize", storeUint<&SmAttributes::DefaultSize>),
    attribute("StartAddress", storeUint<&SmAttributes::StartAddress>),
    attribute("MinSize", storeUint<&SmAttributes::MinSize>),
    attribute("MaxSize", storeUint<&SmAttributes::MaxSize>),
    attribute("ControlByte", storeUint<&SmAttributes::ControlByte>),
    attribute("Enable", storeUint<&SmAttributes::Enable>),
    attribute("Virtual", storeUint<&SmAttributes::m_Virtual>),
};

} // namespace

void appendSm(struct_EtherCatDevice& device, const xml::Element& element)
{
    struct_SM syncManager;
    // ESI has no attribute for the number: sync managers are numbered in document order.
    syncManager.SM = static_cast<std::uint8_t>(device.vSM.size());
    readAttributes(element, smRules, syncManager.Attributes);
    syncManager.Name = element.text().toString();
    // ODD, KEPT: any name but the four exact ones counts as mailbox output (1), also none, one in another case, and one
    // with a blank around it. One would expect 0, as for an FMMU. Pinned by tst_SmSection::type.
    syncManager.Smtype = directionByName(syncManager.Name, KTL_MBoxOut);
    device.vSM.push_back(std::move(syncManager));
}
