// retracedRuns.h - devices with identities, runs of them, and what an export gives after choices.
#pragma once

#include "retrace/choiceLines.h"
#include "retrace/retracedModules.h"

#include <string>
#include <vector>

namespace retracedDevices {

inline struct_EtherCatDevice deviceOf(std::uint32_t product, std::uint32_t revision, const std::string& name)
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.TypeAttributes.Product_Code = product;
    device.TypeAttributes.Revision_No = revision;
    device.Name = name;
    return device;
}

/// The devices of files, each as an export of it, in their order.
inline std::vector<retrace::ExportedBlock> exportOfAll(const std::vector<struct_FilenameDevice>& files)
{
    std::vector<retrace::ExportedBlock> blocks;
    for (const struct_FilenameDevice& file : files)
        for (const struct_EtherCatDevice& device : file.device)
            blocks.push_back(exportOf(device, file));
    return blocks;
}

inline Bytes bytesOf(const std::vector<retrace::ExportedBlock>& blocks)
{
    Bytes bytes;
    for (const retrace::ExportedBlock& block : blocks)
        bytes.insert(bytes.end(), block.bytes.begin(), block.bytes.end());
    return bytes;
}

/// The devices that an export writes after choices, one after another; no bytes if a choice does not fit.
inline Bytes bytesAfter(const choices::FileChoices& choices, std::vector<struct_FilenameDevice> files)
{
    choices::Problems problems;
    const choices::DeviceSelectors selectors(files);
    const choices::MadeChoices made = choices::makeChoices(choices, files, selectors, problems);
    Bytes bytes;
    for (std::size_t file = 0; file < files.size(); ++file)
        for (std::size_t device = 0; device < files[file].device.size(); ++device) {
            if (made.exported.has_value() && made.exported->count({file, device}) == 0)
                continue;
            const Bytes written = deviceBytesOf(files[file].device[device], files[file], exportTime());
            bytes.insert(bytes.end(), written.begin(), written.end());
        }
    return problems.count() == 0 ? bytes : Bytes();
}

/// "device NAME" before the choices of each device, and "export NAME" for each device that is named to go out.
inline QStringList linesOf(const choices::FileChoices& choices)
{
    QStringList lines;
    for (const choices::DeviceChoices& device : choices.devices) {
        lines += QStringLiteral("device ") + device.device;
        lines += choiceLines::linesOf(device);
    }
    if (choices.exported.has_value())
        for (const QString& device : *choices.exported)
            lines += QStringLiteral("export ") + device;
    return lines;
}

} // namespace retracedDevices
