// words.h - the words for parts of devices in differences.
#pragma once

#include "facts/unitFacts.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace diff {

/// A part with its name, where it has one: `PDO 0x1a00 "Inputs"`.
[[nodiscard]] std::string named(std::string part, std::string_view name);

/// `TxPdo 0x1a00 "Inputs"`.
[[nodiscard]] std::string pdoWords(bool isInput, std::uint16_t index, std::string_view name);

/// "0x6000:1".
[[nodiscard]] std::string objectWords(std::uint32_t index, std::uint32_t subIndex);

/// "0x7e570002:0x5001:0x30001".
[[nodiscard]] std::string identityWords(const facts::UnitFacts& device);

} // namespace diff
