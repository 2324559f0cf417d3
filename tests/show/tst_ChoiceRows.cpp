// The numbers by which choices files name PDOs and startup commands.
#include "show/choiceRows.h"
#include "testMain.h"

#include <QtTest>

class tst_ChoiceRows : public QObject
{
    Q_OBJECT

private slots:
    static void pdos_data();
    static void pdos();
    static void commands_data();
    static void commands();
    static void sameWithoutSlots();
};

namespace {

/// A device with 2 outputs, 3 inputs, 4 outputs and 1 input of modules; 2 CoE commands, 1 EoE command, 2 of modules.
struct_EtherCatDevice filledDevice()
{
    struct_EtherCatDevice device;
    device.RxPdo.vpdo.resize(2);
    device.TxPdo.vpdo.resize(3);
    device.mRxPdo.mpdo.resize(4);
    device.mTxPdo.mpdo.resize(1);
    device.Mailbox.COE.InitCmd.vinitcmd.resize(2);
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(1);
    device.mMailbox.COE.vinitcmd.resize(2);
    return device;
}

/// A row as a test writes it down: -1 for none.
int rowOf(const std::optional<std::int64_t>& row)
{
    return static_cast<int>(row.value_or(-1));
}

} // namespace

void tst_ChoiceRows::pdos_data()
{
    QTest::addColumn<bool>("isSame");
    QTest::addColumn<QList<int>>("rows");
    QTest::addRow("same after selection") << true << QList<int>{0, 2, 5, 9};
    QTest::addRow("changed by selection") << false << QList<int>{0, 2, -1, -1};
}

void tst_ChoiceRows::pdos()
{
    QFETCH(bool, isSame);
    QFETCH(QList<int>, rows);
    const show::ChoicePdoRows found = show::choicePdoRows(filledDevice(), isSame);
    QCOMPARE(
        (QList<int>{rowOf(found.outputs), rowOf(found.inputs), rowOf(found.moduleOutputs), rowOf(found.moduleInputs)}),
        rows);
}

void tst_ChoiceRows::commands_data()
{
    QTest::addColumn<bool>("isSame");
    QTest::addColumn<QList<int>>("rows"); // EoE, CoE of the device, CoE of modules
    QTest::addRow("same after selection") << true << QList<int>{2, 0, 1, 3, 4};
    QTest::addRow("changed by selection") << false << QList<int>{2, 0, 1, -1, -1};
}

/// Rows count the CoE commands of the device, then its EoE commands, then those of modules, as the Startup tab does.
void tst_ChoiceRows::commands()
{
    QFETCH(bool, isSame);
    QFETCH(QList<int>, rows);
    const show::StartupSource unknown{"unknown", std::nullopt, std::nullopt, std::nullopt};
    show::StartupSources sources{{unknown}, {unknown, unknown, unknown, unknown}};
    show::setChoiceRows(sources, filledDevice(), isSame);
    QList<int> found;
    for (const auto* const list : {&sources.eoe, &sources.coe})
        for (const show::StartupSource& source : *list)
            found.append(rowOf(source.choiceRow));
    QCOMPARE(found, rows);
}

void tst_ChoiceRows::sameWithoutSlots()
{
    struct_EtherCatDevice device = filledDevice();
    QVERIFY(show::isSameAfterSelection(device));
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{2});
}

static const testMain::Registration<tst_ChoiceRows, testMain::NoApplication> registration;
#include "tst_ChoiceRows.moc"
