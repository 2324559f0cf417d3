// wrappedText.h - texts in lines of a terminal.
#pragma once

#include <QString>

namespace cli {

/// A text in lines of at most so many characters, broken at blanks; a longer word has a line of its own.
[[nodiscard]] QString wrapped(const QString& text, int maxWidth);

} // namespace cli
