// comparedFiles.h - the differences of small files, for tests.
#pragma once

#include "diff/difference.h"
#include "diff/source.h"
#include "esi/esiFile.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace comparedFiles {

/// An ESI file that was read, to be compared.
struct EsiFile
{
    explicit EsiFile(const QByteArray& bytes);
    ~EsiFile();

    EsiTreeResult read;
    struct_FilenameDevice file;
    std::vector<bool> areComplete;
    diff::Source source;
};

/// The export of all devices of an ESI file.
std::vector<unsigned char> exportOf(EsiFile& esi);

std::vector<diff::Difference> differencesOf(diff::Source& before, diff::Source& after, bool isOfAll = false);

/// The differences of two ESI files as lines, see `diffParts::lineOf`; a last line "not mirrored" if the other
/// direction tells something else.
QStringList linesOf(const QByteArray& before, const QByteArray& after);

} // namespace comparedFiles
