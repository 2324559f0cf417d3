#include "cli/ktlInput.h"

#include "cli/inputFile.h"

#include <QTemporaryFile>

#include <array>
#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isRegular(const QFile& file)
{
    struct stat status = {};
    return fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode);
}

/// A nameless file for what can be read once only, in the system's folder for such files.
FileHandle spool()
{
    QTemporaryFile file; // its name goes at the end of this function, its content with the stream
    return FileHandle(file.open() ? fdopen(dup(file.handle()), "w+b") : nullptr);
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
    FileHandle stream = isReadAsItStands ? FileHandle(std::fopen(QFile::encodeName(path).constData(), "rb")) : spool();
    if (stream != nullptr && (isReadAsItStands || copyRest(file, stream.get()))) {
        std::rewind(stream.get());
        return stream;
    }
    messages.error(path, QStringLiteral("the file cannot be read"));
    return nullptr;
}

std::vector<unsigned char> bytesOf(std::FILE* stream)
{
    std::vector<unsigned char> bytes;
    std::array<unsigned char, 65536> block; // what is read of it only counts
    for (std::size_t size = std::fread(block.data(), 1, block.size(), stream); size > 0;
         size = std::fread(block.data(), 1, block.size(), stream))
        bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
    return bytes;
}

QString problemAtEnd(const KtlWalk& walk)
{
    const QString place = QStringLiteral("0x%1").arg(walk.offset, 0, 16);
    switch (walk.end) {
    case KtlWalkEnd::Whole:
        break;
    case KtlWalkEnd::NoEndItem:
        return QStringLiteral("the last run has no End item: the file was cut short");
    case KtlWalkEnd::CutItem:
        return QStringLiteral("the file ends at %1, inside an item").arg(place);
    case KtlWalkEnd::CutHead:
        return QStringLiteral("the file ends inside the item head at %1").arg(place);
    case KtlWalkEnd::ImpossibleHead:
        return QStringLiteral("the item head at %1 cannot be right").arg(place);
    }
    return {};
}
