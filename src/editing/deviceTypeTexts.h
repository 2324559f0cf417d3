// deviceTypeTexts.h - the words that are offered for the device classes.
#pragma once

#include "model/deviceRecords.h"
#include "model/deviceType.h"

#include <QString>

#include <algorithm>
#include <cstdint>
#include <iterator>

/// One entry of the device type list.
struct DeviceTypeText
{
    enum_KTL_DEVICE_TYPE type;
    const char* name; ///< as people and files name it, without the number
    const char* text; ///< UTF-8; the number in it runs one above the value
};

inline constexpr DeviceTypeText deviceTypeTexts[] = {
    {KTL_DEVICE_TYPE_IOBlock, "IOBlock", "1:IOBlock(单IO模块)"},
    {KTL_DEVICE_TYPE_SingleDriver, "SingleDriver", "2:SingleDriver(单电机)"},
    {KTL_DEVICE_TYPE_MultiDriver, "MultiDriver", "3:MultiDriver(多电机)"},
    {KTL_DEVICE_TYPE_PnpIOBlock, "PnpIOBlock", "4:耦合器支持上电识别模块，有F050字典，不需要预置"},
    {KTL_DEVICE_TYPE_Special, "Special", "5:特殊设备,手动插入模块，和耦合器本身成整体设备"},
    {KTL_DEVICE_TYPE_ManualIOBlock, "ManualIOBlock", "6:耦合器不能识别模块，需要预置手动插入模块，没有F050字典"},
};

/// The entry of a type; null for a number that is none.
[[nodiscard]] inline const DeviceTypeText* deviceTypeTextOf(std::int64_t type)
{
    const auto* const found = std::find_if(std::begin(deviceTypeTexts), std::end(deviceTypeTexts),
                                           [type](const DeviceTypeText& entry) { return entry.type == type; });
    return found == std::end(deviceTypeTexts) ? nullptr : found;
}

/// Advice on a coupler that takes its list of modules by itself while its modules are preset by hand.
[[nodiscard]] inline QString moduleListAdvice(const struct_EtherCatDevice& device)
{
    return QStringLiteral("当前设备支持写F030，建议配置设备类型为类型4。请谨慎操作 %1:\n")
        .arg(QString::fromStdString(device.Name));
}
