// The export as a user goes through it: what is asked, what is proposed, and what lies on disk afterwards.
// Covers mainwindow_export.cpp.
#include "testMain.h"
#include "workbench/exportFixture.h"

#include <QLineEdit>
#include <QTabWidget>

class tst_ExportFlow : public ExportFixture
{
    Q_OBJECT

private slots:
    void init() { begin({fileOfProducts("/esi/Servo.v2.xml", {1, 2})}); }
    void cleanup() { end(); }
    void nothingLoaded();
    void nothingChecked();
    void saveDialog();
    void cancelTouchesNothing();
    static void proposedName_data();
    void proposedName();
    void nameOfTheFirstFileWithACheckedDevice();
    void noNameWithoutACheckedDevice();
    void fileAndDump();
    static void pathIsTakenAsTyped_data();
    void pathIsTakenAsTyped();
    void uncheckedDeviceLeavesNoTrace();
    void partialFileWithItsSecondDevice();
    void deviceOfAnUncheckedFileIsLeftOut();
    void filesInTheirOrder();
    void modelIsNotChanged();
    void pendingModuleIndexesAreStored();
    void pendingModuleIndexesAreStoredAtTheStart();
    void warningsInTreeOrder();
    void uncheckedDevicesAreNotWarnedOf();
    void noLimitStopsTheExport();
    void samplesFromOpeningToTheDump();
};

void tst_ExportFlow::nothingLoaded()
{
    load({});
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(0), "Select at least one device export\n", "warning");
}

void tst_ExportFlow::nothingChecked()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(0), "Select at least one device export\n", "warning");
    QCOMPARE(outFiles(), QStringList());
}

void tst_ExportFlow::saveDialog()
{
    DialogDriver dialogs({cancelling()});
    runExport(dialogs);
    const SeenDialog dialog = dialogs.seen(0);
    QCOMPARE(dialog.parent, static_cast<QWidget*>(m_window.get()));
    QCOMPARE(dialog.modality, Qt::WindowModal);
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptSave);
    QCOMPARE(dialog.nameFilters, QStringList("ktl files(*.ktl )"));
    QCOMPARE(dialog.directory, QDir::currentPath());
    QCOMPARE(dialog.defaultSuffix, QString());
}

void tst_ExportFlow::cancelTouchesNothing()
{
    writeFile(m_out, "Servo-0x00", QByteArray("stays"));
    DialogDriver dialogs({cancelling()});
    runExport(dialogs);
    QCOMPARE(outFiles(), QStringList("Servo-0x00"));
    QCOMPARE(contentOfFile(outPath("Servo-0x00")), QByteArray("stays"));
}

void tst_ExportFlow::proposedName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<unsigned int>("vendor");
    QTest::addColumn<QString>("name");
    QTest::addRow("up to the first dot") << "D:/esi/Servo.v2.xml" << 0x7EU << "Servo-0x7e";
    QTest::addRow("vendor 0") << "/esi/Servo.xml" << 0U << "Servo-0x00";
    QTest::addRow("16 characters are cut to 15") << "/esi/abcdefghijklmnop.xml" << 1U << "abcdefghijklmno-0x1";
    QTest::addRow("21 characters are cut to 20") << "/esi/abcdefghij.xml" << 0x7E570001U << "abcdefghij-0x7e57000";
}

void tst_ExportFlow::proposedName()
{
    QFETCH(QString, path);
    QFETCH(unsigned int, vendor);
    QFETCH(QString, name);
    struct_FilenameDevice file = fileOfProducts(path.toStdString(), {1});
    file.Vendor_Id = vendor;
    load({file});
    DialogDriver dialogs({cancelling()});
    runExport(dialogs);
    QCOMPARE(dialogs.seen(0).proposedName, name);
}

void tst_ExportFlow::nameOfTheFirstFileWithACheckedDevice()
{
    load({fileOfProducts("unchecked.xml", {1}), fileOfProducts("empty.xml", {}), fileOfProducts("partial.xml", {2, 3}),
          fileOfProducts("full.xml", {4})});
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    clickCheckBox(*m_window, treeItem(*m_window, 2, 0));
    DialogDriver dialogs({cancelling()});
    runExport(dialogs);
    QCOMPARE(dialogs.seen(0).proposedName, QStringLiteral("partial-0x00"));
}

void tst_ExportFlow::noNameWithoutACheckedDevice()
{
    load({fileOfProducts("empty.xml", {})}); // checked, but without a device
    DialogDriver dialogs({choosing(outPath("a.ktl"))});
    runExport(dialogs);
    QCOMPARE(dialogs.seen(0).proposedName, QString());
    QCOMPARE(contentOfFile(outPath("a.ktl")), QByteArray::fromHex("00000000 0c000000 00000000"));
}

void tst_ExportFlow::fileAndDump()
{
    g_xmlfiledevices[0].Vendor_Id = 0x7E570001;
    exportTo(outPath("a.ktl"));
    QCOMPARE(outFiles(), QStringList({"a.ktl", "a.ktl.txt"}));
    const QByteArray ktl = contentOfFile(outPath("a.ktl"));
    QCOMPARE(ktl.left(16), QByteArray::fromHex("409c0000 34000000 0100577e 01000000"));
    QCOMPARE(runsIn(ktl), QStringList({"1", "2", "end"}));
    QCOMPARE(dumpProblem(outPath("a.ktl")), QString());
}

void tst_ExportFlow::pathIsTakenAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("no extension is added") << "plain";
    QTest::addRow("another extension stays") << "a.bin";
    QTest::addRow("blanks and a percent sign") << "a %1 b.ktl";
    QTest::addRow("Chinese") << "伺服驱动器.ktl";
    QTest::addRow("characters beyond simplified Chinese") << "Größe 한국 €.ktl";
}

void tst_ExportFlow::pathIsTakenAsTyped()
{
    QFETCH(QString, name);
    QVERIFY(m_out.mkdir(QStringLiteral("导出")));
    const QString path = outPath("导出/" + name);
    exportTo(path);
    QCOMPARE(QDir(outPath("导出")).entryList(QDir::Files, QDir::Name), QStringList({name, name + ".txt"}));
    QCOMPARE(runsIn(contentOfFile(path)), QStringList({"1", "2", "end"}));
    QCOMPARE(dumpProblem(path), QString());
}

void tst_ExportFlow::uncheckedDeviceLeavesNoTrace()
{
    load({fileOfProducts("a.xml", {1, 2, 3})});
    clickCheckBox(*m_window, treeItem(*m_window, 0, 1));
    exportTo(outPath("a.ktl"));
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"1", "3", "end"}));
}

void tst_ExportFlow::partialFileWithItsSecondDevice()
{
    clickCheckBox(*m_window, treeItem(*m_window, 0));
    clickCheckBox(*m_window, treeItem(*m_window, 0, 1));
    QCOMPARE(stateOf(treeItem(*m_window, 0)), 1);
    exportTo(outPath("a.ktl"));
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"2", "end"}));
}

void tst_ExportFlow::deviceOfAnUncheckedFileIsLeftOut()
{
    load({fileOfProducts("a.xml", {1}), fileOfProducts("b.xml", {2})});
    setState(treeItem(*m_window, 0), 0); // its device stays checked
    DialogDriver dialogs({choosing(outPath("a.ktl"))});
    runExport(dialogs);
    QCOMPARE(dialogs.seen(0).proposedName, QStringLiteral("b-0x00"));
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"2", "end"}));
}

void tst_ExportFlow::filesInTheirOrder()
{
    load({fileOfProducts("z.xml", {9, 8}), fileOfProducts("empty.xml", {}), fileOfProducts("a.xml", {7})});
    exportTo(outPath("a.ktl"));
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"9", "8", "7", "end"}));
}

void tst_ExportFlow::modelIsNotChanged()
{
    exportTo(outPath("first.ktl"));
    exportTo(outPath("second.ktl"));
    QCOMPARE(contentOfFile(outPath("second.ktl")), contentOfFile(outPath("first.ktl")));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
    QCOMPARE(currentfileindex, -1);
}

void tst_ExportFlow::pendingModuleIndexesAreStored()
{
    g_xmlfiledevices[0].device[1].m_iDeviceType = 3;
    clickItem(*m_window, treeItem(*m_window, 0, 1));
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(3);
    for (const char* name : {"ConfigModuleEdit", "DetectModuleEdit"}) {
        auto* const edit = part<QLineEdit>(*m_window, name);
        edit->selectAll();
        QTest::keyClicks(edit, "0xF030");
    }
    exportTo(outPath("a.ktl"));
    QCOMPARE(int{g_xmlfiledevices[0].device[1].configindex}, 0xF030);
    QCOMPARE(int{g_xmlfiledevices[0].device[1].detectindex}, 0xF030);
}

void tst_ExportFlow::pendingModuleIndexesAreStoredAtTheStart()
{
    // Before anything is asked: also when nothing is checked and the export stops at once.
    clickItem(*m_window, treeItem(*m_window, 0, 0));
    part<QLineEdit>(*m_window, "ConfigModuleEdit")->setText(QStringLiteral("0xF031"));
    setState(treeItem(*m_window, 0), 0);
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    runExport(dialogs);
    QCOMPARE(int{g_xmlfiledevices[0].device[0].configindex}, 0xF031);
}

/// Makes a device raise the warnings on sync managers, increments and startup commands.
static void overload(struct_EtherCatDevice& device)
{
    device.vSM.resize(5);
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].Attributes.SlotIndexIncrement = 8;
    device.Slots.Attributes.SlotIndexIncrement = 16;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(255);
}

void tst_ExportFlow::warningsInTreeOrder()
{
    load({fileOfProducts("a.xml", {1, 2}), fileOfProducts("b.xml", {3})});
    g_xmlfiledevices[0].device[0].vSM.resize(5);
    overload(g_xmlfiledevices[0].device[1]);
    g_xmlfiledevices[1].device[0].vSM.resize(6);
    const DialogAnswer ok = pressing(QMessageBox::Ok);
    DialogDriver dialogs({ok, ok, ok, ok, ok, cancelling()});
    runExport(dialogs);
    const QString syncManagers =
        QStringLiteral("存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 device %1:\n");
    compareWarning(dialogs.seen(0), syncManagers.arg(1));
    compareWarning(dialogs.seen(1), syncManagers.arg(2));
    compareWarning(dialogs.seen(2), "存在设备多个slot的SlotIndexIncrement不一致，控制器不支持。请谨慎操作 device 2:\n");
    compareWarning(dialogs.seen(3), "设备的startup启动项超过254个。固件必须升级大于20240929 device 2:\n");
    compareWarning(dialogs.seen(4), syncManagers.arg(3));
}

void tst_ExportFlow::uncheckedDevicesAreNotWarnedOf()
{
    load({fileOfProducts("a.xml", {1, 2}), fileOfProducts("b.xml", {3})});
    overload(g_xmlfiledevices[0].device[0]);
    overload(g_xmlfiledevices[1].device[0]);
    clickCheckBox(*m_window, treeItem(*m_window, 0, 0));
    clickCheckBox(*m_window, treeItem(*m_window, 1));
    exportTo(outPath("a.ktl"));
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"2", "end"}));
}

void tst_ExportFlow::noLimitStopsTheExport()
{
    load({fileOfProducts("a.xml", {1})});
    g_xmlfiledevices[0].device[0].vSM.resize(6);
    DialogDriver dialogs({pressing(QMessageBox::Ok), choosing(outPath("a.ktl"))});
    runExport(dialogs);
    QString problem;
    int syncManagers = 0;
    for (const KtlItem& item : itemsOf(contentOfFile(outPath("a.ktl")), &problem))
        if (item.type == 40001)
            syncManagers = static_cast<int>(item.u32(8));
    QCOMPARE(problem, QString());
    QCOMPARE(syncManagers, 6);
}

void tst_ExportFlow::samplesFromOpeningToTheDump()
{
    load({});
    QStringList paths;
    for (const char* name : {"servo-drive", "dual-axis-drive", "bus-coupler", "oversampling-terminal", "io-block"})
        paths.append(QStringLiteral(KINETRA_SOURCE_DIR "/samples/%1.xml").arg(QLatin1String(name)));
    DialogDriver opening({choosing(paths)});
    opening.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
    QCOMPARE(opening.problem(), QString());
    clickItem(*m_window, treeItem(*m_window, 4, 0));
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QStringLiteral("FB-1616D"));
    DialogDriver saving({choosing(outPath("samples.ktl"))});
    runExport(saving);
    QCOMPARE(saving.seen(0).proposedName, QStringLiteral("servo-drive-0x7e5700"));
    const QStringList runs = runsIn(contentOfFile(outPath("samples.ktl")));
    QCOMPARE(runs.size(), 7 + 1); // seven devices in five files, and one end item
    QCOMPARE(runs.last(), QStringLiteral("end"));
    QCOMPARE(dumpProblem(outPath("samples.ktl")), QString());
}

static const testMain::Registration<tst_ExportFlow, QApplication> registration;
#include "tst_ExportFlow.moc"
