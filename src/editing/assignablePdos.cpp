#include "editing/assignablePdos.h"

#include "model/syncDirection.h"

bool isAssignable(std::uint16_t pdoIndex, std::uint8_t smType) noexcept
{
    constexpr std::uint16_t firstOutput = 0x1400;
    constexpr std::uint16_t lastOutput = 0x17FF;
    constexpr std::uint16_t firstInput = 0x1800;
    constexpr std::uint16_t lastInput = 0x1BFF;
    if (smType == KTL_Outputs)
        return pdoIndex >= firstOutput && pdoIndex <= lastOutput;
    return smType == KTL_Inputs && pdoIndex >= firstInput && pdoIndex <= lastInput;
}
