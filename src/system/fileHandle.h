// fileHandle.h - a C stream that closes itself.
#pragma once

#include <cstdio>
#include <memory>

/// Closes a C stream when it goes out of use; for streams whose last words nobody needs.
struct FileCloser
{
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;
