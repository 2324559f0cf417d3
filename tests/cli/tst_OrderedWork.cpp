// Steps of work on several threads, whose results come in order.
#include "cli/orderedWork.h"
#include "testMain.h"

#include <QtTest>

#include <atomic>
#include <memory>
#include <set>

class tst_OrderedWork : public QObject
{
    Q_OBJECT

private slots:
    static void order_data();
    static void order();
    static void withoutThreads();
    static void oneAtATimeAfterStop();
    static void resultsThatNobodyTakes();
    static void waitingResultsAreBounded();
};

void tst_OrderedWork::order_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("threads");
    QTest::addRow("no step") << 0 << 2;
    QTest::addRow("one step") << 1 << 2;
    QTest::addRow("as many as threads") << 4 << 4;
    QTest::addRow("more steps than threads") << 1000 << 3;
    QTest::addRow("more threads than steps") << 3 << 16;
    QTest::addRow("one thread") << 50 << 1;
    QTest::addRow("no thread") << 50 << 0;
}

void tst_OrderedWork::order()
{
    QFETCH(int, steps);
    QFETCH(int, threads);
    cli::OrderedWork<std::unique_ptr<std::size_t>> work(
        static_cast<std::size_t>(steps), static_cast<std::size_t>(threads),
        [](std::size_t step) { return std::make_unique<std::size_t>(step * step); });
    for (std::size_t step = 0; step < static_cast<std::size_t>(steps); ++step)
        QCOMPARE(*work.take(), step * step);
}

void tst_OrderedWork::withoutThreads()
{
    cli::OrderedWork<std::thread::id> work(2, 0, [](std::size_t /*step*/) { return std::this_thread::get_id(); });
    QVERIFY(work.take() == std::this_thread::get_id());
    QVERIFY(work.take() == std::this_thread::get_id());
}

/// Two of nine steps wait when the first result is taken; the others are done by the one that takes them.
void tst_OrderedWork::oneAtATimeAfterStop()
{
    cli::OrderedWork<std::thread::id> work(9, 2, [](std::size_t /*step*/) { return std::this_thread::get_id(); });
    QVERIFY(work.take() != std::this_thread::get_id());
    work.stopThreads();
    int doneHere = 0;
    for (int step = 1; step < 9; ++step)
        doneHere += work.take() == std::this_thread::get_id() ? 1 : 0;
    QVERIFY2(doneHere >= 6 && doneHere <= 8, qPrintable(QString::number(doneHere)));
}

void tst_OrderedWork::resultsThatNobodyTakes()
{
    std::atomic<int> done{0};
    {
        cli::OrderedWork<int> work(1000, 2, [&](std::size_t /*step*/) { return ++done; });
        QVERIFY(work.take() > 0);
    }
    QVERIFY2(done <= 3, qPrintable(QString::number(done)));
}

/// However many steps there are: none begins before as many results have been taken that only one per thread can wait.
void tst_OrderedWork::waitingResultsAreBounded()
{
    constexpr int threads = 3;
    std::atomic<int> taken{0};
    std::atomic<int> maxAhead{0};
    cli::OrderedWork<int> work(200, threads, [&](std::size_t step) {
        const int ahead = static_cast<int>(step) - taken;
        for (int known = maxAhead; ahead > known && !maxAhead.compare_exchange_weak(known, ahead);) {}
        return 0;
    });
    for (int step = 0; step < 200; ++step) {
        static_cast<void>(work.take());
        ++taken;
    }
    QVERIFY2(maxAhead <= threads, qPrintable(QString::number(maxAhead)));
}

static const testMain::Registration<tst_OrderedWork, testMain::NoApplication> registration;
#include "tst_OrderedWork.moc"
