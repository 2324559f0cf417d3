// INT, TERM and HUP: tidied up after, held back, or ignored. A process of its own gets them.
#include "system/anotherProcess.h"
#include "system/endingSignals.h"
#include "testMain.h"

#include <QtTest>

#include <csignal>

#include <unistd.h>

namespace {

void say(int out, const char* word)
{
    static_cast<void>(write(out, word, 1) == 1);
}

} // namespace

class tst_EndingSignals : public QObject
{
    Q_OBJECT

private slots:
    static void tidiesUp_data()
    {
        QTest::addColumn<int>("number");
        QTest::addRow("INT") << SIGINT;
        QTest::addRow("TERM") << SIGTERM;
        QTest::addRow("HUP") << SIGHUP;
    }

    /// The process ends by the signal itself, so that whoever started it sees that.
    static void tidiesUp()
    {
        QFETCH(int, number);
        const Ending ending = inAnotherProcess([number](int out) -> int {
            const os::EndingSignals guard([out] { say(out, "t"); });
            kill(getpid(), number);
            while (true)
                pause();
        });
        QCOMPARE(ending.signal, number);
        QCOMPARE(ending.words, QByteArray("t"));
    }

    /// A signal that comes while they are held back counts afterwards.
    static void heldBack()
    {
        const Ending ending = inAnotherProcess([](int out) -> int {
            os::EndingSignals guard([out] { say(out, "t"); });
            {
                const auto held = guard.heldBack();
                kill(getpid(), SIGTERM);
                say(out, "h");
            }
            while (true)
                pause();
        });
        QCOMPARE(ending.signal, SIGTERM);
        QCOMPARE(ending.words, QByteArray("ht"));
    }

    static void ignored()
    {
        const Ending ending = inAnotherProcess([](int out) -> int {
            std::signal(SIGHUP, SIG_IGN);
            {
                const os::EndingSignals guard([out] { say(out, "t"); });
                kill(getpid(), SIGHUP);
            }
            say(out, "e");
            return 0;
        });
        QCOMPARE(ending.exitCode, 0);
        QCOMPARE(ending.words, QByteArray("e"));
    }

    /// Afterwards the signals end the process at once, as before.
    static void afterwards()
    {
        const Ending ending = inAnotherProcess([](int out) -> int {
            {
                const os::EndingSignals guard([out] { say(out, "t"); });
            }
            kill(getpid(), SIGTERM);
            say(out, "e");
            return 0;
        });
        QCOMPARE(ending.signal, SIGTERM);
        QCOMPARE(ending.words, QByteArray());
    }
};

static const testMain::Registration<tst_EndingSignals, testMain::NoApplication> registration;
#include "tst_EndingSignals.moc"
