// fmmuSection.cpp - one `Fmmu` element of a device.
#include "esi/directionName.h"
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>
#include <string_view>
#include <utility>

namespace {

/// A flag written as a number or a word: any number but 0 sets it, "-1" (no unsigned number) does not.
void storeOpOnly(Struct_Fmmu& to, std::string_view value)
{
    to.m_OpOnly = toUint(value) != 0;
}

const std::array fmmuRules{
    attribute("OpOnly", storeOpOnly),
    attribute("Sm", storeUint<&Struct_Fmmu::m_Sm>),
    attribute("Su", storeUint<&Struct_Fmmu::m_Su>),
};

} // namespace

void appendFmmu(struct_EtherCatDevice& device, const xml::Element& element)
{
    Struct_Fmmu fmmu;
    readAttributes(element, fmmuRules, fmmu);
    fmmu.m_Name = element.text().toString();
    // An unknown name keeps type 0 here, while an unknown sync manager counts as mailbox output.
    fmmu.m_FmmuType = directionByName(fmmu.m_Name, KTL_UnknownType);
    device.vFmmu.push_back(std::move(fmmu));
}
