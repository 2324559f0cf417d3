// Limits of document types and entities: the last that is read, the first that is not, and where it is.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"
#include "xml/parsedFile.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QUrl>
#include <QtTest>

class tst_DocumentTypeLimit : public QObject
{
    Q_OBJECT

private slots:
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
};

static_assert(maxDocumentTypeLength == 4096 && maxNestedReferences == 4 && maxReferences == 250);

namespace {

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

void tst_DocumentTypeLimit::documentType_data()
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

void tst_DocumentTypeLimit::documentType()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
}

void tst_DocumentTypeLimit::placeOfDocumentType_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addRow("at the start") << "" << 1 << 1;
    QTest::addRow("after the declaration") << "<?xml version='1.0'?>" << 1 << 22;
    QTest::addRow("on its own line") << "<?xml version='1.0'?>\n" << 2 << 1;
    QTest::addRow("lines end with CR LF") << "<?xml version='1.0'?>\r\n\r\n  " << 3 << 3;
    QTest::addRow("lines end with CR") << "<?xml version='1.0'?>\r\r\t" << 3 << 2;
    QTest::addRow("after comments and instructions") << "<!-- ' \" <!DOCTYPE -->\n<?p \" ' <!-- ?>\n<!---->" << 3 << 8;
    QTest::addRow("after an empty instruction") << "<?p?>\n" << 2 << 1;
}

void tst_DocumentTypeLimit::placeOfDocumentType()
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

void tst_DocumentTypeLimit::endOfDocumentType_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addRow("external, double quotes") << "<!DOCTYPE a SYSTEM \"x>'[\">";
    QTest::addRow("external, single quotes") << "<!DOCTYPE a SYSTEM 'x>\"['>";
    QTest::addRow("brackets in a quoted text") << "<!DOCTYPE a [<!ENTITY x \"]>\">]>";
    QTest::addRow("brackets in a comment") << "<!DOCTYPE a [<!-- ]> ' \" -->]>";
    QTest::addRow("brackets in an instruction") << "<!DOCTYPE a [<?p ]> ' \" ?>]>";
    QTest::addRow("blanks and lines") << "<!DOCTYPE\n a\t[\r\n]  \n>";
}

/// Were the end not found, the comment after it would count, and the declaration be too long.
void tst_DocumentTypeLimit::endOfDocumentType()
{
    QFETCH(QString, documentType);
    compareMessage(documentType + "<!--" + QString(5000, 'x') + "--><a/>", {});
    // And were it found too early, a declaration after it would not count.
    compareMessage(documentType.chopped(1) + QString(5000, ' ') + "><a/>", tooLong);
}

void tst_DocumentTypeLimit::nestedReferences_data()
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

void tst_DocumentTypeLimit::nestedReferences()
{
    QFETCH(QString, value);
    QFETCH(QString, message);
    compareMessage("<!DOCTYPE a [<!ENTITY x 'text'><!ENTITY y '" + value + "'>]><a>&y;</a>", message);
    // Spread over several entities, which is how they multiply.
    compareMessage("<!DOCTYPE a [<!ENTITY x 'text'><!ENTITY y '" + value + "'><!ENTITY z '&y;'>]><a/>", tooManyNested);
}

void tst_DocumentTypeLimit::parameterReferences_data()
{
    QTest::addColumn<QString>("documentType");
    QTest::addColumn<QString>("message");
    QTest::addRow("declared only") << "<!DOCTYPE a [<!ENTITY % p '<!-- x -->'>]>" << QString();
    QTest::addRow("referred to") << "<!DOCTYPE a [<!ENTITY % p '<!-- x -->'>%p;]>" << parameterEntity;
    QTest::addRow("inside a value") << "<!DOCTYPE a [<!ENTITY % p 'x'><!ENTITY y '%p;'>]>" << parameterEntity;
    QTest::addRow("opens a comment that goes on after the end")
        << "<!DOCTYPE a [<!ENTITY % p '&#60;!-- '>%p;]><!-- -->" << parameterEntity;
    QTest::addRow("percent sign in a place") << "<!DOCTYPE a SYSTEM 'my%20types.dtd'>" << QString();
}

void tst_DocumentTypeLimit::parameterReferences()
{
    QFETCH(QString, documentType);
    QFETCH(QString, message);
    compareMessage(documentType + "<a/>", message);
}

void tst_DocumentTypeLimit::references_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString declaring = QStringLiteral("<!DOCTYPE a [<!ENTITY x 'y'>]>");
    const QString maxTimes = QStringLiteral("&x;").repeated(250);
    const QString predefined = QStringLiteral("&amp;&lt;&gt;&quot;&apos;").repeated(1000);
    QTest::addRow("most") << declaring + "<a>" + maxTimes + "</a>" << QString();
    QTest::addRow("one more") << declaring + "<a>" + maxTimes + "&x;</a>" << tooManyReferences;
    QTest::addRow("one more in an attribute") << declaring + "<a k='&x;'>" + maxTimes + "</a>" << tooManyReferences;
    QTest::addRow("predefined ones don't count")
        << declaring + "<a k='" + predefined + "'>" + maxTimes + predefined + "</a>" << QString();
    QTest::addRow("one more among predefined ones")
        << declaring + "<a>" + predefined + maxTimes + predefined + "&x;</a>" << tooManyReferences;
    QTest::addRow("one that begins like a predefined one counts")
        << declaring + "<a>" + maxTimes + "&amplifier;</a>" << tooManyReferences;
    QTest::addRow("one that is predefined in small letters only counts")
        << declaring + "<a>" + maxTimes + "&AMP;</a>" << tooManyReferences;
    QTest::addRow("characters don't count") << declaring + "<a>" + maxTimes + "&#65;&#x41;</a>" << QString();
    QTest::addRow("those inside the declaration count for themselves")
        << "<!DOCTYPE a [<!ENTITY x 'y'><!ENTITY z '&x;&x;&x;&x;'>]><a>" + maxTimes + "</a>" << QString();
    QTest::addRow("predefined ones where none is declared")
        << "<a>" + QStringLiteral("&amp;").repeated(10000) + "</a>" << QString();
    QTest::addRow("predefined ones with a plain document type")
        << "<!DOCTYPE a><a>" + QStringLiteral("&amp;").repeated(10000) + "</a>" << QString();
    QTest::addRow("undeclared ones where none is declared")
        << "<a>" + QStringLiteral("&u;").repeated(10000) + "</a>" << QString();
    QTest::addRow("declared in the second of two declarations")
        << "<!DOCTYPE a>" + declaring + "<a>" + maxTimes + "&x;</a>" << tooManyReferences;
}

void tst_DocumentTypeLimit::references()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
}

void tst_DocumentTypeLimit::placeOfReference()
{
    const QString content =
        "<!DOCTYPE a [<!ENTITY x 'y'>]>\n<a>\n" + QStringLiteral("&x;\n").repeated(250) + "  &x;</a>";
    const Parsed result = parsed(content);
    QVERIFY(!result.isRead);
    QCOMPARE(result.error.line, 2 + 250 + 1);
    QCOMPARE(result.error.column, 3);
}

void tst_DocumentTypeLimit::declaredAgain_data()
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
void tst_DocumentTypeLimit::declaredAgain()
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

void tst_DocumentTypeLimit::entitiesWithinTheLimits()
{
    const Parsed result = parsed(QStringLiteral("<!DOCTYPE a [<!ENTITY maker \"Example &#38;#38; Sons\"><!ENTITY full "
                                                "'&maker; Ltd'>]><a k='&maker;'>by &full;</a>"));
    QVERIFY2(result.isRead, qPrintable(result.error.message));
    QCOMPARE(result.document.documentElement().text(), QStringLiteral("by Example & Sons Ltd"));
    QCOMPARE(result.document.documentElement().attribute(QStringLiteral("k")), QStringLiteral("Example & Sons"));
}

void tst_DocumentTypeLimit::externalEntitiesStayEmpty_data()
{
    QTest::addColumn<QString>("content"); // with "%1" for the place of the other file
    QTest::addRow("entity") << "<!DOCTYPE a [<!ENTITY x SYSTEM \"%1\">]><a>one&x;two</a>";
    QTest::addRow("entity with a public name") << "<!DOCTYPE a [<!ENTITY x PUBLIC \"p\" \"%1\">]><a>one&x;two</a>";
    QTest::addRow("document type") << "<!DOCTYPE a SYSTEM \"%1\"><a>onetwo</a>";
    QTest::addRow("parameter entity that is declared") << "<!DOCTYPE a [<!ENTITY % x SYSTEM \"%1\">]><a>onetwo</a>";
}

void tst_DocumentTypeLimit::externalEntitiesStayEmpty()
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

static const testMain::Registration<tst_DocumentTypeLimit, QCoreApplication> registration;
#include "tst_DocumentTypeLimit.moc"
