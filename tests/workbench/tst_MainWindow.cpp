// The frame of the main window: its menu, shortcuts, tabs and resources.
#include "workbench/mainwindow.h" // first, so that the header compiles on its own

#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/windowParts.h"

#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>

#include <memory>

class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void ownTitleUntilTheProgramSetsOne();
    void oneMenu();
    static void menuEntry_data();
    void menuEntry();
    void shortcutOpensTheImportDialog();
    void shortcutStartsTheExport();
    void shortcutClosesTheWindow();
    void menuEntryClosesTheWindow();
    void tabs();
    void startsOnTheModuleTab();
    void deviceTreeHeader();
    static void treeAsksForMenus_data();
    void treeAsksForMenus();
    void acceptsDrops();
    static void imageOfTheResources_data();
    static void imageOfTheResources();
    static void noOtherImages();
    void windowIcon();
    void clickInAssignmentChangesNothing();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_MainWindow::initTestCase()
{
    QVERIFY(m_folder.isValid());
    keepSettingsIn(m_folder.path());
}

void tst_MainWindow::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_MainWindow::cleanup()
{
    m_window.reset();
    resetModel();
}

void tst_MainWindow::ownTitleUntilTheProgramSetsOne()
{
    QCOMPARE(MainWindow().windowTitle(), QStringLiteral("Kinetra xml parse"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Kinetra Xml Parser"));
}

void tst_MainWindow::oneMenu()
{
    QCOMPARE(m_window->menuBar()->actions().size(), 1);
    auto* const menu = part<QMenu>(*m_window, "menuEtherCAT");
    QCOMPARE(menu->title(), QStringLiteral("File"));
    QCOMPARE(m_window->menuBar()->actions().first()->menu(), menu);
    QCOMPARE(menu->actions().size(), 5);
}

void tst_MainWindow::menuEntry_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("shortcut");
    QTest::addRow("open") << 0 << "actionimport"
                          << "Open xml(打开ESI)"
                          << ":/images/open.png"
                          << "Ctrl+I";
    QTest::addRow("export") << 1 << "actionexport"
                            << "Export ktl(导出ktl)"
                            << ":/images/export2.png"
                            << "Ctrl+S";
    QTest::addRow("import") << 2 << "actionInPort_ktl"
                            << "ImPort ktl(导入ktl)"
                            << ":/images/import.png"
                            << "Ctrl+B";
    QTest::addRow("about") << 3 << "actionAbout"
                           << "About(关于)"
                           << ":/images/about.png"
                           << "";
    QTest::addRow("exit") << 4 << "actionExit"
                          << "Exit(退出)"
                          << ":/images/exit.png"
                          << "Ctrl+Q";
}

static QImage imageOf(const QIcon& icon)
{
    return icon.pixmap(32).toImage();
}

void tst_MainWindow::menuEntry()
{
    QFETCH(int, position);
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, image);
    QFETCH(QString, shortcut);
    const QAction* action = part<QMenu>(*m_window, "menuEtherCAT")->actions().value(position);
    QVERIFY(action);
    QCOMPARE(action->objectName(), name);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->shortcut().toString(QKeySequence::PortableText), shortcut);
    QVERIFY(!imageOf(action->icon()).isNull());
    QCOMPARE(imageOf(action->icon()), imageOf(QIcon(image)));
}

void tst_MainWindow::shortcutOpensTheImportDialog()
{
    DialogDriver dialogs({cancelling(), pressing(QMessageBox::Ok)});
    dialogs.during([this] { QTest::keyClick(m_window.get(), Qt::Key_I, Qt::ControlModifier); });
    QCOMPARE(dialogs.problem(), QString());
    QCOMPARE(dialogs.seen(0).title, QStringLiteral("文件对话框！"));
}

void tst_MainWindow::shortcutStartsTheExport()
{
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    dialogs.during([this] { QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier); });
    QCOMPARE(dialogs.problem(), QString());
    QCOMPARE(dialogs.seen(0).text, QStringLiteral("Select at least one device export\n"));
}

void tst_MainWindow::shortcutClosesTheWindow()
{
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!m_window->isVisible());
}

void tst_MainWindow::menuEntryClosesTheWindow()
{
    part<QAction>(*m_window, "actionExit")->trigger();
    QVERIFY(!m_window->isVisible());
}

void tst_MainWindow::tabs()
{
    const auto* const tabs = part<QTabWidget>(*m_window, "tabWidget");
    QStringList names;
    QStringList texts;
    for (int index = 0; index < tabs->count(); ++index) {
        names.append(tabs->widget(index)->objectName());
        texts.append(tabs->tabText(index));
    }
    QCOMPARE(names, QStringList({"tab", "tab_2", "tab_3", "tab_4", "tab_5"}));
    QCOMPARE(texts, QStringList({"General", "Process Data", "Startup", "Module", "CoE"}));
}

void tst_MainWindow::startsOnTheModuleTab()
{
    const auto* const tabs = part<QTabWidget>(*m_window, "tabWidget");
    QCOMPARE(tabs->currentIndex(), 3);
    QCOMPARE(deviceTree(*m_window)->topLevelItemCount(), 0);
    for (const QTableView* view : m_window->findChildren<QTableView*>())
        QCOMPARE(view->model()->rowCount(), 0);
    for (const QTreeWidget* tree : m_window->findChildren<QTreeWidget*>())
        QCOMPARE(tree->topLevelItemCount(), 0);
    QCOMPARE(part<QComboBox>(*m_window, "comboBox_Dc")->count(), 0);
}

void tst_MainWindow::deviceTreeHeader()
{
    const QTreeWidget* tree = deviceTree(*m_window);
    QCOMPARE(tree->columnCount(), 1);
    QCOMPARE(tree->headerItem()->text(0), QStringLiteral("File/Device"));
}

void tst_MainWindow::treeAsksForMenus_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("asks");
    QTest::addRow("device tree") << QByteArray("DeviceTree") << true;
    QTest::addRow("module tree") << QByteArray("ModuleTree") << true;
    QTest::addRow("CoE tree") << QByteArray("CoeTree") << false;
}

void tst_MainWindow::treeAsksForMenus()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, asks);
    const auto* const tree = part<QTreeWidget>(*m_window, name.constData());
    QCOMPARE(tree->contextMenuPolicy() == Qt::CustomContextMenu, asks);
}

void tst_MainWindow::acceptsDrops()
{
    QVERIFY(m_window->acceptDrops());
}

static const QStringList imageNames = {"about.png",   "exit.png", "export.png", "export2.png", "import.png",
                                       "kinetra.png", "open.png", "save.png",   "xml.png"};

void tst_MainWindow::imageOfTheResources_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& name : imageNames)
        QTest::addRow("%s", qPrintable(name)) << QStringLiteral(":/images/") + name;
}

void tst_MainWindow::imageOfTheResources()
{
    QFETCH(QString, path);
    const QImage image(path);
    QVERIFY2(!image.isNull(), "does not load");
    QVERIFY(image.width() >= 16 && image.height() >= 16);
}

void tst_MainWindow::noOtherImages()
{
    QCOMPARE(QDir(QStringLiteral(":/images")).entryList(QDir::Files, QDir::Name), imageNames);
}

void tst_MainWindow::windowIcon()
{
    QVERIFY(!imageOf(m_window->windowIcon()).isNull());
    QCOMPARE(imageOf(m_window->windowIcon()), imageOf(QIcon(QStringLiteral(":/images/kinetra.png"))));
}

/// Texts of all rows of all tables, and their selections.
static QStringList contentOfTables(const QWidget& window)
{
    QStringList content;
    for (const QTableView* view : window.findChildren<QTableView*>()) {
        for (int row = 0; row < view->model()->rowCount(); ++row)
            for (int column = 0; column < view->model()->columnCount(); ++column)
                content.append(view->objectName() + view->model()->index(row, column).data().toString());
    }
    return content;
}

void tst_MainWindow::clickInAssignmentChangesNothing()
{
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(1);
    auto* const view = part<QTableView>(*m_window, "PdoAssignView");
    auto* const model = qobject_cast<QStandardItemModel*>(view->model());
    QVERIFY(model);
    model->appendRow({new QStandardItem(QStringLiteral("0x1600")), new QStandardItem(QStringLiteral("true"))});
    const QStringList before = contentOfTables(*m_window);
    DialogDriver dialogs({});
    dialogs.during([view, model] {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(model->index(0, 0)).center());
    });
    QCOMPARE(dialogs.problem(), QString());
    QVERIFY(view->selectionModel()->isRowSelected(0, {})); // the click did arrive
    QCOMPARE(contentOfTables(*m_window), before);
    QCOMPARE(currentfileindex, -1);
    QCOMPARE(currentdeviceindex, -1);
}

static const testMain::Registration<tst_MainWindow, QApplication> registration;
#include "tst_MainWindow.moc"
