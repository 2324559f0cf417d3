// Process images as a picture, as a viewer draws it.
// Covers svgWriter.cpp, svgLetters.cpp.
#include "image/imageParts.h"
#include "testMain.h"

#include <QDomDocument>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtTest>

#include <algorithm>

using imageParts::deviceWith;
using imageParts::entry;
using imageParts::mixedArea;
using imageParts::written;

class tst_ImageSvg : public QObject
{
    Q_OBJECT

private slots:
    static void boxes_data();
    static void boxes();
    static void longEntry();
    static void background();
    static void titles();
    static void hostileNames();
    static void textsFit_data();
    static void textsFit();
    static void clippedNames();
    static void namesInEachPart();
    static void textsStayOnPage_data();
    static void textsStayOnPage();
    static void manyLines();
    static void legendHasEachPdo();
    static void longNames();
};

namespace {

QString idOf(int row, const char* part)
{
    return QStringLiteral("device2-inputs3-row%1-%2").arg(row).arg(QLatin1String(part));
}

/// A box without the line around it, which is drawn half outside.
QRect placeOf(const QSvgRenderer& page, int row, const char* part)
{
    constexpr qreal halfLine = 0.5;
    const QRectF bounds = page.boundsOnElement(idOf(row, part));
    return bounds.width() == 0 ? QRect() : bounds.adjusted(halfLine, halfLine, -halfLine, -halfLine).toRect();
}

/// An area with one PDO of these rows.
image::Area areaOf(std::vector<image::Row> rows)
{
    image::Area area;
    area.number = 3;
    area.isInput = true;
    area.bits = rows.back().bit + rows.back().bits;
    area.bytes = (area.bits + 7) / 8;
    area.pdos = {{0x1a00, -1, "P", 0, area.bits, std::move(rows)}};
    return area;
}

/// A page on black.
QImage drawn(const QByteArray& svg)
{
    QSvgRenderer page(svg);
    QImage picture(page.defaultSize(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    page.render(&painter);
    return picture;
}

/// What of two pictures is not the same.
QRect differenceOf(const QImage& left, const QImage& right)
{
    QRect difference;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x)
            if (left.pixel(x, y) != right.pixel(x, y))
                difference |= QRect(x, y, 1, 1);
    return difference;
}

} // namespace

void tst_ImageSvg::boxes_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<QRect>("place");
    QTest::addRow("bit 0 is on the right") << 1 << QByteArray("part1") << QRect(812, 0, 100, 22);
    QTest::addRow("bits 7 to 1") << 2 << QByteArray("part1") << QRect(112, 0, 700, 22);
    QTest::addRow("bits 4 to 0 of the next byte") << 2 << QByteArray("part2") << QRect(412, 22, 500, 22);
    QTest::addRow("the gap, bits 6 and 5") << 3 << QByteArray("part1") << QRect(212, 22, 200, 22);
    QTest::addRow("bit 7 of the module") << 4 << QByteArray("part1") << QRect(112, 22, 100, 22);
    QTest::addRow("bits 1 and 0 of the module") << 4 << QByteArray("part2") << QRect(712, 44, 200, 22);
    QTest::addRow("the padding, bits 7 to 2") << 5 << QByteArray("part1") << QRect(112, 44, 600, 22);
}

/// A bit is 100 wide, the page 928, with a margin of 16; a byte is 22 high. Places are below the first box.
void tst_ImageSvg::boxes()
{
    QFETCH(int, row);
    QFETCH(QByteArray, part);
    QFETCH(QRect, place);
    const QSvgRenderer page(written(image::Form::Svg, deviceWith({mixedArea()})));
    QVERIFY(page.isValid());
    QCOMPARE(page.defaultSize().width(), 928);
    const int top = placeOf(page, 1, "part1").top();
    QVERIFY(top > 0);
    QCOMPARE(placeOf(page, row, part.constData()), place.translated(0, top));
}

/// Whole bytes of an entry are one box, more than eight of them on one line: what comes next is 22 below it.
void tst_ImageSvg::longEntry()
{
    const QSvgRenderer page(
        written(image::Form::Svg, deviceWith({areaOf({entry(0, 32, 0x6000, "four"), entry(32, 8000, 0x6001, "many"),
                                                      entry(8032, 8, 0x6002, "last")})})));
    const QRect four = placeOf(page, 1, "part1");
    QCOMPARE(four.size(), QSize(800, 88));
    QCOMPARE(placeOf(page, 2, "part1"), QRect(112, four.top() + 88, 800, 22));
    QCOMPARE(placeOf(page, 3, "part1"), QRect(112, four.top() + 110, 800, 22));
    QVERIFY(written(image::Form::Svg, deviceWith({areaOf({entry(0, 8000, 0x6001, "many")})}))
                .contains(">many: 1000 bytes<"));
}

/// The page is white itself, so that it is legible on a dark one, and boxes have the colour of their PDO.
void tst_ImageSvg::background()
{
    const QByteArray svg = written(image::Form::Svg, deviceWith({mixedArea()}));
    const QSvgRenderer page(svg);
    const QImage picture = drawn(svg);
    QCOMPARE(picture.pixelColor(2, 2), QColor(Qt::white));
    const auto colourOf = [&](int row, const char* part) {
        return picture.pixelColor(placeOf(page, row, part).bottomRight() - QPoint(3, 3)).name();
    };
    QCOMPARE(colourOf(1, "part1"), QStringLiteral("#77aadd"));
    QCOMPARE(colourOf(2, "part2"), QStringLiteral("#77aadd"));
    QCOMPARE(colourOf(3, "part1"), QStringLiteral("#ffffff"));
    QCOMPARE(colourOf(4, "part2"), QStringLiteral("#ee8866"));
    QCOMPARE(colourOf(5, "part1"), QStringLiteral("#e8e8e8"));
}

void tst_ImageSvg::titles()
{
    const QByteArray page = written(image::Form::Svg, deviceWith({mixedArea()}));
    QVERIFY(page.contains("<g id=\"device2-inputs3-row2\"><title>0x6001:1, Level, UINT, 12 bits from 0.1, "
                          "PDO 0x1a00 &quot;Status&quot;</title>"));
    QVERIFY(page.contains("<title>padding, 6 bits from 2.2</title>"));
    QVERIFY(page.contains("<title>gap, 2 bits from 1.5, PDO 0x1a00 &quot;Status&quot;</title>"));
}

/// Names cannot end an element, and no character makes the page ill-formed.
void tst_ImageSvg::hostileNames()
{
    const std::string name("</text><script>&\"'\x01\x00]]>\xEF\xBF\xBF\xFF", 27);
    image::Area area = areaOf({entry(0, 32, 0x6000, name)});
    area.pdos[0].name = name;
    area.pdos[0].rows[0].type = name;
    image::Device device = deviceWith({area});
    device.name = name;
    device.type = name;
    device.notes = {name};
    const QByteArray page = written(image::Form::Svg, device);
    QDomDocument document;
    QString error;
    QVERIFY2(document.setContent(page, &error), qPrintable(error));
    QCOMPARE(document.elementsByTagName(QStringLiteral("script")).size(), 0);
    QVERIFY(QSvgRenderer(page).isValid());
    for (const char* forbidden : {"\x01", "\xEF\xBF\xBF", "\xFF"})
        QVERIFY(!page.contains(forbidden));
}

void tst_ImageSvg::textsFit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("bits");
    for (const int bits : {1, 2, 8}) {
        QTest::addRow("narrow letters, %d", bits) << QString(300, QLatin1Char('i')) << bits;
        QTest::addRow("wide letters, %d", bits) << QString(300, QLatin1Char('W')) << bits;
        QTest::addRow("capitals, %d", bits) << QStringLiteral("HEIGHT OF NOTHING ").repeated(20) << bits;
        QTest::addRow("wide marks, %d", bits) << QStringLiteral(u"\u2014\u2026\u2122\u00BD\u2116").repeated(30) << bits;
        QTest::addRow("Cyrillic, %d", bits)
            << QStringLiteral(u"\u0416\u0428\u0429\u042E\u0416\u0428\u0429").repeated(30) << bits;
        QTest::addRow("Chinese, %d", bits) << QStringLiteral(u"\u63A7\u5236\u5B57").repeated(50) << bits;
        QTest::addRow("short, %d", bits) << QStringLiteral("Ready") << bits;
    }
}

/// A name stays inside its box; a short one is whole.
void tst_ImageSvg::textsFit()
{
    QFETCH(QString, name);
    QFETCH(int, bits);
    const QByteArray svg =
        written(image::Form::Svg, deviceWith({areaOf({entry(0, bits, 0x6000, name.toStdString())})}));
    const QSvgRenderer page(svg);
    const QRegularExpression text(QStringLiteral("<text id=\"%1\".*</text>").arg(idOf(1, "text")));
    const QRect letters = differenceOf(drawn(svg), drawn(QString::fromUtf8(svg).remove(text).toUtf8()));
    QVERIFY(letters.width() > 10);
    QVERIFY2(placeOf(page, 1, "part1").contains(letters), qPrintable(QString::number(letters.width())));
    QCOMPARE(svg.contains("\">" + name.toUtf8() + "</text>"), name == QLatin1String("Ready"));
}

/// What no estimate of letters foresees is cut at the edge of the box.
void tst_ImageSvg::clippedNames()
{
    const QByteArray page = written(image::Form::Svg, deviceWith({mixedArea()}));
    QVERIFY(page.contains("<clipPath id=\"bits7\"><rect x=\"0\" y=\"0\" width=\"700\" height=\"22\""));
    QDomDocument document;
    QVERIFY(document.setContent(page));
    int names = 0;
    const QDomNodeList texts = document.elementsByTagName(QStringLiteral("text"));
    for (int index = 0; index < texts.size(); ++index) {
        const QDomElement text = texts.at(index).toElement();
        if (!text.attribute(QStringLiteral("id")).endsWith(QLatin1String("-text")))
            continue;
        ++names;
        QVERIFY(text.attribute(QStringLiteral("clip-path")).startsWith(QLatin1String("url(#bits")));
    }
    QCOMPARE(names, 7); // five rows, two of them in two parts
}

/// 12 bits over the edge of a byte: 7 bits and 5 bits. A name of which a part has no room is in the other one only.
void tst_ImageSvg::namesInEachPart()
{
    const QByteArray both = written(image::Form::Svg, deviceWith({mixedArea()}));
    QCOMPARE(both.count(">Level</text>"), 2);
    QVERIFY(both.contains("<text id=\"device2-inputs3-row2-part2-text\""));
    const QByteArray wide = written(
        image::Form::Svg,
        deviceWith({areaOf({entry(0, 1, 0x6000, "a"), entry(1, 8, 0x6001, "Position demand value of axis one")})}));
    QCOMPARE(wide.count(">Position"), 1);
}

void tst_ImageSvg::textsStayOnPage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("latin") << QStringLiteral("Position demand value of axis one, ").repeated(20);
    QTest::addRow("one word") << QString(500, QLatin1Char('W'));
    QTest::addRow("Cyrillic") << QStringLiteral(u"\u0416\u0428\u0429\u042E ").repeated(60);
    QTest::addRow("dashes") << QString(300, QChar(0x2014));
}

/// Words of the page, measured with the letters that it has here. Lines of common words end near the edge.
void tst_ImageSvg::textsStayOnPage()
{
    QFETCH(QString, text);
    image::Area area = areaOf(
        {entry(0, 8, 0x6000, "a"), entry(8, 2147483640, 0x6001, "b"), entry(2147483648, 2147483640, 0x6002, "c")});
    area.pdos[0].name = text.toStdString();
    image::Device device = deviceWith({area});
    device.notes = {text.toStdString()};
    QDomDocument page;
    QVERIFY(page.setContent(written(image::Form::Svg, device)));
    QFont font(QStringLiteral("sans-serif"));
    qreal longest = 0;
    const QDomNodeList texts = page.elementsByTagName(QStringLiteral("text"));
    for (int index = 0; index < texts.size(); ++index) {
        const QDomElement element = texts.at(index).toElement();
        if (element.hasAttribute(QStringLiteral("transform")))
            continue;
        font.setPixelSize(element.attribute(QStringLiteral("font-size"), QStringLiteral("11")).toInt());
        const qreal left = element.attribute(QStringLiteral("x")).toDouble();
        const qreal width = QFontMetricsF(font).horizontalAdvance(element.text());
        if (element.attribute(QStringLiteral("text-anchor")) == QLatin1String("end"))
            QVERIFY2(left - width >= 0, qPrintable(element.text()));
        else
            QVERIFY2(left + width <= 928 - 16 + 1, qPrintable(element.text()));
        longest = std::max(longest, width);
    }
    QVERIFY2(longest > 896 * 0.7, qPrintable(QString::number(longest)));
}

/// A page of more than 2^31 pixels.
void tst_ImageSvg::manyLines()
{
    std::ostringstream out;
    const auto writer = image::makeWriter(image::Form::Svg, out, {0, 5000000000});
    writer->begin();
    writer->end();
    const QByteArray page = QByteArray::fromStdString(out.str());
    const QRegularExpressionMatch height =
        QRegularExpression(QStringLiteral("<svg [^>]*height=\"(\\d+)\"")).match(QString::fromUtf8(page));
    QVERIFY2(height.captured(1).toLongLong() > 5000000000, page.constData());
}

/// Colours come again after eight PDOs, so the legend says where each is.
void tst_ImageSvg::legendHasEachPdo()
{
    image::Area area;
    for (std::uint16_t number = 0; number < 9; ++number)
        area.pdos.push_back(
            {static_cast<std::uint16_t>(0x1a00 + number), -1, {}, number * 8, 8, {entry(number * 8, 8, 0x6000, {})}});
    area.pdos.push_back({0x1aff, -1, "none", 72, 0, {}});
    area.bits = 72;
    area.bytes = 9;
    const QByteArray page = written(image::Form::Svg, deviceWith({area}));
    QVERIFY(page.contains(">PDO 0x1a00: 8 bits, 0.0 to 0.7<"));
    QVERIFY(page.contains(">PDO 0x1a08: 8 bits, 8.0 to 8.7<"));
    QVERIFY(page.contains(">PDO 0x1aff &quot;none&quot;: no bits<"));
    QCOMPARE(page.count("fill=\"#77aadd\""), 4); // the boxes and legends of the first and the ninth
}

/// A page does not grow with a name of a megabyte.
void tst_ImageSvg::longNames()
{
    image::Area area = areaOf({entry(0, 8, 0x6000, std::string(1000000, 'x'))});
    area.pdos[0].name.assign(1000000, 'x');
    image::Device device = deviceWith({area});
    device.name.assign(1000000, 'x');
    QVERIFY(written(image::Form::Svg, device).size() < 10000);
}

static const testMain::Registration<tst_ImageSvg, QGuiApplication> registration;
#include "tst_ImageSvg.moc"
