// characterReference.h - references to characters, by number or by one of the predefined names.
#pragma once

#include <optional>
#include <string_view>

namespace xml {

/// The character that a reference means, if that is plain: up to U+FFFD, and no control character but blanks and line
/// ends. Other numbers are left to the parser of documents, which cuts them to 16 bits.
/// @param name  what is between "&" and ";", such as "amp", "#10" or "#xE9"
[[nodiscard]] std::optional<char16_t> referencedCharacter(std::string_view name);

} // namespace xml
