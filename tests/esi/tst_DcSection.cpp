// The `Dc` element of a device: operation modes of the distributed clocks.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

class tst_DcSection : public QObject
{
    Q_OBJECT

private slots:
    static void allFields();
    static void modesInDocumentOrder();
    static void emptyModeIsAppended();
    static void otherChildrenOfDcArePassedOver();
    static void assignActivate_data();
    static void assignActivate();
    static void times_data();
    static void times();
    static void orderOfChildrenDoesNotMatter();
    static void laterChildOverrides();
    static void namesAreExact();
    static void syncManagers();
    static void oversampling_data();
    static void oversampling();
    static void secondDcAdds();
    static void nullPointers();
};

namespace {

/// The one mode of a `Dc` element, from the children of its `OpMode`.
Struct_DCOpMode modeOf(const QString& children)
{
    const struct_EtherCatDevice device =
        readSection(read_device_Dcinfo, QStringLiteral("<Dc><OpMode>%1</OpMode></Dc>").arg(children));
    return device.vopmode.at(0);
}

} // namespace

void tst_DcSection::allFields()
{
    const Struct_DCOpMode mode = modeOf("<Name>DC</Name><Desc>DC synchronous</Desc><AssignActivate>#x0300"
                                        "</AssignActivate><CycleTimeSync0 Factor='1'>125000</CycleTimeSync0>"
                                        "<ShiftTimeSync0 Input='1'>-1000</ShiftTimeSync0>"
                                        "<CycleTimeSync1 Factor='2'>250000</CycleTimeSync1>"
                                        "<ShiftTimeSync1>-7</ShiftTimeSync1>");
    QCOMPARE(text(mode.Name), QStringLiteral("DC"));
    QCOMPARE(text(mode.Desc), QStringLiteral("DC synchronous"));
    QCOMPARE(mode.AssignActivate, 768U);
    QCOMPARE(mode.m_CycleTimeSync0, 125000);
    QCOMPARE(mode.m_ShiftTimeSync0, -1000);
    QCOMPARE(mode.m_CycleTimeSync1, 250000);
    QCOMPARE(mode.m_ShiftTimeSync1, -7);
    QVERIFY(mode.m_Sm.empty());
}

void tst_DcSection::modesInDocumentOrder()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Dcinfo, "<Dc UnknownFRMW='1'><OpMode><Name>free</Name><Desc>no DC</Desc></OpMode>"
                                        "<OpMode><Name>sync</Name></OpMode></Dc>");
    QCOMPARE(device.vopmode.size(), std::size_t{2});
    QCOMPARE(text(device.vopmode[0].Name), QStringLiteral("free"));
    QCOMPARE(text(device.vopmode[1].Name), QStringLiteral("sync"));
    QVERIFY2(device.vopmode[1].Desc.empty(), "each mode starts cleared");
}

void tst_DcSection::emptyModeIsAppended()
{
    const Struct_DCOpMode mode = modeOf(QString());
    QVERIFY(mode.Name.empty());
    QVERIFY(mode.Desc.empty());
    QCOMPARE(mode.AssignActivate, 0U);
    QCOMPARE(mode.m_CycleTimeSync0, 0);
}

void tst_DcSection::otherChildrenOfDcArePassedOver()
{
    const struct_EtherCatDevice device =
        readSection(read_device_Dcinfo, "<Dc>text<!-- comment --><opmode/><Other><OpMode/></Other><OpMode/></Dc>");
    QCOMPARE(device.vopmode.size(), std::size_t{1});
    QVERIFY(readSection(read_device_Dcinfo, "<Dc/>").vopmode.empty());
}

void tst_DcSection::assignActivate_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("hexadecimal mark") << "#x0300" << 768U;
    QTest::addRow("decimal") << "768" << 768U;
    QTest::addRow("more than 16 bits") << "#x10300" << 0x10300U;
    QTest::addRow("no number") << "on" << 0U;
}

void tst_DcSection::assignActivate()
{
    QFETCH(QString, value);
    QFETCH(unsigned int, expected);
    QCOMPARE(modeOf(QStringLiteral("<AssignActivate>%1</AssignActivate>").arg(value)).AssignActivate, expected);
}

void tst_DcSection::times_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("positive") << "1000000" << 1000000;
    QTest::addRow("negative") << "-1000" << -1000;
    QTest::addRow("hexadecimal") << "#x10" << 16;
    QTest::addRow("hexadecimal above 31 bits") << "#xFFFFFC18" << 0;
    QTest::addRow("no number") << "fast" << 0;
}

void tst_DcSection::times()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const Struct_DCOpMode mode =
        modeOf(QStringLiteral("<CycleTimeSync0>%1</CycleTimeSync0><ShiftTimeSync0>%1</ShiftTimeSync0>"
                              "<CycleTimeSync1>%1</CycleTimeSync1><ShiftTimeSync1>%1</ShiftTimeSync1>")
                   .arg(value));
    QCOMPARE(mode.m_CycleTimeSync0, expected);
    QCOMPARE(mode.m_ShiftTimeSync0, expected);
    QCOMPARE(mode.m_CycleTimeSync1, expected);
    QCOMPARE(mode.m_ShiftTimeSync1, expected);
}

void tst_DcSection::orderOfChildrenDoesNotMatter()
{
    const Struct_DCOpMode mode = modeOf("<Sm No='3'/><ShiftTimeSync0>5</ShiftTimeSync0><VendorSpecific><TwinCAT>"
                                        "<Oversampling DefaultFactor='4'/></TwinCAT></VendorSpecific>"
                                        "<AssignActivate>1</AssignActivate><Desc>d</Desc><Name>n</Name>");
    QCOMPARE(text(mode.Name), QStringLiteral("n"));
    QCOMPARE(text(mode.Desc), QStringLiteral("d"));
    QCOMPARE(mode.AssignActivate, 1U);
    QCOMPARE(mode.m_ShiftTimeSync0, 5);
    QCOMPARE(mode.m_Sm.at(0).Attributes.m_No, 3U);
    QCOMPARE(mode.vendorSpecific.twinCAT.oversampling.m_DefaultFactor, 4U);
}

void tst_DcSection::laterChildOverrides()
{
    const Struct_DCOpMode mode = modeOf("<Name>a</Name><CycleTimeSync0>1</CycleTimeSync0><Name/>"
                                        "<CycleTimeSync0>2</CycleTimeSync0>");
    QVERIFY(mode.Name.empty());
    QCOMPARE(mode.m_CycleTimeSync0, 2);
}

void tst_DcSection::namesAreExact()
{
    const Struct_DCOpMode mode = modeOf("<name>a</name><Description>b</Description><assignActivate>1</assignActivate>"
                                        "<CycleTime0>1</CycleTime0><sm/><vendorSpecific/>");
    QVERIFY(mode.Name.empty());
    QVERIFY(mode.Desc.empty());
    QCOMPARE(mode.AssignActivate, 0U);
    QCOMPARE(mode.m_CycleTimeSync0, 0);
    QVERIFY(mode.m_Sm.empty());
}

void tst_DcSection::syncManagers()
{
    const Struct_DCOpMode mode =
        modeOf("<Sm No='2' Other='9'><SyncType>1</SyncType><CycleTime>2</CycleTime><ShiftTime>3</ShiftTime>"
               "<Pdo OSFac='5'>#x1600</Pdo><Pdo osfac='6'>5633</Pdo></Sm><Sm No='#x3'><pdo>1</pdo></Sm><Sm/>");
    QCOMPARE(mode.m_Sm.size(), std::size_t{3});
    QCOMPARE(mode.m_Sm[0].Attributes.m_No, 2U);
    QCOMPARE(mode.m_Sm[0].m_SyncType, 0);
    QCOMPARE(mode.m_Sm[0].m_CycleTime, 0);
    QCOMPARE(mode.m_Sm[0].m_ShiftTime, 0);
    QCOMPARE(mode.m_Sm[0].m_Pdo.size(), std::size_t{2});
    QCOMPARE(mode.m_Sm[0].m_Pdo[0].m_index, 0x1600U);
    QCOMPARE(mode.m_Sm[0].m_Pdo[0].Attributes.m_OsFac, 5U);
    QCOMPARE(mode.m_Sm[0].m_Pdo[1].m_index, 5633U);
    QVERIFY2(mode.m_Sm[0].m_Pdo[1].Attributes.m_OsFac == 0, "a Pdo without OSFac");
    QCOMPARE(mode.m_Sm[1].Attributes.m_No, 3U);
    QVERIFY(mode.m_Sm[1].m_Pdo.empty());
    QVERIFY2(mode.m_Sm[2].Attributes.m_No == 0, "a Sm without No");
}

void tst_DcSection::oversampling_data()
{
    QTest::addColumn<QString>("vendorSpecific");
    QTest::addColumn<unsigned int>("defaultFactor");
    QTest::addColumn<unsigned int>("minCycleTime");
    QTest::addRow("both attributes") << "<TwinCAT><Oversampling MinCycleTime='10000' DefaultFactor='#xA'/></TwinCAT>"
                                     << 10U << 10000U;
    QTest::addRow("one attribute") << "<TwinCAT><Oversampling MinCycleTime='10000'/></TwinCAT>" << 0U << 10000U;
    QTest::addRow("a later element overrides what it names")
        << "<TwinCAT><Oversampling MinCycleTime='1' DefaultFactor='2'/><Oversampling DefaultFactor='3'/></TwinCAT>"
        << 3U << 1U;
    QTest::addRow("other children on both levels are passed over")
        << "<Other><Oversampling DefaultFactor='1'/></Other><TwinCAT><Other DefaultFactor='2'/></TwinCAT>" << 0U << 0U;
    QTest::addRow("the block in between may not be missing") << "<Oversampling DefaultFactor='1'/>" << 0U << 0U;
    QTest::addRow("other case")
        << "<TwinCat><Oversampling DefaultFactor='1'/></TwinCat><TwinCAT><OverSampling DefaultFactor='1'/></TwinCAT>"
        << 0U << 0U;
    QTest::addRow("attribute in other case") << "<TwinCAT><Oversampling defaultFactor='1'/></TwinCAT>" << 0U << 0U;
}

void tst_DcSection::oversampling()
{
    QFETCH(QString, vendorSpecific);
    QFETCH(unsigned int, defaultFactor);
    QFETCH(unsigned int, minCycleTime);
    const Struct_DCOpMode mode = modeOf(QStringLiteral("<VendorSpecific>%1</VendorSpecific>").arg(vendorSpecific));
    QCOMPARE(mode.vendorSpecific.twinCAT.oversampling.m_DefaultFactor, defaultFactor);
    QCOMPARE(mode.vendorSpecific.twinCAT.oversampling.m_MinCycleTime, minCycleTime);
}

void tst_DcSection::secondDcAdds()
{
    const struct_EtherCatDevice first = readSection(read_device_Dcinfo, "<Dc><OpMode><Name>a</Name></OpMode></Dc>");
    const struct_EtherCatDevice both =
        readSection(read_device_Dcinfo, "<Dc><OpMode><Name>b</Name></OpMode></Dc>", first);
    QCOMPARE(both.vopmode.size(), std::size_t{2});
    QCOMPARE(text(both.vopmode[1].Name), QStringLiteral("b"));
}

void tst_DcSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<Dc><OpMode/></Dc>"), true));
    QDomElement element = document.documentElement();
    read_device_Dcinfo(nullptr, &device);
    read_device_Dcinfo(&element, nullptr);
    QVERIFY(device.vopmode.empty());
}

static const testMain::Registration<tst_DcSection, QCoreApplication> registration;
#include "tst_DcSection.moc"
