#include "find/plainScan.h"

#include "esi/xml/limitCount.h"
#include "esi/xml/plainMarkup.h"
#include "esi/xml/xmlLimits.h"
#include "find/textWindow.h"

#include <algorithm>
#include <string>

namespace find {

namespace {

using xml::PlainCursor;
using xml::QualifiedName;

/// Functions that return false have met what is not plain; nothing else is called then.
class PlainScan
{
public:
    PlainScan(QIODevice& file, DeviceWalk& walk)
        : m_window(file)
        , m_walk(walk)
    {}

    bool scan()
    {
        return passDeclaration() && passMisc() && scanElements() && passMisc() && m_window.text().empty()
               && m_window.isPlain();
    }

private:
    bool isNext(std::string_view mark)
    {
        m_window.fill(mark.size());
        return m_window.text().substr(0, mark.size()) == mark;
    }

    bool passDeclaration()
    {
        m_window.fill(xml::maxPlainDeclaration);
        const std::optional<std::size_t> length = xml::plainDeclarationLength(m_window.text());
        if (!m_window.isPlain() || !length.has_value())
            return false;
        m_window.pass(*length);
        return *length == 0 || m_count.addNode();
    }

    /// Comments, processing instructions and blanks outside of the root element.
    bool passMisc()
    {
        while (true) {
            passBlanks();
            const bool isComment = isNext("<!--");
            if (!isComment && !isNext("<?"))
                return true;
            if (isComment ? !scanComment() : !scanInstruction())
                return false;
        }
    }

    void passBlanks()
    {
        for (m_window.fill(1); !m_window.text().empty(); m_window.fill(1)) {
            const std::string_view text = m_window.text();
            const std::size_t blanks = std::min(text.find_first_not_of(xml::blanks), text.size());
            m_window.pass(blanks);
            if (blanks < text.size())
                return;
        }
    }

    bool scanComment()
    {
        m_window.pass(std::string_view("<!--").size());
        const std::optional<std::size_t> length = m_window.lengthUpTo("--");
        if (!length.has_value())
            return false;
        m_window.pass(*length);
        if (!isNext("-->"))
            return false;
        m_window.pass(std::string_view("-->").size());
        m_walk.addComment();
        return m_count.addNode();
    }

    bool scanInstruction()
    {
        const std::optional<std::size_t> length = m_window.lengthUpTo("?>");
        if (!length.has_value())
            return false;
        PlainCursor at(m_window.text().substr(0, *length));
        at.pass(std::string_view("<?").size());
        const std::optional<QualifiedName> target = at.takeName();
        if (!target.has_value() || !target->prefix.empty() || xml::isReservedTarget(target->local)
            || (!at.isAtEnd() && !at.passBlanks()))
            return false;
        m_window.pass(*length + std::string_view("?>").size());
        return m_count.addNode();
    }

    /// The root element, and all that is in it.
    bool scanElements()
    {
        do {
            m_window.fill(1);
            if (m_window.text().empty())
                return false;
            if (m_window.text().front() == '<' ? !scanMarkup() : m_starts.empty() || !scanText())
                return false;
        } while (!m_starts.empty());
        return true;
    }

    bool scanMarkup()
    {
        m_window.fill(2);
        const std::string_view text = m_window.text();
        if (text.size() > 1 && isOf(text[1], xml::NameStart))
            return scanStartTag();
        if (m_starts.empty())
            return false;
        if (isNext("</"))
            return scanEndTag();
        if (isNext("<!--"))
            return scanComment();
        return isNext("<?") ? scanInstruction() : isNext("<![CDATA[") && scanCdata();
    }

    bool scanCdata()
    {
        m_window.pass(std::string_view("<![CDATA[").size());
        const std::optional<std::size_t> length = m_window.lengthUpTo("]]>");
        if (!length.has_value() || !m_count.addNode() || !m_count.addText(static_cast<int>(*length)))
            return false;
        m_walk.addText(m_window.text().substr(0, *length));
        m_window.pass(*length + std::string_view("]]>").size());
        return !m_walk.isTooMuch();
    }

    bool scanStartTag()
    {
        const std::optional<std::size_t> length = m_window.tagLength();
        if (!length.has_value())
            return false;
        PlainCursor at(m_window.text().substr(0, *length));
        at.pass(1);
        const std::optional<QualifiedName> name = at.takeName();
        if (!name.has_value() || !scanAttributes(at))
            return false;
        if (!m_count.enterElement(nameRoleOf(name->local), static_cast<int>(m_attributes.size())))
            return false;
        const DeviceWalk::Needs needs = m_walk.enter(name->local);
        if (needs.line)
            m_walk.setLine(m_window.line());
        if (needs.attributes)
            handOnAttributes();
        m_starts.push_back(m_names.size());
        m_names += name->whole;
        const bool isClosed = at.take("/>");
        if (!isClosed && !at.take('>'))
            return false;
        m_window.pass(*length);
        if (isClosed)
            closeElement();
        return m_names.size() <= TextWindow::maxLength && !m_walk.isTooMuch();
    }

    bool scanEndTag()
    {
        const std::optional<std::size_t> length = m_window.lengthUpTo(">");
        if (!length.has_value())
            return false;
        PlainCursor at(m_window.text().substr(0, *length));
        at.pass(std::string_view("</").size());
        if (!at.take(std::string_view(m_names).substr(m_starts.back())))
            return false;
        at.passBlanks();
        if (!at.isAtEnd())
            return false;
        m_window.pass(*length + 1);
        closeElement();
        return true;
    }

    void closeElement()
    {
        m_walk.leave();
        m_count.leaveElement();
        m_names.resize(m_starts.back());
        m_starts.pop_back();
    }

    bool scanAttributes(PlainCursor& at)
    {
        m_attributes.clear();
        m_values.clear();
        bool hasBlank = at.passBlanks();
        for (; isOf(at.next(), xml::NameStart); hasBlank = at.passBlanks())
            if (!hasBlank || !scanAttribute(at))
                return false;
        return xml::arePlainTogether(m_attributes);
    }

    bool scanAttribute(PlainCursor& at)
    {
        const std::optional<QualifiedName> name = at.takeName();
        if (!name.has_value())
            return false;
        at.passBlanks();
        if (!at.take('='))
            return false;
        at.passBlanks();
        const char quote = at.next();
        if (!at.take('"') && !at.take('\''))
            return false;
        const std::optional<std::string_view> value = at.takeUpTo(std::string_view(&quote, 1));
        if (!value.has_value() || value->find('<') != std::string_view::npos || !decode(*value))
            return false;
        if (name->whole == "xmlns" || name->prefix == "xmlns")
            return countPrefix(name->whole);
        if (m_attributes.size() == std::size_t{maxAttributes})
            return false;
        m_attributes.push_back(*name);
        m_values.push_back(*value);
        return true;
    }

    void handOnAttributes()
    {
        for (std::size_t index = 0; index < m_attributes.size(); ++index)
            if (decode(m_values[index]))
                m_walk.setAttribute(m_attributes[index].local, m_decoded);
    }

    /// @param declaration  the whole name of the attribute, which is another one for each prefix
    bool countPrefix(std::string_view declaration)
    {
        if (std::find(m_prefixes.begin(), m_prefixes.end(), declaration) == m_prefixes.end())
            m_prefixes.emplace_back(declaration);
        return m_count.holdsPrefixes(static_cast<int>(m_prefixes.size()));
    }

    bool scanText()
    {
        const std::optional<std::size_t> length = m_window.lengthUpTo("<");
        if (!length.has_value())
            return false;
        const std::string_view text = m_window.text().substr(0, *length);
        m_window.pass(*length);
        if (isOf(text.front(), xml::Blank) && xml::isBlankText(text))
            return true;
        if (text.find("]]>") != std::string_view::npos || !decode(text))
            return false;
        if (xml::isBlankText(m_decoded))
            return true;
        if (!m_count.addText(static_cast<int>(m_decoded.size())))
            return false;
        m_walk.addText(m_decoded);
        return !m_walk.isTooMuch();
    }

    /// Puts a text into `m_decoded`, its references decoded.
    bool decode(std::string_view text)
    {
        m_decoded.clear();
        for (std::size_t mark = text.find('&'); mark != std::string_view::npos; mark = text.find('&')) {
            m_decoded += text.substr(0, mark);
            const std::size_t length = xml::appendReferenced(text.substr(mark), m_decoded);
            if (length == 0)
                return false;
            text.remove_prefix(mark + length);
        }
        m_decoded += text;
        return true;
    }

    TextWindow m_window;
    DeviceWalk& m_walk;
    LimitCount m_count;
    std::string m_names; ///< whole names of the elements that are open, one after the other
    std::vector<std::size_t> m_starts; ///< of these names
    std::vector<QualifiedName> m_attributes; ///< of the start tag that is being read
    std::vector<std::string_view> m_values; ///< of these, as they are in the file
    std::vector<std::string> m_prefixes; ///< that were declared
    std::string m_decoded;
};

} // namespace

bool scanPlain(QIODevice& file, DeviceWalk& walk)
{
    return PlainScan(file, walk).scan();
}

} // namespace find
