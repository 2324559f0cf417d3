// oversampledPdo.h - builds oversampled PDOs, and shows lists of PDOs by their names.
#pragma once

#include "esi/derivation/oversampling.h"

#include <QString>
#include <QStringList>

#include <vector>

/// A PDO that is not oversampled.
[[nodiscard]] inline struct_PDOList plainPdo(const char* name)
{
    struct_PDOList pdo;
    pdo.Name = name;
    return pdo;
}

/// A PDO with an oversampling range, 0x10 between the entries of one sample and the next.
[[nodiscard]] inline struct_PDOList oversampledPdo(const char* name, int first, int last)
{
    struct_PDOList pdo = plainPdo(name);
    pdo.IndexAttributes.Index = 0x1A00;
    pdo.Attributes.m_OSFac = 1;
    pdo.Attributes.m_OSMin = first;
    pdo.Attributes.m_OSMax = last;
    pdo.Attributes.m_OSIndexInc = 0x10;
    return pdo;
}

/// What becomes of these output PDOs of a device.
[[nodiscard]] inline std::vector<struct_PDOList> expanded(const std::vector<struct_PDOList>& pdos)
{
    struct_EtherCatDevice device;
    device.RxPdo.vpdo = pdos;
    expandOversampledPdos(device);
    return device.RxPdo.vpdo;
}

[[nodiscard]] inline QStringList namesOf(const std::vector<struct_PDOList>& pdos)
{
    QStringList names;
    for (const struct_PDOList& pdo : pdos)
        names << QString::fromStdString(pdo.Name);
    return names;
}
