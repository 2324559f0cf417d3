// esiFacts.h - what rules need to know of an ESI file.
#pragma once

#include "check/checkFile.h"
#include "check/dictionary/dictionaryFacts.h"
#include "check/schema/treeFacts.h"
#include "check/slotFacts.h"
#include "check/unitFacts.h"
#include "esi/fileElements.h"
#include "esi/xml/tree.h"

#include <deque>
#include <vector>

namespace check {

/// An ESI file. It refers to the tree and the record that it is made of.
struct EsiFacts
{
    const EsiSubject& subject;
    xml::Element vendor; ///< the first `Vendor`, or the root of a file without one
    std::vector<DeviceElements> devices; ///< in the order of the record's
    std::vector<xml::Element> modules; ///< in the order of the record's
    std::deque<DictionaryFacts> dictionaries; ///< of devices and modules that have one
    std::vector<UnitFacts> units; ///< the devices, then the modules
    std::vector<SlotFacts> allSlots; ///< of all devices
    ModuleLookUp moduleLookUp; ///< of the modules among `units`
    TreeFacts tree; ///< of all elements
};

/// The facts of an ESI file.
/// @param subject  has to outlive the facts
[[nodiscard]] EsiFacts esiFactsOf(const EsiSubject& subject);

} // namespace check
