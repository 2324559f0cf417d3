// Process images as text.
// Covers imageText.cpp, imageWriter.cpp.
#include "image/imageParts.h"
#include "testMain.h"

#include <QtTest>

using imageParts::deviceWith;
using imageParts::mixedArea;
using imageParts::written;

class tst_ImageText : public QObject
{
    Q_OBJECT

private slots:
    static void table();
    static void narrow_data();
    static void narrow();
    static void tooNarrowForTable_data();
    static void tooNarrowForTable();
    static void noProcessData();
    static void notes();
    static void longNames();
    static void pdoWithoutEntries();
};

/// A byte.bit is where an entry begins.
void tst_ImageText::table()
{
    QCOMPARE(written(image::Form::Text, deviceWith({mixedArea()})),
             QByteArray("a.xml: device 2, 0x7e57:0x1:0x20, T1 \"Drive, left\"\n"
                        "  Inputs, sync manager 3: 3 bytes used (18 bits), length 2, at most 64; "
                        "warning: the length lacks the PDOs of modules\n"
                        "      byte.bit  bits  object    name   type  link\n"
                        "    PDO 0x1a00 \"Status\"\n"
                        "      0.0       1     0x6000:1  Ready  UINT  NONE Type\n"
                        "      0.1       12    0x6001:1  Level  UINT  NONE Type\n"
                        "      1.5       2     gap\n"
                        "    PDO 0x1a10 \"Module\", slot 2\n"
                        "      1.7       3     0x6010:1  Mode   UINT  NONE Type\n"
                        "      2.2       6     padding\n"));
}

void tst_ImageText::narrow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("latin") << QStringLiteral("a rather long name of words ").repeated(5);
    QTest::addRow("one word") << QString(100, QLatin1Char('x'));
    QTest::addRow("wide") << QStringLiteral(u"\u63A7\u5236\u5B57").repeated(20);
}

/// No line takes more than 80 columns.
void tst_ImageText::narrow()
{
    QFETCH(QString, name);
    image::Area area = mixedArea();
    area.pdos[0].rows[0].name = name.toStdString();
    area.pdos[0].name = name.toStdString();
    image::Device device = deviceWith({area});
    device.name = name.toStdString();
    const QByteArray text = written(image::Form::Text, device, 80);
    QVERIFY(text.contains("0x6000:1"));
    for (const QByteArray& line : text.split('\n'))
        QVERIFY2(show::columnsOf(line.toStdString()) <= 80, line.constData());
}

void tst_ImageText::tooNarrowForTable_data()
{
    QTest::addColumn<int>("columns");
    QTest::addRow("40") << 40;
    QTest::addRow("30") << 30;
}

/// The cells of a row come one after another then, and no line is wider than the terminal.
void tst_ImageText::tooNarrowForTable()
{
    QFETCH(int, columns);
    image::Area area = mixedArea();
    area.pdos[0].rows[0].name = "Position demand value of axis 1";
    area.pdos[0].rows[0].type = "ARRAY [0..3] OF BYTE";
    const QByteArray text = written(image::Form::Text, deviceWith({area}), static_cast<std::size_t>(columns));
    for (const QByteArray& line : text.split('\n'))
        QVERIFY2(line.size() <= columns, line.constData());
    QVERIFY2(text.simplified().contains("0.0 1 0x6000:1 Position demand value of axis 1 ARRAY [0..3] OF BYTE"
                                        " NONE Type 0.1 12 0x6001:1"),
             text.constData());
}

void tst_ImageText::noProcessData()
{
    QCOMPARE(written(image::Form::Text, deviceWith({})),
             QByteArray("a.xml: device 2, 0x7e57:0x1:0x20, T1 \"Drive, left\"\n  No process data.\n"));
}

void tst_ImageText::notes()
{
    image::Device device = deviceWith({});
    device.notes = {"Something is missing."};
    QVERIFY(written(image::Form::Text, device).contains("\"\n  Something is missing.\n  No process"));
}

/// A name of a megabyte takes 120 columns.
void tst_ImageText::longNames()
{
    image::Area area = mixedArea();
    area.pdos[0].rows[0].name.assign(1000000, 'n');
    area.pdos[0].name.assign(1000000, 'p');
    image::Device device = deviceWith({area});
    device.name.assign(1000000, 'd');
    const QByteArray text = written(image::Form::Text, device);
    for (const char letter : {'n', 'p', 'd'}) {
        QVERIFY(text.contains(QByteArray(117, letter) + "..."));
        QVERIFY(!text.contains(QByteArray(118, letter)));
    }
}

void tst_ImageText::pdoWithoutEntries()
{
    image::Area area = mixedArea();
    area.pdos[1].rows.clear();
    QVERIFY(written(image::Form::Text, deviceWith({area})).contains("PDO 0x1a10 \"Module\", slot 2: no entries\n"));
}

static const testMain::Registration<tst_ImageText, testMain::NoApplication> registration;
#include "tst_ImageText.moc"
