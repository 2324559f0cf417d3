// svgLetters.h - how much room texts take in a picture, whichever of the usual fonts it is shown with.
#pragma once

#include <string>
#include <vector>

namespace image {

/// Pixels of the letters of a picture, but for headings.
inline constexpr int letterSize = 11;

/// Pixels that a text takes at most.
[[nodiscard]] double pixelsOf(const std::string& utf8, int size = letterSize);

/// As much of a text as fits a width, and an ending.
[[nodiscard]] std::string fitted(const std::string& utf8, const std::string& ending, int width);

/// A text in lines that fit a width. It breaks at blanks, and inside a word only where the word alone is too long.
/// @param utf8  one line
[[nodiscard]] std::vector<std::string> brokenAt(const std::string& utf8, int width, int size);

} // namespace image
