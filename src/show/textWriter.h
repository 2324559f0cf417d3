// textWriter.h - values as text for people.
#pragma once

#include "show/showValue.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace show {

/// Writes objects for people, in lines that fit a terminal.
class TextWriter
{
public:
    /// @param lineWidth  columns of a line, `anyWidth` where lines may be as long as they are
    TextWriter(std::ostream& out, std::size_t lineWidth)
        : m_out(out)
        , m_lineWidth(lineWidth)
    {}

    /// Writes the members of an object, one below the other; lists of plain objects as tables if these fit, other lists
    /// element by element. Each line is indented.
    void writeObject(const Object& object, std::size_t indentation);

private:
    void writeParts(const std::string& head, const std::vector<std::string>& parts);
    void writeList(const std::string& label, const List& list, std::size_t indentation);
    /// Columns that are left after an indentation.
    [[nodiscard]] std::size_t room(std::size_t indentation) const;

    std::ostream& m_out;
    std::size_t m_lineWidth;
};

} // namespace show
