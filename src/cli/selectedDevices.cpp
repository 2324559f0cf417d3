#include "cli/selectedDevices.h"

#include <cstddef>

namespace cli {

namespace {

std::set<choices::DevicePosition> allDevices(const std::vector<struct_FilenameDevice>& files)
{
    std::set<choices::DevicePosition> devices;
    for (std::size_t file = 0; file < files.size(); ++file)
        for (std::size_t device = 0; device < files[file].device.size(); ++device)
            devices.emplace_hint(devices.end(), file, device);
    return devices;
}

} // namespace

std::optional<std::set<choices::DevicePosition>>
selectedDevices(const QStringList& selectors, const std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    if (selectors.isEmpty())
        return allDevices(files);
    const choices::DeviceSelectors known(files);
    std::set<choices::DevicePosition> devices;
    bool areUsable = true;
    for (const QString& selector : selectors) {
        choices::MeantDevices meant = known.devicesOf(selector);
        devices.merge(meant.devices);
        if (meant.problem.isEmpty())
            continue;
        areUsable = false;
        messages.error({}, meant.problem);
        for (const QString& line : known.candidatesOf(selector, Messages::maxListed))
            messages.note({}, line);
    }
    if (areUsable)
        return devices;
    messages.note({},
                  QStringLiteral("a selector means one device, by number, name, Type or VENDOR:PRODUCT[:REVISION], or "
                                 "with * in it all that fit; \"ktl show\" lists the devices of a file"));
    return std::nullopt;
}

} // namespace cli
