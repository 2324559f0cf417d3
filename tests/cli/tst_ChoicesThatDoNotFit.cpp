// `ktl convert --choices`: choices that do not fit the ESI file are told, with their place, and nothing is written.
#include "cli/choicesParts.h"
#include "testMain.h"

class tst_ChoicesThatDoNotFit : public QObject
{
    Q_OBJECT

private slots:
    static void content_data();
    static void content();
    static void startupData_data();
    static void startupData();
    static void contentOfModules_data();
    static void contentOfModules();
    static void ambiguousNames_data();
    static void ambiguousNames();
    static void slotOfManyModules();
    static void rowsAreNotLookedAtBehindWrongModules();
    static void missingSyncManager();
};

void tst_ChoicesThatDoNotFit::content_data()
{
    const auto link = [](const QByteArray& members) { return "\"links\": [{" + members + "}]"; };
    const auto startup = [](const QByteArray& members) { return "\"startup\": {" + members + '}'; };
    const QString byHand =
        "; leave the list out, or set a deviceType that takes modules by hand (MultiDriver, Special, "
        "ManualIOBlock) [module-type]";
    QTest::addColumn<QByteArray>("members"); // of the servo drive: a single drive with three modes and 43 commands
    QTest::addColumn<QString>("message");
    QTest::addRow("axes of a single drive") << QByteArray("\"driveAxes\": 2")
                                            << "driveAxes: a device of the type SingleDriver has no axes to set, only "
                                               "MultiDriver has; leave the key out [setting]";
    QTest::addRow("axes behind a change of type") << QByteArray(R"("deviceType": "Special", "driveAxes": 1)")
                                                  << "driveAxes: a device of the type Special has no axes to set, only "
                                                     "MultiDriver has; leave the key out [setting]";
    QTest::addRow("mode number") << QByteArray("\"dcMode\": 3")
                                 << "dcMode: there is no mode 3, the device has 3 [setting]";
    QTest::addRow("mode name") << QByteArray("\"dcMode\": \"FreeRun\"")
                               << "dcMode: \"FreeRun\" is no mode of the device [setting]";
    QTest::addRow("configuration index")
        << QByteArray("\"configIndex\": 1")
        << "configIndex: a device of the type SingleDriver has no module indexes; leave the key out [setting]";
    QTest::addRow("detection index")
        << QByteArray(R"("deviceType": 5, "detectIndex": 1)")
        << "detectIndex: a device of the type ManualIOBlock has no module indexes; leave the key out [setting]";
    QTest::addRow("modules of a single drive") << QByteArray(R"("modules": [{"place": 0, "module": null}])")
                                               << "modules: a device of the type SingleDriver has no modules" + byHand;
    QTest::addRow("modules of a coupler that finds them")
        << QByteArray(R"("deviceType": 3, "modules": [{"place": 0, "module": null}])")
        << "modules: a device of the type PnpIOBlock finds its modules at power-on" + byHand;
    QTest::addRow("place of a device without slots") << QByteArray(R"("deviceType": 4, "modules": [{"place": 0,
                                                                      "module": null}])")
                                                     << "modules[0].place: the device has no place 0 [module-place]";
    QTest::addRow("module link of a file without modules")
        << QByteArray(R"("moduleLinks": [{"module": 16, "pdo": 0, "entry": 0, "link": "DIN"}])")
        << "moduleLinks[0].module: \"0x10\" is no module of servo-drive.xml [module]";
    QTest::addRow("PDO row") << link(R"("pdo": 6, "entry": 0, "link": "DIN")")
                             << "links[0].pdo: there is no PDO 6, the list has 6 [row]";
    QTest::addRow("PDO index") << link(R"("pdo": "0x1605", "entry": 0, "link": "DIN")")
                               << "links[0].pdo: there is no PDO 0x1605 [link]";
    QTest::addRow("entry position") << link(R"("pdo": 1, "entry": 2, "link": "DOUT")")
                                    << "links[0].entry: there is no entry 2, the PDO has 2 [link]";
    QTest::addRow("entry object") << link(R"("pdo": 0, "entry": "0x6040:1", "link": "DOUT")")
                                  << "links[0].entry: the PDO has no entry 0x6040:1 [link]";
    QTest::addRow("another PDO stands there") << link(R"("pdo": 0, "index": "0x1601", "entry": 0, "link": "DOUT")")
                                              << "links[0].index: 0x1600 stands there, not 0x1601 [check]";
    QTest::addRow("another object stands there")
        << link(R"("pdo": 0, "entry": 0, "object": "0x6041:0", "link": "DOUT")")
        << "links[0].object: 0x6040:0 stands there, not 0x6041:0 [check]";
    QTest::addRow("another name stands there") << link(R"("pdo": 0, "entry": 0, "name": "Status", "link": "DOUT")")
                                               << "links[0].name: \"Controlword\" stands there, not \"Status\" [check]";
    QTest::addRow("input link of an output")
        << link(R"("pdo": 0, "entry": 0, "link": "DIN")")
        << "links[0].link: \"DIN\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT) [link]";
    QTest::addRow("output link of an input")
        << link(R"("pdo": 3, "entry": 0, "link": "DOUT")")
        << "links[0].link: \"DOUT\" is no link of an input (known: NONE, DIN, AIN16, AIN32, FAIN, ENCODER32) [link]";
    QTest::addRow("link number that is not offered")
        << link(R"("pdo": 0, "entry": 0, "link": -3)")
        << "links[0].link: \"-3\" is no link of an output (known: NONE, DOUT, AOUT16, AOUT32, FAOUT) [link]";
    QTest::addRow("entry linked twice") << link(
        R"("pdo": 0, "entry": 0, "link": "DOUT"}, {"pdo": "0x1600", "entry": "0x6040:0", "link": "NONE")")
                                        << "links[1]: this entry is linked twice [link]";
    QTest::addRow("changed row") << startup(R"("changed": [{"row": 43, "data": 1}])")
                                 << "startup.changed[0].row: there is no row 43, the list has 43 [row]";
    QTest::addRow("removed row") << startup(R"("removed": [{"row": 65536}])")
                                 << "startup.removed[0].row: there is no row 65536, the list has 43 [row]";
    QTest::addRow("added behind no row") << startup(
        R"("added": [{"behind": 99, "index": 1, "dataBytes": 1, "data": 0}])")
                                         << "startup.added[0].behind: there is no row 99, the list has 43 [row]";
    QTest::addRow("another index stands there") << startup(R"("changed": [{"row": 0, "was": {"index": 1}, "data": 1}])")
                                                << "startup.changed[0].was.index: 0x2010 stands there, not 0x1 [check]";
    QTest::addRow("another sub-index stands there") << startup(R"("removed": [{"row": 0, "was": {"subIndex": 2}}])")
                                                    << "startup.removed[0].was.subIndex: 1 stands there, not 2 [check]";
    QTest::addRow("another comment stands there")
        << startup(R"("added": [{"behind": 0, "was": {"comment": "gain"}, "index": 1, "dataBytes": 1, "data": 0}])")
        << "startup.added[0].was.comment: \"Proportional gain 10000\" stands there, not \"gain\" [check]";
    QTest::addRow("row changed twice") << startup(R"("changed": [{"row": 1, "data": 1}, {"row": 1, "data": 2}])")
                                       << "startup.changed[1]: row 1 is changed or removed twice [row]";
    QTest::addRow("row changed and removed")
        << startup(R"("changed": [{"row": 1, "data": 1}], "removed": [{"row": 1}])")
        << "startup.removed[0]: row 1 is changed or removed twice [row]";
}

void tst_ChoicesThatDoNotFit::content()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    compareRefused(converted({samplePath("servo-drive")}, choicesOfFirst(members)), "error: devices[0]." + message);
}

void tst_ChoicesThatDoNotFit::startupData_data()
{
    // Row 0 of the servo drive is declared with four bytes, row 4 with eight, which are 0 in the format.
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message"); // empty if it is taken
    const auto changed = [](const QByteArray& values) { return "\"changed\": [{" + values + "}]"; };
    const auto added = [](const QByteArray& values) {
        return "\"added\": [{\"behind\": 0, \"index\": 1, " + values + "}]";
    };
    QTest::addRow("largest value of a byte") << added(R"("dataBytes": 1, "data": 255)") << "";
    QTest::addRow("one above") << added(R"("dataBytes": 1, "data": 256)")
                               << "added[0].data: 256 does not fit into dataBytes 1 [startup-data]";
    QTest::addRow("17 bits in two bytes") << added(R"("dataBytes": 2, "data": 65536)")
                                          << "added[0].data: 65536 does not fit into dataBytes 2 [startup-data]";
    QTest::addRow("largest value of three bytes") << added(R"("dataBytes": 3, "data": "0xFFFFFF")") << "";
    QTest::addRow("25 bits in three bytes") << added(R"("dataBytes": 3, "data": "0x1000000")")
                                            << "added[0].data: 16777216 does not fit into dataBytes 3 [startup-data]";
    QTest::addRow("value without bytes") << added(R"("dataBytes": 0, "data": 1)")
                                         << "added[0].data: 1 does not fit into dataBytes 0 [startup-data]";
    QTest::addRow("five bytes") << added(R"("dataBytes": 5, "data": 1)")
                                << "added[0].dataBytes: 5 is not a number from 0 to 4 [startup-data]";
    QTest::addRow("sub-index of 9 bits") << added(R"("subIndex": 256, "dataBytes": 1, "data": 1)")
                                         << "added[0].subIndex: 256 is not a number from 0 to 255 [startup-data]";
    QTest::addRow("changed sub-index of 9 bits")
        << changed(R"("row": 0, "subIndex": 256)")
        << "changed[0].subIndex: 256 is not a number from 0 to 255 [startup-data]";
    QTest::addRow("changed to fewer bytes than the value has")
        << changed(R"("row": 0, "dataBytes": 1)")
        << "changed[0].data: 10000 does not fit into dataBytes 1 [startup-data]";
    QTest::addRow("changed to more bytes than a value has")
        << changed(R"("row": 0, "dataBytes": 255)")
        << "changed[0].dataBytes: 255 is not a number from 0 to 4 [startup-data]";
    QTest::addRow("declared with more bytes and as it was") << changed(R"("row": 4, "dataBytes": 8, "data": 0)") << "";
    QTest::addRow("declared with more bytes, another index") << changed(R"("row": 4, "index": 1)") << "";
    QTest::addRow("declared with more bytes, another value")
        << changed(R"("row": 4, "data": 1)")
        << "changed[0].data: the command has 8 data bytes, a value has 4 at most; give dataBytes too [startup-data]";
    QTest::addRow("declared with more bytes, now with four") << changed(R"("row": 4, "dataBytes": 4, "data": 1)") << "";
}

/// On the bus a value has as many bytes as the command says, and four at most.
void tst_ChoicesThatDoNotFit::startupData()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    const Conversion conversion =
        converted({samplePath("servo-drive")}, choicesOfFirst("\"startup\": {" + members + '}'));
    // A command of the sample has a value that no export carries; that is warned of in any case.
    QCOMPARE(messagesOf(conversion).filter(QStringLiteral("error: ")),
             message.isEmpty() ? QStringList() : QStringList{"error: devices[0].startup." + message});
    QCOMPARE(conversion.run.exitCode, message.isEmpty() ? 0 : 2);
}

void tst_ChoicesThatDoNotFit::contentOfModules_data()
{
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<QString>("message");
    QTest::addRow("name") << QByteArray(R"({"place": 2, "module": "XY-9"})")
                          << "modules[0].module: \"XY-9\" is no module of bus-coupler.xml [module]";
    QTest::addRow("ident") << QByteArray(R"({"place": 2, "module": "0x999"})")
                           << "modules[0].module: \"0x999\" is no module of bus-coupler.xml [module]";
    QTest::addRow("a place behind the last") << QByteArray(R"({"place": 16, "module": null})")
                                             << "modules[0].place: the device has no place 16 [module-place]";
    QTest::addRow("place twice") << QByteArray(R"({"place": 2, "module": null}, {"place": 2, "module": null})")
                                 << "modules[1].place: place 2 is filled twice [module-place]";
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
           "\"Twin\" (0x1:0x1:0x1), type \"T\" [several-devices]";
    QTest::addRow("device by identity")
        << QByteArray(R"({"device": "1:1:1"})")
        << "device: \"1:1:1\" means 2 devices instead of one; device 1 \"Twin\" (0x1:0x1:0x1), type \"T\"; device 2 "
           "\"Twin\" (0x1:0x1:0x1), type \"T\" [several-devices]";
    QTest::addRow("no device") << QByteArray(R"({"device": "Single"})")
                               << "device: no device of the given files is \"Single\" [no-device]";
    QTest::addRow("device without a name")
        << QByteArray(R"({"device": ""})") << "device: a selector of a device is empty [no-device]";
    QTest::addRow("device number") << QByteArray(R"({"device": 3})")
                                   << "device: there is no device 3: the numbers go from 1 to 2 [no-device]";
    QTest::addRow("mode") << special("\"dcMode\": \"DC\"")
                          << "dcMode: 2 modes are \"DC\"; their numbers tell them apart [setting]";
    QTest::addRow("PDO") << special(R"("links": [{"pdo": "0x1600", "entry": 0, "link": "DOUT"}])")
                         << "links[0].pdo: 2 PDOs have the index 0x1600; their numbers tell them apart [link]";
    QTest::addRow("entry") << special(R"("links": [{"pdo": 0, "entry": "0x7000:1", "link": "DOUT"}])")
                           << "links[0].entry: the PDO has 2 entries 0x7000:1; their numbers tell them apart [link]";
    QTest::addRow("module by ident") << special(R"("modules": [{"place": 0, "module": "0x1"}])")
                                     << "modules[0].module: \"0x1\" are 2 modules of twins.xml [module]";
    QTest::addRow("module by type") << special(R"("modules": [{"place": 0, "module": "A"}])")
                                    << "modules[0].module: \"A\" are 2 modules of twins.xml [module]";
    QTest::addRow("module that the slot does not take")
        << special(R"("modules": [{"place": 1, "module": "Third"}])")
        << "modules[0].module: module 0x2 \"Third\" does not fit place 1, slot \"\" takes 0x1 [module-place]";
}

void tst_ChoicesThatDoNotFit::ambiguousNames()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, message);
    const QTemporaryDir folder;
    const QString esi = writtenFile(folder.filePath("twins.xml"), twinsEsi());
    compareRefused(converted({esi}, choicesWith(device)), "error: devices[0]." + message);
}

/// Of the modules that a slot takes, eight are told.
void tst_ChoicesThatDoNotFit::slotOfManyModules()
{
    QByteArray idents;
    for (int ident = 1; ident <= 10; ++ident)
        idents += "<ModuleIdent>" + QByteArray::number(ident) + "</ModuleIdent>";
    const QByteArray esi = twinsEsi().replace("<ModuleIdent>1</ModuleIdent>", idents).replace("\"2\">A", "\"11\">C");
    const QTemporaryDir folder;
    compareRefused(
        converted({writtenFile(folder.filePath("a.xml"), esi)},
                  choicesOfFirst(R"("deviceType": 4, "modules": [{"place": 1, "module": 11}])")),
        "error: devices[0].modules[0].module: module 0xb \"Third\" does not fit place 1, slot \"\" takes 0x1, "
        "0x2, 0x3, 0x4, 0x5, 0x6, 0x7, 0x8 and 2 more [module-place]");
}

/// The rows follow from the modules, so only the modules are told.
void tst_ChoicesThatDoNotFit::rowsAreNotLookedAtBehindWrongModules()
{
    const Conversion conversion =
        converted({samplePath("dual-axis-drive")},
                  choicesOfFirst(R"("modules": [{"place": 9, "module": null}], "startup": {"removed": [{"row": 99}]},
                                    "links": [{"pdo": 99, "entry": 0, "link": 0}])"));
    compareRefused(conversion, "error: devices[0].modules[0].place: the device has no place 9 [module-place]");
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
                            + ": device \"Coupler\": PDO 0x1a00 \"State\" names sync manager 3, which the device "
                              "does not declare: it has 0 [sync-manager]";
    QCOMPARE(messagesOf(conversion), QStringList{message});
    QCOMPARE(conversion.files, QStringList());
}

static const testMain::Registration<tst_ChoicesThatDoNotFit, QCoreApplication> registration;
#include "tst_ChoicesThatDoNotFit.moc"
