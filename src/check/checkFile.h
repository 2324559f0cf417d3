// checkFile.h - asks all rules about one file.
#pragma once

#include "check/encodingFault.h"
#include "check/finding.h"
#include "check/rules/rules.h"
#include "esi/xml/tree.h"
#include "model/deviceRecords.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace check {

/// An ESI file that is to be checked.
struct EsiSubject
{
    const xml::Tree& tree; ///< of the whole file
    const struct_FilenameDevice& file; ///< what was read of the tree, with the choices that are to be made
    std::vector<bool> areComplete; ///< by device, see `completeDevices`
    QStringList givenFiles; ///< names of all files of the call, without folders
    std::optional<EncodingFault> encodingFault = std::nullopt; ///< of the bytes of the file
};

/// The findings in an ESI file, each with its place.
/// @param rules  that are asked
[[nodiscard]] Findings checkEsi(const EsiSubject& subject, const std::vector<const Rule*>& rules = allRules());

/// The findings in a KTL file; `Finding::where` is the byte offset of an item or field.
/// @param rules  that are asked
[[nodiscard]] Findings checkKtl(const std::vector<unsigned char>& bytes,
                                const std::vector<const Rule*>& rules = allRules());

} // namespace check
