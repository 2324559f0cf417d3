#include "editing/moduleEdits.h"

#include "editing/slotPlaces.h"
#include "model/deviceType.h"

#include <QCoreApplication>

namespace {

constexpr const char* translationContext = "MainWindow";

} // namespace

QString moduleRefusal(std::uint16_t deviceType)
{
    if (deviceType <= KTL_DEVICE_TYPE_SingleDriver)
        return QCoreApplication::translate(
            translationContext, "当前设备配置成类型1或类型2，此设备类型不存在模块，请检查设备类型配置是否正确");
    if (deviceType == KTL_DEVICE_TYPE_PnpIOBlock)
        return QCoreApplication::translate(
            translationContext, "当前设备配置成类型4，不需要手动插入模块预配置，如果需要预配置模块信息，请配置成类型6");
    return {};
}

QString insertModule(struct_EtherCatDevice& device, int place, const struct_module& module)
{
    struct_Slot* const slot = slotAt(device.Slots, place);
    if (slot == nullptr)
        return {};
    if (!acceptsModule(*slot, module.TypeAttributes.ModuleIdent))
        return QCoreApplication::translate(translationContext, "当前模块不能插入模块到当前槽 %1:\n")
            .arg(QString::fromStdString(module.Name));
    putModule(*slot, place, module);
    return {};
}

void removeModule(struct_EtherCatDevice& device, int place)
{
    if (struct_Slot* slot = slotAt(device.Slots, place))
        takeModule(*slot, place);
}
