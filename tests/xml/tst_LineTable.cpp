// Lines of nodes, in any order.
#include "esi/xml/lineTable.h"
#include "esi/xml/plainScanner.h"
#include "testMain.h"

#include <QtTest>

#include <optional>

class tst_LineTable : public QObject
{
    Q_OBJECT

private slots:
    static void lines_data();
    static void lines();
};

void tst_LineTable::lines_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QList<int>>("lines");
    QTest::addRow("on one line") << QByteArray("<a><b/><c/></a>") << QList<int>{1, 1, 1};
    QTest::addRow("LF") << QByteArray("<a>\n<b/>\n\n <c/></a>") << QList<int>{1, 2, 4};
    QTest::addRow("CR LF") << QByteArray("<a>\r\n<b/>\r\n\r\n <c/></a>") << QList<int>{1, 2, 4};
    QTest::addRow("CR") << QByteArray("<a>\r<b/>\r\r <c/></a>") << QList<int>{1, 2, 4};
    QTest::addRow("mixed") << QByteArray("<a>\r\r\n\n<b/>\n\r<c/></a>") << QList<int>{1, 4, 6};
    // A table keeps the lines of every 16,384th byte: a pair of CR and LF lies across such a place.
    QTest::addRow("long") << "<a>" + QByteArray(16380, ' ') + "\r\n<b/>" + QByteArray(40000, '\n') + "<c/></a>"
                          << QList<int>{1, 2, 40002};
}

void tst_LineTable::lines()
{
    QFETCH(const QByteArray, file);
    const std::optional<xml::Tree> tree = xml::treeOfPlainXml(file.toStdString());
    QVERIFY(tree.has_value());
    std::vector<xml::PlaceKey> keys{tree->root().placeKey()};
    for (const xml::Node node : tree->root().children())
        if (node.isElement())
            keys.push_back(node.placeKey());
    const xml::LineTable table(*tree);
    QList<int> lines;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        lines.prepend(table.lineOf(*key));
    QTEST(lines, "lines");
}

static const testMain::Registration<tst_LineTable, testMain::NoApplication> registration;
#include "tst_LineTable.moc"
