// `ktl convert --choices`: every mistake is told, with its place, and nothing is written.
#include "cli/choicesParts.h"
#include "testMain.h"

class tst_ChoicesMistakes : public QObject
{
    Q_OBJECT

private slots:
    static void refused_data();
    static void refused();
    static void allMistakesAreTold();
    static void twentyMistakesAreListed_data();
    static void twentyMistakesAreListed();
    static void longValuesAreCut_data();
    static void longValuesAreCut();
    static void missingSyncManager();
    static void endlessInput();
    static void commandLine_data();
    static void commandLine();
    static void outputIsTheChoicesFile();
    static void earlierOutputStays();
};

void tst_ChoicesMistakes::refused_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message");
    QTest::addRow("no JSON") << QByteArray("{\"a\": 1,\n\"a\": 1}")
                             << "2:1: error: the key \"a\" is given twice [json]";
    QTest::addRow("not in the form")
        << choicesOfFirst("\"colour\": 1")
        << "error: devices[0]: \"colour\" is no key here (known: device, "
           "clicked, takesModuleList, deviceType, driveAxes, dcMode, configIndex, detectIndex, "
           "moduleLinks, modules, syncManagers, links, entries, startup, lastType) [form]";
    QTest::addRow("no such device") << choicesWith("{\"device\": 3}")
                                    << "error: devices[0].device: there is no device 3: the numbers go from 1 to 2 "
                                       "[no-device]";
    QTest::addRow("not of this device") << choicesOfFirst("\"driveAxes\": 2")
                                        << "error: devices[0].driveAxes: a device of the type IOBlock takes only 0 "
                                           "here, only MultiDriver takes any number of axes; leave the key out "
                                           "[setting]";
    QTest::addRow("too large") << QByteArray(16 * 1024 * 1024 + 1, ' ')
                               << "error: a choices file has 16 MiB at most [size]";
}

/// A mistake of any kind is told with its place, and nothing is written.
void tst_ChoicesMistakes::refused()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    const Conversion conversion = converted({sample()}, choices);
    QCOMPARE(messagesOf(conversion), QStringList{message});
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.run.output, QByteArray());
    QCOMPARE(conversion.files, QStringList());
}

void tst_ChoicesMistakes::allMistakesAreTold()
{
    const Conversion conversion = converted(
        {sample("servo-drive.xml"), sample("io-block.xml")},
        choicesWith(R"({"device": 1, "driveAxes": 2, "dcMode": 9, "links": [{"pdo": 9, "entry": 0, "link": 0}],
                        "startup": {"removed": [{"row": 99}]}}, {"device": "gone"}, {"device": 2, "colour": "red",
                        "deviceType": 9}, {"device": 1})"));
    QCOMPARE(messagesOf(conversion).size(), 8);
    for (const char* place : {"devices[0].driveAxes:", "devices[0].dcMode:", "devices[0].links[0].pdo:",
                              "devices[0].startup.removed[0].row:", "devices[1].device:", "devices[2]: \"colour\"",
                              "devices[2].deviceType:", "devices[3].device: \"1\" is the device of devices[0] already"})
        QCOMPARE(messagesOf(conversion).filter(QLatin1String(place)).size(), 1);
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.files, QStringList());
}

void tst_ChoicesMistakes::twentyMistakesAreListed_data()
{
    QTest::addColumn<int>("mistakes");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("last");
    QTest::addRow("twenty") << 20 << 20
                            << "error: devices[19].device: true is not a number from 0 to 4294967295 or a name [form]";
    QTest::addRow("one more") << 21 << 21 << "error: ... and 1 more";
    QTest::addRow("many") << 1000 << 21 << "error: ... and 980 more";
}

void tst_ChoicesMistakes::twentyMistakesAreListed()
{
    QFETCH(int, mistakes);
    QByteArrayList devices;
    for (int device = 0; device < mistakes; ++device)
        devices += R"({"device": true})";
    const QStringList messages = messagesOf(converted({sample("io-block.xml")}, choicesWith(devices.join(','))));
    QTEST(int(messages.size()), "lines");
    QTEST(messages.last(), "last");
}

void tst_ChoicesMistakes::longValuesAreCut_data()
{
    QTest::addColumn<QByteArray>("choices");
    const QByteArray text = '"' + QByteArray(100000, 'x') + '"';
    QTest::addRow("device") << choicesWith("{\"device\": " + text + "}");
    QTest::addRow("key") << choicesOfFirst(text + ": 1");
    QTest::addRow("number") << choicesOfFirst("\"driveAxes\": " + text);
    QTest::addRow("list") << choicesOfFirst("\"driveAxes\": [" + text + ']');
    QTest::addRow("mode") << choicesOfFirst("\"dcMode\": " + text);
    QTest::addRow("module") << choicesOfFirst(R"("moduleLinks": [{"module": )" + text
                                              + R"(, "pdo": 0, "entry": 0, "link": 0}])");
    QTest::addRow("name") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 0, "name": )" + text + "}]");
    QTest::addRow("comment") << choicesOfFirst(R"("startup": {"removed": [{"row": 0, "was": {"comment": )" + text
                                               + "}}]}");
    QTest::addRow("key twice") << QByteArray("{" + text + ": 1, " + text + ": 1}");
}

void tst_ChoicesMistakes::longValuesAreCut()
{
    QFETCH(QByteArray, choices);
    const Conversion conversion = converted({sample("servo-drive.xml")}, choices);
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(messagesOf(conversion).size(), 1);
    QVERIFY2(messagesOf(conversion).first().size() < 300, qPrintable(messagesOf(conversion).first()));
}

/// A PDO of a module on a sync manager that the device lacks is found when the module is put in; the ESI file is named.
void tst_ChoicesMistakes::missingSyncManager()
{
    const QByteArray esi =
        "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type>T</Type><Name>Coupler</Name>"
        "<Profile><ProfileNo>100</ProfileNo></Profile><Slots><Slot MaxInstances=\"1\"><ModuleIdent>1"
        "</ModuleIdent></Slot></Slots></Device></Devices><Modules><Module><Type ModuleIdent=\"1\">A</Type>"
        "<TxPdo Sm=\"3\"><Index>#x1A00</Index><Name>State</Name></TxPdo></Module></Modules></Descriptions>"
        "</EtherCATInfo>";
    const Workplace place;
    const QString path = place.make("range.xml", esi);
    QCOMPARE(converted({path}).run.exitCode, 0);
    const Conversion conversion = converted({path}, choicesOfFirst(R"("modules": [{"place": 0, "module": 1}])"));
    const QString message = "error: devices[0]: " + path
                            + ": device \"Coupler\": PDO 0x1a00 \"State\" names sync manager 3, which the device "
                              "does not declare: it has 0 [sync-manager]";
    QCOMPARE(messagesOf(conversion), QStringList{message});
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.files, QStringList());
}

void tst_ChoicesMistakes::endlessInput()
{
    const Workplace place;
    const CommandRun run =
        runHere({"convert", sample("io-block.xml"), "-o", "out.ktl", "--choices", "/dev/zero"}, place.folder());
    QCOMPARE(run.errors, QByteArray("/dev/zero: error: a choices file has 16 MiB at most [size]\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_ChoicesMistakes::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments"); // after "convert -o OUT"
    QTest::addColumn<QByteArray>("message");
    const QString esi = sample("io-block.xml");
    QTest::addRow("no file is named") << QStringList{esi, "--choices"} << QByteArray("choices");
    QTest::addRow("no such file") << QStringList{esi, "--choices", "gone.json"}
                                  << QByteArray("gone.json: error: the file cannot be read");
    QTest::addRow("a folder") << QStringList{esi, "--choices", "/"} << QByteArray("/: error: the file cannot be read");
    QTest::addRow("twice") << QStringList{esi, "--choices", "a", "--choices", "b"}
                           << QByteArray("--choices can be given once only");
    QTest::addRow("standard input twice")
        << QStringList{"-", "--choices", "-"} << QByteArray("standard input can be read once only");
}

void tst_ChoicesMistakes::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Workplace place;
    const CommandRun run = runHere(QStringList{"convert", "-o", "out.ktl"} + arguments, place.folder());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(message), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(place.names(), QStringList());
}

void tst_ChoicesMistakes::outputIsTheChoicesFile()
{
    const Workplace place;
    const QString choices = place.make("choices.json", choicesOfFirst({}));
    const CommandRun run = runHere({"convert", sample("io-block.xml"), "-o", choices, "--force", "--choices", choices});
    QCOMPARE(run.errors, choices.toUtf8() + ": error: the output would replace this file\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(contentOf(choices), choicesOfFirst({}));
}

void tst_ChoicesMistakes::earlierOutputStays()
{
    const Workplace place;
    const QString choices = place.make("choices.json", choicesOfFirst("\"colour\": 1"));
    const QString ktl = place.make("out.ktl", "earlier");
    const CommandRun run = runHere({"convert", sample("io-block.xml"), "-o", ktl, "--force", "--choices", choices});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(contentOf(ktl), QByteArray("earlier"));
    QCOMPARE(place.names(), QStringList({"choices.json", "out.ktl"}));
}

static const testMain::Registration<tst_ChoicesMistakes, QCoreApplication> registration;
#include "tst_ChoicesMistakes.moc"
