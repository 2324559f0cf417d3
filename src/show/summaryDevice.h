// summaryDevice.h - what the sections of a summary are told about a device.
#pragma once

#include "facts/ktlFacts.h"
#include "facts/processImage.h"
#include "facts/unitFacts.h"
#include "model/deviceRecords.h"
#include "show/shownDevice.h"

namespace show {

/// A device of which a summary is made. All that it refers to has to outlive it.
struct SummaryDevice
{
    const facts::UnitFacts& unit;
    const facts::PresetPdos& preset; ///< of modules that a KTL file presets
    const facts::ProcessImage& image;
    const ShownDevice& carried; ///< as the controller gets it
    const struct_EtherCatDevice* model; ///< null for a device of a KTL file
};

} // namespace show
