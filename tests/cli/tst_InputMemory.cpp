// How much memory and time a small file can make `ktl` take, and what happens where the memory does not suffice.
#include "cli/showRun.h"
#include "cli/workplace.h"
#include "sized.h"
#include "testMain.h"

#include <QtTest>

class tst_InputMemory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void oneCopyAtATime_data();
    void oneCopyAtATime();
    void memoryEnds_data();
    void memoryEnds();
    void memoryEndsInCheck();
    void oneTreePerCore();
    void memoryEndsInJson();
    void manyDevices_data();
    void manyDevices();

private:
    Workplace m_place;
};

namespace {

/// An input PDO that stands for many samples.
QByteArray samples(int count, const QByteArray& entries)
{
    return "<TxPdo Sm='0' OSFac='1' OSMin='1' OSMax='" + QByteArray::number(count)
           + "' OSIndexInc='1'><Index>#x1A00</Index>" + entries + "</TxPdo>";
}

/// Runs the command with at most so many megabytes. The sanitizers reserve more than any limit, and end a program where
/// memory ends: under them there is none.
CommandRun runWithin(int megabytes, const QStringList& arguments, const QString& folder)
{
#if defined(KINETRA_SANITIZED)
    Q_UNUSED(megabytes)
    return runKtl(arguments, folder);
#else
    CommandStart start;
    start.folder = folder;
    start.program = QStringLiteral("sh");
    const QString limit = QStringLiteral("ulimit -v %1; exec \"$0\" \"$@\"").arg(megabytes * 1024);
    return runKtl(QStringList{"-c", limit, KTL_PROGRAM} + arguments, start);
#endif
}

} // namespace

/// The files: 150 megabytes of names, 450,000 startup commands, and 50,000 devices.
void tst_InputMemory::initTestCase()
{
    const QByteArray longName = "<Entry><BitLen>8</BitLen><Name>" + QByteArray(1000, 'n') + "</Name></Entry>";
    const QByteArray shortEntry = "<Entry><BitLen>8</BitLen></Entry>";
    const QByteArray mailbox = "<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>";
    m_place.make("names.xml",
                 esiWith("<Device><Sm>Inputs</Sm>" + samples(150, longName.repeated(sized(1000))) + "</Device>"));
    m_place.make("commands.xml", esiWith("<Device><Sm>Inputs</Sm>" + mailbox
                                         + samples(450, shortEntry.repeated(sized(1000))) + "</Device>"));
    m_place.make("devices.xml", esiWith(QByteArray("<Device/>").repeated(sized(50000))));
}

void tst_InputMemory::oneCopyAtATime_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addRow("startup commands") << QStringList{"show", "--csv", "startup"};
    QTest::addRow("dictionary") << QStringList{"show", "--csv", "dictionary"};
    QTest::addRow("choices") << QStringList{"convert", "-o", "out.ktl"};
}

/// 300 MB hold the names once, not twice.
void tst_InputMemory::oneCopyAtATime()
{
    QFETCH(QStringList, command);
    const Workplace place;
    const CommandRun run =
        runWithin(300, command + QStringList{m_place.path(QStringLiteral("names.xml"))}, place.folder());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_InputMemory::memoryEnds_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addRow("show") << QStringList{"show", "--csv", "pdo"};
    QTest::addRow("choices") << QStringList{"choices"};
    QTest::addRow("convert") << QStringList{"convert", "-o", "out.ktl"};
}

/// It is told with the name of the file, and the files after it are read all the same.
void tst_InputMemory::memoryEnds()
{
#if !defined(KINETRA_SANITIZED)
    QFETCH(QStringList, command);
    const Workplace place;
    const QString large = m_place.path(QStringLiteral("names.xml"));
    const CommandRun run = runWithin(120, command + QStringList{large, sample(), "gone.xml"}, place.folder());
    QCOMPARE(run.errors, large.toUtf8()
                             + ": error: not enough memory\n"
                               "gone.xml: error: the file cannot be read: No such file or directory\n");
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output.contains("FB-1616D"), command.contains("show"));
    QCOMPARE(place.names(), QStringList());
#endif
}

/// It is a finding, and the files after it are checked all the same.
void tst_InputMemory::memoryEndsInCheck()
{
#if !defined(KINETRA_SANITIZED)
    const Workplace place;
    const QString large = m_place.path(QStringLiteral("names.xml"));
    const CommandRun run = runWithin(120, {"check", large, sample(), "gone.xml"}, place.folder());
    QCOMPARE(run.output, large.toUtf8()
                             + ": error: not enough memory [file-unreadable]\n"
                               "gone.xml: error: the file cannot be read: No such file or directory "
                               "[file-unreadable]\n");
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 2);
#endif
}

/// The trees of all files would need more than there is; their records need next to nothing.
void tst_InputMemory::oneTreePerCore()
{
    m_place.make("none.json", R"({"format": "kinetra-choices", "version": 1, "devices": []})");
    m_place.make("tree.xml", esiWith("<Device><Type>T</Type><Sm>Inputs</Sm><Profile>"
                                     + QByteArray("<A/>").repeated(sized(300000)) + "</Profile></Device>"));
    QStringList arguments{"check", "--only=pdo-sync-manager", "--choices=none.json"};
    for (int number = 0; number < 12; ++number)
        arguments += "tree.xml";
    const CommandRun run = runWithin(120, arguments, m_place.folder());
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

/// Whatever the limit: the JSON is whole, and the file that was broken off does not count as complete.
void tst_InputMemory::memoryEndsInJson()
{
#if !defined(KINETRA_SANITIZED)
    const Workplace place;
    const QString large = m_place.path(QStringLiteral("commands.xml"));
    int brokenOff = 0;
    for (int megabytes = 120; megabytes <= 280; megabytes += 40) {
        const CommandRun run = runWithin(megabytes, {"show", "--json", sample(), large, sample()}, place.folder());
        QVERIFY2(run.errors == large.toUtf8() + ": error: not enough memory\n", run.errors.constData());
        QCOMPARE(run.exitCode, 2);
        const QJsonArray files = filesIn(run);
        QVERIFY2(files.size() == 2 || files.size() == 3, qPrintable(QString::number(files.size())));
        QCOMPARE(files.first().toObject().value("complete").toBool(false), true);
        QCOMPARE(files.last().toObject().value("complete").toBool(false), true);
        if (files.size() < 3)
            continue; // it could not even be loaded
        QCOMPARE(files.at(1).toObject().value("complete").toBool(true), false);
        ++brokenOff;
    }
    QVERIFY(brokenOff > 0);
#endif
}

void tst_InputMemory::manyDevices_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"dictionary", "pdo", "startup"})
        QTest::addRow("%s", table) << QString::fromLatin1(table);
}

/// The time grows with the devices, not with their square.
void tst_InputMemory::manyDevices()
{
    QFETCH(QString, table);
#if defined(KINETRA_SANITIZED)
    constexpr int maxSeconds = 60; // the sanitizers make it several times slower
#else
    constexpr int maxSeconds = 8;
#endif
    CommandStart start;
    start.program = QStringLiteral("sh");
    const QString line = QStringLiteral("ulimit -t %1; \"$0\" show --csv \"$@\" > /dev/null").arg(maxSeconds);
    const CommandRun run = runKtl({"-c", line, KTL_PROGRAM, table, m_place.path(QStringLiteral("devices.xml"))}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

static const testMain::Registration<tst_InputMemory, QCoreApplication> registration;
#include "tst_InputMemory.moc"
