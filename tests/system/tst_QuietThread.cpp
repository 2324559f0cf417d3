// Threads that no signal interrupts.
#include "system/quietThread.h"
#include "testMain.h"

#include <QtTest>

#include <csignal>

class tst_QuietThread : public QObject
{
    Q_OBJECT

private slots:
    /// The thread gets none of them, and its starter those that it got before.
    static void masks()
    {
        sigset_t before;
        QCOMPARE(pthread_sigmask(SIG_BLOCK, nullptr, &before), 0);
        sigset_t inThread;
        sigemptyset(&inThread);
        os::startQuietThread([&inThread] { pthread_sigmask(SIG_BLOCK, nullptr, &inThread); }).join();
        sigset_t after;
        QCOMPARE(pthread_sigmask(SIG_BLOCK, nullptr, &after), 0);
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGUSR1}) {
            QCOMPARE(sigismember(&inThread, number), 1);
            QCOMPARE(sigismember(&after, number), sigismember(&before, number));
        }
    }
};

static const testMain::Registration<tst_QuietThread, testMain::NoApplication> registration;
#include "tst_QuietThread.moc"
