// `ktl choices`: a template that is JSON in the form of a choices file, says what can be chosen, and changes nothing.
// Covers choicesCommand.cpp.
#include "cli/choicesParts.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

class tst_ChoicesTemplate : public QObject
{
    Q_OBJECT

private slots:
    static void fedBack_data();
    static void fedBack();
    static void settings_data();
    static void settings();
    static void rows();
    static void aboutEntries_data();
    static void aboutEntries();
    static void anotherType_data();
    static void anotherType();
    static void context();
    static void placesAndModules();
    static void modulesThatStay();
    static void selectorsOfTwins();
    static void standardInput();
    static void mistakes_data();
    static void mistakes();
};

namespace {

QJsonObject templateOf(const QStringList& files)
{
    const CommandRun run = runHere(QStringList{"choices"} + files);
    return run.exitCode == 0 ? QJsonDocument::fromJson(run.output).object() : QJsonObject();
}

QJsonObject deviceOf(const QJsonObject& choices, int position = 0)
{
    return choices.value("devices").toArray().at(position).toObject();
}

} // namespace

void tst_ChoicesTemplate::fedBack_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : QDir(KINETRA_SOURCE_DIR "/samples").entryList({"*.xml"}, QDir::Files))
        QTest::addRow("%s", qPrintable(name)) << name;
}

/// As it is, a template does no more than to select each device.
void tst_ChoicesTemplate::fedBack()
{
    QFETCH(QString, name);
    const QString path = sample(name);
    const CommandRun choices = runHere({"choices", path});
    for (const QByteArray& line : choices.errors.split('\n')) // of what an export loses, and of nothing else
        QVERIFY2(line.isEmpty() || line.endsWith("[startup-data]"), line.constData());
    QCOMPARE(choices.exitCode, 0);
    QByteArrayList selections;
    const int devices = QJsonDocument::fromJson(choices.output).object().value("devices").toArray().size();
    for (int number = 1; number <= devices; ++number)
        selections += "{\"device\": " + QByteArray::number(number) + '}';
    const Conversion unedited = converted({path}, choices.output);
    const Conversion selected = converted({path}, choicesWith(selections.join(',')));
    QVERIFY(!unedited.ktl.isEmpty());
    QCOMPARE(unedited.ktl, selected.ktl);
    QCOMPARE(unedited.run.errors, selected.run.errors); // the warnings of an export, and no others
}

void tst_ChoicesTemplate::settings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("settings"); // keys with simple values
    QTest::addRow("single drive") << "servo-drive.xml"
                                  << QStringList{"device 0x7e570001:0x10400:0x10002", "deviceType SingleDriver",
                                                 "dcMode DcSync0"};
    QTest::addRow("multi-axis drive") << "dual-axis-drive.xml"
                                      << QStringList{"device 0x7e570001:0x20400:0x10005", "deviceType MultiDriver",
                                                     "driveAxes 2", "dcMode DcSync0"};
    QTest::addRow("coupler") << "bus-coupler.xml"
                             << QStringList{"device 0x7e570002:0x5001:0x30001", "deviceType PnpIOBlock",
                                            "configIndex 0x00", "detectIndex 0x00"};
    QTest::addRow("block") << "io-block.xml"
                           << QStringList{"device 0x7e570003:0x16160001:0x10003", "deviceType IOBlock"};
}

void tst_ChoicesTemplate::settings()
{
    QFETCH(QString, name);
    QFETCH(QStringList, settings);
    const QJsonObject device = deviceOf(templateOf({sample(name)}));
    QStringList found;
    for (const char* key : {"device", "deviceType", "driveAxes", "dcMode", "configIndex", "detectIndex"})
        if (device.contains(key))
            found += QLatin1String(key) + QLatin1Char(' ') + device.value(key).toVariant().toString();
    QCOMPARE(found, settings);
}

void tst_ChoicesTemplate::rows()
{
    const CommandRun run = runHere({"choices", sample("io-block.xml")});
    QVERIFY(run.output.contains(R"({"pdo": 1, "index": "0x1a00", "entry": 0, "object": "0x6000:1", )"
                                R"("name": "Inputs 1 to 8", "link": "NONE", "about": {)"));
    const QJsonObject servo = deviceOf(templateOf({sample("servo-drive.xml")}));
    const QJsonArray commands = servo.value("startup").toObject().value("changed").toArray();
    QCOMPARE(commands.size(), 43);
    QCOMPARE(commands.at(37).toObject(),
             (QJsonObject{{"row", 37},
                          {"about", "EoE IP_PS"},
                          {"was", QJsonObject{{"index", "0x00"}, {"subIndex", 0}, {"comment", "eoeinit"}}},
                          {"index", "0x00"},
                          {"subIndex", 0},
                          {"dataBytes", 1},
                          {"data", 0}}));
}

void tst_ChoicesTemplate::aboutEntries_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("line");
    QTest::addColumn<QJsonObject>("about");
    const auto entry = [](const char* direction, int bits, const char* pdo, bool isAssigned) {
        return QJsonObject{{"direction", direction}, {"bits", bits}, {"pdo", pdo}, {"assigned", isAssigned}};
    };
    QJsonObject gap = entry("input", 6, "Coupler state", true);
    gap.insert("gap", true);
    QTest::addRow("output of an assigned PDO") << "io-block.xml"
                                               << "links" << 0 << entry("output", 8, "Digital outputs", true);
    QTest::addRow("input") << "io-block.xml"
                           << "links" << 2 << entry("input", 8, "Digital inputs", true);
    QTest::addRow("output of a PDO that is only offered")
        << "servo-drive.xml"
        << "links" << 7 << entry("output", 32, "Position only, outputs", false);
    QTest::addRow("gap") << "bus-coupler.xml"
                         << "links" << 2 << gap;
    QTest::addRow("module of the file") << "bus-coupler.xml"
                                        << "moduleLinks" << 31 << entry("output", 1, "Outputs", true);
}

/// With each link is told what helps to choose it.
void tst_ChoicesTemplate::aboutEntries()
{
    QFETCH(QString, name);
    QFETCH(QString, list);
    QFETCH(int, line);
    const QJsonArray lines = deviceOf(templateOf({sample(name)})).value(list).toArray();
    QTEST(lines.at(line).toObject().value("about").toObject(), "about");
}

void tst_ChoicesTemplate::anotherType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QStringList>("messages");
    const QString hint = " (deviceType or modules have moved the rows: leave out the lines of a template that are not "
                         "edited) [check]";
    QTest::addRow("drive as a coupler") << "servo-drive.xml" << QByteArray("PnpIOBlock") << QStringList();
    QTest::addRow("coupler as a block keeps its module indexes")
        << "bus-coupler.xml" << QByteArray("IOBlock") << QStringList();
    QTest::addRow("preset coupler has commands of its modules")
        << "bus-coupler.xml" << QByteArray("ManualIOBlock")
        << QStringList{"error: devices[0].startup.changed[3].was.subIndex: 2 stands there, not 0" + hint};
    QTest::addRow("drive axes and modules of a block")
        << "dual-axis-drive.xml" << QByteArray("IOBlock")
        << QStringList{"error: devices[0].driveAxes: a device of the type IOBlock takes only 0 here, only MultiDriver "
                       "takes any number of axes; leave the key out [setting]",
                       "error: devices[0].modules: a device of the type IOBlock has no modules; leave the list out, or "
                       "set a deviceType that takes modules by hand (MultiDriver, Special, ManualIOBlock) "
                       "[module-type]"};
}

/// A template with another type only: what no longer fits is told, with what to leave out.
void tst_ChoicesTemplate::anotherType()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, type);
    QByteArray choices = runHere({"choices", sample(name)}).output;
    const int start = choices.indexOf("\n      \"deviceType\": \"") + 1;
    choices.replace(start, choices.indexOf('\n', start) - start, "      \"deviceType\": \"" + type + "\",");
    QTEST(messagesOf(converted({sample(name)}, choices)).filter("error: "), "messages");
}

void tst_ChoicesTemplate::context()
{
    const QJsonObject choices = templateOf({sample("io-block.xml"), sample("servo-drive.xml")});
    const QJsonObject about = choices.value("about").toObject();
    QCOMPARE(about.value("deviceTypes").toArray().size(), 6);
    QCOMPARE(about.value("deviceTypes").toArray().at(2).toObject(),
             (QJsonObject{{"deviceType", "MultiDriver"}, {"shownAs", "3:MultiDriver(多电机)"}}));
    QCOMPARE(about.value("linksOfOutputs").toArray(), (QJsonArray{"NONE", "DOUT", "AOUT16", "AOUT32", "FAOUT"}));
    QCOMPARE(about.value("linksOfInputs").toArray(),
             (QJsonArray{"NONE", "DIN", "AIN16", "AIN32", "FAIN", "ENCODER32"}));
    const QJsonObject ofServo = deviceOf(choices, 2).value("about").toObject();
    QCOMPARE(ofServo.value("number").toInt(), 3);
    QCOMPARE(ofServo.value("file").toString(), sample("servo-drive.xml"));
    QCOMPARE(ofServo.value("dcModes").toArray().at(1).toObject(),
             (QJsonObject{{"dcMode", 1},
                          {"name", "DcSync01"},
                          {"description", "DC, Sync0 with advanced Sync1"},
                          {"assignActivate", "0x700"}}));
}

void tst_ChoicesTemplate::placesAndModules()
{
    const QJsonObject device = deviceOf(templateOf({sample("dual-axis-drive.xml")}));
    const QJsonArray modules = device.value("modules").toArray();
    QCOMPARE(modules.size(), 4);
    QCOMPARE(modules.at(0).toObject().value("module").toString(), QStringLiteral("0x20001"));
    QVERIFY(modules.at(1).toObject().value("module").isNull());
    const QJsonObject about = device.value("about").toObject();
    QCOMPARE(
        about.value("slots").toArray().at(3).toObject(),
        (QJsonObject{
            {"slot", "Encoder-->Axis 2"}, {"firstPlace", 3}, {"places", 1}, {"modulesTaken", QJsonArray{"0x20011"}}}));
    QCOMPARE(about.value("modulesOfFile").toArray().size(), 4);
    // A coupler that finds its modules takes none by hand, but tells what it could take.
    const QJsonObject coupler = deviceOf(templateOf({sample("bus-coupler.xml")}));
    QVERIFY(!coupler.contains("modules"));
    QCOMPARE(coupler.value("about").toObject().value("modulesOfFile").toArray().size(), 7);
    QVERIFY(!coupler.value("moduleLinks").toArray().isEmpty());
}

/// The default module of the second slot bears the number of its slot, 1, which is a place of the first slot.
void tst_ChoicesTemplate::modulesThatStay()
{
    const QByteArray esi =
        "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type>T</Type>"
        "<Profile><ProfileNo>100</ProfileNo></Profile><Slots><Slot MaxInstances=\"3\"><Name>A</Name></Slot>"
        "<Slot MaxInstances=\"1\"><Name>B</Name><ModuleIdent Default=\"1\">7</ModuleIdent></Slot></Slots></Device>"
        "</Devices><Modules><Module><Type ModuleIdent=\"7\">M</Type><Name>Seven</Name></Module></Modules>"
        "</Descriptions></EtherCATInfo>";
    const Workplace place;
    const QJsonObject device = deviceOf(templateOf({place.make("a.xml", esi)}));
    const QJsonArray places = device.value("about").toObject().value("slots").toArray();
    QCOMPARE(places.at(0).toObject(),
             (QJsonObject{{"slot", "A"}, {"firstPlace", 0}, {"places", 3}, {"modulesTaken", "any"}}));
    QCOMPARE(places.at(1).toObject().value("modulesThatStay").toArray(), QJsonArray{"Seven"});
    for (const QJsonValue& module : device.value("modules").toArray())
        QVERIFY(module.toObject().value("module").isNull());
}

/// A device that shares its identity with another one is named by its number.
void tst_ChoicesTemplate::selectorsOfTwins()
{
    const QJsonObject choices = templateOf({sample("servo-drive.xml"), sample("servo-drive.xml")});
    QCOMPARE(deviceOf(choices, 0).value("device").toString(), QStringLiteral("1"));
    QCOMPARE(deviceOf(choices, 1).value("device").toString(), QStringLiteral("2"));
}

void tst_ChoicesTemplate::standardInput()
{
    CommandStart start;
    start.inputFile = sample("io-block.xml");
    const CommandRun run = runKtl({"choices", "-"}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(deviceOf(QJsonDocument::fromJson(run.output).object()).value("about").toObject().value("file").toString(),
             QStringLiteral("<stdin>"));
}

void tst_ChoicesTemplate::mistakes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("no file") << QStringList{"choices"} << QByteArray("no ESI file is given");
    QTest::addRow("no such file") << QStringList{"choices", "gone.xml"} << QByteArray("gone.xml: error: ");
    QTest::addRow("unknown option") << QStringList{"choices", "--all", "a.xml"} << QByteArray("all");
}

void tst_ChoicesTemplate::mistakes()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const CommandRun run = runHere(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(message), run.errors.constData());
}

static const testMain::Registration<tst_ChoicesTemplate, QCoreApplication> registration;
#include "tst_ChoicesTemplate.moc"
