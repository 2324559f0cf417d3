// The `RxPdo` and `TxPdo` elements of a device. Every test runs for both directions.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <vector>

class tst_PdoSections : public QObject
{
    Q_OBJECT

private slots:
    static void directions();
    static void attributes();
    static void missingSyncManagerIsNotTheFirst();
    static void number_data();
    static void number();
    static void flag_data();
    static void flag();
    static void attributesAreExact();
    static void index_data();
    static void index();
    static void pdoName_data();
    static void pdoName();
    static void otherChildrenArePassedOver();
    static void nullPointers();
};

namespace {

using Reader = void (*)(QDomElement*, struct_EtherCatDevice*);

/// The PDO that both readers make of the same XML; they must not differ in anything but the list.
struct_PDOList pdoFrom(const QString& attributes, const QString& children)
{
    const QString xml = QStringLiteral("<Pdo %1>%2</Pdo>").arg(attributes, children);
    const struct_EtherCatDevice rx = readSection(read_device_RxPdoinfo, xml);
    const struct_EtherCatDevice tx = readSection(read_device_TxPdoinfo, xml);
    const struct_PDOList& pdo = rx.RxPdo.vpdo.at(0);
    const struct_PDOList& twin = tx.TxPdo.vpdo.at(0);
    const bool areAlike =
        pdo.Name == twin.Name && pdo.IndexAttributes.Index == twin.IndexAttributes.Index
        && pdo.Attributes.SM == twin.Attributes.SM && pdo.Attributes.SU == twin.Attributes.SU
        && pdo.Attributes.Fixed == twin.Attributes.Fixed && pdo.Attributes.Mandatory == twin.Attributes.Mandatory
        && pdo.Attributes.m_OSFac == twin.Attributes.m_OSFac && pdo.Attributes.m_OSMin == twin.Attributes.m_OSMin
        && pdo.Attributes.m_OSMax == twin.Attributes.m_OSMax
        && pdo.Attributes.m_OSIndexInc == twin.Attributes.m_OSIndexInc;
    if (!areAlike)
        qFatal("the readers of the two directions differ on %s", qPrintable(xml));
    return pdo;
}

} // namespace

void tst_PdoSections::directions()
{
    struct_EtherCatDevice device = readSection(read_device_RxPdoinfo, "<RxPdo><Name>out 1</Name></RxPdo>");
    device = readSection(read_device_TxPdoinfo, "<TxPdo><Name>in 1</Name></TxPdo>", device);
    device = readSection(read_device_RxPdoinfo, "<RxPdo><Name>out 2</Name></RxPdo>", device);
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{2});
    QCOMPARE(device.TxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(text(device.RxPdo.vpdo[0].Name), QStringLiteral("out 1"));
    QCOMPARE(text(device.RxPdo.vpdo[1].Name), QStringLiteral("out 2"));
    QCOMPARE(text(device.TxPdo.vpdo[0].Name), QStringLiteral("in 1"));
}

void tst_PdoSections::attributes()
{
    const struct_PDOList pdo = pdoFrom("Sm='#x2' SU='3' Fixed='1' Mandatory='true' OSFac='10' OSMin='1' OSMax='20' "
                                       "OSIndexInc='#x10'",
                                       QString());
    QCOMPARE(pdo.Attributes.SM, 2);
    QCOMPARE(pdo.Attributes.SU, 3);
    QCOMPARE(pdo.Attributes.Fixed, true);
    QCOMPARE(pdo.Attributes.Mandatory, true);
    QCOMPARE(pdo.Attributes.m_OSFac, 10);
    QCOMPARE(pdo.Attributes.m_OSMin, 1);
    QCOMPARE(pdo.Attributes.m_OSMax, 20);
    QCOMPARE(pdo.Attributes.m_OSIndexInc, 16);
    QVERIFY2(pdo.Name.empty() && pdo.Entry.vPdo_c.empty() && pdo.Size == 0.0F, "nothing but attributes was there");
}

void tst_PdoSections::missingSyncManagerIsNotTheFirst()
{
    const struct_PDOList pdo = pdoFrom(QString(), QString());
    QCOMPARE(pdo.Attributes.SM, -1);
    QCOMPARE(pdo.Attributes.SU, 0);
    QCOMPARE(pdo.Attributes.Fixed, false);
    QCOMPARE(pdo.Attributes.Mandatory, false);
    QCOMPARE(pdo.Attributes.m_OSFac, 0);
    QCOMPARE(pdo.Attributes.m_OSMin, 0);
    QCOMPARE(pdo.Attributes.m_OSMax, 0);
    QCOMPARE(pdo.Attributes.m_OSIndexInc, 0);
}

void tst_PdoSections::number_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("decimal") << "2" << 2;
    QTest::addRow("hexadecimal mark") << "#x2" << 2;
    QTest::addRow("a number that does not convert is 0, not unassigned") << "-1" << 0;
    QTest::addRow("empty value is 0, not unassigned") << "" << 0;
    QTest::addRow("true is a number") << "true" << 1;
    QTest::addRow("more sync managers than there can be") << "1000" << 1000;
    QTest::addRow("all bits, stored as signed") << "#xFFFFFFFF" << -1;
}

void tst_PdoSections::number()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const struct_PDOList pdo = pdoFrom(
        QStringLiteral("Sm='%1' SU='%1' OSFac='%1' OSMin='%1' OSMax='%1' OSIndexInc='%1'").arg(value), QString());
    QCOMPARE(pdo.Attributes.SM, expected);
    QCOMPARE(pdo.Attributes.SU, expected);
    QCOMPARE(pdo.Attributes.m_OSFac, expected);
    QCOMPARE(pdo.Attributes.m_OSMin, expected);
    QCOMPARE(pdo.Attributes.m_OSMax, expected);
    QCOMPARE(pdo.Attributes.m_OSIndexInc, expected);
}

void tst_PdoSections::flag_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("expected");
    QTest::addRow("one") << "1" << true;
    QTest::addRow("true") << "true" << true;
    QTest::addRow("zero") << "0" << false;
    QTest::addRow("false") << "false" << false;
    QTest::addRow("a truth value, not a number") << "#x1" << false;
}

void tst_PdoSections::flag()
{
    QFETCH(QString, value);
    QFETCH(bool, expected);
    const struct_PDOList pdo = pdoFrom(QStringLiteral("Fixed='%1' Mandatory='%1'").arg(value), QString());
    QCOMPARE(pdo.Attributes.Fixed, expected);
    QCOMPARE(pdo.Attributes.Mandatory, expected);
}

void tst_PdoSections::attributesAreExact()
{
    // `Su` is the name in a module's PDO, here it is `SU`.
    const struct_PDOList pdo = pdoFrom("SM='2' Su='3' fixed='1' mandatory='1' OSfac='4' Other='5'", QString());
    QCOMPARE(pdo.Attributes.SM, -1);
    QCOMPARE(pdo.Attributes.SU, 0);
    QCOMPARE(pdo.Attributes.Fixed, false);
    QCOMPARE(pdo.Attributes.Mandatory, false);
    QCOMPARE(pdo.Attributes.m_OSFac, 0);
}

void tst_PdoSections::index_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<int>("expected");
    QTest::addRow("hexadecimal") << "<Index>#x1A00</Index>" << 0x1A00;
    QTest::addRow("decimal") << "<Index>6656</Index>" << 0x1A00;
    QTest::addRow("attributes of the element mean nothing") << "<Index DependOnSlot='1'>#x1600</Index>" << 0x1600;
    QTest::addRow("cut to 16 bits") << "<Index>#x11600</Index>" << 0x1600;
    QTest::addRow("the last one counts") << "<Index>1</Index><Index>2</Index>" << 2;
    QTest::addRow("none") << "" << 0;
}

void tst_PdoSections::index()
{
    QFETCH(QString, children);
    QFETCH(int, expected);
    QCOMPARE(int{pdoFrom(QString(), children).IndexAttributes.Index}, expected);
}

void tst_PdoSections::pdoName_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("expected");
    QTest::addRow("one") << "<Name>Outputs</Name>"
                         << "Outputs";
    QTest::addRow("Chinese") << QStringLiteral("<Name>输出</Name>") << QStringLiteral("输出");
    QTest::addRow("the last one counts") << "<Name>a</Name><Name>b</Name>"
                                         << "b";
    QTest::addRow("the last one counts, also when it is empty") << "<Name>a</Name><Name/>"
                                                                << "";
    QTest::addRow("none") << ""
                          << "";
}

void tst_PdoSections::pdoName()
{
    QFETCH(QString, children);
    QFETCH(QString, expected);
    QCOMPARE(text(pdoFrom(QString(), children).Name), expected);
}

void tst_PdoSections::otherChildrenArePassedOver()
{
    const struct_PDOList pdo = pdoFrom(QString(), "text<!-- comment --><Exclude>#x1601</Exclude><index>1</index><name>x"
                                                  "</name><entry><BitLen>8</BitLen></entry><Index>5</Index>");
    QCOMPARE(int{pdo.IndexAttributes.Index}, 5);
    QVERIFY(pdo.Name.empty());
    QVERIFY(pdo.Entry.vPdo_c.empty());
    QCOMPARE(pdo.Size, 0.0F);
}

void tst_PdoSections::nullPointers()
{
    for (const Reader reader : {read_device_RxPdoinfo, read_device_TxPdoinfo}) {
        struct_EtherCatDevice device;
        QDomDocument document;
        QDomElement element = document.createElement(QStringLiteral("RxPdo"));
        reader(nullptr, &device);
        reader(&element, nullptr);
        QVERIFY(device.RxPdo.vpdo.empty());
        QVERIFY(device.TxPdo.vpdo.empty());
    }
}

static const testMain::Registration<tst_PdoSections, QCoreApplication> registration;
#include "tst_PdoSections.moc"
