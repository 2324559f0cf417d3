// The DeviceMoreInfo item, byte for byte: time of the export, version, and the text.
// Covers moreInfoWriter.cpp.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/ktlItems.h"
#include "testMain.h"

#include <QtTest>

#include <string>

namespace {

/// Names of the modules of a file, group by group.
using Groups = std::vector<std::vector<std::string>>;

const QDateTime someTime(QDate(2024, 9, 5), QTime(8, 7, 6));

struct_FilenameDevice fileOf(const Groups& groups)
{
    struct_FilenameDevice file;
    for (const std::vector<std::string>& names : groups) {
        file.vcommentmodule.emplace_back();
        file.vcommentmodule.back().comment = "not stored";
        for (const std::string& name : names) {
            file.vcommentmodule.back().vmodule.emplace_back();
            file.vcommentmodule.back().vmodule.back().Name = name;
            file.vcommentmodule.back().vmodule.back().TypeAttributes.Name = "not stored";
        }
    }
    return file;
}

QByteArray written(const std::string& deviceName, const Groups& groups, const QDateTime& time = someTime)
{
    struct_EtherCatDevice device;
    device.Name = deviceName;
    const struct_FilenameDevice file = fileOf(groups);
    return writtenBy([&](std::FILE* out) { writeDeviceMoreInfo(out, device, file, time); });
}

/// Head of an item of someTime: 20240905, 80706.
QByteArray head(std::uint32_t size)
{
    return bytes("50 9C 00 00") + le32(size) + bytes("09 DA 34 01  42 3B 01 00  28 00 01 00  00 00 00 00");
}

/// Text of so many equal letters.
std::string letters(std::size_t count, char letter = 'a')
{
    return std::string(count, letter);
}

} // namespace

Q_DECLARE_METATYPE(Groups)
Q_DECLARE_METATYPE(std::string)

class tst_MoreInfo : public QObject
{
    Q_OBJECT

private slots:
    void wholeItem();
    void noGroupNoItem();
    void groupOfNothingGivesAnItem();
    void timeOfTheExport_data();
    void timeOfTheExport();
    void lengthOfTheText_data();
    void lengthOfTheText();
    void namesInOrder();
    void bytesStayAsTheyAre();
    void textThatDoesNotFit_data();
    void textThatDoesNotFit();
    void fixedFunctionTakesTheTimeOfNow();
    void nullArgumentsWriteNothing();
};

void tst_MoreInfo::wholeItem()
{
    QCOMPARE(written("Coupler", {{"DI 8"}, {"DO 16"}}, QDateTime(QDate(2026, 11, 21), QTime(15, 34, 38))),
             bytes("50 9C 00 00" // m_iItemType 40016
                   "2C 00 00 00" // m_iSize: T 7 + 5 + 6 = 18, r 2, t 20: 44
                   "01 29 35 01" // m_iDate 20261121
                   "5E 57 02 00" // m_iTime 153438
                   "28 00 01 00" // m_iVersion
                   "00 00 00 00" // m_iCount
                   "43 6F 75 70 6C 65 72" // Coupler
                   "0A 44 49 20 38" // DI 8
                   "0A 44 4F 20 31 36" // DO 16
                   "00 00")); // of the text
}

/// A file without modules has no such item, so no date either.
void tst_MoreInfo::noGroupNoItem()
{
    QCOMPARE(written("Coupler", {}), QByteArray());
}

void tst_MoreInfo::groupOfNothingGivesAnItem()
{
    QCOMPARE(written("", {{}}), head(24));
    QCOMPARE(written("Plain", {{}}), head(32) + "Plain" + zeros(1 + 2)); // T 5, r 1, t 6; two bytes of fill
}

void tst_MoreInfo::timeOfTheExport_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<quint32>("date");
    QTest::addColumn<quint32>("clock");
    QTest::addRow("each part with one digit") << QDateTime(QDate(2024, 9, 5), QTime(8, 7, 6)) << 20240905U << 80706U;
    QTest::addRow("each part with two") << QDateTime(QDate(2026, 12, 31), QTime(23, 59, 58)) << 20261231U << 235958U;
    QTest::addRow("midnight") << QDateTime(QDate(2000, 1, 1), QTime(0, 0, 0)) << 20000101U << 0U;
    QTest::addRow("milliseconds do not count")
        << QDateTime(QDate(2024, 2, 29), QTime(12, 0, 0, 999)) << 20240229U << 120000U;
    QTest::addRow("shown as handed in") << QDateTime(QDate(2024, 7, 1), QTime(22, 30), Qt::UTC) << 20240701U << 223000U;
}

void tst_MoreInfo::timeOfTheExport()
{
    QFETCH(QDateTime, time);
    QFETCH(quint32, date);
    QFETCH(quint32, clock);
    QCOMPARE(written("", {{}}, time),
             bytes("50 9C 00 00  18 00 00 00") + le32(date) + le32(clock) + bytes("28 00 01 00  00 00 00 00"));
}

void tst_MoreInfo::lengthOfTheText_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("size");
    QTest::addRow("remainder 0, no text") << 0 << 24;
    QTest::addRow("remainder 1, t 2, two bytes of fill") << 1 << 28;
    QTest::addRow("remainder 2, t 4") << 2 << 28;
    QTest::addRow("remainder 3, t 6, two bytes of fill") << 3 << 32;
    QTest::addRow("remainder 0, t 4") << 4 << 28;
    QTest::addRow("remainder 1, t 6, two bytes of fill: 5") << 5 << 32;
    QTest::addRow("remainder 2, t 8") << 6 << 32;
    QTest::addRow("remainder 3, t 10, two bytes of fill: 7") << 7 << 36;
    QTest::addRow("996, t 996") << 996 << 1020;
    QTest::addRow("997, t 998") << 997 << 1024;
    QTest::addRow("998, t 1000") << 998 << 1024;
    QTest::addRow("999, t held to 1000") << 999 << 1024;
}

/// A text that fits; what follows it, in the text and in the fill, is zero.
void tst_MoreInfo::lengthOfTheText()
{
    QFETCH(int, length);
    QFETCH(int, size);
    const std::string name = letters(static_cast<std::size_t>(length));
    QCOMPARE(written(name, {{}}),
             head(static_cast<std::uint32_t>(size)) + QByteArray::fromStdString(name) + zeros(size - 24 - length));
}

void tst_MoreInfo::namesInOrder()
{
    QCOMPARE(written("D", {{"a1", "a2"}, {}, {"b1"}, {""}}), // T 11, r 3, t 14
             head(40) + "D\na1\na2\nb1\n" + zeros(3 + 2));
}

/// The text is bytes: those of UTF-8 are not touched, nor is a zero in a name or a line feed.
void tst_MoreInfo::bytesStayAsTheyAre()
{
    const std::string withZero("x\0y\n", 4);
    QCOMPARE(written("\xE4\xBC\xBA\xE6\x9C\x8D", {{withZero}}), // T 6 + 1 + 4 = 11, r 3, t 14
             head(40) + bytes("E4 BC BA E6 9C 8D  0A  78 00 79 0A") + zeros(3 + 2));
}

void tst_MoreInfo::textThatDoesNotFit_data()
{
    QTest::addColumn<std::string>("device");
    QTest::addColumn<Groups>("groups");
    QTest::addColumn<std::string>("expected"); // what comes before the zeros
    const std::string lineFeed = "\n";
    QTest::addRow("device name of 1000") << letters(1000) << Groups{{}} << std::string();
    QTest::addRow("device name of 1001") << letters(1001) << Groups{{"b"}} << std::string();
    QTest::addRow("device name of 70000") << letters(70000) << Groups{{}} << std::string();
    QTest::addRow("module name that ends at 999 fits")
        << letters(995) << Groups{{"bcd"}} << letters(995) + lineFeed + "bcd";
    QTest::addRow("module name that ends at 1000 is left out as a whole, its line feed stays")
        << letters(995) << Groups{{"bcde"}} << letters(995) + lineFeed;
    QTest::addRow("line feed that ends at 999 fits") << letters(998) << Groups{{"b"}} << letters(998) + lineFeed;
    QTest::addRow("line feed that ends at 1000 is left out") << letters(999) << Groups{{"", "b"}} << letters(999);
    QTest::addRow("a short name after a long one is left out too")
        << letters(500) << Groups{{letters(600)}, {"b"}} << letters(500) + lineFeed;
    QTest::addRow("and so is an empty one") << letters(500) << Groups{{letters(499), ""}} << letters(500) + lineFeed;
    QTest::addRow("more modules than there are bytes")
        << letters(1, 'D') << Groups{std::vector<std::string>(2000)} << "D" + letters(998, '\n');
}

/// The text has 1000 bytes then, whatever its length would be; the rest of it is zero.
void tst_MoreInfo::textThatDoesNotFit()
{
    QFETCH(std::string, device);
    QFETCH(Groups, groups);
    QFETCH(std::string, expected);
    QCOMPARE(written(device, groups),
             head(1024) + QByteArray::fromStdString(expected) + zeros(1000 - static_cast<int>(expected.size())));
}

/// Each call takes the time again; the number of date and time is between those before and after the call.
void tst_MoreInfo::fixedFunctionTakesTheTimeOfNow()
{
    const auto now = [] { return QDateTime::currentDateTime().toString("yyyyMMddhhmmss").toLongLong(); };
    struct_EtherCatDevice device;
    struct_FilenameDevice file = fileOf({{}});
    const qint64 before = now();
    const QByteArray item = writtenBy([&](std::FILE* out) { KTL_write_device_DeviceMoreInfo(out, &device, &file); });
    const qint64 after = now();
    QCOMPARE(item.size(), 24);
    const qint64 time = numberAt(item, 8, 4) * qint64(1000000) + numberAt(item, 12, 4);
    QVERIFY2(before <= time && time <= after, qPrintable(QString::number(time)));
}

void tst_MoreInfo::nullArgumentsWriteNothing()
{
    struct_EtherCatDevice device;
    struct_FilenameDevice file = fileOf({{}});
    KTL_write_device_DeviceMoreInfo(nullptr, &device, &file);
    QCOMPARE(writtenBy([&](std::FILE* out) {
                 KTL_write_device_DeviceMoreInfo(out, nullptr, &file);
                 KTL_write_device_DeviceMoreInfo(out, &device, nullptr);
             }),
             QByteArray());
}

static const testMain::Registration<tst_MoreInfo, QCoreApplication> registration;
#include "tst_MoreInfo.moc"
