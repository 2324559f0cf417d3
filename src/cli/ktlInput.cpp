#include "cli/ktlInput.h"

#include "cli/inputFile.h"
#include "ktl/reading/ktlItemWalk.h"

#include <algorithm>

namespace cli {

std::optional<std::vector<unsigned char>> readKtl(QFile& file, const QString& path, Messages& messages)
{
    constexpr qint64 blockSize = 65536;
    const qint64 announcedSize = file.isSequential() ? 0 : file.size();
    std::vector<unsigned char> bytes;
    bytes.reserve(static_cast<std::size_t>(std::min<qint64>(announcedSize, maxKtlFileSize)));
    KtlHeads heads;
    bool isTooLarge = announcedSize > maxKtlFileSize;
    while (!isTooLarge && heads.goOn(bytes)) {
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty())
            break;
        const auto* const first = reinterpret_cast<const unsigned char*>(block.constData());
        bytes.insert(bytes.end(), first, first + block.size());
        isTooLarge = bytes.size() > maxKtlFileSize;
    }
    if (isTooLarge)
        messages.error(path, QStringLiteral("the file is larger than %1 bytes").arg(maxKtlFileSize));
    else if (file.error() != QFileDevice::NoError)
        reportUnreadable(path, file.errorString(), messages);
    else
        return bytes;
    return std::nullopt;
}

} // namespace cli
