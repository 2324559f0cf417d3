// Devices and modules of ESI files: small files, broken ones, and files that are not plain.
// Covers esiScan.cpp, plainScan.cpp, documentScan.cpp, textWindow.cpp.
#include "find/documentScan.h"
#include "find/esiScan.h"
#include "find/foundLines.h"
#include "find/plainScan.h"
#include "testMain.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>

class tst_EsiScan : public QObject
{
    Q_OBJECT

private slots:
    static void files_data();
    static void files();
    static void plainOrNot_data();
    static void plainOrNot();
    static void brokenBehindADevice();
    static void noEsi();
    static void blocks();
    static void tooLongAText();
    static void tooLongNames();
    static void tooManyDevices();
};

namespace {

const QByteArray start = "<EtherCATInfo><Vendor><Id>#x7e57</Id></Vendor><Descriptions>";
const QByteArray device = "<Device><Type ProductCode='#x1' RevisionNo='#x2'>T&amp;1</Type><Name>One</Name></Device>";

find::EsiScan scanOf(QByteArray bytes, find::Wanted wanted = find::Wanted::DevicesAndModules)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return find::scanEsi(buffer, wanted);
}

bool isPlain(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    find::DeviceWalk walk(find::Wanted::Devices);
    return find::scanPlain(buffer, walk);
}

QByteArray whole(const QByteArray& devices, const QByteArray& modules = {})
{
    return start + "<Devices>" + devices + "</Devices>" + modules + "</Descriptions></EtherCATInfo>";
}

} // namespace

void tst_EsiScan::files_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    const QString one = "device 7e57:1:2 T&1|One @ 1";
    QTest::addRow("one device") << whole(device) << QStringList{one};
    QTest::addRow("lines") << whole("\n\r\n" + device + "\r\r" + device)
                           << QStringList{"device 7e57:1:2 T&1|One @ 3", "device 7e57:1:2 T&1|One @ 5"};
    QTest::addRow("the last name and type count")
        << whole("<Device><Type ProductCode='1' RevisionNo='1'>a</Type><Type RevisionNo='3'>b</Type>"
                 "<Name LcId='1031'>x</Name><Name>y</Name></Device>")
        << QStringList{"device 7e57:1:3 b|y @ 1"};
    QTest::addRow("names elsewhere do not")
        << whole("<Device><Type>t</Type><Name>n</Name><Sm><Name>no</Name></Sm></Device>")
        << QStringList{"device 7e57:0:0 t|n @ 1"};
    QTest::addRow("CDATA and comments") << whole("<Device><Name><![CDATA[a<]]><!-- c -->b</Name></Device>")
                                        << QStringList{"device 7e57:0:0 |a<b @ 1"};
    QTest::addRow("vendor behind the devices")
        << QByteArray("<a><Device/><Vendor><Id>1</Id><Id>2</Id></Vendor><Vendor><Id>3</Id></Vendor></a>")
        << QStringList{"device 2:0:0 | @ 1"};
    QTest::addRow("devices in each other") << whole("<Device><Type>o</Type><Device><Type>i</Type></Device></Device>")
                                           << QStringList{"device 7e57:0:0 i| @ 1", "device 7e57:0:0 i| @ 1"};
    QTest::addRow("modules, and what counts as one")
        << whole({}, "<Modules><No/><Module><Type ModuleIdent='#x10'>M</Type><Name>N</Name></Module>"
                     "<Other><Name>O</Name></Other><!-- --><Other/></Modules>")
        << QStringList{"module 7e57:10:0 M|N @ 1", "module 7e57:0:0 |O @ 1"};
}

void tst_EsiScan::files()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    const find::EsiScan scan = scanOf(bytes);
    QCOMPARE(linesOf(scan.found), expected);
    QVERIFY(!scan.fault.has_value() && scan.isEsi);
    QVERIFY(isPlain(bytes));
    // The other road gives the same.
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    find::DeviceWalk walk(find::Wanted::DevicesAndModules);
    QVERIFY(!find::scanAsDocument(buffer, walk).has_value());
    QCOMPARE(linesOf(walk.takeFound()), expected);
}

void tst_EsiScan::plainOrNot_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("plain");
    const QByteArray file = whole(device);
    QTest::addRow("without declaration") << file << true;
    QTest::addRow("with a mark") << "\xEF\xBB\xBF" + file << true;
    QTest::addRow("in Latin-1") << "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xE9 -->" + file << true;
    QTest::addRow("in UTF-16") << QTextCodec::codecForName("UTF-16LE")->fromUnicode(QString::fromUtf8(file)).mid(2)
                               << false;
    QTest::addRow("with a document type") << "<!DOCTYPE EtherCATInfo>" + file << false;
    QTest::addRow("with a control character") << file + "<!-- \x01 -->" << false;
    QTest::addRow("with an invalid byte") << file + "<!-- \xFF -->" << false;
}

void tst_EsiScan::plainOrNot()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, plain);
    QCOMPARE(isPlain(bytes), plain);
    QCOMPARE(linesOf(scanOf(bytes).found), QStringList{"device 7e57:1:2 T&1|One @ 1"});
}

void tst_EsiScan::brokenBehindADevice()
{
    const find::EsiScan scan = scanOf(start + "<Devices>" + device + "\n<Device><Name>x</Nam></Device></Devices>");
    QCOMPARE(linesOf(scan.found), QStringList{"device 7e57:1:2 T&1|One @ 1"});
    QVERIFY(scan.fault.has_value() && scan.isEsi);
    QCOMPARE(scan.fault->message, QStringLiteral("tag mismatch"));
    QCOMPARE(scan.fault->line, 2);
}

void tst_EsiScan::noEsi()
{
    const find::EsiScan other = scanOf("<svg><Device/></svg>");
    QVERIFY(other.found.empty() && !other.isEsi && !other.looksLikeEsi && !other.fault.has_value());
    const find::EsiScan broken = scanOf("<EtherCATInfo><a>");
    QVERIFY(broken.found.empty() && !broken.isEsi && broken.looksLikeEsi && broken.fault.has_value());
    QVERIFY(!scanOf("<html><br></html>").looksLikeEsi);
}

/// Whatever lies at the end of a block, characters of several bytes and line ends included.
void tst_EsiScan::blocks()
{
    constexpr int blockSize = 256 * 1024;
    const QByteArray between = "<!-- \xE4\xBC\xBA\xF0\x9F\x98\x80 -->\r\n<a b='\xC3\xA9'>&lt;</a><![CDATA[x]]>";
    for (int shift = 0; shift <= between.size(); ++shift) {
        const QByteArray before = start + "<Devices>";
        const QByteArray fill(blockSize - before.size() - shift, ' ');
        const QByteArray bytes = before + fill + between + device + "</Devices></Descriptions></EtherCATInfo>";
        QVERIFY(isPlain(bytes));
        QCOMPARE(linesOf(scanOf(bytes).found), QStringList{"device 7e57:1:2 T&1|One @ 2"});
    }
}

/// Devices in front of such a text are found.
void tst_EsiScan::tooLongAText()
{
    const find::EsiScan scan = scanOf(whole(device + "<a>" + QByteArray(17 * 1024 * 1024, 'a') + "</a>" + device));
    QCOMPARE(linesOf(scan.found), QStringList{"device 7e57:1:2 T&1|One @ 1"});
    QVERIFY(scan.fault.has_value());
    QCOMPARE(scan.fault->message,
             QStringLiteral("a text, comment or tag, or what declares entities, is longer than 8388608 bytes"));
}

void tst_EsiScan::tooLongNames()
{
    const QByteArray longName = "<Device><Name>" + QByteArray(2 * 1024 * 1024 - 3, 'n') + "</Name></Device>";
    const find::EsiScan scan = scanOf(whole(longName + longName + "<Device/>" + device));
    QCOMPARE(scan.found.size(), std::size_t{3});
    QVERIFY(scan.fault.has_value());
    QCOMPARE(scan.fault->message,
             QStringLiteral("the names and types of the devices have more than 4194304 characters"));
}

void tst_EsiScan::tooManyDevices()
{
    const find::EsiScan most = scanOf(whole(QByteArray("<Device/>").repeated(50000)));
    QCOMPARE(most.found.size(), std::size_t{50000});
    QVERIFY(!most.fault.has_value());
    const find::EsiScan more = scanOf(whole(QByteArray("<Device/>").repeated(50001)));
    QCOMPARE(more.found.size(), std::size_t{50000});
    QVERIFY(more.fault.has_value());
    QCOMPARE(more.fault->message, QStringLiteral("the file has more than 50000 devices and modules"));
}

static const testMain::Registration<tst_EsiScan, testMain::NoApplication> registration;
#include "tst_EsiScan.moc"
