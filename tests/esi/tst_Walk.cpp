// The walk over a document: vendor, devices, and what makes a file an ESI file.
// Covers fileElements.cpp, fileFromTree.cpp, xmlparsing.cpp.
#include "esi/readDocument.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_Walk : public QObject
{
    Q_OBJECT

private slots:
    static void vendor_data();
    static void vendor();
    static void noEsi_data();
    static void noEsi();
    static void vendorWithoutDevices();
    static void devicesAtAnyDepthInOrder();
    static void deviceInsideADevice();
    static void deviceTagIsExact();
    static void pathIsStoredUnchanged();
    static void sameFileTwice();
    static void filesInTheOrderOfLoading();
    static void prefixedDocument();
};

namespace {

QStringList namesOf(const struct_FilenameDevice& file)
{
    QStringList names;
    for (const struct_EtherCatDevice& device : file.device)
        names << QString::fromStdString(device.Name);
    return names;
}

} // namespace

void tst_Walk::vendor_data()
{
    QTest::addColumn<QString>("vendorXml");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("decimal") << "<Vendor><Id>4711</Id></Vendor>" << 4711U;
    QTest::addRow("hexadecimal") << "<Vendor><Id>#xE0000001</Id></Vendor>" << 0xE0000001U;
    QTest::addRow("no id is 0 and no failure") << "<Vendor><Name>Example Drives</Name></Vendor>" << 0U;
    QTest::addRow("empty vendor") << "<Vendor/>" << 0U;
    QTest::addRow("an id that does not convert") << "<Vendor><Id>none</Id></Vendor>" << 0U;
    QTest::addRow("a tag that holds the word counts") << "<Vendor><VendorIdent>5</VendorIdent></Vendor>" << 5U;
    QTest::addRow("other case does not count") << "<Vendor><id>5</id><ID>6</ID></Vendor>" << 0U;
    QTest::addRow("a later match overrides") << "<Vendor><Id>5</Id><Name/><OtherId>6</OtherId></Vendor>" << 6U;
    QTest::addRow("only children of the vendor count") << "<Vendor><More><Id>5</Id></More></Vendor>" << 0U;
    QTest::addRow("only the first vendor counts") << "<Vendor><Id>5</Id></Vendor><Vendor><Id>6</Id></Vendor>" << 5U;
    QTest::addRow("only the first vendor counts, also without an id") << "<Vendor/><Vendor><Id>6</Id></Vendor>" << 0U;
    QTest::addRow("a vendor anywhere counts") << "<Header><Vendor><Id>5</Id></Vendor></Header>" << 5U;
    QTest::addRow("texts and comments beside the id") << "<Vendor>text<!-- c --><Id>5</Id></Vendor>" << 5U;
}

void tst_Walk::vendor()
{
    QFETCH(QString, vendorXml);
    QFETCH(unsigned int, expected);
    const struct_FilenameDevice file =
        readDocument(QStringLiteral("<EtherCATInfo>%1<Device/></EtherCATInfo>").arg(vendorXml));
    QCOMPARE(file.Vendor_Id, expected);
    QCOMPARE(file.device.at(0).TypeAttributes.m_iVendor_Id, 0U);
}

void tst_Walk::noEsi_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addRow("no vendor")
        << "<EtherCATInfo><Descriptions><Devices><Device/></Devices></Descriptions></EtherCATInfo>";
    QTest::addRow("other case") << "<EtherCATInfo><vendor><Id>1</Id></vendor></EtherCATInfo>";
    QTest::addRow("a longer tag") << "<EtherCATInfo><VendorSpecific><Id>1</Id></VendorSpecific></EtherCATInfo>";
    QTest::addRow("the root itself is not searched") << "<Vendor><Id>1</Id></Vendor>";
    QTest::addRow("another kind of document") << "<html><body/></html>";
}

void tst_Walk::noEsi()
{
    QFETCH(QString, xml);
    g_xmlfiledevices.clear();
    g_xmlfiledevices.resize(1);
    g_xmlfiledevices[0].Vendor_Id = 77;
    setDocument(xml);
    QCOMPARE(read_xmldevice(QStringLiteral("other.xml")), false);
    QVERIFY2(g_xmlfiledevices.size() == 1 && g_xmlfiledevices[0].Vendor_Id == 77, "the list is unchanged");

    domDocument = QDomDocument();
    QVERIFY2(!read_xmldevice(QStringLiteral("empty.xml")), "no document at all");
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
}

void tst_Walk::vendorWithoutDevices()
{
    const struct_FilenameDevice file = readDocument("<EtherCATInfo><Vendor><Id>5</Id></Vendor></EtherCATInfo>");
    QCOMPARE(file.Vendor_Id, 5U);
    QVERIFY(file.device.empty());
    QVERIFY(file.vcommentmodule.empty());
}

void tst_Walk::devicesAtAnyDepthInOrder()
{
    const struct_FilenameDevice file =
        readDocument("<EtherCATInfo><Device><Name>a</Name></Device><Vendor/><Descriptions><Groups><Group><Name>g</Name>"
                     "</Group></Groups><Devices><Device><Name>b</Name></Device><Device/></Devices></Descriptions>"
                     "<Extra><Deep><Device><Name>c</Name></Device></Deep></Extra></EtherCATInfo>");
    // The third device has no name: each one starts cleared.
    QCOMPARE(namesOf(file), (QStringList{"a", "b", "", "c"}));
}

void tst_Walk::deviceInsideADevice()
{
    const struct_FilenameDevice file =
        readDescriptions("<Devices><Device><Name>outer</Name><Sm>Outputs</Sm><Device><Name>inner</Name>"
                         "<Sm>Inputs</Sm></Device></Device></Devices>");
    // What is inside the inner device is found under the outer one too.
    QCOMPARE(namesOf(file), (QStringList{"inner", "inner"}));
    QCOMPARE(file.device.at(0).vSM.size(), std::size_t{2});
    QCOMPARE(file.device.at(1).vSM.size(), std::size_t{1});
}

void tst_Walk::deviceTagIsExact()
{
    const struct_FilenameDevice file =
        readDescriptions("<Devices><device/><Device2/><MyDevice/><Device><Name>a</Name></Device></Devices>");
    QCOMPARE(namesOf(file), QStringList{"a"});
}

void tst_Walk::pathIsStoredUnchanged()
{
    setDocument("<EtherCATInfo><Vendor/></EtherCATInfo>");
    g_xmlfiledevices.clear();
    const QString path = QStringLiteral("../伺服 驱动//drive.XML");
    QVERIFY(read_xmldevice(path));
    QCOMPARE(QString::fromStdString(g_xmlfiledevices.at(0).xmlfilepath), path);
}

void tst_Walk::sameFileTwice()
{
    setDocument("<EtherCATInfo><Vendor/><Device><Name>a</Name></Device></EtherCATInfo>");
    g_xmlfiledevices.clear();
    QVERIFY(read_xmldevice(QStringLiteral("same.xml")));
    QVERIFY(read_xmldevice(QStringLiteral("same.xml")));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2});
    QCOMPARE(namesOf(g_xmlfiledevices[0]), QStringList{"a"});
    QCOMPARE(namesOf(g_xmlfiledevices[1]), QStringList{"a"});
    QCOMPARE(QString::fromStdString(g_xmlfiledevices[1].xmlfilepath), QStringLiteral("same.xml"));
}

void tst_Walk::filesInTheOrderOfLoading()
{
    g_xmlfiledevices.clear();
    for (const char* const path : {"z.xml", "a.xml"}) {
        setDocument("<EtherCATInfo><Vendor/></EtherCATInfo>");
        QVERIFY(read_xmldevice(QString::fromLatin1(path)));
    }
    QCOMPARE(QString::fromStdString(g_xmlfiledevices.at(0).xmlfilepath), QStringLiteral("z.xml"));
    QCOMPARE(QString::fromStdString(g_xmlfiledevices.at(1).xmlfilepath), QStringLiteral("a.xml"));
}

void tst_Walk::prefixedDocument()
{
    const struct_FilenameDevice file =
        readDocument(R"(<e:EtherCATInfo xmlns:e="urn:example"><e:Vendor><e:Id>5</e:Id></e:Vendor><e:Descriptions>
                        <e:Devices><e:Device><e:Type e:ProductCode="7">ED-10</e:Type><e:Name>Drive</e:Name>
                        <e:Profile><e:ProfileNo>402</e:ProfileNo></e:Profile>
                        <e:Sm e:DefaultSize="128">MBoxOut</e:Sm></e:Device></e:Devices>
                        <e:Modules><e:Module/></e:Modules></e:Descriptions></e:EtherCATInfo>)");
    QCOMPARE(file.Vendor_Id, 5U);
    QCOMPARE(namesOf(file), QStringList{"Drive"});
    QCOMPARE(file.device[0].TypeAttributes.Product_Code, 7U);
    QCOMPARE(int{file.device[0].m_iDeviceType}, 1);
    QCOMPARE(int{file.device[0].vSM.at(0).Attributes.DefaultSize}, 128);
    QCOMPARE(file.vcommentmodule.size(), std::size_t{1});
}

static const testMain::Registration<tst_Walk, QCoreApplication> registration;
#include "tst_Walk.moc"
