// checkedInput.h - the files that `ktl check` is given.
#pragma once

#include "check/checkedFile.h"
#include "check/encodingFault.h"
#include "check/rules/rule.h"
#include "cli/inputFile.h"
#include "esi/esiFile.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace cli {

/// A file that was read to be checked.
struct InputToCheck
{
    std::optional<InputFault> fault; ///< why there is nothing of it
    std::optional<xml::Tree> tree; ///< of an ESI file
    struct_FilenameDevice record; ///< of an ESI file, dictionaries left out
    std::optional<check::EncodingFault> encodingFault;
    std::vector<bool> areComplete; ///< of an ESI file, see `check::EsiSubject`
    EsiRoad road = EsiRoad::Plain;
    std::vector<unsigned char> bytes; ///< of a KTL file
    bool isOutOfMemory = false;
};

/// Reads a file.
/// @param path  as the user gave it, "-" for standard input
[[nodiscard]] InputToCheck readToCheck(const QString& path, AcceptedInputs accepted);

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
[[nodiscard]] CheckedInput checkInput(const QString& path, const InputToCheck& input,
                                      const struct_FilenameDevice& record, const FileChecks& checks);

/// An ESI file of which nothing but its fault is told, if it has one.
[[nodiscard]] check::CheckedFile uncheckedFile(const QString& path, const InputToCheck& input,
                                               const FileChecks& checks);

/// A file as SARIF names it: relative to the working folder if it is below it, else absolute, percent-encoded.
/// @return  empty for standard input, and for an empty name
[[nodiscard]] std::string uriOf(const QString& path);

} // namespace cli
