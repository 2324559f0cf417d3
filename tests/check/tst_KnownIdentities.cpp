// Devices of several files that are the same for the controller.
#include "check/knownIdentities.h"
#include "testMain.h"

#include <QtTest>

class tst_KnownIdentities : public QObject
{
    Q_OBJECT

private slots:
    static void earlierFiles();
    static void whatIsNotCompared_data();
    static void whatIsNotCompared();
};

namespace {

check::UnitName device(std::size_t index, std::uint32_t product, std::uint32_t revision = 1)
{
    check::UnitName unit;
    unit.owner = {check::OwnerKind::Device, index};
    unit.where = static_cast<check::Where>(100 + index);
    unit.place = {static_cast<int>(10 + index), 3};
    unit.vendor = 2;
    unit.product = product;
    unit.revision = revision;
    return unit;
}

} // namespace

/// Each device is compared with the first one that has its identity, whatever files lie between.
void tst_KnownIdentities::earlierFiles()
{
    check::KnownIdentities known;
    QVERIFY(known.add("a.xml", {device(0, 5), device(1, 6)}, 1).empty());
    QVERIFY(known.add("b.xml", {device(0, 7)}, 3).empty());
    const std::vector<check::Finding> found = known.add("c.xml", {device(0, 8), device(1, 6), device(2, 7)}, 4);
    QCOMPARE(found.size(), std::size_t{2});
    QCOMPARE(found[0].text, QStringLiteral("its identity 0x2:0x6:0x1 is also that of device 2 in a.xml"));
    QCOMPARE(found[0].owner.index, std::size_t{1});
    QCOMPARE(found[0].where, check::Where{101});
    QCOMPARE(found[0].place.line, 11);
    QCOMPARE(found[1].text, QStringLiteral("its identity 0x2:0x7:0x1 is also that of device 3 in b.xml"));
    QVERIFY(found[0].rule->code == "identity-twice-in-call");
}

void tst_KnownIdentities::whatIsNotCompared_data()
{
    QTest::addColumn<quint32>("product");
    QTest::addColumn<quint32>("revision");
    QTest::addColumn<bool>("isModule");
    QTest::addColumn<std::size_t>("findings");
    QTest::addRow("the same") << 5U << 1U << false << std::size_t{1};
    QTest::addRow("another revision") << 5U << 2U << false << std::size_t{0};
    QTest::addRow("no product code") << 0U << 1U << false << std::size_t{0};
    QTest::addRow("a module") << 5U << 1U << true << std::size_t{0};
}

void tst_KnownIdentities::whatIsNotCompared()
{
    QFETCH(quint32, product);
    QFETCH(quint32, revision);
    QFETCH(bool, isModule);
    check::KnownIdentities known;
    // Those of one file are another rule's.
    QVERIFY(known.add("a.xml", {device(0, 5), device(1, 5), device(2, 0)}, 1).empty());
    check::UnitName unit = device(0, product, revision);
    if (isModule)
        unit.owner.kind = check::OwnerKind::Module;
    QTEST(known.add("b.xml", {unit}, 4).size(), "findings");
}

static const testMain::Registration<tst_KnownIdentities, testMain::NoApplication> registration;
#include "tst_KnownIdentities.moc"
