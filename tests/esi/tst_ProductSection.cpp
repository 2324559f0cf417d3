// The `Type` element of a device.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

class tst_ProductSection : public QObject
{
    Q_OBJECT

private slots:
    static void allAttributes();
    static void prefixedAttributes();
    static void namesAreExact();
    static void missingAttributesLeaveTheFields();
    static void checkProductCode_data();
    static void checkProductCode();
    static void typeText_data();
    static void typeText();
    static void nullPointers();
};

void tst_ProductSection::allAttributes()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Productinfo,
        R"(<Type ProductCode="#x1a2b3c4d" RevisionNo="#x00010002" SerialNo="77" CheckProductCode="EQ">ED-10</Type>)");
    QCOMPARE(device.TypeAttributes.Product_Code, 0x1A2B3C4DU);
    QCOMPARE(device.TypeAttributes.Revision_No, 0x10002U);
    QCOMPARE(device.TypeAttributes.Serial_No, 77U);
    QCOMPARE(device.TypeAttributes.CheckProductCode, EQ);
    QCOMPARE(text(device.TypeAttributes.type), QStringLiteral("ED-10"));
    QCOMPARE(device.TypeAttributes.m_iVendor_Id, 0U);
    QVERIFY(device.Name.empty());
}

void tst_ProductSection::prefixedAttributes()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Productinfo, R"(<e:Type xmlns:e="urn:example" e:ProductCode="5" e:SerialNo="6">ED</e:Type>)");
    QCOMPARE(device.TypeAttributes.Product_Code, 5U);
    QCOMPARE(device.TypeAttributes.Serial_No, 6U);
}

void tst_ProductSection::namesAreExact()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Productinfo,
                    R"(<Type productCode="1" RevisionNumber="2" Serial="3" checkproductcode="EQ" Other="4">ED</Type>)");
    QCOMPARE(device.TypeAttributes.Product_Code, 0U);
    QCOMPARE(device.TypeAttributes.Revision_No, 0U);
    QCOMPARE(device.TypeAttributes.Serial_No, 0U);
    QCOMPARE(device.TypeAttributes.CheckProductCode, UnknownType);
}

void tst_ProductSection::missingAttributesLeaveTheFields()
{
    struct_EtherCatDevice before;
    before.TypeAttributes.Product_Code = 11;
    before.TypeAttributes.Revision_No = 12;
    before.TypeAttributes.type = "before";
    const struct_EtherCatDevice device =
        readSection(read_device_Productinfo, R"(<Type RevisionNo="2">after</Type>)", before);
    QCOMPARE(device.TypeAttributes.Product_Code, 11U);
    QCOMPARE(device.TypeAttributes.Revision_No, 2U);
    QCOMPARE(text(device.TypeAttributes.type), QStringLiteral("after"));
}

void tst_ProductSection::checkProductCode_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("not checked") << "NONE" << unsigned{NONE};
    QTest::addRow("equal, in lower case") << "eq" << unsigned{EQ};
    QTest::addRow("no known token") << "GE" << unsigned{UnknownType};
}

void tst_ProductSection::checkProductCode()
{
    QFETCH(QString, value);
    QFETCH(unsigned int, expected);
    const struct_EtherCatDevice device =
        readSection(read_device_Productinfo, QStringLiteral("<Type CheckProductCode=\"%1\"/>").arg(value));
    QCOMPARE(unsigned{device.TypeAttributes.CheckProductCode}, expected);
}

void tst_ProductSection::typeText_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expected");
    QTest::addRow("plain") << "<Type>ED-10</Type>"
                           << "ED-10";
    QTest::addRow("blanks are kept") << "<Type> ED 10 </Type>"
                                     << " ED 10 ";
    QTest::addRow("Chinese") << QStringLiteral("<Type>伺服</Type>") << QStringLiteral("伺服");
    QTest::addRow("CDATA section") << "<Type><![CDATA[A<B]]></Type>"
                                   << "A<B";
    QTest::addRow("empty element") << "<Type/>"
                                   << "";
}

void tst_ProductSection::typeText()
{
    QFETCH(QString, xml);
    QFETCH(QString, expected);
    struct_EtherCatDevice before;
    before.TypeAttributes.type = "before";
    QCOMPARE(text(readSection(read_device_Productinfo, xml, before).TypeAttributes.type), expected);
}

void tst_ProductSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("Type"));
    element.setAttribute(QStringLiteral("ProductCode"), QStringLiteral("5"));
    read_device_Productinfo(nullptr, &device);
    read_device_Productinfo(&element, nullptr);
    QCOMPARE(device.TypeAttributes.Product_Code, 0U);
}

static const testMain::Registration<tst_ProductSection, QCoreApplication> registration;
#include "tst_ProductSection.moc"
