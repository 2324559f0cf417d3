// cutText.h - texts of files, as short as people read them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace show {

/// A text on one line, readable, that takes at most that many columns of a terminal; a longer one ends in "...".
/// @param utf8  of any length; invalid bytes are replaced
[[nodiscard]] std::string cutText(std::string_view utf8, std::size_t columns);

/// A name, a comment or another text of a file as `cutText` has it, of 120 columns at most.
[[nodiscard]] std::string cutName(std::string_view utf8);

/// The first characters of a text as it is, for a table that has it in many rows.
[[nodiscard]] std::string startOf(const std::string& utf8);

} // namespace show
