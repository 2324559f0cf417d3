// ktlInput.h - reading the KTL files that the user names.
#pragma once

#include "cli/inputFault.h"
#include "cli/messages.h"

#include <QFile>
#include <QString>

#include <optional>
#include <vector>

namespace cli {

/// Size of the largest KTL file that is read, in bytes. Exports of whole machines reach a few megabytes, and a file
/// that is shown is held in memory.
inline constexpr int maxKtlFileSize = 256 * 1024 * 1024;

/// Reads a KTL file that is open for reading, up to its end or to an item head that cannot be right: what follows such
/// a head has no meaning.
/// @param bytes  takes what was read
/// @return       why the file cannot be read: it may be too large
[[nodiscard]] std::optional<InputFault> readKtl(QFile& file, std::vector<unsigned char>& bytes);

/// As above.
/// @param path  for messages
/// @return      nothing if it cannot be read or is too large; that has been reported
[[nodiscard]] std::optional<std::vector<unsigned char>> readKtl(QFile& file, const QString& path, Messages& messages);

} // namespace cli
