// `ktl convert`: the time of the export that the file shows, and how it is fixed.
#include "cli/commandRun.h"
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
    row("with an offset, as it is written", {"--date", "2026-11-21T23:59:07+08:00"}, {}, {20261121, 235907});
    row("local time", {"--date", "2026-11-21T01:02:03"}, {}, {20261121, 10203});
    row("a time that a change of clocks leaves out", {"--date", "2026-03-29T02:30:00"}, {"TZ=Europe/Berlin"},
        {20260329, 23000});
    row("a blank before the time", {"--date", "2026-11-21 01:02:03"}, {}, {20261121, 10203});
    row("without seconds", {"--date", "2026-11-21T01:02Z"}, {}, {20261121, 10200});
    row("with parts of a second", {"--date", "2026-11-21T01:02:03.999+0130"}, {}, {20261121, 10203});
    row("last offset in the east", {"--date", "2026-11-21T01:02:03+14:00"}, {}, {20261121, 10203});
    row("last offset in the west", {"--date", "2026-11-21T01:02:03-1400"}, {}, {20261121, 10203});
    row("offset of hours", {"--date", "2026-11-21T01:02:03+09"}, {}, {20261121, 10203});
    row("last second of a day", {"--date", "2026-11-21T23:59:59Z"}, {}, {20261121, 235959});
    row("earliest year", {"--date", "1000-01-01"}, {}, {10000101, 0});
    row("latest year", {"--date", "9999-12-31T23:59:59"}, {}, {99991231, 235959});
    row("date alone", {"--date", "2026-11-21"}, {}, {20261121, 0});
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
    for (const char* text : {"",
                             "today",
                             "21.11.2026",
                             "2026-02-30",
                             "2026-11-21T25:00:00",
                             "10000-01-01",
                             "0",
                             "0999-12-31",
                             "2026-11-21T10:00:00Zjunk",
                             "2026-11-21T10:00:00junkZ",
                             "2026-11-21T10:00:00+2",
                             "2026/11/21T10:00",
                             " 2026-11-21",
                             "2026-11-21T",
                             "2026-11-21T10",
                             "2026-11-21T10:00:60",
                             "2026-11-21T24:00:00",
                             "2026-11-21T24:00",
                             "2026-11-21T10:00+25:00",
                             "2026-11-21T10:00+14:01",
                             "2026-11-21T10:00-15",
                             "2026-11-21T10:00+13:60"})
        QTest::addRow("option \"%s\"", text)
            << QStringList{QStringLiteral("--date=") + QLatin1String(text)} << QStringList{} << QByteArray(text);
    for (const char* text : {"", "now", "-1", "1.5", "253402300800", "99999999999999999999"})
        QTest::addRow("variable \"%s\"", text)
            << QStringList{} << QStringList{QStringLiteral("SOURCE_DATE_EPOCH=") + QLatin1String(text)}
            << QByteArray("SOURCE_DATE_EPOCH holds \"") + text + '"';
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
    QCOMPARE(runKtl({"convert", sample("bus-coupler.xml"), "-o", "out.ktl"}, place.folder()).exitCode, 0);
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
