// `ktl check --sarif`: what SARIF 2.1.0 asks of the members that are used here.
// Covers findingSarif.cpp.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class tst_CheckSarif : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void head();
    void rules();
    void results();
    void everyResultIsPlaced();
    void rulesThatAreNotAsked();
    void success_data();
    void success();

private:
    [[nodiscard]] QJsonObject runOf(const QStringList& arguments) const;

    Workplace m_place;
};

namespace {

const QStringList levels{"error", "warning", "note"};

QJsonObject locationOf(const QJsonValue& result)
{
    return result.toObject().value("locations").toArray().at(0).toObject().value("physicalLocation").toObject();
}

QJsonArray rulesIn(const QJsonObject& run)
{
    return run.value("tool").toObject().value("driver").toObject().value("rules").toArray();
}

} // namespace

void tst_CheckSarif::initTestCase()
{
    QVERIFY(QDir(m_place.folder()).mkdir("esi files"));
    m_place.make("esi files/n.xml", esiWith("<Device><Type>N</Type><Name>\xC3\xA4</Name><Sm>Inputs</Sm></Device>"));
    m_place.make("document.xml", "<!DOCTYPE EtherCATInfo>" + esiWith("<Device><Sm>Inputs</Sm></Device>"));
    m_place.make("broken.xml", "<a>");
    m_place.make("cut.ktl", QByteArray::fromHex("409C0000340000000100000001000000"));
}

/// The one run of the output.
QJsonObject tst_CheckSarif::runOf(const QStringList& arguments) const
{
    const CommandRun run = runHere(QStringList{"check", "--sarif"} + arguments, m_place.folder());
    return QJsonDocument::fromJson(run.output).object().value("runs").toArray().at(0).toObject();
}

void tst_CheckSarif::head()
{
    const CommandRun run = runHere({"check", "--sarif", "document.xml"}, m_place.folder());
    QJsonParseError error;
    const QJsonObject log = QJsonDocument::fromJson(run.output, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(log.value("version"), QJsonValue("2.1.0"));
    QVERIFY(log.value("$schema").toString().endsWith("sarif-2.1.0.json"));
    QCOMPARE(log.value("runs").toArray().size(), 1);
    const QJsonObject only = log.value("runs").toArray().at(0).toObject();
    QCOMPARE(only.value("columnKind"), QJsonValue("unicodeCodePoints"));
    const QJsonObject driver = only.value("tool").toObject().value("driver").toObject();
    QCOMPARE(driver.value("name"), QJsonValue("ktl"));
    QCOMPARE(driver.value("version"), QJsonValue(QStringLiteral(KINETRA_VERSION)));
}

void tst_CheckSarif::rules()
{
    const QJsonArray rules = rulesIn(runOf({"document.xml"}));
    QVERIFY(rules.size() > 7);
    QSet<QString> codes;
    for (const QJsonValue& value : rules) {
        const QJsonObject rule = value.toObject();
        codes.insert(rule.value("id").toString());
        QVERIFY(levels.contains(rule.value("defaultConfiguration").toObject().value("level").toString()));
        for (const char* name : {"shortDescription", "fullDescription", "help"})
            QVERIFY2(!rule.value(name).toObject().value("text").toString().isEmpty(), name);
        QVERIFY(rule.value("help").toObject().value("markdown").toString().contains("**What to do:** "));
    }
    QCOMPARE(codes.size(), rules.size());
}

void tst_CheckSarif::results()
{
    const QJsonObject run = runOf({"esi files/n.xml", "--only=product-code"});
    QCOMPARE(run.value("results").toArray().size(), 1);
    const QJsonObject result = run.value("results").toArray().at(0).toObject();
    QCOMPARE(result.value("ruleId"), QJsonValue("product-code"));
    QCOMPARE(rulesIn(run).at(result.value("ruleIndex").toInt()).toObject().value("id"), QJsonValue("product-code"));
    QCOMPARE(result.value("level"), QJsonValue("warning"));
    QCOMPARE(result.value("message").toObject().value("text").toString(),
             QString::fromUtf8("device 1 \"\xC3\xA4\": the product code is missing or 0"));
    QCOMPARE(locationOf(result), (QJsonObject{{"artifactLocation", QJsonObject{{"uri", "esi%20files/n.xml"}}},
                                              {"region", QJsonObject{{"startLine", 4}, {"startColumn", 1}}}}));
    QCOMPARE(run.value("invocations").toArray().at(0).toObject().value("executionSuccessful"), QJsonValue(true));
}

/// By line and column, by line alone, by the byte, or by the file.
void tst_CheckSarif::everyResultIsPlaced()
{
    const QJsonObject run = runOf({"document.xml", "broken.xml", "cut.ktl", "gone.xml", "--only=product-code"});
    const QJsonArray results = run.value("results").toArray();
    QList<QJsonValue> regions;
    for (const QJsonValue& result : results) {
        QVERIFY(!locationOf(result).value("artifactLocation").toObject().value("uri").toString().isEmpty());
        regions += locationOf(result).value("region");
    }
    const QList<QJsonValue> expected{QJsonObject{{"startLine", 4}}, QJsonObject{{"startLine", 1}, {"startColumn", 4}},
                                     QJsonObject{{"byteOffset", 16}}, QJsonValue(QJsonValue::Undefined)};
    QCOMPARE(regions, expected);
    QCOMPARE(run.value("invocations").toArray().at(0).toObject().value("executionSuccessful"), QJsonValue(false));
}

void tst_CheckSarif::rulesThatAreNotAsked()
{
    QStringList codes;
    for (const QJsonValue& rule : rulesIn(runOf({"document.xml", "--only=product-code", "--ignore=file-kind"})))
        codes += rule.toObject().value("id").toString();
    QCOMPARE(codes,
             (QStringList{"file-unreadable", "file-not-well-formed", "file-no-vendor", "product-code", "ktl-end"}));
}

void tst_CheckSarif::success_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isSuccessful");
    QTest::addRow("findings alone") << QStringList{"document.xml"} << true;
    QTest::addRow("a file that is not well-formed") << QStringList{"broken.xml"} << false;
    QTest::addRow("such a file, ignored") << QStringList{"broken.xml", "--ignore=file-not-well-formed"} << true;
    QTest::addRow("a KTL file that is cut") << QStringList{"cut.ktl"} << false;
    QTest::addRow("a cut KTL file, ignored") << QStringList{"cut.ktl", "--ignore=ktl-end"} << true;
}

/// Just where the exit status is not 2.
void tst_CheckSarif::success()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, isSuccessful);
    QCOMPARE(runOf(arguments).value("invocations").toArray().at(0).toObject().value("executionSuccessful"),
             QJsonValue(isSuccessful));
    QCOMPARE(runHere(QStringList{"check", "--sarif"} + arguments, m_place.folder()).exitCode != 2, isSuccessful);
}

static const testMain::Registration<tst_CheckSarif, QCoreApplication> registration;
#include "tst_CheckSarif.moc"
