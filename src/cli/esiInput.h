// esiInput.h - ESI files as the user names them.
#pragma once

#include "cli/inputs.h"
#include "cli/messages.h"
#include "model/deviceRecords.h"

#include <QDomDocument>
#include <QFile>
#include <QString>
#include <QStringList>

#include <optional>

namespace cli {

/// Loads an ESI file that is open for reading; reports what is wrong if it cannot be loaded.
/// @param path      for messages, and as the path of the loaded file
/// @param document  takes the parse tree
/// @return          nothing if it cannot be loaded
[[nodiscard]] std::optional<struct_FilenameDevice> loadOpenEsi(QFile& file, const QString& path, QDomDocument& document,
                                                               Messages& messages);

/// Loads ESI files into `inputs`, in the given order. Every file that cannot be loaded is reported, so that one run
/// shows all that is wrong. Standard input can be given once.
/// @return  whether all were loaded
[[nodiscard]] bool loadEsiFiles(const QStringList& paths, Inputs& inputs, Messages& messages);

} // namespace cli
