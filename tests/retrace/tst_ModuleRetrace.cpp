// Which modules were put into places and taken out.
// Covers moduleRetrace.cpp, shownModules.cpp.
#include "editing/moduleData.h"
#include "editing/moduleEdits.h"
#include "model/deviceType.h"
#include "model/pdoLink.h"
#include "retrace/choiceLines.h"
#include "retrace/moduleRetrace.h"
#include "retrace/retracedModules.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

struct_FilenameDevice fileWithModules()
{
    return fileWith({outputModule(), inputModule(), commandModule()});
}

/// Has the ident of the output module, another entry and another command.
struct_module twinModule()
{
    struct_module twin = module(1, "Twin");
    twin.RxPdo.vpdo = {pdoOfModule(0x1600, 0, {moduleEntry(0x7000, 2, "T")})};
    twin.Mailbox.COE.vinitcmd = {command<struct_moduleInitCmd>(0x8100, 1, 5, "t")};
    return twin;
}

void put(struct_EtherCatDevice& device, int place, const struct_module& module)
{
    QVERIFY(!insertModule(device, place, module).has_value());
    renewModuleData(device);
}

void take(struct_EtherCatDevice& device, int place)
{
    removeModule(device, place);
    renewModuleData(device);
}

/// Compares the likeliest choices for a device after an edit, and what an export after these choices gives.
void compareRetraced(const struct_EtherCatDevice& device, const struct_FilenameDevice& file, Edit edit,
                     const QStringList& expected)
{
    struct_EtherCatDevice edited = clicked(device);
    edit(edited);
    const retrace::ExportedBlock block = exportOf(edited, file);
    choices::DeviceChoices choices;
    choices.modules = retrace::likelyModules(clicked(device), retrace::namedModulesOf(file), block.content).at(0);
    QCOMPARE(choiceLines::linesOf(choices), expected);
    QVERIFY(bytesAfter(choices, device, file) == block.bytes);
}

void addColumns()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("expected");
}

} // namespace

class tst_ModuleRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void modulesOfOneDevice_data();
    static void modulesOfOneDevice();
    static void placesWithoutSteps_data();
    static void placesWithoutSteps();
    static void defaultModules_data();
    static void defaultModules();
    static void twoDefaultModules_data();
    static void twoDefaultModules();
    static void presets_data();
    static void presets();
    static void numberedDefaultModule_data();
    static void numberedDefaultModule();
    static void hiddenPlace();
    static void twins_data();
    static void twins();
    static void linkedModule();
    static void typesWithoutChoices_data();
    static void typesWithoutChoices();
};

void tst_ModuleRetrace::modulesOfOneDevice_data()
{
    addColumns();
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("output in the first place")
        << Edit([](struct_EtherCatDevice& device) { put(device, 0, outputModule()); })
        << QStringList("module place=0 ident=1");
    QTest::addRow("output in the second place")
        << Edit([](struct_EtherCatDevice& device) { put(device, 1, outputModule()); })
        << QStringList("module place=1 ident=1");
    QTest::addRow("input in the second slot")
        << Edit([](struct_EtherCatDevice& device) { put(device, 2, inputModule()); })
        << QStringList("module place=2 ident=2");
    QTest::addRow("module without PDOs, by its command")
        << Edit([](struct_EtherCatDevice& device) { put(device, 1, commandModule()); })
        << QStringList("module place=1 ident=3");
    QTest::addRow("one module in two places") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, outputModule());
        put(device, 1, outputModule());
    }) << QStringList{"module place=0 ident=1", "module place=1 ident=1"};
    QTest::addRow("each place filled, inputs before outputs") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, inputModule());
        put(device, 1, outputModule());
        put(device, 2, inputModule());
    }) << QStringList{"module place=0 ident=2", "module place=1 ident=1", "module place=2 ident=2"};
    QTest::addRow("commands between PDOs") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, commandModule());
        put(device, 2, inputModule());
    }) << QStringList{"module place=0 ident=3", "module place=2 ident=2"};
}

void tst_ModuleRetrace::modulesOfOneDevice()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    for (const std::uint16_t type : {KTL_DEVICE_TYPE_Special, KTL_DEVICE_TYPE_MultiDriver}) {
        struct_EtherCatDevice device = deviceWithSlots(type);
        compareRetraced(device, fileWithModules(), edit, expected);
        // PDOs of the device itself come before those of its modules.
        device.RxPdo.vpdo = {pdo(0x1500, 0, {entry(0x7F00, 1, "own")})};
        device.TxPdo.vpdo = {pdo(0x1900, 1, {entry(0x6F00, 1, "own")})};
        compareRetraced(device, fileWithModules(), edit, expected);
    }
}

void tst_ModuleRetrace::placesWithoutSteps_data()
{
    addColumns();
    QTest::addRow("output") << Edit([](struct_EtherCatDevice& device) { put(device, 0, outputModule()); })
                            << QStringList("module place=0 ident=1");
    QTest::addRow("output, nothing before it")
        << Edit([](struct_EtherCatDevice& device) { put(device, 1, outputModule()); })
        << QStringList("module place=0 ident=1");
    QTest::addRow("command") << Edit([](struct_EtherCatDevice& device) { put(device, 1, commandModule()); })
                             << QStringList("module place=0 ident=3");
    QTest::addRow("all places filled") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, outputModule());
        put(device, 1, commandModule());
        put(device, 2, inputModule());
    }) << QStringList{"module place=0 ident=1", "module place=1 ident=3", "module place=2 ident=2"};
}

/// Without steps of indexes a module is the same in each place: one after another they take the first ones.
void tst_ModuleRetrace::placesWithoutSteps()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_Special);
    device.Slots.Attributes.SlotPdoIncrement = 0;
    device.Slots.Attributes.SlotIndexIncrement = 0;
    compareRetraced(device, fileWithModules(), edit, expected);
}

void tst_ModuleRetrace::defaultModules_data()
{
    addColumns();
    QTest::addRow("kept") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("taken out") << Edit([](struct_EtherCatDevice& device) { take(device, 0); })
                               << QStringList("module place=0 ident=none");
    QTest::addRow("replaced") << Edit([](struct_EtherCatDevice& device) { put(device, 0, inputModule()); })
                              << QStringList("module place=0 ident=2");
    QTest::addRow("kept, with another one after it")
        << Edit([](struct_EtherCatDevice& device) { put(device, 1, outputModule()); })
        << QStringList("module place=1 ident=1");
    QTest::addRow("moved to the next place") << Edit([](struct_EtherCatDevice& device) {
        take(device, 0);
        put(device, 1, outputModule());
    }) << QStringList{"module place=0 ident=none", "module place=1 ident=1"};
}

void tst_ModuleRetrace::defaultModules()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    for (const std::uint16_t type : {KTL_DEVICE_TYPE_Special, KTL_DEVICE_TYPE_ManualIOBlock}) {
        struct_EtherCatDevice device = deviceWithSlots(type);
        putDefault(device.Slots.vslot[0], 0, outputModule());
        compareRetraced(device, fileWithModules(), edit, expected);
    }
}

void tst_ModuleRetrace::twoDefaultModules_data()
{
    addColumns();
    QTest::addRow("kept") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("the first taken out") << Edit([](struct_EtherCatDevice& device) { take(device, 0); })
                                         << QStringList("module place=0 ident=none");
    QTest::addRow("both taken out") << Edit([](struct_EtherCatDevice& device) {
        take(device, 0);
        take(device, 0);
    }) << QStringList{"module place=0 ident=none", "module place=0 ident=none"};
    QTest::addRow("the first replaced") << Edit([](struct_EtherCatDevice& device) { put(device, 0, commandModule()); })
                                        << QStringList("module place=0 ident=3");
    QTest::addRow("the first taken out, the second replaced") << Edit([](struct_EtherCatDevice& device) {
        take(device, 0);
        put(device, 0, commandModule());
    }) << QStringList{"module place=0 ident=none", "module place=0 ident=3"};
}

/// A module that is put in replaces the first of its place, and one that is taken out is the first.
void tst_ModuleRetrace::twoDefaultModules()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    for (const std::uint16_t type : {KTL_DEVICE_TYPE_Special, KTL_DEVICE_TYPE_ManualIOBlock}) {
        struct_EtherCatDevice device = deviceWithSlots(type);
        putDefault(device.Slots.vslot[0], 0, outputModule());
        putDefault(device.Slots.vslot[0], 0, inputModule());
        compareRetraced(device, fileWithModules(), edit, expected);
    }
}

void tst_ModuleRetrace::presets_data()
{
    addColumns();
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("second place") << Edit([](struct_EtherCatDevice& device) { put(device, 1, outputModule()); })
                                  << QStringList("module place=1 ident=1");
    QTest::addRow("second slot") << Edit([](struct_EtherCatDevice& device) { put(device, 2, inputModule()); })
                                 << QStringList("module place=2 ident=2");
    QTest::addRow("all places") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, inputModule());
        put(device, 1, inputModule());
        put(device, 2, inputModule());
    }) << QStringList{"module place=0 ident=2", "module place=1 ident=2", "module place=2 ident=2"};
    QTest::addRow("module with a command")
        << Edit([](struct_EtherCatDevice& device) { put(device, 1, commandModule()); })
        << QStringList("module place=1 ident=3");
}

/// The block of a coupler says which ident is in which place; here PDOs and commands do not say the place.
void tst_ModuleRetrace::presets()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_ManualIOBlock);
    device.Slots.Attributes.SlotPdoIncrement = 0;
    device.Slots.Attributes.SlotIndexIncrement = 0;
    compareRetraced(device, fileWithModules(), edit, expected);
}

void tst_ModuleRetrace::numberedDefaultModule_data()
{
    addColumns();
    QTest::addRow("nothing") << Edit([](struct_EtherCatDevice&) {}) << QStringList();
    QTest::addRow("module in the place of its slot")
        << Edit([](struct_EtherCatDevice& device) { put(device, 2, inputModule()); })
        << QStringList("module place=2 ident=2");
    QTest::addRow("module in another place")
        << Edit([](struct_EtherCatDevice& device) { put(device, 0, outputModule()); })
        << QStringList("module place=0 ident=1");
}

/// The default module of the second slot bears the number 1, which is a place of the first slot.
void tst_ModuleRetrace::numberedDefaultModule()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    for (const std::uint16_t type : {KTL_DEVICE_TYPE_Special, KTL_DEVICE_TYPE_ManualIOBlock}) {
        struct_EtherCatDevice device = deviceWithSlots(type);
        putDefault(device.Slots.vslot[1], 1, inputModule());
        compareRetraced(device, fileWithModules(), edit, expected);
    }
}

/// The preset shows the default module instead. So it only shows by the number of modules that there is one, and the
/// first of the file will do.
void tst_ModuleRetrace::hiddenPlace()
{
    struct_EtherCatDevice device = deviceWithSlots(KTL_DEVICE_TYPE_ManualIOBlock);
    putDefault(device.Slots.vslot[1], 1, inputModule());
    const Edit edit = [](struct_EtherCatDevice& edited) { put(edited, 1, inputModule()); };
    compareRetraced(device, fileWithModules(), edit, QStringList("module place=1 ident=1"));
}

void tst_ModuleRetrace::twins_data()
{
    addColumns();
    QTest::addRow("the first") << Edit([](struct_EtherCatDevice& device) { put(device, 0, outputModule()); })
                               << QStringList("module place=0 ident=1 row=0");
    QTest::addRow("the second") << Edit([](struct_EtherCatDevice& device) { put(device, 0, twinModule()); })
                                << QStringList("module place=0 ident=1 row=2");
    QTest::addRow("both") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, twinModule());
        put(device, 1, outputModule());
    }) << QStringList{"module place=0 ident=1 row=2", "module place=1 ident=1 row=0"};
    QTest::addRow("beside a module with an ident of its own") << Edit([](struct_EtherCatDevice& device) {
        put(device, 0, inputModule());
        put(device, 1, twinModule());
    }) << QStringList{"module place=0 ident=2", "module place=1 ident=1 row=2"};
}

/// Modules of one ident are told apart by their PDOs and commands, and named with their rows.
void tst_ModuleRetrace::twins()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, expected);
    const struct_FilenameDevice file = fileWith({outputModule(), inputModule(), twinModule()});
    for (const std::uint16_t type : {KTL_DEVICE_TYPE_Special, KTL_DEVICE_TYPE_ManualIOBlock})
        compareRetraced(deviceWithSlots(type), file, edit, expected);
}

/// A link of its entries does not make it another module.
void tst_ModuleRetrace::linkedModule()
{
    const struct_FilenameDevice file = fileWithModules();
    struct_EtherCatDevice edited = clicked(deviceWithSlots(KTL_DEVICE_TYPE_Special));
    put(edited, 1, outputModule());
    edited.mRxPdo.mpdo.at(0).vEntry.at(0).Linkto = KTL_PDO_TYPE_DOUT;
    const auto found = retrace::likelyModules(clicked(deviceWithSlots(KTL_DEVICE_TYPE_Special)),
                                              retrace::namedModulesOf(file), exportOf(edited, file).content);
    QCOMPARE(choiceLines::linesOf(found.at(0)), QStringList("module place=1 ident=1"));
}

void tst_ModuleRetrace::typesWithoutChoices_data()
{
    QTest::addColumn<int>("type");
    QTest::addRow("IO block") << int{KTL_DEVICE_TYPE_IOBlock};
    QTest::addRow("single drive") << int{KTL_DEVICE_TYPE_SingleDriver};
    QTest::addRow("coupler that finds its modules") << int{KTL_DEVICE_TYPE_PnpIOBlock};
    QTest::addRow("no slots") << -1;
}

/// Where nothing can be chosen there is one way, which chooses nothing.
void tst_ModuleRetrace::typesWithoutChoices()
{
    QFETCH(int, type);
    struct_EtherCatDevice device =
        deviceWithSlots(type < 0 ? std::uint16_t{KTL_DEVICE_TYPE_Special} : static_cast<std::uint16_t>(type));
    if (type < 0)
        device.Slots.vslot.clear();
    const struct_FilenameDevice file = fileWithModules();
    struct_EtherCatDevice edited = clicked(deviceWithSlots(KTL_DEVICE_TYPE_Special));
    put(edited, 0, outputModule());
    const auto found = retrace::likelyModules(device, retrace::namedModulesOf(file), exportOf(edited, file).content);
    QCOMPARE(found.size(), std::size_t{1});
    QVERIFY(found[0].empty());
}

static const testMain::Registration<tst_ModuleRetrace, testMain::NoApplication> registration;
#include "tst_ModuleRetrace.moc"
