// esiFileFacts.h - what is known of an ESI file.
#pragma once

#include "esi/fileElements.h"
#include "esi/xml/tree.h"
#include "facts/dictionary/dictionaryFacts.h"
#include "facts/unitFacts.h"
#include "model/deviceRecords.h"

#include <deque>
#include <vector>

namespace facts {

/// An ESI file. It refers to the tree and the record that it is made of.
struct EsiFileFacts
{
    xml::Element vendor; ///< the first `Vendor`, or the root of a file without one
    std::vector<DeviceElements> devices; ///< in the order of the record's
    std::vector<xml::Element> modules; ///< in the order of the record's
    std::deque<DictionaryFacts> dictionaries; ///< of devices and modules that have one
    std::vector<UnitFacts> units; ///< the devices, then the modules
};

/// The facts of an ESI file.
/// @param tree         of the whole file; has to outlive the facts, as the record has to
/// @param file         what was read of the tree, with the choices that are to be made
/// @param areComplete  by device, see `completeDevices`
[[nodiscard]] EsiFileFacts esiFileFactsOf(const xml::Tree& tree, const struct_FilenameDevice& file,
                                          const std::vector<bool>& areComplete);

} // namespace facts
