// List of modules, type, drive axes, operation modes and least sizes of sync managers.
#include "model/deviceType.h"
#include "retrace/choiceLines.h"
#include "retrace/retracedDevices.h"
#include "retrace/settingsRetrace.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

struct_EtherCatDevice deviceOfType(std::uint16_t type, std::uint16_t axes, std::size_t slotCount)
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.m_iDeviceType = type;
    device.m_iDriveAxies = axes;
    device.Slots.vslot.resize(slotCount);
    return device;
}

/// Modes by their names, and a number as AssignActivate of each.
struct_EtherCatDevice deviceWithModes(const QStringList& names, const std::vector<std::uint32_t>& values)
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    for (std::size_t place = 0; place < values.size(); ++place) {
        Struct_DCOpMode& mode = device.vopmode.emplace_back();
        mode.Name = names[static_cast<int>(place)].toStdString();
        mode.AssignActivate = values[place];
    }
    return device;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<std::uint32_t>)

class tst_SettingsRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void types_data();
    static void types();
    static void listOfModules_data();
    static void listOfModules();
    static void blockWithoutSlots();
    static void modes_data();
    static void modes();
    static void otherModes_data();
    static void otherModes();
    static void syncManagers_data();
    static void syncManagers();
    static void fewerSyncManagers();
};

void tst_SettingsRetrace::types_data()
{
    QTest::addColumn<int>("loadedType");
    QTest::addColumn<int>("loadedAxes");
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("axes");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("isMade");
    const int block = KTL_DEVICE_TYPE_IOBlock;
    const int single = KTL_DEVICE_TYPE_SingleDriver;
    const int multi = KTL_DEVICE_TYPE_MultiDriver;
    const int manual = KTL_DEVICE_TYPE_ManualIOBlock;
    const QStringList nothing;
    QTest::addRow("as loaded") << block << 0 << 0 << block << 0 << nothing << true;
    QTest::addRow("single drive as loaded") << single << 1 << 0 << single << 1 << nothing << true;
    QTest::addRow("multi-axis drive as loaded") << multi << 2 << 2 << multi << 2 << nothing << true;
    QTest::addRow("other type") << block << 0 << 2 << manual << 0 << QStringList("set type=5") << true;
    QTest::addRow("type 0") << single << 1 << 0 << block << 0 << QStringList("set type=0") << true;
    QTest::addRow("single drive, with its axis") << block << 0 << 0 << single << 1 << QStringList("set type=1") << true;
    QTest::addRow("multi-axis drive, with the axes of its slots")
        << block << 0 << 3 << multi << 3 << QStringList("set type=2") << true;
    QTest::addRow("multi-axis drive, with other axes")
        << block << 0 << 3 << multi << 7 << QStringList("set type=2 axes=7") << true;
    QTest::addRow("other axes of a multi-axis drive")
        << multi << 2 << 2 << multi << 0 << QStringList("set axes=0") << true;
    // The order of the clicks decides whether these axes are those of the file or those of the type.
    QTest::addRow("single drive without an axis, clicked first")
        << single << 0 << 0 << single << 1 << QStringList("set axes=1") << true;
    QTest::addRow("single drive without an axis, clicked after another one")
        << single << 0 << 0 << single << 0 << QStringList("set axes=0") << true;
    QTest::addRow("axes of a coupler, kept") << manual << 2 << 0 << manual << 2 << QStringList("set axes=2") << true;
    QTest::addRow("axes of a coupler, lost") << manual << 2 << 0 << manual << 0 << QStringList("set axes=0") << true;
    QTest::addRow("multi-axis drive with other axes than slots")
        << multi << 1 << 2 << multi << 1 << QStringList("set axes=1") << true;
    QTest::addRow("axes that a single drive cannot have") << single << 1 << 0 << single << 2 << nothing << false;
    QTest::addRow("axes that a new single drive cannot have")
        << block << 0 << 0 << single << 2 << QStringList("set type=1") << false;
    QTest::addRow("new single drive without an axis")
        << block << 0 << 0 << single << 0 << QStringList("set type=1 axes=0") << true;
    QTest::addRow("axes that were loaded with another type")
        << single << 1 << 0 << block << 1 << QStringList("set type=0") << false;
    QTest::addRow("no type") << block << 0 << 0 << 6 << 0 << nothing << false;
}

void tst_SettingsRetrace::types()
{
    QFETCH(int, loadedType);
    QFETCH(int, loadedAxes);
    QFETCH(int, slotCount);
    QFETCH(int, type);
    QFETCH(int, axes);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice loaded =
        deviceOfType(static_cast<std::uint16_t>(loadedType), static_cast<std::uint16_t>(loadedAxes),
                     static_cast<std::size_t>(slotCount));
    struct_EtherCatDevice edited = loaded;
    edited.m_iDeviceType = static_cast<std::uint16_t>(type);
    edited.m_iDriveAxies = static_cast<std::uint16_t>(axes);
    const retrace::ExportedBlock block = exportOf(edited, {});
    choices::DeviceChoices choices;
    retrace::retraceType(loaded, block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QTEST(bytesAfter(choices, loaded, {}) == block.bytes, "isMade");
}

void tst_SettingsRetrace::listOfModules_data()
{
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<bool>("exported");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("taken as loaded") << true << true << QStringList();
    QTest::addRow("not taken as loaded") << false << false << QStringList();
    QTest::addRow("no longer taken") << true << false << QStringList("set takesModuleList=0");
    QTest::addRow("taken by hand") << false << true << QStringList("set takesModuleList=1");
}

void tst_SettingsRetrace::listOfModules()
{
    QFETCH(bool, loaded);
    QFETCH(bool, exported);
    QFETCH(QStringList, expected);
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_PnpIOBlock, 0, 2);
    device.Slots.Attributes.DownloadModuleIdentList = loaded;
    struct_EtherCatDevice edited = device;
    edited.Slots.Attributes.DownloadModuleIdentList = exported;
    const retrace::ExportedBlock block = exportOf(edited, {});
    choices::DeviceChoices choices;
    retrace::retraceModuleList(device, block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QVERIFY(bytesAfter(choices, device, {}) == block.bytes);
}

/// What the block does not say was not chosen.
void tst_SettingsRetrace::blockWithoutSlots()
{
    struct_EtherCatDevice device = deviceOfType(KTL_DEVICE_TYPE_PnpIOBlock, 0, 0);
    device.Slots.Attributes.DownloadModuleIdentList = true;
    choices::DeviceChoices choices;
    retrace::retraceModuleList(device, exportOf(device, {}).content, choices);
    QCOMPARE(choiceLines::linesOf(choices), QStringList());
}

void tst_SettingsRetrace::modes_data()
{
    using Values = std::vector<std::uint32_t>;
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<Values>("loaded");
    QTest::addColumn<Values>("exported");
    QTest::addColumn<QStringList>("expected");
    const QStringList names{"A", "B", "C", "D"};
    QTest::addRow("no modes") << QStringList() << Values() << Values() << QStringList();
    QTest::addRow("as loaded") << names << Values{1, 2, 3} << Values{1, 2, 3} << QStringList();
    QTest::addRow("second chosen") << names << Values{1, 2, 3} << Values{2, 1, 3} << QStringList("mode B");
    QTest::addRow("third chosen") << names << Values{1, 2, 3} << Values{3, 2, 1} << QStringList("mode C");
    // 1 2 3, then 2 1 3, then 3 1 2.
    QTest::addRow("three have changed places")
        << names << Values{1, 2, 3} << Values{3, 1, 2} << QStringList{"mode B", "mode C"};
    QTest::addRow("three the other way round")
        << names << Values{1, 2, 3} << Values{2, 3, 1} << QStringList{"mode C", "mode B"};
    // 1 2 3 4, then 2 1 3 4, then 3 1 2 4, then 4 1 2 3.
    QTest::addRow("four have changed places")
        << names << Values{1, 2, 3, 4} << Values{4, 1, 2, 3} << QStringList{"mode B", "mode C", "mode D"};
    // 1 2 3, then 3 2 1, then 2 3 1, then 1 3 2: the first one has to help.
    QTest::addRow("two behind the first")
        << names << Values{1, 2, 3} << Values{1, 3, 2} << QStringList{"mode C", "mode B", "mode A"};
    QTest::addRow("namesakes by their places")
        << QStringList{"A", "B", "B"} << Values{1, 2, 3} << Values{3, 2, 1} << QStringList("mode 2");
    QTest::addRow("no names") << QStringList{"", "", ""} << Values{1, 2, 3} << Values{2, 1, 3} << QStringList("mode 1");
    QTest::addRow("equal values stay") << names << Values{1, 1, 2} << Values{1, 1, 2} << QStringList();
    QTest::addRow("of equal values the first is chosen")
        << names << Values{1, 2, 2} << Values{2, 1, 2} << QStringList("mode B");
    QTest::addRow("one of equal values is there already")
        << names << Values{1, 1, 2} << Values{2, 1, 1} << QStringList("mode C");
}

void tst_SettingsRetrace::modes()
{
    QFETCH(QStringList, names);
    QFETCH(std::vector<std::uint32_t>, loaded);
    QFETCH(std::vector<std::uint32_t>, exported);
    QFETCH(QStringList, expected);
    const struct_EtherCatDevice device = deviceWithModes(names, loaded);
    const retrace::ExportedBlock block = exportOf(deviceWithModes(names, exported), {});
    choices::DeviceChoices choices;
    retrace::retraceModes(device, block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QVERIFY(bytesAfter(choices, device, {}) == block.bytes);
}

void tst_SettingsRetrace::otherModes_data()
{
    using Values = std::vector<std::uint32_t>;
    QTest::addColumn<Values>("exported");
    QTest::addRow("other value") << Values{2, 1, 4};
    QTest::addRow("fewer") << Values{2, 1};
    QTest::addRow("more") << Values{2, 1, 3, 4};
    QTest::addRow("one twice") << Values{2, 2, 1};
}

/// Modes that the description does not have cannot be chosen, and then none is.
void tst_SettingsRetrace::otherModes()
{
    QFETCH(std::vector<std::uint32_t>, exported);
    const QStringList names{"A", "B", "C", "D"};
    choices::DeviceChoices choices;
    retrace::retraceModes(deviceWithModes(names, {1, 2, 3}), exportOf(deviceWithModes(names, exported), {}).content,
                          choices);
    QCOMPARE(choiceLines::linesOf(choices), QStringList());
}

void tst_SettingsRetrace::syncManagers_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("first") << Edit([](struct_EtherCatDevice& device) { device.vSM[0].Attributes.MinSize = 8; })
                           << QStringList("sm row=0 name=MBoxOut minSize=8");
    QTest::addRow("after a virtual one") << Edit([](struct_EtherCatDevice& device) {
        device.vSM[2].Attributes.MinSize = 9;
    }) << QStringList("sm row=2 name=Inputs minSize=9");
    QTest::addRow("a virtual one, which does not go out")
        << Edit([](struct_EtherCatDevice& device) { device.vSM[1].Attributes.MinSize = 9; }) << QStringList();
    QTest::addRow("both, one with none") << Edit([](struct_EtherCatDevice& device) {
        device.vSM[0].Attributes.MinSize = 0;
        device.vSM[2].Attributes.MinSize = 65535;
    }) << QStringList{"sm row=0 name=MBoxOut minSize=0", "sm row=2 name=Inputs minSize=65535"};
}

void tst_SettingsRetrace::syncManagers()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    struct_EtherCatDevice device;
    device.vSM = {syncManager("MBoxOut", 1), syncManager("Outputs", 3), syncManager("Inputs", 4)};
    device.vSM[0].Attributes.MinSize = 32;
    device.vSM[1].Attributes.m_Virtual = 1;
    struct_EtherCatDevice edited = device;
    edit(edited);
    const retrace::ExportedBlock block = exportOf(edited, {});
    choices::DeviceChoices choices;
    retrace::retraceSyncManagers(device, block.content, choices);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QVERIFY(bytesAfter(choices, device, {}) == block.bytes);
}

/// Sync managers that the block does not have stay as they are.
void tst_SettingsRetrace::fewerSyncManagers()
{
    struct_EtherCatDevice edited = deviceWithSyncManagers();
    edited.vSM.resize(1);
    edited.vSM[0].Attributes.MinSize = 8;
    choices::DeviceChoices choices;
    retrace::retraceSyncManagers(deviceWithSyncManagers(), exportOf(edited, {}).content, choices);
    QCOMPARE(choiceLines::linesOf(choices), QStringList("sm row=0 name=Outputs minSize=8"));
}

static const testMain::Registration<tst_SettingsRetrace, testMain::NoApplication> registration;
#include "tst_SettingsRetrace.moc"
