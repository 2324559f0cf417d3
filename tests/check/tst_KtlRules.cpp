// The items of KTL files: each rule with the smallest file that it fires on, and its twin that is just right.
// Covers ktlFacts.cpp.
#include "checkParts.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QtTest>

#include <vector>

class tst_KtlRules : public QObject
{
    Q_OBJECT

private slots:
    static void rules_data();
    static void rules();
};

namespace {

QByteArray item(std::uint32_t type, const QByteArray& contents)
{
    return le32(type) + le32(static_cast<std::uint32_t>(contents.size()) + 8) + contents;
}

const QByteArray endItem = item(0, zeros(4)); // 12 bytes

/// A General item of 52 bytes.
QByteArray general()
{
    return item(40000, le32(0x7e57) + le32(1) + le32(2) + zeros(32));
}

/// A sync manager record of 16 bytes.
QByteArray syncManager(std::uint32_t start, std::uint32_t maxSize, std::uint32_t control)
{
    return le16(start) + le16(0) + le16(maxSize) + le16(0) + le32(control) + le32(1);
}

QByteArray input(std::uint32_t syncManagerNumber, std::uint32_t bits)
{
    const QByteArray entry = le16(0) + le16(0x6000) + le32(1) + le32(bits) + zeros(8);
    return item(40004, zeros(4) + le32(syncManagerNumber) + le32(0) + le16(0x1a00) + le16(0) + le32(1) + entry);
}

/// A CoE item with one command.
QByteArray commands(std::uint32_t transition, std::uint32_t isCompleteAccess)
{
    const QByteArray command = le16(transition) + le16(0x1c10) + QByteArray(1, '\x01')
                               + QByteArray(1, static_cast<char>(isCompleteAccess)) + le16(2) + le32(0x1a00);
    return item(40006, zeros(7) + QByteArray(1, '\x01') + command);
}

void add(const char* rule, const char* what, const QByteArray& file, const QStringList& findings = {})
{
    QTest::addRow("%s: %s", rule, what) << QByteArray(rule) << file << findings;
}

void addEnds()
{
    const QByteArray whole = general() + endItem;
    add("ktl-end", "no End item", general(), {"52: the last run has no End item"});
    add("ktl-end", "a cut item", whole.chopped(1), {"63: the file ends inside the last item"});
    add("ktl-end", "a cut head", whole.chopped(5), {"52: the file ends inside the head of an item"});
    add("ktl-end", "a head that cannot be", general() + le32(40001) + le32(7),
        {"52: the head of an item cannot be right, what follows it has no meaning"});
    add("ktl-end", "just right", whole);
    add("ktl-item-limit", "2001", endItem.repeated(2001),
        {"24000: the file has 2001 items, the workbench reads back 2000"});
    add("ktl-item-limit", "2000", endItem.repeated(2000));
}

void addSizes()
{
    const QByteArray one = syncManager(0x1100, 0, 0x20);
    const QByteArray two = syncManager(0x1200, 0, 0x20);
    add("ktl-item-size", "too many announced", general() + item(40001, le32(2) + one) + endItem,
        {"52: the item SM announces 2 records and has 1"});
    add("ktl-item-size", "too few announced", general() + item(40001, le32(1) + one + two) + endItem,
        {"52: the item SM has 16 bytes after its 1 records"});
    add("ktl-item-size", "no whole head", item(40000, zeros(40)) + endItem,
        {"0: the item General has 48 bytes, its head takes 52"});
    add("ktl-item-size", "just right", general() + item(40001, le32(2) + one + two) + endItem);
    add("ktl-item-unknown", "unknown", general() + item(50000, {}) + endItem,
        {"52: an item of the unknown type 50000"});
    add("ktl-item-unknown", "known, though never written", general() + item(40008, zeros(32)) + endItem);
}

void addOrder()
{
    const QByteArray sm = item(40001, le32(1) + syncManager(0x1100, 0, 0x20));
    const QByteArray dc = item(40002, le32(1) + zeros(24) + le32(0x300));
    add("ktl-item-order", "no General", sm + endItem, {"0: the item SM is in no device: no General item is before it"});
    add("ktl-item-order", "SM after DC", general() + dc + sm + endItem,
        {"92: the item SM comes after DC, where it belongs before it"});
    add("ktl-item-order", "SM twice", general() + sm + sm + endItem, {"80: the item SM is there twice"});
    add("ktl-item-order", "after an End", general() + endItem + sm + endItem,
        {"64: the item SM is in no device: no General item is before it"});
    add("ktl-item-order", "just right", general() + sm + dc + input(0, 8) + input(0, 8) + general() + sm + endItem);
    const QByteArray module = item(40013, zeros(12));
    const QByteArray moduleInputs = item(40102, zeros(20));
    add("ktl-item-order", "two modules", general() + module + moduleInputs + module + moduleInputs + endItem);
}

void addDevices()
{
    const auto device = [](std::uint32_t number, std::uint32_t bits) {
        return general() + item(40001, le32(1) + syncManager(0x1100, 2, 0x20)) + input(number, bits) + endItem;
    };
    add("pdo-sync-manager", "the first one beyond", device(1, 16),
        {"80: PDO 0x1a00 is on sync manager 1, the device has 1"});
    add("pdo-sync-manager", "just right", device(0, 16));
    add("sync-manager-max-size", "a bit too long", device(0, 17),
        {"64: the PDOs of sync manager 0 take 3 bytes, its MaxSize is 2"});
    add("sync-manager-max-size", "just right", device(0, 16));
    add("startup-transition", "none", general() + commands(0, 0) + endItem,
        {"68: the command for 0x1c10:1 has no transition that is known, so it is never sent"});
    add("startup-complete-access", "not declared", general() + commands(2, 1) + endItem,
        {"68: the command for 0x1c10:1 is a complete access, which the device does not declare"});
    add("startup-entry-before-clear", "at once", general() + commands(2, 0) + endItem,
        {"68: the command for 0x1c10:1 writes an entry before sub-index 0 of the object is 0"});
    add("identity-twice", "two stations of one kind", general() + general() + endItem);
}

} // namespace

void tst_KtlRules::rules_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("findings");
    addEnds();
    addSizes();
    addOrder();
    addDevices();
}

void tst_KtlRules::rules()
{
    QFETCH(QByteArray, rule);
    QFETCH(QByteArray, file);
    const std::vector<unsigned char> contents(file.begin(), file.end());
    QStringList lines;
    for (const check::Finding& finding : check::checkKtl(contents).list)
        if (finding.rule->code == rule.constData())
            lines += QStringLiteral("%1: %2").arg(finding.where).arg(finding.text);
    QTEST(lines, "findings");
}

static const testMain::Registration<tst_KtlRules, testMain::NoApplication> registration;
#include "tst_KtlRules.moc"
