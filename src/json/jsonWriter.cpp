#include "json/jsonWriter.h"

#include "text/fractionText.h"
#include "text/printableAscii.h"
#include "text/unsafeCharacters.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

namespace json {

namespace {

/// Whether a byte is a character that JSON holds as it is; most texts have no others.
bool isPlain(char byte)
{
    return isPrintableAscii(byte) && byte != '"' && byte != '\\';
}

/// A control that has a letter after the backslash.
struct ShortEscape
{
    char control;
    char letter;
};

constexpr ShortEscape shortEscapes[] = {{'\b', 'b'}, {'\f', 'f'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}};

/// A character by its number.
QString numberedEscape(QChar character)
{
    constexpr int digits = 4;
    constexpr int hexadecimal = 16;
    return QStringLiteral("\\u%1").arg(character.unicode(), digits, hexadecimal, QLatin1Char('0'));
}

QString controlEscape(QChar character, bool isShort)
{
    const auto* const found = std::find_if(std::begin(shortEscapes), std::end(shortEscapes), [&](ShortEscape escape) {
        return character == QLatin1Char(escape.control);
    });
    return isShort && found != std::end(shortEscapes) ? QLatin1Char('\\') + QString(QLatin1Char(found->letter))
                                                      : numberedEscape(character);
}

/// A number as a program writes it: digits only, where it is whole and a double holds it exactly.
std::string numeral(double number)
{
    constexpr double exact = 9007199254740992.0; // 2 to the power of 53
    const bool isWhole = std::trunc(number) == number && std::abs(number) <= exact;
    return isWhole ? std::to_string(static_cast<std::int64_t>(number))
                   : QString::number(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

} // namespace

void Writer::openObject(std::string_view name, Spread spread)
{
    key(name);
    openObject(spread);
}

void Writer::openList(std::string_view name, Spread spread)
{
    key(name);
    openList(spread);
}

void Writer::key(std::string_view name)
{
    text(name);
    m_out.add(spread() == Spread::Tight ? ":" : ": ");
    m_hasKey = true;
}

void Writer::number(std::int64_t number)
{
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits{}; // a sign and one digit more
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    plain({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void Writer::fraction(float number)
{
    plain(std::isfinite(number) ? fractionText(number) : std::string("null"));
}

void Writer::text(std::string_view utf8)
{
    if (std::all_of(utf8.begin(), utf8.end(), isPlain))
        quoted(utf8);
    else
        text(QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size())));
}

void Writer::text(const QString& text)
{
    quoted(escaped(text).toStdString()); // made before the comma is written: there may be no memory for it
}

void Writer::value(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return flag(value.toBool());
    case QJsonValue::Double:
        return plain(numeral(value.toDouble()));
    case QJsonValue::String:
        return text(value.toString());
    case QJsonValue::Array: {
        const QJsonArray elements = value.toArray();
        openList(Spread::Tight);
        for (const auto& element : elements)
            this->value(element);
        return closeList();
    }
    case QJsonValue::Object: {
        const QJsonObject object = value.toObject();
        openObject(Spread::Tight);
        for (auto member = object.begin(); member != object.end(); ++member) {
            key(member.key().toStdString());
            this->value(member.value());
        }
        return closeObject();
    }
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    null();
}

void Writer::value(std::string_view name, const QJsonValue& member)
{
    key(name);
    value(member);
}

void Writer::line(std::initializer_list<Member> members)
{
    openObject(Spread::OneLine);
    for (const auto& [name, member] : members)
        if (!member.isUndefined())
            value(name, member);
    closeObject();
}

/// Writes what goes between the value before and this one.
void Writer::begin()
{
    const Spread around = spread();
    if (!m_hasKey && !m_isFirst)
        m_out.add(around == Spread::OneLine ? ", " : ",");
    if (!m_hasKey && around == Spread::Lines && depth(Spread::Lines) > 0)
        startLine();
    m_hasKey = false;
    m_isFirst = false;
}

/// The stream gets what it does not have yet when the whole value is written.
void Writer::end()
{
    if (depth(Spread::Lines) + depth(Spread::OneLine) + depth(Spread::Tight) == 0)
        m_out.flush();
}

void Writer::plain(std::string_view token)
{
    begin();
    m_out.add(token);
    end();
}

void Writer::quoted(std::string_view utf8)
{
    begin();
    m_out.add('"');
    m_out.add(utf8);
    m_out.add('"');
    end();
}

void Writer::open(char bracket, Spread spread)
{
    begin();
    m_out.add(bracket);
    ++depth(std::max(spread, this->spread()));
    m_isFirst = true;
}

void Writer::close(char bracket)
{
    const Spread closed = spread();
    --depth(closed);
    if (closed == Spread::Lines && !m_isFirst)
        startLine();
    m_out.add(bracket);
    m_isFirst = false;
    end();
}

void Writer::startLine()
{
    m_out.add('\n');
    for (std::size_t blank = 0; blank < depth(Spread::Lines) * m_layout.indentation; ++blank)
        m_out.add(' ');
}

/// That of the innermost open object or list: within a close one there is no wider one.
Spread Writer::spread() const
{
    for (const Spread spread : {Spread::Tight, Spread::OneLine})
        if (m_depths.at(static_cast<std::size_t>(spread)) > 0)
            return spread;
    return Spread::Lines;
}

QString Writer::escaped(const QString& text) const
{
    QString escaped;
    for (const QChar character : text) {
        if (character == QLatin1Char('"') || character == QLatin1Char('\\'))
            escaped += QLatin1Char('\\') + QString(character);
        else if (isUnsafe(character))
            escaped += controlEscape(character, m_layout.hasShortEscapes);
        else
            escaped += character;
    }
    return escaped;
}

} // namespace json
