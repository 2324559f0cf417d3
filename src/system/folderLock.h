// folderLock.h - lets one run at a time write into a folder.
#pragma once

#include <string>

/// What came of asking for a lock.
enum class LockAnswer
{
    Held, ///< it is ours
    InUse, ///< somebody else has it
    NotKnown, ///< the file system knows no locks
    Failed, ///< `errno` tells why
};

/// A lock on the hidden file `.ktl.lock` of a folder, which the holder makes and removes. The system ends the lock
/// together with its process, so a file that is left over hinders nobody.
///
/// The file can be opened by those only who may write into the folder: whoever may just read it cannot keep anybody
/// waiting, as he could with a lock on the folder or on one of its files.
class FolderLock
{
public:
    /// @param folder  in the file system's encoding
    explicit FolderLock(const std::string& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    FolderLock(FolderLock&&) = delete;
    FolderLock& operator=(FolderLock&&) = delete;

    /// Asks for the lock without waiting.
    [[nodiscard]] LockAnswer tryLock();

    /// Gives the lock back, if it is ours.
    void release();

    /// Removes the file, if the lock is ours; the lock itself ends with the process.
    void removeFile() const;

    /// The file whose lock it is.
    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    std::string m_folder;
    std::string m_path;
    int m_file = -1; ///< open as long as the lock is ours
};
