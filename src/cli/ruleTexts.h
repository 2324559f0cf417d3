// ruleTexts.h - the rules of the check, for those who use it.
#pragma once

#include "check/rules/rule.h"

#include <QString>

#include <cstddef>
#include <iosfwd>

namespace cli {

/// Writes all rules, one line each: code, severity, summary.
void listRules(std::ostream& out);

/// Writes all that is known of a rule. docs/check.md is made of these texts.
/// @param width  characters of a line, but for those of the example
void explainRule(const check::Rule& rule, std::size_t width, std::ostream& out);

/// Why a code is that of no rule, with the nearest ones.
[[nodiscard]] QString problemOfRuleCode(const QString& code);

} // namespace cli
