#include "cli/deviceSelectors.h"

#include "cli/numberArgument.h"

#include <functional>

namespace {

/// Calls `visit(position, number)` for each device, with its number from 1.
template<typename Visitor> void forEachDevice(const std::vector<struct_FilenameDevice>& files, Visitor visit)
{
    std::uint32_t number = 0;
    for (std::size_t file = 0; file < files.size(); ++file)
        for (std::size_t device = 0; device < files[file].device.size(); ++device)
            visit(DevicePosition(file, device), ++number);
}

struct Identity
{
    std::uint32_t vendor = 0;
    std::uint32_t product = 0;
    std::optional<std::uint32_t> revision;
};

std::optional<Identity> identityOf(const QString& selector)
{
    const QStringList parts = selector.split(QLatin1Char(':'));
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    const std::optional<std::uint32_t> vendor = numberIn(parts.at(0));
    const std::optional<std::uint32_t> product = numberIn(parts.at(1));
    const std::optional<std::uint32_t> revision = numberIn(parts.last());
    if (!vendor.has_value() || !product.has_value() || !revision.has_value())
        return std::nullopt;
    return Identity{*vendor, *product, parts.size() == 3 ? revision : std::nullopt};
}

/// Whether a device is meant by what `selector` is taken for.
std::function<bool(const struct_FilenameDevice&, const struct_EtherCatDevice&, std::uint32_t number)>
conditionOf(const QString& selector)
{
    if (const std::optional<Identity> identity = identityOf(selector))
        return [identity](const struct_FilenameDevice& file, const struct_EtherCatDevice& device, std::uint32_t) {
            return file.Vendor_Id == identity->vendor && device.TypeAttributes.Product_Code == identity->product
                   && (!identity->revision.has_value() || device.TypeAttributes.Revision_No == *identity->revision);
        };
    constexpr int decimal = 10;
    if (const std::optional<std::uint32_t> wanted = numberOfDigits(selector, decimal))
        return [wanted](const struct_FilenameDevice&, const struct_EtherCatDevice&, std::uint32_t number) {
            return number == *wanted;
        };
    return [name = selector.toStdString()](const struct_FilenameDevice&, const struct_EtherCatDevice& device,
                                           std::uint32_t) { return device.Name == name; };
}

} // namespace

std::set<DevicePosition> devicesNamed(const QString& selector, const std::vector<struct_FilenameDevice>& files)
{
    std::set<DevicePosition> devices;
    if (selector.isEmpty()) // a variable of a script that is not set, rather than the devices without a name
        return devices;
    const auto isMeant = conditionOf(selector);
    forEachDevice(files, [&](const DevicePosition& position, std::uint32_t number) {
        const struct_FilenameDevice& file = files[position.first];
        if (isMeant(file, file.device[position.second], number))
            devices.insert(position);
    });
    return devices;
}

std::optional<std::set<DevicePosition>>
selectedDevices(const QStringList& selectors, const std::vector<struct_FilenameDevice>& files, Messages& messages)
{
    std::set<DevicePosition> devices;
    if (selectors.isEmpty())
        forEachDevice(files, [&](const DevicePosition& position, std::uint32_t) { devices.insert(position); });
    bool areFound = true;
    for (const QString& selector : selectors) {
        const std::set<DevicePosition> named = devicesNamed(selector, files);
        if (named.empty())
            messages.error({}, QStringLiteral("no device of the given files is \"%1\"").arg(selector));
        areFound = areFound && !named.empty();
        devices.insert(named.begin(), named.end());
    }
    return areFound ? std::make_optional(devices) : std::nullopt;
}
