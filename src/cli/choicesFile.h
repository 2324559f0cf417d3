// choicesFile.h - the choices file of a conversion.
#pragma once

#include "choices/apply.h"
#include "choices/deviceSelectors.h"
#include "cli/messages.h"
#include "model/XMLParsing.h"

#include <QString>

#include <optional>
#include <set>
#include <vector>

namespace cli {

/// Reads a choices file and makes its choices. All that is wrong with it is told, and what the window would warn of.
/// @param path     "-" for standard input
/// @param written  the devices that will be written; choices for other devices are warned of
/// @return  what was made; nothing if not all choices are, and the files are of no use then
[[nodiscard]] std::optional<choices::MadeChoices> applyChoicesFile(const QString& path,
                                                                   std::vector<struct_FilenameDevice>& files,
                                                                   Messages& messages,
                                                                   const std::set<choices::DevicePosition>& written);

} // namespace cli
