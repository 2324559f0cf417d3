#include "esi/boundedXmlReader.h"

#include <QDomDocument>
#include <QFile>
#include <QXmlAttributes>
#include <QXmlContentHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

// The classes below are marked as outdated in favour of a pull parser. That one normalises line ends inside texts,
// which would change the texts of exported files, so the reader that the document class itself is built on stays in
// use.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Hands everything on to the document builder, and refuses an element that is nested too deep before the parser
/// descends into it.
class DepthGuard final : public QXmlContentHandler
{
public:
    void handOnTo(QXmlContentHandler* builder) { m_builder = builder; }

    void setDocumentLocator(QXmlLocator* locator) override { m_builder->setDocumentLocator(locator); }
    bool startDocument() override { return m_builder->startDocument(); }
    bool endDocument() override { return m_builder->endDocument(); }
    bool startPrefixMapping(const QString& prefix, const QString& uri) override
    {
        return m_builder->startPrefixMapping(prefix, uri);
    }
    bool endPrefixMapping(const QString& prefix) override { return m_builder->endPrefixMapping(prefix); }
    bool startElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName,
                      const QXmlAttributes& attributes) override
    {
        m_depth += 1;
        return !isTooDeep() && m_builder->startElement(namespaceUri, localName, qualifiedName, attributes);
    }
    bool endElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName) override
    {
        m_depth -= 1;
        return m_builder->endElement(namespaceUri, localName, qualifiedName);
    }
    bool characters(const QString& text) override { return m_builder->characters(text); }
    bool ignorableWhitespace(const QString& text) override { return m_builder->ignorableWhitespace(text); }
    bool processingInstruction(const QString& target, const QString& data) override
    {
        return m_builder->processingInstruction(target, data);
    }
    bool skippedEntity(const QString& name) override
    {
        m_sawSkippedEntity = true;
        return m_builder->skippedEntity(name);
    }
    [[nodiscard]] QString errorString() const override
    {
        return isTooDeep() ? QStringLiteral("elements are nested deeper than %1").arg(deepestNesting)
                           : m_builder->errorString();
    }

    /// Whether the document refers to an entity that it does not declare.
    [[nodiscard]] bool sawSkippedEntity() const { return m_sawSkippedEntity; }

private:
    [[nodiscard]] bool isTooDeep() const { return m_depth > deepestNesting; }

    QXmlContentHandler* m_builder = nullptr; ///< belongs to the document, set for the time of a parse
    int m_depth = 0;
    bool m_sawSkippedEntity = false;
};

/// The parser that the document class uses, with the guard between the two.
class BoundedXmlReader final : public QXmlSimpleReader
{
public:
    BoundedXmlReader()
    {
        // As QDomDocument::setContent sets them for a file with namespace processing on.
        setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), true);
        setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), false);
        setFeature(QStringLiteral("http://qt-project.org/xml/features/report-whitespace-only-CharData"), false);
    }
    void setContentHandler(QXmlContentHandler* handler) override
    {
        m_guard.handOnTo(handler);
        QXmlSimpleReader::setContentHandler(handler == nullptr ? nullptr : &m_guard);
    }

    [[nodiscard]] bool sawSkippedEntity() const { return m_guard.sawSkippedEntity(); }

private:
    DepthGuard m_guard;
};

} // namespace

bool parseXml(QFile& file, QDomDocument& document, XmlFormatError& error)
{
    BoundedXmlReader reader;
    QXmlInputSource source(&file);
    if (!document.setContent(&source, &reader, &error.message, &error.line, &error.column))
        return false;
    if (!reader.sawSkippedEntity())
        return true;
    // With a reader from outside the builder cannot tell an undeclared entity inside an attribute from one in the
    // content, and would keep both as nodes. With its own reader it can, and by now the depth of the file is known to
    // be harmless.
    return file.seek(0) && document.setContent(&file, true, &error.message, &error.line, &error.column);
}

QT_WARNING_POP
