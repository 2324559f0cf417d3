// directionName.h - the direction names that sync managers and FMMUs share.
#pragma once

#include "model/syncDirection.h"

#include <array>
#include <string_view>
#include <utility>

/// Direction by its name in an ESI file: "MBoxOut", "MBoxIn", "Outputs" or "Inputs", exactly.
/// @param unknown  the direction of any other name
[[nodiscard]] inline enum_KTL_SMFMMU_TYPE directionByName(std::string_view name, enum_KTL_SMFMMU_TYPE unknown)
{
    static constexpr std::array<std::pair<std::string_view, enum_KTL_SMFMMU_TYPE>, 4> names{{
        {"MBoxOut", KTL_MBoxOut},
        {"MBoxIn", KTL_MBoxIn},
        {"Outputs", KTL_Outputs},
        {"Inputs", KTL_Inputs},
    }};
    for (const auto& [text, direction] : names)
        if (name == text)
            return direction;
    return unknown;
}
