#include "check/checkFile.h"

#include "check/esiFacts.h"
#include "check/ktlFacts.h"
#include "check/report.h"
#include "check/rules.h"
#include "esi/xml/placeCursor.h"

#include <algorithm>
#include <tuple>

namespace check {

namespace {

template<typename Facts> Findings findingsIn(const Facts& facts, void (*RuleChecks::*ofFile)(const Facts&, Report&))
{
    Report report;
    for (const Rule* const rule : allRules()) {
        if (rule->checks.*ofFile != nullptr) {
            report.turnTo(*rule, {});
            (rule->checks.*ofFile)(facts, report);
        }
        if (rule->checks.ofUnit != nullptr)
            for (const UnitFacts& unit : facts.units) {
                report.turnTo(*rule, unit.owner);
                rule->checks.ofUnit(unit, report);
            }
    }
    return report.take();
}

} // namespace

Findings checkEsi(const EsiSubject& subject)
{
    const EsiFacts facts = esiFactsOf(subject);
    Findings findings = findingsIn(facts, &RuleChecks::ofEsi);
    xml::PlaceCursor cursor(subject.tree);
    bool isInOrder = true;
    for (Finding& finding : findings.list)
        if (finding.place.line == 0)
            finding.place = cursor.moveTo(finding.where);
        else
            isInOrder = false;
    if (!isInOrder)
        std::stable_sort(findings.list.begin(), findings.list.end(), [](const Finding& left, const Finding& right) {
            return std::tie(left.place.line, left.place.column) < std::tie(right.place.line, right.place.column);
        });
    return findings;
}

Findings checkKtl(const std::vector<unsigned char>& bytes)
{
    return findingsIn(ktlFactsOf(bytes), &RuleChecks::ofKtl);
}

} // namespace check
