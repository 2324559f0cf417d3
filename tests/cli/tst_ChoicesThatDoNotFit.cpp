// `ktl convert --choices`: choices that do not fit the ESI file are told, with their place, and nothing is written.
#include "cli/choicesParts.h"

class tst_ChoicesThatDoNotFit : public QObject
{
    Q_OBJECT

private slots:
    static void content_data();
    static void content();
    static void contentOfModules_data();
    static void contentOfModules();
    static void pageTranslates_data();
    static void pageTranslates();
    static void ambiguousNames_data();
    static void ambiguousNames();
    static void rowsAreNotLookedAtBehindWrongModules();
    static void missingSyncManager();
};

void tst_ChoicesThatDoNotFit::content_data()
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

void tst_ChoicesThatDoNotFit::content()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    compareRefused(converted({samplePath("servo-drive")}, choicesOfFirst(members)), "error: devices[0]." + message);
}

void tst_ChoicesThatDoNotFit::contentOfModules_data()
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

void tst_ChoicesThatDoNotFit::contentOfModules()
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

void tst_ChoicesThatDoNotFit::pageTranslates_data()
{
    QTest::addColumn<QByteArray>("esi");
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("name"); // that stands in the words, if one does
    const QByteArray coupler = contentOf(samplePath("bus-coupler"));
    QTest::addRow("a type without modules")
        << twinsEsi() << QByteArray(R"("deviceType": 1, "modules": [{"place": 0, "module": null}])") << "-";
    QTest::addRow("a type that finds its modules")
        << coupler << QByteArray(R"("deviceType": 3, "modules": [{"place": 0, "module": null}])") << "-";
    QTest::addRow("a module that the slot does not take")
        << twinsEsi() << QByteArray(R"("deviceType": 4, "modules": [{"place": 1, "module": "Third"}])") << "Third";
    QTest::addRow("a module list that can be written")
        << coupler << QByteArray(R"("deviceType": 5)") << "MB-C100 bus coupler for 16 modules";
}

/// The page has a row for what is told in the words of the window.
void tst_ChoicesThatDoNotFit::pageTranslates()
{
    QFETCH(QByteArray, esi);
    QFETCH(QByteArray, members);
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const Conversion conversion = converted({writtenFile(folder.filePath("a.xml"), esi)}, choicesOfFirst(members));
    static const QRegularExpression chinese(QStringLiteral(R"([\x{4E00}-\x{9FFF}].*)"));
    const QString words = chinese.match(QString::fromUtf8(conversion.run.errors)).captured();
    QVERIFY2(!words.isEmpty(), conversion.run.errors.constData());
    const QString page = QString::fromUtf8(contentOf(KINETRA_SOURCE_DIR "/docs/choices.md"));
    QVERIFY2(page.contains("| `" + QString(words).replace(name, "%1") + "` | "), qPrintable(words));
}

void tst_ChoicesThatDoNotFit::ambiguousNames_data()
{
    const auto special = [](const QByteArray& members) {
        return R"({"device": 1, "deviceType": "Special", )" + members + '}';
    };
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QString>("message");
    QTest::addRow("device by name")
        << QByteArray(R"({"device": "Twin"})")
        << "device: \"Twin\" means 2 devices instead of one; device 1 \"Twin\" (0x1:0x1:0x1), type \"T\"; device 2 "
           "\"Twin\" (0x1:0x1:0x1), type \"T\"";
    QTest::addRow("device by identity")
        << QByteArray(R"({"device": "1:1:1"})")
        << "device: \"1:1:1\" means 2 devices instead of one; device 1 \"Twin\" (0x1:0x1:0x1), type \"T\"; device 2 "
           "\"Twin\" (0x1:0x1:0x1), type \"T\"";
    QTest::addRow("no device") << QByteArray(R"({"device": "Single"})")
                               << "device: no device of the given files is \"Single\"";
    QTest::addRow("device without a name")
        << QByteArray(R"({"device": ""})") << "device: a selector of a device is empty";
    QTest::addRow("device number") << QByteArray(R"({"device": 3})")
                                   << "device: there is no device 3: the numbers go from 1 to 2";
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

void tst_ChoicesThatDoNotFit::ambiguousNames()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, message);
    const QTemporaryDir folder;
    const QString esi = writtenFile(folder.filePath("twins.xml"), twinsEsi());
    compareRefused(converted({esi}, choicesWith(device)), "error: devices[0]." + message);
}

/// The rows follow from the modules, so only the modules are told.
void tst_ChoicesThatDoNotFit::rowsAreNotLookedAtBehindWrongModules()
{
    const Conversion conversion =
        converted({samplePath("dual-axis-drive")},
                  choicesOfFirst(R"("modules": [{"place": 9, "module": null}], "startup": {"removed": [{"row": 99}]},
                                    "links": [{"pdo": 99, "entry": 0, "link": 0}])"));
    compareRefused(conversion, "error: devices[0].modules[0].place: the device has no place 9");
}

/// A PDO of a module on a sync manager that the device lacks is found when the module is put in.
void tst_ChoicesThatDoNotFit::missingSyncManager()
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
    const QString message = "error: devices[0]: " + path
                            + ": device \"Coupler\": PDO 0x1a00 \"State\" names a sync manager that the device does "
                              "not declare (";
    QCOMPARE(messagesOf(conversion).size(), 1);
    QVERIFY2(messagesOf(conversion).first().startsWith(message), qPrintable(messagesOf(conversion).first()));
    QCOMPARE(conversion.files, QStringList());
}

QTEST_GUILESS_MAIN(tst_ChoicesThatDoNotFit)
#include "tst_ChoicesThatDoNotFit.moc"
