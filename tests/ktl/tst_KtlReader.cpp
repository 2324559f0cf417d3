// Reading a KTL file: runs and their end items, the limit of items, and how a read fails.
#include "ktl/ktlReading.h"
#include "testMain.h"

#include <QtTest>

namespace {

/// Names of the devices of each file read: "0x1 0x2 | 0x3".
QString devicesIn(const std::vector<struct_FilenameDevice>& files)
{
    QStringList texts;
    for (const struct_FilenameDevice& file : files) {
        QStringList names;
        for (const struct_EtherCatDevice& device : file.device)
            names.append(QString::fromStdString(device.Name));
        texts.append(names.join(QLatin1Char(' ')));
    }
    return texts.join(QStringLiteral(" | "));
}

} // namespace

class tst_KtlReader : public QObject
{
    Q_OBJECT

private slots:
    void runs_data();
    void runs();
    void vendorIsThatOfTheLastDevice();
    void deviceDoesNotCloseTheModuleBeforeIt();
    void itemsOfADeviceStayWithIt();
    void recordsWithoutADevice();
    void itemLimit_data();
    void itemLimit();
    void failure_data();
    void failure();
    void longItem();
    void nullFile();
    void noPlaceForTheErrorCode();
    void readsFromTheStart();
    void addsAfterWhatIsLoaded();
    void itemThatCannotBeStopsTheRead();
    void generalOperation();
};

void tst_KtlReader::runs_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    const QByteArray end = endItem();
    const QByteArray one = generalItem(1);
    const QByteArray two = generalItem(2);
    QTest::addRow("one device") << one + end << "0x1";
    QTest::addRow("two devices") << one + two + end << "0x1 0x2";
    QTest::addRow("two runs, as append mode writes them") << one + end + two + end << "0x1 | 0x2";
    QTest::addRow("three runs") << one + two + end + one + end + two + end << "0x1 0x2 | 0x1 | 0x2";
    QTest::addRow("an end item alone") << end << "";
    QTest::addRow("end items at the start") << end + end + one + end << "0x1";
    QTest::addRow("a stray end item after an end item") << one + end + end + two + end << "0x1 | 0x2";
    QTest::addRow("no end item") << one + two << "";
    QTest::addRow("the last run has no end item") << one + end + two << "0x1";
    QTest::addRow("product code 0 is a device") << generalItem(0) + end << "0x00";
    QTest::addRow("an end item of 8 bytes") << one + ktlItem(0) + two + end << "0x1 | 0x2";
    QTest::addRow("a long end item") << one + ktlItem(0, zeros(400)) + two + end << "0x1 | 0x2";
}

void tst_KtlReader::runs()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    const Reading reading = readingOf(file);
    QCOMPARE(devicesIn(reading.files), expected);
    QVERIFY(reading.isComplete);
    QCOMPARE(reading.errorCode, 0);
    for (const struct_FilenameDevice& read : reading.files)
        QCOMPARE(read.xmlfilepath, std::string("/ktl/伺服.ktl"));
}

void tst_KtlReader::vendorIsThatOfTheLastDevice()
{
    const auto device = [](std::uint32_t vendor) { return ktlItem(40000, le32(vendor) + zeros(40)); };
    const Reading reading = readingOf(device(5) + device(6) + endItem() + device(7) + endItem());
    QCOMPARE(reading.files.size(), std::size_t(2));
    QCOMPARE(reading.files[0].Vendor_Id, 6U);
    QCOMPARE(reading.files[0].device[0].TypeAttributes.m_iVendor_Id, 5U);
    QCOMPARE(reading.files[0].device[1].TypeAttributes.m_iVendor_Id, 6U);
    QCOMPARE(reading.files[1].Vendor_Id, 7U);
}

/// Items of a module after the General item of the next device still go to the module.
void tst_KtlReader::deviceDoesNotCloseTheModuleBeforeIt()
{
    const Reading reading =
        readingOf(generalItem() + moduleItem(1) + generalItem() + ktlItem(40102, zeros(20)) + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    QCOMPARE(reading.files[0].device.size(), std::size_t(2));
    QCOMPARE(reading.files[0].vcommentmodule.size(), std::size_t(1));
    QCOMPARE(reading.files[0].vcommentmodule[0].vmodule[0].TxPdo.vpdo.size(), std::size_t(1));
}

void tst_KtlReader::itemsOfADeviceStayWithIt()
{
    const QByteArray fmmu = ktlItem(40014, le32(1) + zeros(8));
    const Reading reading =
        readingOf(generalItem() + fmmu + fmmu + generalItem() + endItem() + generalItem() + endItem());
    QCOMPARE(reading.files.size(), std::size_t(2));
    QCOMPARE(reading.files[0].device[0].vFmmu.size(), std::size_t(2)); // a second item adds to the first
    QVERIFY(reading.files[0].device[1].vFmmu.empty());
    QVERIFY(reading.files[1].device[0].vFmmu.empty());
}

/// What comes before the first General item belongs to no device; that item clears it.
void tst_KtlReader::recordsWithoutADevice()
{
    const QByteArray fmmu = ktlItem(40014, le32(1) + zeros(8));
    QVERIFY(readingOf(fmmu + endItem()).files.empty());
    const Reading reading = readingOf(fmmu + generalItem() + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    QVERIFY(reading.files[0].device[0].vFmmu.empty());
}

void tst_KtlReader::itemLimit_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    const QByteArray end = endItem();
    const QByteArray other = ktlItem(40005, zeros(4));
    const QByteArray one = generalItem(1);
    QTest::addRow("the end item is the 2000th") << one + other.repeated(1998) + end << "0x1";
    QTest::addRow("the end item is the 2001st") << one + other.repeated(1999) + end << "";
    QTest::addRow("end items count") << one + end + end.repeated(1996) + generalItem(2) + end << "0x1 | 0x2";
    QTest::addRow("end items count, one more") << one + end + end.repeated(1997) + generalItem(2) + end << "0x1";
    QTest::addRow("what cannot be after the 2000th is not looked at")
        << one + other.repeated(1998) + end + bytes("FF FF FF FF FF FF FF FF") << "0x1";
    QTest::addRow("5000 runs") << (one + end).repeated(5000)
                               << QStringList(QVector<QString>(1000, "0x1").toList()).join(QStringLiteral(" | "));
}

void tst_KtlReader::itemLimit()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    const Reading reading = readingOf(file);
    QCOMPARE(devicesIn(reading.files), expected);
    QVERIFY(reading.isComplete);
    QCOMPARE(reading.errorCode, 0);
}

void tst_KtlReader::failure_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("kept");
    const QByteArray run = generalItem(1) + endItem();
    const QByteArray begun = run + generalItem(2);
    const auto row = [](const char* name, const QByteArray& file, int code, const char* kept) {
        QTest::addRow("%s", name) << file << code << kept;
    };
    row("empty file", {}, -2, "");
    row("one byte", bytes("40"), -2, "");
    row("type alone", bytes("40 9C 00 00"), -2, "");
    row("7 bytes", bytes("40 9C 00 00 34 00 00"), -2, "");
    row("size 0", begun + bytes("41 9C 00 00  00 00 00 00") + endItem(), -2, "0x1");
    row("size 7", begun + bytes("41 9C 00 00  07 00 00 00") + endItem(), -2, "0x1");
    row("size 8", begun + bytes("41 9C 00 00  08 00 00 00") + endItem(), 0, "0x1 | 0x2");
    row("size -1", begun + bytes("41 9C 00 00  FF FF FF FF") + endItem(), -2, "0x1");
    row("size -2147483648", begun + bytes("41 9C 00 00  00 00 00 80") + endItem(), -2, "0x1");
    row("type -1", begun + bytes("FF FF FF FF  08 00 00 00") + endItem(), -2, "0x1");
    row("type -2147483648", begun + bytes("00 00 00 80  08 00 00 00") + endItem(), -2, "0x1");
    row("a size of 2 gigabytes takes the rest", begun + bytes("41 9C 00 00  FF FF FF 7F") + endItem(), 0, "0x1");
    row("later head cut inside the type: the values before it stay", run + bytes("FF FF FF"), 0, "0x1");
    row("later head cut after a type", run + bytes("41 9C 00 00"), 0, "0x1");
    row("later head cut after a type that cannot be", run + bytes("FF FF FF FF"), -2, "0x1");
    row("later head cut inside a size that cannot be: the size before it stays", run + bytes("41 9C 00 00 00 00 00"), 0,
        "0x1");
    row("end item cut after its head", generalItem(1) + bytes("00 00 00 00  0C 00 00 00"), 0, "0x1");
    row("end item cut inside its head", generalItem(1) + bytes("00 00 00 00  0C 00 00"), 0, "");
}

void tst_KtlReader::failure()
{
    QFETCH(QByteArray, file);
    QFETCH(int, code);
    QFETCH(QString, kept);
    const Reading reading = readingOf(file);
    QCOMPARE(reading.errorCode, code);
    QCOMPARE(reading.isComplete, code == 0);
    QCOMPARE(devicesIn(reading.files), kept);
}

/// An item may be longer than any buffer: 100,000 FMMUs.
void tst_KtlReader::longItem()
{
    QByteArray records;
    for (int number = 0; number < 100'000; ++number)
        records += bytes("00") + QByteArray(1, static_cast<char>(number % 251)) + zeros(6);
    const std::vector<Struct_Fmmu> read = deviceReadFrom(ktlItem(40014, le32(100'000) + records)).vFmmu;
    QCOMPARE(read.size(), std::size_t(100'000));
    for (std::size_t number = 0; number < read.size(); ++number)
        QCOMPARE(read[number].m_Sm, static_cast<std::uint32_t>(number % 251));
}

void tst_KtlReader::nullFile()
{
    int code = 5;
    QVERIFY(!device_writektltodevices(nullptr, QStringLiteral("a.ktl"), &code));
    QCOMPARE(code, -1);
    QVERIFY(!device_writektltodevices(nullptr, QStringLiteral("a.ktl"), nullptr));
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_KtlReader::noPlaceForTheErrorCode()
{
    const FileHandle good = streamWith(generalItem() + endItem());
    QVERIFY(device_writektltodevices(good.get(), QStringLiteral("a.ktl"), nullptr));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(1));
    const FileHandle bad = streamWith(bytes("FF FF FF FF"));
    QVERIFY(!device_writektltodevices(bad.get(), QStringLiteral("a.ktl"), nullptr));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(1));
    g_xmlfiledevices.clear();
}

/// Also when the stream is in the middle of the file, or at its end, which it has reported.
void tst_KtlReader::readsFromTheStart()
{
    const FileHandle ktl = streamWith(generalItem() + endItem());
    int code = 5;
    for (const long place : {0L, 3L, 52L}) {
        QCOMPARE(std::fseek(ktl.get(), place, SEEK_SET), 0);
        QVERIFY(device_writektltodevices(ktl.get(), QStringLiteral("a.ktl"), &code));
        QCOMPARE(code, 0);
    }
    QVERIFY(std::feof(ktl.get()) != 0);
    QVERIFY(device_writektltodevices(ktl.get(), QStringLiteral("a.ktl"), &code));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(4));
    g_xmlfiledevices.clear();
}

void tst_KtlReader::addsAfterWhatIsLoaded()
{
    g_xmlfiledevices.clear();
    g_xmlfiledevices.emplace_back();
    g_xmlfiledevices[0].xmlfilepath = "loaded before";
    const FileHandle ktl = streamWith(generalItem(1) + endItem() + generalItem(2) + bytes("FF FF FF FF FF FF FF FF"));
    int code = 5;
    QVERIFY(!device_writektltodevices(ktl.get(), QStringLiteral("a.ktl"), &code));
    QCOMPARE(code, -2);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t(2));
    QCOMPARE(g_xmlfiledevices[0].xmlfilepath, std::string("loaded before"));
    QCOMPARE(g_xmlfiledevices[1].xmlfilepath, std::string("a.ktl"));
    g_xmlfiledevices.clear();
}

/// The object items have a size of 0 as they are written now: nothing after one is read.
void tst_KtlReader::itemThatCannotBeStopsTheRead()
{
    const Reading reading = readingOf(generalItem() + le32(40010) + le32(0) + zeros(20) + endItem());
    QCOMPARE(reading.errorCode, -2);
    QVERIFY(reading.files.empty());
}

void tst_KtlReader::generalOperation()
{
    struct_KTL_EtherCatDeviceType general{};
    const FileHandle ktl = streamWith(generalItem(0x1234) + bytes("55"));
    std::rewind(ktl.get());
    QCOMPARE(KTL_read_device_General(ktl.get(), &general), 0);
    QCOMPARE(std::uint32_t(general.m_iItemType), 40000U);
    QCOMPARE(std::uint32_t(general.m_iSize), 52U);
    QCOMPARE(std::uint32_t(general.m_iProduct_Code), 0x1234U);
    QCOMPARE(std::fgetc(ktl.get()), 0x55); // it is after the item
    QCOMPARE(KTL_read_device_General(ktl.get(), &general), 0);
    QCOMPARE(std::uint32_t(general.m_iProduct_Code), 0x1234U); // nothing left to read
    QCOMPARE(KTL_read_device_General(nullptr, &general), 1000);
    QCOMPARE(KTL_read_device_General(ktl.get(), nullptr), 1000);
    QCOMPARE(int(KTL_ERROR_PROCESS), 1001);
}

static const testMain::Registration<tst_KtlReader, QCoreApplication> registration;
#include "tst_KtlReader.moc"
