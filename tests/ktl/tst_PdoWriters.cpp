// Items of the device's PDOs, byte for byte. Both directions go through every test: they differ in the item code only.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

#include <limits>
#include <stdexcept>

namespace {

/// What tells the two directions apart.
struct Direction
{
    void (*write)(std::FILE*, struct_EtherCatDevice*) = nullptr;
    DevicePdoList struct_EtherCatDevice::*list = nullptr;
    QByteArray code; ///< as it stands in the file
};

const Direction outputs{KTL_write_device_RxPdoinfo, &struct_EtherCatDevice::RxPdo, bytes("43 9C 00 00")};
const Direction inputs{KTL_write_device_TxPdoinfo, &struct_EtherCatDevice::TxPdo, bytes("44 9C 00 00")};

/// A PDO of the given number of cleared entries.
struct_PDOList pdo(std::uint16_t index, int sm, std::size_t entries)
{
    struct_PDOList made;
    made.IndexAttributes.Index = index;
    made.Attributes.SM = sm;
    made.Entry.vPdo_c.resize(entries);
    return made;
}

/// The item of such a PDO with one entry.
QByteArray itemOfOneEntry(const Direction& direction, std::uint16_t index, int sm)
{
    return direction.code + bytes("30 00 00 00  00 00  00 00") + le32(static_cast<std::uint32_t>(sm)) + zeros(4)
           + le16(index) + zeros(2) + bytes("01 00 00 00") + zeros(20);
}

QByteArray written(const Direction& direction, struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { direction.write(out, &device); });
}

} // namespace

Q_DECLARE_METATYPE(Direction)

class tst_PdoWriters : public QObject
{
    Q_OBJECT

private slots:
    void wholeItem_data() { addDirections(); }
    void wholeItem();
    void otherDirectionIsNotWritten_data() { addDirections(); }
    void otherDirectionIsNotWritten();
    void oneItemPerPdoInOrder_data() { addDirections(); }
    void oneItemPerPdoInOrder();
    void syncManagerOfPdo_data();
    void syncManagerOfPdo();
    void undeclaredSyncManager_data();
    void undeclaredSyncManager();
    void itemsBeforeTheErrorStay_data() { addDirections(); }
    void itemsBeforeTheErrorStay();

private:
    static void addDirections();
};

void tst_PdoWriters::addDirections()
{
    QTest::addColumn<Direction>("direction");
    QTest::addRow("outputs") << outputs;
    QTest::addRow("inputs") << inputs;
}

void tst_PdoWriters::wholeItem()
{
    QFETCH(Direction, direction);
    struct_PDOList made = pdo(0x1A02, 1, 2);
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
    (device.*direction.list).vpdo = {made};
    QCOMPARE(written(direction, device), direction.code + // m_iItemType
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

void tst_PdoWriters::otherDirectionIsNotWritten()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    const Direction& other = direction.write == outputs.write ? inputs : outputs;
    (device.*other.list).vpdo = {pdo(0x1600, -1, 1)};
    device.mRxPdo.mpdo.resize(1); // PDOs of modules are no business of this writer
    device.mTxPdo.mpdo.resize(1);
    QCOMPARE(written(direction, device), QByteArray());
}

void tst_PdoWriters::oneItemPerPdoInOrder()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    device.vSM.resize(1);
    (device.*direction.list).vpdo = {pdo(0x1A07, 0, 1), pdo(0x1A01, -1, 1), pdo(0x1A00, 0, 0), pdo(0x1A07, 0, 1)};
    QCOMPARE(written(direction, device), // the one without entries is left out
             itemOfOneEntry(direction, 0x1A07, 0) + itemOfOneEntry(direction, 0x1A01, -1)
                 + itemOfOneEntry(direction, 0x1A07, 0));
}

void tst_PdoWriters::syncManagerOfPdo_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<int>("sm"); // the device has a real one (0), a virtual one (1) and a real one (2)
    QTest::addColumn<bool>("isWritten");
    for (const Direction& direction : {outputs, inputs}) {
        const char* name = direction.write == outputs.write ? "outputs" : "inputs";
        QTest::addRow("%s, real one", name) << direction << 0 << true;
        QTest::addRow("%s, virtual one", name) << direction << 1 << false;
        QTest::addRow("%s, behind a virtual one: the number stays", name) << direction << 2 << true;
        QTest::addRow("%s, none", name) << direction << -1 << true;
        QTest::addRow("%s, far below none", name) << direction << std::numeric_limits<int>::min() << true;
        QTest::addRow("%s, 65536: looked up as 0, stored whole", name) << direction << 65536 << true;
        QTest::addRow("%s, 65537: looked up as 1", name) << direction << 65537 << false;
        QTest::addRow("%s, negative with the low bits of a virtual one", name) << direction << -65535 << true;
    }
}

void tst_PdoWriters::syncManagerOfPdo()
{
    QFETCH(Direction, direction);
    QFETCH(int, sm);
    QFETCH(bool, isWritten);
    struct_EtherCatDevice device;
    device.vSM.resize(3);
    device.vSM[1].Attributes.m_Virtual = 0x100; // any number but 0
    (device.*direction.list).vpdo = {pdo(0x1600, sm, 1)};
    QCOMPARE(written(direction, device), isWritten ? itemOfOneEntry(direction, 0x1600, sm) : QByteArray());
}

void tst_PdoWriters::undeclaredSyncManager_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("sm");
    QTest::addColumn<int>("entries");
    QTest::addColumn<QString>("reason");
    const QString reason = QStringLiteral("vector::_M_range_check: __n (which is %1) >= this->size() (which is %2)");
    for (const Direction& direction : {outputs, inputs}) {
        const char* name = direction.write == outputs.write ? "outputs" : "inputs";
        QTest::addRow("%s, one too far", name) << direction << 2 << 2 << 1 << reason.arg(2).arg(2);
        QTest::addRow("%s, far too far", name) << direction << 4 << 4711 << 1 << reason.arg(4711).arg(4);
        QTest::addRow("%s, no sync manager at all", name) << direction << 0 << 0 << 1 << reason.arg(0).arg(0);
        QTest::addRow("%s, low 16 bits are looked up", name) << direction << 1 << 65541 << 1 << reason.arg(5).arg(1);
        QTest::addRow("%s, before the entries are looked at", name) << direction << 3 << 7 << 0 << reason.arg(7).arg(3);
    }
}

void tst_PdoWriters::undeclaredSyncManager()
{
    QFETCH(Direction, direction);
    QFETCH(int, declared);
    QFETCH(int, sm);
    QFETCH(int, entries);
    QFETCH(QString, reason);
    struct_EtherCatDevice device;
    device.vSM.resize(static_cast<std::size_t>(declared));
    (device.*direction.list).vpdo = {pdo(0x1600, sm, static_cast<std::size_t>(entries))};
    const FileHandle stream = streamWith();
    QString told = QStringLiteral("no error");
    try {
        direction.write(stream.get(), &device);
    } catch (const std::out_of_range& error) {
        told = QString::fromLatin1(error.what());
    }
    QCOMPARE(told, reason);
    QCOMPARE(contentOf(stream.get()), QByteArray());
}

void tst_PdoWriters::itemsBeforeTheErrorStay()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    device.vSM.resize(1);
    (device.*direction.list).vpdo = {pdo(0x1600, 0, 1), pdo(0x1601, 1, 1), pdo(0x1602, 0, 1)};
    const FileHandle stream = streamWith();
    QVERIFY_EXCEPTION_THROWN(direction.write(stream.get(), &device), std::out_of_range);
    QCOMPARE(contentOf(stream.get()), itemOfOneEntry(direction, 0x1600, 0));
}

static const testMain::Registration<tst_PdoWriters, QCoreApplication> registration;
#include "tst_PdoWriters.moc"
