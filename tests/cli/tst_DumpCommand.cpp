// `ktl dump`: the text dump of a KTL file.
#include "cli/commandRun.h"
#include "cli/workplace.h"

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
    void brokenHead();
    void notReadable_data();
    void notReadable();
};

static const QByteArray endItemBytes = QByteArray::fromHex("000000000C00000000000000");

void tst_DumpCommand::endItem()
{
    const Workplace place;
    place.make(QStringLiteral("end.ktl"), endItemBytes);
    const CommandRun run = runKtl({"dump", "end.ktl"}, place.folder());
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
    QCOMPARE(runKtl({"convert", esi, "-o", "out.ktl"}, place.folder()).exitCode, 0);
    const CommandRun run = runKtl({"dump", "out.ktl"}, place.folder());
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
    const CommandRun run = runKtl({"dump", QString::fromUtf8("控制 é.ktl")}, place.folder());
    QVERIFY(run.output.contains("ItemHead-dec: 0,Len: 12"));
    QCOMPARE(run.exitCode, 0);
}

/// What is readable is shown with the line that ends a dump, and the exit status tells.
void tst_DumpCommand::brokenHead()
{
    const Workplace place;
    place.make(QStringLiteral("bad.ktl"), endItemBytes + QByteArray::fromHex("419C000007000000"));
    const CommandRun run = runKtl({"dump", "bad.ktl"}, place.folder());
    QCOMPARE(run.output, QByteArray("KTL Version V1.0.28 \nItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n"
                                    "Err para: Id value-dec: 40001,Len: 7\r\n  \r\n"));
    QCOMPARE(run.errors, QByteArray("bad.ktl: error: an item head cannot be right; the dump ends there\n"));
    QCOMPARE(run.exitCode, 2);
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
    const CommandRun run = runKtl({"dump", file}, place.folder());
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith(file.toUtf8() + ": error: the file cannot be read"), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_DumpCommand)
#include "tst_DumpCommand.moc"
