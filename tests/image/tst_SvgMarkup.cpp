// Elements of an SVG page.
// Covers svgMarkup.cpp.
#include "image/svgMarkup.h"
#include "testMain.h"

#include <QtTest>

class tst_SvgMarkup : public QObject
{
    Q_OBJECT

private slots:
    static void texts_data();
    static void texts();
    static void elements();
};

void tst_SvgMarkup::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray replaced = "\xEF\xBF\xBD";
    QTest::addRow("marks") << QByteArray("<a> & \"b\"") << QByteArray("&lt;a&gt; &amp; &quot;b&quot;");
    QTest::addRow("end of a CDATA section") << QByteArray("]]>") << QByteArray("]]&gt;");
    QTest::addRow("letters") << QByteArray("\xE6\x8E\xA7\xF0\x9F\x99\x82")
                             << QByteArray("\xE6\x8E\xA7\xF0\x9F\x99\x82");
    QTest::addRow("control") << QByteArray("a\x01z") << "a" + replaced + "z";
    QTest::addRow("zero") << QByteArray("a\0z", 3) << "a" + replaced + "z";
    QTest::addRow("U+FFFE and U+FFFF") << QByteArray("\xEF\xBF\xBE\xEF\xBF\xBF") << replaced + replaced;
    QTest::addRow("no UTF-8") << QByteArray("a\xFFz") << "a" + replaced + "z";
}

void tst_SvgMarkup::texts()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(image::xmlText(text.toStdString())), "expected");
}

void tst_SvgMarkup::elements()
{
    QCOMPARE(image::rectangleElement("box", {1, 2, 3, 4}, "fill=\"#fff\""),
             std::string("<rect id=\"box\" x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"#fff\"/>\n"));
    QCOMPARE(image::textElement({}, 1, 2, {}, "a<b"), std::string("<text x=\"1\" y=\"2\">a&lt;b</text>\n"));
}

static const testMain::Registration<tst_SvgMarkup, testMain::NoApplication> registration;
#include "tst_SvgMarkup.moc"
