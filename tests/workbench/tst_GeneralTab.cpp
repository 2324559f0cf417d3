// The device type on the General tab: chosen by the user, and found by a click in the tree; and the about box.
// Covers mainwindow_general.cpp.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/editorParts.h"
#include "workbench/tabFixture.h"

#include <QAction>

class tst_GeneralTab : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    static void chosenType_data();
    void chosenType();
    static void adviceOnModuleList_data();
    void adviceOnModuleList();
    void adviceComesWithEachChoice();
    void noAdviceWhereTheEntryIsCurrent();
    static void clickOnADeviceOfAnotherType_data();
    void clickOnADeviceOfAnotherType();
    void multiDriverKeepsItsAxes();
    void nestedDispatcherFillsOnce();
    void nestedDispatcherWarnsOnce();
    void choiceStoresTheModuleIndexes();
    void unknownTypeHasNoEntry();
    static void typeNeedsADevice_data();
    void typeNeedsADevice();
    void negativeTypeEntry();
    void about();

private:
    QComboBox& typeList() { return *part<QComboBox>(window(), "comboBox_DeviceType"); }
    QLineEdit* axesField() { return part<QLineEdit>(window(), "DriveAxies"); }
    [[nodiscard]] static int axes(std::size_t device = 0) { return loadedDevice(device).m_iDriveAxies; }
    [[nodiscard]] static int type(std::size_t device = 0) { return loadedDevice(device).m_iDeviceType; }
    /// Loads devices and clicks the first; boxes that come up meanwhile are a failure.
    void show(const std::vector<struct_EtherCatDevice>& devices);
};

/// A coupler set by hand that takes its list of modules by itself.
static struct_EtherCatDevice couplerWithModuleList(const std::string& name)
{
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_ManualIOBlock, name);
    device.Slots.Attributes.DownloadModuleIdentList = true;
    return device;
}

void tst_GeneralTab::show(const std::vector<struct_EtherCatDevice>& devices)
{
    DialogDriver driver({});
    driver.during([&] { TabFixture::show(devices); });
    QCOMPARE(driver.problem(), QString());
}

void tst_GeneralTab::chosenType_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("driveAxes");
    QTest::addColumn<QString>("shownAxes");
    QTest::addColumn<bool>("axesMayBeTyped");
    QTest::addColumn<bool>("moduleIndexesMayBeTyped");
    QTest::addRow("I/O block") << 2 << 0 << 0 << "0x00" << false << false;
    QTest::addRow("single drive") << 0 << 1 << 1 << "0x1" << false << false;
    QTest::addRow("multi drive: an axis for each slot") << 0 << 2 << 3 << "0x3" << true << false;
    QTest::addRow("coupler") << 2 << 3 << 0 << "0x00" << false << true;
    QTest::addRow("special device") << 2 << 4 << 0 << "0x00" << false << true;
    QTest::addRow("coupler set by hand") << 2 << 5 << 0 << "0x00" << false << false;
}

void tst_GeneralTab::chosenType()
{
    QFETCH(int, before);
    QFETCH(int, entry);
    QFETCH(bool, moduleIndexesMayBeTyped);
    struct_EtherCatDevice device = deviceOfType(before);
    device.m_iDriveAxies = 7;
    device.Slots.vslot.resize(3);
    show({device});
    choose(typeList(), entry);
    QCOMPARE(type(), entry);
    QCOMPARE(typeList().currentIndex(), entry);
    QTEST(axes(), "driveAxes");
    QTEST(axesField()->text(), "shownAxes");
    QTEST(axesField()->isEnabled(), "axesMayBeTyped");
    QCOMPARE(part<QLineEdit>(window(), "ConfigModuleEdit")->isEnabled(), moduleIndexesMayBeTyped);
    QCOMPARE(part<QLineEdit>(window(), "DetectModuleEdit")->isEnabled(), moduleIndexesMayBeTyped);
}

void tst_GeneralTab::adviceOnModuleList_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("entry");
    QTest::addColumn<bool>("takesModuleList");
    QTest::addColumn<bool>("isAdvised");
    QTest::addRow("set by hand, takes the list") << 0 << 5 << true << true;
    QTest::addRow("set by hand, takes no list") << 0 << 5 << false << false;
    for (int other = 0; other < 5; ++other)
        QTest::addRow("type %d, takes the list", other) << (other == 0 ? 1 : 0) << other << true << false;
}

void tst_GeneralTab::adviceOnModuleList()
{
    QFETCH(int, before);
    QFETCH(int, entry);
    QFETCH(bool, takesModuleList);
    QFETCH(bool, isAdvised);
    struct_EtherCatDevice device = deviceOfType(before, "<b>耦合器</b>");
    device.Slots.Attributes.DownloadModuleIdentList = takesModuleList;
    show({device});
    DialogDriver driver(isAdvised ? std::vector<DialogAnswer>{pressing(QMessageBox::Ok)} : std::vector<DialogAnswer>{});
    choose(typeList(), entry, driver);
    QCOMPARE(type(), entry); // the change is made all the same
    if (!isAdvised)
        return;
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("xml parser"));
    QCOMPARE(box.text, QStringLiteral("当前设备支持写F030，建议配置设备类型为类型4。请谨慎操作 <b>耦合器</b>:\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &window());
}

void tst_GeneralTab::adviceComesWithEachChoice()
{
    struct_EtherCatDevice device = couplerWithModuleList("Coupler");
    device.m_iDeviceType = KTL_DEVICE_TYPE_IOBlock;
    show({device});
    for (int time = 0; time < 2; ++time) {
        DialogDriver driver({pressing(QMessageBox::Ok)});
        choose(typeList(), KTL_DEVICE_TYPE_ManualIOBlock, driver);
        choose(typeList(), KTL_DEVICE_TYPE_PnpIOBlock);
    }
}

void tst_GeneralTab::noAdviceWhereTheEntryIsCurrent()
{
    DialogDriver whenTheEntryChanges({pressing(QMessageBox::Ok)});
    whenTheEntryChanges.during([this] {
        show({couplerWithModuleList("Coupler 1"), couplerWithModuleList("Coupler 2")});
    });
    QCOMPARE(whenTheEntryChanges.problem(), QString());
    DialogDriver driver({});
    driver.during([this] {
        clickDevice(1);
        clickDevice(0);
        clickDevice(0);
        choose(typeList(), KTL_DEVICE_TYPE_ManualIOBlock); // the current entry: no change
    });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(type(0), 5);
    QCOMPARE(type(1), 5);
}

void tst_GeneralTab::clickOnADeviceOfAnotherType_data()
{
    QTest::addColumn<int>("ofDevice");
    QTest::addColumn<int>("driveAxes");
    QTest::addColumn<QString>("shown");
    QTest::addRow("single drive: one axis") << 1 << 1 << "0x1";
    QTest::addRow("multi drive: keeps its axes") << 2 << 9 << "0x9";
    QTest::addRow("coupler: none") << 3 << 0 << "0x00";
    QTest::addRow("special device: none") << 4 << 0 << "0x00";
    QTest::addRow("coupler set by hand: none") << 5 << 0 << "0x00";
}

void tst_GeneralTab::clickOnADeviceOfAnotherType()
{
    QFETCH(int, ofDevice);
    struct_EtherCatDevice device = deviceOfType(ofDevice, "Second");
    device.m_iDriveAxies = 9;
    device.Slots.vslot.resize(2);
    // The entry of the first device is current when the program starts, so its slot does not run.
    struct_EtherCatDevice first = deviceOfType(KTL_DEVICE_TYPE_IOBlock, "First");
    first.m_iDriveAxies = 5;
    show({first, device});
    QCOMPARE(axes(0), 5);
    clickDevice(1);
    QCOMPARE(type(1), ofDevice);
    QTEST(axes(1), "driveAxes");
    QTEST(axesField()->text(), "shown");
    QCOMPARE(axes(0), 5);
}

void tst_GeneralTab::multiDriverKeepsItsAxes()
{
    struct_EtherCatDevice drive = deviceOfType(KTL_DEVICE_TYPE_MultiDriver);
    drive.Slots.vslot.resize(2);
    show({drive, deviceOfType(KTL_DEVICE_TYPE_IOBlock)});
    typeInto(axesField(), "7");
    clickDevice(1);
    QCOMPARE(axesField()->isEnabled(), false);
    clickDevice(0); // the entry changes and its slot counts two slots
    QCOMPARE(axes(), 7);
    QCOMPARE(axesField()->text(), QString("0x7"));
    QCOMPARE(axesField()->isEnabled(), true);
    clickDevice(0); // the entry is current
    QCOMPARE(axes(), 7);
    QCOMPARE(axesField()->text(), QString("0x7"));
}

/// A device with something for each tab, and a module that brings a command and a PDO.
static struct_EtherCatDevice modularDevice(int type)
{
    struct_EtherCatDevice device = deviceOfType(type, "Modular");
    device.TypeAttributes.type = "M1";
    device.configindex = 0xF030;
    device.detectindex = 0xF050;
    device.vSM.resize(4);
    for (std::uint8_t number = 0; number < 4; ++number) {
        device.vSM[number].SM = number;
        device.vSM[number].Smtype = static_cast<std::uint8_t>(number + 1);
    }
    device.vFmmu.resize(2);
    device.vopmode.resize(2);
    device.RxPdo.vpdo = {pdoOn(2)};
    device.Mailbox.COE.Attributes.PdoConfig = true;
    device.Mailbox.COE.Attributes.PdoAssign = true;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(1);
    device.Slots.vslot.resize(1);
    struct_Slot& slot = device.Slots.vslot[0];
    slot.Attributes.MaxInstances = 1;
    slot.slotmodule.resize(1);
    struct_module& module = slot.slotmodule[0].module;
    module.Mailbox.COE.vinitcmd.resize(2);
    module.RxPdo.vpdo.resize(1);
    module.RxPdo.vpdo[0].Attributes.SM = 2;
    module.RxPdo.vpdo[0].vEntry.resize(1);
    module.RxPdo.vpdo[0].vEntry[0].BitLen = 8;
    return device;
}

void tst_GeneralTab::nestedDispatcherFillsOnce()
{
    const auto tablesNow = [this] {
        QVector<QVector<QStringList>> tables;
        for (const char* name : {"SmView", "FmmuView", "SyncManagerView", "PdoListView", "StartupView", "ModuleView"})
            tables.append(allTexts(table(window(), name)));
        return tables;
    };
    // Clicked while its entry is current, the dispatcher runs once.
    struct_EtherCatDevice plain = modularDevice(KTL_DEVICE_TYPE_MultiDriver);
    show({plain, deviceOfType(KTL_DEVICE_TYPE_IOBlock)});
    clickDevice(0);
    const QVector<QVector<QStringList>> tables = tablesNow();
    QCOMPARE(tables[0].size(), 4);
    QCOMPARE(tables[1].size(), 2);
    QCOMPARE(tables[2].size(), 4);
    QCOMPARE(tables[3].size(), 2); // of the device and of its module
    QCOMPARE(tables[5].size(), 1);
    const std::size_t moduleCommands = loadedDevice().mMailbox.COE.vinitcmd.size();
    QCOMPARE(tables[4].size(), int(moduleCommands) + 1);
    // Two of the module; clearing, mapping and count of its PDO; two assignments and their count.
    QCOMPARE(moduleCommands, std::size_t(2 + 3 + 3));

    clickDevice(1);
    clickDevice(0); // another entry becomes current: the dispatcher runs inside itself
    QCOMPARE(tablesNow(), tables);
    QCOMPARE(part<QComboBox>(window(), "comboBox_Dc")->count(), 2);
    QCOMPARE(loadedDevice().mMailbox.COE.vinitcmd.size(), moduleCommands);
    QCOMPARE(loadedDevice().mRxPdo.mpdo.size(), std::size_t(1));
    QCOMPARE(int(loadedDevice().configindex), 0xF030);
    QCOMPARE(int(loadedDevice().detectindex), 0xF050);
    QCOMPARE(part<QLineEdit>(window(), "ConfigModuleEdit")->text(), QString("0xf030"));
    QCOMPARE(part<QLineEdit>(window(), "TypeEdit")->text(), QString("M1"));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
}

void tst_GeneralTab::nestedDispatcherWarnsOnce()
{
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_MultiDriver);
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].Attributes.MaxInstances = 100; // a slot with too many places is told of when it is shown
    DialogDriver driver({pressing(QMessageBox::Ok)});
    driver.during([&] { show({device}); }); // another entry becomes current
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).title, QString("slot sum overflow"));
}

void tst_GeneralTab::choiceStoresTheModuleIndexes()
{
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_PnpIOBlock);
    show({device});
    openTab(window(), ModuleTab);
    typeInto(part<QLineEdit>(window(), "ConfigModuleEdit"), "0xF030");
    openTab(window(), GeneralTab);
    choose(typeList(), KTL_DEVICE_TYPE_Special); // shows the device again, which saves what was typed
    QCOMPARE(int(loadedDevice().configindex), 0xF030);
    QCOMPARE(part<QLineEdit>(window(), "ConfigModuleEdit")->text(), QString("0xf030"));
}

void tst_GeneralTab::unknownTypeHasNoEntry()
{
    struct_EtherCatDevice device = deviceOfType(9);
    device.m_iDriveAxies = 4;
    show({device});
    QCOMPARE(typeList().currentIndex(), -1);
    QCOMPARE(type(), 9);
    QCOMPARE(axes(), 4);
    QCOMPARE(axesField()->isEnabled(), false);
}

void tst_GeneralTab::typeNeedsADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_GeneralTab::typeNeedsADevice()
{
    struct_EtherCatDevice coupler = couplerWithModuleList("Coupler");
    coupler.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    coupler.m_iDriveAxies = 4;
    show({coupler});
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    choose(typeList(), KTL_DEVICE_TYPE_ManualIOBlock);
    choose(typeList(), KTL_DEVICE_TYPE_MultiDriver);
    QCOMPARE(type(), 3);
    QCOMPARE(axes(), 0); // as the click on the device left it
    QCOMPARE(axesField()->isEnabled(), false);
}

void tst_GeneralTab::negativeTypeEntry()
{
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_MultiDriver);
    device.m_iDriveAxies = 4;
    show({device});
    QVERIFY(callSlot(window(), "on_comboBox_DeviceType_currentIndexChanged", Q_ARG(int, -1)));
    QCOMPARE(type(), 2);
    QCOMPARE(axes(), 4);
}

void tst_GeneralTab::about()
{
    DialogDriver driver({pressing(QMessageBox::Ok)});
    driver.during([this] { part<QAction>(window(), "actionAbout")->trigger(); });
    QCOMPARE(driver.problem(), QString());
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QStringLiteral("Software information(软件信息)"));
    QVERIFY2(box.text.endsWith(" V1.0.28"), qPrintable(box.text));
    QVERIFY(!box.text.contains('\n'));
    QCOMPARE(box.parent, &window());
}

static const testMain::Registration<tst_GeneralTab, QApplication> registration;
#include "tst_GeneralTab.moc"
