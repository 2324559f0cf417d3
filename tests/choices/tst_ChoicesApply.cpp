// Settings of devices that choices make, the devices that they name, and what does not fit.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "choices/twinDevices.h"
#include "testMain.h"

class tst_ChoicesApply : public QObject
{
    Q_OBJECT

private slots:
    static void settings_data();
    static void settings();
    static void settingsThatDoNotFit_data();
    static void settingsThatDoNotFit();
    static void deviceNames_data();
    static void deviceNames();
    static void deviceTwice();
    static void modeOfTwoModes();
    static void chosenDevices();
    static void exportedDevices();
    static void exportedDevicesThatDoNotFit_data();
    static void exportedDevicesThatDoNotFit();
    static void listOfModules_data();
    static void listOfModules();
    static void couplers_data();
    static void couplers();
    static void rowsAfterWrongModules();
    static void missingSyncManager();
};

void tst_ChoicesApply::settings_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("device"); // type, axes, indexes and assign-activate words of the servo drive
    QTest::addRow("selected only") << QByteArray() << "1 1 0 0 300 700 0";
    QTest::addRow("type takes its axes along") << QByteArray(R"("deviceType": 4)") << "4 0 0 0 300 700 0";
    QTest::addRow("axes") << QByteArray(R"("deviceType": 2, "driveAxes": 3)") << "2 3 0 0 300 700 0";
    QTest::addRow("axes that it has") << QByteArray(R"("driveAxes": 1)") << "1 1 0 0 300 700 0";
    QTest::addRow("mode changes places with the first") << QByteArray(R"("dcMode": 2)") << "1 1 0 0 0 700 300";
    QTest::addRow("modes one after the other, counted as they are then")
        << QByteArray(R"("dcMode": [2, 1, 2])") << "1 1 0 0 300 0 700";
    QTest::addRow("modes by name and number") << QByteArray(R"("dcMode": ["DcSync01", 2])") << "1 1 0 0 0 300 700";
    QTest::addRow("mode by name") << QByteArray(R"("dcMode": "DcSync01")") << "1 1 0 0 700 300 0";
    QTest::addRow("indexes") << QByteArray(R"("deviceType": 4, "configIndex": 18, "detectIndex": 19)")
                             << "4 0 18 19 300 700 0";
    QTest::addRow("one index") << QByteArray(R"("deviceType": 3, "detectIndex": 19)") << "3 0 0 19 300 700 0";
}

void tst_ChoicesApply::settings()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedSample("servo-drive"), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    const struct_EtherCatDevice& device = result.files.at(0).device.at(0);
    QString words = QStringLiteral("%1 %2 %3 %4")
                        .arg(device.m_iDeviceType)
                        .arg(device.m_iDriveAxies)
                        .arg(device.configindex)
                        .arg(device.detectindex);
    for (const Struct_DCOpMode& mode : device.vopmode)
        words += QLatin1Char(' ') + QString::number(mode.AssignActivate, 16);
    QTEST(words, "device");
}

void tst_ChoicesApply::settingsThatDoNotFit_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("message");
    QTest::addRow("axes of a single drive")
        << QByteArray("\"driveAxes\": 2")
        << "driveAxes: a device of the type SingleDriver takes only 0 or 1 here, only MultiDriver "
           "takes any number of axes; leave the key out [setting]";
    QTest::addRow("axes after a change of type") << QByteArray(R"("deviceType": "Special", "driveAxes": 1)")
                                                 << "driveAxes: a device of the type Special takes only 0 here, only "
                                                    "MultiDriver takes any number of axes; leave the key out [setting]";
    QTest::addRow("mode number") << QByteArray("\"dcMode\": 3")
                                 << "dcMode: there is no mode 3, the device has 3 [setting]";
    QTest::addRow("mode name") << QByteArray("\"dcMode\": \"FreeRun\"")
                               << "dcMode: \"FreeRun\" is no mode of the device [setting]";
    QTest::addRow("mode number in a list")
        << QByteArray(R"("dcMode": [1, 3])") << "dcMode[1]: there is no mode 3, the device has 3 [setting]";
    QTest::addRow("configuration index")
        << QByteArray("\"configIndex\": 1")
        << "configIndex: a device of the type SingleDriver has no module indexes; leave the key out [setting]";
    QTest::addRow("detection index")
        << QByteArray(R"("deviceType": 5, "detectIndex": 1)")
        << "detectIndex: a device of the type ManualIOBlock has no module indexes; leave the key out [setting]";
}

/// The servo drive is a single drive with three modes.
void tst_ChoicesApply::settingsThatDoNotFit()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedSample("servo-drive"), choicesOfFirst(members)).problems,
             QStringList{"devices[0]." + message});
}

void tst_ChoicesApply::deviceNames_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QString>("message");
    QTest::addRow("device by name")
        << QByteArray(R"({"device": "Twin"})")
        << "device: \"Twin\" means 2 devices instead of one; device 1 \"Twin\" (0x1:0x1:0x1), type \"T\"; device 2 "
           "\"Twin\" (0x1:0x1:0x1), type \"T\" [several-devices]";
    QTest::addRow("device by identity")
        << QByteArray(R"({"device": "1:1:1"})")
        << "device: \"1:1:1\" means 2 devices instead of one; device 1 \"Twin\" (0x1:0x1:0x1), type \"T\"; device 2 "
           "\"Twin\" (0x1:0x1:0x1), type \"T\" [several-devices]";
    QTest::addRow("no device") << QByteArray(R"({"device": "Single"})")
                               << "device: no device of the given files is \"Single\" [no-device]";
    QTest::addRow("device without a name")
        << QByteArray(R"({"device": ""})") << "device: a selector of a device is empty [no-device]";
    QTest::addRow("device number") << QByteArray(R"({"device": 3})")
                                   << "device: there is no device 3: the numbers go from 1 to 2 [no-device]";
}

void tst_ChoicesApply::deviceNames()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedText(twinsEsi()), choicesWith(device)).problems, QStringList{"devices[0]." + message});
}

void tst_ChoicesApply::deviceTwice()
{
    QCOMPARE(applied(loadedSample("servo-drive"), choicesWith(R"({"device": 1}, {"device": "SX1-*"})")).problems,
             QStringList{"devices[1].device: \"SX1-*\" is the device of devices[0] already [device-twice]"});
}

void tst_ChoicesApply::modeOfTwoModes()
{
    QCOMPARE(applied(loadedText(twinsEsi()), choicesOfFirst(R"("dcMode": "DC")")).problems,
             QStringList{"devices[0].dcMode: 2 modes are \"DC\"; their numbers tell them apart [setting]"});
}

/// It is known which devices were named, and where.
void tst_ChoicesApply::chosenDevices()
{
    const AppliedChoices result =
        applied(loadedSample("io-block"), choicesWith(R"({"device": 2, "about": 1}, {"device": 1})"));
    QCOMPARE(result.made.chosen.size(), std::size_t(2));
    QCOMPARE(result.made.chosen.at({0, 0}), QStringLiteral("devices[1]"));
    QCOMPARE(result.made.chosen.at({0, 1}), QStringLiteral("devices[0]"));
}

namespace {

QByteArray exporting(const QByteArray& selectors)
{
    return R"({"format": "kinetra-choices", "version": 1, "devices": [], "export": [)" + selectors + "]}";
}

} // namespace

/// Without a list all devices are written.
void tst_ChoicesApply::exportedDevices()
{
    const AppliedChoices some = applied(loadedSample("io-block"), exporting(R"(2, "0x7e570003:0x16160001")"));
    QCOMPARE(some.problems, QStringList());
    QVERIFY(some.made.exported == (std::set<choices::DevicePosition>{{0, 0}, {0, 1}}));
    const AppliedChoices one = applied(loadedSample("io-block"), exporting("\"FB-0504M*\""));
    QVERIFY(one.made.exported == (std::set<choices::DevicePosition>{{0, 1}}));
    QVERIFY(!applied(loadedSample("io-block"), choicesWith({})).made.exported.has_value());
}

void tst_ChoicesApply::exportedDevicesThatDoNotFit_data()
{
    QTest::addColumn<QByteArray>("selectors");
    QTest::addColumn<QString>("message");
    QTest::addRow("none") << QByteArray("1, 3")
                          << "export[1]: there is no device 3: the numbers go from 1 to 2 [no-device]";
    QTest::addRow("several") << QByteArray("\"Twin\"")
                             << "export[0]: \"Twin\" means 2 devices instead of one; device 1 \"Twin\" "
                                "(0x1:0x1:0x1), type \"T\"; device 2 \"Twin\" (0x1:0x1:0x1), type \"T\" "
                                "[several-devices]";
    QTest::addRow("twice") << QByteArray("2, 1, \"2\"")
                           << "export[2]: \"2\" is the device of export[0] already [device-twice]";
}

void tst_ChoicesApply::exportedDevicesThatDoNotFit()
{
    QFETCH(QByteArray, selectors);
    QFETCH(QString, message);
    QCOMPARE(applied(loadedText(twinsEsi()), exporting(selectors)).problems, QStringList{message});
}

void tst_ChoicesApply::listOfModules_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<bool>("takes");
    QTest::addColumn<bool>("isAdvised");
    QTest::addRow("not chosen") << QByteArray(R"("deviceType": 5)") << true << true;
    QTest::addRow("not taken") << QByteArray(R"("takesModuleList": false)") << false << false;
    QTest::addRow("no advice after that")
        << QByteArray(R"("deviceType": 5, "takesModuleList": false)") << false << false;
    QTest::addRow("no advice on modules after that")
        << QByteArray(R"("deviceType": 4, "modules": [{"place": 2, "module": 264}], "takesModuleList": false)") << false
        << false;
    QTest::addRow("type without a click") << QByteArray(R"("clicked": false, "deviceType": 5)") << true << true;
    QTest::addRow("last type") << QByteArray(R"("lastType": 5)") << true << true;
    QTest::addRow("no advice on the last type after that")
        << QByteArray(R"("lastType": 5, "takesModuleList": false)") << false << false;
    QTest::addRow("taken") << QByteArray(R"("deviceType": 5, "takesModuleList": true)") << true << true;
}

/// The coupler of the sample takes the list of its modules.
void tst_ChoicesApply::listOfModules()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedSample("bus-coupler"), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    QTEST(result.files.at(0).device.at(0).Slots.Attributes.DownloadModuleIdentList, "takes");
    QTEST(!result.made.couplers.empty(), "isAdvised");
}

void tst_ChoicesApply::couplers_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<bool>("isAdvised");
    QTest::addRow("preset by hand") << QByteArray(R"("deviceType": 5)") << true;
    QTest::addRow("another type") << QByteArray(R"("deviceType": 4)") << false;
    QTest::addRow("module put in") << QByteArray(R"("deviceType": 4, "modules": [{"place": 2, "module": 264}])")
                                   << true;
    QTest::addRow("module that is there")
        << QByteArray(R"("deviceType": 4, "modules": [{"place": 1, "module": 278}])") << false;
    QTest::addRow("module taken out") << QByteArray(R"("deviceType": 4, "modules": [{"place": 1, "module": null}])")
                                      << false;
}

/// Couplers that take a list of modules by themselves are told of once their modules are set by hand.
void tst_ChoicesApply::couplers()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedSample("bus-coupler"), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    QTEST(!result.made.couplers.empty(), "isAdvised");
}

/// The rows follow from the modules, so only the modules are told.
void tst_ChoicesApply::rowsAfterWrongModules()
{
    const QByteArray members = R"("modules": [{"place": 9, "module": null}], "startup": {"removed": [{"row": 99}]},
                                  "links": [{"pdo": 99, "entry": 0, "link": 0}])";
    QCOMPARE(applied(loadedSample("dual-axis-drive"), choicesOfFirst(members)).problems,
             QStringList{"devices[0].modules[0].place: the device has no place 9 [module-place]"});
}

/// A PDO of a module on a sync manager that the device lacks is found when the module is put in.
void tst_ChoicesApply::missingSyncManager()
{
    const QByteArray esi =
        "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type>T</Type><Name>Coupler</Name>"
        "<Profile><ProfileNo>100</ProfileNo></Profile><Slots><Slot MaxInstances=\"1\"><ModuleIdent>1"
        "</ModuleIdent></Slot></Slots></Device></Devices><Modules><Module><Type ModuleIdent=\"1\">A</Type>"
        "<TxPdo Sm=\"3\"><Index>#x1A00</Index><Name>State</Name></TxPdo></Module></Modules></Descriptions>"
        "</EtherCATInfo>";
    const AppliedChoices result = applied(loadedText(esi), choicesOfFirst(R"("modules": [{"place": 0, "module": 1}])"));
    const QString path = QString::fromStdString(result.files.at(0).xmlfilepath);
    QCOMPARE(result.problems,
             QStringList{"devices[0]: " + path
                         + ": device \"Coupler\": PDO 0x1a00 \"State\" names sync manager 3, which the device does not "
                           "declare: it has 0 [sync-manager]"});
}

static const testMain::Registration<tst_ChoicesApply, testMain::NoApplication> registration;
#include "tst_ChoicesApply.moc"
