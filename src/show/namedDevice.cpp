#include "show/namedDevice.h"

#include "facts/ktlFacts.h"
#include "show/showWords.h"

namespace show {

NamedDevice namedDevice(const ShownFile& file, std::size_t index)
{
    const facts::Owner owner{facts::OwnerKind::Device, index};
    if (file.esi == nullptr) {
        const KtlDeviceBlock& block = file.devices[index].block;
        const struct_KTL_EtherCatDeviceType& general = block.general;
        return {owner,
                std::string(facts::nameIn(block)),
                {},
                general.m_iVendor_Id,
                general.m_iProduct_Code,
                general.m_iRevision_No};
    }
    const struct_EtherCatDevice& device = file.esi->device[index];
    const DeviceTypeAttributes& type = device.TypeAttributes;
    return {owner, device.Name, type.type, file.esi->Vendor_Id, type.Product_Code, type.Revision_No};
}

std::vector<NamedDevice> namedDevices(const ShownFile& file)
{
    std::vector<NamedDevice> devices;
    devices.reserve(file.devices.size());
    for (std::size_t index = 0; index < file.devices.size(); ++index)
        devices.push_back(namedDevice(file, index));
    return devices;
}

std::string identityText(const NamedDevice& device)
{
    return identityText(device.vendor, device.product, device.revision);
}

} // namespace show
