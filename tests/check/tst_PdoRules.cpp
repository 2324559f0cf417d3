// PDOs and startup commands: each rule with the smallest file that it fires on, and its twin that is just right.
// Covers esiUnits.cpp, startupOrder.cpp, startupRules.cpp.
#include "ruleRows.h"
#include "testMain.h"

using checkParts::deviceFile;
using ruleRows::add;

class tst_PdoRules : public QObject
{
    Q_OBJECT

private slots:
    static void rules_data();
    static void rules() { ruleRows::check(); }
    static void link_data();
    static void link();
};

namespace {

const QByteArray outputsAndInputs = "<Sm StartAddress='#x1100' ControlByte='#x64'>Outputs</Sm>"
                                    "<Sm StartAddress='#x1200' ControlByte='#x20'>Inputs</Sm>\n";

QByteArray entry(int bits)
{
    return "<Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>" + QByteArray::number(bits)
           + "</BitLen></Entry>";
}

/// A TxPdo on a line of its own.
QByteArray input(const char* attributes, const char* index, const QByteArray& more)
{
    return "<TxPdo " + QByteArray(attributes) + "><Index>" + index + "</Index>" + more + "</TxPdo>\n";
}

void addIndexes()
{
    add("pdo-index-twice", "of both directions",
        deviceFile(input("", "#x1a00", {}) + "<RxPdo><Index>6656</Index></RxPdo>\n"),
        {"3:1: PDO 0x1a00 is declared twice"}); // outputs come first
    add("pdo-index-twice", "a sample and a PDO",
        deviceFile(input("OSFac='2' OSMin='1' OSMax='2' OSIndexInc='1'", "#x1a00", entry(8))
                   + input("", "#x1a01", entry(8))),
        {"2:1: PDO 0x1a01 is declared twice, once as a sample of another one"});
    add("pdo-index-twice", "two indexes", deviceFile(input("", "#x1a00", {}) + input("", "#x1a01", {})));
    add("pdo-index-twice", "without index", deviceFile("<TxPdo/><TxPdo/>"));
    const QByteArray coe = "<Mailbox><CoE/></Mailbox>\n";
    add("pdo-index-range", "of an output", deviceFile(coe + input("", "#x1600", entry(8))),
        {"4:1: PDO 0x1600 is outside 0x1a00 to 0x1bff, the indexes of TxPdos"});
    add("pdo-index-range", "one too high", deviceFile(coe + input("", "#x1c00", entry(8))),
        {"4:1: PDO 0x1c00 is outside 0x1a00 to 0x1bff, the indexes of TxPdos"});
    add("pdo-index-range", "the last one", deviceFile(coe + input("", "#x1bff", entry(8))));
    add("pdo-index-range", "without a mailbox", deviceFile(input("", "#x1600", entry(8))));
    add("pdo-index-range", "empty", deviceFile(coe + input("", "#x1600", {})));
}

void addContents()
{
    add("pdo-whole-bytes", "12 bits", deviceFile(outputsAndInputs + input("Sm='1'", "#x1a00", entry(12))),
        {"4:1: PDO 0x1a00 is assigned and has 12 bits, which is not a whole number of bytes"});
    add("pdo-whole-bytes", "with a gap",
        deviceFile(outputsAndInputs
                   + input("Sm='1'", "#x1a00", entry(12) + "<Entry><Index>0</Index><BitLen>4</BitLen></Entry>")));
    add("pdo-whole-bytes", "a channel of one bit", deviceFile(outputsAndInputs + input("Sm='1'", "#x1a00", entry(1))));
    add("pdo-whole-bytes", "not assigned", deviceFile(outputsAndInputs + input("", "#x1a00", entry(12))));
    add("pdo-entry-count", "255", deviceFile(input("", "#x1a00", entry(8).repeated(255))),
        {"3:1: PDO 0x1a00 has 255 entries, 254 can be mapped"});
    add("pdo-entry-count", "254", deviceFile(input("", "#x1a00", entry(8).repeated(254))));
    add("pdo-entry-bits", "256", deviceFile(input("", "#x1a00", "\n" + entry(256))),
        {"4:1: entry 0x6000:1 of PDO 0x1a00 has 256 bits, a mapping carries 255"});
    QByteArray wrapped = entry(255);
    wrapped.replace("255", "4294967295");
    add("pdo-entry-bits", "2^32 - 1", deviceFile(input("", "#x1a00", "\n" + wrapped)),
        {"4:1: entry 0x6000:1 of PDO 0x1a00 has 4294967295 bits, a mapping carries 255"});
    add("pdo-entry-bits", "255", deviceFile(input("", "#x1a00", entry(255))));
    const QByteArray samples = input("Sm='1' OSFac='10' OSMin='1' OSMax='10' OSIndexInc='1'", "#x1a00", entry(8));
    add("pdo-oversampling-samples", "ten", deviceFile(outputsAndInputs + samples),
        {"4:1: of PDO 0x1a00, the samples after the ninth (1) go out on no sync manager"});
    add("pdo-oversampling-samples", "nine",
        deviceFile(outputsAndInputs + QByteArray(samples).replace("OSMax='10'", "OSMax='9'")));
    add("pdo-oversampling", "no range", deviceFile(input("OSFac='10'", "#x1a00", entry(8))),
        {"3:1: PDO 0x1a00 is oversampled, but its samples 0 to 0 give no copy"});
    add("pdo-oversampling", "an empty range",
        deviceFile(input("OSFac='10' OSMin='5' OSMax='4' OSIndexInc='1'", "#x1a00", entry(8))),
        {"3:1: PDO 0x1a00 is oversampled, but its samples 5 to 4 give no copy"});
    add("pdo-oversampling", "two samples",
        deviceFile(input("OSFac='2' OSMin='1' OSMax='2' OSIndexInc='1'", "#x1a00", entry(8))));
}

void addAssignment()
{
    const QByteArray excluding = input("Sm='1'", "#x1a00", "<Exclude>#x1a01</Exclude>" + entry(8));
    add("pdo-excluded", "both are assigned",
        deviceFile(outputsAndInputs + excluding + input("Sm='1'", "#x1a01", entry(8))),
        {"4:1: PDO 0x1a00 excludes PDO 0x1a01, and both are assigned"});
    add("pdo-excluded", "one is", deviceFile(outputsAndInputs + excluding + input("", "#x1a01", entry(8))));
    add("pdo-mandatory", "on none", deviceFile(outputsAndInputs + input("Mandatory='1'", "#x1a00", entry(8))),
        {"4:1: PDO 0x1a00 is mandatory, but on no sync manager"});
    add("pdo-mandatory", "assigned", deviceFile(outputsAndInputs + input("Mandatory='1' Sm='1'", "#x1a00", entry(8))));
    const auto mode = [](const char* syncManager) {
        return deviceFile(outputsAndInputs + input("Fixed='1' Sm='1'", "#x1a00", entry(8))
                          + "<Dc><OpMode><Name>DC</Name><Sm No='" + syncManager
                          + "'><Pdo>#x1a00</Pdo></Sm></OpMode></Dc>");
    };
    add("pdo-fixed-moved", "by a mode", mode("0"),
        {"5:5: the mode \"DC\" puts PDO 0x1a00 on sync manager 0, it is fixed on 1"});
    add("pdo-fixed-moved", "where it is", mode("1"));
}

/// A device with one assigned output PDO and startup commands, each on a line of its own from line 5 on.
QByteArray commandFile(const QByteArray& commands, const char* coe = "PdoAssign='1'")
{
    return deviceFile("<Sm StartAddress='#x1100' ControlByte='#x64'>Outputs</Sm>\n"
                      "<RxPdo Sm='0' Fixed='1'><Index>#x1600</Index>"
                      + entry(8) + "</RxPdo>\n<Mailbox><CoE " + coe + ">" + commands + "</CoE></Mailbox>");
}

QByteArray command(const char* index, int subIndex, const char* data, const char* transition = "PS",
                   const char* attributes = "")
{
    return QStringLiteral("\n<InitCmd %1><Transition>%2</Transition><Index>%3</Index><SubIndex>%4</SubIndex>"
                          "<Data>%5</Data></InitCmd>")
        .arg(QLatin1String(attributes), QLatin1String(transition), QLatin1String(index), QString::number(subIndex),
             QLatin1String(data))
        .toUtf8();
}

void addMappingOrder()
{
    const QByteArray cleared = command("#x1c10", 0, "00");
    const QByteArray mapping =
        command("#x1600", 0, "00") + command("#x1600", 1, "08010060") + command("#x1600", 0, "01");
    const QByteArray assigned = command("#x1c10", 1, "0016") + command("#x1c10", 0, "01");
    add("startup-mapping-assigned", "never cleared", commandFile(mapping),
        {"6:1: the command for 0x1600:0 maps PDO 0x1600 while it is still assigned: sub-index 0 of its assign object "
         "was "
         "not set to 0"});
    add("startup-mapping-assigned", "cleared on an earlier transition",
        commandFile(mapping + command("#x1c10", 0, "00", "IP") + assigned));
    add("startup-mapping-assigned", "assigned again before", commandFile(cleared + assigned + mapping),
        {"9:1: the command for 0x1600:0 maps PDO 0x1600 while it is still assigned: sub-index 0 of its assign object "
         "was "
         "not set to 0"});
    add("startup-mapping-assigned", "just right", commandFile(cleared + mapping + assigned));
    add("startup-entry-before-clear", "at once", commandFile(command("#x1c10", 1, "0016")),
        {"6:1: the command for 0x1c10:1 writes an entry before sub-index 0 of the object is 0"});
    add("startup-entry-before-clear", "after the count", commandFile(cleared + assigned + command("#x1c10", 2, "0116")),
        {"9:1: the command for 0x1c10:2 writes an entry before sub-index 0 of the object is 0"});
    add("startup-entry-before-clear", "just right", commandFile(cleared + assigned));
    add("startup-count-missing", "at the end",
        commandFile(command("#x1602", 0, "00") + command("#x1602", 2, "08010060")),
        {"7:1: after the command for 0x1602:2 no command sets sub-index 0 to the number of entries, 2"});
    add("startup-count-missing", "just right",
        commandFile(command("#x1602", 0, "00") + command("#x1602", 1, "08010060") + command("#x1602", 0, "01")));
    add("startup-count-missing", "emptied afterwards",
        commandFile(cleared + assigned + command("#x1c10", 0, "00", "SO")),
        {"9:1: the command for 0x1c10:0 empties the list that commands before it have written"});
    add("startup-count-wrong", "one too many",
        commandFile(cleared + command("#x1c10", 1, "0016") + command("#x1c10", 0, "02")),
        {"8:1: the command for 0x1c10:0 sets the number of entries to 2, the commands before it write 1"});
    add("startup-count-wrong", "just right", commandFile(cleared + assigned));
}

/// What is lost of declared commands.
void addLosses()
{
    const QByteArray whole = command("#x1c12", 0, "01000016", "PS", "CompleteAccess='1'");
    add("startup-access-lost", "declared", commandFile(whole, "CompleteAccess='1'"),
        {"6:1: the command for 0x1c12:0 is a complete access, and goes out as a plain write of sub-index 0"});
    add("startup-access-lost", "a plain write", commandFile(command("#x8000", 1, "01")));
    add("startup-data-mark", "a mark", commandFile(command("#x8000", 1, "#x0102")),
        {"6:1: the data of the command for 0x8000:1 has a \"#x\" mark, which goes out as a byte more: 3"});
    add("startup-data-mark", "digits", commandFile(command("#x8000", 1, "0102")));
    const QByteArray twice = "<Transition>IP</Transition><Transition>PS</Transition>";
    add("startup-transition-lost", "two",
        commandFile("\n<InitCmd>" + twice + "<Index>#x8000</Index><Data>00</Data></InitCmd>"),
        {"6:1: the command for 0x8000:0 has 2 transitions, the last one alone goes out"});
    add("startup-transition-lost", "one", commandFile(command("#x8000", 1, "01")));
    add("startup-protocol", "of EoE", deviceFile("<Mailbox>\n<EoE><InitCmd/><InitCmd/></EoE></Mailbox>"),
        {"4:1: 2 startup commands of \"EoE\" are not read: those of CoE go out alone"});
    add("startup-protocol", "of CoE", commandFile(command("#x8000", 1, "01")));
}

void addCommands()
{
    add("startup-data-lost", "a sub-index that is cut", commandFile(command("#x8000", 256, "0102030405")),
        {"6:1: the command for 0x8000:0 has a value of 5 bytes, the format carries 4 and writes 0"});
    add("startup-data-lost", "5 bytes of 0", commandFile(command("#x8000", 1, "0000000000")));
    add("startup-data-lost", "5 bytes", commandFile(command("#x8000", 1, "0102030405")),
        {"6:1: the command for 0x8000:1 has a value of 5 bytes, the format carries 4 and writes 0"});
    add("startup-data-lost", "4 bytes", commandFile(command("#x8000", 1, "01020304")));
    const QByteArray whole = command("#x1c32", 0, "01", "PS", "CompleteAccess='1'");
    add("startup-complete-access", "not declared", commandFile(whole),
        {"6:1: the command for 0x1c32:0 is a complete access, which the device does not declare"});
    add("startup-complete-access", "declared", commandFile(whole, "CompleteAccess='1'"));
    add("startup-transition", "unknown", commandFile(command("#x8000", 1, "01", "PREOP")),
        {"6:1: the command for 0x8000:1 has no transition that is known, so it is never sent"});
    add("startup-transition", "a token that is no transition", commandFile(command("#x8000", 1, "01", "rw")),
        {"6:1: the command for 0x8000:1 has no transition that is known, so it is never sent"});
    add("startup-transition", "known", commandFile(command("#x8000", 1, "01", "ps")));
    // A device without PDOs and sync managers for process data gets a command for EoE only, which is in another list.
    const auto many = [](int count) {
        return deviceFile("<Mailbox><CoE>" + command("#x8000", 1, "01").repeated(count) + "</CoE></Mailbox>");
    };
    add("startup-count", "255", many(255), {"2:1: 255 startup commands, firmware up to 20240929 takes 254"});
    add("startup-count", "254", many(254));
}

} // namespace

void tst_PdoRules::rules_data()
{
    ruleRows::addColumns();
    addIndexes();
    addContents();
    addAssignment();
    addMappingOrder();
    addLosses();
    addCommands();
}

void tst_PdoRules::link_data()
{
    QTest::addColumn<int>("link");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QStringList>("findings");
    const QString text("4:36: entry 0x6000:1 of PDO 0x1a00 has %1 bits, its link %2 takes %3");
    QTest::addRow("16 bits to an analog input of 32") << -5 << 16 << QStringList{text.arg(16).arg("AIN32").arg(32)};
    QTest::addRow("32 bits to an analog input of 32") << -5 << 32 << QStringList();
    QTest::addRow("32 bits to an analog output of 16") << -7 << 32 << QStringList{text.arg(32).arg("AOUT16").arg(16)};
    QTest::addRow("16 bits to an encoder") << -10 << 16 << QStringList{text.arg(16).arg("ENCODER32").arg(32)};
    QTest::addRow("8 bits to digital inputs") << -1 << 8 << QStringList();
    QTest::addRow("not linked") << 0 << 16 << QStringList();
}

void tst_PdoRules::link()
{
    QFETCH(int, link);
    QFETCH(int, bits);
    checkParts::LoadedFile loaded(deviceFile(outputsAndInputs + input("Sm='1'", "#x1a00", entry(bits))));
    loaded.file.device.at(0).TxPdo.vpdo.at(0).Entry.vPdo_c.at(0).Linkto = link;
    QTEST(checkParts::linesOf(loaded.findings(), "pdo-link"), "findings");
}

static const testMain::Registration<tst_PdoRules, testMain::NoApplication> registration;
#include "tst_PdoRules.moc"
