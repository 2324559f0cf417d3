// What the summary tells of slots and modules that a KTL file carries.
// Covers summarySlots.cpp, busModules.cpp.
#include "model/deviceType.h"
#include "show/summarySections.h"
#include "testMain.h"

#include <QtTest>

class tst_SummaryCarried : public QObject
{
    Q_OBJECT

private slots:
    static void slotsPresetAndModules();
    static void pdosOfPresetModules();
    static void furtherPdos();
    static void otherLengths_data();
    static void otherLengths();
    static void modulesOnTheBus();
};

namespace {

/// A module with an input PDO of one byte, and a startup command.
KtlModule inputModule(std::uint32_t ident)
{
    KtlModule module;
    module.attributes.ModuleIdent = ident;
    KtlModulePdo pdo;
    pdo.isInput = true;
    pdo.head.SM = 0;
    pdo.head.IndexAttributes = 0x1A00;
    struct_KTL_modulePdoOne entry{};
    entry.index = 0x6000;
    entry.BitLen = 8;
    pdo.entries = {entry};
    module.pdos = {pdo};
    module.commands.resize(1);
    return module;
}

/// A coupler of three equal slots, of which the first and the last have a module.
show::ShownDevice coupler()
{
    show::ShownDevice device;
    KtlSlots slotItem;
    slotItem.head.m_iSlotPdoIncrement = 1;
    slotItem.records.resize(3);
    for (struct_KTL_SlotContent& slot : slotItem.records)
        slot.m_iMaxInstances = 1;
    device.block.deviceSlots = slotItem;
    KtlPreset preset;
    for (const std::uint32_t ident : {0x20U, 0U, 0x20U})
        preset.records.push_back({ident, 0});
    device.block.preset = preset;
    device.block.modules = {inputModule(0x20), KtlModule()};
    return device;
}

facts::UnitFacts unitWithInputs()
{
    facts::UnitFacts unit;
    unit.isFromKtl = true;
    unit.syncManagers.resize(1);
    unit.syncManagers.front().direction = 4; // inputs
    return unit;
}

/// "label|text|heading: cell,cell|..." of each part.
QStringList linesOf(const show::SummaryParts& parts)
{
    QStringList lines;
    for (const show::SummaryPart& part : parts) {
        QStringList texts{QString::fromStdString(part.label), QString::fromStdString(part.text)};
        for (const show::SummaryRow& row : part.rows) {
            QStringList cells;
            for (const std::string& cell : row.cells)
                cells.append(QString::fromStdString(cell));
            texts.append(QString::fromStdString(row.heading) + ": " + cells.join(','));
        }
        lines.append(texts.join('|'));
    }
    return lines;
}

} // namespace

void tst_SummaryCarried::slotsPresetAndModules()
{
    const show::ShownDevice carried = coupler();
    const facts::UnitFacts unit = unitWithInputs();
    const facts::PresetPdos preset;
    const facts::ProcessImage image;
    QCOMPARE(linesOf(show::slotSection({unit, preset, image, carried, nullptr})),
             (QStringList{"3 slots||: 1 to 3,0 to 1", "preset modules||: 1,module 0x20|: 2,empty|: 3,module 0x20",
                          "modules||: 0x20,1 PDO,1 startup command|: 0x0,,"}));
}

/// They have the number of their slot, and come one after another.
void tst_SummaryCarried::pdosOfPresetModules()
{
    const show::ShownDevice carried = coupler();
    const facts::UnitFacts unit = unitWithInputs();
    const facts::PresetPdos preset = facts::presetPdosOf(carried.block);
    const facts::ProcessImage image = facts::processImageOf(unit, preset.pdos);
    QCOMPARE(linesOf(show::pdoSection({unit, preset, image, carried, nullptr})),
             QStringList{"inputs, sync manager 0: 2 bytes||PDO 0x1a00, slot 1: |: 0.0,8,0x6000:0,,,"
                         "|PDO 0x1a00, slot 3: |: 1.0,8,0x6000:0,,,"});
}

void tst_SummaryCarried::furtherPdos()
{
    const show::ShownDevice carried;
    const facts::UnitFacts unit = unitWithInputs();
    facts::PresetPdos preset;
    preset.areAll = false;
    const facts::ProcessImage image;
    QCOMPARE(linesOf(show::pdoSection({unit, preset, image, carried, nullptr})),
             QStringList{"further PDOs|of preset modules, more entries or bits than a device can have"});
}

void tst_SummaryCarried::otherLengths_data()
{
    QTest::addColumn<int>("maxSize");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("use");
    QTest::addRow("shorter than the PDOs") << 0 << 1 << QStringLiteral("2 of 1 byte");
    QTest::addRow("longer than the PDOs") << 0 << 8 << QStringLiteral("2 of 8 bytes");
    QTest::addRow("that of the PDOs") << 0 << 2 << QStringLiteral("2 bytes");
    QTest::addRow("the largest counts first") << 1 << 8 << QStringLiteral("2 of 1 byte");
    QTest::addRow("not known") << 0 << -1 << QStringLiteral("2 bytes");
}

/// Two PDOs of a byte, in a sync manager with a length that need not be theirs.
void tst_SummaryCarried::otherLengths()
{
    QFETCH(int, maxSize);
    QFETCH(int, length);
    QFETCH(QString, use);
    const show::ShownDevice carried = coupler();
    facts::UnitFacts unit = unitWithInputs();
    unit.syncManagers.front().attributes.MaxSize = static_cast<std::uint16_t>(maxSize);
    unit.syncManagers.front().exportedBytes = length;
    const facts::PresetPdos preset = facts::presetPdosOf(carried.block);
    const facts::ProcessImage image = facts::processImageOf(unit, preset.pdos);
    QCOMPARE(linesOf(show::channelSection({unit, preset, image, carried, nullptr})),
             QStringList{"sync managers||: 0,Inputs,0x0," + use});
}

/// Only a coupler with slots finds modules there.
void tst_SummaryCarried::modulesOnTheBus()
{
    show::ShownDevice carried = coupler();
    const facts::UnitFacts unit = unitWithInputs();
    const facts::PresetPdos preset;
    const facts::ProcessImage image;
    QCOMPARE(linesOf(show::pdoSection({unit, preset, image, carried, nullptr})), QStringList());
    carried.block.general.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock;
    QCOMPARE(linesOf(show::pdoSection({unit, preset, image, carried, nullptr})),
             QStringList{"modules|The controller finds the modules of this coupler on the bus; their PDOs come after "
                         "these."});
    carried.block.deviceSlots.reset();
    QCOMPARE(linesOf(show::pdoSection({unit, preset, image, carried, nullptr})), QStringList());
}

static const testMain::Registration<tst_SummaryCarried, testMain::NoApplication> registration;
#include "tst_SummaryCarried.moc"
