// What the General tab shows of the distributed clocks of the device that is clicked.
#include "testMain.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include <memory>

class tst_OperationModes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void syncSignals_data();
    void syncSignals();
    void operationModes();
    void modesOfThePreviousDeviceGo();
    void withoutModes();

private:
    [[nodiscard]] QString text(const char* name) const { return part<QLineEdit>(*m_window, name)->text(); }
    [[nodiscard]] QVector<bool> checkedSignals() const;
    /// Loads one file with one device and clicks the device.
    void show(const struct_EtherCatDevice& device);

    std::unique_ptr<MainWindow> m_window;
};

void tst_OperationModes::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_OperationModes::cleanup()
{
    m_window.reset();
    resetModel();
}

QVector<bool> tst_OperationModes::checkedSignals() const
{
    return {part<QCheckBox>(*m_window, "checkBox_Dc1")->isChecked(),
            part<QCheckBox>(*m_window, "checkBox_Dc2")->isChecked(),
            part<QCheckBox>(*m_window, "checkBox_Dc3")->isChecked()};
}

void tst_OperationModes::show(const struct_EtherCatDevice& device)
{
    g_xmlfiledevices = {fileWith("a.xml", {})};
    g_xmlfiledevices[0].device = {device};
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 0));
}

void tst_OperationModes::syncSignals_data()
{
    QTest::addColumn<unsigned int>("assignActivate");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QVector<bool>>("checked");
    QTest::addRow("off") << 0U << "0x00" << QVector<bool>{false, false, false};
    QTest::addRow("bit 8") << 0x100U << "0x100" << QVector<bool>{true, false, false};
    QTest::addRow("bit 9") << 0x200U << "0x200" << QVector<bool>{false, true, false};
    QTest::addRow("bit 10") << 0x400U << "0x400" << QVector<bool>{false, false, true};
    QTest::addRow("SYNC 0") << 0x300U << "0x300" << QVector<bool>{true, true, false};
    QTest::addRow("SYNC 0 and SYNC 1") << 0x700U << "0x700" << QVector<bool>{true, true, true};
    QTest::addRow("all other bits") << 0xFFFFF8FFU << "0xfffff8ff" << QVector<bool>{false, false, false};
}

void tst_OperationModes::syncSignals()
{
    QFETCH(unsigned int, assignActivate);
    QFETCH(QString, shown);
    QFETCH(QVector<bool>, checked);
    for (const char* name : {"checkBox_Dc1", "checkBox_Dc2", "checkBox_Dc3"})
        part<QCheckBox>(*m_window, name)->setChecked(true);
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.vopmode.resize(1);
    device.vopmode[0].AssignActivate = assignActivate;
    show(device);
    QCOMPARE(text("SyncEdit"), shown);
    QCOMPARE(checkedSignals(), checked);
}

static struct_EtherCatDevice deviceWithThreeModes()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.vopmode.resize(3);
    const char* const words[] = {"自由运行", "DC synchronous", "DC with shift"};
    for (std::size_t index = 0; index < 3; ++index) {
        device.vopmode[index].Name = "mode " + std::to_string(index);
        device.vopmode[index].Desc = words[index];
        device.vopmode[index].AssignActivate = static_cast<std::uint32_t>(0x100U << index);
    }
    return device;
}

void tst_OperationModes::operationModes()
{
    show(deviceWithThreeModes());
    const auto* const box = part<QComboBox>(*m_window, "comboBox_Dc");
    QCOMPARE(box->count(), 3);
    const char* const words[] = {"自由运行", "DC synchronous", "DC with shift"};
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(box->itemText(index), QString::fromUtf8(words[index]));
        QCOMPARE(box->itemData(index, Qt::UserRole), QVariant(index));
        // Filling the list is no choice: the modes keep their order, of which the first one is the chosen mode.
        QCOMPARE(g_xmlfiledevices[0].device[0].vopmode[std::size_t(index)].Desc, std::string(words[index]));
    }
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(text("SyncEdit"), QStringLiteral("0x100")); // of the first mode
    QCOMPARE(checkedSignals(), QVector<bool>({true, false, false}));
}

void tst_OperationModes::modesOfThePreviousDeviceGo()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"})};
    g_xmlfiledevices[0].device[0] = deviceWithThreeModes();
    g_xmlfiledevices[0].device[1].vopmode.resize(1);
    g_xmlfiledevices[0].device[1].vopmode[0].Desc = "only one";
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    const auto* const box = part<QComboBox>(*m_window, "comboBox_Dc");
    QCOMPARE(box->count(), 1);
    QCOMPARE(box->itemText(0), QStringLiteral("only one"));
}

void tst_OperationModes::withoutModes()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"})};
    g_xmlfiledevices[0].device[0] = deviceWithThreeModes();
    m_window->DeviceDisplayUpdate();
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->count(), 0);
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->currentText(), QString());
    QCOMPARE(text("SyncEdit"), QString());

    // A text that was typed into the empty list goes with the next click too.
    QTest::keyClicks(part<QComboBox>(*m_window, "comboBox_Dc")->lineEdit(), "typed");
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->currentText(), QString("typed"));
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->currentText(), QString());
    QCOMPARE(checkedSignals(), QVector<bool>({false, false, false}));
}

static const testMain::Registration<tst_OperationModes, QApplication> registration;
#include "tst_OperationModes.moc"
