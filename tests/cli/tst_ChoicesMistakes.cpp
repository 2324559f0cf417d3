// `ktl convert --choices`: every kind of mistake is told, with its place, and nothing is written.
#include "cli/choicesParts.h"

class tst_ChoicesMistakes : public QObject
{
    Q_OBJECT

private slots:
    static void noJson_data();
    static void noJson();
    static void form_data();
    static void form();
    static void content_data();
    static void content();
    static void contentOfModules_data();
    static void contentOfModules();
    static void ambiguousNames_data();
    static void ambiguousNames();
    static void allMistakesAreTold();
    static void rowsAreNotLookedAtBehindWrongModules();
    static void missingSyncManager();
    static void commandLine_data();
    static void commandLine();
    static void outputIsTheChoicesFile();
    static void earlierOutputStays();
};

/// The lines of messages, each without the name of the choices file in front.
static QStringList messagesOf(const Conversion& conversion)
{
    QStringList messages;
    for (const QByteArray& line : conversion.run.errors.split('\n')) {
        const int name = line.indexOf("choices.json:");
        if (!line.isEmpty())
            messages += QString::fromUtf8(name < 0 ? line : line.mid(name + 13).trimmed());
    }
    return messages;
}

/// Exit status 2, nothing written, and only this message.
static void compareRefused(const Conversion& conversion, const QString& message)
{
    QCOMPARE(messagesOf(conversion), QStringList{message});
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.run.output, QByteArray());
    QCOMPARE(conversion.files, QStringList());
}

void tst_ChoicesMistakes::noJson_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place"); // line and column
    QTest::addColumn<QString>("word"); // of the message
    // The reader stops behind a character that does not fit.
    QTest::addRow("empty file") << QByteArray("") << "1:1"
                                << "error";
    QTest::addRow("no value at all") << QByteArray("choices") << "1:2"
                                     << "error";
    QTest::addRow("cut short") << QByteArray("{\n\"format\": \"kinetra-choices\"") << "2:28"
                               << "error";
    QTest::addRow("comma missing") << QByteArray("{\n  \"format\": 1\n  \"version\": 1}") << "3:3"
                                   << "error";
    QTest::addRow("something behind the end") << QByteArray("{}\n x") << "2:2"
                                              << "error";
    QTest::addRow("no UTF-8") << QByteArray("{\"\xFF\": 1}") << "1:3"
                              << "UTF";
    QTest::addRow("key twice") << QByteArray("{\"a\": 1,\n\"b\": {\"c\": 1, \"c\": 2}}") << "2:15"
                               << "the key \"c\" is given twice";
    QTest::addRow("key twice, once with an escape") << QByteArray("{\"ab\": 1,\n \"\\u0061b\": 2}") << "2:2"
                                                    << "the key \"ab\" is given twice";
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
    QVERIFY2(message.contains(word), qPrintable(message));
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
                                         << "devices[0].device: true is not a number from 0 to 4294967295";
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
    QTest::addRow("mode") << ofFirst(R"("dcMode": -1)") << "devices[0].dcMode: -1 is not a number from 0 to 4294967295";
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
    QTest::addRow("link number above all")
        << ofFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 1}])") << "devices[0].links[0].link: 1" + links;
    QTest::addRow("row is missing") << ofFirst(R"("startup": {"removed": [{}]})")
                                    << "devices[0].startup.removed[0]: the key \"row\" is missing";
    QTest::addRow("index of an added command is missing")
        << ofFirst(R"("startup": {"added": [{"behind": 0}]})")
        << "devices[0].startup.added[0]: the key \"index\" is missing";
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
    compareRefused(converted({samplePath("servo-drive")}, choices), "error: " + message);
}

void tst_ChoicesMistakes::content_data()
{
    const auto link = [](const QByteArray& members) { return "\"links\": [{" + members + "}]"; };
    const auto startup = [](const QByteArray& members) { return "\"startup\": {" + members + '}'; };
    QTest::addColumn<QByteArray>("members"); // of the servo drive: a single drive with three modes and 43 commands
    QTest::addColumn<QString>("message");
    QTest::addRow("axes of a single drive") << QByteArray("\"driveAxes\": 1")
                                            << "driveAxes: a device of the type SingleDriver has no axes to set, only "
                                               "MultiDriver has";
    QTest::addRow("axes behind a change of type") << QByteArray(R"("deviceType": "Special", "driveAxes": 1)")
                                                  << "driveAxes: a device of the type Special has no axes to set, only "
                                                     "MultiDriver has";
    QTest::addRow("mode number") << QByteArray("\"dcMode\": 3") << "dcMode: there is no mode 3, the device has 3";
    QTest::addRow("mode name") << QByteArray("\"dcMode\": \"FreeRun\"")
                               << "dcMode: \"FreeRun\" is no mode of the device";
    QTest::addRow("configuration index") << QByteArray("\"configIndex\": 1")
                                         << "configIndex: a device of the type SingleDriver has no module indexes";
    QTest::addRow("detection index") << QByteArray(R"("deviceType": 5, "detectIndex": 1)")
                                     << "detectIndex: a device of the type ManualIOBlock has no module indexes";
    QTest::addRow("modules of a single drive")
        << QByteArray(R"("modules": [{"place": 0, "module": null}])")
        << "modules: 当前设备配置成类型1或类型2，此设备类型不存在模块，请检查设备类型配置是否正确";
    QTest::addRow("modules of a coupler that finds them")
        << QByteArray(R"("deviceType": 3, "modules": [{"place": 0, "module": null}])")
        << "modules: 当前设备配置成类型4，不需要手动插入模块预配置，如果需要预配置模块信息，请配置成类型6";
    QTest::addRow("place of a device without slots") << QByteArray(R"("deviceType": 4, "modules": [{"place": 0,
                                                                      "module": null}])")
                                                     << "modules[0].place: the device has no place 0";
    QTest::addRow("module link of a file without modules")
        << QByteArray(R"("moduleLinks": [{"module": 16, "pdo": 0, "entry": 0, "link": "DIN"}])")
        << "moduleLinks[0].module: \"0x10\" is no module of servo-drive.xml";
    QTest::addRow("PDO row") << link(R"("pdo": 6, "entry": 0, "link": "DIN")")
                             << "links[0].pdo: there is no PDO 6, the list has 6";
    QTest::addRow("PDO index") << link(R"("pdo": "0x1605", "entry": 0, "link": "DIN")")
                               << "links[0].pdo: there is no PDO 0x1605";
    QTest::addRow("entry position") << link(R"("pdo": 1, "entry": 2, "link": "DOUT")")
                                    << "links[0].entry: there is no entry 2, the PDO has 2";
    QTest::addRow("entry object") << link(R"("pdo": 0, "entry": "0x6040:1", "link": "DOUT")")
                                  << "links[0].entry: the PDO has no entry 0x6040:1";
    QTest::addRow("another PDO stands there") << link(R"("pdo": 0, "index": "0x1601", "entry": 0, "link": "DOUT")")
                                              << "links[0].index: 0x1600 stands there, not 0x1601";
    QTest::addRow("another object stands there")
        << link(R"("pdo": 0, "entry": 0, "object": "0x6041:0", "link": "DOUT")")
        << "links[0].object: 0x6040:0 stands there, not 0x6041:0";
    QTest::addRow("another name stands there") << link(R"("pdo": 0, "entry": 0, "name": "Status", "link": "DOUT")")
                                               << "links[0].name: \"Controlword\" stands there, not \"Status\"";
    QTest::addRow("input link of an output")
        << link(R"("pdo": 0, "entry": 0, "link": "DIN")")
        << "links[0].link: \"DIN\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT)";
    QTest::addRow("output link of an input")
        << link(R"("pdo": 3, "entry": 0, "link": "DOUT")")
        << "links[0].link: \"DOUT\" is no link of an input (known: NONE, DIN, AIN16, AIN32, FAIN, ENCODER32)";
    QTest::addRow("link number that is not offered")
        << link(R"("pdo": 0, "entry": 0, "link": -3)")
        << "links[0].link: \"-3\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT)";
    QTest::addRow("entry linked twice") << link(
        R"("pdo": 0, "entry": 0, "link": "DOUT"}, {"pdo": "0x1600", "entry": "0x6040:0", "link": "NONE")")
                                        << "links[1]: this entry is linked twice";
    QTest::addRow("changed row") << startup(R"("changed": [{"row": 43, "data": 1}])")
                                 << "startup.changed[0].row: there is no row 43, the list has 43";
    QTest::addRow("removed row") << startup(R"("removed": [{"row": 65536}])")
                                 << "startup.removed[0].row: there is no row 65536, the list has 43";
    QTest::addRow("added behind no row") << startup(R"("added": [{"behind": 99, "index": 1}])")
                                         << "startup.added[0].behind: there is no row 99, the list has 43";
    QTest::addRow("another index stands there") << startup(R"("changed": [{"row": 0, "was": {"index": 1}, "data": 1}])")
                                                << "startup.changed[0].was.index: 0x2010 stands there, not 0x1";
    QTest::addRow("another sub-index stands there") << startup(R"("removed": [{"row": 0, "was": {"subIndex": 2}}])")
                                                    << "startup.removed[0].was.subIndex: 1 stands there, not 2";
    QTest::addRow("another comment stands there")
        << startup(R"("added": [{"behind": 0, "was": {"comment": "gain"}, "index": 1}])")
        << "startup.added[0].was.comment: \"Proportional gain 10000\" stands there, not \"gain\"";
    QTest::addRow("sub-index of 9 bits in a command of the device")
        << startup(R"("changed": [{"row": 0, "subIndex": 256}])")
        << "startup.changed[0].subIndex: 256 is not a number from 0 to 255";
    QTest::addRow("row changed twice") << startup(R"("changed": [{"row": 1, "data": 1}, {"row": 1, "data": 2}])")
                                       << "startup.changed[1]: row 1 is changed or removed twice";
    QTest::addRow("row changed and removed")
        << startup(R"("changed": [{"row": 1, "data": 1}], "removed": [{"row": 1}])")
        << "startup.removed[0]: row 1 is changed or removed twice";
}

void tst_ChoicesMistakes::content()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    compareRefused(converted({samplePath("servo-drive")}, choicesOfFirst(members)), "error: devices[0]." + message);
}

void tst_ChoicesMistakes::contentOfModules_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("message");
    QTest::addRow("name") << QByteArray(R"({"place": 2, "module": "XY-9"})")
                          << "modules[0].module: \"XY-9\" is no module of bus-coupler.xml";
    QTest::addRow("ident") << QByteArray(R"({"place": 2, "module": "0x999"})")
                           << "modules[0].module: \"0x999\" is no module of bus-coupler.xml";
    QTest::addRow("a place behind the last")
        << QByteArray(R"({"place": 16, "module": null})") << "modules[0].place: the device has no place 16";
    QTest::addRow("place twice") << QByteArray(R"({"place": 2, "module": null}, {"place": 2, "module": null})")
                                 << "modules[1].place: place 2 is filled twice";
}

void tst_ChoicesMistakes::contentOfModules()
{
    QFETCH(QByteArray, modules);
    QFETCH(QString, message);
    const Conversion conversion = converted(
        {samplePath("bus-coupler")}, choicesOfFirst("\"deviceType\": \"Special\", \"modules\": [" + modules + ']'));
    const QStringList messages = messagesOf(conversion).filter(QStringLiteral("error: "));
    QCOMPARE(messages, QStringList{"error: devices[0]." + message});
    QCOMPARE(conversion.run.exitCode, 2);
    QCOMPARE(conversion.files, QStringList());
}

/// Two devices, modes, PDOs, entries and modules of each name; the slot takes the first ident only.
static QByteArray twinsEsi()
{
    const QByteArray entry = "<Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry>";
    const QByteArray pdo = "<RxPdo Sm=\"0\"><Index>#x1600</Index>" + entry + entry + "</RxPdo>";
    const QByteArray mode = "<OpMode><Name>DC</Name><AssignActivate>#x300</AssignActivate></OpMode>";
    const QByteArray device = "<Device><Type ProductCode=\"1\" RevisionNo=\"1\">T</Type><Name>Twin</Name>"
                              "<Profile><ProfileNo>5001</ProfileNo></Profile><Sm>Outputs</Sm>"
                              + pdo + pdo + "<Dc>" + mode + mode
                              + "</Dc><Slots><Slot MinInstances=\"0\" MaxInstances=\"2\"><ModuleIdent>1</ModuleIdent>"
                                "</Slot></Slots></Device>";
    const QByteArray modules = "<Module><Type ModuleIdent=\"1\">A</Type><Name>First</Name></Module>"
                               "<Module><Type ModuleIdent=\"1\">B</Type><Name>Second</Name></Module>"
                               "<Module><Type ModuleIdent=\"2\">A</Type><Name>Third</Name></Module>";
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>" + device + device + "</Devices><Modules>"
           + modules + "</Modules></Descriptions></EtherCATInfo>";
}

void tst_ChoicesMistakes::ambiguousNames_data()
{
    const auto special = [](const QByteArray& members) {
        return R"({"device": 1, "deviceType": "Special", )" + members + '}';
    };
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QString>("message");
    QTest::addRow("device by name") << QByteArray(R"({"device": "Twin"})")
                                    << "device: 2 devices are \"Twin\"; their numbers tell them apart";
    QTest::addRow("device by identity") << QByteArray(R"({"device": "1:1:1"})")
                                        << "device: 2 devices are \"1:1:1\"; their numbers tell them apart";
    QTest::addRow("no device") << QByteArray(R"({"device": "Single"})")
                               << "device: no device of the given files is \"Single\"";
    QTest::addRow("device number") << QByteArray(R"({"device": 3})") << "device: no device of the given files is \"3\"";
    QTest::addRow("mode") << special("\"dcMode\": \"DC\"")
                          << "dcMode: 2 modes are \"DC\"; their numbers tell them apart";
    QTest::addRow("PDO") << special(R"("links": [{"pdo": "0x1600", "entry": 0, "link": "DOUT"}])")
                         << "links[0].pdo: 2 PDOs have the index 0x1600; their numbers tell them apart";
    QTest::addRow("entry") << special(R"("links": [{"pdo": 0, "entry": "0x7000:1", "link": "DOUT"}])")
                           << "links[0].entry: the PDO has 2 entries 0x7000:1; their numbers tell them apart";
    QTest::addRow("module by ident") << special(R"("modules": [{"place": 0, "module": "0x1"}])")
                                     << "modules[0].module: \"0x1\" are 2 modules of twins.xml";
    QTest::addRow("module by type") << special(R"("modules": [{"place": 0, "module": "A"}])")
                                    << "modules[0].module: \"A\" are 2 modules of twins.xml";
    QTest::addRow("module that the slot does not take") << special(R"("modules": [{"place": 1, "module": "Third"}])")
                                                        << "modules[0].module: 当前模块不能插入模块到当前槽 Third:";
}

void tst_ChoicesMistakes::ambiguousNames()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, message);
    const QTemporaryDir folder;
    const QString esi = writtenFile(folder.filePath("twins.xml"), twinsEsi());
    compareRefused(converted({esi}, choicesWith(device)), "error: devices[0]." + message);
}

void tst_ChoicesMistakes::allMistakesAreTold()
{
    const Conversion conversion = converted(
        {samplePath("servo-drive"), samplePath("io-block")},
        choicesWith(R"({"device": 1, "driveAxes": 1, "dcMode": 9, "links": [{"pdo": 9, "entry": 0, "link": 0}],
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

/// The rows follow from the modules, so only the modules are told.
void tst_ChoicesMistakes::rowsAreNotLookedAtBehindWrongModules()
{
    const Conversion conversion =
        converted({samplePath("dual-axis-drive")},
                  choicesOfFirst(R"("modules": [{"place": 9, "module": null}], "startup": {"removed": [{"row": 99}]},
                                    "links": [{"pdo": 99, "entry": 0, "link": 0}])"));
    compareRefused(conversion, "error: devices[0].modules[0].place: the device has no place 9");
}

/// A PDO of a module on a sync manager that the device lacks is found when the module is put in.
void tst_ChoicesMistakes::missingSyncManager()
{
    const QByteArray esi =
        "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type>T</Type><Name>Coupler</Name>"
        "<Profile><ProfileNo>100</ProfileNo></Profile><Slots><Slot MaxInstances=\"1\"><ModuleIdent>1"
        "</ModuleIdent></Slot></Slots></Device></Devices><Modules><Module><Type ModuleIdent=\"1\">A</Type>"
        "<TxPdo Sm=\"3\"><Index>#x1A00</Index><Name>State</Name></TxPdo></Module></Modules></Descriptions>"
        "</EtherCATInfo>";
    const QTemporaryDir folder;
    const QString path = writtenFile(folder.filePath("range.xml"), esi);
    QCOMPARE(converted({path}).run.exitCode, 0);
    const Conversion conversion = converted({path}, choicesOfFirst(R"("modules": [{"place": 0, "module": 1}])"));
    QCOMPARE(conversion.run.exitCode, 2);
    QVERIFY2(
        conversion.run.errors.contains("devices[0]: device \"Coupler\": PDO 0x1a00 \"State\" names a sync manager"),
        conversion.run.errors.constData());
    QCOMPARE(conversion.files, QStringList());
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

QTEST_GUILESS_MAIN(tst_ChoicesMistakes)
#include "tst_ChoicesMistakes.moc"
