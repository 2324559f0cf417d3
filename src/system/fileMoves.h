// fileMoves.h - moves new files to their places, all of them or none.
#pragma once

#include <string>
#include <vector>

namespace os {

/// A new file and its place; all paths are on one file system, in its encoding.
struct FileMove
{
    std::string from;
    std::string to;
    std::string kept; ///< a free name for the file in the place, until all are moved
    bool replaces = false; ///< the file in the place; otherwise there must be none
};

/// Moves files in their order, each in one step. If one cannot be moved, every place gets back what was there.
/// @return  the move that failed, null if none; `errno` says why, `EEXIST` that there is something in the place
[[nodiscard]] const FileMove* moveAll(const std::vector<FileMove>& moves);

/// Moves a file to a name that is free, in one step. Where the file system knows no such step, the file gets a second
/// name, and where it knows no second names, an empty file holds the place: nothing else is ever replaced.
/// @return  false if that failed; `errno` says why, `EEXIST` that the name is not free
[[nodiscard]] bool moveToFreeName(const std::string& from, const std::string& to);

} // namespace os
