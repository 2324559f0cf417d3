// The rows of the schema against its files, where they are at hand: the same elements in the same order, the same
// attributes, and values of the same kinds.
// Covers schema.cpp, schemaRowsDevice.cpp, schemaRowsDeviceInfo.cpp, schemaRowsDictionary.cpp.
#include "testMain.h"

#include "check/schema/schema.h"
#include "check/schema/schemaRows.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QtTest>

class tst_SchemaTable : public QObject
{
    Q_OBJECT

private slots:
    static void rowsAreUsed();
    static void againstTheFiles();
};

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// Walks through the definitions of the schema files and the rows side by side.
class SideBySide
{
public:
    /// @return  whether all files of the folder could be read
    bool load(const QDir& folder)
    {
        for (const char* const file : {"Info", "Base", "Dict", "Diag"}) {
            QFile source(folder.filePath(QStringLiteral("EtherCAT%1.xsd").arg(QLatin1String(file))));
            QDomDocument document;
            if (!source.open(QIODevice::ReadOnly) || !document.setContent(&source))
                return false;
            const QDomElement schema = document.documentElement();
            for (QDomElement one = schema.firstChildElement(); !one.isNull(); one = one.nextSiblingElement())
                if (one.tagName() == QLatin1String("xs:element"))
                    m_roots.append(one);
                else if (one.hasAttribute(QStringLiteral("name")))
                    m_types.insert(one.attribute(QStringLiteral("name")), one);
            m_documents.append(document);
        }
        return true;
    }

    void compare()
    {
        for (const QDomElement& root : qAsConst(m_roots)) {
            const QString name = root.attribute(QStringLiteral("name"));
            const check::SchemaType* const type = check::esiSchema().rootNamed(name.toStdString());
            if (type == nullptr)
                m_differences += name + QStringLiteral(": no root");
            else
                compareType(root.firstChildElement(QStringLiteral("xs:complexType")), *type, name);
        }
    }

    const QStringList& differences() const { return m_differences; }
    int compared() const { return m_seen.size(); }

private:
    /// What a complex type has, its bases included.
    struct Content
    {
        QList<QDomElement> children;
        QList<QPair<int, int>> choices; ///< choice and branch of each child
        QList<QDomElement> attributes;
        QString base; ///< simple type of the text
        bool isAny = false;
        int choiceCount = 0;
    };

    void addParticle(const QDomElement& particle, Content& content, QPair<int, int> place)
    {
        const bool isChoice = particle.tagName() == QLatin1String("xs:choice");
        if (isChoice)
            place = {++content.choiceCount, 0};
        for (QDomElement one = particle.firstChildElement(); !one.isNull(); one = one.nextSiblingElement()) {
            if (one.tagName() == QLatin1String("xs:annotation"))
                continue;
            if (one.tagName() == QLatin1String("xs:any"))
                content.isAny = true;
            else if (one.tagName() == QLatin1String("xs:element")) {
                content.children.append(one);
                content.choices.append(place);
            } else
                addParticle(one, content, place);
            if (isChoice)
                ++place.second;
        }
    }

    void addType(const QDomElement& type, Content& content)
    {
        for (QDomElement one = type.firstChildElement(); !one.isNull(); one = one.nextSiblingElement()) {
            const QString tag = one.tagName();
            if (tag == QLatin1String("xs:attribute"))
                content.attributes.append(one);
            else if (tag == QLatin1String("xs:sequence") || tag == QLatin1String("xs:choice"))
                addParticle(one, content, {0, 0});
            else if (tag == QLatin1String("xs:simpleContent") || tag == QLatin1String("xs:complexContent"))
                addType(one, content);
            else if (tag == QLatin1String("xs:extension") || tag == QLatin1String("xs:restriction")) {
                content.base = one.attribute(QStringLiteral("base"));
                if (isComplex(content.base))
                    addType(m_types.value(content.base), content);
                addType(one, content);
            }
        }
    }

    bool isComplex(const QString& name) const
    {
        return m_types.value(name).tagName() == QLatin1String("xs:complexType");
    }

    void compareType(const QDomElement& definition, const check::SchemaType& type, const QString& path)
    {
        const QPair<int, QString> key{definition.lineNumber(), textOf(type.name)};
        if (m_seen.contains(key))
            return;
        m_seen.insert(key);
        Content content;
        addType(definition, content);
        if (content.isAny != type.isAny)
            m_differences += path + QStringLiteral(": any");
        if (!content.base.isEmpty() && !isComplex(content.base))
            compareKind(content.base, {}, type.text, path);
        compareChildren(content, type, path);
        compareAttributes(content, type, path);
    }

    void compareChildren(const Content& content, const check::SchemaType& type, const QString& path)
    {
        QStringList expected;
        for (int index = 0; index < content.children.size(); ++index)
            expected += QStringLiteral("%1 %2 %3 %4")
                            .arg(content.children[index].attribute(QStringLiteral("name")))
                            .arg(static_cast<int>(
                                content.children[index].attribute(QStringLiteral("maxOccurs"), QStringLiteral("1"))
                                != QLatin1String("1")))
                            .arg(content.choices[index].first)
                            .arg(content.choices[index].second);
        QStringList actual;
        for (const check::SchemaChild& child : type.children)
            actual += QStringLiteral("%1 %2 %3 %4")
                          .arg(textOf(child.name))
                          .arg(static_cast<int>(child.isRepeatable))
                          .arg(static_cast<int>(child.choice))
                          .arg(static_cast<int>(child.branch));
        if (expected != actual) {
            m_differences += path + QStringLiteral(": %1 instead of %2").arg(actual.join(", "), expected.join(", "));
            return;
        }
        for (int index = 0; index < content.children.size(); ++index)
            compareChild(content.children[index], type.children[static_cast<std::size_t>(index)],
                         path + QLatin1Char('/') + content.children[index].attribute(QStringLiteral("name")));
    }

    void compareChild(const QDomElement& element, const check::SchemaChild& child, const QString& path)
    {
        const QString named = element.attribute(QStringLiteral("type"));
        const QDomElement inside = element.firstChildElement(QStringLiteral("xs:complexType"));
        const QDomElement definition = isComplex(named) ? m_types.value(named) : inside;
        if (definition.isNull() != (child.type == nullptr))
            m_differences += path + QStringLiteral(": plain value or not");
        else if (child.type != nullptr)
            compareType(definition, *child.type, path);
        else
            compareKind(named, element, child.value, path);
    }

    void compareAttributes(const Content& content, const check::SchemaType& type, const QString& path)
    {
        QSet<QString> actual;
        for (const check::SchemaAttribute& attribute : type.attributes)
            actual.insert(textOf(attribute.name));
        for (const QDomElement& expected : content.attributes) {
            const QString name = expected.attribute(QStringLiteral("name"));
            if (!actual.remove(name))
                m_differences += path + QStringLiteral(": no attribute ") + name;
            for (const check::SchemaAttribute& attribute : type.attributes)
                if (textOf(attribute.name) == name)
                    compareKind(expected.attribute(QStringLiteral("type")), expected, attribute.value,
                                path + QLatin1Char('@') + name);
        }
        for (const QString& name : qAsConst(actual))
            m_differences += path + QStringLiteral(": unknown attribute ") + name;
    }

    /// @param named   the simple type; empty if it is in `holder` or if there is none
    void compareKind(const QString& named, const QDomElement& holder, const check::ValueType& value,
                     const QString& path)
    {
        using check::ValueKind;
        static const QHash<QString, QList<ValueKind>> kinds{
            {QStringLiteral("xs:int"), {ValueKind::Number, ValueKind::Unsigned, ValueKind::Signed}},
            {QStringLiteral("xs:integer"), {ValueKind::Number, ValueKind::Unsigned, ValueKind::Signed}},
            // Some flags have the type of numbers.
            {QStringLiteral("HexDecValue"),
             {ValueKind::Number, ValueKind::Unsigned, ValueKind::SubIndex, ValueKind::Signed, ValueKind::Boolean}},
            {QStringLiteral("xs:boolean"), {ValueKind::Boolean}},
            {QStringLiteral("xs:hexBinary"), {ValueKind::Bytes, ValueKind::HexDigits}},
            {QStringLiteral("xs:float"), {ValueKind::Decimal}},
        };
        const QDomElement simple =
            named.isEmpty() ? holder.firstChildElement(QStringLiteral("xs:simpleType")) : m_types.value(named);
        const QDomElement restriction = simple.firstChildElement(QStringLiteral("xs:restriction"));
        const QString base = kinds.contains(named) ? named : restriction.attribute(QStringLiteral("base"));
        if (kinds.contains(base)) {
            if (!kinds.value(base).contains(value.kind))
                m_differences += path + QStringLiteral(": not of the kind of ") + base;
            return;
        }
        bool hasTokens = false;
        for (QDomElement one = restriction.firstChildElement(QStringLiteral("xs:enumeration")); !one.isNull();
             one = one.nextSiblingElement(QStringLiteral("xs:enumeration"))) {
            hasTokens = true;
            if (check::faultOf(value, one.attribute(QStringLiteral("value")).toStdString()).has_value())
                m_differences += path + QStringLiteral(": no token ") + one.attribute(QStringLiteral("value"));
        }
        if (hasTokens && value.kind != ValueKind::Token)
            m_differences += path + QStringLiteral(": no tokens");
    }

    QList<QDomDocument> m_documents;
    QList<QDomElement> m_roots;
    QHash<QString, QDomElement> m_types;
    QSet<QPair<int, QString>> m_seen; ///< line of the definition, name of the row
    QStringList m_differences;
};

/// Names of all rows that can be reached from one.
void reach(const check::SchemaType& type, QSet<QString>& names)
{
    if (names.contains(textOf(type.name)))
        return;
    names.insert(textOf(type.name));
    for (const check::SchemaChild& child : type.children)
        if (child.type != nullptr)
            reach(*child.type, names);
}

} // namespace

void tst_SchemaTable::rowsAreUsed()
{
    QSet<QString> reached;
    for (const char* const root : {"EtherCATInfo", "EtherCATDict", "EtherCATDiag"})
        reach(*check::esiSchema().rootNamed(root), reached);
    QSet<QString> rows;
    for (const check::SchemaRows& table :
         {check::schemaRowsOfFile(), check::schemaRowsOfDevice(), check::schemaRowsOfDeviceInfo(),
          check::schemaRowsOfModular(), check::schemaRowsOfDictionary()})
        for (const check::SchemaRow& row : table) {
            QVERIFY2(!rows.contains(textOf(row.type)), row.type.data());
            rows.insert(textOf(row.type));
        }
    QCOMPARE(reached, rows);
}

void tst_SchemaTable::againstTheFiles()
{
    const QDir folder(
        qEnvironmentVariable("KINETRA_SCHEMA_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/schemas")));
    if (!folder.exists())
        return; // the files of the schema are not part of the project
    SideBySide sides;
    QVERIFY(sides.load(folder));
    sides.compare();
    QCOMPARE(sides.differences().join(QLatin1Char('\n')), QString());
    QVERIFY(sides.compared() > 100);
}

static const testMain::Registration<tst_SchemaTable, testMain::NoApplication> registration;
#include "tst_SchemaTable.moc"
