// `ktl convert`: runs that write into the same folder at the same time, and what dead ones leave there.
#include "cli/ktlDevices.h"
#include "cli/stagedRun.h"
#include "testMain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_ConvertAtOnce : public QObject
{
    Q_OBJECT

private slots:
    void oneOfMany();
    void fileThatAppearsBeforeTheInput_data();
    void fileThatAppearsBeforeTheInput();
    void waitingIsAnnouncedAndEnds();
    void waitingGoesOn();
    void waitingEndsByASignal();
    void lockOfAnother();
    void lockThatIsGone();
    void noLocksAtAll();
    void lockIsForWriters_data();
    void lockIsForWriters();
    void leftoversAreCleared();
    void foldersOfOthersStay();
};

static const QString lockName = QStringLiteral(".ktl.lock");
static const QByteArray waitingNote = "out.ktl: note: waiting for another run that writes into the same folder\n";

namespace {

/// A run that goes on while the test does; it is ended with the test.
class LongRun
{
public:
    LongRun(const Workplace& place, const QStringList& variables)
    {
        const CommandStart start = stagedStart(place, variables);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString& variable : start.variables)
            environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(place.folder());
        m_process.start(QStringLiteral(KTL_PROGRAM), {"convert", sample(), "-o", "out.ktl"});
    }
    ~LongRun() { kill(); }
    LongRun(const LongRun&) = delete;
    LongRun& operator=(const LongRun&) = delete;
    LongRun(LongRun&&) = delete;
    LongRun& operator=(LongRun&&) = delete;

    /// Waits until the run has said something.
    /// @return  its first line
    QByteArray firstMessage()
    {
        m_process.setReadChannel(QProcess::StandardError);
        while (!m_process.canReadLine() && m_process.waitForReadyRead(minute))
            continue;
        return m_process.readLine();
    }
    bool waitForEnd() { return m_process.waitForFinished(minute); }
    void terminate() { m_process.terminate(); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished(minute);
    }
    QProcess& process() { return m_process; }

private:
    static constexpr int minute = 60 * 1000;
    QProcess m_process;
};

} // namespace

/// Announces its waiting after half a second, and ends it after seven.
static const QStringList announcesSoon{QStringLiteral("STAGED_CLOCK=4")};

/// Waits until a run that `stopsBeforeItsEnd` has got there.
static bool waitForStop(const Workplace& log)
{
    constexpr int minute = 60 * 1000;
    return QTest::qWaitFor([&] { return log.content(QStringLiteral("calls")).contains("fsync new.ktl.txt\n"); },
                           minute);
}

namespace {

/// Takes the place of a run that writes into a folder.
class HeldLock
{
public:
    explicit HeldLock(const Workplace& place)
        : m_path(QFile::encodeName(place.path(lockName)))
        , m_file(open(m_path.constData(), O_RDWR | O_CREAT, 0600))
        , m_isHeld(flock(m_file, LOCK_EX | LOCK_NB) == 0)
    {}
    ~HeldLock() { release(); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;
    HeldLock(HeldLock&&) = delete;
    HeldLock& operator=(HeldLock&&) = delete;

    [[nodiscard]] bool isHeld() const { return m_isHeld; }
    void release()
    {
        if (m_file >= 0) {
            unlink(m_path.constData());
            close(m_file);
        }
        m_file = -1;
    }

private:
    QByteArray m_path;
    int m_file;
    bool m_isHeld;
};

} // namespace

/// A run that has written its files and waits for the disk, for ever.
static QStringList stopsBeforeItsEnd(const Workplace& log)
{
    return {QStringLiteral("STAGED_AT=fsync#2:wait:0"), QStringLiteral("STAGED_LOG=") + log.path("calls")};
}

/// Of many runs that make the same file, one does.
void tst_ConvertAtOnce::oneOfMany()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const QString script = QStringLiteral(
        "for i in 1 2 3 4 5 6 7 8; do (\"$0\" convert \"$1\" -o out.ktl 2>/dev/null; echo $?) & done; wait");
    const CommandRun run = runKtl({"-c", script, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.output.count("0\n"), 1);
    QCOMPARE(run.output.count("2\n"), 7);
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))), sampleDevices());
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

void tst_ConvertAtOnce::fileThatAppearsBeforeTheInput_data()
{
    QTest::addColumn<QString>("command"); // that makes the file
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("errors");
    QTest::addRow("file that has to stay")
        << "printf precious > out.ktl"
        << "" << QByteArray("out.ktl: error: the file exists; --force replaces it, --append adds to it\n");
    QTest::addRow("dump that leads to the file")
        << "printf precious > out.ktl; ln -s out.ktl out.ktl.txt"
        << "--force" << QByteArray("out.ktl.txt: error: this is the same file as out.ktl, whose dump it would be\n");
}

/// A file may appear while a run still waits for its input.
void tst_ConvertAtOnce::fileThatAppearsBeforeTheInput()
{
    QFETCH(QString, command);
    QFETCH(QString, option);
    QFETCH(QByteArray, errors);
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    // The pipe opens for writing when the run has opened it for reading, and that is after its look at the output.
    const QString script = QStringLiteral("mkfifo in.xml; \"$0\" convert in.xml -o out.ktl %1 & exec 3> in.xml; %2;"
                                          " cat \"$1\" >&3; exec 3>&-; wait $!");
    const CommandRun run = runKtl({"-c", script.arg(option, command), KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, errors);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.content(QStringLiteral("out.ktl")), QByteArray("precious"));
}

/// After 2 seconds it is announced, after 30 it is an error. The clock of the run is fast.
void tst_ConvertAtOnce::waitingIsAnnouncedAndEnds()
{
    const Workplace place;
    const HeldLock lock(place);
    QVERIFY(lock.isHeld());
    QElapsedTimer timer;
    timer.start();
    const CommandRun run = runKtl({"convert", sample(), "-o", "out.ktl"}, stagedStart(place, {"STAGED_CLOCK=100"}));
    QVERIFY(timer.elapsed() >= 30 * 1000 / 100);
    const QByteArray file = QFile::encodeName(QFileInfo(place.folder()).canonicalFilePath() + '/' + lockName);
    QCOMPARE(run.errors, waitingNote
                             + "out.ktl: error: another run has been writing into the folder for 30 seconds; if there "
                               "is none, remove "
                             + file + '\n');
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(place.names(), QStringList{lockName});
}

/// The run goes on when the other one has ended, and the note does not count for its exit status.
void tst_ConvertAtOnce::waitingGoesOn()
{
    const Workplace place;
    HeldLock lock(place);
    QVERIFY(lock.isHeld());
    LongRun run(place, announcesSoon);
    QCOMPARE(run.firstMessage(), waitingNote);
    QCOMPARE(place.names(), QStringList{lockName});
    lock.release();
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.process().exitStatus(), QProcess::NormalExit);
    QCOMPARE(run.process().exitCode(), 0);
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

void tst_ConvertAtOnce::waitingEndsByASignal()
{
    const Workplace place;
    const HeldLock lock(place);
    QVERIFY(lock.isHeld());
    LongRun run(place, announcesSoon);
    QCOMPARE(run.firstMessage(), waitingNote);
    run.terminate();
    QVERIFY(run.waitForEnd());
    QCOMPARE(run.process().exitStatus(), QProcess::CrashExit);
    QCOMPARE(place.names(), QStringList{lockName});
}

/// The folder itself, which anybody who can read it can lock, blocks nobody.
void tst_ConvertAtOnce::lockOfAnother()
{
    const Workplace place;
    const int folder = open(QFile::encodeName(place.folder()).constData(), O_RDONLY | O_DIRECTORY);
    QCOMPARE(flock(folder, LOCK_EX | LOCK_NB), 0);
    const CommandRun run = runKtl({"convert", sample(), "-o", "out.ktl"}, place.folder());
    close(folder);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

/// The run that had the lock removes its file, perhaps when the next one has just opened it. A lock on a file without
/// a name keeps nobody out, so another one is taken.
void tst_ConvertAtOnce::lockThatIsGone()
{
    const Workplace place;
    const Workplace log;
    const CommandRun run =
        runKtl({"convert", sample(), "-o", "out.ktl"},
               stagedStart(place, {"STAGED_AT=flock#1:remove:.ktl.lock", "STAGED_LOG=" + log.path("calls")}));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(log.content(QStringLiteral("calls")).count("flock .ktl.lock\n"), 2);
}

/// On a disk without locks files are written all the same. What looks left over may belong to a run that lives.
void tst_ConvertAtOnce::noLocksAtAll()
{
    const Workplace place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral(".ktl-abcdef"))));
    const CommandRun run = runKtl({"convert", sample(), "-o", "out.ktl"},
                                  stagedStart(place, {QStringLiteral("STAGED_AT=flock:fail:%1").arg(ENOLCK)}));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(place.names(), (QStringList{".ktl-abcdef", "out.ktl", "out.ktl.txt"}));
}

void tst_ConvertAtOnce::lockIsForWriters_data()
{
    QTest::addColumn<uint>("folderMode");
    QTest::addColumn<uint>("lockMode");
    QTest::addRow("its owner alone") << 0755U << 0600U;
    QTest::addRow("its group too") << 0775U << 0660U;
    QTest::addRow("everybody") << 0777U << 0666U;
}

/// Whoever cannot write into the folder cannot open the file whose lock runs wait for.
void tst_ConvertAtOnce::lockIsForWriters()
{
    QFETCH(uint, folderMode);
    QFETCH(uint, lockMode);
    const Workplace place;
    const Workplace log;
    QCOMPARE(chmod(QFile::encodeName(place.folder()).constData(), folderMode), 0);
    const LongRun run(place, stopsBeforeItsEnd(log));
    QVERIFY(waitForStop(log));
    struct stat status = {};
    QCOMPARE(stat(QFile::encodeName(place.path(lockName)).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777U, lockMode);
}

/// What a run leaves that was killed goes with the next run, and not while it still lives.
void tst_ConvertAtOnce::leftoversAreCleared()
{
    const Workplace place;
    const Workplace log;
    LongRun first(place, stopsBeforeItsEnd(log));
    QVERIFY(waitForStop(log));
    const QStringList left = place.names();
    QCOMPARE(left.size(), 2);
    QVERIFY(left.at(0).startsWith(QStringLiteral(".ktl-")));
    QCOMPARE(left.at(1), lockName);
    const QStringList arguments{"convert", sample(), "-o", "out.ktl"};
    QCOMPARE(runKtl(arguments, stagedStart(place, {"STAGED_CLOCK=100"})).exitCode, 3);
    QCOMPARE(place.names(), left);
    QVERIFY(QFile::exists(place.path(left.at(0) + "/new.ktl.txt")));
    first.kill();
    QCOMPARE(place.names(), left);
    QCOMPARE(runKtl(arguments, place.folder()).exitCode, 0);
    QCOMPARE(place.names(), (QStringList{"out.ktl", "out.ktl.txt"}));
}

/// A folder with a name like ours that holds anything else is not touched.
void tst_ConvertAtOnce::foldersOfOthersStay()
{
    const Workplace place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral(".ktl-abcdef"))));
    place.make(QStringLiteral(".ktl-abcdef/letter"), "mine");
    QCOMPARE(runKtl({"convert", sample(), "-o", "out.ktl"}, place.folder()).exitCode, 0);
    QCOMPARE(place.content(QStringLiteral(".ktl-abcdef/letter")), QByteArray("mine"));
}

static const testMain::Registration<tst_ConvertAtOnce, QCoreApplication> registration;
#include "tst_ConvertAtOnce.moc"
