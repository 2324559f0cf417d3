// Identity, sync managers, FMMUs and distributed clocks of devices, by what differs.
// Covers identityComparison.cpp, clockComparison.cpp, esiSubject.cpp.
#include "comparedFiles.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

using unitParts::deviceFile;

class tst_ChannelComparison : public QObject
{
    Q_OBJECT

private slots:
    static void parts_data();
    static void parts();
    static void identity_data();
    static void identity();
};

namespace {

void add(const char* row, const QByteArray& before, const QByteArray& after, const QStringList& lines = {})
{
    QTest::newRow(row) << before << after << lines;
}

const QByteArray sm = "<Sm StartAddress='#x1000' MinSize='34' MaxSize='128' DefaultSize='128' ControlByte='#x26' "
                      "Enable='1'>MBoxOut</Sm>";

QByteArray mode(const QByteArray& parts, const QByteArray& name = "DC")
{
    return "<OpMode><Name>" + name + "</Name>" + parts + "</OpMode>";
}

QByteArray clocks(const QByteArray& modes)
{
    return "<Dc>" + modes + "</Dc>";
}

void addSyncManagers()
{
    add("nothing", sm, sm);
    add("written in another way", sm,
        "<!-- the mailbox -->\n<Sm Enable='true' ControlByte='38' DefaultSize='#x80' MaxSize='128' MinSize='34' "
        "StartAddress='4096'>MBoxOut</Sm>");
    add("start address", sm, QByteArray(sm).replace("#x1000", "#x1100"),
        {"breaking changed sync manager 0 start address 0x1000 -> 0x1100"});
    add("least size", sm, QByteArray(sm).replace("34", "36"), {"breaking changed sync manager 0 least size 34 -> 36"});
    add("largest size", sm, QByteArray(sm).replace("MaxSize='128'", "MaxSize='64'"),
        {"breaking changed sync manager 0 largest size 128 -> 64"});
    add("default size of a mailbox", sm, QByteArray(sm).replace("DefaultSize='128'", "DefaultSize='64'"),
        {"breaking changed sync manager 0 default size 128 -> 64"});
    add("default size of process data", "<Sm DefaultSize='4'>Outputs</Sm>", "<Sm DefaultSize='6'>Outputs</Sm>",
        {"behaviour changed sync manager 0 default size 4 -> 6"});
    add("control byte", sm, QByteArray(sm).replace("#x26", "#x22"),
        {"breaking changed sync manager 0 control byte 0x26 -> 0x22"});
    add("enabled", sm, QByteArray(sm).replace("Enable='1'", "Enable='0'"),
        {"breaking changed sync manager 0 enabled 1 -> 0"});
    add("virtual", sm, QByteArray(sm).replace("Enable", "Virtual='1' Enable"),
        {"breaking changed sync manager 0 virtual no -> yes"});
    add("kind", "<Sm>MBoxOut</Sm>", "<Sm>MBoxIn</Sm>", {"breaking changed sync manager 0 kind MBoxOut -> MBoxIn"});
    add("name of a kind without a word", "<Sm>Own</Sm>", "<Sm>Other</Sm>",
        {"text changed sync manager 0 name Own -> Other"});
    add("one more", sm, sm + "<Sm>MBoxIn</Sm>", {"breaking added sync manager 1 MBoxIn"});
    add("one less", sm + "<Sm>MBoxIn</Sm>", sm, {"breaking removed sync manager 1 MBoxIn"});
}

void addFmmus()
{
    add("FMMU added", "<Fmmu>Outputs</Fmmu>", "<Fmmu>Outputs</Fmmu><Fmmu>Inputs</Fmmu>",
        {"breaking added FMMU 1 Inputs"});
    add("FMMU of a kind without a word", "<Fmmu>Outputs</Fmmu>", "<Fmmu>Outputs</Fmmu><Fmmu>MBoxState</Fmmu>",
        {"breaking added FMMU 1 MBoxState"});
    add("FMMU kind", "<Fmmu>Outputs</Fmmu>", "<Fmmu>Inputs</Fmmu>", {"breaking changed FMMU 0 kind Outputs -> Inputs"});
    add("FMMU sync manager", "<Fmmu Sm='2'>Outputs</Fmmu>", "<Fmmu Sm='3'>Outputs</Fmmu>",
        {"breaking changed FMMU 0 sync manager 2 -> 3"});
    add("FMMU sync unit", "<Fmmu Su='0'>Outputs</Fmmu>", "<Fmmu Su='1'>Outputs</Fmmu>",
        {"breaking changed FMMU 0 sync unit 0 -> 1"});
    add("FMMU in OP only", "<Fmmu>Outputs</Fmmu>", "<Fmmu OpOnly='1'>Outputs</Fmmu>",
        {"behaviour changed FMMU 0 in OP only no -> yes"});
}

void addModes()
{
    const QByteArray other = mode({}, "Free");
    add("assign-activate word", clocks(mode("<AssignActivate>#x300</AssignActivate>")),
        clocks(mode("<AssignActivate>#x700</AssignActivate>")),
        {"behaviour changed operation mode \"DC\" assign-activate word 0x300 -> 0x700"});
    add("times",
        clocks(mode("<CycleTimeSync0>0</CycleTimeSync0><ShiftTimeSync0>1</ShiftTimeSync0>"
                    "<CycleTimeSync1>2</CycleTimeSync1><ShiftTimeSync1>3</ShiftTimeSync1>")),
        clocks(mode("<CycleTimeSync0>500</CycleTimeSync0><ShiftTimeSync0>-1</ShiftTimeSync0>"
                    "<CycleTimeSync1>20</CycleTimeSync1><ShiftTimeSync1>30</ShiftTimeSync1>")),
        {"behaviour changed operation mode \"DC\" cycle time of SYNC 0 (ns) 0 -> 500",
         "behaviour changed operation mode \"DC\" shift time of SYNC 0 (ns) 1 -> -1",
         "behaviour changed operation mode \"DC\" cycle time of SYNC 1 (ns) 2 -> 20",
         "behaviour changed operation mode \"DC\" shift time of SYNC 1 (ns) 3 -> 30"});
    add("description", clocks(mode("<Desc>old</Desc>")), clocks(mode("<Desc>new</Desc>")),
        {"text changed operation mode \"DC\" description old -> new"});
    add("factors", clocks(mode("<CycleTimeSync0 Factor='1'>0</CycleTimeSync0>")),
        clocks(mode("<CycleTimeSync0 Factor='-2'>0</CycleTimeSync0><CycleTimeSync1 Factor='3'>0</CycleTimeSync1>")),
        {"behaviour changed operation mode \"DC\" factor of the cycle time of SYNC 0 1 -> -2",
         "behaviour changed operation mode \"DC\" factor of the cycle time of SYNC 1 0 -> 3"});
    add("oversampling of a PDO of a mode", clocks(mode("<Sm No='2'><Pdo OSFac='2'>#x1600</Pdo></Sm>")),
        clocks(mode("<Sm No='2'><Pdo OSFac='3'>#x1600</Pdo></Sm>")),
        {"behaviour changed operation mode \"DC\" PDOs by sync manager 2: 0x1600 x 2 -> 2: 0x1600 x 3"});
    add("PDOs of a mode", clocks(mode("<Sm No='2'><Pdo>#x1600</Pdo></Sm>")),
        clocks(mode("<Sm No='2'><Pdo>#x1601</Pdo></Sm>")),
        {"behaviour changed operation mode \"DC\" PDOs by sync manager 2: 0x1600 -> 2: 0x1601"});
    add("order but for the chosen one has no meaning", clocks(mode({}) + other + mode({}, "Third")),
        clocks(mode({}) + mode({}, "Third") + other));
    add("another one is chosen", clocks(mode({}) + other), clocks(other + mode({})),
        {"behaviour changed chosen operation mode DC -> Free"});
    add("mode removed", clocks(mode({}) + other), clocks(mode({})), {"behaviour removed operation mode \"Free\""});
    add("mode added", clocks(mode({})), clocks(mode({}) + other), {"behaviour added operation mode \"Free\""});
}

void addMailboxes()
{
    const auto coe = [](const QByteArray& attributes) { return "<Mailbox><CoE " + attributes + "/></Mailbox>"; };
    add("CoE", {}, coe({}), {"breaking changed CoE mailbox no -> yes"});
    add("what CoE can do", coe({}),
        coe("SdoInfo='1' PdoAssign='1' PdoUpload='1' PdoConfig='1' SegmentedSdo='1' CompleteAccess='1' "
            "DiagHistory='1'"),
        {"behaviour changed SDO information no -> yes", "behaviour changed assigning PDOs no -> yes",
         "behaviour changed reading PDOs from the device no -> yes", "behaviour changed mapping PDO entries no -> yes",
         "behaviour changed segmented SDO no -> yes", "behaviour changed complete access no -> yes",
         "behaviour changed diagnosis history no -> yes"});
    add("EoE addresses", "<Mailbox><EoE IP='0' MAC='0'/></Mailbox>", "<Mailbox><EoE IP='1' MAC='1'/></Mailbox>",
        {"behaviour changed IP address over EoE no -> yes", "behaviour changed MAC address over EoE no -> yes"});
}

QByteArray typed(const QByteArray& attributes, const QByteArray& name = "Device", const QByteArray& type = "T1")
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type " + attributes + ">" + type
           + "</Type><Name>" + name + "</Name></Device></Devices></Descriptions></EtherCATInfo>";
}

} // namespace

void tst_ChannelComparison::parts_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    addSyncManagers();
    addFmmus();
    addModes();
    addMailboxes();
    const auto slotWith = [](const QByteArray& moduleClass) {
        return "<Slots><Slot MaxInstances='1'><ModuleClass><Class>DI</Class>" + moduleClass
               + "</ModuleClass></Slot></Slots>";
    };
    add("what is in a class of modules besides its name", slotWith("<Name>Inputs</Name>"), slotWith("<!-- inputs -->"));
}

void tst_ChannelComparison::parts()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(comparedFiles::linesOf(deviceFile(before), deviceFile(after)), "lines");
}

void tst_ChannelComparison::identity_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    const QByteArray one = typed("ProductCode='16' RevisionNo='#x10'");
    add("nothing", one, typed("RevisionNo='16' ProductCode='#x10'"));
    add("revision", one, typed("ProductCode='16' RevisionNo='#x20'"), {"breaking changed revision 0x10 -> 0x20"});
    add("product, by name", one, typed("ProductCode='17' RevisionNo='#x10'"),
        {"breaking changed product code 0x10 -> 0x11"});
    add("product, with another name", one, typed("ProductCode='17' RevisionNo='#x10'", "Other"),
        {"breaking removed device", "behaviour added device"});
    add("vendor, by name", one, QByteArray(one).replace("<Id>1<", "<Id>2<"), {"breaking changed vendor id 0x1 -> 0x2"});
    add("serial number", one, typed("ProductCode='16' RevisionNo='#x10' SerialNo='5'"),
        {"breaking changed serial number 0x00 -> 0x5"});
    add("check of the product code", one, typed("ProductCode='16' RevisionNo='#x10' CheckProductCode='EQ'"),
        {"behaviour changed check of the product code '' -> EQ"});
    add("type", one, typed("ProductCode='16' RevisionNo='#x10'", "Device", "T2"), {"text changed type T1 -> T2"});
    add("name", one, typed("ProductCode='16' RevisionNo='#x10'", "Other"), {"text changed name Device -> Other"});
}

void tst_ChannelComparison::identity()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(comparedFiles::linesOf(before, after), "lines");
}

static const testMain::Registration<tst_ChannelComparison, testMain::NoApplication> registration;
#include "tst_ChannelComparison.moc"
