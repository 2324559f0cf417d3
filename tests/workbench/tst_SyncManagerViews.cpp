// The tables of sync managers and FMMUs, and the way from them to the editor.
// Covers mainwindow_sm.cpp.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/editorParts.h"
#include "workbench/smeditwin.h"
#include "workbench/syncManagerBuilders.h"
#include "workbench/tabFixture.h"

#include <QAbstractItemModelTester>
#include <QMenu>

class tst_SyncManagerViews : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    void fmmuTable();
    void syncManagerTables();
    void withoutSyncManagers();
    void clickOnAFileEmptiesTheTables();
    void fillsDoNotAddUp();
    static void nothingIsShownWithoutADevice_data();
    void nothingIsShownWithoutADevice();
    void menuOfARow();
    void noMenuWithoutARow();
    void doubleClickOpensTheEditor();
    static void refusalWithoutARow_data();
    void refusalWithoutARow();
    void secondEditorClosesTheFirst();
    void savingRefillsTheTable();
    void replyWithoutARowShowsNothing();
    void modelsKeepTheirContract();

private:
    QTableView& smView() { return table(window(), "SmView"); }
    QTableView& fmmuView() { return table(window(), "FmmuView"); }
    QTableView& syncView() { return table(window(), "SyncManagerView"); }
    Smeditwin* openEditor() { return openEditorIn<Smeditwin>(window()); }
};

void tst_SyncManagerViews::fmmuTable()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.vFmmu.resize(3);
    const char* const names[] = {"Outputs", "Inputs", "MBoxState"};
    for (std::uint32_t index = 0; index < 3; ++index) {
        device.vFmmu[index].m_Name = names[index];
        device.vFmmu[index].m_Sm = index;
        device.vFmmu[index].m_Su = 0x10 * index;
        device.vFmmu[index].m_OpOnly = index == 1;
    }
    show({device});
    QCOMPARE(allTexts(fmmuView()), QVector<QStringList>({{"Outputs", "0x00", "0x00", "0x00"},
                                                         {"Inputs", "0x1", "0x10", "0x1"},
                                                         {"MBoxState", "0x2", "0x20", "0x00"}}));
}

void tst_SyncManagerViews::syncManagerTables()
{
    show({usualDevice()});
    // 38 and 65536 make 65574, 0x10026; the 4.5 bytes of the outputs show as 4 and as 4.50.
    QCOMPARE(allTexts(smView()), QVector<QStringList>({{"0", "0x1000", "0x80", "0x10026", "0x22", "0x100", "0x80"},
                                                       {"1", "0x1400", "0x40", "0x10026", "0x22", "0x100", "0x80"},
                                                       {"2", "0x1800", "0x4", "0x10026", "0x22", "0x100", "0x80"},
                                                       {"3", "0x1c00", "0x2", "0x10026", "0x22", "0x100", "0x80"}}));
    QCOMPARE(
        allTexts(syncView()),
        QVector<QStringList>(
            {{"0", "128.00", "MBoxOut"}, {"1", "64.00", "MBoxIn"}, {"2", "4.50", "Outputs"}, {"3", "2.00", "Inputs"}}));
    for (const struct_SM& each : loadedDevice().vSM)
        QCOMPARE(each.Attributes.ControlByte, 38U); // the model keeps what was read
}

void tst_SyncManagerViews::withoutSyncManagers()
{
    show({usualDevice(), deviceNamed("Plain")});
    clickDevice(1);
    QCOMPARE(smView().model()->rowCount(), 0);
    QCOMPARE(syncView().model()->rowCount(), 0);
    QCOMPARE(fmmuView().model()->rowCount(), 0);
}

void tst_SyncManagerViews::clickOnAFileEmptiesTheTables()
{
    struct_EtherCatDevice device = usualDevice();
    device.vFmmu.resize(2);
    show({device});
    QCOMPARE(fmmuView().model()->rowCount(), 2);
    clickDevice(-1);
    for (const QTableView* view : {&smView(), &syncView(), &fmmuView()})
        QCOMPARE(view->model()->rowCount(), 0);
}

void tst_SyncManagerViews::fillsDoNotAddUp()
{
    struct_EtherCatDevice device = usualDevice();
    device.vFmmu.resize(2);
    show({device});
    const QVector<QStringList> syncManagers = allTexts(smView());
    QVERIFY(callSlot(window(), "device_fmmu_display"));
    QVERIFY(callSlot(window(), "device_sm_display"));
    QCOMPARE(fmmuView().model()->rowCount(), 2);
    QCOMPARE(syncView().model()->rowCount(), 4);
    QCOMPARE(allTexts(smView()), syncManagers);
}

void tst_SyncManagerViews::nothingIsShownWithoutADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_SyncManagerViews::nothingIsShownWithoutADevice()
{
    struct_EtherCatDevice usual = usualDevice();
    usual.vFmmu.resize(2);
    show({usual});
    loadedDevice().vSM.clear();
    loadedDevice().vFmmu.clear();
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    QVERIFY(callSlot(window(), "device_fmmu_display"));
    QVERIFY(callSlot(window(), "device_sm_display"));
    QCOMPARE(smView().model()->rowCount(), 4); // as they were
    QCOMPARE(fmmuView().model()->rowCount(), 2);
}

void tst_SyncManagerViews::menuOfARow()
{
    show({usualDevice()});
    DialogDriver driver({choosingEntry("modify")});
    driver.during([this] { rightClickRow(smView(), 2); });
    QCOMPARE(driver.problem(), QString());
    QCOMPARE(driver.seen(0).entries, QStringList{"modify"});
    QCOMPARE(driver.seen(0).parent, static_cast<QWidget*>(deviceTree(window())));
    QCOMPARE(deviceTree(window())->findChildren<QMenu*>().size(), 1); // it is kept
    QVERIFY(openEditor() != nullptr);
    QCOMPARE(fieldText(*openEditor(), "Sm"), QString("2"));
}

void tst_SyncManagerViews::noMenuWithoutARow()
{
    show({usualDevice(), deviceNamed("Plain")});
    DialogDriver driver({});
    driver.during([this] {
        rightClickBelowTheRows(smView());
        clickDevice(1);
        rightClickBelowTheRows(smView());
    });
    QCOMPARE(driver.problem(), QString());
    QVERIFY(openEditor() == nullptr);
}

void tst_SyncManagerViews::doubleClickOpensTheEditor()
{
    show({usualDevice()});
    doubleClickRow(smView(), 1);
    Smeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(fieldText(*editor, "Sm"), QString("1"));
    QCOMPARE(editor->windowTitle(), QString("Sm editor"));
    QCOMPARE(editor->windowModality(), Qt::WindowModal);
    QCOMPARE(int(editor->windowFlags()), 0x803); // a dialog without a frame
    QCOMPARE(editor->parentWidget(), &window());
}

void tst_SyncManagerViews::refusalWithoutARow_data()
{
    QTest::addColumn<bool>("byDoubleClick");
    QTest::addRow("from the menu") << false;
    QTest::addRow("by a double click") << true;
}

void tst_SyncManagerViews::refusalWithoutARow()
{
    QFETCH(bool, byDoubleClick);
    show({usualDevice()});
    DialogDriver driver({pressing(QMessageBox::Ok)});
    driver.during([&] {
        // The argument of the double click does not count, the current row does.
        QVERIFY(byDoubleClick
                    ? callSlot(window(), "on_SmView_doubleClicked", Q_ARG(QModelIndex, smView().model()->index(0, 0)))
                    : callSlot(window(), "on_SmView_modify"));
    });
    QCOMPARE(driver.problem(), QString());
    const SeenDialog box = driver.seen(0);
    QCOMPARE(box.title, QString("warning"));
    QCOMPARE(box.text, QString("Please select a pdo\n"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &window());
    QCOMPARE(editorsOf<Smeditwin>(window()), 0);
}

void tst_SyncManagerViews::secondEditorClosesTheFirst()
{
    show({usualDevice()});
    doubleClickRow(smView(), 1);
    const Smeditwin* const first = openEditor();
    QVERIFY(callSlot(window(), "on_SmView_modify"));
    QVERIFY(!first->isVisible());
    Smeditwin* const second = openEditor();
    QVERIFY(second != nullptr && second != first);
    // The first one's closing has refilled the table, so that no row is current any more.
    QCOMPARE(fieldText(*second, "Sm"), QString());
    press(*second, "SmSavebutton");
    for (const struct_SM& each : loadedDevice().vSM)
        QCOMPARE(int(each.Attributes.MinSize), 34);
}

void tst_SyncManagerViews::savingRefillsTheTable()
{
    show({usualDevice()});
    doubleClickRow(smView(), 2);
    loadedDevice().RxPdo.vpdo[0].Size = 5.0F;
    typeInto(*openEditor(), "MinSize", "16");
    press(*openEditor(), "SmSavebutton");
    QVERIFY(openEditor() == nullptr);
    QCOMPARE(allTexts(smView())[2], QStringList({"2", "0x1800", "0x5", "0x10026", "0x10", "0x100", "0x80"}));
    QCOMPARE(currentRowOf(smView()), -1);
    DialogDriver driver({pressing(QMessageBox::Ok)}); // so that the next edit wants a row again
    driver.during([this] { QVERIFY(callSlot(window(), "on_SmView_modify")); });
    QCOMPARE(driver.problem(), QString());
}

void tst_SyncManagerViews::replyWithoutARowShowsNothing()
{
    struct_EtherCatDevice device = usualDevice();
    device.RxPdo.vpdo.clear();
    device.TxPdo.vpdo.clear();
    show({device});
    loadedDevice().vSM.resize(1);
    QVERIFY(callSlot(window(), "SmEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(smView().model()->rowCount(), 4);
    clickRow(smView(), 3);
    QVERIFY(callSlot(window(), "SmEditWindowSendMsg", Q_ARG(QString, "any words")));
    QCOMPARE(smView().model()->rowCount(), 1);
}

void tst_SyncManagerViews::modelsKeepTheirContract()
{
    const auto testerOf = [](const QTableView& view) {
        return std::make_unique<QAbstractItemModelTester>(view.model(),
                                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    };
    const auto syncManagers = testerOf(smView());
    const auto smallTable = testerOf(syncView());
    const auto fmmus = testerOf(fmmuView());
    struct_EtherCatDevice device = usualDevice();
    device.vFmmu.resize(2);
    show({device, deviceNamed("Plain")});
    doubleClickRow(smView(), 3);
    press(*openEditor(), "SmSavebutton");
    clickDevice(1);
    clickDevice(0);
    clickDevice(-1);
    QCOMPARE(smView().model()->rowCount(), 0);
}

static const testMain::Registration<tst_SyncManagerViews, QApplication> registration;
#include "tst_SyncManagerViews.moc"
