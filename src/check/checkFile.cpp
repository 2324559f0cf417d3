#include "check/checkFile.h"

#include "check/esiFacts.h"
#include "check/factNames.h"
#include "check/rules/report.h"
#include "check/unitNames.h"
#include "esi/xml/placeCursor.h"

#include <algorithm>
#include <utility>

namespace check {

namespace {

template<typename Facts>
Findings findingsIn(const Facts& facts, const std::vector<const Rule*>& rules,
                    void (*RuleChecks::*ofFile)(const Facts&, Report&))
{
    Report report;
    for (const Rule* const rule : rules) {
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

/// Fills in the places of findings and units, in one pass over their file.
void setPlaces(Findings& findings, const xml::Tree& tree)
{
    std::vector<std::pair<Where, xml::Place*>> places;
    places.reserve(findings.list.size() + findings.units.size());
    for (Finding& finding : findings.list)
        if (finding.place.line == 0) // else the rule has given the place
            places.emplace_back(finding.where, &finding.place);
    for (UnitName& unit : findings.units)
        places.emplace_back(unit.where, &unit.place);
    std::sort(places.begin(), places.end());
    xml::PlaceCursor cursor(tree);
    for (const auto& [where, place] : places)
        *place = cursor.moveTo(where);
}

} // namespace

Findings checkEsi(const EsiSubject& subject, const std::vector<const Rule*>& rules)
{
    const EsiFacts facts(subject);
    Findings findings = findingsIn(facts, rules, &RuleChecks::ofEsi);
    findings.units = unitNamesOf(facts.units);
    setPlaces(findings, subject.tree);
    std::stable_sort(findings.list.begin(), findings.list.end(), isBefore); // rules have given some of the places
    return findings;
}

Findings checkKtl(const std::vector<unsigned char>& bytes, const std::vector<const Rule*>& rules)
{
    const facts::KtlFacts facts = facts::ktlFactsOf(bytes);
    Findings findings = findingsIn(facts, rules, &RuleChecks::ofKtl);
    findings.units = unitNamesOf(facts.units);
    return findings;
}

} // namespace check
