// profileNumbers.h - the profile numbers of ESI files that tell what a device or module is.
#pragma once

#include <cstdint>

inline constexpr std::uint32_t ioProfile = 0;
inline constexpr std::uint32_t driveProfile = 402;
inline constexpr std::uint32_t modularProfile = 5001;
