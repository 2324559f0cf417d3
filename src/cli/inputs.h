// inputs.h - what a run has read.
#pragma once

#include "model/deviceRecords.h"

#include <QDomDocument>

#include <vector>

/// The files that were loaded, in the order of the arguments, and the tree of the last one. `main` owns it, so that
/// nothing of it is freed piece by piece before the process ends: that took a sixth of the whole time.
struct Inputs
{
    std::vector<struct_FilenameDevice> files;
    QDomDocument document;
};
