#include "esi/xml/boundedXmlReader.h"

#include "esi/xml/documentTypeLimit.h"
#include "esi/xml/groupNameCount.h"
#include "esi/xml/xmlFileSource.h"
#include "esi/xml/xmlLimits.h"
#include "text/exactName.h"

#include <QDomDocument>
#include <QFile>
#include <QSet>
#include <QXmlAttributes>
#include <QXmlContentHandler>
#include <QXmlLexicalHandler>
#include <QXmlSimpleReader>

#include <algorithm>
#include <optional>
#include <vector>

// The classes below are marked as outdated in favour of a pull parser. That one normalises line ends inside texts,
// which would change the texts of exported files, so the reader that the document class itself is built on stays in
// use.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// Counts how deep the parser is inside elements of one name.
class OpenElements
{
public:
    explicit OpenElements(QLatin1String name)
        : m_name(name)
    {}

    /// @return  whether it is one of these elements
    bool enter(const QString& name)
    {
        const bool isOne = isNamed(name, m_name);
        m_open += isOne ? 1 : 0;
        return isOne;
    }
    void leave(const QString& name) { m_open -= isNamed(name, m_name) ? 1 : 0; }

    [[nodiscard]] int open() const { return m_open; }

private:
    QLatin1String m_name;
    int m_open = 0;
};

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
        return holds(m_prefixes.size() <= maxPrefixes, "the file has more than %1 namespace prefixes", maxPrefixes)
               && m_builder->startPrefixMapping(prefix, uri);
    }
    bool endPrefixMapping(const QString& prefix) override { return m_builder->endPrefixMapping(prefix); }
    bool startElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName,
                      const QXmlAttributes& attributes) override
    {
        m_depth += 1;
        return holds(m_depth <= maxNesting, "elements are nested deeper than %1", maxNesting)
               && holds(attributes.count() <= maxAttributes, "an element has more than %1 attributes", maxAttributes)
               && multipliesLittle(localName) && isInFewDevices(localName) && hasRoomFor(1 + attributes.count())
               && m_builder->startElement(namespaceUri, localName, qualifiedName, attributes);
    }
    bool endElement(const QString& namespaceUri, const QString& localName, const QString& qualifiedName) override
    {
        if (!m_moduleLists.empty() && m_moduleLists.back() == m_depth)
            m_moduleLists.pop_back();
        m_groupNames.leave(m_depth);
        m_depth -= 1;
        for (OpenElements* elements : {&m_devices, &m_slots})
            elements->leave(localName);
        m_deviceParents -= mayHoldSections(localName) ? 1 : 0;
        return m_builder->endElement(namespaceUri, localName, qualifiedName);
    }
    bool characters(const QString& text) override
    {
        m_groupNames.addText(text.size(), readers());
        return hasRoomForGroupNames() && hasRoomForText() && m_builder->characters(text);
    }
    bool ignorableWhitespace(const QString& text) override { return m_builder->ignorableWhitespace(text); }
    bool processingInstruction(const QString& target, const QString& data) override
    {
        return hasRoomFor(1) && m_builder->processingInstruction(target, data);
    }
    bool skippedEntity(const QString& name) override
    {
        m_sawSkippedEntity = true;
        return hasRoomFor(1) && m_builder->skippedEntity(name);
    }

    bool startDTD(const QString& name, const QString& publicId, const QString& systemId) override
    {
        return m_lexicalBuilder->startDTD(name, publicId, systemId);
    }
    bool endDTD() override { return m_lexicalBuilder->endDTD(); }
    bool startEntity(const QString& name) override { return m_lexicalBuilder->startEntity(name); }
    bool endEntity(const QString& name) override { return m_lexicalBuilder->endEntity(name); }
    bool startCDATA() override { return hasRoomFor(1) && m_lexicalBuilder->startCDATA(); }
    bool endCDATA() override { return m_lexicalBuilder->endCDATA(); }
    bool comment(const QString& text) override { return hasRoomFor(1) && m_lexicalBuilder->comment(text); }

    /// Of both interfaces.
    [[nodiscard]] QString errorString() const override
    {
        return m_brokenLimit.isEmpty() ? m_builder->errorString() : m_brokenLimit;
    }

    /// Whether the document refers to an entity that it does not declare.
    [[nodiscard]] bool sawSkippedEntity() const { return m_sawSkippedEntity; }

private:
    /// Whether an element that begins is in few of those that each count its content.
    bool multipliesLittle(const QString& name)
    {
        if (m_slots.open() > 0)
            m_groupNames.enter(name, m_depth, readers());
        m_slots.enter(name);
        if (m_devices.enter(name)) {
            m_deviceCount += 1;
            if (m_devices.open() == 1)
                m_groupNames.enterDevice();
        }
        return holds(m_devices.open() <= maxInEachOther, "more than %1 devices stand in each other", maxInEachOther)
               && holds(m_slots.open() <= maxInEachOther, "more than %1 lists of slots stand in each other",
                        maxInEachOther)
               && holds(m_deviceCount <= maxDevices, "the file has more than %1 devices", maxDevices)
               && hasRoomForModule(name) && hasRoomForGroupNames();
    }
    bool hasRoomForGroupNames()
    {
        return holds(m_groupNames.isWithinLimit(),
                     "the names of the slot groups add more than %1 characters to the names of the slots",
                     maxGroupNameCopies);
    }

    /// As the walk over the document asks for the parents of sections.
    static bool mayHoldSections(const QString& name) { return hasInName(name, QLatin1String("Device")); }
    bool isInFewDevices(const QString& name)
    {
        m_deviceParents += mayHoldSections(name) ? 1 : 0;
        return holds(m_deviceParents <= maxDeviceParents,
                     "more than %1 elements with \"Device\" in their names stand in each other", maxDeviceParents);
    }

    /// Counts elements directly in lists of modules: whatever their name, they may be read as modules.
    bool hasRoomForModule(const QString& name)
    {
        if (!m_moduleLists.empty() && m_depth == m_moduleLists.back() + 1)
            m_modules += 1;
        if (isNamed(name, QLatin1String("Modules")))
            m_moduleLists.push_back(m_depth);
        return holds(m_modules <= maxModules, "the file has more than %1 modules", maxModules);
    }

    /// Counts nodes that are about to be built, once for each element around them that reads its content.
    bool hasRoomFor(int nodes)
    {
        m_nodes += nodes * readers();
        return holds(m_nodes <= maxNodes, "the file has more than %1 elements, attributes and comments", maxNodes);
    }
    bool hasRoomForText()
    {
        m_texts += readers();
        return holds(m_texts <= maxNodes, "the file has more than %1 texts", maxNodes);
    }
    [[nodiscard]] int readers() const { return std::max(1, m_devices.open()) * std::max(1, m_slots.open()); }

    bool holds(bool isWithin, const char* message, int limit)
    {
        if (!isWithin)
            m_brokenLimit = QString::fromLatin1(message).arg(limit);
        return isWithin;
    }

    QXmlContentHandler* m_builder = nullptr; ///< belongs to the document, set for the time of a parse
    QXmlLexicalHandler* m_lexicalBuilder = nullptr; ///< as `m_builder`
    int m_nodes = 0;
    int m_texts = 0;
    int m_deviceCount = 0; ///< of the whole file
    int m_modules = 0;
    int m_deviceParents = 0; ///< that are open
    std::vector<int> m_moduleLists; ///< depths of the lists of modules that are open
    int m_depth = 0;
    OpenElements m_devices{QLatin1String("Device")};
    OpenElements m_slots{QLatin1String("Slots")};
    GroupNameCount m_groupNames;
    QSet<QString> m_prefixes;
    QString m_brokenLimit; ///< empty as long as all limits hold
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
bool parseAgain(QFile& file, const QString& beginning, QDomDocument& document, XmlFormatError& error)
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

bool parseXml(QFile& file, QDomDocument& document, XmlFormatError& error)
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
