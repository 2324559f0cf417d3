// inputs.h - what a run has read.
#pragma once

#include "model/deviceRecords.h"

#include <QDomDocument>

#include <vector>

namespace cli {

/// The files that were loaded, in the order of the arguments, and the tree of the last one. `main` owns it, so that
/// nothing of it is freed piece by piece before the process ends, which took a sixth of the whole time.
struct Inputs
{
    std::vector<struct_FilenameDevice> files;
    QDomDocument document;
};

} // namespace cli
