// productSection.cpp - identity of a device, from its `Type` element.
#include "esi/fieldRules.h"
#include "esi/storeField.h"
#include "esi/xmlparsing.h"

#include <array>

namespace {

const std::array typeRules{
    attribute("ProductCode", storeUint<&DeviceTypeAttributes::Product_Code>),
    attribute("RevisionNo", storeUint<&DeviceTypeAttributes::Revision_No>),
    attribute("SerialNo", storeUint<&DeviceTypeAttributes::Serial_No>),
    attribute("CheckProductCode", storeToken<&DeviceTypeAttributes::CheckProductCode>),
};

} // namespace

void read_device_Productinfo(QDomElement* element, struct_EtherCatDevice* ether_device)
{
    if (element == nullptr || ether_device == nullptr)
        return;
    readAttributes(*element, typeRules, ether_device->TypeAttributes);
    ether_device->TypeAttributes.type = element->text().toStdString();
}
