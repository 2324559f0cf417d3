// cStreams.h - C streams over memory and over streams of C++: the writers and the dump know C streams only.
#pragma once

#include "system/fileHandle.h"

#include <cstddef>
#include <iosfwd>
#include <vector>

namespace os {

/// A stream whose bytes stay in memory.
class MemoryFile
{
public:
    /// @throws std::bad_alloc
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    MemoryFile(MemoryFile&&) = delete;
    MemoryFile& operator=(MemoryFile&&) = delete;

    /// For writing.
    [[nodiscard]] std::FILE* stream() const { return m_stream.get(); }

    /// Brings all that was written so far to `data`.
    /// @throws std::bad_alloc if not all of it had room
    void finish();

    /// Valid until something is written again, as `size` is.
    [[nodiscard]] const unsigned char* data() const { return reinterpret_cast<const unsigned char*>(m_bytes); }
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    char* m_bytes = nullptr; ///< made by the stream, and freed when that is closed
    std::size_t m_size = 0;
    FileHandle m_stream;
};

/// A stream that reads bytes, which must outlive it.
/// @param bytes  not empty, not changed
/// @throws std::bad_alloc
[[nodiscard]] FileHandle readerOf(std::vector<unsigned char>& bytes);

/// A stream that writes to another one, which must outlive it. What that does not take is an error of this stream.
/// @throws std::bad_alloc
[[nodiscard]] FileHandle writerTo(std::ostream& out);

} // namespace os
