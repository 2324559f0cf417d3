// The editor of a sync manager.
// Covers smeditwin.cpp.
#include "testMain.h"
#include "workbench/smeditwin.h" // first, so that the header compiles on its own

#include "workbench/editorParts.h"
#include "workbench/tabFixture.h"

#include <QGroupBox>
#include <QPointer>
#include <QSignalSpy>

#include <cstdint>

class tst_SmEditor : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    void form();
    void values();
    static void minSize_data();
    void minSize();
    void nothingElseIsWritten();
    static void wayOut_data();
    void wayOut();
    void replies();
    void rowIsThatOfTheOpening();
    static void staleTarget_data();
    void staleTarget();
    void rowPastTheList();
    static void positionsHaveEightBits_data();
    void positionsHaveEightBits();
    void closedEditorStaysAChild();
    static void withoutAParent();
    void withoutADevice();

private:
    QTableView& smView() { return table(window(), "SmView"); }
    Smeditwin* openEditor() { return openEditorIn<Smeditwin>(window()); }
    /// Shows devices and opens the editor of a row of the first one.
    Smeditwin* editRow(int row, const std::vector<struct_EtherCatDevice>& devices);
};

static const QStringList fields{"Sm", "StartAddress", "Length", "Data", "MinSize", "MaxSize", "DefaultSize"};

/// A device with two sync managers: outputs of 1.4 bytes, and inputs.
static struct_EtherCatDevice deviceToEdit()
{
    struct_EtherCatDevice device = deviceNamed("Drive");
    device.vSM.resize(2);
    device.vSM[0].SM = 2;
    device.vSM[0].Smtype = 3;
    device.vSM[0].Name = "Outputs";
    device.vSM[0].Attributes.StartAddress = 0x1100;
    device.vSM[0].Attributes.ControlByte = 38;
    device.vSM[0].Attributes.MinSize = 34;
    device.vSM[0].Attributes.MaxSize = 256;
    device.vSM[0].Attributes.DefaultSize = 128;
    device.vSM[0].Attributes.Enable = 1;
    device.vSM[0].Attributes.m_Virtual = 1;
    device.vSM[1].SM = 3;
    device.vSM[1].Smtype = 4;
    device.vSM[1].Attributes.MinSize = 7;
    device.RxPdo.vpdo = {pdoOn(0)};
    device.RxPdo.vpdo[0].Size = 1.4F;
    return device;
}

static int minSizeOf(std::size_t row, std::size_t device = 0)
{
    return loadedDevice(device).vSM.at(row).Attributes.MinSize;
}

static QStringList textsOf(const QWidget& editor)
{
    QStringList texts;
    for (const QString& field : fields)
        texts.append(fieldText(editor, field.toLatin1().constData()));
    return texts;
}

Smeditwin* tst_SmEditor::editRow(int row, const std::vector<struct_EtherCatDevice>& devices)
{
    show(devices);
    doubleClickRow(smView(), row);
    return openEditor();
}

void tst_SmEditor::form()
{
    const Smeditwin* const editor = editRow(0, {deviceToEdit()});
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->findChild<QGroupBox*>()->title(), QString("SM"));
    QCOMPARE(labelTexts(*editor, fields),
             QStringList({"Sm:", "StartAddress:", "Length:", "Data:", "MinSize:", "MaxSize:", "DefaultSize:"}));
    QCOMPARE(enabledFields(*editor, fields), QStringList{"MinSize"});
    QCOMPARE(part<QPushButton>(*editor, "SmSavebutton")->text(), QString("Save"));
    QCOMPARE(part<QPushButton>(*editor, "SmCancelButton")->text(), QString("Cancel"));
    QVERIFY(window().geometry().contains(editor->geometry().topLeft())); // over the window, not beside it
}

void tst_SmEditor::values()
{
    const Smeditwin* const editor = editRow(0, {deviceToEdit()});
    // The table shows 0x10026 for the data: the bit is added there only.
    QCOMPARE(allTexts(smView())[0][3], QString("0x10026"));
    QCOMPARE(textsOf(*editor), QStringList({"2", "4352", "1.400000", "38", "34", "256", "128"}));
}

void tst_SmEditor::minSize_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("stored");
    QTest::addRow("number") << "12" << 12;
    QTest::addRow("greatest of 16 bits") << "65535" << 65535;
    QTest::addRow("one more is cut to 0") << "65536" << 0;
    QTest::addRow("cut to its low 16 bits") << "70000" << 4464; // 70000 - 65536
    QTest::addRow("more than 32 bits is no number") << "4294967296" << 0;
    QTest::addRow("hexadecimal is no decimal number") << "0x10" << 0;
    QTest::addRow("hexadecimal digits") << "1a" << 0;
    QTest::addRow("words") << "abc" << 0;
    QTest::addRow("negative") << "-1" << 0;
    QTest::addRow("empty") << "" << 0;
}

void tst_SmEditor::minSize()
{
    QFETCH(QString, typed);
    Smeditwin* const editor = editRow(0, {deviceToEdit()});
    typeInto(*editor, "MinSize", typed);
    QCOMPARE(minSizeOf(0), 34); // not before it is saved
    press(*editor, "SmSavebutton");
    QTEST(minSizeOf(0), "stored");
    QCOMPARE(minSizeOf(1), 7);
    QVERIFY(!editor->isVisible());
}

void tst_SmEditor::nothingElseIsWritten()
{
    Smeditwin* const editor = editRow(0, {deviceToEdit()});
    for (const QString& field : fields)
        part<QLineEdit>(*editor, field.toLatin1().constData())->setText("5");
    press(*editor, "SmSavebutton");
    const struct_SM& saved = loadedDevice().vSM[0];
    QCOMPARE(int(saved.SM), 2);
    QCOMPARE(int(saved.Smtype), 3);
    QCOMPARE(saved.Name, std::string("Outputs"));
    QCOMPARE(int(saved.Attributes.StartAddress), 0x1100);
    QCOMPARE(saved.Attributes.ControlByte, 38U);
    QCOMPARE(int(saved.Attributes.MinSize), 5);
    QCOMPARE(int(saved.Attributes.MaxSize), 256);
    QCOMPARE(int(saved.Attributes.DefaultSize), 128);
    QCOMPARE(saved.Attributes.Enable, 1U);
    QCOMPARE(saved.Attributes.m_Virtual, 1U);
    QCOMPARE(saved.Length, 1.4F);
}

void tst_SmEditor::wayOut_data()
{
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key"); // 0: a click on what has the focus
    QTest::addColumn<int>("stored");
    QTest::addRow("click on Save") << "SmSavebutton" << 0 << 12;
    QTest::addRow("click on Cancel") << "SmCancelButton" << 0 << 34;
    QTest::addRow("Esc in the field") << "MinSize" << int(Qt::Key_Escape) << 34;
    QTest::addRow("Esc on Save") << "SmSavebutton" << int(Qt::Key_Escape) << 34;
    QTest::addRow("Return in the field") << "MinSize" << int(Qt::Key_Return) << 12;
    QTest::addRow("Enter in the field") << "MinSize" << int(Qt::Key_Enter) << 12;
    QTest::addRow("Return on Save") << "SmSavebutton" << int(Qt::Key_Return) << 12;
    QTest::addRow("Return on Cancel") << "SmCancelButton" << int(Qt::Key_Return) << 34;
}

void tst_SmEditor::wayOut()
{
    QFETCH(QString, focus);
    QFETCH(int, key);
    Smeditwin* const editor = editRow(0, {deviceToEdit()});
    QSignalSpy replies(editor, &Smeditwin::SmsendTextToParent);
    typeInto(*editor, "MinSize", "12");
    auto* const focused = editor->findChild<QWidget*>(focus);
    focused->setFocus();
    if (key == 0)
        QTest::mouseClick(focused, Qt::LeftButton);
    else
        QTest::keyClick(focused, static_cast<Qt::Key>(key));
    QTEST(minSizeOf(0), "stored");
    QVERIFY(!editor->isVisible());
    QCOMPARE(replies.count(), 1);
    QCOMPARE(replies[0][0].toString(), QString("Hello parent"));
    QCOMPARE(currentRowOf(smView()), -1); // the window has refilled the table
}

void tst_SmEditor::replies()
{
    Smeditwin* const editor = editRow(0, {deviceToEdit()});
    QSignalSpy replies(editor, &Smeditwin::SmsendTextToParent);
    QTest::keyClick(part<QLineEdit>(*editor, "MinSize"), Qt::Key_5); // other keys leave it open
    QVERIFY(editor->isVisible());
    QCOMPARE(replies.count(), 0);
    QVERIFY(editor->close()); // by the window system
    QCOMPARE(replies.count(), 1);
    QCOMPARE(replies[0][0].toString(), QString("Hello parent"));
    QCOMPARE(minSizeOf(0), 34);
}

void tst_SmEditor::rowIsThatOfTheOpening()
{
    Smeditwin* const editor = editRow(0, {deviceToEdit(), deviceToEdit()});
    smView().setCurrentIndex(smView().model()->index(1, 0));
    currentdeviceindex = 1;
    typeInto(*editor, "MinSize", "12");
    press(*editor, "SmSavebutton");
    QCOMPARE(minSizeOf(0), 12);
    QCOMPARE(minSizeOf(1), 7);
    QCOMPARE(minSizeOf(0, 1), 34);
}

void tst_SmEditor::staleTarget_data()
{
    QTest::addColumn<QString>("gone");
    QTest::addRow("sync manager") << "sync manager";
    QTest::addRow("device") << "device";
    QTest::addRow("file") << "file";
}

void tst_SmEditor::staleTarget()
{
    QFETCH(QString, gone);
    Smeditwin* const editor = editRow(1, {deviceToEdit()});
    typeInto(*editor, "MinSize", "12");
    if (gone == "sync manager")
        loadedDevice().vSM.pop_back();
    else if (gone == "device")
        g_xmlfiledevices[0].device.clear();
    else
        g_xmlfiledevices.clear();
    press(*editor, "SmSavebutton");
    QVERIFY(!editor->isVisible());
    if (gone == "sync manager")
        QCOMPARE(minSizeOf(0), 34);
}

void tst_SmEditor::rowPastTheList()
{
    show({deviceToEdit()});
    loadedDevice().vSM.pop_back();
    doubleClickRow(smView(), 1);
    Smeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(textsOf(*editor).join(QString()), QString());
    press(*editor, "SmSavebutton");
    QVERIFY(!editor->isVisible());
    QCOMPARE(minSizeOf(0), 34);
}

void tst_SmEditor::positionsHaveEightBits_data()
{
    QTest::addColumn<bool>("manyFiles"); // or else many devices
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("edited");
    for (const bool manyFiles : {false, true}) {
        const char* const what = manyFiles ? "file" : "device";
        QTest::addRow("%s 128", what) << manyFiles << 128 << 128;
        QTest::addRow("%s 255", what) << manyFiles << 255 << 255;
        QTest::addRow("%s 256 addresses the first", what) << manyFiles << 256 << 0;
        QTest::addRow("%s 258 addresses the third", what) << manyFiles << 258 << 2;
    }
}

void tst_SmEditor::positionsHaveEightBits()
{
    constexpr int count = 260;
    QFETCH(bool, manyFiles);
    QFETCH(int, selected);
    QFETCH(int, edited);
    g_xmlfiledevices.assign(manyFiles ? count : 1, fileWith("a.xml", {}));
    for (struct_FilenameDevice& file : g_xmlfiledevices)
        file.device.assign(manyFiles ? 1 : count, deviceToEdit());
    const auto syncManagerAt = [manyFiles](int position) -> struct_SM& {
        const auto place = static_cast<std::size_t>(position);
        return g_xmlfiledevices[manyFiles ? place : 0].device[manyFiles ? 0 : place].vSM[0];
    };
    for (int position = 0; position < count; ++position)
        syncManagerAt(position).Attributes.MinSize = static_cast<std::uint16_t>(1000 + position);
    window().DeviceDisplayUpdate();
    QTreeWidgetItem* const item = treeItem(window(), manyFiles ? selected : 0, manyFiles ? 0 : selected);
    deviceTree(window())->scrollToItem(item);
    clickItem(window(), item);
    doubleClickRow(smView(), 0);
    Smeditwin* const editor = openEditor();
    QCOMPARE(fieldText(*editor, "MinSize"), QString::number(1000 + edited));
    typeInto(*editor, "MinSize", "5");
    press(*editor, "SmSavebutton");
    for (int position = 0; position < count; ++position)
        QCOMPARE(int(syncManagerAt(position).Attributes.MinSize), position == edited ? 5 : 1000 + position);
}

void tst_SmEditor::closedEditorStaysAChild()
{
    QPointer<Smeditwin> editor = editRow(0, {deviceToEdit()});
    press(*editor, "SmCancelButton");
    letDeferredDeletionsHappen();
    QVERIFY(!editor.isNull());
    QVERIFY(editor->isHidden());
    QCOMPARE(editor->parentWidget(), &window());
    QVERIFY(editor->findChildren<QWidget*>().isEmpty()); // only its form is given up
    doubleClickRow(smView(), 0); // each use makes a new one
    QCOMPARE(editorsOf<Smeditwin>(window()), 2);
    QVERIFY(openEditor() != editor);
    closeWindow();
    QVERIFY(editor.isNull());
}

void tst_SmEditor::withoutAParent()
{
    g_xmlfiledevices = {fileWith("a.xml", {})};
    g_xmlfiledevices[0].device = {deviceToEdit()};
    currentfileindex = 0;
    currentdeviceindex = 0;
    Smeditwin editor(nullptr);
    QCOMPARE(int(editor.windowFlags()), 0x803);
    QCOMPARE(editor.windowModality(), Qt::WindowModal);
    QCOMPARE(textsOf(editor).join(QString()), QString());
    editor.show();
    press(editor, "SmSavebutton");
    QVERIFY(!editor.isVisible());
    QCOMPARE(minSizeOf(0), 34);
}

void tst_SmEditor::withoutADevice()
{
    show({deviceToEdit()});
    smView().setCurrentIndex(smView().model()->index(0, 0));
    currentdeviceindex = -1;
    Smeditwin editor(&window());
    QCOMPARE(textsOf(editor).join(QString()), QString());
    currentdeviceindex = 0; // too late: the selection at its opening counts
    editor.show();
    press(editor, "SmSavebutton");
    QCOMPARE(minSizeOf(0), 34);
}

static const testMain::Registration<tst_SmEditor, QApplication> registration;
#include "tst_SmEditor.moc"
