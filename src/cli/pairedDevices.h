// pairedDevices.h - the devices of two files that are compared with each other.
#pragma once

#include "cli/messages.h"
#include "diff/pairing.h"
#include "diff/source.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace cli {

/// A file as selectors and messages know it.
struct PairedFile
{
    QString path; ///< "-" for standard input
    const diff::Source& source;
};

/// The pairs of devices that are asked for. A selector is looked for in both files; a device that it means in one of
/// them is there with its partner in the other, which it need not mean.
/// @param with  a selector of the new device, if there is one selector alone and it means the old one
/// @return      nothing if a selector has a problem in both files; that has been reported
[[nodiscard]] std::optional<std::vector<diff::Pair>> pairedDevices(const PairedFile& before, const PairedFile& after,
                                                                   const QStringList& selectors,
                                                                   const std::optional<QString>& with,
                                                                   Messages& messages);

} // namespace cli
