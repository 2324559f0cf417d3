// dictionaryWords.h - lengths in findings, with the words that findings about dictionaries need.
#pragma once

#include "check/unitLabels.h"
#include "model/valueTexts.h"

#include <QString>

#include <cstdint>

namespace check {

/// "1 bit", "16 bits"
template<typename Number> [[nodiscard]] QString bitsText(Number bits)
{
    return counted(static_cast<std::int64_t>(bits), "bit");
}

/// "1 byte", "4 bytes"
[[nodiscard]] inline QString bytesText(std::uint64_t bytes)
{
    return counted(static_cast<std::int64_t>(bytes), "byte");
}

} // namespace check
