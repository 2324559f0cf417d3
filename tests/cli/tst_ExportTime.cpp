// The time that an export shows, from the option's text or the variable.
#include "cli/exportTime.h"
#include "testMain.h"

#include <QtTest>

class tst_ExportTime : public QObject
{
    Q_OBJECT

private slots:
    static void cleanup() { qunsetenv("SOURCE_DATE_EPOCH"); }

    static void times_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown"); // yyyyMMdd hhmmss
        const auto row = [](const char* name, const char* text, const char* shown) {
            QTest::addRow("%s", name) << text << shown;
        };
        row("UTC", "2026-11-21T23:59:07Z", "20261121 235907");
        row("with an offset, as it is written", "2026-11-21T23:59:07+08:00", "20261121 235907");
        row("local time", "2026-11-21T01:02:03", "20261121 010203");
        row("a blank before the time", "2026-11-21 01:02:03", "20261121 010203");
        row("without seconds", "2026-11-21T01:02Z", "20261121 010200");
        row("with parts of a second", "2026-11-21T01:02:03.999+0130", "20261121 010203");
        row("last offset in the east", "2026-11-21T01:02:03+14:00", "20261121 010203");
        row("last offset in the west", "2026-11-21T01:02:03-1400", "20261121 010203");
        row("offset of hours", "2026-11-21T01:02:03+09", "20261121 010203");
        row("last second of a day", "2026-11-21T23:59:59Z", "20261121 235959");
        row("earliest year", "1000-01-01", "10000101 000000");
        row("latest year", "9999-12-31T23:59:59", "99991231 235959");
        row("date alone", "2026-11-21", "20261121 000000");
        row("leap day", "2028-02-29", "20280229 000000");
    }

    static void times()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        const cli::ExportTime time = cli::exportTimeFrom(text);
        QCOMPARE(time.problem, QString());
        QCOMPARE(time.time.toString(QStringLiteral("yyyyMMdd hhmmss")), shown);
    }

    static void noTimes_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"",
                                 "today",
                                 "21.11.2026",
                                 "2026-02-30",
                                 "2027-02-29",
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
            QTest::addRow("\"%s\"", text) << text;
    }

    static void noTimes()
    {
        QFETCH(QString, text);
        const cli::ExportTime time = cli::exportTimeFrom(text);
        QVERIFY(!time.time.isValid());
        QCOMPARE(time.problem, '"' + text + "\" is no time in the form 2026-11-21T10:00:00Z");
    }

    static void variable_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("shown"); // in UTC; empty if there is no time
        QTest::addRow("first second") << QByteArray("0") << "19700101 000000";
        QTest::addRow("last second of a day") << QByteArray("86399") << "19700101 235959";
        QTest::addRow("last second of the year 9999") << QByteArray("253402300799") << "99991231 235959";
        for (const char* value : {"", "now", "-1", "1.5", "253402300800", "99999999999999999999"})
            QTest::addRow("\"%s\"", value) << QByteArray(value) << "";
    }

    static void variable()
    {
        QFETCH(QByteArray, value);
        QFETCH(QString, shown);
        qputenv("SOURCE_DATE_EPOCH", value);
        const cli::ExportTime time = cli::exportTimeFrom(std::nullopt);
        QCOMPARE(time.time.toString(QStringLiteral("yyyyMMdd hhmmss")), shown);
        QCOMPARE(time.problem, shown.isEmpty() ? "the variable SOURCE_DATE_EPOCH holds \"" + value
                                                     + "\", which is no number of seconds"
                                               : QString());
    }

    /// The option counts, even before a variable that is broken.
    static void optionAndVariable()
    {
        qputenv("SOURCE_DATE_EPOCH", "now");
        const cli::ExportTime time = cli::exportTimeFrom(QStringLiteral("2026-11-21"));
        QCOMPARE(time.problem, QString());
        QCOMPARE(time.time.date(), QDate(2026, 11, 21));
    }
};

static const testMain::Registration<tst_ExportTime, QCoreApplication> registration;
#include "tst_ExportTime.moc"
