// Identity and clocks: each rule with the smallest file that it fires on, and its twin that is just right.
// Covers clockRules.cpp, unitLabels.cpp.
#include "ruleRows.h"
#include "testMain.h"

using checkParts::deviceFile;
using ruleRows::add;

class tst_IdentityRules : public QObject
{
    Q_OBJECT

private slots:
    static void rules_data();
    static void rules() { ruleRows::check(); }
};

namespace {

/// The file of `deviceFile` with another text in the place of one of its own.
QByteArray changed(const char* from, const char* to)
{
    QByteArray file = deviceFile({});
    Q_ASSERT(file.contains(from));
    return file.replace(from, to);
}

void addIdentity()
{
    const QByteArray right = deviceFile({});
    const QStringList noVendor{"1:15: the vendor id is missing or 0"};
    add("vendor-id", "missing", changed("<Id>#x7e57</Id>", ""), noVendor);
    add("vendor-id", "0", changed("#x7e57", "0"), noVendor);
    add("vendor-id", "given", right);
    const QStringList noProduct{"2:1: the product code is missing or 0"};
    const auto withSyncManager = [](const char* attribute) {
        return deviceFile("<Sm>Inputs</Sm>").replace("ProductCode=\"#x1\"", attribute);
    };
    add("product-code", "missing", withSyncManager(""), noProduct);
    add("product-code", "0", withSyncManager("ProductCode='#x0'"), noProduct);
    add("product-code", "of a part that is not on the bus", changed("ProductCode=\"#x1\"", ""));
    add("product-code", "given", withSyncManager("ProductCode='1'"));
    add("revision-number", "missing", changed("RevisionNo=\"#x2\"", ""), {"2:1: the revision number is missing or 0"});
    add("revision-number", "given", right);
    const QByteArray twin = "</Device>\n<Device><Type ProductCode='1' RevisionNo='2'>T2</Type><Name>Twin</Name>";
    add("identity-twice", "in other digits", deviceFile(twin),
        {"4:1: device 1 of the file has the identity 0x7e57:0x1:0x2 too"});
    add("identity-twice", "without product code",
        deviceFile(twin)
            .replace("ProductCode='1'", "")
            .replace("ProductCode=\"#x1\"", "")
            .replace("RevisionNo='2'", "")
            .replace("RevisionNo=\"#x2\"", ""));
    add("identity-twice", "another revision", deviceFile(QByteArray(twin).replace("RevisionNo='2'", "RevisionNo='3'")));
}

void addNames()
{
    const QByteArray right = deviceFile({});
    add("name-missing", "missing", changed("<Name>Device</Name>", ""), {"2:1: the name is missing"});
    add("name-missing", "empty", changed("<Name>Device</Name>", "<Name/>"), {"2:1: the name is missing"});
    add("name-missing", "given", right);
    add("name-missing", "of a module", deviceFile({}, "<Module><Type ModuleIdent='1'>M</Type></Module>"),
        {"4:10: the name is missing"});
    add("name-control-characters", "a tab", changed("<Name>Device</Name>", "<Name>A&#9;B</Name>"),
        {"2:1: the name \"A\tB\" holds control characters"});
    add("name-control-characters", "a blank", changed("<Name>Device</Name>", "<Name>A B</Name>"));
}

/// A device with a mode of the distributed clocks on line 3, columns 5.
QByteArray modeFile(const QByteArray& parts)
{
    return deviceFile("<Dc><OpMode><Name>DC</Name>" + parts + "</OpMode></Dc>");
}

void addClocks()
{
    add("clock-bits", "decimal instead of hexadecimal", modeFile("<AssignActivate>300</AssignActivate>"),
        {"3:5: AssignActivate 0x12c of mode \"DC\" has bits without a meaning: 0xc"});
    add("clock-bits", "all that have one", modeFile("<AssignActivate>#xff31</AssignActivate>"));
    add("clock-cyclic-mode", "SYNC0", modeFile("<AssignActivate>#x200</AssignActivate>"),
        {"3:5: AssignActivate 0x200 of mode \"DC\" has a SYNC signal, but not the cyclic mode (bit 8)"});
    add("clock-cyclic-mode", "SYNC0 and cyclic mode", modeFile("<AssignActivate>#x300</AssignActivate>"));
    add("clock-cyclic-mode", "set when the start time is written", modeFile("<AssignActivate>#xa00</AssignActivate>"));
    add("clock-bits", "a name in two pieces",
        deviceFile("<Dc>\n<OpMode><Name>D<!-- -->C</Name><AssignActivate>2</AssignActivate></OpMode></Dc>"),
        {"4:1: AssignActivate 0x2 of mode \"DC\" has bits without a meaning: 0x2"});
    add("clock-cyclic-mode", "free run", modeFile("<AssignActivate>#x0</AssignActivate>"));
    add("clock-sync1-alone", "alone", modeFile("<AssignActivate>#x500</AssignActivate>"),
        {"3:5: AssignActivate 0x500 of mode \"DC\" has SYNC1 without SYNC0"});
    add("clock-sync1-alone", "with SYNC0", modeFile("<AssignActivate>#x700</AssignActivate>"));
    add("clock-time", "a cycle in us", modeFile("<CycleTimeSync0>4999</CycleTimeSync0>"),
        {"3:5: CycleTimeSync0 of mode \"DC\" is 4999 ns, no bus has such a cycle"});
    add("clock-time", "a cycle of a second", modeFile("<CycleTimeSync0>1000000000</CycleTimeSync0>"),
        {"3:5: CycleTimeSync0 of mode \"DC\" is 1000000000 ns, no bus has such a cycle"});
    add("clock-time", "a negative cycle", modeFile("<CycleTimeSync0>-1</CycleTimeSync0>"),
        {"3:5: CycleTimeSync0 of mode \"DC\" is -1 ns, no bus has such a cycle"});
    add("clock-time", "SYNC1 at any distance", modeFile("<CycleTimeSync1>-1</CycleTimeSync1>"));
    add("clock-time", "a shift of a second", modeFile("<ShiftTimeSync1>-1000000000</ShiftTimeSync1>"),
        {"3:5: ShiftTimeSync1 of mode \"DC\" is -1000000000 ns, a second or more"});
    add("clock-time", "just right",
        modeFile("<CycleTimeSync0>5000</CycleTimeSync0><ShiftTimeSync0>-999999999</ShiftTimeSync0>"
                 "<CycleTimeSync1>0</CycleTimeSync1>"));
    add("clock-mode-name", "missing", deviceFile("<Dc><OpMode/></Dc>"), {"3:5: the operation mode has no name"});
    add("clock-mode-name", "given", modeFile({}));
}

} // namespace

void tst_IdentityRules::rules_data()
{
    ruleRows::addColumns();
    addIdentity();
    addNames();
    addClocks();
}

static const testMain::Registration<tst_IdentityRules, testMain::NoApplication> registration;
#include "tst_IdentityRules.moc"
