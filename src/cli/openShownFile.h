// openShownFile.h - the files that `ktl show` is given.
#pragma once

#include "cli/inputReader.h"
#include "cli/messages.h"
#include "show/shownFile.h"

#include <QString>

#include <memory>

namespace cli {

/// Makes a file that was read ready to be shown; reports what is wrong with it, and with a device when that is first
/// asked for.
/// @param path      as the user gave it, "-" for standard input
/// @param messages  must outlive the result
/// @return  null if nothing of the file can be shown
/// @throws  std::bad_alloc; so do its devices
[[nodiscard]] std::unique_ptr<show::ShownFile> openShownFile(ReadInput input, const QString& path, Messages& messages);

} // namespace cli
