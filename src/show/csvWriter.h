// csvWriter.h - rows as comma-separated values.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace show {

/// Whom the rows are for.
enum class CsvForm
{
    Plain, ///< programs: every text is what it is
    Spreadsheet ///< a spreadsheet program: it finds a byte order mark, and no text that it would take for a formula
};

/// Writes rows by RFC 4180 in UTF-8: commas between fields, carriage return and line feed after a row. A field with a
/// comma, quote, carriage return or line feed is put in quotes, and quotes in it are doubled. Invalid bytes, changes of
/// direction, and controls other than tab, carriage return and line feed become U+FFFD.
class CsvWriter
{
public:
    CsvWriter(std::ostream& out, CsvForm form);

    void writeRow(const std::vector<std::string>& fields);

private:
    std::ostream& m_out;
    CsvForm m_form;
};

} // namespace show
