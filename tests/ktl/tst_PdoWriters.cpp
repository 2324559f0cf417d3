// Items of PDOs, byte for byte: those of the device and those that modules bring into it, in both directions. The four
// writers go through the same tests; they differ in the list that they write and in the code of the item.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

/// A PDO with a number of cleared entries.
struct PdoToWrite
{
    std::uint16_t index;
    int sm;
    std::size_t entries;
};

struct_PDOList devicePdo(const PdoToWrite& pdo)
{
    struct_PDOList made;
    made.IndexAttributes.Index = pdo.index;
    made.Attributes.SM = pdo.sm;
    made.Entry.vPdo_c.resize(pdo.entries);
    return made;
}

modulePdo pdoOfModule(const PdoToWrite& pdo)
{
    modulePdo made;
    made.indexAttributes.index = pdo.index;
    made.Attributes.SM = pdo.sm;
    made.vEntry.resize(pdo.entries);
    return made;
}

template<auto List> void addToDevice(struct_EtherCatDevice& device, const PdoToWrite& pdo)
{
    (device.*List).vpdo.push_back(devicePdo(pdo));
}

template<auto List> void addToModules(struct_EtherCatDevice& device, const PdoToWrite& pdo)
{
    (device.*List).mpdo.push_back(pdoOfModule(pdo));
}

/// One of the writers, with what tells it from the others.
struct Writer
{
    const char* name;
    void (*write)(std::FILE*, struct_EtherCatDevice*);
    void (*add)(struct_EtherCatDevice& device, const PdoToWrite& pdo); ///< to the list that it writes
    const char* code; ///< as it is in the file
};

const std::array<Writer, 4> writers{{
    {"outputs", KTL_write_device_RxPdoinfo, addToDevice<&struct_EtherCatDevice::RxPdo>, "43 9C 00 00"},
    {"inputs", KTL_write_device_TxPdoinfo, addToDevice<&struct_EtherCatDevice::TxPdo>, "44 9C 00 00"},
    {"outputs of modules", KTL_write_device_AddModuleRPdo, addToModules<&struct_EtherCatDevice::mRxPdo>, "43 9C 00 00"},
    {"inputs of modules", KTL_write_device_AddModuleTPdo, addToModules<&struct_EtherCatDevice::mTxPdo>, "44 9C 00 00"},
}};

/// The item of a PDO with one entry.
QByteArray itemOfOneEntry(const Writer& writer, std::uint16_t index, int sm)
{
    return bytes(writer.code) + bytes("30 00 00 00  00 00  00 00") + le32(static_cast<std::uint32_t>(sm)) + zeros(4)
           + le16(index) + zeros(2) + bytes("01 00 00 00") + zeros(20);
}

struct_EtherCatDevice deviceWith(std::size_t syncManagers, const Writer& writer, const std::vector<PdoToWrite>& pdos)
{
    struct_EtherCatDevice device;
    device.vSM.resize(syncManagers);
    for (const PdoToWrite& pdo : pdos)
        writer.add(device, pdo);
    return device;
}

QByteArray written(const Writer& writer, struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { writer.write(out, &device); });
}

} // namespace

Q_DECLARE_METATYPE(Writer)

class tst_PdoWriters : public QObject
{
    Q_OBJECT

private slots:
    void itemOfADevicePdo_data() { addWriters(0, 2); }
    void itemOfADevicePdo();
    void itemOfAModulePdo_data() { addWriters(2, 4); }
    void itemOfAModulePdo();
    void otherListsAreNotWritten_data() { addWriters(0, 4); }
    void otherListsAreNotWritten();
    void oneItemPerPdoInOrder_data() { addWriters(0, 4); }
    void oneItemPerPdoInOrder();
    void syncManagerOfPdo_data();
    void syncManagerOfPdo();
    void undeclaredSyncManager_data();
    void undeclaredSyncManager();
    void itemsBeforeTheErrorStay_data() { addWriters(0, 4); }
    void itemsBeforeTheErrorStay();
    void nullArgumentsWriteNothing_data() { addWriters(0, 4); }
    void nullArgumentsWriteNothing();

private:
    static void addWriters(std::size_t first, std::size_t end);
};

void tst_PdoWriters::addWriters(std::size_t first, std::size_t end)
{
    QTest::addColumn<Writer>("writer");
    for (std::size_t index = first; index < end; ++index)
        QTest::addRow("%s", writers[index].name) << writers[index];
}

void tst_PdoWriters::itemOfADevicePdo()
{
    QFETCH(Writer, writer);
    struct_PDOList made = devicePdo({0x1A02, 1, 2});
    made.Name = "not stored";
    made.Size = 3.5F;
    made.Attributes.Fixed = true;
    made.Attributes.Mandatory = true;
    made.Attributes.SU = -7;
    struct_EntryPDOContent& first = made.Entry.vPdo_c[0];
    first.Attributes.Fixed = true;
    first.Index = 0x6041;
    first.SubIndex = 0x00010203; // 32 bits wide, other than in a startup command
    first.Bitlen = 16;
    first.Linkto = KTL_PDO_TYPE_ENCODER32;
    first.Name = "not stored";
    first.DataType = "UINT";
    first.DefaultData = 0x77777777;
    first.Offs = 1.4F;
    struct_EntryPDOContent& second = made.Entry.vPdo_c[1];
    second.Bitlen = -300;
    second.Linkto = 0x12345678; // also a link that has no name
    struct_EtherCatDevice device;
    device.vSM.resize(2);
    (writer.write == KTL_write_device_RxPdoinfo ? device.RxPdo : device.TxPdo).vpdo = {made};
    QCOMPARE(written(writer, device), bytes(writer.code) + // m_iItemType
                                          bytes("44 00 00 00" // m_iSize 28 + 2 * 20
                                                "01 01 00 00" // Fixed, Mandatory, m_bVirtual
                                                "01 00 00 00" // SM
                                                "F9 FF FF FF" // SU
                                                "02 1A 00 00" // IndexAttributes, m_rev
                                                "02 00 00 00" // m_iCount
                                                "01 00 41 60" // m_bFixed, Index
                                                "03 02 01 00" // SubIndex
                                                "10 00 00 00" // Bitlen
                                                "00 00 00 00" // bLinkTo
                                                "F6 FF FF FF" // LinkToData
                                                "00 00 00 00  00 00 00 00"
                                                "D4 FE FF FF" // Bitlen
                                                "00 00 00 00"
                                                "78 56 34 12")); // LinkToData
}

void tst_PdoWriters::itemOfAModulePdo()
{
    QFETCH(Writer, writer);
    modulePdo made = pdoOfModule({0x1A12, 1, 2});
    made.Name = "not stored";
    made.size = 3.5F;
    made.Instances = 7;
    made.Attributes.Fixed = true;
    made.Attributes.SU = -7;
    made.indexAttributes.DependOnSlot = true;
    struct_moduleEntry& first = made.vEntry[0];
    first.indexAttributes.DependOnSlot = true;
    first.indexAttributes.index = 0x6041;
    first.SubIndex = 0x0203; // 16 bits wide in a module, 32 in the item
    first.BitLen = 0x00012345; // whole, other than in a module block
    first.Linkto = KTL_PDO_TYPE_ENCODER32;
    first.Name = "not stored";
    first.DataType = "UINT";
    first.Comment = "not stored";
    first.DefaultData = 0x77777777;
    first.Offs = 1.4F;
    struct_moduleEntry& second = made.vEntry[1];
    second.BitLen = -300;
    second.Linkto = 0x12345678; // also a link that has no name
    struct_EtherCatDevice device;
    device.vSM.resize(2);
    std::vector<modulePdo>& list =
        (writer.write == KTL_write_device_AddModuleRPdo ? device.mRxPdo : device.mTxPdo).mpdo;
    list = {made};
    QCOMPARE(written(writer, device), bytes(writer.code) + // m_iItemType
                                          bytes("44 00 00 00" // m_iSize 28 + 2 * 20
                                                "01 00 00 00" // Fixed, Mandatory, m_bVirtual
                                                "01 00 00 00" // SM
                                                "F9 FF FF FF" // SU
                                                "12 1A 00 00" // IndexAttributes, m_rev
                                                "02 00 00 00" // m_iCount
                                                "00 00 41 60" // m_bFixed, Index
                                                "03 02 00 00" // SubIndex
                                                "45 23 01 00" // Bitlen
                                                "00 00 00 00" // bLinkTo
                                                "F6 FF FF FF" // LinkToData
                                                "00 00 00 00  00 00 00 00"
                                                "D4 FE FF FF" // Bitlen
                                                "00 00 00 00"
                                                "78 56 34 12")); // LinkToData
    list[0].Attributes.Fixed = false;
    list[0].Attributes.Mandatory = true;
    QCOMPARE(written(writer, device).mid(8, 4), bytes("00 01 00 00"));
}

void tst_PdoWriters::otherListsAreNotWritten()
{
    QFETCH(Writer, writer);
    struct_EtherCatDevice device;
    for (const Writer& other : writers)
        if (other.write != writer.write)
            other.add(device, {0x1600, -1, 1});
    QCOMPARE(written(writer, device), QByteArray());
}

void tst_PdoWriters::oneItemPerPdoInOrder()
{
    QFETCH(Writer, writer);
    struct_EtherCatDevice device =
        deviceWith(1, writer, {{0x1A07, 0, 1}, {0x1A01, -1, 1}, {0x1A00, 0, 0}, {0x1A07, 0, 1}});
    QCOMPARE(written(writer, device), // the one without entries is left out
             itemOfOneEntry(writer, 0x1A07, 0) + itemOfOneEntry(writer, 0x1A01, -1)
                 + itemOfOneEntry(writer, 0x1A07, 0));
}

void tst_PdoWriters::syncManagerOfPdo_data()
{
    QTest::addColumn<Writer>("writer");
    QTest::addColumn<int>("sm"); // the device has a real one (0), a virtual one (1) and a real one (2)
    QTest::addColumn<bool>("isWritten");
    for (const Writer& writer : writers) {
        const char* name = writer.name;
        QTest::addRow("%s, real one", name) << writer << 0 << true;
        QTest::addRow("%s, virtual one", name) << writer << 1 << false;
        QTest::addRow("%s, after a virtual one: the number stays", name) << writer << 2 << true;
        QTest::addRow("%s, none", name) << writer << -1 << true;
        QTest::addRow("%s, far below none", name) << writer << std::numeric_limits<int>::min() << true;
        QTest::addRow("%s, 65536: looked up as 0, stored whole", name) << writer << 65536 << true;
        QTest::addRow("%s, 65537: looked up as 1", name) << writer << 65537 << false;
        QTest::addRow("%s, negative with the low bits of a virtual one", name) << writer << -65535 << true;
    }
}

void tst_PdoWriters::syncManagerOfPdo()
{
    QFETCH(Writer, writer);
    QFETCH(int, sm);
    QFETCH(bool, isWritten);
    struct_EtherCatDevice device = deviceWith(3, writer, {{0x1600, sm, 1}});
    device.vSM[1].Attributes.m_Virtual = 0x100; // any number but 0
    QCOMPARE(written(writer, device), isWritten ? itemOfOneEntry(writer, 0x1600, sm) : QByteArray());
}

void tst_PdoWriters::undeclaredSyncManager_data()
{
    QTest::addColumn<Writer>("writer");
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("sm");
    QTest::addColumn<int>("entries");
    QTest::addColumn<QString>("reason");
    const QString reason = QStringLiteral("vector::_M_range_check: __n (which is %1) >= this->size() (which is %2)");
    for (const Writer& writer : writers) {
        const char* name = writer.name;
        QTest::addRow("%s, one too far", name) << writer << 2 << 2 << 1 << reason.arg(2).arg(2);
        QTest::addRow("%s, far too far", name) << writer << 4 << 4711 << 1 << reason.arg(4711).arg(4);
        QTest::addRow("%s, no sync manager at all", name) << writer << 0 << 0 << 1 << reason.arg(0).arg(0);
        QTest::addRow("%s, low 16 bits are looked up", name) << writer << 1 << 65541 << 1 << reason.arg(5).arg(1);
        QTest::addRow("%s, before the entries are looked at", name) << writer << 3 << 7 << 0 << reason.arg(7).arg(3);
    }
}

void tst_PdoWriters::undeclaredSyncManager()
{
    QFETCH(Writer, writer);
    QFETCH(int, declared);
    QFETCH(int, sm);
    QFETCH(int, entries);
    QFETCH(QString, reason);
    struct_EtherCatDevice device =
        deviceWith(static_cast<std::size_t>(declared), writer, {{0x1600, sm, static_cast<std::size_t>(entries)}});
    const FileHandle stream = streamWith();
    QString told = QStringLiteral("no error");
    try {
        writer.write(stream.get(), &device);
    } catch (const std::out_of_range& error) {
        told = QString::fromLatin1(error.what());
    }
    QCOMPARE(told, reason);
    QCOMPARE(contentOf(stream.get()), QByteArray());
}

void tst_PdoWriters::itemsBeforeTheErrorStay()
{
    QFETCH(Writer, writer);
    struct_EtherCatDevice device = deviceWith(1, writer, {{0x1600, 0, 1}, {0x1601, 1, 1}, {0x1602, 0, 1}});
    const FileHandle stream = streamWith();
    QVERIFY_EXCEPTION_THROWN(writer.write(stream.get(), &device), std::out_of_range);
    QCOMPARE(contentOf(stream.get()), itemOfOneEntry(writer, 0x1600, 0));
}

void tst_PdoWriters::nullArgumentsWriteNothing()
{
    QFETCH(Writer, writer);
    struct_EtherCatDevice device = deviceWith(0, writer, {{0x1600, -1, 1}});
    writer.write(nullptr, &device);
    QCOMPARE(writtenBy([&](std::FILE* out) { writer.write(out, nullptr); }), QByteArray());
}

static const testMain::Registration<tst_PdoWriters, QCoreApplication> registration;
#include "tst_PdoWriters.moc"
