// The passes over a file that has been read, in their order: what one of them leaves is what the next one needs.
#include "derivation/startupBuilders.h"
#include "esi/readDocument.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <string>

class tst_WalkPasses : public QObject
{
    Q_OBJECT

private slots:
    static void defaultModule();
    static void modulesAreAxes();
    static void oversampledPdo();
    static void declaredCommands();
    static void declaredModuleCommands();
};

namespace {

/// A file with one device that has an output sync manager, a CoE mailbox that maps and assigns, and these children; and
/// with these modules.
struct_EtherCatDevice readWithModules(const QString& children, const QString& modules)
{
    return readDescriptions(QStringLiteral("<Devices><Device><Sm>Outputs</Sm>%1</Device></Devices>"
                                           "<Modules>%2</Modules>")
                                .arg(children, modules))
        .device.at(0);
}

const QString mapsAndAssigns = QStringLiteral("<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>");

} // namespace

void tst_WalkPasses::defaultModule()
{
    // The second slot's own step is lost to the first one's before its module is moved by it.
    const struct_EtherCatDevice device = readWithModules(
        mapsAndAssigns
            + "<Slots><Slot MaxInstances='1' SlotPdoIncrement='16'/><Slot MaxInstances='1' SlotPdoIncrement='99'>"
              "<ModuleIdent Default='1'>7</ModuleIdent></Slot></Slots><Profile><ProfileNo>401</ProfileNo></Profile>",
        "<Module><Type ModuleIdent='7'>T</Type><Name>M</Name>"
        "<RxPdo Sm='0'><Index DependOnSlot='1'>#x1600</Index></RxPdo></Module>");
    QCOMPARE(int{device.m_iDeviceType}, 4);
    QVERIFY(device.Slots.vslot.at(0).slotmodule.empty());
    const struct_slotmodule& placed = device.Slots.vslot.at(1).slotmodule.at(0);
    QCOMPARE(placed.Instances, 1);
    QCOMPARE(placed.module.Name, std::string("M"));
    QCOMPARE(placed.module.TypeAttributes.Name, std::string("T"));
    QCOMPARE(deviceLines(device), QStringList{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"});
    QCOMPARE(moduleLines(device), (QStringList{"PS 1610:0 1B 0 '0x00 ' download mpdo 0x1610 entries",
                                               "PS 1c10:1 2B 1610 '0x1610' download pdo 0x1c10 index",
                                               "PS 1c10:0 1B 1 '0x1 ' download pdo 0x1c10  count"}));
}

void tst_WalkPasses::modulesAreAxes()
{
    // Three slots, and a module in the first of them: one axis, and not the number of slots that was counted before.
    const struct_FilenameDevice file =
        readDescriptions("<Devices><Device><Profile><ProfileNo>402</ProfileNo></Profile><Slots><Slot MaxInstances='1'>"
                         "<ModuleIdent Default='true'>0</ModuleIdent></Slot><Slot/><Slot/></Slots></Device></Devices>"
                         "<Modules><Module><Type ModuleIdent='0'/></Module></Modules>");
    const struct_EtherCatDevice& device = file.device.at(0);
    QCOMPARE(device.Slots.vslot.at(0).slotmodule.size(), std::size_t{1});
    QCOMPARE(int{device.m_iDeviceType}, 2);
    QCOMPARE(int{device.m_iDriveAxies}, 1);
}

void tst_WalkPasses::oversampledPdo()
{
    // Each sample is mapped. The tenth and the eleventh are on no sync manager and are not assigned.
    const struct_EtherCatDevice device =
        readDevice("<Sm>Outputs</Sm><Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>"
                   "<RxPdo Sm='0' OSFac='1' OSMin='1' OSMax='11' OSIndexInc='1'><Index>#x1600</Index></RxPdo>");
    QStringList mapped{"PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"};
    QStringList assigned;
    for (int sample = 0; sample < 11; ++sample) {
        const QString index = QString::number(0x1600 + sample, 16);
        mapped << QStringLiteral("PS %1:0 1B 0 '0x00 ' download pdo 0x%1 entries").arg(index);
        if (sample < 9)
            assigned << QStringLiteral("PS 1c10:%1 2B %2 '0x%2' download pdo 0x1c10 index").arg(sample + 1).arg(index);
    }
    assigned << "PS 1c10:0 1B 9 '0x9 ' download pdo 0x1c10  count";
    QCOMPARE(deviceLines(device), mapped);
    QCOMPARE(moduleLines(device), assigned);
}

void tst_WalkPasses::declaredCommands()
{
    const struct_EtherCatDevice device =
        readDevice("<Sm>Outputs</Sm><Mailbox><CoE PdoAssign='1'><InitCmd><Transition>PS</Transition>"
                   "<Index>#x8000</Index><SubIndex>1</SubIndex><Data>0100</Data><Comment>declared</Comment></InitCmd>"
                   "</CoE><EoE IP='1'/></Mailbox><RxPdo Sm='0'><Index>#x1600</Index></RxPdo>");
    QCOMPARE(deviceLines(device).size(), 2);
    QCOMPARE(device.Mailbox.COE.InitCmd.vinitcmd[0].Comment, std::string("declared"));
    QCOMPARE(deviceLines(device).at(1), QStringLiteral("PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"));
    QCOMPARE(eoeLines(device), QStringList{"IP_PS 0:0 1B 0 ' ' eoeinit"});
    QCOMPARE(moduleLines(device), (QStringList{"PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
                                               "PS 1c10:0 1B 1 '0x1 ' download pdo 0x1c10  count"}));
}

void tst_WalkPasses::declaredModuleCommands()
{
    const QString declared = QStringLiteral("<InitCmd><Transition>PS</Transition><Index>#x8000</Index><SubIndex>1"
                                            "</SubIndex><Data>0100</Data><Comment>%1</Comment></InitCmd>");
    const struct_EtherCatDevice device = readWithModules(
        QStringLiteral("<Mailbox><CoE PdoAssign='1'>%1</CoE><EoE IP='1'/></Mailbox><Slots><Slot MaxInstances='1'>"
                       "<ModuleIdent Default='1'>7</ModuleIdent></Slot></Slots><RxPdo Sm='0'><Index>#x1600</Index>"
                       "</RxPdo><Profile><ProfileNo>401</ProfileNo></Profile>")
            .arg(declared.arg("of the device")),
        QStringLiteral("<Module><Type ModuleIdent='7'/><Mailbox><CoE>%1</CoE></Mailbox></Module>")
            .arg(declared.arg("of the module")));
    QCOMPARE(device.Mailbox.COE.InitCmd.vinitcmd.size(), std::size_t{2});
    QCOMPARE(device.Mailbox.COE.InitCmd.vinitcmd[0].Comment, std::string("of the device"));
    QCOMPARE(deviceLines(device).at(1), QStringLiteral("PS 1c10:0 1B 0 '0x00 ' clear pdo 0x1c10 entry"));
    QCOMPARE(eoeLines(device), QStringList{"IP_PS 0:0 1B 0 ' ' eoeinit"});
    QCOMPARE(device.mMailbox.COE.vinitcmd.size(), std::size_t{3});
    QCOMPARE(device.mMailbox.COE.vinitcmd[0].Comment, std::string("of the module"));
    QCOMPARE(moduleLines(device).mid(1), (QStringList{"PS 1c10:1 2B 1600 '0x1600' download pdo 0x1c10 index",
                                                      "PS 1c10:0 1B 1 '0x1 ' download pdo 0x1c10  count"}));
}

static const testMain::Registration<tst_WalkPasses, QCoreApplication> registration;
#include "tst_WalkPasses.moc"
