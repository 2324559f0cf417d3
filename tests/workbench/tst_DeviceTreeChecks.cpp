// The check boxes of the device tree: a click on one selects its item, and its state spreads.
#include "testMain.h"
#include "workbench/editorParts.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/viewParts.h"

#include <QComboBox>

#include <memory>

class tst_DeviceTreeChecks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void uncheckingAFileUnchecksItsDevices();
    void checkingOneDeviceAgainMakesTheFilePartial();
    void checkingEveryDeviceAgainMakesTheFileFull();
    void uncheckingEveryDeviceUnchecksTheFile();
    void partialFileClickedToFullFillsItsDevices();
    void clickOnTheTextOfAPartialFileKeepsItsDevices();
    void clickSelectsBeforeItSpreads();
    static void checkBoxSelects_data();
    void checkBoxSelects();
    void checkBoxUnderTheAdvice();
    static void pushDown_data();
    void pushDown();
    static void upwards_data();
    void upwards();
    void partialStopsAndMarksEveryAncestor();
    void setParentPartiallyChecked();

private:
    /// States of a file and of its devices.
    [[nodiscard]] QVector<int> states(int file) const;
    /// Loads a file with a single drive "A" and a device "B" of a type and with four axes.
    void loadTwoTypes(int typeOfB) const;
    [[nodiscard]] QString text(const char* name) const { return part<QLineEdit>(*m_window, name)->text(); }
    /// Adds items with these states under an item, or as files. @return  the last of them
    QTreeWidgetItem* add(QTreeWidgetItem* parent, const QVector<int>& states) const;

    std::unique_ptr<MainWindow> m_window;
};

void tst_DeviceTreeChecks::init()
{
    resetModel();
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2", "A3"}), fileWith("b.xml", {"B1", "B2"})};
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    openTab(*m_window, GeneralTab);
    m_window->DeviceDisplayUpdate();
}

void tst_DeviceTreeChecks::cleanup()
{
    m_window.reset();
    resetModel();
}

QVector<int> tst_DeviceTreeChecks::states(int file) const
{
    const QTreeWidgetItem* item = treeItem(*m_window, file);
    QVector<int> found{stateOf(item)};
    for (int index = 0; index < item->childCount(); ++index)
        found.append(stateOf(item->child(index)));
    return found;
}

void tst_DeviceTreeChecks::uncheckingAFileUnchecksItsDevices()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    QCOMPARE(states(0), QVector<int>({0, 0, 0, 0}));
    QCOMPARE(states(1), QVector<int>({2, 2, 2}));
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    QCOMPARE(states(0), QVector<int>({2, 2, 2, 2}));
}

void tst_DeviceTreeChecks::checkingOneDeviceAgainMakesTheFilePartial()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    clickCheckBox(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(states(0), QVector<int>({1, 0, 2, 0}));
    QCOMPARE(states(1), QVector<int>({2, 2, 2}));
}

void tst_DeviceTreeChecks::checkingEveryDeviceAgainMakesTheFileFull()
{
    clickCheckBox(*m_window, treeItem(*m_window, 1));
    clickCheckBox(*m_window, treeItem(*m_window, 1, 0));
    QCOMPARE(states(1), QVector<int>({1, 2, 0}));
    clickCheckBox(*m_window, treeItem(*m_window, 1, 1));
    QCOMPARE(states(1), QVector<int>({2, 2, 2}));
}

void tst_DeviceTreeChecks::uncheckingEveryDeviceUnchecksTheFile()
{
    clickCheckBox(*m_window, treeItem(*m_window, 1, 0));
    QCOMPARE(states(1), QVector<int>({1, 0, 2}));
    clickCheckBox(*m_window, treeItem(*m_window, 1, 1));
    QCOMPARE(states(1), QVector<int>({0, 0, 0}));
}

void tst_DeviceTreeChecks::partialFileClickedToFullFillsItsDevices()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(states(0), QVector<int>({1, 0, 2, 2}));
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    QCOMPARE(states(0), QVector<int>({2, 2, 2, 2}));
}

void tst_DeviceTreeChecks::clickOnTheTextOfAPartialFileKeepsItsDevices()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0, 0));
    clickItem(*m_window, treeItem(*m_window, 0));
    QCOMPARE(states(0), QVector<int>({1, 0, 2, 2}));
}

void tst_DeviceTreeChecks::clickSelectsBeforeItSpreads()
{
    // When the state reaches the first device, its file is selected already.
    QStringList selectedFiles;
    const QTreeWidgetItem* device = treeItem(*m_window, 1, 0);
    connect(deviceTree(*m_window), &QTreeWidget::itemChanged, this, [&selectedFiles, device](QTreeWidgetItem* changed) {
        if (changed == device)
            selectedFiles.append(QString::number(currentfileindex));
    });
    QCOMPARE(currentfileindex, -1);
    clickCheckBox(*m_window, treeItem(*m_window, 1));
    QCOMPARE(selectedFiles.join(QLatin1Char(' ')), QStringLiteral("1"));
    QCOMPARE(currentdeviceindex, -1);
    QCOMPARE(states(1), QVector<int>({0, 0, 0}));
    clickCheckBox(*m_window, treeItem(*m_window, 1, 1));
    QCOMPARE(currentdeviceindex, 1);
}

void tst_DeviceTreeChecks::loadTwoTypes(int typeOfB) const
{
    g_xmlfiledevices = {fileWith("a.xml", {})};
    g_xmlfiledevices[0].device = {deviceOfType(1, "A"), deviceOfType(typeOfB, "B")};
    for (struct_EtherCatDevice& device : g_xmlfiledevices[0].device)
        device.TypeAttributes.type = device.Name;
    g_xmlfiledevices[0].device[0].m_iDriveAxies = 1;
    g_xmlfiledevices[0].device[1].m_iDriveAxies = 4;
    m_window->DeviceDisplayUpdate();
}

void tst_DeviceTreeChecks::checkBoxSelects_data()
{
    QTest::addColumn<QString>("before");
    QTest::addRow("another device was clicked") << "device";
    QTest::addRow("the name of the file was clicked") << "file";
    QTest::addRow("nothing was clicked since the file was opened") << "nothing";
    QTest::addRow("another device was deleted") << "deletion";
}

/// A device of another type than the one before: its entry of the list changes, which shows the current item again.
void tst_DeviceTreeChecks::checkBoxSelects()
{
    QFETCH(QString, before);
    loadTwoTypes(2);
    if (before != "nothing")
        clickItem(*m_window, treeItem(*m_window, 0, before == "file" ? -1 : 0));
    if (before == "deletion")
        QTest::keyClick(deviceTree(*m_window), Qt::Key_Delete);
    const int position = before == "deletion" ? 0 : 1;
    QTreeWidgetItem* const item = treeItem(*m_window, 0, position);
    clickCheckBox(*m_window, item);
    QCOMPARE(stateOf(item), 0);
    QCOMPARE(deviceTree(*m_window)->currentItem(), item);
    QCOMPARE(currentdeviceindex, position);
    QCOMPARE(text("TypeEdit"), QStringLiteral("B"));
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_DeviceType")->currentIndex(), 2);
    QCOMPARE(text("DriveAxies"), QStringLiteral("0x4"));
    typeInto(*m_window, "DriveAxies", "6");
    QTest::keyClick(part<QLineEdit>(*m_window, "DriveAxies"), Qt::Key_Return);
    std::vector<struct_EtherCatDevice>& devices = g_xmlfiledevices[0].device;
    QCOMPARE(int(devices[std::size_t(position)].m_iDriveAxies), 6);
    QCOMPARE(int(devices[0].m_iDriveAxies), position == 0 ? 6 : 1);
    QTest::keyClick(deviceTree(*m_window), Qt::Key_Delete);
    QCOMPARE(devices.size(), std::size_t(position));
    QVERIFY(devices.empty() || devices[0].Name == "A");
}

/// A coupler set by hand that takes its list of modules brings up a box in the middle of the click.
void tst_DeviceTreeChecks::checkBoxUnderTheAdvice()
{
    loadTwoTypes(5);
    g_xmlfiledevices[0].device[1].Slots.Attributes.DownloadModuleIdentList = true;
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QTreeWidgetItem* const item = treeItem(*m_window, 0, 1);
    QCOMPARE(boxesDuring(1, [&] { clickCheckBox(*m_window, item); }).join(QString()).count("F030"), 1);
    QCOMPARE(deviceTree(*m_window)->currentItem(), item);
    QCOMPARE(currentdeviceindex, 1);
    QCOMPARE(text("TypeEdit"), QStringLiteral("B"));
    QCOMPARE(states(0), QVector<int>({1, 2, 0}));
}

QTreeWidgetItem* tst_DeviceTreeChecks::add(QTreeWidgetItem* parent, const QVector<int>& states) const
{
    QTreeWidgetItem* last = nullptr;
    for (const int state : states) {
        last = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(deviceTree(*m_window));
        setState(last, state);
    }
    return last;
}

void tst_DeviceTreeChecks::pushDown_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QVector<int>>("expected"); // of the two children and of the two below the second one
    QTest::addRow("unchecked") << 0 << QVector<int>{0, 0, 0, 0};
    QTest::addRow("partial is not pushed") << 1 << QVector<int>{0, 2, 0, 2};
    QTest::addRow("checked") << 2 << QVector<int>{2, 2, 2, 2};
}

void tst_DeviceTreeChecks::pushDown()
{
    QFETCH(int, state);
    QFETCH(QVector<int>, expected);
    QTreeWidgetItem* const top = add(nullptr, {state});
    QTreeWidgetItem* const second = add(top, {0, 2});
    add(second, {0, 2});
    QVERIFY(callSlot(*m_window, "device_checked_updata", Q_ARG(QTreeWidgetItem*, top)));
    QCOMPARE(stateOf(top), state);
    QCOMPARE(
        QVector<int>({stateOf(top->child(0)), stateOf(second), stateOf(second->child(0)), stateOf(second->child(1))}),
        expected);
}

void tst_DeviceTreeChecks::upwards_data()
{
    QTest::addColumn<QVector<int>>("children"); // of the parent; the last one is the item
    QTest::addColumn<QVector<int>>("uncles"); // beside the parent
    QTest::addColumn<int>("parent");
    QTest::addColumn<int>("top");
    using States = QVector<int>;
    QTest::addRow("none checked") << States{0, 0} << States{} << 0 << 0;
    QTest::addRow("none checked, but an uncle") << States{0, 0} << States{2} << 0 << 1;
    QTest::addRow("none checked, but a partial uncle") << States{0} << States{1} << 0 << 1;
    QTest::addRow("only partial") << States{0, 1} << States{} << 1 << 1;
    QTest::addRow("all partial") << States{1, 1} << States{} << 1 << 1;
    QTest::addRow("some checked") << States{0, 2} << States{} << 1 << 1;
    QTest::addRow("checked and partial") << States{1, 2} << States{} << 1 << 1;
    QTest::addRow("some checked, uncles all checked") << States{2, 0} << States{2, 2} << 1 << 1;
    QTest::addRow("some checked, uncles not checked") << States{2, 0} << States{0, 0} << 1 << 1;
    QTest::addRow("all checked") << States{2, 2} << States{} << 2 << 2;
    QTest::addRow("all checked, but not the uncle") << States{2, 2} << States{0} << 2 << 1;
    QTest::addRow("all checked, the uncle partial") << States{2, 2} << States{1} << 2 << 1;
    QTest::addRow("all checked, the uncle too") << States{2, 2} << States{2} << 2 << 2;
}

void tst_DeviceTreeChecks::upwards()
{
    QFETCH(QVector<int>, children);
    QFETCH(QVector<int>, uncles);
    QFETCH(int, parent);
    QFETCH(int, top);
    for (const int before : {0, 1, 2}) {
        QTreeWidgetItem* const topItem = add(nullptr, {before});
        add(topItem, uncles);
        QTreeWidgetItem* const parentItem = add(topItem, {before});
        QTreeWidgetItem* const item = add(parentItem, children);
        QVERIFY(callSlot(*m_window, "device_checkedparent_updata", Q_ARG(QTreeWidgetItem*, item)));
        QCOMPARE(stateOf(parentItem), parent);
        QCOMPARE(stateOf(topItem), top);
        QCOMPARE(stateOf(item), children.last());
    }
}

void tst_DeviceTreeChecks::partialStopsAndMarksEveryAncestor()
{
    QTreeWidgetItem* const top = add(nullptr, {2});
    QTreeWidgetItem* const upper = add(top, {2});
    QTreeWidgetItem* const parent = add(upper, {2});
    QTreeWidgetItem* const item = add(parent, {2, 0});
    QVERIFY(callSlot(*m_window, "device_checkedparent_updata", Q_ARG(QTreeWidgetItem*, item)));
    QCOMPARE(QVector<int>({stateOf(top), stateOf(upper), stateOf(parent), stateOf(item)}), QVector<int>({1, 1, 1, 0}));
}

void tst_DeviceTreeChecks::setParentPartiallyChecked()
{
    QTreeWidgetItem* const top = add(nullptr, {0});
    QTreeWidgetItem* const parent = add(top, {2, 0}); // the second of two
    QTreeWidgetItem* const item = add(parent, {2, 2}); // the second of two
    QVERIFY(callSlot(*m_window, "setParentPartiallyChecked", Q_ARG(QTreeWidgetItem*, item)));
    QCOMPARE(QVector<int>({stateOf(top), stateOf(parent), stateOf(item)}), QVector<int>({1, 1, 2}));
    QCOMPARE(QVector<int>({stateOf(top->child(0)), stateOf(parent->child(0))}), QVector<int>({2, 2}));
    QCOMPARE(states(0), QVector<int>({2, 2, 2, 2})); // other files are not touched
}

static const testMain::Registration<tst_DeviceTreeChecks, QApplication> registration;
#include "tst_DeviceTreeChecks.moc"
