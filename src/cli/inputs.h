// inputs.h - what a run has read.
#pragma once

#include "esi/esiFile.h"
#include "model/deviceRecords.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace cli {

/// The files that were loaded, in the order of the arguments. `main` owns it, so that nothing of it is freed piece by
/// piece before the process ends.
struct Inputs
{
    std::vector<struct_FilenameDevice> files;
    std::size_t throughDocuments = 0; ///< ESI files that were not plain enough to be read straight from their bytes

    void count(EsiRoad road) { throughDocuments += road == EsiRoad::Document ? 1 : 0; }
    void add(EsiLoadResult loaded)
    {
        count(loaded.road);
        files.push_back(std::move(loaded.file));
    }
};

} // namespace cli
