// The tree of a document, and what can be asked of a tree.
// Covers tree.cpp, treeBuilder.cpp.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/documentTree.h"
#include "esi/xml/treeIteration.h"
#include "testMain.h"
#include "xml/outline.h"

#include <QBuffer>
#include <QDomDocument>
#include <QtTest>

class tst_DocumentTree : public QObject
{
    Q_OBJECT

private slots:
    static void content_data();
    static void content();
    static void partOfADocument();
    static void nullElement();
    static void halfAPair();
    static void line();
    static void text_data();
    static void text();
    static void attribute();
    static void walk();
    static void descendantsByName();
};

namespace {

QDomDocument documentOf(const QString& xml)
{
    QByteArray bytes = xml.toUtf8();
    QBuffer file(&bytes);
    QDomDocument document;
    XmlFormatError error;
    if (!file.open(QIODevice::ReadOnly) || !parseXml(file, document, error))
        qFatal("the XML of this test is not well-formed: %s", qPrintable(xml));
    return document;
}

xml::Tree treeOfText(const QString& xml)
{
    return xml::treeOf(documentOf(xml).documentElement());
}

} // namespace

void tst_DocumentTree::content_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("outline");
    QTest::addRow("nothing in it") << "<a/>" << QByteArray("a");
    QTest::addRow("elements") << "<a><b><c/></b><d/></a>" << QByteArray("a{b{c}d}");
    QTest::addRow("texts") << QStringLiteral("<a>x<b>\u00E9</b>y</a>") << QByteArray("a{\"x\"b{\"\xC3\xA9\"}\"y\"}");
    QTest::addRow("CDATA") << "<a>x<![CDATA[y]]></a>" << QByteArray("a{\"x\"\"y\"}");
    QTest::addRow("comments and instructions") << "<!--0--><a><!--1--><?p d?></a>" << QByteArray("a{!1!?}");
    QTest::addRow("an entity that is not declared") << "<a>x&e;y</a>" << QByteArray("a{\"x\"?\"y\"}");
    QTest::addRow("local names") << "<p:a q:x='1' xmlns:p='u'/>" << QByteArray("a[x=1]");
    QTest::addRow("the later of two attributes is the last")
        << "<a xmlns:p='u' p:x='1' x='2'/>" << QByteArray("a[x=1][x=2]");
    QTest::addRow("without a namespace only the later stays") << "<a p:x='1' x='2'/>" << QByteArray("a[x=2]");
    QTest::addRow("a long text") << "<a>" + QString(1000, 'x') + "</a>"
                                 << "a{\"" + QByteArray(1000, 'x') + "\"}";
}

void tst_DocumentTree::content()
{
    QFETCH(QString, file);
    QTEST(outlineOf(treeOfText(file)), "outline");
}

/// What is beside the element is not in its tree.
void tst_DocumentTree::partOfADocument()
{
    const QDomDocument document = documentOf(QStringLiteral("<a><b x='1'>2</b><c/></a>"));
    QCOMPARE(outlineOf(xml::treeOf(document.documentElement().firstChildElement())), QByteArray("b[x=1]{\"2\"}"));
}

void tst_DocumentTree::nullElement()
{
    QCOMPARE(outlineOf(xml::treeOf(QDomElement())), QByteArray());
}

/// UTF-8 has no form for it.
void tst_DocumentTree::halfAPair()
{
    QCOMPARE(outlineOf(treeOfText(QStringLiteral("<a>x&#xD83D;y</a>"))), QByteArray("a{\"x?y\"}"));
}

/// A document knows the line on which a start tag ends; its columns are those of the parser.
void tst_DocumentTree::line()
{
    const xml::Tree tree = treeOfText(QStringLiteral("<a>\n\n<b/></a>"));
    const auto nodes = tree.root().children();
    QCOMPARE((*nodes.begin()).place().line, 3);
    QCOMPARE((*nodes.begin()).place().column, 0);
}

void tst_DocumentTree::text_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    QTest::addRow("none") << "<a><b/><!--x--></a>"
                          << "";
    QTest::addRow("one") << "<a>x</a>"
                         << "x";
    QTest::addRow("one beside other nodes") << "<a><b/>x<!--y--></a>"
                                            << "x";
    QTest::addRow("several") << "<a>x<![CDATA[y]]>z</a>"
                             << "xyz";
    QTest::addRow("at any depth") << "<a>1<b>2<c>3</c></b>4</a>"
                                  << "1234";
    QTest::addRow("one deep inside") << "<a><b><c>3</c></b></a>"
                                     << "3";
}

void tst_DocumentTree::text()
{
    QFETCH(QString, file);
    const xml::Tree tree = treeOfText(file);
    QTEST(QString::fromStdString(tree.root().text().toString()), "expected");
}

void tst_DocumentTree::attribute()
{
    const xml::Tree tree = treeOfText(QStringLiteral("<a x='1' y=''><b z='2'/></a>"));
    QCOMPARE(QByteArray::fromStdString(std::string(tree.root().attribute("x"))), QByteArray("1"));
    QVERIFY(tree.root().attribute("y").data() != nullptr);
    QVERIFY(tree.root().attribute("y").empty());
    QVERIFY(tree.root().attribute("z").data() == nullptr);
    QVERIFY(tree.root().attribute("X").data() == nullptr);
}

void tst_DocumentTree::walk()
{
    const xml::Tree tree = treeOfText(QStringLiteral("<a>t<b><c/><d>u</d></b><!--v--><e/></a>"));
    std::string steps;
    xml::walkElements(
        tree.root(),
        [&](const xml::Element& element, const xml::Element& parent) {
            steps.append(parent.name()).append(">").append(element.name()).append(" ");
        },
        [&](const xml::Element& element) { steps.append("<").append(element.name()).append(" "); });
    QCOMPARE(QByteArray::fromStdString(steps), QByteArray("a>b b>c <c b>d <d <b a>e <e "));
}

void tst_DocumentTree::descendantsByName()
{
    const xml::Tree tree = treeOfText(QStringLiteral("<b><b i='1'><c i='2'/><b i='3'/></b><d/><c i='4'/></b>"));
    const auto [bs, cs] = xml::descendantsByName<2>(tree.root(), {"b", "c"});
    const auto numbersOf = [](const std::vector<xml::Element>& elements) {
        std::string numbers;
        for (const xml::Element& element : elements)
            numbers += element.attribute("i");
        return QByteArray::fromStdString(numbers);
    };
    QCOMPARE(numbersOf(bs), QByteArray("13"));
    QCOMPARE(numbersOf(cs), QByteArray("24"));
}

static const testMain::Registration<tst_DocumentTree, testMain::NoApplication> registration;
#include "tst_DocumentTree.moc"
