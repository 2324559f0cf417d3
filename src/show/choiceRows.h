// choiceRows.h - the numbers by which choices files name PDOs and startup commands. Choices are made after the device
// was selected once, which brings in again what its modules bring.
#pragma once

#include "model/deviceRecords.h"
#include "show/startupSource.h"

#include <cstdint>
#include <optional>

namespace show {

/// Number of the first PDO of each list of a device, in its list of PDOs; nothing where selecting the device would
/// change the list.
struct ChoicePdoRows
{
    std::optional<std::int64_t> outputs;
    std::optional<std::int64_t> inputs;
    std::optional<std::int64_t> moduleOutputs;
    std::optional<std::int64_t> moduleInputs;
};

/// Whether what the modules in the slots bring in is the same after the device has been selected: the same PDOs, and
/// the same startup commands in the module list.
/// @param device  lends its PDOs and slots for a moment, and is as before afterwards
[[nodiscard]] bool isSameAfterSelection(struct_EtherCatDevice& device);

/// @param isSame  see `isSameAfterSelection`
[[nodiscard]] ChoicePdoRows choicePdoRows(const struct_EtherCatDevice& device, bool isSame);

/// Gives each source of a device its row in the list of startup commands, as far as rows reach.
/// @param isSame  see `isSameAfterSelection`; if not, the commands of the module list get none
void setChoiceRows(StartupSources& sources, const struct_EtherCatDevice& device, bool isSame);

} // namespace show
