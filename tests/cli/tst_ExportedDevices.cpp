// The devices that a choices file has `ktl convert` write.
#include "cli/choicesParts.h"
#include "testMain.h"

class tst_ExportedDevices : public QObject
{
    Q_OBJECT

private slots:
    static void written_data();
    static void written();
    static void commandLineCounts();
    static void devicesThatAreLeftOut();
    static void ofNoSuchDevice();
    static void proposedNameIsOfTheFirstOne();
    static void otherCommandsPassThemOver();
};

namespace {

/// A choices file with that list, and choices for the devices.
QByteArray exporting(const QByteArray& selectors, const QByteArray& devices = {})
{
    return R"({"format": "kinetra-choices", "version": 1, "export": [)" + selectors + R"(], "devices": [)" + devices
           + "]}";
}

/// Product codes of the devices in the order in which they were written.
QString productsOf(const Conversion& conversion)
{
    QStringList products;
    for (const KtlItem& item : conversion.items(40000))
        products += QString::number(item.u32(12), 16);
    return products.join(' ');
}

QStringList twoFiles()
{
    return {sample("io-block.xml"), sample("servo-drive.xml")};
}

} // namespace

void tst_ExportedDevices::written_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("products");
    QTest::addRow("all without a list") << choicesWith({}) << "16160001 5040002 10400";
    QTest::addRow("one") << exporting("2") << "5040002";
    QTest::addRow("in the order of the files") << exporting(R"("0x7e570001:0x10400", 1)") << "16160001 10400";
    QTest::addRow("by name") << exporting("\"FB-0504M*\"") << "5040002";
}

void tst_ExportedDevices::written()
{
    QFETCH(QByteArray, choices);
    const Conversion conversion = converted(twoFiles(), choices);
    QCOMPARE(conversion.run.exitCode, 0);
    QTEST(productsOf(conversion), "products");
}

/// A device that is selected on the command line is written though the file does not export it, and the others are not.
void tst_ExportedDevices::commandLineCounts()
{
    const Workplace place;
    const QString choices = place.make("choices.json", exporting("2", R"({"device": 2, "deviceType": 4})"));
    const CommandRun run = runHere({"convert", sample("io-block.xml"), "-o", place.path("a.ktl"), "--date",
                                    "2026-11-21T10:00:00", "--device", "1", "--choices", choices});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors.count("is left out by --device [left-out]"), 1);
    Conversion conversion;
    conversion.ktl = place.content("a.ktl");
    QCOMPARE(productsOf(conversion), QStringLiteral("16160001"));
}

/// The file itself says that they are: nobody is warned, and what their choices set in modules of the file counts.
void tst_ExportedDevices::devicesThatAreLeftOut()
{
    const Conversion conversion = converted({sample("io-block.xml")}, exporting("2", R"({"device": 1, "deviceType": 4},
                                                                                {"device": 2, "deviceType": 3})"));
    QCOMPARE(messagesOf(conversion), QStringList());
    QCOMPARE(conversion.typesAndAxes(), QStringLiteral("3 0"));
}

void tst_ExportedDevices::ofNoSuchDevice()
{
    const Conversion conversion = converted({sample("io-block.xml")}, exporting("1, 3"));
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(messagesOf(conversion),
             QStringList{"error: export[1]: there is no device 3: the numbers go from 1 to 2 [no-device]"});
    QCOMPARE(conversion.files, QStringList());
}

/// The name of the output is that of the first file of which a device is written.
void tst_ExportedDevices::proposedNameIsOfTheFirstOne()
{
    const Workplace place;
    const QString choices = place.make("choices.json", exporting("3"));
    const CommandRun run =
        runHere({"convert", twoFiles().at(0), twoFiles().at(1), "--choices", choices, "--no-dump"}, place.folder());
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errors.contains("servo-drive-"), run.errors.constData());
}

/// A comparison is with all devices of the KTL file.
void tst_ExportedDevices::otherCommandsPassThemOver()
{
    const Workplace place;
    const QString all = place.path("all.ktl");
    QCOMPARE(runHere({"convert", sample("io-block.xml"), "-o", all}).exitCode, 0);
    const QString choices = place.make("choices.json", exporting("2"));
    const CommandRun run = runHere({"diff", sample("io-block.xml"), all, "--choices", choices});
    QVERIFY2(!run.output.contains("16160001"), run.output.constData());
    QCOMPARE(run.exitCode, 0);
}

static const testMain::Registration<tst_ExportedDevices, QCoreApplication> registration;
#include "tst_ExportedDevices.moc"
