// Plain files, read straight from their bytes; and files that are handed over to the parser of documents.
// Covers plainMarkup.cpp, plainScanner.cpp.
#include "esi/xml/plainScanner.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"
#include "xml/outline.h"

#include <QtTest>

class tst_PlainScanner : public QObject
{
    Q_OBJECT

private slots:
    static void plain_data();
    static void plain();
    static void declarations_data();
    static void declarations();
    static void handedOver_data();
    static void handedOver();
    static void limits_data();
    static void limits();
    static void place_data();
    static void place();
};

namespace {

/// The outline of a plain file, "handed over" of another one.
QByteArray outlineOfFile(const QByteArray& file)
{
    const std::optional<xml::Tree> tree = xml::treeOfPlainXml(file.toStdString());
    return tree.has_value() ? outlineOf(*tree) : "handed over";
}

} // namespace

void tst_PlainScanner::plain_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("outline");
    const auto row = [](const char* what, const char* file, const char* outline) {
        QTest::addRow("%s", what) << QByteArray(file) << QByteArray(outline);
    };
    row("an empty element", "<a/>", "a");
    row("an element without content", "<a></a>", "a");
    row("blanks in tags", "<a \t\r\n x = '1'\n/>", "a[x=1]");
    row("a blank in an end tag", "<a><b></b \n></a>", "a{b}");
    row("texts around an element", "<a>one<b>two</b>three</a>", "a{\"one\"b{\"two\"}\"three\"}");
    row("blank texts vanish", "<a> <b>\r\n\t</b>\n</a>\n", "a{b}");
    row("blanks around a text stay", "<a> x </a>", "a{\" x \"}");
    row("blanks of other scripts vanish", "<a>\xC2\xA0\xE3\x80\x80</a>", "a");
    row("a blank by its number vanishes", "<a>&#32;&#x9;</a>", "a");
    row("line ends stay as they are", "<a>1\r\n2\r3\n4</a>", "a{\"1\r\n2\r3\n4\"}");
    row("line ends in values stay", "<a x='1\r\n2\t3'/>", "a[x=1\r\n2\t3]");
    row("predefined references", "<a x='&lt;&quot;'>&amp;&gt;&apos;</a>", "a[x=<\"]{\"&>'\"}");
    row("numbers of characters", "<a>&#65;&#x42;&#xe9;&#x4e2D;</a>", "a{\"AB\xC3\xA9\xE4\xB8\xAD\"}");
    row("references among characters", "<a>x&amp;y&amp;</a>", "a{\"x&y&\"}");
    row("CDATA is a text of its own", "<a>x<![CDATA[<b>&amp;]]]>y</a>", "a{\"x\"\"<b>&amp;]\"\"y\"}");
    row("an empty CDATA section is a text", "<a><![CDATA[]]></a>", "a{\"\"}");
    row("a blank CDATA section is a text", "<a><![CDATA[ ]]></a>", "a{\" \"}");
    row("comments", "<!-- 1 --><a><!--2 - 3--><!----></a><!--4-->", "a{!2 - 3!!!}");
    row("instructions", "<?p?><a><?q some data ?\?><b/><?r?></a><?s\n?>", "a{?b?}");
    row("prefixes", "<p:a q:x='1'><p:b/></p:a>", "a[x=1]{b}");
    row("namespaces are no attributes", "<a xmlns='u' xmlns:p='v' x='1'/>", "a[x=1]");
    row("an attribute twice", "<a x='1' y='2' x='3'/>", "a[x=1][y=2][x=3]");
    row("an angle bracket in text and value", "<a x='1>2'>3>4 ]] ></a>", "a[x=1>2]{\"3>4 ]] >\"}");
    row("the other quotation mark in a value", "<a x='\"' y=\"'\"/>", "a[x=\"][y=']");
    row("characters of four bytes", "<a>\xF0\x9F\x98\x80</a>", "a{\"\xF0\x9F\x98\x80\"}");
    row("names with all that may be in them", "<_a-1.B/>", "_a-1.B");
}

void tst_PlainScanner::plain()
{
    QFETCH(QByteArray, file);
    QTEST(outlineOfFile(file), "outline");
}

void tst_PlainScanner::declarations_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("outline");
    const auto row = [](const char* what, const QByteArray& file, const char* outline) {
        QTest::addRow("%s", what) << file << QByteArray(outline);
    };
    row("version alone", "<?xml version=\"1.0\"?><a>\xC3\xA9</a>", "a{\"\xC3\xA9\"}");
    row("UTF-8", "<?xml version='1.0' encoding='utf-8' standalone='yes' ?>\n<a>\xC3\xA9</a>", "a{\"\xC3\xA9\"}");
    row("Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "a{\"\xC3\xA9\"}");
    row("Latin-1 by another name", "<?xml version='1.0' encoding='ISO8859-1'?><a>\xE9</a>", "a{\"\xC3\xA9\"}");
    row("a mark", "\xEF\xBB\xBF<a>\xC3\xA9</a>", "a{\"\xC3\xA9\"}");
    row("a mark counts for more than the declaration",
        "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?><a>\xC3\xA9</a>", "a{\"\xC3\xA9\"}");
    row("another version", "<?xml version='1.1'?><a/>", "handed over");
    row("another encoding", "<?xml version='1.0' encoding='windows-1252'?><a/>", "handed over");
    row("no version", "<?xml encoding='utf-8'?><a/>", "handed over");
    row("an odd standalone", "<?xml version='1.0' standalone='1'?><a/>", "handed over");
    row("twice", "<?xml version='1.0'?><?xml version='1.0'?><a/>", "handed over");
    row("after a blank", " <?xml version='1.0'?><a/>", "handed over");
    row("no end", "<?xml version='1.0'", "handed over");
    row("an instruction whose name begins like it", "<?xml-stylesheet href='x'?><a/>", "a");
    row("UTF-16", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10), "handed over");
}

void tst_PlainScanner::declarations()
{
    plain();
}

void tst_PlainScanner::handedOver_data()
{
    QTest::addColumn<QByteArray>("file");
    const auto row = [](const char* what, const QByteArray& file) { QTest::addRow("%s", what) << file; };
    row("nothing", "");
    row("blanks", " \n");
    row("no element", "<!-- x -->");
    row("a document type", "<!DOCTYPE a><a/>");
    row("an entity that is not predefined", "<a>&x;</a>");
    row("the same in a value", "<a x='&x;'/>");
    row("a reference without end", "<a>&amp</a>");
    row("a number that is no character", "<a>&#1;</a>");
    row("a number beyond 16 bits", "<a>&#x1F600;</a>");
    row("half of a pair by its number", "<a>&#xD83D;</a>");
    row("U+FFFE by its number", "<a>&#xFFFE;</a>");
    row("a capital X in a reference", "<a>&#X41;</a>");
    row("a sign in a reference", "<a>&#+65;</a>");
    row("a control character", "<a>\x01</a>");
    row("a zero", QByteArray("<a>\0</a>", 8));
    row("U+FFFF", "<a>\xEF\xBF\xBF</a>");
    row("a second mark", "\xEF\xBB\xBF\xEF\xBB\xBF<a/>");
    row("a byte that is not UTF-8", "<a>\xE9</a>");
    row("a surrogate in UTF-8", "<a>\xED\xA0\x80</a>");
    row("a long form in UTF-8", "<a>\xC0\xBC</a>");
    row("half a character at the end", "<a/><!--\xC3");
    row("the end of CDATA in a text", "<a>x]]>y</a>");
    row("an open CDATA section", "<a><![CDATA[x]]</a>");
    row("two hyphens in a comment", "<a><!-- -- --></a>");
    row("three hyphens at the end of a comment", "<a><!-- ---></a>");
    row("an open comment", "<a><!-- </a>");
    row("an instruction without name", "<a><? x?></a>");
    row("an instruction with the name of the declaration", "<a><?XML x?></a>");
    row("an instruction with a prefix", "<a><?p:q x?></a>");
    row("an open instruction", "<a><?p </a>");
    row("an end tag of another name", "<a></b>");
    row("an end tag with a longer name", "<a></ab>");
    row("an end tag with another prefix", "<p:a></q:a>");
    row("no end tag", "<a><b></b>");
    row("an end tag too many", "<a></a></a>");
    row("two root elements", "<a/><b/>");
    row("text before the root element", "x<a/>");
    row("text after the root element", "<a/>x");
    row("CDATA after the root element", "<a/><![CDATA[]]>");
    row("two attributes with one local name, one of them with a prefix", "<a p:x='1' x='2'/>");
    row("attributes without blank between them", "<a x='1'y='2'/>");
    row("an attribute without value", "<a x/>");
    row("a value without quotation marks", "<a x=1/>");
    row("a value without end", "<a x='1/>");
    row("an angle bracket in a value", "<a x='<'/>");
    row("a blank before the name", "< a/>");
    row("a blank in an empty tag", "<a / >");
    row("a letter beyond ASCII in a name", "<\xC3\xA9/>");
    row("a name that begins with a digit", "<1a/>");
    row("a name with two colons", "<a:b:c/>");
    row("a name that begins with a colon", "<:a/>");
    row("a name that ends with a colon", "<a:/>");
    row("a tag at the end of the file", "<a><b");
    row("an exclamation mark and nothing else", "<a><!x></a>");
}

void tst_PlainScanner::handedOver()
{
    QFETCH(QByteArray, file);
    QCOMPARE(outlineOfFile(file), QByteArray("handed over"));
}

void tst_PlainScanner::limits_data()
{
    QTest::addColumn<QByteArray>("within");
    QTest::addColumn<QByteArray>("beyond");
    const auto nested = [](int depth) {
        return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    QTest::addRow("depth") << nested(maxNesting) << nested(maxNesting + 1);
    const auto attributes = [](int count) { return "<a" + QByteArray(" x='1'").repeated(count) + "/>"; };
    QTest::addRow("attributes") << attributes(maxAttributes) << attributes(maxAttributes + 1);
    const auto prefixes = [](int count) {
        QByteArray file = "<a";
        for (int prefix = 0; prefix < count; ++prefix)
            file += " xmlns:p" + QByteArray::number(prefix) + "='u'";
        return file + " xmlns:p0='u'/>";
    };
    QTest::addRow("prefixes") << prefixes(maxPrefixes) << prefixes(maxPrefixes + 1);
    const auto devices = [](int count) { return "<a>" + QByteArray("<Device/>").repeated(count) + "</a>"; };
    QTest::addRow("devices") << devices(maxDevices) << devices(maxDevices + 1);
}

/// What is beyond a limit is handed over, and refused there.
void tst_PlainScanner::limits()
{
    QFETCH(QByteArray, within);
    QFETCH(QByteArray, beyond);
    QVERIFY(outlineOfFile(within) != "handed over");
    QCOMPARE(outlineOfFile(beyond), QByteArray("handed over"));
}

void tst_PlainScanner::place_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addRow("on the first line") << QByteArray("<a><b/></a>") << 1 << 4;
    QTest::addRow("after LF") << QByteArray("<a>\n\n <b/></a>") << 3 << 2;
    QTest::addRow("after CR LF") << QByteArray("<a>\r\n\r\n<b/></a>") << 3 << 1;
    QTest::addRow("after CR") << QByteArray("<a>\r\r<b/></a>") << 3 << 1;
    QTest::addRow("characters count, not bytes") << QByteArray("<a>\xC3\xA9\xF0\x9F\x98\x80<b/></a>") << 1 << 6;
    QTest::addRow("a mark does not count") << QByteArray("\xEF\xBB\xBF<a><b/></a>") << 1 << 4;
    QTest::addRow("after a reference") << QByteArray("<a>&#10;<b/></a>") << 1 << 9;
}

void tst_PlainScanner::place()
{
    QFETCH(QByteArray, file);
    const std::optional<xml::Tree> tree = xml::treeOfPlainXml(file.toStdString());
    QVERIFY(tree.has_value());
    for (const xml::Node node : tree->root().children())
        if (node.isElement()) {
            QTEST(node.place().line, "line");
            QTEST(node.place().column, "column");
            return;
        }
    QFAIL("there is no element in the root");
}

static const testMain::Registration<tst_PlainScanner, testMain::NoApplication> registration;
#include "tst_PlainScanner.moc"
