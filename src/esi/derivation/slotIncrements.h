// slotIncrements.h - the steps from slot to slot in one form.
#pragma once

#include "model/deviceRecords.h"

/// Puts the slot increments of a device into one form, and counts the axes of a multi-axis drive by its slots.
void completeSlots(struct_EtherCatDevice& device);
