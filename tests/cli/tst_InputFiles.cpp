// What `ktl` is given to read: whether it fits the sub-command, input that is too large or has no end, input that
// cannot be read.
// Covers esiInput.cpp, inputFile.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_InputFiles : public QObject
{
    Q_OBJECT

private slots:
    void wrongKind_data();
    void wrongKind();
    void endlessInput_data();
    void endlessInput();
    void largeKtl_data();
    void largeKtl();
    void largeTargetOfAppend();
    void cannotBeRead_data();
    void cannotBeRead();
    void noRoomForTemporaryFiles_data();
    void noRoomForTemporaryFiles();
};

namespace {

const QByteArray endItem = QByteArray::fromHex("000000000C00000000000000");

/// Runs a line of the shell, in which "$0" is the command.
CommandRun runShell(const QString& line, const QString& folder, const QStringList& variables = {})
{
    CommandStart start;
    start.folder = folder;
    start.program = QStringLiteral("sh");
    start.variables = variables;
    return runKtl({"-c", line, KTL_PROGRAM}, start);
}

} // namespace

void tst_InputFiles::wrongKind_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("message");
    const QByteArray isKtl = "error: this is a KTL file, not an ESI file\n";
    const QByteArray isEsi = "error: this is an ESI file, not a KTL file\n";
    const QByteArray isNeither = "error: this is no KTL file\n";
    QTest::addRow("KTL file to convert") << "convert end.ktl -o out.ktl"
                                         << "end.ktl: " + isKtl;
    QTest::addRow("KTL file to convert, from a pipe") << "convert - -o out.ktl < end.ktl"
                                                      << "<stdin>: " + isKtl;
    QTest::addRow("choices of a KTL file") << "choices end.ktl"
                                           << "end.ktl: " + isKtl;
    QTest::addRow("dump of an ESI file") << "dump drive.xml"
                                         << "drive.xml: " + isEsi;
    QTest::addRow("dump of an ESI file with a byte order mark") << "dump mark.xml"
                                                                << "mark.xml: " + isEsi;
    QTest::addRow("dump of text") << "dump text.ktl"
                                  << "text.ktl: " + isNeither;
    QTest::addRow("dump of an empty file") << "dump empty.ktl"
                                           << "empty.ktl: " + isNeither;
    QTest::addRow("dump of three bytes") << "dump three.ktl"
                                         << "three.ktl: " + isNeither;
}

/// The message says what the file is, and nothing comes out.
void tst_InputFiles::wrongKind()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, message);
    const Workplace place;
    place.make(QStringLiteral("end.ktl"), endItem);
    place.make(QStringLiteral("drive.xml"), esiWith(""));
    place.make(QStringLiteral("mark.xml"), "\xEF\xBB\xBF\n" + esiWith(""));
    place.make(QStringLiteral("text.ktl"), "KTL Version V1.0.28 \n");
    place.make(QStringLiteral("empty.ktl"), "");
    place.make(QStringLiteral("three.ktl"), endItem.left(3));
    const QStringList names = place.names();
    const CommandRun run = runShell("exec \"$0\" " + line, place.folder());
    QCOMPARE(run.errors, message);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), names);
}

void tst_InputFiles::endlessInput_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("message");
    const QByteArray atLimit = "error: the file is larger than 268435456 bytes\n";
    const QByteArray noHead = "error: the item head at 0x0 cannot be right\n";
    const QString hugeItem = R"((printf '\116\234\0\0\377\377\377\177'; cat /dev/zero) | )";
    QTest::addRow("text to show") << "yes | \"$0\" show -"
                                  << QByteArray("<stdin>: error: this is neither an ESI file nor a KTL file\n");
    QTest::addRow("text to dump") << "yes | \"$0\" dump -" << QByteArray("<stdin>: error: this is no KTL file\n");
    QTest::addRow("XML to show") << "yes '<a>' | \"$0\" show -"
                                 << "<stdin>:1:1: " + atLimit;
    QTest::addRow("XML to dump") << "yes '<a>' | \"$0\" dump -"
                                 << QByteArray("<stdin>: error: this is an ESI file, not a KTL file\n");
    QTest::addRow("line feeds to show") << "yes '' | \"$0\" show -"
                                        << "<stdin>:1:1: " + atLimit;
    QTest::addRow("device of zeros to show") << "\"$0\" show --csv pdo /dev/zero"
                                             << "/dev/zero: " + noHead;
    QTest::addRow("device of zeros to dump") << "\"$0\" dump /dev/zero"
                                             << "/dev/zero: " + noHead;
    QTest::addRow("item of two gigabytes to show") << hugeItem + "\"$0\" show -"
                                                   << "<stdin>: " + atLimit;
    QTest::addRow("item of two gigabytes to dump") << hugeItem + "\"$0\" dump -"
                                                   << "<stdin>: " + atLimit;
}

/// The first bytes decide, or the limit on the size does.
void tst_InputFiles::endlessInput()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, message);
    const Workplace place;
    const CommandRun run = runShell(line, place.folder());
    QVERIFY(run.hasEnded);
    QCOMPARE(run.errors, message);
    QCOMPARE(run.exitCode, 2);
}

void tst_InputFiles::largeKtl_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QByteArray>("message");
    const qint64 limit = 268435456;
    QTest::addRow("at the limit") << limit << QByteArray("the item head at 0xc cannot be right");
    QTest::addRow("one byte more") << limit + 1 << QByteArray("the file is larger than 268435456 bytes");
    QTest::addRow("five gigabytes") << (5LL << 30) << QByteArray("the file is larger than 268435456 bytes");
}

/// An End item with a hole of zeros after it, which takes no room on the disk. JSON stays JSON.
void tst_InputFiles::largeKtl()
{
    QFETCH(qint64, size);
    QFETCH(QByteArray, message);
    const Workplace place;
    place.make(QStringLiteral("large.ktl"), endItem);
    QVERIFY(QFile::resize(place.path(QStringLiteral("large.ktl")), size));
    for (const QStringList& command : {QStringList{"show", "--json"}, QStringList{"dump"}}) {
        const CommandRun run = runHere(command + QStringList{"large.ktl"}, place.folder());
        QCOMPARE(run.errors, "large.ktl: error: " + message + "\n");
        QCOMPARE(run.exitCode, 2);
        QVERIFY(command.contains("dump") || run.output.endsWith("\n]}\n"));
    }
}

void tst_InputFiles::largeTargetOfAppend()
{
    const Workplace place;
    place.make(QStringLiteral("large.ktl"), endItem);
    QVERIFY(QFile::resize(place.path(QStringLiteral("large.ktl")), 268435457));
    const CommandRun run = runHere({"convert", sample(), "-o", "large.ktl", "--append"}, place.folder());
    QCOMPARE(run.errors, QByteArray("large.ktl: error: nothing can be added to a file of more than 268435456 bytes\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"large.ktl"});
    QCOMPARE(QFileInfo(place.path(QStringLiteral("large.ktl"))).size(), 268435457);
}

void tst_InputFiles::cannotBeRead_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("message");
    const QByteArray closed = "<stdin>: error: the file cannot be read: Bad file descriptor\n";
    const QByteArray memory = "/proc/self/mem: error: the file cannot be read: Input/output error\n";
    for (const char* command : {"show", "dump", "choices", "convert -o out.ktl"}) {
        const QString line = QStringLiteral("exec \"$0\" ") + QString::fromLatin1(command);
        QTest::addRow("%s, standard input closed", command) << line + " - <&-" << closed;
        QTest::addRow("%s, a file that fails", command) << line + " /proc/self/mem" << memory;
    }
}

/// With the reason of the system, in English in any locale.
void tst_InputFiles::cannotBeRead()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, message);
    const Workplace place;
    const CommandRun run = runShell(line, place.folder());
    QCOMPARE(run.errors, message);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList());
}

void tst_InputFiles::noRoomForTemporaryFiles_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("input");
    QTest::addRow("KTL file to show") << "show --json"
                                      << "end.ktl";
    QTest::addRow("KTL file to dump") << "dump"
                                      << "end.ktl";
    QTest::addRow("ESI file to show") << "show --json" << sample("bus-coupler.xml");
}

/// A pipe is read like a file, and nothing of it goes to the disk: its whole content may not be 1 KB there.
void tst_InputFiles::noRoomForTemporaryFiles()
{
    QFETCH(QString, command);
    QFETCH(QString, input);
    const Workplace place;
    place.make(QStringLiteral("end.ktl"), endItem);
    const QStringList variables{"TMPDIR=/nonexistent"};
    const QString read = "ulimit -f 0; cat '" + input + "' | \"$0\" " + command + " - | sed 's/<stdin>/FILE/'";
    const QString plain = "\"$0\" " + command + " '" + input + "' | sed 's|\"" + input + "\"|\"FILE\"|'";
    const CommandRun run = runShell(read, place.folder(), variables);
    QCOMPARE(run.errors, QByteArray());
    QVERIFY(!run.output.isEmpty());
    QCOMPARE(run.output, runShell(plain, place.folder()).output);
}

static const testMain::Registration<tst_InputFiles, QCoreApplication> registration;
#include "tst_InputFiles.moc"
