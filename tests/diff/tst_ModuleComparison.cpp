// Modules, by what differs.
#include "diff/sections.h"
#include "diffParts.h"
#include "facts/dictionaryParts.h"
#include "facts/unitParts.h"
#include "testMain.h"

#include <QtTest>

using diff::Comparison;
using diff::Sides;
using facts::UnitFacts;

class tst_ModuleComparison : public QObject
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

QByteArray module(const QByteArray& ident, const QByteArray& type, const QByteArray& name, const QByteArray& parts = {})
{
    return "<Module><Type ModuleIdent=\"" + ident + "\">" + type + "</Type><Name>" + name + "</Name>" + parts
           + "</Module>\n";
}

QByteArray pdo(const QByteArray& bits)
{
    return "<TxPdo "
           "Sm=\"3\"><Index>#x1a00</Index><Name>Inputs</Name><Entry><Index>#x6000</Index><SubIndex>1</SubIndex><BitLen>"
           + bits + "</BitLen><Name>In</Name><DataType>USINT</DataType></Entry></TxPdo>";
}

QByteArray command(const QByteArray& data)
{
    return "<Mailbox><CoE><InitCmd><Transition>PS</Transition><Index>#x8000</Index><SubIndex>1</SubIndex><Data>" + data
           + "</Data></InitCmd></CoE></Mailbox>";
}

QByteArray dictionary(int bits)
{
    return dictionaryParts::dictionary({}, dictionaryParts::object("#x6000", "USINT", bits));
}

std::vector<const UnitFacts*> modulesOf(const unitParts::LoadedUnits& file)
{
    std::vector<const UnitFacts*> modules;
    for (const UnitFacts& unit : file.facts.units)
        if (!unit.isDevice())
            modules.push_back(&unit);
    return modules;
}

std::vector<diff::Difference> differencesOf(const QByteArray& before, const QByteArray& after, Sides sides = Sides::Esi)
{
    const unitParts::LoadedUnits oldFile(unitParts::deviceFile({}, before));
    const unitParts::LoadedUnits newFile(unitParts::deviceFile({}, after));
    Comparison comparison(sides, false);
    compareModules(modulesOf(oldFile), modulesOf(newFile), comparison);
    return comparison.take();
}

} // namespace

void tst_ModuleComparison::esiFiles_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");
    const QByteArray inputs = module("#x10", "DI", "DI8");
    const QByteArray outputs = module("#x20", "DO", "DO8");
    const auto row = [&](const char* name, const QByteArray& before, const QByteArray& after,
                         const QStringList& lines) { QTest::addRow("%s", name) << before << after << lines; };
    row("the same in another order", inputs + outputs, outputs + inputs, {});
    row("ident in other digits", inputs, module("16", "DI", "DI8"), {});
    row("no module", inputs + outputs, inputs, {"breaking removed module 0x20 \"DO8\""});
    row("another ident", inputs, module("#x11", "DI", "DI8"),
        {"breaking removed module 0x10 \"DI8\"", "behaviour added module 0x11 \"DI8\""});
    row("name", inputs, module("#x10", "DI", "DI16"), {"text changed module 0x10 \"DI8\" name DI8 -> DI16"});
    row("type", inputs, module("#x10", "Inputs", "DI8"), {"text changed module 0x10 \"DI8\" type DI -> Inputs"});
    row("second module of an ident", inputs + inputs, inputs + module("#x10", "DI", "DI16"),
        {"text changed module 0x10 \"DI8\" name DI8 -> DI16"});
    const auto with = [](const QByteArray& parts) { return module("#x10", "DI", "DI8", parts); };
    row("startup command", with(command("01")), with(command("02")),
        {"behaviour changed module 0x10 \"DI8\", startup command PS 0x8000:1 value 0x1 -> 0x2"});
    row("PDO", with(pdo("8")), with(pdo("16")),
        {"breaking changed module 0x10 \"DI8\", TxPdo 0x1a00 \"Inputs\" length in bits 8 -> 16",
         "breaking changed module 0x10 \"DI8\", TxPdo 0x1a00 \"Inputs\", entry 0x6000:1 \"In\" length in bits 8 -> "
         "16"});
    row("dictionary", with(dictionary(8)), with(dictionary(16)),
        {"breaking changed module 0x10 \"DI8\", object 0x6000 \"Object\" length in bits 8 -> 16"});
    row("no dictionary", with(dictionary(8)), inputs, {"breaking removed module 0x10 \"DI8\", dictionary"});
}

void tst_ModuleComparison::esiFiles()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const std::vector<diff::Difference> found = differencesOf(before, after);
    QTEST(diffParts::linesOf(found), "lines");
    QCOMPARE(diffParts::withoutDirection(differencesOf(after, before)), diffParts::withoutDirectionSwapped(found));
}

void tst_ModuleComparison::othersThanEsi_data()
{
    QTest::addColumn<Sides>("sides");
    QTest::addColumn<QStringList>("lines");
    const QStringList removed{"breaking removed module 0x20 \"DO8\""};
    QTest::addRow("two KTL files") << Sides::Ktl << removed;
    QTest::addRow("ESI and KTL") << Sides::EsiAndKtl << removed;
}

Q_DECLARE_METATYPE(diff::Sides)

void tst_ModuleComparison::othersThanEsi()
{
    QFETCH(Sides, sides);
    const std::vector<diff::Difference> found =
        differencesOf(module("#x10", "DI", "DI8") + module("#x20", "DO", "DO8"), module("#x10", "", ""), sides);
    QTEST(diffParts::linesOf(found), "lines");
}

void tst_ModuleComparison::keys()
{
    UnitFacts before;
    UnitFacts after;
    after.name = "DI8";
    after.type = "DI";
    after.modulePdoGroup = 1;
    after.supportsSraParameters = true;
    Comparison comparison(Sides::Esi, false);
    compareModules({&before}, {&after}, comparison);
    const std::vector<diff::Difference> found = comparison.take();
    const QStringList lines{"text changed module 0x00 name '' -> DI8", "text changed module 0x00 type '' -> DI",
                            "behaviour changed module 0x00 PDO group 0 -> 1",
                            "behaviour changed module 0x00 SRA parameters no -> yes"};
    const QStringList names{"module modulePdoGroup", "module name", "module sraParameters", "module type"};
    QCOMPARE(diffParts::linesOf(found), lines);
    QCOMPARE(diffParts::keysOf(found), names);
}

void tst_ModuleComparison::places()
{
    UnitFacts before;
    before.where = 10;
    UnitFacts after;
    after.where = 20;
    after.name = "DI8";
    UnitFacts other;
    other.where = 30;
    other.moduleIdent = 1;
    Comparison comparison(Sides::Esi, false);
    compareModules({&before}, {&after, &other}, comparison);
    const std::vector<diff::Difference> found = comparison.take();
    QCOMPARE(found.size(), 2U);
    QVERIFY(found[0].spot.before == facts::Where{10} && found[0].spot.after == facts::Where{20});
    QVERIFY(!found[1].spot.before.has_value() && found[1].spot.after == facts::Where{30});
}

static const testMain::Registration<tst_ModuleComparison, testMain::NoApplication> registration;
#include "tst_ModuleComparison.moc"
