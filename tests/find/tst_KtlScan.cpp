// Devices and modules of KTL files, by items that are built by hand, and the ends of files that are cut.
#include "find/foundLines.h"
#include "find/ktlScan.h"
#include "ktl/format/ktlFormat.h"
#include "testMain.h"

#include <QBuffer>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <vector>

class tst_KtlScan : public QObject
{
    Q_OBJECT

private slots:
    static void devices();
    static void modules();
    static void lastNamesCount();
    static void manyModules();
    static void cutItems();
    static void ends();
    static void tooManyDevices();
    static void beginnings_data();
    static void beginnings();
};

namespace {

/// An item of words after its head.
QByteArray item(std::uint32_t type, const QList<std::uint32_t>& words, const QByteArray& text = {})
{
    const auto bytesOf = [](std::uint32_t number) {
        QByteArray bytes(4, '\0');
        qToLittleEndian(number, bytes.data());
        return bytes;
    };
    QByteArray content;
    for (const std::uint32_t word : words)
        content += bytesOf(word);
    content += text;
    return bytesOf(type) + bytesOf(static_cast<std::uint32_t>(content.size()) + 8) + content;
}

QByteArray general(std::uint32_t vendor, std::uint32_t product, std::uint32_t revision)
{
    return item(KTL_ITEM_General, {vendor, product, revision, 0, 0, 0, 0, 0, 0, 0, 0}); // 52 bytes
}

QByteArray names(const QByteArray& text)
{
    return item(KTL_ITEM_DeviceMoreInfo, {0, 0, 0, 0}, text);
}

find::KtlScan scanOf(QByteArray bytes, find::Wanted wanted)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return find::scanKtl(buffer, wanted);
}

QByteArray file()
{
    return general(1, 2, 3) + item(KTL_ITEM_ModuleType, {0x10, 0, 0}) + names(QByteArray("Dev\nMod\nMod2\0\0", 14))
           + item(KTL_ITEM_ModuleType, {0x11, 0, 0}) + item(KTL_ITEM_ModuleType, {0x12, 0, 0}) + item(KTL_ITEM_END, {})
           + names("nobody") + general(4, 5, 6) + item(KTL_ITEM_END, {});
}

} // namespace

void tst_KtlScan::devices()
{
    const find::KtlScan scan = scanOf(file(), find::Wanted::Devices);
    // General 52, module 20, names 24 + 14, two modules 40, END 8, names 30
    QCOMPARE(linesOf(scan.found), QStringList({"device 1:2:3 |Dev @ 0", "device 4:5:6 | @ 188"}));
    QVERIFY(scan.end.end == KtlWalkEnd::Whole);
}

void tst_KtlScan::modules()
{
    QCOMPARE(linesOf(scanOf(file(), find::Wanted::DevicesAndModules).found),
             QStringList({"device 1:2:3 |Dev @ 0", "module 1:10:0 |Mod @ 52", "module 1:11:0 |Mod2 @ 110",
                          "module 1:12:0 | @ 130", "device 4:5:6 | @ 188"}));
}

/// Of all modules of the block, also of those that come later; without a line there is no name.
void tst_KtlScan::lastNamesCount()
{
    const QByteArray block = general(1, 2, 3) + names("Old\nA\nB\nC") + item(KTL_ITEM_ModuleType, {0x10, 0, 0})
                             + names("New\r\n\nD\r") + item(KTL_ITEM_ModuleType, {0x11, 0, 0})
                             + item(KTL_ITEM_ModuleType, {0x12, 0, 0});
    // General 52, names 24 + 9, module 20, names 24 + 8, two modules 40
    const QStringList first{"device 1:2:3 |New @ 0", "module 1:10:0 | @ 85", "module 1:11:0 |D @ 137",
                            "module 1:12:0 | @ 157"};
    QCOMPARE(linesOf(scanOf(block, find::Wanted::DevicesAndModules).found), first);
    QCOMPARE(linesOf(scanOf(block + general(4, 5, 6), find::Wanted::DevicesAndModules).found),
             first + QStringList{"device 4:5:6 | @ 177"});
}

/// Each text is split once at most, however many modules and texts there are.
void tst_KtlScan::manyModules()
{
    constexpr int modules = 49000;
    constexpr int texts = 200;
    const QByteArray bytes = general(1, 2, 3) + item(KTL_ITEM_ModuleType, {0x10, 0, 0}).repeated(modules)
                             + names(QByteArray("m\n").repeated(modules + 1)).repeated(texts)
                             + names(QByteArray("n\n").repeated(modules) + "last") + item(KTL_ITEM_END, {});
    const find::KtlScan scan = scanOf(bytes, find::Wanted::DevicesAndModules);
    QVERIFY(scan.end.end == KtlWalkEnd::Whole);
    QCOMPARE(scan.found.size(), std::size_t{modules} + 1);
    for (std::size_t index = 0; index < modules; ++index)
        QCOMPARE(scan.found[index].name, std::string("n"));
    QCOMPARE(scan.found.back().name, std::string("last"));
}

/// A device or module whose item is cut has no identity.
void tst_KtlScan::cutItems()
{
    const QByteArray whole = file();
    // the items that count, in the order of the file: their ends
    const std::vector<int> deviceEnds{52, 240};
    const std::vector<int> moduleEnds{72, 130, 150};
    const auto countUpTo = [](const std::vector<int>& ends, int length) {
        return std::count_if(ends.begin(), ends.end(), [&](int end) { return end <= length; });
    };
    for (int length = 0; length <= whole.size(); ++length) {
        const std::vector<find::Found> found = scanOf(whole.left(length), find::Wanted::DevicesAndModules).found;
        const auto isDevice = [](const find::Found& each) { return each.kind == find::FoundKind::Device; };
        const auto devices = std::count_if(found.begin(), found.end(), isDevice);
        QCOMPARE(devices, countUpTo(deviceEnds, length));
        QCOMPARE(static_cast<std::ptrdiff_t>(found.size()) - devices, countUpTo(moduleEnds, length));
    }
}

/// As the walk that keeps all items has them.
void tst_KtlScan::ends()
{
    const QByteArray whole = file() + item(1, {});
    for (int length = 0; length <= whole.size(); ++length) {
        const QByteArray bytes = whole.left(length);
        const find::KtlScan scan = scanOf(bytes, find::Wanted::DevicesAndModules);
        const KtlWalk walk = walkItems(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                       static_cast<std::size_t>(bytes.size()));
        QVERIFY(scan.end.end == walk.end);
        QCOMPARE(scan.end.offset, walk.offset);
    }
    const find::KtlScan impossible = scanOf(general(1, 2, 3) + QByteArray(8, '\0'), find::Wanted::Devices);
    QVERIFY(impossible.end.end == KtlWalkEnd::ImpossibleHead);
    QCOMPARE(impossible.end.offset, std::size_t{52});
    QCOMPARE(impossible.found.size(), std::size_t{1});
}

void tst_KtlScan::tooManyDevices()
{
    const find::KtlScan most = scanOf(general(1, 2, 3).repeated(50000), find::Wanted::Devices);
    QVERIFY(!most.isTooMuch);
    QCOMPARE(most.found.size(), std::size_t{50000});
    const find::KtlScan more = scanOf(general(1, 2, 3).repeated(50001), find::Wanted::Devices);
    QVERIFY(more.isTooMuch);
    QCOMPARE(more.found.size(), std::size_t{50000});
}

void tst_KtlScan::beginnings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("expected");
    const QByteArray end = item(KTL_ITEM_END, {0}); // 12 bytes
    const QByteArray device = general(1, 2, 3);
    QTest::addRow("a device") << device + end << true;
    QTest::addRow("a cut device") << device.left(8) << true;
    QTest::addRow("empty runs before a device") << end + end + device + end << true;
    QTest::addRow("empty runs alone") << end + end << false;
    QTest::addRow("half a head") << device.left(4) << false;
    QTest::addRow("a short device") << item(KTL_ITEM_General, {1, 2}) << false;
    QTest::addRow("another item") << names("x") + device << false;
    QTest::addRow("zeros") << QByteArray(4096, '\0') << false;
    QTest::addRow("zeros and numbers") << item(KTL_ITEM_END, {1, 2, 3}) + device << false;
    QTest::addRow("nothing") << QByteArray() << false;
}

void tst_KtlScan::beginnings()
{
    QFETCH(QByteArray, bytes);
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QTEST(find::beginsWithDevice(buffer), "expected");
}

static const testMain::Registration<tst_KtlScan, testMain::NoApplication> registration;
#include "tst_KtlScan.moc"
