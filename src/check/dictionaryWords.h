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
    return bits == 1 ? QStringLiteral("1 bit") : QStringLiteral("%1 bits").arg(bits);
}

/// "1 byte", "4 bytes"
[[nodiscard]] inline QString bytesText(std::uint64_t bytes)
{
    return bytes == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(bytes);
}

} // namespace check
