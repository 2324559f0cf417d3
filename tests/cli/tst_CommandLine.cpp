// `ktl`: what it makes of its command line before any file is touched.
#include "cli/commandRun.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private slots:
    void version_data();
    void version();
    void help_data();
    void help();
    void wrongUse_data();
    void wrongUse();
};

void tst_CommandLine::version_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addRow("long") << QStringList{"--version"};
    QTest::addRow("short") << QStringList{"-v"};
    QTest::addRow("with a sub-command") << QStringList{"convert", "--version"};
}

void tst_CommandLine::version()
{
    QFETCH(QStringList, arguments);
    const CommandRun run = runKtl(arguments);
    QCOMPARE(run.output, QByteArray("ktl V1.0.28\n"));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_CommandLine::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addRow("long") << QStringList{"--help"};
    QTest::addRow("short") << QStringList{"-h"};
    QTest::addRow("with a sub-command") << QStringList{"convert", "--help"};
}

void tst_CommandLine::help()
{
    QFETCH(QStringList, arguments);
    const CommandRun run = runKtl(arguments);
    for (const char* word : {"convert", "ESI", "-o", "OUT.ktl", "--version", "--help"})
        QVERIFY2(run.output.contains(word), word);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_CommandLine::wrongUse_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString sample = QStringLiteral(KINETRA_SOURCE_DIR "/samples/io-block.xml");
    QTest::addRow("nothing") << QStringList{};
    QTest::addRow("no sub-command") << QStringList{sample, "-o", "out.ktl"};
    QTest::addRow("unknown sub-command") << QStringList{"translate", sample, "-o", "out.ktl"};
    QTest::addRow("sub-command in capitals") << QStringList{"CONVERT", sample, "-o", "out.ktl"};
    QTest::addRow("no output file") << QStringList{"convert", sample};
    QTest::addRow("output option without a value") << QStringList{"convert", sample, "-o"};
    QTest::addRow("output option with an empty value") << QStringList{"convert", sample, "-o", ""};
    QTest::addRow("no ESI file") << QStringList{"convert", "-o", "out.ktl"};
    QTest::addRow("unknown option") << QStringList{"convert", sample, "-o", "out.ktl", "--fast"};
}

/// Exit code 2, a reason and the way it is meant on standard error, and nothing written.
void tst_CommandLine::wrongUse()
{
    QFETCH(QStringList, arguments);
    const QTemporaryDir folder;
    const CommandRun run = runKtl(arguments, folder.path());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.startsWith("error: "), run.errors.constData());
    QVERIFY2(run.errors.contains("Usage: "), run.errors.constData());
    QCOMPARE(run.output, QByteArray());
    QVERIFY(QDir(folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
