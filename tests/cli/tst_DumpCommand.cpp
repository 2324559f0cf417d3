// `ktl dump`: the text dump of a KTL file.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_DumpCommand : public QObject
{
    Q_OBJECT

private slots:
    void endItem();
    void sameAsBesideTheFile_data();
    void sameAsBesideTheFile();
    void standardInput();
    void namesOutsideAscii();
    void brokenFile_data();
    void brokenFile();
    void manyItems();
    void closedStreams();
    void notReadable_data();
    void notReadable();
};

static const QByteArray endItemBytes = QByteArray::fromHex("000000000C00000000000000");

void tst_DumpCommand::endItem()
{
    const Workplace place;
    place.make(QStringLiteral("end.ktl"), endItemBytes);
    const CommandRun run = runHere({"dump", "end.ktl"}, place.folder());
    QCOMPARE(run.output, QByteArray("KTL Version V1.0.28 \nItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n"));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(place.names(), QStringList{"end.ktl"});
}

void tst_DumpCommand::sameAsBesideTheFile_data()
{
    QTest::addColumn<QString>("esi");
    for (const char* name :
         {"bus-coupler.xml", "dual-axis-drive.xml", "io-block.xml", "oversampling-terminal.xml", "servo-drive.xml"})
        QTest::addRow("%s", name) << sample(name);
}

void tst_DumpCommand::sameAsBesideTheFile()
{
    QFETCH(QString, esi);
    const Workplace place;
    QCOMPARE(runHere({"convert", esi, "-o", "out.ktl"}, place.folder()).exitCode, 0);
    const CommandRun run = runHere({"dump", "out.ktl"}, place.folder());
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains("ItemHead-dec: 40000,Len: 52    General \r\n"));
    QCOMPARE(run.output, place.content(QStringLiteral("out.ktl.txt")));
}

void tst_DumpCommand::standardInput()
{
    CommandStart start;
    start.input = endItemBytes;
    const CommandRun run = runKtl({"dump", "-"}, start);
    QCOMPARE(run.output, QByteArray("KTL Version V1.0.28 \nItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n"));
    QCOMPARE(run.exitCode, 0);
}

void tst_DumpCommand::namesOutsideAscii()
{
    const Workplace place;
    place.make(QString::fromUtf8("控制 é.ktl"), endItemBytes);
    const CommandRun run = runHere({"dump", QString::fromUtf8("控制 é.ktl")}, place.folder());
    QVERIFY(run.output.contains("ItemHead-dec: 0,Len: 12"));
    QCOMPARE(run.exitCode, 0);
}

void tst_DumpCommand::brokenFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("lastLines"); // after those of the end item
    QTest::addColumn<QByteArray>("message");
    QTest::addRow("head that cannot be") << endItemBytes + QByteArray::fromHex("419C000007000000")
                                         << QByteArray("Err para: Id value-dec: 40001,Len: 7\r\n  \r\n")
                                         << QByteArray("the item head at 0xc cannot be right");
    QTest::addRow("cut inside an item") << endItemBytes + QByteArray::fromHex("419C00000C0000000102")
                                        << QByteArray("ItemHead-dec: 40001,Len: 12    SM \r\n  0x201 \t\r\n")
                                        << QByteArray("the file ends at 0x16, inside an item");
    QTest::addRow("cut inside a head") << endItemBytes + QByteArray::fromHex("419C00") << QByteArray()
                                       << QByteArray("the file ends inside the item head at 0xc");
    QTest::addRow("no End item") << endItemBytes + QByteArray::fromHex("419C00000C00000003000000")
                                 << QByteArray("ItemHead-dec: 40001,Len: 12    SM \r\n  0x3 \t\r\n")
                                 << QByteArray("the last run has no End item: the file was cut short");
}

/// What is readable is shown as in the text beside a file, and a message and the exit status say that there is a rest.
void tst_DumpCommand::brokenFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, lastLines);
    QFETCH(QByteArray, message);
    const Workplace place;
    place.make(QStringLiteral("bad.ktl"), content);
    const CommandRun run = runHere({"dump", "bad.ktl"}, place.folder());
    QCOMPARE(run.output, "KTL Version V1.0.28 \nItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n" + lastLines);
    QCOMPARE(run.errors, "bad.ktl: error: " + message + "\n");
    QCOMPARE(run.exitCode, 2);
}

/// A dump ends after 2,000 items, and says so.
void tst_DumpCommand::manyItems()
{
    const Workplace place;
    place.make(QStringLiteral("full.ktl"), endItemBytes.repeated(2000));
    place.make(QStringLiteral("more.ktl"), endItemBytes.repeated(2001));
    const CommandRun full = runHere({"dump", "full.ktl"}, place.folder());
    QCOMPARE(full.errors, QByteArray());
    const CommandRun more = runHere({"dump", "more.ktl"}, place.folder());
    QCOMPARE(more.output, full.output);
    QCOMPARE(more.errors, QByteArray("more.ktl: warning: the file has 2001 items, of which a dump shows the first 2000 "
                                     "[item-count]\n"));
    QCOMPARE(more.exitCode, 0);
}

/// With a standard stream closed, no file of the command takes its place.
void tst_DumpCommand::closedStreams()
{
    const Workplace place;
    place.make(QStringLiteral("end.ktl"), endItemBytes);
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    const auto dump = [&](const QString& redirection) {
        return runKtl({"-c", QStringLiteral("exec \"$0\" dump end.ktl ") + redirection, KTL_PROGRAM}, start);
    };
    QCOMPARE(dump(QStringLiteral("<&-")).output, dump(QString()).output);
    QCOMPARE(dump(QStringLiteral("2>&-")).output, dump(QString()).output);
    for (const char* redirection : {">&-", "<&- >&-"}) {
        const CommandRun run = dump(QString::fromLatin1(redirection));
        QCOMPARE(run.errors, QByteArray("ktl: error: standard output cannot be written: Bad file descriptor\n"));
        QCOMPARE(run.exitCode, 3);
    }
}

void tst_DumpCommand::notReadable_data()
{
    QTest::addColumn<QString>("file");
    QTest::addRow("no such file") << "gone.ktl";
    QTest::addRow("a folder") << "folder";
}

void tst_DumpCommand::notReadable()
{
    QFETCH(QString, file);
    const Workplace place;
    QVERIFY(QDir().mkdir(place.path(QStringLiteral("folder"))));
    const CommandRun run = runHere({"dump", file}, place.folder());
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith(file.toUtf8() + ": error: the file cannot be read"), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 2);
}

static const testMain::Registration<tst_DumpCommand, QCoreApplication> registration;
#include "tst_DumpCommand.moc"
