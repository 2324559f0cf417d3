// xmlCharConversion.h - the value conversions that all readers, views and editors share.
#pragma once

#include "model/nmtoken.h"

#include <QChar>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <string>

// The seven conversions by their fixed names. A text is a pointer to zero-terminated characters, taken whole: no caller
// trims. A null pointer counts as the empty text.

/// True for "TRUE" in any case, else for a decimal number above 0; a text that is neither gives false.
[[nodiscard]] bool xmlGetboolean(QChar* text);

/// The token that equals the text in any case, else `UnknownType`; "IP_PS" has no text and gives `UnknownType` too.
[[nodiscard]] NMTOKEN xmlGetEnumNmtoken(QChar* text);

/// The text of a token: transitions, "NONE" and "EQ" in upper case, all others in lower case.
/// `UnknownType` and any number outside the enumeration give the empty text.
[[nodiscard]] QString xmlGetStringEnumNmtoken(NMTOKEN token);

/// Unsigned number of a text: 1 or 0 if it holds "TRUE" or "FALSE" anywhere, hexadecimal if it holds "#X", "0X", "DT"
/// or a digit from A to F anywhere, else decimal. All in any case. A text that does not convert gives 0.
[[nodiscard]] std::uint32_t xmlGetuintString(QChar* text);

/// As `xmlGetuintString`, but signed: "-5" is -5, and a hexadecimal number above 0x7FFFFFFF does not convert.
[[nodiscard]] std::int32_t xmlGetIntString(QChar* text);

/// Number of a text of hexadecimal byte pairs, the least significant byte first: "0A0B" is 0x0B0A. With "#x" in it the
/// rest is read as it stands. More than four bytes, or a text that does not convert, gives 0.
[[nodiscard]] std::uint32_t xmlGetuintStringBigEnd(QChar* text);

/// "0x" and the lower-case hexadecimal digits without leading zeros; 0 gives "0x00".
[[nodiscard]] QString xmlGetStringuint(std::uint32_t num);

// The same conversions for a text that is at hand as a string; they hold the rules, the fixed names call them.

[[nodiscard]] bool toBool(QStringView text); ///< see `xmlGetboolean`
[[nodiscard]] NMTOKEN toToken(QStringView text); ///< see `xmlGetEnumNmtoken`
[[nodiscard]] std::uint32_t toUint(QStringView text); ///< see `xmlGetuintString`
[[nodiscard]] std::int32_t toInt(QStringView text); ///< see `xmlGetIntString`
[[nodiscard]] std::uint32_t toUintFromBytes(QStringView text); ///< see `xmlGetuintStringBigEnd`
[[nodiscard]] std::string numberText(std::uint32_t number); ///< see `xmlGetStringuint`; a text as records hold it
