// esiFile.h - loads one ESI file into a record; serves the window and the command line alike.
#pragma once

#include "esi/sections/dictionaries.h"
#include "esi/xml/tree.h"
#include "model/deviceRecords.h"

#include <QDomDocument>
#include <QFile>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// The way from the bytes of a file to its record.
enum class EsiRoad : std::uint8_t
{
    Document, ///< through a document, which any file can go
    Plain, ///< without one
};

/// Result of loading a file.
struct EsiLoadResult
{
    EsiLoadStatus status = EsiLoadStatus::Loaded;
    EsiLoadReason reason;
    struct_FilenameDevice file; ///< all that was read, passes included; cleared unless the file was loaded
    EsiRoad road = EsiRoad::Document; ///< which does not show in anything else
};

/// Result of reading a file as far as its tree.
struct EsiTreeResult
{
    EsiLoadStatus status = EsiLoadStatus::Loaded;
    EsiLoadReason reason;
    std::optional<xml::Tree> tree; ///< if it was loaded
    EsiRoad road = EsiRoad::Document;
};

/// Reads a file as far as its tree, within the limits of ESI files. Whether it is one is not asked.
[[nodiscard]] EsiTreeResult esiTreeOf(const std::string& bytes);

/// As above, a file that is open for reading, from its place to its end.
/// @param lookAt  called with all bytes of the file before they are read, unless it is larger than files may be; may
///                be null
[[nodiscard]] EsiTreeResult esiTreeOf(QFile& file, const std::function<void(std::string_view bytes)>& lookAt);

/// Makes the record of what a file declares, without what the derivation passes add. It is complete when
/// `completeFile` has gone over it.
[[nodiscard]] EsiLoadResult declaredFileFrom(const xml::Tree& tree, const QString& path, Dictionaries dictionaries);

/// Runs the derivation passes over what a file declares.
/// @throws MissingSyncManager as `fileFrom`; what was done until then stays
void completeFile(struct_FilenameDevice& file);

/// As above for each device by itself: where one ends in that error the others go on.
/// @return  for each device whether all passes went over it
std::vector<bool> completeDevices(struct_FilenameDevice& file);

/// Makes the record of a file, derivation passes included.
/// @param path  stored unchanged as the file's path
/// @throws MissingSyncManager, a std::out_of_range, if a PDO names a sync manager that its device does not declare
[[nodiscard]] EsiLoadResult fileFrom(const xml::Tree& tree, const QString& path, Dictionaries dictionaries);

/// As above, with all that is in a document.
[[nodiscard]] EsiLoadResult fileFrom(const QDomDocument& document, const QString& path);

/// Reads an ESI file through a document. Files that are loaded one after the other know nothing of each other.
/// @param path      stored unchanged as the file's path
/// @param document  takes what the file holds
/// @throws MissingSyncManager as `fileFrom`
[[nodiscard]] EsiLoadResult loadEsiFile(const QString& path, QDomDocument& document);

/// Reads an ESI file that is open for reading at its start, such as standard input, to its end, and does not close it.
/// A plain file is read straight from its bytes, any other one through a document; the result is the same.
/// Files can be read in several threads at once.
/// @param path  stored unchanged as the file's path
/// @throws MissingSyncManager as `fileFrom`
[[nodiscard]] EsiLoadResult loadOpenEsiFile(QFile& file, const QString& path, Dictionaries dictionaries);
