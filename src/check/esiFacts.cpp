#include "check/esiFacts.h"

namespace check {

EsiFacts::EsiFacts(const EsiSubject& checked)
    : EsiFileFacts(facts::esiFileFactsOf(checked.tree, checked.file, checked.areComplete))
    , subject(checked)
    , allSlots(slotsOf(checked.file, devices))
    , moduleLookUp(checked.file, units)
    , tree(treeFactsOf(checked.tree, devices, modules))
{}

} // namespace check
