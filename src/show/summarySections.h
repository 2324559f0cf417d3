// summarySections.h - the sections of the summary of a device. A section has no part for what says nothing.
#pragma once

#include "show/summaryDevice.h"
#include "show/summaryPart.h"

namespace show {

/// Type, name, class and drive axes.
[[nodiscard]] SummaryParts identitySection(const SummaryDevice& device);

/// Operation modes of the distributed clocks, the chosen one marked.
[[nodiscard]] SummaryParts clockSection(const SummaryDevice& device);

/// Sync managers with their use, and FMMUs.
[[nodiscard]] SummaryParts channelSection(const SummaryDevice& device);

/// The process image, and the PDOs that are not in it.
[[nodiscard]] SummaryParts pdoSection(const SummaryDevice& device);

/// Startup commands by transition.
[[nodiscard]] SummaryParts startupSection(const SummaryDevice& device);

/// Slots and what is in them, and the module blocks of a KTL file.
[[nodiscard]] SummaryParts slotSection(const SummaryDevice& device);

/// How much is in the dictionary.
[[nodiscard]] SummaryParts dictionarySection(const SummaryDevice& device);

} // namespace show
