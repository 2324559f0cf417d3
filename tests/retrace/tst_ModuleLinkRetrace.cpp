// Links of the modules of a file, and their names.
// Covers moduleLinkRetrace.cpp, moduleNames.cpp.
#include "model/deviceType.h"
#include "model/pdoAccess.h"
#include "model/pdoLink.h"
#include "retrace/choiceLines.h"
#include "retrace/moduleLinkRetrace.h"
#include "retrace/retracedModules.h"
#include "testMain.h"

using namespace retracedDevices;

namespace {

/// A module with outputs in rows 0 and 2, one that is on no sync manager in row 1, and an input in row 3; and two
/// modules of one ident with an input each. B is linked.
struct_FilenameDevice fileWithModules()
{
    struct_module first = module(0x11, "First");
    first.RxPdo.vpdo = {pdoOfModule(0x1600, 0, {moduleEntry(0x7000, 1, "A"), moduleEntry(0x7000, 2, "B")}),
                        pdoOfModule(0x1601, -1, {moduleEntry(0x7001, 1, "U")}),
                        pdoOfModule(0x1602, 0, {moduleEntry(0x7002, 1, "C")})};
    first.RxPdo.vpdo[0].vEntry[1].Linkto = KTL_PDO_TYPE_DOUT;
    first.TxPdo.vpdo = {pdoOfModule(0x1A00, 1, {moduleEntry(0x6000, 1, "D")})};
    struct_module second = module(0x12, "Second");
    second.TxPdo.vpdo = {pdoOfModule(0x1A00, 1, {moduleEntry(0x6000, 1, "E")})};
    struct_module third = module(0x12, "Third");
    third.TxPdo.vpdo = {pdoOfModule(0x1A00, 1, {moduleEntry(0x6000, 1, "F")})};
    return fileWith({first, second, third});
}

struct_EtherCatDevice coupler()
{
    struct_EtherCatDevice device = deviceWithSyncManagers();
    device.m_iDeviceType = KTL_DEVICE_TYPE_ManualIOBlock;
    return device;
}

struct_module& moduleOf(struct_FilenameDevice& file, std::size_t place)
{
    return file.vcommentmodule[0].vmodule[place];
}

using FileEdit = void (*)(struct_FilenameDevice& file);
using BlockEdit = void (*)(KtlDeviceBlock& block);

QStringList linesFor(const struct_FilenameDevice& file, const KtlDeviceBlock& block)
{
    return choiceLines::linesOf("moduleLink", retrace::moduleLinksOf(retrace::namedModulesOf(file), block));
}

} // namespace

Q_DECLARE_METATYPE(FileEdit)
Q_DECLARE_METATYPE(BlockEdit)

class tst_ModuleLinkRetrace : public QObject
{
    Q_OBJECT

private slots:
    static void names();
    static void links_data();
    static void links();
    static void impossibleLinks_data();
    static void impossibleLinks();
    static void otherBlocks_data();
    static void otherBlocks();
};

/// The row tells apart modules of one ident only. Groups do not count.
void tst_ModuleLinkRetrace::names()
{
    struct_FilenameDevice file = fileWithModules();
    file.vcommentmodule.emplace_back().vmodule = {module(0x13, "Fourth"), module(0x12, "Fifth")};
    QStringList names;
    for (const retrace::NamedModule& named : retrace::namedModulesOf(file))
        names += choiceLines::Line(QString::fromStdString(named.module->Name)).add(named.name).text();
    QCOMPARE(names, (QStringList{"First ident=11", "Second ident=12 row=1", "Third ident=12 row=2", "Fourth ident=13",
                                 "Fifth ident=12 row=4"}));
}

void tst_ModuleLinkRetrace::links_data()
{
    QTest::addColumn<FileEdit>("edit");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("nothing") << FileEdit([](struct_FilenameDevice&) {}) << QStringList();
    QTest::addRow("output") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 0).RxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList("moduleLink ident=11 pdo=0 entry=0 index=1600 object=7000:1 name=A link=-2");
    QTest::addRow("link taken away") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 0).RxPdo.vpdo[0].vEntry[1].Linkto = KTL_PDO_TYPE_NONE;
    }) << QStringList("moduleLink ident=11 pdo=0 entry=1 index=1600 object=7000:2 name=B link=0");
    QTest::addRow("behind a PDO that the block does not have") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 0).RxPdo.vpdo[2].vEntry[0].Linkto = KTL_PDO_TYPE_I16_AOUT;
    }) << QStringList("moduleLink ident=11 pdo=2 entry=0 index=1602 object=7002:1 name=C link=-7");
    QTest::addRow("PDO that the block does not have") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 0).RxPdo.vpdo[1].vEntry[0].Linkto = KTL_PDO_TYPE_DOUT;
    }) << QStringList();
    QTest::addRow("input") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 0).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN;
    }) << QStringList("moduleLink ident=11 pdo=3 entry=0 index=1a00 object=6000:1 name=D link=-1");
    QTest::addRow("of the second of one ident") << FileEdit([](struct_FilenameDevice& file) {
        moduleOf(file, 2).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN;
    }) << QStringList("moduleLink ident=12 row=2 pdo=0 entry=0 index=1a00 object=6000:1 name=F link=-1");
    QTest::addRow("in two modules")
        << FileEdit([](struct_FilenameDevice& file) {
               moduleOf(file, 1).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_I32_AIN;
               moduleOf(file, 0).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN;
           })
        << QStringList{"moduleLink ident=11 pdo=3 entry=0 index=1a00 object=6000:1 name=D link=-1",
                       "moduleLink ident=12 row=1 pdo=0 entry=0 index=1a00 object=6000:1 name=E link=-5"};
}

void tst_ModuleLinkRetrace::links()
{
    QFETCH(FileEdit, edit);
    QFETCH(QStringList, expected);
    struct_FilenameDevice edited = fileWithModules();
    edit(edited);
    const retrace::ExportedBlock block = exportOf(coupler(), edited);
    struct_FilenameDevice file = fileWithModules();
    QCOMPARE(linesFor(file, block.content), expected);
    retrace::setModuleLinks(file, retrace::moduleLinksOf(retrace::namedModulesOf(file), block.content));
    QVERIFY(exportOf(coupler(), file).bytes == block.bytes);
}

void tst_ModuleLinkRetrace::impossibleLinks_data()
{
    QTest::addColumn<FileEdit>("edit");
    QTest::addRow("link that outputs do not have") << FileEdit(
        [](struct_FilenameDevice& file) { moduleOf(file, 0).RxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN; });
    QTest::addRow("link that inputs do not have") << FileEdit(
        [](struct_FilenameDevice& file) { moduleOf(file, 0).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DOUT; });
    QTest::addRow("number that is no link")
        << FileEdit([](struct_FilenameDevice& file) { moduleOf(file, 1).TxPdo.vpdo[0].vEntry[0].Linkto = -3; });
}

void tst_ModuleLinkRetrace::impossibleLinks()
{
    QFETCH(FileEdit, edit);
    struct_FilenameDevice edited = fileWithModules();
    edit(edited);
    QCOMPARE(linesFor(fileWithModules(), exportOf(coupler(), edited).content), QStringList());
}

void tst_ModuleLinkRetrace::otherBlocks_data()
{
    QTest::addColumn<BlockEdit>("edit");
    QTest::addColumn<QStringList>("expected");
    const QString ofFirst = "moduleLink ident=11 pdo=3 entry=0 index=1a00 object=6000:1 name=D link=-1";
    const QString ofThird = "moduleLink ident=12 row=2 pdo=0 entry=0 index=1a00 object=6000:1 name=F link=-1";
    QTest::addRow("the same") << BlockEdit([](KtlDeviceBlock&) {}) << QStringList{ofFirst, ofThird};
    QTest::addRow("another ident in a place")
        << BlockEdit([](KtlDeviceBlock& block) { block.modules[0].attributes.ModuleIdent = 0x99; })
        << QStringList(ofThird);
    QTest::addRow("fewer modules") << BlockEdit([](KtlDeviceBlock& block) { block.modules.pop_back(); })
                                   << QStringList(ofFirst);
    QTest::addRow("more modules") << BlockEdit([](KtlDeviceBlock& block) { block.modules.emplace_back(); })
                                  << QStringList{ofFirst, ofThird};
    QTest::addRow("fewer entries") << BlockEdit([](KtlDeviceBlock& block) { block.modules[2].pdos.clear(); })
                                   << QStringList(ofFirst);
    QTest::addRow("no modules") << BlockEdit([](KtlDeviceBlock& block) { block.modules.clear(); }) << QStringList();
}

/// Modules are compared place by place, and only where the idents agree.
void tst_ModuleLinkRetrace::otherBlocks()
{
    QFETCH(BlockEdit, edit);
    struct_FilenameDevice edited = fileWithModules();
    moduleOf(edited, 0).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN;
    moduleOf(edited, 2).TxPdo.vpdo[0].vEntry[0].Linkto = KTL_PDO_TYPE_DIN;
    KtlDeviceBlock block = exportOf(coupler(), edited).content;
    edit(block);
    QTEST(linesFor(fileWithModules(), block), "expected");
}

static const testMain::Registration<tst_ModuleLinkRetrace, testMain::NoApplication> registration;
#include "tst_ModuleLinkRetrace.moc"
