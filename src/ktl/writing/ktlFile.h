// ktlFile.h - writes a KTL file to disk with its text dump beside it; serves the window and the command line alike.
#pragma once

#include "system/fileHandle.h"

#include <cstdio>
#include <functional>
#include <string>

/// What happens to a file that exists.
enum class KtlSaveMode
{
    Overwrite,
    Append, ///< the run is added after what the file holds
};

/// How saving ended. All but the first leave something undone.
enum class KtlSaveStatus
{
    Saved,
    CannotWrite, ///< the file cannot be opened, or not be written in full: it stays as far as it was written, no dump
    CannotReopen, ///< the file is complete, but cannot be read again for the dump
    CannotWriteDump, ///< the file is complete, the dump is missing or cut short
};

/// Result of saving.
struct KtlSaveResult
{
    KtlSaveStatus status = KtlSaveStatus::Saved;
    std::string reason; ///< why, in the words of the system or of the writer; may be empty
};

/// Path of the text dump of a KTL file: the same with ".txt" after it.
[[nodiscard]] std::string dumpPathOf(const std::string& ktlPath);

/// Writes a KTL file, closes it, opens it again and writes its dump from what is on disk. A full disk shows at
/// the latest when a file is closed: a failure.
/// @param path      in the file system's encoding, up to its first zero byte
/// @param writeRun  writes the items as `KTL_write_devices` does; an out-of-range error is a failure
[[nodiscard]] KtlSaveResult saveKtlFile(const std::string& path, KtlSaveMode mode,
                                        const std::function<bool(std::FILE* out, int* errorCode)>& writeRun);

/// As `saveKtlFile`, but without the dump.
[[nodiscard]] KtlSaveResult saveKtlFileOnly(const std::string& path, KtlSaveMode mode,
                                            const std::function<bool(std::FILE* out, int* errorCode)>& writeRun);
