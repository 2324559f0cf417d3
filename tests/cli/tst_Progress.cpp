// `ktl` at a terminal: what is told of a step that takes long.
#include "cli/commandRun.h"
#include "cli/workplace.h"

#include <QElapsedTimer>
#include <QtTest>

#include <memory>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

/// A terminal of our own; what a program writes to it is read at the other end.
class Terminal
{
public:
    Terminal()
        : m_master(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_master >= 0 && grantpt(m_master) == 0 && unlockpt(m_master) == 0)
            m_name = QString::fromLocal8Bit(ptsname(m_master));
    }
    ~Terminal() { close(m_master); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    Terminal(Terminal&&) = delete;
    Terminal& operator=(Terminal&&) = delete;

    [[nodiscard]] QString name() const { return m_name; }

    /// Reads until a text has come, or stands at the end, or a minute is over; then what has come since the start.
    const QByteArray& readUntil(const QByteArray& text, bool atTheEnd = false)
    {
        constexpr int minute = 60 * 1000;
        constexpr int turn = 50;
        QElapsedTimer timer;
        timer.start();
        while (!(atTheEnd ? m_read.endsWith(text) : m_read.contains(text)) && timer.elapsed() < minute) {
            pollfd ready{m_master, POLLIN, 0};
            char block[4096];
            if (poll(&ready, 1, turn) <= 0 || (ready.revents & POLLIN) == 0)
                continue;
            if (const ssize_t size = read(m_master, block, sizeof block); size > 0)
                m_read.append(block, static_cast<int>(size));
        }
        return m_read;
    }

private:
    int m_master;
    QString m_name;
    QByteArray m_read;
};

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

/// Starts the command by a shell; `$0` is the command and `$1` the sample.
std::unique_ptr<QProcess> tst_Progress::start(const Workplace& place, const QString& script)
{
    auto process = std::make_unique<QProcess>();
    process->setWorkingDirectory(place.folder());
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
    const QByteArray shown = terminal.readUntil("slow.xml (2 of 2), 1 s");
    QVERIFY2(shown.contains("\r\033[Kreading slow.xml (2 of 2), 1 s"), shown.constData());
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
    terminal.readUntil("reading slow.xml, 1 s");
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

/// A log of a build server holds messages only. The pause is longer than what is waited for at a terminal.
void tst_Progress::noTerminal()
{
    const Workplace place;
    const CommandRun run = [&] {
        CommandStart start;
        start.folder = place.folder();
        start.program = QStringLiteral("sh");
        const QString script = QStringLiteral("(sleep 1.5; cat \"$1\") | \"$0\" convert - -o out.ktl");
        return runKtl({"-c", script, KTL_PROGRAM, sample()}, start);
    }();
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
}

/// Results that go to the terminal as well tell by themselves that something goes on.
void tst_Progress::resultsAtATerminal()
{
    const Workplace place;
    Terminal terminal;
    const auto process = start(
        place, QStringLiteral("(sleep 1.5; cat \"$1\") | \"$0\" show - --csv pdo > %1 2>&1").arg(terminal.name()));
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 0);
    const QByteArray shown = terminal.readUntil("Service counters");
    QVERIFY(shown.contains("Service counters"));
    QVERIFY2(!shown.contains("\033[K"), shown.constData());
}

QTEST_GUILESS_MAIN(tst_Progress)
#include "tst_Progress.moc"
