// inputFile.h - opening the files that the user names on the command line.
#pragma once

#include "cli/inputFault.h"
#include "cli/inputKind.h"
#include "cli/messages.h"

#include <QFile>
#include <QString>

#include <cstdint>
#include <optional>

namespace cli {

/// What a sub-command takes.
enum class AcceptedInputs : std::uint8_t
{
    Esi,
    EsiAndKtl,
};

/// Reports that a file cannot be read.
/// @param reason  in the system's words
void reportUnreadable(const QString& path, const QString& reason, Messages& messages);

/// Reports that there is not enough memory for a file.
void reportNoMemory(const QString& path, Messages& messages);

/// Opens a file, or standard input, for reading.
/// @param file  takes the path; closed before
/// @return      why that is not possible
[[nodiscard]] std::optional<InputFault> openInput(QFile& file, const QString& path);

/// As above; reports it if that is not possible.
[[nodiscard]] bool openInput(QFile& file, const QString& path, Messages& messages);

/// The kind of a file that is open for reading, by its first bytes; it can be read from its start afterwards.
/// @param kind  takes the kind
/// @return      why it cannot be read
[[nodiscard]] std::optional<InputFault> findKind(QFile& file, InputKind& kind);

/// As above.
/// @param path  for messages
/// @return      nothing if it cannot be read; that has been reported
[[nodiscard]] std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages);

/// Opens a file and finds its kind. Where ESI files alone are taken, one that is of neither kind, or empty, passes for
/// one: the XML parser knows best what is wrong with a text.
/// @param kind  takes the kind, Esi or Ktl
/// @return      why the file cannot be read, or is not taken
[[nodiscard]] std::optional<InputFault> openAccepted(QFile& file, const QString& path, AcceptedInputs accepted,
                                                     InputKind& kind);

} // namespace cli
