// What was done to one device: nothing, a click, or choices of all kinds.
// Covers deviceRetrace.cpp, unusualSettings.cpp.
#include "editing/moduleData.h"
#include "editing/moduleEdits.h"
#include "editing/pdoEdits.h"
#include "model/deviceType.h"
#include "model/pdoAccess.h"
#include "model/pdoLink.h"
#include "retrace/choiceLines.h"
#include "retrace/retracedModules.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

/// A click computes the length of the outputs, which the device was loaded without.
struct_EtherCatDevice deviceThatAClickChanges()
{
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_Special);
    device.RxPdo.vpdo = {pdo(0x1500, 0, {entry(0x7F00, 1, "own")})};
    device.RxPdo.vpdo[0].Size = 1;
    device.vopmode.resize(2);
    device.vopmode[0].AssignActivate = 0x300;
    device.Mailbox.COE.InitCmd.vinitcmd = {command<struct_InitCmd>(0x2000, 1, 5, "c0")};
    return device;
}

struct_FilenameDevice fileWithModules()
{
    return fileWith({outputModule(), inputModule(), commandModule()});
}

retrace::RetracedDevice retraced(const struct_EtherCatDevice& device, const retrace::ExportedBlock& block)
{
    struct_FilenameDevice file = fileWithModules();
    return retrace::DeviceRetrace(file).retraced(device, block);
}

void put(struct_EtherCatDevice& device, int place, const struct_module& module)
{
    QVERIFY(!insertModule(device, place, module).has_value());
    renewModuleData(device);
}

} // namespace

class tst_DeviceRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void untouched();
    static void clickedOnly();
    static void untouchedAsSelected();
    static void edits_data();
    static void edits();
    static void notExact();
    static void missingSyncManager();
    static void missingSyncManagerOfAModule();
    static void fileWithoutDevices();
};

/// Without a click, since none is needed.
void tst_DeviceRetrace::untouched()
{
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    const retrace::RetracedDevice found = retraced(device, exportOf(device, fileWithModules()));
    QVERIFY(!found.isSelected);
    QVERIFY(found.isExact);
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList());
}

void tst_DeviceRetrace::clickedOnly()
{
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    const retrace::ExportedBlock block = exportOf(clicked(device), fileWithModules());
    QVERIFY(block.bytes != exportOf(device, fileWithModules()).bytes);
    const retrace::RetracedDevice found = retraced(device, block);
    QVERIFY(found.isSelected);
    QVERIFY(found.isExact);
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList());
}

/// A click would make another length, and nothing takes that back: there was none.
void tst_DeviceRetrace::untouchedAsSelected()
{
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    struct_FilenameDevice file = fileWithModules();
    const retrace::RetracedDevice found =
        retrace::DeviceRetrace(file).retracedAsSelected(device, exportOf(device, file));
    QVERIFY(found.isSelected);
    QVERIFY(found.isExact);
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList("set clicked=0"));
}

void tst_DeviceRetrace::edits_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("type without modules") << Edit([](struct_EtherCatDevice& device) {
        device.m_iDeviceType = KTL_DEVICE_TYPE_SingleDriver;
        device.m_iDriveAxies = 1;
    }) << QStringList("set type=1");
    QTest::addRow("type, then modules") << Edit([](struct_EtherCatDevice& device) {
        device.m_iDeviceType = KTL_DEVICE_TYPE_MultiDriver;
        device.m_iDriveAxies = 2; // as many as slots
        put(device, 0, outputModule());
    }) << QStringList{"set type=2", "module place=0 ident=1"};
    QTest::addRow("module, and a link of its entry") << Edit([](struct_EtherCatDevice& device) {
        put(device, 1, outputModule());
        device.mRxPdo.mpdo.at(0).vEntry.at(0).Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList{"module place=1 ident=1", "link pdo=1 entry=0 index=1610 object=7000:1 name=A link=-2"};
    QTest::addRow("module, and an entry added to its PDO") << Edit([](struct_EtherCatDevice& device) {
        put(device, 1, outputModule());
        insertPdoEntry(device, 1, 0);
    }) << QStringList{"module place=1 ident=1", "addEntry pdo=1 entry=0 index=1610 object=7000:1 name=A"};
    QTest::addRow("changed command of a module without PDOs")
        << Edit([](struct_EtherCatDevice& device) {
               put(device, 0, inputModule());
               put(device, 1, commandModule());
               device.mMailbox.COE.vinitcmd.at(0).Data = 9;
           })
        << QStringList{"module place=0 ident=2", "module place=1 ident=3",
                       "changeCommand row=1 was=8010 sub=1 comment=m bytes=2 data=9"};
    QTest::addRow("all kinds") << Edit([](struct_EtherCatDevice& device) {
        device.Slots.Attributes.DownloadModuleIdentList = true;
        device.m_iDeviceType = KTL_DEVICE_TYPE_MultiDriver;
        device.m_iDriveAxies = 7;
        std::swap(device.vopmode[0], device.vopmode[1]);
        put(device, 2, inputModule());
        device.vSM[0].Attributes.MinSize = 3;
        device.RxPdo.vpdo[0].Entry.vPdo_c[0].Linkto = KTL_PDO_TYPE_I16_AOUT;
        insertPdoEntry(device, 0, 0);
        device.Mailbox.COE.InitCmd.vinitcmd[0].Data = 6;
    })
                               << QStringList{"set takesModuleList=1 type=2 axes=7",
                                              "mode 1",
                                              "module place=2 ident=2",
                                              "sm row=0 name=Outputs minSize=3",
                                              "link pdo=0 entry=0 index=1500 object=7f00:1 name=own link=-7",
                                              "addEntry pdo=0 entry=0 index=1500 object=7f00:1 name=own",
                                              "changeCommand row=0 was=2000 sub=1 comment=c0 bytes=2 data=6"};
}

void tst_DeviceRetrace::edits()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    struct_EtherCatDevice edited = clicked(device);
    edit(edited);
    const retrace::ExportedBlock block = exportOf(edited, fileWithModules());
    const retrace::RetracedDevice found = retraced(device, block);
    QCOMPARE(choiceLines::linesOf(found.choices), expected);
    QVERIFY(found.isSelected);
    QVERIFY(found.isExact);
    QVERIFY(bytesAfter(found.choices, device, fileWithModules()) == block.bytes);
}

/// What can be chosen is chosen, also where something else remains.
void tst_DeviceRetrace::notExact()
{
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    struct_EtherCatDevice edited = clicked(device);
    put(edited, 0, outputModule());
    edited.vSM[0].Attributes.StartAddress = 0x1000;
    const retrace::RetracedDevice found = retraced(device, exportOf(edited, fileWithModules()));
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList("module place=0 ident=1"));
    QVERIFY(found.isSelected);
    QVERIFY(!found.isExact);
}

/// It cannot be exported, so it was not.
void tst_DeviceRetrace::missingSyncManager()
{
    struct_EtherCatDevice device = deviceThatAClickChanges();
    const retrace::ExportedBlock block = exportOf(device, fileWithModules());
    device.RxPdo.vpdo[0].Attributes.SM = 5;
    struct_FilenameDevice file = fileWithModules();
    const retrace::DeviceRetrace devices(file);
    const retrace::RetracedDevice found = devices.retraced(device, block);
    QVERIFY(!found.isSelected);
    QVERIFY(!found.isExact);
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList());
    const retrace::RetracedDevice selected = devices.retracedAsSelected(device, block);
    QVERIFY(selected.isSelected);
    QVERIFY(!selected.isExact);
    QCOMPARE(choiceLines::linesOf(selected.choices), QStringList());
}

/// A module of the file that no one could put in does not keep the others from being found.
void tst_DeviceRetrace::missingSyncManagerOfAModule()
{
    struct_module broken = outputModule();
    broken.TypeAttributes.ModuleIdent = 4;
    broken.RxPdo.vpdo[0].Attributes.SM = 5;
    struct_FilenameDevice file = fileWith({outputModule(), inputModule(), commandModule(), broken});
    const struct_EtherCatDevice device = deviceThatAClickChanges();
    struct_EtherCatDevice edited = clicked(device);
    put(edited, 0, outputModule());
    const retrace::RetracedDevice found = retrace::DeviceRetrace(file).retraced(device, exportOf(edited, file));
    QCOMPARE(choiceLines::linesOf(found.choices), QStringList("module place=0 ident=1"));
    QVERIFY(found.isExact);
}

void tst_DeviceRetrace::fileWithoutDevices()
{
    const struct_FilenameDevice file = fileWith({outputModule()}, {deviceThatAClickChanges()});
    const struct_FilenameDevice without = retrace::withoutDevices(file);
    QCOMPARE(without.xmlfilepath, std::string("test.xml"));
    QCOMPARE(without.Vendor_Id, std::uint32_t{1});
    QCOMPARE(without.vcommentmodule.at(0).vmodule.at(0).Name, std::string("Output"));
    QVERIFY(without.device.empty());
}

static const testMain::Registration<tst_DeviceRetrace, testMain::NoApplication> registration;
#include "tst_DeviceRetrace.moc"
