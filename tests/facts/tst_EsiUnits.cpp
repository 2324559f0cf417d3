// The facts of a device whose elements nobody has: they agree with those that come with places.
// Covers esiChannels.cpp.
#include "facts/esiUnits.h"
#include "facts/processImage.h"
#include "testMain.h"
#include "unitParts.h"

#include <QtTest>

class tst_EsiUnits : public QObject
{
    Q_OBJECT

private slots:
    static void withoutElements();
    static void copies();
};

namespace {

const QByteArray parts =
    "<Sm>Outputs</Sm><Sm MaxSize='9'>Inputs</Sm><Fmmu>Outputs</Fmmu>"
    "<RxPdo Sm='0'><Index>#x1600</Index><Name>P</Name><Entry><Index>#x7000</Index><SubIndex>1</SubIndex>"
    "<BitLen>12</BitLen></Entry></RxPdo><TxPdo><Index>#x1A00</Index></TxPdo>"
    "<Dc><OpMode><Name>DC</Name><AssignActivate>#x300</AssignActivate></OpMode></Dc>"
    "<Slots><Slot MaxInstances='1'><Name>S</Name><ModuleIdent Default='1'>9</ModuleIdent></Slot></Slots>"
    "<Profile><ProfileNo>5001</ProfileNo></Profile>";

const QByteArray module = "<Module><Type ModuleIdent='9'>M</Type><RxPdo Sm='0'><Index>#x1601</Index></RxPdo></Module>";

} // namespace

void tst_EsiUnits::withoutElements()
{
    const unitParts::LoadedUnits loaded(unitParts::deviceFile(parts, module));
    const facts::UnitFacts& with = loaded.facts.units.front();
    const facts::UnitFacts without = facts::deviceFactsOf(loaded.file, 0);
    QCOMPARE(without.vendor, 0x7e57U);
    QCOMPARE(without.product, 1U);
    QCOMPARE(without.revision, 2U);
    QCOMPARE(without.name, with.name);
    QCOMPARE(without.hasSlots, with.hasSlots);
    QCOMPARE(without.syncManagers.size(), std::size_t{2});
    QCOMPARE(without.fmmus.size(), std::size_t{1});
    QCOMPARE(without.modes.front().assignActivate, 0x300U);
    QCOMPARE(without.pdos.size(), with.pdos.size());
    for (std::size_t index = 0; index < with.pdos.size(); ++index) {
        QCOMPARE(without.pdos[index].index, with.pdos[index].index);
        QCOMPARE(without.pdos[index].syncManager, with.pdos[index].syncManager);
        QCOMPARE(without.pdos[index].entries.size(), with.pdos[index].entries.size());
    }
    QCOMPARE(facts::processImageOf(without).front().bits, std::int64_t{12});
}

/// The PDOs of modules in slots, and no others.
void tst_EsiUnits::copies()
{
    const unitParts::LoadedUnits loaded(unitParts::deviceFile(parts, module));
    const facts::UnitFacts unit = facts::deviceFactsOf(loaded.file, 0);
    QCOMPARE(unit.pdos.size(), std::size_t{3});
    for (const facts::PdoFacts& pdo : unit.pdos)
        QCOMPARE(pdo.isCopy, pdo.index == 0x1601);
}

static const testMain::Registration<tst_EsiUnits, testMain::NoApplication> registration;
#include "tst_EsiUnits.moc"
