// shownDevice.h - a device as a KTL file carries it.
#pragma once

#include "ktl/reading/ktlDeviceBlocks.h"
#include "show/startupSource.h"

namespace show {

/// A device block with the sources of its commands.
struct ShownDevice
{
    KtlDeviceBlock block;
    StartupSources sources; ///< see `sourceAt` for commands that have none
    bool isExported = true; ///< false for a device of an ESI file, which has no time of export
};

} // namespace show
