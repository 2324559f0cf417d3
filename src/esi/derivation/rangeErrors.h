// rangeErrors.h - the words for a PDO on a sync manager that its device does not have.
#pragma once

#include <QString>

#include <stdexcept>

/// The words for a PDO on a sync manager that its device does not have.
/// @param error  a `MissingSyncManager`, or another range error
[[nodiscard]] QString rangeErrorText(const std::out_of_range& error);
