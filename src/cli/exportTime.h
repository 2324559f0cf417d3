// exportTime.h - the time that a KTL file shows as that of its export.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace cli {

/// Result of looking for the time.
struct ExportTime
{
    QDateTime time; ///< as the file is to show it
    QString problem; ///< why there is no time; empty if there is one
};

/// The time of an export: that of the option `--date`, as it is written, whatever its offset, so that the same command
/// gives the same bytes in every time zone; without it SOURCE_DATE_EPOCH, in UTC; else now, in local time.
/// @param date  in the form of ISO 8601: "2026-11-21", "2026-11-21T10:00:00Z"; nothing without the option
[[nodiscard]] ExportTime exportTimeFrom(const std::optional<QString>& date);

} // namespace cli
