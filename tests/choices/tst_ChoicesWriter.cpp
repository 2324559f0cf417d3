// Choices written as a choices file: its text, and that it reads back as the same choices.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/sameChoices.h"
#include "choices/writer.h"
#include "testMain.h"

#include <QJsonObject>

class tst_ChoicesWriter : public QObject
{
    Q_OBJECT

private slots:
    static void text();
    static void nothingChosen();
    static void about();
    static void readsBack_data();
    static void readsBack();
};

namespace {

QByteArray written(const choices::FileChoices& choices, const choices::AboutChoices& about = {})
{
    std::ostringstream out;
    choices::writeChoices(out, choices, about);
    return QByteArray::fromStdString(out.str());
}

/// The choices of a text that is in the form; none otherwise.
choices::FileChoices choicesOf(const QByteArray& text)
{
    choices::Problems problems;
    const auto read = choices::choicesIn(text, problems);
    return read.has_value() && problems.count() == 0 ? *read : choices::FileChoices();
}

choices::LinkChoice moduleLink()
{
    choices::LinkChoice link;
    link.module = {0x10, {}, 3};
    link.pdoRow = 1;
    link.checkedIndex = 0x1A00;
    link.entryObject = choices::ObjectAddress{0x6000, 1};
    link.checkedName = QStringLiteral("In");
    link.link = -1;
    return link;
}

choices::DeviceChoices everySetting()
{
    choices::DeviceChoices device;
    device.device = QStringLiteral("1:2");
    device.takesModuleList = false;
    device.deviceType = std::uint16_t{4};
    device.driveAxes = std::uint16_t{0};
    device.dcModes = {{std::nullopt, QStringLiteral("DC")}};
    device.configIndex = std::uint16_t{0xF030};
    device.moduleLinks = {moduleLink()};
    device.modules.resize(2);
    device.modules[0].module = choices::ModuleName{std::nullopt, QStringLiteral("DI")};
    device.modules[1].place = 1;
    device.syncManagers.resize(1);
    device.syncManagers[0].row = 2;
    device.syncManagers[0].minSize = 64;
    return device;
}

} // namespace

void tst_ChoicesWriter::text()
{
    choices::FileChoices file;
    file.exported = {QStringLiteral("1:2")};
    file.devices = {everySetting(), {}};
    file.devices[1].device = QStringLiteral("2");
    file.devices[1].isClicked = false;
    file.devices[1].lastType = std::uint16_t{2};
    file.devices[1].dcModes = {{2, {}}, {1, {}}};
    file.devices[1].addedEntries.resize(1);
    file.devices[1].addedEntries[0].pdoIndex = 0x1600;
    file.devices[1].addedEntries[0].entryPosition = 4;
    file.devices[1].addedCommands.resize(1);
    choices::StartupChoice& command = file.devices[1].addedCommands[0];
    command.row = 7;
    command.was = {0x1C12, 0, QStringLiteral("clear")};
    command.index = 0x2000;
    command.dataBytes = 4;
    command.data = 4294967295U;
    command.isUnchecked = true;
    QCOMPARE(written(file), QByteArray(R"({
  "format": "kinetra-choices",
  "version": 1,
  "export": ["1:2"],
  "devices": [
    {
      "device": "1:2",
      "takesModuleList": false,
      "deviceType": "Special",
      "driveAxes": 0,
      "dcMode": "DC",
      "configIndex": "0xf030",
      "moduleLinks": [
        {"module": "0x10", "moduleRow": 3, "pdo": 1, "index": "0x1a00", "entry": "0x6000:1", "name": "In", "link": "DIN"}
      ],
      "modules": [
        {"place": 0, "module": "DI"},
        {"place": 1, "module": null}
      ],
      "syncManagers": [
        {"syncManager": 2, "minSize": 64}
      ]
    },
    {
      "device": "2",
      "clicked": false,
      "dcMode": [2,1],
      "entries": {
        "added": [
          {"pdo": "0x1600", "behind": 4}
        ]
      },
      "startup": {
        "added": [
          {"behind": 7, "was": {"comment":"clear","index":"0x1c12","subIndex":0}, "index": "0x2000", "dataBytes": 4, "data": 4294967295, "unchecked": true}
        ]
      },
      "lastType": "MultiDriver"
    }
  ]
}
)"));
}

/// What is not chosen is not written.
void tst_ChoicesWriter::nothingChosen()
{
    choices::FileChoices file;
    file.devices.resize(1);
    file.devices[0].device = QStringLiteral("Drive");
    QCOMPARE(written(file), QByteArray("{\n  \"format\": \"kinetra-choices\",\n  \"version\": 1,\n  \"devices\": [\n"
                                       "    {\n      \"device\": \"Drive\"\n    }\n  ]\n}\n"));
}

/// What the file says of itself stands where a reader sees it first, and chooses nothing.
void tst_ChoicesWriter::about()
{
    const choices::FileChoices file = choicesOf(choicesWith(R"({"device": 1, "driveAxes": 1}, {"device": 2})"));
    const QByteArray text = written(file, {QJsonObject{{"from", "a.ktl"}}, {QJsonObject{{"name", "Drive"}}}});
    QVERIFY(text.contains("\"version\": 1,\n  \"about\": {\"from\":\"a.ktl\"},\n  \"devices\""));
    QVERIFY(text.contains("\"device\": \"1\",\n      \"about\": {\"name\":\"Drive\"},\n      \"driveAxes\": 1"));
    QVERIFY(text.contains("\"device\": \"2\"\n"));
    QVERIFY(choicesOf(text) == file);
}

void tst_ChoicesWriter::readsBack_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addRow("no devices") << choicesWith({});
    QTest::addRow("exported") << QByteArray(
        R"({"format": "kinetra-choices", "version": 1, "export": [2, "A \"B\" ü"], "devices": [{"device": 1}]})");
    QTest::addRow("settings") << choicesOfFirst(
        R"("takesModuleList": true, "deviceType": "IOBlock", "driveAxes": 65535, "dcMode": 0, "configIndex": 0,
           "detectIndex": "#xFFFF")");
    QTest::addRow("without a click") << choicesOfFirst(
        R"("clicked": false, "deviceType": 0, "driveAxes": 7, "lastType": 2)");
    QTest::addRow("last type") << choicesOfFirst(R"("clicked": true, "lastType": "ManualIOBlock")");
    QTest::addRow("modes") << choicesOfFirst(R"("dcMode": [2, "Sync 0", 4294967295])");
    QTest::addRow("links of modules") << choicesOfFirst(
        R"("moduleLinks": [{"module": "DI", "moduleRow": 0, "pdo": 0, "entry": 0, "link": 0},
           {"module": 16, "pdo": "0x1600", "index": 5633, "entry": "0x6040:1", "object": "0x6041:2", "name": "", "link": "AOUT16"}])");
    QTest::addRow("modules") << choicesOfFirst(
        R"("modules": [{"place": 0, "module": null}, {"place": 65535, "module": "0x7"},
                       {"place": 1, "module": "MB \\ \n", "moduleRow": 4294967295}])");
    QTest::addRow("sync managers") << choicesOfFirst(
        R"("syncManagers": [{"syncManager": 0, "minSize": 0}, {"syncManager": "7", "name": "Inputs", "minSize": "0xFFFF"}])");
    QTest::addRow("links") << choicesOfFirst(
        R"("links": [{"pdo": 3, "index": "0x1A00", "entry": 9, "object": "0:0", "name": "Gap", "link": -3},
                     {"pdo": "0", "entry": "0:0", "link": "ENCODER32 Type"}, {"pdo": 1, "entry": 1, "link": -2147483648}])");
    QTest::addRow("entries") << choicesOfFirst(
        R"("entries": {"removed": [{"pdo": 3, "index": 1, "entry": 9, "object": "0x6000:1", "name": "Gap"}],
           "added": [{"pdo": "0x1600", "index": 1, "behind": "0x6040:0", "object": "0x6040:0", "name": "C", "link": -2},
                     {"pdo": 0, "behind": 0}]})");
    QTest::addRow("startup") << choicesOfFirst(
        R"("startup": {"changed": [{"row": 1, "was": {"index": 0, "subIndex": 65535, "comment": ""}, "index": 1,
                                    "subIndex": 2, "dataBytes": 65535, "data": "0xFFFFFFFF", "unchecked": true},
                                   {"row": 2, "unchecked": false}],
           "removed": [{"row": 3}, {"row": 4, "was": {"comment": "x"}}],
           "added": [{"behind": 0, "was": {"index": 5}, "index": 8192, "subIndex": 0, "dataBytes": 0, "data": 0,
                      "unchecked": true}, {"behind": 0, "index": 0, "dataBytes": 1, "data": 1}]})");
    QTest::addRow("several devices") << choicesWith(
        R"({"device": "Drive", "driveAxes": 1}, {"device": "1:2:*"}, {"device": 7, "dcMode": "x"})");
}

void tst_ChoicesWriter::readsBack()
{
    QFETCH(QByteArray, text);
    QCOMPARE(problemsIn(text), QStringList());
    const choices::FileChoices file = choicesOf(text);
    const QByteArray again = written(file);
    QCOMPARE(problemsIn(again), QStringList());
    QVERIFY2(choicesOf(again) == file, again.constData());
}

static const testMain::Registration<tst_ChoicesWriter, testMain::NoApplication> registration;
#include "tst_ChoicesWriter.moc"
