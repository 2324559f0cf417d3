// report.h - collects the findings of rules.
#pragma once

#include "check/finding.h"
#include "check/rules/rule.h"

#include <QString>

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace check {

/// Takes the findings of one file. A rule is asked about one unit after another; what it adds is about that one.
class Report
{
public:
    static constexpr std::size_t maxOfRule = 1000; ///< findings of one rule about one unit that are kept
    static constexpr std::size_t maxOfFile = 200'000; ///< of all rules

    /// What is added from now on is of that rule, and about that unit or about the file.
    void turnTo(const Rule& rule, const Owner& owner);

    /// @param text  without place and owner: "PDO 0x1a00 is on sync manager 5, the device has 4"
    void add(Where where, const QString& text);

    /// As above, about a unit that the rule was not asked about.
    void addAbout(const Owner& owner, Where where, const QString& text);

    /// A finding whose place is known already.
    void add(const xml::Place& place, const QString& text);

    /// Counts findings of this rule that nobody kept.
    void omit(const Owner& owner, std::size_t count);

    /// The findings so far, by `where` and then in the order of adding; the report is empty then.
    [[nodiscard]] Findings take();

private:
    void add(Finding finding);

    const Rule* m_rule = nullptr;
    Owner m_owner;
    std::map<Owner, std::size_t> m_ofRule; ///< added since the last turn
    Findings m_findings;
};

} // namespace check
