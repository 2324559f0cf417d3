#include "cli/ktlInput.h"

#include "cli/inputFile.h"

#include <algorithm>

std::optional<std::vector<unsigned char>> readKtl(QFile& file, const QString& path, Messages& messages)
{
    constexpr qint64 blockSize = 65536;
    const qint64 announcedSize = file.isSequential() ? 0 : file.size();
    std::vector<unsigned char> bytes;
    bytes.reserve(static_cast<std::size_t>(std::min<qint64>(announcedSize, largestKtlFile)));
    KtlHeads heads;
    bool isTooLarge = announcedSize > largestKtlFile;
    while (!isTooLarge && heads.goOn(bytes)) {
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty())
            break;
        bytes.insert(bytes.end(), block.begin(), block.end());
        isTooLarge = bytes.size() > largestKtlFile;
    }
    if (isTooLarge)
        messages.error(path, QStringLiteral("the file is larger than %1 bytes").arg(largestKtlFile));
    else if (file.error() != QFileDevice::NoError)
        tellUnreadable(path, file.errorString(), messages);
    else
        return bytes;
    return std::nullopt;
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
