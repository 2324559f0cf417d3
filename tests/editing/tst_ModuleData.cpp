// What follows from the modules in the slots of a device, made again as a whole and part by part.
#include "editing/moduleData.h"
#include "model/missingSyncManager.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_ModuleData : public QObject
{
    Q_OBJECT

private slots:
    static void everythingIsMadeAgain();
    static void missingSyncManager();
    static void listsAlone();
    static void listsWithoutSlots();
    static void startupAlone();
    static void lengthsAlone();
};

namespace {

/// A special device with one slot, in which a module with an output of 3 bytes is on the only sync manager.
struct_EtherCatDevice deviceWithModule()
{
    struct_EtherCatDevice device = deviceOfType(4);
    device.Slots.vslot = {slotNamed("A", 1)};
    struct_module module = moduleWithPdos("IO", 1);
    module.TxPdo.vpdo.clear();
    module.RxPdo.vpdo[0].Attributes.SM = 0;
    module.RxPdo.vpdo[0].size = 3.0F;
    device.Slots.vslot[0].slotmodule = {placedAt(0, module)};
    device.vSM.resize(1);
    device.vSM[0].Smtype = 3;
    device.vSM[0].Length = 99.0F;
    device.Mailbox.COE.Attributes.PdoAssign = true;
    return device;
}

} // namespace

void tst_ModuleData::everythingIsMadeAgain()
{
    struct_EtherCatDevice device = deviceWithModule();
    device.mMailbox.COE.vinitcmd.resize(9); // of load time
    renewModuleData(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t(1));
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(2)); // the assignment of one PDO, and their number
    QCOMPARE(device.vSM[0].Length, 3.0F);
    renewModuleData(device);
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(2));
    QCOMPARE(device.vSM[0].Length, 3.0F);
}

void tst_ModuleData::missingSyncManager()
{
    struct_EtherCatDevice device = deviceWithModule();
    device.Name = "Coupler";
    device.vSM.clear();
    try {
        renewModuleData(device);
        QFAIL("no error is thrown");
    } catch (const MissingSyncManager& error) {
        QCOMPARE(error.device(), std::string("Coupler"));
        QCOMPARE(int(error.pdoIndex()), 0x1600);
    }
}

void tst_ModuleData::listsAlone()
{
    struct_EtherCatDevice device = deviceWithModule();
    device.mMailbox.COE.vinitcmd.resize(9);
    moduleData::renewLists(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t(1));
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(0));
    QCOMPARE(device.vSM[0].Length, 99.0F);
}

/// What such a device got when its file was loaded stays.
void tst_ModuleData::listsWithoutSlots()
{
    struct_EtherCatDevice device;
    device.mRxPdo.mpdo.resize(2);
    device.mMailbox.COE.vinitcmd.resize(3);
    moduleData::renewLists(device);
    QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t(2));
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(3));
}

/// Each run appends the assignment of the one PDO, and their number.
void tst_ModuleData::startupAlone()
{
    struct_EtherCatDevice device = deviceWithModule();
    moduleData::renewLists(device);
    moduleData::appendStartup(device);
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(2));
    moduleData::appendStartup(device);
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t(4));
    QCOMPARE(device.vSM[0].Length, 99.0F);
}

/// The lengths follow the lists as they are, not the modules in the slots.
void tst_ModuleData::lengthsAlone()
{
    struct_EtherCatDevice device = deviceWithModule();
    moduleData::renewLengths(device);
    QCOMPARE(device.vSM[0].Length, 0.0F);
    moduleData::renewLists(device);
    moduleData::renewLengths(device);
    QCOMPARE(device.vSM[0].Length, 3.0F);
}

static const testMain::Registration<tst_ModuleData, QCoreApplication> registration;
#include "tst_ModuleData.moc"
