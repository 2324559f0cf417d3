// `ktl convert`: what it says of files that cannot be loaded, and that nothing is written then.
#include "cli/commandInProcess.h"
#include "cli/ktlDevices.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QRegularExpression>
#include <QtTest>

class tst_ConvertFailures : public QObject
{
    Q_OBJECT

private slots:
    void fileThatCannotBeLoaded_data();
    void fileThatCannotBeLoaded();
    void allBadFilesAreTold();
    void badStandardInput();
    void lineOfTheError();
    void deepNesting();
    void noDevices();
    void undeclaredSyncManager_data();
    void undeclaredSyncManager();
    void outputIsAnInput_data();
    void outputIsAnInput();
    void emptyNames();
    void lineFeedInTheName();
};

void tst_ConvertFailures::fileThatCannotBeLoaded_data()
{
    QTest::addColumn<QByteArray>("content"); // null: there is no such file
    QTest::addColumn<QString>("message"); // pattern of what follows the name of the file
    QTest::addRow("no such file") << QByteArray() << ": error: the file cannot be read: .+";
    QTest::addRow("not well-formed") << QByteArray("<EtherCATInfo>\n<Vendor>\n</Wendor>\n") << ":3:\\d+: error: .+";
    QTest::addRow("no XML at all") << QByteArray("plain text") << ":1:\\d+: error: .+";
    QTest::addRow("empty file") << QByteArray("") << ":\\d+:\\d+: error: .+";
    QTest::addRow("XML, but no ESI file")
        << QByteArray("<html>\n<body/>\n</html>\n") << ": error: this is no ESI file: it has no Vendor element";
}

/// Exit status 2, one line on standard error that begins with the file, and nothing written for the good files either.
/// Old files stay as they are.
void tst_ConvertFailures::fileThatCannotBeLoaded()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const Workplace place;
    const QString bad = place.path(QStringLiteral("bad.xml"));
    if (!content.isNull())
        QCOMPARE(place.make(QStringLiteral("bad.xml"), content), bad);
    place.make(QStringLiteral("old.ktl"), "earlier");
    place.make(QStringLiteral("old.ktl.txt"), "earlier dump");
    const QStringList names = place.names();
    const QRegularExpression wanted(QLatin1Char('^') + QRegularExpression::escape(bad) + message
                                    + QStringLiteral("\n$"));
    for (const QStringList& files : {QStringList{bad}, QStringList{sample(), bad}, QStringList{bad, sample()}})
        for (const QStringList& output : {QStringList{"new.ktl"}, QStringList{"old.ktl", "--force"}}) {
            const CommandRun run = runHere(QStringList{"convert"} + files + QStringList{"-o"} + output, place.folder());
            QCOMPARE(run.exitCode, 2);
            QVERIFY2(wanted.match(QString::fromUtf8(run.errors)).hasMatch(), run.errors.constData());
            QCOMPARE(run.errors.count('\n'), 1);
            QCOMPARE(run.output, QByteArray());
            QCOMPARE(place.names(), names);
        }
    QCOMPARE(place.content(QStringLiteral("old.ktl")), QByteArray("earlier"));
    QCOMPARE(place.content(QStringLiteral("old.ktl.txt")), QByteArray("earlier dump"));
}

/// One run reports all that is wrong, in the order of the files.
void tst_ConvertFailures::allBadFilesAreTold()
{
    const Workplace place;
    place.make(QStringLiteral("empty.xml"), "");
    place.make(QStringLiteral("other.xml"), "<a/>");
    const CommandRun run =
        runHere({"convert", "gone.xml", sample(), "empty.xml", "other.xml", "-o", "out.ktl"}, place.folder());
    const QList<QByteArray> lines = run.errors.split('\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith("gone.xml: error: "));
    QVERIFY(lines.at(1).startsWith("empty.xml:1:1: error: "));
    QVERIFY(lines.at(2).startsWith("other.xml: error: "));
    QCOMPARE(lines.at(3), QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_ConvertFailures::badStandardInput()
{
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.input = "<EtherCATInfo>\n</Wrong>";
    const CommandRun run = runKtl({"convert", "-", "-o", "out.ktl"}, start);
    QVERIFY2(run.errors.startsWith("<stdin>:2:"), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(place.names(), QStringList());
}

void tst_ConvertFailures::lineOfTheError()
{
    const Workplace place;
    place.make(QStringLiteral("bad.xml"), esiWith("<Device>\n<Type>A</Type>\n<Name>B</Device>\n"));
    const CommandRun run = runHere({"convert", "bad.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.startsWith("bad.xml:6:"), run.errors.constData()); // there are three lines before the device
}

/// More than 1,000 elements in one another are refused where they pass the limit.
void tst_ConvertFailures::deepNesting()
{
    const Workplace place;
    const int depth = 1200;
    place.make(QStringLiteral("deep.xml"), QByteArray("<a>\n").repeated(depth) + QByteArray("</a>").repeated(depth));
    const CommandRun run = runHere({"convert", "deep.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.startsWith("deep.xml:1001:"), run.errors.constData());
    QCOMPARE(place.names(), QStringList{"deep.xml"});
}

/// A file without devices beside one that has some is no failure.
void tst_ConvertFailures::noDevices()
{
    const Workplace place;
    place.make(QStringLiteral("empty.xml"), esiWith(""));
    const CommandRun run = runHere({"convert", "empty.xml", "-o", "out.ktl"}, place.folder());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.errors, QByteArray("empty.xml: error: the file holds no device, nothing is written\n"));
    QCOMPARE(place.names(), QStringList{"empty.xml"});
    QCOMPARE(runHere({"convert", "empty.xml", sample(), "-o", "out.ktl"}, place.folder()).exitCode, 0);
    QCOMPARE(devicesIn(place.content(QStringLiteral("out.ktl"))), sampleDevices());
}

void tst_ConvertFailures::undeclaredSyncManager_data()
{
    QTest::addColumn<QByteArray>("pdo");
    QTest::addColumn<QByteArray>("message");
    const QByteArray device = "range.xml: error: device \"Axis\": ";
    const QByteArray missing = ", which the device does not declare: it has 2\n";
    QTest::addRow("output PDO") << QByteArray("<RxPdo Sm=\"5\"><Index>#x1600</Index><Name>Controls</Name></RxPdo>")
                                << device + "PDO 0x1600 \"Controls\" names sync manager 5" + missing;
    QTest::addRow("input PDO") << QByteArray("<TxPdo Sm=\"2\"><Index>#x1A00</Index><Name>States</Name></TxPdo>")
                               << device + "PDO 0x1a00 \"States\" names sync manager 2" + missing;
    QTest::addRow("long name") << "<TxPdo Sm=\"2\"><Index>#x1A00</Index><Name>" + QByteArray(81, 'n')
                                      + "</Name></TxPdo>"
                               << device + "PDO 0x1a00 \"" + QByteArray(80, 'n') + "...\" names sync manager 2"
                                      + missing;
}

/// A range error is reported with file, device and PDO, whichever pass over the file finds it: with the mapping of PDOs
/// asked for the startup commands are first, without it the lengths of the sync managers.
void tst_ConvertFailures::undeclaredSyncManager()
{
    QFETCH(QByteArray, pdo);
    QFETCH(QByteArray, message);
    const Workplace place;
    for (const char* mailbox : {"", "<Mailbox><CoE PdoConfig=\"1\"/></Mailbox>"}) {
        place.make(QStringLiteral("range.xml"),
                   esiWith("<Device><Type>A</Type><Name>Fine</Name></Device>\n<Device><Type>A</Type><Name>Axis</Name>"
                           + QByteArray(mailbox) + "<Sm>Outputs</Sm><Sm>Inputs</Sm>" + pdo + "</Device>"));
        const CommandRun run = runHere({"convert", sample(), "range.xml", "-o", "out.ktl"}, place.folder());
        QVERIFY(run.hasEnded && !run.hasCrashed);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.errors, message);
        QCOMPARE(place.names(), QStringList{"range.xml"});
    }
}

void tst_ConvertFailures::outputIsAnInput_data()
{
    QTest::addColumn<QString>("output");
    QTest::addRow("same name") << "in.xml";
    QTest::addRow("through a link") << "link.xml";
    QTest::addRow("dump of that name") << "out.ktl";
    QTest::addRow("dump through a link") << "linked.ktl";
    QTest::addRow("choices file") << "choices.json";
    QTest::addRow("choices file as the dump") << "choices.ktl";
}

/// The command never writes over what it reads, neither with the KTL file nor with its dump, whatever is allowed.
void tst_ConvertFailures::outputIsAnInput()
{
    QFETCH(QString, output);
    const Workplace place;
    const QByteArray esi = esiWith("<Device><Type>A</Type></Device>");
    const QByteArray choices = R"({"format": "kinetra-choices", "version": 1, "devices": []})";
    for (const char* name : {"in.xml", "out.ktl.txt"})
        place.make(QString::fromLatin1(name), esi);
    for (const char* name : {"choices.json", "choices.ktl.txt"})
        place.make(QString::fromLatin1(name), choices);
    for (const char* name : {"link.xml", "linked.ktl.txt"})
        QVERIFY(QFile::link(QStringLiteral("in.xml"), place.path(QString::fromLatin1(name))));
    const QStringList names = place.names();
    const QString choicesFile = output == QLatin1String("choices.ktl") ? "choices.ktl.txt" : "choices.json";
    for (const char* option : {"--force", "--append"}) {
        const CommandRun run = runHere(
            {"convert", "in.xml", "out.ktl.txt", "--choices", choicesFile, "-o", output, option}, place.folder());
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.endsWith(": error: the output would replace this file\n"), run.errors.constData());
        QCOMPARE(run.errors.count('\n'), 1);
        QCOMPARE(place.content(QStringLiteral("in.xml")), esi);
        QCOMPARE(place.content(QStringLiteral("out.ktl.txt")), esi);
        QCOMPARE(place.content(QStringLiteral("choices.json")), choices);
        QCOMPARE(place.content(QStringLiteral("choices.ktl.txt")), choices);
        QCOMPARE(place.names(), names);
    }
}

/// Without a name there is no file; nothing but the one line is said.
void tst_ConvertFailures::emptyNames()
{
    const Workplace place;
    const QStringList commands[] = {{"convert", "", "-o", "out.ktl"},
                                    {"convert", sample(), "--choices", "", "-o", "out.ktl"},
                                    {"choices", ""},
                                    {"show", ""},
                                    {"dump", ""}};
    for (const QStringList& command : commands) {
        const CommandRun run = runHere(command, place.folder());
        QCOMPARE(run.errors, QByteArray("ktl: error: the name of a file is empty\n"));
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(place.names(), QStringList());
    }
}

/// A message is one line, whatever is in the name of the file.
void tst_ConvertFailures::lineFeedInTheName()
{
    const Workplace place;
    const QString name = QStringLiteral("two\nlines\u2028and \u202Eback.xml");
    const CommandRun run = runHere({"convert", name, "-o", "out.ktl"}, place.folder());
    QVERIFY2(run.errors.startsWith("two lines and  back.xml: error: "), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
}

static const testMain::Registration<tst_ConvertFailures, QCoreApplication> registration;
#include "tst_ConvertFailures.moc"
