// The entries of a device PDO, their places in it, and its size.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <limits>

class tst_DevicePdoEntries : public QObject
{
    Q_OBJECT

private slots:
    static void allFields();
    static void fieldsOfAnEntryStartCleared();
    static void numbers_data();
    static void numbers();
    static void entryName_data();
    static void entryName();
    static void namesAreExact();
    static void gapIsAnOrdinaryEntry();
    static void places_data();
    static void places();
    static void bothDirectionsCountAlike();
};

namespace {

/// Lengths or places of the entries of a PDO.
using Places = QVector<float>;

struct_PDOList pdoOf(const QString& children)
{
    return readSection(read_device_RxPdoinfo, QStringLiteral("<RxPdo Fixed='1'>%1</RxPdo>").arg(children))
        .RxPdo.vpdo.at(0);
}

struct_EntryPDOContent entryOf(const QString& children)
{
    return pdoOf(QStringLiteral("<Entry>%1</Entry>").arg(children)).Entry.vPdo_c.at(0);
}

Places placesOf(const struct_PDOList& pdo)
{
    Places found;
    for (const struct_EntryPDOContent& entry : pdo.Entry.vPdo_c)
        found << entry.Offs;
    return found;
}

} // namespace

void tst_DevicePdoEntries::allFields()
{
    const struct_EntryPDOContent entry =
        entryOf("<Index>#x6040</Index><SubIndex>#x11</SubIndex><BitLen>16</BitLen><Name>Controlword</Name>"
                "<Comment>not read</Comment><DataType>UINT</DataType>");
    QCOMPARE(int{entry.Index}, 0x6040);
    QCOMPARE(entry.SubIndex, 17U);
    QCOMPARE(entry.Bitlen, 16);
    QCOMPARE(text(entry.Name), QStringLiteral("Controlword"));
    QCOMPARE(text(entry.DataType), QStringLiteral("UINT"));
    QVERIFY2(!entry.Attributes.Fixed, "the flag of the PDO is not copied to its entries");
    QCOMPARE(entry.Linkto, 0);
    QCOMPARE(entry.DefaultData, 0U);
    QCOMPARE(entry.Offs, 0.0F);
}

void tst_DevicePdoEntries::fieldsOfAnEntryStartCleared()
{
    const struct_PDOList pdo = pdoOf("<Entry><Index>1</Index><SubIndex>2</SubIndex><BitLen>8</BitLen><Name>a</Name>"
                                     "<DataType>USINT</DataType></Entry><Entry/>");
    QCOMPARE(pdo.Entry.vPdo_c.size(), std::size_t{2});
    const struct_EntryPDOContent& second = pdo.Entry.vPdo_c[1];
    QCOMPARE(int{second.Index}, 0);
    QCOMPARE(second.SubIndex, 0U);
    QCOMPARE(second.Bitlen, 0);
    QVERIFY(second.Name.empty());
    QVERIFY(second.DataType.empty());
    QCOMPARE(second.Offs, 1.0F);
}

void tst_DevicePdoEntries::numbers_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("index");
    QTest::addColumn<unsigned int>("subIndex");
    QTest::addColumn<int>("bits");
    QTest::addRow("decimal") << "12" << 12 << 12U << 12;
    QTest::addRow("hexadecimal") << "#x12" << 18 << 18U << 18;
    QTest::addRow("the index alone is cut to 16 bits") << "#x12345" << 0x2345 << 0x12345U << 0x12345;
    QTest::addRow("a length with the top bit is negative") << "#xFFFFFFFF" << 0xFFFF << 0xFFFFFFFFU << -1;
    QTest::addRow("no number") << "none" << 0 << 0U << 0;
}

void tst_DevicePdoEntries::numbers()
{
    QFETCH(QString, value);
    QFETCH(int, index);
    QFETCH(unsigned int, subIndex);
    QFETCH(int, bits);
    const struct_EntryPDOContent entry =
        entryOf(QStringLiteral("<Index>%1</Index><SubIndex>%1</SubIndex><BitLen>%1</BitLen>").arg(value));
    QCOMPARE(int{entry.Index}, index);
    QCOMPARE(entry.SubIndex, subIndex);
    QCOMPARE(entry.Bitlen, bits);
}

void tst_DevicePdoEntries::entryName_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("expected");
    QTest::addRow("one") << "<Name>Status</Name>"
                         << "Status";
    QTest::addRow("the last one with a text counts") << "<Name>a</Name><Name>b</Name>"
                                                     << "b";
    QTest::addRow("an empty one after a text is passed over, unlike a PDO's") << "<Name>a</Name><Name/>"
                                                                              << "a";
    QTest::addRow("an empty one before a text") << "<Name/><Name>a</Name>"
                                                << "a";
    QTest::addRow("none") << ""
                          << "";
}

void tst_DevicePdoEntries::entryName()
{
    QFETCH(QString, children);
    QFETCH(QString, expected);
    QCOMPARE(text(entryOf(children).Name), expected);
}

void tst_DevicePdoEntries::namesAreExact()
{
    const struct_EntryPDOContent entry = entryOf("<index>1</index><Subindex>2</Subindex><Bitlen>3</Bitlen><name>a"
                                                 "</name><Datatype>UINT</Datatype><BitSize>4</BitSize>");
    QCOMPARE(int{entry.Index}, 0);
    QCOMPARE(entry.SubIndex, 0U);
    QCOMPARE(entry.Bitlen, 0);
    QVERIFY(entry.Name.empty());
    QVERIFY(entry.DataType.empty());
}

void tst_DevicePdoEntries::gapIsAnOrdinaryEntry()
{
    const struct_PDOList pdo = pdoOf("<Entry><Index>0</Index><BitLen>5</BitLen></Entry>"
                                     "<Entry><Index>#x6041</Index><BitLen>16</BitLen><Name>Statusword</Name></Entry>");
    QCOMPARE(pdo.Entry.vPdo_c.size(), std::size_t{2});
    QCOMPARE(int{pdo.Entry.vPdo_c[0].Index}, 0);
    QCOMPARE(pdo.Entry.vPdo_c[0].Bitlen, 5);
    QVERIFY(pdo.Entry.vPdo_c[0].Name.empty());
    QCOMPARE(placesOf(pdo), (Places{0.0F, 0.5F}));
    QCOMPARE(pdo.Size, 2.5F);
}

void tst_DevicePdoEntries::places_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<Places>("expected");
    QTest::addColumn<float>("size");
    const auto entry = [](const char* bits) {
        return QStringLiteral("<Entry><BitLen>%1</BitLen></Entry>").arg(QLatin1String(bits));
    };
    QTest::addRow("no entries") << QString() << Places{} << 0.0F;
    QTest::addRow("16, 3 and 8 bits") << entry("16") + entry("3") + entry("8") << Places{0.0F, 2.0F, 2.3F} << 3.3F;
    QTest::addRow("12 bits") << entry("12") << Places{0.0F} << 1.4F;
    QTest::addRow("bits carry into bytes") << entry("12") + entry("4") << Places{0.0F, 1.4F} << 2.0F;
    QTest::addRow("an entry without a length")
        << entry("8") + "<Entry/>" + entry("8") << Places{0.0F, 1.0F, 1.0F} << 2.0F;
    QTest::addRow("the place is that before the entry, wherever its length is")
        << "<Entry><BitLen>8</BitLen><Index>1</Index></Entry>" + entry("8") << Places{0.0F, 1.0F} << 2.0F;
    QTest::addRow("a length declared twice counts twice")
        << "<Entry><BitLen>8</BitLen><BitLen>4</BitLen></Entry>" + entry("1") << Places{0.0F, 1.4F} << 1.5F;
    QTest::addRow("all bits set take one away") << entry("#xFFFFFFFF") + entry("9") << Places{0.0F, -0.1F} << 1.0F;
    QTest::addRow("the total wraps at the top")
        << entry("2147483647") + entry("1") + entry("8") << Places{0.0F, 268435455.7F, -268435456.0F} << -268435455.0F;
    QTest::addRow("the total wraps around to 0")
        << entry("#x80000000") + entry("#x80000000") << Places{0.0F, -268435456.0F} << 0.0F;
}

void tst_DevicePdoEntries::places()
{
    QFETCH(QString, entries);
    QFETCH(Places, expected);
    QFETCH(float, size);
    const struct_PDOList pdo = pdoOf(entries);
    QCOMPARE(placesOf(pdo), expected); // equal, not nearly: files hold the bytes of these numbers
    QVERIFY2(pdo.Size == size, qPrintable(QString::number(static_cast<double>(pdo.Size), 'g', 9)));
}

void tst_DevicePdoEntries::bothDirectionsCountAlike()
{
    const QString xml =
        QStringLiteral("<Pdo><Entry><BitLen>3</BitLen></Entry><Entry><BitLen>9</BitLen><Name>a</Name></Entry></Pdo>");
    const struct_PDOList pdo = readSection(read_device_TxPdoinfo, xml).TxPdo.vpdo.at(0);
    QCOMPARE(placesOf(pdo), (Places{0.0F, 0.3F}));
    QCOMPARE(text(pdo.Entry.vPdo_c.at(1).Name), QStringLiteral("a"));
    QCOMPARE(pdo.Size, 1.4F);
}

static const testMain::Registration<tst_DevicePdoEntries, QCoreApplication> registration;
#include "tst_DevicePdoEntries.moc"
