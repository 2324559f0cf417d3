// The Slot item, byte for byte.
// Covers slotWriters.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

class tst_SlotWriter : public QObject
{
    Q_OBJECT

private slots:
    void wholeItem();
    void moreSlotsThanAByteCounts_data();
    void moreSlotsThanAByteCounts();
};

static QByteArray written(struct_EtherCatDevice& device)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_Slots(out, &device); });
}

void tst_SlotWriter::wholeItem()
{
    struct_EtherCatDevice device;
    device.Slots.Attributes.DownloadModuleIdentList = true;
    device.Slots.Attributes.DownloadModuleAddressList = false;
    device.Slots.Attributes.SlotPdoIncrement = 0xABCD0102; // the head keeps the low 16 bits of both increments
    device.Slots.Attributes.SlotIndexIncrement = 0x12340304;
    device.Slots.Attributes.m_MaxSlotCount = 99; // not stored: the number of slots counts
    device.Slots.Attributes.m_SlotGroupPdoIncrement = 77;
    device.Slots.vslot.resize(2);
    struct_Slot& first = device.Slots.vslot[0];
    first.Name = "not stored";
    first.Attributes.MinInstances = 1;
    first.Attributes.MaxInstances = 16;
    first.Attributes.SlotIndexIncrement = 0x11223344;
    first.Attributes.SlotPdoIncrement = 0x55667788;
    first.Attributes.m_SlotGroup = 3;
    first.ModuleIdent.resize(2); // neither the accepted modules nor the one in the slot reach the item
    first.ModuleIdent[0].ModuleIdent = 0x99999999;
    first.ModuleClass.resize(1);
    first.slotmodule.resize(1);
    first.slotmodule[0].module.TypeAttributes.ModuleIdent = 0x88888888;
    device.Slots.vslot[1].Attributes.MaxInstances = 0xFFFFFFFF;
    QCOMPARE(written(device), bytes("47 9C 00 00" // m_iItemType 40007
                                    "0C 01 00 00" // m_iSize 20 + 2 * 124 = 268
                                    "02 00" // m_iMaxSlotCount
                                    "01" // m_bDownloadModuleIdentList
                                    "00" // m_bDownloadModuleIdentAddressList
                                    "02 01" // m_iSlotPdoIncrement
                                    "04 03" // m_iSlotIndexIncrement
                                    "02 00" // m_iCurSlotCount
                                    "00 00" // m_iRev
                                    "01 00 00 00" // m_iMinInstances
                                    "10 00 00 00" // m_iMaxInstances
                                    "44 33 22 11" // SlotIndexIncrement
                                    "88 77 66 55") // SlotPdoIncrement
                                  + zeros(2 + 2 + 96 + 8) + bytes("00 00 00 00  FF FF FF FF") + zeros(116));
    device.Slots.Attributes.DownloadModuleIdentList = false;
    device.Slots.Attributes.DownloadModuleAddressList = true;
    QCOMPARE(written(device).mid(10, 2), bytes("00 01"));
}

void tst_SlotWriter::moreSlotsThanAByteCounts_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<QByteArray>("stored");
    QTest::addRow("255 slots") << 255 << bytes("98 7B 00 00") << bytes("FF 00"); // 20 + 124 * 255 = 31640
    QTest::addRow("256 slots count as 0") << 256 << bytes("14 7C 00 00") << bytes("00 00"); // 31764
    QTest::addRow("300 slots count as 44") << 300 << bytes("64 91 00 00") << bytes("2C 00"); // 37220
}

/// The counts keep the low 8 bits although they are 16 bits wide; the size and the records are complete.
void tst_SlotWriter::moreSlotsThanAByteCounts()
{
    QFETCH(int, count);
    QFETCH(QByteArray, size);
    QFETCH(QByteArray, stored);
    struct_EtherCatDevice device;
    device.Slots.vslot.resize(static_cast<std::size_t>(count));
    QByteArray records;
    for (std::size_t slot = 0; slot < device.Slots.vslot.size(); ++slot) {
        const auto number = static_cast<std::uint32_t>(slot);
        device.Slots.vslot[slot].Attributes.MinInstances = number;
        records += le32(number) + zeros(120);
    }
    QCOMPARE(written(device),
             bytes("47 9C 00 00") + size + stored + bytes("00 00  00 00 00 00") + stored + bytes("00 00") + records);
}

static const testMain::Registration<tst_SlotWriter, QCoreApplication> registration;
#include "tst_SlotWriter.moc"
