// rule.h - one rule of the check: what it is called, what it says, and the function that looks.
#pragma once

#include "check/rules/severity.h"

#include <string_view>

namespace facts {
struct KtlFacts;
struct UnitFacts;
} // namespace facts

namespace check {

struct EsiFacts;
class Report;

/// The functions of a rule; those that do not apply are null. Each looks at facts and reports what it finds. A rule
/// without any is about what shows before there are facts, or only when several files are compared, see `FileRule`.
struct RuleChecks
{
    void (*ofEsi)(const EsiFacts& facts, Report& report) = nullptr; ///< once for an ESI file
    void (*ofKtl)(const facts::KtlFacts& facts, Report& report) = nullptr; ///< once for a KTL file
    void (*ofUnit)(const facts::UnitFacts& facts,
                   Report& report) = nullptr; ///< for each device, and each module of a file
};

/// One row of the table of rules.
struct Rule
{
    std::string_view code; ///< stable name in lower case, as it ends the line of a finding: "pdo-sync-manager"
    Severity severity;
    std::string_view summary; ///< what is wrong, on one line, without a full stop
    std::string_view what; ///< when exactly the rule fires
    std::string_view why; ///< what it means for the machine
    std::string_view remedy; ///< what to do
    std::string_view example; ///< lines of a file that it fires on
    RuleChecks checks;
    bool isFault = false; ///< a file in which it finds something cannot be used as it is
};

} // namespace check
