// productSection.cpp - identity of a device, from its `Type` element.
#include "esi/fieldRules.h"
#include "esi/sections/sectionReaders.h"
#include "esi/storeField.h"

#include <array>

namespace {

const std::array typeRules{
    attribute("ProductCode", storeUint<&DeviceTypeAttributes::Product_Code>),
    attribute("RevisionNo", storeUint<&DeviceTypeAttributes::Revision_No>),
    attribute("SerialNo", storeUint<&DeviceTypeAttributes::Serial_No>),
    attribute("CheckProductCode", storeToken<&DeviceTypeAttributes::CheckProductCode>),
};

} // namespace

void readType(struct_EtherCatDevice& device, const xml::Element& element)
{
    readAttributes(element, typeRules, device.TypeAttributes);
    device.TypeAttributes.type = element.text().toString();
}
