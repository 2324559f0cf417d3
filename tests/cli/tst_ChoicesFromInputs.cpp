// `ktl choices --from`: files, runs and arguments.
#include "cli/tracedExport.h"
#include "testMain.h"

#include <QJsonDocument>
#include <QJsonObject>

class tst_ChoicesFromInputs : public QObject
{
    Q_OBJECT

private slots:
    static void runs_data();
    static void runs();
    static void onlyRun();
    static void emptyRunsCount();
    static void arguments_data();
    static void arguments();
    static void unusableExport_data();
    static void unusableExport();
    static void unusableDescription_data();
    static void unusableDescription();
    static void cutFile_data();
    static void cutFile();
    static void cutAnywhere();
    static void standardInput_data();
    static void standardInput();
    static void oddNames_data();
    static void oddNames();
    static void closedOutput();
};

namespace {

const QByteArray endItem = QByteArray::fromHex("000000000c00000000000000");

QJsonObject aboutIn(const CommandRun& run)
{
    return QJsonDocument::fromJson(run.output).object().value("about").toObject();
}

} // namespace

void tst_ChoicesFromInputs::runs_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("status");
    const auto row = [](const char* name, const QStringList& options, const char* message, int status) {
        QTest::addRow("%s", name) << options << QByteArray(message) << status;
    };
    row("none is named", {}, "m.ktl: error: the file has 2 runs (1, 2); --run names one of them\n", 2);
    row("the second one", {"--run", "2"}, "", 0);
    row("one that there is not", {"--run", "3"}, "m.ktl: error: the file has no run 3 with devices; it has 1, 2\n", 2);
    row("none", {"--run", "0"},
        "ktl: error: \"0\" is no number of a run; they count from 1 (see: ktl choices --help)\n", 2);
    row("no number", {"--run", "x"},
        "ktl: error: \"x\" is no number of a run; they count from 1 (see: ktl choices --help)\n", 2);
    row("below the first", {"--run=-1"},
        "ktl: error: \"-1\" is no number of a run; they count from 1 (see: ktl choices --help)\n", 2);
}

/// A file to which a second export was appended.
void tst_ChoicesFromInputs::runs()
{
    QFETCH(QStringList, options);
    QFETCH(int, status);
    const Workplace place;
    const QByteArray links = choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT"}])");
    place.make(QStringLiteral("c.json"), links);
    const QStringList convert{"convert", sample(), "-o", "m.ktl", "--no-dump"};
    QCOMPARE(runHere(convert, place.folder()).exitCode, 0);
    QCOMPARE(runHere(convert + QStringList{"--append", "--choices", "c.json"}, place.folder()).exitCode, 0);
    const CommandRun run = choicesFrom(place, {sample()}, place.content("m.ktl"), options);
    QTEST(run.errors, "message");
    QCOMPARE(run.exitCode, status);
    QCOMPARE(run.output.isEmpty(), status != 0);
    if (status != 0)
        return;
    QCOMPARE(aboutIn(run), (QJsonObject{{"from", "m.ktl"}, {"run", 2}}));
    QCOMPARE(converted({sample()}, run.output).ktl, converted({sample()}, links).ktl);
}

/// It can be named, but need not be.
void tst_ChoicesFromInputs::onlyRun()
{
    const Workplace place;
    const QByteArray ktl = exportOf({"io-block"});
    QCOMPARE(aboutIn(choicesFrom(place, {sample()}, ktl)), (QJsonObject{{"from", "m.ktl"}}));
    const CommandRun run = choicesFrom(place, {sample()}, ktl, {"--run", "1"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(aboutIn(run), (QJsonObject{{"from", "m.ktl"}, {"run", 1}}));
}

/// A run without a device has a number, and none is asked for on its account.
void tst_ChoicesFromInputs::emptyRunsCount()
{
    const Workplace place;
    const QByteArray ktl = endItem + exportOf({"io-block"}) + endItem;
    const CommandRun run = choicesFrom(place, {sample()}, ktl);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(choicesFrom(place, {sample()}, ktl, {"--run", "2"}).exitCode, 0);
    for (const char* empty : {"1", "3"})
        QCOMPARE(choicesFrom(place, {sample()}, ktl, {"--run", empty}).errors,
                 QByteArray("m.ktl: error: the file has no run ") + empty + " with devices; it has 2\n");
}

void tst_ChoicesFromInputs::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("a run of no file") << QStringList{"a.xml", "--run", "1"}
                                      << QByteArray("--run goes with --from: it names a run of that file");
    QTest::addRow("no description") << QStringList{"--from", "m.ktl"} << QByteArray("no ESI file is given");
    QTest::addRow("two exports") << QStringList{"a.xml", "--from", "m.ktl", "--from", "n.ktl"}
                                 << QByteArray("--from can be given once only");
    QTest::addRow("two runs") << QStringList{"a.xml", "--from", "m.ktl", "--run", "1", "--run", "2"}
                              << QByteArray("--run can be given once only");
    QTest::addRow("standard input for both")
        << QStringList{"-", "--from", "-"} << QByteArray("standard input can be read once only");
    QTest::addRow("standard input for two descriptions")
        << QStringList{"-", "-", "--from", "m.ktl"} << QByteArray("standard input can be read once only");
}

/// Nothing is read then.
void tst_ChoicesFromInputs::arguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const Workplace place;
    const CommandRun run = runHere(QStringList{"choices"} + arguments, place.folder());
    QCOMPARE(run.errors, "ktl: error: " + message + " (see: ktl choices --help)\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_ChoicesFromInputs::unusableExport_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("message");
    const QByteArray noDevice = "the file holds no device; is it a KTL file?";
    QTest::addRow("empty") << QByteArray("") << noDevice;
    QTest::addRow("no device") << endItem << noDevice;
    QTest::addRow("cut inside the first item") << exportOf({"io-block"}).left(51) << noDevice;
    QTest::addRow("a description") << contentOf(sample()) << noDevice;
    QTest::addRow("a text") << QByteArray("no device at all\n") << noDevice;
}

void tst_ChoicesFromInputs::unusableExport()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, message);
    const Workplace place;
    const CommandRun run = choicesFrom(place, {sample()}, content);
    QCOMPARE(run.errors, "m.ktl: error: " + message + "\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_ChoicesFromInputs::unusableDescription_data()
{
    QTest::addColumn<QByteArray>("content"); // null for no file
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("not there") << QByteArray()
                               << QByteArray(": error: the file cannot be read: No such file or directory");
    QTest::addRow("an export") << exportOf({"io-block"}) << QByteArray(": error: this is a KTL file, not an ESI file");
    QTest::addRow("broken") << QByteArray("<EtherCATInfo><Vendor></EtherCATInfo>") << QByteArray(":1:");
    QTest::addRow("a PDO on a sync manager that is not there")
        << esiWith("<Device><Type>T</Type><Name>D</Name><RxPdo Sm=\"1\"><Index>1</Index><Entry><Index>1</Index>"
                   "<BitLen>8</BitLen></Entry></RxPdo></Device>")
        << QByteArray(": error: a PDO is on a sync manager that its device does not declare, so the file cannot be "
                      "converted; \"ktl check\" names it");
}

/// Beside one that is all right, and with an export that cannot be read, so that both are told at once.
void tst_ChoicesFromInputs::unusableDescription()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, message);
    const Workplace place;
    if (!content.isNull())
        place.make(QStringLiteral("a.xml"), content);
    const CommandRun run = runHere({"choices", sample(), "a.xml", "--from", "gone.ktl"}, place.folder());
    const QList<QByteArray> lines = run.errors.split('\n');
    QCOMPARE(lines.size(), 3); // and an empty rest
    QVERIFY2(lines.at(0).startsWith("a.xml" + message), lines.at(0).constData());
    QCOMPARE(lines.at(1), QByteArray("gone.ktl: error: the file cannot be read: No such file or directory"));
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_ChoicesFromInputs::cutFile_data()
{
    QTest::addColumn<int>("size"); // of two devices at 0x00 and 0x120, with an End item
    QTest::addColumn<QByteArray>("lastLine");
    QTest::addRow("no End item") << -12 << QByteArray("the last run has no End item: the file was cut short");
    QTest::addRow("inside the End item") << -2 << QByteArray("inside an item");
    QTest::addRow("inside the head of the second device")
        << 0x124 << QByteArray("the file ends inside the item head at 0x120");
    QTest::addRow("inside the first item of the second device")
        << 0x130 << QByteArray("the file ends at 0x130, inside an item");
    QTest::addRow("before the inputs of the first device")
        << 0xc0 << QByteArray("the last run has no End item: the file was cut short");
}

/// What is there is explained, and the exit status is that of a file that cannot be used.
void tst_ChoicesFromInputs::cutFile()
{
    QFETCH(int, size);
    QFETCH(QByteArray, lastLine);
    const Workplace place;
    const QByteArray link = choicesOfFirst(R"("links": [{"pdo": 0, "entry": 1, "link": "DOUT"}])");
    const QByteArray whole = exportOf({"io-block"}, link);
    const CommandRun run = choicesFrom(place, {sample()}, size < 0 ? whole.chopped(-size) : whole.left(size));
    const QList<QByteArray> lines = run.errors.trimmed().split('\n');
    QVERIFY2(lines.last().startsWith("m.ktl: error: ") && lines.last().endsWith(lastLine), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.output.contains(R"("name": "Outputs 9 to 16", "link": "DOUT"})"));
}

/// Whatever is left of a file, the command ends as it should.
void tst_ChoicesFromInputs::cutAnywhere()
{
    const Workplace place;
    const QByteArray whole = exportOf({"io-block"}, choicesOfFirst(R"("deviceType": "SingleDriver")"));
    for (int size = 0; size < whole.size(); ++size) {
        const CommandRun run = choicesFrom(place, {sample()}, whole.left(size));
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.output.isEmpty(), size < 52); // of the first item
        QVERIFY(run.errors.contains("m.ktl: error: "));
    }
    QCOMPARE(choicesFrom(place, {sample()}, whole).exitCode, 0);
}

void tst_ChoicesFromInputs::standardInput_data()
{
    QTest::addColumn<bool>("isOfExport");
    QTest::addRow("export") << true;
    QTest::addRow("description") << false;
}

void tst_ChoicesFromInputs::standardInput()
{
    QFETCH(bool, isOfExport);
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    const QString ktl = place.make("m.ktl", exportOf({"io-block"}, choicesOfFirst(R"("deviceType": "Special")")));
    start.inputFile = isOfExport ? ktl : sample();
    const CommandRun run =
        runKtl({"choices", isOfExport ? sample() : "-", "--from", isOfExport ? "-" : "m.ktl"}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(aboutIn(run), (QJsonObject{{"from", isOfExport ? "<stdin>" : "m.ktl"}}));
    QVERIFY(run.output.contains("\"deviceType\": \"Special\""));
}

void tst_ChoicesFromInputs::oddNames_data()
{
    QTest::addColumn<QString>("name"); // without the ending
    QTest::addColumn<QString>("shown"); // in messages
    QTest::addRow("outside ASCII") << QString::fromUtf8("控制 é") << QString::fromUtf8("控制 é.ktl");
    QTest::addRow("quotes and a backslash") << R"(a "b" \c)"
                                            << R"(a "b" \c.ktl)";
    QTest::addRow("like an option") << "./--run"
                                    << "./--run.ktl";
    QTest::addRow("line feed") << "a\nb"
                               << "a b.ktl";
}

/// Messages have them on one line, and the text that is written as they are.
void tst_ChoicesFromInputs::oddNames()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    const Workplace place;
    place.make(name + ".xml", contentOf(sample()).replace("#x0F00", "#x0F80"));
    place.make(name + ".ktl", exportOf({"io-block"}));
    const CommandRun run = runHere({"choices", name + ".xml", "--from", name + ".ktl"}, place.folder());
    QCOMPARE(run.exitCode, 1);
    const QString line = QString::fromUtf8(run.errors);
    QVERIFY2(line.startsWith(shown + ": warning: at 0x5c: ") && line.endsWith(".xml:24) [no-choice]\n"),
             run.errors.constData());
    QCOMPARE(line.count('\n'), 1);
    QCOMPARE(aboutIn(run), (QJsonObject{{"from", name + ".ktl"}}));
}

/// A full disk is told, and nothing else matters.
void tst_ChoicesFromInputs::closedOutput()
{
    const Workplace place;
    place.make("m.ktl", exportOf({"io-block"}));
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const QString command = QStringLiteral("exec \"$0\" choices \"$1\" --from m.ktl > /dev/full");
    const CommandRun run = runKtl({"-c", command, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.exitCode, 3);
    QVERIFY(run.errors.contains("error: "));
}

static const testMain::Registration<tst_ChoicesFromInputs, QCoreApplication> registration;
#include "tst_ChoicesFromInputs.moc"
