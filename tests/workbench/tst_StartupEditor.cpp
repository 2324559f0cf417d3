// The editor of a startup command: its form, what it saves, and the ways out of it.
// Covers startupeditwin.cpp.
#include "testMain.h"
#include "workbench/startupeditwin.h" // first, so that the header compiles on its own

#include "workbench/startupEditorParts.h"
#include "workbench/tabFixture.h"

#include <QGroupBox>
#include <QSignalSpy>

#include <cstdint>
#include <string>

class tst_StartupEditor : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(StartupTab); }
    void cleanup() { end(); }
    void form();
    static void values_data();
    void values();
    static void numberForms_data();
    void numberForms();
    static void widthOfSubIndex_data();
    void widthOfSubIndex();
    static void threeLists_data();
    void threeLists();
    void textOfTheValueIsRebuilt();
    static void theRestStays_data();
    void theRestStays();
    static void wayOut_data();
    void wayOut();
    void closedByTheWindowSystem();
    void tabOrder();

private:
    QTableView& commands() { return table(window(), "StartupView"); }
    Startupeditwin* openEditor() { return openEditorIn<Startupeditwin>(window()); }
    /// Shows devices and opens the editor of a row of the first one.
    Startupeditwin* editRow(int row, const std::vector<struct_EtherCatDevice>& devices);
};

Startupeditwin* tst_StartupEditor::editRow(int row, const std::vector<struct_EtherCatDevice>& devices)
{
    show(devices);
    doubleClickRow(commands(), row);
    return openEditor();
}

void tst_StartupEditor::form()
{
    const Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->findChild<QGroupBox*>()->title(), QString("Startup"));
    QCOMPARE(labelTexts(*editor, startupFields),
             QStringList({"Transition:", "Index:", "SubIndex:", "Datalen:", "Data:", "Comment:", "bIfCA:"}));
    QCOMPARE(enabledFields(*editor, startupFields), QStringList({"Index", "SubIndex", "Datalen", "Data"}));
    QCOMPARE(part<QPushButton>(*editor, "StartupSavebutton")->text(), QString("Save"));
    QCOMPARE(part<QPushButton>(*editor, "StartupCancelButton")->text(), QString("Cancel"));
    QVERIFY(window().geometry().contains(editor->geometry().topLeft())); // over the window, not beside it
}

void tst_StartupEditor::values_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("shown");
    QTest::addRow("CoE") << coeRow << QStringList{"PS", "0x6060", "1", "2", "3", "of CoE", "1"};
    QTest::addRow("EoE") << eoeRow << QStringList{"PS", "0x6061", "1", "2", "3", "of EoE", "1"};
    QTest::addRow("module") << moduleRow << QStringList{"PS", "0x6062", "1", "2", "3", "of a module", "1"};
}

void tst_StartupEditor::values()
{
    QFETCH(int, row);
    const Startupeditwin* const editor = editRow(row, {deviceToEdit()});
    QTEST(textsOf(*editor), "shown");
}

void tst_StartupEditor::numberForms_data()
{
    QTest::addColumn<QString>("typed"); // into all four fields
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<unsigned int>("subIndex");
    QTest::addColumn<unsigned int>("length");
    QTest::addColumn<unsigned int>("value");
    QTest::addColumn<QString>("text");
    QTest::addRow("decimal") << "100" << 100U << 100U << 100U << 100U << "0x64";
    QTest::addRow("nothing") << "0" << 0U << 0U << 0U << 0U << "0x00";
    QTest::addRow("hexadecimal: the index only") << "0x1C12" << 0x1C12U << 0U << 0U << 0U << "0x00";
    QTest::addRow("mark of ESI files") << "#x1c13" << 0x1C13U << 0U << 0U << 0U << "0x00";
    QTest::addRow("digits of a hexadecimal number") << "1A" << 26U << 0U << 0U << 0U << "0x00";
    QTest::addRow("a word that means 1") << "true" << 1U << 0U << 0U << 0U << "0x00";
    QTest::addRow("no number") << "xyz" << 0U << 0U << 0U << 0U << "0x00";
    QTest::addRow("empty") << "" << 0U << 0U << 0U << 0U << "0x00";
    QTest::addRow("negative") << "-1" << 0U << 0U << 0U << 0U << "0x00";
    // 70000 is 0x11170: its low 16 bits are 4464, its low 8 bits 112.
    QTest::addRow("cut to the widths of the fields") << "70000" << 4464U << 112U << 4464U << 70000U << "0x11170";
    QTest::addRow("greatest of 32 bits") << "4294967295" << 65535U << 255U << 65535U << 4294967295U << "0xffffffff";
    QTest::addRow("more than 32 bits") << "4294967296" << 0U << 0U << 0U << 0U << "0x00";
}

void tst_StartupEditor::numberForms()
{
    QFETCH(QString, typed);
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    for (const char* field : {"Index", "SubIndex", "Datalen", "Data"})
        typeInto(*editor, field, typed);
    QCOMPARE(int(coeCommand().Index), 0x6060); // not before it is saved
    press(*editor, "StartupSavebutton");
    const struct_InitCmd& saved = coeCommand();
    QTEST(unsigned(saved.Index), "index");
    QTEST(unsigned(saved.SubIndex), "subIndex");
    QTEST(unsigned(saved.DataBytes), "length");
    QTEST(unsigned(saved.Data), "value");
    QTEST(QString::fromStdString(saved.strData), "text");
}

void tst_StartupEditor::widthOfSubIndex_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("stored");
    QTest::addRow("of the device: 8 bits") << coeRow << 300 - 256;
    QTest::addRow("of a module: 16 bits") << moduleRow << 300;
}

void tst_StartupEditor::widthOfSubIndex()
{
    QFETCH(int, row);
    Startupeditwin* const editor = editRow(row, {deviceToEdit()});
    typeInto(*editor, "SubIndex", "300");
    press(*editor, "StartupSavebutton");
    QTEST(row == coeRow ? int(coeCommand().SubIndex) : int(moduleCommand().SubIndex), "stored");
}

void tst_StartupEditor::threeLists_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("indexes");
    QTest::addRow("CoE") << coeRow << QStringList{"0x7000", "0x6061", "0x6062"};
    QTest::addRow("EoE") << eoeRow << QStringList{"0x6060", "0x7000", "0x6062"};
    QTest::addRow("module") << moduleRow << QStringList{"0x6060", "0x6061", "0x7000"};
}

void tst_StartupEditor::threeLists()
{
    QFETCH(int, row);
    Startupeditwin* const editor = editRow(row, {deviceToEdit()});
    const QStringList typed{"0x7000", "12", "4", "99"};
    const char* const names[] = {"Index", "SubIndex", "Datalen", "Data"};
    for (int field = 0; field < 4; ++field)
        typeInto(*editor, names[field], typed[field]);
    press(*editor, "StartupSavebutton");
    const QStringList indexes{"0x" + QString::number(coeCommand().Index, 16),
                              "0x" + QString::number(eoeCommand().Index, 16),
                              "0x" + QString::number(moduleCommand().indexAttributes.index, 16)};
    QTEST(indexes, "indexes");
    const auto valuesOf = [](const auto& command) {
        return QStringList{QString::number(command.SubIndex), QString::number(command.DataBytes),
                           QString::number(command.Data), QString::fromStdString(command.strData)};
    };
    const QVector<QStringList> found{valuesOf(coeCommand()), valuesOf(eoeCommand()), valuesOf(moduleCommand())};
    for (int each = 0; each < 3; ++each)
        QCOMPARE(found[each],
                 each == row ? QStringList({"12", "4", "99", "0x63"}) : QStringList({"1", "2", "3", "as given"}));
}

void tst_StartupEditor::textOfTheValueIsRebuilt()
{
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    QCOMPARE(allTexts(commands())[coeRow][4], QString("as given"));
    press(*editor, "StartupSavebutton"); // with nothing changed
    QCOMPARE(coeCommand().Data, 3U);
    QCOMPARE(coeCommand().strData, std::string("0x3"));
    QCOMPARE(allTexts(commands())[coeRow][4], QString("0x3"));
}

void tst_StartupEditor::theRestStays_data()
{
    QTest::addColumn<int>("row");
    QTest::addRow("CoE") << coeRow;
    QTest::addRow("EoE") << eoeRow;
    QTest::addRow("module") << moduleRow;
}

void tst_StartupEditor::theRestStays()
{
    QFETCH(int, row);
    Startupeditwin* const editor = editRow(row, {deviceToEdit()});
    for (const QString& field : startupFields)
        part<QLineEdit>(*editor, field.toLatin1().constData())->setText("5");
    press(*editor, "StartupSavebutton");
    const auto check = [](const auto& command, const std::string& comment) {
        QCOMPARE(int(command.DataBytes), 5);
        QCOMPARE(command.Transition, PS);
        QCOMPARE(command.Comment, comment);
        QCOMPARE(int(command.bIfCA), 1);
        QCOMPARE(command.m_CADataList, std::vector<unsigned int>({7, 8}));
    };
    if (row == coeRow)
        check(coeCommand(), "of CoE");
    else if (row == eoeRow)
        check(eoeCommand(), "of EoE");
    else
        check(moduleCommand(), "of a module");
    QCOMPARE(moduleCommand().Instances, 4);
}

void tst_StartupEditor::wayOut_data()
{
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key"); // 0: a click on what has the focus
    QTest::addColumn<bool>("isSaved");
    QTest::addRow("click on Save") << "StartupSavebutton" << 0 << true;
    QTest::addRow("click on Cancel") << "StartupCancelButton" << 0 << false;
    QTest::addRow("Esc in a field") << "Data" << int(Qt::Key_Escape) << false;
    QTest::addRow("Esc on Save") << "StartupSavebutton" << int(Qt::Key_Escape) << false;
    QTest::addRow("Return in a field") << "Index" << int(Qt::Key_Return) << true;
    QTest::addRow("Enter in a field") << "Data" << int(Qt::Key_Enter) << true;
    QTest::addRow("Return on Save") << "StartupSavebutton" << int(Qt::Key_Return) << true;
    QTest::addRow("Return on Cancel") << "StartupCancelButton" << int(Qt::Key_Return) << false;
}

void tst_StartupEditor::wayOut()
{
    QFETCH(QString, focus);
    QFETCH(int, key);
    QFETCH(bool, isSaved);
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    QSignalSpy replies(editor, &Startupeditwin::StartupsendTextToParent);
    typeInto(*editor, "Data", "12");
    auto* const focused = editor->findChild<QWidget*>(focus);
    focused->setFocus();
    if (key == 0)
        QTest::mouseClick(focused, Qt::LeftButton);
    else
        QTest::keyClick(focused, static_cast<Qt::Key>(key));
    QCOMPARE(coeCommand().Data, isSaved ? 12U : 3U);
    QVERIFY(!editor->isVisible());
    QCOMPARE(replies.count(), isSaved ? 1 : 2); // a cancel tells it twice
    for (const QList<QVariant>& reply : qAsConst(replies))
        QCOMPARE(reply[0].toString(), QString("Hello parent"));
    QCOMPARE(currentRowOf(commands()), -1); // the window has refilled the table
}

void tst_StartupEditor::closedByTheWindowSystem()
{
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    QSignalSpy replies(editor, &Startupeditwin::StartupsendTextToParent);
    typeInto(*editor, "Data", "12"); // no other key closes it
    QVERIFY(editor->isVisible());
    QCOMPARE(replies.count(), 0);
    QVERIFY(editor->close());
    QCOMPARE(replies.count(), 1);
    QCOMPARE(coeCommand().Data, 3U);
}

void tst_StartupEditor::tabOrder()
{
    Startupeditwin* const editor = editRow(coeRow, {deviceToEdit()});
    part<QLineEdit>(*editor, "Index")->setFocus();
    QStringList visited;
    for (int step = 0; step < 6; ++step) {
        visited.append(editor->focusWidget()->objectName());
        QTest::keyClick(editor->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited,
             QStringList({"Index", "SubIndex", "Datalen", "Data", "StartupSavebutton", "StartupCancelButton"}));
    QCOMPARE(editor->focusWidget()->objectName(), QString("Index")); // what cannot be changed is passed over
}

static const testMain::Registration<tst_StartupEditor, QApplication> registration;
#include "tst_StartupEditor.moc"
