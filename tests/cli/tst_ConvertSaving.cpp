// `ktl convert`: the KTL file and its dump are written both or not at all, and what was there before survives.
// Covers atomicSave.cpp, saveFolder.cpp.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QFileInfo>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

class tst_ConvertSaving : public QObject
{
    Q_OBJECT

private slots:
    void fullDisk_data();
    void fullDisk();
    void cannotBeMade_data();
    void cannotBeMade();
    void readOnlyTarget_data();
    void readOnlyTarget();
    void readOnlyFolder();
    void noRegularFile();
    void linksAreFollowed();
    void twoNamesOfOneFile_data();
    void twoNamesOfOneFile();
    void dumpInAnotherFolder();
    void permissionsStay();
    void ownerStays();
    void foreignGroupGetsNoMore();
    void appendToAnything_data();
    void appendToAnything();
    void appendToAGiant();
    void appendAtOnce();
    void endedByASignal();
};

static const QByteArray endItem = QByteArray::fromHex("000000000C00000000000000");

/// Lets anybody work in the folder of a test.
static bool openToAll(const Workplace& place)
{
    return QFile::setPermissions(place.folder(), QFileDevice::Permissions(0x7777));
}

/// The command without the rights of root, for whom no file is closed. A copy of it runs: the folder that it was built
/// in may be closed to others.
static CommandRun runAsOrdinaryUser(const QStringList& arguments, const Workplace& place)
{
    CommandStart start;
    start.folder = place.folder();
    if (geteuid() != 0)
        return runKtl(arguments, start);
    const Workplace programs;
    const QString program = programs.path(QStringLiteral("ktl"));
    if (!openToAll(programs) || !QFile::copy(QStringLiteral(KTL_PROGRAM), program)
        || !QFile::setPermissions(program, QFileDevice::Permissions(0x7755)))
        return {};
    start.program = QStringLiteral("setpriv");
    return runKtl(QStringList{"--reuid=65534", "--regid=65534", "--clear-groups", program} + arguments, start);
}

void tst_ConvertSaving::fullDisk_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<int>("blocks"); // of 512 bytes that a file can have: the file takes two of them, its dump three
    QTest::addColumn<QByteArray>("failed");
    QTest::addRow("the file, replaced") << "--force" << 1 << QByteArray("out.ktl");
    QTest::addRow("the file, added to") << "--append" << 1 << QByteArray("out.ktl");
    QTest::addRow("the dump, replaced") << "--force" << 2 << QByteArray("out.ktl.txt");
    QTest::addRow("the dump, added to") << "--append" << 2 << QByteArray("out.ktl.txt");
}

/// A limit on the size of files acts as a disk that is full.
void tst_ConvertSaving::fullDisk()
{
    QFETCH(QString, option);
    QFETCH(int, blocks);
    QFETCH(QByteArray, failed);
    const Workplace place;
    place.make(QStringLiteral("out.ktl"), endItem);
    place.make(QStringLiteral("out.ktl.txt"), "earlier dump");
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const QString limited =
        QStringLiteral("ulimit -f %1; exec \"$0\" convert \"$1\" -o out.ktl %2").arg(blocks).arg(option);
    const CommandRun run = runKtl({"-c", limited, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(run.errors, failed + ": error: the file cannot be written in full: File too large\n");
    QCOMPARE(place.content(QStringLiteral("out.ktl")), endItem);
    QCOMPARE(place.content(QStringLiteral("out.ktl.txt")), QByteArray("earlier dump"));
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

void tst_ConvertSaving::cannotBeMade_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("folder that is not there") << "gone/out.ktl" << QByteArray("gone/out.ktl: error: ");
    QTest::addRow("a file where a folder should be") << "plain/out.ktl" << QByteArray("plain/out.ktl: error: ");
    QTest::addRow("a folder where the file should be") << "folder" << QByteArray("folder: error: this is a folder\n");
    QTest::addRow("a folder where the dump should be")
        << "dumped" << QByteArray("dumped.txt: error: this is a folder\n");
    QTest::addRow("a link to nothing") << "dangling"
                                       << QByteArray("dangling: error: this is a link to a file that does not exist\n");
}

void tst_ConvertSaving::cannotBeMade()
{
    QFETCH(QString, output);
    QFETCH(QByteArray, message);
    const Workplace place;
    place.make(QStringLiteral("plain"), "");
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("folder"))));
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("dumped.txt"))));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), place.path(QStringLiteral("dangling"))));
    const QStringList names = place.names();
    const CommandRun run = runHere({"convert", sample(), "-o", output, "--force"}, place.folder());
    QCOMPARE(run.exitCode, 3);
    QVERIFY2(run.errors.startsWith(message), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(place.names(), names);
    QVERIFY(QDir(place.path(QStringLiteral("folder"))).isEmpty());
}

void tst_ConvertSaving::readOnlyTarget_data()
{
    QTest::addColumn<QString>("closed");
    QTest::addColumn<QString>("option");
    for (const char* closed : {"out.ktl", "out.ktl.txt"})
        for (const char* option : {"--force", "--append"})
            QTest::addRow("%s, %s", closed, option) << QString::fromLatin1(closed) << QString::fromLatin1(option);
}

/// A file without write permission is not replaced, although its folder would allow it.
void tst_ConvertSaving::readOnlyTarget()
{
    QFETCH(QString, closed);
    QFETCH(QString, option);
    const Workplace place;
    place.make(QStringLiteral("in.xml"), contentOf(sample()));
    place.make(QStringLiteral("out.ktl"), endItem);
    place.make(QStringLiteral("out.ktl.txt"), "earlier dump");
    QVERIFY(openToAll(place));
    for (const char* name : {"out.ktl", "out.ktl.txt"})
        QVERIFY(QFile::setPermissions(place.path(QString::fromLatin1(name)), QFileDevice::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(place.path(closed), QFileDevice::ReadOwner | QFileDevice::ReadOther));
    const CommandRun run = runAsOrdinaryUser({"convert", "in.xml", "-o", "out.ktl", option}, place);
    QCOMPARE(run.errors, closed.toUtf8() + ": error: the file does not have write permission\n");
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(place.content(QStringLiteral("out.ktl")), endItem);
    QCOMPARE(place.content(QStringLiteral("out.ktl.txt")), QByteArray("earlier dump"));
}

void tst_ConvertSaving::readOnlyFolder()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"), contentOf(sample()));
    QVERIFY(QFile::setPermissions(place.folder(), QFileDevice::Permissions(0x5555)));
    const CommandRun run = runAsOrdinaryUser({"convert", "in.xml", "-o", "out.ktl"}, place);
    QVERIFY(QFile::setPermissions(place.folder(), QFileDevice::Permissions(0x7700)));
    QVERIFY2(run.errors.startsWith("out.ktl: error: the file cannot be written"), run.errors.constData());
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(place.names(), QStringList{"in.xml"});
}

/// A device or pipe stays what it is.
void tst_ConvertSaving::noRegularFile()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const CommandRun run =
        runKtl({"-c", QStringLiteral("mkfifo out.ktl && exec \"$0\" convert \"$1\" -o out.ktl --force"), KTL_PROGRAM,
                sample()},
               start);
    QCOMPARE(run.errors, QByteArray("out.ktl: error: this is no regular file\n"));
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(place.names(), QStringList{"out.ktl"});
    QVERIFY(!QFileInfo(place.path(QStringLiteral("out.ktl"))).isFile());
}

void tst_ConvertSaving::linksAreFollowed()
{
    const Workplace place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("far"))));
    place.make(QStringLiteral("far/file"), "earlier");
    place.make(QStringLiteral("far/text"), "earlier");
    QVERIFY(QFile::link(QStringLiteral("far/file"), place.path(QStringLiteral("out.ktl"))));
    QVERIFY(QFile::link(QStringLiteral("far/text"), place.path(QStringLiteral("out.ktl.txt"))));
    const CommandRun run = runHere({"convert", sample(), "-o", "out.ktl", "--force"}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFileInfo(place.path(QStringLiteral("out.ktl"))).isSymLink());
    QVERIFY(QFileInfo(place.path(QStringLiteral("out.ktl.txt"))).isSymLink());
    QCOMPARE(devicesIn(place.content(QStringLiteral("far/file"))), sampleDevices());
    QVERIFY(place.content(QStringLiteral("far/text")).startsWith("KTL Version V1.0.28 \n"));
}

void tst_ConvertSaving::twoNamesOfOneFile_data()
{
    QTest::addColumn<QString>("command"); // that makes the second name
    QTest::addColumn<QString>("option");
    for (const char* option : {"", "--force", "--append"}) {
        QTest::addRow("dump that is a link, %s", option) << "ln -s out.ktl out.ktl.txt" << option;
        QTest::addRow("dump that is a second name, %s", option) << "ln out.ktl out.ktl.txt" << option;
        QTest::addRow("file that is a link, %s", option)
            << "mv out.ktl out.ktl.txt; ln -s out.ktl.txt out.ktl" << option;
    }
}

/// The dump would replace the file that it shows.
void tst_ConvertSaving::twoNamesOfOneFile()
{
    QFETCH(QString, command);
    QFETCH(QString, option);
    const Workplace place;
    place.make(QStringLiteral("out.ktl"), endItem);
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const CommandRun run =
        runKtl({"-c", command + "; exec \"$0\" convert \"$1\" -o out.ktl " + option, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray("out.ktl.txt: error: this is the same file as out.ktl, whose dump it would be\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.content(QStringLiteral("out.ktl")), endItem);
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

/// The dump is beside the name that was given, even where that is a link to another folder.
void tst_ConvertSaving::dumpInAnotherFolder()
{
    const Workplace place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("far"))));
    place.make(QStringLiteral("far/file"), "earlier");
    QVERIFY(QFile::link(QStringLiteral("far/file"), place.path(QStringLiteral("out.ktl"))));
    const CommandRun run = runHere({"convert", sample(), "-o", "out.ktl", "--force"}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(devicesIn(place.content(QStringLiteral("far/file"))), sampleDevices());
    QVERIFY(place.content(QStringLiteral("out.ktl.txt")).startsWith("KTL Version V1.0.28 \n"));
    QCOMPARE(place.names(), (QStringList{"far", "out.ktl", "out.ktl.txt"}));
    QCOMPARE(Workplace::namesIn(place.path(QStringLiteral("far"))), QStringList{"file"});
}

/// A new file gets the permissions that any new file gets, an old one keeps its own.
void tst_ConvertSaving::permissionsStay()
{
    const Workplace place;
    const QString ktl = place.path(QStringLiteral("out.ktl"));
    const QStringList arguments{"convert", sample(), "-o", "out.ktl", "--force"};
    QCOMPARE(runHere(arguments, place.folder()).exitCode, 0);
    const QString plain = place.make(QStringLiteral("plain"), "");
    QCOMPARE(QFile::permissions(ktl), QFile::permissions(plain));
    const QFileDevice::Permissions own =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser | QFileDevice::WriteUser;
    QVERIFY(QFile::setPermissions(ktl, own));
    QCOMPARE(runHere(arguments, place.folder()).exitCode, 0);
    QCOMPARE(QFile::permissions(ktl), own);
}

/// Root may give a file to anybody, and a user to the groups that he is in.
void tst_ConvertSaving::ownerStays()
{
    const Workplace place;
    const QByteArray ktl = QFile::encodeName(place.make(QStringLiteral("out.ktl"), ""));
    gid_t groups[64] = {};
    const int count = getgroups(64, groups);
    const bool isRoot = geteuid() == 0;
    const uid_t owner = isRoot ? 65534 : geteuid();
    const gid_t group = isRoot ? 65533 : count > 0 ? groups[count - 1] : getegid();
    QCOMPARE(chown(ktl.constData(), owner, group), 0);
    QCOMPARE(chmod(ktl.constData(), 0640), 0);
    QCOMPARE(runHere({"convert", sample(), "-o", "out.ktl", "--force"}, place.folder()).exitCode, 0);
    struct stat status = {};
    QCOMPARE(stat(ktl.constData(), &status), 0);
    QVERIFY(status.st_size > 0);
    QCOMPARE(status.st_uid, owner);
    QCOMPARE(status.st_gid, group);
    QCOMPARE(status.st_mode & 07777U, 0640U);
}

/// A group that the user cannot give the file to is another one in the new file: it may do what anybody may.
void tst_ConvertSaving::foreignGroupGetsNoMore()
{
    const Workplace place;
    place.make(QStringLiteral("in.xml"), contentOf(sample()));
    const QByteArray ktl = QFile::encodeName(place.make(QStringLiteral("out.ktl"), ""));
    QVERIFY(openToAll(place));
    QCOMPARE(chmod(ktl.constData(), 0676), 0);
    const CommandRun run = runAsOrdinaryUser({"convert", "in.xml", "-o", "out.ktl", "--force"}, place);
    QCOMPARE(run.errors, QByteArray());
    struct stat status = {};
    QCOMPARE(stat(ktl.constData(), &status), 0);
    QVERIFY(status.st_size > 0);
    // Without root there is no second user: the file is the user's own, and keeps its group.
    QCOMPARE(status.st_mode & 07777U, geteuid() == 0 ? 0666U : 0676U);
}

void tst_ConvertSaving::appendToAnything_data()
{
    QTest::addColumn<QByteArray>("earlier");
    QTest::addColumn<QByteArray>("problem");
    QTest::addRow("whole") << endItem << QByteArray();
    QTest::addRow("empty") << QByteArray("") << QByteArray();
    QTest::addRow("text") << QByteArray("abcdefgh ijkl") << QByteArray("the file ends at 0xd, inside an item");
    QTest::addRow("zeros") << QByteArray(100, '\0') << QByteArray("the item head at 0x0 cannot be right");
    QTest::addRow("cut head") << endItem + "abc" << QByteArray("the file ends inside the item head at 0xc");
    QTest::addRow("no End item") << QByteArray::fromHex("419C00000C00000000000000")
                                 << QByteArray("the last run has no End item: the file was cut short");
}

/// What a whole file holds comes before the new run, byte by byte. Nobody could find the run after anything else, which
/// therefore stays as it is.
void tst_ConvertSaving::appendToAnything()
{
    QFETCH(QByteArray, earlier);
    QFETCH(QByteArray, problem);
    const Workplace place;
    QCOMPARE(runHere({"convert", sample(), "-o", "one.ktl"}, place.folder()).exitCode, 0);
    const QByteArray one = place.content(QStringLiteral("one.ktl"));
    place.make(QStringLiteral("out.ktl"), earlier);
    const CommandRun run = runHere({"convert", sample(), "-o", "out.ktl", "--append"}, place.folder());
    QCOMPARE(run.errors, problem.isEmpty() ? QByteArray()
                                           : "out.ktl: error: nothing can be added, for this is no whole KTL file: "
                                                 + problem + "\n");
    QCOMPARE(run.exitCode, problem.isEmpty() ? 0 : 2);
    QCOMPARE(place.content(QStringLiteral("out.ktl")), problem.isEmpty() ? earlier + one : earlier);
    QCOMPARE(QFile::exists(place.path(QStringLiteral("out.ktl.txt"))), problem.isEmpty());
}

/// A file with holes is large without taking a place on the disk; it is not read.
void tst_ConvertSaving::appendToAGiant()
{
    constexpr qint64 gibibyte = 1024 * 1024 * 1024;
    const Workplace place;
    place.make(QStringLiteral("out.ktl"), endItem);
    QVERIFY(QFile::resize(place.path(QStringLiteral("out.ktl")), 5 * gibibyte));
    const CommandRun run = runHere({"convert", sample(), "-o", "out.ktl", "--append"}, place.folder());
    QCOMPARE(run.errors, QByteArray("out.ktl: error: nothing can be added to a file of more than 268435456 bytes\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{"out.ktl"});
}

/// Of several runs that add to the same file at the same time none is lost.
void tst_ConvertSaving::appendAtOnce()
{
    constexpr int runs = 6;
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const QString script =
        QStringLiteral("for i in 1 2 3 4 5 6; do \"$0\" convert \"$1\" -o out.ktl --append & done; wait");
    const CommandRun run = runKtl({"-c", script, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))).size(), 2 * runs);
    QCOMPARE(place.content(QStringLiteral("out.ktl.txt")).count("ItemHead-dec: 0,"), runs);
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

/// Whenever a run is ended, it leaves both files or neither, and nothing else.
void tst_ConvertSaving::endedByASignal()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("bash");
    const QString script =
        QStringLiteral("\"$0\" convert \"$1\" -o out.ktl --force & sleep 0.0$((RANDOM % 3))$((RANDOM % 10))"
                       "; kill -TERM $! 2>/dev/null; wait");
    for (int round = 0; round < 20; ++round) {
        runKtl({"-c", script, KTL_PROGRAM, sample()}, start);
        const QStringList names = place.names();
        QVERIFY2(names.isEmpty() || names == (QStringList{"out.ktl", "out.ktl.txt"}), qPrintable(names.join(' ')));
        for (const QString& name : names)
            QVERIFY(QFile::remove(place.path(name)));
    }
}

static const testMain::Registration<tst_ConvertSaving, QCoreApplication> registration;
#include "tst_ConvertSaving.moc"
