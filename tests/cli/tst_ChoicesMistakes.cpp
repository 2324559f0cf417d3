// `ktl convert --choices`: every mistake in the form of the file is told, with its place, and nothing is written.
#include "cli/choicesParts.h"
#include "testMain.h"

class tst_ChoicesMistakes : public QObject
{
    Q_OBJECT

private slots:
    static void noJson_data();
    static void noJson();
    static void form_data();
    static void form();
    static void allMistakesAreTold();
    static void twentyMistakesAreListed_data();
    static void twentyMistakesAreListed();
    static void longValuesAreCut_data();
    static void longValuesAreCut();
    static void size_data();
    static void size();
    static void endlessInput();
    static void commandLine_data();
    static void commandLine();
    static void outputIsTheChoicesFile();
    static void earlierOutputStays();
};

void tst_ChoicesMistakes::noJson_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place"); // line and column
    QTest::addColumn<QString>("word"); // of the message
    const QString syntax = "this is no JSON: ";
    // A place is where reading stopped: at the end of the word that does not fit. A key that is there already is told
    // at its start.
    QTest::addRow("empty file") << QByteArray("") << "1:1"
                                << "ends too early";
    QTest::addRow("no value at all") << QByteArray("choices") << "1:7" << syntax;
    QTest::addRow("cut short") << QByteArray("{\n\"format\": \"kinetra-choices\"") << "2:27"
                               << "ends too early";
    QTest::addRow("comma missing") << QByteArray("{\n  \"format\": 1\n  \"version\": 1}") << "3:11" << syntax;
    QTest::addRow("comma too many") << QByteArray("{\"a\": [1,]}") << "1:10" << syntax;
    QTest::addRow("something behind the end") << QByteArray("{}\n x") << "2:2"
                                              << "something follows the end";
    QTest::addRow("comment") << QByteArray("{} // choices") << "1:4"
                             << "something follows the end";
    QTest::addRow("no UTF-8") << QByteArray("{\"\xFF\": 1}") << "1:2"
                              << "not in UTF-8";
    QTest::addRow("UTF-16") << QByteArray("\xFF\xFE{\0}\0", 6) << "1:1"
                            << "not in UTF-8";
    QTest::addRow("surrogate in UTF-8") << QByteArray("{\"a\": \"\xED\xA0\x80\"}") << "1:7"
                                        << "not in UTF-8";
    QTest::addRow("escape of two digits") << QByteArray("{\"a\": \"\\x41\"}") << "1:9" << syntax;
    QTest::addRow("control character") << QByteArray("{\"a\": \"b\001c\"}") << "1:8" << syntax;
    QTest::addRow("tab in a text") << QByteArray("{\"a\": \"\t\"}") << "1:7" << syntax;
    QTest::addRow("NUL in a text") << QByteArray("{\"a\": \"b\0c\"}", 12) << "1:8" << syntax;
    QTest::addRow("NUL after the end") << QByteArray("{}\0", 3) << "1:3"
                                       << "something follows the end";
    QTest::addRow("escaped NUL in a text") << QByteArray("{\"a\": \"\\u0000\"}") << "1:14"
                                           << "U+0000";
    QTest::addRow("escaped NUL in a key") << QByteArray("{\"\\u0000\": 1}") << "1:9"
                                          << "U+0000";
    QTest::addRow("first surrogate alone") << QByteArray("{\"a\": \"\\ud800\"}") << "1:14" << syntax;
    QTest::addRow("second surrogate alone") << QByteArray("{\"a\": \"\\udc00\"}") << "1:14" << syntax;
    QTest::addRow("number with a 0 in front") << QByteArray("{\"a\": 01}") << "1:7" << syntax;
    QTest::addRow("not a number") << QByteArray("{\"a\": NaN}") << "1:9" << syntax;
    QTest::addRow("number of 65 bits") << QByteArray("{\"a\": 18446744073709551616}") << "1:26"
                                       << "64 bits";
    QTest::addRow("nested a hundred thousand times") << QByteArray(100000, '[') << "1:2049"
                                                     << "nested too deeply";
    QTest::addRow("key twice") << QByteArray("{\"a\": 1,\n\"b\": {\"c\": 1, \"c\": 2}}") << "2:15"
                               << "the key \"c\" is given twice";
    QTest::addRow("key twice, once with an escape") << QByteArray("{\"ab\": 1,\n \"\\u0061b\": 2}") << "2:2"
                                                    << "the key \"ab\" is given twice";
    QTest::addRow("key with a quotation mark twice") << QByteArray(R"({"a\\\"b": 1, "a\\\"b": 2})") << "1:15"
                                                     << "the key \"a\\\"b\" is given twice";
    QTest::addRow("columns are characters") << QByteArray("{\"设备\": 1, \"é\": 1, \"é\": 1}") << "1:19"
                                            << "the key \"é\" is given twice";
    QTest::addRow("the mark in front of UTF-8 is no column") << QByteArray("\xEF\xBB\xBF{\"a\":1,\"a\":1}") << "1:8"
                                                             << "the key \"a\" is given twice";
}

void tst_ChoicesMistakes::noJson()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    QFETCH(QString, word);
    const Conversion conversion = converted({samplePath("io-block")}, text);
    QCOMPARE(messagesOf(conversion).size(), 1);
    const QString message = messagesOf(conversion).first();
    QVERIFY2(message.startsWith(place + QStringLiteral(": error: ")), qPrintable(message));
    QVERIFY2(message.contains(word) && message.endsWith(" [json]"), qPrintable(message));
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.files, QStringList());
}

void tst_ChoicesMistakes::form_data()
{
    const QByteArray head = R"({"format": "kinetra-choices", "version": 1, "devices": )";
    const auto ofFirst = [](const QByteArray& members) { return choicesOfFirst(members); };
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message");
    QTest::addRow("a list") << QByteArray("[]") << "[] is no object with keys and values";
    QTest::addRow("format is missing") << QByteArray(R"({"version": 1, "devices": []})")
                                       << "the key \"format\" is missing";
    QTest::addRow("another format") << QByteArray(R"({"format": "x", "version": 1, "devices": []})")
                                    << "format: \"x\" is not \"kinetra-choices\"";
    QTest::addRow("another version") << QByteArray(R"({"format": "kinetra-choices", "version": 2, "devices": []})")
                                     << "version: 2 is not 1";
    QTest::addRow("version as a text") << QByteArray(R"({"format": "kinetra-choices", "version": "1", "devices": []})")
                                       << "version: \"1\" is not a number from 0 to 4294967295";
    QTest::addRow("devices are no list") << head + "{}}"
                                         << "devices: {} is not a list";
    QTest::addRow("a device is no object") << head + "[null]}"
                                           << "devices[0]: null is no object with keys and values";
    QTest::addRow("device is missing") << head + "[{}]}"
                                       << "devices[0]: the key \"device\" is missing";
    QTest::addRow("device is no number") << head + R"([{"device": true}]})"
                                         << "devices[0].device: true is not a number from 0 to 4294967295 or a name";
    QTest::addRow("unknown key of the file")
        << QByteArray(R"({"format": "kinetra-choices", "version": 1, "devices": [], "device": 1})")
        << "\"device\" is no key here (known: format, version, devices)";
    QTest::addRow("unknown key of a device")
        << ofFirst(R"("driveAxis": 2)")
        << "devices[0]: \"driveAxis\" is no key here (known: device, deviceType, driveAxes, dcMode, configIndex, "
           "detectIndex, moduleLinks, modules, links, startup)";
    QTest::addRow("unknown key of a module") << ofFirst(R"("modules": [{"place": 0, "module": 1, "slot": 1}])")
                                             << "devices[0].modules[0]: \"slot\" is no key here (known: place, module)";
    QTest::addRow("unknown key of a link")
        << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 0, "module": 1}])")
        << "devices[0].links[0]: \"module\" is no key here (known: pdo, index, entry, object, name, link)";
    QTest::addRow("unknown key of startup") << ofFirst(R"("startup": {"rows": []})")
                                            << "devices[0].startup: \"rows\" is no key here (known: changed, removed, "
                                               "added)";
    QTest::addRow("unknown key of a check") << ofFirst(R"("startup": {"removed": [{"row": 0, "was": {"data": 0}}]})")
                                            << "devices[0].startup.removed[0].was: \"data\" is no key here (known: "
                                               "index, subIndex, comment)";
    const QString types = " is not a device type (0 to 5, or IOBlock, SingleDriver, MultiDriver, PnpIOBlock, Special, "
                          "ManualIOBlock)";
    QTest::addRow("type number") << ofFirst(R"("deviceType": 6)") << "devices[0].deviceType: 6" + types;
    QTest::addRow("type name") << ofFirst(R"("deviceType": "multidriver")")
                               << "devices[0].deviceType: \"multidriver\"" + types;
    QTest::addRow("type is nothing") << ofFirst(R"("deviceType": null)") << "devices[0].deviceType: null" + types;
    QTest::addRow("axes of 17 bits") << ofFirst(R"("driveAxes": 65536)")
                                     << "devices[0].driveAxes: 65536 is not a number from 0 to 65535";
    QTest::addRow("negative axes") << ofFirst(R"("driveAxes": -1)")
                                   << "devices[0].driveAxes: -1 is not a number from 0 to 65535";
    QTest::addRow("broken axes") << ofFirst(R"("driveAxes": 1.5)")
                                 << "devices[0].driveAxes: 1.5 is not a number from 0 to 65535";
    QTest::addRow("axes in words") << ofFirst(R"("driveAxes": "two")")
                                   << "devices[0].driveAxes: \"two\" is not a number from 0 to 65535";
    QTest::addRow("axes with a blank in front")
        << ofFirst(R"("driveAxes": " 2")") << "devices[0].driveAxes: \" 2\" is not a number from 0 to 65535";
    QTest::addRow("axes with a blank behind")
        << ofFirst(R"("driveAxes": "2 ")") << "devices[0].driveAxes: \"2 \" is not a number from 0 to 65535";
    QTest::addRow("axes with a sign") << ofFirst(R"("driveAxes": "+2")")
                                      << "devices[0].driveAxes: \"+2\" is not a number from 0 to 65535";
    QTest::addRow("axes in digits of another script")
        << ofFirst(R"("driveAxes": "\u0662")") << "devices[0].driveAxes: \"\u0662\" is not a number from 0 to 65535";
    QTest::addRow("a prefix alone") << ofFirst(R"("driveAxes": "0x")")
                                    << "devices[0].driveAxes: \"0x\" is not a number from 0 to 65535";
    QTest::addRow("two prefixes") << ofFirst(R"("driveAxes": "0x0x5")")
                                  << "devices[0].driveAxes: \"0x0x5\" is not a number from 0 to 65535";
    QTest::addRow("letters of no base") << ofFirst(R"("driveAxes": "0x1G")")
                                        << "devices[0].driveAxes: \"0x1G\" is not a number from 0 to 65535";
    QTest::addRow("mode") << ofFirst(R"("dcMode": -1)")
                          << "devices[0].dcMode: -1 is not a number from 0 to 4294967295 or a name";
    QTest::addRow("PDO is a list") << ofFirst(R"("links": [{"pdo": [], "entry": 0, "link": 0}])")
                                   << "devices[0].links[0].pdo: [] is not a number from 0 to 4294967295 or an index";
    QTest::addRow("entry is a list") << ofFirst(R"("links": [{"pdo": 0, "entry": [], "link": 0}])")
                                     << "devices[0].links[0].entry: [] is not a number from 0 to 4294967295 or an "
                                        "object";
    QTest::addRow("object with a blank") << ofFirst(R"("links": [{"pdo": 0, "entry": "0x6040: 0", "link": 0}])")
                                         << "devices[0].links[0].entry: \"0x6040: 0\" is not an object like "
                                            "\"0x6040:0\"";
    QTest::addRow("configuration index") << ofFirst(R"("configIndex": "0x10000")")
                                         << "devices[0].configIndex: \"0x10000\" is not a number from 0 to 65535";
    QTest::addRow("detection index") << ofFirst(R"("detectIndex": [])")
                                     << "devices[0].detectIndex: [] is not a number from 0 to 65535";
    QTest::addRow("place as a text") << ofFirst(R"("modules": [{"place": "0", "module": null}])")
                                     << "devices[0].modules[0].place: \"0\" is not a number from 0 to 65535";
    QTest::addRow("module is missing") << ofFirst(R"("modules": [{"place": 0}])")
                                       << "devices[0].modules[0]: the key \"module\" is missing";
    QTest::addRow("module is no name") << ofFirst(R"("modules": [{"place": 0, "module": ""}])")
                                       << "devices[0].modules[0].module: \"\" is not the ident or the name of a module";
    QTest::addRow("pdo index of 17 bits") << ofFirst(R"("links": [{"pdo": "0x11600", "entry": 0, "link": "DOUT"}])")
                                          << "devices[0].links[0].pdo: \"0x11600\" is not a number from 0 to 65535";
    QTest::addRow("entry is no object") << ofFirst(R"("links": [{"pdo": 0, "entry": "0x6040", "link": "DOUT"}])")
                                        << "devices[0].links[0].entry: \"0x6040\" is not an object like \"0x6040:0\"";
    QTest::addRow("name is no text") << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT", "name": 1}])")
                                     << "devices[0].links[0].name: 1 is not a text";
    const QString links = " is not a link (NONE, DOUT, AOUT16, AOUT32, FAOUT, DIN, AIN16, AIN32, FAIN, ENCODER32)";
    QTest::addRow("link name") << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "OUT"}])")
                               << "devices[0].links[0].link: \"OUT\"" + links;
    QTest::addRow("link with two endings") << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT Type Type"}])")
                                           << "devices[0].links[0].link: \"DOUT Type Type\"" + links;
    QTest::addRow("link number above all")
        << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 1}])") << "devices[0].links[0].link: 1" + links;
    QTest::addRow("row is missing") << ofFirst(R"("startup": {"removed": [{}]})")
                                    << "devices[0].startup.removed[0]: the key \"row\" is missing";
    QTest::addRow("index of an added command is missing")
        << ofFirst(R"("startup": {"added": [{"behind": 0, "dataBytes": 1, "data": 1}]})")
        << "devices[0].startup.added[0]: the key \"index\" is missing";
    QTest::addRow("data bytes of an added command are missing")
        << ofFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "data": 1}]})")
        << "devices[0].startup.added[0]: the key \"dataBytes\" is missing";
    QTest::addRow("data of an added command is missing")
        << ofFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "dataBytes": 1}]})")
        << "devices[0].startup.added[0]: the key \"data\" is missing";
    QTest::addRow("data of 33 bits") << ofFirst(R"("startup": {"changed": [{"row": 0, "data": 4294967296}]})")
                                     << "devices[0].startup.changed[0].data: 4294967296 is not a number from 0 to "
                                        "4294967295";
    QTest::addRow("data bytes of 17 bits") << ofFirst(R"("startup": {"changed": [{"row": 0, "dataBytes": 65536}]})")
                                           << "devices[0].startup.changed[0].dataBytes: 65536 is not a number from 0 "
                                              "to 65535";
    QTest::addRow("startup is no object")
        << ofFirst(R"("startup": [])") << "devices[0].startup: [] is no object with keys and values";
}

void tst_ChoicesMistakes::form()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    compareRefused(converted({samplePath("servo-drive")}, choices), "error: " + message + " [form]");
}

void tst_ChoicesMistakes::allMistakesAreTold()
{
    const Conversion conversion = converted(
        {samplePath("servo-drive"), samplePath("io-block")},
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
    const QStringList messages = messagesOf(converted({samplePath("io-block")}, choicesWith(devices.join(','))));
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
    const Conversion conversion = converted({samplePath("servo-drive")}, choices);
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(messagesOf(conversion).size(), 1);
    QVERIFY2(messagesOf(conversion).first().size() < 250, qPrintable(messagesOf(conversion).first()));
}

void tst_ChoicesMistakes::size_data()
{
    constexpr int maxSize = 16 * 1024 * 1024;
    const QByteArray empty = choicesWith({});
    const auto lists = [](int count) {
        return choicesWith({}).chopped(1) + ", \"about\": [" + QByteArray("[],").repeated(count - 1) + "[]]}";
    };
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message"); // empty if it is taken
    QTest::addRow("16 MiB") << empty + QByteArray(maxSize - empty.size(), ' ') << "";
    QTest::addRow("a byte more") << empty + QByteArray(maxSize + 1 - empty.size(), ' ')
                                 << "error: a choices file has 16 MiB at most [size]";
    // Three brackets are those of the file, of its devices and of "about".
    QTest::addRow("a million brackets") << lists(999997) << "";
    QTest::addRow("one more") << lists(999998) << "error: a choices file has 1000000 objects and lists at most [size]";
}

void tst_ChoicesMistakes::size()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    const Conversion conversion = converted({samplePath("io-block")}, choices);
    QCOMPARE(messagesOf(conversion), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(conversion.run.exitCode, message.isEmpty() ? 0 : 2);
}

void tst_ChoicesMistakes::endlessInput()
{
    const QTemporaryDir folder;
    const CommandRun run =
        runKtl({"convert", samplePath("io-block"), "-o", "out.ktl", "--choices", "/dev/zero"}, folder.path());
    QVERIFY(run.hasEnded);
    QCOMPARE(run.errors, QByteArray("/dev/zero: error: a choices file has 16 MiB at most [size]\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_ChoicesMistakes::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments"); // behind "convert -o OUT"
    QTest::addColumn<QByteArray>("message");
    const QString sample = samplePath("io-block");
    QTest::addRow("no file is named") << QStringList{sample, "--choices"} << QByteArray("choices");
    QTest::addRow("no such file") << QStringList{sample, "--choices", "gone.json"}
                                  << QByteArray("gone.json: error: the file cannot be read");
    QTest::addRow("a folder") << QStringList{sample, "--choices", "/"}
                              << QByteArray("/: error: the file cannot be read");
    QTest::addRow("twice") << QStringList{sample, "--choices", "a", "--choices", "b"}
                           << QByteArray("--choices can be given once only");
    QTest::addRow("standard input twice")
        << QStringList{"-", "--choices", "-"} << QByteArray("standard input can be read once only");
}

void tst_ChoicesMistakes::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const QTemporaryDir folder;
    const CommandRun run = runKtl(QStringList{"convert", "-o", "out.ktl"} + arguments, folder.path());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(message), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QVERIFY(QDir(folder.path()).isEmpty());
}

void tst_ChoicesMistakes::outputIsTheChoicesFile()
{
    const QTemporaryDir folder;
    const QString choices = writtenFile(folder.filePath("choices.json"), choicesOfFirst({}));
    const CommandRun run = runKtl({"convert", samplePath("io-block"), "-o", choices, "--force", "--choices", choices});
    QCOMPARE(run.errors, choices.toUtf8() + ": error: the output would replace this file\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(contentOf(choices), choicesOfFirst({}));
}

void tst_ChoicesMistakes::earlierOutputStays()
{
    const QTemporaryDir folder;
    const QString choices = writtenFile(folder.filePath("choices.json"), choicesOfFirst("\"colour\": 1"));
    const QString ktl = writtenFile(folder.filePath("out.ktl"), "earlier");
    const CommandRun run = runKtl({"convert", samplePath("io-block"), "-o", ktl, "--force", "--choices", choices});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(contentOf(ktl), QByteArray("earlier"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"choices.json", "out.ktl"}));
}

static const testMain::Registration<tst_ChoicesMistakes, QCoreApplication> registration;
#include "tst_ChoicesMistakes.moc"
