// plainMarkup.h - what markup has to be like to be plain, for every way of reading it.
#pragma once

#include "esi/xml/plainCursor.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace xml {

/// Bytes in which the declaration of a plain file ends.
inline constexpr std::size_t maxPlainDeclaration = 256;

/// Length of the declaration at the start of a file.
/// @return  0 if there is none, nothing if it is not plain
[[nodiscard]] std::optional<std::size_t> plainDeclarationLength(std::string_view file);

/// Whether a text is nothing but blanks, those of other scripts included: such a text is no node.
[[nodiscard]] bool isBlankText(std::string_view text);

/// Whether the target of a processing instruction is "xml", in any case.
[[nodiscard]] bool isReservedTarget(std::string_view name);

/// Whether it is plain which attribute a local name means: the last one with that name, unless one has a prefix.
[[nodiscard]] bool arePlainTogether(const std::vector<QualifiedName>& attributes);

/// Appends the character that a reference means.
/// @param text     from the "&" on
/// @return         length of the reference; 0 if it is not plain
[[nodiscard]] std::size_t appendReferenced(std::string_view text, std::string& to);

} // namespace xml
