// `ktl convert`: how the two files get to their places, and what is left when that fails or is interrupted.
#include "cli/ktlDevices.h"
#include "cli/stagedRun.h"
#include "testMain.h"

#include <QFileInfo>
#include <QtTest>

#include <cerrno>
#include <csignal>

class tst_ConvertMoves : public QObject
{
    Q_OBJECT

private slots:
    void order_data();
    void order();
    void appearsAtTheLastMoment_data();
    void appearsAtTheLastMoment();
    void otherFileSystems_data();
    void otherFileSystems();
    void cannotBeMoved_data();
    void cannotBeMoved();
    void cannotGetToTheDisk_data();
    void cannotGetToTheDisk();
    void diskThatCannotBeAsked();
    void endedWhileWriting_data();
    void endedWhileWriting();
    void endedWhileMoving_data();
    void endedWhileMoving();
    void ignoredSignal();
};

static const QStringList bothFiles{QStringLiteral("out.ktl"), QStringLiteral("out.ktl.txt")};

/// Writes the sample, and lets things happen while it does.
static CommandRun convert(const Workplace& place, const QString& stage, const QStringList& options)
{
    return runKtl(QStringList{"convert", sample(), "-o", "out.ktl"} + options,
                  stagedStart(place, {QStringLiteral("STAGED_AT=") + stage}));
}

static void makeOldFiles(const Workplace& place)
{
    place.make(QStringLiteral("out.ktl"), "earlier");
    place.make(QStringLiteral("out.ktl.txt"), "earlier dump");
}

static bool hasOldFiles(const Workplace& place)
{
    return place.names() == bothFiles && place.content(QStringLiteral("out.ktl")) == "earlier"
           && place.content(QStringLiteral("out.ktl.txt")) == "earlier dump";
}

static bool hasNewFiles(const Workplace& place)
{
    return place.names() == bothFiles && devicesIn(place.content(QStringLiteral("out.ktl"))) == sampleDevices()
           && place.content(QStringLiteral("out.ktl.txt")).startsWith("KTL Version");
}

void tst_ConvertMoves::order_data()
{
    QTest::addColumn<bool>("hasOld");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("moves");
    const QStringList fresh{"renameat2 new.ktl out.ktl", "renameat2 new.ktl.txt out.ktl.txt"};
    const QStringList replaced{"link out.ktl kept.ktl", "rename new.ktl out.ktl", "link out.ktl.txt kept.ktl.txt",
                               "rename new.ktl.txt out.ktl.txt"};
    QTest::addRow("new files") << false << QStringList{} << fresh;
    QTest::addRow("files that are replaced") << true << QStringList{"--force"} << replaced;
}

/// Other runs are kept out first. The content of both files is on the disk before one of them gets its name, and the
/// names are in the end. The lock is given back once: a second time it could be that of another run.
void tst_ConvertMoves::order()
{
    QFETCH(bool, hasOld);
    QFETCH(QStringList, options);
    QFETCH(QStringList, moves);
    const Workplace place;
    const Workplace log;
    if (hasOld)
        makeOldFiles(place);
    const CommandRun run =
        runKtl(QStringList{"convert", sample(), "-o", "out.ktl"} + options,
               stagedStart(place, {QStringLiteral("STAGED_LOG=") + log.path(QStringLiteral("calls"))}));
    QCOMPARE(run.errors, QByteArray());
    const QStringList expected = QStringList{"flock .ktl.lock", "fsync new.ktl", "fsync new.ktl.txt"} + moves
                                 + QStringList{"fsync " + QFileInfo(place.folder()).fileName(), "unlink .ktl.lock"};
    QCOMPARE(QString::fromUtf8(log.content(QStringLiteral("calls"))), expected.join('\n') + '\n');
    QVERIFY(hasNewFiles(place));
}

void tst_ConvertMoves::appearsAtTheLastMoment_data()
{
    QTest::addColumn<QString>("stage");
    QTest::addColumn<QString>("file");
    const QString unknown = QStringLiteral("renameat2:fail:%1;").arg(EINVAL);
    const QString noLinks = unknown + QStringLiteral("link:fail:%1;").arg(EPERM);
    QTest::addRow("the file") << "renameat2#1:make:out.ktl"
                              << "out.ktl";
    QTest::addRow("the dump") << "renameat2#2:make:out.ktl.txt"
                              << "out.ktl.txt";
    QTest::addRow("the file, with a second name") << unknown + "link#1:make:out.ktl"
                                                  << "out.ktl";
    QTest::addRow("the dump, with a second name") << unknown + "link#2:make:out.ktl.txt"
                                                  << "out.ktl.txt";
    QTest::addRow("the file, in a place that is held") << noLinks + "link#1:make:out.ktl"
                                                       << "out.ktl";
    QTest::addRow("the dump, in a place that is held") << noLinks + "link#2:make:out.ktl.txt"
                                                       << "out.ktl.txt";
}

/// A file that somebody else makes while a run is at work stays, and the run writes nothing.
void tst_ConvertMoves::appearsAtTheLastMoment()
{
    QFETCH(QString, stage);
    QFETCH(QString, file);
    const Workplace place;
    const CommandRun run = convert(place, stage, {});
    QCOMPARE(run.errors, file.toUtf8() + ": error: the file exists; --force replaces it, --append adds to it\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList{file});
    QCOMPARE(place.content(file), QByteArray("made"));
}

void tst_ConvertMoves::otherFileSystems_data()
{
    QTest::addColumn<QString>("stage");
    QTest::addColumn<QStringList>("options");
    const QString unknown = QStringLiteral("renameat2:fail:%1").arg(EINVAL);
    const QString noLinks = QStringLiteral("link:fail:%1").arg(EPERM);
    QTest::addRow("no move to a free name") << unknown << QStringList{};
    QTest::addRow("no second names either") << unknown + ';' + noLinks << QStringList{};
    QTest::addRow("no second names, replaced") << noLinks << QStringList{"--force"};
}

/// What a file system does not know is done in another way.
void tst_ConvertMoves::otherFileSystems()
{
    QFETCH(QString, stage);
    QFETCH(QStringList, options);
    const Workplace place;
    if (!options.isEmpty())
        makeOldFiles(place);
    const CommandRun run = convert(place, stage, options);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(hasNewFiles(place));
}

void tst_ConvertMoves::cannotBeMoved_data()
{
    QTest::addColumn<QString>("stage");
    QTest::addColumn<bool>("hasOld");
    QTest::addColumn<QString>("file");
    const QString noLinks = QStringLiteral("link:fail:%1;").arg(EPERM);
    const auto fails = [](const char* call) { return QStringLiteral("%1:fail:%2").arg(call).arg(ENOSPC); };
    QTest::addRow("the new file") << fails("renameat2#1") << false << "out.ktl";
    QTest::addRow("the new dump") << fails("renameat2#2") << false << "out.ktl.txt";
    QTest::addRow("the file") << fails("rename#1") << true << "out.ktl";
    QTest::addRow("the dump") << fails("rename#2") << true << "out.ktl.txt";
    QTest::addRow("the dump, without second names") << noLinks + fails("rename#2") << true << "out.ktl.txt";
}

/// If one of the files cannot get to its place, both places are as they were.
void tst_ConvertMoves::cannotBeMoved()
{
    QFETCH(QString, stage);
    QFETCH(bool, hasOld);
    QFETCH(QString, file);
    const Workplace place;
    if (hasOld)
        makeOldFiles(place);
    const CommandRun run = convert(place, stage, hasOld ? QStringList{"--force"} : QStringList());
    QCOMPARE(run.errors,
             file.toUtf8() + ": error: the file cannot be replaced by the new one: No space left on device\n");
    QCOMPARE(run.exitCode, 3);
    QVERIFY(hasOld ? hasOldFiles(place) : place.names().isEmpty());
}

void tst_ConvertMoves::cannotGetToTheDisk_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("file");
    QTest::addRow("the file") << "fsync#1"
                              << "out.ktl";
    QTest::addRow("the dump") << "fsync#2"
                              << "out.ktl.txt";
}

void tst_ConvertMoves::cannotGetToTheDisk()
{
    QFETCH(QString, call);
    QFETCH(QString, file);
    const Workplace place;
    makeOldFiles(place);
    const CommandRun run = convert(place, QStringLiteral("%1:fail:%2").arg(call).arg(EIO), {"--force"});
    QCOMPARE(run.errors, file.toUtf8() + ": error: the file cannot be written in full: Input/output error\n");
    QCOMPARE(run.exitCode, 3);
    QVERIFY(hasOldFiles(place));
}

/// Some file systems do not know how to bring a file to the disk; that is no failure.
void tst_ConvertMoves::diskThatCannotBeAsked()
{
    const Workplace place;
    const CommandRun run = convert(place, QStringLiteral("fsync:fail:%1").arg(EINVAL), {});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(hasNewFiles(place));
}

void tst_ConvertMoves::endedWhileWriting_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::addRow("INT") << SIGINT;
    QTest::addRow("TERM") << SIGTERM;
    QTest::addRow("HUP") << SIGHUP;
}

/// The signal counts although the disk does not answer: the run ends, and nothing of it is left.
void tst_ConvertMoves::endedWhileWriting()
{
    QFETCH(int, signalNumber);
    const Workplace place;
    makeOldFiles(place);
    const CommandRun run =
        convert(place, QStringLiteral("fsync#2:raise:%1;fsync#2:wait:0").arg(signalNumber), {"--force"});
    QVERIFY(run.hasEnded);
    QVERIFY(run.hasCrashed);
    QVERIFY(hasOldFiles(place));
}

void tst_ConvertMoves::endedWhileMoving_data()
{
    QTest::addColumn<QString>("call");
    QTest::addRow("at the file") << "rename#1";
    QTest::addRow("at the dump") << "rename#2";
}

/// The signal ends the run when both files are in their places.
void tst_ConvertMoves::endedWhileMoving()
{
    QFETCH(QString, call);
    const Workplace place;
    makeOldFiles(place);
    const CommandRun run = convert(place, QStringLiteral("%1:raise:%2").arg(call).arg(SIGTERM), {"--force"});
    QVERIFY(run.hasEnded);
    QVERIFY(run.hasCrashed);
    QVERIFY(hasNewFiles(place));
}

/// A run that is told to outlive its terminal does.
void tst_ConvertMoves::ignoredSignal()
{
    const Workplace place;
    CommandStart start = stagedStart(place, {QStringLiteral("STAGED_AT=fsync:raise:%1").arg(SIGHUP)});
    start.program = QStringLiteral("sh");
    const CommandRun run =
        runKtl({"-c", "trap '' HUP; exec \"$0\" convert \"$1\" -o out.ktl", KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(hasNewFiles(place));
}

static const testMain::Registration<tst_ConvertMoves, QCoreApplication> registration;
#include "tst_ConvertMoves.moc"
