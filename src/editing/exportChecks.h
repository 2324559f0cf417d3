// exportChecks.h - what is said before an export, and the file name that it proposes.
#pragma once

#include "model/deviceRecords.h"

#include <QString>
#include <QStringList>

/// Warnings about what the controller cannot handle, in the order in which they are shown; empty if there are none.
/// No limit stops an export: these are warnings and nothing more.
[[nodiscard]] QStringList exportWarnings(const struct_EtherCatDevice& device);

/// Proposed name of a KTL file, without extension and at most 20 characters long: the name of the ESI file up to its
/// first dot, at most 15 characters, then "-" and the vendor id.
[[nodiscard]] QString proposedKtlName(const struct_FilenameDevice& file);
