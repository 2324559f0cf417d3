// What the Process Data tab shows: the PDO list, and the entries of the PDO that is clicked.
// Covers mainwindow_pdo.cpp.
#include "testMain.h"
#include "workbench/tabFixture.h"

#include <QCheckBox>

class tst_ProcessDataTab : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(ProcessDataTab); }
    void cleanup() { end(); }
    static void ownPdo_data();
    void ownPdo();
    void modulePdoRow();
    void fourListsInOrder();
    void modulesAreRed();
    static void syncManagerCell_data();
    void syncManagerCell();
    static void capabilityBoxes_data();
    void capabilityBoxes();
    void emptyDevice();
    static void entryRow_data();
    void entryRow();
    static void linkTexts_data();
    void linkTexts();
    static void closingRow_data();
    void closingRow();
    void pdoWithoutEntries();
    static void entriesOfEachList_data();
    void entriesOfEachList();
    void rowPastTheLists();
    void nothingSelected();
    void anotherDeviceEmptiesTheTab();
};

void tst_ProcessDataTab::ownPdo_data()
{
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<bool>("mandatory");
    QTest::addColumn<float>("size");
    QTest::addColumn<QString>("shownSize");
    QTest::addColumn<QString>("flags");
    QTest::addRow("no flags, empty") << false << false << 0.0F << "0.00"
                                     << "";
    QTest::addRow("fixed, 12 bits") << true << false << 1.4F << "1.40"
                                    << "F";
    QTest::addRow("mandatory, whole bytes") << false << true << 6.0F << "6.00"
                                            << "M";
    QTest::addRow("fixed and mandatory, no carry") << true << true << 2.8F << "2.80"
                                                   << "FM";
}

void tst_ProcessDataTab::ownPdo()
{
    QFETCH(bool, fixed);
    QFETCH(bool, mandatory);
    QFETCH(float, size);
    QFETCH(QString, shownSize);
    QFETCH(QString, flags);
    struct_EtherCatDevice shown = deviceNamed("Drive");
    struct_PDOList pdo = devicePdo(0x1600);
    pdo.Name = "Outputs 输出";
    pdo.Size = size;
    pdo.Attributes.Fixed = fixed;
    pdo.Attributes.Mandatory = mandatory;
    pdo.Attributes.SM = 2;
    pdo.Attributes.SU = 10;
    shown.RxPdo.vpdo = {pdo};
    shown.vSM.resize(3);
    show(shown);
    const QStringList expected{"0x1600", shownSize, QStringLiteral("Outputs 输出"), flags, "2", "10"};
    QCOMPARE(row("PdoListView", 0), expected);
}

void tst_ProcessDataTab::modulePdoRow()
{
    struct_EtherCatDevice shown = deviceNamed("Coupler");
    modulePdo pdo = pdoOfModule(0x1A10);
    pdo.Name = "Inputs";
    pdo.size = 0.3F;
    pdo.Attributes = {true, true, 3, 1};
    shown.mTxPdo.mpdo = {pdo};
    shown.vSM.resize(4);
    show(shown);
    QCOMPARE(row("PdoListView", 0), QStringList({"0x1a10", "0.30", "Inputs", "FM", "3", "1"}));
}

/// A device with PDOs in all four lists: two output PDOs and one input PDO of its own, one and two of its modules.
static struct_EtherCatDevice deviceWithFourLists()
{
    struct_EtherCatDevice device = deviceNamed("Coupler");
    device.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0x7000, 8)}), devicePdo(0x1601, {deviceEntry(0x7001, 8)})};
    device.TxPdo.vpdo = {devicePdo(0x1A00, {deviceEntry(0x6000, 8)})};
    device.mRxPdo.mpdo = {pdoOfModule(0x1610, {moduleEntry(0x7010, 8)})};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10, {moduleEntry(0x6010, 8)}), pdoOfModule(0, {moduleEntry(0x6011, 8)})};
    return device;
}

void tst_ProcessDataTab::fourListsInOrder()
{
    show(deviceWithFourLists());
    QCOMPARE(column("PdoListView", 0), QStringList({"0x1600", "0x1601", "0x1a00", "0x1610", "0x1a10", "0x00"}));
}

void tst_ProcessDataTab::modulesAreRed()
{
    show(deviceWithFourLists());
    const QStandardItemModel& model = modelOf(view("PdoListView"));
    for (int number = 0; number < model.rowCount(); ++number)
        for (int cell = 0; cell < model.columnCount(); ++cell) {
            const QVariant brush = model.index(number, cell).data(Qt::ForegroundRole);
            if (number < 3)
                QVERIFY2(!brush.isValid(), "an own PDO has a colour of its own");
            else
                QCOMPARE(brush.value<QBrush>(), QBrush(QColor(255, 0, 0, 255), Qt::SolidPattern));
        }
}

void tst_ProcessDataTab::syncManagerCell_data()
{
    QTest::addColumn<int>("syncManager");
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("ofModule");
    QTest::addRow("none: no item, and of a module an empty one") << -1 << noItem() << "";
    QTest::addRow("far below") << -300 << noItem() << "";
    QTest::addRow("first") << 0 << "0"
                           << "0";
    QTest::addRow("decimal") << 12 << "12"
                             << "12";
}

void tst_ProcessDataTab::syncManagerCell()
{
    QFETCH(int, syncManager);
    QFETCH(QString, own);
    QFETCH(QString, ofModule);
    struct_EtherCatDevice shown = deviceWithFourLists();
    shown.RxPdo.vpdo[0].Attributes.SM = syncManager;
    shown.TxPdo.vpdo[0].Attributes.SM = syncManager;
    shown.mRxPdo.mpdo[0].Attributes.SM = syncManager;
    shown.mTxPdo.mpdo[0].Attributes.SM = syncManager;
    shown.vSM.resize(13);
    show(shown);
    QCOMPARE(row("PdoListView", 0).at(4), own);
    QCOMPARE(row("PdoListView", 2).at(4), own);
    QCOMPARE(row("PdoListView", 3).at(4), ofModule);
    QCOMPARE(row("PdoListView", 4).at(4), ofModule);
}

void tst_ProcessDataTab::capabilityBoxes_data()
{
    QTest::addColumn<QVector<bool>>("flags");
    QTest::addRow("none") << QVector<bool>{false, false, false};
    QTest::addRow("information service") << QVector<bool>{true, false, false};
    QTest::addRow("assignment") << QVector<bool>{false, true, false};
    QTest::addRow("configuration") << QVector<bool>{false, false, true};
}

void tst_ProcessDataTab::capabilityBoxes()
{
    QFETCH(QVector<bool>, flags);
    const char* const boxes[] = {"SdocheckBox", "PdocheckBoxA", "PdocheckBoxC"};
    for (int index = 0; index < 3; ++index)
        part<QCheckBox>(window(), boxes[index])->setChecked(!flags.at(index)); // left from another device
    struct_EtherCatDevice shown = deviceNamed("Drive");
    CoeAttributes& coe = shown.Mailbox.COE.Attributes;
    coe.SdoInfo = flags.at(0);
    coe.PdoAssign = flags.at(1);
    coe.PdoConfig = flags.at(2);
    show(shown);
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(part<QCheckBox>(window(), boxes[index])->isChecked(), flags.at(index));
        QVERIFY(!part<QCheckBox>(window(), boxes[index])->isEnabled()); // they only report
    }
}

void tst_ProcessDataTab::emptyDevice()
{
    show(deviceNamed("Drive"));
    QCOMPARE(modelOf(view("PdoListView")).rowCount(), 0);
    DialogDriver driver({});
    driver.during([this] { rightClickBelowTheRows(view("PdoContentView")); });
    QCOMPARE(driver.problem(), QString());
}

void tst_ProcessDataTab::entryRow_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addRow("own output") << 0;
    QTest::addRow("own input") << 1;
    QTest::addRow("output of a module") << 2;
    QTest::addRow("input of a module") << 3;
}

void tst_ProcessDataTab::entryRow()
{
    QFETCH(int, pdoRow);
    struct_EntryPDOContent own = deviceEntry(0x60FF, 12, -4);
    own.SubIndex = 17;
    own.Offs = 2.25F;
    own.Name = "Torque 转矩";
    own.DataType = "INT";
    own.DefaultData = 4294967295U;
    struct_moduleEntry ofModule = moduleEntry(0x60FF, 12, -4);
    ofModule.SubIndex = 17;
    ofModule.Offs = 2.25F;
    ofModule.Name = own.Name;
    ofModule.DataType = own.DataType;
    ofModule.DefaultData = own.DefaultData;
    struct_EtherCatDevice shown = deviceNamed("Coupler");
    shown.RxPdo.vpdo = {devicePdo(0x1600, {own})};
    shown.TxPdo.vpdo = {devicePdo(0x1A00, {own})};
    shown.mRxPdo.mpdo = {pdoOfModule(0x1610, {ofModule})};
    shown.mTxPdo.mpdo = {pdoOfModule(0x1A10, {ofModule})};
    show(shown);
    clickRow(view("PdoListView"), pdoRow);
    const QStringList expected{"0x60ff:17", "1.40",       "2.25",      QStringLiteral("Torque 转矩"),
                               "INT",       "AIN16 Type", "4294967295"};
    QCOMPARE(row("PdoContentView", 0), expected);
}

void tst_ProcessDataTab::linkTexts_data()
{
    QTest::addColumn<int>("link");
    QTest::addColumn<QString>("shown");
    QTest::addRow("none") << 0 << "NONE Type";
    QTest::addRow("digital input") << -1 << "DIN Type";
    QTest::addRow("digital output") << -2 << "DOUT Type";
    QTest::addRow("-3 has no text of its own") << -3 << "-3";
    QTest::addRow("16-bit analogue input") << -4 << "AIN16 Type";
    QTest::addRow("32-bit analogue input") << -5 << "AIN32 Type";
    QTest::addRow("float input") << -6 << "FAIN Type";
    QTest::addRow("16-bit analogue output") << -7 << "AOUT16 Type";
    QTest::addRow("32-bit analogue output") << -8 << "AOUT32 Type";
    QTest::addRow("float output") << -9 << "FAOUT Type";
    QTest::addRow("encoder") << -10 << "ENCODER32 Type";
    QTest::addRow("past the last one") << -11 << "-11";
    QTest::addRow("positive") << 7 << "7";
}

void tst_ProcessDataTab::linkTexts()
{
    QFETCH(int, link);
    QFETCH(QString, shown);
    struct_EtherCatDevice linked = deviceNamed("Drive");
    linked.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0x7000, 8, link)})};
    linked.mTxPdo.mpdo = {pdoOfModule(0x1A00, {moduleEntry(0x6000, 8, link)})};
    show(linked);
    clickRow(view("PdoListView"), 0);
    QCOMPARE(row("PdoContentView", 0).at(5), shown);
    clickRow(view("PdoListView"), 1);
    QCOMPARE(row("PdoContentView", 0).at(5), shown);
}

void tst_ProcessDataTab::closingRow_data()
{
    QTest::addColumn<float>("place");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QString>("end");
    QTest::addRow("empty entry at the start") << 0.0F << 0 << "0.000000";
    QTest::addRow("whole bytes") << 2.0F << 16 << "4.000000";
    // 1.4 and 0.7 as floats, added as floats: nothing is carried from the tenths into the bytes.
    QTest::addRow("bits are not carried") << 1.4F << 7 << "2.100000";
    QTest::addRow("the sum has the precision of a float") << 1000.1F << 8 << "1001.099976";
}

void tst_ProcessDataTab::closingRow()
{
    QFETCH(float, place);
    QFETCH(int, bits);
    QFETCH(QString, end);
    struct_EtherCatDevice shown = deviceNamed("Drive");
    shown.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0x7000, 8), deviceEntry(0x7001, bits)})};
    shown.RxPdo.vpdo[0].Entry.vPdo_c[1].Offs = place;
    shown.mTxPdo.mpdo = {pdoOfModule(0x1A00, {moduleEntry(0x6000, 8), moduleEntry(0x6001, bits)})};
    shown.mTxPdo.mpdo[0].vEntry[1].Offs = place;
    show(shown);
    const QStringList expected{noItem(), noItem(), end, noItem(), noItem(), noItem(), noItem()};
    for (const int pdo : {0, 1}) {
        clickRow(view("PdoListView"), pdo);
        QCOMPARE(modelOf(view("PdoContentView")).rowCount(), 3);
        QCOMPARE(row("PdoContentView", 2), expected);
    }
}

void tst_ProcessDataTab::pdoWithoutEntries()
{
    struct_EtherCatDevice shown = deviceNamed("Drive");
    shown.RxPdo.vpdo = {devicePdo(0x1600, {deviceEntry(0x7000, 8)}), devicePdo(0x1601)};
    show(shown);
    clickRow(view("PdoListView"), 0);
    clickRow(view("PdoListView"), 1);
    QCOMPARE(modelOf(view("PdoContentView")).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1601)")); // the label names the PDO all the same
}

void tst_ProcessDataTab::entriesOfEachList_data()
{
    QTest::addColumn<int>("pdoRow");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("entry");
    QTest::addRow("first own output") << 0 << "(0x1600)"
                                      << "0x7000:0";
    QTest::addRow("last own output") << 1 << "(0x1601)"
                                     << "0x7001:0";
    QTest::addRow("own input") << 2 << "(0x1a00)"
                               << "0x6000:0";
    QTest::addRow("output of a module") << 3 << "(0x1610)"
                                        << "0x7010:0";
    QTest::addRow("first input of a module") << 4 << "(0x1a10)"
                                             << "0x6010:0";
    QTest::addRow("last input of a module") << 5 << "(0x00)"
                                            << "0x6011:0";
}

void tst_ProcessDataTab::entriesOfEachList()
{
    QFETCH(int, pdoRow);
    QFETCH(QString, label);
    QFETCH(QString, entry);
    show(deviceWithFourLists());
    clickRow(view("PdoListView"), pdoRow);
    QCOMPARE(labelText(window(), "label_17"), label);
    QCOMPARE(row("PdoContentView", 0).at(0), entry);
}

void tst_ProcessDataTab::rowPastTheLists()
{
    show(deviceWithFourLists());
    clickRow(view("PdoListView"), 0);
    loadedDevice().mTxPdo.mpdo.clear(); // the view is stale: rows 4 and 5 are no PDOs any more
    clickRow(view("PdoListView"), 4);
    QCOMPARE(modelOf(view("PdoContentView")).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1600)"));
}

void tst_ProcessDataTab::nothingSelected()
{
    show(deviceWithFourLists());
    clickRow(view("PdoListView"), 1);
    currentdeviceindex = -1;
    loadedDevice().RxPdo.vpdo.clear();
    clickRow(view("PdoListView"), 2);
    QVERIFY(callSlot(window(), "device_pdo_display"));
    QCOMPARE(modelOf(view("PdoListView")).rowCount(), 6);
    QCOMPARE(column("PdoContentView", 0).first(), QStringLiteral("0x7001:0"));
    QCOMPARE(labelText(window(), "label_17"), QStringLiteral("(0x1601)"));
}

void tst_ProcessDataTab::anotherDeviceEmptiesTheTab()
{
    show(deviceWithFourLists());
    g_xmlfiledevices[0].device.push_back(deviceNamed("Second"));
    window().DeviceDisplayUpdate();
    clickItem(window(), treeItem(window(), 0, 0));
    clickRow(view("PdoListView"), 0);
    QCOMPARE(modelOf(view("PdoContentView")).rowCount(), 2);
    clickItem(window(), treeItem(window(), 0, 1));
    for (const char* name : {"PdoListView", "PdoContentView"})
        QCOMPARE(modelOf(view(name)).rowCount(), 0);
    QCOMPARE(labelText(window(), "label_17"), QString());
}

static const testMain::Registration<tst_ProcessDataTab, QApplication> registration;
#include "tst_ProcessDataTab.moc"
