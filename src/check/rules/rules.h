// rules.h - all rules of the check.
#pragma once

#include "check/rules/rule.h"

#include <string_view>
#include <vector>

namespace check {

/// All rules, family by family, in the order in which documents list them.
[[nodiscard]] const std::vector<const Rule*>& allRules();

/// The rule with a code.
/// @return  null if there is none
[[nodiscard]] const Rule* ruleNamed(std::string_view code);

} // namespace check
