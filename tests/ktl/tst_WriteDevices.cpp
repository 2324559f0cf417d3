// A whole run: order of devices and items, the selection, the error code, and what ends a run early.
// Covers ktlExport.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "testMain.h"

#include <QtTest>

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <utility>

namespace {

using Files = std::vector<struct_FilenameDevice>;

constexpr int untouched = -77;

/// A file of cleared devices that have the given product codes.
struct_FilenameDevice fileOf(std::uint32_t vendor, const std::vector<std::uint32_t>& products)
{
    struct_FilenameDevice file;
    file.Vendor_Id = vendor;
    for (const std::uint32_t product : products) {
        struct_EtherCatDevice device;
        device.TypeAttributes.Product_Code = product;
        file.device.push_back(device);
    }
    return file;
}

/// A device that gives every item that does not need modules, and has a module PDO of each direction.
struct_EtherCatDevice fullDevice(std::uint16_t deviceType)
{
    struct_EtherCatDevice device;
    device.m_iDeviceType = deviceType;
    device.vFmmu.resize(2);
    device.vSM.resize(2);
    device.vopmode.resize(1);
    device.RxPdo.vpdo.resize(2);
    device.TxPdo.vpdo.resize(1);
    for (DevicePdoList* list : {&device.RxPdo, &device.TxPdo})
        for (struct_PDOList& pdo : list->vpdo)
            pdo.Entry.vPdo_c.resize(1);
    for (DeviceModulePdoList* list : {&device.mRxPdo, &device.mTxPdo}) {
        list->mpdo.resize(1);
        list->mpdo[0].vEntry.resize(1);
    }
    device.Mailbox.EOE.InitCmd.vinitcmd.resize(1);
    device.Mailbox.COE.InitCmd.vinitcmd.resize(1);
    device.Slots.vslot.resize(1);
    return device;
}

/// Two groups of one module each; the first gives every item of a module block, the second its identity alone.
std::vector<struct_commentmodule> fullModules()
{
    struct_module module;
    module.RxPdo.vpdo.resize(1);
    module.RxPdo.vpdo[0].Attributes.SM = 0;
    module.TxPdo.vpdo = module.RxPdo.vpdo;
    module.Mailbox.COE.vinitcmd.resize(1);
    std::vector<struct_commentmodule> groups(2);
    groups[0].vmodule = {module};
    groups[1].vmodule.resize(1);
    return groups;
}

bool everything(std::size_t /*file*/, std::size_t /*device*/)
{
    return true;
}

/// Items of a run of the selected devices; the run reaches its end.
std::vector<KtlItem> itemsWritten(Files& files, const DeviceSelection& isSelected)
{
    int errorCode = untouched;
    QString problem;
    const QByteArray written = writtenBy([&](std::FILE* out) {
        if (!writeDevices(out, files, isSelected, &errorCode))
            problem = QStringLiteral("the run did not reach its end");
    });
    const std::vector<KtlItem> items = itemsOf(written, &problem);
    if (!problem.isEmpty())
        qWarning("%s", qPrintable(problem));
    return problem.isEmpty() ? items : std::vector<KtlItem>();
}

/// A disk that takes what it is asked to take, and keeps it; written without a buffer in between.
class PickyDisk
{
public:
    using Taste = std::function<bool(const QByteArray& content)>;

    explicit PickyDisk(Taste takes)
        : m_takes(std::move(takes))
        , m_stream(fopencookie(this, "wb", {nullptr, &PickyDisk::write, nullptr, nullptr}))
    {
        std::setvbuf(m_stream.get(), nullptr, _IONBF, 0);
    }
    PickyDisk(const PickyDisk&) = delete;
    PickyDisk& operator=(const PickyDisk&) = delete;
    ~PickyDisk() = default;

    [[nodiscard]] std::FILE* stream() const { return m_stream.get(); }
    [[nodiscard]] QByteArray content() const { return m_content; }

private:
    static ssize_t write(void* disk, const char* content, std::size_t size)
    {
        auto* self = static_cast<PickyDisk*>(disk);
        const QByteArray block(content, static_cast<int>(size));
        if (!self->m_takes(block))
            return 0;
        self->m_content += block;
        return static_cast<ssize_t>(size);
    }

    Taste m_takes;
    QByteArray m_content;
    FileHandle m_stream;
};

bool beginsGeneral(const QByteArray& content)
{
    return content.startsWith(bytes("40 9C 00 00"));
}

} // namespace

class tst_WriteDevices : public QObject
{
    Q_OBJECT

private slots:
    void deviceOfNothingButAName();
    void orderOfItems_data();
    void orderOfItems();
    void clearedDevice();
    void oneTimeForTheRun();
    void vendorIdOfEachFile();
    void selection_data();
    void selection();
    void errorCode_data();
    void errorCode();
    void generalFailsAtOnce();
    void generalOfSecondDeviceFails();
    void diskFullAfterGeneral();
    void undeclaredSyncManager();
    void undeclaredSyncManagerOfAModulePdo();
};

void tst_WriteDevices::deviceOfNothingButAName()
{
    Files files{fileOf(0x7E570001, {0})};
    files[0].device[0].Name = "nothing but a name";
    int errorCode = untouched;
    const QByteArray written =
        writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, files, everything, &errorCode)); });
    QCOMPARE(written, bytes("40 9C 00 00  34 00 00 00  01 00 57 7E") + zeros(40) // General
                          + bytes("45 9C 00 00  0C 00 00 00  00 00 00 00" // EoE
                                  "46 9C 00 00  10 00 00 00  00 00 00 00 00 00 00 00" // CoE
                                  "00 00 00 00  0C 00 00 00  00 00 00 00")); // end
}

void tst_WriteDevices::orderOfItems_data()
{
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<bool>("hasModules"); // the file of the device
    QTest::addColumn<QList<uint>>("expected");
    const QList<uint> own{40000, 40014, 40001, 40002, 40003, 40003, 40004};
    const QList<uint> modulePdos{40003, 40004};
    const QList<uint> commandsAndSlots{40005, 40006, 40007};
    const QList<uint> plain = own + commandsAndSlots;
    const QList<uint> info{40016};
    const QList<uint> blocks{40013, 40103, 40102, 40104, 40013};
    const QList<uint> preset{40015};
    for (const int type : {0, 1, 6, 256 + 5})
        QTest::addRow("type %d, file without modules", type) << type << false << plain;
    for (const int type : {0, 1, 6, 256 + 5})
        QTest::addRow("type %d, file with modules", type) << type << true << plain + info;
    for (const int type : {2, 4}) {
        QTest::addRow("type %d, file without modules", type) << type << false << own + modulePdos + commandsAndSlots;
        QTest::addRow("type %d, file with modules", type) << type << true << own + modulePdos + commandsAndSlots + info;
    }
    QTest::addRow("type 3, file without modules") << 3 << false << plain;
    QTest::addRow("type 3, file with modules") << 3 << true << plain + info + blocks;
    QTest::addRow("type 5, file without modules") << 5 << false << plain + preset;
    QTest::addRow("type 5, file with modules") << 5 << true << plain + preset + info + blocks;
}

/// Two devices of the same type: what belongs to the file follows each of them again.
void tst_WriteDevices::orderOfItems()
{
    QFETCH(int, deviceType);
    QFETCH(bool, hasModules);
    QFETCH(QList<uint>, expected);
    Files files(1);
    const struct_EtherCatDevice device = fullDevice(static_cast<std::uint16_t>(deviceType));
    files[0].device = {device, device};
    if (hasModules)
        files[0].vcommentmodule = fullModules();
    QCOMPARE(typesOf(itemsWritten(files, everything)), expected + expected + QList<uint>{0});
}

/// Without anything of its own a device of any type gives three items, and one more if its file has modules.
void tst_WriteDevices::clearedDevice()
{
    Files files{fileOf(1, {10}), fileOf(2, {20})};
    files[0].device[0].m_iDeviceType = KTL_DEVICE_TYPE_ManualIOBlock;
    files[1].vcommentmodule.resize(1);
    QCOMPARE(typesOf(itemsWritten(files, everything)),
             (QList<uint>{40000, 40005, 40006, 40000, 40005, 40006, 40016, 0}));
}

/// All devices of a run show the time that it was given, those of another file too.
void tst_WriteDevices::oneTimeForTheRun()
{
    Files files{fileOf(1, {10, 11}), fileOf(2, {20})};
    for (struct_FilenameDevice& file : files)
        file.vcommentmodule.resize(1);
    int errorCode = untouched;
    const QDateTime time(QDate(2024, 9, 5), QTime(8, 7, 6));
    QString problem;
    const std::vector<KtlItem> items = itemsOf(
        writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, files, everything, &errorCode, time)); }), &problem);
    QCOMPARE(problem, QString());
    int times = 0;
    for (const KtlItem& item : items)
        if (item.type == KTL_ITEM_DeviceMoreInfo) {
            QCOMPARE(item.u32(8), 20240905U);
            QCOMPARE(item.u32(12), 80706U);
            ++times;
        }
    QCOMPARE(times, 3);
}

void tst_WriteDevices::vendorIdOfEachFile()
{
    Files files{fileOf(0x7E570001, {1}), fileOf(0x7E570002, {2})};
    files[0].device[0].TypeAttributes.m_iVendor_Id = 5;
    const std::vector<KtlItem> items = itemsWritten(files, everything);
    QCOMPARE(typesOf(items), (QList<std::uint32_t>{40000, 40005, 40006, 40000, 40005, 40006, 0}));
    QCOMPARE(items[0].u32(8), 0x7E570001U);
    QCOMPARE(items[3].u32(8), 0x7E570002U);
}

void tst_WriteDevices::selection_data()
{
    QTest::addColumn<QStringList>("selected"); // "file.device"
    QTest::addColumn<QList<uint>>("expected"); // product codes: two digits, file and device
    QTest::addRow("all, in the order of the list")
        << QStringList{"2.0", "0.0", "0.1", "2.1", "0.2", "2.2"} << QList<uint>{10, 11, 12, 30, 31, 32};
    QTest::addRow("one in the middle") << QStringList{"0.1"} << QList<uint>{11};
    QTest::addRow("last of the last file") << QStringList{"2.2"} << QList<uint>{32};
    QTest::addRow("some of two files") << QStringList{"0.2", "2.0"} << QList<uint>{12, 30};
    QTest::addRow("none") << QStringList{} << QList<uint>{};
}

void tst_WriteDevices::selection()
{
    QFETCH(QStringList, selected);
    QFETCH(QList<uint>, expected);
    Files files{fileOf(1, {10, 11, 12}), fileOf(2, {}), fileOf(3, {30, 31, 32})};
    const std::vector<KtlItem> items = itemsWritten(files, [&](std::size_t file, std::size_t device) {
        return selected.contains(QStringLiteral("%1.%2").arg(file).arg(device));
    });
    QList<uint> products;
    for (const KtlItem& item : items)
        if (item.type == KTL_ITEM_General)
            products.append(item.u32(12));
    QCOMPARE(products, expected);
    QCOMPARE(int(items.size()), 3 * expected.size() + 1); // a device that is not selected leaves no trace
    QCOMPARE(items.back().content, bytes("00 00 00 00  0C 00 00 00  00 00 00 00"));
}

void tst_WriteDevices::errorCode_data()
{
    QTest::addColumn<bool>("isSelected");
    QTest::addColumn<int>("expected");
    QTest::addRow("result of the last General item") << true << 1;
    QTest::addRow("no device") << false << 0;
}

void tst_WriteDevices::errorCode()
{
    QFETCH(bool, isSelected);
    QFETCH(int, expected);
    Files files{fileOf(1, {10, 11})};
    int code = untouched;
    const FileHandle stream = streamWith();
    QVERIFY(writeDevices(
        stream.get(), files, [&](std::size_t, std::size_t) { return isSelected; }, &code));
    QCOMPARE(code, expected);
}

void tst_WriteDevices::generalFailsAtOnce()
{
    Files files{fileOf(1, {10, 11})};
    int code = untouched;
    const FileHandle readOnly = streamThatRefuses();
    QVERIFY(readOnly);
    QVERIFY(!writeDevices(readOnly.get(), files, everything, &code));
    QCOMPARE(code, untouched);
    const FileHandle fullDisk = streamToFullDisk();
    QVERIFY2(fullDisk, "this system has no /dev/full that acts as a full disk");
    QVERIFY(!writeDevices(fullDisk.get(), files, everything, &code));
    QCOMPARE(code, untouched);
}

/// The second General item fails: nothing follows, not even an end item, though the disk would take it.
void tst_WriteDevices::generalOfSecondDeviceFails()
{
    Files files{fileOf(1, {10, 11, 12})};
    int generals = 0;
    const PickyDisk disk([&](const QByteArray& content) { return !beginsGeneral(content) || ++generals != 2; });
    int code = untouched;
    QVERIFY(!writeDevices(disk.stream(), files, everything, &code));
    QCOMPARE(code, untouched);
    QCOMPARE(generals, 2);
    QString problem;
    QCOMPARE(typesOf(itemsOf(disk.content(), &problem)), (QList<std::uint32_t>{40000, 40005, 40006}));
    QCOMPARE(problem, QString());
}

/// Only General is tested for failure: a disk that is full after it gives a short file and a true result.
void tst_WriteDevices::diskFullAfterGeneral()
{
    Files files{fileOf(1, {10})};
    const PickyDisk disk(beginsGeneral);
    int code = untouched;
    QVERIFY(writeDevices(disk.stream(), files, everything, &code));
    QCOMPARE(code, 1);
    QCOMPARE(disk.content().size(), 52);
}

/// The range error comes out of the run: what comes before the PDO is written, and nothing after it.
void tst_WriteDevices::undeclaredSyncManager()
{
    Files files{fileOf(1, {10}), fileOf(2, {20})};
    struct_EtherCatDevice& broken = files[0].device[0];
    broken.vSM.resize(2);
    broken.TxPdo.vpdo.resize(1);
    broken.TxPdo.vpdo[0].Attributes.SM = 6;
    int code = untouched;
    QByteArray reason;
    const FileHandle stream = streamWith();
    try {
        static_cast<void>(writeDevices(stream.get(), files, everything, &code));
    } catch (const std::out_of_range& error) {
        reason = error.what();
    }
    QCOMPARE(reason, QByteArray("vector::_M_range_check: __n (which is 6) >= this->size() (which is 2)"));
    QCOMPARE(code, untouched);
    QString problem;
    QCOMPARE(typesOf(itemsOf(contentOf(stream.get()), &problem)), (QList<std::uint32_t>{40000, 40001}));
    QCOMPARE(problem, QString());
}

void tst_WriteDevices::undeclaredSyncManagerOfAModulePdo()
{
    Files files{fileOf(1, {10})};
    struct_EtherCatDevice& broken = files[0].device[0];
    broken.m_iDeviceType = KTL_DEVICE_TYPE_Special;
    broken.mTxPdo.mpdo.resize(1);
    broken.mTxPdo.mpdo[0].Attributes.SM = 3;
    int code = untouched;
    const FileHandle stream = streamWith();
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(writeDevices(stream.get(), files, everything, &code)),
                             std::out_of_range);
    QCOMPARE(code, untouched);
    broken.m_iDeviceType = KTL_DEVICE_TYPE_PnpIOBlock; // module PDOs are not looked at for this one
    QVERIFY(writeDevices(stream.get(), files, everything, &code));
    QCOMPARE(code, 1);
}

static const testMain::Registration<tst_WriteDevices, QCoreApplication> registration;
#include "tst_WriteDevices.moc"
