// Places of nodes as lines and columns, in one pass.
#include "esi/xml/placeCursor.h"
#include "esi/xml/plainScanner.h"
#include "testMain.h"

#include <QtTest>

#include <optional>

class tst_PlaceCursor : public QObject
{
    Q_OBJECT

private slots:
    static void places_data();
    static void places();
};

void tst_PlaceCursor::places_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("places");
    QTest::addRow("on one line") << QByteArray("<a><b/><c/></a>") << QStringList{"1:1", "1:4", "1:8"};
    QTest::addRow("LF") << QByteArray("<a>\n<b/>\n\n <c/></a>") << QStringList{"1:1", "2:1", "4:2"};
    QTest::addRow("CR LF") << QByteArray("<a>\r\n<b/>\r\n\r\n <c/></a>") << QStringList{"1:1", "2:1", "4:2"};
    QTest::addRow("CR") << QByteArray("<a>\r<b/>\r\r <c/></a>") << QStringList{"1:1", "2:1", "4:2"};
    QTest::addRow("mixed") << QByteArray("<a>\r\r\n\n<b/>\n\r<c/></a>") << QStringList{"1:1", "4:1", "6:1"};
    QTest::addRow("characters of several bytes")
        << QByteArray("<a t='\xC3\xA9'>\xE4\xBD\xA0<b/>\xF0\x9F\x98\x80<c/></a>") << QStringList{"1:1", "1:11", "1:16"};
}

void tst_PlaceCursor::places()
{
    QFETCH(QByteArray, file);
    const std::optional<xml::Tree> tree = xml::treeOfPlainXml(file.toStdString());
    QVERIFY(tree.has_value());
    xml::PlaceCursor cursor(*tree);
    QStringList places;
    const auto take = [&](const xml::Node& node) {
        const xml::Place place = cursor.moveTo(node.placeKey());
        places += QStringLiteral("%1:%2").arg(place.line).arg(place.column);
        QCOMPARE(node.place().line, place.line);
        QCOMPARE(node.place().column, place.column);
    };
    take(tree->root());
    for (const xml::Node node : tree->root().children())
        if (node.isElement())
            take(node);
    QTEST(places, "places");
}

static const testMain::Registration<tst_PlaceCursor, testMain::NoApplication> registration;
#include "tst_PlaceCursor.moc"
