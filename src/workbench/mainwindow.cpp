// mainwindow.cpp - the constructor of the main window: views and connections.
#include "workbench/mainwindow.h"

#include "editing/deviceTypeTexts.h"
#include "workbench/dictionaryTree.h"
#include "workbench/fileDrags.h"
#include "workbench/rowChoices.h"
#include "workbench/tableViews.h"
#include "workbench/unmatchedSlotSilencer.h"

#include "ui_mainwindow.h"

#include <QAction>
#include <QKeySequence>
#include <QScrollArea>

/// Pulls the images into the program: of a static library the linker drops what nobody refers to by name.
static void initImages()
{
    Q_INIT_RESOURCE(application);
}

/// Puts the form into an area that scrolls: with large letters its parts may need more than the minimum size of the
/// window, and then they are out of sight instead of cut off.
static void makeScrollable(QMainWindow& window)
{
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // a click beside the fields leaves the focus where it is
    area->setWidgetResizable(true);
    area->setWidget(window.takeCentralWidget());
    window.setCentralWidget(area);
}

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui_MainWindow>())
    , device_pdocontent_seleModel(nullptr)
{
    initImages();
    constexpr int treeFontWeight = 12;
    QFont treeFont = font();
    treeFont.setWeight(treeFontWeight);

    {
        // Wires the exit action and, by their names, all slots of the form on_<object>_<signal> to the widgets.
        const UnmatchedSlotSilencer silencer;
        ui->setupUi(this);
    }
    makeScrollable(*this);
    ui->DeviceTree->setContextMenuPolicy(Qt::CustomContextMenu);
    connectActions();
    connectDeviceTree();
    connectMenus();
    setAcceptDrops(true);
    passFileDragsToWindow(*this);
    setUpTables();
    setUpModuleTree(treeFont);
    setUpDeviceTypes();
    setUpCoeTree(treeFont);
    setUpDeleteKeys();
    setUpRowChoices();
}

MainWindow::~MainWindow() = default;

void MainWindow::connectActions()
{
    connect(ui->actionimport, &QAction::triggered, this, &MainWindow::device_import_triggered);
    connect(ui->actionexport, &QAction::triggered, this, &MainWindow::device_export_triggered);
}

void MainWindow::connectDeviceTree()
{
    connect(ui->DeviceTree, &QTreeWidget::customContextMenuRequested, this, &MainWindow::slotCustomContextMenu);
    // The click that toggles a check box also selects the item. The order of the connections is the order in which they
    // run: first the item becomes current, which a click on a check box does not do by itself; then it is shown, and
    // a changed device type needs the current item for that; then its check state spreads.
    connect(ui->DeviceTree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (ui->DeviceTree->currentItem() != item)
            ui->DeviceTree->setCurrentItem(item);
    });
    connect(ui->DeviceTree, &QTreeWidget::itemClicked, this, &MainWindow::device_information_display);
    connect(ui->DeviceTree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        device_checked_updata(item);
        device_checkedparent_updata(item);
    });
}

void MainWindow::connectMenus()
{
    connect(ui->SmView, &QTableView::customContextMenuRequested, this, &MainWindow::SmViewCustomMenu);
    connect(ui->StartupView, &QTableView::customContextMenuRequested, this, &MainWindow::StartupViewCustomMenu);
    connect(ui->PdoContentView, &QTableView::customContextMenuRequested, this, &MainWindow::PdoContentViewCustomMenu);
    connect(ui->ModuleTree, &QTreeWidget::itemClicked, this, &MainWindow::on_Module_TreeClick);
    connect(ui->ModuleTree, &QTreeWidget::customContextMenuRequested, this, &MainWindow::ModuleTreeCustomMenu);
    connect(ui->mPdoContentView, &QTableView::customContextMenuRequested, this, &MainWindow::mPdoContentViewCustomMenu);
}

/// Columns of a list of PDOs.
static TableColumns pdoColumns(const std::vector<int>& widths)
{
    return {{MainWindow::tr("Index"), MainWindow::tr("Size"), MainWindow::tr("Name"), MainWindow::tr("Flags"),
             MainWindow::tr("SM"), MainWindow::tr("SU")},
            widths,
            {},
            {0, QStringLiteral("0x1a00")}};
}

/// Columns of the entries of a PDO.
static TableColumns entryColumns()
{
    return {{MainWindow::tr("Index"), MainWindow::tr("Size"), MainWindow::tr("Offs"), MainWindow::tr("Name"),
             MainWindow::tr("Type"), MainWindow::tr("Linkto"), MainWindow::tr("Default")},
            {85, 85, 85, 185, 85, 85, 85},
            FitColumns | FitRows | CustomMenu,
            {0, QStringLiteral("0x6040:10")}};
}

void MainWindow::setUpTables()
{
    struct Table
    {
        QTableView* view;
        QStandardItemModel* model;
        TableColumns columns;
    };
    const Table tables[] = {
        {ui->FmmuView,
         &device_fmmu_model,
         {{tr("Name"), tr("Sm"), tr("Su"), tr("Oponly")}, {180, 180, 180, 180}, StretchSections | FitColumns}},
        {ui->SmView,
         &device_sm_model,
         {{tr("Sm"), tr("StartAddress"), tr("length"), tr("Data"), tr("MinSize"), tr("MaxSize"), tr("DefaultSize")},
          {30, 180, 180, 180, 180, 180},
          StretchSections | FitColumns | CustomMenu}},
        {ui->SyncManagerView,
         &device_sync_model,
         {{tr("SM"), tr("Size"), tr("Type")}, {45, 45, 88}, FitColumns, {1, QStringLiteral("256.00")}}},
        {ui->PdoListView, &device_pdo_model, pdoColumns({85, 85, 250, 80, 80})},
        {ui->StartupView,
         &device_startup_model,
         {{tr("Transition"), tr("Protocol"), tr("Index"), tr("Datalen"), tr("Data"), tr("Comment"), tr("bIfCA")},
          {85, 85, 85, 85, 250, 250, 50},
          FitColumns | FitRows | CustomMenu,
          {2, QStringLiteral("0x6040:10")}}},
        {ui->ModuleView,
         &device_slots_model,
         {{tr("Slot"), tr("Module"), tr("ModuleIdent")}, {150, 150, 150}, FitColumns | FitRows}},
        {ui->PdoAssignView,
         &device_pdoassignment_model,
         {{tr("Index"), tr("Enable")}, {85, 50}, FitColumns | FitRows, {0, QStringLiteral("0x1a00")}}},
        {ui->PdoContentView, &device_pdocontent_model, entryColumns()},
        {ui->mPdoListView, &device_mpdo_model, pdoColumns({60, 50, 180, 50, 50, 50})},
        {ui->mPdoContentView, &device_mpdocontent_model, entryColumns()},
    };
    for (const Table& table : tables)
        setUpTableView(*table.view, *table.model, table.columns);
}

void MainWindow::setUpModuleTree(const QFont& font)
{
    constexpr int moduleWidth = 200;
    constexpr int identWidth = 100;
    ui->ModuleTree->setColumnWidth(0, moduleWidth);
    ui->ModuleTree->setColumnWidth(1, identWidth);
    ui->ModuleTree->setFont(font);
    ui->ModuleTree->setContextMenuPolicy(Qt::CustomContextMenu);
}

void MainWindow::setUpDeviceTypes()
{
    for (const DeviceTypeText& entry : deviceTypeTexts)
        ui->comboBox_DeviceType->addItem(QString::fromUtf8(entry.text), entry.type);
}

void MainWindow::setUpCoeTree(const QFont& font)
{
    setUpDictionaryColumns(*ui->CoeTree);
    ui->CoeTree->setFont(font);
}

void MainWindow::setUpDeleteKeys()
{
    for (const char* key : {"Del", "Backspace"}) {
        auto* action = new QAction(this);
        action->setShortcut(QKeySequence(QLatin1String(key)));
        addAction(action);
        connect(action, &QAction::triggered, this, &MainWindow::device_delete);
    }
}

/// However a row becomes current, the window shows and edits that row. Rows of the other tables are only read, or asked
/// for their menu, and the menu of the device tree selects an item without showing it.
void MainWindow::setUpRowChoices()
{
    makeKeysClick(*ui->DeviceTree);
    makeDragsClick(*ui->DeviceTree);
    QAbstractItemView* const views[] = {ui->PdoListView, ui->mPdoListView, ui->SyncManagerView, ui->ModuleView,
                                        ui->ModuleTree};
    for (QAbstractItemView* view : views) {
        makeKeysClick(*view);
        makeDragsClick(*view);
        makeOtherButtonsClick(*view);
    }
}
