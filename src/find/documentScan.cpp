#include "find/documentScan.h"

#include "esi/xml/documentTypeLimit.h"
#include "esi/xml/limitCount.h"
#include "esi/xml/xmlFileSource.h"
#include "esi/xml/xmlLimits.h"
#include "find/textWindow.h"

#include <QSet>
#include <QXmlAttributes>
#include <QXmlDefaultHandler>
#include <QXmlSimpleReader>

// `esi/xml/boundedXmlReader.cpp` says why the outdated parser stays in use.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace find {

namespace {

/// Ends a file in which a single text, comment or tag, or what is before the root element, takes more memory than there
/// is for it. A file that declares entities is read whole before anything else.
class BoundedSource final : public XmlFileSource
{
public:
    explicit BoundedSource(QIODevice& file)
        : XmlFileSource(file)
    {}

    /// The parser has got through a text, comment or tag.
    void goOn() { m_blocks = 0; }
    [[nodiscard]] bool isCut() const { return m_isCut; }

protected:
    QString nextText() override
    {
        constexpr std::size_t maxBlocks = TextWindow::maxLength / blockSize;
        m_isCut = m_isCut || ++m_blocks > maxBlocks;
        return m_isCut ? QString() : XmlFileSource::nextText();
    }

private:
    std::size_t m_blocks = 0; ///< since the last of these
    bool m_isCut = false;
};

std::string_view viewOf(const QByteArray& utf8)
{
    return {utf8.constData(), static_cast<std::size_t>(utf8.size())};
}

/// What has no room.
QString tooMuchIn(const DeviceWalk& walk)
{
    return walk.hasTooMuchText() ? QStringLiteral("the names and types of the devices have more than %1 characters")
                                       .arg(DeviceWalk::maxTextLength)
                                 : QStringLiteral("the file has more than %1 devices and modules").arg(maxFound);
}

/// Hands on to the walk what the parser finds, and refuses what goes beyond a limit.
class WalkHandler final : public QXmlDefaultHandler
{
public:
    WalkHandler(DeviceWalk& walk, BoundedSource& source)
        : m_walk(walk)
        , m_source(source)
    {}

    [[nodiscard]] XmlFormatError foundError() const { return m_error; }

    void setDocumentLocator(QXmlLocator* locator) override { m_locator = locator; }
    bool startPrefixMapping(const QString& prefix, const QString& /*uri*/) override
    {
        m_prefixes.insert(prefix);
        return m_count.holdsPrefixes(m_prefixes.size());
    }
    bool startElement(const QString& /*namespaceUri*/, const QString& localName, const QString& qualifiedName,
                      const QXmlAttributes& attributes) override
    {
        m_source.goOn();
        if (!m_count.enterElement(nameRoleOf(localName), attributes.count()))
            return false;
        const DeviceWalk::Needs needs = m_walk.enter(viewOf(localName.toUtf8()));
        if (needs.line)
            m_walk.setLine(m_locator->lineNumber());
        for (int index = 0; needs.attributes && index < attributes.count(); ++index)
            m_walk.setAttribute(viewOf(attributes.localName(index).toUtf8()), viewOf(attributes.value(index).toUtf8()));
        m_nameLength += qualifiedName.size();
        return m_nameLength <= static_cast<qint64>(TextWindow::maxLength) && !m_walk.isTooMuch();
    }
    bool endElement(const QString& /*namespaceUri*/, const QString& /*localName*/,
                    const QString& qualifiedName) override
    {
        m_source.goOn();
        m_count.leaveElement();
        m_walk.leave();
        m_nameLength -= qualifiedName.size();
        return true;
    }
    bool characters(const QString& text) override
    {
        m_source.goOn();
        if (!m_count.addText(text.size()))
            return false;
        if (m_walk.takesText())
            m_walk.addText(viewOf(text.toUtf8()));
        return !m_walk.isTooMuch();
    }
    bool processingInstruction(const QString& /*target*/, const QString& /*data*/) override { return addNode(); }
    bool skippedEntity(const QString& /*name*/) override { return addNode(); }
    bool startCDATA() override { return addNode(); }
    bool comment(const QString& /*text*/) override
    {
        m_walk.addComment();
        return addNode();
    }
    bool fatalError(const QXmlParseException& exception) override
    {
        m_error = {exception.message(), exception.lineNumber(), exception.columnNumber()};
        return false;
    }
    [[nodiscard]] QString errorString() const override
    {
        return m_walk.isTooMuch() ? tooMuchIn(m_walk) : m_count.brokenLimit();
    }

private:
    bool addNode()
    {
        m_source.goOn();
        return m_count.addNode();
    }

    DeviceWalk& m_walk;
    BoundedSource& m_source;
    QXmlLocator* m_locator = nullptr; ///< belongs to the parser
    LimitCount m_count;
    QSet<QString> m_prefixes;
    qint64 m_nameLength = 0; ///< of all elements that are open
    XmlFormatError m_error;
};

XmlFormatError tooLarge()
{
    return {QStringLiteral("the file is larger than %1 bytes").arg(maxXmlFileBytes), 1, 1};
}

XmlFormatError tooLong()
{
    return {QStringLiteral("a text, comment or tag, or what declares entities, is longer than %1 bytes")
                .arg(TextWindow::maxLength),
            1, 1};
}

/// The parser that makes documents, with their handler exchanged.
void readWith(QXmlSimpleReader& reader, WalkHandler& handler)
{
    // As QDomDocument::setContent sets them for a file with namespace processing on.
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), true);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), false);
    reader.setFeature(QStringLiteral("http://qt-project.org/xml/features/report-whitespace-only-CharData"), false);
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    reader.setLexicalHandler(&handler);
    reader.setDeclHandler(&handler);
    reader.setDTDHandler(&handler);
}

} // namespace

std::optional<XmlFormatError> scanAsDocument(QIODevice& file, DeviceWalk& walk)
{
    BoundedSource source(file);
    const QString beginning = source.readBeginning();
    if (source.isTooLarge())
        return tooLarge();
    if (source.isCut())
        return tooLong();
    if (std::optional<XmlFormatError> broken = brokenDocumentTypeLimit(beginning))
        return broken;
    WalkHandler handler(walk, source);
    QXmlSimpleReader reader;
    readWith(reader, handler);
    const bool isWhole = reader.parse(source);
    if (source.isTooLarge()) // it has grown while it was read
        return tooLarge();
    if (source.isCut())
        return tooLong();
    return isWhole ? std::nullopt : std::make_optional(handler.foundError());
}

QT_WARNING_POP

} // namespace find
