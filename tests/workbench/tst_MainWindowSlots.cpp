// The slots of the main window: names, arguments, results, access and order.
#include "testMain.h"
#include "workbench/mainwindow.h"

#include <QMetaMethod>
#include <QtTest>

class tst_MainWindowSlots : public QObject
{
    Q_OBJECT

private slots:
    static void slotIsOffered_data();
    static void slotIsOffered();
    static void slotsInTheirOrder();
};

namespace {

struct Slot
{
    const char* signature;
    const char* result = "void";
    bool isProtected = false;
};

// All slots in their order; the replies of the editor windows are protected, the rest is private.
const Slot allSlots[] = {
    {"PdoEditWindowSendMsg(QString)", "void", true},
    {"SmEditWindowSendMsg(QString)", "void", true},
    {"StartupEditWindowSendMsg(QString)", "void", true},
    {"device_import_triggered()"},
    {"device_information_display(QTreeWidgetItem*,int)"},
    {"device_fmmu_display()"},
    {"device_sm_display()"},
    {"device_pdo_display()"},
    {"device_startup_display()"},
    {"device_slots_display()"},
    {"device_downloadslotcfg(str_Slot*)", "str_InitCmd"},
    {"device_module_display()"},
    {"device_datatypeSize(std::string)", "int"},
    {"device_objectInfo(uint32_t,uint32_t)", "str_Info"},
    {"device_datatypeScan(QString,std::string,QTreeWidgetItem*)"},
    {"device_CoE_display()"},
    {"device_sm_clicked(QModelIndex)"},
    {"device_slot_clicked(QModelIndex)"},
    {"device_export_triggered()"},
    {"device_checked_updata(QTreeWidgetItem*)"},
    {"setParentPartiallyChecked(QTreeWidgetItem*)"},
    {"device_checkedparent_updata(QTreeWidgetItem*)"},
    {"slotCustomContextMenu(QPoint)"},
    {"device_delete()"},
    {"device_slotmodule_display()"},
    {"device_modulestartup_generate()"},
    {"on_SyncManagerView_clicked(QModelIndex)"},
    {"on_PdoListView_clicked(QModelIndex)"},
    {"device_moduleindex_modify(int)"},
    {"on_InsertModule_clicked()"},
    {"on_DeleteModule_clicked()"},
    {"on_ModuleTree_currentItemChanged(QTreeWidgetItem*,QTreeWidgetItem*)"},
    {"on_ModuleView_clicked(QModelIndex)"},
    {"device_switch_event()"},
    {"on_comboBox_DeviceType_currentIndexChanged(int)"},
    {"PdoContentViewCustomMenu(QPoint)"},
    {"on_pdoContect_modify()"},
    {"on_pdoContect_add()"},
    {"on_pdoContect_delete()"},
    {"on_PdoContentView_doubleClicked(QModelIndex)"},
    {"ModuleTreeCustomMenu(QPoint)"},
    {"on_ModuleTree_delete()"},
    {"mPdoContentViewCustomMenu(QPoint)"},
    {"on_mpdoContect_modify()"},
    {"on_mpdoContect_add()"},
    {"on_mpdoContect_delete()"},
    {"on_mPdoContentView_doubleClicked(QModelIndex)"},
    {"on_Module_TreeClick(QTreeWidgetItem*,int)"},
    {"on_mPdoListView_clicked(QModelIndex)"},
    {"on_actionInPort_ktl_triggered()"},
    {"on_DriveAxies_editingFinished()"},
    {"dragEnterEvent(QDragEnterEvent*)"},
    {"dropEvent(QDropEvent*)"},
    {"on_actionAbout_triggered()"},
    {"SmViewCustomMenu(QPoint)"},
    {"on_SmView_modify()"},
    {"on_SmView_doubleClicked(QModelIndex)"},
    {"StartupViewCustomMenu(QPoint)"},
    {"on_StartupView_add()"},
    {"on_StartupView_modify()"},
    {"on_StartupView_delete()"},
    {"on_StartupView_doubleClicked(QModelIndex)"},
    {"on_comboBox_Dc_currentIndexChanged(int)"},
    {"on_DownlaodCfg_stateChanged(int)"},
};

} // namespace

void tst_MainWindowSlots::slotIsOffered_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArray>("result");
    QTest::addColumn<bool>("isProtected");
    for (const Slot& slot : allSlots)
        QTest::addRow("%s", slot.signature)
            << QByteArray(slot.signature) << QByteArray(slot.result) << slot.isProtected;
}

static QMetaMethod methodOf(const QByteArray& signature)
{
    const QMetaObject& metaObject = MainWindow::staticMetaObject;
    for (int index = metaObject.methodOffset(); index < metaObject.methodCount(); ++index)
        if (metaObject.method(index).methodSignature() == signature)
            return metaObject.method(index);
    return {};
}

void tst_MainWindowSlots::slotIsOffered()
{
    QFETCH(QByteArray, signature);
    QFETCH(QByteArray, result);
    QFETCH(bool, isProtected);
    const QMetaMethod method = methodOf(signature);
    QVERIFY2(method.isValid(), "no such slot");
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
    QCOMPARE(method.access(), isProtected ? QMetaMethod::Protected : QMetaMethod::Private);
    QCOMPARE(QByteArray(method.typeName()), result);
}

void tst_MainWindowSlots::slotsInTheirOrder()
{
    const QMetaObject& metaObject = MainWindow::staticMetaObject;
    QList<QByteArray> offered;
    for (int index = metaObject.methodOffset(); index < metaObject.methodCount(); ++index)
        offered.append(metaObject.method(index).methodSignature());
    QList<QByteArray> expected;
    for (const Slot& slot : allSlots)
        expected.append(slot.signature);
    QCOMPARE(offered, expected);
}

static const testMain::Registration<tst_MainWindowSlots, QApplication> registration;
#include "tst_MainWindowSlots.moc"
