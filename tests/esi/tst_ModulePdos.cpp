// The PDOs of a module and their entries. Every test runs for both directions.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <limits>

class tst_ModulePdos : public QObject
{
    Q_OBJECT

private slots:
    static void directions();
    static void attributes();
    static void missingSyncManagerIsNotTheFirst();
    static void number_data();
    static void number();
    static void attributesAreExact();
    static void index_data();
    static void index();
    static void names_data();
    static void names();
    static void entry();
    static void entryStartsCleared();
    static void entryNumbers_data();
    static void entryNumbers();
    static void places_data();
    static void places();
    static void namesAreExact();
};

namespace {

using Places = QVector<float>;

QString described(const modulePdo& pdo)
{
    QStringList parts{QStringLiteral("%1 %2 %3 %4 index %5 %6 %7 '%8' %9")
                          .arg(pdo.Attributes.Fixed)
                          .arg(pdo.Attributes.Mandatory)
                          .arg(pdo.Attributes.SM)
                          .arg(pdo.Attributes.SU)
                          .arg(pdo.indexAttributes.index)
                          .arg(pdo.indexAttributes.DependOnSlot)
                          .arg(pdo.indexAttributes.DependOnSlotGroup)
                          .arg(text(pdo.Name))
                          .arg(static_cast<double>(pdo.size))};
    for (const struct_moduleEntry& entry : pdo.vEntry)
        parts << QStringLiteral("%1 %2 %3:%4 %5 bits at %6 '%7'")
                     .arg(entry.indexAttributes.DependOnSlot)
                     .arg(entry.indexAttributes.m_DependOnSlotGroup)
                     .arg(entry.indexAttributes.index)
                     .arg(entry.SubIndex)
                     .arg(entry.BitLen)
                     .arg(static_cast<double>(entry.Offs))
                     .arg(text(entry.Name + '/' + entry.DataType + '/' + entry.Comment));
    return parts.join('|');
}

/// The PDO that a module gets from the same XML in either direction; they must not differ in anything but the list.
modulePdo pdoOf(const QString& attributes, const QString& children)
{
    const QString xml = QStringLiteral("<Module><%1 %2>%3</%1></Module>");
    const struct_module rx = readSection(read_device_Module, xml.arg("RxPdo", attributes, children));
    const struct_module tx = readSection(read_device_Module, xml.arg("TxPdo", attributes, children));
    if (!rx.TxPdo.vpdo.empty() || !tx.RxPdo.vpdo.empty()
        || described(rx.RxPdo.vpdo.at(0)) != described(tx.TxPdo.vpdo.at(0)))
        qFatal("the two directions differ on %s", qPrintable(children));
    return rx.RxPdo.vpdo[0];
}

/// The one entry with these children.
struct_moduleEntry entryOf(const QString& children)
{
    return pdoOf(QString(), QStringLiteral("<Entry>%1</Entry>").arg(children)).vEntry.at(0);
}

} // namespace

void tst_ModulePdos::directions()
{
    const struct_module module =
        readSection(read_device_Module, "<Module><TxPdo><Name>in 1</Name></TxPdo><RxPdo><Name>out 1</Name></RxPdo>"
                                        "<TxPdo><Name>in 2</Name></TxPdo></Module>");
    QCOMPARE(module.RxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(module.TxPdo.vpdo.size(), std::size_t{2});
    QCOMPARE(text(module.RxPdo.vpdo[0].Name), QStringLiteral("out 1"));
    QCOMPARE(text(module.TxPdo.vpdo[0].Name), QStringLiteral("in 1"));
    QCOMPARE(text(module.TxPdo.vpdo[1].Name), QStringLiteral("in 2"));
}

void tst_ModulePdos::attributes()
{
    const modulePdo pdo = pdoOf("Sm='#x2' Su='3' Fixed='1' Mandatory='true'", QString());
    QCOMPARE(pdo.Attributes.SM, 2);
    QCOMPARE(pdo.Attributes.SU, 3);
    QCOMPARE(pdo.Attributes.Fixed, true);
    QCOMPARE(pdo.Attributes.Mandatory, true);
    QVERIFY2(pdo.Name.empty() && pdo.vEntry.empty() && pdo.size == 0.0F, "nothing but attributes was there");
    const modulePdo other = pdoOf("Fixed='0' Mandatory='#x1'", QString());
    QCOMPARE(other.Attributes.Fixed, false);
    QCOMPARE(other.Attributes.Mandatory, false); // a truth value, not a number
}

void tst_ModulePdos::missingSyncManagerIsNotTheFirst()
{
    const modulePdo pdo = pdoOf(QString(), QString());
    QCOMPARE(pdo.Attributes.SM, -1);
    QCOMPARE(pdo.Attributes.SU, 0);
    QCOMPARE(pdo.Attributes.Fixed, false);
    QCOMPARE(pdo.Attributes.Mandatory, false);
    QCOMPARE(int{pdo.indexAttributes.index}, 0);
    QCOMPARE(pdo.Instances, 0);
}

void tst_ModulePdos::number_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("decimal") << "2" << 2;
    QTest::addRow("hexadecimal mark") << "#x2" << 2;
    QTest::addRow("a number that does not convert is 0, not unassigned") << "-1" << 0;
    QTest::addRow("empty value is 0, not unassigned") << "" << 0;
    QTest::addRow("all bits, stored as signed") << "#xFFFFFFFF" << -1;
}

void tst_ModulePdos::number()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const modulePdo pdo = pdoOf(QStringLiteral("Sm='%1' Su='%1'").arg(value), QString());
    QCOMPARE(pdo.Attributes.SM, expected);
    QCOMPARE(pdo.Attributes.SU, expected);
}

void tst_ModulePdos::attributesAreExact()
{
    // `SU` is the name in a device's PDO, here it is `Su`; there is no oversampling either.
    const modulePdo pdo = pdoOf("SM='2' SU='3' fixed='1' mandatory='1' OSFac='4' OSMin='1' OSMax='2'", QString());
    QCOMPARE(pdo.Attributes.SM, -1);
    QCOMPARE(pdo.Attributes.SU, 0);
    QCOMPARE(pdo.Attributes.Fixed, false);
    QCOMPARE(pdo.Attributes.Mandatory, false);
}

void tst_ModulePdos::index_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<int>("expected");
    QTest::addColumn<bool>("withSlot");
    QTest::addColumn<bool>("withSlotGroup");
    QTest::addRow("plain") << "<Index>#x1600</Index>" << 0x1600 << false << false;
    QTest::addRow("with the slot") << "<Index DependOnSlot='1'>#x1600</Index>" << 0x1600 << true << false;
    QTest::addRow("with the slot group") << "<Index DependOnSlotGroup='1'>#x1600</Index>" << 0x1600 << false << true;
    QTest::addRow("with both") << "<Index DependOnSlot='true' DependOnSlotGroup='true'>1</Index>" << 1 << true << true;
    QTest::addRow("declared as fixed") << "<Index DependOnSlot='0' DependOnSlotGroup='false'>1</Index>" << 1 << false
                                       << false;
    QTest::addRow("a truth value, not a number")
        << "<Index DependOnSlot='#x1' DependOnSlotGroup='#x1'>1</Index>" << 1 << false << false;
    QTest::addRow("other names") << "<Index dependOnSlot='1' DependOnSlotgroup='1'>1</Index>" << 1 << false << false;
    QTest::addRow("cut to 16 bits") << "<Index>#x11600</Index>" << 0x1600 << false << false;
    QTest::addRow("no number") << "<Index DependOnSlot='1'>none</Index>" << 0 << true << false;
    QTest::addRow("none") << "" << 0 << false << false;
}

void tst_ModulePdos::index()
{
    QFETCH(QString, xml);
    QFETCH(int, expected);
    QFETCH(bool, withSlot);
    QFETCH(bool, withSlotGroup);
    const ModulePdoIndex ofPdo = pdoOf(QString(), xml).indexAttributes;
    QCOMPARE(int{ofPdo.index}, expected);
    QCOMPARE(ofPdo.DependOnSlot, withSlot);
    QCOMPARE(ofPdo.DependOnSlotGroup, withSlotGroup);
    const ModuleEntryIndex ofEntry = entryOf(xml).indexAttributes;
    QCOMPARE(int{ofEntry.index}, expected);
    QCOMPARE(ofEntry.DependOnSlot, withSlot);
    QCOMPARE(ofEntry.m_DependOnSlotGroup, withSlotGroup);
}

void tst_ModulePdos::names_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("ofPdo");
    QTest::addColumn<QString>("ofEntry");
    QTest::addRow("one") << "<Name>a</Name>"
                         << "a"
                         << "a";
    QTest::addRow("the last one counts") << "<Name>a</Name><Name>b</Name>"
                                         << "b"
                                         << "b";
    QTest::addRow("an empty one after a text counts for the entry only") << "<Name>a</Name><Name/>"
                                                                         << "a"
                                                                         << "";
    QTest::addRow("an empty one before a text") << "<Name/><Name>a</Name>"
                                                << "a"
                                                << "a";
    QTest::addRow("none") << ""
                          << ""
                          << "";
}

void tst_ModulePdos::names()
{
    QFETCH(QString, children);
    QFETCH(QString, ofPdo);
    QFETCH(QString, ofEntry);
    QCOMPARE(text(pdoOf(QString(), children).Name), ofPdo);
    QCOMPARE(text(entryOf(children).Name), ofEntry);
}

void tst_ModulePdos::entry()
{
    const struct_moduleEntry entry =
        entryOf("<Index DependOnSlot='1'>#x6000</Index><SubIndex>#x11</SubIndex><BitLen>16</BitLen><Name>Channel 1"
                "</Name><DataType>INT</DataType><Comment>in volts</Comment><DefaultData>5</DefaultData>");
    QCOMPARE(int{entry.indexAttributes.index}, 0x6000);
    QCOMPARE(entry.indexAttributes.DependOnSlot, true);
    QCOMPARE(int{entry.SubIndex}, 17);
    QCOMPARE(entry.BitLen, 16);
    QCOMPARE(text(entry.Name), QStringLiteral("Channel 1"));
    QCOMPARE(text(entry.DataType), QStringLiteral("INT"));
    QCOMPARE(text(entry.Comment), QStringLiteral("in volts"));
    QCOMPARE(entry.DefaultData, 0U);
    QCOMPARE(entry.Linkto, 0);
    QCOMPARE(entry.Offs, 0.0F);
}

void tst_ModulePdos::entryStartsCleared()
{
    const modulePdo pdo =
        pdoOf(QString(), "<Entry><Index DependOnSlot='1' DependOnSlotGroup='1'>1</Index><SubIndex>2</SubIndex><BitLen>8"
                         "</BitLen><Name>a</Name><DataType>b</DataType><Comment>c</Comment></Entry><Entry/>");
    QCOMPARE(described(pdo), QStringLiteral("0 0 -1 0 index 0 0 0 '' 1|1 1 1:2 8 bits at 0 'a/b/c'|"
                                            "0 0 0:0 0 bits at 1 '//'"));
}

void tst_ModulePdos::entryNumbers_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("subIndex");
    QTest::addColumn<int>("bits");
    QTest::addRow("decimal") << "12" << 12 << 12;
    QTest::addRow("hexadecimal") << "#x12" << 18 << 18;
    QTest::addRow("the sub-index is cut to 16 bits") << "#x12345" << 0x2345 << 0x12345;
    QTest::addRow("a length with the top bit is negative") << "#xFFFFFFFF" << 0xFFFF << -1;
    QTest::addRow("no number") << "none" << 0 << 0;
}

void tst_ModulePdos::entryNumbers()
{
    QFETCH(QString, value);
    QFETCH(int, subIndex);
    QFETCH(int, bits);
    const struct_moduleEntry entry = entryOf(QStringLiteral("<SubIndex>%1</SubIndex><BitLen>%1</BitLen>").arg(value));
    QCOMPARE(int{entry.SubIndex}, subIndex);
    QCOMPARE(entry.BitLen, bits);
}

void tst_ModulePdos::places_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<Places>("expected");
    QTest::addColumn<float>("size");
    const auto entry = [](const char* bits) {
        return QStringLiteral("<Entry><BitLen>%1</BitLen></Entry>").arg(QLatin1String(bits));
    };
    QTest::addRow("no entries") << QString() << Places{} << 0.0F;
    QTest::addRow("16 and 3 bits") << entry("16") + entry("3") << Places{0.0F, 2.0F} << 2.3F;
    QTest::addRow("bits carry into bytes") << entry("12") + entry("4") << Places{0.0F, 1.4F} << 2.0F;
    QTest::addRow("a gap counts") << "<Entry><Index>0</Index><BitLen>5</BitLen></Entry>" + entry("16")
                                  << Places{0.0F, 0.5F} << 2.5F;
    QTest::addRow("the place is that before the entry, wherever its length is")
        << "<Entry><BitLen>8</BitLen><Index>1</Index></Entry>" + entry("8") << Places{0.0F, 1.0F} << 2.0F;
    QTest::addRow("a length declared twice counts twice")
        << "<Entry><BitLen>8</BitLen><BitLen>4</BitLen></Entry>" + entry("1") << Places{0.0F, 1.4F} << 1.5F;
    QTest::addRow("the total wraps around to 0")
        << entry("#x80000000") + entry("#x80000000") << Places{0.0F, -268435456.0F} << 0.0F;
}

void tst_ModulePdos::places()
{
    QFETCH(QString, entries);
    QFETCH(Places, expected);
    QFETCH(float, size);
    const modulePdo pdo = pdoOf(QString(), entries);
    Places found;
    for (const struct_moduleEntry& entry : pdo.vEntry)
        found << entry.Offs;
    QCOMPARE(found, expected); // equal, not nearly: files hold the bytes of these numbers
    QVERIFY2(pdo.size == size, qPrintable(QString::number(static_cast<double>(pdo.size), 'g', 9)));
}

void tst_ModulePdos::namesAreExact()
{
    QCOMPARE(described(pdoOf(QString(), "text<!-- x --><index>1</index><name>a</name><entry><BitLen>8</BitLen></entry>"
                                        "<Exclude>#x1601</Exclude><Index>5</Index>")),
             QStringLiteral("0 0 -1 0 index 5 0 0 '' 0"));
    QCOMPARE(described(pdoOf(QString(), "<Entry><index>1</index><Subindex>2</Subindex><Bitlen>3</Bitlen><name>a</name>"
                                        "<Datatype>b</Datatype><comment>c</comment></Entry>")),
             QStringLiteral("0 0 -1 0 index 0 0 0 '' 0|0 0 0:0 0 bits at 0 '//'"));
}

static const testMain::Registration<tst_ModulePdos, QCoreApplication> registration;
#include "tst_ModulePdos.moc"
