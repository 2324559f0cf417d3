// fileRules.h - rules about a file as a whole, which those who read the files of a call report.
#pragma once

#include "check/finding.h"

#include <QString>

#include <cstdint>

namespace check {

/// Rules whose findings come from the reading of a file, or from comparing the files of a call: in the order of their
/// rows.
enum class FileRule : std::uint8_t
{
    Unreadable,
    NotWellFormed,
    NoVendor,
    Kind,
    Twice,
    IdentityTwice,
};

[[nodiscard]] const Rule& ruleOf(FileRule rule);

/// A finding of such a rule about a file.
/// @param place  in an ESI file
[[nodiscard]] Finding fileFinding(FileRule rule, const QString& text, xml::Place place = {});

} // namespace check
