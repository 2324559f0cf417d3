// The form of the main window: fixed texts, what is disabled, and how tables and trees are set up.
#include "testMain.h"
#include "workbench/mainwindow.h"
#include "workbench/windowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>

#include <memory>
#include <set>

class tst_MainWindowForm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    static void fixedText_data();
    void fixedText();
    static void startsDisabled_data();
    void startsDisabled();
    static void deviceType_data();
    void deviceType();
    static void comboBox_data();
    void comboBox();
    static void tree_data();
    void tree();
    static void table_data();
    void table();
    static void lookOfTable_data();
    void lookOfTable();
    void everyTableHasItsOwnModel();

private:
    std::unique_ptr<MainWindow> m_window;
};

void tst_MainWindowForm::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
}

void tst_MainWindowForm::cleanup()
{
    m_window.reset();
}

static QByteArray tabOf(const QWidget* widget)
{
    while (widget != nullptr && !widget->objectName().startsWith(QLatin1String("tab")))
        widget = widget->parentWidget();
    return widget != nullptr ? widget->objectName().toLatin1() : QByteArray();
}

void tst_MainWindowForm::fixedText_data()
{
    QTest::addColumn<QByteArray>("tab");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* tab, const char* name, const char* text) {
        QTest::addRow("%s", name) << QByteArray(tab) << QString::fromUtf8(text);
    };
    row("tab", "label_2", "Product/Revision:");
    row("tab", "label", " Type:");
    row("tab", "groupBox", "Device Identity(Hex)");
    row("tab", "label_5", "Revison No:");
    row("tab", "label_3", "Vendor Id:");
    row("tab", "label_4", "Product Code:");
    row("tab", "label_6", "Serial No:");
    row("tab", "label_21", "Device Type:");
    row("tab", "label_25", "DriveAxies");
    row("tab", "groupBox_2", "Device Sync");
    row("tab", "label_7", "Operation Mode:");
    row("tab", "label_8", "Cyclic Mode:");
    row("tab", "checkBox_Dc1", "Enable");
    row("tab", "label_11", "Value:");
    row("tab", "label_9", "SYNC 0:");
    row("tab", "checkBox_Dc2", "Enable");
    row("tab", "label_10", "SYNC 1:");
    row("tab", "checkBox_Dc3", "Enable");
    row("tab", "groupBox_3", "SM");
    row("tab", "groupBox_5", "Fmmu");
    row("tab_2", "label_12", "Sync Manager:");
    row("tab_2", "label_13", "PDO List:");
    row("tab_2", "label_14", "PDO Assignment:");
    row("tab_2", "label_15", "PDO Content:");
    row("tab_2", "label_18", "");
    row("tab_2", "label_17", "");
    row("tab_2", "SdocheckBox", "Supported Sdo");
    row("tab_2", "PdocheckBoxA", "PDO assignment is downloaded");
    row("tab_2", "PdocheckBoxC", " PDO Configuration is downloaded");
    row("tab_3", "label_16", "Startup List:");
    row("tab_4", "label_24", "Module Tree  ");
    row("tab_4", "label_20", "Detected Module index");
    row("tab_4", "DetectModuleEdit", "0x0");
    row("tab_4", "label_19", "Configured Module index");
    row("tab_4", "ConfigModuleEdit", "0x0");
    row("tab_4", "DownlaodCfg", "Dowmload SlotCfg");
    row("tab_4", "CfgTransition", "I->P");
    row("tab_4", "label_22", "Module PDOList  ");
    row("tab_4", "label_23", "Module PDOContent  ");
    row("tab_4", "DeleteModule", "delete");
    row("tab_4", "InsertModule", "insert");
}

void tst_MainWindowForm::fixedText()
{
    QFETCH(QByteArray, tab);
    QFETCH(QString, expected);
    const auto* const widget = part<QWidget>(*m_window, QTest::currentDataTag());
    const QVariant text = widget->property(qobject_cast<const QGroupBox*>(widget) != nullptr ? "title" : "text");
    QVERIFY2(text.isValid(), "the widget has no text");
    QCOMPARE(text.toString(), expected);
    QCOMPARE(tabOf(widget), tab);
}

void tst_MainWindowForm::startsDisabled_data()
{
    QTest::addColumn<bool>("disabled");
    for (const char* name : {"TypeEdit", "RevisionEdit", "ProductCodeEdit", "SerialNo", "VendorEdit", "RevisonNoEdit",
                             "DriveAxies", "SyncEdit", "checkBox_Dc1", "checkBox_Dc2", "checkBox_Dc3", "SdocheckBox",
                             "PdocheckBoxA", "PdocheckBoxC", "DetectModuleEdit", "ConfigModuleEdit"})
        QTest::addRow("%s", name) << true;
    for (const char* name : {"comboBox_DeviceType", "comboBox_Dc", "DownlaodCfg", "CfgTransition", "InsertModule",
                             "DeleteModule", "DeviceTree", "ModuleTree", "CoeTree"})
        QTest::addRow("%s is enabled", name) << false;
}

void tst_MainWindowForm::startsDisabled()
{
    QFETCH(bool, disabled);
    const QByteArray name = QByteArray(QTest::currentDataTag()).split(' ').first();
    const auto* const widget = part<QWidget>(*m_window, name.constData());
    QCOMPARE(!widget->isEnabledTo(m_window.get()), disabled);
}

void tst_MainWindowForm::deviceType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("0") << "1:IOBlock(单IO模块)";
    QTest::addRow("1") << "2:SingleDriver(单电机)";
    QTest::addRow("2") << "3:MultiDriver(多电机)";
    QTest::addRow("3") << "4:耦合器支持上电识别模块，有F050字典，不需要预置";
    QTest::addRow("4") << "5:特殊设备,手动插入模块，和耦合器本身成整体设备";
    QTest::addRow("5") << "6:耦合器不能识别模块，需要预置手动插入模块，没有F050字典";
}

void tst_MainWindowForm::deviceType()
{
    QFETCH(QString, text);
    const int type = QByteArray(QTest::currentDataTag()).toInt();
    const auto* const box = part<QComboBox>(*m_window, "comboBox_DeviceType");
    QCOMPARE(box->count(), 6);
    QCOMPARE(box->itemText(type), text);
    QCOMPARE(box->itemData(type, Qt::UserRole), QVariant(type));
}

void tst_MainWindowForm::comboBox_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addRow("device type") << QByteArray("comboBox_DeviceType");
    QTest::addRow("operation mode") << QByteArray("comboBox_Dc");
}

void tst_MainWindowForm::comboBox()
{
    QFETCH(QByteArray, name);
    const auto* const box = part<QComboBox>(*m_window, name.constData());
    QVERIFY(box->isEditable());
    QCOMPARE(tabOf(box), QByteArray("tab"));
}

void tst_MainWindowForm::tree_data()
{
    QTest::addColumn<QByteArray>("tab");
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QList<int>>("widths");
    QTest::addRow("ModuleTree") << QByteArray("tab_4") << QStringList({"Module", "ModuleIdent", "Description"})
                                << QList<int>({200, 100});
    QTest::addRow("CoeTree") << QByteArray("tab_5")
                             << QStringList({"Index", "Name", "Flags", "BitSize", "Type", "Value"})
                             << QList<int>({120, 250, 80, 80});
}

void tst_MainWindowForm::tree()
{
    QFETCH(QByteArray, tab);
    QFETCH(QStringList, headers);
    QFETCH(QList<int>, widths);
    const auto* const tree = part<QTreeWidget>(*m_window, QTest::currentDataTag());
    QCOMPARE(tabOf(tree), tab);
    QStringList shown;
    for (int column = 0; column < tree->columnCount(); ++column)
        shown.append(tree->headerItem()->text(column));
    QCOMPARE(shown, headers);
    for (int column = 0; column < widths.size(); ++column)
        QCOMPARE(tree->columnWidth(column), widths.at(column));
    QCOMPARE(tree->font().weight(), 12); // the window's font at its lightest
}

namespace {

const QStringList pdoHeaders = {"Index", "Size", "Name", "Flags", "SM", "SU"};
const QStringList contentHeaders = {"Index", "Size", "Offs", "Name", "Type", "Linkto", "Default"};
const QList<int> contentWidths = {85, 85, 85, 185, 85, 85, 85};

/// A table of the window; sections that stretch share the width, others have widths in pixels.
struct Table
{
    const char* name;
    const char* tab;
    QStringList headers;
    QList<int> widths;
    bool stretches = false;
    bool asksForMenu = false;
};

const Table allTables[] = {
    {"FmmuView", "tab", {"Name", "Sm", "Su", "Oponly"}, {}, true, false},
    {"SmView", "tab", {"Sm", "StartAddress", "length", "Data", "MinSize", "MaxSize", "DefaultSize"}, {}, true, true},
    {"SyncManagerView", "tab_2", {"SM", "Size", "Type"}, {45, 45, 88}, false, false},
    {"PdoListView", "tab_2", pdoHeaders, {85, 85, 250, 80, 80}, false, false},
    {"StartupView",
     "tab_3",
     {"Transition", "Protocol", "Index", "Datalen", "Data", "Comment", "bIfCA"},
     {85, 85, 85, 85, 250, 250, 50},
     false,
     true},
    {"ModuleView", "tab_4", {"Slot", "Module", "ModuleIdent"}, {150, 150, 150}, false, false},
    {"PdoAssignView", "tab_2", {"Index", "Enable"}, {85, 50}, false, false},
    {"PdoContentView", "tab_2", contentHeaders, contentWidths, false, true},
    {"mPdoListView", "tab_4", pdoHeaders, {60, 50, 180, 50, 50, 50}, false, false},
    {"mPdoContentView", "tab_4", contentHeaders, contentWidths, false, true},
};

} // namespace

void tst_MainWindowForm::table_data()
{
    QTest::addColumn<QByteArray>("tab");
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QList<int>>("widths");
    QTest::addColumn<bool>("stretches");
    for (const Table& table : allTables)
        QTest::addRow("%s", table.name) << QByteArray(table.tab) << table.headers << table.widths << table.stretches;
}

void tst_MainWindowForm::table()
{
    QFETCH(QByteArray, tab);
    QFETCH(QStringList, headers);
    QFETCH(QList<int>, widths);
    QFETCH(bool, stretches);
    const auto* const view = part<QTableView>(*m_window, QTest::currentDataTag());
    QCOMPARE(tabOf(view), tab);
    QCOMPARE(view->model()->columnCount(), headers.size());
    for (int column = 0; column < headers.size(); ++column) {
        QCOMPARE(view->model()->headerData(column, Qt::Horizontal).toString(), headers.at(column));
        QCOMPARE(view->horizontalHeader()->sectionResizeMode(column) == QHeaderView::Stretch, stretches);
    }
    // The last section takes what room is left, whatever width it was given.
    for (int column = 0; column < widths.size() && column + 1 < headers.size(); ++column)
        QCOMPARE(view->columnWidth(column), widths.at(column));
}

void tst_MainWindowForm::lookOfTable_data()
{
    QTest::addColumn<bool>("asksForMenu");
    for (const Table& table : allTables)
        QTest::addRow("%s", table.name) << table.asksForMenu;
}

void tst_MainWindowForm::lookOfTable()
{
    QFETCH(bool, asksForMenu);
    const auto* const view = part<QTableView>(*m_window, QTest::currentDataTag());
    QVERIFY(view->horizontalHeader()->stretchLastSection());
    QCOMPARE(view->horizontalHeader()->defaultAlignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(view->styleSheet(),
             QStringLiteral("QHeaderView::section { background:grey; color:black;min-height:2.5em;}"));
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view->editTriggers(), QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    QCOMPARE(view->minimumHeight(), 30);
    QCOMPARE(view->contextMenuPolicy() == Qt::CustomContextMenu, asksForMenu);
}

void tst_MainWindowForm::everyTableHasItsOwnModel()
{
    const QList<QTableView*> views = m_window->findChildren<QTableView*>();
    std::set<const QAbstractItemModel*> models;
    for (const QTableView* view : views) {
        QVERIFY2(qobject_cast<QStandardItemModel*>(view->model()), qPrintable(view->objectName()));
        QVERIFY2(view->model()->parent() == nullptr, "a model is a value of the window, not its child");
        models.insert(view->model());
    }
    QCOMPARE(views.size(), 10);
    QCOMPARE(models.size(), std::size_t{10});
}

static const testMain::Registration<tst_MainWindowForm, QApplication> registration;
#include "tst_MainWindowForm.moc"
