// showWriter.h - files, shown in one of the forms.
#pragma once

#include "show/showTables.h"
#include "show/shownFile.h"

#include <cstddef>
#include <iosfwd>
#include <optional>

namespace show {

/// What the text for people tells.
enum class TextContent
{
    Summary, ///< in lines that fit a terminal
    Full, ///< everything
    Items, ///< the items of KTL files
};

/// How files are shown: as text for people unless one of the others is asked for.
struct Form
{
    TextContent text = TextContent::Summary;
    bool isJson = false;
    const Table* table = nullptr; ///< as comma-separated values
    CsvForm csv = CsvForm::Plain;
    std::optional<std::size_t> terminalWidth; ///< columns of the terminal; nothing if the text goes elsewhere
};

/// Writes files one after another.
class Writer
{
public:
    /// @param out  has to outlive this
    Writer(std::ostream& out, const Form& form);

    void begin();
    void show(const ShownFile& file);
    /// Ends what was begun of a file, in the middle of it.
    void breakOff();
    void end();

private:
    std::ostream& m_out;
    Form m_form;
    std::optional<CsvWriter> m_csv; ///< with a table only
    bool m_isFirst = true;
};

} // namespace show
