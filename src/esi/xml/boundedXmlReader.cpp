#include "esi/xml/boundedXmlReader.h"

#include "esi/xml/documentTypeLimit.h"
#include "esi/xml/limitCount.h"
#include "esi/xml/xmlFileSource.h"
#include "esi/xml/xmlLimits.h"

#include <QDomDocument>
#include <QIODevice>
#include <QSet>
#include <QXmlAttributes>
#include <QXmlContentHandler>
#include <QXmlLexicalHandler>
#include <QXmlSimpleReader>

#include <optional>

// The classes below are marked as outdated in favour of a pull parser. That one normalises line ends inside texts,
// which would change the texts of exported files, so the reader that the document class itself is built on stays in
// use.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Hands everything on to the document builder, and refuses what goes beyond a limit: an element before the parser
/// descends into it and before the builder takes its attributes, a namespace before the parser reads on.
class LimitGuard final : public QXmlContentHandler, public QXmlLexicalHandler
{
public:
    void handOnTo(QXmlContentHandler* builder) { m_builder = builder; }
    void handLexicalOnTo(QXmlLexicalHandler* builder) { m_lexicalBuilder = builder; }

    void setDocumentLocator(QXmlLocator* locator) override { m_builder->setDocumentLocator(locator); }
    bool startDocument() override { return m_builder->startDocument(); }
    bool endDocument() override { return m_builder->endDocument(); }
    bool startPrefixMapping(const QString& prefix, const QString& uri) override
    {
        m_prefixes.insert(prefix);
        return m_count.holdsPrefixes(m_prefixes.size()) && m_builder->startPrefixMapping(prefix, uri);
    }
    bool endPrefixMapping(const QString& prefix) override { return m_builder->endPrefixMapping(prefix); }
    bool startElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName,
                      const QXmlAttributes& attributes) override
    {
        return m_count.enterElement(nameRoleOf(localName), attributes.count())
               && m_builder->startElement(namespaceUri, localName, qualifiedName, attributes);
    }
    bool endElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName) override
    {
        m_count.leaveElement();
        return m_builder->endElement(namespaceUri, localName, qualifiedName);
    }
    bool characters(const QString& text) override
    {
        return m_count.addText(text.size()) && m_builder->characters(text);
    }
    bool ignorableWhitespace(const QString& text) override { return m_builder->ignorableWhitespace(text); }
    bool processingInstruction(const QString& target, const QString& data) override
    {
        return m_count.addNode() && m_builder->processingInstruction(target, data);
    }
    bool skippedEntity(const QString& name) override
    {
        m_sawSkippedEntity = true;
        return m_count.addNode() && m_builder->skippedEntity(name);
    }

    bool startDTD(const QString& name, const QString& publicId, const QString& systemId) override
    {
        return m_lexicalBuilder->startDTD(name, publicId, systemId);
    }
    bool endDTD() override { return m_lexicalBuilder->endDTD(); }
    bool startEntity(const QString& name) override { return m_lexicalBuilder->startEntity(name); }
    bool endEntity(const QString& name) override { return m_lexicalBuilder->endEntity(name); }
    bool startCDATA() override { return m_count.addNode() && m_lexicalBuilder->startCDATA(); }
    bool endCDATA() override { return m_lexicalBuilder->endCDATA(); }
    bool comment(const QString& text) override { return m_count.addNode() && m_lexicalBuilder->comment(text); }

    /// Of both interfaces.
    [[nodiscard]] QString errorString() const override
    {
        const QString brokenLimit = m_count.brokenLimit();
        return brokenLimit.isEmpty() ? m_builder->errorString() : brokenLimit;
    }

    /// Whether the document refers to an entity that it does not declare.
    [[nodiscard]] bool sawSkippedEntity() const { return m_sawSkippedEntity; }

private:
    QXmlContentHandler* m_builder = nullptr; ///< belongs to the document, set for the time of a parse
    QXmlLexicalHandler* m_lexicalBuilder = nullptr; ///< as `m_builder`
    LimitCount m_count;
    QSet<QString> m_prefixes;
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
    void setLexicalHandler(QXmlLexicalHandler* handler) override
    {
        m_guard.handLexicalOnTo(handler);
        QXmlSimpleReader::setLexicalHandler(handler == nullptr ? nullptr : &m_guard);
    }

    [[nodiscard]] bool sawSkippedEntity() const { return m_guard.sawSkippedEntity(); }

private:
    LimitGuard m_guard;
};

/// Parses with the builder's own reader. With a reader from outside the builder cannot tell an undeclared entity inside
/// an attribute from one in the content, and would keep both as nodes. With its own reader it can, and by now the file
/// is known to be harmless.
/// @param beginning  the text of a file that cannot be read twice
bool parseAgain(QIODevice& file, const QString& beginning, QDomDocument& document, XmlFormatError& error)
{
    if (file.isSequential() || !file.seek(0))
        return document.setContent(beginning, true, &error.message, &error.line, &error.column);
    XmlFileSource source(file);
    return document.setContent(&source, true, &error.message, &error.line, &error.column);
}

XmlFormatError tooLargeError()
{
    return {QStringLiteral("the file is larger than %1 bytes").arg(maxXmlFileBytes), 1, 1};
}

} // namespace

bool parseXml(QIODevice& file, QDomDocument& document, XmlFormatError& error)
{
    XmlFileSource source(file);
    const QString beginning = source.readBeginning();
    if (source.isTooLarge()) {
        error = tooLargeError();
        return false;
    }
    if (const std::optional<XmlFormatError> broken = brokenDocumentTypeLimit(beginning)) {
        error = *broken;
        return false;
    }
    BoundedXmlReader reader;
    const bool isWellFormed = document.setContent(&source, &reader, &error.message, &error.line, &error.column);
    if (source.isTooLarge()) { // it has grown while it was read
        error = tooLargeError();
        return false;
    }
    return isWellFormed && (!reader.sawSkippedEntity() || parseAgain(file, beginning, document, error));
}

QT_WARNING_POP
