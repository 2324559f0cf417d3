// The slots of the CoE tab called by themselves: look-ups, scans, and what they do without a device.
#include "model/dictionaryBuilders.h"
#include "testMain.h"
#include "workbench/coeTreeParts.h"
#include "workbench/mainwindow.h"

#include <memory>
#include <stdexcept>

namespace {

/// Gives access to a member that only the window itself knows.
template<auto Member> struct PrivateMember
{
    friend int rowCountKept(const MainWindow& window) { return window.*Member; }
};
template struct PrivateMember<&MainWindow::coe_model_size>;
int rowCountKept(const MainWindow& window);

} // namespace

class tst_CoeSlots : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void withoutSelectionTheTreeStays_data();
    void withoutSelectionTheTreeStays();
    static void pastTheListsIsARangeError_data();
    void pastTheListsIsARangeError();
    void lookUpsBySlot();
    void scanBySlot();
    void rowCountIsThatOfTheModuleTree();

private:
    [[nodiscard]] QTreeWidget* coeTree() const { return part<QTreeWidget>(*m_window, "CoeTree"); }
    void show(const DeviceDictionary& dictionary) { clickDeviceWith(*m_window, dictionary); }

    std::unique_ptr<MainWindow> m_window;
};

void tst_CoeSlots::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_CoeSlots::cleanup()
{
    m_window.reset();
    resetModel();
}

void tst_CoeSlots::withoutSelectionTheTreeStays_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addRow("no file") << -1 << 0;
    QTest::addRow("no device") << 0 << -1;
    QTest::addRow("nothing") << -1 << -1;
}

void tst_CoeSlots::withoutSelectionTheTreeStays()
{
    QFETCH(int, file);
    QFETCH(int, device);
    show({{}, {object(0x1000, "UINT")}});
    currentfileindex = file;
    currentdeviceindex = device;
    QVERIFY(callSlot(*m_window, "device_CoE_display"));
    QCOMPARE(coeTree()->topLevelItemCount(), 1);
}

void tst_CoeSlots::pastTheListsIsARangeError_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<int>("device");
    QTest::addColumn<bool>("isNegative");
    QTest::addRow("file past the list") << 1 << 0 << false;
    QTest::addRow("device past the list") << 0 << 1 << false;
    QTest::addRow("no file") << -1 << 0 << true;
    QTest::addRow("no device") << 0 << -1 << true;
}

void tst_CoeSlots::pastTheListsIsARangeError()
{
    QFETCH(int, file);
    QFETCH(int, device);
    QFETCH(bool, isNegative);
    show({{}, {object(0x1000, "UINT")}});
    currentfileindex = file;
    currentdeviceindex = device;
    int size = -1;
    str_Info info;
    QTreeWidgetItem item;
    const std::string simpleType = "UINT"; // the device is looked up before the type is looked at
    QVERIFY_EXCEPTION_THROWN(
        callSlot(*m_window, "device_datatypeSize", Q_RETURN_ARG(int, size), Q_ARG(std::string, simpleType)),
        std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(callSlot(*m_window, "device_objectInfo", Q_RETURN_ARG(str_Info, info),
                                      Q_ARG(uint32_t, 0x1000), Q_ARG(uint32_t, 0)),
                             std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(callSlot(*m_window, "device_datatypeScan", Q_ARG(QString, "0x1000:%1"),
                                      Q_ARG(std::string, simpleType), Q_ARG(QTreeWidgetItem*, &item)),
                             std::out_of_range);
    if (!isNegative)
        QVERIFY_EXCEPTION_THROWN(callSlot(*m_window, "device_CoE_display"), std::out_of_range);
}

void tst_CoeSlots::lookUpsBySlot()
{
    show({{sized("UINT", 16), sized("UINT", 17)}, {objectWithDefaults(0x1018, "DT1018", {3, 4})}});
    int size = -1;
    QVERIFY(callSlot(*m_window, "device_datatypeSize", Q_RETURN_ARG(int, size), Q_ARG(std::string, "UINT")));
    QCOMPARE(size, 16);
    QVERIFY(callSlot(*m_window, "device_datatypeSize", Q_RETURN_ARG(int, size), Q_ARG(std::string, "REAL")));
    QCOMPARE(size, 0);
    str_Info info;
    QVERIFY(callSlot(*m_window, "device_objectInfo", Q_RETURN_ARG(str_Info, info), Q_ARG(uint32_t, 0x1018),
                     Q_ARG(uint32_t, 1)));
    QCOMPARE(info.DefaultValue, 4U);
    QVERIFY(callSlot(*m_window, "device_objectInfo", Q_RETURN_ARG(str_Info, info), Q_ARG(uint32_t, 0x1018),
                     Q_ARG(uint32_t, 2)));
    QCOMPARE(info.DefaultValue, 0U);
}

void tst_CoeSlots::scanBySlot()
{
    show({{array("DT1", 1, 2)}, {}});
    QTreeWidgetItem item({"index", "name", "flags", "size", "type", "value"});
    QVERIFY(callSlot(*m_window, "device_datatypeScan", Q_ARG(QString, "0x1003:%1"), Q_ARG(std::string, "DT1"),
                     Q_ARG(QTreeWidgetItem*, &item)));
    const QVector<QStringList> expected{{"0x1003:1", "SubIndex 1", "flags", "0", "UINT"},
                                        {"0x1003:2", "SubIndex 2", "flags", "0", "UINT"}};
    QCOMPARE(shownObject(&item).children, expected);
    QCOMPARE(item.text(5), QStringLiteral("value"));
}

void tst_CoeSlots::rowCountIsThatOfTheModuleTree()
{
    show({{}, {object(0x1000, "UINT")}});
    auto* const moduleTree = part<QTreeWidget>(*m_window, "ModuleTree");
    moduleTree->clear();
    for (int row = 0; row < 3; ++row)
        moduleTree->addTopLevelItem(new QTreeWidgetItem);
    QVERIFY(callSlot(*m_window, "device_CoE_display"));
    QCOMPARE(rowCountKept(*m_window), 3);
    clickItem(*m_window, treeItem(*m_window, 0));
    QCOMPARE(rowCountKept(*m_window), 0);
}

static const testMain::Registration<tst_CoeSlots, QApplication> registration;
#include "tst_CoeSlots.moc"
