// unitLabels.h - the words for parts of units in findings.
#pragma once

#include "check/factNames.h"

#include <QString>

#include <cstdint>
#include <string_view>

namespace check {

/// A text of a file as findings show it: in quotation marks, cut where it is longer than people read.
[[nodiscard]] QString shown(std::string_view text);

/// "1 byte", "2 bytes".
[[nodiscard]] QString counted(std::int64_t number, const char* what);

/// "PDO 0x1a00".
[[nodiscard]] QString labelOf(const PdoFacts& pdo);

/// "0x6000:1".
[[nodiscard]] QString objectText(std::uint32_t index, std::uint32_t subIndex);

/// "the command for 0x1c12:0".
[[nodiscard]] QString labelOf(const CommandFacts& command);

} // namespace check
