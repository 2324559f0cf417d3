// assignablePdos.h - which PDOs a sync manager could carry.
#pragma once

#include <cstdint>

/// Whether a sync manager of that type could carry a PDO, by the PDO's index alone.
/// @param smType  3 for outputs, 4 for inputs; any other type carries none
[[nodiscard]] bool isAssignable(std::uint16_t pdoIndex, std::uint8_t smType) noexcept;
