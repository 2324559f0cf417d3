// ruleFamilies.h - the rules by what they are about. Each family is a table beside its functions.
#pragma once

#include "check/rules/rule.h"

#include <array>
#include <cstddef>

namespace check {

/// The rows of a family.
class RuleFamily
{
public:
    template<std::size_t Count>
    // NOLINTNEXTLINE(google-explicit-constructor): a table is a family wherever one is wanted
    constexpr RuleFamily(const std::array<Rule, Count>& rules)
        : m_first(rules.data())
        , m_count(Count)
    {}

    [[nodiscard]] constexpr const Rule* begin() const { return m_first; }
    [[nodiscard]] constexpr const Rule* end() const { return m_first + m_count; }

private:
    const Rule* m_first;
    std::size_t m_count;
};

[[nodiscard]] RuleFamily fileRules();
[[nodiscard]] RuleFamily identityRules();
[[nodiscard]] RuleFamily syncManagerRules();
[[nodiscard]] RuleFamily memoryRules();
[[nodiscard]] RuleFamily fmmuRules();
[[nodiscard]] RuleFamily clockRules();
[[nodiscard]] RuleFamily pdoRules();
[[nodiscard]] RuleFamily startupRules();
[[nodiscard]] RuleFamily slotRules();
[[nodiscard]] RuleFamily moduleRules();
[[nodiscard]] RuleFamily dictionaryRules();
[[nodiscard]] RuleFamily dictionarySizeRules();
[[nodiscard]] RuleFamily dictionaryDefaultRules();
[[nodiscard]] RuleFamily pdoDictionaryRules();
[[nodiscard]] RuleFamily startupDictionaryRules();
[[nodiscard]] RuleFamily ktlRules();
[[nodiscard]] RuleFamily valueRules();
[[nodiscard]] RuleFamily encodingRules();
[[nodiscard]] RuleFamily schemaRules();

} // namespace check
