// `ktl choices --from`: choices that are found make the same bytes again.
#include "cli/tracedExport.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

class tst_ChoicesFrom : public QObject
{
    Q_OBJECT

private slots:
    static void samples_data();
    static void samples();
    static void roundTrip_data();
    static void roundTrip();
    static void clickedDevice_data();
    static void clickedDevice();
    static void wholeText();
    static void moduleLinksAreOfTheFile();
    static void severalFiles();
    static void someDevices();
    static void twinIsFound();
    static void twinsOfTwoFiles();
    static void dateIsThatOfTheExport_data();
    static void dateIsThatOfTheExport();
    static void dateIsAllOfTheTime();
};

namespace {

QStringList pathsOf(const QStringList& names)
{
    QStringList paths;
    for (const QString& name : names)
        paths += sample(name + QStringLiteral(".xml"));
    return paths;
}

QJsonObject json(const CommandRun& run)
{
    return QJsonDocument::fromJson(run.output).object();
}

/// The choices of a found file for one of the devices in its list.
QJsonObject deviceIn(const CommandRun& run, int place = 0)
{
    return json(run).value("devices").toArray().at(place).toObject();
}

/// Finds the choices of an export and makes it again with them.
/// @return  what was found; an exit code of -1 if the second export has other bytes
CommandRun foundAndMade(const QStringList& paths, const QByteArray& ktl)
{
    const Workplace place;
    CommandRun run = choicesFrom(place, paths, ktl);
    if (ktl.isEmpty() || converted(paths, run.output).ktl != ktl)
        run.exitCode = -1;
    return run;
}

} // namespace

void tst_ChoicesFrom::samples_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"bus-coupler", "dual-axis-drive", "io-block", "oversampling-terminal", "servo-drive"})
        QTest::addRow("%s", name) << name;
}

/// As they were loaded: nothing was done, so nothing is found.
void tst_ChoicesFrom::samples()
{
    QFETCH(QString, name);
    const CommandRun run = foundAndMade(pathsOf({name}), exportOf({name}));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("devices").toArray(), QJsonArray());
    QVERIFY(!json(run).contains("export"));
}

void tst_ChoicesFrom::roundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("members"); // of the first device
    const auto row = [](const char* test, const char* name, const char* members) {
        QTest::addRow("%s", test) << name << QByteArray(members);
    };
    row("type", "servo-drive", R"("deviceType": "PnpIOBlock")");
    row("type with axes", "bus-coupler", R"("deviceType": "MultiDriver", "driveAxes": 7)");
    row("axes", "dual-axis-drive", R"("driveAxes": 18)");
    row("no list of modules", "bus-coupler", R"("takesModuleList": false)");
    row("mode", "servo-drive", R"("dcMode": "DcSync01")");
    row("modes", "servo-drive", R"("dcMode": ["DcSync01", "SmSync"])");
    row("least size", "io-block", R"("syncManagers": [{"syncManager": 0, "minSize": 2}])");
    row("link of an output", "io-block", R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])");
    row("link of an input", "io-block", R"("links": [{"pdo": 1, "entry": 0, "link": "AIN16"}])");
    row("link of a sample", "oversampling-terminal", R"("links": [{"pdo": 0, "entry": 0, "link": "AOUT16"}])");
    row("entries", "io-block",
        R"("entries": {"removed": [{"pdo": 1, "entry": 0}], "added": [{"pdo": 0, "behind": 0, "link": "DOUT"}]})");
    row("all entries of a PDO", "io-block",
        R"("entries": {"removed": [{"pdo": 1, "entry": 0}, {"pdo": 1, "entry": 1}]})");
    row("changed command", "servo-drive", R"("startup": {"changed": [{"row": 0, "data": 7}]})");
    row("another object", "servo-drive", R"("startup": {"changed": [{"row": 3, "index": "0x2000"}]})");
    row("removed commands", "servo-drive", R"("startup": {"removed": [{"row": 0}, {"row": 3}]})");
    row("added commands", "servo-drive",
        R"("startup": {"added": [{"behind": 2, "index": "0x2000", "dataBytes": 2, "data": 9},
                                 {"behind": 2, "index": "0x2000", "subIndex": 1, "dataBytes": 1, "data": 0}]})");
    row("value that the bus cuts", "servo-drive",
        R"("startup": {"changed": [{"row": 0, "dataBytes": 1, "data": 256, "unchecked": true}]})");
    row("command of EoE", "servo-drive", R"("startup": {"changed": [{"row": 37, "dataBytes": 4, "data": 3}]})");
    row("modules of axes", "dual-axis-drive",
        R"("modules": [{"place": 0, "module": null}, {"place": 1, "module": "0x20011"}])");
    row("modules of a preset coupler", "bus-coupler",
        R"("deviceType": "ManualIOBlock", "modules": [{"place": 0, "module": null}, {"place": 5, "module": "0x404"}])");
    row("modules of a special device with links", "bus-coupler",
        R"("deviceType": "Special", "modules": [{"place": 2, "module": "0x404"}, {"place": 3, "module": "0x404"}],
           "links": [{"pdo": "0x1aff", "entry": "0xf100:3", "link": "AIN16"},
                     {"pdo": "0x1603", "entry": 1, "link": "AOUT16"}])");
}

/// What was chosen by hand shows in the export, is found without a word, and makes the export again.
void tst_ChoicesFrom::roundTrip()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, members);
    const QByteArray ktl = exportOf({name}, choicesOfFirst(members));
    QVERIFY(ktl != exportOf({name}));
    QVERIFY(ktl != exportOf({name}, choicesOfFirst({})));
    const CommandRun run = foundAndMade(pathsOf({name}), ktl);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("devices").toArray().size(), 1);
}

void tst_ChoicesFrom::clickedDevice_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isListed");
    QTest::addRow("nothing to compute") << "io-block" << false;
    QTest::addRow("default modules count for lengths") << "dual-axis-drive" << true;
    QTest::addRow("default modules bring commands") << "bus-coupler" << true;
}

/// A click shows only where it changes something.
void tst_ChoicesFrom::clickedDevice()
{
    QFETCH(QString, name);
    const CommandRun run = foundAndMade(pathsOf({name}), exportOf({name}, choicesOfFirst({})));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QTEST(!json(run).value("devices").toArray().isEmpty(), "isListed");
}

void tst_ChoicesFrom::wholeText()
{
    const QByteArray choices = choicesOfFirst(
        R"("deviceType": "Special", "modules": [{"place": 1, "module": "MB-DO16"}, {"place": 0, "module": null}],
           "links": [{"pdo": "0x1601", "entry": 1, "link": "DOUT"}], "startup": {"changed": [{"row": 0, "data": 255}]})");
    const Workplace place;
    const CommandRun run = choicesFrom(place, pathsOf({"bus-coupler"}), exportOf({"bus-coupler"}, choices));
    const QByteArray expected = R"({
  "format": "kinetra-choices",
  "version": 1,
  "about": {"date":"2026-11-21T10:00:00Z","from":"m.ktl"},
  "devices": [
    {
      "device": "0x7e570002:0x5001:0x30001",
      "about": {"name":"MB-C100 bus coupler for 16 modules","type":"MB-C100"},
      "deviceType": "Special",
      "modules": [
        {"place": 0, "module": null},
        {"place": 1, "module": "0x216", "about": "MB-DO16 sixteen digital outputs"}
      ],
      "links": [
        {"pdo": 1, "index": "0x1601", "entry": 1, "object": "0x7010:2", "name": "Output 2", "link": "DOUT"}
      ],
      "startup": {
        "changed": [
          {"row": 0, "was": {"comment":"clear pdo 0x1c12 entry","index":"0x1c12","subIndex":0}, "dataBytes": 1, "data": 255}
        ]
      }
    }
  ]
}
)";
    QCOMPARE(QString::fromUtf8(run.output), QString::fromUtf8(expected));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

/// They are with the first device of the file that can be named.
void tst_ChoicesFrom::moduleLinksAreOfTheFile()
{
    const QByteArray link = R"("moduleLinks": [{"module": "MB-AO04", "pdo": 0, "entry": 1, "link": "AOUT16"}])";
    const CommandRun run = foundAndMade(pathsOf({"bus-coupler"}), exportOf({"bus-coupler"}, choicesOfFirst(link)));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    const QJsonArray links = deviceIn(run).value("moduleLinks").toArray();
    QCOMPARE(links.size(), 1);
    QCOMPARE(links.at(0).toObject().value("module").toString(), QStringLiteral("0x404"));
    QCOMPARE(links.at(0).toObject().value("link").toString(), QStringLiteral("AOUT16"));
}

void tst_ChoicesFrom::severalFiles()
{
    const QStringList names{"servo-drive", "bus-coupler", "io-block", "dual-axis-drive", "oversampling-terminal"};
    const QByteArray choices = choicesWith(R"({"device": "FB-0504M", "deviceType": "SingleDriver"},
        {"device": "MB-C100", "deviceType": "ManualIOBlock", "modules": [{"place": 2, "module": "0x304"}]},
        {"device": 1, "dcMode": "SmSync"})");
    const CommandRun run = foundAndMade(pathsOf(names), exportOf(names, choices));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QStringList devices; // in the order of the files
    for (const QJsonValue& device : json(run).value("devices").toArray())
        devices += device.toObject().value("device").toString();
    QCOMPARE(devices,
             (QStringList{"0x7e570001:0x10400:0x10002", "0x7e570002:0x5001:0x30001", "0x7e570003:0x5040002:0x20001"}));
}

/// Devices that are not in the export are left out of the next one too.
void tst_ChoicesFrom::someDevices()
{
    const QStringList names{"io-block", "oversampling-terminal"};
    const QByteArray choices = R"({"format": "kinetra-choices", "version": 1, "export": [2, 3], "devices": []})";
    const CommandRun run = foundAndMade(pathsOf(names), exportOf(names, choices));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("export").toArray(),
             (QJsonArray{"0x7e570003:0x5040002:0x20001", "0x7e570004:0x4020001:0x10001"}));
    QCOMPARE(json(run).value("devices").toArray(), QJsonArray());
}

/// Devices of one identity are told apart by what they became, and named by their numbers.
void tst_ChoicesFrom::twinIsFound()
{
    const Workplace twins;
    const QStringList paths{sample(), twins.make("twin.xml", contentOf(sample()))};
    const QByteArray choices = choicesWith(R"({"device": 3, "links": [{"pdo": 0, "entry": 0, "link": "AOUT16"}]})");
    const CommandRun run = foundAndMade(paths, converted(paths, choices).ktl);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("devices").toArray().size(), 1);
    QCOMPARE(deviceIn(run).value("device").toString(), QStringLiteral("3"));
}

/// The device of the second file has another start address, so the export can be of that one only.
void tst_ChoicesFrom::twinsOfTwoFiles()
{
    const Workplace twins;
    const QByteArray other = contentOf(sample()).replace("#x0F00", "#x0F80");
    const QStringList paths{sample(), twins.make("twin.xml", other)};
    const QByteArray choices = R"({"format": "kinetra-choices", "version": 1, "export": [3], "devices": []})";
    const CommandRun run = foundAndMade(paths, converted(paths, choices).ktl);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("export").toArray(), QJsonArray{"3"});
}

void tst_ChoicesFrom::dateIsThatOfTheExport_data()
{
    QTest::addColumn<QStringList>("variables");
    QTest::addRow("UTC") << QStringList{"TZ=UTC"};
    QTest::addRow("a place where the clock leaves that hour out") << QStringList{"TZ=Europe/Berlin"};
    QTest::addRow("the other side of the earth") << QStringList{"TZ=Pacific/Auckland"};
}

/// Wherever it is read, and it makes the export again there.
void tst_ChoicesFrom::dateIsThatOfTheExport()
{
    CommandStart start;
    QFETCH(QStringList, variables);
    start.variables = variables;
    const Workplace place;
    start.folder = place.folder();
    const QString esi = sample("bus-coupler.xml");
    const QString time = QStringLiteral("2026-03-29T02:30:59Z");
    QCOMPARE(runKtl({"convert", esi, "-o", "m.ktl", "--date", time}, start).exitCode, 0);
    const CommandRun run = runKtl({"choices", esi, "--from", "m.ktl"}, start);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(json(run).value("about").toObject(), (QJsonObject{{"date", time}, {"from", "m.ktl"}}));
    place.make(QStringLiteral("found.json"), run.output);
    const QStringList again{"convert", esi, "-o", "again.ktl", "--date", time, "--choices", "found.json"};
    QCOMPARE(runKtl(again, start).exitCode, 0);
    QCOMPARE(place.content("again.ktl"), place.content("m.ktl"));
}

/// Nothing else of the choices follows from the time.
void tst_ChoicesFrom::dateIsAllOfTheTime()
{
    const Workplace place;
    const QString esi = sample("dual-axis-drive.xml");
    place.make(QStringLiteral("c.json"), choicesOfFirst(R"("driveAxes": 3)"));
    QList<QByteArray> texts;
    for (const char* time : {"1999-12-31T23:59:59Z", "2026-11-21T10:00:00Z"}) {
        const QStringList convert{"convert", esi, "-o", "m.ktl", "--force", "--choices", "c.json", "--date", time};
        QCOMPARE(runHere(convert, place.folder()).exitCode, 0);
        const CommandRun run = runHere({"choices", esi, "--from", "m.ktl"}, place.folder());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(time));
        texts += QByteArray(run.output).replace(time, "TIME");
    }
    QCOMPARE(texts.at(0), texts.at(1));
}

static const testMain::Registration<tst_ChoicesFrom, QCoreApplication> registration;
#include "tst_ChoicesFrom.moc"
