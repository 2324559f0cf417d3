// writtenValues.h - defaults and limits of a dictionary by what they mean.
#pragma once

#include "diff/value.h"
#include "facts/dictionary/dictionaryContent.h"

namespace diff {

/// A default or limit as it is shown: bytes in lower case and without blanks, numbers in decimal, and what is
/// neither as the text that it is.
[[nodiscard]] Value valueOf(const facts::WrittenValue& written);

/// Whether two of them mean the same. Bytes and a number do if the bytes are those of the number.
[[nodiscard]] bool areSame(const facts::WrittenValue& before, const facts::WrittenValue& after);

} // namespace diff
