// Which command the editor of startup commands works on, and what becomes of it once it is closed.
#include "testMain.h"
#include "workbench/startupEditorParts.h"
#include "workbench/tabFixture.h"

#include <QPointer>

#include <cstdint>

class tst_StartupEditorTarget : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(StartupTab); }
    void cleanup() { end(); }
    void rowIsThatOfTheOpening();
    static void staleTarget_data();
    void staleTarget();
    void rowPastTheLists();
    static void positionsHaveEightBits_data();
    void positionsHaveEightBits();
    void closedEditorStaysAChild();
    static void withoutAParent();

private:
    QTableView& commands() { return table(window(), "StartupView"); }
    Startupeditwin* openEditor() { return openEditorIn<Startupeditwin>(window()); }
    /// Shows devices and opens the editor of a row of the first one.
    Startupeditwin* editRow(int row, const std::vector<struct_EtherCatDevice>& devices);
};

Startupeditwin* tst_StartupEditorTarget::editRow(int row, const std::vector<struct_EtherCatDevice>& devices)
{
    show(devices);
    doubleClickRow(commands(), row);
    return openEditor();
}

void tst_StartupEditorTarget::rowIsThatOfTheOpening()
{
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit(), deviceToEdit()});
    commands().setCurrentIndex(commands().model()->index(moduleRow, 0));
    currentdeviceindex = 1;
    typeInto(*editor, "Data", "12");
    press(*editor, "StartupSavebutton");
    QCOMPARE(coeCommand().Data, 12U);
    QCOMPARE(moduleCommand().Data, 3U);
    QCOMPARE(coeCommand(1).Data, 3U);
}

void tst_StartupEditorTarget::staleTarget_data()
{
    QTest::addColumn<QString>("gone");
    QTest::addRow("command") << "command";
    QTest::addRow("device") << "device";
    QTest::addRow("file") << "file";
}

void tst_StartupEditorTarget::staleTarget()
{
    QFETCH(QString, gone);
    Startupeditwin* const editor = editRow(moduleRow, {deviceToEdit()});
    typeInto(*editor, "Data", "12");
    if (gone == "command")
        loadedDevice().mMailbox.COE.vinitcmd.clear();
    else if (gone == "device")
        g_xmlfiledevices[0].device.clear();
    else
        g_xmlfiledevices.clear();
    press(*editor, "StartupSavebutton");
    QVERIFY(!editor->isVisible());
    if (gone == "command") {
        QCOMPARE(coeCommand().Data, 3U);
        QCOMPARE(eoeCommand().Data, 3U);
    }
}

void tst_StartupEditorTarget::rowPastTheLists()
{
    show({deviceToEdit()});
    loadedDevice().mMailbox.COE.vinitcmd.clear();
    doubleClickRow(commands(), moduleRow);
    Startupeditwin* const editor = openEditor();
    QVERIFY(editor != nullptr);
    QCOMPARE(textsOf(*editor).join(QString()), QString());
    press(*editor, "StartupSavebutton");
    QVERIFY(!editor->isVisible());
    QCOMPARE(coeCommand().Data, 3U);
    QCOMPARE(eoeCommand().Data, 3U);
}

void tst_StartupEditorTarget::positionsHaveEightBits_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("edited");
    QTest::addRow("device 255") << 255 << 255;
    QTest::addRow("device 257 addresses the second") << 257 << 1;
}

void tst_StartupEditorTarget::positionsHaveEightBits()
{
    constexpr std::size_t count = 258;
    QFETCH(int, selected);
    QFETCH(int, edited);
    std::vector<struct_EtherCatDevice> devices(count, deviceToEdit());
    for (std::size_t position = 0; position < count; ++position)
        devices[position].Mailbox.COE.InitCmd.vinitcmd[0].Data = static_cast<std::uint32_t>(1000 + position);
    show(std::move(devices));
    clickDevice(selected);
    doubleClickRow(commands(), coeRow);
    Startupeditwin* const editor = openEditor();
    QCOMPARE(fieldText(*editor, "Data"), QString::number(1000 + edited));
    typeInto(*editor, "Data", "5");
    press(*editor, "StartupSavebutton");
    for (std::size_t position = 0; position < count; ++position)
        QCOMPARE(coeCommand(position).Data, position == std::size_t(edited) ? 5U : unsigned(1000 + position));
}

void tst_StartupEditorTarget::closedEditorStaysAChild()
{
    QPointer<Startupeditwin> editor = editRow(coeRow, {deviceToEdit()});
    press(*editor, "StartupCancelButton");
    letDeferredDeletionsHappen();
    QVERIFY(!editor.isNull());
    QVERIFY(editor->isHidden());
    QCOMPARE(editor->parentWidget(), &window());
    QVERIFY(editor->findChildren<QWidget*>().isEmpty()); // only its form is given up
    doubleClickRow(commands(), coeRow); // each use makes a new one
    QCOMPARE(editorsOf<Startupeditwin>(window()), 2);
    closeWindow();
    QVERIFY(editor.isNull());
}

void tst_StartupEditorTarget::withoutAParent()
{
    g_xmlfiledevices = {fileWith("a.xml", {})};
    g_xmlfiledevices[0].device = {deviceToEdit()};
    currentfileindex = 0;
    currentdeviceindex = 0;
    Startupeditwin editor(nullptr);
    QCOMPARE(int(editor.windowFlags()), 0x803);
    QCOMPARE(editor.windowModality(), Qt::WindowModal);
    QCOMPARE(textsOf(editor).join(QString()), QString());
    editor.show();
    press(editor, "StartupSavebutton");
    QVERIFY(!editor.isVisible());
    QCOMPARE(coeCommand().Data, 3U);
}

static const testMain::Registration<tst_StartupEditorTarget, QApplication> registration;
#include "tst_StartupEditorTarget.moc"
