// Parsing a file into a document: what is kept of it, errors with their place, and the limit of the nesting.
#include "esi/xml/boundedXmlReader.h"
#include "testMain.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QtTest>

class tst_BoundedXmlReader : public QObject
{
    Q_OBJECT

private slots:
    static void lineEndsInTextsStay_data();
    static void lineEndsInTextsStay();
    static void localNames();
    static void laterOfTwoAttributesCounts();
    static void commentsAreKept();
    static void encoding_data();
    static void encoding();
    static void malformed_data();
    static void malformed();
    static void nesting_data();
    static void nesting();
    static void manySiblingsAreNotDeep();
    static void tooDeepWithoutOverflow();
    static void readsOnAfterAnError();
    static void undeclaredEntity();
};

namespace {

struct Parsed
{
    bool isWellFormed = false;
    QDomDocument document;
    XmlFormatError error;
};

/// Parses `content` from a file that is opened as the window does it.
Parsed parsed(const QByteArray& content, QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Text)
{
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("file.xml"), content));
    if (!file.open(mode))
        qFatal("cannot open the test file");
    Parsed result;
    result.isWellFormed = parseXml(file, result.document, result.error);
    return result;
}

/// Elements inside each other, each on a line of its own.
QByteArray nested(int depth)
{
    return QByteArray("<a>\n").repeated(depth) + QByteArray("</a>\n").repeated(depth);
}

} // namespace

void tst_BoundedXmlReader::lineEndsInTextsStay_data()
{
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::addColumn<int>("mode");
    QTest::addRow("CR LF, opened as text") << QByteArray("\r\n") << int{QIODevice::ReadOnly | QIODevice::Text};
    QTest::addRow("CR LF, opened as bytes") << QByteArray("\r\n") << int{QIODevice::ReadOnly};
    QTest::addRow("LF") << QByteArray("\n") << int{QIODevice::ReadOnly | QIODevice::Text};
    QTest::addRow("CR") << QByteArray("\r") << int{QIODevice::ReadOnly | QIODevice::Text};
}

void tst_BoundedXmlReader::lineEndsInTextsStay()
{
    QFETCH(QByteArray, lineEnd);
    QFETCH(int, mode);
    const Parsed result = parsed("<a>" + lineEnd + "  <b>first" + lineEnd + "second" + lineEnd + "</b>" + lineEnd
                                     + "  <c><![CDATA[x" + lineEnd + "y]]></c></a>" + lineEnd,
                                 QIODevice::OpenMode(mode));
    QVERIFY2(result.isWellFormed, qPrintable(result.error.message));
    const QString end = QString::fromLatin1(lineEnd);
    const QDomElement root = result.document.documentElement();
    QCOMPARE(root.firstChildElement(QStringLiteral("b")).text(), "first" + end + "second" + end);
    QCOMPARE(root.firstChildElement(QStringLiteral("c")).text(), "x" + end + "y");
    QVERIFY2(root.childNodes().size() == 2, "line ends and blanks between elements make no nodes");
}

void tst_BoundedXmlReader::localNames()
{
    const Parsed result =
        parsed(R"(<e:Root xmlns:e="urn:example"><e:Child e:Key="1" Plain="2">text</e:Child></e:Root>)");
    QVERIFY2(result.isWellFormed, qPrintable(result.error.message));
    const QDomElement root = result.document.documentElement();
    QCOMPARE(root.tagName(), QStringLiteral("Root"));
    const QDomElement child = root.firstChildElement();
    QCOMPARE(child.tagName(), QStringLiteral("Child"));
    QCOMPARE(child.attribute(QStringLiteral("Key")), QStringLiteral("1"));
    QCOMPARE(child.attribute(QStringLiteral("Plain")), QStringLiteral("2"));
    QCOMPARE(child.text(), QStringLiteral("text"));
}

void tst_BoundedXmlReader::laterOfTwoAttributesCounts()
{
    const Parsed result = parsed("<a Key='1' Key='2'/>");
    QVERIFY2(result.isWellFormed, qPrintable(result.error.message));
    QCOMPARE(result.document.documentElement().attribute(QStringLiteral("Key")), QStringLiteral("2"));
}

void tst_BoundedXmlReader::commentsAreKept()
{
    const Parsed result = parsed("<a><!-- first --><b/><!-- second --></a>");
    QVERIFY(result.isWellFormed);
    const QDomNodeList children = result.document.documentElement().childNodes();
    QCOMPARE(children.size(), 3);
    QCOMPARE(children.at(0).toComment().data(), QStringLiteral(" first "));
    QCOMPARE(children.at(2).toComment().data(), QStringLiteral(" second "));
}

void tst_BoundedXmlReader::encoding_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"%1\"?>";
    const auto declared = [declaration](const char* name) { return QByteArray(declaration).replace("%1", name); };
    QTest::addRow("UTF-8 without a declaration")
        << QByteArray("<a>\xE4\xBC\xBA\xE6\x9C\x8D</a>") << QStringLiteral("伺服");
    QTest::addRow("UTF-8 with a byte order mark")
        << QByteArray("\xEF\xBB\xBF<a>\xE4\xBC\xBA\xE6\x9C\x8D</a>") << QStringLiteral("伺服");
    QTest::addRow("Latin 1") << declared("ISO-8859-1") + QByteArray("<a>\xB5m</a>") << QStringLiteral("µm");
    QTest::addRow("GB2312") << declared("GB2312") + QByteArray("<a>\xCB\xC5\xB7\xFE</a>") << QStringLiteral("伺服");
}

void tst_BoundedXmlReader::encoding()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const Parsed result = parsed(content);
    QVERIFY2(result.isWellFormed, qPrintable(result.error.message));
    QCOMPARE(result.document.documentElement().text(), expected);
}

void tst_BoundedXmlReader::malformed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");
    QTest::addRow("end tag of another element") << QByteArray("<a>\n<b>\n</c>\n</a>") << 3;
    QTest::addRow("element that is not closed") << QByteArray("<a>\n<b/>") << 2;
    QTest::addRow("attribute without quotes") << QByteArray("<a>\n\n\n<b x=1/></a>") << 4;
    QTest::addRow("second root") << QByteArray("<a/>\n<b/>") << 2;
    QTest::addRow("text only") << QByteArray("no XML at all") << 1;
    QTest::addRow("empty file") << QByteArray() << 1;
    QTest::addRow("lines end with CR LF") << QByteArray("<a>\r\n<b>\r\n</c>\r\n</a>") << 3;
}

void tst_BoundedXmlReader::malformed()
{
    QFETCH(QByteArray, content);
    QFETCH(int, line);
    const Parsed result = parsed(content);
    QVERIFY(!result.isWellFormed);
    QCOMPARE(result.error.line, line);

    // Message and column are the parser's own.
    QDomDocument document;
    QString message;
    int parserLine = 0;
    int column = 0;
    QVERIFY(!document.setContent(content, true, &message, &parserLine, &column));
    QCOMPARE(result.error.message, message);
    QCOMPARE(result.error.column, column);
    QVERIFY(!message.isEmpty());
}

void tst_BoundedXmlReader::nesting_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("isRead");
    QTest::addRow("one") << 1 << true;
    QTest::addRow("deep") << 999 << true;
    QTest::addRow("deepest") << 1000 << true;
    QTest::addRow("one too deep") << 1001 << false;
    QTest::addRow("far too deep") << 1500 << false;
}

void tst_BoundedXmlReader::nesting()
{
    QFETCH(int, depth);
    QFETCH(bool, isRead);
    const Parsed result = parsed(nested(depth));
    QCOMPARE(result.isWellFormed, isRead);
    if (isRead) {
        QCOMPARE(result.document.elementsByTagName(QStringLiteral("a")).size(), depth);
    } else {
        // The element that goes too deep is on this line, and a line is "<a>" with its end.
        QCOMPARE(result.error.line, 1001);
        QVERIFY2(result.error.column >= 1 && result.error.column <= 4,
                 qPrintable(QString::number(result.error.column)));
        QVERIFY(!result.error.message.isEmpty());
    }
}

void tst_BoundedXmlReader::manySiblingsAreNotDeep()
{
    const QByteArray branch = QByteArray("<a>").repeated(998) + QByteArray("</a>").repeated(998);
    const Parsed result = parsed("<a>" + branch.repeated(20) + QByteArray("<a/>").repeated(5000) + "</a>");
    QVERIFY2(result.isWellFormed, qPrintable(result.error.message));

    // An empty element counts like any other.
    const QByteArray deepest = QByteArray("<a>").repeated(1000) + "<a/>" + QByteArray("</a>").repeated(1000);
    QVERIFY(!parsed(deepest).isWellFormed);
}

void tst_BoundedXmlReader::tooDeepWithoutOverflow()
{
    const Parsed result = parsed(nested(500000));
    QVERIFY(!result.isWellFormed);
    QCOMPARE(result.error.line, 1001);
    QVERIFY2(!parsed(QByteArray("<a>").repeated(500000)).isWellFormed, "also when nothing is ever closed");
}

void tst_BoundedXmlReader::readsOnAfterAnError()
{
    const QTemporaryDir folder;
    QFile deep(writeFile(folder, QStringLiteral("deep.xml"), nested(1001)));
    QFile good(writeFile(folder, QStringLiteral("good.xml"), nested(1000)));
    QVERIFY(deep.open(QIODevice::ReadOnly) && good.open(QIODevice::ReadOnly));
    QDomDocument document;
    XmlFormatError error;
    QVERIFY(!parseXml(deep, document, error));
    QVERIFY(parseXml(good, document, error));
    QCOMPARE(document.elementsByTagName(QStringLiteral("a")).size(), 1000);
}

/// An entity that the document does not declare leaves a node in the content, and nothing where it was in an
/// attribute.
void tst_BoundedXmlReader::undeclaredEntity()
{
    const Parsed inAttribute = parsed("<a><b x=\"1&u;2\">text</b></a>");
    QVERIFY(inAttribute.isWellFormed);
    const QDomElement root = inAttribute.document.documentElement();
    QCOMPARE(root.childNodes().size(), 1);
    QCOMPARE(root.firstChildElement().text(), QString("text"));

    const Parsed inContent = parsed("<a>one&u;two</a>");
    QVERIFY(inContent.isWellFormed);
    QCOMPARE(inContent.document.documentElement().childNodes().size(), 3);
    QVERIFY(inContent.document.documentElement().childNodes().at(1).isEntityReference());
}

static const testMain::Registration<tst_BoundedXmlReader, QCoreApplication> registration;
#include "tst_BoundedXmlReader.moc"
