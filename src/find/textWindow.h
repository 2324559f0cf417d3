// textWindow.h - the text of a plain file, a part of it at a time.
#pragma once

#include "esi/xml/plainText.h"
#include "find/lineCount.h"

#include <QIODevice>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace find {

/// Goes through a file from its start to its end, and holds what lies between the place and the end of a block. A view
/// of its text is good until more is read.
class TextWindow
{
public:
    /// Bytes of the longest text, comment or tag that is taken.
    static constexpr std::size_t maxLength = std::size_t{8} * 1024 * 1024;

    /// @param file  open for reading, at its start; has to outlive this
    explicit TextWindow(QIODevice& file);

    /// Whether all that was read is plain, and short enough.
    [[nodiscard]] bool isPlain() const { return m_isPlain; }

    /// What was read and not passed yet.
    [[nodiscard]] std::string_view text() const { return std::string_view(m_text).substr(m_place); }

    /// Reads on until so many bytes are there, or the file ends.
    void fill(std::size_t length);

    /// Length of the text before a mark.
    /// @return  nothing if there is none
    [[nodiscard]] std::optional<std::size_t> lengthUpTo(std::string_view mark);
    /// Length of a tag, from its "<" to its ">".
    [[nodiscard]] std::optional<std::size_t> tagLength();

    /// Passes so many bytes, which are there.
    void pass(std::size_t length) { m_place += length; }

    /// Line of the place.
    [[nodiscard]] int line();

private:
    bool readMore();
    void countLines();
    void append(std::string_view bytes);

    QIODevice& m_file;
    std::optional<xml::PlainEncoding> m_encoding; ///< nothing before the first bytes
    std::string m_text;
    std::size_t m_place = 0; ///< in `m_text`
    std::size_t m_counted = 0; ///< in `m_text`: what is before it is in `m_lines`
    LineCount m_lines;
    std::string m_rest; ///< first bytes of a character that the last block cut
    bool m_isPlain = true;
    bool m_hasEnded = false;
};

} // namespace find
