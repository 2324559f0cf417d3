// fileAccess.h - what the user of the program may do with a file.
#pragma once

#include <string>

namespace os {

/// Whether there is a file or folder of that name that the user may write to, as the system judges it.
/// @param path  in the file system's encoding
[[nodiscard]] bool isWritable(const std::string& path);

/// Whether there is anything of that name; a link counts by what it leads to.
/// @param path  in the file system's encoding
[[nodiscard]] bool isThere(const std::string& path);

} // namespace os
