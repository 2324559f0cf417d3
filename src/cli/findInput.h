// findInput.h - the files that `ktl find` looks through.
#pragma once

#include "cli/inputFault.h"
#include "find/filter.h"
#include "find/found.h"

#include <QString>

#include <optional>
#include <vector>

namespace cli {

/// A file that was looked through.
struct FoundInput
{
    std::vector<find::Found> found; ///< what fits the filter
    bool isKtl = false;
    std::optional<InputFault> fault; ///< why there may be no more
    bool isOutOfMemory = false;
};

/// Looks through a file.
/// @param path     as the user would name it, "-" for standard input
/// @param isNamed  whether the user named it: what is in a folder, and neither an ESI nor a KTL file, is passed over
[[nodiscard]] FoundInput findIn(const QString& path, bool isNamed, const find::Filter& filter);

} // namespace cli
