// Slots and the modules in them, by what differs.
#include "diff/sections.h"
#include "diffParts.h"
#include "testMain.h"

#include <QtTest>

using diff::Comparison;
using diff::Sides;
using diff::SlotTraits;
using diff::Subject;

class tst_SlotComparison : public QObject
{
    Q_OBJECT

private slots:
    static void esiFiles_data();
    static void esiFiles();
    static void othersThanEsi_data();
    static void othersThanEsi();
    static void keys();
    static void places();
};

namespace {

/// Three slots of which the third is the fullest, and modules in the first two places.
Subject someSubject()
{
    Subject subject;
    subject.slotList = {100, true, true, false, 0x10, 1, 2, 0x100, 4, "MBOX", "PS"};
    subject.slotTraits.resize(2);
    subject.slotTraits.push_back({130, "Axis", 0, 1, 0x10, 2, 1, {"DI", "DO"}, {{0x10, true}, {0x20, false}}});
    subject.placed = {{140, 0, 0x10}, {150, 1, 0x20}};
    return subject;
}

using Edit = void (*)(Subject& subject);

std::vector<diff::Difference> differencesOf(const Subject& before, const Subject& after, Sides sides, bool isOfAll)
{
    Comparison comparison(sides, isOfAll);
    compareSlots(before, after, comparison);
    return comparison.take();
}

/// Compares subjects, and looks whether they differ as much the other way around.
void lookBothWays(const Subject& before, const Subject& after, Sides sides, bool isOfAll, const QStringList& lines)
{
    const std::vector<diff::Difference> found = differencesOf(before, after, sides, isOfAll);
    QCOMPARE(diffParts::linesOf(found), lines);
    QCOMPARE(diffParts::withoutDirection(differencesOf(after, before, sides, isOfAll)),
             diffParts::withoutDirectionSwapped(found));
}

template<auto Member, auto Value> void editList(Subject& subject)
{
    subject.slotList.*Member = Value;
}

template<auto Member, auto Value> void editSlot(Subject& subject)
{
    subject.slotTraits[2].*Member = Value;
}

void addListRows()
{
    using List = diff::SlotListTraits;
    const auto row = [](const char* name, Edit edit, const char* line) {
        QTest::addRow("%s", name) << edit << QStringList(line);
    };
    row("idents", editList<&List::sendsIdents, false>, "behaviour changed slots download of module idents yes -> no");
    row("addresses", editList<&List::sendsAddresses, true>,
        "behaviour changed slots download of module addresses no -> yes");
    row("object step of all", editList<&List::indexStep, 0x20>,
        "breaking changed slots step of objects per slot 0x10 -> 0x20");
    row("PDO step of all", editList<&List::pdoStep, 0>, "breaking changed slots step of PDOs per slot 0x1 -> 0x00");
    row("groups", editList<&List::groups, 3>, "behaviour changed slots slot groups 2 -> 3");
    row("object step of groups", editList<&List::groupIndexStep, 0x200>,
        "breaking changed slots step of objects per slot group 0x100 -> 0x200");
    row("PDO step of groups", editList<&List::groupPdoStep, 5>,
        "breaking changed slots step of PDOs per slot group 0x4 -> 0x5");
    row(
        "identified by", [](Subject& subject) { subject.slotList.identifiedBy = ""; },
        "behaviour changed slots what modules are identified by MBOX -> ''");
    row(
        "transition", [](Subject& subject) { subject.slotList.transition = "IP"; },
        "behaviour changed slots transition of the module list PS -> IP");
    row(
        "no list",
        [](Subject& subject) {
            subject.slotList = {};
            subject.slotTraits.clear();
        },
        "breaking removed slots");
}

void addSlotRows()
{
    const auto row = [](const char* name, Edit edit, const QStringList& lines) {
        QTest::addRow("%s", name) << edit << lines;
    };
    row("name", [](Subject& subject) { subject.slotTraits[2].name = "Drive"; },
        {"text changed slot 3 \"Axis\" name Axis -> Drive"});
    row("least", editSlot<&SlotTraits::least, 1>, {"behaviour changed slot 3 \"Axis\" modules at least 0 -> 1"});
    row("most", editSlot<&SlotTraits::most, 4>, {"behaviour changed slot 3 \"Axis\" modules at most 1 -> 4"});
    row("object step", editSlot<&SlotTraits::indexStep, 0x800>,
        {"breaking changed slot 3 \"Axis\" step of objects 0x10 -> 0x800"});
    row("PDO step", editSlot<&SlotTraits::pdoStep, 1>, {"breaking changed slot 3 \"Axis\" step of PDOs 0x2 -> 0x1"});
    row("another group", editSlot<&SlotTraits::group, 0>, {"breaking changed slot 3 \"Axis\" group 1 -> 0"});
    row("no group", editSlot<&SlotTraits::group, -1>, {"breaking changed slot 3 \"Axis\" group 1 -> -"});
    row("no slot", [](Subject& subject) { subject.slotTraits.pop_back(); }, {"breaking removed slot 3 \"Axis\""});
    row("one more slot", [](Subject& subject) { subject.slotTraits.emplace_back(); }, {"behaviour added slot 4"});
    row("slots are told by their numbers",
        [](Subject& subject) { subject.slotTraits.erase(subject.slotTraits.begin()); },
        {"text changed slot 2 name '' -> Axis", "behaviour changed slot 2 modules at most 0 -> 1",
         "breaking changed slot 2 step of objects 0x00 -> 0x10", "breaking changed slot 2 step of PDOs 0x00 -> 0x2",
         "breaking changed slot 2 group - -> 1", "behaviour added slot 2, class \"DI\"",
         "behaviour added slot 2, class \"DO\"", "behaviour added slot 2, module 0x10",
         "behaviour added slot 2, module 0x20", "breaking removed slot 3 \"Axis\""});
}

void addAcceptedRows()
{
    const auto row = [](const char* name, Edit edit, const QStringList& lines) {
        QTest::addRow("%s", name) << edit << lines;
    };
    row("class is gone", [](Subject& subject) { subject.slotTraits[2].classes = {"DO"}; },
        {"breaking removed slot 3 \"Axis\", class \"DI\""});
    row("class has come",
        [](Subject& subject) {
            subject.slotTraits[2].classes = {"AI", "DI", "DO"};
        },
        {"behaviour added slot 3 \"Axis\", class \"AI\""});
    row("classes have no order", [](Subject& subject) { subject.slotTraits[2].classes = {" DO ", "DI", "DO"}; }, {});
    row("ident is gone", [](Subject& subject) { subject.slotTraits[2].idents.pop_back(); },
        {"breaking removed slot 3 \"Axis\", module 0x20"});
    row("ident has come",
        [](Subject& subject) {
            subject.slotTraits[2].idents.push_back({0x30, false});
        },
        {"behaviour added slot 3 \"Axis\", module 0x30"});
    row("another default",
        [](Subject& subject) {
            subject.slotTraits[2].idents = {{0x10, false}, {0x20, true}};
        },
        {"behaviour changed slot 3 \"Axis\", module 0x10 default yes -> no",
         "behaviour changed slot 3 \"Axis\", module 0x20 default no -> yes"});
    row("idents have no order",
        [](Subject& subject) {
            subject.slotTraits[2].idents = {{0x20, false}, {0x10, false}, {0x10, true}};
        },
        {});
    row("another module", [](Subject& subject) { subject.placed[1].ident = 0x21; },
        {"behaviour changed slot 2 module in it 0x20 -> 0x21"});
    row("no module", [](Subject& subject) { subject.placed.pop_back(); }, {"behaviour removed slot 2 0x20"});
    row("one more module",
        [](Subject& subject) {
            subject.placed.push_back({0, 2, 0x30});
        },
        {"behaviour added slot 3 0x30"});
    row("module in another slot", [](Subject& subject) { subject.placed[1].place = 2; },
        {"behaviour removed slot 2 0x20", "behaviour added slot 3 0x20"});
}

} // namespace

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(diff::Sides)

void tst_SlotComparison::esiFiles_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QStringList>("lines");
    QTest::addRow("the same") << Edit([](Subject& subject) { subject.slotList.where = 7; }) << QStringList();
    addListRows();
    addSlotRows();
    addAcceptedRows();
}

void tst_SlotComparison::esiFiles()
{
    QFETCH(Edit, edit);
    QFETCH(QStringList, lines);
    Subject after = someSubject();
    edit(after);
    lookBothWays(someSubject(), after, Sides::Esi, false, lines);
}

void tst_SlotComparison::othersThanEsi_data()
{
    QTest::addColumn<Sides>("sides");
    QTest::addColumn<bool>("isOfAll");
    QTest::addColumn<QStringList>("lines");
    QTest::addRow("two KTL files") << Sides::Ktl << false
                                   << QStringList{"breaking changed slot 3 \"Axis\" step of objects 0x10 -> 0x20",
                                                  "behaviour changed place 2 module in it 0x20 -> 0x21"};
    QTest::addRow("ESI and KTL") << Sides::EsiAndKtl << false
                                 << QStringList{"breaking changed slot 3 \"Axis\" step of objects 0x10 -> 0x20",
                                                "behaviour changed place 2 module in it 0x20 -> 0x21"};
    QTest::addRow("all of ESI and KTL") << Sides::EsiAndKtl << true
                                        << QStringList{"text changed slots slot groups 2 -> -",
                                                       "text changed slots step of objects per slot group 0x100 -> -",
                                                       "text changed slots step of PDOs per slot group 0x4 -> -",
                                                       "text changed slots what modules are identified by MBOX -> -",
                                                       "text changed slots transition of the module list PS -> -",
                                                       "text changed slot 3 \"Axis\" name Axis -> -",
                                                       "breaking changed slot 3 \"Axis\" step of objects 0x10 -> 0x20",
                                                       "text changed slot 3 \"Axis\" group 1 -> -",
                                                       "text removed slot 3 \"Axis\", class \"DI\"",
                                                       "text removed slot 3 \"Axis\", class \"DO\"",
                                                       "text removed slot 3 \"Axis\", module 0x10",
                                                       "text removed slot 3 \"Axis\", module 0x20",
                                                       "behaviour changed place 2 module in it 0x20 -> 0x21"};
}

void tst_SlotComparison::othersThanEsi()
{
    QFETCH(Sides, sides);
    QFETCH(bool, isOfAll);
    QFETCH(QStringList, lines);
    Subject after;
    after.slotList = {0, true, true, false, 0x10, 1, 0, 0, 0, {}, {}};
    after.slotTraits.resize(2);
    after.slotTraits.push_back({0, {}, 0, 1, 0x20, 2, -1, {}, {}});
    after.placed = {{0, 0, 0x10}, {0, 1, 0x21}};
    lookBothWays(someSubject(), after, sides, isOfAll, lines);
}

void tst_SlotComparison::keys()
{
    Subject after = someSubject();
    after.slotList = {0, true, false, true, 1, 2, 3, 4, 5, "SLOT", "IP"};
    after.slotTraits[2] = {0, "B", 7, 8, 9, 10, 11, {"DI", "DO"}, {{0x10, false}, {0x20, true}}};
    after.placed[0].ident = 5;
    const QStringList expected{"slot default",
                               "slot downloadModuleAddressList",
                               "slot downloadModuleIdentList",
                               "slot downloadModuleListTransition",
                               "slot identifyModuleBy",
                               "slot maxInstances",
                               "slot maxSlotGroupCount",
                               "slot minInstances",
                               "slot moduleIdent",
                               "slot name",
                               "slot slotGroup",
                               "slot slotGroupIndexIncrement",
                               "slot slotGroupPdoIncrement",
                               "slot slotIndexIncrement",
                               "slot slotPdoIncrement"};
    QCOMPARE(diffParts::keysOf(differencesOf(someSubject(), after, Sides::Esi, false)), expected);
}

void tst_SlotComparison::places()
{
    Subject after = someSubject();
    after.slotList.where = 1100;
    after.slotList.pdoStep = 2;
    after.slotTraits[2].where = 1130;
    after.slotTraits[2].least = 1;
    after.slotTraits[2].classes = {"DO", "AI"};
    after.placed[0] = {1140, 0, 0x11};
    using Sides = std::pair<std::optional<facts::Where>, std::optional<facts::Where>>;
    std::vector<Sides> places;
    for (const diff::Difference& difference : differencesOf(someSubject(), after, diff::Sides::Esi, false))
        places.emplace_back(difference.spot.before, difference.spot.after);
    const std::vector<Sides> expected{{100, 1100}, {130, 1130}, {130, std::nullopt}, {std::nullopt, 1130}, {140, 1140}};
    QVERIFY(places == expected);
}

static const testMain::Registration<tst_SlotComparison, testMain::NoApplication> registration;
#include "tst_SlotComparison.moc"
