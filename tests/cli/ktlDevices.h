// ktlDevices.h - which devices a KTL file holds.
#pragma once

#include "ktl/ktlItems.h"

/// Vendor id and product code of each device of a KTL file, in eight hexadecimal digits each; why the file cannot be
/// read, if so.
inline QStringList devicesIn(const QByteArray& ktl)
{
    QString problem;
    QStringList devices;
    for (const KtlItem& item : itemsOf(ktl, &problem))
        if (item.type == 40000)
            devices.append(QStringLiteral("%1 %2")
                               .arg(item.u32(8), 8, 16, QLatin1Char('0'))
                               .arg(item.u32(12), 8, 16, QLatin1Char('0')));
    return problem.isEmpty() ? devices : QStringList{problem};
}

/// The two devices of the sample that most tests use.
inline QStringList sampleDevices()
{
    return {QStringLiteral("7e570003 16160001"), QStringLiteral("7e570003 05040002")};
}
