#include "cli/inputFile.h"

#include "cli/streamName.h"

#include <QFileInfo>

#include <cstdio>

namespace cli {

void reportUnreadable(const QString& path, const QString& reason, Messages& messages)
{
    report(unreadable(reason), path, messages);
}

void reportNoMemory(const QString& path, Messages& messages)
{
    report(noMemory(), path, messages);
}

std::optional<InputFault> openInput(QFile& file, const QString& path)
{
    if (path.isEmpty())
        return InputFault{InputFaultKind::Unreadable, QStringLiteral("the name of a file is empty")};
    if (!isStandardInput(path) && QFileInfo(path).isDir())
        return unreadable(QStringLiteral("this is a folder"));
    file.setFileName(path);
    const bool isOpen = isStandardInput(path) ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    return isOpen ? std::nullopt : std::make_optional(unreadable(file.errorString()));
}

bool openInput(QFile& file, const QString& path, Messages& messages)
{
    const std::optional<InputFault> fault = openInput(file, path);
    if (fault.has_value())
        report(*fault, path, messages);
    return !fault.has_value();
}

std::optional<InputFault> findKind(QFile& file, InputKind& kind)
{
    file.startTransaction();
    QByteArray beginning = file.read(bytesOfKind);
    for (QByteArray more = beginning; !more.isEmpty() && beginning.size() < bytesOfKind; beginning += more)
        more = file.read(bytesOfKind - beginning.size()); // a pipe gives what it happens to hold
    file.rollbackTransaction();
    kind = inputKindOf(beginning);
    return file.error() == QFileDevice::NoError ? std::nullopt : std::make_optional(unreadable(file.errorString()));
}

std::optional<InputKind> kindOfInput(QFile& file, const QString& path, Messages& messages)
{
    auto kind = InputKind::Neither;
    const std::optional<InputFault> fault = findKind(file, kind);
    if (!fault.has_value())
        return kind;
    report(*fault, path, messages);
    return std::nullopt;
}

std::optional<InputFault> openAccepted(QFile& file, const QString& path, AcceptedInputs accepted, InputKind& kind)
{
    std::optional<InputFault> fault = openInput(file, path);
    if (!fault.has_value())
        fault = findKind(file, kind);
    if (fault.has_value())
        return fault;
    const bool takesKtl = accepted == AcceptedInputs::EsiAndKtl;
    if (kind == InputKind::Ktl && !takesKtl)
        return InputFault{InputFaultKind::OtherKind, QStringLiteral("this is a KTL file, not an ESI file")};
    if (kind == InputKind::Neither && takesKtl)
        return InputFault{InputFaultKind::OtherKind, QStringLiteral("this is neither an ESI file nor a KTL file")};
    if (kind == InputKind::Empty && takesKtl)
        return InputFault{InputFaultKind::OtherKind, QStringLiteral("the file is empty")};
    if (kind != InputKind::Ktl)
        kind = InputKind::Esi;
    return std::nullopt;
}

} // namespace cli
