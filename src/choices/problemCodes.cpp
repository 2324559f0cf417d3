#include "choices/problemCodes.h"

#include <algorithm>
#include <array>

namespace choices {

namespace {

struct NamedCode
{
    ProblemCode code;
    QLatin1String name;
};

const std::array namedCodes{
    NamedCode{ProblemCode::Size, QLatin1String("size")},
    NamedCode{ProblemCode::Json, QLatin1String("json")},
    NamedCode{ProblemCode::Form, QLatin1String("form")},
    NamedCode{ProblemCode::NoDevice, QLatin1String("no-device")},
    NamedCode{ProblemCode::SeveralDevices, QLatin1String("several-devices")},
    NamedCode{ProblemCode::DeviceTwice, QLatin1String("device-twice")},
    NamedCode{ProblemCode::Setting, QLatin1String("setting")},
    NamedCode{ProblemCode::Module, QLatin1String("module")},
    NamedCode{ProblemCode::ModuleType, QLatin1String("module-type")},
    NamedCode{ProblemCode::ModulePlace, QLatin1String("module-place")},
    NamedCode{ProblemCode::Link, QLatin1String("link")},
    NamedCode{ProblemCode::Row, QLatin1String("row")},
    NamedCode{ProblemCode::StartupData, QLatin1String("startup-data")},
    NamedCode{ProblemCode::Check, QLatin1String("check")},
    NamedCode{ProblemCode::SyncManager, QLatin1String("sync-manager")},
};

} // namespace

QLatin1String nameOf(ProblemCode code)
{
    const auto* const found = std::find_if(namedCodes.begin(), namedCodes.end(),
                                           [code](const NamedCode& named) { return named.code == code; });
    return found == namedCodes.end() ? QLatin1String() : found->name;
}

QStringList problemCodeNames()
{
    QStringList names;
    for (const NamedCode& named : namedCodes)
        names += named.name;
    return names;
}

} // namespace choices
