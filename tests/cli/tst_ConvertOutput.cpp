// `ktl convert`: a KTL file on standard output, and one without its dump.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

class tst_ConvertOutput : public QObject
{
    Q_OBJECT

private slots:
    void standardOutput();
    void standardOutputIsATerminal();
    void standardOutputIsFull();
    void nothingOfABrokenRun();
    void wrongWithStandardOutput_data();
    void wrongWithStandardOutput();
    void noDump_data();
    void noDump();
};

static const QString fixedDate = QStringLiteral("--date=2026-11-21T10:00:00Z");

/// The bytes of the file, and nothing is written beside.
void tst_ConvertOutput::standardOutput()
{
    const Workplace place;
    QCOMPARE(runKtl({"convert", sample(), "-o", "out.ktl", fixedDate}, place.folder()).exitCode, 0);
    const QStringList names = place.names();
    const CommandRun run = runKtl({"convert", sample(), "-o", "-", fixedDate}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, place.content(QStringLiteral("out.ktl")));
    QCOMPARE(place.names(), names);
}

void tst_ConvertOutput::standardOutputIsATerminal()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    CommandStart start;
    start.program = QStringLiteral("sh");
    const CommandRun run = runKtl({"-c", "exec \"$0\" convert \"$1\" -o - > \"$2\"", KTL_PROGRAM, sample(),
                                   QString::fromLocal8Bit(ptsname(terminal))},
                                  start);
    close(terminal);
    QCOMPARE(run.errors, QByteArray("ktl: error: a KTL file is not for a terminal: redirect standard output, or name a "
                                    "file by -o (see: ktl convert --help)\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_ConvertOutput::standardOutputIsFull()
{
    QVERIFY2(QFile::exists(QStringLiteral("/dev/full")), "this system has no /dev/full that acts as a full disk");
    CommandStart start;
    start.program = QStringLiteral("sh");
    const CommandRun run = runKtl({"-c", "exec \"$0\" convert \"$1\" -o - > /dev/full", KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray("ktl: error: standard output cannot be written: No space left on device\n"));
    QCOMPARE(run.exitCode, 3);
}

/// A device that cannot be written ends the run before a byte of the first one is out.
void tst_ConvertOutput::nothingOfABrokenRun()
{
    const Workplace place;
    const QString broken = place.make(QStringLiteral("broken.xml"),
                                      esiWith("<Device><Type ProductCode=\"1\">Good</Type><Name>Good</Name></Device>"
                                              "<Device><Type ProductCode=\"2\">Bad</Type><Name>Bad</Name>"
                                              "<TxPdo Sm=\"3\"><Index>#x1A00</Index><Name>In</Name></TxPdo></Device>"));
    const CommandRun run = runHere({"convert", broken, "-o", "-"}, place.folder());
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith(broken.toUtf8() + ": error: "), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
}

void tst_ConvertOutput::wrongWithStandardOutput_data()
{
    QTest::addColumn<QString>("option");
    QTest::addRow("replaced") << "--force";
    QTest::addRow("added to") << "--append";
}

void tst_ConvertOutput::wrongWithStandardOutput()
{
    QFETCH(QString, option);
    const CommandRun run = runHere({"convert", sample(), "-o", "-", option});
    QCOMPARE(run.errors,
             QByteArray("ktl: error: standard output is neither added to nor replaced: --append and --force "
                        "are for files (see: ktl convert --help)\n"));
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
}

void tst_ConvertOutput::noDump_data()
{
    QTest::addColumn<bool>("hasOld");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("runs"); // of the sample that the file holds in the end
    QTest::addRow("new file") << false << QStringList{} << 1;
    QTest::addRow("replaced") << true << QStringList{"--force"} << 1;
    QTest::addRow("added to") << true << QStringList{"--append"} << 2;
}

/// The file is the same as with a dump. A dump that is there, and even a folder of its name, does not matter.
void tst_ConvertOutput::noDump()
{
    QFETCH(bool, hasOld);
    QFETCH(QStringList, options);
    QFETCH(int, runs);
    const Workplace place;
    const QStringList arguments = QStringList{"convert", sample(), "-o", "out.ktl", fixedDate, "--no-dump"} + options;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("out.ktl.txt"))));
    QCOMPARE(runHere({"convert", sample(), "-o", "one.ktl", fixedDate}, place.folder()).exitCode, 0);
    const QByteArray one = place.content(QStringLiteral("one.ktl"));
    if (hasOld)
        place.make(QStringLiteral("out.ktl"), one);
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(place.content(QStringLiteral("out.ktl")), one.repeated(runs));
    QCOMPARE(place.names(), (QStringList{"one.ktl", "one.ktl.txt", "out.ktl", "out.ktl.txt"}));
    QVERIFY(QDir(place.path(QStringLiteral("out.ktl.txt"))).isEmpty());
}

static const testMain::Registration<tst_ConvertOutput, QCoreApplication> registration;
#include "tst_ConvertOutput.moc"
