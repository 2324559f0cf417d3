#include "show/csvWriter.h"

#include "text/printableAscii.h"
#include "text/unsafeCharacters.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>
#include <string_view>

namespace show {

namespace {

bool isKept(QChar character)
{
    return character == QLatin1Char('\t') || character == QLatin1Char('\r') || character == QLatin1Char('\n')
           || !isUnsafe(character);
}

/// The text with U+FFFD for each invalid byte and each character that is not kept.
std::string withoutUnsafe(const std::string& utf8)
{
    if (isPrintableAscii(utf8))
        return utf8; // as most texts are
    QString text = QString::fromStdString(utf8);
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !isKept(character); },
        QChar(QChar::ReplacementCharacter));
    return text.toStdString();
}

bool isWholeNumber(std::string_view text)
{
    const std::size_t sign = text.substr(0, 1) == "-" ? 1 : 0;
    return text.size() > sign && text.find_first_not_of("0123456789", sign) == std::string_view::npos;
}

/// What some spreadsheet program takes for the sign of a formula: some take the wide forms too, and some drop a tab or
/// a line end in front of the sign.
constexpr std::array<std::string_view, 11> formulaSigns{"=",  "+",        "-",        "@",        "\t",      "\r",
                                                        "\n", u8"\uFF1D", u8"\uFF0B", u8"\uFF0D", u8"\uFF20"};

/// Whether a spreadsheet program would take a text for a formula.
bool readsAsFormula(std::string_view text)
{
    const auto isAtStart = [&](std::string_view sign) { return text.substr(0, sign.size()) == sign; };
    return std::any_of(formulaSigns.begin(), formulaSigns.end(), isAtStart) && !isWholeNumber(text);
}

void appendQuoted(std::string& row, std::string_view text)
{
    row += '"';
    for (const char byte : text)
        row.append(byte == '"' ? 2 : 1, byte);
    row += '"';
}

bool needsQuotes(std::string_view text)
{
    return text.find_first_of(",\"\r\n") != std::string_view::npos;
}

} // namespace

CsvWriter::CsvWriter(std::ostream& out, CsvForm form)
    : m_out(out)
    , m_form(form)
{
    if (m_form == CsvForm::Spreadsheet)
        m_out << u8"\uFEFF"; // a byte order mark
}

void CsvWriter::writeRow(const std::vector<std::string>& fields)
{
    std::string row; // made before it is written: a row is whole, also the last one where memory ends
    const char* separator = "";
    for (const std::string& field : fields) {
        std::string text = withoutUnsafe(field);
        if (m_form == CsvForm::Spreadsheet && readsAsFormula(text))
            text.insert(text.begin(), '\'');
        row += separator;
        if (needsQuotes(text))
            appendQuoted(row, text);
        else
            row += text;
        separator = ",";
    }
    row += "\r\n";
    m_out << row;
}

} // namespace show
