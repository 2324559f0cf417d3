#include "check/rules/rules.h"

#include "check/rules/ruleFamilies.h"

#include <algorithm>

namespace check {

namespace {

std::vector<const Rule*> collectRules()
{
    std::vector<const Rule*> rules;
    for (const RuleFamily& family :
         {fileRules(), encodingRules(), identityRules(), valueRules(), syncManagerRules(), memoryRules(), fmmuRules(),
          clockRules(), pdoRules(), pdoDictionaryRules(), startupRules(), startupDictionaryRules(), slotRules(),
          moduleRules(), dictionaryRules(), dictionarySizeRules(), dictionaryDefaultRules(), schemaRules(), ktlRules()})
        for (const Rule& rule : family)
            rules.push_back(&rule);
    return rules;
}

} // namespace

const std::vector<const Rule*>& allRules()
{
    static const std::vector<const Rule*> rules = collectRules();
    return rules;
}

const Rule* ruleNamed(std::string_view code)
{
    const std::vector<const Rule*>& rules = allRules();
    const auto found =
        std::find_if(rules.begin(), rules.end(), [code](const Rule* rule) { return rule->code == code; });
    return found == rules.end() ? nullptr : *found;
}

} // namespace check
