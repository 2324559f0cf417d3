// lineCount.h - the lines of a text that comes in pieces.
#pragma once

#include <string_view>

namespace find {

/// Counts lines as the parser of documents does: CR, LF and the pair of them end one.
class LineCount
{
public:
    void pass(std::string_view text)
    {
        for (const char character : text) {
            const bool isPair = character == '\n' && m_isAfterReturn;
            m_isAfterReturn = character == '\r';
            m_line += (character == '\n' || character == '\r') && !isPair ? 1 : 0;
        }
    }

    /// From 1.
    [[nodiscard]] int line() const { return m_line; }

private:
    int m_line = 1;
    bool m_isAfterReturn = false;
};

} // namespace find
