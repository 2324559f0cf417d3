// The passes by their fixed names: each reaches all devices of a file, and says of which device an error is.
#include "derivation/oversampledPdo.h"
#include "derivation/startupBuilders.h"
#include "esi/xmlparsing.h"
#include "model/missingSyncManager.h"
#include "testMain.h"

#include <QtTest>

using Pass = void (*)(struct_FilenameDevice*);
Q_DECLARE_METATYPE(Pass)

class tst_Passes : public QObject
{
    Q_OBJECT

private slots:
    static void noDevices_data();
    static void noDevices();
    static void slotsOfEveryDevice();
    static void pdosOfEveryDevice();
    static void modulesOfEveryDevice();
    static void startupOfEveryDevice();
    static void lengthsOfEveryDevice();
    static void errorNamesItsDevice_data();
    static void errorNamesItsDevice();
};

void tst_Passes::noDevices_data()
{
    QTest::addColumn<Pass>("pass");
    QTest::addRow("slots") << Pass(device_check_Slots);
    QTest::addRow("PDOs") << Pass(device_pdo_defalutset);
    QTest::addRow("modules") << Pass(device_slotmodule_defalutset);
    QTest::addRow("startup commands") << Pass(device_startup_defalutset);
    QTest::addRow("lengths") << Pass(device_sm_defalutset);
}

void tst_Passes::noDevices()
{
    QFETCH(Pass, pass);
    pass(nullptr); // must come back
    struct_FilenameDevice empty;
    pass(&empty);
    QVERIFY(empty.device.empty());
}

void tst_Passes::slotsOfEveryDevice()
{
    struct_FilenameDevice file;
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.m_iDeviceType = 2;
        device.Slots.vslot.resize(1);
        device.Slots.vslot[0].Attributes.SlotIndexIncrement = 16;
    }
    file.device[1].Slots.vslot.resize(2);
    device_check_Slots(&file);
    QCOMPARE(int{file.device[0].m_iDriveAxies}, 1);
    QCOMPARE(int{file.device[1].m_iDriveAxies}, 2);
    QCOMPARE(file.device[1].Slots.vslot[1].Attributes.SlotIndexIncrement, 16U); // as the first slot says
}

void tst_Passes::pdosOfEveryDevice()
{
    struct_FilenameDevice file;
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.RxPdo.vpdo = {oversampledPdo("out", 1, 2)};
        device.TxPdo.vpdo = {oversampledPdo("in", 1, 3)};
    }
    device_pdo_defalutset(&file);
    for (const struct_EtherCatDevice& device : file.device) {
        QCOMPARE(namesOf(device.RxPdo.vpdo), (QStringList{"out 0", "out 1"}));
        QCOMPARE(namesOf(device.TxPdo.vpdo), (QStringList{"in 0", "in 1", "in 2"}));
    }
}

void tst_Passes::modulesOfEveryDevice()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    file.vcommentmodule[0].vmodule = {moduleFrom(4, "module", "1600")};
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.m_iDeviceType = 4;
        device.Slots.vslot.resize(1);
        device.Slots.vslot[0].Attributes.MaxInstances = 1;
        device.Slots.vslot[0].ModuleIdent.resize(1);
        device.Slots.vslot[0].ModuleIdent[0].ModuleIdent = 4;
        device.Slots.vslot[0].ModuleIdent[0].Attributes.Default = 1;
    }
    device_slotmodule_defalutset(&file);
    for (const struct_EtherCatDevice& device : file.device) {
        QCOMPARE(device.Slots.vslot[0].slotmodule.size(), std::size_t{1});
        QCOMPARE(device.mRxPdo.mpdo.size(), std::size_t{1});
    }
}

void tst_Passes::startupOfEveryDevice()
{
    struct_FilenameDevice file;
    file.device = {deviceFrom({"flags config", "Rx 1600"}), deviceFrom({"flags"}),
                   deviceFrom({"flags config", "Rx 1601", "mRx 1701"})};
    device_startup_defalutset(&file);
    QCOMPARE(deviceLines(file.device[0]), QStringList{"PS 1600:0 1B 0 '0x00 ' download pdo 0x1600 entries"});
    QCOMPARE(deviceLines(file.device[1]), QStringList());
    QCOMPARE(deviceLines(file.device[2]), QStringList{"PS 1601:0 1B 0 '0x00 ' download pdo 0x1601 entries"});
    QCOMPARE(moduleLines(file.device[2]), QStringList{"PS 1701:0 1B 0 '0x00 ' download mpdo 0x1701 entries"});
}

void tst_Passes::lengthsOfEveryDevice()
{
    struct_FilenameDevice file;
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.vSM.resize(1);
        device.vSM[0].Smtype = KTL_MBoxOut;
        device.vSM[0].Attributes.DefaultSize = 128;
    }
    file.device[1].vSM[0].Attributes.DefaultSize = 64;
    device_sm_defalutset(&file);
    QCOMPARE(file.device[0].vSM[0].Length, 128.0F);
    QCOMPARE(file.device[1].vSM[0].Length, 64.0F);
}

void tst_Passes::errorNamesItsDevice_data()
{
    QTest::addColumn<Pass>("pass");
    QTest::addRow("startup commands") << Pass(device_startup_defalutset);
    QTest::addRow("lengths") << Pass(device_sm_defalutset);
}

void tst_Passes::errorNamesItsDevice()
{
    QFETCH(Pass, pass);
    struct_FilenameDevice file;
    file.device = {deviceFrom({"flags config", "SM 0 outputs", "Rx 1600 @0"}),
                   deviceFrom({"flags config", "SM 0 outputs", "Rx 1601 @1"})};
    file.device[0].Name = "good";
    file.device[1].Name = "bad";
    std::string told;
    try {
        pass(&file);
    } catch (const MissingSyncManager& error) {
        told = error.device();
        QCOMPARE(int{error.pdoIndex()}, 0x1601);
    }
    QCOMPARE(told, std::string("bad"));
}

static const testMain::Registration<tst_Passes, QCoreApplication> registration;
#include "tst_Passes.moc"
