#include "choices/syncManagerChoices.h"

#include "choices/namesakes.h"
#include "editing/deviceEdits.h"
#include "editing/moduleData.h"
#include "model/missingSyncManager.h"
#include "text/shownText.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace choices {

namespace {

void tell(const SyncManagerChoice& choice, ProblemCode code, const char* key, const QString& text, Problems& problems)
{
    problems.add(code, choice.path + QLatin1Char('.') + QLatin1String(key), text);
}

std::map<std::string, Namesakes> rowsByName(const std::vector<struct_SM>& syncManagers)
{
    std::map<std::string, Namesakes> rows;
    for (std::size_t row = 0; row < syncManagers.size(); ++row)
        rows[syncManagers[row].Name].add(row);
    return rows;
}

/// Row of the sync manager that a choice names; tells if there is none.
/// @param count  how many sync managers there are
std::optional<std::size_t> rowOf(const SyncManagerChoice& choice, std::size_t count,
                                 const std::map<std::string, Namesakes>& byName, Problems& problems)
{
    constexpr const char* key = "syncManager";
    if (choice.row.has_value()) {
        if (*choice.row < count)
            return *choice.row;
        tell(choice, ProblemCode::Row, key,
             QStringLiteral("there is no sync manager %1, the list has %2").arg(*choice.row).arg(count), problems);
        return std::nullopt;
    }
    const auto found = byName.find(choice.name.toStdString());
    if (found == byName.end()) {
        tell(choice, ProblemCode::Row, key,
             QStringLiteral("%1 is no sync manager of the device").arg(shownText(choice.name)), problems);
        return std::nullopt;
    }
    if (found->second.count == 1)
        return found->second.first;
    tell(choice, ProblemCode::Setting, key,
         QStringLiteral("%1 sync managers are %2; their numbers tell them apart")
             .arg(QString::number(found->second.count), shownText(choice.name)),
         problems);
    return std::nullopt;
}

} // namespace

void makeSyncManagerChoices(const DeviceChoices& choices, struct_EtherCatDevice& device, Problems& problems)
{
    if (choices.syncManagers.empty())
        return;
    const std::map<std::string, Namesakes> byName = rowsByName(device.vSM);
    std::set<std::size_t> rows;
    for (const SyncManagerChoice& choice : choices.syncManagers) {
        const std::optional<std::size_t> row = rowOf(choice, device.vSM.size(), byName, problems);
        if (!row.has_value())
            continue;
        struct_SM& syncManager = device.vSM[*row];
        const QString name = QString::fromStdString(syncManager.Name);
        if (!rows.insert(*row).second)
            problems.add(ProblemCode::Setting, choice.path, QStringLiteral("sync manager %1 is set twice").arg(*row));
        if (choice.checkedName.value_or(name) != name)
            tell(choice, ProblemCode::Check, "name",
                 QStringLiteral("%1 stands there, not %2").arg(shownText(name), shownText(*choice.checkedName)),
                 problems);
        setMinSize(syncManager, choice.minSize);
    }
    if (!choices.isClicked) // a click has made the lengths already
        onDevice(device, [&] { moduleData::renewLengths(device); });
}

} // namespace choices
