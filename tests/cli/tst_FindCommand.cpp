// `ktl find`: arguments, exit status, forms of what is found, folders, pipes, and many files.
// Covers findCommand.cpp, findRequest.cpp, findInput.cpp, foundWriter.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"
#include "workbench/ordinaryUser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <sys/stat.h>

class tst_FindCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void arguments_data();
    void arguments();
    void filters_data();
    void filters();
    void sameFileTwice();
    void exitStatus();
    void foldersPassOver();
    static void closedFolderAndLoop();
    void named();
    void brokenBehindADevice();
    void forms();
    void namesOfFiles();
    void exportedFile();
    void anyNumberOfCores();
    void selectors();
    void throughTheProgram();
    static void manyFiles();

private:
    Workplace m_place;
};

namespace {

QByteArray deviceOf(const QByteArray& product, const QByteArray& revision, const QByteArray& name)
{
    return "<Device><Type ProductCode='" + product + "' RevisionNo='" + revision + "'>T-" + product + "</Type><Name>"
           + name + "</Name></Device>";
}

} // namespace

/// Devices begin on line 4, see `esiWith`.
void tst_FindCommand::init()
{
    QDir(m_place.folder()).mkpath("d");
    m_place.make("a.xml", esiWith(deviceOf("1", "1", "Old drive") + "\n" + deviceOf("1", "2", "New drive")));
    m_place.make("d/b.xml", esiWith(deviceOf("1", "2", "New drive") + deviceOf("2", "1", "Coupler")));
    m_place.make("d/c.txt", "neither");
    m_place.make("d/page.html", "<html><br></html>");
    m_place.make("d/picture.svg", "<svg/>");
    m_place.make("d/empty", "");
}

void tst_FindCommand::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("expected");
    const auto add = [](const char* name, const QStringList& arguments, const char* expected) {
        QTest::addRow("%s", name) << arguments << QByteArray(expected);
    };
    add("no path", {}, "no file and no folder is given");
    add("standard input twice", {"-", "-"}, "standard input can be read once only");
    add("an option twice", {"--vendor=1", "--vendor=2", "."}, "--vendor can be given once only");
    add("no vendor", {"--vendor=x", "."}, "\"x\" is no number for --vendor: decimal, or hexadecimal as 0x1a");
    add("an empty product", {"--product=", "."}, "\"\" is no number for --product: decimal, or hexadecimal as 0x1a");
    add("no revision", {"--revision=2..1", "."},
        "\"2..1\" is no revision and no range of them: 0x120000, >=0x120000, 0x100000..0x1fffff");
    add("two forms", {"--json", "-l", "."}, "only one of --json, --csv and --files can be given");
    add("zeros in JSON", {"--json", "-0", "."}, "--null is for lines, not for --json or --csv");
}

void tst_FindCommand::arguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, expected);
    const CommandRun run = runHere(QStringList{"find"} + arguments, m_place.folder());
    QCOMPARE(run.errors, "ktl: error: " + expected + " (see: ktl find --help)\n");
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.output.isEmpty());
}

void tst_FindCommand::filters_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray oldDrive = "0x7e570009:0x1:0x1\tT-1\tOld drive\ta.xml:4\n";
    const QByteArray newDrive = "0x7e570009:0x1:0x2\tT-1\tNew drive\ta.xml:5\n";
    const QByteArray other = "0x7e570009:0x1:0x2\tT-1\tNew drive\td/b.xml:4\n";
    const QByteArray coupler = "0x7e570009:0x2:0x1\tT-2\tCoupler\td/b.xml:4\n";
    QTest::addRow("none") << QStringList{} << oldDrive + newDrive + other + coupler;
    QTest::addRow("vendor") << QStringList{"--vendor=#x7E570009"} << oldDrive + newDrive + other + coupler;
    QTest::addRow("product") << QStringList{"--product", "2"} << coupler;
    QTest::addRow("revision") << QStringList{"--revision=>1"} << newDrive + other;
    QTest::addRow("name") << QStringList{"--name=*DRIVE"} << oldDrive + newDrive + other;
    QTest::addRow("type") << QStringList{"--type=t-?", "--name=c*"} << coupler;
    QTest::addRow("latest") << QStringList{"--latest"} << newDrive + other + coupler;
    QTest::addRow("duplicates") << QStringList{"--duplicates"} << newDrive + other;
    QTest::addRow("latest of what fits") << QStringList{"--latest", "--revision=1"} << oldDrive + coupler;
    QTest::addRow("files") << QStringList{"-l", "--product=1"} << QByteArray("a.xml\nd/b.xml\n");
    QTest::addRow("zeros") << QStringList{"-0", "-l"} << QByteArray("a.xml\0d/b.xml\0", 14);
}

void tst_FindCommand::filters()
{
    QFETCH(QStringList, options);
    const CommandRun run = runHere(QStringList{"find", "a.xml", "d"} + options, m_place.folder());
    QTEST(run.output, "expected");
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

/// A place is the same one, however often and by which name it is given.
void tst_FindCommand::sameFileTwice()
{
    const Workplace place;
    place.make("a.xml", esiWith(deviceOf("1", "1", "Drive")));
    QVERIFY(QFile::link(place.path("a.xml"), place.path("link.xml")));
    const QStringList call{"find", "--duplicates", "-l", "a.xml", "."};
    const CommandRun one = runHere(call, place.folder());
    QCOMPARE(one.output, QByteArray());
    QCOMPARE(one.exitCode, 1);
    place.make("b.xml", esiWith(deviceOf("1", "1", "Drive")));
    QCOMPARE(runHere(call, place.folder()).output, QByteArray("a.xml\n./a.xml\n./b.xml\n./link.xml\n"));
    QCOMPARE(runHere({"find", "--latest", "-l", "a.xml", "a.xml"}, place.folder()).output,
             QByteArray("a.xml\na.xml\n"));
}

void tst_FindCommand::exitStatus()
{
    QCOMPARE(runHere({"find", "--product=9", "a.xml"}, m_place.folder()).exitCode, 1);
    const CommandRun missing = runHere({"find", "gone.xml", "a.xml", "-l"}, m_place.folder());
    QCOMPARE(missing.exitCode, 2);
    QCOMPARE(missing.output, QByteArray("a.xml\n"));
    QCOMPARE(missing.errors, QByteArray("gone.xml: error: the file cannot be read: No such file or directory\n"));
}

void tst_FindCommand::foldersPassOver()
{
    m_place.make("d/zeros.bin", QByteArray(64, '\0'));
    QCOMPARE(::mkfifo(QFile::encodeName(m_place.path("d/pipe")).constData(), 0600), 0);
    const CommandRun run = runHere({"find", "d", "-l"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("d/b.xml\n"));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::remove(m_place.path("d/pipe")));
    const CommandRun zeros = runHere({"find", "d/zeros.bin"}, m_place.folder());
    QCOMPARE(zeros.errors, QByteArray("d/zeros.bin: error: the item head at 0x0 cannot be right\n"));
    QCOMPARE(zeros.exitCode, 2);
    QVERIFY(QFile::remove(m_place.path("d/zeros.bin")));
}

/// They are told, and what can be read is found; a loop of links is no trouble.
void tst_FindCommand::closedFolderAndLoop()
{
    const Workplace place;
    QVERIFY(QDir(place.folder()).mkpath("a/closed"));
    QVERIFY(QFile::link(place.folder(), place.path("a/loop")));
    place.make("a/x.xml", esiWith(deviceOf("5", "1", "Open")));
    place.make("b.xml", esiWith(deviceOf("6", "1", "Closed")));
    QVERIFY(QFile::setPermissions(place.folder(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(place.path("a/closed"), QFile::Permissions()));
    QVERIFY(QFile::link(place.path("a/closed/z.xml"), place.path("c.xml")));
    QVERIFY(QFile::setPermissions(place.path("b.xml"), QFile::Permissions()));
    CommandRun run;
    {
        const OrdinaryUser user;
        QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read everything.");
        run = runHere({"find", "."}, place.folder());
    }
    QVERIFY(QFile::setPermissions(place.path("a/closed"), QFile::Permissions(0x7777)));
    QCOMPARE(run.output, QByteArray("0x7e570009:0x5:0x1\tT-5\tOpen\t./a/x.xml:4\n"));
    QCOMPARE(run.errors, QByteArray("./a/closed: error: the folder cannot be read: Permission denied\n"
                                    "./c.xml: error: the file cannot be read: Permission denied\n"
                                    "./b.xml: error: the file cannot be read: Permission denied\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_FindCommand::named()
{
    const CommandRun run = runHere({"find", "d/c.txt", "d/picture.svg"}, m_place.folder());
    QCOMPARE(run.errors, QByteArray("d/c.txt: error: this is neither an ESI file nor a KTL file\n"
                                    "d/picture.svg: error: this is no ESI file: it has no Vendor element\n"));
    QCOMPARE(run.exitCode, 2);
}

/// What is before the broken place is found, and so is what is in other files.
void tst_FindCommand::brokenBehindADevice()
{
    m_place.make("d/a.xml", esiWith(deviceOf("7", "1", "Whole") + "\n<Device></Devices>"));
    const CommandRun run = runHere({"find", "d", "--type=*"}, m_place.folder());
    QVERIFY(run.output.startsWith("0x7e570009:0x7:0x1\tT-7\tWhole\td/a.xml:4\n0x7e570009:0x1:0x2\t"));
    QCOMPARE(run.errors, QByteArray("d/a.xml:5:18: error: tag mismatch\n"));
    QCOMPARE(run.exitCode, 2);
    QVERIFY(QFile::remove(m_place.path("d/a.xml")));
}

void tst_FindCommand::forms()
{
    const QStringList found{"find", "d/b.xml", "--name=coup*"};
    QCOMPARE(runHere(found + QStringList{"--csv"}, m_place.folder()).output,
             QByteArray("kind,vendor,product,revision,type,name,file,line,offset\r\n"
                        "device,0x7e570009,0x2,0x1,T-2,Coupler,d/b.xml,4,\r\n"));
    const CommandRun json = runHere(found + QStringList{"--json"}, m_place.folder());
    const QJsonArray list = QJsonDocument::fromJson(json.output).object().value("found").toArray();
    QCOMPARE(list, QJsonArray({QJsonObject{{"kind", "device"},
                                           {"identity", "0x7e570009:0x2:0x1"},
                                           {"vendor", 0x7e570009},
                                           {"product", 2},
                                           {"revision", 1},
                                           {"type", "T-2"},
                                           {"name", "Coupler"},
                                           {"file", "d/b.xml"},
                                           {"line", 4}}}));
    QCOMPARE(QJsonDocument::fromJson(runHere({"find", "--json", "--name=x", "a.xml"}, m_place.folder()).output),
             QJsonDocument::fromJson("{\"found\": []}"));
}

/// A name with a line feed is one line for people, and itself between zeros.
void tst_FindCommand::namesOfFiles()
{
    const Workplace place;
    place.make("two\nlines.xml", esiWith(deviceOf("1", "1", "tab\there\nand line")));
    const QByteArray found = "0x7e570009:0x1:0x1\tT-1\ttab here and line\t";
    QCOMPARE(runHere({"find", "."}, place.folder()).output, found + "./two lines.xml:4\n");
    QCOMPARE(runHere({"find", "-0", "."}, place.folder()).output, found + "./two\nlines.xml:4" + QByteArray(1, '\0'));
    QCOMPARE(runHere({"find", "-l", "."}, place.folder()).output, QByteArray("./two\nlines.xml\n"));
    QCOMPARE(runHere({"find", "-l", "."}, place.folder(), 1, 80).output, QByteArray("./two lines.xml\n"));
}

void tst_FindCommand::exportedFile()
{
    const Workplace place;
    const QString coupler = sample(QStringLiteral("bus-coupler.xml"));
    QCOMPARE(runHere({"convert", coupler, "-o", "c.ktl"}, place.folder()).exitCode, 0);
    const CommandRun run = runHere({"find", "c.ktl", "--modules"}, place.folder());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("0x7e570002:0x5001:0x30001\t\tMB-C100 bus coupler for 16 modules\tc.ktl:0x0\n"
                                  "0x10\t\tMB-PF24 power feed 24 V with monitor\tc.ktl:0x410\n"));
    QFile file(place.path("c.ktl"));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(0xa00));
    const CommandRun cut = runHere({"find", "."}, place.folder());
    QCOMPARE(cut.exitCode, 2);
    QVERIFY(cut.output.startsWith("0x7e570002:0x5001:0x30001\t"));
    QCOMPARE(cut.errors, QByteArray("./c.ktl: error: the last run has no End item: the file was cut short\n"));
}

void tst_FindCommand::anyNumberOfCores()
{
    const QStringList call{"find", "--modules", QStringLiteral(KINETRA_SOURCE_DIR "/samples"), "d", "a.xml"};
    const CommandRun one = runHere(call, m_place.folder(), 1);
    QVERIFY(!one.output.isEmpty());
    QCOMPARE(runHere(call, m_place.folder(), 5).output, one.output);
}

/// The identity of each line means the devices of that line.
void tst_FindCommand::selectors()
{
    const QString samples = QStringLiteral(KINETRA_SOURCE_DIR "/samples");
    const QList<QByteArray> lines = runHere({"find", samples}).output.trimmed().split('\n');
    QCOMPARE(lines.size(), 7);
    for (const QByteArray& line : lines) {
        const QList<QByteArray> columns = line.split('\t');
        const QString file = QString::fromUtf8(columns[3].left(columns[3].lastIndexOf(':')));
        const CommandRun run = runHere({"check", file, "--device", QString::fromLatin1(columns[0])});
        QVERIFY2(run.exitCode != 2, run.errors.constData());
    }
}

/// Of what a pipe and a redirection give, and where nobody takes what is found.
void tst_FindCommand::throughTheProgram()
{
    CommandStart start;
    start.input = esiWith(deviceOf("5", "1", "Piped"));
    const CommandRun piped = runKtl({"find", "-"}, start);
    QCOMPARE(piped.output, QByteArray("0x7e570009:0x5:0x1\tT-5\tPiped\t<stdin>:4\n"));
    QCOMPARE(piped.exitCode, 0);
    QVERIFY(QDir(m_place.folder()).mkpath("-"));
    start.folder = m_place.folder();
    QCOMPARE(runKtl({"find", "-"}, start).output, piped.output);
    CommandStart redirected;
    redirected.inputFile = m_place.path("a.xml");
    QCOMPARE(runKtl({"find", "-", "-l"}, redirected).output, QByteArray("<stdin>\n"));
    CommandStart full;
    full.outputFile = QStringLiteral("/dev/full");
    QCOMPARE(runKtl({"find", m_place.path("a.xml")}, full).exitCode, 3);
    QCOMPARE(runKtl({"find", m_place.folder(), "--product=99"}).exitCode, 1);
}

void tst_FindCommand::manyFiles()
{
    constexpr int count = 10000;
    const Workplace place;
    const QByteArray content = esiWith(deviceOf("5", "1", "One of many"));
    for (int number = 0; number < count; ++number)
        QVERIFY(!place.make(QStringLiteral("%1.xml").arg(number, 5, 10, QLatin1Char('0')), content).isEmpty());
    const CommandRun run = runKtl({"find", "-l", place.folder()});
    QCOMPARE(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.size(), count + 1);
    for (int number = 0; number < count; ++number)
        QVERIFY(lines[number].endsWith(QByteArray::number(count + number).right(4) + ".xml"));
}

static const testMain::Registration<tst_FindCommand, QCoreApplication> registration;
#include "tst_FindCommand.moc"
