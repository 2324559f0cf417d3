// Which devices of two files belong together.
#include "diff/devicePairs.h"
#include "testMain.h"

#include <QtTest>

class tst_DevicePairs : public QObject
{
    Q_OBJECT

private slots:
    static void pairs_data();
    static void pairs();
    static void manyOfAProduct();
};

namespace {

struct Device
{
    std::uint32_t product;
    std::uint32_t revision;
    const char* name;
};

std::vector<facts::UnitFacts> unitsOf(const QList<Device>& devices)
{
    std::vector<facts::UnitFacts> units;
    for (const Device& device : devices) {
        facts::UnitFacts& unit = units.emplace_back();
        unit.owner.kind = facts::OwnerKind::Device;
        unit.vendor = 1;
        unit.product = device.product;
        unit.revision = device.revision;
        unit.name = device.name;
    }
    return units;
}

std::vector<const facts::UnitFacts*> pointersTo(const std::vector<facts::UnitFacts>& units)
{
    std::vector<const facts::UnitFacts*> pointers;
    for (const facts::UnitFacts& unit : units)
        pointers.push_back(&unit);
    return pointers;
}

/// "0-1 1- -0", in the order of the words.
QString wordsOf(const QList<Device>& before, const QList<Device>& after, bool isSwapped)
{
    const std::vector<facts::UnitFacts> oldUnits = unitsOf(isSwapped ? after : before);
    const std::vector<facts::UnitFacts> newUnits = unitsOf(isSwapped ? before : after);
    QStringList words;
    for (diff::Pair pair : diff::devicePairsOf(pointersTo(oldUnits), pointersTo(newUnits))) {
        if (isSwapped)
            std::swap(pair.before, pair.after);
        words += (pair.before ? QString::number(*pair.before) : QString()) + '-'
                 + (pair.after ? QString::number(*pair.after) : QString());
    }
    words.sort();
    return words.join(' ');
}

} // namespace

Q_DECLARE_METATYPE(QList<Device>)

void tst_DevicePairs::pairs_data()
{
    using Devices = QList<Device>;
    QTest::addColumn<Devices>("before");
    QTest::addColumn<Devices>("after");
    QTest::addColumn<QString>("words");
    QTest::newRow("nothing") << Devices() << Devices() << "";
    QTest::newRow("the same identity before all else")
        << Devices{{1, 1, "A"}, {1, 2, "B"}} << Devices{{1, 2, "A"}, {1, 1, "B"}} << "0-1 1-0";
    QTest::newRow("an identity twice") << Devices{{1, 1, "A"}, {1, 1, "B"}} << Devices{{1, 1, "B"}} << "0-0 1-";
    QTest::newRow("the nearest revision, up or down")
        << Devices{{1, 0x10, "A"}, {1, 0x40, "B"}} << Devices{{1, 0x41, "A"}, {1, 0x0f, "B"}} << "0-1 1-0";
    QTest::newRow("the nearest ones first, the others take what is left")
        << Devices{{1, 10, "A"}, {1, 20, "B"}} << Devices{{1, 21, "A"}, {1, 40, "B"}} << "0-1 1-0";
    QTest::newRow("two as near") << Devices{{1, 10, "A"}} << Devices{{1, 9, "A"}, {1, 11, "A"}} << "-1 0-0";
    QTest::newRow("by name, when the product has changed")
        << Devices{{1, 1, "A"}, {2, 1, "B"}} << Devices{{3, 1, "B"}, {4, 1, "C"}} << "-1 0- 1-0";
    QTest::newRow("an empty name is none") << Devices{{1, 1, ""}} << Devices{{2, 1, ""}} << "-0 0-";
}

void tst_DevicePairs::pairs()
{
    QFETCH(const QList<Device>, before);
    QFETCH(const QList<Device>, after);
    QTEST(wordsOf(before, after, false), "words");
    QTEST(wordsOf(before, after, true), "words");
}

/// So many pairs are not looked at one by one: devices pair in the order of their revisions.
void tst_DevicePairs::manyOfAProduct()
{
    std::vector<facts::UnitFacts> before(20000);
    std::vector<facts::UnitFacts> after(20000);
    for (std::uint32_t index = 0; index < 20000; ++index) {
        before[index].revision = 2 * index;
        after[index].revision = 2 * (19999 - index) + 1;
    }
    const std::vector<diff::Pair> pairs = diff::devicePairsOf(pointersTo(before), pointersTo(after));
    QCOMPARE(pairs.size(), std::size_t{20000});
    QCOMPARE(*pairs[0].after, std::size_t{19999});
    QCOMPARE(*pairs[19999].after, std::size_t{0});
}

static const testMain::Registration<tst_DevicePairs, testMain::NoApplication> registration;
#include "tst_DevicePairs.moc"
