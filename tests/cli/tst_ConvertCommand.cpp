// `ktl convert`: ESI files in, a KTL file and its dump out.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_ConvertCommand : public QObject
{
    Q_OBJECT

private slots:
    void oneFile_data();
    void oneFile();
    void severalFilesInTheirOrder();
    void sameFileTwice();
    void dumpAgreesWithFile();
    void namesOutsideAscii();
    void standardInput();
    void pipe();
    void proposedName();
    void existingFile_data();
    void existingFile();
    void existingDump();
    void givenTwice_data();
    void givenTwice();
    void noDevice_data();
    void noDevice();
};

void tst_ConvertCommand::oneFile_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addRow("option after the file") << QStringList{"convert", sample(), "-o", "out.ktl"};
    QTest::addRow("option before the file") << QStringList{"convert", "-o", "out.ktl", sample()};
    QTest::addRow("long option") << QStringList{"convert", sample(), "--output", "out.ktl"};
    QTest::addRow("long option with its value") << QStringList{"convert", sample(), "--output=out.ktl"};
}

/// Every device of the file, nothing on the terminal, and nothing else in the folder.
void tst_ConvertCommand::oneFile()
{
    QFETCH(QStringList, arguments);
    const Workplace place;
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(place.content("out.ktl")), sampleDevices());
    QVERIFY(
        place.content("out.ktl.txt").startsWith("KTL Version V1.0.28 \nItemHead-dec: 40000,Len: 52    General \r\n"));
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

void tst_ConvertCommand::severalFilesInTheirOrder()
{
    const Workplace place;
    const CommandRun run =
        runHere({"convert", sample("oversampling-terminal.xml"), sample("bus-coupler.xml"), sample(), "-o", "out.ktl"},
                place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QStringList vendors;
    for (const QString& device : devicesIn(place.content("out.ktl")))
        vendors.append(device.left(8));
    QCOMPARE(vendors, (QStringList{"7e570004", "7e570004", "7e570002", "7e570003", "7e570003"}));
    QCOMPARE(place.content("out.ktl.txt").count("ItemHead-dec: 0,"), 1); // one end item for all
}

void tst_ConvertCommand::sameFileTwice()
{
    const Workplace place;
    QCOMPARE(runHere({"convert", sample(), sample(), "-o", "out.ktl"}, place.folder()).exitCode, 0);
    QCOMPARE(devicesIn(place.content("out.ktl")), sampleDevices() + sampleDevices());
}

void tst_ConvertCommand::dumpAgreesWithFile()
{
    const Workplace place;
    QCOMPARE(runHere({"convert", sample("servo-drive.xml"), "-o", "out.ktl"}, place.folder()).exitCode, 0);
    QString problem;
    const std::vector<KtlItem> items = itemsOf(place.content("out.ktl"), &problem);
    const std::vector<DumpItem> shown = dumpItemsOf(place.content("out.ktl.txt"), &problem);
    QCOMPARE(problem, QString());
    QVERIFY(items.size() > 1);
    QCOMPARE(shown.size(), items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        QCOMPARE(shown[index].type, qint64(items[index].type));
        QCOMPARE(shown[index].words.size(), std::size_t(items[index].content.size() - 8) / 4);
        for (std::size_t word = 0; word < shown[index].words.size(); ++word)
            QCOMPARE(shown[index].words[word], items[index].u32(static_cast<int>(8 + 4 * word)));
    }
}

void tst_ConvertCommand::namesOutsideAscii()
{
    const Workplace place;
    const QString esi = place.path(QString::fromUtf8("设备 描述.xml"));
    QVERIFY(QFile::copy(sample(), esi));
    const CommandRun run = runHere({"convert", esi, "-o", QString::fromUtf8("输出 é.ktl")}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(place.content(QString::fromUtf8("输出 é.ktl"))), sampleDevices());
    QVERIFY(QFile::exists(place.path(QString::fromUtf8("输出 é.ktl.txt"))));
}

/// The bytes do not depend on the way in.
void tst_ConvertCommand::standardInput()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.input = contentOf(sample());
    const QStringList others{sample("dual-axis-drive.xml"), "--date", "2026-11-21", "-o"};
    const CommandRun run = runKtl(QStringList{"convert", "-"} + others + QStringList{"piped.ktl"}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    const QStringList named = QStringList{"convert", sample()} + others + QStringList{"read.ktl"};
    QCOMPARE(runKtl(named, place.folder()).exitCode, 0);
    QCOMPARE(place.content("piped.ktl"), place.content("read.ktl"));
    QVERIFY(devicesIn(place.content("piped.ktl")).startsWith(sampleDevices().constFirst()));
}

/// A pipe can be read once, from its start to its end.
void tst_ConvertCommand::pipe()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("bash");
    const CommandRun run =
        runKtl({"-c", QStringLiteral("exec \"$0\" convert <(cat \"$1\") -o out.ktl"), KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(place.content("out.ktl")), sampleDevices());
}

/// Without -o: at most 15 characters of the file's name up to its first point, a hyphen and the vendor id, of this at
/// most 20 characters, and the ending. The file of the first device that is written counts. The name is reported, which
/// is no warning.
void tst_ConvertCommand::proposedName()
{
    const Workplace place;
    const QString empty = place.make(QStringLiteral("empty.xml"), esiWith(""));
    QVERIFY(QFile::copy(sample(), place.path(QStringLiteral("a.b.xml"))));
    const CommandRun run = runHere({"convert", empty, "a.b.xml", "--strict"}, place.folder());
    QCOMPARE(run.errors, QByteArray("ktl: note: writes a-0x7e570003.ktl; -o names another file\n"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(place.names(), (QStringList{"a-0x7e570003.ktl", "a-0x7e570003.ktl.txt", "a.b.xml", "empty.xml"}));
    // "oversampling-terminal" is cut to "oversampling-te", and with "-0x7e570004" to 20 characters.
    QCOMPARE(runHere({"convert", sample("oversampling-terminal.xml")}, place.folder()).exitCode, 0);
    QVERIFY(place.names().contains(QStringLiteral("oversampling-te-0x7e.ktl")));
}

void tst_ConvertCommand::existingFile_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("namesOutput");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("runs"); // of the sample that the file holds in the end
    QTest::addRow("neither") << QStringList{} << true << 2 << 1;
    QTest::addRow("replaced") << QStringList{"--force"} << true << 0 << 1;
    QTest::addRow("added to") << QStringList{"--append"} << true << 0 << 2;
    QTest::addRow("proposed name, neither") << QStringList{} << false << 2 << 1;
    QTest::addRow("proposed name, replaced") << QStringList{"--force"} << false << 0 << 1;
    QTest::addRow("proposed name, added to") << QStringList{"--append"} << false << 0 << 2;
}

/// Every option also works for a file that does not exist yet.
void tst_ConvertCommand::existingFile()
{
    QFETCH(QStringList, options);
    QFETCH(bool, namesOutput);
    QFETCH(int, exitCode);
    QFETCH(int, runs);
    const Workplace place;
    const QString ktl = namesOutput ? QStringLiteral("out.ktl") : QStringLiteral("io-block-0x7e570003.ktl");
    const QStringList arguments =
        QStringList{"convert", sample()} + (namesOutput ? QStringList{"-o", ktl} : QStringList()) + options;
    QCOMPARE(runHere(arguments, place.folder()).exitCode, 0);
    const QByteArray one = place.content(ktl);
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.exitCode, exitCode);
    const QByteArray note =
        namesOutput ? QByteArray() : "ktl: note: writes " + ktl.toUtf8() + "; -o names another file\n";
    QCOMPARE(run.errors, exitCode == 0
                             ? note
                             : ktl.toUtf8() + ": error: the file exists; --force replaces it, --append adds to it\n");
    QCOMPARE(place.content(ktl), one.repeated(runs));
    QCOMPARE(place.content(ktl + QStringLiteral(".txt")).count("ItemHead-dec: 0,"), runs);
    QCOMPARE(place.names(), (QStringList{ktl, ktl + QStringLiteral(".txt")}));
}

/// A dump without its file counts like the file.
void tst_ConvertCommand::existingDump()
{
    const Workplace place;
    place.make(QStringLiteral("out.ktl.txt"), "notes");
    const QStringList arguments{"convert", sample(), "-o", "out.ktl"};
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.errors, QByteArray("out.ktl.txt: error: the file exists; --force replaces it, --append adds to it\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.content(QStringLiteral("out.ktl.txt")), QByteArray("notes"));
    QCOMPARE(place.names(), QStringList{"out.ktl.txt"});
    for (const char* option : {"--append", "--force"}) {
        QCOMPARE(runHere(arguments + QStringList{option}, place.folder()).exitCode, 0);
        QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))), sampleDevices());
        QVERIFY(place.content(QStringLiteral("out.ktl.txt")).startsWith("KTL Version"));
        QVERIFY(QFile::remove(place.path(QStringLiteral("out.ktl"))));
    }
}

void tst_ConvertCommand::givenTwice_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("option");
    QTest::addRow("output") << QStringList{"-o", "a.ktl", "--output", "b.ktl"} << QByteArray("--output");
    QTest::addRow("the same output") << QStringList{"-o", "a.ktl", "-o", "a.ktl"} << QByteArray("--output");
    QTest::addRow("time") << QStringList{"-o", "a.ktl", "--date", "2026-11-21", "--date=2026-11-22"}
                          << QByteArray("--date");
    QTest::addRow("choices") << QStringList{"-o", "a.ktl", "--choices", "a.json", "--choices", "b.json"}
                             << QByteArray("--choices");
}

/// Of two values none counts.
void tst_ConvertCommand::givenTwice()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, option);
    const Workplace place;
    const CommandRun run = runHere(QStringList{"convert", sample()} + options, place.folder());
    QCOMPARE(run.errors, "ktl: error: " + option + " can be given once only (see: ktl convert --help)\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList());
}

void tst_ConvertCommand::noDevice_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addRow("all devices") << QStringList{};
    QTest::addRow("one that is asked for") << QStringList{"--device", "1"};
}

/// Each file is named.
void tst_ConvertCommand::noDevice()
{
    QFETCH(QStringList, options);
    const Workplace place;
    place.make(QStringLiteral("a.xml"), esiWith(""));
    place.make(QStringLiteral("b.xml"), esiWith(""));
    const CommandRun run = runHere(QStringList{"convert", "a.xml", "b.xml", "-o", "out.ktl"} + options, place.folder());
    QCOMPARE(run.errors, QByteArray("a.xml: error: the file holds no device, nothing is written\n"
                                    "b.xml: error: the file holds no device, nothing is written\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), (QStringList{"a.xml", "b.xml"}));
}

static const testMain::Registration<tst_ConvertCommand, QCoreApplication> registration;
#include "tst_ConvertCommand.moc"
