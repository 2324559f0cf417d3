#include "editing/moduleEdits.h"

#include "editing/slotPlaces.h"
#include "model/deviceType.h"

#include <QCoreApplication>

namespace {

constexpr const char* translationContext = "MainWindow";

/// The words of the window for a refusal, with %1 for the name of the module.
const char* wordsOf(ModuleRefusal refusal)
{
    switch (refusal) {
    case ModuleRefusal::TypeWithoutModules:
        return "当前设备配置成类型1或类型2，此设备类型不存在模块，请检查设备类型配置是否正确";
    case ModuleRefusal::TypeFindsModules:
        return "当前设备配置成类型4，不需要手动插入模块预配置，如果需要预配置模块信息，请配置成类型6";
    case ModuleRefusal::ModuleDoesNotFit:
        break;
    }
    return "当前模块不能插入模块到当前槽 %1:\n";
}

} // namespace

std::optional<ModuleRefusal> moduleRefusal(std::uint16_t deviceType)
{
    if (deviceType <= KTL_DEVICE_TYPE_SingleDriver)
        return ModuleRefusal::TypeWithoutModules;
    if (deviceType == KTL_DEVICE_TYPE_PnpIOBlock)
        return ModuleRefusal::TypeFindsModules;
    return std::nullopt;
}

std::optional<ModuleRefusal> insertModule(struct_EtherCatDevice& device, int place, const struct_module& module)
{
    struct_Slot* const slot = slotAt(device.Slots, place);
    if (slot == nullptr)
        return std::nullopt;
    if (!acceptsModule(*slot, module.TypeAttributes.ModuleIdent))
        return ModuleRefusal::ModuleDoesNotFit;
    putModule(*slot, place, module);
    return std::nullopt;
}

QString moduleRefusalText(ModuleRefusal refusal, const std::string& moduleName)
{
    const QString words = QCoreApplication::translate(translationContext, wordsOf(refusal));
    return refusal == ModuleRefusal::ModuleDoesNotFit ? words.arg(QString::fromStdString(moduleName)) : words;
}

void removeModule(struct_EtherCatDevice& device, int place)
{
    if (struct_Slot* slot = slotAt(device.Slots, place))
        takeModule(*slot, place);
}

void setTakesModuleList(struct_EtherCatDevice& device, bool takes)
{
    device.Slots.Attributes.DownloadModuleIdentList = takes;
}

bool isModuleListAdvised(const struct_EtherCatDevice& device, ModulePreset change)
{
    const bool presets = change == ModulePreset::PutInModule || device.m_iDeviceType == KTL_DEVICE_TYPE_ManualIOBlock;
    return presets && device.Slots.Attributes.DownloadModuleIdentList;
}
