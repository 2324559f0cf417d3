// folderLock.h - lets one run at a time write into a folder.
#pragma once

#include <string>

namespace os {

/// What came of asking for a lock.
enum class LockAnswer
{
    Held, ///< it is ours
    InUse, ///< somebody else has it
    NotKnown, ///< the file system knows no locks
    Failed, ///< `errno` says why
};

/// A lock on the hidden file `.ktl.lock` of a folder, which the holder makes and removes. It ends with its process, so
/// a file that is left over blocks nobody. Only those who may write into the folder can open the file: nobody who may
/// just read can keep others waiting, as with a lock on the folder itself.
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

} // namespace os
