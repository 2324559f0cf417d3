// esiFile.h - loads one ESI file into a record; serves the window and the command line alike.
#pragma once

#include "model/deviceRecords.h"

#include <QDomDocument>
#include <QFile>
#include <QString>

/// How loading a file ended.
enum class EsiLoadStatus
{
    Loaded,
    CannotOpen,
    NotWellFormed, ///< or beyond a limit
    NotEsi, ///< well-formed, but without a `Vendor` element
};

/// Why a file was not loaded.
struct EsiLoadReason
{
    QString text; ///< in the words of the system or of the parser, or the limit; empty for a file that is no ESI file
    int line = 0; ///< from 1; 0 if it is about no place
    int column = 0; ///< from 1; 0 if it is about no place
};

/// Result of loading a file.
struct EsiLoadResult
{
    EsiLoadStatus status = EsiLoadStatus::Loaded;
    EsiLoadReason reason;
    struct_FilenameDevice file; ///< all that was read, passes included; cleared unless the file was loaded
};

/// Reads a document into a record, derivation passes included.
/// @param path  stored unchanged as the file's path
/// @throws MissingSyncManager, a std::out_of_range, if a PDO names a sync manager that its device does not declare
[[nodiscard]] EsiLoadResult fileFrom(const QDomDocument& document, const QString& path);

/// Reads an ESI file. Files that are loaded one after the other know nothing of each other.
/// @param path      stored unchanged as the file's path
/// @param document  takes the parse tree; whoever frees it decides when that time is spent
/// @throws MissingSyncManager as `fileFrom`
[[nodiscard]] EsiLoadResult loadEsiFile(const QString& path, QDomDocument& document);

/// As `loadEsiFile`, for a file that is open for reading, such as standard input; it is read to its end and not closed.
[[nodiscard]] EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path, QDomDocument& document);
