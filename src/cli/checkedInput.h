// checkedInput.h - the files that `ktl check` is given.
#pragma once

#include "check/checkedFile.h"
#include "check/rules/rule.h"
#include "cli/treeInput.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace cli {

/// A file that was checked. What it holds itself is no longer there.
struct CheckedInput
{
    check::CheckedFile file; ///< also of one that could not be read, with a finding about that
    EsiRoad road = EsiRoad::Plain;
    bool isOutOfMemory = false;
};

/// What is checked in each file.
struct FileChecks
{
    std::vector<const check::Rule*> rules;
    QStringList givenFiles; ///< names of all files of the call, without folders
};

/// Checks a file that was read.
/// @param record  of an ESI file, with the choices that are to be made
[[nodiscard]] CheckedInput checkInput(const QString& path, const TreeInput& input, const struct_FilenameDevice& record,
                                      const FileChecks& checks);

/// An ESI file of which nothing but its fault is told, if it has one.
[[nodiscard]] check::CheckedFile uncheckedFile(const QString& path, const TreeInput& input, const FileChecks& checks);

/// A file as SARIF names it: relative to the working folder if it is below it, else absolute, percent-encoded.
/// @return  empty for standard input, and for an empty name
[[nodiscard]] std::string uriOf(const QString& path);

} // namespace cli
