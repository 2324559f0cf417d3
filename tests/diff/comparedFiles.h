// comparedFiles.h - the differences of small files, for tests.
#pragma once

#include "diff/compareDevices.h"
#include "diff/devicePairs.h"
#include "diff/source.h"
#include "diffParts.h"
#include "esi/esiFile.h"
#include "ktl/ktlExport.h"
#include "system/cStreams.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QStringList>
#include <QTime>

#include <vector>

namespace comparedFiles {

/// An ESI file that was read, to be compared.
struct EsiFile
{
    explicit EsiFile(const QByteArray& bytes)
        : read(esiTreeOf(bytes.toStdString()))
        , file(declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped).file)
        , areComplete(completeDevices(file))
        , source(*read.tree, file, areComplete)
    {}

    EsiTreeResult read;
    struct_FilenameDevice file;
    std::vector<bool> areComplete;
    diff::Source source;
};

/// The export of all devices of an ESI file.
inline std::vector<unsigned char> exportOf(EsiFile& esi)
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

inline std::vector<diff::Difference> differencesOf(diff::Source& before, diff::Source& after, bool isOfAll = false)
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

/// The differences of two ESI files as lines, see `diffParts::lineOf`; a last line "not mirrored" if the other
/// direction tells something else.
inline QStringList linesOf(const QByteArray& before, const QByteArray& after)
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
