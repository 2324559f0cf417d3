// esiFile.h - loads one ESI file into the model; serves the window and the command line alike.
#pragma once

#include "esi/boundedXmlReader.h"

#include <QFile>
#include <QString>

/// How loading a file ended.
enum class EsiLoadStatus
{
    Loaded,
    CannotOpen, ///< see `EsiLoadResult::openError`
    NotWellFormed, ///< or beyond a limit; see `EsiLoadResult::formatError`
    NotEsi, ///< well-formed, but without a `Vendor` element
};

/// Result of loading a file.
struct EsiLoadResult
{
    EsiLoadStatus status = EsiLoadStatus::Loaded;
    QString openError; ///< why the file cannot be opened, in the system's words
    XmlFormatError formatError;
};

/// Reads an ESI file into one record at the end of `g_xmlfiledevices`; on failure the list is unchanged.
/// @param path  stored unchanged as the file's path
/// @throws MissingSyncManager, a std::out_of_range, if a PDO names a sync manager that its device does not declare
[[nodiscard]] EsiLoadResult loadEsiFile(const QString& path);

/// As `loadEsiFile`, for a file that is open for reading, such as standard input; it is read to its end and not closed.
[[nodiscard]] EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path);
