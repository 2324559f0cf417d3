// PDOs, their entries, and the process image that they make, by what differs.
// Covers imageComparison.cpp, moduleCopies.cpp.
#include "comparedFiles.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

class tst_PdoComparison : public QObject
{
    Q_OBJECT

private slots:
    static void pdos_data();
    static void pdos();
    static void placesOfModules();
};

namespace {

/// A device with an output and an input area.
QByteArray file(const QByteArray& pdos)
{
    return unitParts::deviceFile("<Sm>Outputs</Sm><Sm>Inputs</Sm>\n" + pdos);
}

QByteArray entry(const char* subIndex, int bits = 8, const QByteArray& more = {})
{
    return QByteArray("<Entry><Index>#x6000</Index><SubIndex>") + subIndex + "</SubIndex><BitLen>"
           + QByteArray::number(bits) + "</BitLen>" + more + "</Entry>";
}

QByteArray gap(int bits)
{
    return "<Entry><Index>0</Index><BitLen>" + QByteArray::number(bits) + "</BitLen></Entry>";
}

QByteArray input(const QByteArray& entries, const QByteArray& attributes = "Sm='1'", const QByteArray& more = {})
{
    return "<TxPdo " + attributes + "><Index>#x1a00</Index>" + more + entries + "</TxPdo>";
}

void add(const char* row, const QByteArray& before, const QByteArray& after, const QStringList& lines = {})
{
    QTest::newRow(row) << file(before) << file(after) << lines;
}

void addPdos()
{
    const QByteArray one = input(entry("1"));
    add("the same", one, one);
    add("order without meaning", input(entry("1"), {}) + "<TxPdo><Index>#x1a01</Index></TxPdo>",
        "<TxPdo><Index>#x1a01</Index></TxPdo>" + input(entry("1"), {}));
    add("removed", one, {},
        {"breaking changed sync manager 1 length 1 -> 0", "breaking removed TxPdo 0x1a00",
         "breaking changed inputs, sync manager 1 bytes of the process image 1 -> 0"});
    add("removed, not assigned", input(entry("1"), {}), {}, {"breaking removed TxPdo 0x1a00"});
    add("added, not assigned", {}, input(entry("1"), {}), {"behaviour added TxPdo 0x1a00"});
    add("name", input(entry("1"), "Sm='1'", "<Name>old</Name>"), input(entry("1"), "Sm='1'", "<Name>new</Name>"),
        {"text changed TxPdo 0x1a00 \"old\" name old -> new"});
    add("assigned", input(entry("1"), {}), one,
        {"breaking changed sync manager 1 length 0 -> 1", "breaking changed TxPdo 0x1a00 sync manager - -> 1",
         "breaking changed inputs, sync manager 1 bytes of the process image 0 -> 1"});
    add("flags", one, input(entry("1"), "Sm='1' SU='1' Fixed='1' Mandatory='1' OverwrittenByModule='1'"),
        {"behaviour changed TxPdo 0x1a00 sync unit 0 -> 1", "behaviour changed TxPdo 0x1a00 fixed no -> yes",
         "behaviour changed TxPdo 0x1a00 mandatory no -> yes",
         "behaviour changed TxPdo 0x1a00 overwritten by modules no -> yes"});
    add("excluded PDOs", input(entry("1"), {}, "<Exclude>#x1a01</Exclude>"),
        input(entry("1"), {}, "<Exclude>#x1a01</Exclude><Exclude>#x1a02</Exclude>"),
        {"behaviour changed TxPdo 0x1a00 not together with 0x1a01 -> 0x1a01 0x1a02"});
    add("two of an index", one + input(entry("2")), one + input(entry("2", 8, "<Name>b</Name>")),
        {"text changed TxPdo 0x1a00, entry 0x6000:2 name '' -> b"});
}

void addEntries()
{
    add("length", input(entry("1") + entry("2")), input(entry("1", 16) + entry("2")),
        {"breaking changed sync manager 1 length 2 -> 3", "breaking changed TxPdo 0x1a00 length in bits 16 -> 24",
         "breaking changed TxPdo 0x1a00, entry 0x6000:1 length in bits 8 -> 16",
         "breaking changed inputs, sync manager 1 bytes of the process image 2 -> 3",
         "breaking moved signal 0x6000:2 in TxPdo 0x1a00 place byte 1.0 -> byte 2.0"});
    add("length where it is not assigned", input(entry("1"), {}), input(entry("1", 16), {}),
        {"behaviour changed TxPdo 0x1a00 length in bits 8 -> 16",
         "behaviour changed TxPdo 0x1a00, entry 0x6000:1 length in bits 8 -> 16"});
    add("name and type", input(entry("1", 8, "<Name>a</Name><DataType>USINT</DataType>")),
        input(entry("1", 8, "<Name>b</Name><DataType>SINT</DataType>")),
        {"breaking changed TxPdo 0x1a00, entry 0x6000:1 \"a\" data type USINT -> SINT",
         "text changed TxPdo 0x1a00, entry 0x6000:1 \"a\" name a -> b"});
    add("moved to the front", input(entry("1") + entry("2") + entry("3")), input(entry("3") + entry("1") + entry("2")),
        {"breaking moved TxPdo 0x1a00, entry 0x6000:3 place entry 3 -> entry 1",
         "breaking moved signal 0x6000:1 in TxPdo 0x1a00 place byte 0.0 -> byte 1.0",
         "breaking moved signal 0x6000:2 in TxPdo 0x1a00 place byte 1.0 -> byte 2.0",
         "breaking moved signal 0x6000:3 in TxPdo 0x1a00 place byte 2.0 -> byte 0.0"});
    add("removed at the end", input(entry("1", 1) + entry("2", 7)), input(entry("1", 1)),
        {"breaking changed sync manager 1 length 1 -> 0", "breaking changed TxPdo 0x1a00 length in bits 8 -> 1",
         "breaking removed TxPdo 0x1a00, entry 0x6000:2"});
    add("a gap grows", input(gap(1) + entry("1", 7)), input(gap(9) + entry("1", 7)),
        {"breaking changed sync manager 1 length 1 -> 2", "breaking changed TxPdo 0x1a00 length in bits 8 -> 16",
         "breaking changed inputs, sync manager 1 bytes of the process image 1 -> 2",
         "breaking moved signal 0x6000:1 in TxPdo 0x1a00 place byte 0.1 -> byte 1.1"});
    add("a gap is divided", input(gap(8) + entry("1")), input(gap(3) + gap(5) + entry("1")));
}

/// A device with a module in its only slot, which is in group 1, and the module.
QByteArray modular(const QByteArray& index)
{
    return unitParts::deviceFile(
        "<Sm>Outputs</Sm><Sm>Inputs</Sm><Slots MaxSlotGroupCount='2' SlotGroupIndexIncrement='16'>"
        "<Slot SlotGroup='1' MaxInstances='1'><ModuleIdent Default='1'>#x10</ModuleIdent></Slot></Slots>"
        "<Profile><ProfileNo>5001</ProfileNo></Profile>",
        "<Module>\n<Type ModuleIdent='#x10'>M</Type>\n<TxPdo Sm='1'><Index>#x1a00</Index>\n<Entry>" + index
            + "<BitLen>8</BitLen></Entry></TxPdo></Module>");
}

void addImages()
{
    const QByteArray other = "<TxPdo Sm='1'><Index>#x1a01</Index><Entry><Index>#x7000</Index><BitLen>4</BitLen></Entry>"
                             "</TxPdo>";
    add("assigned in another order", input(entry("1", 12)) + other, other + input(entry("1", 12)),
        {"breaking moved signal 0x6000:1 in TxPdo 0x1a00 place byte 0.0 -> byte 0.4",
         "breaking moved signal 0x7000:0 in TxPdo 0x1a01 place byte 1.4 -> byte 0.0"});
    QTest::newRow("the object of a module")
        << modular("<Index>#x6000</Index>") << modular("<Index>#x6001</Index>")
        << QStringList{"breaking removed signal 0x6000:0 in TxPdo 0x1a00 sync manager 1, byte 0.0",
                       "breaking added signal 0x6001:0 in TxPdo 0x1a00 sync manager 1, byte 0.0",
                       "breaking removed module 0x10, TxPdo 0x1a00, entry 0x6000:0",
                       "breaking added module 0x10, TxPdo 0x1a00, entry 0x6001:0"};
    QTest::newRow("a module's object that moves with the group")
        << modular("<Index>#x6000</Index>") << modular("<Index DependOnSlotGroup='1'>#x6000</Index>")
        << QStringList{
               "breaking removed signal 0x6000:0 in TxPdo 0x1a00 sync manager 1, byte 0.0",
               "breaking added signal 0x6010:0 in TxPdo 0x1a00 sync manager 1, byte 0.0",
               "breaking changed module 0x10, TxPdo 0x1a00, entry 0x6000:0 moves with the slot group no -> yes"};
    add("in another sync manager", "<Sm>Inputs</Sm>" + input(entry("1")),
        "<Sm>Inputs</Sm>" + input(entry("1"), "Sm='2'"),
        {"breaking changed sync manager 1 length 1 -> 0", "breaking changed sync manager 2 length 0 -> 1",
         "breaking changed TxPdo 0x1a00 sync manager 1 -> 2",
         "breaking changed inputs, sync manager 1 bytes of the process image 1 -> 0",
         "breaking changed inputs, sync manager 2 bytes of the process image 0 -> 1",
         "breaking moved signal 0x6000:1 in TxPdo 0x1a00 place sync manager 1, byte 0.0 -> sync manager 2, byte 0.0"});
}

} // namespace

void tst_PdoComparison::pdos_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    addPdos();
    addEntries();
    addImages();
}

void tst_PdoComparison::pdos()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(comparedFiles::linesOf(before, after), "lines");
}

/// A signal of a module in a slot has the line of its entry in the module.
void tst_PdoComparison::placesOfModules()
{
    comparedFiles::EsiFile before(modular("<Index>#x6000</Index>"));
    comparedFiles::EsiFile after(modular("<Index>#x6001</Index>"));
    const diff::Difference signal = comparedFiles::differencesOf(before.source, after.source).at(0);
    QCOMPARE(before.source.placeOf(signal.spot.before.value()).number, 7);
}

static const testMain::Registration<tst_PdoComparison, testMain::NoApplication> registration;
#include "tst_PdoComparison.moc"
