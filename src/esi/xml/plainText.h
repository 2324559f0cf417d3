// plainText.h - the characters of a file that holds nothing which only the parser of documents can judge.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace xml {

/// Encodings of plain files.
enum class PlainEncoding
{
    Utf8,
    Latin1
};

/// How a plain file is encoded, and how many bytes its mark takes.
struct PlainStart
{
    PlainEncoding encoding;
    std::size_t markLength;
};

/// Judges a file by its first bytes, `XmlDecoder::maxDeclarationBytes` of them or all.
/// @return  nothing if it has another encoding
[[nodiscard]] std::optional<PlainStart> plainStartOf(std::string_view start);

/// Whether a text is well-formed UTF-8, and holds what a plain text may hold alone.
[[nodiscard]] bool isPlainUtf8(std::string_view text);

/// The text of a file in UTF-8, or of a part of it, that was given in Latin-1.
[[nodiscard]] std::string utf8OfLatin1(std::string_view file);

/// The text of a file in UTF-8, without byte order mark, if it is well-formed UTF-8 or Latin-1 and holds no control
/// characters but blanks and line ends, no further marks, and none of the codes that are no characters.
/// @return  nothing if that is not so
[[nodiscard]] std::optional<std::string> plainText(std::string file);

} // namespace xml
