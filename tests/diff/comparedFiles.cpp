// comparedFiles.cpp - what several tests need is compiled once.
#include "comparedFiles.h"

#include "diff/compareDevices.h"
#include "diff/devicePairs.h"
#include "diffParts.h"
#include "ktl/ktlExport.h"
#include "system/cStreams.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

namespace comparedFiles {

EsiFile::EsiFile(const QByteArray& bytes)
    : read(esiTreeOf(bytes.toStdString()))
    , file(declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped).file)
    , areComplete(completeDevices(file))
    , source(*read.tree, file, areComplete)
{}

EsiFile::~EsiFile() = default;

std::vector<unsigned char> exportOf(EsiFile& esi)
{
    os::MemoryFile written;
    std::vector<struct_FilenameDevice> files{esi.file};
    int code = 0;
    const bool isWritten = writeDevices(
        written.stream(), files, [](std::size_t, std::size_t) { return true; }, &code,
        QDateTime(QDate(2026, 11, 22), QTime(12, 0)));
    if (!isWritten)
        return {};
    written.finish();
    return {written.data(), written.data() + written.size()};
}

std::vector<diff::Difference> differencesOf(diff::Source& before, diff::Source& after, bool isOfAll)
{
    std::vector<diff::Difference> all;
    diff::CompareRequest request;
    request.pairs = diff::devicePairsOf(before.devices(), after.devices());
    request.isOfAll = isOfAll;
    diff::compareSources(before, after, request, [&](const diff::ComparedDevices& compared) {
        all.insert(all.end(), compared.differences.begin(), compared.differences.end());
    });
    return all;
}

QStringList linesOf(const QByteArray& before, const QByteArray& after)
{
    EsiFile oldFile(before);
    EsiFile newFile(after);
    const std::vector<diff::Difference> differences = differencesOf(oldFile.source, newFile.source);
    const std::vector<diff::Difference> swapped = differencesOf(newFile.source, oldFile.source);
    QStringList lines = diffParts::linesOf(differences);
    if (diffParts::withoutDirection(swapped) != diffParts::withoutDirectionSwapped(differences))
        lines += QStringLiteral("not mirrored");
    return lines;
}

} // namespace comparedFiles
