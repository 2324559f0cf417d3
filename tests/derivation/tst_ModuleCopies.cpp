// The copies that a module in a slot leaves in the lists of its device: what they hold, and in which order they are.
#include "derivation/startupBuilders.h"
#include "esi/derivation/moduleInSlot.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <string>

class tst_ModuleCopies : public QObject
{
    Q_OBJECT

private slots:
    static void copiesAreWhole();
    static void inputPdosAreWhole();
    static void dictionary();
    static void appendedInOrder();
};

/// A command with a value in every field.
static struct_moduleInitCmd filledCommand()
{
    struct_moduleInitCmd command = declaredModuleCommand("declared");
    command.indexAttributes.AdaptAutomatically = true;
    command.indexAttributes.DependOnSlotGroup = true;
    command.SubIndex = 300;
    command.DataBytes = 2;
    command.Data = 0x1234;
    command.strData = "3412";
    command.Instances = 9;
    command.bIfCA = 1;
    command.m_CADataList = {0xA, 0xB};
    return command;
}

void tst_ModuleCopies::copiesAreWhole()
{
    struct_module module = moduleFrom(1, "module", "1600 @2 fixed 7000:1:16 7001:2:8");
    modulePdo& declared = module.RxPdo.vpdo[0];
    declared.Attributes.Mandatory = true;
    declared.Attributes.SU = 5;
    declared.Name = "outputs";
    declared.size = 3.0F;
    declared.Instances = 9;
    declared.indexAttributes.DependOnSlotGroup = true;
    declared.vEntry[1].Name = "word";
    declared.vEntry[1].DataType = "USINT";
    declared.vEntry[1].Comment = "note";
    declared.vEntry[1].DefaultData = 7;
    declared.vEntry[1].Linkto = 30;
    declared.vEntry[1].Offs = 2.0F;
    module.Mailbox.COE.vinitcmd = {filledCommand()};

    struct_EtherCatDevice device;
    bringIntoDevice(device, struct_Slot(), module, 4);
    QCOMPARE(moduleLines(device),
             QStringList{"[slot 4] groupwise adapted IP 8000:300 2B 1234 CA1{a,b} '3412' declared"});
    const modulePdo& copy = device.mRxPdo.mpdo.at(0);
    QCOMPARE(copy.Instances, 4);
    QVERIFY(copy.Attributes.Fixed && copy.Attributes.Mandatory);
    QCOMPARE(copy.Attributes.SM, 2);
    QCOMPARE(copy.Attributes.SU, 5);
    QVERIFY(copy.indexAttributes.DependOnSlotGroup && !copy.indexAttributes.DependOnSlot);
    QCOMPARE(copy.Name, std::string("outputs"));
    QCOMPARE(copy.size, 3.0F);
    QCOMPARE(copy.vEntry.size(), std::size_t{2});
    const struct_moduleEntry& entry = copy.vEntry[1];
    QCOMPARE(int{entry.indexAttributes.index}, 0x7001);
    QCOMPARE(int{entry.SubIndex}, 2);
    QCOMPARE(entry.BitLen, 8);
    QCOMPARE(QString::fromStdString(entry.Name + ' ' + entry.DataType + ' ' + entry.Comment),
             QStringLiteral("word USINT note"));
    QCOMPARE(entry.DefaultData, 7U);
    QCOMPARE(entry.Linkto, 30);
    QCOMPARE(entry.Offs, 2.0F);
}

void tst_ModuleCopies::inputPdosAreWhole()
{
    struct_module module;
    module.TxPdo.vpdo = {pdoFrom<modulePdo>("1a00 @3 6000:1:16 6001:2:8")};
    module.TxPdo.vpdo[0].Name = "inputs";
    struct_EtherCatDevice device;
    bringIntoDevice(device, struct_Slot(), module, 4);
    QCOMPARE(listSizes(device), QStringLiteral("0 1 0 0 0"));
    const modulePdo& copy = device.mTxPdo.mpdo.at(0);
    QCOMPARE(copy.Instances, 4);
    QCOMPARE(copy.Attributes.SM, 3);
    QCOMPARE(copy.Name, std::string("inputs"));
    QCOMPARE(copy.vEntry.size(), std::size_t{2});
}

void tst_ModuleCopies::dictionary()
{
    struct_module module = moduleFrom(1, "module", "1600");
    module.RxPdo.vpdo[0].indexAttributes.DependOnSlot = true;
    module.Dictionary.vobject.resize(2);
    module.Dictionary.vobject[0].index = 0x8000;
    module.Dictionary.vobject[1].index = 0x9000;
    module.Dictionary.vdatatype.resize(1);
    module.Dictionary.vdatatype[0].Name = "DT8000";
    module.Dictionary.vdatatype[0].index = 0x800;
    struct_EtherCatDevice device;
    device.Slots.Attributes.SlotIndexIncrement = 0x100;
    bringIntoDevice(device, struct_Slot(), module, 3);
    bringIntoDevice(device, struct_Slot(), module, 4);
    QCOMPARE(listSizes(device), QStringLiteral("2 0 0 4 2"));
    // Objects keep their indexes, whatever the slot.
    QCOMPARE(int{device.mDictionary.mobject[0].index}, 0x8000);
    QCOMPARE(int{device.mDictionary.mobject[1].index}, 0x9000);
    QCOMPARE(int{device.mDictionary.mobject[2].index}, 0x8000);
    QCOMPARE(device.mDictionary.mdatatype[1].Name, std::string("DT8000"));
    QCOMPARE(int{device.mDictionary.mdatatype[1].index}, 0x800);
    QVERIFY(device.Dictionary.vobject.empty() && device.Dictionary.vdatatype.empty());
}

void tst_ModuleCopies::appendedInOrder()
{
    struct_module module;
    module.RxPdo.vpdo = {pdoFrom<modulePdo>("1602"), pdoFrom<modulePdo>("1601")};
    module.Mailbox.COE.vinitcmd = {declaredModuleCommand("second"), declaredModuleCommand("third")};
    struct_EtherCatDevice device;
    device.mRxPdo.mpdo = {pdoFrom<modulePdo>("1700")};
    device.mMailbox.COE.vinitcmd = {declaredModuleCommand("first")};
    bringIntoDevice(device, struct_Slot(), module, 0);
    QVector<int> indexes;
    for (const modulePdo& pdo : device.mRxPdo.mpdo)
        indexes << pdo.indexAttributes.index;
    QCOMPARE(indexes, (QVector<int>{0x1700, 0x1602, 0x1601}));
    QCOMPARE(moduleLines(device),
             (QStringList{"IP 8000:0 0B 0 '' first", "IP 8000:0 0B 0 '' second", "IP 8000:0 0B 0 '' third"}));
    QVERIFY(device.Mailbox.COE.InitCmd.vinitcmd.empty() && device.RxPdo.vpdo.empty());
}

static const testMain::Registration<tst_ModuleCopies, QCoreApplication> registration;
#include "tst_ModuleCopies.moc"
