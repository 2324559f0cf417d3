// loadedFiles.h - ESI files in the list of loaded files, as the window has them there.
#pragma once

#include "esi/esiFile.h"
#include "model/XMLParsing.h"

#include <utility>

/// Loads a file to the end of `g_xmlfiledevices`; on failure the list is unchanged.
/// @return  how it ended, without the record
[[nodiscard]] inline EsiLoadResult loadIntoList(const QString& path)
{
    EsiLoadResult result = loadEsiFile(path, domDocument);
    if (result.status == EsiLoadStatus::Loaded)
        g_xmlfiledevices.push_back(std::move(result.file));
    return {result.status, result.reason, {}};
}
