// `ktl check`: its options, and what its exit status says.
// Covers checkRequest.cpp, ruleTexts.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_CheckCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void refusals_data();
    void refusals();
    void exitStatus_data();
    void exitStatus();
    void chosenRules_data();
    void chosenRules();
    static void nearestRules_data();
    static void nearestRules();
    void summaryAtATerminal();
    static void rules();
    static void explanations_data();
    static void explanations();
    static void severalExplanations();

private:
    Workplace m_place;
};

namespace {

/// The text of the finding that the file of these tests has.
const char* const found =
    "noProduct.xml:4:1: warning: device 1 \"N\": the product code is missing or 0 [product-code]\n";

} // namespace

/// A file with a warning, one with nothing to tell, and one that cannot be read.
void tst_CheckCommand::initTestCase()
{
    m_place.make("noProduct.xml",
                 esiWith("<Device><Type RevisionNo='1'>N</Type><Name>N</Name><Sm>Inputs</Sm></Device>"));
    m_place.make("broken.xml", "<EtherCATInfo><Vendor>");
}

void tst_CheckCommand::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("problem");
    const auto add = [](const char* name, const QStringList& arguments, const char* problem) {
        QTest::addRow("%s", name) << arguments << QByteArray(problem);
    };
    add("no file", {}, "no file is given");
    add("standard input twice", {"-", "-"}, "standard input can be read once only");
    add("standard input for choices too", {"-", "--choices", "-"}, "standard input can be read once only");
    add("two forms", {"a.xml", "--json", "--sarif"}, "--json and --sarif cannot be given together");
    add("choices twice", {"a.xml", "--choices=a", "--choices=b"}, "--choices can be given once only");
    add("threshold twice", {"a.xml", "--fail-on=note", "--fail-on=error"}, "--fail-on can be given once only");
    add("no severity", {"a.xml", "--fail-on=bad"}, "\"bad\" is no severity; there are error, warning and note");
    add("unknown rule", {"a.xml", "--only=zzz"}, "\"zzz\" is no rule; \"ktl check --rules\" lists them");
    add("unknown rule to ignore", {"a.xml", "--ignore="}, "\"\" is no rule; \"ktl check --rules\" lists them");
    add("unknown rule to explain", {"--explain=zzz"}, "\"zzz\" is no rule; \"ktl check --rules\" lists them");
    add("rules of a file", {"a.xml", "--rules"}, "--rules and --explain check no file");
    add("explanation of a file", {"a.xml", "--explain=ktl-end"}, "--rules and --explain check no file");
    add("rules as JSON", {"--rules", "--json"}, "--rules and --json cannot be given together");
    add("rules as SARIF", {"--rules", "--sarif"}, "--rules and --sarif cannot be given together");
    add("rules and a threshold", {"--rules", "--fail-on=note"}, "--rules and --fail-on cannot be given together");
    add("some of the rules", {"--rules", "--only=ktl-end"}, "--rules and --only cannot be given together");
    add("explanation for a device", {"--explain=ktl-end", "--device=1"},
        "--explain and --device cannot be given together");
    add("explanation and choices", {"--explain=ktl-end", "--choices=c.json"},
        "--explain and --choices cannot be given together");
    add("explanation of a rule that is ignored", {"--explain=ktl-end", "--ignore=ktl-end"},
        "--explain and --ignore cannot be given together");
    add("rules and explanation", {"--rules", "--explain=ktl-end"}, "--rules and --explain cannot be given together");
}

void tst_CheckCommand::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, problem);
    const CommandRun run = runHere(QStringList{"check"} + arguments, m_place.folder());
    QCOMPARE(run.errors, "ktl: error: " + problem + " (see: ktl check --help)\n");
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

void tst_CheckCommand::exitStatus_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addRow("a warning, errors count") << QStringList{"noProduct.xml"} << 0;
    QTest::addRow("the same, said") << QStringList{"noProduct.xml", "--fail-on=error"} << 0;
    QTest::addRow("warnings count") << QStringList{"noProduct.xml", "--fail-on=warning"} << 1;
    QTest::addRow("notes count") << QStringList{"noProduct.xml", "--fail-on=note"} << 1;
    QTest::addRow("a note, warnings count")
        << QStringList{"noProduct.xml", "./noProduct.xml", "--only=file-twice", "--fail-on=warning"} << 0;
    QTest::addRow("a note, notes count") << QStringList{"noProduct.xml", "./noProduct.xml", "--only=file-twice",
                                                        "--fail-on=note"}
                                         << 1;
    QTest::addRow("a broken file") << QStringList{"noProduct.xml", "broken.xml", "--fail-on=note"} << 2;
    QTest::addRow("a broken file, other rules") << QStringList{"broken.xml", "--only=product-code"} << 2;
    QTest::addRow("a broken file that is ignored") << QStringList{"broken.xml", "--ignore=file-not-well-formed"} << 0;
}

void tst_CheckCommand::exitStatus()
{
    QFETCH(QStringList, arguments);
    for (const char* form : {"", "--json", "--sarif"}) {
        QStringList all = QStringList{"check"} + arguments + QStringList{QString::fromLatin1(form)};
        all.removeAll(QString());
        const CommandRun run = runHere(all, m_place.folder());
        QCOMPARE(run.errors, QByteArray());
        QTEST(run.exitCode, "status");
    }
}

void tst_CheckCommand::chosenRules_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("output");
    const QByteArray told(found);
    QTest::addRow("only this one") << QStringList{"--only=product-code"} << told;
    QTest::addRow("only others") << QStringList{"--only=file-twice"} << QByteArray();
    QTest::addRow("several") << QStringList{"--only=file-twice", "--only=product-code"} << told;
    QTest::addRow("ignored") << QStringList{"--ignore=product-code", "--only=product-code"} << QByteArray();
    QTest::addRow("others ignored") << QStringList{"--ignore=file-twice", "--only=product-code"} << told;
}

void tst_CheckCommand::chosenRules()
{
    QFETCH(QStringList, options);
    const CommandRun run = runHere(QStringList{"check", "noProduct.xml"} + options, m_place.folder());
    QTEST(run.output, "output");
    QCOMPARE(run.errors, QByteArray());
}

void tst_CheckCommand::nearestRules_data()
{
    QTest::addColumn<QString>("code");
    QTest::addRow("a letter missing") << QStringLiteral("prodct-code");
    QTest::addRow("its beginning") << QStringLiteral("product");
    QTest::addRow("capitals") << QStringLiteral("Product-Code");
    QTest::addRow("another letter") << QStringLiteral("produkt-code");
}

void tst_CheckCommand::nearestRules()
{
    QFETCH(QString, code);
    const CommandRun run = runHere({"check", "a.xml", "--only", code});
    QVERIFY2(run.errors.startsWith("ktl: error: \"" + code.toUtf8() + "\" is no rule, but there is product-code"),
             run.errors.constData());
    QCOMPARE(run.exitCode, 2);
}

void tst_CheckCommand::summaryAtATerminal()
{
    const QStringList arguments{"check", "noProduct.xml", "./noProduct.xml", "--only=product-code",
                                "--only=file-twice"};
    QVERIFY(!runHere(arguments, m_place.folder()).output.contains(" in 2 files"));
    const QByteArray shown = runHere(arguments, m_place.folder(), 1, 80).output;
    QVERIFY(shown.startsWith(found));
    QVERIFY2(shown.endsWith("\n0 errors, 2 warnings, 1 note in 2 files\n"), shown.constData());
    QVERIFY(!runHere(arguments + QStringList{"--json"}, m_place.folder(), 1, 80).output.contains(" in 2 files"));
}

void tst_CheckCommand::rules()
{
    const CommandRun run = runHere({"check", "--rules"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
    const QByteArrayList lines = run.output.split('\n');
    QVERIFY(lines.first().startsWith("file-unreadable  "));
    int seen = 0;
    for (const QByteArray& line : lines)
        seen += line.simplified() == "product-code warning the product code of a device is missing or 0" ? 1 : 0;
    QCOMPARE(seen, 1);
}

void tst_CheckCommand::explanations_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("atLeast");
    QTest::addColumn<int>("atMost");
    QTest::addRow("no terminal") << 0 << 65 << 80;
    QTest::addRow("narrow") << 40 << 25 << 40;
    QTest::addRow("wide") << 200 << 81 << 200;
}

/// No line of the texts is longer than the terminal is wide, nor much shorter than it has to be.
void tst_CheckCommand::explanations()
{
    QFETCH(int, columns);
    QFETCH(int, atLeast);
    QFETCH(int, atMost);
    const CommandRun run = runHere({"check", "--explain", "product-code"}, {}, 1,
                                   columns == 0 ? std::nullopt : std::make_optional(static_cast<std::size_t>(columns)));
    QCOMPARE(run.exitCode, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.at(0), QByteArray("product-code (warning): the product code of a device is missing or 0"));
    QVERIFY(run.output.contains("\n\nWhy it matters: The controller "));
    QVERIFY(run.output.contains("\n\nWhat to do: Give the product code "));
    QVERIFY(run.output.endsWith("\n\nExample:\n\n    <Type RevisionNo=\"#x1\">MB-C100</Type>\n"));
    int longest = 0;
    for (const QByteArray& line : lines.mid(1, lines.size() - 6))
        longest = qMax(longest, line.size());
    QVERIFY2(longest >= atLeast && longest <= atMost, qPrintable(QString::number(longest)));
}

void tst_CheckCommand::severalExplanations()
{
    const CommandRun run = runHere({"check", "--explain", "ktl-end", "--explain", "file-kind"});
    QVERIFY(run.output.startsWith("ktl-end (error): "));
    QVERIFY(run.output.contains("\n\nfile-kind (error): "));
}

static const testMain::Registration<tst_CheckCommand, QCoreApplication> registration;
#include "tst_CheckCommand.moc"
