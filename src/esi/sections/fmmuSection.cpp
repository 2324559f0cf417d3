// fmmuSection.cpp - one `Fmmu` element of a device.
#include "esi/directionName.h"
#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>
#include <utility>

namespace {

/// A flag written as a number or a word: any number but 0 sets it, "-1" (no unsigned number) does not.
void storeOpOnly(Struct_Fmmu& to, const QString& value)
{
    to.m_OpOnly = toUint(value) != 0;
}

const std::array fmmuRules{
    attribute("OpOnly", storeOpOnly),
    attribute("Sm", storeUint<&Struct_Fmmu::m_Sm>),
    attribute("Su", storeUint<&Struct_Fmmu::m_Su>),
};

} // namespace

void read_device_Fmmuinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element == nullptr || ether_device == nullptr)
        return;
    Struct_Fmmu fmmu;
    readAttributes(*element, fmmuRules, fmmu);
    const QString name = element->text();
    fmmu.m_Name = name.toStdString();
    // An unknown name keeps type 0 here, while an unknown sync manager counts as mailbox output.
    fmmu.m_FmmuType = directionByName(name, KTL_UnknownType);
    ether_device->vFmmu.push_back(std::move(fmmu));
}
