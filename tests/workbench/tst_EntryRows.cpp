// The rows of a PDO's entries in their table.
#include "testMain.h"
#include "workbench/entryRows.h"
#include "workbench/pdoBuilders.h"

#include <QStandardItemModel>
#include <QtTest>

class tst_EntryRows : public QObject
{
    Q_OBJECT

private slots:
    static void ofADevice();
    static void ofAModule();
    static void withoutEntries();
};

namespace {

/// Texts of a column; "-" for a cell without an item.
QStringList columnOf(const QStandardItemModel& model, int column)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.item(row, column) == nullptr ? QStringLiteral("-") : model.item(row, column)->text());
    return texts;
}

} // namespace

/// The closing row has one cell: where the next entry would start.
void tst_EntryRows::ofADevice()
{
    QStandardItemModel model;
    struct_PDOList pdo = devicePdo(0x1600, {deviceEntry(0x7000, 8), deviceEntry(0x7001, 12)});
    pdo.Entry.vPdo_c[1].Offs = 1.0F;
    appendEntryRows(model, pdo);
    QCOMPARE(columnOf(model, 0), QStringList({"0x7000:0", "0x7001:0", "-"}));
    QCOMPARE(columnOf(model, 2), QStringList({"0.00", "1.00", "2.400000"}));
}

void tst_EntryRows::ofAModule()
{
    QStandardItemModel model;
    appendEntryRows(model, pdoOfModule(0x1600, {moduleEntry(0x7000, 16)}));
    QCOMPARE(columnOf(model, 0), QStringList({"0x7000:0", "-"}));
    QCOMPARE(columnOf(model, 2), QStringList({"0.00", "2.000000"}));
}

void tst_EntryRows::withoutEntries()
{
    QStandardItemModel model;
    appendEntryRows(model, devicePdo(0x1600));
    appendEntryRows(model, pdoOfModule(0x1600));
    QCOMPARE(model.rowCount(), 0);
}

static const testMain::Registration<tst_EntryRows, testMain::NoApplication> registration;
#include "tst_EntryRows.moc"
