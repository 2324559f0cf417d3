// What a click in the device tree selects and shows.
// Covers mainwindow_tree.cpp.
#include "testMain.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTableView>

#include <memory>

class tst_DeviceTree : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void click_data();
    void click();
    void clickOnAFileClearsEverything();
    void identity();
    void identityOfAClearedDevice();
    static void deviceType_data();
    void deviceType();
    void nullItemChangesNothing();
    void unknownFileItemKeepsTheSelection();
    void unknownDeviceItemKeepsTheSelection();
    void columnIsNotUsed();
    void clearEmptiesEverything();
    void clearKeepsTypeAndAxes();
    void clearDisablesTheModuleFields();

private:
    [[nodiscard]] QString text(const char* name) const { return part<QLineEdit>(*m_window, name)->text(); }
    /// Loads one file with one device and clicks the device.
    void show(const struct_EtherCatDevice& device);
    void fillEverything();
    [[nodiscard]] QStringList whatIsNotEmpty() const;

    std::unique_ptr<MainWindow> m_window;
};

void tst_DeviceTree::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_DeviceTree::cleanup()
{
    m_window.reset();
    resetModel();
}

void tst_DeviceTree::show(const struct_EtherCatDevice& device)
{
    g_xmlfiledevices = {fileWith("a.xml", {})};
    g_xmlfiledevices[0].device = {device};
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 0));
}

void tst_DeviceTree::click_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("type");
    QTest::addRow("first file") << 0 << -1 << "";
    QTest::addRow("second file") << 1 << -1 << "";
    QTest::addRow("first device of the first file") << 0 << 0 << "A1";
    QTest::addRow("second device of the first file") << 0 << 1 << "A2";
    QTest::addRow("third device of the second file") << 1 << 2 << "B3";
}

void tst_DeviceTree::click()
{
    QFETCH(int, file);
    QFETCH(int, device);
    QFETCH(QString, type);
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"}), fileWith("b.xml", {"B1", "B2", "B3"})};
    for (struct_FilenameDevice& each : g_xmlfiledevices)
        for (struct_EtherCatDevice& deviceOfFile : each.device)
            deviceOfFile.TypeAttributes.type = deviceOfFile.Name;
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 1)); // something else was selected before
    clickItem(*m_window, treeItem(*m_window, file, device));
    QCOMPARE(currentfileindex, file);
    QCOMPARE(currentdeviceindex, device);
    QCOMPARE(text("TypeEdit"), type);
}

void tst_DeviceTree::clickOnAFileClearsEverything()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1"})};
    m_window->DeviceDisplayUpdate();
    fillEverything();
    clickItem(*m_window, treeItem(*m_window, 0));
    QCOMPARE(whatIsNotEmpty(), QStringList());
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, -1);
}

void tst_DeviceTree::identity()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.TypeAttributes.type = "EX-100 伺服";
    device.TypeAttributes.Product_Code = 0x0001ABCD;
    device.TypeAttributes.Revision_No = 0x00020003;
    device.TypeAttributes.Serial_No = 255;
    device.m_iDriveAxies = 16;
    device.configindex = 0xF030;
    device.detectindex = 0xF050;
    show(device);
    g_xmlfiledevices[0].Vendor_Id = 0x7E570001;
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(text("TypeEdit"), QStringLiteral("EX-100 伺服"));
    QCOMPARE(text("RevisionEdit"), QStringLiteral("0x1abcd")); // the product code once more, not the revision
    QCOMPARE(text("VendorEdit"), QStringLiteral("0x7e570001"));
    QCOMPARE(text("ProductCodeEdit"), QStringLiteral("0x1abcd"));
    QCOMPARE(text("RevisonNoEdit"), QStringLiteral("0x20003"));
    QCOMPARE(text("SerialNo"), QStringLiteral("0xff"));
    QCOMPARE(text("DriveAxies"), QStringLiteral("0x10"));
    QCOMPARE(text("ConfigModuleEdit"), QStringLiteral("0xf030"));
    QCOMPARE(text("DetectModuleEdit"), QStringLiteral("0xf050"));
}

void tst_DeviceTree::identityOfAClearedDevice()
{
    show(deviceNamed("Block"));
    QCOMPARE(text("TypeEdit"), QString());
    for (const char* name : {"RevisionEdit", "VendorEdit", "ProductCodeEdit", "RevisonNoEdit", "SerialNo", "DriveAxies",
                             "ConfigModuleEdit", "DetectModuleEdit"})
        QCOMPARE(text(name), QStringLiteral("0x00"));
}

void tst_DeviceTree::deviceType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("axesEnabled");
    QTest::addColumn<bool>("moduleIndexesEnabled");
    QTest::addRow("I/O block") << 0 << false << false;
    QTest::addRow("single drive") << 1 << false << false;
    QTest::addRow("multi drive") << 2 << true << false;
    QTest::addRow("coupler that knows its modules") << 3 << false << true;
    QTest::addRow("special device") << 4 << false << true;
    QTest::addRow("coupler that does not know its modules") << 5 << false << false;
}

void tst_DeviceTree::deviceType()
{
    QFETCH(int, type);
    QFETCH(bool, axesEnabled);
    QFETCH(bool, moduleIndexesEnabled);
    struct_EtherCatDevice device = deviceNamed("Device");
    device.m_iDeviceType = static_cast<std::uint16_t>((type + 1) % 6);
    show(device); // another type was shown before
    g_xmlfiledevices[0].device[0].m_iDeviceType = static_cast<std::uint16_t>(type);
    g_xmlfiledevices[0].device[0].m_iDriveAxies = 7;
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_DeviceType")->currentData().toInt(), type);
    QCOMPARE(part<QLineEdit>(*m_window, "DriveAxies")->isEnabled(), axesEnabled);
    QCOMPARE(part<QLineEdit>(*m_window, "ConfigModuleEdit")->isEnabled(), moduleIndexesEnabled);
    QCOMPARE(part<QLineEdit>(*m_window, "DetectModuleEdit")->isEnabled(), moduleIndexesEnabled);
    if (type != 2)
        return;
    // The number of axes survives, whatever the change of the list's entry makes of it.
    QCOMPARE(int{g_xmlfiledevices[0].device[0].m_iDriveAxies}, 7);
    QCOMPARE(text("DriveAxies"), QStringLiteral("0x7"));
}

void tst_DeviceTree::nullItemChangesNothing()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.TypeAttributes.type = "EX-100";
    show(device);
    fillEverything();
    const QStringList shown = whatIsNotEmpty();
    QVERIFY(callSlot(*m_window, "device_information_display", Q_ARG(QTreeWidgetItem*, nullptr), Q_ARG(int, 0)));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(whatIsNotEmpty(), shown);
}

void tst_DeviceTree::unknownFileItemKeepsTheSelection()
{
    show(deviceNamed("Drive"));
    fillEverything();
    QTreeWidgetItem stranger(QStringList("of no tree"));
    QVERIFY(callSlot(*m_window, "device_information_display", Q_ARG(QTreeWidgetItem*, &stranger), Q_ARG(int, 0)));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(whatIsNotEmpty(), QStringList()); // emptied before the item is looked for
}

void tst_DeviceTree::unknownDeviceItemKeepsTheSelection()
{
    show(deviceNamed("Drive"));
    fillEverything();
    QTreeWidgetItem stranger(QStringList("of no tree"));
    auto* const child = new QTreeWidgetItem(&stranger, QStringList("its child"));
    QVERIFY(callSlot(*m_window, "device_information_display", Q_ARG(QTreeWidgetItem*, child), Q_ARG(int, 0)));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(whatIsNotEmpty(), QStringList());
}

void tst_DeviceTree::columnIsNotUsed()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"})};
    m_window->DeviceDisplayUpdate();
    QTreeWidgetItem* const item = treeItem(*m_window, 0, 1);
    QVERIFY(callSlot(*m_window, "device_information_display", Q_ARG(QTreeWidgetItem*, item), Q_ARG(int, -5)));
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 1);
}

// What a clear empties.
static const char* const clearedEdits[] = {"TypeEdit",        "RevisionEdit",     "VendorEdit",
                                           "ProductCodeEdit", "RevisonNoEdit",    "SerialNo",
                                           "SyncEdit",        "ConfigModuleEdit", "DetectModuleEdit"};
static const char* const clearedLabels[] = {"label_17", "label_18"};
static const char* const clearedTrees[] = {"ModuleTree", "CoeTree"};
static const char* const clearedBoxes[] = {"checkBox_Dc1", "checkBox_Dc2", "checkBox_Dc3"};
static const char* const disabledParts[] = {"ConfigModuleEdit", "DetectModuleEdit", "InsertModule", "DeleteModule"};

void tst_DeviceTree::fillEverything()
{
    for (const char* name : clearedEdits)
        part<QLineEdit>(*m_window, name)->setText(QStringLiteral("0x12"));
    for (const char* name : clearedLabels)
        part<QLabel>(*m_window, name)->setText(QStringLiteral("0x12"));
    for (const char* name : clearedTrees)
        part<QTreeWidget>(*m_window, name)->addTopLevelItem(new QTreeWidgetItem(QStringList("row")));
    for (const char* name : clearedBoxes)
        part<QCheckBox>(*m_window, name)->setChecked(true);
    for (const QTableView* view : m_window->findChildren<QTableView*>())
        for (int row = 0; row < 3; ++row)
            qobject_cast<QStandardItemModel*>(view->model())->appendRow(new QStandardItem(QStringLiteral("row")));
    auto* const modes = part<QComboBox>(*m_window, "comboBox_Dc");
    {
        const QSignalBlocker noChoice(modes); // a mode that the device does not have would be refused with a box
        modes->addItem(QStringLiteral("mode"), 0);
    }
    modes->setEditText(QStringLiteral("typed"));
    for (const char* name : disabledParts)
        part<QWidget>(*m_window, name)->setEnabled(true);
}

QStringList tst_DeviceTree::whatIsNotEmpty() const
{
    QStringList names;
    const auto note = [&names](const QString& name, bool isEmpty) {
        names += isEmpty ? QStringList() : QStringList(name);
    };
    for (const char* name : clearedEdits)
        note(QLatin1String(name), text(name).isEmpty());
    for (const char* name : clearedLabels)
        note(QLatin1String(name), part<QLabel>(*m_window, name)->text().isEmpty());
    for (const char* name : clearedTrees)
        note(QLatin1String(name), part<QTreeWidget>(*m_window, name)->topLevelItemCount() == 0);
    for (const char* name : clearedBoxes)
        note(QLatin1String(name), !part<QCheckBox>(*m_window, name)->isChecked());
    for (const QTableView* view : m_window->findChildren<QTableView*>())
        note(view->objectName(), view->model()->rowCount() == 0);
    const auto* const modes = part<QComboBox>(*m_window, "comboBox_Dc");
    note(modes->objectName(), modes->count() == 0 && modes->currentText().isEmpty());
    return names;
}

void tst_DeviceTree::clearEmptiesEverything()
{
    fillEverything();
    QCOMPARE(whatIsNotEmpty().size(), 9 + 2 + 2 + 3 + 10 + 1);
    m_window->Device_Information_UIClear();
    QCOMPARE(whatIsNotEmpty(), QStringList());
    for (const QTableView* view : m_window->findChildren<QTableView*>())
        QVERIFY2(view->model()->columnCount() > 1, "the columns stay");
}

void tst_DeviceTree::clearKeepsTypeAndAxes()
{
    part<QLineEdit>(*m_window, "DriveAxies")->setText(QStringLiteral("0x5"));
    part<QComboBox>(*m_window, "comboBox_DeviceType")->setCurrentIndex(4);
    m_window->Device_Information_UIClear();
    QCOMPARE(text("DriveAxies"), QStringLiteral("0x5"));
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_DeviceType")->currentIndex(), 4);
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_DeviceType")->count(), 6);
}

void tst_DeviceTree::clearDisablesTheModuleFields()
{
    fillEverything();
    m_window->Device_Information_UIClear();
    for (const char* name : disabledParts)
        QVERIFY2(!part<QWidget>(*m_window, name)->isEnabled(), name);
}

static const testMain::Registration<tst_DeviceTree, QApplication> registration;
#include "tst_DeviceTree.moc"
