// fmmuRules.cpp - the units that map the process image into the memory of a device.
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/rules/ruleFamilies.h"
#include "check/unitLabels.h"
#include "model/syncDirection.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace check {

namespace {

constexpr std::size_t usualFmmus = 8; // of the common slave controllers

bool hasFmmu(const UnitFacts& unit, std::uint8_t direction)
{
    const std::string_view dynamicName = direction == KTL_Outputs ? "DynamicOutputs" : "DynamicInputs";
    return std::any_of(unit.fmmus.begin(), unit.fmmus.end(),
                       [&](const FmmuFacts& fmmu) { return fmmu.direction == direction || fmmu.name == dynamicName; });
}

void checkMissing(const UnitFacts& unit, Report& report)
{
    const std::vector<std::int64_t> bytes = processDataBytes(unit);
    for (std::size_t index = 0; index < unit.syncManagers.size(); ++index) {
        const SyncManagerFacts& syncManager = unit.syncManagers[index];
        if (bytes[index] > 0 && carriesProcessData(syncManager.direction) && !isVirtual(syncManager)
            && !hasFmmu(unit, syncManager.direction))
            report.add(syncManager.where,
                       QStringLiteral("sync manager %1 carries %2, and the device has no FMMU for them")
                           .arg(QString::number(index),
                                QLatin1String(syncManager.direction == KTL_Outputs ? "outputs" : "inputs")));
    }
}

void checkCount(const UnitFacts& unit, Report& report)
{
    if (unit.fmmus.size() > usualFmmus)
        report.add(unit.fmmus[usualFmmus].where,
                   QStringLiteral("the device declares %1 FMMUs, common slave controllers have %2 at most")
                       .arg(unit.fmmus.size())
                       .arg(usualFmmus));
}

constexpr std::array<std::string_view, 5> knownKinds{"Outputs", "Inputs", "MBoxState", "MBoxOut", "MBoxIn"};

void checkKind(const UnitFacts& unit, Report& report)
{
    if (unit.isFromKtl)
        return;
    for (const FmmuFacts& fmmu : unit.fmmus)
        if (!fmmu.name.empty() && std::find(knownKinds.begin(), knownKinds.end(), fmmu.name) == knownKinds.end())
            report.add(fmmu.where,
                       QStringLiteral(
                           "%1 is not a kind of FMMU that the format has: Outputs, Inputs, MBoxState, MBoxOut, MBoxIn")
                           .arg(shown(fmmu.name)));
}

constexpr std::array rules{
    Rule{"fmmu-missing",
         Severity::Warning,
         "process data without an FMMU",
         "A sync manager with assigned PDOs is Outputs or Inputs, and the device has no FMMU of this kind.",
         "The controller maps process data by FMMUs. Without one the data has no place in the process image.",
         "Declare an Fmmu element Outputs or Inputs.",
         "<Fmmu>Outputs</Fmmu><Sm>Outputs</Sm><Sm>Inputs</Sm>",
         {nullptr, nullptr, checkMissing}},
    Rule{"fmmu-count",
         Severity::Note,
         "more FMMUs than usual",
         "A device declares more than 8 FMMUs.",
         "Common slave controllers have 3, 4 or 8 of them. The settings of one that is not there are refused.",
         "Look into the data sheet of the slave controller.",
         "<Fmmu>Outputs</Fmmu> nine times",
         {nullptr, nullptr, checkCount}},
    Rule{"fmmu-kind",
         Severity::Warning,
         "an FMMU of an unknown kind",
         "The text of an Fmmu element is none of Outputs, Inputs, MBoxState, MBoxOut and MBoxIn. An empty one is an "
         "FMMU that is not used. DynamicOutputs and DynamicInputs are told too, since the format has no kind for them.",
         "The kind goes out as unknown, and the FMMU maps nothing.",
         "Write the name exactly, upper and lower case included.",
         "<Fmmu>outputs</Fmmu>",
         {nullptr, nullptr, checkKind}},
};

} // namespace

RuleFamily fmmuRules()
{
    return rules;
}

} // namespace check
