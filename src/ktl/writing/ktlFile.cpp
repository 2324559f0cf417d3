#include "ktl/writing/ktlFile.h"

#include "ktl/ktlExport.h"

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace {

FileHandle openFile(const std::string& path, const char* mode)
{
    return FileHandle(std::fopen(path.c_str(), mode));
}

std::string lastSystemError()
{
    return std::generic_category().message(errno);
}

/// A path as far as the C library reads it.
std::string asTheSystemReads(const std::string& path)
{
    return path.substr(0, path.find('\0'));
}

/// Closes a file that was written.
/// @return  why not everything that was written has reached the file; nothing if it has
std::optional<std::string> closeWritten(FileHandle file)
{
    const bool wasClean = std::ferror(file.get()) == 0; // else errno is still that of the write that failed last
    const std::string earlier = wasClean ? std::string() : lastSystemError();
    const bool isFlushed = std::fclose(file.release()) == 0;
    if (!wasClean)
        return earlier;
    return isFlushed ? std::nullopt : std::make_optional(lastSystemError());
}

KtlSaveResult writeKtl(const std::string& path, KtlSaveMode mode,
                       const std::function<bool(std::FILE* out, int* errorCode)>& writeRun)
{
    FileHandle file = openFile(path, mode == KtlSaveMode::Append ? "ab" : "wb");
    if (file == nullptr)
        return {KtlSaveStatus::CannotWrite, lastSystemError()};
    try {
        int errorCode = 0;
        const bool reachedEnd = writeRun(file.get(), &errorCode);
        const std::optional<std::string> failure = closeWritten(std::move(file));
        return {reachedEnd && !failure.has_value() ? KtlSaveStatus::Saved : KtlSaveStatus::CannotWrite,
                failure.value_or(std::string())};
    } catch (const std::out_of_range& error) {
        // A PDO on a sync manager that its device does not have: the stream ends in the middle of that device.
        return {KtlSaveStatus::CannotWrite, error.what()};
    }
}

KtlSaveResult writeDump(const std::string& path)
{
    FileHandle ktl = openFile(path, "rb");
    if (ktl == nullptr)
        return {KtlSaveStatus::CannotReopen, lastSystemError()};
    FileHandle log = openFile(dumpPathOf(path), "w+");
    if (log == nullptr)
        return {KtlSaveStatus::CannotWriteDump, lastSystemError()};
    int errorCode = 0;
    // The dump's own result is no failure of the export: it is about items before an appended run.
    static_cast<void>(KTL_write_log_devices(log.get(), ktl.get(), &errorCode));
    ktl.reset();
    const std::optional<std::string> failure = closeWritten(std::move(log));
    return {failure.has_value() ? KtlSaveStatus::CannotWriteDump : KtlSaveStatus::Saved,
            failure.value_or(std::string())};
}

} // namespace

std::string dumpPathOf(const std::string& ktlPath)
{
    return ktlPath + ".txt";
}

KtlSaveResult saveKtlFile(const std::string& path, KtlSaveMode mode,
                          const std::function<bool(std::FILE* out, int* errorCode)>& writeRun)
{
    const KtlSaveResult written = saveKtlFileOnly(path, mode, writeRun);
    return written.status == KtlSaveStatus::Saved ? writeDump(asTheSystemReads(path)) : written;
}

KtlSaveResult saveKtlFileOnly(const std::string& path, KtlSaveMode mode,
                              const std::function<bool(std::FILE* out, int* errorCode)>& writeRun)
{
    return writeKtl(asTheSystemReads(path), mode, writeRun);
}
