// fileRights.h - owner, group and permissions of files.
#pragma once

#include <string>

namespace os {

/// Gives a new file the owner, group and permissions of the one that it replaces, if there is one, where its user may.
/// A group that cannot be the same may do no more than anybody may.
/// @param newFile  made by this process; anything else of that name is left alone
/// @param oldFile  in the file system's encoding too
void takeOverRights(const std::string& newFile, const std::string& oldFile);

} // namespace os
