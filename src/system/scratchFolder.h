// scratchFolder.h - hidden folders for files that are not complete yet.
#pragma once

#include <string>

namespace os {

/// Names of the files that may be in such a folder; nothing else is ever removed from one.
namespace scratchName {
constexpr const char* newKtl = "new.ktl";
constexpr const char* newDump = "new.ktl.txt";
constexpr const char* keptKtl = "kept.ktl";
constexpr const char* keptDump = "kept.ktl.txt";
} // namespace scratchName

/// Makes a folder `.ktl-XXXXXX`, which its owner alone can enter.
/// @param folder  that it is made in, in the file system's encoding
/// @return  its path; empty if it could not be made, `errno` says why
[[nodiscard]] std::string makeScratchFolder(const std::string& folder);

/// Removes such a folder with its files; one that holds anything else stays.
void removeScratchFolder(const std::string& scratch);

/// Removes all such folders that dead runs have left in a folder, as far as the user may. No other run may be writing
/// into the folder at that time.
void removeLeftScratchFolders(const std::string& folder);

} // namespace os
