// foundLines.h - what was found, as lines of a test.
#pragma once

#include "find/found.h"

#include <QString>
#include <QStringList>

#include <vector>

/// "device 1:2:3 type|name @ 4", numbers in hexadecimal but for the place.
inline QStringList linesOf(const std::vector<find::Found>& found)
{
    QStringList lines;
    for (const find::Found& each : found)
        lines += QStringLiteral("%1 %2:%3:%4 %5|%6 @ %7")
                     .arg(each.kind == find::FoundKind::Device ? QStringLiteral("device") : QStringLiteral("module"))
                     .arg(each.vendor, 0, 16)
                     .arg(each.number, 0, 16)
                     .arg(each.revision, 0, 16)
                     .arg(QString::fromStdString(each.type), QString::fromStdString(each.name))
                     .arg(each.place);
    return lines;
}
