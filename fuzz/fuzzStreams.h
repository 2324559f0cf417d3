// fuzzStreams.h - bytes from the fuzzer as the open files that the product reads.
#pragma once

#include "ktl/writing/ktlFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

/// A stream that holds the bytes, open for reading; null if the system gives none.
inline FileHandle streamOf(const std::uint8_t* data, std::size_t size)
{
    FileHandle stream(std::tmpfile());
    if (stream && size > 0)
        std::fwrite(data, size, 1, stream.get());
    if (stream)
        std::rewind(stream.get());
    return stream;
}

/// A stream that takes everything and keeps nothing.
inline FileHandle streamToNowhere()
{
    return FileHandle(std::fopen("/dev/null", "wb"));
}
