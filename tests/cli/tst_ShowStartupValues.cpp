// `ktl show`: values of startup commands, and which of them the format does not carry.
// Covers showStartup.cpp, startupOrigins.cpp.
#include "cli/showRun.h"
#include "ktl/ktlBytes.h"
#include "testMain.h"

#include <QtTest>

class tst_ShowStartupValues : public QObject
{
    Q_OBJECT

private slots:
    void completeAccess_data();
    void completeAccess();
    void valuesAgainstTheirLengths_data();
    void valuesAgainstTheirLengths();

    void meaningInModuleBlocks_data();
    void meaningInModuleBlocks();

private:
    QTemporaryDir m_folder;
};

namespace {

QJsonArray list(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toArray();
}

/// The one device of a file.
QJsonObject deviceOf(const QString& path)
{
    return list(shownFile(path), "devices").at(0).toObject();
}

/// A coupler and a module with the same startup commands.
QByteArray esiWithMailbox(const QByteArray& mailbox)
{
    return "<EtherCATInfo><Vendor><Id>1</Id></Vendor><Descriptions><Devices><Device><Type ProductCode=\"2\">D</Type>"
           "<Name>Dev</Name><Profile><ProfileNo>5001</ProfileNo></Profile>"
           + mailbox + "</Device></Devices><Modules><Module><Type ModuleIdent=\"16\">M</Type><Name>Mod</Name>" + mailbox
           + "</Module></Modules></Descriptions></EtherCATInfo>";
}

/// A KTL file of one device: a CoE item with one complete access, and its values.
QByteArray completeAccessFile(int dataBytes, const QByteArray& values)
{
    const QByteArray command =
        le16(2) + le16(0x1600) + bytes("00 01") + le16(static_cast<std::uint32_t>(dataBytes)) + le32(0);
    const QByteArray coe = bytes("00 00 00 01 00 01 00 01") + command + values;
    return le32(40000) + le32(52) + zeros(44) + le32(40006) + le32(static_cast<std::uint32_t>(8 + coe.size())) + coe
           + bytes("00 00 00 00 0C 00 00 00 00 00 00 00");
}

} // namespace

void tst_ShowStartupValues::completeAccess_data()
{
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("as many bytes as values") << 8 << QByteArray("[1614807056,8]");
    QTest::addRow("fewer bytes than values") << 4 << QByteArray("null");
    QTest::addRow("more bytes than values") << 12 << QByteArray("null");
    QTest::addRow("bytes that are no values") << 9 << QByteArray("null");
}

/// The values of a complete access are its own only if the bytes add up.
void tst_ShowStartupValues::completeAccess()
{
    QFETCH(int, dataBytes);
    QFETCH(QByteArray, expected);
    const QString path = writtenFile(m_folder, "access.ktl", completeAccessFile(dataBytes, le32(0x60400010) + le32(8)));
    const QJsonObject group = list(deviceOf(path), "startup").at(0).toObject();
    const QJsonObject command = list(group, "commands").at(0).toObject();
    const bool isKnown = expected != "null";
    QCOMPARE(command.value("values"), objectOf("{\"v\":" + expected + '}').value("v"));
    QCOMPARE(command.value("meaning").toString(),
             isKnown ? QStringLiteral("0x6040:0, 16 bits; gap of 8 bits") : QString());
    QVERIFY(command.value("value").isNull());
    QCOMPARE(command.value("source").toObject().value("origin").toString(), QStringLiteral("PDO mapping"));
}

void tst_ShowStartupValues::valuesAgainstTheirLengths_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("dataBytes");
    QTest::addColumn<QByteArray>("value");
    QTest::addRow("four bytes") << QByteArray("04030201") << 4 << QByteArray("16909060");
    QTest::addRow("zero") << QByteArray("00000000") << 4 << QByteArray("0");
    QTest::addRow("four bytes after a mark, which counts as one")
        << QByteArray("#x01020304") << 5 << QByteArray("16909060");
    QTest::addRow("a fifth byte that is zero") << QByteArray("0100000000") << 5 << QByteArray("1");
    QTest::addRow("five bytes that do not fit") << QByteArray("0102030405") << 5 << QByteArray("null");
}

/// Of a device and of a module, as JSON and in the table: the number is hidden only where the format lost it.
void tst_ShowStartupValues::valuesAgainstTheirLengths()
{
    QFETCH(QByteArray, data);
    QFETCH(int, dataBytes);
    QFETCH(QByteArray, value);
    const QByteArray mailbox = "<Mailbox><CoE><InitCmd><Transition>PS</Transition><Index>#x8000</Index>"
                               "<SubIndex>1</SubIndex><Data>"
                               + data + "</Data></InitCmd></CoE></Mailbox>";
    const QString path = writtenFile(m_folder, "values.xml", esiWithMailbox(mailbox));
    const QJsonObject device = deviceOf(path);
    const QJsonObject ofDevice = list(list(device, "startup").at(0).toObject(), "commands").at(0).toObject();
    const QJsonObject ofModule = list(list(device, "modules").at(0).toObject(), "startup").at(0).toObject();
    const QJsonValue expected = objectOf("{\"value\":" + value + '}').value("value");
    for (const QJsonObject& command : {ofDevice, ofModule}) {
        QCOMPARE(command.value("dataBytes").toInt(), dataBytes);
        QVERIFY(command.contains("value"));
        QCOMPARE(command.value("value"), expected);
    }
    const bool isLost = value == "null";
    const QString meaning = isLost ? "value of 5 bytes, which the format does not carry" : "";
    QCOMPARE(ofDevice.value("meaning").toString(), meaning);
    QCOMPARE(ofModule.value("meaning").toString(), meaning);
    const QByteArray number = QByteArray::number(dataBytes) + ',' + (isLost ? QByteArray() : value);
    const QByteArray csv = runShow({"--csv", "startup", path}).output;
    QVERIFY2(csv.contains(",device,1,CoE,PS,0x8000,1,no," + number + ",,"), csv.constData());
    const QByteArray rest = ",," + (isLost ? '"' + meaning.toUtf8() + '"' : QByteArray()) + ",,,,\r\n";
    QVERIFY2(csv.contains(",module 0x10,1,CoE,,0x8000,1,no," + number + rest), csv.constData());
    const QString ktl = m_folder.filePath("values.ktl");
    QCOMPARE(runHere({"convert", path, "-o", ktl, "--force"}).exitCode, 0);
    QCOMPARE(runShow({"--full", ktl}).output.count("value of 5 bytes, which the format does not carry"),
             isLost ? 2 : 0);
}

void tst_ShowStartupValues::meaningInModuleBlocks_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QByteArray>("subIndex");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("meaning");
    QTest::addRow("list cleared") << QByteArray("#x1600") << QByteArray("0") << QByteArray("00") << "clears the list";
    QTest::addRow("one entry") << QByteArray("#x1600") << QByteArray("0") << QByteArray("01") << "1 entry";
    QTest::addRow("two entries") << QByteArray("#x1A00") << QByteArray("0") << QByteArray("02") << "2 entries";
    QTest::addRow("entry mapped") << QByteArray("#x1600") << QByteArray("1") << QByteArray("10004060")
                                  << "0x6040:0, 16 bits";
    QTest::addRow("one PDO") << QByteArray("#x1C12") << QByteArray("0") << QByteArray("01") << "1 PDO";
    QTest::addRow("three PDOs") << QByteArray("#x1C12") << QByteArray("0") << QByteArray("03") << "3 PDOs";
    QTest::addRow("PDO assigned") << QByteArray("#x1C13") << QByteArray("1") << QByteArray("001A") << "PDO 0x1a00";
    QTest::addRow("another object") << QByteArray("#x8000") << QByteArray("0") << QByteArray("01") << "";
}

/// Commands of modules have the words that those of devices have.
void tst_ShowStartupValues::meaningInModuleBlocks()
{
    QFETCH(QByteArray, index);
    QFETCH(QByteArray, subIndex);
    QFETCH(QByteArray, data);
    QFETCH(QString, meaning);
    const QByteArray mailbox = "<Mailbox><CoE><InitCmd><Transition>PS</Transition><Index>" + index
                               + "</Index><SubIndex>" + subIndex + "</SubIndex><Data>" + data
                               + "</Data></InitCmd></CoE></Mailbox>";
    const QJsonObject device = deviceOf(writtenFile(m_folder, "meaning.xml", esiWithMailbox(mailbox)));
    const QJsonObject ofDevice = list(list(device, "startup").at(0).toObject(), "commands").at(0).toObject();
    const QJsonObject ofModule = list(list(device, "modules").at(0).toObject(), "startup").at(0).toObject();
    QCOMPARE(ofDevice.value("meaning").toString(), meaning);
    QCOMPARE(ofModule.value("meaning").toString(), meaning);
}

static const testMain::Registration<tst_ShowStartupValues, QCoreApplication> registration;
#include "tst_ShowStartupValues.moc"
