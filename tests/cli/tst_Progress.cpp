// `ktl` at a terminal: what is shown of a step that takes long. The clock of the runs is fast.
#include "cli/stagedRun.h"
#include "cli/terminal.h"
#include "testMain.h"

#include <QtTest>

#include <memory>

class tst_Progress : public QObject
{
    Q_OBJECT

private slots:
    void longStepAtATerminal();
    void messageStandsAlone();
    void shortStepAtATerminal();
    void noTerminal();
    void resultsAtATerminal();

private:
    static std::unique_ptr<QProcess> start(const Workplace& place, const QString& script);
};

static const QStringList fastClock{QStringLiteral("STAGED_CLOCK=10")};
static const QString longPause = QStringLiteral("sleep 0.3"); // three seconds of the clock: a step that takes long

/// Starts the command by a shell; `$0` is the command and `$1` the sample.
std::unique_ptr<QProcess> tst_Progress::start(const Workplace& place, const QString& script)
{
    auto process = std::make_unique<QProcess>();
    process->setWorkingDirectory(place.folder());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : stagedStart(place, fastClock).variables)
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    process->setProcessEnvironment(environment);
    process->start(QStringLiteral("sh"), {"-c", script, KTL_PROGRAM, sample()});
    return process;
}

/// The second file is a pipe that nobody has written to yet: the line comes, names the step, and is wiped in the end.
void tst_Progress::longStepAtATerminal()
{
    const Workplace place;
    Terminal terminal;
    QVERIFY(!terminal.name().isEmpty());
    const auto process =
        start(place, QStringLiteral("mkfifo slow.xml && exec \"$0\" convert \"$1\" slow.xml -o out.ktl "
                                    "2> %1")
                         .arg(terminal.name()));
    const QByteArray shown = terminal.readUntil("slow.xml (2 of 2), ");
    QVERIFY2(QRegularExpression("\r\033\\[Kreading slow\\.xml \\(2 of 2\\), [1-9]\\d* s$").match(shown).hasMatch(),
             shown.constData());
    QVERIFY(!shown.contains('\n'));
    QFile pipe(place.path(QStringLiteral("slow.xml")));
    QVERIFY(pipe.open(QIODevice::WriteOnly));
    pipe.write(contentOf(sample()));
    pipe.close();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 0);
    QVERIFY(terminal.readUntil("\r\033[K", true).endsWith("\r\033[K"));
    QVERIFY(QFile::exists(place.path(QStringLiteral("out.ktl"))));
}

/// A message never shares its line with the progress.
void tst_Progress::messageStandsAlone()
{
    const Workplace place;
    Terminal terminal;
    const auto process = start(
        place, QStringLiteral("mkfifo slow.xml && exec \"$0\" convert slow.xml -o out.ktl 2> %1").arg(terminal.name()));
    terminal.readUntil("reading slow.xml, ");
    QFile pipe(place.path(QStringLiteral("slow.xml")));
    QVERIFY(pipe.open(QIODevice::WriteOnly));
    pipe.write("<a>");
    pipe.close();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 2);
    const QByteArray shown = terminal.readUntil("\n");
    QVERIFY2(shown.contains("\r\033[Kslow.xml:1:"), shown.constData());
}

void tst_Progress::shortStepAtATerminal()
{
    const Workplace place;
    Terminal terminal;
    const auto process =
        start(place, QStringLiteral("exec \"$0\" convert gone.xml -o out.ktl 2> %1").arg(terminal.name()));
    QVERIFY(process->waitForFinished());
    QVERIFY(terminal.readUntil("\n").startsWith("gone.xml: error: "));
}

/// A log of a build server holds messages only.
void tst_Progress::noTerminal()
{
    const Workplace place;
    CommandStart start = stagedStart(place, fastClock);
    start.program = QStringLiteral("sh");
    const QString script = '(' + longPause + "; cat \"$1\") | \"$0\" convert - -o out.ktl";
    const CommandRun run = runKtl({"-c", script, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
}

/// Results that go to the terminal as well show by themselves that work goes on.
void tst_Progress::resultsAtATerminal()
{
    const Workplace place;
    Terminal terminal;
    const auto process =
        start(place, '(' + longPause + "; cat \"$1\") | \"$0\" show - --csv pdo > " + terminal.name() + " 2>&1");
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 0);
    const QByteArray shown = terminal.readUntil("Service counters");
    QVERIFY(shown.contains("Service counters"));
    QVERIFY2(!shown.contains("\033[K"), shown.constData());
}

static const testMain::Registration<tst_Progress, QCoreApplication> registration;
#include "tst_Progress.moc"
