// fileMoves.h - moves new files to their places, all of them or none.
#pragma once

#include <string>
#include <vector>

/// A new file and its place; all paths are on one file system, in its encoding.
struct FileMove
{
    std::string from;
    std::string to;
    std::string kept; ///< free name for what stands in the place, until all files are moved
    bool replaces = false; ///< what stands in the place; else nothing may stand there
};

/// Moves files in their order, each in one step. If one cannot be moved, every place gets back what stood there.
/// @return  the move that failed, null if none; `errno` tells why, `EEXIST` that there is something in the place
[[nodiscard]] const FileMove* moveAll(const std::vector<FileMove>& moves);

/// Moves a file to a name that is free, in one step. A file system that knows no such step gets a second name for the
/// file, and one that knows no second names an empty file that holds the place: never is anything replaced that was
/// there before.
/// @return  false if that failed; `errno` tells why, `EEXIST` that the name is not free
[[nodiscard]] bool moveToFreeName(const std::string& from, const std::string& to);
