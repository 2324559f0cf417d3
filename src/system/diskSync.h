// diskSync.h - brings files and names of files to the disk, where they survive a power cut.
#pragma once

#include <string>

namespace os {

/// Waits until the content of a file is on the disk.
/// @param path  in the file system's encoding
/// @return  false if it cannot get there; `errno` says why. Where the file system cannot be asked, that counts as
/// done.
[[nodiscard]] bool syncFile(const std::string& path);

/// Waits until the names in a folder are on the disk, as far as the system can be asked: a folder that its user cannot
/// read is left to the system.
void syncFolder(const std::string& path);

} // namespace os
