#include "text/shownText.h"

QString shownText(const QString& text)
{
    constexpr int maxLength = 80;
    if (text.size() <= maxLength)
        return QLatin1Char('"') + text + QLatin1Char('"');
    const int length = text.at(maxLength).isLowSurrogate() ? maxLength - 1 : maxLength;
    return QLatin1Char('"') + text.left(length) + QStringLiteral("...\"");
}
