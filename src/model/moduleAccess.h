// moduleAccess.h - the modules of a file, whichever group they are in.
#pragma once

#include "model/deviceRecords.h"

/// Calls `visit(module)` for each module of a file, in document order.
/// @param file  const or not, and so is the module then
template<typename File, typename Visit> void forEachModule(File& file, Visit visit)
{
    for (auto& group : file.vcommentmodule)
        for (auto& module : group.vmodule)
            visit(module);
}
