// mainwindow.h - the one window of the workbench.
#pragma once

#include "model/XMLParsing.h"
#include "workbench/selection.h"

#include <QItemSelectionModel>
#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QStandardItemModel>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class PdoEditWin;
class QAbstractItemView;
class QDragEnterEvent;
class QDropEvent;
class Smeditwin;
class Startupeditwin;
class Ui_MainWindow;

/// The main window: the device tree, five tabs on the selected device, and the file menu. It shows the files of
/// `g_xmlfiledevices` and addresses what it edits by position (see selection.h), never by pointer.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;

    /// Rebuilds the device tree from the list of files, everything checked. Tabs and selection stay as they are.
    void DeviceDisplayUpdate();

    /// Empties every tab; the drive axes and the current device type stay.
    void Device_Information_UIClear();

protected slots:
    // Replies of the editor windows when they close; the text carries nothing.
    void PdoEditWindowSendMsg(const QString& text);
    void SmEditWindowSendMsg(const QString& text);
    void StartupEditWindowSendMsg(const QString& text);

private slots:
    // Each slot is in the source file of its tab.
    void device_import_triggered();
    void device_information_display(QTreeWidgetItem* item, int column);
    void device_fmmu_display();
    void device_sm_display();
    void device_pdo_display();
    void device_startup_display();
    void device_slots_display();
    str_InitCmd device_downloadslotcfg(str_Slot* slot);
    void device_module_display();
    int device_datatypeSize(const std::string& type);
    str_Info device_objectInfo(uint32_t index, uint32_t subIndex);
    void device_datatypeScan(const QString& indexstr, const std::string& type, QTreeWidgetItem* item);
    void device_CoE_display();
    void device_sm_clicked(const QModelIndex& index);
    void device_slot_clicked(const QModelIndex& index);
    void device_export_triggered();
    void device_checked_updata(QTreeWidgetItem* item);
    void setParentPartiallyChecked(QTreeWidgetItem* itm);
    void device_checkedparent_updata(QTreeWidgetItem* item);
    void slotCustomContextMenu(const QPoint& point);
    void device_delete();
    void device_slotmodule_display();
    void device_modulestartup_generate();
    void on_SyncManagerView_clicked(const QModelIndex& index);
    void on_PdoListView_clicked(const QModelIndex& index);
    void device_moduleindex_modify(int arg1);
    void on_InsertModule_clicked();
    void on_DeleteModule_clicked();
    void on_ModuleTree_currentItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);
    void on_ModuleView_clicked(const QModelIndex& index);
    void device_switch_event();
    void on_comboBox_DeviceType_currentIndexChanged(int index);
    void PdoContentViewCustomMenu(const QPoint& point);
    void on_pdoContect_modify();
    void on_pdoContect_add();
    void on_pdoContect_delete();
    void on_PdoContentView_doubleClicked(const QModelIndex& index);
    void ModuleTreeCustomMenu(const QPoint& point);
    void on_ModuleTree_delete();
    void mPdoContentViewCustomMenu(const QPoint& point);
    void on_mpdoContect_modify();
    void on_mpdoContect_add();
    void on_mpdoContect_delete();
    void on_mPdoContentView_doubleClicked(const QModelIndex& index);
    void on_Module_TreeClick(QTreeWidgetItem* item, int column);
    void on_mPdoListView_clicked(const QModelIndex& index);
    void on_actionInPort_ktl_triggered();
    void on_DriveAxies_editingFinished();
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void on_actionAbout_triggered();
    void SmViewCustomMenu(const QPoint& point);
    void on_SmView_modify();
    void on_SmView_doubleClicked(const QModelIndex& index);
    void StartupViewCustomMenu(const QPoint& point);
    void on_StartupView_add();
    void on_StartupView_modify();
    void on_StartupView_delete();
    void on_StartupView_doubleClicked(const QModelIndex& index);
    void on_comboBox_Dc_currentIndexChanged(int index);
    void on_DownlaodCfg_stateChanged(int arg1);

private:
    /// An entry of a context menu: its words, and the slot that it runs.
    struct MenuEntry
    {
        QString text;
        void (MainWindow::*chosen)();
    };

    // Parts of the constructor, in the order of their calls.
    void connectActions();
    void connectDeviceTree();
    void connectMenus();
    void setUpTables();
    void setUpModuleTree(const QFont& font);
    void setUpDeviceTypes();
    void setUpCoeTree(const QFont& font);
    void setUpDeleteKeys();
    void setUpRowChoices();

    // Parts of the tree's dispatcher (mainwindow_tree.cpp and mainwindow_general.cpp).
    void showDevice();
    void showIdentity(const struct_FilenameDevice& file, const struct_EtherCatDevice& device);
    void showDeviceType(struct_EtherCatDevice& device);
    void showOperationModes(const struct_EtherCatDevice& device);
    void showSyncSignals(const struct_EtherCatDevice& device);
    void enableModuleIndexes(bool enable);

    // What the tabs share (mainwindow_editing.cpp).
    void runMenu(const QAbstractItemView& view, const std::vector<MenuEntry>& entries);
    bool warnUnless(bool isMet, const QString& text);
    void openPdoEditor(const QString& title);
    template<typename Editor>
    void openEditor(Editor*& window, void (Editor::*closing)(const QString&), void (MainWindow::*reply)(const QString&),
                    const QString& title);

    // Parts of the Process Data tab (mainwindow_pdo.cpp).
    std::optional<QModelIndex> selectedEntry();
    bool refuseModuleEntry();
    std::optional<int> changeEntries(void (*change)(struct_EtherCatDevice&, int, int));

    // Parts of the Module tab (mainwindow_module.cpp and mainwindow_modulepdo.cpp).
    bool takesModules(const struct_EtherCatDevice& device);
    void refreshModules();
    static struct_module& moduleOf(const QModelIndex& index);
    void refuseModuleChange();
    bool isModuleEntryChosen(const QModelIndex& entry);
    void editModuleEntry(const QModelIndex& entry, bool allSelected);

    // Parts of the file actions (mainwindow_files.cpp and mainwindow_export.cpp).
    bool importEsiFile(const QString& path);
    void importKtlFile(const QString& path);
    void loadDroppedFile(const QString& path);
    QString warnAndProposeName();
    std::optional<QString> askExportPath(const QString& proposedName);
    void exportTo(const QString& path);

    int m_dispatches = 0; ///< how often the tree's dispatcher has run

    PdoEditWin* PdoEditWindow = nullptr; ///< the open editor of a PDO entry; belongs to this window
    Smeditwin* SmEditWindow = nullptr; ///< the open editor of a sync manager; belongs to this window
    Startupeditwin* StartupEditWindow = nullptr; ///< the open editor of a startup command; belongs to this window
    std::unique_ptr<Ui_MainWindow> ui;

    QStandardItemModel device_sm_model; ///< rows of `SmView`
    QStandardItemModel device_fmmu_model; ///< rows of `FmmuView`
    QStandardItemModel device_sync_model; ///< rows of `SyncManagerView`
    QStandardItemModel device_pdo_model; ///< rows of `PdoListView`
    QStandardItemModel device_startup_model; ///< rows of `StartupView`
    QStandardItemModel device_slots_model; ///< rows of `ModuleView`
    QStandardItemModel device_pdoassignment_model; ///< rows of `PdoAssignView`
    QStandardItemModel device_pdocontent_model; ///< rows of `PdoContentView`
    QItemSelectionModel device_pdocontent_seleModel; ///< without a model, given to no view
    QStandardItemModel device_mpdo_model; ///< rows of `mPdoListView`
    QStandardItemModel device_mpdocontent_model; ///< rows of `mPdoContentView`

    int sm_model_size = 0; ///< rows that the last fill of the sync managers wrote
    int pdo_model_size = 0; ///< the same for the PDO list
    int startup_model_size = 0; ///< the same for the startup list
    int coe_model_size = 0; ///< the same for the CoE view
    int pdo_mmodel_size = 0; ///< the same for the PDO list of a module
};

/// Opens an editor window; one that is still open closes first. A new window is made for each use, and a closed one
/// stays a child of this window until that goes.
/// @param closing  signal by which the editor tells that it closes
template<typename Editor>
void MainWindow::openEditor(Editor*& window, void (Editor::*closing)(const QString&),
                            void (MainWindow::*reply)(const QString&), const QString& title)
{
    if (window != nullptr)
        window->close();
    window = new Editor(this);
    connect(window, closing, this, reply);
    window->setWindowTitle(title);
    window->show();
}
