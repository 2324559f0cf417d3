// ktlScan.h - what is found in a KTL file.
#pragma once

#include "find/found.h"
#include "ktl/reading/ktlItemWalk.h"

#include <QIODevice>

#include <vector>

namespace find {

/// What is found in a KTL file.
struct KtlScan
{
    std::vector<Found> found; ///< with the offsets of the items that open them
    bool isTooMuch = false; ///< there are more than `maxFound`
    KtlWalk end; ///< how the items end, and where; without the items
};

/// Goes from item to item, and reads those that say what a device or module is.
/// @param file  open for reading at its start; places in it can be sought
[[nodiscard]] KtlScan scanKtl(QIODevice& file, Wanted wanted);

/// Whether a file begins with a device, after End items of runs that are empty. Many files begin with zeros, which are
/// the code of an End item; a KTL file without a device holds nothing to find.
/// @param file  as above; another place in it is read next
[[nodiscard]] bool beginsWithDevice(QIODevice& file);

} // namespace find
