// `ktl check` of some devices, and with choices.
// Covers findingTeller.cpp, unitNames.cpp.
#include "cli/commandInProcess.h"
#include "cli/showRun.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_CheckDevices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void selectors_data();
    void selectors();
    void faultsStay();
    void selectorsOfKtlDevices_data();
    void selectorsOfKtlDevices();
    void unknownDevice();
    void choices_data();
    void choices();
    void choicesThatDoNotFit();
    void choicesOfAKtlFile();
    void choicesFromStandardInput();
    void choicesOfAPipe();
    void choicesLeftOut();

private:
    Workplace m_place;
};

namespace {

QStringList devicesOf(const CommandRun& run)
{
    QStringList devices;
    for (const QJsonValue& file : filesIn(run))
        for (const QJsonValue& finding : file.toObject().value("findings").toArray())
            devices += QString::number(finding.toObject().value("device").toObject().value("number").toInt());
    return devices;
}

/// Codes of the findings of each file.
QStringList rulesByFile(const CommandRun& run)
{
    QStringList rules;
    for (const QJsonValue& file : filesIn(run)) {
        QStringList ofFile;
        for (const QJsonValue& finding : file.toObject().value("findings").toArray())
            ofFile += finding.toObject().value("rule").toString();
        rules += ofFile.join(' ');
    }
    return rules;
}

/// What the one run of a SARIF output says of itself.
QJsonObject invocationOf(const CommandRun& run)
{
    const QJsonArray runs = QJsonDocument::fromJson(run.output).object().value("runs").toArray();
    return runs.at(0).toObject().value("invocations").toArray().at(0).toObject();
}

} // namespace

/// Five devices without product code in two files, a broken file, and a KTL file.
void tst_CheckDevices::initTestCase()
{
    const QByteArray devices =
        "<Device><Type RevisionNo='1'>A1</Type><Name>Axis, left</Name><Sm>Inputs</Sm></Device>\n"
        "<Device><Type RevisionNo='2'>A2</Type><Name>Axis, right</Name><Sm>Inputs</Sm></Device>\n";
    m_place.make("a.xml", esiWith(devices));
    m_place.make("b.xml",
                 esiWith("<Device><Type RevisionNo='3'>B</Type><Name>B</Name><Sm>Inputs</Sm></Device>\n" + devices));
    m_place.make("broken.xml", "<a>");
    m_place.make("cut.ktl", QByteArray::fromHex("409C000034000000"));
    QCOMPARE(runHere({"convert", sample("io-block.xml"), "-o", m_place.path("machine.ktl")}).exitCode, 0);
}

void tst_CheckDevices::selectors_data()
{
    QTest::addColumn<QStringList>("selectors");
    QTest::addColumn<QStringList>("devices");
    QTest::addRow("all") << QStringList{} << QStringList{"1", "2", "3", "4", "5"};
    QTest::addRow("numbers, in any order") << QStringList{"4", "2"} << QStringList{"2", "4"};
    QTest::addRow("a name") << QStringList{"B"} << QStringList{"3"};
    QTest::addRow("an identity") << QStringList{"0x7e570009:0:3"} << QStringList{"3"};
    QTest::addRow("names with *") << QStringList{"Axis*"} << QStringList{"1", "2", "4", "5"};
    QTest::addRow("types with *") << QStringList{"*1"} << QStringList{"1", "4"};
}

void tst_CheckDevices::selectors()
{
    QFETCH(QStringList, selectors);
    QStringList arguments{"check", "--json", "--only=product-code", "a.xml", "b.xml"};
    for (const QString& selector : selectors)
        arguments += {"--device", selector};
    for (const std::size_t cores : {std::size_t{1}, std::size_t{2}}) {
        const CommandRun run = runHere(arguments, m_place.folder(), cores);
        QCOMPARE(run.errors, QByteArray());
        QTEST(devicesOf(run), "devices");
    }
}

/// What is about a file as a whole is left out, but not that it cannot be read.
void tst_CheckDevices::faultsStay()
{
    const CommandRun run =
        runHere({"check", "a.xml", "broken.xml", "./a.xml", "--device=4", "--only=product-code", "--only=file-twice"},
                m_place.folder());
    QCOMPARE(run.output, QByteArray("broken.xml:1:4: error: unexpected end of file [file-not-well-formed]\n"
                                    "./a.xml:5:1: warning: device 4 \"Axis, right\": the product code is missing or 0 "
                                    "[product-code]\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_CheckDevices::selectorsOfKtlDevices_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QByteArray>("errors");
    const QByteArray hint = "ktl: note: a selector means one device, by number, name, Type or "
                            "VENDOR:PRODUCT[:REVISION], or with * in it all that fit; \"ktl show\" lists the devices "
                            "of a file\n";
    QTest::addRow("a number") << QStringLiteral("2") << QByteArray();
    QTest::addRow("an identity") << QStringLiteral("0x7e570003:0x16160001") << QByteArray();
    QTest::addRow("any of a vendor") << QStringLiteral("0x7e570003:*") << QByteArray();
    QTest::addRow("a number that is too large")
        << QStringLiteral("3") << "ktl: error: there is no device 3: the numbers go from 1 to 2\n" + hint;
    QTest::addRow("another vendor") << QStringLiteral("2:*")
                                    << "ktl: error: no device of the given files is \"2:*\"\n" + hint;
}

void tst_CheckDevices::selectorsOfKtlDevices()
{
    QFETCH(QString, selector);
    QFETCH(QByteArray, errors);
    const CommandRun run = runHere({"check", "machine.ktl", "--device", selector}, m_place.folder());
    QCOMPARE(run.exitCode, errors.isEmpty() ? 0 : 2);
    QCOMPARE(run.errors, errors);
}

/// Nothing is told of the files, but that the device may be in one that cannot be read. JSON and SARIF are whole.
void tst_CheckDevices::unknownDevice()
{
    const QStringList arguments{"check", "a.xml", "broken.xml", "cut.ktl", "--device=C"};
    const QByteArray problem = "ktl: error: no device of the given files is \"C\"\n";
    const CommandRun run = runHere(arguments, m_place.folder());
    QCOMPARE(run.output, QByteArray("broken.xml:1:4: error: unexpected end of file [file-not-well-formed]\n"
                                    "cut.ktl:0x8: error: the file ends inside the last item [ktl-end]\n"));
    QVERIFY2(run.errors.startsWith(problem), run.errors.constData());
    QCOMPARE(run.exitCode, 2);
    const CommandRun json = runHere(arguments + QStringList{"--json"}, m_place.folder());
    QCOMPARE(json.errors, run.errors);
    QCOMPARE(json.exitCode, 2);
    QCOMPARE(rulesByFile(json), (QStringList{"", "file-not-well-formed", "ktl-end"}));
    QCOMPARE(QJsonDocument::fromJson(json.output).object().value("problems").toArray(),
             QJsonArray{"ktl: no device of the given files is \"C\""});
    const CommandRun sarif = runHere({"check", "a.xml", "--device=C", "--sarif"}, m_place.folder());
    QCOMPARE(sarif.exitCode, 2);
    QCOMPARE(invocationOf(sarif).value("executionSuccessful"), QJsonValue(false));
    QCOMPARE(invocationOf(sarif).value("toolExecutionNotifications").toArray().size(), 1);
}

void tst_CheckDevices::choices_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("devices");
    QTest::addRow("all devices") << QStringList{} << QStringList{"1", "2"};
    QTest::addRow("one of them") << QStringList{"--device=2"} << QStringList{"2"};
}

/// The file that cannot be read is told, the others are checked with their choices.
void tst_CheckDevices::choices()
{
    QFETCH(QStringList, options);
    m_place.make(
        "choices.json",
        R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 2, "deviceType": "SingleDriver"}]})");
    const QStringList arguments =
        QStringList{"check", "a.xml", "--json", "--only=product-code", "--choices=choices.json"} + options;
    for (const std::size_t cores : {std::size_t{1}, std::size_t{2}}) {
        const CommandRun run = runHere(arguments, m_place.folder(), cores);
        QCOMPARE(run.errors, QByteArray());
        QTEST(devicesOf(run), "devices");
        QCOMPARE(run.exitCode, 0);
    }
    const CommandRun broken = runHere(arguments + QStringList{"broken.xml"}, m_place.folder());
    QFETCH(QStringList, devices);
    QCOMPARE(devicesOf(broken), devices + QStringList{"0"}); // what is about the file is about no device
    QVERIFY(broken.output.contains("file-not-well-formed"));
    QCOMPARE(broken.exitCode, 2);
}

void tst_CheckDevices::choicesThatDoNotFit()
{
    m_place.make("wrong.json", R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 9}]})");
    const QStringList arguments{"check", "a.xml", "broken.xml", "--choices=wrong.json"};
    const CommandRun run = runHere(arguments, m_place.folder());
    QCOMPARE(run.output, QByteArray("broken.xml:1:4: error: unexpected end of file [file-not-well-formed]\n"));
    QVERIFY2(run.errors.startsWith("wrong.json: error: devices[0].device: there is no device 9"),
             run.errors.constData());
    QCOMPARE(run.exitCode, 2);
    const CommandRun json = runHere(arguments + QStringList{"--json"}, m_place.folder());
    QCOMPARE(rulesByFile(json), (QStringList{"", "file-not-well-formed"}));
    QCOMPARE(filesIn(json).at(0).toObject().value("kind"), QJsonValue("esi"));
    const QJsonArray problems = QJsonDocument::fromJson(json.output).object().value("problems").toArray();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.at(0).toString().startsWith("wrong.json: devices[0].device: there is no device 9"));
    QCOMPARE(json.exitCode, 2);
    const CommandRun sarif = runHere(arguments + QStringList{"--sarif"}, m_place.folder());
    QCOMPARE(invocationOf(sarif).value("executionSuccessful"), QJsonValue(false));
    QCOMPARE(sarif.exitCode, 2);
}

void tst_CheckDevices::choicesOfAKtlFile()
{
    m_place.make("none.json", R"({"format": "kinetra-choices", "version": 1, "devices": []})");
    const CommandRun run = runHere({"check", "machine.ktl", "--choices=none.json"}, m_place.folder());
    QCOMPARE(run.output, QByteArray("machine.ktl: error: this is a KTL file, not an ESI file [file-kind]\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_CheckDevices::choicesFromStandardInput()
{
    CommandStart start;
    start.folder = m_place.folder();
    start.input = R"({"format": "kinetra-choices", "version": 1, "devices": []})";
    const CommandRun run = runKtl({"check", "a.xml", "--choices=-", "--only=product-code", "--fail-on=warning"}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output.count('\n'), 2);
    QCOMPARE(run.exitCode, 1);
}

/// Which can be read once only.
void tst_CheckDevices::choicesOfAPipe()
{
    m_place.make("none.json", R"({"format": "kinetra-choices", "version": 1, "devices": []})");
    CommandStart start;
    start.folder = m_place.folder();
    start.program = QStringLiteral("bash");
    const QString options = QStringLiteral(" --choices=none.json --only=product-code --fail-on=warning");
    for (const QString& inputs :
         {QStringLiteral("cat a.xml | \"$0\" check - b.xml"), QStringLiteral("\"$0\" check <(cat a.xml) b.xml"),
          QStringLiteral("\"$0\" check /dev/stdin b.xml < a.xml")}) {
        const CommandRun run = runKtl({"-c", inputs + options, KTL_PROGRAM}, start);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.output.count('\n'), 5);
        QCOMPARE(run.exitCode, 1);
    }
}

/// As in a conversion.
void tst_CheckDevices::choicesLeftOut()
{
    m_place.make(
        "first.json",
        R"({"format": "kinetra-choices", "version": 1, "devices": [{"device": 1, "deviceType": "SingleDriver"}]})");
    const QStringList options{"a.xml", "--choices=first.json", "--device=2"};
    const CommandRun run = runHere(QStringList{"check"} + options, m_place.folder());
    QVERIFY2(run.errors.contains("is left out by --device [left-out]"), run.errors.constData());
    QCOMPARE(run.exitCode, 0);
}

static const testMain::Registration<tst_CheckDevices, QCoreApplication> registration;
#include "tst_CheckDevices.moc"
