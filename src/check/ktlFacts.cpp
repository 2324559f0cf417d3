#include "check/ktlFacts.h"

namespace check {

KtlFacts ktlFactsOf(const std::vector<unsigned char>& bytes)
{
    KtlFacts facts;
    facts.walk = walkItems(bytes);
    facts.places = blockPlacesOf(facts.walk);
    return facts;
}

} // namespace check
