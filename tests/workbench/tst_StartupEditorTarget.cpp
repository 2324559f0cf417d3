// Which command the editor of startup commands works on, and what becomes of it once it is closed.
#include "testMain.h"
#include "workbench/deviceWindow.h"
#include "workbench/startupEditorParts.h"

#include <QPointer>

#include <cstdint>
#include <memory>

class tst_StartupEditorTarget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void rowIsThatOfTheOpening();
    static void staleTarget_data();
    void staleTarget();
    void rowPastTheLists();
    static void positionsHaveEightBits_data();
    void positionsHaveEightBits();
    void closedEditorStaysAChild();
    static void withoutAParent();

private:
    QTableView* view() { return m_window->find<QTableView>("StartupView"); }
    Startupeditwin* openEditor() { return openEditorIn<Startupeditwin>(m_window->window); }
    /// Shows devices and opens the editor of a row of the first one.
    Startupeditwin* editRow(int row, const std::vector<struct_EtherCatDevice>& devices);

    std::unique_ptr<DeviceWindow> m_window;
};

void tst_StartupEditorTarget::init()
{
    m_window = std::make_unique<DeviceWindow>();
    showTab(m_window->window, 2);
}

void tst_StartupEditorTarget::cleanup()
{
    m_window.reset();
}

Startupeditwin* tst_StartupEditorTarget::editRow(int row, const std::vector<struct_EtherCatDevice>& devices)
{
    m_window->show(devices);
    doubleClickRow(view(), row);
    return openEditor();
}

void tst_StartupEditorTarget::rowIsThatOfTheOpening()
{
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit(), deviceToEdit()});
    view()->setCurrentIndex(view()->model()->index(moduleRow, 0));
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
        DeviceWindow::device().mMailbox.COE.vinitcmd.clear();
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
    m_window->show({deviceToEdit()});
    DeviceWindow::device().mMailbox.COE.vinitcmd.clear();
    doubleClickRow(view(), moduleRow);
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
    m_window->show(std::move(devices));
    m_window->click(selected);
    doubleClickRow(view(), coeRow);
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
    QCOMPARE(editor->parentWidget(), m_window->widget());
    QVERIFY(editor->findChildren<QWidget*>().isEmpty()); // only its form is given up
    doubleClickRow(view(), coeRow); // each use makes a new one
    QCOMPARE(editorsOf<Startupeditwin>(m_window->window), 2);
    m_window.reset();
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
