// What follows from a change of the modules in the slots: the module lists of the device, the tables that are shown
// again, and the command that names the configured modules.
#include "testMain.h"
#include "workbench/moduleTabFixture.h"

#include <QCheckBox>
#include <QLineEdit>

#include <functional>
#include <stdexcept>

class tst_ModuleRefresh : public ModuleTabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ModuleTab); }
    void cleanup() { end(); }
    void withoutDevice();
    static void selectionPastTheLists_data();
    void selectionPastTheLists();
    void downloadBoxPastTheLists();
    void tabsAreSafeAfterADeletion();
    void indexesMoveWithThePlace();
    void refreshedTables();
    void orderOfTheRefresh();
    void tablesAreCutBack();
    void listsAreRebuilt();
    void deviceWithoutSlotsKeepsItsLists();
    void assignmentsRemainWithoutModules();
    void axesAndTypeStay();
    static void otherTypeAndBack_data();
    void otherTypeAndBack();
    void moduleIndexFields();
    static void downloadCommand_data();
    void downloadCommand();
    void downloadCommandWithoutDevice();
};

void tst_ModuleRefresh::withoutDevice()
{
    showCoupler();
    choose(0, 0);
    currentdeviceindex = -1;
    for (const char* button : {"InsertModule", "DeleteModule"})
        QCOMPARE(boxesDuring(0, [&] { press(window(), button); }), QStringList());
    callSlot(window(), "device_slotmodule_display");
    callSlot(window(), "device_modulestartup_generate");
    QCOMPARE(placedModules(), QString());
    QCOMPARE(modelOf(view("ModuleView")).rowCount(), 3);
}

static str_InitCmd downloadOf(MainWindow& window, struct_Slot& slot)
{
    str_InitCmd command;
    callSlot(window, "device_downloadslotcfg", Q_RETURN_ARG(str_InitCmd, command), Q_ARG(str_Slot*, &slot));
    return command;
}

using Handler = std::function<void(MainWindow&)>;
Q_DECLARE_METATYPE(Handler)

void tst_ModuleRefresh::selectionPastTheLists_data()
{
    QTest::addColumn<Handler>("handler");
    for (const char* name : {"device_slots_display", "device_module_display", "device_slotmodule_display",
                             "device_modulestartup_generate", "on_InsertModule_clicked", "on_DeleteModule_clicked"})
        QTest::addRow("%s", name) << Handler([name](MainWindow& window) { callSlot(window, name); });
    for (const char* name : {"device_slot_clicked", "on_ModuleView_clicked", "on_mPdoListView_clicked"})
        QTest::addRow("%s", name) << Handler(
            [name](MainWindow& window) { callSlot(window, name, Q_ARG(QModelIndex, QModelIndex())); });
    QTest::addRow("on_Module_TreeClick") << Handler([](MainWindow& window) {
        callSlot(window, "on_Module_TreeClick", Q_ARG(QTreeWidgetItem*, moduleItem(window, 0, 0)), Q_ARG(int, 0));
    });
    QTest::addRow("device_downloadslotcfg") << Handler([](MainWindow& window) {
        struct_Slot slot;
        downloadOf(window, slot);
    });
}

void tst_ModuleRefresh::selectionPastTheLists()
{
    QFETCH(Handler, handler);
    showCoupler();
    currentdeviceindex = 1;
    QVERIFY_EXCEPTION_THROWN(handler(window()), std::out_of_range);
    currentfileindex = 1;
    currentdeviceindex = 0;
    QVERIFY_EXCEPTION_THROWN(handler(window()), std::out_of_range);
    currentdeviceindex = -1; // no device is selected, wherever the file lies
    handler(window());
    currentfileindex = -1;
    currentdeviceindex = 1;
    handler(window());
}

/// The box goes by a selection that is a device, and by no other.
void tst_ModuleRefresh::downloadBoxPastTheLists()
{
    showCoupler();
    currentdeviceindex = 1;
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    currentfileindex = 1;
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    QVERIFY(!loadedDevice().Slots.Attributes.DownloadModuleIdentList);
}

/// The selection stays where it was, past the list now; but the tabs are empty, so that no handler is reached.
void tst_ModuleRefresh::tabsAreSafeAfterADeletion()
{
    showCoupler();
    insert(0, 0);
    QVERIFY(callSlot(window(), "device_delete"));
    QCOMPARE(currentdeviceindex, 0);
    for (const char* name : {"ModuleView", "ModuleTree", "mPdoListView", "PdoListView", "SyncManagerView"}) {
        auto* const rows = part<QAbstractItemView>(window(), name);
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
        QTest::keyClick(rows, Qt::Key_Down);
    }
    for (const char* name : {"InsertModule", "DeleteModule"})
        press(window(), name);
    part<QCheckBox>(window(), "DownlaodCfg")->click();
    part<QComboBox>(window(), "comboBox_DeviceType")->setCurrentIndex(2);
    QVERIFY(callSlot(window(), "device_delete"));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(1));
    QVERIFY(g_xmlfiledevices[0].device.empty());
}

void tst_ModuleRefresh::indexesMoveWithThePlace()
{
    showCoupler();
    loadedDevice().Slots.Attributes.SlotPdoIncrement = 0x10;
    insert(0, 0);
    insert(2, 2);
    // Place 2 is the first place of the second slot: twice the increment for the PDO that depends on the slot.
    QCOMPARE(column("PdoListView", 0), QStringList({"0x1600", "0x1620", "0x1a00", "0x1a00"}));
    QCOMPARE(loadedDevice().mRxPdo.mpdo[1].Instances, 2);
    QCOMPARE(int(loadedDevice().Slots.vslot[1].slotmodule[0].module.RxPdo.vpdo[0].indexAttributes.index), 0x1600);
}

void tst_ModuleRefresh::refreshedTables()
{
    showCoupler();
    struct_EtherCatDevice& coupler = loadedDevice();
    coupler.Mailbox.COE.Attributes.PdoConfig = true;
    coupler.vSM.resize(3);
    coupler.vSM[2].Smtype = 3;
    coupler.RxPdo.vpdo = {devicePdo(0x1400, {deviceEntry(0x7000, 8)})};
    struct_module& io = module(0, 0);
    io.RxPdo.vpdo[0].Attributes.SM = 2;
    io.RxPdo.vpdo[0].size = 3.0F;
    io.Mailbox.COE.vinitcmd.resize(1);
    io.Mailbox.COE.vinitcmd[0].Comment = "of the module";
    clickItem(window(), treeItem(window(), 0, 0));
    clickRow(view("PdoListView"), 0);
    clickRow(view("SyncManagerView"), 2);
    QCOMPARE(modelOf(view("PdoAssignView")).rowCount(), 1);
    insert(0, 0);
    const QStringList comments = column("StartupView", 5);
    QCOMPARE(comments.mid(0, 2), QStringList({"of the module", "clear mpdo 0x1600 entry"})); // declared, then generated
    QCOMPARE(column("PdoListView", 0), QStringList({"0x1400", "0x1600", "0x1a00"}));
    QCOMPARE(column("SyncManagerView", 1), QStringList({"0.00", "0.00", "3.00"}));
    QCOMPARE(modelOf(view("PdoContentView")).rowCount(), 0);
    QCOMPARE(modelOf(view("PdoAssignView")).rowCount(), 0);
    clickRow(view("ModuleView"), 0);
    press(window(), "DeleteModule");
    QCOMPARE(modelOf(view("StartupView")).rowCount(), 0);
    QCOMPARE(column("PdoListView", 0), QStringList("0x1400"));
    QCOMPARE(column("SyncManagerView", 1), QStringList({"0.00", "0.00", "0.00"}));
}

void tst_ModuleRefresh::orderOfTheRefresh()
{
    showCoupler();
    loadedDevice().Slots.vslot.push_back(slotNamed("big", 100));
    choose(0, 0);
    QStringList pdosUnderTheBox;
    DialogDriver driver({{DialogAnswer::Kind::MessageBox, [&](QWidget& box) {
                              pdosUnderTheBox = column("PdoListView", 2);
                              box.close();
                          }}});
    driver.during([this] { press(window(), "InsertModule"); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).title, QStringLiteral("slot sum overflow")); // the slots come last
    QCOMPARE(pdosUnderTheBox, QStringList({"IO out", "IO in"}));
}

void tst_ModuleRefresh::tablesAreCutBack()
{
    showCoupler();
    loadedDevice().RxPdo.vpdo = {devicePdo(0x1400, {deviceEntry(0x7000, 8)})};
    loadedDevice().Mailbox.COE.InitCmd.vinitcmd.resize(2);
    loadedDevice().vSM.resize(1);
    loadedDevice().vSM[0].Smtype = 3;
    clickItem(window(), treeItem(window(), 0, 0));
    clickRow(view("PdoListView"), 0);
    clickRow(view("SyncManagerView"), 0);
    callSlot(window(), "device_slotmodule_display");
    for (const char* name : {"PdoContentView", "PdoAssignView", "ModuleView"})
        QCOMPARE(modelOf(view(name)).rowCount(), 0);
    // The rows that the last fill wrote stay; a click in the device tree counts them as none.
    QCOMPARE(modelOf(view("PdoListView")).rowCount(), 1);
    QCOMPARE(modelOf(view("StartupView")).rowCount(), 2);
    callSlot(window(), "device_information_display", Q_ARG(QTreeWidgetItem*, nullptr), Q_ARG(int, 0));
    callSlot(window(), "device_slotmodule_display");
    QCOMPARE(modelOf(view("PdoListView")).rowCount(), 0);
    QCOMPARE(modelOf(view("StartupView")).rowCount(), 0);
}

void tst_ModuleRefresh::listsAreRebuilt()
{
    showCoupler();
    struct_EtherCatDevice& coupler = loadedDevice();
    coupler.mRxPdo.mpdo.resize(5);
    coupler.mTxPdo.mpdo.resize(5);
    coupler.mMailbox.COE.vinitcmd.resize(5); // as generated at load time, or changed by hand
    coupler.mDictionary.mobject.resize(5);
    coupler.mDictionary.mdatatype.resize(5);
    struct_module brought = moduleWithPdos("IO", 0x10);
    brought.Mailbox.COE.vinitcmd.resize(1);
    brought.Dictionary.vobject.resize(2);
    brought.Dictionary.vdatatype.resize(3);
    coupler.Slots.vslot[0].slotmodule = {placedAt(0, brought), placedAt(1, brought)};
    clickItem(window(), treeItem(window(), 0, 0));
    QCOMPARE(coupler.mRxPdo.mpdo.size(), std::size_t(2));
    QCOMPARE(coupler.mTxPdo.mpdo.size(), std::size_t(2));
    QCOMPARE(coupler.mMailbox.COE.vinitcmd.size(), std::size_t(2));
    QCOMPARE(coupler.mDictionary.mobject.size(), std::size_t(4));
    QCOMPARE(coupler.mDictionary.mdatatype.size(), std::size_t(6));
    clickItem(window(), treeItem(window(), 0, 0)); // the same at every click
    QCOMPARE(coupler.mMailbox.COE.vinitcmd.size(), std::size_t(2));
}

void tst_ModuleRefresh::deviceWithoutSlotsKeepsItsLists()
{
    struct_EtherCatDevice drive = deviceNamed("Drive");
    drive.Mailbox.COE.Attributes.PdoAssign = true;
    drive.Mailbox.COE.Attributes.PdoConfig = true;
    drive.mRxPdo.mpdo = {pdoOfModule(0x1600)};
    drive.mMailbox.COE.vinitcmd.resize(3);
    drive.vSM.resize(1);
    drive.vSM[0].Smtype = 3;
    show(drive);
    QCOMPARE(loadedDevice().mRxPdo.mpdo.size(), std::size_t(1));
    QCOMPARE(modelOf(view("StartupView")).rowCount(), 3);
    clickRow(view("SyncManagerView"), 0);
    callSlot(window(), "device_slotmodule_display");
    QCOMPARE(modelOf(view("PdoAssignView")).rowCount(), 1); // the tables are not cut either
}

void tst_ModuleRefresh::assignmentsRemainWithoutModules()
{
    showCoupler();
    loadedDevice().Mailbox.COE.Attributes.PdoAssign = true;
    loadedDevice().vSM.resize(1);
    loadedDevice().vSM[0].Smtype = 3;
    loadedDevice().RxPdo.vpdo = {devicePdo(0x1600)};
    loadedDevice().RxPdo.vpdo[0].Attributes.SM = 0;
    insert(0, 0);
    clickRow(view("ModuleView"), 0);
    press(window(), "DeleteModule");
    QCOMPARE(column("StartupView", 5), QStringList({"download pdo 0x1c10 index", "download pdo 0x1c10  count"}));
}

void tst_ModuleRefresh::axesAndTypeStay()
{
    showCoupler();
    module(0, 0).m_profileNO = 402; // at load time it would make a multi-axis drive
    loadedDevice().m_iDriveAxies = 7;
    insert(0, 0);
    QCOMPARE(int(loadedDevice().m_iDeviceType), 5);
    QCOMPARE(int(loadedDevice().m_iDriveAxies), 7);
}

void tst_ModuleRefresh::otherTypeAndBack_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {0, 1, 3})
        QTest::addRow("type %d", type) << type;
}

void tst_ModuleRefresh::otherTypeAndBack()
{
    QFETCH(int, type);
    showCoupler();
    insert(0, 0);
    auto* const types = part<QComboBox>(window(), "comboBox_DeviceType");
    types->setCurrentIndex(type);
    QCOMPARE(modelOf(view("PdoListView")).rowCount(), 0); // no module data,
    QVERIFY(loadedDevice().mRxPdo.mpdo.empty() && loadedDevice().mTxPdo.mpdo.empty());
    QCOMPARE(placedModules(), QStringLiteral("0 IO")); // but the module stays in its slot
    QCOMPARE(row("ModuleView", 0).at(1), QStringLiteral("IO"));
    types->setCurrentIndex(5);
    QCOMPARE(column("PdoListView", 2), QStringList({"IO out", "IO in"}));
}

void tst_ModuleRefresh::moduleIndexFields()
{
    for (const int argument : {2, 0, -1, 0}) {
        callSlot(window(), "device_moduleindex_modify", Q_ARG(int, argument));
        for (const char* name : {"ConfigModuleEdit", "DetectModuleEdit"})
            QCOMPARE(part<QLineEdit>(window(), name)->isEnabled(), argument != 0);
    }
}

void tst_ModuleRefresh::downloadCommand_data()
{
    QTest::addColumn<bool>("downloads");
    QTest::addColumn<bool>("hasModules");
    QTest::addColumn<QString>("text");
    QTest::addRow("modules") << true << true << "0x3 0x10 0x00 0x20 ";
    QTest::addRow("no module") << true << false << "";
    QTest::addRow("the text alone") << false << true << "0x3 0x10 0x00 0x20 ";
    QTest::addRow("nothing") << false << false << "";
}

void tst_ModuleRefresh::downloadCommand()
{
    QFETCH(bool, downloads);
    QFETCH(bool, hasModules);
    QFETCH(QString, text);
    showCoupler();
    loadedDevice().Slots.Attributes.DownloadModuleIdentList = downloads;
    struct_Slot& slot = loadedDevice().Slots.vslot[0];
    if (hasModules)
        slot.slotmodule = {placedAt(0, moduleNamed("IO", 0x10)), placedAt(2, moduleNamed("AX", 0x20))};
    const str_InitCmd command = downloadOf(window(), slot);
    QCOMPARE(command.Transition, downloads ? PS : UnknownType);
    QCOMPARE(int(command.Index), downloads ? 0xF030 : 0);
    QCOMPARE(command.Comment, std::string(downloads ? "download slot cfg" : ""));
    QCOMPARE(QString::fromStdString(command.strData), text);
    QCOMPARE(int(command.Data), 0);
    QCOMPARE(int(command.DataBytes), 0);
}

void tst_ModuleRefresh::downloadCommandWithoutDevice()
{
    showCoupler();
    struct_Slot slot = loadedDevice().Slots.vslot[0];
    slot.slotmodule = {placedAt(0, moduleNamed("IO", 0x10))};
    loadedDevice().Slots.Attributes.DownloadModuleIdentList = true;
    currentdeviceindex = -1;
    const str_InitCmd command = downloadOf(window(), slot);
    QCOMPARE(int(command.Index), 0);
    QCOMPARE(command.strData, std::string());
}

static const testMain::Registration<tst_ModuleRefresh, QApplication> registration;
#include "tst_ModuleRefresh.moc"
