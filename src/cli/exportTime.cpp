#include "cli/exportTime.h"

#include <QtGlobal>

namespace {

const char* const epochVariable = "SOURCE_DATE_EPOCH";

/// The file holds the year in decimal digits before those of month and day: four of them are what readers expect.
bool hasFourDigits(int year)
{
    constexpr int first = 1;
    constexpr int last = 9999;
    return year >= first && year <= last;
}

} // namespace

ExportTime exportTimeFrom(const std::optional<QString>& date)
{
    if (date.has_value()) {
        const QDateTime time = QDateTime::fromString(*date, Qt::ISODate);
        if (time.isValid() && hasFourDigits(time.date().year()))
            return {time, {}};
        return {{}, QStringLiteral("\"%1\" is no time in the form 2026-11-21T10:00:00Z").arg(*date)};
    }
    if (!qEnvironmentVariableIsSet(epochVariable))
        return {QDateTime::currentDateTime(), {}};
    const QByteArray text = qgetenv(epochVariable);
    bool isNumber = false;
    const qlonglong seconds = text.toLongLong(&isNumber);
    constexpr qlonglong lastSecond = 253402300799; // the end of the year 9999
    if (!isNumber || seconds < 0 || seconds > lastSecond)
        return {{},
                QStringLiteral("the variable SOURCE_DATE_EPOCH holds \"%1\", which is no number of seconds")
                    .arg(QString::fromLocal8Bit(text))};
    return {QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), {}};
}
