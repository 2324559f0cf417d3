#include "system/fileRights.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace os {

namespace {

constexpr mode_t allRights = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr unsigned groupShift = 3; // from the bits of others to those of the group

/// A file that this process has made has one name only and is its own. Whoever owns the folder might have put another
/// file in its place, to be given rights over that one.
bool isOwnNewFile(int file, struct stat& status)
{
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid();
}

/// The owner is root's to give; the group is its members' too.
/// @return  whether the file has that group now
bool giveTo(int file, const struct stat& own, const struct stat& wanted)
{
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    if (own.st_uid == wanted.st_uid && own.st_gid == wanted.st_gid)
        return true;
    return fchown(file, wanted.st_uid, wanted.st_gid) == 0 || own.st_gid == wanted.st_gid
           || fchown(file, sameOwner, wanted.st_gid) == 0;
}

} // namespace

void takeOverRights(const std::string& newFile, const std::string& oldFile)
{
    struct stat wanted = {};
    if (stat(oldFile.c_str(), &wanted) != 0)
        return;
    const int file = open(newFile.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat own = {};
    if (isOwnNewFile(file, own)) {
        mode_t mode = wanted.st_mode & allRights;
        if (!giveTo(file, own, wanted))
            mode &= static_cast<mode_t>(~S_IRWXG) | ((mode & S_IRWXO) << groupShift);
        static_cast<void>(fchmod(file, mode));
    }
    close(file);
}

} // namespace os
