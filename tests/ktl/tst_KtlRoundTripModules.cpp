// A coupler with its modules is exported and read back: what comes back of the modules, and what is gone.
#include "ktl/ktlReading.h"
#include "ktl/moduleBuilders.h"
#include "testMain.h"

#include <QtTest>

namespace {

struct_moduleInitCmd commandOf(std::uint16_t index, std::uint16_t subIndex, std::uint32_t data)
{
    struct_moduleInitCmd command;
    command.indexAttributes.index = index;
    command.SubIndex = subIndex;
    command.DataBytes = 4;
    command.Data = data;
    command.Transition = PS;
    command.bIfCA = 1;
    command.m_CADataList = {1, 2, 3};
    return command;
}

/// An analog module with two PDOs in each direction, and a command; another one without anything.
std::vector<std::vector<struct_module>> groupsOfModules()
{
    struct_module analog = moduleOf(0x11);
    analog.Name = "Analog";
    analog.TypeAttributes.ModulePdoGroup = 3;
    analog.TypeAttributes.SRA_ParamterSupported = true;
    struct_moduleEntry shifted = entryOf(0x7000, 1, 16);
    shifted.indexAttributes.DependOnSlot = true;
    shifted.Linkto = -7;
    analog.RxPdo.vpdo = {pdoOf(0x1600, 2, {shifted, entryOf(0x7000, 2, 264)}),
                         pdoOf(0x1601, 2, {entryOf(0x7001, 1, 8)}), pdoOf(0x1602, -1, {entryOf(0x7002, 1, 8)})};
    analog.RxPdo.vpdo[0].Attributes.Mandatory = true;
    analog.TxPdo.vpdo = {pdoOf(0x1A00, 3, {entryOf(0x6000, 1, 16), entryOf(0x6000, 2, 264)})};
    analog.TxPdo.vpdo[0].Attributes.Fixed = true;
    analog.TxPdo.vpdo[0].Attributes.SU = 4;
    analog.Mailbox.COE.vinitcmd = {commandOf(0x8000, 5, 0xABCD)};
    analog.Mailbox.COE.vinitcmd[0].indexAttributes.DependOnSlot = true;
    return {{analog, moduleOf(0x12)}, {moduleOf(0x13)}};
}

/// A file of two couplers, with an analog module in a slot of the first.
struct_FilenameDevice fileOfCouplers()
{
    struct_FilenameDevice file = fileOf(groupsOfModules());
    file.vcommentmodule[0].comment = "Analog modules";
    file.device.resize(2);
    for (struct_EtherCatDevice& device : file.device) {
        device.m_iDeviceType = 5;
        device.vSM.resize(4);
        device.Slots.vslot.resize(2);
        device.Slots.vslot[0].Attributes.MaxInstances = 1;
    }
    struct_slotmodule placed;
    placed.module = file.vcommentmodule[0].vmodule[0];
    file.device[0].Slots.vslot[0].slotmodule = {placed};
    return file;
}

} // namespace

class tst_KtlRoundTripModules : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void oneGroupForEachModule();
    void identity();
    void outputs();
    void inputs();
    void commands();
    void slotsAreEmpty();

private:
    [[nodiscard]] const struct_module& analog() const { return m_read.vcommentmodule[0].vmodule[0]; }

    struct_FilenameDevice m_read;
};

void tst_KtlRoundTripModules::init()
{
    std::vector<struct_FilenameDevice> files{fileOfCouplers()};
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    int code = 0;
    const QByteArray written = writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, files, all, &code)); });
    const Reading reading = readingOf(written);
    QVERIFY(reading.isComplete);
    QCOMPARE(reading.files.size(), std::size_t(1));
    m_read = reading.files[0];
    QCOMPARE(m_read.device.size(), std::size_t(2));
    QCOMPARE(m_read.vcommentmodule.size(), std::size_t(3));
}

/// Of the copies of each module, one per device, the first comes back.
void tst_KtlRoundTripModules::oneGroupForEachModule()
{
    const QList<std::uint32_t> idents{0x11, 0x12, 0x13};
    for (int place = 0; place < idents.size(); ++place) {
        const struct_commentmodule& group = m_read.vcommentmodule[static_cast<std::size_t>(place)];
        QCOMPARE(group.comment, std::string("Module"));
        QCOMPARE(group.vmodule.size(), std::size_t(1));
        QCOMPARE(group.vmodule[0].TypeAttributes.ModuleIdent, idents[place]);
    }
    QVERIFY(m_read.vcommentmodule[1].vmodule[0].RxPdo.vpdo.empty());
    QVERIFY(m_read.vcommentmodule[1].vmodule[0].Mailbox.COE.vinitcmd.empty());
}

void tst_KtlRoundTripModules::identity()
{
    QCOMPARE(analog().TypeAttributes.ModulePdoGroup, 3);
    QVERIFY(analog().TypeAttributes.SRA_ParamterSupported);
    QCOMPARE(analog().TypeAttributes.Name, std::string("Module"));
    QCOMPARE(analog().Name, std::string("TEMP"));
    QVERIFY(!m_read.vcommentmodule[2].vmodule[0].TypeAttributes.SRA_ParamterSupported);
}

/// One PDO with the entries of all that are on a sync manager; its head is that of the first.
void tst_KtlRoundTripModules::outputs()
{
    QCOMPARE(analog().RxPdo.vpdo.size(), std::size_t(1));
    const modulePdo& read = analog().RxPdo.vpdo[0];
    QCOMPARE(int(read.indexAttributes.index), 0x1600);
    QVERIFY(!read.Attributes.Fixed);
    QVERIFY(read.Attributes.Mandatory);
    QCOMPARE(read.Attributes.SM, 2);
    QCOMPARE(read.Attributes.SU, 0);
    QCOMPARE(read.Name, std::string("RPDO"));
    QCOMPARE(read.vEntry.size(), std::size_t(3));
    QCOMPARE(int(read.vEntry[0].indexAttributes.index), 0x7000);
    QVERIFY(read.vEntry[0].indexAttributes.DependOnSlot);
    QCOMPARE(read.vEntry[0].Linkto, -7);
    QCOMPARE(int(read.vEntry[1].SubIndex), 2);
    QCOMPARE(read.vEntry[1].BitLen, 264); // an output keeps 16 bits of its length
    QVERIFY(!read.vEntry[1].indexAttributes.DependOnSlot);
    QCOMPARE(int(read.vEntry[2].indexAttributes.index), 0x7001);
}

void tst_KtlRoundTripModules::inputs()
{
    QCOMPARE(analog().TxPdo.vpdo.size(), std::size_t(1));
    const modulePdo& read = analog().TxPdo.vpdo[0];
    QCOMPARE(int(read.indexAttributes.index), 0x1A00);
    QVERIFY(read.Attributes.Fixed);
    QVERIFY(!read.Attributes.Mandatory);
    QCOMPARE(read.Attributes.SM, 3);
    QCOMPARE(read.Attributes.SU, 4);
    QCOMPARE(read.Name, std::string("TPDO"));
    QCOMPARE(read.vEntry.size(), std::size_t(2));
    QCOMPARE(read.vEntry[0].BitLen, 16);
    QCOMPARE(read.vEntry[1].BitLen, 8); // the low 8 bits of 264
}

/// The transition and the values of a complete access are not in the file.
void tst_KtlRoundTripModules::commands()
{
    QCOMPARE(analog().Mailbox.COE.vinitcmd.size(), std::size_t(1));
    const struct_moduleInitCmd& read = analog().Mailbox.COE.vinitcmd[0];
    QVERIFY(read.indexAttributes.DependOnSlot);
    QCOMPARE(int(read.indexAttributes.index), 0x8000);
    QCOMPARE(int(read.SubIndex), 5);
    QCOMPARE(int(read.DataBytes), 4);
    QCOMPARE(read.Data, 0xABCDU);
    QCOMPARE(int(read.Transition), 0);
    QCOMPARE(int(read.bIfCA), 0);
    QVERIFY(read.m_CADataList.empty());
    QCOMPARE(read.Comment, std::string("IniCmd"));
    QCOMPARE(read.strData, std::string("IniCmd"));
}

void tst_KtlRoundTripModules::slotsAreEmpty()
{
    for (const struct_EtherCatDevice& device : m_read.device) {
        QCOMPARE(int(device.m_iDeviceType), 5);
        QCOMPARE(device.Slots.vslot.size(), std::size_t(2));
        QCOMPARE(device.Slots.vslot[0].Attributes.MaxInstances, 1U);
        QVERIFY(device.Slots.vslot[0].slotmodule.empty());
        QVERIFY(device.Slots.vslot[0].ModuleIdent.empty());
    }
}

static const testMain::Registration<tst_KtlRoundTripModules, QCoreApplication> registration;
#include "tst_KtlRoundTripModules.moc"
