// syncDirection.h - the directions of sync managers and FMMUs, as `Smtype`, `m_FmmuType` and the KTL file hold them.
#pragma once

#include <cstdint>

/// Directions of sync managers and FMMUs.
enum enum_KTL_SMFMMU_TYPE : std::uint8_t
{
    KTL_UnknownType = 0,
    KTL_MBoxOut = 1,
    KTL_MBoxIn = 2,
    KTL_Outputs = 3,
    KTL_Inputs = 4,
    KTL_DyOutputs = 5,
    KTL_DyInputs = 6,
    KTL_Local = 7
};

/// Whether a sync manager of this direction carries process data; it can have PDOs assigned to it.
[[nodiscard]] constexpr bool carriesProcessData(std::uint8_t direction) noexcept
{
    return direction == KTL_Outputs || direction == KTL_Inputs;
}
