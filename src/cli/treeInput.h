// treeInput.h - ESI files with their trees, and KTL files, as the user names them.
#pragma once

#include "check/encodingFault.h"
#include "cli/inputFault.h"
#include "cli/inputFile.h"
#include "esi/esiFile.h"

#include <QString>

#include <optional>
#include <vector>

namespace cli {

/// A file that was read for what is in it and where.
struct TreeInput
{
    std::optional<InputFault> fault; ///< why there is nothing of it
    std::optional<xml::Tree> tree; ///< of an ESI file
    struct_FilenameDevice record; ///< of an ESI file, dictionaries left out
    std::optional<check::EncodingFault> encodingFault;
    std::vector<bool> areComplete; ///< of an ESI file, see `completeDevices`
    EsiRoad road = EsiRoad::Plain;
    std::vector<unsigned char> bytes; ///< of a KTL file
    bool isOutOfMemory = false;
};

/// Reads a file.
/// @param path  as the user gave it, "-" for standard input
[[nodiscard]] TreeInput readTreeInput(const QString& path, AcceptedInputs accepted);

} // namespace cli
