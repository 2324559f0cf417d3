#include "esi/xml/plainScanner.h"

#include "esi/xml/limitCount.h"
#include "esi/xml/nameRole.h"
#include "esi/xml/plainCursor.h"
#include "esi/xml/plainMarkup.h"
#include "esi/xml/plainText.h"
#include "esi/xml/treeBuilder.h"
#include "esi/xml/xmlLimits.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace xml {

namespace {

/// Goes through a file from its start to its end. Functions that return false have met what is not plain; nothing else
/// is called then.
class PlainScanner
{
public:
    explicit PlainScanner(std::string text)
        : m_builder(std::move(text), Places::Positions)
        , m_at(m_builder.source())
    {
        const std::string& source = m_builder.source();
        m_builder.reserve(static_cast<std::size_t>(std::count(source.begin(), source.end(), '<')) + 1);
    }

    std::optional<Tree> scan()
    {
        if (passDeclaration() && passMisc() && isElementNext() && scanElements() && passMisc() && m_at.isAtEnd())
            return m_builder.take();
        return std::nullopt;
    }

private:
    /// A text that is in the file as it is.
    [[nodiscard]] TextRange rangeOf(std::string_view part) const
    {
        return TreeBuilder::sourceRange(static_cast<std::size_t>(part.data() - m_at.text().data()), part.size());
    }
    [[nodiscard]] std::uint32_t place() const { return static_cast<std::uint32_t>(m_at.position()); }

    // ---- What is not an element ----

    bool passDeclaration()
    {
        const std::optional<std::size_t> length = plainDeclarationLength(m_at.text());
        m_at.pass(length.value_or(0));
        return length.has_value() && (*length == 0 || m_count.addNode());
    }

    /// Comments, processing instructions and blanks outside of the root element, which are not in the tree.
    bool passMisc()
    {
        while (true) {
            m_at.passBlanks();
            if (!m_at.isNext("<!--") && !m_at.isNext("<?"))
                return true;
            if (m_at.isNext("<?") ? !takeInstruction() : !takeComment().has_value())
                return false;
        }
    }

    /// @return  nothing if it is not plain
    std::optional<std::string_view> takeComment()
    {
        m_at.pass(std::string_view("<!--").size());
        const std::optional<std::string_view> characters = m_at.takeUpTo("--");
        return m_at.take('>') && m_count.addNode() ? characters : std::nullopt;
    }

    bool takeInstruction()
    {
        m_at.pass(std::string_view("<?").size());
        const std::optional<QualifiedName> target = m_at.takeName();
        if (!target.has_value() || !target->prefix.empty() || isReservedTarget(target->local))
            return false;
        if (!m_at.isNext("?>") && !m_at.passBlanks())
            return false;
        return m_at.takeUpTo("?>").has_value() && m_count.addNode();
    }

    // ---- Elements ----

    [[nodiscard]] bool isElementNext() const
    {
        return m_at.next() == '<' && m_at.position() + 1 < m_at.text().size()
               && isOf(m_at.text()[m_at.position() + 1], NameStart);
    }

    /// The root element, and all that is in it.
    bool scanElements()
    {
        do {
            if (m_at.next() != '<' ? !scanText() : !scanMarkup())
                return false;
        } while (!m_open.empty());
        return true;
    }

    bool scanMarkup()
    {
        const std::uint32_t start = place();
        if (isElementNext())
            return scanStartTag();
        if (m_at.isNext("</"))
            return scanEndTag();
        if (m_at.isNext("<!--")) {
            const std::optional<std::string_view> comment = takeComment();
            if (comment.has_value())
                m_builder.add(NodeKind::Comment, rangeOf(*comment), start);
            return comment.has_value();
        }
        if (m_at.isNext("<?")) {
            m_builder.add(NodeKind::Other, {}, start);
            return takeInstruction();
        }
        return m_at.take("<![CDATA[") && scanCdata(start);
    }

    bool scanCdata(std::uint32_t start)
    {
        const std::optional<std::string_view> characters = m_at.takeUpTo("]]>");
        if (!characters.has_value() || !m_count.addNode() || !m_count.addText(static_cast<int>(characters->size())))
            return false;
        m_builder.add(NodeKind::Text, rangeOf(*characters), start);
        return true;
    }

    bool scanStartTag()
    {
        const std::uint32_t start = place();
        m_at.pass(1);
        const std::optional<QualifiedName> name = m_at.takeName();
        if (!name.has_value())
            return false;
        m_builder.openElement(rangeOf(name->local), start);
        m_open.push_back(name->whole);
        if (!scanAttributes() || !m_count.enterElement(nameRoleOf(name->local), static_cast<int>(m_attributes.size())))
            return false;
        return m_at.take("/>") ? closeElement() : m_at.take('>');
    }

    bool scanEndTag()
    {
        m_at.pass(std::string_view("</").size());
        if (!m_at.take(m_open.back()))
            return false;
        m_at.passBlanks();
        return m_at.take('>') && closeElement();
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
        bool hasBlank = m_at.passBlanks();
        for (; isOf(m_at.next(), NameStart); hasBlank = m_at.passBlanks())
            if (!hasBlank || !scanAttribute())
                return false;
        return arePlainTogether(m_attributes);
    }

    bool scanAttribute()
    {
        const std::optional<QualifiedName> name = m_at.takeName();
        if (!name.has_value())
            return false;
        m_at.passBlanks();
        if (!m_at.take('='))
            return false;
        m_at.passBlanks();
        const std::optional<TextRange> value = takeValue();
        if (!value.has_value())
            return false;
        if (name->whole == "xmlns" || name->prefix == "xmlns")
            return countPrefix(name->whole);
        if (m_attributes.size() == std::size_t{maxAttributes}) // no more are kept
            return false;
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

    // ---- Characters ----

    std::optional<TextRange> takeValue()
    {
        const char quote = m_at.next();
        if (!m_at.take('"') && !m_at.take('\''))
            return std::nullopt;
        const std::optional<std::string_view> characters = takeCharacters(EndOfValue, quote);
        return characters.has_value() && m_at.take(quote) ? std::make_optional(kept(*characters)) : std::nullopt;
    }

    bool scanText()
    {
        const std::uint32_t start = place();
        const std::optional<std::string_view> characters = takeCharacters(EndOfText, '<');
        if (!characters.has_value())
            return false;
        if (isBlankText(*characters))
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
        const std::size_t start = m_at.position();
        std::size_t decodedEnd = start; // what is before it is in `m_decoded`
        m_decoded.clear();
        for (m_at.passAllBut(stops); m_at.next() != end; m_at.passAllBut(stops)) {
            const std::string_view before = m_at.text().substr(start, m_at.position() - start);
            const bool closesCdata =
                m_at.next() == '>' && before.size() >= 2 && before.substr(before.size() - 2) == "]]";
            if (m_at.isAtEnd() || m_at.next() == '<' || closesCdata)
                return std::nullopt;
            if (m_at.next() != '&') {
                m_at.pass(1);
                continue;
            }
            m_decoded += m_at.text().substr(decodedEnd, m_at.position() - decodedEnd);
            if (!decodeReference())
                return std::nullopt;
            decodedEnd = m_at.position();
        }
        const std::string_view rest = m_at.text().substr(decodedEnd, m_at.position() - decodedEnd);
        return decodedEnd == start ? rest : std::string_view(m_decoded += rest);
    }

    bool decodeReference()
    {
        const std::size_t length = appendReferenced(m_at.text().substr(m_at.position()), m_decoded);
        m_at.pass(length);
        return length > 0;
    }

    /// The range of what `takeCharacters` has taken.
    TextRange kept(std::string_view characters)
    {
        return characters.data() == m_decoded.data() ? m_builder.keep(characters) : rangeOf(characters);
    }

    TreeBuilder m_builder;
    PlainCursor m_at;
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
