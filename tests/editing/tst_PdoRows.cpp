// Which row of a PDO list is which PDO.
#include "editing/pdoRows.h"
#include "model/pdoAccess.h"
#include "testMain.h"
#include "workbench/pdoBuilders.h"

#include <QtTest>

class tst_PdoRows : public QObject
{
    Q_OBJECT

private slots:
    static void rowsOfADevice_data();
    static void rowsOfADevice();
    static void rowsOfAModule_data();
    static void rowsOfAModule();
    static void listsOfADevice();
    static void aPdoCanBeChanged();
};

namespace {

/// Two outputs, one input, no outputs of modules and one input of a module.
struct_EtherCatDevice deviceWithPdos()
{
    struct_EtherCatDevice device;
    device.RxPdo.vpdo = {devicePdo(0x1600), devicePdo(0x1601)};
    device.TxPdo.vpdo = {devicePdo(0x1A00)};
    device.mTxPdo.mpdo = {pdoOfModule(0x1A10)};
    return device;
}

/// The PDO at a row as "direction index", or nothing.
template<typename Owner> QString pdoAt(const Owner& owner, int row)
{
    QString text;
    const bool isFound = visitPdoRow(owner, row, [&](const auto& pdo, PdoDirection direction) {
        text = QStringLiteral("%1 %2").arg(direction == PdoDirection::Outputs ? "out" : "in").arg(indexOf(pdo), 0, 16);
    });
    return isFound == !text.isEmpty() ? text : QStringLiteral("found and visited differ");
}

} // namespace

void tst_PdoRows::rowsOfADevice_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("pdo");
    QTest::addRow("no row") << -1 << "";
    QTest::addRow("first output") << 0 << "out 1600";
    QTest::addRow("last output") << 1 << "out 1601";
    QTest::addRow("input") << 2 << "in 1a00";
    QTest::addRow("an empty list has no rows") << 3 << "in 1a10";
    QTest::addRow("past the lists") << 4 << "";
}

void tst_PdoRows::rowsOfADevice()
{
    QFETCH(int, row);
    QFETCH(QString, pdo);
    QCOMPARE(pdoAt(deviceWithPdos(), row), pdo);
}

void tst_PdoRows::rowsOfAModule_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("pdo");
    QTest::addRow("no row") << -1 << "";
    QTest::addRow("output") << 0 << "out 1600";
    QTest::addRow("input") << 1 << "in 1a00";
    QTest::addRow("past the lists") << 2 << "";
}

void tst_PdoRows::rowsOfAModule()
{
    QFETCH(int, row);
    QFETCH(QString, pdo);
    QCOMPARE(pdoAt(moduleWithPdos("IO", 1), row), pdo);
}

void tst_PdoRows::listsOfADevice()
{
    QStringList lists;
    const struct_EtherCatDevice device = deviceWithPdos();
    forEachPdoList(device, [&](const auto& pdos, PdoDirection direction) {
        lists.append(QStringLiteral("%1 %2").arg(direction == PdoDirection::Outputs ? "out" : "in").arg(pdos.size()));
    });
    QCOMPARE(lists, QStringList({"out 2", "in 1", "out 0", "in 1"}));
}

void tst_PdoRows::aPdoCanBeChanged()
{
    struct_EtherCatDevice device = deviceWithPdos();
    QVERIFY(visitPdoRow(device, 3, [](auto& pdo, PdoDirection /*direction*/) { pdo.Name = "changed"; }));
    QCOMPARE(device.mTxPdo.mpdo[0].Name, std::string("changed"));
    QCOMPARE(device.TxPdo.vpdo[0].Name, std::string());
}

static const testMain::Registration<tst_PdoRows, testMain::NoApplication> registration;
#include "tst_PdoRows.moc"
