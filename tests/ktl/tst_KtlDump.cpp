// The text dump of a KTL file, character for character.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

#include <QtTest>

#include <algorithm>

namespace {

const QByteArray firstLine = "KTL Version V1.0.28 \n";
const QByteArray endItem = bytes("00 00 00 00  0C 00 00 00  00 00 00 00");
const QByteArray endText = "ItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n";

/// Result and text of a dump.
struct Dump
{
    bool isComplete = false;
    int errorCode = -77;
    QByteArray text;
};

Dump dumpOf(const QByteArray& file)
{
    Dump dump;
    const FileHandle ktl = streamWith(file); // at its end: the dump itself goes to its start
    dump.text =
        writtenBy([&](std::FILE* log) { dump.isComplete = KTL_write_log_devices(log, ktl.get(), &dump.errorCode); });
    return dump;
}

/// An item of the given words.
QByteArray item(std::uint32_t type, const QByteArray& words)
{
    return le32(type) + le32(static_cast<std::uint32_t>(8 + words.size())) + words;
}

} // namespace

class tst_KtlDump : public QObject
{
    Q_OBJECT

private slots:
    void nameOfItem_data();
    void nameOfItem();
    void words_data();
    void words();
    void generalHasElevenWords();
    void goesOnAfterAnEndItem();
    void brokenFile_data();
    void brokenFile();
    void missingWords_data();
    void missingWords();
    void fileThatFails();
    void twoThousandItems_data();
    void twoThousandItems();
    void nullArgument_data();
    void nullArgument();
};

void tst_KtlDump::nameOfItem_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QByteArray>("head"); // the line of the head, its line end and the "0x" that begins the next one
    const auto row = [](uint type, const char* head) { QTest::addRow("%u", type) << type << QByteArray(head); };
    row(40000, "ItemHead-dec: 40000,Len: 12    General \r\n  0x");
    row(40001, "ItemHead-dec: 40001,Len: 12    SM \r\n  0x");
    row(40002, "ItemHead-dec: 40002,Len: 12    DC \r\n  0x");
    row(40003, "ItemHead-dec: 40003,Len: 12    RxPdo \r\n  0x");
    row(40004, "ItemHead-dec: 40004,Len: 12    TxPdo \r\n  0x");
    row(40005, "ItemHead-dec: 40005,Len: 12    EoE \r\n  0x");
    row(40006, "ItemHead-dec: 40006,Len: 12    CoE \r\n  0x");
    row(40007, "ItemHead-dec: 40007,Len: 12    Slot \r\n  0x");
    row(40008, "ItemHead-dec: 40008,Len: 12    EEPROM \r\n  0x");
    row(40009, "ItemHead-dec: 40009,Len: 12    ObjectDetectType \r\n  0x");
    row(40010, "ItemHead-dec: 40010,Len: 12    ObjectConfigType \r\n  0x");
    row(40011, "ItemHead-dec: 40011,Len: 12    ObjectModule \r\n  0x");
    row(40012, "ItemHead-dec: 40012,Len: 12    SubObjectType \r\n  0x");
    row(40013, "ItemHead-dec: 40013,Len: 12    ModuleType \r\n  0x");
    row(40014, "ItemHead-dec: 40014,Len: 12    FMMU \r\n  0x");
    row(40015, "ItemHead-dec: 40015,Len: 12    SlotPreConfig \r\n  0x");
    row(40016, "ItemHead-dec: 40016,Len: 12    DeviceMoreInfo \r\n  0x");
    row(40100, "ItemHead-dec: 40100,Len: 12    ModuleRxPDO \r\n  0x");
    row(40101, "ItemHead-dec: 40101,Len: 12    ModuleTxPDO \r\n  0x");
    row(40102, "ItemHead-dec: 40102,Len: 12    ModuleTPDOEntry \r\n  0x");
    row(40103, "ItemHead-dec: 40103,Len: 12    ModuleRPDOEntry \r\n  0x");
    row(40104, "ItemHead-dec: 40104,Len: 12    ModuleCoEInitCmd \r\n  0x");
    row(40105, "ItemHead-dec: 40105,Len: 12    ModuleDictDT \r\n  0x");
    row(40106, "ItemHead-dec: 40106,Len: 12    ModuleDictObject \r\n  0x");
    row(0, "ItemHead-dec: 0,Len: 12     \r\n  0x");
    row(1, "ItemHead-dec: 1,Len: 12     \r\n  0x");
    row(39999, "ItemHead-dec: 39999,Len: 12     \r\n  0x");
    row(40017, "ItemHead-dec: 40017,Len: 12     \r\n  0x");
    row(40099, "ItemHead-dec: 40099,Len: 12     \r\n  0x");
    row(40107, "ItemHead-dec: 40107,Len: 12     \r\n  0x");
    row(2147483647, "ItemHead-dec: 2147483647,Len: 12     \r\n  0x");
}

void tst_KtlDump::nameOfItem()
{
    QFETCH(uint, type);
    QFETCH(QByteArray, head);
    const Dump dump = dumpOf(item(type, bytes("2A 00 00 00")));
    QCOMPARE(dump.text, firstLine + head + "2a \t\r\n");
    QVERIFY(dump.isComplete);
    QCOMPARE(dump.errorCode, 0);
}

void tst_KtlDump::words_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const QByteArray& file, const char* text) {
        QTest::addRow("%s", name) << file << QByteArray(text);
    };
    row("end item", endItem, "ItemHead-dec: 0,Len: 12     \r\n  0x0 \t\r\n");
    row("item of a head alone", item(40001, {}), "ItemHead-dec: 40001,Len: 8    SM \r\n  0x\r\n");
    row("little-endian, no leading zeros, lower case", item(40001, bytes("00 0F 01 00  EF CD AB 89  FF FF FF FF")),
        "ItemHead-dec: 40001,Len: 20    SM \r\n  0x10f00 \t89abcdef \tffffffff \t\r\n");
    row("size 9: no word, and the ninth byte begins the next item",
        bytes("41 9C 00 00  09 00 00 00  42 9C 00 00  0C 00 00 00  07 00 00 00"),
        "ItemHead-dec: 40001,Len: 9    SM \r\n  0x\r\nItemHead-dec: 40002,Len: 12    DC \r\n  0x7 \t\r\n");
    row("size 14: one word, and the last two bytes begin the next item",
        bytes("41 9C 00 00  0E 00 00 00  11 00 00 00  AA BB 00 00  0C 00 00 00  05 00 00 00"),
        "ItemHead-dec: 40001,Len: 14    SM \r\n  0x11 \t\r\nItemHead-dec: 48042,Len: 12     \r\n  0x5 \t\r\n");
    row("size 15: one word, and the last three bytes stay unread at the end of the file",
        bytes("41 9C 00 00  0F 00 00 00  11 00 00 00  01 02 03"),
        "ItemHead-dec: 40001,Len: 15    SM \r\n  0x11 \t\r\n");
}

void tst_KtlDump::words()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, text);
    const Dump dump = dumpOf(file);
    QCOMPARE(dump.text, firstLine + text);
    QVERIFY(dump.isComplete);
    QCOMPARE(dump.errorCode, 0);
}

void tst_KtlDump::generalHasElevenWords()
{
    struct_EtherCatDevice device;
    device.TypeAttributes.Product_Code = 0x16160001;
    device.TypeAttributes.Revision_No = 0x00010003;
    device.TypeAttributes.Serial_No = 0x5E;
    device.m_iDeviceType = 1;
    device.m_iDriveAxies = 2;
    device.Mailbox.COE.Attributes.SdoInfo = true;
    struct_FilenameDevice file;
    file.Vendor_Id = 0x7E570003;
    const QByteArray general =
        writtenBy([&](std::FILE* out) { static_cast<void>(KTL_write_device_General(out, &device, &file)); });
    QCOMPARE(dumpOf(general + endItem).text,
             firstLine
                 + "ItemHead-dec: 40000,Len: 52    General \r\n"
                   "  0x7e570003 \t16160001 \t10003 \t5e \t10001 \t0 \t0 \t0 \t0 \t0 \t2 \t\r\n"
                 + endText);
}

/// A file that was appended to holds several runs; all of them are shown.
void tst_KtlDump::goesOnAfterAnEndItem()
{
    const QByteArray run = item(40005, zeros(4)) + endItem;
    const QByteArray runText = "ItemHead-dec: 40005,Len: 12    EoE \r\n  0x0 \t\r\n" + endText;
    const Dump dump = dumpOf(run + run + run);
    QCOMPARE(dump.text, firstLine + runText + runText + runText);
    QVERIFY(dump.isComplete);
}

void tst_KtlDump::brokenFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("text"); // after the first line
    QTest::addColumn<bool>("isComplete");
    const auto row = [](const char* name, const QByteArray& file, const QByteArray& text, bool isComplete) {
        QTest::addRow("%s", name) << file << text << isComplete;
    };
    row("empty file: type and size are still 0", {}, "Err para: Id value-dec: 0,Len: 0\r\n  \r\n", false);
    row("first head cut inside the type", bytes("40 9C"), "Err para: Id value-dec: 0,Len: 0\r\n  \r\n", false);
    row("first head cut after the type", bytes("40 9C 00 00"), "Err para: Id value-dec: 40000,Len: 0\r\n  \r\n", false);
    row("first head cut inside the size", bytes("40 9C 00 00 34 00"), "Err para: Id value-dec: 40000,Len: 0\r\n  \r\n",
        false);
    row("later head cut inside the type: the values before it stay", endItem + bytes("40 9C 00"), endText, true);
    row("later head cut after the type: the size before it stays", endItem + bytes("40 9C 00 00"), endText, true);
    row("later head cut inside the size: the size before it stays", endItem + bytes("40 9C 00 00  00 00 00"), endText,
        true);
    row("later head cut after a negative type", endItem + bytes("00 00 00 80"),
        endText + "Err para: Id value-dec: -2147483648,Len: 12\r\n  \r\n", false);
    row("head and then nothing: its two words are 0", endItem + bytes("40 9C 00 00  10 00 00 00"),
        endText + "ItemHead-dec: 40000,Len: 16    General \r\n  0x0 \t0 \t\r\n", true);
    row("words that the file does not hold are 0", bytes("40 9C 00 00  18 00 00 00  07 00 00 00  08 00 00 00"),
        "ItemHead-dec: 40000,Len: 24    General \r\n  0x7 \t8 \t0 \t0 \t\r\n", true);
    row("a word that the file ends in is filled with zeros, the next one is 0",
        bytes("40 9C 00 00  18 00 00 00  07 00 00 00  08 09 0A"),
        "ItemHead-dec: 40000,Len: 24    General \r\n  0x7 \ta0908 \t0 \t0 \t\r\n", true);
    row("a last part of less than four bytes is no word, in the file or not",
        bytes("40 9C 00 00  13 00 00 00  07 00 00 00"), "ItemHead-dec: 40000,Len: 19    General \r\n  0x7 \t0 \t\r\n",
        true);
    row("an item that announces more than it holds takes the end item for its words",
        bytes("A8 9C 00 00  24 00 00 00  11 00 00 00  22 00 00 00") + endItem,
        "ItemHead-dec: 40104,Len: 36    ModuleCoEInitCmd \r\n  0x11 \t22 \t0 \tc \t0 \t0 \t0 \t\r\n", true);
    row("size 7", endItem + bytes("41 9C 00 00  07 00 00 00  01 00 00 00"),
        endText + "Err para: Id value-dec: 40001,Len: 7\r\n  \r\n", false);
    row("size 0, and an item after it that is not reached", bytes("49 9C 00 00  00 00 00 00") + endItem,
        "Err para: Id value-dec: 40009,Len: 0\r\n  \r\n", false);
    row("negative size", bytes("41 9C 00 00  FF FF FF FF") + endItem, "Err para: Id value-dec: 40001,Len: -1\r\n  \r\n",
        false);
    row("negative type", bytes("FE FF FF FF  0C 00 00 00  00 00 00 00") + endItem,
        "Err para: Id value-dec: -2,Len: 12\r\n  \r\n", false);
}

void tst_KtlDump::brokenFile()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, text);
    QFETCH(bool, isComplete);
    const Dump dump = dumpOf(file);
    QCOMPARE(dump.text, firstLine + text);
    QCOMPARE(dump.isComplete, isComplete);
    QCOMPARE(dump.errorCode, 0);
}

void tst_KtlDump::missingWords_data()
{
    QTest::addColumn<int>("size"); // of an item that holds the words 7 and 8
    QTest::addColumn<int>("missing");
    constexpr int held = 8 + 2 * 4;
    QTest::addRow("none") << held << 0;
    QTest::addRow("one less than the limit") << held + 65535 * 4 << 65535;
    QTest::addRow("the limit") << held + 65536 * 4 << 65536;
    QTest::addRow("one more than the limit") << held + 65537 * 4 << 65536;
    QTest::addRow("two gigabytes") << 0x7FFFFFFF << 65536;
}

/// A size may announce billions of words. After the last one that is shown, the line ends as that of any other item.
void tst_KtlDump::missingWords()
{
    QFETCH(int, size);
    QFETCH(int, missing);
    const QByteArray held = bytes("07 00 00 00  08 00 00 00");
    const Dump dump = dumpOf(endItem + le32(40001) + le32(static_cast<std::uint32_t>(size)) + held);
    QCOMPARE(dump.text, firstLine + endText + "ItemHead-dec: 40001,Len: " + QByteArray::number(size)
                            + "    SM \r\n  0x7 \t8 \t" + QByteArray("0 \t").repeated(missing) + "\r\n");
    QVERIFY(dump.isComplete);
    QCOMPARE(dump.errorCode, 0);
}

/// A file on a failing disk does not report its end, so the dump must end by itself. This one gives one item head.
void tst_KtlDump::fileThatFails()
{
    QByteArray rest = le32(40005) + le32(16);
    cookie_io_functions_t functions{};
    functions.read = [](void* cookie, char* buffer, std::size_t size) -> ssize_t {
        auto& bytes = *static_cast<QByteArray*>(cookie);
        const int count = std::min(bytes.size(), static_cast<int>(size));
        std::copy_n(bytes.constData(), count, buffer);
        bytes.remove(0, count);
        return count > 0 ? count : -1;
    };
    const FileHandle ktl(fopencookie(&rest, "r", functions));
    int code = 5;
    const QByteArray text = writtenBy([&](std::FILE* log) { QVERIFY(KTL_write_log_devices(log, ktl.get(), &code)); });
    QCOMPARE(text, firstLine + "ItemHead-dec: 40005,Len: 16    EoE \r\n  0x0 \t0 \t\r\n");
}

void tst_KtlDump::twoThousandItems_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<int>("shown");
    QTest::addRow("1999 items") << 1999 << QByteArray() << 1999;
    QTest::addRow("2000 items") << 2000 << QByteArray() << 2000;
    QTest::addRow("2001 items, the last is not shown") << 2001 << QByteArray() << 2000;
    QTest::addRow("4100 items") << 4100 << QByteArray() << 2000;
    QTest::addRow("what is broken after the 2000th is not looked at") << 2000 << bytes("FF FF FF FF") << 2000;
}

void tst_KtlDump::twoThousandItems()
{
    QFETCH(int, items);
    QFETCH(QByteArray, rest);
    QFETCH(int, shown);
    const Dump dump = dumpOf(endItem.repeated(items) + rest);
    QCOMPARE(dump.text.count("ItemHead-dec"), shown);
    QCOMPARE(dump.text, firstLine + endText.repeated(shown));
    QVERIFY(dump.isComplete);
}

void tst_KtlDump::nullArgument_data()
{
    QTest::addColumn<bool>("hasLog");
    QTest::addColumn<bool>("hasKtl");
    QTest::addRow("no text file") << false << true;
    QTest::addRow("no KTL file") << true << false;
    QTest::addRow("neither") << false << false;
}

/// The error code is set to 0 before anything else.
void tst_KtlDump::nullArgument()
{
    QFETCH(bool, hasLog);
    QFETCH(bool, hasKtl);
    const FileHandle ktl = streamWith(endItem);
    const FileHandle log = streamWith();
    int code = 5;
    QVERIFY(!KTL_write_log_devices(hasLog ? log.get() : nullptr, hasKtl ? ktl.get() : nullptr, &code));
    QCOMPARE(code, 0);
    QCOMPARE(contentOf(log.get()), QByteArray());
}

static const testMain::Registration<tst_KtlDump, QCoreApplication> registration;
#include "tst_KtlDump.moc"
