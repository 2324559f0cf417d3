// Waiting that is announced after a while, and ends.
#include "cli/patience.h"
#include "testMain.h"

#include <QtTest>

using std::chrono::milliseconds;

class tst_Patience : public QObject
{
    Q_OBJECT

private slots:
    /// It is asked for once at least, even without any patience.
    static void comesAtOnce()
    {
        int asked = 0;
        int notified = 0;
        const cli::Patience patience{milliseconds(0), milliseconds(0), [&] { ++notified; }};
        QVERIFY(cli::waitFor(patience, [&] { return ++asked == 1; }));
        QCOMPARE(asked, 1);
        QCOMPARE(notified, 0);
    }

    /// A long wait is announced once, however often it is asked for.
    static void comesLate()
    {
        int asked = 0;
        int notified = 0;
        const cli::Patience patience{milliseconds(0), std::chrono::hours(1), [&] { ++notified; }};
        QVERIFY(cli::waitFor(patience, [&] { return ++asked == 4; }));
        QCOMPARE(asked, 4);
        QCOMPARE(notified, 1);
    }

    static void neverComes()
    {
        int asked = 0;
        const cli::Patience patience{milliseconds(0), milliseconds(1), [] {}};
        QVERIFY(!cli::waitFor(patience, [&] { return ++asked == 0; }));
        QVERIFY(asked >= 1);
    }
};

static const testMain::Registration<tst_Patience, testMain::NoApplication> registration;
#include "tst_Patience.moc"
