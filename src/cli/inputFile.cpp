#include "cli/inputFile.h"

#include "cli/streamName.h"

#include <QFileInfo>

#include <cstdio>

namespace cli {

void reportUnreadable(const QString& path, const QString& reason, Messages& messages)
{
    messages.error(path, QStringLiteral("the file cannot be read: ") + reason);
}

void reportNoMemory(const QString& path, Messages& messages)
{
    messages.error(path, QStringLiteral("not enough memory"));
}

bool openInput(QFile& file, const QString& path, Messages& messages)
{
    if (path.isEmpty()) {
        messages.error({}, QStringLiteral("the name of a file is empty"));
        return false;
    }
    if (!isStandardInput(path) && QFileInfo(path).isDir()) {
        reportUnreadable(path, QStringLiteral("this is a folder"), messages);
        return false;
    }
    file.setFileName(path);
    const bool isOpen = isStandardInput(path) ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        reportUnreadable(path, file.errorString(), messages);
    return isOpen;
}

std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages)
{
    file.startTransaction();
    QByteArray beginning = file.read(bytesOfKind);
    for (QByteArray more = beginning; !more.isEmpty() && beginning.size() < bytesOfKind; beginning += more)
        more = file.read(bytesOfKind - beginning.size()); // a pipe gives what it happens to hold
    file.rollbackTransaction();
    if (file.error() != QFileDevice::NoError) {
        reportUnreadable(path, file.errorString(), messages);
        return std::nullopt;
    }
    return inputKindOf(beginning);
}

} // namespace cli
