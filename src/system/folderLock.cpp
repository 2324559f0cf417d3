#include "system/folderLock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace os {

namespace {

constexpr int plainOpen = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
constexpr mode_t ownerRights = S_IRUSR | S_IWUSR;
constexpr mode_t groupRights = S_IRGRP | S_IWGRP;
constexpr mode_t otherRights = S_IROTH | S_IWOTH;

/// Opens the file to those who may write into its folder.
void openToWriters(int file, const std::string& folder)
{
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    struct stat ofFolder = {};
    struct stat ofFile = {};
    if (stat(folder.c_str(), &ofFolder) != 0 || fstat(file, &ofFile) != 0)
        return;
    mode_t rights = ownerRights;
    const bool isSameGroup = ofFile.st_gid == ofFolder.st_gid || fchown(file, sameOwner, ofFolder.st_gid) == 0;
    if ((ofFolder.st_mode & S_IWGRP) != 0 && isSameGroup)
        rights |= groupRights;
    if ((ofFolder.st_mode & S_IWOTH) != 0)
        rights |= groupRights | otherRights;
    static_cast<void>(fchmod(file, rights));
}

struct OpenLockFile
{
    int file; ///< -1 if it cannot be opened; `errno` says why, `EEXIST` that somebody else has made it
    bool isMade; ///< by this call
};

bool isRegular(int file)
{
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

/// Opens the file, makes it where there is none.
OpenLockFile openLockFile(const std::string& path, const std::string& folder)
{
    const int there = open(path.c_str(), plainOpen);
    if (there >= 0 && !isRegular(there)) {
        close(there);
        errno = EEXIST;
        return {-1, false};
    }
    if (there >= 0 || errno != ENOENT)
        return {there, false};
    const int made = open(path.c_str(), plainOpen | O_CREAT | O_EXCL, ownerRights);
    if (made >= 0)
        openToWriters(made, folder);
    return {made, made >= 0};
}

/// What it means that the file cannot be opened. One that is there and closed to us is another user's, who writes.
LockAnswer answerOfFailedOpen(const std::string& path)
{
    const int reason = errno;
    struct stat status = {};
    const bool isInUse =
        reason == EEXIST || (reason == EACCES && lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode));
    errno = reason;
    return isInUse ? LockAnswer::InUse : LockAnswer::Failed;
}

/// Whether a path still names an open file: the run that had the lock before may have removed it.
bool isStillAt(const std::string& path, int file)
{
    struct stat ofPath = {};
    struct stat ofFile = {};
    return lstat(path.c_str(), &ofPath) == 0 && fstat(file, &ofFile) == 0 && ofPath.st_dev == ofFile.st_dev
           && ofPath.st_ino == ofFile.st_ino;
}

LockAnswer lockOpenFile(const std::string& path, int file)
{
    if (flock(file, LOCK_EX | LOCK_NB) == 0)
        return isStillAt(path, file) ? LockAnswer::Held : LockAnswer::InUse;
    return errno == EWOULDBLOCK || errno == EINTR ? LockAnswer::InUse : LockAnswer::NotKnown;
}

} // namespace

FolderLock::FolderLock(const std::string& folder)
    : m_folder(folder)
    , m_path(folder + "/.ktl.lock")
{}

FolderLock::~FolderLock()
{
    release();
}

LockAnswer FolderLock::tryLock()
{
    const OpenLockFile opened = openLockFile(m_path, m_folder);
    if (opened.file < 0)
        return answerOfFailedOpen(m_path);
    const LockAnswer answer = lockOpenFile(m_path, opened.file);
    if (answer == LockAnswer::Held)
        m_file = opened.file;
    else
        close(opened.file);
    if (answer == LockAnswer::NotKnown && opened.isMade)
        unlink(m_path.c_str()); // it serves nobody
    return answer;
}

void FolderLock::release()
{
    if (m_file < 0)
        return;
    removeFile();
    close(m_file);
    m_file = -1;
}

void FolderLock::removeFile() const
{
    if (m_file >= 0)
        unlink(m_path.c_str()); // while the lock is ours, and before it is given back
}

} // namespace os
