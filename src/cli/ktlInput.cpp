#include "cli/ktlInput.h"

#include "cli/inputFile.h"

#include <cstdio>

#include <sys/stat.h>

namespace {

bool isRegular(const QFile& file)
{
    struct stat status = {};
    return fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Copies what is left of a file.
/// @return  whether all of it was read and written
bool copyRest(QFile& from, std::FILE* to)
{
    constexpr qint64 blockSize = 65536;
    for (QByteArray block = from.read(blockSize); !block.isEmpty(); block = from.read(blockSize))
        if (std::fwrite(block.constData(), 1, static_cast<std::size_t>(block.size()), to)
            != static_cast<std::size_t>(block.size()))
            return false;
    return from.error() == QFileDevice::NoError && std::fflush(to) == 0;
}

} // namespace

FileHandle openSeekable(const QString& path, Messages& messages)
{
    QFile file;
    if (!openInput(file, path, messages))
        return nullptr;
    const bool isReadAsItStands = !isStandardInput(path) && isRegular(file);
    FileHandle stream(isReadAsItStands ? std::fopen(QFile::encodeName(path).constData(), "rb") : std::tmpfile());
    if (stream != nullptr && (isReadAsItStands || copyRest(file, stream.get()))) {
        std::rewind(stream.get());
        return stream;
    }
    messages.error(path, QStringLiteral("the file cannot be read"));
    return nullptr;
}
