// fileRights.h - owner, group and permissions of files.
#pragma once

#include <string>

/// Gives a new file the owner, the group and the permissions of the file that it replaces, as far as the system lets
/// its user do so; nothing happens if there is no such file. Where the group cannot be the same, it may do no more than
/// anybody may.
/// @param newFile  made by this process; anything else that stands there is left alone
/// @param oldFile  likewise in the file system's encoding
void takeOverRights(const std::string& newFile, const std::string& oldFile);
