// What the click on a device adds to its choices: drive axes and what follows from modules. And choices without a
// click.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "testMain.h"

class tst_ChoicesOfClicks : public QObject
{
    Q_OBJECT

private slots:
    static void axesOfTheOrderOfClicks_data();
    static void axesOfTheOrderOfClicks();
    static void typeAndAxesWithoutClick_data();
    static void typeAndAxesWithoutClick();
    static void shownTypeAfterLastType_data();
    static void shownTypeAfterLastType();
    static void madeAgain_data();
    static void madeAgain();
    static void missingSyncManager();
};

namespace {

/// Devices that the second profile number makes special ones; it leaves the axis of the first.
QByteArray specialDevicesWithAnAxis(int count)
{
    const QByteArray device = "<Device><Type>T</Type><Profile><ProfileNo>402</ProfileNo></Profile><Profile><ProfileNo>"
                              "100</ProfileNo></Profile></Device>";
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>" + device.repeated(count)
           + "</Devices></Descriptions></EtherCATInfo>";
}

} // namespace

void tst_ChoicesOfClicks::axesOfTheOrderOfClicks_data()
{
    const QString refusal = QStringLiteral("devices[0].driveAxes: a device of the type Special takes only %1 here, "
                                           "only MultiDriver takes any number of axes; leave the key out [setting]");
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<int>("axes");
    QTest::addColumn<QString>("message"); // empty if they are taken
    QTest::addRow("those of the click") << QByteArray() << 0 << "";
    QTest::addRow("those of the file") << QByteArray("\"driveAxes\": 1") << 1 << "";
    QTest::addRow("those of the type") << QByteArray("\"driveAxes\": 0") << 0 << "";
    QTest::addRow("others") << QByteArray("\"driveAxes\": 2") << 0 << refusal.arg("0 or 1");
    QTest::addRow("the type that it has is no other one")
        << QByteArray(R"("deviceType": 4, "driveAxes": 1)") << 1 << "";
    QTest::addRow("those of the file with another type")
        << QByteArray(R"("deviceType": 3, "driveAxes": 1)") << 0 << refusal.arg("0").replace("Special", "PnpIOBlock");
}

/// A click takes the axis or leaves it, which depends on the device that was clicked before.
void tst_ChoicesOfClicks::axesOfTheOrderOfClicks()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    const AppliedChoices result = applied(loadedText(specialDevicesWithAnAxis(1)), choicesOfFirst(members));
    QCOMPARE(result.problems.join('\n'), message);
    QTEST(int(result.files.at(0).device.at(0).m_iDriveAxies), "axes");
}

void tst_ChoicesOfClicks::typeAndAxesWithoutClick_data()
{
    const QString refusal = QStringLiteral("devices[0].driveAxes: a device of the type %1 takes only %2 here, only "
                                           "MultiDriver takes any number of axes; leave the key out [setting]");
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("typeAndAxes");
    QTest::addColumn<QString>("message"); // empty if they are taken
    QTest::addRow("clicked") << QByteArray(R"("clicked": true)") << "4 0"
                             << "";
    QTest::addRow("not clicked") << QByteArray(R"("clicked": false)") << "4 1"
                                 << "";
    QTest::addRow("the type that it has") << QByteArray(R"("clicked": false, "deviceType": 4)") << "4 0"
                                          << "";
    QTest::addRow("another type") << QByteArray(R"("clicked": false, "deviceType": 1)") << "1 1"
                                  << "";
    // The list of types begins at the block, which is no choice after a click on one.
    QTest::addRow("the type of the list") << QByteArray(R"("clicked": false, "deviceType": 0)") << "0 0"
                                          << "";
    QTest::addRow("axes of a multi-axis drive")
        << QByteArray(R"("clicked": false, "deviceType": 2, "driveAxes": 9)") << "2 9"
        << "";
    QTest::addRow("no axes") << QByteArray(R"("clicked": false, "deviceType": 1, "driveAxes": 0)") << "1 0"
                             << "";
    QTest::addRow("axes that it has") << QByteArray(R"("clicked": false, "driveAxes": 1)") << "4 1"
                                      << "";
    QTest::addRow("others") << QByteArray(R"("clicked": false, "deviceType": 1, "driveAxes": 3)") << "1 1"
                            << refusal.arg("SingleDriver", "0 or 1");
    QTest::addRow("last type") << QByteArray(R"("lastType": 1)") << "1 1"
                               << "";
    QTest::addRow("last type of several") << QByteArray(R"("deviceType": 3, "lastType": 1)") << "1 1"
                                          << "";
    QTest::addRow("axes of the last type") << QByteArray(R"("lastType": 2, "driveAxes": 3)") << "2 3"
                                           << "";
    QTest::addRow("axes of the type before")
        << QByteArray(R"("deviceType": 2, "lastType": 3, "driveAxes": 3)") << "3 0" << refusal.arg("PnpIOBlock", "0");
    QTest::addRow("neither clicked nor of its type")
        << QByteArray(R"("clicked": false, "lastType": 1, "driveAxes": 0)") << "1 0"
        << "";
}

/// Without a click the axis stays, a type brings its own, and the field of another device sets 0.
void tst_ChoicesOfClicks::typeAndAxesWithoutClick()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, message);
    const AppliedChoices result = applied(loadedText(specialDevicesWithAnAxis(1)), choicesOfFirst(members));
    QCOMPARE(result.problems.join('\n'), message);
    const struct_EtherCatDevice& device = result.files.at(0).device.at(0);
    QTEST(QStringLiteral("%1 %2").arg(device.m_iDeviceType).arg(device.m_iDriveAxies), "typeAndAxes");
}

void tst_ChoicesOfClicks::shownTypeAfterLastType_data()
{
    QTest::addColumn<QByteArray>("members"); // of the first device
    QTest::addColumn<int>("axes"); // of the second one
    QTest::addRow("clicked") << QByteArray() << 1;
    QTest::addRow("not clicked") << QByteArray(R"(, "clicked": false)") << 0;
    QTest::addRow("another type at last") << QByteArray(R"(, "lastType": 1)") << 0;
    QTest::addRow("the same type at last") << QByteArray(R"(, "deviceType": 1, "lastType": 4)") << 1;
    QTest::addRow("not clicked, with types")
        << QByteArray(R"(, "clicked": false, "deviceType": 4, "lastType": 4)") << 0;
}

/// The second device keeps its axis if the list of types is at its type already.
void tst_ChoicesOfClicks::shownTypeAfterLastType()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedText(specialDevicesWithAnAxis(2)),
                                          choicesWith("{\"device\": 1" + members + "}, {\"device\": 2}"));
    QCOMPARE(result.problems, QStringList());
    QTEST(int(result.files.at(0).device.at(1).m_iDriveAxies), "axes");
}

void tst_ChoicesOfClicks::madeAgain_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("made"); // how many PDOs of modules, and the length of the sync manager
    const QByteArray minSize = R"("syncManagers": [{"syncManager": 0, "minSize": 7}])";
    QTest::addRow("not clicked") << QByteArray(R"("clicked": false)") << "1 0";
    QTest::addRow("clicked") << QByteArray() << "1 2";
    QTest::addRow("type after a click") << QByteArray(R"("deviceType": 3)") << "0 0";
    QTest::addRow("type without a click") << QByteArray(R"("clicked": false, "deviceType": 3)") << "1 0";
    QTest::addRow("last type after a click") << QByteArray(R"("lastType": 3)") << "1 2";
    QTest::addRow("last type after another") << QByteArray(R"("deviceType": 3, "lastType": 4)") << "0 0";
    QTest::addRow("last type without a click") << QByteArray(R"("clicked": false, "lastType": 3)") << "1 0";
    QTest::addRow("minimum size without a click") << R"("clicked": false, )" + minSize << "1 2";
    QTest::addRow("type and minimum size without a click")
        << R"("clicked": false, "deviceType": 3, )" + minSize << "1 2";
    QTest::addRow("no minimum sizes") << QByteArray(R"("clicked": false, "syncManagers": [])") << "1 0";
    QTest::addRow("module taken out without a click")
        << QByteArray(R"("clicked": false, "modules": [{"place": 0, "module": null}])") << "0 0";
    QTest::addRow("module put in without a click")
        << QByteArray(R"("clicked": false, "modules": [{"place": 0, "module": 1}])") << "1 2";
}

namespace {

/// A special device with a default module, whose inputs of two bytes count for the length from the first click on.
QByteArray deviceWithDefaultModule(int syncManager)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type>T</Type><Name>Station</Name>"
           "<Profile><ProfileNo>100</ProfileNo></Profile><Sm>Inputs</Sm><Slots><Slot MaxInstances=\"1\">"
           "<ModuleIdent Default=\"1\">1</ModuleIdent></Slot></Slots></Device></Devices><Modules><Module>"
           "<Type ModuleIdent=\"1\">A</Type><TxPdo Sm=\""
           + QByteArray::number(syncManager)
           + "\"><Index>#x1A00</Index><Name>State</Name><Entry><Index>#x6000</Index><BitLen>16</BitLen></Entry></TxPdo>"
             "</Module></Modules></Descriptions></EtherCATInfo>";
}

} // namespace

/// A device of type 3 finds its modules by itself: once its lists are made again, nothing is in them.
void tst_ChoicesOfClicks::madeAgain()
{
    QFETCH(QByteArray, members);
    const AppliedChoices result = applied(loadedText(deviceWithDefaultModule(0)), choicesOfFirst(members));
    QCOMPARE(result.problems, QStringList());
    const struct_EtherCatDevice& device = result.files.at(0).device.at(0);
    QTEST(QStringLiteral("%1 %2").arg(device.mTxPdo.mpdo.size()).arg(double(device.vSM.at(0).Length)), "made");
}

/// A sync manager that the device lacks is found when the lengths are computed, without a click as with one.
void tst_ChoicesOfClicks::missingSyncManager()
{
    const QByteArray missing = deviceWithDefaultModule(3);
    QCOMPARE(applied(loadedText(missing), choicesOfFirst(R"("clicked": false)")).problems, QStringList());
    const AppliedChoices result =
        applied(loadedText(missing),
                choicesOfFirst(R"("clicked": false, "driveAxes": 5, "syncManagers": [{"syncManager": 0, "minSize": 7}],
                          "lastType": 2)"));
    const QString path = QString::fromStdString(result.files.at(0).xmlfilepath);
    QCOMPARE(result.problems,
             QStringList{"devices[0]: " + path
                         + ": device \"Station\": PDO 0x1a00 \"State\" names sync manager 3, which the device does not "
                           "declare: it has 1 [sync-manager]"});
}

static const testMain::Registration<tst_ChoicesOfClicks, testMain::NoApplication> registration;
#include "tst_ChoicesOfClicks.moc"
