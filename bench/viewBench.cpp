// viewBench.cpp - filling the tables of a device against bare models with the same number of plain rows.
#include "ratioLimits.h"
#include "stopwatch.h"
#include "windowParts.h"

#include "model/XMLParsing.h"

#include <QApplication>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int entryCount = 1000;
constexpr int commandCount = 5000;

struct_PDOList pdoWithEntries()
{
    struct_PDOList pdo;
    pdo.IndexAttributes.Index = 0x1600;
    pdo.Name = "Outputs";
    pdo.Attributes.SM = 0;
    for (int number = 0; number < entryCount; ++number) {
        struct_EntryPDOContent entry;
        entry.Index = static_cast<std::uint16_t>(0x7000 + number);
        entry.SubIndex = 1;
        entry.Bitlen = 16;
        entry.Name = "Output " + std::to_string(number);
        entry.DataType = "UINT";
        entry.Offs = static_cast<float>(2 * number);
        pdo.Entry.vPdo_c.push_back(entry);
    }
    return pdo;
}

struct_InitCmd command(int number)
{
    struct_InitCmd command;
    command.Transition = PS;
    command.Index = static_cast<std::uint16_t>(0x2000 + number);
    command.SubIndex = 1;
    command.DataBytes = 4;
    command.Data = static_cast<std::uint32_t>(number);
    command.Comment = "Parameter " + std::to_string(number);
    command.strData = std::to_string(number);
    return command;
}

/// A device with one long PDO and many startup commands.
struct_EtherCatDevice longDevice()
{
    struct_EtherCatDevice device;
    device.vSM.resize(1);
    device.vSM[0].Smtype = 3;
    device.RxPdo.vpdo.push_back(pdoWithEntries());
    for (int number = 0; number < commandCount; ++number)
        device.Mailbox.COE.InitCmd.vinitcmd.push_back(command(number));
    return device;
}

/// Shows a tab and lets the window paint.
void showTab(MainWindow& window, int tab)
{
    partNamed<QTabWidget>(window, "tabWidget").setCurrentIndex(tab);
    QApplication::processEvents();
}

/// Time of a click on the device and one on its PDO, until both tables are painted.
double secondsOfClicks(MainWindow& window)
{
    constexpr int processDataTab = 1;
    constexpr int startupTab = 2;
    auto& pdos = partNamed<QTableView>(window, "PdoListView");
    const Stopwatch stopwatch;
    clickDevice(window);
    showTab(window, startupTab);
    if (!QMetaObject::invokeMethod(&pdos, "clicked", Qt::DirectConnection,
                                   Q_ARG(QModelIndex, pdos.model()->index(0, 0))))
        throw std::runtime_error("the list of PDOs cannot be clicked");
    showTab(window, processDataTab);
    return stopwatch.seconds();
}

void requireRows(const MainWindow& window, const char* table, int rows)
{
    if (partNamed<QTableView>(window, table).model()->rowCount() != rows)
        throw std::runtime_error(std::string("not all rows are shown in ") + table);
}

/// A bare model with a view that shows it.
struct BareTable
{
    QStandardItemModel model;
    QTableView view;
};

void insertPlainRows(BareTable& table, int rows)
{
    constexpr int columns = 7;
    table.model.setColumnCount(columns);
    table.view.setModel(&table.model);
    table.view.resize(800, 600);
    table.view.show();
    for (int row = 0; row < rows; ++row) {
        QList<QStandardItem*> items;
        for (int column = 0; column < columns; ++column)
            items.append(new QStandardItem(QStringLiteral("plain text")));
        table.model.appendRow(items);
    }
    QApplication::processEvents();
}

/// Time to insert as many plain rows into bare models and to paint their views.
double secondsOfPlainRows()
{
    auto commands = std::make_unique<BareTable>();
    auto entries = std::make_unique<BareTable>();
    const Stopwatch stopwatch;
    insertPlainRows(*commands, commandCount);
    insertPlainRows(*entries, entryCount + 1); // the entries have a closing row
    return stopwatch.seconds();
}

/// Both times are taken in turn, so that a machine that gets slower or faster in between does so for both.
void fillTables(benchmark::State& state)
{
    constexpr double limit = 3;
    constexpr double maxSeconds = 0.15;
    g_xmlfiledevices.resize(1);
    g_xmlfiledevices[0].device = {longDevice()};
    MainWindow window;
    window.resize(1400, 800);
    window.show();
    window.DeviceDisplayUpdate();
    secondsOfClicks(window);
    requireRows(window, "StartupView", commandCount);
    requireRows(window, "PdoContentView", entryCount + 1);
    secondsOfPlainRows();

    std::vector<double> ratios;
    std::vector<double> shares;
    for ([[maybe_unused]] auto _ : state) {
        clearTabs(window);
        const double plain = secondsOfPlainRows();
        const double shown = secondsOfClicks(window);
        state.SetIterationTime(shown);
        ratios.push_back(shown / plain);
        shares.push_back(shown / maxSeconds);
    }
    checkRatio(state, "time to show 5,000 commands and 1,000 entries against plain rows", ratios, limit);
    checkRatio(state, "the same time as a share of 150 ms", shares, 1);
    g_xmlfiledevices = {};
}
BENCHMARK(fillTables)->Iterations(21)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
