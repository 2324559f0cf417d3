// What the summary tells of a device, section by section.
// Covers summaryIdentity.cpp, summaryClocks.cpp, summaryChannels.cpp, summaryPdos.cpp, summaryStartup.cpp.
#include "summaryOf.h"
#include "testMain.h"

#include <QtTest>

class tst_SummarySections : public QObject
{
    Q_OBJECT

private slots:
    static void bareDevice();
    static void clocksAndChannels_data();
    static void clocksAndChannels();
    static void processData_data();
    static void processData();
    static void startup_data();
    static void startup();
    static void slotsAndDictionary_data();
    static void slotsAndDictionary();
};

namespace {

void addColumns()
{
    QTest::addColumn<QByteArray>("parts");
    QTest::addColumn<QByteArray>("shown");
}

/// Compares what comes after the class of the device.
void compare(const QByteArray& modules = {})
{
    QFETCH(QByteArray, parts);
    QFETCH(QByteArray, shown);
    show::ShownFile file;
    setEsiText(file, esiFile(deviceElement(parts), modules));
    const QByteArray summary = summaryOf(file);
    const int end = summary.indexOf('\n', summary.indexOf("device class"));
    QCOMPARE(summary.mid(end + 1), shown);
}

QByteArray coe(const QByteArray& attributes, const QByteArray& commands = {})
{
    return "<Mailbox><CoE " + attributes + ">" + commands + "</CoE></Mailbox>";
}

QByteArray command(const char* index, const char* subIndex, const char* data, const char* comment = "")
{
    return QByteArray("<InitCmd><Transition>PS</Transition><Index>") + index + "</Index><SubIndex>" + subIndex
           + "</SubIndex><Data>" + data + "</Data><Comment>" + comment + "</Comment></InitCmd>";
}

const QByteArray speedAndFlag =
    "<Sm StartAddress=\"#x1100\" MaxSize=\"64\">Outputs</Sm><RxPdo Sm=\"0\" Fixed=\"1\" Mandatory=\"1\">"
    "<Index>#x1600</Index><Name>Speeds</Name>"
    "<Entry><Index>#x7000</Index><SubIndex>1</SubIndex><BitLen>1</BitLen><Name>Flag</Name><DataType>BOOL</DataType>"
    "</Entry><Entry><Index>0</Index><BitLen>7</BitLen></Entry>"
    "<Entry><Index>#x7000</Index><SubIndex>17</SubIndex><BitLen>16</BitLen><Name>\xE9\x80\x9F\xE5\xBA\xA6</Name>"
    "<DataType>INT</DataType></Entry></RxPdo>";

} // namespace

/// What the file does not have is not told.
void tst_SummarySections::bareDevice()
{
    show::ShownFile file;
    setEsiText(file, esiFile("<Device><Type ProductCode=\"1\"/></Device>"));
    QCOMPARE(summaryOf(file), QByteArray("\nDevice 1 of 1: 0x7e57:0x1:0x00\n  device class       IOBlock\n"));
}

void tst_SummarySections::clocksAndChannels_data()
{
    addColumns();
    QTest::addRow("modes") << QByteArray(
        "<Dc><OpMode><Name>DC</Name><Desc>Synchron</Desc><AssignActivate>#x700</AssignActivate>"
        "<CycleTimeSync0>1000000</CycleTimeSync0><ShiftTimeSync0>62500</ShiftTimeSync0>"
        "<ShiftTimeSync1>-50</ShiftTimeSync1></OpMode>"
        "<OpMode><Name>Free</Name><AssignActivate>0</AssignActivate></OpMode>"
        "<OpMode><Name>Same</Name><AssignActivate>#x700</AssignActivate>"
        "<CycleTimeSync0>2000000</CycleTimeSync0></OpMode></Dc>")
                           << QByteArray("  DC modes\n"
                                         "    chosen  DC    0x700  Synchron\n"
                                         "                         SYNC 0: cycle 1 ms, shift 62.5 us\n"
                                         "                         SYNC 1: shift -0.05 us\n"
                                         "            Free  0x0\n"
                                         "            Same  0x700  SYNC 0: cycle 2 ms\n"
                                         "  assign-activate words\n"
                                         "    0x700  bit 8: cyclic operation enabled, bit 9: SYNC 0, bit 10: SYNC 1\n");
    QTest::addRow("FMMUs in one line")
        << QByteArray("<Fmmu Sm=\"2\">Outputs</Fmmu><Fmmu OpOnly=\"1\">Inputs</Fmmu><Fmmu>MBoxState</Fmmu>")
        << QByteArray("  FMMUs              Outputs of sync manager 2, Inputs in Op only, MBoxState\n");
    QTest::addRow("mailbox, its size") << QByteArray("<Sm StartAddress=\"#x1000\" DefaultSize=\"128\">MBoxOut</Sm>")
                                       << QByteArray("  sync managers\n    0  MBoxOut  0x1000  128 bytes\n");
    QTest::addRow("outputs without PDOs") << QByteArray("<Sm MaxSize=\"64\">Outputs</Sm>")
                                          << QByteArray("  sync managers\n    0  Outputs  0x0  0 of 64 bytes\n");
    QTest::addRow("virtual") << QByteArray("<Sm Virtual=\"1\" MaxSize=\"64\">Inputs</Sm>")
                             << QByteArray("  sync managers\n    0  Inputs  0x0  virtual\n");
}

void tst_SummarySections::clocksAndChannels()
{
    compare();
}

void tst_SummarySections::processData_data()
{
    addColumns();
    QTest::addRow("entries at their places")
        << speedAndFlag
        << QByteArray("  sync managers\n    0  Outputs  0x1100  3 of 64 bytes\n"
                      "  outputs, sync manager 0: 3 bytes\n"
                      "      byte.bit  bits  object     type  name\n"
                      "    PDO 0x1600 \"Speeds\", fixed, mandatory\n"
                      "      0.0       1     0x7000:1   BOOL  Flag\n"
                      "      0.1       7     gap\n"
                      "      1.0       16    0x7000:17  INT   \xE9\x80\x9F\xE5\xBA\xA6\n");
    QTest::addRow("without a limit the length counts, here one that is too short")
        << QByteArray("<Sm>Inputs</Sm><TxPdo Sm=\"0\"><Index>#x1A00</Index><Entry><Index>#x6000</Index>"
                      "<BitLen>9</BitLen></Entry><Entry><Index>0</Index><BitLen>0</BitLen></Entry></TxPdo>")
        << QByteArray("  sync managers\n    0  Inputs  0x0  2 of 1 byte\n"
                      "  inputs, sync manager 0: 2 bytes\n"
                      "      byte.bit  bits  object\n"
                      "    PDO 0x1a00\n"
                      "      0.0       9     0x6000:0\n");
    QTest::addRow("entries that are called no")
        << QByteArray("<Sm>Inputs</Sm><TxPdo Sm=\"0\"><Index>#x1A00</Index><Entry><Index>#x6000</Index>"
                      "<BitLen>8</BitLen><Name>no</Name></Entry></TxPdo>")
        << QByteArray("  sync managers\n    0  Inputs  0x0  1 byte\n"
                      "  inputs, sync manager 0: 1 byte\n"
                      "      byte.bit  bits  object    name\n"
                      "    PDO 0x1a00\n"
                      "      0.0       8     0x6000:0  no\n");
    QTest::addRow("PDO without entries") << QByteArray("<Sm>Inputs</Sm><TxPdo Sm=\"0\"><Index>#x1A00</Index></TxPdo>")
                                         << QByteArray("  sync managers\n    0  Inputs  0x0  0 bytes\n"
                                                       "  inputs, sync manager 0: 0 bytes\n"
                                                       "    PDO 0x1a00\n");
    QTest::addRow("PDOs that are not assigned")
        << QByteArray("<RxPdo><Index>#x1600</Index><Name>one</Name></RxPdo><TxPdo><Index>#x1A00</Index></TxPdo>")
        << QByteArray("  PDOs not assigned  0x1600 \"one\", 0x1a00\n");
    QByteArray many;
    for (int number = 0; number < 14; ++number)
        many += "<RxPdo><Index>" + QByteArray::number(0x1600 + number) + "</Index></RxPdo>";
    QTest::addRow("many that are not assigned")
        << many
        << QByteArray("  PDOs not assigned  0x1600, 0x1601, 0x1602, 0x1603, 0x1604, 0x1605, 0x1606,\n"
                      "                     0x1607, 0x1608, 0x1609, 0x160a, 0x160b and 2 more\n");
    QTest::addRow("PDO on a virtual sync manager")
        << QByteArray("<Sm Virtual=\"1\">Inputs</Sm><TxPdo Sm=\"0\"><Index>#x1A00</Index></TxPdo>")
        << QByteArray("  sync managers\n    0  Inputs  0x0  virtual\n  PDOs not placed    0x1a00\n");
}

void tst_SummarySections::processData()
{
    compare();
}

void tst_SummarySections::startup_data()
{
    addColumns();
    QTest::addRow("values and comments") << coe({}, command("#x6060", "0", "08", "csp")
                                                        + command("#x2010", "1", "10270000"))
                                         << QByteArray("  startup commands, PS (2)\n"
                                                       "    0x6060:0  8               csp\n"
                                                       "    0x2010:1  10000 (0x2710)\n");
    QTest::addRow("value that is lost") << coe({}, command("#x2000", "0", "0000000000000000"))
                                        << QByteArray(
                                               "  startup commands, PS (1)\n"
                                               "    0x2000:0  value of 8 bytes, which the format does not carry\n");
    QTest::addRow("transitions, each in its group")
        << coe({}, command("#x2000", "0", "01") + command("#x2001", "0", "02").replace("PS", "SO")
                       + command("#x2002", "0", "03"))
        << QByteArray("  startup commands, PS (2)\n    0x2000:0  1\n    0x2002:0  3\n"
                      "  startup commands, SO (1)\n    0x2001:0  2\n");
    QTest::addRow("list that is cleared, written and counted")
        << coe({}, command("#x1A00", "0", "00") + command("#x1A00", "1", "10004160")
                       + command("#x1A00", "2", "20006460") + command("#x1A00", "0", "02")
                       + command("#x1C13", "0", "00") + command("#x1C13", "1", "001A") + command("#x1C13", "0", "01"))
        << QByteArray("  startup commands, PS (7)\n"
                      "    0x1a00  maps 2 entries into PDO 0x1a00\n"
                      "    0x1c13  assigns PDO 0x1a00\n");
    QTest::addRow("list whose count is another one")
        << coe({}, command("#x1A00", "0", "00") + command("#x1A00", "1", "10004160") + command("#x1A00", "0", "02"))
        << QByteArray("  startup commands, PS (3)\n"
                      "    0x1a00:0  0                        clears the list\n"
                      "    0x1a00:1  1614872592 (0x60410010)  0x6041:0, 16 bits\n"
                      "    0x1a00:0  2                        2 entries\n");
    QTest::addRow("list without its count")
        << coe({}, command("#x1C12", "1", "0016"))
        << QByteArray("  startup commands, PS (1)\n    0x1c12:1  5632 (0x1600)  PDO 0x1600\n");
}

void tst_SummarySections::startup()
{
    compare();
}

void tst_SummarySections::slotsAndDictionary_data()
{
    addColumns();
    const QByteArray slot = "<Slot MinInstances=\"0\" MaxInstances=\"1\"><Name>S</Name><ModuleIdent>9</ModuleIdent>"
                            "<ModuleIdent>10</ModuleIdent></Slot>";
    QTest::addRow("equal slots in one line")
        << "<Slots>" + slot + slot
               + "<Slot MaxInstances=\"1\" MinInstances=\"1\"><Name>Last</Name><ModuleClass><Class>DI</Class>"
                 "</ModuleClass></Slot></Slots>"
        << QByteArray("  3 slots\n"
                      "    no      name  modules  takes\n"
                      "    1 to 2  S     0 to 1   2 idents\n"
                      "    3       Last  1        class DI\n"
                      "\n1 module of the file\n  0x9  M  Module\n");
    QTest::addRow("what is in a slot")
        << QByteArray("<Slots><Slot MinInstances=\"1\" MaxInstances=\"1\"><Name>S</Name>"
                      "<ModuleIdent Default=\"1\">9</ModuleIdent></Slot></Slots>"
                      "<Profile><ProfileNo>5001</ProfileNo></Profile>")
        << QByteArray("  modules            The controller finds the modules of this coupler on the\n"
                      "                     bus; their PDOs come after these.\n"
                      "  1 slot\n"
                      "    no  name  modules  now in it  takes\n"
                      "    1   S     1        Module     1 ident\n"
                      "\n1 module of the file\n  0x9  M  Module\n");
    QTest::addRow("dictionary") << QByteArray(
        "<Profile><Dictionary><DataTypes><DataType><Name>A</Name></DataType></DataTypes><Objects><Object>"
        "<Index>1</Index></Object><Object><Index>2</Index></Object></Objects></Dictionary></Profile>")
                                << QByteArray("  dictionary         2 objects, 1 data type\n"
                                              "\n1 module of the file\n  0x9  M  Module\n");
}

void tst_SummarySections::slotsAndDictionary()
{
    compare("<Module><Type ModuleIdent=\"9\">M</Type><Name>Module</Name></Module>");
}

static const testMain::Registration<tst_SummarySections, testMain::NoApplication> registration;
#include "tst_SummarySections.moc"
