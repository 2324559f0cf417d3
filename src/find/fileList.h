// fileList.h - the files that are looked through: those that are named, and those in folders.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <set>
#include <vector>

namespace find {

/// A file or folder of which nothing can be said.
struct UnreadablePath
{
    QString path;
    QString reason; ///< in the system's words
    bool isFolder = false;
};

/// The files of a call, in the order in which they are told.
struct FileList
{
    QStringList paths; ///< arguments in their order, what is in a folder by name in byte order
    std::set<int> named; ///< places in `paths` of those that were named
    std::vector<UnreadablePath> unreadable; ///< in folders
};

/// Lists files and what is in folders, at any depth. Links to folders are followed where they are named, and not inside
/// folders; what is neither a file nor a folder is left out there, and so is a link that leads nowhere.
/// @param isStream  whether a path stands for a stream, also where a folder has that name
[[nodiscard]] FileList listFiles(const QStringList& paths, const std::function<bool(const QString&)>& isStream);

} // namespace find
