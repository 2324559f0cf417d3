// Findings as lines and as JSON, from files made by hand. SARIF is held against its required members in tests/cli.
// Covers checkedFile.cpp, finding.cpp, findingJson.cpp, findingLines.cpp.
#include "check/findingWriter.h"
#include "check/rules/fileRules.h"
#include "check/rules/rules.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <sstream>

class tst_FindingForms : public QObject
{
    Q_OBJECT

private slots:
    static void lines_data();
    static void lines();
    static void omittedLines();
    static void summary_data();
    static void summary();
    static void jsonOfNothing();
    static void jsonMembers();
    static void sarifNotifications();
    static void problems();
};

namespace {

/// A file whose devices are the fourth and fifth of the call, with one module.
check::CheckedFile couplers(check::FileKind kind)
{
    check::CheckedFile file;
    file.name = file.shownName = "couplers.xml";
    file.uri = "couplers.xml";
    file.kind = kind;
    file.firstDevice = 4;
    for (const char* name : {"MB-C100", ""}) {
        check::UnitName& unit = file.findings.units.emplace_back();
        unit.owner = {check::OwnerKind::Device, file.findings.units.size() - 1};
        unit.name = name;
        unit.vendor = 0x7e57;
        unit.product = 5;
    }
    check::UnitName& module = file.findings.units.emplace_back();
    module.owner = {check::OwnerKind::Module, 0};
    module.name = "IO-8";
    return file;
}

check::Finding finding(const check::Owner& owner, check::Where where, const xml::Place& place)
{
    return {check::ruleNamed("product-code"), owner, where, place, QStringLiteral("wrong")};
}

std::string written(check::FindingForm form, const std::vector<check::CheckedFile>& files,
                    check::CheckOutcome outcome = {})
{
    std::ostringstream out;
    const auto writer = check::makeFindingWriter(form, out, check::allRules());
    writer->begin();
    for (const check::CheckedFile& file : files) {
        outcome.counts.add(file.findings);
        writer->write(file);
    }
    writer->end(outcome);
    return out.str();
}

QJsonObject jsonOf(check::FindingForm form, const std::vector<check::CheckedFile>& files,
                   const check::CheckOutcome& outcome = {})
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(written(form, files, outcome))).object();
}

} // namespace

void tst_FindingForms::lines_data()
{
    using check::FileKind;
    using check::OwnerKind;
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("owner");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, FileKind kind, OwnerKind owner, int index, int line, int column,
                        const char* expected) {
        QTest::addRow("%s", name) << int(kind) << int(owner) << index << line << column
                                  << QStringLiteral("couplers.xml:%1: wrong [product-code]\n").arg(expected);
    };
    add("device", FileKind::Esi, OwnerKind::Device, 0, 12, 9, R"(12:9: warning: device 4 "MB-C100")");
    add("device without a name", FileKind::Esi, OwnerKind::Device, 1, 12, 9, R"(12:9: warning: device 5 "")");
    add("module", FileKind::Esi, OwnerKind::Module, 0, 12, 9, R"(12:9: warning: module 1 "IO-8")");
    add("file", FileKind::Esi, OwnerKind::File, 0, 12, 9, "12:9: warning");
    add("no column", FileKind::Esi, OwnerKind::File, 0, 12, 0, "12: warning");
    add("no line", FileKind::Esi, OwnerKind::File, 0, 0, 0, " warning");
    add("offset", FileKind::Ktl, OwnerKind::Device, 0, 0, 0, R"(0x1f4: warning: device 4 "MB-C100")");
    add("offset, no name", FileKind::Ktl, OwnerKind::Device, 1, 0, 0, "0x1f4: warning: device 5");
    add("neither kind", FileKind::Unknown, OwnerKind::File, 0, 0, 0, " warning");
}

void tst_FindingForms::lines()
{
    QFETCH(int, kind);
    QFETCH(int, owner);
    QFETCH(int, index);
    QFETCH(int, line);
    QFETCH(int, column);
    check::CheckedFile file = couplers(check::FileKind(kind));
    file.findings.list = {finding({check::OwnerKind(owner), static_cast<std::size_t>(index)}, 0x1f4, {line, column})};
    QTEST(QString::fromStdString(written(check::FindingForm::Lines, {file})), "expected");
}

void tst_FindingForms::omittedLines()
{
    check::CheckedFile file = couplers(check::FileKind::Esi);
    file.findings.omissions = {{check::ruleNamed("product-code"), {}, 2}};
    QCOMPARE(
        written(check::FindingForm::Lines, {file}),
        std::string("couplers.xml: note: 2 more findings are left out: of one rule, the first 1000 about a device, "
                    "module or file are told\n"));
}

void tst_FindingForms::summary_data()
{
    QTest::addColumn<int>("findings");
    QTest::addColumn<int>("files");
    QTest::addColumn<QString>("expected");
    QTest::addRow("nothing") << 0 << 1 << QStringLiteral("0 errors, 0 warnings, 0 notes in 1 file\n");
    QTest::addRow("one") << 1 << 1 << QStringLiteral("0 errors, 1 warning, 0 notes in 1 file\n");
    QTest::addRow("several files") << 1 << 2 << QStringLiteral("0 errors, 2 warnings, 0 notes in 2 files\n");
}

void tst_FindingForms::summary()
{
    QFETCH(int, findings);
    QFETCH(int, files);
    check::CheckedFile file = couplers(check::FileKind::Esi);
    for (int number = 0; number < findings; ++number)
        file.findings.list.push_back(finding({}, 0, {}));
    const std::vector<check::CheckedFile> all(static_cast<std::size_t>(files), file);
    const QString text = QString::fromStdString(written(check::FindingForm::LinesAndSummary, all));
    QTEST(text.section('\n', -2), "expected");
    QVERIFY(!QString::fromStdString(written(check::FindingForm::Lines, all)).contains(" in "));
}

void tst_FindingForms::jsonOfNothing()
{
    const QJsonObject json = jsonOf(check::FindingForm::Json, {});
    QCOMPARE(json.value("files").toArray(), QJsonArray());
    QCOMPARE(json.value("problems"), QJsonValue(QJsonArray()));
    QCOMPARE(json.value("summary").toObject(),
             (QJsonObject{{"files", 0}, {"errors", 0}, {"warnings", 0}, {"notes", 0}}));
}

void tst_FindingForms::jsonMembers()
{
    check::CheckedFile file = couplers(check::FileKind::Ktl);
    file.findings.list = {finding({check::OwnerKind::Device, 0}, 0x1f4, {})};
    file.findings.omissions = {{check::ruleNamed("product-code"), {}, 3}};
    check::CheckedFile esi = couplers(check::FileKind::Esi);
    esi.findings.list = {finding({check::OwnerKind::Module, 0}, 0x1f4, {7, 0})};
    const QJsonArray files = jsonOf(check::FindingForm::Json, {file, esi}).value("files").toArray();
    const QJsonValue null;
    QCOMPARE(files.at(0).toObject(),
             (QJsonObject{{"file", "couplers.xml"},
                          {"kind", "ktl"},
                          {"findings", QJsonArray{QJsonObject{{"rule", "product-code"},
                                                              {"severity", "warning"},
                                                              {"line", null},
                                                              {"column", null},
                                                              {"offset", 500},
                                                              {"device", QJsonObject{{"number", 4},
                                                                                     {"name", "MB-C100"},
                                                                                     {"vendor", "0x7e57"},
                                                                                     {"product", "0x5"},
                                                                                     {"revision", "0x00"}}},
                                                              {"module", null},
                                                              {"text", "wrong"}}}},
                          {"omitted", 3}}));
    const QJsonObject ofModule = files.at(1).toObject().value("findings").toArray().at(0).toObject();
    QCOMPARE(ofModule.value("line"), QJsonValue(7));
    QCOMPARE(ofModule.value("offset"), null);
    QCOMPARE(ofModule.value("device"), null);
    QCOMPARE(ofModule.value("module").toObject(), (QJsonObject{{"number", 1}, {"name", "IO-8"}}));
}

/// Whether all went well is what the writer is told; findings that were not kept are told of the run.
void tst_FindingForms::sarifNotifications()
{
    check::CheckedFile full = couplers(check::FileKind::Esi);
    full.findings.omissions = {{check::ruleNamed("product-code"), {}, 4}};
    const auto invocation = [](const std::vector<check::CheckedFile>& files, const check::CheckOutcome& outcome) {
        const QJsonObject run =
            jsonOf(check::FindingForm::Sarif, files, outcome).value("runs").toArray().at(0).toObject();
        return run.value("invocations").toArray().at(0).toObject();
    };
    check::CheckOutcome broken;
    broken.isWhole = false;
    for (const check::FileKind kind : {check::FileKind::Unknown, check::FileKind::Ktl}) {
        QCOMPARE(invocation({couplers(kind)}, broken).value("executionSuccessful"), QJsonValue(false));
        QCOMPARE(invocation({couplers(kind)}, {}).value("executionSuccessful"), QJsonValue(true));
    }
    QCOMPARE(invocation({full}, {}).value("executionSuccessful"), QJsonValue(true));
    const QJsonArray told = invocation({full}, {}).value("toolExecutionNotifications").toArray();
    QCOMPARE(told.size(), 1);
    QVERIFY(told.at(0).toObject().value("message").toObject().value("text").toString().startsWith("couplers.xml: 4 "));
    QVERIFY(invocation({}, broken).value("toolExecutionNotifications").toArray().isEmpty());
}

/// In JSON and SARIF, which are whole all the same; people have them as messages, and no summary of nothing.
void tst_FindingForms::problems()
{
    check::CheckOutcome outcome;
    outcome.problems = {"ktl: no device 9"};
    outcome.isWhole = false;
    QCOMPARE(jsonOf(check::FindingForm::Json, {}, outcome).value("problems"),
             QJsonValue(QJsonArray{"ktl: no device 9"}));
    const QJsonObject run = jsonOf(check::FindingForm::Sarif, {}, outcome).value("runs").toArray().at(0).toObject();
    QCOMPARE(run.value("invocations").toArray().at(0).toObject(),
             (QJsonObject{{"executionSuccessful", false},
                          {"toolExecutionNotifications",
                           QJsonArray{QJsonObject{{"level", "error"},
                                                  {"message", QJsonObject{{"text", "ktl: no device 9"}}}}}}}));
    QCOMPARE(written(check::FindingForm::LinesAndSummary, {}, outcome), std::string());
}

static const testMain::Registration<tst_FindingForms, testMain::NoApplication> registration;
#include "tst_FindingForms.moc"
