// `ktl convert --device`: some of the devices.
// Covers selectedDevices.cpp.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_ConvertDevices : public QObject
{
    Q_OBJECT

private slots:
    void selectors_data();
    void selectors();
    void severalMeant_data();
    void severalMeant();
    void listIsCut();
    void nothingMeant_data();
    void nothingMeant();
    void badForms_data();
    void badForms();
    void nearest_data();
    void nearest();
    void nearestOfMany();
    void everyMistakeIsTold();
    void nameIsMissing_data();
    void nameIsMissing();
    void proposedName();
    void warningsOfOthers();
};

static QByteArray deviceOf(const char* product, const char* revision, const char* type, const char* name)
{
    return QByteArray("<Device><Type ProductCode=\"") + product + "\" RevisionNo=\"" + revision + "\">" + type
           + "</Type><Name>" + name + "</Name></Device>\n";
}

/// Four devices, two of them with the name "twin"; one has a number for a name, one what looks like an identity.
static QByteArray fourDevices()
{
    return esiWith(deviceOf("10", "1", "A-1", "twin") + deviceOf("#x0A", "2", "B-1", "twin")
                   + deviceOf("11", "1", "C*1", "4") + deviceOf("12", "1", "twin set", "1:x"));
}

static const QByteArray hint = "ktl: note: a selector means one device, by number, name, Type or "
                               "VENDOR:PRODUCT[:REVISION], or with * in it all that fit; \"ktl show\" lists the "
                               "devices of a file\n";
static const QByteArray firstTwin = "ktl: note: device 1 \"twin\" (0x7e570009:0xa:0x1), type \"A-1\"\n";
static const QByteArray secondTwin = "ktl: note: device 2 \"twin\" (0x7e570009:0xa:0x2), type \"B-1\"\n";
static const QByteArray third = "ktl: note: device 3 \"4\" (0x7e570009:0xb:0x1), type \"C*1\"\n";
static const QByteArray fourth = "ktl: note: device 4 \"1:x\" (0x7e570009:0xc:0x1), type \"twin set\"\n";

void tst_ConvertDevices::selectors_data()
{
    QTest::addColumn<QStringList>("selectors");
    QTest::addColumn<QStringList>("devices"); // product and revision
    const QStringList both{"a 1", "a 2"};
    const auto row = [](const char* name, const QStringList& selectors, const QStringList& devices) {
        QTest::addRow("%s", name) << selectors << devices;
    };
    row("none", {}, {"a 1", "a 2", "b 1", "c 1"});
    row("number", {"2"}, {"a 2"});
    row("a number before a name", {"4"}, {"c 1"});
    row("name with a colon", {"1:x"}, {"c 1"});
    row("type", {"B-1"}, {"a 2"});
    row("vendor and product", {"0x7e570009:11"}, {"b 1"});
    row("both in hexadecimal", {"#x7E570009:#xB"}, {"b 1"});
    row("vendor, product and revision", {"0x7e570009:10:2"}, {"a 2"});
    row("vendor in decimal", {"2119630857:11"}, {"b 1"}); // 0x7E570009
    row("several selectors, in the order of the file", {"3", "1"}, {"a 1", "b 1"});
    row("zeros in front", {"0x7e570009:0011", "0004"}, {"b 1", "c 1"});
    row("one device by several selectors", {"3", "0x7e570009:11", "3"}, {"b 1"});
    row("star alone: all", {"*"}, {"a 1", "a 2", "b 1", "c 1"});
    row("star for the rest of a name or a type", {"tw*"}, {"a 1", "a 2", "c 1"});
    row("star for nothing", {"twin*", "*4"}, {"a 1", "a 2", "b 1", "c 1"});
    row("star in the middle", {"t*n"}, both);
    row("several stars", {"*i* s*t"}, {"c 1"});
    row("star in a type", {"A*1"}, {"a 1"});
    row("star for a star", {"C*1"}, {"b 1"});
    row("star for a revision", {"0x7e570009:10:*"}, both);
    row("star for a product code", {"0x7e570009:*:1"}, {"a 1", "b 1", "c 1"});
    row("star for a vendor, any revision", {"*:11"}, {"b 1"});
    row("star that fits one", {"0x7e570009:12:*"}, {"c 1"});
}

void tst_ConvertDevices::selectors()
{
    QFETCH(QStringList, selectors);
    QFETCH(QStringList, devices);
    const Workplace place;
    QStringList arguments{"convert", place.make(QStringLiteral("four.xml"), fourDevices()), "-o", "out.ktl"};
    for (const QString& selector : selectors)
        arguments += QStringList{"--device", selector};
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QString problem;
    QStringList written;
    for (const KtlItem& item : itemsOf(place.content(QStringLiteral("out.ktl")), &problem))
        if (item.type == 40000)
            written.append(QStringLiteral("%1 %2").arg(item.u32(12), 0, 16).arg(item.u32(16)));
    QCOMPARE(problem, QString());
    QCOMPARE(written, devices);
}

void tst_ConvertDevices::severalMeant_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addRow("name") << "twin";
    QTest::addRow("vendor and product") << "0x7e570009:10";
}

/// Refused, with the devices from which to choose.
void tst_ConvertDevices::severalMeant()
{
    QFETCH(QString, selector);
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    const CommandRun run = runHere({"convert", "four.xml", "-o", "out.ktl", "--device", selector}, place.folder());
    QCOMPARE(run.errors, "ktl: error: \"" + selector.toUtf8() + "\" means 2 devices instead of one\n" + firstTwin
                             + secondTwin + hint);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"four.xml"});
}

/// Of many devices 20 are listed.
void tst_ConvertDevices::listIsCut()
{
    const Workplace place;
    place.make(QStringLiteral("many.xml"), esiWith(deviceOf("10", "1", "A", "same").repeated(23)));
    const CommandRun run = runHere({"convert", "many.xml", "-o", "out.ktl", "--device", "same"}, place.folder());
    const QList<QByteArray> lines = run.errors.split('\n');
    QCOMPARE(lines.size(), 24); // the error, 20 devices, what is left, the hint, and the end of the last line
    QVERIFY(lines.at(20).startsWith("ktl: note: device 20 "));
    QCOMPARE(lines.at(21), QByteArray("ktl: note: ... and 3 more"));
}

void tst_ConvertDevices::nothingMeant_data()
{
    QTest::addColumn<QString>("selector");
    for (const char* selector : {"Twi", " 1", "1 ", "+1", "\u0661", "4294967297", "0x7e570008:99", "0x7e570009:99:3",
                                 "0x7e570009", "-1", "no*", "twin*n", "twi*in*", "B-1*B-1", "0x7e570009:13:*"})
        QTest::addRow("\"%s\"", selector) << QString::fromUtf8(selector);
}

/// An error that names the selector, and nothing is written, although another selector is right.
void tst_ConvertDevices::nothingMeant()
{
    QFETCH(QString, selector);
    const Workplace place;
    const CommandRun run = runHere({"convert", place.make(QStringLiteral("four.xml"), fourDevices()), "-o", "out.ktl",
                                    "--device=" + selector, "--device", "1"},
                                   place.folder());
    QCOMPARE(run.errors.left(run.errors.indexOf('\n')),
             "ktl: error: no device of the given files is \"" + selector.toUtf8() + '"');
    QVERIFY(run.errors.endsWith(hint));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"four.xml"});
}

void tst_ConvertDevices::badForms_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QByteArray>("words");
    const auto row = [](const char* selector, const char* words) {
        QTest::addRow("\"%s\"", selector) << QString::fromLatin1(selector) << QByteArray(words);
    };
    row("", "a selector of a device is empty");
    row("0", "there is no device 0: the numbers go from 1 to 4");
    row("5", "there is no device 5: the numbers go from 1 to 4");
    const char* const list = "takes no list and no range of numbers";
    row("3,5", list);
    row("3-5", list);
    row("1, 2, 3", list);
    row("2:1e12", "\"1e12\" would have to be a number");
    row("0x7e570009:", "\"\" would have to be a number");
    row(":10", "\"\" would have to be a number");
    row("0x7e570009 :10", "\"0x7e570009 \" would have to be a number");
    row("0x7e570009:+10", "\"+10\" would have to be a number");
    row("0x7e570009:0x0xA", "\"0x0xA\" would have to be a number");
    row("0x7e570009:10:2:0", "an identity is VENDOR:PRODUCT[:REVISION]");
    row("0x7e570009:1*", "\"1*\" would have to be a number");
    row("a:b:c:d", "an identity is VENDOR:PRODUCT[:REVISION]");
}

/// Words that say what is wrong with the form.
void tst_ConvertDevices::badForms()
{
    QFETCH(QString, selector);
    QFETCH(QByteArray, words);
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    const CommandRun run = runHere({"convert", "four.xml", "-o", "out.ktl", "--device=" + selector}, place.folder());
    QVERIFY2(run.errors.left(run.errors.indexOf('\n')).contains(words), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
}

void tst_ConvertDevices::nearest_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QByteArray>("listed");
    const QByteArray twins = firstTwin + secondTwin;
    QTest::addRow("another case") << "Twin" << twins + fourth;
    QTest::addRow("a beginning, of a name or a type") << "twi" << twins + fourth;
    QTest::addRow("one character is wrong") << "trin" << twins + fourth;
    QTest::addRow("one character is missing: the nearest first") << "twinset" << fourth;
    QTest::addRow("one character too many in a type") << "A-11" << firstTwin;
    QTest::addRow("two characters of four") << "trim" << QByteArray();
    QTest::addRow("another revision") << "0x7e570009:11:7" << third + firstTwin + secondTwin + fourth;
    QTest::addRow("another vendor") << "0x1234:11" << QByteArray();
}

/// At most five devices that are nearly meant.
void tst_ConvertDevices::nearest()
{
    QFETCH(QString, selector);
    QFETCH(QByteArray, listed);
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    const CommandRun run = runHere({"convert", "four.xml", "-o", "out.ktl", "--device", selector}, place.folder());
    QCOMPARE(run.errors, "ktl: error: no device of the given files is \"" + selector.toUtf8() + "\"\n" + listed + hint);
}

void tst_ConvertDevices::nearestOfMany()
{
    const Workplace place;
    place.make(QStringLiteral("six.xml"), esiWith(deviceOf("1", "1", "A", "same").repeated(6)));
    const CommandRun run = runHere({"convert", "six.xml", "-o", "out.ktl", "--device", "sam"}, place.folder());
    QCOMPARE(run.errors.count("note: device"), 5);
}

/// Each with what it might mean, and the hint once.
void tst_ConvertDevices::everyMistakeIsTold()
{
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    const QString longName(200, QLatin1Char('x'));
    const CommandRun run =
        runHere({"convert", "four.xml", "-o", "out.ktl", "--device", "twin", "--device", longName}, place.folder());
    QCOMPARE(run.errors, "ktl: error: \"twin\" means 2 devices instead of one\n" + firstTwin + secondTwin
                             + "ktl: error: no device of the given files is \"" + QByteArray(80, 'x') + "...\"\n"
                             + hint);
}

void tst_ConvertDevices::nameIsMissing_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addRow("no element") << QByteArray();
    QTest::addRow("an empty one") << QByteArray("<Name></Name>");
}

/// An empty selector is no name of a device without one, which is there by its number.
void tst_ConvertDevices::nameIsMissing()
{
    QFETCH(QByteArray, name);
    const Workplace place;
    const QString esi = place.make(QStringLiteral("one.xml"), esiWith("<Device><Type>A</Type>" + name + "</Device>\n"));
    const CommandRun run = runHere({"convert", esi, "-o", "out.ktl", "--device", ""}, place.folder());
    QVERIFY(run.errors.startsWith("ktl: error: a selector of a device is empty\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"one.xml"});
    QCOMPARE(runHere({"convert", esi, "-o", "out.ktl", "--device", "1"}, place.folder()).exitCode, 0);
}

/// The name is that of the first file with a chosen device.
void tst_ConvertDevices::proposedName()
{
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    QCOMPARE(runHere({"convert", "four.xml", sample(), "--device", "6"}, place.folder()).exitCode, 0);
    QCOMPARE(devicesIn(place.content(QStringLiteral("io-block-0x7e570003.ktl"))), sampleDevices().mid(1));
}

/// A device that is not written warns of nothing.
void tst_ConvertDevices::warningsOfOthers()
{
    const Workplace place;
    const QByteArray five = QByteArray("<Sm>Outputs</Sm>").repeated(5);
    place.make(QStringLiteral("five.xml"),
               esiWith("<Device><Type>A</Type><Name>A</Name></Device>\n<Device><Type>B</Type>"
                       "<Name>B</Name>"
                       + five + "</Device>\n"));
    const CommandRun run = runHere({"convert", "five.xml", "-o", "a.ktl", "--device", "1", "--strict"}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(runHere({"convert", "five.xml", "-o", "b.ktl", "--device", "2", "--strict"}, place.folder()).exitCode, 1);
}

static const testMain::Registration<tst_ConvertDevices, QCoreApplication> registration;
#include "tst_ConvertDevices.moc"
