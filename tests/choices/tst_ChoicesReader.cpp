// Choices read from JSON: what each key gives, and what is told of a value that is not in the form.
// Covers keys.cpp, rowReader.cpp, words.cpp.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/reader.h"
#include "testMain.h"

class tst_ChoicesReader : public QObject
{
    Q_OBJECT

private slots:
    static void everyKey();
    static void everyKeyOfRows();
    static void modulesAndSyncManagers();
    static void entries();
    static void devicesWithMistakesAreLeftOut();
    static void file_data();
    static void file();
    static void unknownKeys_data();
    static void unknownKeys();
    static void settings_data();
    static void settings();
    static void numbers_data();
    static void numbers();
    static void modules_data();
    static void modules();
    static void links_data();
    static void links();
    static void startup_data();
    static void startup();
};

namespace {

/// A text and the only thing that is wrong with its form.
void addColumns()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addColumn<QString>("message");
}

void compareMessage()
{
    QFETCH(QByteArray, choices);
    QFETCH(QString, message);
    QCOMPARE(problemsIn(choices), QStringList{message + " [form]"});
}

} // namespace

/// What a key says is in its field, and what is not given is nothing.
void tst_ChoicesReader::everyKey()
{
    choices::Problems problems;
    const auto read = choices::choicesIn(choicesWith(R"({"device": "Drive", "deviceType": "Special", "driveAxes": "0x3",
        "dcMode": 2, "configIndex": "0xf030", "detectIndex": 61520,
        "moduleLinks": [{"module": "0x10", "pdo": 1, "entry": 2, "link": "DOUT"}],
        "modules": [{"place": 4, "module": "MB"}, {"place": 5, "module": null}]}, {"device": 7, "dcMode": "Sync0"})"),
                                         problems);
    QCOMPARE(wordsOf(problems), QStringList());
    QCOMPARE(read->devices.size(), std::size_t(2));
    const choices::DeviceChoices& device = read->devices.at(0);
    QCOMPARE(device.path, QStringLiteral("devices[0]"));
    QCOMPARE(device.device, QStringLiteral("Drive"));
    QCOMPARE(device.deviceType.value(), std::uint16_t(4));
    QCOMPARE(device.driveAxes.value(), std::uint16_t(3));
    QCOMPARE(device.dcModes.size(), std::size_t(1));
    QCOMPARE(device.dcModes.at(0).position.value(), 2U);
    QCOMPARE(device.configIndex.value(), std::uint16_t(0xF030));
    QCOMPARE(device.detectIndex.value(), std::uint16_t(0xF050));
    QCOMPARE(device.moduleLinks.at(0).module.ident.value(), 0x10U);
    QCOMPARE(device.moduleLinks.at(0).pdoRow.value(), 1U);
    QCOMPARE(device.moduleLinks.at(0).entryPosition.value(), 2U);
    QCOMPARE(device.moduleLinks.at(0).link, -2);
    QCOMPARE(device.modules.at(0).place, 4U);
    QCOMPARE(device.modules.at(0).module->name, QStringLiteral("MB"));
    QVERIFY(!device.modules.at(1).module.has_value());
    QCOMPARE(device.modules.at(1).path, QStringLiteral("devices[0].modules[1]"));
    QCOMPARE(read->devices.at(1).device, QStringLiteral("7"));
    QCOMPARE(read->devices.at(1).dcModes.at(0).name, QStringLiteral("Sync0"));
    QVERIFY(!read->devices.at(1).dcModes.at(0).position.has_value() && !read->devices.at(1).deviceType.has_value());
}

void tst_ChoicesReader::everyKeyOfRows()
{
    choices::Problems problems;
    const auto read = choices::choicesIn(choicesOfFirst(R"("links": [{"pdo": "0x1600", "index": "0x1601",
        "entry": "0x6040:1", "object": "0x6041:2", "name": "Control", "link": "DIN Type"}],
        "startup": {"changed": [{"row": 1, "was": {"index": "0x2000", "subIndex": 2, "comment": "gain"}, "data": 7}],
        "removed": [{"row": 3}], "added": [{"behind": 5, "index": 8192, "dataBytes": 4, "data": 9}]})"),
                                         problems);
    QCOMPARE(wordsOf(problems), QStringList());
    const choices::LinkChoice& link = read->devices.at(0).links.at(0);
    QCOMPARE(link.pdoIndex.value(), 0x1600U);
    QCOMPARE(link.checkedIndex.value(), 0x1601U);
    QVERIFY(link.entryObject == (choices::ObjectAddress{0x6040, 1}));
    QVERIFY(link.checkedObject == (choices::ObjectAddress{0x6041, 2}));
    QCOMPARE(link.checkedName.value(), QStringLiteral("Control"));
    QCOMPARE(link.link, -1);
    const choices::StartupChoice& changed = read->devices.at(0).changedCommands.at(0);
    QCOMPARE(changed.row, 1U);
    QCOMPARE(changed.was.index.value(), 0x2000U);
    QCOMPARE(changed.was.subIndex.value(), 2U);
    QCOMPARE(changed.was.comment.value(), QStringLiteral("gain"));
    QCOMPARE(changed.data.value(), 7U);
    QVERIFY(!changed.dataBytes.has_value());
    QCOMPARE(read->devices.at(0).removedCommands.at(0).row, 3U);
    const choices::StartupChoice& added = read->devices.at(0).addedCommands.at(0);
    QCOMPARE(added.row, 5U);
    QCOMPARE(added.index.value(), 8192U);
    QVERIFY(!added.subIndex.has_value());
}

void tst_ChoicesReader::modulesAndSyncManagers()
{
    choices::Problems problems;
    const auto read = choices::choicesIn(
        R"({"format": "kinetra-choices", "version": 1, "export": [3, "Drive"], "devices": [{"device": 1,
            "clicked": false, "lastType": "Special", "takesModuleList": false, "dcMode": ["DC", 1], "modules": [{"place": 0, "module": "16", "moduleRow": 5}],
            "syncManagers": [{"syncManager": 2, "name": "Outputs", "minSize": "0x40"},
                             {"syncManager": "Inputs", "minSize": 0}]}, {"device": 2, "clicked": true}]})",
        problems);
    QCOMPARE(wordsOf(problems), QStringList());
    QVERIFY(read->exported == (std::vector<QString>{QStringLiteral("3"), QStringLiteral("Drive")}));
    const choices::DeviceChoices& device = read->devices.at(0);
    QVERIFY(!device.isClicked && read->devices.at(1).isClicked);
    QCOMPARE(device.lastType.value(), std::uint16_t(4));
    QVERIFY(!read->devices.at(1).lastType.has_value());
    QCOMPARE(device.takesModuleList.value(), false);
    QCOMPARE(device.dcModes.at(0).name, QStringLiteral("DC"));
    QCOMPARE(device.dcModes.at(1).position.value(), 1U);
    QCOMPARE(device.modules.at(0).module->ident.value(), 16U);
    QCOMPARE(device.modules.at(0).module->name, QString());
    QCOMPARE(device.modules.at(0).module->row.value(), 5U);
    QCOMPARE(device.syncManagers.at(0).row.value(), 2U);
    QCOMPARE(device.syncManagers.at(0).checkedName.value(), QStringLiteral("Outputs"));
    QCOMPARE(device.syncManagers.at(0).minSize, std::uint16_t(64));
    QCOMPARE(device.syncManagers.at(1).name, QStringLiteral("Inputs"));
    QVERIFY(!device.syncManagers.at(1).row.has_value());
    QVERIFY(!read->devices.at(1).takesModuleList.has_value() && read->devices.at(1).dcModes.empty());
}

void tst_ChoicesReader::entries()
{
    choices::Problems problems;
    const auto read = choices::choicesIn(choicesOfFirst(R"("entries": {
        "removed": [{"pdo": 1, "index": "0x1a00", "entry": "0x6000:1", "object": "0x6000:1", "name": "In"}],
        "added": [{"pdo": "0x1600", "behind": 2, "link": "DOUT"}, {"pdo": 0, "behind": "0x7000:1"}]},
        "startup": {"changed": [{"row": 0, "unchecked": true}],
                    "added": [{"behind": 0, "index": 1, "dataBytes": 5, "data": 0, "unchecked": false}]})"),
                                         problems);
    QCOMPARE(wordsOf(problems), QStringList());
    const choices::DeviceChoices& device = read->devices.at(0);
    const choices::EntryChoice& removed = device.removedEntries.at(0);
    QCOMPARE(removed.path, QStringLiteral("devices[0].entries.removed[0]"));
    QCOMPARE(removed.pdoRow.value(), 1U);
    QCOMPARE(removed.checkedIndex.value(), 0x1A00U);
    QVERIFY(removed.entryObject == (choices::ObjectAddress{0x6000, 1}));
    QVERIFY(removed.checkedObject == (choices::ObjectAddress{0x6000, 1}));
    QCOMPARE(removed.checkedName.value(), QStringLiteral("In"));
    QCOMPARE(device.addedEntries.at(0).pdoIndex.value(), 0x1600U);
    QCOMPARE(device.addedEntries.at(0).entryPosition.value(), 2U);
    QCOMPARE(device.addedEntries.at(0).link, -2);
    QVERIFY(device.addedEntries.at(1).entryObject == (choices::ObjectAddress{0x7000, 1}));
    QCOMPARE(device.addedEntries.at(1).link, 0);
    QVERIFY(device.changedCommands.at(0).isUnchecked);
    QVERIFY(!device.addedCommands.at(0).isUnchecked);
}

void tst_ChoicesReader::devicesWithMistakesAreLeftOut()
{
    choices::Problems problems;
    const auto read =
        choices::choicesIn(choicesWith(R"({"device": 1}, {"device": 2, "colour": 1}, {"device": 3})"), problems);
    QCOMPARE(problems.count(), std::size_t(1));
    QCOMPARE(read->devices.size(), std::size_t(2));
    QCOMPARE(read->devices.at(1).device, QStringLiteral("3"));
}

void tst_ChoicesReader::file_data()
{
    addColumns();
    const QByteArray head = R"({"format": "kinetra-choices", "version": 1, "devices": )";
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
    const QByteArray exporting = R"({"format": "kinetra-choices", "version": 1, "devices": [], "export": )";
    QTest::addRow("nothing to export") << exporting + "[]}"
                                       << "export: [] is not a list of devices: nothing would be written";
    QTest::addRow("export is no list") << exporting + "1}"
                                       << "export: 1 is not a list";
    QTest::addRow("device to export") << exporting + "[1, {}]}"
                                      << "export[1]: {} is not a number from 0 to 4294967295 or a name";
    QTest::addRow("unknown key of the file")
        << QByteArray(R"({"format": "kinetra-choices", "version": 1, "devices": [], "device": 1})")
        << "\"device\" is no key here (known: format, version, export, devices)";
}

void tst_ChoicesReader::file()
{
    compareMessage();
}

void tst_ChoicesReader::unknownKeys_data()
{
    addColumns();
    QTest::addRow("unknown key of a device")
        << choicesOfFirst(R"("driveAxis": 2)")
        << "devices[0]: \"driveAxis\" is no key here (known: device, clicked, takesModuleList, deviceType, driveAxes, "
           "dcMode, configIndex, detectIndex, moduleLinks, modules, syncManagers, links, entries, startup, lastType)";
    QTest::addRow("unknown key of a module")
        << choicesOfFirst(R"("modules": [{"place": 0, "module": 1, "slot": 1}])")
        << "devices[0].modules[0]: \"slot\" is no key here (known: place, module, moduleRow)";
    QTest::addRow("unknown key of a link")
        << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 0, "module": 1}])")
        << "devices[0].links[0]: \"module\" is no key here (known: pdo, index, entry, object, name, link)";
    QTest::addRow("unknown key of startup") << choicesOfFirst(R"("startup": {"rows": []})")
                                            << "devices[0].startup: \"rows\" is no key here (known: changed, removed, "
                                               "added)";
    QTest::addRow("unknown key of a check")
        << choicesOfFirst(R"("startup": {"removed": [{"row": 0, "was": {"data": 0}}]})")
        << "devices[0].startup.removed[0].was: \"data\" is no key here (known: "
           "index, subIndex, comment)";
}

void tst_ChoicesReader::unknownKeys()
{
    compareMessage();
}

void tst_ChoicesReader::settings_data()
{
    addColumns();
    const QString types = " is not a device type (0 to 5, or IOBlock, SingleDriver, MultiDriver, PnpIOBlock, Special, "
                          "ManualIOBlock)";
    QTest::addRow("type number") << choicesOfFirst(R"("deviceType": 6)") << "devices[0].deviceType: 6" + types;
    QTest::addRow("type name") << choicesOfFirst(R"("deviceType": "multidriver")")
                               << "devices[0].deviceType: \"multidriver\"" + types;
    QTest::addRow("type is nothing") << choicesOfFirst(R"("deviceType": null)")
                                     << "devices[0].deviceType: null" + types;
    QTest::addRow("mode") << choicesOfFirst(R"("dcMode": -1)")
                          << "devices[0].dcMode: -1 is not a number from 0 to 4294967295 or a name";
    QTest::addRow("mode in a list") << choicesOfFirst(R"("dcMode": [0, null])")
                                    << "devices[0].dcMode[1]: null is not a number from 0 to 4294967295 or a name";
    QTest::addRow("last type") << choicesOfFirst(R"("lastType": 6)") << "devices[0].lastType: 6" + types;
    QTest::addRow("click") << choicesOfFirst(R"("clicked": 0)") << "devices[0].clicked: 0 is not true or false";
    QTest::addRow("list of modules") << choicesOfFirst(R"("takesModuleList": 1)")
                                     << "devices[0].takesModuleList: 1 is not true or false";
    QTest::addRow("configuration index") << choicesOfFirst(R"("configIndex": "0x10000")")
                                         << "devices[0].configIndex: \"0x10000\" is not a number from 0 to 65535";
    QTest::addRow("detection index") << choicesOfFirst(R"("detectIndex": [])")
                                     << "devices[0].detectIndex: [] is not a number from 0 to 65535";
}

void tst_ChoicesReader::settings()
{
    compareMessage();
}

void tst_ChoicesReader::numbers_data()
{
    addColumns();
    QTest::addRow("axes of 17 bits") << choicesOfFirst(R"("driveAxes": 65536)")
                                     << "devices[0].driveAxes: 65536 is not a number from 0 to 65535";
    QTest::addRow("negative axes") << choicesOfFirst(R"("driveAxes": -1)")
                                   << "devices[0].driveAxes: -1 is not a number from 0 to 65535";
    QTest::addRow("broken axes") << choicesOfFirst(R"("driveAxes": 1.5)")
                                 << "devices[0].driveAxes: 1.5 is not a number from 0 to 65535";
    QTest::addRow("axes in words") << choicesOfFirst(R"("driveAxes": "two")")
                                   << "devices[0].driveAxes: \"two\" is not a number from 0 to 65535";
    QTest::addRow("axes with a blank in front of them")
        << choicesOfFirst(R"("driveAxes": " 2")") << "devices[0].driveAxes: \" 2\" is not a number from 0 to 65535";
    QTest::addRow("axes with a blank after them")
        << choicesOfFirst(R"("driveAxes": "2 ")") << "devices[0].driveAxes: \"2 \" is not a number from 0 to 65535";
    QTest::addRow("axes with a sign") << choicesOfFirst(R"("driveAxes": "+2")")
                                      << "devices[0].driveAxes: \"+2\" is not a number from 0 to 65535";
    QTest::addRow("axes in digits of another script")
        << choicesOfFirst(R"("driveAxes": "\u0662")")
        << "devices[0].driveAxes: \"\u0662\" is not a number from 0 to 65535";
    QTest::addRow("a prefix alone") << choicesOfFirst(R"("driveAxes": "0x")")
                                    << "devices[0].driveAxes: \"0x\" is not a number from 0 to 65535";
    QTest::addRow("two prefixes") << choicesOfFirst(R"("driveAxes": "0x0x5")")
                                  << "devices[0].driveAxes: \"0x0x5\" is not a number from 0 to 65535";
    QTest::addRow("letters of no base") << choicesOfFirst(R"("driveAxes": "0x1G")")
                                        << "devices[0].driveAxes: \"0x1G\" is not a number from 0 to 65535";
}

void tst_ChoicesReader::numbers()
{
    compareMessage();
}

void tst_ChoicesReader::modules_data()
{
    addColumns();
    QTest::addRow("place as a text") << choicesOfFirst(R"("modules": [{"place": "0", "module": null}])")
                                     << "devices[0].modules[0].place: \"0\" is not a number from 0 to 65535";
    QTest::addRow("module is missing") << choicesOfFirst(R"("modules": [{"place": 0}])")
                                       << "devices[0].modules[0]: the key \"module\" is missing";
    QTest::addRow("row of no module") << choicesOfFirst(R"("modules": [{"place": 0, "module": null, "moduleRow": 0}])")
                                      << "devices[0].modules[0].module: null is not the ident or the name of a module";
    QTest::addRow("module row as a text")
        << choicesOfFirst(R"("modules": [{"place": 0, "module": 1, "moduleRow": "0"}])")
        << "devices[0].modules[0].moduleRow: \"0\" is not a number from 0 to 4294967295";
    QTest::addRow("sync manager is no name")
        << choicesOfFirst(R"("syncManagers": [{"syncManager": null, "minSize": 0}])")
        << "devices[0].syncManagers[0].syncManager: null is not a number from 0 to 4294967295 or a name";
    QTest::addRow("minimum size of 17 bits")
        << choicesOfFirst(R"("syncManagers": [{"syncManager": 0, "minSize": 65536}])")
        << "devices[0].syncManagers[0].minSize: 65536 is not a number from 0 to 65535";
    QTest::addRow("module is no name") << choicesOfFirst(R"("modules": [{"place": 0, "module": ""}])")
                                       << "devices[0].modules[0].module: \"\" is not the ident or the name of a module";
}

void tst_ChoicesReader::modules()
{
    compareMessage();
}

void tst_ChoicesReader::links_data()
{
    addColumns();
    const QString links = " is not a link (NONE, DOUT, AOUT16, AOUT32, FAOUT, DIN, AIN16, AIN32, FAIN, ENCODER32)";
    QTest::addRow("PDO is a list") << choicesOfFirst(R"("links": [{"pdo": [], "entry": 0, "link": 0}])")
                                   << "devices[0].links[0].pdo: [] is not a number from 0 to 4294967295 or an index";
    QTest::addRow("entry is a list") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": [], "link": 0}])")
                                     << "devices[0].links[0].entry: [] is not a number from 0 to 4294967295 or an "
                                        "object";
    QTest::addRow("object with a blank") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": "0x6040: 0", "link": 0}])")
                                         << "devices[0].links[0].entry: \"0x6040: 0\" is not an object like "
                                            "\"0x6040:0\"";
    QTest::addRow("pdo index of 17 bits")
        << choicesOfFirst(R"("links": [{"pdo": "0x11600", "entry": 0, "link": "DOUT"}])")
        << "devices[0].links[0].pdo: \"0x11600\" is not a number from 0 to 65535";
    QTest::addRow("entry is no object") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": "0x6040", "link": "DOUT"}])")
                                        << "devices[0].links[0].entry: \"0x6040\" is not an object like \"0x6040:0\"";
    QTest::addRow("name is no text") << choicesOfFirst(
        R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT", "name": 1}])")
                                     << "devices[0].links[0].name: 1 is not a text";
    QTest::addRow("link name") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "OUT"}])")
                               << "devices[0].links[0].link: \"OUT\"" + links;
    QTest::addRow("link with two endings")
        << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT Type Type"}])")
        << "devices[0].links[0].link: \"DOUT Type Type\"" + links;
    QTest::addRow("link number above all")
        << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": 1}])") << "devices[0].links[0].link: 1" + links;
}

void tst_ChoicesReader::links()
{
    compareMessage();
}

void tst_ChoicesReader::startup_data()
{
    addColumns();
    QTest::addRow("row is missing") << choicesOfFirst(R"("startup": {"removed": [{}]})")
                                    << "devices[0].startup.removed[0]: the key \"row\" is missing";
    QTest::addRow("index of an added command is missing")
        << choicesOfFirst(R"("startup": {"added": [{"behind": 0, "dataBytes": 1, "data": 1}]})")
        << "devices[0].startup.added[0]: the key \"index\" is missing";
    QTest::addRow("data bytes of an added command are missing")
        << choicesOfFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "data": 1}]})")
        << "devices[0].startup.added[0]: the key \"dataBytes\" is missing";
    QTest::addRow("data of an added command is missing")
        << choicesOfFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "dataBytes": 1}]})")
        << "devices[0].startup.added[0]: the key \"data\" is missing";
    QTest::addRow("data of 33 bits") << choicesOfFirst(R"("startup": {"changed": [{"row": 0, "data": 4294967296}]})")
                                     << "devices[0].startup.changed[0].data: 4294967296 is not a number from 0 to "
                                        "4294967295";
    QTest::addRow("data bytes of 17 bits")
        << choicesOfFirst(R"("startup": {"changed": [{"row": 0, "dataBytes": 65536}]})")
        << "devices[0].startup.changed[0].dataBytes: 65536 is not a number from 0 "
           "to 65535";
    QTest::addRow("startup is no object")
        << choicesOfFirst(R"("startup": [])") << "devices[0].startup: [] is no object with keys and values";
}

void tst_ChoicesReader::startup()
{
    compareMessage();
}

static const testMain::Registration<tst_ChoicesReader, testMain::NoApplication> registration;
#include "tst_ChoicesReader.moc"
