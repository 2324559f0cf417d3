// Which PDOs a sync manager could carry, as the Process Data tab lists them.
#include "testMain.h"
#include "workbench/tabFixture.h"

class tst_PdoAssignment : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    static void assignableBySyncManagerType_data();
    void assignableBySyncManagerType();
    void assignedHere();
    static void labelOfSyncManager_data();
    void labelOfSyncManager();
    void clickInAssignmentDoesNothing();
    void nothingSelected();
    void anotherDeviceEmptiesTheView();
};

/// A device with the edges of both index ranges in every list, and a sync manager of each type 0 to 7.
static struct_EtherCatDevice deviceWithRanges()
{
    struct_EtherCatDevice device = deviceNamed("Coupler");
    device.RxPdo.vpdo = {devicePdo(0x13FF), devicePdo(0x1400), devicePdo(0x1800)};
    device.TxPdo.vpdo = {devicePdo(0x1BFF), devicePdo(0x17FF), devicePdo(0x1C00)};
    device.mRxPdo.mpdo = {pdoOfModule(0x1600), pdoOfModule(0x1A00)};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A01), pdoOfModule(0x1601)};
    for (std::uint8_t type = 0; type < 8; ++type) {
        struct_SM syncManager;
        syncManager.SM = type;
        syncManager.Smtype = type;
        device.vSM.push_back(syncManager);
    }
    return device;
}

void tst_PdoAssignment::assignableBySyncManagerType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("indexes");
    // The index decides, not the list that a PDO comes from.
    QTest::addRow("outputs") << 3 << QStringList{"0x1400", "0x17ff", "0x1600", "0x1601"};
    QTest::addRow("inputs") << 4 << QStringList{"0x1800", "0x1bff", "0x1a00", "0x1a01"};
    for (const int type : {0, 1, 2, 5, 6, 7})
        QTest::addRow("type %d carries none", type) << type << QStringList();
}

void tst_PdoAssignment::assignableBySyncManagerType()
{
    QFETCH(int, type);
    QFETCH(QStringList, indexes);
    show(deviceWithRanges());
    clickRow(view("SyncManagerView"), type == 3 ? 4 : 3); // the view has rows of another one
    clickRow(view("SyncManagerView"), type);
    QCOMPARE(column("PdoAssignView", 0), indexes);
    QCOMPARE(labelText(window(), "label_18"), QStringLiteral("(0x1c1%1)").arg(type));
}

void tst_PdoAssignment::assignedHere()
{
    struct_EtherCatDevice shown = deviceNamed("Coupler");
    shown.RxPdo.vpdo = {devicePdo(0x1600), devicePdo(0x1601), devicePdo(0x1602)};
    shown.RxPdo.vpdo[0].Attributes.SM = 1;
    shown.RxPdo.vpdo[1].Attributes.SM = -1;
    shown.RxPdo.vpdo[2].Attributes.SM = 0;
    shown.mRxPdo.mpdo = {pdoOfModule(0x1610), pdoOfModule(0x1611)};
    shown.mRxPdo.mpdo[0].Attributes.SM = 5;
    shown.mRxPdo.mpdo[1].Attributes.SM = 1;
    shown.vSM.resize(6);
    shown.vSM[1].Smtype = 3;
    shown.vSM[1].SM = 5; // the row counts for the second column, not this number
    show(shown);
    clickRow(view("SyncManagerView"), 1);
    QCOMPARE(column("PdoAssignView", 1), QStringList({"1", "", "", "", "1"}));
    QCOMPARE(labelText(window(), "label_18"), QStringLiteral("(0x1c15)"));
}

void tst_PdoAssignment::labelOfSyncManager_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("label");
    QTest::addRow("first") << 0 << "(0x1c10)";
    QTest::addRow("outputs of most devices") << 2 << "(0x1c12)";
    QTest::addRow("sixteenth carries") << 16 << "(0x1c20)";
    QTest::addRow("last of its field") << 255 << "(0x1d0f)";
}

void tst_PdoAssignment::labelOfSyncManager()
{
    QFETCH(int, number);
    QFETCH(QString, label);
    struct_EtherCatDevice shown = deviceNamed("Drive");
    shown.vSM.resize(1);
    shown.vSM[0].SM = static_cast<std::uint8_t>(number);
    show(shown);
    clickRow(view("SyncManagerView"), 0);
    QCOMPARE(labelText(window(), "label_18"), label);
}

void tst_PdoAssignment::clickInAssignmentDoesNothing()
{
    show(deviceWithRanges());
    clickRow(view("SyncManagerView"), 3);
    clickRow(view("PdoAssignView"), 1); // were it taken for a sync manager, nothing would be listed
    QCOMPARE(column("PdoAssignView", 0), QStringList({"0x1400", "0x17ff", "0x1600", "0x1601"}));
    QCOMPARE(labelText(window(), "label_18"), QStringLiteral("(0x1c13)"));
    QCOMPARE(loadedDevice().mRxPdo.mpdo[0].Attributes.SM, -1);
}

void tst_PdoAssignment::nothingSelected()
{
    show(deviceWithRanges());
    clickRow(view("SyncManagerView"), 3);
    currentdeviceindex = -1;
    clickRow(view("SyncManagerView"), 4);
    QCOMPARE(modelOf(view("PdoAssignView")).rowCount(), 4);
    QCOMPARE(labelText(window(), "label_18"), QStringLiteral("(0x1c13)"));
}

void tst_PdoAssignment::anotherDeviceEmptiesTheView()
{
    show(deviceWithRanges());
    g_xmlfiledevices[0].device.push_back(deviceNamed("Second"));
    window().DeviceDisplayUpdate();
    clickItem(window(), treeItem(window(), 0, 0));
    clickRow(view("SyncManagerView"), 3);
    QCOMPARE(modelOf(view("PdoAssignView")).rowCount(), 4);
    clickItem(window(), treeItem(window(), 0, 1));
    for (const char* name : {"SyncManagerView", "PdoAssignView"})
        QCOMPARE(modelOf(view(name)).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_18"), QString());
}

static const testMain::Registration<tst_PdoAssignment, QApplication> registration;
#include "tst_PdoAssignment.moc"
