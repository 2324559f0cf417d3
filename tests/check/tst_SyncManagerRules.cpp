// Sync managers and FMMUs: each rule with the smallest file that it fires on, and its twin that is just right.
// Covers fmmuRules.cpp, memoryRules.cpp, processData.cpp.
#include "ruleRows.h"
#include "testMain.h"

using checkParts::deviceFile;
using ruleRows::add;

class tst_SyncManagerRules : public QObject
{
    Q_OBJECT

private slots:
    static void rules_data();
    static void rules() { ruleRows::check(); }
};

namespace {

const QByteArray mailboxes = "<Sm DefaultSize='128' StartAddress='#x1000' ControlByte='#x26' Enable='1'>MBoxOut</Sm>\n"
                             "<Sm DefaultSize='128' StartAddress='#x1080' ControlByte='#x22' Enable='1'>MBoxIn</Sm>\n";

/// An output and an input area, the input area on line 4.
QByteArray processData(const QByteArray& inputs)
{
    return "<Sm StartAddress='#x1100' ControlByte='#x64' Enable='1'>Outputs</Sm>\n" + inputs;
}

/// A PDO with one entry.
QByteArray pdo(const char* name, int syncManager, const char* index, int bits)
{
    return QStringLiteral("<%1 Sm='%2'><Index>%3</Index><Entry><Index>#x6000</Index><BitLen>%4</BitLen></Entry></%1>\n")
        .arg(QLatin1String(name))
        .arg(syncManager)
        .arg(QLatin1String(index))
        .arg(bits)
        .toUtf8();
}

void addNumbers()
{
    const QByteArray one = "<Sm StartAddress='#x1100' ControlByte='#x20'>Inputs</Sm>\n";
    add("pdo-sync-manager", "on the first one beyond", deviceFile(one + pdo("TxPdo", 1, "#x1a00", 8)),
        {"4:1: PDO 0x1a00 is on sync manager 1, the device has 1"});
    add("pdo-sync-manager", "on the last one", deviceFile(one + pdo("TxPdo", 0, "#x1a00", 8)));
    add("pdo-sync-manager", "on none", deviceFile("<TxPdo><Index>#x1a00</Index></TxPdo>"));
    const QByteArray virtualOne = "<Sm Virtual='1'>Inputs</Sm>\n";
    const QByteArray mailboxFirst = "<Sm>MBoxOut</Sm><Sm>Outputs</Sm><Sm>Inputs</Sm>\n";
    add("pdo-sync-manager-direction", "an output on the mailbox",
        deviceFile(mailboxFirst + pdo("RxPdo", 0, "#x1600", 8)),
        {"4:1: PDO 0x1600, an RxPdo, is on sync manager 0, which is a mailbox"});
    add("pdo-sync-manager-direction", "an output on inputs", deviceFile(mailboxFirst + pdo("RxPdo", 2, "#x1600", 8)),
        {"4:1: PDO 0x1600, an RxPdo, is on sync manager 2, which is for inputs"});
    add("pdo-sync-manager-direction", "an input on outputs", deviceFile(mailboxFirst + pdo("TxPdo", 1, "#x1a00", 8)),
        {"4:1: PDO 0x1a00, a TxPdo, is on sync manager 1, which is for outputs"});
    add("pdo-sync-manager-direction", "just right",
        deviceFile(mailboxFirst + pdo("RxPdo", 1, "#x1600", 8) + pdo("TxPdo", 2, "#x1a00", 8)));
    add("sync-manager-count", "five", deviceFile(virtualOne.repeated(5)),
        {"7:1: the device has 5 sync managers, the controller handles 4"});
    add("sync-manager-count", "four", deviceFile(virtualOne.repeated(4)));
    add("sync-manager-kind", "in another case", deviceFile("<Sm>outputs</Sm>"),
        {"3:1: \"outputs\" is not a kind of sync manager; it goes out as a mailbox output"});
    add("sync-manager-kind", "a name that is known", deviceFile("<Sm>Outputs</Sm>"));
}

void addSizes()
{
    const QByteArray two = "<Sm MaxSize='2' StartAddress='#x1100' ControlByte='#x20'>Inputs</Sm>\n";
    add("sync-manager-max-size", "a bit too much", deviceFile(two + pdo("TxPdo", 0, "#x1a00", 17)),
        {"3:1: the PDOs of sync manager 0 take 3 bytes, its MaxSize is 2"});
    add("sync-manager-max-size", "just right", deviceFile(two + pdo("TxPdo", 0, "#x1a00", 16)));
    const QByteArray channel = pdo("TxPdo", 0, "#x1a00", 1) + pdo("TxPdo", 0, "#x1a01", 1);
    add("sync-manager-length", "two bits", deviceFile(two + channel),
        {"3:1: sync manager 0 goes out with 0 bytes, its PDOs take 1"});
    add("sync-manager-length", "12 and 12 bits",
        deviceFile(two + pdo("TxPdo", 0, "#x1a00", 12) + pdo("TxPdo", 0, "#x1a01", 12)),
        {"3:1: sync manager 0 goes out with 2 bytes, its PDOs take 3"});
    add("sync-manager-length", "whole bytes",
        deviceFile(two + pdo("TxPdo", 0, "#x1a00", 8) + pdo("TxPdo", 0, "#x1a01", 16)));
    const QByteArray any = "<Sm StartAddress='#x1100' ControlByte='#x20'>Inputs</Sm>\n";
    add("sync-manager-frame", "1,487 bytes", deviceFile(any + pdo("TxPdo", 0, "#x1a00", 11896)),
        {"3:1: the PDOs of sync manager 0 take 1487 bytes, a frame carries 1486"});
    add("sync-manager-frame", "1,486 bytes", deviceFile(any + pdo("TxPdo", 0, "#x1a00", 11888)));
}

void addMailboxes()
{
    QByteArray tooSmall = mailboxes;
    tooSmall.replace("'128' StartAddress='#x1080'", "'33' StartAddress='#x1080'");
    const QByteArray coe = "<Mailbox><CoE/></Mailbox>";
    add("mailbox-size", "33 bytes", deviceFile(tooSmall + coe),
        {"4:1: the mailbox of sync manager 1 has 33 bytes, it needs at least 34"});
    tooSmall.replace("'33'", "'34'");
    add("mailbox-size", "34 bytes", deviceFile(tooSmall + coe));
    add("mailbox-missing", "only one way", deviceFile("<Sm>MBoxOut</Sm>" + coe),
        {"2:1: a mailbox protocol is declared, but no sync managers for mailbox output and input"});
    add("mailbox-missing", "another protocol", deviceFile("<Mailbox><FoE/></Mailbox>"),
        {"2:1: a mailbox protocol is declared, but no sync managers for mailbox output and input"});
    add("mailbox-missing", "both ways", deviceFile(mailboxes + coe));
    add("mailbox-missing", "no CoE", deviceFile("<Sm>MBoxOut</Sm>"));
}

void addControlBytes()
{
    add("sync-manager-control", "outputs that are read", deviceFile("<Sm ControlByte='#x20'>Outputs</Sm>"),
        {"3:1: the control byte 0x20 of sync manager 0 (outputs) does not let the controller write"});
    add("sync-manager-control", "inputs that are written", deviceFile("<Sm ControlByte='#x64'>Inputs</Sm>"),
        {"3:1: the control byte 0x64 of sync manager 0 (inputs) does not let the controller read"});
    add("sync-manager-control", "a mailbox in buffer mode", deviceFile("<Sm ControlByte='#x24'>MBoxOut</Sm>"),
        {"3:1: the control byte 0x24 of sync manager 0 (mailbox output) is not set to mailbox mode"});
    add("sync-manager-control", "a mode that is none", deviceFile("<Sm ControlByte='#x21'>Inputs</Sm>"),
        {"3:1: the control byte 0x21 of sync manager 0 (inputs) is not set to buffer mode"});
    add("sync-manager-control", "just right",
        deviceFile(mailboxes + processData("<Sm StartAddress='#x1200' ControlByte='#x22'>Inputs</Sm>")));
}

void addFmmus()
{
    const QByteArray inputs =
        "<Sm StartAddress='#x1100' ControlByte='#x20'>Inputs</Sm>\n" + pdo("TxPdo", 0, "#x1a00", 8);
    add("fmmu-missing", "of the other direction", deviceFile("<Fmmu>Outputs</Fmmu>\n" + inputs),
        {"4:1: sync manager 0 carries inputs, and the device has no FMMU for them"});
    add("fmmu-missing", "just right", deviceFile("<Fmmu>Inputs</Fmmu>\n" + inputs));
    add("fmmu-missing", "nothing is assigned", deviceFile("<Sm>Inputs</Sm>"));
    const QByteArray fmmu = "<Fmmu>Inputs</Fmmu>\n";
    add("fmmu-count", "nine", deviceFile(fmmu.repeated(9)),
        {"11:1: the device declares 9 FMMUs, common slave controllers have 8 at most"});
    add("fmmu-count", "eight", deviceFile(fmmu.repeated(8)));
    add("fmmu-kind", "in another case", deviceFile("<Fmmu>inputs</Fmmu>"),
        {"3:1: \"inputs\" is not a kind of FMMU that the format has: Outputs, Inputs, MBoxState, MBoxOut, MBoxIn"});
    add("fmmu-kind", "one that the format lacks", deviceFile("<Fmmu>DynamicInputs</Fmmu>\n" + inputs),
        {"3:1: \"DynamicInputs\" is not a kind of FMMU that the format has: Outputs, Inputs, MBoxState, MBoxOut, "
         "MBoxIn"});
    add("fmmu-missing", "a dynamic one", deviceFile("<Fmmu>DynamicInputs</Fmmu>\n" + inputs));
    add("fmmu-kind", "known ones, and one that is not used",
        deviceFile("<Fmmu>Outputs</Fmmu><Fmmu>Inputs</Fmmu><Fmmu>MBoxState</Fmmu><Fmmu/>"));
}

void addMemory()
{
    QByteArray overlapping = mailboxes;
    overlapping.replace("#x1080", "#x107f");
    add("sync-manager-overlap", "by a byte", deviceFile(overlapping),
        {"4:1: sync manager 1 (0x107f to 0x10fe) overlaps sync manager 0 (0x1000 to 0x107f)"});
    const auto mailbox = [](const char* start, const char* size) {
        return QStringLiteral("<Sm DefaultSize='%1' StartAddress='%2' ControlByte='#x26'>MBoxOut</Sm>\n")
            .arg(QLatin1String(size), QLatin1String(start))
            .toUtf8();
    };
    add("sync-manager-overlap", "two within a long one",
        deviceFile(mailbox("#x1000", "512") + mailbox("#x1010", "16") + mailbox("#x1100", "16")),
        {"4:1: sync manager 1 (0x1010 to 0x101f) overlaps sync manager 0 (0x1000 to 0x11ff)",
         "5:1: sync manager 2 (0x1100 to 0x110f) overlaps sync manager 0 (0x1000 to 0x11ff)"});
    add("sync-manager-overlap", "just right", deviceFile(mailboxes));
    const auto buffers = [](const char* start) {
        return deviceFile(processData("<Sm StartAddress='" + QByteArray(start) + "' ControlByte='#x20'>Inputs</Sm>\n")
                          + pdo("RxPdo", 0, "#x1600", 32) + pdo("TxPdo", 1, "#x1a00", 8));
    };
    add("sync-manager-buffers", "the third one reaches over", buffers("#x110b"),
        {"3:1: the three buffers of sync manager 0 (4 bytes each from 0x1100) reach into sync manager 1 at 0x110b"});
    add("sync-manager-buffers", "just right", buffers("#x110c"));
    const auto mailboxAt = [](const char* start) {
        return deviceFile("<Sm DefaultSize='128' ControlByte='#x26' StartAddress='" + QByteArray(start)
                          + "'>MBoxOut</Sm>");
    };
    add("sync-manager-memory", "below", mailboxAt("#xfff"),
        {"3:1: sync manager 0 takes 0xfff to 0x107e, the memory of a device is 0x1000 to 0xffff"});
    add("sync-manager-memory", "above", mailboxAt("#xff81"),
        {"3:1: sync manager 0 takes 0xff81 to 0x10000, the memory of a device is 0x1000 to 0xffff"});
    add("sync-manager-memory", "the last bytes", mailboxAt("#xff80"));
    const QByteArray digital =
        "<Sm StartAddress='#xf00' ControlByte='#x44'>Outputs</Sm>" + pdo("RxPdo", 0, "#x1600", 8);
    const auto bufferAt = [](const char* start) {
        return deviceFile("<Sm StartAddress='" + QByteArray(start) + "' ControlByte='#x20'>Inputs</Sm>"
                          + pdo("TxPdo", 0, "#x1a00", 8));
    };
    add("sync-manager-memory", "three buffers", bufferAt("#xfffe"),
        {"3:1: sync manager 0 takes 0xfffe to 0xfffe, three times, the memory of a device is 0x1000 to 0xffff"});
    add("sync-manager-memory", "three buffers at the end", bufferAt("#xfffd"));
    add("sync-manager-memory", "the registers of general purpose inputs", bufferAt("#xf1f"));
    add("sync-manager-memory", "the register of digital outputs", deviceFile(digital));
    add("sync-manager-odd-address", "odd", mailboxAt("#x1001"),
        {"3:1: sync manager 0 begins at the odd address 0x1001"});
    add("sync-manager-odd-address", "even", mailboxAt("#x1002"));
}

} // namespace

void tst_SyncManagerRules::rules_data()
{
    ruleRows::addColumns();
    addNumbers();
    addSizes();
    addMailboxes();
    addControlBytes();
    addFmmus();
    addMemory();
}

static const testMain::Registration<tst_SyncManagerRules, testMain::NoApplication> registration;
#include "tst_SyncManagerRules.moc"
