// dictionaries.h - what becomes of CoE dictionaries when a file is read.
#pragma once

#include <cstdint>

/// CoE dictionaries are most of a file and no part of an export.
enum class Dictionaries : std::uint8_t
{
    AreRead,
    AreSkipped, ///< those of devices and modules stay empty
};
