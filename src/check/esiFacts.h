// esiFacts.h - what rules need to know of an ESI file.
#pragma once

#include "check/checkFile.h"
#include "check/factNames.h"
#include "check/schema/treeFacts.h"
#include "facts/esiFileFacts.h"

#include <vector>

namespace check {

/// An ESI file with what rules look at besides its devices and modules.
struct EsiFacts : facts::EsiFileFacts
{
    explicit EsiFacts(const EsiSubject& checked);

    const EsiSubject& subject;
    std::vector<SlotFacts> allSlots; ///< of all devices
    ModuleLookUp moduleLookUp; ///< of the modules among `units`
    TreeFacts tree; ///< of all elements
};

} // namespace check
