#include "cli/pairedDevices.h"

#include "choices/deviceSelectors.h"
#include "cli/selectedDevices.h"
#include "cli/selectorRecord.h"
#include "diff/devicePairs.h"
#include "facts/unitFacts.h"

#include <algorithm>
#include <cstddef>
#include <set>

namespace cli {

namespace {

/// The devices of one file, for selectors.
class SelectableFile
{
public:
    explicit SelectableFile(const PairedFile& file)
        : m_records{selectorRecordOf(file.path, file.source.devices())}
        , m_selectors(m_records)
    {}

    /// @return  empty if the selector has a problem in this file
    [[nodiscard]] std::set<std::size_t> devicesOf(const QString& selector) const
    {
        std::set<std::size_t> places;
        for (const auto& [file, device] : m_selectors.devicesOf(selector).devices)
            places.insert(device);
        return places;
    }

    /// Reports what is wrong with a selector that means no device of this file.
    void report(const QString& selector, Messages& messages) const
    {
        // It is known to have a problem, so there is no result.
        static_cast<void>(selectedDevices({selector}, m_records, messages));
    }

private:
    std::vector<struct_FilenameDevice> m_records;
    choices::DeviceSelectors m_selectors;
};

/// The devices that selectors mean on both sides.
struct Selected
{
    std::set<std::size_t> before;
    std::set<std::size_t> after;
};

std::optional<Selected> selectedIn(const SelectableFile& before, const SelectableFile& after,
                                   const QStringList& selectors, Messages& messages)
{
    Selected selected;
    bool areUsable = true;
    for (const QString& selector : selectors) {
        std::set<std::size_t> oldOnes = before.devicesOf(selector);
        std::set<std::size_t> newOnes = after.devicesOf(selector);
        if (oldOnes.empty() && newOnes.empty()) {
            before.report(selector, messages);
            messages.note({}, QStringLiteral("it means no device of the other file either"));
            areUsable = false;
        }
        selected.before.merge(oldOnes);
        selected.after.merge(newOnes);
    }
    return areUsable ? std::make_optional(std::move(selected)) : std::nullopt;
}

/// The one device that a selector means.
/// @return  nothing if it does not mean one; that has been reported
std::optional<std::size_t> deviceIn(const SelectableFile& file, const QString& selector, Messages& messages)
{
    const std::set<std::size_t> meant = file.devicesOf(selector);
    if (meant.empty())
        file.report(selector, messages);
    else if (meant.size() > 1)
        messages.error({}, QStringLiteral("--device and --with take one device each, \"%1\" means %2")
                               .arg(selector)
                               .arg(meant.size()));
    return meant.size() == 1 ? std::make_optional(*meant.begin()) : std::nullopt;
}

} // namespace

std::optional<std::vector<diff::Pair>> pairedDevices(const PairedFile& before, const PairedFile& after,
                                                     const QStringList& selectors, const std::optional<QString>& with,
                                                     Messages& messages)
{
    std::vector<diff::Pair> pairs = diff::devicePairsOf(before.source.devices(), after.source.devices());
    if (selectors.isEmpty())
        return pairs;
    const SelectableFile oldFile(before);
    const SelectableFile newFile(after);
    if (with.has_value()) {
        const std::optional<std::size_t> oldOne = deviceIn(oldFile, selectors.constFirst(), messages);
        const std::optional<std::size_t> newOne = deviceIn(newFile, *with, messages);
        if (!oldOne.has_value() || !newOne.has_value())
            return std::nullopt;
        return std::vector<diff::Pair>{{oldOne, newOne, false}};
    }
    const std::optional<Selected> selected = selectedIn(oldFile, newFile, selectors, messages);
    if (!selected.has_value())
        return std::nullopt;
    const auto isLeftOut = [&](const diff::Pair& pair) {
        return (!pair.before.has_value() || selected->before.count(*pair.before) == 0)
               && (!pair.after.has_value() || selected->after.count(*pair.after) == 0);
    };
    pairs.erase(std::remove_if(pairs.begin(), pairs.end(), isLeftOut), pairs.end());
    return pairs;
}

} // namespace cli
