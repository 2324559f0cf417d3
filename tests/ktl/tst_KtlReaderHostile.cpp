// Files that are broken or made to do harm: each is read quickly, takes no more memory than it has bytes for, and
// leaves alone what was loaded before.
#include "ktl/ktlExport.h"
#include "ktl/ktlReading.h"
#include "testMain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <random>

namespace {

/// The largest piece of memory that was asked for since it was set to 0.
std::atomic<std::size_t> largestPiece{0};

void* counted(std::size_t size)
{
    if (size > largestPiece)
        largestPiece = size;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size)
{
    return counted(size);
}
void* operator new[](std::size_t size)
{
    return counted(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace {

constexpr qint64 maxMilliseconds = 5000;

/// Memory that a record takes for each byte of the file, at most, with what its list keeps in reserve; and what a read
/// takes in any case.
constexpr std::size_t memoryPerByte = 100;
constexpr std::size_t memoryOfARead = 20'000;

/// A file with an item of each kind in it.
QByteArray richFile()
{
    return generalItem(1) + ktlItem(40014, le32(2) + zeros(16)) + ktlItem(40001, le32(2) + zeros(32))
           + ktlItem(40002, le32(1) + zeros(28)) + ktlItem(40003, zeros(16) + le32(1) + zeros(20))
           + ktlItem(40004, zeros(16) + le32(1) + zeros(20)) + ktlItem(40005, zeros(4))
           + ktlItem(40006, zeros(7) + bytes("01") + zeros(12))
           + ktlItem(40007, le16(1) + zeros(6) + le16(1) + zeros(126)) + ktlItem(40015, le32(1) + zeros(12))
           + ktlItem(40016, zeros(20)) + moduleItem(1) + ktlItem(40103, zeros(16) + le32(1) + zeros(12))
           + ktlItem(40102, zeros(16) + le32(1) + zeros(12)) + ktlItem(40104, le32(1) + zeros(16)) + endItem();
}

/// Reads a file after one that is loaded already.
struct HostileReading
{
    explicit HostileReading(const QByteArray& file)
    {
        g_xmlfiledevices.clear();
        g_xmlfiledevices.emplace_back();
        g_xmlfiledevices[0].xmlfilepath = "loaded before";
        g_xmlfiledevices[0].device.resize(3);
        const FileHandle ktl = streamWith(file);
        QElapsedTimer timer;
        timer.start();
        largestPiece = 0;
        isComplete = device_writektltodevices(ktl.get(), QStringLiteral("hostile.ktl"), &errorCode);
        largest = largestPiece;
        milliseconds = timer.elapsed();
        keptTheOthers = !g_xmlfiledevices.empty() && g_xmlfiledevices[0].xmlfilepath == "loaded before"
                        && g_xmlfiledevices[0].device.size() == 3;
        added = static_cast<int>(g_xmlfiledevices.size()) - 1;
        g_xmlfiledevices.clear();
    }

    /// Empty if the read is as any read has to be.
    [[nodiscard]] QString problem(int fileSize) const
    {
        if (milliseconds > maxMilliseconds)
            return QStringLiteral("took %1 ms").arg(milliseconds);
        if (largest > memoryOfARead + memoryPerByte * static_cast<std::size_t>(fileSize))
            return QStringLiteral("took a piece of %1 bytes").arg(largest);
        if (!keptTheOthers)
            return QStringLiteral("what was loaded before is gone");
        if (isComplete != (errorCode == 0))
            return QStringLiteral("result and error code %1 differ").arg(errorCode);
        return {};
    }

    bool isComplete = false;
    int errorCode = -77;
    std::size_t largest = 0;
    qint64 milliseconds = 0;
    bool keptTheOthers = false;
    int added = 0;
};

} // namespace

class tst_KtlReaderHostile : public QObject
{
    Q_OBJECT

private slots:
    void hostileFile_data();
    void hostileFile();
    void cutAtEveryByte();
    void everyByteWrong();
    void everyWordHuge();
    void rubbish();
    void hostileDump_data();
    void hostileDump();
};

static void row(const QString& name, const QByteArray& file, int code, int added)
{
    QTest::addRow("%s", qPrintable(name)) << file << code << added;
}

/// Sizes that cannot be, or that reach far beyond the file, at each item that holds records.
static void addSizes()
{
    const QByteArray run = generalItem(1) + endItem();
    for (const std::uint32_t type :
         {40000U, 40001U, 40002U, 40003U, 40004U, 40006U, 40007U, 40013U, 40014U, 40102U, 40103U, 40104U, 0U, 40017U}) {
        const QString item = QStringLiteral("%1: ").arg(type);
        row(item + "size -1", run + le32(type) + le32(0xFFFFFFFF) + zeros(60), -2, 1);
        row(item + "size 7", run + le32(type) + le32(7) + zeros(60), -2, 1);
        const bool closes = type == 0; // an end item closes its run, however little of it is there
        row(item + "2 gigabytes in a file of 20 bytes", le32(type) + le32(0x7FFFFFFF) + zeros(12), 0, 0);
        row(item + "2 gigabytes after a device", run + generalItem(2) + le32(type) + le32(0x7FFFFFFF) + zeros(400), 0,
            closes ? 2 : 1);
    }
}

void tst_KtlReaderHostile::hostileFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("added");
    const QByteArray end = endItem();
    addSizes();
    // Counts that reach far beyond their item: at the place of the count of each kind, all bits set.
    const QByteArray all = bytes("FF FF FF FF");
    for (const std::uint32_t type : {40001U, 40002U, 40014U, 40104U})
        row(QStringLiteral("%1: 4294967295 records").arg(type),
            generalItem() + moduleItem(1) + ktlItem(type, all + zeros(64)) + end, 0, 1);
    for (const std::uint32_t type : {40003U, 40004U, 40102U, 40103U})
        row(QStringLiteral("%1: 4294967295 entries").arg(type),
            generalItem() + moduleItem(1) + ktlItem(type, zeros(16) + all + zeros(64)) + end, 0, 1);
    row("65535 slots", generalItem() + ktlItem(40007, all + all + all) + end, 0, 1);
    row("CoE without a record: 255 commands", generalItem() + ktlItem(40006, all + all) + end, 0, 1);
    // Items without owners.
    row("records and no device", richFile().mid(52), 0, 1); // the module makes an entry of its own
    row("module items and no module", richFile().replace(moduleItem(1), QByteArray()), 0, 1);
    row("modules only", moduleItem(1).repeated(1998) + moduleItem(2) + end, 0, 1);
    row("modules only, and the last one is a copy: neither device nor module is open at the end",
        moduleItem(1).repeated(1999) + end, 0, 0);
    row("devices only", generalItem().repeated(1999) + end, 0, 1);
    row("end items only", end.repeated(5000), 0, 0);
    row("heads only", ktlItem(40000).repeated(100) + ktlItem(0), 0, 1);
    // Many records.
    row("a million FMMUs", generalItem() + ktlItem(40014, le32(1'000'000) + zeros(8'000'000)) + end, 0, 1);
    row("a million commands", generalItem() + ktlItem(40006, all + all + zeros(12'000'000)) + end, 0, 1);
    row(
        "950 modules twice, and the last one is a copy",
        [] {
            QByteArray modules;
            for (std::uint32_t ident = 0; ident < 950; ++ident)
                modules += moduleItem(ident);
            return modules.repeated(2);
        }() + end,
        0, 0);
}

void tst_KtlReaderHostile::hostileFile()
{
    QFETCH(QByteArray, file);
    QFETCH(int, code);
    QFETCH(int, added);
    const HostileReading reading(file);
    QCOMPARE(reading.problem(file.size()), QString());
    QCOMPARE(reading.errorCode, code);
    QCOMPARE(reading.added, added);
}

/// The run counts from the byte on that completes the head of its end item. A file cut inside its first head cannot be.
void tst_KtlReaderHostile::cutAtEveryByte()
{
    const QByteArray file = richFile();
    for (int length = 0; length <= file.size(); ++length) {
        const HostileReading reading(file.left(length));
        QCOMPARE(reading.problem(length), QString());
        QCOMPARE(reading.errorCode, length < 8 ? -2 : 0);
        QCOMPARE(reading.added, length < file.size() - 4 ? 0 : 1);
    }
    const HostileReading twice(file + file.left(300));
    QCOMPARE(twice.errorCode, 0);
    QCOMPARE(twice.added, 1);
}

void tst_KtlReaderHostile::everyByteWrong()
{
    const QByteArray file = richFile();
    for (int place = 0; place < file.size(); ++place)
        for (const char value : {'\x00', '\x01', '\x7F', '\x80', '\xFF'}) {
            QByteArray wrong = file;
            wrong[place] = value;
            const HostileReading reading(wrong);
            QCOMPARE(reading.problem(file.size()), QString());
            QVERIFY(reading.added <= 1);
        }
}

void tst_KtlReaderHostile::everyWordHuge()
{
    const QByteArray file = richFile();
    for (int place = 0; place + 4 <= file.size(); ++place)
        for (const std::uint32_t value : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x10000U}) {
            const HostileReading reading(QByteArray(file).replace(place, 4, le32(value)));
            QCOMPARE(reading.problem(file.size()), QString());
            QVERIFY(reading.added <= 1);
        }
}

/// Random bytes; half of the files begin like a file, and each has known item codes strewn in.
void tst_KtlReaderHostile::rubbish()
{
    std::mt19937 generator(20'240'929); // the same on each run
    const auto numbers = [&generator] { return static_cast<std::uint32_t>(generator()); };
    for (int number = 0; number < 2000; ++number) {
        QByteArray file = number % 2 == 0 ? generalItem() : QByteArray();
        const auto words = static_cast<int>(numbers() % 300);
        for (int word = 0; word < words; ++word)
            file += numbers() % 3 == 0 ? le32(40000 + numbers() % 20) + le32(8 + numbers() % 100) : le32(numbers());
        const HostileReading reading(file);
        QCOMPARE(reading.problem(file.size()), QString());
        QVERIFY(reading.errorCode == 0 || reading.errorCode == -2);
    }
}

void tst_KtlReaderHostile::hostileDump_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray huge = le32(40001) + le32(0x7FFFFFFF);
    QTest::addRow("2 gigabytes in a file of 8 bytes") << huge;
    QTest::addRow("2 gigabytes in a file of 20 bytes") << huge + zeros(12);
    QTest::addRow("after a run") << richFile() + huge + zeros(3);
}

/// A word of the file takes up to 10 characters, a head some 60, and of the words that the file does not hold at most
/// 65,536 are shown, in 3 characters each.
void tst_KtlReaderHostile::hostileDump()
{
    QFETCH(QByteArray, file);
    const FileHandle ktl = streamWith(file);
    QElapsedTimer timer;
    timer.start();
    int code = 5;
    const QByteArray text = writtenBy([&](std::FILE* log) { QVERIFY(KTL_write_log_devices(log, ktl.get(), &code)); });
    QVERIFY(timer.elapsed() < maxMilliseconds);
    QVERIFY2(text.size() < 100 + 10 * file.size() + 3 * 65536, qPrintable(QString::number(text.size())));
}

static const testMain::Registration<tst_KtlReaderHostile, QCoreApplication> registration;
#include "tst_KtlReaderHostile.moc"
