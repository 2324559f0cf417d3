#include "check/checkFile.h"

#include "check/esiFacts.h"
#include "check/ktlFacts.h"
#include "check/report.h"
#include "check/rules.h"
#include "esi/xml/placeCursor.h"

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
    for (Finding& finding : findings.list)
        finding.place = cursor.moveTo(finding.where);
    return findings;
}

Findings checkKtl(const std::vector<unsigned char>& bytes)
{
    return findingsIn(ktlFactsOf(bytes), &RuleChecks::ofKtl);
}

} // namespace check
