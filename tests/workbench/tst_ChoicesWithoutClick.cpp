// Edits in the window that reach a device without a click on it, and choices files that give the same bytes.
#include "testMain.h"
#include "workbench/windowAndCommand.h"

class tst_ChoicesWithoutClick : public WindowAndCommandFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    void typeAfterOpeningAnotherFile();
    void minSizeAfterRightClick();
    void typeAfterRightClick();
    void axesAfterDelete();

private:
    /// Right-clicks a device, which selects it and shows nothing of it.
    /// @param answer  to the menu
    void rightClickDevice(int device, int file, const DialogAnswer& answer)
    {
        DialogDriver menu({answer});
        menu.during([&] { rightClickItem(*m_window, treeItem(*m_window, file, device)); });
        QCOMPARE(menu.problem(), QString());
    }
};

/// The tree is filled again and has no current item, so the device gets its new type and nothing that follows from it.
/// The devices of the other file are clicked then, with the list of types at that type.
void tst_ChoicesWithoutClick::typeAfterOpeningAnotherFile()
{
    const QStringList files{samplePath("bus-coupler"), samplePath("io-block")};
    open(files.at(0));
    select(0);
    setDeviceType(5, {pressing(QMessageBox::Ok)});
    open(files.at(1));
    setDeviceType(3);
    compareWithChoices(files, R"({"device": 1, "deviceType": 5, "lastType": 3})");
    setDeviceType(2);
    setDriveAxes(QStringLiteral("9"));
    compareWithChoices(files, R"({"device": 1, "deviceType": 5, "lastType": 2, "driveAxes": 9})");
    select(1, 1);
    compareWithChoices(files, R"({"device": 1, "deviceType": 5, "lastType": 2, "driveAxes": 9}, {"device": 3})");
}

/// The table still shows the sync managers of the other device; the edit is made on the one that is selected, and its
/// lengths are made again. What modules bring in stays as it was loaded.
void tst_ChoicesWithoutClick::minSizeAfterRightClick()
{
    const QStringList files{samplePath("io-block"), samplePath("bus-coupler")};
    open(files.at(0));
    open(files.at(1));
    select(0, 0);
    rightClickDevice(0, 1, leavingTheMenu());
    setMinSize(0, QStringLiteral("77"));
    compareWithChoices(files, R"({"device": 1}, {"device": 3, "clicked": false, "syncManagers": [
                                                                 {"syncManager": 0, "minSize": 77}]})");
}

/// The right click leaves the item current, so a change of type shows the device as a click does.
void tst_ChoicesWithoutClick::typeAfterRightClick()
{
    const QStringList files{samplePath("io-block"), samplePath("bus-coupler")};
    open(files.at(0));
    open(files.at(1));
    select(0, 0);
    rightClickDevice(0, 1, leavingTheMenu());
    setDeviceType(4);
    compareWithChoices(files, R"({"device": 1}, {"device": 3, "deviceType": 4})");
}

/// The single drive moves up to the place of the deleted device, whose field for the axes is still open.
void tst_ChoicesWithoutClick::axesAfterDelete()
{
    const QString start = QStringLiteral("<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices>");
    const QString profile = QStringLiteral("<Profile><ProfileNo>402</ProfileNo></Profile>");
    const QString multi = "<Device><Type ProductCode='1'>A</Type>" + profile
                          + "<Slots><Slot MaxInstances='1'><Name>s</Name></Slot></Slots></Device>";
    const QString single = "<Device><Type ProductCode='2'>B</Type>" + profile + "</Device>";
    const QString end = QStringLiteral("</Devices></Descriptions></EtherCATInfo>");
    openText(QStringLiteral("two.xml"), start + multi + single + end);
    select(0);
    rightClickDevice(0, 0, choosingEntry(QStringLiteral("Delete")));
    QCOMPARE(g_xmlfiledevices.at(0).device.size(), std::size_t(1));
    QCOMPARE(int(g_xmlfiledevices.at(0).device.at(0).m_iDriveAxies), 1);
    QVERIFY(part<QLineEdit>(*m_window, "DriveAxies")->isEnabled());
    setDriveAxes(QStringLiteral("5"));
    QCOMPARE(int(g_xmlfiledevices.at(0).device.at(0).m_iDriveAxies), 0);
    const QString rest = writeFile(QDir(m_folder->path()), QStringLiteral("one.xml"), start + single + end);
    compareWithChoices({rest}, R"({"device": 1, "clicked": false, "driveAxes": 0})");
}

static const testMain::Registration<tst_ChoicesWithoutClick, QApplication> registration;
#include "tst_ChoicesWithoutClick.moc"
