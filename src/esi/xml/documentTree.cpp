#include "esi/xml/documentTree.h"

#include "esi/xml/treeBuilder.h"

#include <QDomAttr>
#include <QDomNamedNodeMap>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>

namespace xml {

namespace {

/// Copies a document into a tree. It does not recurse, so the depth of the document costs no stack.
class DocumentCopy
{
public:
    Tree copy(const QDomElement& root)
    {
        open(root);
        QDomNode parent = root;
        QDomNode node = root.firstChild();
        while (true) {
            if (node.isNull()) { // all that is in the parent is copied
                m_builder.closeElement();
                if (m_builder.depth() == 0)
                    return m_builder.take();
                node = parent.nextSibling();
                parent = parent.parentNode();
            } else if (node.isElement()) {
                open(node.toElement());
                parent = node;
                node = node.firstChild();
            } else {
                add(node);
                node = node.nextSibling();
            }
        }
    }

private:
    static std::uint32_t lineOf(const QDomNode& node) { return static_cast<std::uint32_t>(node.lineNumber()); }

    /// Keeps a text as UTF-8. Short plain ASCII, as most texts are, is copied without a detour.
    TextRange keep(const QString& text)
    {
        std::array<char, 256> room; // NOLINT(cppcoreguidelines-pro-type-member-init): filled as far as it is read
        const auto length = static_cast<std::size_t>(text.size());
        const auto isAscii = [](QChar letter) { return letter.unicode() < 0x80; };
        if (length <= room.size() && std::all_of(text.begin(), text.end(), isAscii)) {
            std::transform(text.begin(), text.end(), room.begin(), [](QChar letter) { return letter.toLatin1(); });
            return m_builder.keep({room.data(), length});
        }
        const QByteArray utf8 = text.toUtf8();
        return m_builder.keep({utf8.constData(), static_cast<std::size_t>(utf8.size())});
    }

    void open(const QDomElement& element)
    {
        m_builder.openElement(keep(element.tagName()), lineOf(element));
        if (!element.hasAttributes())
            return;
        const QDomNamedNodeMap attributes = element.attributes();
        // Of several with one local name the document finds the first, and a reader of the tree the last.
        for (int index = attributes.count() - 1; index >= 0; --index) {
            const QDomAttr attribute = attributes.item(index).toAttr();
            const TextRange name = keep(attribute.name()); // unlike its `nodeName`, without prefix
            m_builder.addAttribute(name, keep(attribute.value()));
        }
    }

    void add(const QDomNode& node)
    {
        if (node.isText()) // CDATA sections too
            m_builder.add(NodeKind::Text, keep(node.nodeValue()), lineOf(node));
        else if (node.isComment())
            m_builder.add(NodeKind::Comment, keep(node.nodeValue()), lineOf(node));
        else
            m_builder.add(NodeKind::Other, {}, lineOf(node));
    }

    TreeBuilder m_builder{{}, Places::Lines};
};

} // namespace

Tree treeOf(const QDomElement& element)
{
    return DocumentCopy().copy(element);
}

} // namespace xml
