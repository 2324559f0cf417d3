// showWords.h - numbers and texts in words that people read.
#pragma once

#include "ktl/format/ktlLayout.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace show {

/// "0x1c12"; a negative number with its sign in front.
[[nodiscard]] std::string hexText(std::int64_t number);

/// "1 byte", "14 bytes".
/// @param many  the word for any number but one; without it the word for one and an s
template<typename Number>
[[nodiscard]] std::string counted(Number number, const std::string& one, const std::string& many = {})
{
    return std::to_string(number) + ' ' + (number == 1 ? one : many.empty() ? one + 's' : many);
}

/// A time of nanoseconds in the unit in which people say it: "2 ms", "62.5 us".
[[nodiscard]] std::string timeText(std::int64_t nanoseconds);

/// Bytes in hexadecimal pairs, separated by blanks.
/// @param end  offset after the last byte
[[nodiscard]] std::string bytesText(const ItemBytes& item, std::size_t begin, std::size_t end);

/// Name of a device class, such as "SingleDriver"; empty for a number without one.
[[nodiscard]] std::string deviceTypeName(std::int64_t type);

/// Words of a link as views show them, such as "DOUT Type"; its number if it has none.
[[nodiscard]] std::string linkWords(std::int32_t link);

/// Name of the direction of a sync manager or FMMU, such as "Outputs"; empty for a number without one.
[[nodiscard]] std::string directionName(std::int64_t direction);

/// Name of a token, such as "PS" or "ro"; "IP_PS" for both of these transitions; empty for no token.
[[nodiscard]] std::string tokenName(std::int64_t token);

/// Words of the bits that are set in a DC assign-activate word: "bit 9: SYNC 0". Bits without a meaning of their own
/// show as their number.
[[nodiscard]] std::vector<std::string> assignActivateWords(std::int64_t assignActivate);

/// "inputs" or "outputs".
[[nodiscard]] std::string_view dataDirection(bool isInput);

/// Vendor, product code and revision as all sub-commands write them and selectors take them: "0x7e570002:0x5001:0x00".
[[nodiscard]] std::string identityText(std::uint32_t vendor, std::uint32_t product, std::uint32_t revision);

/// An index with a name, which is cut where it is longer than people read: `0x1600 "Control"`.
[[nodiscard]] std::string withName(std::uint16_t index, std::string_view name);

/// "slot 3".
/// @param place  of a module, from 0
[[nodiscard]] std::string slotLabel(int place);

/// `PDO 0x1600 "Control", slot 3`.
/// @param place  of the module that it belongs to, from 0; negative for a PDO of the device itself
[[nodiscard]] std::string pdoLabel(std::uint16_t index, std::string_view name, int place);

/// "0x6000:1".
[[nodiscard]] std::string objectText(std::uint16_t index, std::uint32_t subIndex);

/// A bit of a process image as "12.3": the byte, and the bit in it.
[[nodiscard]] std::string placeText(std::int64_t bit);

/// What the number in a field of a KTL file means; empty where it is just a number.
[[nodiscard]] std::string wordsOf(KtlMeaning meaning, std::int64_t number);

} // namespace show
