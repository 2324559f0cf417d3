// smLengths.h - the working lengths of a device's sync managers.
#pragma once

#include "model/deviceRecords.h"

/// Computes the working length of each sync manager of a device that was just read: a mailbox gets its default size,
/// and each PDO adds its size.
/// @throws std::out_of_range if a PDO names a sync manager that the device does not declare
void computeLengths(struct_EtherCatDevice& device);

/// Computes the length of each sync manager that is no mailbox again, from the PDOs that are assigned to it now, those
/// of modules too. Only PDOs of the sync manager's own direction count.
/// @throws std::out_of_range if a PDO names a sync manager that the device does not declare
void updateProcessDataLengths(struct_EtherCatDevice& device);
