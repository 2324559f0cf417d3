// ktlInput.h - KTL files as the user names them.
#pragma once

#include "cli/messages.h"
#include "ktl/reading/ktlItemWalk.h"

#include <QFile>
#include <QString>

#include <optional>
#include <vector>

/// Largest KTL file that is read, in bytes. Exports of whole machines reach a few megabytes, and a file that is shown
/// stands in memory.
inline constexpr int largestKtlFile = 256 * 1024 * 1024;

/// Reads a KTL file that is open for reading, up to its end or to an item head that cannot be right: what follows such
/// a head has no meaning.
/// @param path  for messages
/// @return      nothing if it cannot be read or is too large; that has been told
[[nodiscard]] std::optional<std::vector<unsigned char>> readKtl(QFile& file, const QString& path, Messages& messages);

/// What is wrong with the end of a KTL file, in words; empty if it ends as it should.
[[nodiscard]] QString problemAtEnd(const KtlWalk& walk);
