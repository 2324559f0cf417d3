// xmlCharConversion.h - the value conversions by their fixed names. `model/valueTexts.h` holds their rules.
#pragma once

#include "model/nmtoken.h"
#include "model/valueTexts.h"

#include <QChar>
#include <QString>

#include <cstdint>

// A text is a pointer to zero-terminated characters, taken whole: no caller trims. A null pointer counts as the empty
// text.

[[nodiscard]] bool xmlGetboolean(QChar* text); ///< see `toBool`
[[nodiscard]] NMTOKEN xmlGetEnumNmtoken(QChar* text); ///< see `toToken`
[[nodiscard]] QString xmlGetStringEnumNmtoken(NMTOKEN token); ///< see `tokenText`
[[nodiscard]] std::uint32_t xmlGetuintString(QChar* text); ///< see `toUint`
[[nodiscard]] std::int32_t xmlGetIntString(QChar* text); ///< see `toInt`
[[nodiscard]] std::uint32_t xmlGetuintStringBigEnd(QChar* text); ///< see `toUintFromBytes`
[[nodiscard]] QString xmlGetStringuint(std::uint32_t num); ///< see `hexNumber`
