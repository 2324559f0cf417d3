// valueTexts.h - the values of an ESI file and their texts, one rule for readers, views and editors.
#pragma once

#include "model/nmtoken.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A text is taken as far as its first zero character and as it is, untrimmed. Those of a `std::string_view` are in
// UTF-8.

/// True for "TRUE" in any case, else for a decimal number above 0; a text that is neither gives false.
[[nodiscard]] bool toBool(QStringView text);
[[nodiscard]] bool toBool(std::string_view text);

/// The token that equals the text in any case, else `UnknownType`; "IP_PS" has no text and gives `UnknownType` too.
[[nodiscard]] NMTOKEN toToken(QStringView text);
[[nodiscard]] NMTOKEN toToken(std::string_view text);

/// Unsigned number of a text: 1 or 0 if it holds "TRUE" or "FALSE" anywhere, hexadecimal if it holds "#X", "0X", "DT"
/// or a digit from A to F anywhere, else decimal. All in any case. A text that does not convert gives 0.
[[nodiscard]] std::uint32_t toUint(QStringView text);
[[nodiscard]] std::uint32_t toUint(std::string_view text);

/// As `toUint`, but signed: "-5" is -5, and a hexadecimal number above 0x7FFFFFFF does not convert.
[[nodiscard]] std::int32_t toInt(QStringView text);
[[nodiscard]] std::int32_t toInt(std::string_view text);

/// As `toUint` and `toInt`, but nothing for a text that does not convert.
[[nodiscard]] std::optional<std::uint32_t> convertedUint(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> convertedInt(std::string_view text);

/// Number of a text of hexadecimal byte pairs, the least significant byte first: "0A0B" is 0x0B0A. With "#x" in it the
/// rest is read as it is. More than four bytes, or a text that does not convert, gives 0.
[[nodiscard]] std::uint32_t toUintFromBytes(QStringView text);
[[nodiscard]] std::uint32_t toUintFromBytes(std::string_view text);

/// The text of a token: transitions, "NONE" and "EQ" in upper case, all others in lower case.
/// `UnknownType` and any number outside the enumeration give the empty text.
[[nodiscard]] QString tokenText(NMTOKEN token);

/// "0x" and the lower-case hexadecimal digits without leading zeros; 0 gives "0x00".
[[nodiscard]] QString hexNumber(std::uint32_t number);

/// As `hexNumber`, in the form in which records hold texts.
[[nodiscard]] std::string numberText(std::uint32_t number);
