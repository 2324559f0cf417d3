#include "cli/exportTime.h"
#include "text/shownText.h"

#include <QRegularExpression>
#include <QtGlobal>

namespace cli {

namespace {

const char* const epochVariable = "SOURCE_DATE_EPOCH";

/// The time that a text in the form of ISO 8601 shows; not valid if it is none. Only the digits count, neither the
/// offset nor the time zone, so 24:00, the start of the next day, is refused. Readers expect four digits for the year.
/// No place on earth is more than 14 hours from UTC.
QDateTime writtenTime(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral(R"(^([1-9]\d{3}-\d\d-\d\d))" // date
                       R"((?:[T ]((?:[01]\d|2[0-3]):\d\d(?::\d\d(?:\.\d+)?)?))" // time
                       R"((?:[Zz]|[+-](?:(?:0\d|1[0-3])(?::?[0-5]\d)?|14(?::?00)?))?)?$)")); // offset
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    const QTime time =
        match.captured(2).isEmpty() ? QTime(0, 0) : QTime::fromString(match.captured(2), Qt::ISODateWithMs);
    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

} // namespace

ExportTime exportTimeFrom(const std::optional<QString>& date)
{
    if (date.has_value()) {
        if (const QDateTime time = writtenTime(*date); time.isValid())
            return {time, {}};
        return {{}, QStringLiteral("%1 is no time in the form 2026-11-21T10:00:00Z").arg(shownText(*date))};
    }
    if (!qEnvironmentVariableIsSet(epochVariable))
        return {QDateTime::currentDateTime(), {}};
    const QByteArray text = qgetenv(epochVariable);
    bool isNumber = false;
    const qlonglong seconds = text.toLongLong(&isNumber);
    constexpr qlonglong lastSecond = 253402300799; // the end of the year 9999
    if (!isNumber || seconds < 0 || seconds > lastSecond)
        return {{},
                QStringLiteral("the variable SOURCE_DATE_EPOCH holds %1, which is no number of seconds")
                    .arg(shownText(QString::fromLocal8Bit(text)))};
    return {QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), {}};
}

} // namespace cli
