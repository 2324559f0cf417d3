// plainText.h - the characters of a file that holds nothing which only the parser of documents can judge.
#pragma once

#include <optional>
#include <string>

namespace xml {

/// The text of a file in UTF-8, without byte order mark, if it is well-formed UTF-8 or Latin-1 and holds no control
/// characters but blanks and line ends, no further marks, and none of the codes that are no characters.
/// @return  nothing if that is not so
[[nodiscard]] std::optional<std::string> plainText(std::string file);

} // namespace xml
