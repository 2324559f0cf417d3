// `ktl convert`: the time of the export in the file, as the process gets it: by option, variable, time zone and clock.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "ktl/ktlItems.h"
#include "testMain.h"

#include <QDateTime>
#include <QtTest>

class tst_ConvertTime : public QObject
{
    Q_OBJECT

private slots:
    void fixedTime_data();
    void fixedTime();
    void noTime_data();
    void noTime();
    void now();
    void reproducible();
};

/// Date and time that the names item of a file shows, such as 20261121 and 235907.
static QList<unsigned int> timeIn(const QByteArray& ktl)
{
    QString problem;
    QList<unsigned int> shown;
    for (const KtlItem& item : itemsOf(ktl, &problem))
        if (item.type == 40016)
            shown += {item.u32(8), item.u32(12)};
    return shown;
}

void tst_ConvertTime::fixedTime_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QList<unsigned int>>("shown");
    using Shown = QList<unsigned int>;
    const auto row = [](const char* name, const QStringList& options, const QStringList& variables,
                        const Shown& shown) { QTest::addRow("%s", name) << options << variables << shown; };
    row("UTC", {"--date", "2026-11-21T23:59:07Z"}, {}, {20261121, 235907});
    row("a time that a change of clocks leaves out", {"--date", "2026-03-29T02:30:00"}, {"TZ=Europe/Berlin"},
        {20260329, 23000});
    row("variable, in UTC", {}, {"SOURCE_DATE_EPOCH=86399", "TZ=Asia/Shanghai"}, {19700101, 235959});
    row("variable at its first second", {}, {"SOURCE_DATE_EPOCH=0", "TZ=America/New_York"}, {19700101, 0});
    row("the option counts", {"--date", "2026-11-21"}, {"SOURCE_DATE_EPOCH=0"}, {20261121, 0});
    row("the option counts before a broken variable", {"--date", "2026-11-21"}, {"SOURCE_DATE_EPOCH=now"},
        {20261121, 0});
}

void tst_ConvertTime::fixedTime()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, variables);
    QFETCH(QList<unsigned int>, shown);
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.variables = variables;
    const CommandRun run = runKtl(QStringList{"convert", sample("bus-coupler.xml"), "-o", "out.ktl"} + options, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(timeIn(place.content(QStringLiteral("out.ktl"))), shown);
}

void tst_ConvertTime::noTime_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("variables");
    QTest::addColumn<QByteArray>("word");
    QTest::addRow("option") << QStringList{"--date=today"} << QStringList{} << QByteArray("\"today\" is no time");
    QTest::addRow("variable") << QStringList{} << QStringList{"SOURCE_DATE_EPOCH=now"}
                              << QByteArray("SOURCE_DATE_EPOCH holds \"now\"");
}

void tst_ConvertTime::noTime()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, variables);
    QFETCH(QByteArray, word);
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.variables = variables;
    const CommandRun run = runKtl(QStringList{"convert", sample(), "-o", "out.ktl"} + options, start);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.startsWith("ktl: error: ") && run.errors.contains(word), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(place.names(), QStringList());
}

/// Without option and variable the local time of the run counts.
void tst_ConvertTime::now()
{
    const Workplace place;
    const auto digits = [](const QDateTime& time) {
        return time.toString(QStringLiteral("yyyyMMddHHmmss")).toULongLong();
    };
    const qulonglong before = digits(QDateTime::currentDateTime());
    QCOMPARE(runHere({"convert", sample("bus-coupler.xml"), "-o", "out.ktl"}, place.folder()).exitCode, 0);
    const qulonglong after = digits(QDateTime::currentDateTime());
    const QList<unsigned int> shown = timeIn(place.content(QStringLiteral("out.ktl")));
    QCOMPARE(shown.size(), 2);
    const qulonglong told = shown.at(0) * qulonglong(1000000) + shown.at(1);
    QVERIFY(before <= told && told <= after);
}

/// The same bytes wherever the command runs.
void tst_ConvertTime::reproducible()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    for (const char* zone : {"Asia/Shanghai", "America/New_York"}) {
        start.variables = QStringList{QStringLiteral("TZ=") + QLatin1String(zone), "SOURCE_DATE_EPOCH=1795312800"};
        const QString ktl = QString::fromLatin1(zone).section(QLatin1Char('/'), 1) + QStringLiteral(".ktl");
        QCOMPARE(runKtl({"convert", sample("bus-coupler.xml"), "-o", ktl}, start).exitCode, 0);
    }
    QCOMPARE(place.content(QStringLiteral("Shanghai.ktl")), place.content(QStringLiteral("New_York.ktl")));
    QCOMPARE(timeIn(place.content(QStringLiteral("Shanghai.ktl"))).size(), 2);
}

static const testMain::Registration<tst_ConvertTime, QCoreApplication> registration;
#include "tst_ConvertTime.moc"
