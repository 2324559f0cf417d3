// compareDevices.h - what differs between two files, device by device.
#pragma once

#include "diff/difference.h"
#include "diff/pairing.h"
#include "diff/source.h"
#include "facts/unitFacts.h"

#include <QString>

#include <functional>
#include <vector>

namespace diff {

/// Devices that were compared, or one that has no partner; neither for the modules of the files.
struct ComparedDevices
{
    const facts::UnitFacts* before = nullptr;
    const facts::UnitFacts* after = nullptr;
    std::vector<Difference> differences;
    QString problem; ///< why they could not be compared; empty if they could
};

/// What is asked of a comparison.
struct CompareRequest
{
    std::vector<Pair> pairs; ///< of devices, by their places in the files
    bool comparesModules = true; ///< those of two ESI files
    bool isOfAll = false; ///< also what a KTL file cannot have
    Weight least = Weight::Text; ///< differences that weigh less are left out
};

/// Compares two files.
/// @param take  gets each pair of devices in its turn, those without a difference too, then the modules
void compareSources(Source& before, Source& after, const CompareRequest& request,
                    const std::function<void(const ComparedDevices& compared)>& take);

} // namespace diff
