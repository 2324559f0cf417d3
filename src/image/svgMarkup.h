// svgMarkup.h - elements of an SVG page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace image {

/// A text for XML: marks are escaped, and characters that XML does not allow become U+FFFD.
[[nodiscard]] std::string xmlText(const std::string& utf8);

/// A rectangle of a page, in pixels.
struct Rectangle
{
    int x = 0;
    std::int64_t y = 0;
    int width = 0;
    std::int64_t height = 0;
};

/// @param id          may be empty
/// @param attributes  for its colours, in the form of XML
[[nodiscard]] std::string rectangleElement(const std::string& id, const Rectangle& place, std::string_view attributes);

/// @param id          may be empty
/// @param attributes  for its letters, in the form of XML; may be empty
/// @param utf8        any text
[[nodiscard]] std::string textElement(const std::string& id, int left, std::int64_t baseline,
                                      std::string_view attributes, const std::string& utf8);

} // namespace image
