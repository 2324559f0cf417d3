// ktlBytes.h - bytes as a test writes them down, and bytes as a writer puts them into a stream.
#pragma once

#include "ktl/writing/ktlFile.h"

#include <QByteArray>

#include <cstdint>
#include <cstdio>

/// The bytes of a text of hexadecimal pairs; blanks and line ends between them do not count.
inline QByteArray bytes(const char* hexadecimal)
{
    return QByteArray::fromHex(hexadecimal);
}

/// A number as two bytes, the low one first; higher bytes are cut off.
inline QByteArray le16(std::uint32_t value)
{
    QByteArray pair;
    pair.append(static_cast<char>(value & 0xFFU));
    pair.append(static_cast<char>((value >> 8U) & 0xFFU));
    return pair;
}

/// A number as four bytes, the lowest one first.
inline QByteArray le32(std::uint32_t value)
{
    return le16(value & 0xFFFFU) + le16(value >> 16U);
}

/// So many bytes of value 0.
inline QByteArray zeros(int count)
{
    return QByteArray(count, '\0');
}

/// Whole content of a stream that is open for reading, from its start.
inline QByteArray contentOf(std::FILE* stream)
{
    std::rewind(stream);
    QByteArray content;
    char block[4096];
    for (std::size_t read = 0; (read = std::fread(block, 1, sizeof block, stream)) > 0;)
        content.append(block, static_cast<int>(read));
    return content;
}

/// A stream of its own, open for writing and reading, that holds `content`, at its end.
inline FileHandle streamWith(const QByteArray& content = {})
{
    FileHandle stream(std::tmpfile());
    if (stream && !content.isEmpty())
        std::fwrite(content.constData(), static_cast<std::size_t>(content.size()), 1, stream.get());
    return stream;
}

/// What `write(FILE*)` puts into an empty stream; an error that it throws goes through.
template<typename Writer> QByteArray writtenBy(Writer write)
{
    const FileHandle stream = streamWith();
    write(stream.get());
    return contentOf(stream.get());
}

/// A stream that takes no byte: it is open for reading only. Null where the system has no such device.
inline FileHandle streamThatRefuses()
{
    return FileHandle(std::fopen("/dev/null", "rb"));
}

/// A stream to a disk that is full and that says so at the first write. Null where the system has no such device.
inline FileHandle streamToFullDisk()
{
    FileHandle stream(std::fopen("/dev/full", "wb"));
    if (stream)
        std::setvbuf(stream.get(), nullptr, _IONBF, 0);
    return stream;
}
