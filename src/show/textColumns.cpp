#include "show/textColumns.h"

#include "text/printableAscii.h"

#include <QChar>
#include <QString>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <array>

namespace show {

namespace {

struct CodeRange
{
    uint first;
    uint last;
};

/// Characters that take two columns, by the East Asian widths of Unicode; emoji as terminals draw them. Ascending.
constexpr std::array wideRanges{
    CodeRange{0x1100, 0x115F},   CodeRange{0x231A, 0x231B},   CodeRange{0x23E9, 0x23EC},   CodeRange{0x23F0, 0x23F0},
    CodeRange{0x23F3, 0x23F3},   CodeRange{0x25FD, 0x25FE},   CodeRange{0x2614, 0x2615},   CodeRange{0x2648, 0x2653},
    CodeRange{0x267F, 0x267F},   CodeRange{0x2693, 0x2693},   CodeRange{0x26A1, 0x26A1},   CodeRange{0x26AA, 0x26AB},
    CodeRange{0x26BD, 0x26BE},   CodeRange{0x26C4, 0x26C5},   CodeRange{0x26CE, 0x26CE},   CodeRange{0x26D4, 0x26D4},
    CodeRange{0x26EA, 0x26EA},   CodeRange{0x26F2, 0x26F3},   CodeRange{0x26F5, 0x26F5},   CodeRange{0x26FA, 0x26FA},
    CodeRange{0x26FD, 0x26FD},   CodeRange{0x2705, 0x2705},   CodeRange{0x270A, 0x270B},   CodeRange{0x2728, 0x2728},
    CodeRange{0x274C, 0x274C},   CodeRange{0x274E, 0x274E},   CodeRange{0x2753, 0x2755},   CodeRange{0x2757, 0x2757},
    CodeRange{0x2795, 0x2797},   CodeRange{0x27B0, 0x27B0},   CodeRange{0x27BF, 0x27BF},   CodeRange{0x2B1B, 0x2B1C},
    CodeRange{0x2B50, 0x2B50},   CodeRange{0x2B55, 0x2B55},   CodeRange{0x2E80, 0x303E},   CodeRange{0x3041, 0x4DBF},
    CodeRange{0x4E00, 0xA4CF},   CodeRange{0xA960, 0xA97C},   CodeRange{0xAC00, 0xD7A3},   CodeRange{0xF900, 0xFAFF},
    CodeRange{0xFE10, 0xFE19},   CodeRange{0xFE30, 0xFE6F},   CodeRange{0xFF01, 0xFF60},   CodeRange{0xFFE0, 0xFFE6},
    CodeRange{0x16FE0, 0x18CFF}, CodeRange{0x1AFF0, 0x1B2FF}, CodeRange{0x1F004, 0x1F004}, CodeRange{0x1F0CF, 0x1F0CF},
    CodeRange{0x1F18E, 0x1F18E}, CodeRange{0x1F191, 0x1F19A}, CodeRange{0x1F200, 0x1F320}, CodeRange{0x1F32D, 0x1F335},
    CodeRange{0x1F337, 0x1F37C}, CodeRange{0x1F37E, 0x1F393}, CodeRange{0x1F3A0, 0x1F3CA}, CodeRange{0x1F3CF, 0x1F3D3},
    CodeRange{0x1F3E0, 0x1F3F0}, CodeRange{0x1F3F4, 0x1F3F4}, CodeRange{0x1F3F8, 0x1F43E}, CodeRange{0x1F440, 0x1F440},
    CodeRange{0x1F442, 0x1F4FC}, CodeRange{0x1F4FF, 0x1F53D}, CodeRange{0x1F54B, 0x1F54E}, CodeRange{0x1F550, 0x1F567},
    CodeRange{0x1F57A, 0x1F57A}, CodeRange{0x1F595, 0x1F596}, CodeRange{0x1F5A4, 0x1F5A4}, CodeRange{0x1F5FB, 0x1F64F},
    CodeRange{0x1F680, 0x1F6C5}, CodeRange{0x1F6CC, 0x1F6CC}, CodeRange{0x1F6D0, 0x1F6D2}, CodeRange{0x1F6D5, 0x1F6DF},
    CodeRange{0x1F6EB, 0x1F6EC}, CodeRange{0x1F6F4, 0x1F6FC}, CodeRange{0x1F7E0, 0x1F7EB}, CodeRange{0x1F7F0, 0x1F7F0},
    CodeRange{0x1F90C, 0x1F93A}, CodeRange{0x1F93C, 0x1F945}, CodeRange{0x1F947, 0x1F9FF}, CodeRange{0x1FA70, 0x1FAFF},
    CodeRange{0x20000, 0x3FFFD},
};

bool isWide(uint code)
{
    const auto* const found = std::lower_bound(wideRanges.begin(), wideRanges.end(), code,
                                               [](const CodeRange& range, uint wanted) { return range.last < wanted; });
    return found != wideRanges.end() && found->first <= code;
}

/// Whether a character is drawn onto the one before it, or not at all. A soft hyphen is drawn.
bool takesNoColumn(uint code)
{
    constexpr uint softHyphen = 0xAD;
    constexpr CodeRange hangulParts{0x1160, 0x11FF}; // vowels and finals, which join the consonant before them
    const QChar::Category category = QChar::category(code);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing
           || (category == QChar::Other_Format && code != softHyphen)
           || (code >= hangulParts.first && code <= hangulParts.last);
}

std::size_t columnsOfCode(uint code)
{
    if (takesNoColumn(code))
        return 0;
    return isWide(code) ? 2 : 1;
}

std::size_t columnsOf(const QString& text)
{
    std::size_t columns = 0;
    for (const uint code : text.toUcs4())
        columns += columnsOfCode(code);
    return columns;
}

/// Lines that are filled word by word.
class LineFiller
{
public:
    explicit LineFiller(std::size_t columns)
        : m_columns(columns)
    {}

    void add(const QString& word)
    {
        const std::size_t columns = columnsOf(word);
        const std::size_t blank = m_line.isEmpty() ? 0 : 1;
        if (m_taken + blank + columns <= m_columns) {
            m_line += QString(static_cast<int>(blank), QLatin1Char(' ')) + word;
            m_taken += blank + columns;
            return;
        }
        if (blank != 0)
            endLine();
        for (const uint code : word.toUcs4())
            addCode(code);
    }

    [[nodiscard]] std::vector<std::string> lines()
    {
        if (!m_line.isEmpty() || m_lines.empty())
            endLine();
        return m_lines;
    }

private:
    void addCode(uint code)
    {
        const std::size_t columns = columnsOfCode(code);
        if (m_taken + columns > m_columns && !m_line.isEmpty())
            endLine();
        m_line += QString::fromUcs4(&code, 1);
        m_taken += columns;
    }

    void endLine()
    {
        m_lines.push_back(m_line.toStdString());
        m_line.clear();
        m_taken = 0;
    }

    std::size_t m_columns;
    std::vector<std::string> m_lines;
    QString m_line;
    std::size_t m_taken = 0; ///< columns of `m_line`
};

QStringList wordsIn(const std::string& utf8)
{
    return QString::fromStdString(utf8).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

std::size_t columnsOf(std::string_view utf8)
{
    if (isPrintableAscii(utf8)) // as most texts are
        return utf8.size();
    return columnsOf(QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size())));
}

std::size_t maxWordColumns(std::string_view utf8)
{
    std::size_t columns = 0;
    std::size_t begin = 0;
    while (begin < utf8.size()) {
        const std::size_t end = std::min(utf8.find(' ', begin), utf8.size());
        columns = std::max(columns, columnsOf(utf8.substr(begin, end - begin)));
        begin = end + 1;
    }
    return columns;
}

std::vector<std::string> brokenInto(const std::string& utf8, std::size_t columns)
{
    if (columnsOf(utf8) <= columns)
        return {utf8};
    LineFiller filler(columns);
    for (const QString& word : wordsIn(utf8))
        filler.add(word);
    return filler.lines();
}

} // namespace show
