// showSource.h - the files that `ktl show` is given, told apart by what is in them.
#pragma once

#include "cli/messages.h"
#include "cli/show/showDevice.h"
#include "ktl/ktlItemWalk.h"

#include <QString>

#include <optional>
#include <vector>

/// A file that is shown.
struct ShownFile
{
    QString path; ///< as the user gave it, "-" for standard input
    bool isComplete = false; ///< whether all of it could be read
    bool isEsi = false; ///< an ESI file stands in `g_xmlfiledevices`, alone; else this is a KTL file
    std::vector<unsigned char> bytes; ///< of a KTL file
    KtlWalk walk; ///< the items in `bytes`
    std::vector<ShownDevice> devices; ///< of an ESI file, those that an export of it would hold
};

/// Reads an ESI or KTL file; tells what is wrong with it. A file whose first character is "<", blanks and a byte order
/// mark apart, is an ESI file, one that begins with an item of the KTL format a KTL file.
/// @return  nothing if nothing of the file can be shown
[[nodiscard]] std::optional<ShownFile> openShownFile(const QString& path, Messages& messages);
