// Items of the PDOs that modules bring into a device, byte for byte. Both directions go through every test: they differ
// in the item code only.
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
    DeviceModulePdoList struct_EtherCatDevice::*list = nullptr;
    QByteArray code; ///< as it stands in the file
};

const Direction outputs{KTL_write_device_AddModuleRPdo, &struct_EtherCatDevice::mRxPdo, bytes("43 9C 00 00")};
const Direction inputs{KTL_write_device_AddModuleTPdo, &struct_EtherCatDevice::mTxPdo, bytes("44 9C 00 00")};

/// A PDO of the given number of cleared entries.
modulePdo pdo(std::uint16_t index, int sm, std::size_t entries)
{
    modulePdo made;
    made.indexAttributes.index = index;
    made.Attributes.SM = sm;
    made.vEntry.resize(entries);
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

class tst_ModulePdoItems : public QObject
{
    Q_OBJECT

private slots:
    void wholeItem_data() { addDirections(); }
    void wholeItem();
    void otherListsAreNotWritten_data() { addDirections(); }
    void otherListsAreNotWritten();
    void oneItemPerPdoInOrder_data() { addDirections(); }
    void oneItemPerPdoInOrder();
    void syncManagerOfPdo_data();
    void syncManagerOfPdo();
    void undeclaredSyncManager_data();
    void undeclaredSyncManager();
    void itemsBeforeTheErrorStay_data() { addDirections(); }
    void itemsBeforeTheErrorStay();
    void nullArgumentsWriteNothing_data() { addDirections(); }
    void nullArgumentsWriteNothing();

private:
    static void addDirections();
};

void tst_ModulePdoItems::addDirections()
{
    QTest::addColumn<Direction>("direction");
    QTest::addRow("outputs") << outputs;
    QTest::addRow("inputs") << inputs;
}

void tst_ModulePdoItems::wholeItem()
{
    QFETCH(Direction, direction);
    modulePdo made = pdo(0x1A12, 1, 2);
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
    (device.*direction.list).mpdo = {made};
    QCOMPARE(written(direction, device), direction.code + // m_iItemType
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
    (device.*direction.list).mpdo[0].Attributes.Fixed = false;
    (device.*direction.list).mpdo[0].Attributes.Mandatory = true;
    QCOMPARE(written(direction, device).mid(8, 4), bytes("00 01 00 00"));
}

void tst_ModulePdoItems::otherListsAreNotWritten()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    const Direction& other = direction.write == outputs.write ? inputs : outputs;
    (device.*other.list).mpdo = {pdo(0x1600, -1, 1)};
    for (DevicePdoList* list : {&device.RxPdo, &device.TxPdo}) { // PDOs of the device are no business of this writer
        list->vpdo.resize(1);
        list->vpdo[0].Entry.vPdo_c.resize(1);
    }
    QCOMPARE(written(direction, device), QByteArray());
}

void tst_ModulePdoItems::oneItemPerPdoInOrder()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    device.vSM.resize(1);
    (device.*direction.list).mpdo = {pdo(0x1A07, 0, 1), pdo(0x1A01, -1, 1), pdo(0x1A00, 0, 0), pdo(0x1A07, 0, 1)};
    QCOMPARE(written(direction, device), // the one without entries is left out
             itemOfOneEntry(direction, 0x1A07, 0) + itemOfOneEntry(direction, 0x1A01, -1)
                 + itemOfOneEntry(direction, 0x1A07, 0));
}

void tst_ModulePdoItems::syncManagerOfPdo_data()
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

void tst_ModulePdoItems::syncManagerOfPdo()
{
    QFETCH(Direction, direction);
    QFETCH(int, sm);
    QFETCH(bool, isWritten);
    struct_EtherCatDevice device;
    device.vSM.resize(3);
    device.vSM[1].Attributes.m_Virtual = 0x100; // any number but 0
    (device.*direction.list).mpdo = {pdo(0x1600, sm, 1)};
    QCOMPARE(written(direction, device), isWritten ? itemOfOneEntry(direction, 0x1600, sm) : QByteArray());
}

void tst_ModulePdoItems::undeclaredSyncManager_data()
{
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<int>("declared");
    QTest::addColumn<int>("sm");
    QTest::addColumn<int>("entries");
    for (const Direction& direction : {outputs, inputs}) {
        const char* name = direction.write == outputs.write ? "outputs" : "inputs";
        QTest::addRow("%s, one too far", name) << direction << 2 << 2 << 1;
        QTest::addRow("%s, no sync manager at all", name) << direction << 0 << 0 << 1;
        QTest::addRow("%s, before the entries are looked at", name) << direction << 3 << 7 << 0;
    }
}

void tst_ModulePdoItems::undeclaredSyncManager()
{
    QFETCH(Direction, direction);
    QFETCH(int, declared);
    QFETCH(int, sm);
    QFETCH(int, entries);
    struct_EtherCatDevice device;
    device.vSM.resize(static_cast<std::size_t>(declared));
    (device.*direction.list).mpdo = {pdo(0x1600, sm, static_cast<std::size_t>(entries))};
    const FileHandle stream = streamWith();
    QString told = QStringLiteral("no error");
    try {
        direction.write(stream.get(), &device);
    } catch (const std::out_of_range& error) {
        told = QString::fromLatin1(error.what());
    }
    QCOMPARE(told, QStringLiteral("vector::_M_range_check: __n (which is %1) >= this->size() (which is %2)")
                       .arg(sm)
                       .arg(declared));
    QCOMPARE(contentOf(stream.get()), QByteArray());
}

void tst_ModulePdoItems::itemsBeforeTheErrorStay()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    device.vSM.resize(1);
    (device.*direction.list).mpdo = {pdo(0x1600, 0, 1), pdo(0x1601, 1, 1), pdo(0x1602, 0, 1)};
    const FileHandle stream = streamWith();
    QVERIFY_EXCEPTION_THROWN(direction.write(stream.get(), &device), std::out_of_range);
    QCOMPARE(contentOf(stream.get()), itemOfOneEntry(direction, 0x1600, 0));
}

void tst_ModulePdoItems::nullArgumentsWriteNothing()
{
    QFETCH(Direction, direction);
    struct_EtherCatDevice device;
    (device.*direction.list).mpdo = {pdo(0x1600, -1, 1)};
    direction.write(nullptr, &device);
    QCOMPARE(writtenBy([&](std::FILE* out) { direction.write(out, nullptr); }), QByteArray());
}

static const testMain::Registration<tst_ModulePdoItems, QCoreApplication> registration;
#include "tst_ModulePdoItems.moc"
