// fileList.h - the files that are looked through: those that are named, and those in folders.
#pragma once

#include <QString>
#include <QStringList>

#include <set>
#include <utility>
#include <vector>

namespace find {

/// The files of a call, in the order in which they are told.
struct FileList
{
    QStringList paths; ///< arguments in their order, what is in a folder by name in byte order
    std::set<int> named; ///< places in `paths` of those that were named
    std::vector<std::pair<QString, QString>> unreadable; ///< folders, each with the reason in the system's words
};

/// Lists files and what is in folders, at any depth. Links to folders are followed where they are named, and not inside
/// folders; what is neither a file nor a folder is left out there.
[[nodiscard]] FileList listFiles(const QStringList& paths);

} // namespace find
