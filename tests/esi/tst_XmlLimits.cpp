// Limits of XML files: the last that is read, the first that is not, and where it stands.
#include "esi/parsedFile.h"
#include "esi/temporaryFile.h"
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"

#include <QDomDocument>
#include <QtTest>

class tst_XmlLimits : public QObject
{
    Q_OBJECT

private slots:
    static void attributes_data();
    static void attributes();
    static void prefixes_data();
    static void prefixes();
    static void documentType_data();
    static void documentType();
    static void placeOfDocumentType_data();
    static void placeOfDocumentType();
    static void endOfDocumentType_data();
    static void endOfDocumentType();
    static void nestedReferences_data();
    static void nestedReferences();
    static void parameterReferences_data();
    static void parameterReferences();
    static void references_data();
    static void references();
    static void placeOfReference();
    static void declaredAgain_data();
    static void declaredAgain();
    static void entitiesWithinTheLimits();
    static void externalEntitiesStayEmpty_data();
    static void externalEntitiesStayEmpty();
    static void largestFile();
};

static_assert(maxXmlFileBytes == 268435456 && maxNesting == 1000 && maxAttributes == 100 && maxPrefixes == 16);
static_assert(maxDocumentTypeLength == 4096 && maxNestedReferences == 4 && maxReferences == 250);

namespace {

const QString tooManyAttributes = QStringLiteral("an element has more than 100 attributes");
const QString tooManyPrefixes = QStringLiteral("the file has more than 16 namespace prefixes");
const QString tooLong = QStringLiteral("the document type declaration is longer than 4096 characters");
const QString tooManyNested = QStringLiteral("the document type declaration has more than 4 references to entities");
const QString parameterEntity = QStringLiteral("the document type declaration refers to a parameter entity");
const QString tooManyReferences =
    QStringLiteral("a file that declares entities has more than 250 references to entities");
/// `count` pieces of which each has its number, from 0, in place of "%1".
QString numbered(const QString& piece, int count)
{
    QString all;
    for (int number = 0; number < count; ++number)
        all += piece.arg(number);
    return all;
}

/// A document type declaration of this many characters.
QString documentTypeOf(int length)
{
    const QString start = QStringLiteral("<!DOCTYPE a [<!--");
    const QString end = QStringLiteral("-->]>");
    return start + QString(length - start.size() - end.size(), 'x') + end;
}

void compareMessage(const QString& content, const QString& message)
{
    const Parsed result = parsed(content);
    QCOMPARE(result.error.message, message);
    QCOMPARE(result.isRead, message.isEmpty());
}

} // namespace

void tst_XmlLimits::attributes_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString different = QStringLiteral(" k%1='1'");
    QTest::addRow("a hundred") << "<a>\n<b" + numbered(different, 100) + "/></a>" << QString();
    QTest::addRow("one more") << "<a>\n<b" + numbered(different, 101) + "/></a>" << tooManyAttributes;
    QTest::addRow("one more, repeated") << "<a>\n<b" + QStringLiteral(" k='1'").repeated(101) + "/></a>"
                                        << tooManyAttributes;
    QTest::addRow("far more") << "<a>\n<b" + numbered(different, 100000) + "/></a>" << tooManyAttributes;
    QTest::addRow("a hundred on each of two")
        << "<a>\n<b" + numbered(different, 100) + "/><c" + numbered(different, 100) + "/></a>" << QString();
    QTest::addRow("from an entity") << "<!DOCTYPE a [<!ENTITY x \"<b" + numbered(QStringLiteral(" k%1=''"), 101)
                                           + "/>\">]>\n<a>&x;</a>"
                                    << tooManyAttributes;
}

void tst_XmlLimits::attributes()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
    if (!message.isEmpty()) {
        const XmlFormatError error = parsed(content).error;
        QCOMPARE(error.line, 2);
        QVERIFY(error.column > 1);
    }
}

void tst_XmlLimits::prefixes_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString declaration = QStringLiteral(" xmlns:k%1='urn:%1'");
    QTest::addRow("sixteen") << "<a" + numbered(declaration, 16) + "><b/></a>" << QString();
    QTest::addRow("one more") << "<a" + numbered(declaration, 17) + "/>" << tooManyPrefixes;
    QTest::addRow("one more without a prefix")
        << "<a" + numbered(declaration, 16) + " xmlns='urn:a'/>" << tooManyPrefixes;
    QTest::addRow("one more further down")
        << "<a" + numbered(declaration, 16) + "><b xmlns:p='urn:p'/></a>" << tooManyPrefixes;
    QTest::addRow("far more") << "<a" + numbered(declaration, 100000) + "/>" << tooManyPrefixes;
    QTest::addRow("one for many namespaces")
        << "<a>" + numbered(QStringLiteral("<b xmlns='urn:%1'/>"), 1000) + "</a>" << QString();
    QTest::addRow("the same ones on many elements")
        << "<a>" + QStringLiteral("<b xmlns='urn:a' xmlns:p='urn:p'/>").repeated(1000) + "</a>" << QString();
}

void tst_XmlLimits::prefixes()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
    if (!message.isEmpty())
        QCOMPARE(parsed(content).error.line, 1);
}

void tst_XmlLimits::documentType_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString parentheses = QStringLiteral("<!DOCTYPE a [<!ELEMENT a %1b%2>]><a/>");
    QTest::addRow("none") << "<a/>" << QString();
    QTest::addRow("plain") << "<!DOCTYPE a><a/>" << QString();
    QTest::addRow("longest") << documentTypeOf(4096) + "<a/>" << QString();
    QTest::addRow("one character longer") << documentTypeOf(4097) + "<a/>" << tooLong;
    QTest::addRow("far longer") << documentTypeOf(20000000) + "<a/>" << tooLong;
    QTest::addRow("not closed") << documentTypeOf(20000).chopped(5) << tooLong;
    QTest::addRow("two that are longest together")
        << documentTypeOf(2048) + "\n" + documentTypeOf(2048) + "<a/>" << QString();
    QTest::addRow("two that are longer together")
        << documentTypeOf(2048) + "\n" + documentTypeOf(2049) + "<a/>" << tooLong;
    QTest::addRow("parentheses as deep as they fit")
        << parentheses.arg(QString(2000, '('), QString(2000, ')')) << QString();
    QTest::addRow("parentheses too deep") << parentheses.arg(QString(100000, '('), QString(100000, ')')) << tooLong;
    QTest::addRow("parentheses never closed") << "<!DOCTYPE a [<!ELEMENT a " + QString(100000, '(') << tooLong;
    QTest::addRow("many entities") << "<!DOCTYPE a [" + numbered(QStringLiteral("<!ENTITY x%1 'y'>"), 20000) + "]><a/>"
                                   << tooLong;
    QTest::addRow("a mark inside a comment is none")
        << "<!-- " + documentTypeOf(5000).replace("--", "==") + " --><a/>" << QString();
    QTest::addRow("a mark inside the text is none") << "<a><![CDATA[" + documentTypeOf(5000) + "]]></a>" << QString();
}

void tst_XmlLimits::documentType()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
}

void tst_XmlLimits::placeOfDocumentType_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addRow("at the start") << "" << 1 << 1;
    QTest::addRow("behind the declaration") << "<?xml version='1.0'?>" << 1 << 22;
    QTest::addRow("on its own line") << "<?xml version='1.0'?>\n" << 2 << 1;
    QTest::addRow("lines end with CR LF") << "<?xml version='1.0'?>\r\n\r\n  " << 3 << 3;
    QTest::addRow("lines end with CR") << "<?xml version='1.0'?>\r\r\t" << 3 << 2;
    QTest::addRow("behind comments and instructions") << "<!-- ' \" <!DOCTYPE -->\n<?p \" ' <!-- ?>\n<!---->" << 3 << 8;
    QTest::addRow("behind an empty instruction") << "<?p?>\n" << 2 << 1;
}

void tst_XmlLimits::placeOfDocumentType()
{
    QFETCH(QString, before);
    QFETCH(int, line);
    QFETCH(int, column);
    const Parsed result = parsed(before + documentTypeOf(4097) + "<a/>");
    QVERIFY(!result.isRead);
    QCOMPARE(result.error.message, tooLong);
    QCOMPARE(result.error.line, line);
    QCOMPARE(result.error.column, column);
}

void tst_XmlLimits::endOfDocumentType_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addRow("external, double quotes") << "<!DOCTYPE a SYSTEM \"x>'[\">";
    QTest::addRow("external, single quotes") << "<!DOCTYPE a SYSTEM 'x>\"['>";
    QTest::addRow("brackets in a quoted text") << "<!DOCTYPE a [<!ENTITY x \"]>\">]>";
    QTest::addRow("brackets in a comment") << "<!DOCTYPE a [<!-- ]> ' \" -->]>";
    QTest::addRow("brackets in an instruction") << "<!DOCTYPE a [<?p ]> ' \" ?>]>";
    QTest::addRow("blanks and lines") << "<!DOCTYPE\n a\t[\r\n]  \n>";
}

/// Were the end not found, the comment behind it would count, and the declaration be too long.
void tst_XmlLimits::endOfDocumentType()
{
    QFETCH(QString, documentType);
    compareMessage(documentType + "<!--" + QString(5000, 'x') + "--><a/>", {});
    // And were it found too early, a declaration behind it would not count.
    compareMessage(documentType.chopped(1) + QString(5000, ' ') + "><a/>", tooLong);
}

void tst_XmlLimits::nestedReferences_data()
{
    QTest::addColumn<QString>("value"); // of the last entity
    QTest::addColumn<QString>("message");
    QTest::addRow("four") << "&x;&x;&x;&x;" << QString();
    QTest::addRow("five") << "&x;&x;&x;&x;&x;" << tooManyNested;
    QTest::addRow("characters don't count") << "&x;&x;&x;&x;&#65;&#x41;&#138;&#380;&#x126;" << QString();
    QTest::addRow("written with a number") << "&x;&x;&x;&x;&#38;x;" << tooManyNested;
    QTest::addRow("written with a number and zeros") << "&x;&x;&x;&x;&#0038;x;" << tooManyNested;
    QTest::addRow("written with a hexadecimal number") << "&x;&x;&x;&x;&#x26;x;" << tooManyNested;
    QTest::addRow("written with a hexadecimal number and zeros") << "&x;&x;&x;&x;&#x0026;x;" << tooManyNested;
    QTest::addRow("predefined ones count") << "&lt;&gt;&amp;&quot;&apos;" << tooManyNested;
}

void tst_XmlLimits::nestedReferences()
{
    QFETCH(QString, value);
    QFETCH(QString, message);
    compareMessage("<!DOCTYPE a [<!ENTITY x 'text'><!ENTITY y '" + value + "'>]><a>&y;</a>", message);
    // Spread over several entities, which is how they multiply.
    compareMessage("<!DOCTYPE a [<!ENTITY x 'text'><!ENTITY y '" + value + "'><!ENTITY z '&y;'>]><a/>", tooManyNested);
}

void tst_XmlLimits::parameterReferences_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addColumn<QString>("message");
    QTest::addRow("declared only") << "<!DOCTYPE a [<!ENTITY % p '<!-- x -->'>]>" << QString();
    QTest::addRow("referred to") << "<!DOCTYPE a [<!ENTITY % p '<!-- x -->'>%p;]>" << parameterEntity;
    QTest::addRow("inside a value") << "<!DOCTYPE a [<!ENTITY % p 'x'><!ENTITY y '%p;'>]>" << parameterEntity;
    QTest::addRow("opens a comment that goes on behind the end")
        << "<!DOCTYPE a [<!ENTITY % p '&#60;!-- '>%p;]><!-- -->" << parameterEntity;
    QTest::addRow("percent sign in a place") << "<!DOCTYPE a SYSTEM 'my%20types.dtd'>" << QString();
}

void tst_XmlLimits::parameterReferences()
{
    QFETCH(QString, documentType);
    QFETCH(QString, message);
    compareMessage(documentType + "<a/>", message);
}

void tst_XmlLimits::references_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString declaring = QStringLiteral("<!DOCTYPE a [<!ENTITY x 'y'>]>");
    const QString mostTimes = QStringLiteral("&x;").repeated(250);
    const QString predefined = QStringLiteral("&amp;&lt;&gt;&quot;&apos;").repeated(1000);
    QTest::addRow("most") << declaring + "<a>" + mostTimes + "</a>" << QString();
    QTest::addRow("one more") << declaring + "<a>" + mostTimes + "&x;</a>" << tooManyReferences;
    QTest::addRow("one more in an attribute") << declaring + "<a k='&x;'>" + mostTimes + "</a>" << tooManyReferences;
    QTest::addRow("predefined ones don't count")
        << declaring + "<a k='" + predefined + "'>" + mostTimes + predefined + "</a>" << QString();
    QTest::addRow("one more among predefined ones")
        << declaring + "<a>" + predefined + mostTimes + predefined + "&x;</a>" << tooManyReferences;
    QTest::addRow("one that begins like a predefined one counts")
        << declaring + "<a>" + mostTimes + "&amplifier;</a>" << tooManyReferences;
    QTest::addRow("one that is predefined in small letters only counts")
        << declaring + "<a>" + mostTimes + "&AMP;</a>" << tooManyReferences;
    QTest::addRow("characters don't count") << declaring + "<a>" + mostTimes + "&#65;&#x41;</a>" << QString();
    QTest::addRow("those inside the declaration count for themselves")
        << "<!DOCTYPE a [<!ENTITY x 'y'><!ENTITY z '&x;&x;&x;&x;'>]><a>" + mostTimes + "</a>" << QString();
    QTest::addRow("predefined ones where none is declared")
        << "<a>" + QStringLiteral("&amp;").repeated(10000) + "</a>" << QString();
    QTest::addRow("predefined ones with a plain document type")
        << "<!DOCTYPE a><a>" + QStringLiteral("&amp;").repeated(10000) + "</a>" << QString();
    QTest::addRow("undeclared ones where none is declared")
        << "<a>" + QStringLiteral("&u;").repeated(10000) + "</a>" << QString();
    QTest::addRow("declared in the second of two declarations")
        << "<!DOCTYPE a>" + declaring + "<a>" + mostTimes + "&x;</a>" << tooManyReferences;
}

void tst_XmlLimits::references()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
}

void tst_XmlLimits::placeOfReference()
{
    const QString content =
        "<!DOCTYPE a [<!ENTITY x 'y'>]>\n<a>\n" + QStringLiteral("&x;\n").repeated(250) + "  &x;</a>";
    const Parsed result = parsed(content);
    QVERIFY(!result.isRead);
    QCOMPARE(result.error.line, 2 + 250 + 1);
    QCOMPARE(result.error.column, 3);
}

void tst_XmlLimits::declaredAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("character");
    QTest::addRow("amp") << "amp"
                         << "&";
    QTest::addRow("lt") << "lt"
                        << "<";
    QTest::addRow("gt") << "gt"
                        << ">";
    QTest::addRow("quot") << "quot"
                          << "\"";
    QTest::addRow("apos") << "apos"
                          << "'";
}

/// A predefined name does not count since it stands for its character alone, whatever the file declares it to be.
void tst_XmlLimits::declaredAgain()
{
    QFETCH(QString, name);
    QFETCH(QString, character);
    const QString reference = '&' + name + ';';
    const Parsed result =
        parsed("<!DOCTYPE a [<!ENTITY " + name + " 'long text'><!ENTITY x '" + reference + "'>]><a k=\""
               + reference.repeated(300) + "\">" + reference.repeated(300) + "&x;</a>");
    QVERIFY2(result.isRead, qPrintable(result.error.message));
    QCOMPARE(result.document.documentElement().attribute(QStringLiteral("k")), character.repeated(300));
    QCOMPARE(result.document.documentElement().text(), character.repeated(301));
}

void tst_XmlLimits::entitiesWithinTheLimits()
{
    const Parsed result = parsed(QStringLiteral("<!DOCTYPE a [<!ENTITY maker \"Example &#38;#38; Sons\"><!ENTITY full "
                                                "'&maker; Ltd'>]><a k='&maker;'>by &full;</a>"));
    QVERIFY2(result.isRead, qPrintable(result.error.message));
    QCOMPARE(result.document.documentElement().text(), QStringLiteral("by Example & Sons Ltd"));
    QCOMPARE(result.document.documentElement().attribute(QStringLiteral("k")), QStringLiteral("Example & Sons"));
}

void tst_XmlLimits::externalEntitiesStayEmpty_data()
{
    QTest::addColumn<QString>("content"); // with "%1" for the place of the other file
    QTest::addRow("entity") << "<!DOCTYPE a [<!ENTITY x SYSTEM \"%1\">]><a>one&x;two</a>";
    QTest::addRow("entity with a public name") << "<!DOCTYPE a [<!ENTITY x PUBLIC \"p\" \"%1\">]><a>one&x;two</a>";
    QTest::addRow("document type") << "<!DOCTYPE a SYSTEM \"%1\"><a>onetwo</a>";
    QTest::addRow("parameter entity that is declared") << "<!DOCTYPE a [<!ENTITY % x SYSTEM \"%1\">]><a>onetwo</a>";
}

void tst_XmlLimits::externalEntitiesStayEmpty()
{
    QFETCH(QString, content);
    const QTemporaryDir folder;
    const QString other = writeFile(folder, QStringLiteral("other.txt"), "secret");
    const QUrl place = QUrl::fromLocalFile(other);
    for (const QString& name : {place.toString(), other, QStringLiteral("other.txt")}) {
        QFile file(writeFile(folder, QStringLiteral("file.xml"), content.arg(name).toUtf8()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QDomDocument document;
        XmlFormatError error;
        QVERIFY2(parseXml(file, document, error), qPrintable(error.message));
        QCOMPARE(document.documentElement().text(), QStringLiteral("onetwo"));
        QVERIFY(!document.toString().contains(QStringLiteral("secret")));
    }
}

/// The file has a hole in place of its bytes, so it takes no room on the disk.
void tst_XmlLimits::largestFile()
{
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("large.xml"), "<a/>"));
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Text));
    QVERIFY(file.resize(qint64{maxXmlFileBytes} + 1));
    QDomDocument document;
    XmlFormatError error;
    QVERIFY(!parseXml(file, document, error));
    QCOMPARE(error.message, QStringLiteral("the file is larger than 268435456 bytes"));
    QCOMPARE(error.line, 1);
    QCOMPARE(error.column, 1);
}

static const testMain::Registration<tst_XmlLimits, QCoreApplication> registration;
#include "tst_XmlLimits.moc"
