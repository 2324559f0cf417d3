// checkParts.h - small ESI files for tests of rules, and their findings as texts.
#pragma once

#include "check/checkFile.h"
#include "check/checkedFile.h"
#include "esi/esiFile.h"
#include "facts/unitParts.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace checkParts {

using unitParts::deviceFile;

/// Findings of one rule as "line:column: text", in the order of the file.
inline QStringList linesOf(const check::Findings& findings, const char* code)
{
    QStringList lines;
    for (const check::Finding& finding : findings.list)
        if (finding.rule->code == code)
            lines += QStringLiteral("%1:%2: %3").arg(finding.place.line).arg(finding.place.column).arg(finding.text);
    return lines;
}

/// An ESI file that was read.
struct LoadedFile
{
    explicit LoadedFile(const QByteArray& bytes)
        : read(esiTreeOf(bytes.toStdString()))
        , encodingFault(check::encodingFaultOf(bytes.toStdString()))
    {
        if (!read.tree.has_value())
            return;
        file = declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped).file;
        areComplete = completeDevices(file);
    }

    /// None in a file that cannot be read.
    [[nodiscard]] check::Findings findings(const QStringList& givenFiles = {}) const
    {
        return read.tree.has_value() ? check::checkEsi({*read.tree, file, areComplete, givenFiles, encodingFault})
                                     : check::Findings();
    }

    EsiTreeResult read;
    std::optional<check::EncodingFault> encodingFault;
    struct_FilenameDevice file;
    std::vector<bool> areComplete;
};

/// The findings of one rule in an ESI file, see `linesOf`.
inline QStringList findingsOf(const char* code, const QByteArray& file)
{
    return linesOf(LoadedFile(file).findings(), code);
}

} // namespace checkParts
