// Slots and modules: each rule with the smallest file that it fires on, and its twin that is just right.
// Covers esiFacts.cpp, moduleRules.cpp, slotFacts.cpp.
#include "ruleRows.h"
#include "testMain.h"

using checkParts::deviceFile;
using ruleRows::add;

class tst_SlotRules : public QObject
{
    Q_OBJECT

private slots:
    static void rules_data();
    static void rules() { ruleRows::check(); }
    static void referencedFileIsGiven();
};

namespace {

/// A modular device, of a type that takes modules from the start. Its slots are on lines of their own from line 4 on.
/// @param modules  on the line after the device
QByteArray slotFile(const QByteArray& slotElements, const QByteArray& modules, const char* increments = "")
{
    return deviceFile(
        "<Sm StartAddress='#x1100' ControlByte='#x20'>Inputs</Sm><Profile><ProfileNo>5001</ProfileNo></Profile><Slots "
            + QByteArray(increments) + ">\n" + slotElements + "\n</Slots>",
        modules);
}

QByteArray module(const char* ident, const QByteArray& parts = {}, const char* moduleClass = "")
{
    return "<Module><Type ModuleIdent='" + QByteArray(ident) + "' ModuleClass='" + moduleClass
           + "'>M</Type><Name>M</Name>" + parts + "</Module>";
}

QByteArray slot(const char* attributes, const QByteArray& parts)
{
    return "<Slot " + QByteArray(attributes) + "><Name>S</Name>" + parts + "</Slot>";
}

void addSlots()
{
    const QByteArray one = module("1");
    add("slot-module-unknown", "another ident", slotFile(slot("MaxInstances='1'", "<ModuleIdent>2</ModuleIdent>"), one),
        {"4:1: slot 0 \"S\" takes module 0x2, which the file does not have"});
    add("slot-module-unknown", "just right", slotFile(slot("MaxInstances='1'", "<ModuleIdent>#x1</ModuleIdent>"), one));
    const QByteArray byDefault = "<ModuleIdent Default='1'>1</ModuleIdent>";
    add("slot-default-module", "missing", slotFile(slot("MaxInstances='1'", byDefault), module("2")),
        {"4:1: the default module of slot 0 \"S\" is 0x1, which the file does not have"});
    add("slot-default-module", "no place", slotFile(slot("MaxInstances='0'", byDefault), one),
        {"4:1: the default module of slot 0 \"S\" is 0x1, and has no place (MaxInstances is 0)"});
    add("slot-default-module", "just right", slotFile(slot("MaxInstances='1'", byDefault), one));
    add("slot-instances", "minimum above maximum", slotFile(slot("MinInstances='2' MaxInstances='1'", {}), {}),
        {"4:1: slot 0 \"S\" takes 2 modules at least, and 1 at most go out"});
    add("slot-instances", "minimum above what the controller holds",
        slotFile(slot("MinInstances='17' MaxInstances='17'", {}), {}),
        {"4:1: slot 0 \"S\" takes 17 modules at least, and 16 at most go out"});
    add("slot-instances", "just right", slotFile(slot("MinInstances='1' MaxInstances='1'", {}), {}));
    const QByteArray twice = "<ModuleIdent>1</ModuleIdent><ModuleIdent>#x1</ModuleIdent>";
    add("slot-ident-twice", "in two forms", slotFile(slot("MaxInstances='1'", twice), one),
        {"4:1: slot 0 \"S\" names module 0x1 twice"});
    add("slot-ident-twice", "once", slotFile(slot("MaxInstances='1'", "<ModuleIdent>1</ModuleIdent>"), one));
}

void addIncrements()
{
    const QByteArray two = slot("SlotPdoIncrement='1'", {}) + "\n" + slot("SlotPdoIncrement='2'", {});
    add("slot-increment", "another one than the first slot", slotFile(two, {}),
        {"5:1: slot 1 \"S\" has SlotPdoIncrement 0x2 and goes out with 0x1: the controller handles one for all slots"});
    add("slot-increment", "another one than the device",
        slotFile(slot("SlotIndexIncrement='#x10'", {}), {}, "SlotIndexIncrement='#x20'"),
        {"4:1: slot 0 \"S\" has SlotIndexIncrement 0x10 and goes out with 0x20: the controller handles one for all "
         "slots"});
    add("slot-increment", "in a group",
        slotFile(slot("SlotGroup='0' SlotPdoIncrement='2'", {}), {}, "SlotPdoIncrement='1'"));
    add("slot-increment", "just right", slotFile(slot("SlotPdoIncrement='1'", {}).repeated(2), {}));
}

void addModules()
{
    const QByteArray oneSlot = slot("MaxInstances='1'", "<ModuleIdent>1</ModuleIdent>");
    add("module-ident-twice", "twice", slotFile(oneSlot, module("1") + "\n" + module("#x1")),
        {"7:1: module 1 of the file has the ident 0x1 as well"});
    add("module-ident-twice", "two idents", slotFile(oneSlot, module("1") + module("2")));
    add("module-without-slot", "none names it", slotFile(oneSlot, module("1") + "\n" + module("2", {}, "IO")),
        {"7:1: no slot takes the module: none names its ident 0x2 or its class \"IO\""});
    const QByteArray byClass = slot("MaxInstances='1'", "<ModuleClass><Class>IO</Class></ModuleClass>");
    add("module-without-slot", "its class is named", slotFile(oneSlot + byClass, module("1") + module("2", {}, "IO")));
    add("module-without-slot", "no slots at all", deviceFile({}, module("2")));
}

QByteArray input(const char* index, const char* depends, const char* object)
{
    return "<TxPdo Sm='0'><Index" + QByteArray(depends) + ">" + index + "</Index><Entry><Index" + depends + ">" + object
           + "</Index><SubIndex>1</SubIndex><BitLen>8</BitLen></Entry></TxPdo>";
}

void addCollisions()
{
    const QByteArray twoDefaults = slot("MaxInstances='1'", "<ModuleIdent Default='1'>1</ModuleIdent>").repeated(2);
    const char* const steps = "SlotPdoIncrement='1' SlotIndexIncrement='16'";
    const char* const moves = " DependOnSlot='1'";
    const QByteArray fixed = slotFile(twoDefaults, module("1", input("#x1a00", "", "#x6000")), steps);
    const QByteArray moving = slotFile(twoDefaults, module("1", input("#x1a00", moves, "#x6000")), steps);
    add("module-pdo-collision", "an index that stays", fixed,
        {"2:1: PDO 0x1a00 of the module at place 1 is there already, from place 0"});
    add("module-pdo-collision", "an index that moves", moving);
    const QByteArray output = "<RxPdo "
                              "Sm='0'><Index>#x1600</Index><Entry><Index>#x7000</Index><SubIndex>1</"
                              "SubIndex><BitLen>8</BitLen></Entry></RxPdo>";
    add("module-object-collision", "an output that stays", slotFile(twoDefaults, module("1", output), steps),
        {"2:1: object 0x7000:1 of the module at place 1 is mapped from place 0 as well"});
    add("module-object-collision", "an input, which both may read", fixed);
    add("module-object-collision", "a dummy",
        slotFile(twoDefaults, module("1", QByteArray(output).replace("#x7000", "#x1f")), steps));
    add("module-object-collision", "an index that moves", moving);
    add("pdo-index-range", "a module in its slot",
        slotFile(twoDefaults, module("1", input("#x1bff", moves, "#x6000")), steps)
            .replace("<Profile>", "<Mailbox><CoE/></Mailbox><Profile>"),
        {"2:1: PDO 0x1c00 is outside 0x1a00 to 0x1bff, the indexes of TxPdos"});
    add("pdo-index-range", "a module that begins below",
        slotFile(slot("MaxInstances='1'", {}) + slot("MaxInstances='1'", "<ModuleIdent Default='1'>1</ModuleIdent>"),
                 module("1", input("#x19ff", moves, "#x6000")), steps));
    const QByteArray twoPlaces = slot("MaxInstances='2'", "<ModuleIdent>1</ModuleIdent>");
    const auto withPdos = [&](const char* second, const char* step) {
        return slotFile(twoPlaces, module("1", input("#x1a00", moves, "#x6000") + input(second, moves, "#x6001")),
                        step);
    };
    const QString pdoText("6:10: PDOs of the module that move with the slot meet those of another place: "
                          "SlotPdoIncrement is %1, and device 1 has 2 places for it");
    add("module-increment", "the next place", withPdos("#x1a01", steps), {pdoText.arg("0x1")});
    add("module-increment", "no step", withPdos("#x1a01", "SlotIndexIncrement='16'"), {pdoText.arg("0x00")});
    add("module-increment", "beyond the last place", withPdos("#x1a02", steps));
    add("module-increment", "objects",
        slotFile(twoPlaces, module("1", input("#x1a00", moves, "#x6000") + input("#x1a02", moves, "#x6010")), steps),
        {"6:10: objects of the module that move with the slot meet those of another place: SlotIndexIncrement is 0x10, "
         "and "
         "device 1 has 2 places for it"});
}

void addReferences()
{
    add("file-reference", "of a dictionary",
        deviceFile("<Profile><DictionaryFile>C:\\esi\\objects.xml</DictionaryFile></Profile>"),
        {"3:10: the file \"objects.xml\" is referred to, and not given"});
    add("file-reference", "an empty one", deviceFile("<Profile><DictionaryFile/></Profile>"));
}

} // namespace

void tst_SlotRules::rules_data()
{
    ruleRows::addColumns();
    addSlots();
    addIncrements();
    addModules();
    addCollisions();
    addReferences();
}

void tst_SlotRules::referencedFileIsGiven()
{
    const QByteArray file = deviceFile("<Profile><DictionaryFile>sub/Objects.xml</DictionaryFile></Profile>");
    const checkParts::LoadedFile loaded(file);
    QCOMPARE(checkParts::linesOf(loaded.findings({"other.xml"}), "file-reference").size(), 1);
    QCOMPARE(checkParts::linesOf(loaded.findings({"objects.xml"}), "file-reference"), QStringList());
}

static const testMain::Registration<tst_SlotRules, testMain::NoApplication> registration;
#include "tst_SlotRules.moc"
