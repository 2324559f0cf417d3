// The choices for all devices of a run, the links of modules that go with them, and the devices that go out.
#include "model/deviceType.h"
#include "model/pdoAccess.h"
#include "model/pdoLink.h"
#include "retrace/retracedRuns.h"
#include "retrace/runRetrace.h"
#include "testMain.h"

#include <initializer_list>

using namespace retracedDevices;

namespace {

using Files = std::vector<struct_FilenameDevice>;

struct_EtherCatDevice deviceWithOutput(std::uint32_t product, const std::string& name)
{
    struct_EtherCatDevice device = deviceOf(product, 1, name);
    device.RxPdo.vpdo = {pdo(0x1600, 0, {entry(0x7000, 1, "A")})};
    return device;
}

/// Devices of products 16 and 32 in one file, and of 48 in another one.
Files threeDevices()
{
    return {fileWith({}, {deviceWithOutput(0x10, "A"), deviceWithOutput(0x20, "B")}),
            fileWith({}, {deviceWithOutput(0x30, "C")})};
}

void link(struct_EtherCatDevice& device)
{
    device = clicked(device);
    entriesOf(device.RxPdo.vpdo.at(0)).at(0).Linkto = KTL_PDO_TYPE_DOUT;
}

struct_EtherCatDevice coupler(std::uint32_t product)
{
    struct_EtherCatDevice device = deviceWithOutput(product, "Coupler");
    device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    return device;
}

/// A click takes away the command that its default module has brought in, and nothing brings it back.
struct_EtherCatDevice couplerThatAClickChanges(std::uint32_t product)
{
    struct_EtherCatDevice device = coupler(product);
    device.Slots.vslot = {slot(1, {})};
    device.mMailbox.COE.vinitcmd = {command<struct_moduleInitCmd>(0x8000, 1, 5, "m")};
    return device;
}

struct_FilenameDevice fileOfCouplers(std::vector<struct_EtherCatDevice> devices)
{
    return fileWith({inputModule()}, std::move(devices));
}

void linkModule(struct_FilenameDevice& file)
{
    file.vcommentmodule.at(0).vmodule.at(0).TxPdo.vpdo.at(0).vEntry.at(0).Linkto = KTL_PDO_TYPE_DIN;
}

/// The blocks at these places, in this order.
std::vector<retrace::ExportedBlock> chosen(const std::vector<retrace::ExportedBlock>& blocks,
                                           std::initializer_list<std::size_t> places)
{
    std::vector<retrace::ExportedBlock> some;
    for (const std::size_t place : places)
        some.push_back(blocks.at(place));
    return some;
}

/// Compares what is found for a run, and what an export after these choices gives.
void compareRetraced(const Files& files, const std::vector<retrace::ExportedBlock>& blocks, const QStringList& expected)
{
    const retrace::RetracedRun run = retrace::retracedRun(files, blocks);
    QCOMPARE(linesOf(run.choices), expected);
    QVERIFY(bytesAfter(run.choices, files) == bytesOf(blocks));
}

const QString linkOfA = QStringLiteral("link pdo=0 entry=0 index=1600 object=7000:1 name=A link=-2");
const QString linkOfModule = QStringLiteral("moduleLink ident=2 pdo=0 entry=0 index=1a00 object=6000:1 name=B link=-1");

} // namespace

class tst_RunRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void untouchedDevices();
    static void someDevices();
    static void editedDevices();
    static void blocksWithoutADevice();
    static void deviceTwice();
    static void otherOrder();
    static void twins();
    static void otherRevision();
    static void linksWithASelectedDevice();
    static void linksWithTheFirstSelectedDevice();
    static void linksWithADeviceThatStaysOut();
    static void linksWithADeviceThatCannotBeSelected();
    static void linksWithAnUntouchedDevice();
    static void linksWithADeviceThatAClickChanges();
    static void linksOfTwoFiles();
    static void linksBeforeModules();
    static void places();
};

void tst_RunRetrace::untouchedDevices()
{
    compareRetraced(threeDevices(), exportOfAll(threeDevices()), {});
}

void tst_RunRetrace::someDevices()
{
    const std::vector<retrace::ExportedBlock> all = exportOfAll(threeDevices());
    compareRetraced(threeDevices(), chosen(all, {1}), {"export 0x1:0x20:0x1"});
    compareRetraced(threeDevices(), chosen(all, {0, 2}), {"export 0x1:0x10:0x1", "export 0x1:0x30:0x1"});
}

void tst_RunRetrace::editedDevices()
{
    Files edited = threeDevices();
    link(edited[0].device[1]);
    link(edited[1].device[0]);
    const std::vector<retrace::ExportedBlock> all = exportOfAll(edited);
    const QStringList lines{"device 0x1:0x20:0x1", linkOfA, "device 0x1:0x30:0x1", linkOfA};
    compareRetraced(threeDevices(), all, lines);
    compareRetraced(threeDevices(), chosen(all, {1, 2}),
                    lines + QStringList{"export 0x1:0x20:0x1", "export 0x1:0x30:0x1"});
}

/// Nothing says which devices go out where the descriptions have none of them.
void tst_RunRetrace::blocksWithoutADevice()
{
    const std::vector<retrace::ExportedBlock> unknown =
        exportOfAll({fileWith({}, {deviceWithOutput(0x99, "X")}), fileWith({}, {deviceWithOutput(0x20, "B")})});
    retrace::RetracedRun run = retrace::retracedRun(threeDevices(), chosen(unknown, {0}));
    QCOMPARE(linesOf(run.choices), QStringList());
    QVERIFY(run.devices.at(0).match == retrace::DeviceMatch::None);
    run = retrace::retracedRun(threeDevices(), unknown);
    QCOMPARE(linesOf(run.choices), QStringList("export 0x1:0x20:0x1"));
    QCOMPARE(run.devices.size(), std::size_t{2});
    QVERIFY(run.devices[1].match == retrace::DeviceMatch::Same);
    QVERIFY(linesOf(retrace::retracedRun(threeDevices(), {}).choices).isEmpty());
}

/// Of two blocks of one device the first counts.
void tst_RunRetrace::deviceTwice()
{
    Files edited = threeDevices();
    link(edited[0].device[0]);
    std::vector<retrace::ExportedBlock> blocks = chosen(exportOfAll(edited), {0});
    blocks.push_back(exportOfAll(threeDevices())[0]);
    const retrace::RetracedRun run = retrace::retracedRun(threeDevices(), blocks);
    QCOMPARE(linesOf(run.choices), (QStringList{"device 0x1:0x10:0x1", linkOfA, "export 0x1:0x10:0x1"}));
    QVERIFY(run.devices.at(0).isInOrder);
    QVERIFY(!run.devices.at(1).isInOrder);
}

/// It cannot be made; the choices are those of an export in the order of the files.
void tst_RunRetrace::otherOrder()
{
    Files edited = threeDevices();
    link(edited[0].device[0]);
    const retrace::RetracedRun run = retrace::retracedRun(threeDevices(), chosen(exportOfAll(edited), {1, 0}));
    QCOMPARE(linesOf(run.choices),
             (QStringList{"device 0x1:0x10:0x1", linkOfA, "export 0x1:0x10:0x1", "export 0x1:0x20:0x1"}));
    QVERIFY(run.devices.at(0).isInOrder);
    QVERIFY(!run.devices.at(1).isInOrder);
}

/// An identity that several have names none: numbers count the devices of all files from 1.
void tst_RunRetrace::twins()
{
    const Files files{fileWith({}, {deviceWithOutput(0x10, "A")}),
                      fileWith({}, {deviceWithOutput(0x20, "B"), deviceWithOutput(0x20, "B")})};
    Files edited = files;
    link(edited[1].device[1]);
    const std::vector<retrace::ExportedBlock> all = exportOfAll(edited);
    compareRetraced(files, all, {"device 3", linkOfA});
    compareRetraced(files, chosen(all, {0, 1}), {"export 0x1:0x10:0x1", "export 2"});
    // Also that of the second one alone: the first one can become it too.
    compareRetraced(files, chosen(all, {2}), {"device 2", linkOfA, "export 2"});
}

/// The device is named as the description has it, and nothing is chosen for what only the identity makes different.
void tst_RunRetrace::otherRevision()
{
    Files newer = threeDevices();
    for (struct_EtherCatDevice& device : newer[0].device)
        device.TypeAttributes.Revision_No = 4;
    link(newer[0].device[1]);
    const retrace::RetracedRun run = retrace::retracedRun(threeDevices(), exportOfAll(newer));
    QCOMPARE(linesOf(run.choices), (QStringList{"device 0x1:0x20:0x1", linkOfA}));
    QVERIFY(run.devices.at(0).match == retrace::DeviceMatch::OtherRevision);
    QVERIFY(run.devices.at(1).match == retrace::DeviceMatch::OtherRevision);
    QVERIFY(run.devices.at(2).match == retrace::DeviceMatch::Same);
}

void tst_RunRetrace::linksWithASelectedDevice()
{
    const Files files{fileOfCouplers({coupler(0x10), coupler(0x20)})};
    Files edited = files;
    linkModule(edited[0]);
    link(edited[0].device[1]);
    compareRetraced(files, exportOfAll(edited), {"device 0x1:0x20:0x1", linkOfModule, linkOfA});
}

void tst_RunRetrace::linksWithTheFirstSelectedDevice()
{
    const Files files{fileOfCouplers({coupler(0x10), coupler(0x20), coupler(0x30)})};
    Files edited = files;
    linkModule(edited[0]);
    link(edited[0].device[1]);
    link(edited[0].device[2]);
    compareRetraced(files, exportOfAll(edited),
                    {"device 0x1:0x20:0x1", linkOfModule, linkOfA, "device 0x1:0x30:0x1", linkOfA});
}

/// Nothing of it is in the export.
void tst_RunRetrace::linksWithADeviceThatStaysOut()
{
    const Files files{fileOfCouplers({coupler(0x10), coupler(0x20), coupler(0x30)})};
    Files edited = files;
    linkModule(edited[0]);
    compareRetraced(
        files, chosen(exportOfAll(edited), {0, 2}),
        {"device 0x1:0x20:0x1", "set clicked=0", linkOfModule, "export 0x1:0x10:0x1", "export 0x1:0x30:0x1"});
}

/// A click on it would fail, since its PDO is on a sync manager that it does not declare; without one it takes them.
void tst_RunRetrace::linksWithADeviceThatCannotBeSelected()
{
    struct_EtherCatDevice broken = coupler(0x20);
    broken.RxPdo.vpdo[0].Attributes.SM = 5;
    const Files files{fileOfCouplers({coupler(0x10), broken, coupler(0x30)})};
    struct_FilenameDevice edited = files[0];
    linkModule(edited);
    const std::vector<retrace::ExportedBlock> blocks{exportOf(edited.device[0], edited)};
    compareRetraced(files, blocks, {"device 0x1:0x20:0x1", "set clicked=0", linkOfModule, "export 0x1:0x10:0x1"});
}

/// The first one, without a click.
void tst_RunRetrace::linksWithAnUntouchedDevice()
{
    const Files files{fileOfCouplers({couplerThatAClickChanges(0x10), coupler(0x20), coupler(0x30)})};
    Files edited = files;
    linkModule(edited[0]);
    compareRetraced(files, exportOfAll(edited), {"device 0x1:0x10:0x1", "set clicked=0", linkOfModule});
}

/// A click would do what cannot be undone, so there is none.
void tst_RunRetrace::linksWithADeviceThatAClickChanges()
{
    const Files files{fileOfCouplers({couplerThatAClickChanges(0x10), couplerThatAClickChanges(0x20)})};
    Files edited = files;
    linkModule(edited[0]);
    const std::vector<retrace::ExportedBlock> blocks = exportOfAll(edited);
    const retrace::RetracedRun run = retrace::retracedRun(files, blocks);
    QCOMPARE(linesOf(run.choices), (QStringList{"device 0x1:0x10:0x1", "set clicked=0", linkOfModule}));
    QVERIFY(bytesAfter(run.choices, files) == bytesOf(blocks));
}

/// Each file has modules of its own, and the links come before the choices of other devices.
void tst_RunRetrace::linksOfTwoFiles()
{
    const Files files{fileOfCouplers({coupler(0x10), coupler(0x20)}), fileOfCouplers({coupler(0x30)})};
    Files edited = files;
    linkModule(edited[0]);
    linkModule(edited[1]);
    link(edited[0].device[0]);
    link(edited[1].device[0]);
    compareRetraced(files, exportOfAll(edited),
                    {"device 0x1:0x10:0x1", linkOfModule, linkOfA, "device 0x1:0x30:0x1", linkOfModule, linkOfA});
}

/// A module that is put in brings its link along, though only the block of the other device shows the links.
void tst_RunRetrace::linksBeforeModules()
{
    struct_EtherCatDevice special = deviceWithSlots(KTL_DEVICE_TYPE_Special);
    special.TypeAttributes.Product_Code = 0x10;
    special.TypeAttributes.Revision_No = 1;
    const Files files{fileOfCouplers({special, coupler(0x20)})};
    Files edited = files;
    linkModule(edited[0]);
    struct_EtherCatDevice& device = edited[0].device[0];
    choices::DeviceChoices put;
    put.modules.emplace_back().place = 1;
    put.modules[0].module = choices::ModuleName{2, {}};
    choices::Problems problems;
    DeviceClicks clicks;
    choices::makeDeviceChoices(put, edited[0], device, choices::ModuleLookUp(edited[0]), clicks, problems);
    QCOMPARE(problems.count(), std::size_t{0});
    QCOMPARE(device.mTxPdo.mpdo.at(0).vEntry.at(0).Linkto, std::int32_t{KTL_PDO_TYPE_DIN});
    compareRetraced(files, exportOfAll(edited), {"device 0x1:0x10:0x1", linkOfModule, "module place=1 ident=2"});
}

/// The devices that the choices name, in the order of the choices.
void tst_RunRetrace::places()
{
    const Files files{fileOfCouplers({coupler(0x10), coupler(0x20)}), fileOfCouplers({coupler(0x30), coupler(0x40)})};
    Files edited = files;
    linkModule(edited[1]);
    link(edited[0].device[1]);
    link(edited[1].device[1]);
    const retrace::RetracedRun run = retrace::retracedRun(files, exportOfAll(edited));
    using choices::DevicePosition;
    QCOMPARE(linesOf(run.choices),
             (QStringList{"device 0x1:0x40:0x1", linkOfModule, linkOfA, "device 0x1:0x20:0x1", linkOfA}));
    QVERIFY((run.chosen == std::vector<DevicePosition>{{1, 1}, {0, 1}}));
}

static const testMain::Registration<tst_RunRetrace, testMain::NoApplication> registration;
#include "tst_RunRetrace.moc"
