// The first module whose startup item announces another number of records than follow it.
#include "ktl/moduleBuilders.h"
#include "ktl/writing/moduleCounts.h"
#include "testMain.h"

#include <QtTest>

class tst_ModuleCounts : public QObject
{
    Q_OBJECT

private slots:
    static void miscounted_data();
    static void miscounted();
    static void firstOfSeveral();
    static void classWithoutModuleBlocks();
};

namespace {

/// A coupler that assigns and configures PDOs on its one sync manager of outputs, which has the number 2.
struct_EtherCatDevice coupler(bool usesCompleteAccess)
{
    struct_EtherCatDevice device;
    device.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    device.Mailbox.COE.Attributes.PdoAssign = true;
    device.Mailbox.COE.Attributes.PdoConfig = true;
    device.Mailbox.COE.Attributes.CompleteAccess = usesCompleteAccess;
    struct_SM outputs;
    outputs.SM = 2;
    outputs.Smtype = 3;
    device.vSM.push_back(outputs);
    return device;
}

/// A module with one output PDO.
struct_module moduleWith(std::uint32_t ident, int syncManager, std::size_t entries, bool isFixed, std::size_t commands)
{
    struct_module module = moduleOf(ident);
    module.RxPdo.vpdo = {pdoOf(0x1600, syncManager, std::vector<struct_moduleEntry>(entries))};
    module.RxPdo.vpdo.front().Attributes.Fixed = isFixed;
    module.Mailbox.COE.vinitcmd.resize(commands);
    return module;
}

} // namespace

void tst_ModuleCounts::miscounted_data()
{
    QTest::addColumn<bool>("usesCompleteAccess");
    QTest::addColumn<int>("syncManager");
    QTest::addColumn<int>("entries");
    QTest::addColumn<bool>("isFixed");
    QTest::addColumn<int>("commands");
    QTest::addColumn<bool>("isMiscounted");
    // Announced on the sync manager: the commands, 1 for the assignment, and entries + 2 for a PDO that is not fixed.
    QTest::addRow("mapping and assignment") << false << 2 << 1 << false << 1 << false;
    QTest::addRow("fixed PDO") << true << 2 << 1 << true << 1 << false;
    QTest::addRow("complete access has no mapping") << true << 2 << 1 << false << 1 << true;
    QTest::addRow("no entry has no mapping") << false << 2 << 0 << false << 0 << true;
    QTest::addRow("mapping on no sync manager is not announced") << false << -1 << 1 << false << 1 << true;
    QTest::addRow("nothing is announced, so there is no item") << false << -1 << 1 << false << 0 << false;
}

void tst_ModuleCounts::miscounted()
{
    QFETCH(bool, usesCompleteAccess);
    QFETCH(int, syncManager);
    QFETCH(int, entries);
    QFETCH(bool, isFixed);
    QFETCH(int, commands);
    QFETCH(bool, isMiscounted);
    const struct_module module =
        moduleWith(7, syncManager, static_cast<std::size_t>(entries), isFixed, static_cast<std::size_t>(commands));
    const struct_FilenameDevice file = fileOf({{module}});
    QCOMPARE(firstMiscountedModule(coupler(usesCompleteAccess), file) != nullptr, isMiscounted);
}

/// In the order of the file, over its groups.
void tst_ModuleCounts::firstOfSeveral()
{
    const struct_module right = moduleWith(1, 2, 1, false, 1);
    const struct_FilenameDevice file =
        fileOf({{right}, {right, moduleWith(2, 2, 0, false, 0), moduleWith(3, 2, 0, false, 0)}});
    const struct_module* const found = firstMiscountedModule(coupler(false), file);
    QVERIFY(found != nullptr);
    QCOMPARE(found->TypeAttributes.ModuleIdent, 2U);
}

void tst_ModuleCounts::classWithoutModuleBlocks()
{
    struct_EtherCatDevice device = coupler(false);
    device.m_iDeviceType = KTL_DEVICE_TYPE_IOBlock;
    QVERIFY(firstMiscountedModule(device, fileOf({{moduleWith(2, 2, 0, false, 0)}})) == nullptr);
}

static const testMain::Registration<tst_ModuleCounts, testMain::NoApplication> registration;
#include "tst_ModuleCounts.moc"
