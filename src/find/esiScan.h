// esiScan.h - what is found in an ESI file.
#pragma once

#include "esi/xml/xmlFormatError.h"
#include "find/found.h"

#include <QIODevice>

#include <optional>
#include <vector>

namespace find {

/// What is found in an ESI file.
struct EsiScan
{
    std::vector<Found> found; ///< as loading gives them; of a broken file those before the broken place
    std::optional<XmlFormatError> fault; ///< why there may be no more
    bool isEsi = false; ///< it has a `Vendor`
    bool looksLikeEsi = false; ///< or its root element is that of ESI files
};

/// Goes through a file, in a memory that does not grow with it.
/// @param file  open for reading at its start; it can be read twice
[[nodiscard]] EsiScan scanEsi(QIODevice& file, Wanted wanted);

} // namespace find
