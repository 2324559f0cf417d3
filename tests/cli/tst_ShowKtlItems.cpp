// `ktl show` of KTL files: every field of every item, held against bytes written by hand.
// Covers showItems.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "ktl/ktlItems.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowKtlItems : public QObject
{
    Q_OBJECT

private slots:
    void everyField_data();
    void everyField();
    void textOfAnItem();
    void textOfRecordsAndWords();
    void offsetsOfTheItems();

private:
    QTemporaryDir m_folder;
};

namespace {

/// An item of a type: its head, with the size of all, and what follows.
QByteArray itemOf(std::uint32_t type, const QByteArray& content)
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + content.size())) + content;
}

QByteArray endItem()
{
    return bytes("00 00 00 00 0C 00 00 00 00 00 00 00");
}

QByteArray u8(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

/// One startup command: the numbers of its fields begin with `first`.
QByteArray command(int transition, int index, int subIndex, int completeAccess, int dataBytes, std::uint32_t data)
{
    return le16(transition) + le16(index) + u8(subIndex) + u8(completeAccess) + le16(dataBytes) + le32(data);
}

void row(const char* name, const QByteArray& item, const QByteArray& expected)
{
    QTest::addRow("%s", name) << item << expected;
}

void addDeviceItems()
{
    row("General",
        itemOf(40000, le32(0x7E570001) + le32(2) + le32(3) + le32(4) + le16(5) + le16(6) + le16(7) + le16(8) + u8(9)
                          + u8(10) + u8(11) + u8(12) + le32(13) + le32(14) + le16(15) + le16(16) + le16(17) + le16(18)),
        R"({"name":"General","size":52,"fields":{"m_iItemType":40000,"m_iSize":52,"m_iVendor_Id":2119630849,
            "m_iProduct_Code":2,"m_iRevision_No":3,"m_iSerial_No":4,"m_iDeviceType":5,"m_bSdoSupport":6,
            "m_iSlotCount":7,"m_bEoeSupport":8,"m_bHasOD":9,"m_bListOD":10,"m_bPdoReadVerify":11,"m_bAddAlign":12,
            "m_iAlignSign":13,"m_iAlignSign2":14,"m_iDrive1600Write":15,"m_iDrive1600Offset":16,"m_iDriveAxies":17,
            "m_iModuleTypeMax":18}})");
    row("FMMU", itemOf(40014, le32(2) + bytes("01 02 03 04") + le32(5) + bytes("06 07 08 FF") + le32(0xFFFFFFFF)),
        R"({"name":"FMMU","size":28,"fields":{"m_iItemType":40014,"m_iSize":28,"m_iCount":2},"records":[
            {"m_iOpOnly":1,"m_iSm":2,"m_iSu":3,"m_iFmmuType":4,"m_reserve":5},
            {"m_iOpOnly":6,"m_iSm":7,"m_iSu":8,"m_iFmmuType":255,"m_reserve":4294967295}]})");
    row("SM", itemOf(40001, le32(1) + le16(0x1000) + le16(2) + le16(3) + le16(0xFFFF) + le32(0x10026) + le32(6)),
        R"({"name":"SM","size":28,"fields":{"m_iItemType":40001,"m_iSize":28,"m_iCount":1},"records":[
            {"m_iStartAddress":4096,"m_iMinSize":2,"m_iMaxSize":3,"m_iDefaultSize":65535,"ControlByte":65574,
             "Enable":6}]})");
    row("DC", itemOf(40002, le32(1) + u8(1) + zeros(22) + u8(9) + le32(0x300)),
        R"({"name":"DC","size":40,"fields":{"m_iItemType":40002,"m_iSize":40,"m_iCount":1},"records":[
            {"m_aDesc":[1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,9],"AssignActivate":768}]})");
    const QByteArray pdo = u8(1) + u8(2) + le16(3) + le32(0xFFFFFFFF) + le32(5) + le16(0x1600) + le16(7) + le32(1)
                           + le16(8) + le16(0x6040) + le32(300) + le32(16) + le32(0xFFFFFFF0) + le32(0xFFFFFFFE);
    for (const int type : {40003, 40004})
        row(type == 40003 ? "RxPdo" : "TxPdo", itemOf(static_cast<std::uint32_t>(type), pdo),
            QByteArray(R"({"size":48,"name":")") + (type == 40003 ? "RxPdo" : "TxPdo") + R"(","fields":{"m_iItemType":)"
                + QByteArray::number(type) + R"(,"m_iSize":48,"Fixed":1,"Mandatory":2,"m_bVirtual":3,"SM":-1,"SU":5,
                "IndexAttributes":5632,"m_rev":7,"m_iCount":1},"records":[{"m_bFixed":8,"Index":24640,"SubIndex":300,
                "Bitlen":16,"bLinkTo":-16,"LinkToData":-2}]})");
    row("EEPROM", itemOf(40008, le32(2048) + le32(1) + le32(2) + le32(3) + le32(4) + le32(5) + le32(6) + le32(7)),
        R"({"name":"EEPROM","size":40,"fields":{"m_iItemType":40008,"m_iSize":40,"m_iByteSize":2048,
            "m_aConfigData":[1,2,3,4,5,6,7]}})");
}

void addStartupItems()
{
    row("EoE", itemOf(40005, bytes("01 02 03 01") + command(3, 4, 5, 6, 7, 8)),
        R"({"name":"EoE","size":24,"fields":{"m_iItemType":40005,"m_iSize":24,"m_bIP":1,"m_bMAC":2,"m_bTimeStamp":3,
            "m_iInitCmdCount":1},"records":[{"Transition":3,"Index":4,"SubIndex":5,"bIfCA":6,"DataBytes":7,
            "Data":8}]})");
    row("CoE, with values and a fill",
        itemOf(40006, bytes("01 02 03 04 05 06 07 01") + command(2, 0x1600, 0, 1, 16, 0) + le32(0x60400010) + le32(8)
                          + bytes("46 9C 00 00 2C 00 00 00")),
        R"({"name":"CoE","size":44,"fields":{"m_iItemType":40006,"m_iSize":44,"m_bSdoInfo":1,"m_bPdoAssign":2,
            "m_bPdoUpload":3,"m_bPdoConfig":4,"m_bSegmentedSdo":5,"m_bCompleteAccess":6,"m_bDiagHistory":7,
            "m_iInitCmdCount":1},"records":[{"Transition":2,"Index":5632,"SubIndex":0,"bIfCA":1,"DataBytes":16,
            "Data":0}],"values":[1614807056,8],"fill":"46 9c 00 00 2c 00 00 00"})");
}

void addSlotItems()
{
    QByteArray slot = le32(1) + le32(2) + le32(3) + le32(4) + le16(5) + le16(6);
    for (std::uint32_t ident = 101; ident <= 124; ++ident)
        slot += le32(ident);
    row("Slot",
        itemOf(40007,
               le16(300) + u8(2) + u8(3) + le16(4) + le16(5) + le16(0) + le16(7) + slot + bytes("0102030405060708")),
        R"({"name":"Slot","size":144,"fields":{"m_iItemType":40007,"m_iSize":144,"m_iMaxSlotCount":300,
            "m_bDownloadModuleIdentList":2,"m_bDownloadModuleIdentAddressList":3,"m_iSlotPdoIncrement":4,
            "m_iSlotIndexIncrement":5,"m_iCurSlotCount":0,"m_iRev":7},"records":[{"m_iMinInstances":1,
            "m_iMaxInstances":2,"SlotIndexIncrement":3,"SlotPdoIncrement":4,"m_bModuleIdent":5,
            "m_iModuleIdentOrClassCount":6,"ModuleIdent":[101,102,103,104,105,106,107,108,109,110,111,112,113,114,115,
            116,117,118,119,120,121,122,123,124],"aModuleClassIndex":[1,2,3,4,5,6,7,8]}]})");
    row("SlotPreConfig", itemOf(40015, le32(2) + le32(1) + le32(0x116) + le32(9) + le32(0) + le32(10)),
        R"({"name":"SlotPreConfig","size":32,"fields":{"m_iItemType":40015,"m_iSize":32,"m_iCount":2,"m_iCountReal":1},
            "records":[{"m_iModuleIdent":278,"m_ireserve":9},{"m_iModuleIdent":0,"m_ireserve":10}]})");
    row("DeviceMoreInfo", itemOf(40016, le32(20261121) + le32(90507) + le32(0x10028) + le32(4) + "Dev\nMod" + zeros(1)),
        R"({"name":"DeviceMoreInfo","size":32,"fields":{"m_iItemType":40016,"m_iSize":32,"m_iDate":20261121,
            "m_iTime":90507,"m_iVersion":65576,"m_iCount":4},"text":"Dev\nMod","fill":"00"})");
}

void addModuleItems()
{
    row("ModuleType", itemOf(40013, le32(0x116) + le32(0xFFFFFFFE) + u8(3) + u8(4) + le16(5)),
        R"({"name":"ModuleType","size":20,"fields":{"m_iItemType":40013,"m_iSize":20,"TypeAttributes.ModuleIdent":278,
            "TypeAttributes.ModulePdoGroup":-2,"TypeAttributes.SRA_ParamterSupported":3,"TypeAttributes.m_attrRev":4,
            "TypeAttributes.m_u16Rev":5}})");
    const QByteArray entries = u8(1) + u8(2) + le16(3) + le32(4) + le32(5) + le16(0x1A00) + le16(7) + le32(1) + u8(1)
                               + u8(9) + le16(0x6000) + le16(11) + le16(12) + le32(0xFFFFFFFF);
    for (const int type : {40102, 40103})
        row(type == 40102 ? "ModuleTPDOEntry" : "ModuleRPDOEntry", itemOf(static_cast<std::uint32_t>(type), entries),
            QByteArray(R"({"size":40,"name":")") + (type == 40102 ? "ModuleTPDOEntry" : "ModuleRPDOEntry")
                + R"(","fields":{"m_iItemType":)" + QByteArray::number(type) + R"(,"m_iSize":40,"Fixed":1,"Mandatory":2,
                "m_bVirtual":3,"SM":4,"SU":5,"IndexAttributes":6656,"m_rev":7,"m_iCount":1},"records":[
                {"DependOnSlot":1,"m_AttrRev":9,"index":24576,"SubIndex":11,"BitLen":12,"LinkToData":-1}]})");
    row("ModuleCoEInitCmd",
        itemOf(40104, le32(1) + bytes("01 02 03 04") + le16(5) + le16(6) + le16(7) + u8(8) + u8(9) + le32(10)),
        R"({"name":"ModuleCoEInitCmd","size":28,"fields":{"m_iItemType":40104,"m_iSize":28,"m_iCount":1},"records":[
            {"DependOnSlot":1,"DependOnSlotGroup":2,"AdaptAutomatically":3,"m_DataBytes":4,"index":5,"m_u16AttrRev":6,
             "Transition":7,"SubIndex":8,"bifCA":9,"Data":10}]})");
    const QByteArray object = le32(0x1018) + le32(0xFFFFFFFF) + le16(17) + le16(3) + le32(4) + le32(5);
    for (const int type : {40009, 40010})
        row(type == 40009 ? "ObjectDetectType" : "ObjectConfigType", itemOf(static_cast<std::uint32_t>(type), object),
            QByteArray(R"({"size":28,"name":")") + (type == 40009 ? "ObjectDetectType" : "ObjectConfigType")
                + R"(","fields":{"m_iItemType":)" + QByteArray::number(type) + R"(,"m_iSize":28,"index":4120,"m_iRev":0,
                "BitSize":-1,"flags.Access":17,"flags.m_iRev2":3,"info.MinData":4,"info.MaxData":5}})");
    row("SubObjectType", itemOf(40012, object),
        R"({"name":"SubObjectType","size":28,"fields":{"m_iItemType":40012,"m_iSize":28,"subIndex":4120,"BitSize":-1,
            "flags.Access":17,"flags.m_iRev":3,"info.MinData":4,"info.MaxData":5}})");
}

void addItemsWithoutLayout()
{
    const std::pair<int, const char*> reserved[] = {{40011, "ObjectModule"},
                                                    {40100, "ModuleRxPDO"},
                                                    {40101, "ModuleTxPDO"},
                                                    {40105, "ModuleDictDT"},
                                                    {40106, "ModuleDictObject"},
                                                    {40999, ""},
                                                    {7, ""}};
    for (const auto& [type, name] : reserved)
        QTest::addRow("code %d without a layout", type)
            << itemOf(static_cast<std::uint32_t>(type), le32(1) + le32(0xFFFFFFFF) + bytes("AA BB"))
            << QByteArray(R"({"size":18,"name":")") + name + R"(","fields":{"m_iItemType":)" + QByteArray::number(type)
                   + R"(,"m_iSize":18},"words":[1,4294967295],"rest":"aa bb"})";
}

void addOddItems()
{
    row("end item that is too long", itemOf(0, le32(1) + bytes("01 02")),
        R"({"name":"End","size":14,"fields":{"m_iItemType":0,"m_iSize":14,"m_iRev":1},"rest":"01 02"})");
    row("head that is too short", itemOf(40001, bytes("01 02")),
        R"({"name":"SM","size":10,"fields":{"m_iItemType":40001,"m_iSize":10},"rest":"01 02"})");
    row("more records announced than there are",
        itemOf(40014, le32(0xFFFFFFFF) + bytes("01 02 03 04") + le32(5) + le16(6)),
        R"({"name":"FMMU","size":22,"fields":{"m_iItemType":40014,"m_iSize":22,"m_iCount":4294967295},"records":[
            {"m_iOpOnly":1,"m_iSm":2,"m_iSu":3,"m_iFmmuType":4,"m_reserve":5}],"rest":"06 00"})");
    row("fewer records announced than there is room for", itemOf(40014, le32(0) + le32(1) + le32(2)),
        R"({"name":"FMMU","size":20,"fields":{"m_iItemType":40014,"m_iSize":20,"m_iCount":0},
            "rest":"01 00 00 00 02 00 00 00"})");
    row("text with something after its end", itemOf(40016, zeros(16) + "A" + zeros(2) + "B"),
        R"({"name":"DeviceMoreInfo","size":28,"fields":{"m_iItemType":40016,"m_iSize":28,"m_iDate":0,"m_iTime":0,
            "m_iVersion":0,"m_iCount":0},"text":"A","rest":"00 00 42"})");
    row("text that is no UTF-8, and controls", itemOf(40016, zeros(16) + "\xFF\"\\\x01"),
        "{\"name\":\"DeviceMoreInfo\",\"size\":28,\"fields\":{\"m_iItemType\":40016,\"m_iSize\":28,\"m_iDate\":0,"
        "\"m_iTime\":0,\"m_iVersion\":0,\"m_iCount\":0},\"text\":\"\\uFFFD\\\"\\\\\\u0001\"}");
}

} // namespace

void tst_ShowKtlItems::everyField_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<QByteArray>("expected");
    addDeviceItems();
    addStartupItems();
    addSlotItems();
    addModuleItems();
    addItemsWithoutLayout();
    addOddItems();
}

/// The item follows one of another kind, so that the kind of the file does not hang on its code.
void tst_ShowKtlItems::everyField()
{
    QFETCH(QByteArray, item);
    QFETCH(QByteArray, expected);
    const QByteArray first = itemOf(40014, le32(0));
    const QString path = writtenFile(m_folder, "item.ktl", first + item + endItem());
    const CommandRun run = runShow({"--json", path});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    const QJsonObject shown = filesIn(run).at(0).toObject().value("items").toArray().at(1).toObject();

    QJsonObject wanted = objectOf(expected);
    QVERIFY(!wanted.isEmpty());
    wanted.insert("type", int(numberAt(item, 0, 4)));
    wanted.insert("offset", first.size());
    wanted.insert("present", item.size());
    for (const char* list : {"records", "values", "words"})
        if (!wanted.contains(list))
            wanted.insert(list, QJsonArray());
    for (const char* text : {"text", "fill", "rest"})
        if (!wanted.contains(text))
            wanted.insert(text, QString());
    QCOMPARE(shown, wanted);
}

void tst_ShowKtlItems::textOfAnItem()
{
    const QByteArray dc = itemOf(40002, le32(1) + zeros(24) + le32(0x1300));
    const CommandRun run = runShow({"--full", writtenFile(m_folder, "dc.ktl", dc + endItem())});
    QCOMPARE(run.exitCode, 0);
    const QByteArray expected = "@0x00000000 40002 DC, 40 bytes\n"
                                "  0x0000  m_iItemType     40002 (0x9c42)\n"
                                "  0x0004  m_iSize         40 (0x28)\n"
                                "  0x0008  m_iCount        1 (0x1)\n"
                                "  record 1 of 1\n"
                                "  0x000c  m_aDesc         0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n"
                                "  0x0024  AssignActivate  4864 (0x1300)  bit 8: cyclic operation enabled, "
                                "bit 9: SYNC 0, bit 12\n"
                                "@0x00000028 0 End, 12 bytes\n"
                                "  0x0000  m_iItemType  0 (0x0)\n"
                                "  0x0004  m_iSize      12 (0xc)\n"
                                "  0x0008  m_iRev       0 (0x0)\n";
    QVERIFY2(run.output.endsWith("KTL file, 0 devices\n\n" + expected), run.output.constData());
}

void tst_ShowKtlItems::textOfRecordsAndWords()
{
    const QByteArray file = itemOf(40103, zeros(16) + le32(1) + zeros(8) + le32(0xFFFFFFFE))
                            + itemOf(40016, zeros(16) + "Name\nModule" + zeros(1)) + itemOf(40011, le32(18) + u8(7))
                            + endItem();
    const CommandRun run = runShow({"--full", writtenFile(m_folder, "words.ktl", file)});
    QCOMPARE(run.exitCode, 0);
    for (const char* line :
         {"@0x00000000 40103 ModuleRPDOEntry, 40 bytes\n", "  0x0024  LinkToData       -2 (-0x2)  DOUT Type\n",
          "  0x0018  text         Name\n  0x001d  text         Module\n  0x0023  fill         00\n",
          "@0x0000004c 40011 ObjectModule, 13 bytes\n",
          "  0x0008  word         18 (0x12)\n  0x000c  rest         07\n"})
        QVERIFY2(run.output.contains(line), run.output.constData());
}

void tst_ShowKtlItems::offsetsOfTheItems()
{
    const QByteArray file = itemOf(40008, zeros(32)) + endItem() + itemOf(40011, {}) + endItem();
    const QJsonArray items = shownFile(writtenFile(m_folder, "offsets.ktl", file)).value("items").toArray();
    QList<int> offsets;
    for (const QJsonValue& item : items)
        offsets.append(item.toObject().value("offset").toInt());
    QCOMPARE(offsets, (QList<int>{0, 40, 52, 60}));
}

static const testMain::Registration<tst_ShowKtlItems, QCoreApplication> registration;
#include "tst_ShowKtlItems.moc"
