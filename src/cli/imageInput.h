// imageInput.h - the files that `ktl image` is given.
#pragma once

#include "cli/treeInput.h"
#include "image/imageRows.h"

#include <QString>

#include <optional>

namespace cli {

/// The process images of a file. What it holds itself is no longer there.
struct ImageInput
{
    image::File file; ///< its devices have no numbers yet
    std::optional<InputFault> fault; ///< why there is nothing of it
    QString problemAtEnd; ///< of a KTL file, see `cli::problemAtEnd`
    EsiRoad road = EsiRoad::Plain;
    bool isOutOfMemory = false;
};

/// The process images of a file that was read.
/// @param record  of an ESI file, with the choices that are to be made
[[nodiscard]] ImageInput imageInputOf(const QString& path, const TreeInput& input, const struct_FilenameDevice& record);

} // namespace cli
