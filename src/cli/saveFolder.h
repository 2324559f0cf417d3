// saveFolder.h - a folder that a run writes into.
#pragma once

#include "system/folderLock.h"

#include <QString>

#include <string>

namespace cli {

/// Keeps other runs out of a folder and has a hidden folder in it, on the same disk, for what is not complete yet.
class SaveFolder
{
public:
    explicit SaveFolder(const QString& path);
    ~SaveFolder() { close(); }
    SaveFolder(const SaveFolder&) = delete;
    SaveFolder& operator=(const SaveFolder&) = delete;
    SaveFolder(SaveFolder&&) = delete;
    SaveFolder& operator=(SaveFolder&&) = delete;

    /// Takes the folder, without waiting for another run that has it; then clears what dead runs have left in it. On
    /// a disk without locks it works without one, and clears nothing.
    /// @return  false if another run has it, or if it failed, which `failure` explains
    [[nodiscard]] bool tryOpen();

    /// Why the folder cannot be used; empty while nothing is wrong.
    [[nodiscard]] const QString& failure() const { return m_failure; }

    /// Releases the folder; nothing of the run is left in it but the files that were moved to their places.
    void close();

    /// Removes what `close` would remove, for a process that ends now: other threads may go on using this object.
    void discard() const;

    /// @param name  one of `os::scratchName`
    [[nodiscard]] std::string scratchFile(const char* name) const { return m_scratch + '/' + name; }

    [[nodiscard]] const QString& path() const { return m_path; }
    /// The file that shows other runs that the folder is taken.
    [[nodiscard]] QString lockFile() const;

private:
    void makeScratch();

    QString m_path;
    os::FolderLock m_lock;
    std::string m_scratch; ///< empty if there is none
    QString m_failure;
};

} // namespace cli
