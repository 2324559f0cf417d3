// `ktl`: what it makes of its command line before any file is touched.
// Covers ktlCommand.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private slots:
    void version_data();
    void version();
    void help_data();
    void help();
    void helpOfSubCommand_data();
    void helpOfSubCommand();
    void widthOfHelp_data();
    void widthOfHelp();
    void wrongUse_data();
    void wrongUse();
    void standardOutputIsFull();
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
    const CommandRun run = runHere(arguments);
    QCOMPARE(run.output, QByteArray("ktl V1.0.28\n"));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_CommandLine::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addRow("long") << QStringList{"--help"};
    QTest::addRow("short") << QStringList{"-h"};
    QTest::addRow("as a sub-command") << QStringList{"help"};
    QTest::addRow("of itself") << QStringList{"help", "help"};
}

/// All sub-commands, each with an example.
void tst_CommandLine::help()
{
    QFETCH(QStringList, arguments);
    const CommandRun run = runHere(arguments);
    for (const char* word : {"Usage: ktl ", "\n  convert ", "\n  choices ", "\n  show ", "\n  dump ",
                             "ktl convert drive.xml", "ktl choices ", "ktl show ", "ktl dump machine.ktl", "--version",
                             "--help", "0 done", "1 done, with warnings", "2 input", "3 an output"})
        QVERIFY2(run.output.contains(word), word);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_CommandLine::helpOfSubCommand_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("words");
    const QStringList convert{"Usage: ktl convert [options] ESI...\n",
                              "--output <OUT.ktl>",
                              "--append",
                              "--force",
                              "--device <SELECTOR>",
                              "--date <ISO-TIME>",
                              "--strict",
                              "\nExamples:\n  ktl convert drive.xml\n"};
    QTest::addRow("convert, long") << QStringList{"convert", "--help"} << convert;
    QTest::addRow("convert, short and after other things") << QStringList{"convert", "a.xml", "-h"} << convert;
    QTest::addRow("convert, by help") << QStringList{"help", "convert"} << convert;
    QTest::addRow("dump") << QStringList{"dump", "--help"}
                          << QStringList{"Usage: ktl dump [options] FILE.ktl\n",
                                         "\nExamples:\n  ktl dump machine.ktl\n"};
}

void tst_CommandLine::helpOfSubCommand()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, words);
    const CommandRun run = runHere(arguments);
    for (const QString& word : words)
        QVERIFY2(run.output.contains(word.toUtf8()), qPrintable(word));
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void tst_CommandLine::widthOfHelp_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* name : {"convert", "choices", "show", "dump"})
        QTest::addRow("%s", name) << QStringList{name, "--help"};
    QTest::addRow("all") << QStringList{"--help"};
}

/// Every line fits a terminal of 80 columns.
void tst_CommandLine::widthOfHelp()
{
    QFETCH(QStringList, arguments);
    const QList<QByteArray> lines = runHere(arguments).output.split('\n');
    QVERIFY(lines.size() > 10);
    for (const QByteArray& line : lines)
        QVERIFY2(line.size() <= 80, line.constData());
}

void tst_CommandLine::wrongUse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char* name, const QStringList& arguments, const char* reason) {
        QTest::addRow("%s", name) << arguments << QByteArray(reason);
    };
    row("nothing", {}, "the sub-command is missing");
    row("no sub-command", {sample(), "-o", "out.ktl"}, "is no sub-command");
    row("unknown sub-command", {"translate", sample(), "-o", "out.ktl"}, "\"translate\" is no sub-command");
    row("sub-command in capitals", {"CONVERT", sample(), "-o", "out.ktl"}, "\"CONVERT\" is no sub-command");
    row("output option without a value", {"convert", sample(), "-o"}, "the option -o needs a value");
    row("output option with an empty value", {"convert", sample(), "-o", ""}, "the name of the output is empty");
    row("no ESI file", {"convert", "-o", "out.ktl"}, "no ESI file is given");
    row("unknown option", {"convert", sample(), "-o", "out.ktl", "--fast"}, "there is no option --fast");
    row("unknown option with a value", {"convert", sample(), "-o", "out.ktl", "--fast=1"},
        "there is no option --fast=1");
    row("file that looks like options", {"convert", "-dash.xml", "-o", "out.ktl"},
        "there is no option -dash.xml; a file of that name is given after --");
    row("long option without a value", {"convert", sample(), "--device"}, "the option --device needs a value");
    row("switch with a value", {"convert", sample(), "--force=yes"}, "the option --force takes no value");
    row("help of what is no sub-command", {"help", "translate"}, "\"translate\" is no sub-command");
    row("both ways with an old file", {"convert", sample(), "-o", "out.ktl", "--append", "--force"},
        "--append and --force cannot be given together");
    row("no name to make one from", {"convert", "-"}, "-o is needed");
    row("standard input twice", {"convert", "-", "-", "-o", "out.ktl"}, "standard input can be read once only");
    row("date that is none", {"convert", sample(), "-o", "out.ktl", "--date", "tomorrow"}, "\"tomorrow\" is no time");
    row("dump of nothing", {"dump"}, "one KTL file is to be given");
    row("dump of two files", {"dump", "a.ktl", "b.ktl"}, "one KTL file is to be given");
}

/// Exit status 2, one line with the reason on standard error, and nothing written.
void tst_CommandLine::wrongUse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, reason);
    const Workplace place;
    const CommandRun run = runHere(arguments, place.folder());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.startsWith("ktl: error: "), run.errors.constData());
    QVERIFY2(run.errors.contains(reason), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(place.names(), QStringList());
}

/// A result that cannot be written counts as a failure.
void tst_CommandLine::standardOutputIsFull()
{
    QVERIFY2(QFile::exists(QStringLiteral("/dev/full")), "this system has no /dev/full that acts as a full disk");
    CommandStart start;
    start.program = QStringLiteral("sh");
    const CommandRun run = runKtl({"-c", QStringLiteral("exec \"$0\" --help > /dev/full"), KTL_PROGRAM}, start);
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(run.errors, QByteArray("ktl: error: standard output cannot be written: No space left on device\n"));
}

static const testMain::Registration<tst_CommandLine, QCoreApplication> registration;
#include "tst_CommandLine.moc"
