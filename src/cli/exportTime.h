// exportTime.h - the time that a KTL file shows as that of its export.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Result of looking for the time.
struct ExportTime
{
    QDateTime time; ///< as the file is to show it
    QString problem; ///< why there is no time; empty if there is one
};

/// The time of an export: that of the option `--date`; without one that of the variable SOURCE_DATE_EPOCH, in UTC; else
/// now, in local time. A time of the option is shown as it is written, whatever its offset, so that the same
/// command gives the same bytes in every time zone.
/// @param date  of the option, in the form of ISO 8601: "2026-11-21", "2026-11-21T10:00:00Z"; nothing without the
/// option
[[nodiscard]] ExportTime exportTimeFrom(const std::optional<QString>& date);
