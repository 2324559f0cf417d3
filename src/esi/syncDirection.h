// syncDirection.h - the direction names that sync managers and FMMUs share.
#pragma once

#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

/// Number of a direction name: 1 "MBoxOut", 2 "MBoxIn", 3 "Outputs", 4 "Inputs" (the numbers of
/// `enum_KTL_SMFMMU_TYPE`).
/// @param unknown  the number of any other name
[[nodiscard]] inline std::uint8_t syncDirection(const QString& name, std::uint8_t unknown)
{
    static constexpr std::array names{QLatin1String("MBoxOut"), QLatin1String("MBoxIn"), QLatin1String("Outputs"),
                                      QLatin1String("Inputs")};
    for (std::size_t index = 0; index < names.size(); ++index)
        if (name == names[index])
            return static_cast<std::uint8_t>(index + 1);
    return unknown;
}
