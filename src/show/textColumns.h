// textColumns.h - how many columns of a terminal a text takes, and how it breaks into lines.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace show {

/// A line that never ends: for a file or another program.
inline constexpr std::size_t anyWidth = std::numeric_limits<std::size_t>::max();

/// Columns that a text takes: two for a wide character such as a Chinese one or an emoji, none for one that is drawn
/// onto the one before it, such as a combining accent.
[[nodiscard]] std::size_t columnsOf(std::string_view utf8);

/// Columns of the widest word, a word being what is between blanks.
[[nodiscard]] std::size_t maxWordColumns(std::string_view utf8);

/// A text in lines that take at most that many columns. It breaks at blanks, and inside a word only where the word
/// alone is too long. A character that is wider than a line has one to itself.
/// @return  at least one line
[[nodiscard]] std::vector<std::string> brokenInto(const std::string& utf8, std::size_t columns);

} // namespace show
