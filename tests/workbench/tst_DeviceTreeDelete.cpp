// The context menu of the device tree, and deleting files and devices.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QLineEdit>

#include <memory>

class tst_DeviceTreeDelete : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void menuDeletesADevice();
    void menuDeletesAFile();
    void menuSelectsWithoutShowing();
    void menuOnAFileSelectsTheFile();
    void noMenuWithoutACurrentItem();
    void menuTakesTheCurrentItem();
    static void key_data();
    void key();
    static void deletes_data();
    void deletes();
    void refillsAndClears();
    void repeatedKeyDeletesWhatIsThere();
    void lastDeviceLeavesTheFile();

private:
    /// Names of the files, each with its devices.
    [[nodiscard]] static QStringList loaded();
    [[nodiscard]] QStringList shown() const;

    std::unique_ptr<MainWindow> m_window;
};

void tst_DeviceTreeDelete::init()
{
    resetModel();
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2", "A3"}), fileWith("b.xml", {"B1"})};
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->DeviceDisplayUpdate();
}

void tst_DeviceTreeDelete::cleanup()
{
    m_window.reset();
    resetModel();
}

QStringList tst_DeviceTreeDelete::loaded()
{
    QStringList names;
    for (const struct_FilenameDevice& file : g_xmlfiledevices) {
        names.append(QString::fromStdString(file.xmlfilepath));
        for (const struct_EtherCatDevice& device : file.device)
            names.append(QString::fromStdString(device.Name));
    }
    return names;
}

QStringList tst_DeviceTreeDelete::shown() const
{
    QStringList texts;
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        texts.append((*item)->text(0));
    return texts;
}

void tst_DeviceTreeDelete::menuDeletesADevice()
{
    DialogDriver menu({choosingEntry("Delete")});
    menu.during([this] { rightClickItem(*m_window, treeItem(*m_window, 0, 1)); });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(menu.seen(0).entries, QStringList("Delete"));
    QCOMPARE(menu.seen(0).parent, deviceTree(*m_window));
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A3", "b.xml", "B1"}));
    QCOMPARE(shown(), loaded());
}

void tst_DeviceTreeDelete::menuDeletesAFile()
{
    DialogDriver menu({choosingEntry("Delete")});
    menu.during([this] { rightClickItem(*m_window, treeItem(*m_window, 0)); });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(loaded(), QStringList({"b.xml", "B1"}));
    QCOMPARE(shown(), loaded());
}

void tst_DeviceTreeDelete::menuSelectsWithoutShowing()
{
    g_xmlfiledevices[0].device[0].TypeAttributes.type = "type of A1";
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    DialogDriver menu({leavingTheMenu()});
    menu.during([this] { rightClickItem(*m_window, treeItem(*m_window, 0, 2)); });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 2);
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QStringLiteral("type of A1"));
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A2", "A3", "b.xml", "B1"}));
}

void tst_DeviceTreeDelete::menuOnAFileSelectsTheFile()
{
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    DialogDriver menu({leavingTheMenu()});
    menu.during([this] { rightClickItem(*m_window, treeItem(*m_window, 1)); });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(currentfileindex, 1);
    QCOMPARE(currentdeviceindex, -1);
}

void tst_DeviceTreeDelete::noMenuWithoutACurrentItem()
{
    QVERIFY(deviceTree(*m_window)->currentItem() == nullptr);
    QTreeWidget* const tree = deviceTree(*m_window);
    DialogDriver menu({});
    menu.during([tree] {
        const QPoint belowTheItems(20, tree->viewport()->height() - 5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, belowTheItems, tree->viewport()->mapToGlobal(belowTheItems));
        QApplication::sendEvent(tree->viewport(), &event);
    });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(currentfileindex, -1);
    QCOMPARE(currentdeviceindex, -1);
}

void tst_DeviceTreeDelete::menuTakesTheCurrentItem()
{
    // The point plays no part: a menu asked for beside all items is that of the current one.
    deviceTree(*m_window)->setCurrentItem(treeItem(*m_window, 1, 0));
    DialogDriver menu({choosingEntry("Delete")});
    menu.during([this] { QVERIFY(callSlot(*m_window, "slotCustomContextMenu", Q_ARG(QPoint, QPoint(5, 5)))); });
    QCOMPARE(menu.problem(), QString());
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A2", "A3", "b.xml"}));
}

void tst_DeviceTreeDelete::key_data()
{
    QTest::addColumn<int>("key");
    QTest::addRow("Del") << int(Qt::Key_Delete);
    QTest::addRow("Backspace") << int(Qt::Key_Backspace);
}

void tst_DeviceTreeDelete::key()
{
    QFETCH(int, key);
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    DialogDriver noQuestion({});
    noQuestion.during([this, key] { QTest::keyClick(deviceTree(*m_window), static_cast<Qt::Key>(key)); });
    QCOMPARE(noQuestion.problem(), QString());
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A3", "b.xml", "B1"}));
    QCOMPARE(shown(), loaded());
}

void tst_DeviceTreeDelete::deletes_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("left");
    const QStringList all = {"a.xml", "A1", "A2", "A3", "b.xml", "B1"};
    QTest::addRow("nothing selected") << -1 << -1 << all;
    QTest::addRow("no file, whatever the device") << -1 << 0 << all;
    QTest::addRow("first file") << 0 << -1 << QStringList({"b.xml", "B1"});
    QTest::addRow("last file") << 1 << -1 << QStringList({"a.xml", "A1", "A2", "A3"});
    QTest::addRow("file past the list") << 2 << -1 << all;
    QTest::addRow("first device") << 0 << 0 << QStringList({"a.xml", "A2", "A3", "b.xml", "B1"});
    QTest::addRow("last device") << 0 << 2 << QStringList({"a.xml", "A1", "A2", "b.xml", "B1"});
    QTest::addRow("device past the list") << 0 << 3 << all;
    QTest::addRow("device of a file past the list") << 2 << 0 << all;
}

void tst_DeviceTreeDelete::deletes()
{
    QFETCH(int, file);
    QFETCH(int, device);
    QFETCH(QStringList, left);
    currentfileindex = file;
    currentdeviceindex = device;
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(loaded(), left);
    QCOMPARE(shown(), left);
    QCOMPARE(currentfileindex, file);
    QCOMPARE(currentdeviceindex, device);
}

void tst_DeviceTreeDelete::refillsAndClears()
{
    g_xmlfiledevices[0].device[1].TypeAttributes.type = "type of A2";
    clickCheckBox(*m_window, treeItem(*m_window, 1));
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QStringLiteral("type of A2"));
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QString());
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        QCOMPARE(stateOf(*item), 2); // all check states are back at checked
}

void tst_DeviceTreeDelete::repeatedKeyDeletesWhatIsThere()
{
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A3", "b.xml", "B1"}));
    QTest::keyClick(m_window.get(), Qt::Key_Backspace);
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "b.xml", "B1"}));
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "b.xml", "B1"})); // nothing is at the position
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 1);
}

void tst_DeviceTreeDelete::lastDeviceLeavesTheFile()
{
    clickItem(*m_window, treeItem(*m_window, 1, 0));
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2});
    QCOMPARE(treeItem(*m_window, 1)->childCount(), 0);
    QTest::keyClick(m_window.get(), Qt::Key_Delete);
    QCOMPARE(loaded(), QStringList({"a.xml", "A1", "A2", "A3", "b.xml"}));
}

static const testMain::Registration<tst_DeviceTreeDelete, QApplication> registration;
#include "tst_DeviceTreeDelete.moc"
