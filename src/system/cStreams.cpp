#include "system/cStreams.h"

#include <cstdlib>
#include <new>
#include <ostream>

namespace os {

namespace {

FileHandle checked(std::FILE* stream)
{
    if (stream == nullptr)
        throw std::bad_alloc();
    return FileHandle(stream);
}

ssize_t writeOn(void* out, const char* bytes, std::size_t size)
{
    auto& stream = *static_cast<std::ostream*>(out);
    return stream.write(bytes, static_cast<std::streamsize>(size)) ? static_cast<ssize_t>(size) : 0;
}

} // namespace

MemoryFile::MemoryFile()
    : m_stream(checked(open_memstream(&m_bytes, &m_size)))
{}

MemoryFile::~MemoryFile()
{
    m_stream.reset();
    std::free(m_bytes); // as the C library asks for
}

void MemoryFile::finish()
{
    if (std::fflush(stream()) != 0 || std::ferror(stream()) != 0)
        throw std::bad_alloc();
}

FileHandle readerOf(std::vector<unsigned char>& bytes)
{
    return checked(fmemopen(bytes.data(), bytes.size(), "rb"));
}

FileHandle writerTo(std::ostream& out)
{
    cookie_io_functions_t functions{};
    functions.write = writeOn;
    return checked(fopencookie(&out, "wb", functions));
}

} // namespace os
