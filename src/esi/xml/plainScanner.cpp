#include "esi/xml/plainScanner.h"

#include "esi/xml/characterReference.h"
#include "esi/xml/limitCount.h"
#include "esi/xml/nameRole.h"
#include "esi/xml/plainText.h"
#include "esi/xml/treeBuilder.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace xml {

namespace {

constexpr std::string_view blanks = " \t\r\n";

/// What a byte may be part of.
enum CharacterClass : std::uint8_t
{
    NameStart = 1,
    NameRest = 2, ///< of a name after its first character
    Blank = 4,
    EndOfText = 8, ///< of a run of characters that are text as they are
    EndOfValue = 16, ///< of the same in the value of an attribute
};

constexpr std::array<std::uint8_t, 256> characterClasses()
{
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&](unsigned first, unsigned last, unsigned kind) {
        for (unsigned byte = first; byte <= last; ++byte)
            classes[byte] = static_cast<std::uint8_t>(classes[byte] | kind);
    };
    for (const unsigned first : {unsigned{'A'}, unsigned{'a'}})
        add(first, first + 25, unsigned{NameStart} | NameRest);
    add('_', '_', unsigned{NameStart} | NameRest);
    add('0', '9', NameRest);
    add('-', '.', NameRest);
    for (const char blank : blanks)
        add(static_cast<unsigned char>(blank), static_cast<unsigned char>(blank), Blank);
    for (const unsigned end : {unsigned{'<'}, unsigned{'&'}})
        add(end, end, unsigned{EndOfText} | EndOfValue);
    add('>', '>', EndOfText);
    for (const unsigned quote : {unsigned{'"'}, unsigned{'\''}})
        add(quote, quote, EndOfValue);
    return classes;
}

bool isOf(char character, CharacterClass kind)
{
    static constexpr std::array<std::uint8_t, 256> classes = characterClasses();
    return (classes[static_cast<unsigned char>(character)] & kind) != 0;
}

/// Whether a text is nothing but blanks, those of other scripts included: such a text is no node.
bool isBlank(std::string_view text)
{
    const auto isOther = [](char character) { return !isOf(character, Blank); };
    const auto first = std::find_if(text.begin(), text.end(), isOther);
    if (first == text.end() || static_cast<unsigned char>(*first) < 0x80)
        return first == text.end();
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).simplified().isEmpty();
}

/// A name as it is in the file.
struct QualifiedName
{
    std::string_view whole;
    std::string_view prefix; ///< empty if there is none
    std::string_view local;
};

/// Goes through a file from its start to its end. Functions that return false have met what is not plain; nothing else
/// is called then.
class PlainScanner
{
public:
    explicit PlainScanner(std::string text)
        : m_builder(std::move(text), Places::Positions)
        , m_text(m_builder.source())
    {
        m_builder.reserve(static_cast<std::size_t>(std::count(m_text.begin(), m_text.end(), '<')) + 1);
    }

    std::optional<Tree> scan()
    {
        if (passDeclaration() && passMisc() && isElementNext() && scanElements() && passMisc() && isAtEnd())
            return m_builder.take();
        return std::nullopt;
    }

private:
    // ---- The text, and the place in it ----

    [[nodiscard]] bool isAtEnd() const { return m_position == m_text.size(); }
    /// The character at the place, or a zero, which is in no plain file, at the end.
    [[nodiscard]] char next() const { return isAtEnd() ? '\0' : m_text[m_position]; }
    [[nodiscard]] bool isNext(std::string_view mark) const { return m_text.substr(m_position, mark.size()) == mark; }

    bool take(char character)
    {
        if (next() != character)
            return false;
        m_position += 1;
        return true;
    }
    bool take(std::string_view mark)
    {
        if (!isNext(mark))
            return false;
        m_position += mark.size();
        return true;
    }
    /// @return  whether there were any
    bool passBlanks()
    {
        const std::size_t start = m_position;
        while (isOf(next(), Blank))
            m_position += 1;
        return m_position > start;
    }
    void passAllBut(CharacterClass kind)
    {
        while (!isAtEnd() && !isOf(m_text[m_position], kind))
            m_position += 1;
    }
    /// Takes all up to a mark, and the mark.
    /// @return  nothing if there is no such mark
    std::optional<std::string_view> takeUpTo(std::string_view mark)
    {
        const std::size_t end = m_text.find(mark, m_position);
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view taken = m_text.substr(m_position, end - m_position);
        m_position = end + mark.size();
        return taken;
    }

    /// A text that is in the file as it is.
    [[nodiscard]] TextRange rangeOf(std::string_view part) const
    {
        return TreeBuilder::sourceRange(static_cast<std::size_t>(part.data() - m_text.data()), part.size());
    }
    [[nodiscard]] std::uint32_t place() const { return static_cast<std::uint32_t>(m_position); }

    // ---- What is not an element ----

    bool passDeclaration()
    {
        static const QRegularExpression declaration(
            QLatin1String(R"x(^<\?xml\s+version\s*=\s*(?:"1\.0"|'1\.0'))x"
                          R"x((?:\s+encoding\s*=\s*(?:"[A-Za-z][A-Za-z0-9._-]*"|'[A-Za-z][A-Za-z0-9._-]*'))?)x"
                          R"x((?:\s+standalone\s*=\s*(?:"(?:yes|no)"|'(?:yes|no)'))?\s*\?>)x"));
        constexpr std::size_t maxLength = 256;
        if (!isNext("<?xml") || isOf(m_text.substr(0, 6).back(), NameRest))
            return true;
        const std::string_view start = m_text.substr(0, maxLength);
        const QRegularExpressionMatch match =
            declaration.match(QString::fromLatin1(start.data(), static_cast<int>(start.size())));
        m_position = static_cast<std::size_t>(match.capturedLength());
        return match.hasMatch() && m_count.addNode();
    }

    /// Comments, processing instructions and blanks outside of the root element, which are not in the tree.
    bool passMisc()
    {
        while (true) {
            passBlanks();
            if (!isNext("<!--") && !isNext("<?"))
                return true;
            if (isNext("<?") ? !takeInstruction() : !takeComment().has_value())
                return false;
        }
    }

    /// @return  nothing if it is not plain
    std::optional<std::string_view> takeComment()
    {
        m_position += std::string_view("<!--").size();
        const std::optional<std::string_view> characters = takeUpTo("--");
        return take('>') && m_count.addNode() ? characters : std::nullopt;
    }

    bool takeInstruction()
    {
        m_position += std::string_view("<?").size();
        const std::optional<QualifiedName> target = takeName();
        if (!target.has_value() || !target->prefix.empty() || isXml(target->local))
            return false;
        if (!isNext("?>") && !passBlanks())
            return false;
        return takeUpTo("?>").has_value() && m_count.addNode();
    }

    static bool isXml(std::string_view name)
    {
        return QString::fromLatin1(name.data(), static_cast<int>(name.size())).toLower() == QLatin1String("xml");
    }

    // ---- Elements ----

    [[nodiscard]] bool isElementNext() const
    {
        return next() == '<' && m_position + 1 < m_text.size() && isOf(m_text[m_position + 1], NameStart);
    }

    /// The root element, and all that is in it.
    bool scanElements()
    {
        do {
            if (next() != '<' ? !scanText() : !scanMarkup())
                return false;
        } while (!m_open.empty());
        return true;
    }

    bool scanMarkup()
    {
        const std::uint32_t start = place();
        if (isElementNext())
            return scanStartTag();
        if (isNext("</"))
            return scanEndTag();
        if (isNext("<!--")) {
            const std::optional<std::string_view> comment = takeComment();
            if (comment.has_value())
                m_builder.add(NodeKind::Comment, rangeOf(*comment), start);
            return comment.has_value();
        }
        if (isNext("<?")) {
            m_builder.add(NodeKind::Other, {}, start);
            return takeInstruction();
        }
        return take("<![CDATA[") && scanCdata(start);
    }

    bool scanCdata(std::uint32_t start)
    {
        const std::optional<std::string_view> characters = takeUpTo("]]>");
        if (!characters.has_value() || !m_count.addNode() || !m_count.addText(static_cast<int>(characters->size())))
            return false;
        m_builder.add(NodeKind::Text, rangeOf(*characters), start);
        return true;
    }

    bool scanStartTag()
    {
        const std::uint32_t start = place();
        m_position += 1;
        const std::optional<QualifiedName> name = takeName();
        if (!name.has_value())
            return false;
        m_builder.openElement(rangeOf(name->local), start);
        m_open.push_back(name->whole);
        if (!scanAttributes() || !m_count.enterElement(nameRoleOf(name->local), static_cast<int>(m_attributes.size())))
            return false;
        return take("/>") ? closeElement() : take('>');
    }

    bool scanEndTag()
    {
        m_position += std::string_view("</").size();
        if (!take(m_open.back()))
            return false;
        passBlanks();
        return take('>') && closeElement();
    }

    bool closeElement()
    {
        m_builder.closeElement();
        m_count.leaveElement();
        m_open.pop_back();
        return true;
    }

    bool scanAttributes()
    {
        m_attributes.clear();
        bool hasBlank = passBlanks();
        for (; isOf(next(), NameStart); hasBlank = passBlanks())
            if (!hasBlank || !scanAttribute())
                return false;
        return arePlain(m_attributes);
    }

    /// Whether it is plain which attribute a local name means: the last one with that name, unless one has a prefix.
    static bool arePlain(const std::vector<QualifiedName>& attributes)
    {
        return std::none_of(attributes.begin(), attributes.end(), [&](const QualifiedName& prefixed) {
            const auto isNamesake = [&](const QualifiedName& other) { return other.local == prefixed.local; };
            return !prefixed.prefix.empty() && std::count_if(attributes.begin(), attributes.end(), isNamesake) > 1;
        });
    }

    bool scanAttribute()
    {
        const std::optional<QualifiedName> name = takeName();
        if (!name.has_value())
            return false;
        passBlanks();
        if (!take('='))
            return false;
        passBlanks();
        const std::optional<TextRange> value = takeValue();
        if (!value.has_value())
            return false;
        if (name->whole == "xmlns" || name->prefix == "xmlns")
            return countPrefix(name->whole);
        m_attributes.push_back(*name);
        m_builder.addAttribute(rangeOf(name->local), *value);
        return true;
    }

    /// @param declaration  the whole name of the attribute, which is another one for each prefix
    bool countPrefix(std::string_view declaration)
    {
        if (std::find(m_prefixes.begin(), m_prefixes.end(), declaration) == m_prefixes.end())
            m_prefixes.push_back(declaration);
        return m_count.holdsPrefixes(static_cast<int>(m_prefixes.size()));
    }

    /// A name with at most one colon in it.
    std::optional<QualifiedName> takeName()
    {
        const std::string_view first = takePlainName();
        if (first.empty() || next() != ':')
            return first.empty() ? std::nullopt : std::make_optional(QualifiedName{first, {}, first});
        m_position += 1;
        const std::string_view second = takePlainName();
        if (second.empty() || next() == ':')
            return std::nullopt;
        const std::string_view whole(first.data(), first.size() + 1 + second.size());
        return QualifiedName{whole, first, second};
    }

    /// @return  empty if there is none
    std::string_view takePlainName()
    {
        const std::size_t start = m_position;
        if (isOf(next(), NameStart))
            while (isOf(next(), NameRest))
                m_position += 1;
        return m_text.substr(start, m_position - start);
    }

    // ---- Characters ----

    std::optional<TextRange> takeValue()
    {
        const char quote = next();
        if (!take('"') && !take('\''))
            return std::nullopt;
        const std::optional<std::string_view> characters = takeCharacters(EndOfValue, quote);
        return characters.has_value() && take(quote) ? std::make_optional(kept(*characters)) : std::nullopt;
    }

    bool scanText()
    {
        const std::uint32_t start = place();
        const std::optional<std::string_view> characters = takeCharacters(EndOfText, '<');
        if (!characters.has_value())
            return false;
        if (isBlank(*characters))
            return true;
        if (!m_count.addText(static_cast<int>(characters->size())))
            return false;
        m_builder.add(NodeKind::Text, kept(*characters), start);
        return true;
    }

    /// Takes all characters before `end`. They are a part of the file, or what `m_decoded` has then.
    /// @param stops  characters to look at, `end` included
    std::optional<std::string_view> takeCharacters(CharacterClass stops, char end)
    {
        const std::size_t start = m_position;
        std::size_t decodedEnd = start; // what is before it is in `m_decoded`
        m_decoded.clear();
        for (passAllBut(stops); next() != end; passAllBut(stops)) {
            const std::string_view before = m_text.substr(start, m_position - start);
            const bool closesCdata = next() == '>' && before.size() >= 2 && before.substr(before.size() - 2) == "]]";
            if (isAtEnd() || next() == '<' || closesCdata)
                return std::nullopt;
            if (next() != '&') {
                m_position += 1;
                continue;
            }
            m_decoded += m_text.substr(decodedEnd, m_position - decodedEnd);
            if (!decodeReference())
                return std::nullopt;
            decodedEnd = m_position;
        }
        const std::string_view rest = m_text.substr(decodedEnd, m_position - decodedEnd);
        return decodedEnd == start ? rest : std::string_view(m_decoded += rest);
    }

    bool decodeReference()
    {
        constexpr std::size_t maxLength = 12;
        const std::string_view start = m_text.substr(m_position + 1, maxLength);
        const std::size_t length = start.find(';');
        const std::optional<char16_t> character = referencedCharacter(start.substr(0, length));
        if (length == std::string_view::npos || !character.has_value())
            return false;
        const QByteArray utf8 = QString(QChar(*character)).toUtf8();
        m_decoded.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
        m_position += 1 + length + 1;
        return true;
    }

    /// The range of what `takeCharacters` has taken.
    TextRange kept(std::string_view characters)
    {
        return characters.data() == m_decoded.data() ? m_builder.keep(characters) : rangeOf(characters);
    }

    TreeBuilder m_builder;
    std::string_view m_text;
    std::size_t m_position = 0;
    LimitCount m_count;
    std::vector<std::string_view> m_open; ///< whole names of the elements that are open
    std::vector<QualifiedName> m_attributes; ///< of the start tag that is being read
    std::vector<std::string_view> m_prefixes; ///< that were declared
    std::string m_decoded; ///< a text that is not in the file as it is
};

} // namespace

std::optional<Tree> treeOfPlainXml(std::string file)
{
    std::optional<std::string> text = plainText(std::move(file));
    return text.has_value() ? PlainScanner(std::move(*text)).scan() : std::nullopt;
}

} // namespace xml
