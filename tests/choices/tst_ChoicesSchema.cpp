// The JSON schema of choices files: it names the keys that the reader knows and no others, asks for the same ones, and
// holds for what the product writes and documents. The page on choices files: its example and its table of mistakes.
// Covers problemCodes.cpp.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/jsonSchema.h"
#include "choices/problemCodes.h"
#include "testMain.h"

#include <QJsonDocument>

class tst_ChoicesSchema : public QObject
{
    Q_OBJECT

private slots:
    static void keys_data();
    static void keys();
    static void describesEverything();
    static void holdsForTemplates_data();
    static void holdsForTemplates();
    static void holdsForTheExample();
    static void takes_data();
    static void takes();
    static void refuses_data();
    static void refuses();
    static void pageNamesAllMistakes();
};

namespace {

/// A page of the documentation; empty if it cannot be read.
QByteArray page(const char* name)
{
    QFile file(QStringLiteral(KINETRA_SOURCE_DIR "/docs/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

JsonSchema schema()
{
    return JsonSchema(QJsonDocument::fromJson(page("choices.schema.json")).object());
}

} // namespace

void tst_ChoicesSchema::keys_data()
{
    QTest::addColumn<QString>("definition"); // in the schema, empty for the file itself
    QTest::addColumn<QByteArray>("choices"); // with an object of that kind that has nothing but the key "unknown"
    const QByteArray object = R"({"unknown": 1})";
    const auto startup = [&](const QByteArray& key) { return "\"startup\": {\"" + key + "\": [" + object + "]}"; };
    QTest::addRow("file") << "" << object;
    QTest::addRow("device") << "device" << choicesWith(object);
    QTest::addRow("placed module") << "placedModule" << choicesOfFirst("\"modules\": [" + object + "]");
    QTest::addRow("link") << "link" << choicesOfFirst("\"links\": [" + object + "]");
    QTest::addRow("link of a module") << "moduleLink" << choicesOfFirst("\"moduleLinks\": [" + object + "]");
    const auto entries = [&](const QByteArray& key) { return "\"entries\": {\"" + key + "\": [" + object + "]}"; };
    QTest::addRow("sync manager") << "syncManager" << choicesOfFirst("\"syncManagers\": [" + object + "]");
    QTest::addRow("entries") << "entries" << choicesOfFirst("\"entries\": " + object);
    QTest::addRow("removed entry") << "removedEntry" << choicesOfFirst(entries("removed"));
    QTest::addRow("added entry") << "addedEntry" << choicesOfFirst(entries("added"));
    QTest::addRow("startup") << "startup" << choicesOfFirst("\"startup\": " + object);
    QTest::addRow("changed command") << "changedCommand" << choicesOfFirst(startup("changed"));
    QTest::addRow("removed command") << "removedCommand" << choicesOfFirst(startup("removed"));
    QTest::addRow("added command") << "addedCommand" << choicesOfFirst(startup("added"));
    QTest::addRow("check of a command") << "was"
                                        << choicesOfFirst(R"("startup": {"removed": [{"row": 0, "was": )" + object
                                                          + "}]}");
}

/// The reader names its keys when it meets an unknown one, and each needed key that is missing.
void tst_ChoicesSchema::keys()
{
    QFETCH(QString, definition);
    QFETCH(QByteArray, choices);
    const QString errors = problemsIn(choices).join('\n');
    static const QRegularExpression known(QStringLiteral("\"unknown\" is no key here \\(known: ([^)]*)\\)"));
    static const QRegularExpression missing(QStringLiteral("the key \"(\\w+)\" is missing"));
    QStringList ofReader = known.match(errors).captured(1).split(QStringLiteral(", "));
    QStringList neededByReader;
    for (auto match = missing.globalMatch(errors); match.hasNext();)
        neededByReader += match.next().captured(1);
    ofReader += QStringLiteral("about");
    ofReader.sort();
    neededByReader.sort();
    const QJsonObject form = schema().definition(definition);
    QCOMPARE(form.value("properties").toObject().keys(), ofReader);
    QStringList needed = form.value("required").toVariant().toStringList();
    needed.sort();
    QCOMPARE(needed, neededByReader);
    QCOMPARE(form.value("additionalProperties"), QJsonValue(false));
}

/// Each property says what it is, by itself or by the definition that it points to.
void tst_ChoicesSchema::describesEverything()
{
    const JsonSchema all = schema();
    QStringList mute;
    for (const QString& name : QStringList{QString()} + all.definitionNames()) {
        const QJsonObject properties = all.definition(name).value("properties").toObject();
        for (auto property = properties.begin(); property != properties.end(); ++property)
            if (all.resolved(property.value().toObject()).value("description").toString().isEmpty())
                mute += name + '.' + property.key();
    }
    QCOMPARE(mute, QStringList());
}

void tst_ChoicesSchema::holdsForTemplates_data()
{
    QTest::addColumn<QString>("sample");
    for (const QString& name : QDir(KINETRA_SOURCE_DIR "/samples").entryList({"*.xml"}, QDir::Files))
        QTest::addRow("%s", qPrintable(name)) << name.section('.', 0, 0);
}

void tst_ChoicesSchema::holdsForTemplates()
{
    QFETCH(QString, sample);
    const QJsonDocument choices = QJsonDocument::fromJson(templateOf(loadedSample(sample)));
    QVERIFY(choices.isObject());
    QCOMPARE(schema().problemsOf(choices.object()), QStringList());
}

/// The example of the page is in the form, and its choices fit the sample that it names.
void tst_ChoicesSchema::holdsForTheExample()
{
    const QByteArray text = page("choices.md");
    const int start = text.indexOf("```json\n") + 8;
    const QByteArray example = text.mid(start, text.indexOf("```", start) - start);
    QCOMPARE(schema().problemsOf(QJsonDocument::fromJson(example).object()), QStringList());
    const AppliedChoices result = applied(loadedSample("bus-coupler"), example);
    QCOMPARE(result.problems, QStringList());
    QCOMPARE(result.files.at(0).device.at(0).m_iDeviceType, std::uint16_t(5)); // ManualIOBlock
}

void tst_ChoicesSchema::takes_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addRow("devices to export") << QByteArray(
        R"({"format": "kinetra-choices", "version": 1, "export": [1], "devices": []})");
    QTest::addRow("modes one after the other") << choicesOfFirst(R"("dcMode": [2, "DcSync", 1])");
    QTest::addRow("settings") << choicesOfFirst(R"("takesModuleList": true, "driveAxes": "1")");
    QTest::addRow("device that is not clicked") << choicesOfFirst(R"("clicked": false, "lastType": "5")");
    QTest::addRow("place without a module")
        << choicesOfFirst(R"("modules": [{"place": 0, "module": null, "about": 1}])");
    QTest::addRow("module with its row") << choicesOfFirst(R"("modules": [{"place": 0, "module": 1, "moduleRow": 0}])");
    QTest::addRow("minimum sizes") << choicesOfFirst(
        R"("syncManagers": [{"syncManager": 2, "name": "Outputs", "minSize": "0x40"}])");
    QTest::addRow("entries") << choicesOfFirst(
        R"("entries": {"removed": [{"pdo": 0, "entry": 0}], "added": [{"pdo": "0x1600", "behind": 0, "link": -2}]})");
    QTest::addRow("unchecked command") << choicesOfFirst(
        R"("startup": {"added": [{"behind": 0, "index": 1, "subIndex": 256, "dataBytes": 5, "data": 0,
                                  "unchecked": true}]})");
}

/// What the schema takes the reader takes too.
void tst_ChoicesSchema::takes()
{
    QFETCH(QByteArray, choices);
    QCOMPARE(schema().problemsOf(QJsonDocument::fromJson(choices).object()), QStringList());
    QCOMPARE(problemsIn(choices), QStringList());
}

void tst_ChoicesSchema::refuses_data()
{
    QTest::addColumn<QByteArray>("choices");
    QTest::addRow("unknown key") << choicesOfFirst("\"colour\": 1");
    QTest::addRow("missing key") << choicesWith("{}");
    QTest::addRow("another format") << QByteArray(R"({"format": "x", "version": 1, "devices": []})");
    QTest::addRow("device type") << choicesOfFirst("\"deviceType\": \"Drive\"");
    QTest::addRow("type number") << choicesOfFirst("\"deviceType\": 6");
    QTest::addRow("axes of 17 bits") << choicesOfFirst("\"driveAxes\": 65536");
    QTest::addRow("negative place") << choicesOfFirst(R"("modules": [{"place": -1, "module": null}])");
    QTest::addRow("module is no name") << choicesOfFirst(R"("modules": [{"place": 0, "module": ""}])");
    QTest::addRow("object") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": "0x6040", "link": 0}])");
    QTest::addRow("link") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "OUT"}])");
    QTest::addRow("broken number") << choicesOfFirst(R"("startup": {"removed": [{"row": 1.5}]})");
    QTest::addRow("link with two endings")
        << choicesOfFirst(R"("links": [{"pdo": 0, "entry": 0, "link": "DOUT Type Type"}])");
    QTest::addRow("added command without data")
        << choicesOfFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "dataBytes": 1}]})");
    QTest::addRow("added command of five bytes")
        << choicesOfFirst(R"("startup": {"added": [{"behind": 0, "index": 1, "dataBytes": 5, "data": 0}]})");
    QTest::addRow("added command with a sub-index of 9 bits") << choicesOfFirst(
        R"("startup": {"added": [{"behind": 0, "index": 1, "subIndex": 256, "dataBytes": 1, "data": 0}]})");
    for (const char* number : {" 2", "2 ", "+2", "0x", "0x0x5", "0x1G", "\u0662"})
        QTest::addRow("axes \"%s\"", number) << choicesOfFirst("\"driveAxes\": \"" + QByteArray(number) + '"');
    QTest::addRow("object with a blank") << choicesOfFirst(R"("links": [{"pdo": 0, "entry": "0x6040: 0", "link": 0}])");
    QTest::addRow("nothing to export") << QByteArray(
        R"({"format": "kinetra-choices", "version": 1, "export": [], "devices": []})");
    QTest::addRow("list of modules in words") << choicesOfFirst("\"takesModuleList\": \"true\"");
    QTest::addRow("click in words") << choicesOfFirst("\"clicked\": \"false\"");
    QTest::addRow("last type") << choicesOfFirst("\"lastType\": 6");
    QTest::addRow("row of no module") << choicesOfFirst(R"("modules": [{"place": 0, "module": null, "moduleRow": 0}])");
    QTest::addRow("mode in a list of lists") << choicesOfFirst("\"dcMode\": [[0]]");
    QTest::addRow("minimum size of 17 bits")
        << choicesOfFirst(R"("syncManagers": [{"syncManager": 0, "minSize": 65536}])");
    QTest::addRow("link of an added entry")
        << choicesOfFirst(R"("entries": {"added": [{"pdo": 0, "behind": 0, "link": "OUT"}]})");
    QTest::addRow("added command that is not unchecked") << choicesOfFirst(
        R"("startup": {"added": [{"behind": 0, "index": 1, "dataBytes": 5, "data": 0, "unchecked": false}]})");
    QTest::addRow("module row as a text")
        << choicesOfFirst(R"("modules": [{"place": 0, "module": 1, "moduleRow": "0"}])");
    QTest::addRow("device without a name") << choicesWith(R"({"device": ""})");
    QTest::addRow("number in words") << choicesOfFirst(R"("startup": {"changed": [{"row": 1, "data": "one"}]})");
}

/// What the schema refuses the reader refuses too.
void tst_ChoicesSchema::refuses()
{
    QFETCH(QByteArray, choices);
    QVERIFY(!schema().problemsOf(QJsonDocument::fromJson(choices).object()).isEmpty());
    QVERIFY(!applied(loadedSample("servo-drive"), choices).problems.isEmpty());
}

/// The table of the page has a row for each kind of mistake, in the order of the program, and no other.
void tst_ChoicesSchema::pageNamesAllMistakes()
{
    static const QRegularExpression row(QStringLiteral("^\\| `\\[([a-z-]+)\\]` \\| "),
                                        QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(page("choices.md"));
    QStringList codes;
    for (auto match = row.globalMatch(text); match.hasNext();)
        codes += match.next().captured(1);
    QCOMPARE(codes, choices::problemCodeNames());
}

static const testMain::Registration<tst_ChoicesSchema, testMain::NoApplication> registration;
#include "tst_ChoicesSchema.moc"
