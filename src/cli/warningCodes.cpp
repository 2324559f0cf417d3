#include "cli/warningCodes.h"

#include <algorithm>
#include <iterator>

namespace cli {

namespace {

struct NamedCode
{
    WarningCode code;
    QLatin1String name;
};

const NamedCode namedCodes[] = {
    {WarningCode::SyncManagers, QLatin1String("sync-managers")},
    {WarningCode::SlotPdoIncrement, QLatin1String("slot-pdo-increment")},
    {WarningCode::SlotIndexIncrement, QLatin1String("slot-index-increment")},
    {WarningCode::StartupCommands, QLatin1String("startup-commands")},
    {WarningCode::StartupData, QLatin1String("startup-data")},
    {WarningCode::ModuleList, QLatin1String("module-list")},
    {WarningCode::ModuleCommands, QLatin1String("module-commands")},
    {WarningCode::ItemCount, QLatin1String("item-count")},
    {WarningCode::LeftOut, QLatin1String("left-out")},
    {WarningCode::SameInput, QLatin1String("same-input")},
    {WarningCode::NoChoice, QLatin1String("no-choice")},
};

} // namespace

QLatin1String nameOf(WarningCode code)
{
    const auto* const found = std::find_if(std::begin(namedCodes), std::end(namedCodes),
                                           [code](const NamedCode& named) { return named.code == code; });
    return found == std::end(namedCodes) ? QLatin1String() : found->name;
}

std::optional<WarningCode> warningCodeNamed(const QString& name)
{
    for (const NamedCode& named : namedCodes)
        if (name == named.name)
            return named.code;
    return std::nullopt;
}

QStringList warningCodeNames()
{
    QStringList names;
    for (const NamedCode& named : namedCodes)
        names += named.name;
    return names;
}

} // namespace cli
