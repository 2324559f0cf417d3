#include "system/fileMoves.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace os {

namespace {

bool moveOver(const std::string& from, const std::string& to)
{
    return std::rename(from.c_str(), to.c_str()) == 0;
}

/// Whether the last call failed because the file system does not know it.
bool isUnknownCall()
{
    const int reasons[] = {EINVAL, ENOSYS, ENOTSUP, EPERM};
    return std::find(std::begin(reasons), std::end(reasons), errno) != std::end(reasons);
}

/// Holds the place with an empty file, which the file then replaces.
bool moveToHeldPlace(const std::string& from, const std::string& to)
{
    constexpr mode_t readable = 0600;
    const int place = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, readable);
    if (place < 0)
        return false;
    close(place);
    if (moveOver(from, to))
        return true;
    const int reason = errno;
    unlink(to.c_str());
    errno = reason;
    return false;
}

enum class Kept
{
    Done,
    NothingThere,
    Failed,
};

/// Gives the file in a place a second name, where the file system knows such; else copies it.
Kept keep(const FileMove& move)
{
    if (link(move.to.c_str(), move.kept.c_str()) == 0)
        return Kept::Done;
    if (errno == ENOENT)
        return Kept::NothingThere;
    std::error_code error;
    if (std::filesystem::copy_file(move.to, move.kept, error))
        return Kept::Done;
    errno = error.value();
    return Kept::Failed;
}

/// A file that has been moved, and what its place needs to be as before.
struct DoneMove
{
    const FileMove* move;
    bool hadFile;
};

void takeBack(const DoneMove& done)
{
    const FileMove& move = *done.move;
    static_cast<void>(done.hadFile ? moveOver(move.kept, move.to) : moveOver(move.to, move.from));
}

} // namespace

bool moveToFreeName(const std::string& from, const std::string& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (!isUnknownCall())
        return false;
    if (link(from.c_str(), to.c_str()) == 0) {
        unlink(from.c_str());
        return true;
    }
    return isUnknownCall() && moveToHeldPlace(from, to);
}

const FileMove* moveAll(const std::vector<FileMove>& moves)
{
    std::vector<DoneMove> done;
    for (const FileMove& move : moves) {
        const Kept kept = move.replaces ? keep(move) : Kept::NothingThere;
        const bool isMoved =
            kept != Kept::Failed && (move.replaces ? moveOver(move.from, move.to) : moveToFreeName(move.from, move.to));
        if (!isMoved) {
            const int reason = errno;
            std::for_each(done.rbegin(), done.rend(), takeBack);
            errno = reason;
            return &move;
        }
        done.push_back({&move, kept == Kept::Done});
    }
    return nullptr;
}

} // namespace os
