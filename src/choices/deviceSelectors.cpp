#include "choices/deviceSelectors.h"

#include "choices/selectorForms.h"
#include "editing/deviceLabel.h"
#include "model/valueTexts.h"
#include "text/shownText.h"
#include "text/textMatching.h"

#include <algorithm>
#include <iterator>

namespace choices {

namespace {

constexpr std::size_t maxNearest = 5;

/// Vendor id and product code, as `identityText` begins.
/// @param identity  of a selector without `*`
QString productText(const IdentitySelector& identity)
{
    return hexNumber(identity.vendor.value_or(0)) + QLatin1Char(':') + hexNumber(identity.product.value_or(0));
}

} // namespace

DeviceSelectors::DeviceSelectors(const std::vector<struct_FilenameDevice>& files)
    : m_files(files)
{
    for (std::size_t file = 0; file < files.size(); ++file)
        for (std::size_t device = 0; device < files[file].device.size(); ++device) {
            const std::size_t place = m_devices.size();
            m_devices.emplace_back(file, device);
            const struct_EtherCatDevice& known = files[file].device[device];
            m_byProduct[{vendorIdOf(files[file], known), known.TypeAttributes.Product_Code}].push_back(place);
            m_byText[known.Name].push_back(place);
            if (known.TypeAttributes.type != known.Name)
                m_byText[known.TypeAttributes.type].push_back(place);
        }
}

MeantDevices DeviceSelectors::devicesOf(const QString& selector) const
{
    return meantBy(selector, hasWildcard(selector));
}

MeantDevices DeviceSelectors::deviceOf(const QString& selector) const
{
    return meantBy(selector, false);
}

QStringList DeviceSelectors::candidatesOf(const QString& selector, std::size_t maxLines) const
{
    Places places = placesOf(selector);
    if (places.empty())
        places = nearestTo(selector);
    QStringList lines;
    for (std::size_t index = 0; index < places.size() && index < maxLines; ++index)
        lines += lineOf(places[index]);
    if (places.size() > maxLines)
        lines += QStringLiteral("... and %1 more").arg(places.size() - maxLines);
    return lines;
}

QString DeviceSelectors::labelOf(const DevicePosition& device) const
{
    const auto found = std::lower_bound(m_devices.begin(), m_devices.end(), device);
    const auto place = static_cast<std::size_t>(found - m_devices.begin());
    return deviceLabel(fileAt(place), deviceAt(place), place + 1);
}

DeviceSelectors::Places DeviceSelectors::placesOf(const QString& selector) const
{
    if (selector.isEmpty()) // not the devices without a name
        return {};
    if (const std::optional<std::uint32_t> number = deviceNumberIn(selector))
        return *number > 0 && *number <= m_devices.size() ? Places{*number - 1} : Places{};
    if (hasWildcard(selector))
        return placesThatFit(selector);
    const std::optional<IdentitySelector> identity = identityIn(selector);
    if (!identity.has_value()) {
        const auto found = m_byText.find(selector.toStdString());
        return found == m_byText.end() ? Places{} : found->second;
    }
    Places places;
    const auto found = m_byProduct.find({*identity->vendor, *identity->product});
    if (found != m_byProduct.end())
        std::copy_if(found->second.begin(), found->second.end(), std::back_inserter(places), [&](std::size_t place) {
            const std::uint32_t revision = deviceAt(place).TypeAttributes.Revision_No;
            return identity->revision.value_or(revision) == revision;
        });
    return places;
}

DeviceSelectors::Places DeviceSelectors::placesThatFit(const QString& pattern) const
{
    const std::optional<IdentitySelector> identity = identityIn(pattern);
    Places places;
    for (std::size_t place = 0; place < m_devices.size(); ++place) {
        const struct_EtherCatDevice& device = deviceAt(place);
        const DeviceTypeAttributes& type = device.TypeAttributes;
        const bool fits = identity.has_value()
                              ? identity->fits(vendorIdOf(fileAt(place), device), type.Product_Code, type.Revision_No)
                              : fitsPattern(QString::fromStdString(device.Name), pattern)
                                    || fitsPattern(QString::fromStdString(type.type), pattern);
        if (fits)
            places.push_back(place);
    }
    return places;
}

/// By vendor and product for an identity, by name and type for what can be one; none for a number or a pattern.
DeviceSelectors::Places DeviceSelectors::nearestTo(const QString& selector) const
{
    constexpr int maxCompared = 40; // characters
    constexpr int maxIdentityChanges = 2;
    constexpr int charactersPerChange = 3; // of a name: more changes make another word
    if (selector.isEmpty() || hasWildcard(selector) || deviceNumberIn(selector).has_value())
        return {};
    const std::optional<IdentitySelector> identity = identityIn(selector);
    const QString wanted = identity.has_value() ? productText(*identity) : selector.left(maxCompared);
    const int maxChanges = identity.has_value() ? maxIdentityChanges : wanted.size() / charactersPerChange;
    std::vector<std::pair<int, std::size_t>> near;
    for (std::size_t place = 0; place < m_devices.size(); ++place) {
        const struct_EtherCatDevice& device = deviceAt(place);
        const int distance =
            identity.has_value()
                ? distanceToBeginning(wanted, identityText(fileAt(place), device))
                : std::min(distanceToBeginning(wanted, QString::fromStdString(device.Name)),
                           distanceToBeginning(wanted, QString::fromStdString(device.TypeAttributes.type)));
        if (distance <= maxChanges)
            near.emplace_back(distance, place);
    }
    std::sort(near.begin(), near.end());
    Places places;
    for (std::size_t index = 0; index < near.size() && index < maxNearest; ++index)
        places.push_back(near[index].second);
    return places;
}

QString DeviceSelectors::whyNone(const QString& selector) const
{
    if (m_devices.empty())
        return QStringLiteral("the given files hold no device");
    if (selector.isEmpty())
        return QStringLiteral("a selector of a device is empty");
    if (deviceNumberIn(selector).has_value())
        return QStringLiteral("there is no device %1: the numbers go from 1 to %2").arg(selector).arg(m_devices.size());
    const QString none = QStringLiteral("no device of the given files is %1").arg(shownText(selector));
    const QString problem = identityIn(selector).has_value() ? QString() : formProblem(selector);
    return problem.isEmpty() ? none : none + QStringLiteral("; ") + problem;
}

MeantDevices DeviceSelectors::meantBy(const QString& selector, bool takesSeveral) const
{
    const Places places = placesOf(selector);
    if (places.empty())
        return {{}, whyNone(selector), 0};
    if (places.size() > 1 && !takesSeveral)
        return {{},
                QStringLiteral("%1 means %2 devices instead of one").arg(shownText(selector)).arg(places.size()),
                places.size()};
    MeantDevices result;
    result.count = places.size();
    for (const std::size_t place : places)
        result.devices.insert(m_devices[place]);
    return result;
}

QString DeviceSelectors::lineOf(std::size_t place) const
{
    const struct_EtherCatDevice& device = deviceAt(place);
    const QString label = deviceLabel(fileAt(place), device, place + 1);
    return device.TypeAttributes.type == device.Name
               ? label
               : label + QStringLiteral(", type ") + shownText(QString::fromStdString(device.TypeAttributes.type));
}

const struct_FilenameDevice& DeviceSelectors::fileAt(std::size_t place) const
{
    return m_files[m_devices[place].first];
}

const struct_EtherCatDevice& DeviceSelectors::deviceAt(std::size_t place) const
{
    return m_files[m_devices[place].first].device[m_devices[place].second];
}

} // namespace choices
