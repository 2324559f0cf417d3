#include "cli/findInput.h"

#include "cli/inputFile.h"
#include "cli/ktlEnd.h"
#include "cli/ktlInput.h"
#include "esi/xml/xmlLimits.h"
#include "find/esiScan.h"
#include "find/ktlScan.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>
#include <new>

namespace cli {

namespace {

void findInEsi(QIODevice& file, bool isNamed, const find::Filter& filter, FoundInput& input)
{
    find::EsiScan scan = find::scanEsi(file, filter.wanted);
    input.found = std::move(scan.found);
    if (!isNamed && !scan.looksLikeEsi)
        return;
    if (scan.fault.has_value())
        input.fault =
            faultOf(EsiLoadStatus::NotWellFormed, {scan.fault->message, scan.fault->line, scan.fault->column});
    else if (!scan.isEsi && isNamed)
        input.fault = faultOf(EsiLoadStatus::NotEsi, {});
}

void findInKtl(QIODevice& file, const find::Filter& filter, FoundInput& input)
{
    input.isKtl = true;
    if (file.size() > maxKtlFileSize) {
        input.fault = unreadable(QStringLiteral("the file is larger than %1 bytes").arg(maxKtlFileSize));
        return;
    }
    find::KtlScan scan = find::scanKtl(file, filter.wanted);
    input.found = std::move(scan.found);
    if (scan.isTooMuch)
        input.fault = InputFault{InputFaultKind::Unreadable,
                                 QStringLiteral("the file has more than %1 devices and modules").arg(find::maxFound)};
    else if (const QString problem = problemAtEnd(scan.end); !problem.isEmpty())
        input.fault = InputFault{InputFaultKind::Unreadable, problem};
}

void findInOpen(QIODevice& file, InputKind kind, bool isNamed, const find::Filter& filter, FoundInput& input)
{
    if (kind != InputKind::Ktl)
        findInEsi(file, isNamed, filter, input);
    else if (isNamed || find::beginsWithDevice(file))
        findInKtl(file, filter, input);
}

/// All that a pipe has, and at most one byte more than a file may have.
QByteArray bytesOf(QFile& pipe)
{
    constexpr int maxBytes = std::max(maxXmlFileBytes, maxKtlFileSize) + 1;
    constexpr int blockSize = 65536;
    QByteArray bytes;
    while (bytes.size() < maxBytes) {
        const QByteArray block = pipe.read(std::min(blockSize, maxBytes - bytes.size()));
        if (block.isEmpty())
            break;
        bytes += block;
    }
    return bytes;
}

void openAndFind(const QString& path, bool isNamed, const find::Filter& filter, FoundInput& input)
{
    QFile file;
    auto kind = InputKind::Neither;
    input.fault = openAccepted(file, path, AcceptedInputs::EsiAndKtl, kind);
    if (input.fault.has_value()) {
        if (!isNamed && input.fault->kind == InputFaultKind::OtherKind)
            input.fault.reset();
        return;
    }
    file.setTextModeEnabled(false);
    if (file.isSequential()) {
        QByteArray bytes = bytesOf(file);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        findInOpen(buffer, kind, isNamed, filter, input);
    } else {
        findInOpen(file, kind, isNamed, filter, input);
    }
    if (file.error() != QFileDevice::NoError)
        input.fault = unreadable(file.errorString());
}

} // namespace

FoundInput findIn(const QString& path, bool isNamed, const find::Filter& filter)
{
    FoundInput input;
    try {
        openAndFind(path, isNamed, filter, input);
        const auto isUnfit = [&](const find::Found& found) { return !filter.fits(found); };
        input.found.erase(std::remove_if(input.found.begin(), input.found.end(), isUnfit), input.found.end());
    } catch (const std::bad_alloc&) {
        input = {};
        input.fault = noMemory();
        input.isOutOfMemory = true;
    }
    return input;
}

} // namespace cli
