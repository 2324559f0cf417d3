// `ktl show` of KTL files: the decoded devices, from bytes written by hand in which no two values are alike.
// Covers showDevice.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowKtlDevice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void members_data();
    void members();
    void controlsAreEscaped();
    void origins_data();
    void origins();

private:
    QTemporaryDir m_folder;
    QJsonObject m_device;
};

namespace {

QByteArray u8(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

QByteArray itemOf(std::uint32_t type, const QByteArray& content)
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + content.size())) + content;
}

QByteArray general()
{
    return itemOf(40000, le32(11) + le32(12) + le32(13) + le32(14) + le16(5) + le16(1) + le16(17) + zeros(18) + le16(18)
                             + le16(19));
}

QByteArray endItem()
{
    return itemOf(0, le32(0));
}

QByteArray command(std::uint32_t transition, std::uint32_t index, int subIndex, std::uint32_t dataBytes,
                   std::uint32_t data)
{
    return le16(transition) + le16(index) + u8(subIndex) + u8(0) + le16(dataBytes) + le32(data);
}

/// One device with each item that a device block can have.
QByteArray wholeDevice()
{
    const QByteArray entry = le16(1) + le16(0x6040) + le32(22) + le32(23) + le32(0) + le32(0xFFFFFFFE);
    const QByteArray moduleEntry = u8(1) + u8(0) + le16(0x6001) + le16(42) + le16(43) + le32(0xFFFFFFFF);
    return general() + itemOf(40014, le32(1) + bytes("01 02 03 04") + le32(0))
           + itemOf(40001, le32(1) + le16(31) + le16(32) + le16(33) + le16(34) + le32(35) + le32(36))
           + itemOf(40002, le32(1) + zeros(24) + le32(0x80000101))
           + itemOf(40003, u8(1) + u8(0) + le16(0) + le32(2) + le32(21) + le16(0x1600) + le16(0) + le32(1) + entry)
           + itemOf(40005, bytes("01 00 00 01") + command(3, 0, 0, 1, 0))
           + itemOf(40006, bytes("01 00 01 00 01 00 01 01") + command(6, 0x2001, 51, 2, 52))
           + itemOf(40007, le16(1) + u8(0) + u8(1) + le16(61) + le16(62) + le16(1) + le16(0) + le32(63) + le32(64)
                               + le32(65) + le32(66) + zeros(108))
           + itemOf(40015, le32(2) + le32(1) + le32(71) + le32(0) + le32(0) + le32(0))
           + itemOf(40016, le32(20261121) + le32(90507) + le32(0x10028) + le32(0) + "Dev\nMod" + zeros(1))
           + itemOf(40013, le32(81) + le32(0xFFFFFFFD) + u8(1) + zeros(3))
           + itemOf(40102,
                    u8(0) + u8(1) + le16(0) + le32(3) + le32(41) + le16(0x1A01) + le16(0) + le32(1) + moduleEntry)
           + itemOf(40104, le32(1) + u8(1) + zeros(2) + u8(91) + le16(0x8001) + zeros(4) + u8(92) + u8(0) + le32(93))
           + endItem();
}

void row(const char* key, const char* expected)
{
    QTest::addRow("%s", key) << QString::fromLatin1(key) << QByteArray(expected);
}

} // namespace

void tst_ShowKtlDevice::initTestCase()
{
    const CommandRun run = runShow({"--json", writtenFile(m_folder, "device.ktl", wholeDevice())});
    QCOMPARE(run.errors, QByteArray());
    m_device = filesIn(run).at(0).toObject().value("devices").toArray().at(0).toObject();
}

void tst_ShowKtlDevice::members_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("expected");
    row("run", "1");
    row("vendorId", "11");
    row("productCode", "12");
    row("revisionNo", "13");
    row("serialNo", "14");
    row("deviceType", "5");
    row("deviceTypeName", "\"ManualIOBlock\"");
    row("sdoSupport", "true");
    row("slotCount", "17");
    row("driveAxes", "18");
    row("moduleCount", "19");
    row("names", R"(["Dev","Mod"])");
    row("export", R"({"date":"2026-11-21","time":"09:05:07","formatVersion":65576})");
    row("fmmus", R"([{"opOnly":true,"syncManager":2,"syncUnit":3,"type":4,"typeName":"Inputs"}])");
    row("syncManagers", R"([{"startAddress":31,"minSize":32,"maxSize":33,"defaultSize":34,"controlByte":35,
        "enable":36}])");
    row("dcModes", R"([{"assignActivate":2147483905,"bits":["bit 0","bit 8: cyclic operation enabled","bit 31"]}])");
    row("pdos", R"([{"direction":"output","index":5632,"fixed":true,"mandatory":false,"syncManager":2,"syncUnit":21,
        "entries":[{"index":24640,"subIndex":22,"bitLength":23,"fixed":true,"link":-2,"linkName":"DOUT Type"}]}])");
    row("eoe", R"({"ip":true,"mac":false})");
    row("coe", R"({"sdoInfo":true,"pdoAssign":false,"pdoUpload":true,"pdoConfig":false,"segmentedSdo":true,
        "completeAccess":false,"diagHistory":true})");
    row("startup", R"([{"transition":3,"transitionName":"IP_PS","commands":[{"position":1,"protocol":"EoE","index":0,
        "subIndex":0,"completeAccess":false,"dataBytes":1,"value":0,"values":null,"meaning":"",
        "source":{"origin":"EoE","comment":null,"text":null,"choiceRow":null}}]},
        {"transition":6,"transitionName":"SO","commands":[{"position":2,"protocol":"CoE","index":8193,"subIndex":51,
        "completeAccess":false,"dataBytes":2,"value":52,"values":null,"meaning":"",
        "source":{"origin":"unknown","comment":null,"text":null,"choiceRow":null}}]}])");
    row("slots", R"({"downloadModuleIdentList":false,"downloadModuleAddressList":true,"slotPdoIncrement":61,
        "slotIndexIncrement":62,"list":[{"minInstances":63,"maxInstances":64,"slotIndexIncrement":65,
        "slotPdoIncrement":66}]})");
    row("slotPreset", R"({"modulesInSlots":1,"moduleIdents":[71,0]})");
    row("modules", R"([{"ident":81,"pdoGroup":-3,"sraParameterSupported":true,"pdos":[{"direction":"input","index":6657,
        "fixed":false,"mandatory":true,"syncManager":3,"syncUnit":41,"entries":[{"index":24577,"subIndex":42,
        "bitLength":43,"dependOnSlot":true,"link":-1,"linkName":"DIN Type"}]}],
        "startup":[{"index":32769,"subIndex":92,"dependOnSlot":true,"dataBytes":91,"value":93,"meaning":""}]}])");
}

void tst_ShowKtlDevice::members()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, expected);
    const QJsonObject wanted = objectOf("{\"value\":" + expected + '}');
    QVERIFY(wanted.contains("value"));
    QCOMPARE(m_device.value(key), wanted.value("value"));
}

/// A reader of JSON may be strict, and a terminal obeys controls.
void tst_ShowKtlDevice::controlsAreEscaped()
{
    const QByteArray names = itemOf(40016, zeros(16) + "a\x1B[2Jb\t\n\x7F" + "c\x01");
    const QString path = writtenFile(m_folder, "controls.ktl", general() + names + endItem());
    QVERIFY(runShow({"--json", path}).output.contains("\"names\": [\"a\\u001b[2Jb\\u0009\", \"\\u007fc\\u0001\"]"));
    const QByteArray text = runShow({"--full", path}).output;
    QVERIFY(text.contains("a [2Jb"));
    for (const char control : {'\x1B', '\t', '\x7F', '\x01'})
        QVERIFY(!text.contains(control));
}

void tst_ShowKtlDevice::origins_data()
{
    QTest::addColumn<bool>("assigns");
    QTest::addColumn<bool>("configures");
    QTest::addColumn<int>("transition");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("origin");
    const QString assignment = "PDO assignment";
    const QString mapping = "PDO mapping";
    const QString unknown = "unknown";
    const struct
    {
        int index;
        QString origin;
    } ends[] = {{0x15FF, unknown},    {0x1600, mapping},    {0x17FF, mapping}, {0x1800, unknown},
                {0x19FF, unknown},    {0x1A00, mapping},    {0x1BFF, mapping}, {0x1C0F, unknown},
                {0x1C10, assignment}, {0x1C2F, assignment}, {0x1C30, unknown}};
    for (const auto& end : ends)
        QTest::addRow("object 0x%x", end.index) << true << true << 2 << end.index << end.origin;
    QTest::addRow("assign object, no assignment") << false << true << 2 << 0x1C12 << unknown;
    QTest::addRow("assign object, no configuration") << true << false << 2 << 0x1C12 << assignment;
    QTest::addRow("mapping object, no configuration") << true << false << 2 << 0x1600 << unknown;
    QTest::addRow("mapping object, no assignment") << false << true << 2 << 0x1600 << mapping;
    QTest::addRow("assign object in another transition") << true << true << 1 << 0x1C12 << unknown;
    QTest::addRow("mapping object in both transitions") << true << true << 3 << 0x1600 << unknown;
}

void tst_ShowKtlDevice::origins()
{
    QFETCH(bool, assigns);
    QFETCH(bool, configures);
    QFETCH(int, transition);
    QFETCH(int, index);
    QFETCH(QString, origin);
    const QByteArray flags = u8(0) + u8(assigns ? 1 : 0) + u8(0) + u8(configures ? 1 : 0) + zeros(3) + u8(1);
    const QByteArray coe = itemOf(
        40006, flags + command(static_cast<std::uint32_t>(transition), static_cast<std::uint32_t>(index), 1, 4, 9));
    const QString path = writtenFile(m_folder, "origin.ktl", general() + coe + endItem());
    const QJsonObject device = shownFile(path).value("devices").toArray().at(0).toObject();
    const QJsonObject group = device.value("startup").toArray().at(0).toObject();
    const QJsonObject shown = group.value("commands").toArray().at(0).toObject();
    QCOMPARE(shown.value("source").toObject().value("origin").toString(), origin);
}

static const testMain::Registration<tst_ShowKtlDevice, QCoreApplication> registration;
#include "tst_ShowKtlDevice.moc"
