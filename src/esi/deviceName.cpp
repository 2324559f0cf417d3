#include "esi/deviceName.h"

#include <QLatin1String>
#include <QString>

std::string deviceNameOf(std::string_view text)
{
    // ODD, KEPT: both counts are one more than the marks searched for, so that the angle brackets around a mark go with
    // it, and the removal starts at position 0, where one would expect it to start at the mark. Pinned by
    // tst_WalkDevice::cdataMark.
    constexpr int openingLength = 9; // <![CDATA[
    constexpr int closingLength = 3; // ]]>
    if (text.find("![CDATA[") == std::string_view::npos)
        return std::string(text);
    QString name = QString::fromUtf8(text.data(), static_cast<int>(text.size())); // the counts are in its characters
    name.remove(0, openingLength);
    if (const auto closing = name.indexOf(QLatin1String("]]")); closing >= 0)
        name.remove(closing, closingLength);
    return name.toStdString();
}
