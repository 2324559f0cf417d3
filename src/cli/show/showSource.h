// showSource.h - the files that `ktl show` is given, told apart by what is in them.
#pragma once

#include "cli/messages.h"
#include "cli/show/shownDevices.h"
#include "ktl/ktlItemWalk.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

/// A file that is shown. It stays at its place in memory, since its devices are made from it.
struct ShownFile
{
    ShownFile() = default;
    ~ShownFile() = default;
    ShownFile(const ShownFile&) = delete;
    ShownFile& operator=(const ShownFile&) = delete;
    ShownFile(ShownFile&&) = delete;
    ShownFile& operator=(ShownFile&&) = delete;

    QString path; ///< as the user gave it, "-" for standard input
    bool isComplete = true; ///< false as soon as an error was told; of a device, that is when it is asked for
    bool isEsi = false; ///< an ESI file stands in `g_xmlfiledevices`, alone; else this is a KTL file
    std::vector<unsigned char> bytes; ///< of a KTL file
    KtlWalk walk; ///< the items in `bytes`
    ShownDevices devices; ///< of an ESI file, those that an export of it would hold
};

/// Reads an ESI or KTL file; tells what is wrong with it, and with a device when that is first asked for.
/// @param messages  has to outlive the result
/// @return  null if nothing of the file can be shown
/// @throws  std::bad_alloc; so do its devices
[[nodiscard]] std::unique_ptr<const ShownFile> openShownFile(const QString& path, Messages& messages);

/// Name of a shown file as results have it: `shownName`, with every byte that is there.
[[nodiscard]] std::string shownFileName(const ShownFile& file);
