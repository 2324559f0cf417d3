// esiSubject.h - devices of ESI files as they are compared.
#pragma once

#include "diff/subject.h"
#include "facts/esiFileFacts.h"
#include "facts/slotFacts.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <vector>

namespace diff {

/// A device of an ESI file. It refers to the facts and to the record.
/// @param slotFacts  of all devices of the file, see `facts::slotsOf`
/// @param index  of the device in the file
[[nodiscard]] Subject esiSubjectOf(const facts::EsiFileFacts& facts, const struct_FilenameDevice& file,
                                   const std::vector<facts::SlotFacts>& slotFacts, std::size_t index);

} // namespace diff
