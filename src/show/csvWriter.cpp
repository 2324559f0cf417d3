#include "show/csvWriter.h"

#include "text/unsafeCharacters.h"

#include <QChar>
#include <QString>

#include <algorithm>
#include <ostream>

namespace show {

namespace {

bool isKept(QChar character)
{
    return character == QLatin1Char('\t') || character == QLatin1Char('\r') || character == QLatin1Char('\n')
           || !isUnsafe(character);
}

QString withoutUnsafe(QString text)
{
    for (QChar& character : text)
        if (!isKept(character))
            character = QChar::ReplacementCharacter;
    return text;
}

bool isWholeNumber(const QString& text)
{
    const int sign = text.startsWith(QLatin1Char('-')) ? 1 : 0;
    return text.size() > sign && std::all_of(text.begin() + sign, text.end(), [](QChar character) {
               return character >= QLatin1Char('0') && character <= QLatin1Char('9');
           });
}

/// Whether a spreadsheet program would take a text for a formula. Some take the wide forms of the signs too, and some
/// drop a tab or a line end in front of the sign.
bool readsAsFormula(const QString& text)
{
    static const QString signs = QStringLiteral("=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20");
    return !text.isEmpty() && signs.contains(text.front()) && !isWholeNumber(text);
}

QString quoted(QString text)
{
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

bool needsQuotes(const QString& text)
{
    static const QString special = QStringLiteral(",\"\r\n");
    return std::any_of(text.begin(), text.end(), [](QChar character) { return special.contains(character); });
}

} // namespace

CsvWriter::CsvWriter(std::ostream& out, CsvForm form)
    : m_out(out)
    , m_form(form)
{
    if (m_form == CsvForm::Spreadsheet)
        m_out << QString(QChar(QChar::ByteOrderMark)).toStdString();
}

void CsvWriter::writeRow(const std::vector<std::string>& fields)
{
    std::string row; // made before it is written: a row is whole, also the last one where memory ends
    const char* separator = "";
    for (const std::string& field : fields) {
        QString text = withoutUnsafe(QString::fromStdString(field));
        if (m_form == CsvForm::Spreadsheet && readsAsFormula(text))
            text.prepend(QLatin1Char('\''));
        row += separator;
        row += (needsQuotes(text) ? quoted(text) : text).toStdString();
        separator = ",";
    }
    row += "\r\n";
    m_out << row;
}

} // namespace show
