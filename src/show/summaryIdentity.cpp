#include "model/deviceRecords.h"
#include "show/cutText.h"
#include "show/showWords.h"
#include "show/summarySections.h"

#include <utility>

namespace show {

namespace {

std::string classText(const struct_KTL_EtherCatDeviceType& general)
{
    const std::string name = deviceTypeName(general.m_iDeviceType);
    return name.empty() ? std::to_string(general.m_iDeviceType) : name;
}

} // namespace

SummaryParts identitySection(const SummaryDevice& device)
{
    const struct_KTL_EtherCatDeviceType& general = device.carried.block.general;
    SummaryParts parts;
    const auto add = [&parts](const char* label, const std::string& text) {
        if (!text.empty())
            parts.push_back({label, text, {}, {}});
    };
    add("type", cutName(device.unit.type));
    add("name", cutName(device.unit.name));
    add("serial number", general.m_iSerial_No == 0 ? std::string() : hexText(general.m_iSerial_No));
    add("device class", classText(general));
    add("drive axes", general.m_iDriveAxies == 0 ? std::string() : std::to_string(general.m_iDriveAxies));
    return parts;
}

SummaryParts dictionarySection(const SummaryDevice& device)
{
    if (device.model == nullptr)
        return {};
    std::string text;
    const auto add = [&text](const char* whose, std::size_t objects, std::size_t types) {
        if (objects > 0 || types > 0)
            text += (text.empty() ? "" : "; ") + std::string(whose) + counted(objects, "object") + ", "
                    + counted(types, "data type");
    };
    const DeviceDictionary& own = device.model->Dictionary;
    const DeviceModuleDictionary& ofModules = device.model->mDictionary;
    add("", own.vobject.size(), own.vdatatype.size());
    add("of modules in slots ", ofModules.mobject.size(), ofModules.mdatatype.size());
    return text.empty() ? SummaryParts() : SummaryParts{{"dictionary", std::move(text), {}, {}}};
}

} // namespace show
