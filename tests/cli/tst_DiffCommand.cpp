// `ktl diff`: arguments, devices, choices, forms, exit status, and files that cannot be compared.
// Covers diffCommand.cpp, diffRequest.cpp, pairedDevices.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class tst_DiffCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void refusals_data();
    void refusals();
    void lines();
    void weights_data();
    void weights();
    void devices_data();
    void devices();
    void unusableDevices_data();
    void unusableDevices();
    void choices_data();
    void choices();
    void choicesOfTwoEsiFiles();
    void whatAKtlFileCannotHave();
    void json();
    void jsonOfAddedDevices();
    void colors_data();
    void colors();
    void atATerminal();
    void unusableFiles_data();
    void unusableFiles();
    void noFile();
    void cutKtlFile();
    void deviceThatCannotBeExported();
    void namesOfFiles();
    void throughTheProgram();

private:
    [[nodiscard]] CommandRun runDiff(const QStringList& arguments) const
    {
        return runHere(QStringList{"diff"} + arguments, m_place.folder());
    }

    Workplace m_place;
};

namespace {

/// A device with one PDO.
QByteArray deviceOf(const QByteArray& product, const QByteArray& name, const QByteArray& startAddress,
                    const QByteArray& pdo)
{
    return "<Device><Type ProductCode='" + product + "' RevisionNo='1'>T</Type><Name>" + name
           + "</Name><Sm StartAddress='" + startAddress
           + "' ControlByte='#x24' Enable='1'>Outputs</Sm><RxPdo Sm='0' Fixed='" + pdo
           + "'><Index>#x1600</Index><Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry>"
             "</RxPdo></Device>\n";
}

const QByteArray driveHead = "0x7e570009:0x1:0x1 \"Drive\" -> 0x7e570009:0x1:0x1 \"Motor\"\n";
const QByteArray driveName = "  text       name: \"Drive\" -> \"Motor\"\n             old.xml:4, new.xml:4\n";
const QByteArray driveAddress =
    "  breaking   sync manager 0, start address: 0x1000 -> 0x1100\n             old.xml:4, new.xml:4\n";
const QByteArray couplerHead = "0x7e570009:0x2:0x1 \"Coupler\"\n";
const QByteArray couplerPdo = "  behaviour  RxPdo 0x1600, fixed: no -> yes\n             old.xml:5, new.xml:5\n";

} // namespace

/// In the new file, the drive has another name and address, and the PDO of the coupler is fixed.
void tst_DiffCommand::initTestCase()
{
    m_place.make("old.xml", esiWith(deviceOf("1", "Drive", "#x1000", "0") + deviceOf("2", "Coupler", "#x1000", "0")));
    m_place.make("new.xml", esiWith(deviceOf("1", "Motor", "#x1100", "0") + deviceOf("2", "Coupler", "#x1000", "1")));
    m_place.make("link.json", R"({"format": "kinetra-choices", "version": 1, "devices": [
        {"device": "1", "links": [{"pdo": 0, "entry": 0, "link": "AOUT16"}]}]})");
    m_place.make("empty.xml", "");
    m_place.make("broken.xml", "<EtherCATInfo>\n<Vendor></Vendo>");
    m_place.make("notes.txt", "notes");
    for (const QStringList& options : {QStringList{"old.ktl"}, QStringList{"linked.ktl", "--choices=link.json"}})
        QCOMPARE(runHere(QStringList{"convert", "old.xml", "-o"} + options, m_place.folder()).exitCode, 0);
}

void tst_DiffCommand::cleanup()
{
    qunsetenv("NO_COLOR");
}

void tst_DiffCommand::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("problem");
    const auto add = [](const char* name, const QStringList& arguments, const char* problem) {
        QTest::addRow("%s", name) << arguments << QByteArray(problem);
    };
    add("no file", {}, "no file is given");
    add("three files", {"a", "b", "c"}, "only two files can be compared");
    const char* const one = "one file is given; two are compared, or with --device and --with two devices of one";
    add("one file", {"a"}, one);
    add("one file and a device", {"a", "--device=1"}, one);
    const char* const lone = "--with goes with one --device: they name the old device and the new one";
    add("no old device", {"a", "--with=1"}, lone);
    add("two old devices", {"a", "b", "--device=1", "--device=2", "--with=1"}, lone);
    add("two new devices", {"a", "b", "--device=1", "--with=1", "--with=2"}, "--with can be given once only");
    add("standard input twice", {"-", "-"}, "standard input can be read once only");
    add("standard input for choices too", {"-", "a", "--choices=-"}, "standard input can be read once only");
    add("choices twice", {"a", "b", "--choices=c", "--choices=d"}, "--choices can be given once only");
    add("weight twice", {"a", "b", "--weight=text", "--weight=text"}, "--weight can be given once only");
    add("no weight", {"a", "b", "--weight=Text"}, "\"Text\" is no weight; there are breaking, behaviour and text");
    add("colors twice", {"a", "b", "--color=auto", "--color=auto"}, "--color can be given once only");
    add("no time for colors", {"a", "b", "--color="}, "\"\" is no value for --color; there are auto, always and never");
}

void tst_DiffCommand::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, problem);
    const CommandRun run = runDiff(arguments);
    QCOMPARE(run.errors, "ktl: error: " + problem + " (see: ktl diff --help)\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_DiffCommand::lines()
{
    const CommandRun run = runDiff({"old.xml", "new.xml"});
    QCOMPARE(run.output, driveHead + driveName + driveAddress + '\n' + couplerHead + couplerPdo);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 1);
    const CommandRun same = runDiff({"new.xml", "./new.xml"});
    QCOMPARE(same.output + same.errors, QByteArray());
    QCOMPARE(same.exitCode, 0);
}

void tst_DiffCommand::weights_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("status");
    const QByteArray all = driveHead + driveName + driveAddress + '\n' + couplerHead + couplerPdo;
    QTest::addRow("text") << QStringList{"--weight=text"} << all << 1;
    QTest::addRow("behaviour") << QStringList{"--weight=behaviour"}
                               << driveHead + driveAddress + '\n' + couplerHead + couplerPdo << 1;
    QTest::addRow("breaking") << QStringList{"--weight=breaking"} << driveHead + driveAddress << 1;
    QTest::addRow("nothing of the weight") << QStringList{"--weight=breaking", "--device=2"} << QByteArray() << 0;
}

void tst_DiffCommand::weights()
{
    QFETCH(QStringList, arguments);
    const CommandRun run = runDiff(QStringList{"old.xml", "new.xml"} + arguments);
    QTEST(run.output, "output");
    QTEST(run.exitCode, "status");
}

void tst_DiffCommand::devices_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("output");
    const auto add = [](const char* name, const QStringList& arguments, const QByteArray& output) {
        QTest::addRow("%s", name) << arguments << output;
    };
    const QByteArray drive = driveHead + driveName + driveAddress;
    const QByteArray coupler = couplerHead + couplerPdo;
    add("by number", {"old.xml", "new.xml", "--device=2"}, coupler);
    add("by the old name", {"old.xml", "new.xml", "--device=Drive"}, drive);
    add("by the new name", {"old.xml", "new.xml", "--device=Motor"}, drive);
    add("by identity", {"old.xml", "new.xml", "--device=0x7e570009:2:1"}, coupler);
    add("by several", {"old.xml", "new.xml", "--device=Coupler", "--device=1"}, drive + '\n' + coupler);
    add("by a pattern", {"old.xml", "new.xml", "--device=*"}, drive + '\n' + coupler);
    const QByteArray product = "  breaking   product code: 0x1 -> 0x2\n             old.xml:4, ";
    const QByteArray name = "  text       name: \"Drive\" -> \"Coupler\"\n             old.xml:4, ";
    const QByteArray head = "0x7e570009:0x1:0x1 \"Drive\" -> 0x7e570009:0x2:0x1 \"Coupler\"\n";
    add("two of one file", {"old.xml", "--device=1", "--with=2"},
        head + product + "old.xml:5\n" + name + "old.xml:5\n");
    add("two of two files", {"old.xml", "new.xml", "--device=Drive", "--with=Coupler", "--weight=breaking"},
        head + product + "new.xml:5\n");
}

void tst_DiffCommand::devices()
{
    QFETCH(QStringList, arguments);
    const CommandRun run = runDiff(arguments);
    QTEST(run.output, "output");
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 1);
}

void tst_DiffCommand::unusableDevices_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("problem");
    const auto add = [](const char* name, const QStringList& arguments, const char* problem) {
        QTest::addRow("%s", name) << arguments << QByteArray(problem);
    };
    add("in neither file", {"old.xml", "new.xml", "--device=9"}, "there is no device 9: the numbers go from 1 to 2");
    add("one of several", {"old.xml", "new.xml", "--device=9", "--device=1"},
        "there is no device 9: the numbers go from 1 to 2");
    add("not in the new file", {"old.xml", "new.xml", "--device=1", "--with=3"},
        "there is no device 3: the numbers go from 1 to 2");
    add("several old ones", {"old.xml", "new.xml", "--device=*", "--with=1"},
        "--device and --with take one device each, \"*\" means 2");
    add("several new ones", {"old.xml", "--device=1", "--with=T"}, "\"T\" means 2 devices instead of one");
}

void tst_DiffCommand::unusableDevices()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, problem);
    const CommandRun run = runDiff(arguments);
    QVERIFY2(run.errors.startsWith("ktl: error: " + problem + '\n'), run.errors.constData());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_DiffCommand::choices_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("output");
    const QByteArray link = "  behaviour  RxPdo 0x1600, entry 0x7000:1, link: ";
    const QByteArray places = "\n             old.xml:4, ";
    const auto add = [&](const char* name, const QStringList& arguments, const QByteArray& values) {
        const QByteArray head = "0x7e570009:0x1:0x1 \"Drive\" -> 0x7e570009:0x1:0x1\n";
        QTest::addRow("%s", name) << arguments << (values.isEmpty() ? QByteArray() : head + link + values + places);
    };
    add("none, none", {"old.xml", "old.ktl"}, {});
    add("none, made", {"old.xml", "linked.ktl"}, "NONE Type -> AOUT16 Type");
    add("made, none", {"old.xml", "old.ktl", "--choices=link.json"}, "AOUT16 Type -> NONE Type");
    add("made, made", {"old.xml", "linked.ktl", "--choices=link.json"}, {});
    add("the ESI file last", {"linked.ktl", "old.xml", "--choices=link.json"}, {});
}

void tst_DiffCommand::choices()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, output);
    const CommandRun run = runDiff(arguments);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output.left(output.size()), output);
    QCOMPARE(run.output.isEmpty(), output.isEmpty());
    QCOMPARE(run.exitCode, output.isEmpty() ? 0 : 1);
}

void tst_DiffCommand::choicesOfTwoEsiFiles()
{
    for (const char* file : {"old.xml", "old.ktl"}) {
        const CommandRun run = runDiff({file, file, "--choices=link.json"});
        QCOMPARE(run.errors, QByteArray("ktl: error: --choices goes with an ESI file and a KTL file\n"));
        QCOMPARE(run.exitCode, 2);
    }
    const CommandRun misfit = runDiff({"broken.xml", "old.ktl", "--choices=gone.json"});
    QCOMPARE(misfit.errors, QByteArray("broken.xml:2:16: error: tag mismatch\n"));
    const CommandRun missing = runDiff({"old.xml", "old.ktl", "--choices=gone.json"});
    QVERIFY(missing.errors.startsWith("gone.json: error: "));
    QCOMPARE(missing.output, QByteArray());
    QCOMPARE(missing.exitCode, 2);
}

void tst_DiffCommand::whatAKtlFileCannotHave()
{
    const CommandRun run = runDiff({"old.xml", "old.ktl", "--device=1", "--all"});
    QVERIFY(run.output.contains("  text       type: \"T\" -> none\n             old.xml:4, old.ktl:0x00\n"));
    QVERIFY(!run.output.contains("  behaviour  ") && !run.output.contains("  breaking  "));
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(runDiff({"old.xml", "old.ktl", "--device=1", "--all", "--weight=behaviour"}).exitCode, 0);
}

void tst_DiffCommand::json()
{
    const CommandRun run = runDiff({"old.xml", "new.xml", "--json", "--weight=behaviour", "--device=2"});
    const auto device = [](const char* name, int line) {
        return QJsonObject{{"identity", "0x7e570009:0x2:0x1"}, {"type", "T"}, {"name", name}, {"line", line}};
    };
    const QJsonObject difference{{"weight", "behaviour"},
                                 {"change", "changed"},
                                 {"area", "pdo"},
                                 {"part", "RxPdo 0x1600"},
                                 {"value", "fixed"},
                                 {"before", "no"},
                                 {"after", "yes"},
                                 {"placeBefore", QJsonObject{{"line", 5}}},
                                 {"placeAfter", QJsonObject{{"line", 5}}}};
    const QJsonObject pair{
        {"before", device("Coupler", 5)}, {"after", device("Coupler", 5)}, {"differences", QJsonArray{difference}}};
    const QJsonObject expected{{"before", QJsonObject{{"file", "old.xml"}, {"kind", "esi"}}},
                               {"after", QJsonObject{{"file", "new.xml"}, {"kind", "esi"}}},
                               {"devices", QJsonArray{pair}},
                               {"summary", QJsonObject{{"breaking", 0}, {"behaviour", 1}, {"text", 0}}}};
    QCOMPARE(QJsonDocument::fromJson(run.output).object(), expected);
    QCOMPARE(run.exitCode, 1);
    const CommandRun same = runDiff({"old.ktl", "old.ktl", "--json"});
    const QJsonObject whole = QJsonDocument::fromJson(same.output).object();
    QCOMPARE(whole.value("after"), QJsonValue(QJsonObject{{"file", "old.ktl"}, {"kind", "ktl"}}));
    QCOMPARE(whole.value("devices"), QJsonValue(QJsonArray()));
    QCOMPARE(same.exitCode, 0);
}

void tst_DiffCommand::jsonOfAddedDevices()
{
    const Workplace place;
    place.make("one.xml", esiWith(deviceOf("1", "Drive", "#x1000", "0")));
    place.make("two.xml", esiWith(deviceOf("1", "Drive", "#x1000", "0") + deviceOf("2", "Coupler", "#x1000", "0")));
    const CommandRun run = runHere({"diff", "one.xml", "two.xml", "--json"}, place.folder());
    const QJsonArray pairs = QJsonDocument::fromJson(run.output).object().value("devices").toArray();
    QCOMPARE(pairs.size(), 1);
    QVERIFY(pairs[0].toObject().value("before").isNull());
    QCOMPARE(pairs[0].toObject().value("after").toObject().value("name").toString(), QStringLiteral("Coupler"));
    const QJsonObject difference = pairs[0].toObject().value("differences").toArray().at(0).toObject();
    QCOMPARE(difference.value("change").toString(), QStringLiteral("added"));
    QVERIFY(difference.value("placeBefore").isNull());
    QVERIFY(!difference.contains("value"));
    QCOMPARE(run.exitCode, 1);
    const CommandRun removed = runHere({"diff", "two.xml", "one.xml"}, place.folder());
    QCOMPARE(removed.output, couplerHead + "  breaking   device removed\n             two.xml:5\n");
}

void tst_DiffCommand::colors_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("isTerminal");
    QTest::addColumn<QByteArray>("noColor");
    QTest::addColumn<bool>("hasColors");
    QTest::addRow("a pipe") << QStringList{} << false << QByteArray() << false;
    QTest::addRow("a terminal") << QStringList{} << true << QByteArray() << true;
    QTest::addRow("a terminal, said") << QStringList{"--color=auto"} << true << QByteArray() << true;
    QTest::addRow("a terminal, not wanted") << QStringList{"--color=never"} << true << QByteArray() << false;
    QTest::addRow("a terminal, never wanted") << QStringList{} << true << QByteArray("1") << false;
    QTest::addRow("a pipe, wanted") << QStringList{"--color=always"} << false << QByteArray("1") << true;
}

void tst_DiffCommand::colors()
{
    QFETCH(QStringList, options);
    QFETCH(bool, isTerminal);
    QFETCH(QByteArray, noColor);
    qputenv("NO_COLOR", noColor);
    const auto columns = isTerminal ? std::make_optional<std::size_t>(200) : std::nullopt;
    const CommandRun run = runHere(QStringList{"diff", "old.xml", "new.xml"} + options, m_place.folder(), 1, columns);
    QTEST(run.output.contains("\x1b[31m  breaking   \x1b[0msync manager 0, start address: "), "hasColors");
    QTEST(run.output.contains("\x1b[33m  behaviour  \x1b[0mRxPdo 0x1600, "), "hasColors");
    QTEST(run.output.contains('\x1b'), "hasColors");
}

/// Lines fit, and the last one counts.
void tst_DiffCommand::atATerminal()
{
    const QStringList call{"diff", "old.xml", "new.xml", "--color=never", "--device=1"};
    QCOMPARE(runHere(call, m_place.folder(), 1, 40).output,
             QByteArray("0x7e570009:0x1:0x1 \"Drive\" ->\n0x7e570009:0x1:0x1 \"Motor\"\n"
                        "  text       name: \"Drive\" -> \"Motor\"\n             old.xml:4, new.xml:4\n"
                        "  breaking   sync manager 0, start\n             address: 0x1000 -> 0x1100\n"
                        "             old.xml:4, new.xml:4\n\n"
                        "2 differences: 1 breaking, 0 behaviour, 1 text\n"));
    QCOMPARE(runHere({"diff", "old.xml", "old.ktl"}, m_place.folder(), 1, 80).output, QByteArray("0 differences\n"));
}

void tst_DiffCommand::unusableFiles_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QByteArray>("errors");
    const QByteArray gone = ": error: the file cannot be read: No such file or directory\n";
    const QByteArray broken = "broken.xml:2:16: error: tag mismatch\n";
    QTest::addRow("both are missing") << QStringList{"a.xml", "b.ktl"} << "a.xml" + gone + "b.ktl" + gone;
    QTest::addRow("the new one is broken") << QStringList{"old.xml", "broken.xml"} << broken;
    QTest::addRow("both are the same broken one")
        << QStringList{"broken.xml", "./broken.xml"} << broken + "./" + broken;
    QTest::addRow("empty") << QStringList{"empty.xml", "old.ktl"}
                           << QByteArray("empty.xml: error: the file is empty\n");
    QTest::addRow("neither kind") << QStringList{"old.xml", "notes.txt"}
                                  << QByteArray("notes.txt: error: this is neither an ESI file nor a KTL file\n");
    QTest::addRow("a folder") << QStringList{".", "old.xml"}
                              << QByteArray(".: error: the file cannot be read: this is a folder\n");
}

void tst_DiffCommand::unusableFiles()
{
    QFETCH(QStringList, files);
    for (const char* form : {"--weight=text", "--json"}) {
        const CommandRun run = runDiff(files + QStringList{QString::fromLatin1(form)});
        QTEST(run.errors, "errors");
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.exitCode, 2);
    }
}

/// Git has this name for the side on which a file is not.
void tst_DiffCommand::noFile()
{
    const CommandRun added = runDiff({"/dev/null", "old.xml", "--device=1"});
    QCOMPARE(added.output, QByteArray("0x7e570009:0x1:0x1 \"Drive\"\n"
                                      "  behaviour  device added\n             old.xml:4\n"));
    QCOMPARE(added.errors, QByteArray());
    QCOMPARE(added.exitCode, 1);
    const CommandRun gone = runDiff({"old.ktl", "/dev/null", "--json"});
    const QJsonObject file = QJsonDocument::fromJson(gone.output).object().value("after").toObject();
    QCOMPARE(file.value("file").toString(), QStringLiteral("/dev/null"));
    QVERIFY(file.value("kind").isNull());
    QCOMPARE(gone.exitCode, 1);
    QCOMPARE(runDiff({"/dev/null", "/dev/null"}).exitCode, 0);
}

/// What is whole in it is compared, also with itself.
void tst_DiffCommand::cutKtlFile()
{
    const QByteArray whole = m_place.content("old.ktl");
    m_place.make("cut.ktl", whole.left(whole.size() / 2 + 16));
    const QByteArray error = "cut.ktl: error: ";
    const CommandRun run = runDiff({"old.ktl", "cut.ktl"});
    QVERIFY2(run.errors.startsWith(error) && run.errors.count('\n') == 1, run.errors.constData());
    QVERIFY(run.output.contains("  breaking   "));
    QCOMPARE(run.exitCode, 2);
    const CommandRun same = runDiff({"cut.ktl", "./cut.ktl"});
    QCOMPARE(same.errors, run.errors + "./" + run.errors);
    QCOMPARE(same.output, QByteArray());
    QCOMPARE(same.exitCode, 2);
}

void tst_DiffCommand::deviceThatCannotBeExported()
{
    QByteArray content = m_place.content("old.xml");
    m_place.make("bad.xml", content.replace(content.indexOf("Sm='0'"), 6, "Sm='5'"));
    const QByteArray problem =
        "device \"Drive\": PDO 0x1600 \"\" names sync manager 5, which the device does not declare: ";
    const CommandRun run = runDiff({"linked.ktl", "bad.xml"});
    QVERIFY2(run.errors.startsWith("bad.xml: error: " + problem), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 2);
    const QJsonObject json = QJsonDocument::fromJson(runDiff({"linked.ktl", "bad.xml", "--json"}).output).object();
    const QJsonArray pairs = json.value("devices").toArray();
    QCOMPARE(pairs.size(), 1);
    QVERIFY(pairs[0].toObject().value("problem").toString().startsWith(QString::fromLatin1(problem)));
    QCOMPARE(runDiff({"linked.ktl", "bad.xml", "--device=2"}).exitCode, 0);
    QCOMPARE(runHere({"diff", "linked.ktl", "bad.xml"}, m_place.folder(), 1, 80).output,
             QByteArray("0 differences; 1 device was not compared\n"));
    const CommandRun both = runDiff({"old.xml", "bad.xml"});
    QVERIFY(both.output.contains("  breaking   RxPdo 0x1600, sync manager: 0 -> 5\n"));
    QCOMPARE(both.exitCode, 1);
}

void tst_DiffCommand::namesOfFiles()
{
    const Workplace place;
    place.make("new.xml", m_place.content("new.xml"));
    place.make("-x.xml", m_place.content("new.xml"));
    place.make("old.xml", m_place.content("old.xml"));
    QCOMPARE(runHere({"diff", "--", "-x.xml", "new.xml"}, place.folder()).exitCode, 0);
    QVERIFY(QFile::rename(place.path("old.xml"), place.path("two\nlines.xml")));
    const QStringList call{"diff", "two\nlines.xml", "new.xml", "--device=2"};
    QVERIFY(runHere(call, place.folder()).output.contains("             two lines.xml:5, new.xml:5\n"));
    const QJsonObject json =
        QJsonDocument::fromJson(runHere(call + QStringList{"--json"}, place.folder()).output).object();
    QCOMPARE(json.value("before").toObject().value("file").toString(), QStringLiteral("two\nlines.xml"));
}

/// Of what a pipe gives, and where nobody takes what is told.
void tst_DiffCommand::throughTheProgram()
{
    CommandStart start;
    start.folder = m_place.folder();
    start.input = m_place.content("old.xml");
    const CommandRun piped = runKtl({"diff", "-", "new.xml", "--weight=breaking"}, start);
    QByteArray expected = driveHead + driveAddress;
    QCOMPARE(piped.output, expected.replace("old.xml", "<stdin>"));
    QCOMPARE(piped.exitCode, 1);
    QCOMPARE(runKtl({"diff", "-", "--device=1", "--with=1"}, start).exitCode, 0);
    start.input = m_place.content("old.ktl");
    QCOMPARE(runKtl({"diff", "old.xml", "-"}, start).exitCode, 0);
    start.input = m_place.content("link.json");
    QCOMPARE(runKtl({"diff", "old.xml", "linked.ktl", "--choices=-"}, start).exitCode, 0);
    CommandStart full;
    full.folder = m_place.folder();
    full.outputFile = QStringLiteral("/dev/full");
    QCOMPARE(runKtl({"diff", "old.xml", "new.xml"}, full).exitCode, 3);
    QCOMPARE(runKtl({"diff", "old.xml", "old.ktl"}, full).exitCode, 0);
}

static const testMain::Registration<tst_DiffCommand, QCoreApplication> registration;
#include "tst_DiffCommand.moc"
