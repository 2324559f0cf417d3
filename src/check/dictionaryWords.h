// dictionaryWords.h - how findings name what is in a dictionary.
#pragma once

#include "model/valueTexts.h"
#include "text/shownText.h"

#include <QString>

#include <cstdint>
#include <string_view>

namespace check {

/// A text of a tree as a finding shows it.
[[nodiscard]] inline QString shown(std::string_view text)
{
    constexpr std::size_t enough = 400; // bytes: a longer one is cut after 80 characters
    return shownText(QString::fromUtf8(text.data(), static_cast<int>(text.substr(0, enough).size())));
}

/// "0x6000:1"
[[nodiscard]] inline QString objectName(std::uint32_t index, std::uint32_t subIndex)
{
    return QStringLiteral("%1:%2").arg(hexNumber(index)).arg(subIndex);
}

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
