// EoE and CoE items without complete access, byte for byte: heads, counts, commands.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

namespace {

QByteArray eoeOf(struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_EoEInitCmd(out, &device); });
}

QByteArray coeOf(struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_CoEInitCmd(out, &device); });
}

/// So many commands with their number as index, from 0.
template<typename Command> std::vector<Command> commands(std::uint32_t count);

template<> std::vector<struct_InitCmd> commands(std::uint32_t count)
{
    std::vector<struct_InitCmd> list(count);
    for (std::uint32_t number = 0; number < count; ++number)
        list[number].Index = static_cast<std::uint16_t>(number);
    return list;
}

template<> std::vector<struct_moduleInitCmd> commands(std::uint32_t count)
{
    std::vector<struct_moduleInitCmd> list(count);
    for (std::uint32_t number = 0; number < count; ++number)
        list[number].indexAttributes.index = static_cast<std::uint16_t>(number);
    return list;
}

/// The records of such commands.
QByteArray records(std::uint32_t count)
{
    QByteArray all;
    for (std::uint32_t number = 0; number < count; ++number)
        all += zeros(2) + le16(number) + zeros(8);
    return all;
}

} // namespace

class tst_InitCmdWriters : public QObject
{
    Q_OBJECT

private slots:
    void withoutCommands();
    void withoutDevice();
    void eoeItem();
    void eoeCount_data();
    void eoeCount();
    void coeItem();
    void coeFlags_data();
    void coeFlags();
    void coeCount_data();
    void coeCount();
    void transitionAndSubIndexAreCut();
};

void tst_InitCmdWriters::withoutCommands()
{
    struct_EtherCatDevice device;
    device.Name = "nothing but a name";
    QCOMPARE(eoeOf(device), bytes("45 9C 00 00  0C 00 00 00  00 00 00 00"));
    QCOMPARE(coeOf(device), bytes("46 9C 00 00  10 00 00 00  00 00 00 00 00 00 00 00"));
}

void tst_InitCmdWriters::withoutDevice()
{
    QCOMPARE(writtenBy([](std::FILE* out) { KTL_write_device_EoEInitCmd(out, nullptr); }), QByteArray());
    QCOMPARE(writtenBy([](std::FILE* out) { KTL_write_device_CoEInitCmd(out, nullptr); }), QByteArray());
}

void tst_InitCmdWriters::eoeItem()
{
    struct_EtherCatDevice device;
    device.Mailbox.EOE.Attributes.IP = true;
    device.Mailbox.COE.InitCmd.vinitcmd.resize(4); // no business of this item
    struct_InitCmd command;
    command.Transition = IP_PS;
    command.Index = 0xF001;
    command.SubIndex = 0x23;
    command.DataBytes = 0x0104;
    command.Data = 0xC0A80064;
    command.Comment = "not stored";
    command.strData = "not stored";
    device.Mailbox.EOE.InitCmd.vinitcmd = {command, struct_InitCmd()};
    QCOMPARE(eoeOf(device), bytes("45 9C 00 00" // m_iItemType 40005
                                  "24 00 00 00" // m_iSize 12 + 2 * 12
                                  "01 00 00 02" // m_bIP, m_bMAC, m_bTimeStamp, m_iInitCmdCount
                                  "03 00 01 F0" // Transition, Index
                                  "23 00 04 01" // SubIndex, bIfCA, DataBytes
                                  "64 00 A8 C0" // Data
                                  "00 00 00 00  00 00 00 00  00 00 00 00"));
    device.Mailbox.EOE.Attributes.IP = false;
    device.Mailbox.EOE.Attributes.MAC = true;
    QCOMPARE(eoeOf(device).mid(8, 4), bytes("00 01 00 02"));
}

void tst_InitCmdWriters::eoeCount_data()
{
    QTest::addColumn<uint>("count");
    QTest::addColumn<QByteArray>("head");
    QTest::addRow("255 commands fit") << 255U << bytes("45 9C 00 00  00 0C 00 00  00 00 00 FF"); // 12 + 3060
    QTest::addRow("256 commands announce none") << 256U << bytes("45 9C 00 00  0C 00 00 00  00 00 00 00");
    QTest::addRow("258 commands announce 2") << 258U << bytes("45 9C 00 00  24 00 00 00  00 00 00 02");
}

/// Count and size are those of the low 8 bits, and all commands are written, with no fill after them.
void tst_InitCmdWriters::eoeCount()
{
    QFETCH(uint, count);
    QFETCH(QByteArray, head);
    struct_EtherCatDevice device;
    device.Mailbox.EOE.InitCmd.vinitcmd = commands<struct_InitCmd>(count);
    QCOMPARE(eoeOf(device), head + records(count));
}

void tst_InitCmdWriters::coeItem()
{
    struct_EtherCatDevice device;
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(4); // no business of this item
    struct_InitCmd ofDevice;
    ofDevice.Transition = PS;
    ofDevice.Index = 0x1C12;
    ofDevice.SubIndex = 0x01;
    ofDevice.DataBytes = 2;
    ofDevice.Data = 0x1600;
    ofDevice.Comment = "not stored";
    ofDevice.strData = "0x1600";
    ofDevice.m_CADataList = {0x55555555}; // not looked at, as the command is no complete access
    device.Mailbox.COE.InitCmd.vinitcmd = {ofDevice};
    struct_moduleInitCmd ofModule;
    ofModule.Transition = SO;
    ofModule.indexAttributes.index = 0x8010;
    ofModule.indexAttributes.DependOnSlot = true; // none of the flags is stored, nor is the slot
    ofModule.indexAttributes.DependOnSlotGroup = true;
    ofModule.indexAttributes.AdaptAutomatically = true;
    ofModule.Instances = 7;
    ofModule.SubIndex = 0x1F;
    ofModule.DataBytes = 0x0203;
    ofModule.Data = 0x89ABCDEF;
    ofModule.Comment = "not stored";
    device.mMailbox.COE.vinitcmd = {ofModule, struct_moduleInitCmd()};
    QCOMPARE(coeOf(device), bytes("46 9C 00 00" // m_iItemType 40006
                                  "34 00 00 00" // m_iSize 16 + 3 * 12
                                  "00 00 00 00" // m_bSdoInfo, m_bPdoAssign, m_bPdoUpload, m_bPdoConfig
                                  "00 00 00 03" // m_bSegmentedSdo, m_bCompleteAccess, m_bDiagHistory, m_iInitCmdCount
                                  "02 00 12 1C" // Transition, Index: the device's commands are first
                                  "01 00 02 00" // SubIndex, bIfCA, DataBytes
                                  "00 16 00 00" // Data
                                  "06 00 10 80"
                                  "1F 00 03 02"
                                  "EF CD AB 89"
                                  "00 00 00 00  00 00 00 00  00 00 00 00"));
}

void tst_InitCmdWriters::coeFlags_data()
{
    QTest::addColumn<int>("flag");
    QTest::addColumn<QByteArray>("expected"); // the eight bytes after the item head
    QTest::addRow("SdoInfo") << 0 << bytes("01 00 00 00 00 00 00 00");
    QTest::addRow("PdoAssign") << 1 << bytes("00 01 00 00 00 00 00 00");
    QTest::addRow("PdoUpload") << 2 << bytes("00 00 01 00 00 00 00 00");
    QTest::addRow("PdoConfig") << 3 << bytes("00 00 00 01 00 00 00 00");
    QTest::addRow("SegmentedSdo") << 4 << bytes("00 00 00 00 01 00 00 00");
    QTest::addRow("CompleteAccess") << 5 << bytes("00 00 00 00 00 01 00 00");
    QTest::addRow("DiagHistory") << 6 << bytes("00 00 00 00 00 00 01 00");
}

void tst_InitCmdWriters::coeFlags()
{
    static constexpr bool CoeAttributes::*flags[] = {
        &CoeAttributes::SdoInfo,     &CoeAttributes::PdoAssign,    &CoeAttributes::PdoUpload,
        &CoeAttributes::PdoConfig,   &CoeAttributes::SegmentedSdo, &CoeAttributes::CompleteAccess,
        &CoeAttributes::DiagHistory,
    };
    QFETCH(int, flag);
    QFETCH(QByteArray, expected);
    struct_EtherCatDevice device;
    device.Mailbox.COE.Attributes.*flags[flag] = true;
    QCOMPARE(coeOf(device), bytes("46 9C 00 00  10 00 00 00") + expected);
}

void tst_InitCmdWriters::coeCount_data()
{
    QTest::addColumn<uint>("ofDevice");
    QTest::addColumn<uint>("ofModules");
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QByteArray>("stored");
    QTest::addRow("one of the device") << 1U << 0U << bytes("1C 00 00 00") << bytes("01");
    QTest::addRow("one of the modules") << 0U << 1U << bytes("1C 00 00 00") << bytes("01");
    QTest::addRow("254 is the last that is counted") << 200U << 54U << bytes("F8 0B 00 00") << bytes("FE"); // 3064
    QTest::addRow("255 saturates") << 255U << 0U << bytes("04 0C 00 00") << bytes("FF"); // 3076
    QTest::addRow("256 saturates and does not wrap") << 128U << 128U << bytes("10 0C 00 00") << bytes("FF"); // 3088
    QTest::addRow("300 saturates") << 0U << 300U << bytes("20 0E 00 00") << bytes("FF"); // 3616
    QTest::addRow("512 saturates") << 512U << 0U << bytes("10 18 00 00") << bytes("FF"); // 6160
}

/// The count saturates at 255; the size and the records are complete.
void tst_InitCmdWriters::coeCount()
{
    QFETCH(uint, ofDevice);
    QFETCH(uint, ofModules);
    QFETCH(QByteArray, size);
    QFETCH(QByteArray, stored);
    struct_EtherCatDevice device;
    device.Mailbox.COE.InitCmd.vinitcmd = commands<struct_InitCmd>(ofDevice);
    device.mMailbox.COE.vinitcmd = commands<struct_moduleInitCmd>(ofModules);
    QCOMPARE(coeOf(device), bytes("46 9C 00 00") + size + zeros(7) + stored + records(ofDevice) + records(ofModules));
}

/// `Transition` keeps 16 bits, and the sub-index of a module's command 8 of its 16.
void tst_InitCmdWriters::transitionAndSubIndexAreCut()
{
    struct_EtherCatDevice device;
    struct_InitCmd ofDevice;
    ofDevice.Transition = static_cast<NMTOKEN>(0x00050002);
    device.Mailbox.COE.InitCmd.vinitcmd = {ofDevice};
    struct_moduleInitCmd ofModule;
    ofModule.Transition = static_cast<NMTOKEN>(0x00060001);
    ofModule.SubIndex = 0x0134;
    device.mMailbox.COE.vinitcmd = {ofModule};
    QCOMPARE(coeOf(device).mid(16), bytes("02 00 00 00  00 00 00 00  00 00 00 00"
                                          "01 00 00 00  34 00 00 00  00 00 00 00"));
}

static const testMain::Registration<tst_InitCmdWriters, QCoreApplication> registration;
#include "tst_InitCmdWriters.moc"
