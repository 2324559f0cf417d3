// `ktl convert --device`: some of the devices.
#include "cli/commandRun.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"

#include <QtTest>

class tst_ConvertDevices : public QObject
{
    Q_OBJECT

private slots:
    void selectors_data();
    void selectors();
    void nothingMeant_data();
    void nothingMeant();
    void nameIsMissing_data();
    void nameIsMissing();
    void proposedName();
    void warningsOfOthers();
};

/// Four devices, two of them with the name "twin"; one has a number for a name, one what looks like an identity.
static QByteArray fourDevices()
{
    return esiWith("<Device><Type ProductCode=\"10\" RevisionNo=\"1\">A</Type><Name>twin</Name></Device>\n"
                   "<Device><Type ProductCode=\"#x0A\" RevisionNo=\"2\">B</Type><Name>twin</Name></Device>\n"
                   "<Device><Type ProductCode=\"11\" RevisionNo=\"1\">C</Type><Name>4</Name></Device>\n"
                   "<Device><Type ProductCode=\"12\" RevisionNo=\"1\">D</Type><Name>1:x</Name></Device>\n");
}

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
    row("name of several", {"twin"}, both);
    row("name with a colon", {"1:x"}, {"c 1"});
    row("vendor and product", {"0x7e570009:10"}, both);
    row("both in hexadecimal", {"#x7E570009:#xA"}, both);
    row("vendor, product and revision", {"0x7e570009:10:2"}, {"a 2"});
    row("vendor in decimal", {"2119630857:11"}, {"b 1"}); // 0x7E570009
    row("several selectors, in the order of the file", {"3", "1"}, {"a 1", "b 1"});
    row("zeros in front", {"0x7e570009:0011", "0004"}, {"b 1", "c 1"});
    row("one device by several selectors", {"3", "0x7e570009:11", "3"}, {"b 1"});
}

void tst_ConvertDevices::selectors()
{
    QFETCH(QStringList, selectors);
    QFETCH(QStringList, devices);
    const Workplace place;
    QStringList arguments{"convert", place.make(QStringLiteral("four.xml"), fourDevices()), "-o", "out.ktl"};
    for (const QString& selector : selectors)
        arguments += QStringList{"--device", selector};
    const CommandRun run = runKtl(arguments, place.folder());
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

void tst_ConvertDevices::nothingMeant_data()
{
    QTest::addColumn<QString>("selector");
    for (const char* selector : {"0",
                                 "5",
                                 "Twin",
                                 "twi",
                                 "",
                                 " 1",
                                 "1 ",
                                 "+1",
                                 "\u0661",
                                 "4294967297",
                                 "0x7e570008:10",
                                 "0x7e570009:13",
                                 "0x7e570009:10:3",
                                 "0x7e570009",
                                 "0x7e570009:10:2:0",
                                 "-1",
                                 "0x7e570009:",
                                 ":10",
                                 "0x7e570009 :10",
                                 "0x7e570009: 10",
                                 "0x7e570009:+10",
                                 "0x7e570009:0x0xA"})
        QTest::addRow("\"%s\"", selector) << QString::fromUtf8(selector);
}

/// An error that names the selector, and nothing is written, although another selector is right.
void tst_ConvertDevices::nothingMeant()
{
    QFETCH(QString, selector);
    const Workplace place;
    const CommandRun run = runKtl({"convert", place.make(QStringLiteral("four.xml"), fourDevices()), "-o", "out.ktl",
                                   "--device=" + selector, "--device", "1"},
                                  place.folder());
    QCOMPARE(run.errors, "ktl: error: no device of the given files is \"" + selector.toUtf8() + "\"\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"four.xml"});
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
    const CommandRun run = runKtl({"convert", esi, "-o", "out.ktl", "--device", ""}, place.folder());
    QCOMPARE(run.errors, QByteArray("ktl: error: no device of the given files is \"\"\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"one.xml"});
    QCOMPARE(runKtl({"convert", esi, "-o", "out.ktl", "--device", "1"}, place.folder()).exitCode, 0);
}

/// The name is that of the first file with a chosen device.
void tst_ConvertDevices::proposedName()
{
    const Workplace place;
    place.make(QStringLiteral("four.xml"), fourDevices());
    QCOMPARE(runKtl({"convert", "four.xml", sample(), "--device", "6"}, place.folder()).exitCode, 0);
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
    const CommandRun run = runKtl({"convert", "five.xml", "-o", "a.ktl", "--device", "1", "--strict"}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(runKtl({"convert", "five.xml", "-o", "b.ktl", "--device", "2", "--strict"}, place.folder()).exitCode, 1);
}

QTEST_GUILESS_MAIN(tst_ConvertDevices)
#include "tst_ConvertDevices.moc"
