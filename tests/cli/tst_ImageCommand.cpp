// `ktl image`: arguments, devices, choices, KTL files, files that cannot be used, many entries.
// Covers imageCommand.cpp, imageRequest.cpp, imageInput.cpp, imageTeller.cpp, chosenInputs.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QDomDocument>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class tst_ImageCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void refusals_data();
    void refusals();
    void terminal();
    void devices_data();
    void devices();
    void unknownDevice();
    void choicesAndTheirExport_data();
    void choicesAndTheirExport();
    void choicesInPlaces();
    void choicesThatDoNotFit();
    void couplerOnTheBus();
    void noSlots();
    void heightOfPicture();
    void brokenFiles();
    void incompleteDevice();
    void pdosWithoutPlace();
    void cutKtlFile();
    void anyNumberOfCores();
    void manyEntries();
    void throughTheProgram();

private:
    /// The image as CSV.
    [[nodiscard]] QStringList rowsOf(const QStringList& arguments) const;
    Workplace m_place;
};

namespace {

/// A device with an input of 4 bits.
QByteArray deviceOf(const QByteArray& product, const QByteArray& name)
{
    return "<Device><Type ProductCode='" + product + "' RevisionNo='1'>T-" + product + "</Type><Name>" + name
           + "</Name><Sm>Inputs</Sm><TxPdo Sm='0'><Index>#x1a00</Index><Name>P</Name><Entry><Index>#x6000</Index>"
             "<SubIndex>1</SubIndex><BitLen>4</BitLen><Name>E</Name><DataType>BIT4</DataType></Entry></TxPdo></Device>";
}

/// Names of devices in JSON.
QStringList namesIn(const QByteArray& json)
{
    QStringList names;
    for (const QJsonValue file : QJsonDocument::fromJson(json).object()["files"].toArray())
        for (const QJsonValue device : file.toObject()["devices"].toArray())
            names += QStringLiteral("%1 %2")
                         .arg(device.toObject()["number"].toInt())
                         .arg(device.toObject()["name"].toString());
    return names;
}

/// The columns of a row that a KTL file has too: direction, sync manager, byte, bit, length, kind, slot, and indexes of
/// PDO and object unless they are those of slot groups.
QString placeOf(const QString& row, bool hasGroups)
{
    constexpr int columns = 20;
    const QStringList fields = row.split(QLatin1Char(',')).mid(row.count(QLatin1Char(',')) + 1 - columns);
    QStringList kept = fields.mid(6, 6);
    kept += fields.at(14);
    if (!hasGroups)
        kept += {fields.at(12), fields.at(15), fields.at(16)};
    return kept.join(QLatin1Char(','));
}

} // namespace

QStringList tst_ImageCommand::rowsOf(const QStringList& arguments) const
{
    const CommandRun run = runHere(QStringList{"image", "--csv"} + arguments, m_place.folder());
    QStringList rows = QString::fromUtf8(run.output).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    if (!rows.isEmpty())
        rows.removeFirst();
    return rows;
}

void tst_ImageCommand::init()
{
    m_place.make("a.xml", esiWith(deviceOf("1", "One") + deviceOf("2", "Two")));
    m_place.make("b.xml", esiWith(deviceOf("3", "Three")));
    m_place.make("broken.xml", "<EtherCATInfo><Vendor>");
    m_place.make("none.json", R"({"format": "kinetra-choices", "version": 1, "devices": []})");
    m_place.make("wrong.json", R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 9}]})");
}

void tst_ImageCommand::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("problem");
    const auto add = [](const char* name, const QStringList& arguments, const char* problem) {
        QTest::addRow("%s", name) << arguments << QByteArray(problem);
    };
    add("no file", {}, "no file is given");
    add("standard input twice", {"-", "-"}, "standard input can be read once only");
    add("standard input for choices too", {"-", "--choices=-"}, "standard input can be read once only");
    add("choices twice", {"a.xml", "--choices=a", "--choices=b"}, "--choices can be given once only");
    add("two forms", {"a.xml", "--csv", "--svg"}, "only one of --csv, --json and --svg can be given");
    add("two other forms", {"a.xml", "--json", "--svg"}, "only one of --csv, --json and --svg can be given");
}

void tst_ImageCommand::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, problem);
    const CommandRun run = runHere(QStringList{"image"} + arguments, m_place.folder());
    QCOMPARE(run.errors, "ktl: error: " + problem + " (see: ktl image --help)\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

/// Lines fit the terminal; in a file they are whole. The length of an export leaves out bits after the last whole byte.
void tst_ImageCommand::terminal()
{
    const QByteArray head = "b.xml: device 1, 0x7e570009:0x3:0x1, T-3 \"Three\"\n";
    const CommandRun whole = runHere({"image", "b.xml"}, m_place.folder());
    QCOMPARE(
        whole.output,
        head
            + "  Inputs, sync manager 0: 1 byte used (4 bits), length 0; warning: the length is not that of the PDOs\n"
              "      byte.bit  bits  object    name  type  link\n"
              "    PDO 0x1a00 \"P\"\n"
              "      0.0       4     0x6000:1  E     BIT4  NONE Type\n"
              "      0.4       4     padding\n");
    QCOMPARE(whole.exitCode, 0);
    const CommandRun wide = runHere({"image", "b.xml"}, m_place.folder(), 1, 110);
    QCOMPARE(wide.output, whole.output);
    const CommandRun narrow = runHere({"image", "b.xml"}, m_place.folder(), 1, 48);
    for (const QByteArray& line : narrow.output.split('\n'))
        QVERIFY2(line.size() <= 48, line.constData());
}

void tst_ImageCommand::devices_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("names");
    QTest::addRow("all") << QStringList{} << QStringList{"1 One", "2 Two", "3 Three"};
    QTest::addRow("a number") << QStringList{"--device=2"} << QStringList{"2 Two"};
    QTest::addRow("a name of the last file") << QStringList{"--device=Three"} << QStringList{"3 Three"};
    QTest::addRow("two") << QStringList{"--device=Three", "--device=T-1"} << QStringList{"1 One", "3 Three"};
    QTest::addRow("several") << QStringList{"--device=T*"} << QStringList{"1 One", "2 Two", "3 Three"};
    QTest::addRow("with choices") << QStringList{"--device=2", "--choices=none.json"} << QStringList{"2 Two"};
    QTest::addRow("with choices, all") << QStringList{"--choices=none.json"}
                                       << QStringList{"1 One", "2 Two", "3 Three"};
}

void tst_ImageCommand::devices()
{
    QFETCH(QStringList, options);
    const CommandRun run = runHere(QStringList{"image", "a.xml", "b.xml", "--json"} + options, m_place.folder());
    QTEST(namesIn(run.output), "names");
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

/// JSON is whole and empty, and a file that may be the reason is told.
void tst_ImageCommand::unknownDevice()
{
    const CommandRun run = runHere({"image", "a.xml", "broken.xml", "--device=Four", "--json"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("{\n  \"files\": []\n}\n"));
    QVERIFY2(run.errors.startsWith("ktl: error: no device of the given files is \"Four\""), run.errors.constData());
    QVERIFY2(run.errors.contains("\nbroken.xml:1:"), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
}

void tst_ImageCommand::choicesAndTheirExport_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("modules");
    QTest::addColumn<bool>("hasGroups");
    const QString coupler = sample(QStringLiteral("bus-coupler.xml"));
    QTest::newRow("default modules") << coupler << QByteArray() << false;
    QTest::newRow("one more") << coupler << QByteArray(R"({"place": 2, "module": "0x108"})") << false;
    QTest::newRow("outputs that are mapped, twice")
        << coupler << QByteArray(R"({"place": 5, "module": "0x404"}, {"place": 7, "module": "0x404"})") << false;
    QTest::newRow("both directions, and analog inputs")
        << coupler << QByteArray(R"({"place": 2, "module": "0x216"}, {"place": 3, "module": "0x304"})") << false;
    QTest::newRow("slots in groups") << sample(QStringLiteral("dual-axis-drive.xml")) << QByteArray() << true;
}

/// An exported file has the modules in the places that the choices give them, with the same bits. Their indexes are the
/// same where slots have no groups, which the file does not have.
void tst_ImageCommand::choicesAndTheirExport()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, modules);
    QFETCH(bool, hasGroups);
    const QByteArray chosen = modules.isEmpty() ? QByteArray() : ", \"modules\": [" + modules + "]";
    m_place.make("c.json", R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 1,
        "deviceType": "ManualIOBlock")"
                               + chosen + "}]}");
    const QStringList rows = rowsOf({file, "--choices=c.json"});
    const QStringList convert{"convert", file, "--choices=c.json", "-o", "c.ktl", "--force"};
    QCOMPARE(runHere(convert, m_place.folder()).exitCode, 0);
    const QStringList exported = rowsOf({"c.ktl"});
    QVERIFY(rows.size() > 4);
    QCOMPARE(exported.size(), rows.size());
    for (int row = 0; row < rows.size(); ++row)
        QCOMPARE(placeOf(exported.at(row), hasGroups), placeOf(rows.at(row), hasGroups));
}

/// Eight inputs in the third place come after the coupler with 2 bytes, the feed monitor in the first place with one,
/// and 16 inputs in the second one.
void tst_ImageCommand::choicesInPlaces()
{
    m_place.make("c.json", R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 1,
        "deviceType": "ManualIOBlock", "modules": [{"place": 2, "module": "0x108"}]}]})");
    const QStringList rows = rowsOf({sample(QStringLiteral("bus-coupler.xml")), "--choices=c.json"});
    QCOMPARE(rows.size(), 4 + 3 + 16 + 8);
    QVERIFY2(rows.at(23).endsWith("inputs,3,5,0,1,entry,0x1a02,Inputs,3,0x6020,1,Input 1,BOOL,NONE Type"),
             qPrintable(rows.at(23)));
    QVERIFY2(rows.at(30).contains("inputs,3,5,7,1,entry,0x1a02"), qPrintable(rows.at(30)));
}

void tst_ImageCommand::choicesThatDoNotFit()
{
    const CommandRun run = runHere({"image", "a.xml", "--choices=wrong.json", "--svg"}, m_place.folder());
    QVERIFY2(run.errors.contains("there is no device 9"), run.errors.constData());
    QVERIFY(QDomDocument().setContent(run.output));
    QVERIFY(!run.output.contains("device1"));
    QCOMPARE(run.exitCode, 2);
}

/// Its KTL file has modules, but none in places; a table has no room to say so.
void tst_ImageCommand::couplerOnTheBus()
{
    QCOMPARE(runHere({"convert", sample("bus-coupler.xml"), "-o", "c.ktl", "--force"}, m_place.folder()).exitCode, 0);
    const QByteArray note = "The controller finds the modules of this coupler on the bus; their PDOs come after these.";
    const CommandRun text = runHere({"image", "c.ktl"}, m_place.folder());
    QVERIFY2(text.output.contains("\n  " + note + "\n"), text.output.constData());
    QCOMPARE(text.errors, QByteArray());
    const CommandRun table = runHere({"image", "c.ktl", "--csv"}, m_place.folder());
    QCOMPARE(table.errors, "c.ktl: note: device 1 \"MB-C100 bus coupler for 16 modules\": " + note + '\n');
    QCOMPARE(table.exitCode, 0);
    const CommandRun described = runHere({"image", sample("bus-coupler.xml")});
    QVERIFY(described.output.contains("on the bus; those in the slots here are shown.\n"));
}

/// A device of that type without slots has no modules on the bus, whatever modules are in its file.
void tst_ImageCommand::noSlots()
{
    const QByteArray typed = deviceOf("1", "N").replace("</Device>", "<Profile><ProfileNo>5001</ProfileNo></Profile>"
                                                                     "</Device>");
    const QByteArray module = "<Modules><Module><Type ModuleIdent='1'>M</Type><Name>M</Name></Module></Modules>";
    m_place.make("n.xml", esiWith(typed).replace("</Descriptions>", module + "</Descriptions>"));
    m_place.make("c.json", R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 1,
        "deviceType": "PnpIOBlock"}]})");
    const QStringList convert{"convert", "n.xml", "--choices=c.json", "-o", "n.ktl", "--force"};
    QCOMPARE(runHere(convert, m_place.folder()).exitCode, 0);
    const CommandRun exported = runHere({"image", "n.ktl"}, m_place.folder());
    QVERIFY2(exported.output.contains("0x6000:1"), exported.output.constData());
    QVERIFY2(!exported.output.contains("on the bus"), exported.output.constData());
    QVERIFY(!runHere({"image", "n.xml", "--choices=c.json"}, m_place.folder()).output.contains("on the bus"));
}

/// The page is as high as what is on it, whether devices are left out or not.
void tst_ImageCommand::heightOfPicture()
{
    const auto heightWith = [&](const QStringList& arguments) {
        QDomDocument page;
        page.setContent(runHere(QStringList{"image", "--svg"} + arguments, m_place.folder()).output);
        return page.documentElement().attribute(QStringLiteral("height")).toInt();
    };
    const int none = heightWith({"none.json"});
    const int one = heightWith({"b.xml"}) - none;
    QVERIFY(one > 100);
    QCOMPARE(heightWith({"a.xml", "b.xml"}), none + 3 * one);
    QCOMPARE(heightWith({"a.xml", "b.xml", "--device=2"}), none + one);
    QCOMPARE(heightWith({"a.xml", "b.xml", "--device=T-1", "--device=Three", "--choices=none.json"}), none + 2 * one);
}

void tst_ImageCommand::brokenFiles()
{
    for (const QStringList& options : {QStringList{}, QStringList{"--device=1"}, QStringList{"--choices=none.json"}}) {
        const CommandRun run =
            runHere(QStringList{"image", "none.xml", "broken.xml", "b.xml", "--json"} + options, m_place.folder());
        QCOMPARE(namesIn(run.output), QStringList{"1 Three"});
        QVERIFY2(run.errors.contains("none.xml: error: "), run.errors.constData());
        QVERIFY2(run.errors.contains("broken.xml:1:"), run.errors.constData());
        QCOMPARE(run.exitCode, 2);
    }
    const CommandRun neither = runHere({"image", "none.json"}, m_place.folder());
    QCOMPARE(neither.exitCode, 2);
    QCOMPARE(neither.output, QByteArray());
}

/// What can be read of it is shown.
void tst_ImageCommand::incompleteDevice()
{
    m_place.make("i.xml", esiWith(deviceOf("1", "N").replace("</Device>", "<TxPdo Sm='7'><Index>#x1a01</Index></TxPdo>"
                                                                          "</Device>")));
    const CommandRun run = runHere({"image", "i.xml", "--json"}, m_place.folder());
    QCOMPARE(run.errors, QByteArray("i.xml: error: device 1 \"N\": PDO 0x1a01 is on sync manager 7, the device has 1: "
                                    "samples, PDOs of modules and lengths may be missing.\n"));
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.output.contains("\"isComplete\": false"));
    QVERIFY(run.output.contains("\"name\": \"E\""));
}

/// A sync manager with a name of the maker's own goes out as a mailbox.
void tst_ImageCommand::pdosWithoutPlace()
{
    m_place.make("own.xml", esiWith(deviceOf("1", "N").replace(">Inputs<", ">Data<")));
    const CommandRun run = runHere({"image", "own.xml"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("own.xml: device 1, 0x7e570009:0x1:0x1, T-1 \"N\"\n"
                                    "  Not shown: 1 PDO on sync manager 0, which is \"Data\".\n  No process data.\n"));
    m_place.make("own.xml", esiWith(deviceOf("1", "N").replace("<Sm>Inputs<", "<Sm Virtual='1'>Inputs<")));
    QVERIFY(runHere({"image", "own.xml"}, m_place.folder())
                .output.contains("\n  Not shown: 1 PDO on sync manager 0, which is virtual.\n"));
    QCOMPARE(run.exitCode, 0);
}

void tst_ImageCommand::cutKtlFile()
{
    QCOMPARE(runHere({"convert", "a.xml", "-o", "cut.ktl", "--force"}, m_place.folder()).exitCode, 0);
    QFile file(m_place.path("cut.ktl"));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(file.size() - 12)); // without the last item
    const CommandRun run = runHere({"image", "cut.ktl", "--json"}, m_place.folder());
    QCOMPARE(namesIn(run.output), (QStringList{"1 ", "2 "})); // it has no names of such devices
    QCOMPARE(run.errors, QByteArray("cut.ktl: error: the last run has no End item: the file was cut short\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_ImageCommand::anyNumberOfCores()
{
    const QStringList arguments{"image", "a.xml", "broken.xml", "b.xml", "a.xml"};
    const CommandRun one = runHere(arguments, m_place.folder(), 1);
    const CommandRun four = runHere(arguments, m_place.folder(), 4);
    QCOMPARE(four.output, one.output);
    QCOMPARE(four.errors, one.errors);
    QCOMPARE(one.output.count("device "), 5);
}

/// Many single bits, and names of a megabyte: each form has all of the bits, and few of the letters.
void tst_ImageCommand::manyEntries()
{
    constexpr int count = 20001;
    const QByteArray entry = "<Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>1</BitLen></Entry>";
    const QByteArray name = "<Name>" + QByteArray(1000000, 'n') + "</Name>";
    m_place.make("many.xml", esiWith("<Device><Type ProductCode='1'>T</Type>" + name
                                     + "<Sm>Inputs</Sm><TxPdo Sm='0'><Index>#x1a00</Index>" + name
                                     + entry.repeated(count) + "</TxPdo></Device>"));
    const CommandRun text = runHere({"image", "many.xml"}, m_place.folder());
    QVERIFY(text.output.contains("\n      2500.0    1     0x6000:1  NONE Type\n      2500.1    7     padding\n"));
    const CommandRun svg = runHere({"image", "many.xml", "--svg"}, m_place.folder());
    QVERIFY(svg.output.contains("<g id=\"device1-inputs0-row20001\">"));
    QVERIFY(svg.output.size() < count * 600);
    const CommandRun json = runHere({"image", "many.xml", "--json"}, m_place.folder());
    QCOMPARE(json.output.count("\"kind\": \"entry\""), count);
    QVERIFY(json.output.size() < 2500000 + count * 250);
    const CommandRun table = runHere({"image", "many.xml", "--csv"}, m_place.folder());
    QCOMPARE(table.output.count(",entry,"), count);
    QVERIFY(table.output.size() < count * 700);
}

void tst_ImageCommand::throughTheProgram()
{
    CommandStart start;
    start.folder = m_place.folder();
    start.input = esiWith(deviceOf("5", "Piped"));
    const CommandRun piped = runKtl({"image", "-"}, start);
    QVERIFY2(piped.output.startsWith("<stdin>: device 1, 0x7e570009:0x5:0x1, T-5 \"Piped\"\n"),
             piped.output.constData());
    QCOMPARE(piped.exitCode, 0);
    QCOMPARE(runKtl({"image", "-", "--choices=none.json"}, start).output, piped.output);
    CommandStart full;
    full.outputFile = QStringLiteral("/dev/full");
    QCOMPARE(runKtl({"image", m_place.path("a.xml"), "--svg"}, full).exitCode, 3);
}

static const testMain::Registration<tst_ImageCommand, QCoreApplication> registration;
#include "tst_ImageCommand.moc"
