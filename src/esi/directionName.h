// directionName.h - the direction names that sync managers and FMMUs share.
#pragma once

#include "model/syncDirection.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <utility>

/// Direction by its name in an ESI file: "MBoxOut", "MBoxIn", "Outputs" or "Inputs", exactly.
/// @param unknown  the direction of any other name
[[nodiscard]] inline enum_KTL_SMFMMU_TYPE directionByName(const QString& name, enum_KTL_SMFMMU_TYPE unknown)
{
    static const std::array<std::pair<QLatin1String, enum_KTL_SMFMMU_TYPE>, 4> names{{
        {QLatin1String("MBoxOut"), KTL_MBoxOut},
        {QLatin1String("MBoxIn"), KTL_MBoxIn},
        {QLatin1String("Outputs"), KTL_Outputs},
        {QLatin1String("Inputs"), KTL_Inputs},
    }};
    for (const auto& [text, direction] : names)
        if (name == text)
            return direction;
    return unknown;
}
