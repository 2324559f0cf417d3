#include "cli/ktlInput.h"

#include "cli/inputFile.h"
#include "ktl/reading/ktlItemWalk.h"

#include <algorithm>

namespace cli {

std::optional<InputFault> readKtl(QFile& file, std::vector<unsigned char>& bytes)
{
    constexpr qint64 blockSize = 65536;
    const qint64 announcedSize = file.isSequential() ? 0 : file.size();
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
        return InputFault{InputFaultKind::Unreadable,
                          QStringLiteral("the file is larger than %1 bytes").arg(maxKtlFileSize)};
    return file.error() == QFileDevice::NoError ? std::nullopt : std::make_optional(unreadable(file.errorString()));
}

std::optional<std::vector<unsigned char>> readKtl(QFile& file, const QString& path, Messages& messages)
{
    std::vector<unsigned char> bytes;
    const std::optional<InputFault> fault = readKtl(file, bytes);
    if (!fault.has_value())
        return bytes;
    report(*fault, path, messages);
    return std::nullopt;
}

} // namespace cli
