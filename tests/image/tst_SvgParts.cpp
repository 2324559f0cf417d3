// Where the rows of a sync manager are in its picture.
// Covers svgParts.cpp.
#include "image/imageParts.h"
#include "image/svgParts.h"
#include "testMain.h"

#include <QtTest>

class tst_SvgParts : public QObject
{
    Q_OBJECT

private slots:
    static void mixed();
    static void entries_data();
    static void entries();
    static void withoutBits();
};

namespace {

/// "line 1-2 bits 7-0" for each part.
QStringList linesOf(const image::Box& box)
{
    QStringList lines;
    for (const image::Part& part : box.parts)
        lines +=
            QStringLiteral("line %1+%2 bits %3-%4").arg(part.line).arg(part.lines).arg(part.highBit).arg(part.lowBit);
    return lines;
}

} // namespace

void tst_SvgParts::mixed()
{
    const image::Area area = imageParts::mixedArea();
    const image::Picture picture = image::pictureOf(area);
    QCOMPARE(picture.lines.size(), std::size_t{3});
    QCOMPARE(picture.boxes.size(), std::size_t{5});
    QCOMPARE(linesOf(picture.boxes[0]), QStringList{"line 0+1 bits 0-0"});
    QCOMPARE(linesOf(picture.boxes[1]), (QStringList{"line 0+1 bits 7-1", "line 1+1 bits 4-0"}));
    QCOMPARE(linesOf(picture.boxes[2]), QStringList{"line 1+1 bits 6-5"});
    QCOMPARE(linesOf(picture.boxes[3]), (QStringList{"line 1+1 bits 7-7", "line 2+1 bits 1-0"}));
    QCOMPARE(linesOf(picture.boxes[4]), QStringList{"line 2+1 bits 7-2"});
    QCOMPARE(picture.boxes[3].pdo, &area.pdos[1]);
    QVERIFY(picture.boxes[4].pdo == nullptr);
    QCOMPARE(picture.boxes[4].number, std::size_t{5});
}

void tst_SvgParts::entries_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("lastByte");
    QTest::addRow("a byte") << 8 << 8 << QStringList{"line 1+1 bits 7-0"} << 2 << 1;
    QTest::addRow("four bytes") << 8 << 32 << QStringList{"line 1+4 bits 7-0"} << 5 << 4;
    QTest::addRow("over three bytes") << 3 << 16
                                      << QStringList{"line 0+1 bits 7-3", "line 1+1 bits 7-0", "line 2+1 bits 2-0"} << 3
                                      << 2;
    QTest::addRow("eight whole bytes") << 8 << 64 << QStringList{"line 1+8 bits 7-0"} << 9 << 8;
    QTest::addRow("nine whole bytes share a line") << 8 << 72 << QStringList{"line 1+1 bits 7-0"} << 2 << 9;
    QTest::addRow("a thousand and some bits")
        << 4 << 8008 << QStringList{"line 0+1 bits 7-4", "line 1+1 bits 7-0", "line 2+1 bits 3-0"} << 3 << 1001;
    QTest::addRow("as long as an entry can be")
        << 8 << 2147483640 << QStringList{"line 1+1 bits 7-0"} << 2 << 268435455;
}

void tst_SvgParts::entries()
{
    QFETCH(int, before);
    QFETCH(int, bits);
    image::Area area;
    area.pdos = {{0x1a00,
                  -1,
                  {},
                  0,
                  0,
                  {imageParts::entry(0, before, 0x6000, {}), imageParts::entry(before, bits, 0x6001, {})}}};
    const image::Picture picture = image::pictureOf(area);
    QTEST(linesOf(picture.boxes.at(1)), "parts");
    QTEST(static_cast<int>(picture.lines.size()), "lines");
    QTEST(static_cast<int>(picture.lines.back().lastByte), "lastByte");
}

/// An entry without bits has no box, but counts.
void tst_SvgParts::withoutBits()
{
    image::Area area;
    area.pdos = {{0x1a00, -1, {}, 0, 8, {imageParts::entry(0, 0, 0x6000, {}), imageParts::entry(0, 8, 0x6001, {})}}};
    const image::Picture picture = image::pictureOf(area);
    QCOMPARE(picture.boxes.size(), std::size_t{1});
    QCOMPARE(picture.boxes[0].number, std::size_t{2});
    QVERIFY(image::pictureOf({}).lines.empty());
}

static const testMain::Registration<tst_SvgParts, testMain::NoApplication> registration;
#include "tst_SvgParts.moc"
