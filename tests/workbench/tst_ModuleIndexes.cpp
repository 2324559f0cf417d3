// How the two module index fields reach the model: by the next click in the tree, and by nothing else but an export.
#include "testMain.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QLineEdit>
#include <QTabWidget>

#include <memory>

class tst_ModuleIndexes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void storedByTheNextClick_data();
    void storedByTheNextClick();
    void clickOnAFileStoresToo();
    void clickOnTheSameDeviceStoresAndShows();
    void notStoredBeforeAClick();
    void notStoredByClosingTheWindow();
    void nothingIsStoredWithoutADevice();
    void nothingIsStoredForAFile();
    static void nothingIsStoredPastTheLists_data();
    void nothingIsStoredPastTheLists();
    void afterADeletionTheEmptyFieldsAreStored();

private:
    /// Types into a field with the keyboard, in the place of what it holds.
    void type(const char* field, const QString& text);
    [[nodiscard]] static int configIndex(std::size_t device)
    {
        return g_xmlfiledevices.at(0).device.at(device).configindex;
    }
    [[nodiscard]] static int detectIndex(std::size_t device)
    {
        return g_xmlfiledevices.at(0).device.at(device).detectindex;
    }

    std::unique_ptr<MainWindow> m_window;
};

void tst_ModuleIndexes::init()
{
    resetModel();
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2", "A3"})};
    for (struct_EtherCatDevice& device : g_xmlfiledevices[0].device) {
        device.m_iDeviceType = 3; // its fields may be edited
        device.configindex = 0xF000;
        device.detectindex = 0xF001;
    }
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->DeviceDisplayUpdate();
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(3);
}

void tst_ModuleIndexes::cleanup()
{
    m_window.reset();
    resetModel();
}

void tst_ModuleIndexes::type(const char* field, const QString& text)
{
    auto* const edit = part<QLineEdit>(*m_window, field);
    QVERIFY(edit->isEnabled());
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
    QCOMPARE(edit->text(), text);
}

void tst_ModuleIndexes::storedByTheNextClick_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::addRow("hexadecimal") << "0xF030" << 0xF030;
    QTest::addRow("decimal") << "12" << 12;
    QTest::addRow("hexadecimal digits without a mark") << "1a" << 0x1A;
    QTest::addRow("cut to 16 bits") << "0x1F050" << 0xF050;
    QTest::addRow("no number") << "xyz" << 0;
    QTest::addRow("empty") << "" << 0;
}

void tst_ModuleIndexes::storedByTheNextClick()
{
    QFETCH(QString, typed);
    QFETCH(int, stored);
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    type("ConfigModuleEdit", typed);
    type("DetectModuleEdit", typed);
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(configIndex(0), stored);
    QCOMPARE(detectIndex(0), stored);
    QCOMPARE(configIndex(1), 0xF000);
    QCOMPARE(detectIndex(1), 0xF001);
}

void tst_ModuleIndexes::clickOnAFileStoresToo()
{
    clickItem(*m_window, treeItem(*m_window, 0, 2));
    type("ConfigModuleEdit", "0x10");
    clickItem(*m_window, treeItem(*m_window, 0));
    QCOMPARE(configIndex(2), 0x10);
    QCOMPARE(detectIndex(2), 0xF001);
}

void tst_ModuleIndexes::clickOnTheSameDeviceStoresAndShows()
{
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    type("ConfigModuleEdit", "#x1F0AB");
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(configIndex(0), 0xF0AB);
    QCOMPARE(part<QLineEdit>(*m_window, "ConfigModuleEdit")->text(), QStringLiteral("0xf0ab"));
}

void tst_ModuleIndexes::notStoredBeforeAClick()
{
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    type("ConfigModuleEdit", "0x10");
    QTest::keyClick(part<QLineEdit>(*m_window, "ConfigModuleEdit"), Qt::Key_Return);
    type("DetectModuleEdit", "0x11");
    QCOMPARE(configIndex(0), 0xF000);
    QCOMPARE(detectIndex(0), 0xF001);
}

void tst_ModuleIndexes::notStoredByClosingTheWindow()
{
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    type("ConfigModuleEdit", "0x10");
    QVERIFY(m_window->close());
    m_window.reset();
    QCOMPARE(configIndex(0), 0xF000);
}

void tst_ModuleIndexes::nothingIsStoredWithoutADevice()
{
    part<QLineEdit>(*m_window, "ConfigModuleEdit")->setText(QStringLiteral("0x10"));
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QCOMPARE(configIndex(0), 0xF000);
}

void tst_ModuleIndexes::nothingIsStoredForAFile()
{
    clickItem(*m_window, treeItem(*m_window, 0));
    part<QLineEdit>(*m_window, "ConfigModuleEdit")->setText(QStringLiteral("0x10"));
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    for (std::size_t device = 0; device < 3; ++device)
        QCOMPARE(configIndex(device), 0xF000);
}

void tst_ModuleIndexes::nothingIsStoredPastTheLists_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addRow("device is the length of the list") << 0 << 3;
    QTest::addRow("device far past the list") << 0 << 1000;
    QTest::addRow("file is the length of the list") << 1 << 0;
    QTest::addRow("file below 0") << -1 << 0;
    QTest::addRow("device below 0") << 0 << -1;
}

void tst_ModuleIndexes::nothingIsStoredPastTheLists()
{
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    part<QLineEdit>(*m_window, "ConfigModuleEdit")->setText(QStringLiteral("0x10"));
    QVERIFY(callSlot(*m_window, "device_switch_event"));
    for (std::size_t index = 0; index < 3; ++index)
        QCOMPARE(configIndex(index), 0xF000);
}

void tst_ModuleIndexes::afterADeletionTheEmptyFieldsAreStored()
{
    // A deletion empties the fields and keeps the selected position; the device that moves up to it takes them over.
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    QVERIFY(callSlot(*m_window, "device_delete"));
    QCOMPARE(configIndex(0), 0xF000);
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(configIndex(0), 0);
    QCOMPARE(detectIndex(0), 0);
    QCOMPARE(configIndex(1), 0xF000);
}

static const testMain::Registration<tst_ModuleIndexes, QApplication> registration;
#include "tst_ModuleIndexes.moc"
