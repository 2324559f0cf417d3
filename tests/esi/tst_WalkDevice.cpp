// The walk over one device: its name, its class, and the sections that it hands out.
// Covers deviceName.cpp.
#include "esi/readDocument.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <stdexcept>

class tst_WalkDevice : public QObject
{
    Q_OBJECT

private slots:
    static void name_data();
    static void name();
    static void cdataMark_data();
    static void cdataMark();
    static void deviceClass_data();
    static void deviceClass();
    static void slotsDoNotCarryOver();
    static void sectionsUnderADevice();
    static void sectionsUnderOtherParents();
    static void sectionsAreAppended();
    static void dictionary_data();
    static void dictionary();
    static void passesInTheirOrder();
    static void unknownSyncManagerAddsNothing();
};

void tst_WalkDevice::name_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("expected");
    QTest::addRow("one") << "<Name>Drive</Name>"
                         << "Drive";
    QTest::addRow("none") << ""
                          << "";
    QTest::addRow("the last one counts, whatever its language")
        << QStringLiteral("<Name LcId='2052'>伺服</Name><Name LcId='1033'>Drive</Name>") << "Drive";
    QTest::addRow("the last one counts, also when it is empty") << "<Name>Drive</Name><Name/>"
                                                                << "";
    QTest::addRow("Chinese") << QStringLiteral("<Name>伺服驱动器</Name>") << QStringLiteral("伺服驱动器");
    QTest::addRow("blanks are kept") << "<Name> A  B </Name>"
                                     << " A  B ";
    QTest::addRow("a name under another parent") << "<Profile><Name>x</Name></Profile><Name>Drive</Name>"
                                                    "<RxPdo><Name>y</Name></RxPdo>"
                                                 << "Drive";
    QTest::addRow("a parent tag that holds the word passes")
        << "<Name>Drive</Name><SubDevices><Name>sub</Name></SubDevices>"
        << "sub";
    QTest::addRow("a parent tag in other case does not") << "<Name>Drive</Name><device><Name>sub</Name></device>"
                                                         << "Drive";
    QTest::addRow("a longer tag is no name") << "<Name>Drive</Name><Names>x</Names><name>y</name>"
                                             << "Drive";
}

void tst_WalkDevice::name()
{
    QFETCH(QString, children);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(readDevice(children).Name), expected);
}

void tst_WalkDevice::cdataMark_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expected");
    QTest::addRow("a real section leaves no mark") << "<![CDATA[Drive <1>]]>"
                                                   << "Drive <1>";
    QTest::addRow("a mark written out, with its angle brackets") << "&lt;![CDATA[Drive]]&gt;"
                                                                 << "Drive";
    QTest::addRow("three characters go from the first ]]") << "&lt;![CDATA[a]]bcd]]&gt;"
                                                           << "acd]]>";
    QTest::addRow("the head is cut at the start, wherever the mark is") << "ab![CDATA[c]]&gt;"
                                                                        << "[c";
    QTest::addRow("]] in the part cut off at the start does not count") << "]]ab![CDATA[c]]&gt;d"
                                                                        << "TA[cd";
    QTest::addRow("]] at the very end") << "&lt;![CDATA[Drive]]"
                                        << "Drive";
    QTest::addRow("no ]]: 9 characters go and nothing more") << "&lt;![CDATA[Drive"
                                                             << "Drive";
    QTest::addRow("the mark alone") << "&lt;![CDATA["
                                    << "";
    QTest::addRow("mark and end alone") << "&lt;![CDATA[]]&gt;"
                                        << "";
    QTest::addRow("other case is no mark") << "&lt;![cdata[Drive]]&gt;"
                                           << "<![cdata[Drive]]>";
    QTest::addRow("]] without a mark stays") << "Drive]]"
                                             << "Drive]]";
    QTest::addRow("only one mark is taken off") << "&lt;![CDATA[&lt;![CDATA[x]]&gt;]]&gt;"
                                                << "<![CDATA[x]]>";
}

void tst_WalkDevice::cdataMark()
{
    QFETCH(QString, xml);
    QFETCH(QString, expected);
    QCOMPARE(QString::fromStdString(readDevice(QStringLiteral("<Name>%1</Name>").arg(xml)).Name), expected);
}

void tst_WalkDevice::deviceClass_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<int>("axes");
    const QString twoSlots = QStringLiteral("<Slots><Slot/><Slot/></Slots>");
    QTest::addRow("no profile") << "" << 0 << 0;
    QTest::addRow("no profile, slots: the class is not even asked for") << twoSlots << 0 << 0;
    QTest::addRow("profile without a number") << "<Profile/>" << 0 << 0;
    QTest::addRow("drive") << "<Profile><ProfileNo>402</ProfileNo></Profile>" << 1 << 1;
    // Slots make a multi-axis drive, but its axes are the modules in them, and there are none.
    QTest::addRow("drive with slots") << "<Profile><ProfileNo>402</ProfileNo></Profile>" + twoSlots << 2 << 0;
    QTest::addRow("drive with slots, slots first")
        << twoSlots + "<Profile><ProfileNo>402</ProfileNo></Profile>" << 2 << 0;
    QTest::addRow("drive with an empty Slots element")
        << "<Profile><ProfileNo>402</ProfileNo></Profile><Slots/>" << 2 << 0;
    QTest::addRow("Slots under another parent counts as slots")
        << "<Profile><ProfileNo>402</ProfileNo></Profile><Other><Slots><Slot/></Slots></Other>" << 2 << 0;
    QTest::addRow("profile 0 without slots") << "<Profile><ProfileNo>0</ProfileNo></Profile>" << 0 << 0;
    QTest::addRow("profile 0 with slots") << "<Profile><ProfileNo>0</ProfileNo></Profile>" + twoSlots << 3 << 0;
    QTest::addRow("modular profile") << "<Profile><ProfileNo>5001</ProfileNo></Profile>" << 3 << 0;
    QTest::addRow("another profile") << "<Profile><ProfileNo>401</ProfileNo></Profile>" << 4 << 0;
    QTest::addRow("hexadecimal number") << "<Profile><ProfileNo>#x192</ProfileNo></Profile>" << 1 << 1;
    QTest::addRow("a number that does not convert is 0")
        << "<Profile><ProfileNo>none</ProfileNo></Profile>" + twoSlots << 3 << 0;
    QTest::addRow("channel") << "<Profile><ChannelInfo><ProfileNo>402</ProfileNo></ChannelInfo></Profile>" << 1 << 1;
    QTest::addRow("only the first child of a channel is looked at")
        << "<Profile><ChannelInfo><DisplayName/><ProfileNo>402</ProfileNo></ChannelInfo></Profile>" << 0 << 0;
    QTest::addRow("a comment before the number is the first child of a channel")
        << "<Profile><ChannelInfo><!-- drive --><ProfileNo>402</ProfileNo></ChannelInfo></Profile>" << 0 << 0;
    QTest::addRow("line ends and blanks between elements are no child")
        << "<Profile>\r\n\t<ChannelInfo>\r\n\t\t<ProfileNo>402</ProfileNo>\r\n\t</ChannelInfo></Profile>" << 1 << 1;
    QTest::addRow("empty channel") << "<Profile><ChannelInfo/></Profile>" << 0 << 0;
    QTest::addRow("of several numbers the last one counts")
        << "<Profile><ProfileNo>402</ProfileNo><ChannelInfo><ProfileNo>5001</ProfileNo></ChannelInfo></Profile>" << 3
        << 0;
    QTest::addRow("of several profiles the last one counts")
        << "<Profile><ProfileNo>401</ProfileNo></Profile><Profile><ProfileNo>402</ProfileNo></Profile>" << 1 << 1;
    QTest::addRow("a longer tag is no number") << "<Profile><ProfileNo2>402</ProfileNo2></Profile>" << 0 << 0;
    QTest::addRow("a profile under another parent")
        << "<Other><Profile><ProfileNo>402</ProfileNo></Profile></Other>" << 0 << 0;
    QTest::addRow("a parent tag that holds the word passes")
        << "<DeviceInfo><Profile><ProfileNo>402</ProfileNo></Profile></DeviceInfo>" << 1 << 1;
}

void tst_WalkDevice::deviceClass()
{
    QFETCH(QString, children);
    QFETCH(int, deviceType);
    QFETCH(int, axes);
    const struct_EtherCatDevice device = readDevice(children);
    QCOMPARE(int{device.m_iDeviceType}, deviceType);
    QCOMPARE(int{device.m_iDriveAxies}, axes);
}

void tst_WalkDevice::slotsDoNotCarryOver()
{
    const QString drive = QStringLiteral("<Device><Profile><ProfileNo>402</ProfileNo></Profile>%1</Device>");
    const struct_FilenameDevice file =
        readDescriptions(drive.arg("<Slots><Slot/><Slot/><Slot/></Slots>") + drive.arg(QString()));
    QCOMPARE(int{file.device.at(0).m_iDeviceType}, 2);
    QCOMPARE(file.device.at(0).Slots.vslot.size(), std::size_t{3});
    QCOMPARE(int{file.device.at(1).m_iDeviceType}, 1);
    QCOMPARE(file.device.at(1).Slots.vslot.size(), std::size_t{0});
    QCOMPARE(int{file.device.at(1).m_iDriveAxies}, 1);
    // Nor do they into the next file.
    QCOMPARE(int{readDevice("<Profile><ProfileNo>402</ProfileNo></Profile>").m_iDeviceType}, 1);
}

void tst_WalkDevice::sectionsUnderADevice()
{
    const struct_EtherCatDevice device = readDevice(
        "<Type ProductCode='5'>ED-10</Type><Slots><Slot/></Slots><TxPdo/><RxPdo/><Dc><OpMode/></Dc><Sm>Inputs</Sm>"
        "<Fmmu>Inputs</Fmmu><Mailbox><CoE SdoInfo='1'/></Mailbox>");
    QCOMPARE(device.TypeAttributes.Product_Code, 5U);
    QCOMPARE(QString::fromStdString(device.TypeAttributes.type), QStringLiteral("ED-10"));
    QCOMPARE(device.Mailbox.COE.Attributes.SdoInfo, true);
    QCOMPARE(device.vFmmu.size(), std::size_t{1});
    QCOMPARE(device.vSM.size(), std::size_t{1});
    QCOMPARE(device.vopmode.size(), std::size_t{1});
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(device.TxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(device.Slots.vslot.size(), std::size_t{1});
}

void tst_WalkDevice::sectionsUnderOtherParents()
{
    const QString sections = QStringLiteral("<Type ProductCode='5'>x</Type><Mailbox><CoE SdoInfo='1'/></Mailbox><Fmmu/>"
                                            "<Sm/><Dc><OpMode/></Dc><RxPdo/><TxPdo/><Slots><Slot/></Slots>");
    const struct_EtherCatDevice device =
        readDevice(QStringLiteral("<Other>%1</Other><device>%1</device>").arg(sections));
    QCOMPARE(device.TypeAttributes.Product_Code, 0U);
    QVERIFY(device.TypeAttributes.type.empty());
    QCOMPARE(device.Mailbox.COE.Attributes.SdoInfo, false);
    QVERIFY(device.vFmmu.empty());
    QVERIFY(device.vSM.empty());
    QVERIFY(device.vopmode.empty());
    QVERIFY(device.RxPdo.vpdo.empty());
    QVERIFY(device.TxPdo.vpdo.empty());
    QVERIFY(device.Slots.vslot.empty());

    const struct_EtherCatDevice partMatch = readDevice(QStringLiteral("<MyDevices>%1</MyDevices>").arg(sections));
    QCOMPARE(partMatch.TypeAttributes.Product_Code, 5U);
    QCOMPARE(partMatch.vSM.size(), std::size_t{1});
    QCOMPARE(partMatch.Slots.vslot.size(), std::size_t{1});
}

void tst_WalkDevice::sectionsAreAppended()
{
    const struct_EtherCatDevice device = readDevice(
        "<Sm>MBoxOut</Sm><RxPdo><Name>a</Name></RxPdo><Dc><OpMode/></Dc><Sm>MBoxIn</Sm><RxPdo><Name>b</Name></RxPdo>"
        "<Dc><OpMode/></Dc><Slots><Slot/></Slots><Slots><Slot/></Slots><Type ProductCode='1'/><Type SerialNo='2'/>");
    QCOMPARE(device.vSM.size(), std::size_t{2});
    QCOMPARE(int{device.vSM[1].SM}, 1);
    QCOMPARE(device.RxPdo.vpdo.size(), std::size_t{2});
    QCOMPARE(QString::fromStdString(device.RxPdo.vpdo[1].Name), QStringLiteral("b"));
    QCOMPARE(device.vopmode.size(), std::size_t{2});
    QCOMPARE(device.Slots.vslot.size(), std::size_t{2});
    QCOMPARE(device.TypeAttributes.Product_Code, 1U);
    QCOMPARE(device.TypeAttributes.Serial_No, 2U);
}

void tst_WalkDevice::dictionary_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<int>("dataTypes");
    QTest::addColumn<int>("objects");
    const QString dictionary = QStringLiteral(
        "<Dictionary><DataTypes><DataType/></DataTypes><Objects><Object/><Object/></Objects></Dictionary>");
    QTest::addRow("none") << "<Profile/>" << 0 << 0;
    QTest::addRow("in the profile") << "<Profile>" + dictionary + "</Profile>" << 1 << 2;
    QTest::addRow("before the number of the profile")
        << "<Profile>" + dictionary + "<ProfileNo>402</ProfileNo></Profile>" << 1 << 2;
    QTest::addRow("two of them") << "<Profile>" + dictionary + dictionary + "</Profile>" << 2 << 4;
    QTest::addRow("two profiles") << "<Profile>" + dictionary + "</Profile><Profile>" + dictionary + "</Profile>" << 2
                                  << 4;
    QTest::addRow("two lists of objects")
        << "<Profile><Dictionary><Objects><Object/></Objects><Objects><Object/></Objects></Dictionary></Profile>" << 0
        << 2;
    QTest::addRow("in a channel") << "<Profile><ChannelInfo>" + dictionary + "</ChannelInfo></Profile>" << 0 << 0;
    QTest::addRow("outside of the profile") << dictionary << 0 << 0;
    QTest::addRow("a profile under another parent") << "<Info><Profile>" + dictionary + "</Profile></Info>" << 0 << 0;
    QTest::addRow("lists of other names") << "<Profile><Dictionary><datatypes><DataType/></datatypes><Object/>"
                                             "</Dictionary></Profile>"
                                          << 0 << 0;
}

void tst_WalkDevice::dictionary()
{
    QFETCH(QString, children);
    QFETCH(int, dataTypes);
    QFETCH(int, objects);
    const struct_EtherCatDevice device = readDevice(children);
    QCOMPARE(static_cast<int>(device.Dictionary.vdatatype.size()), dataTypes);
    QCOMPARE(static_cast<int>(device.Dictionary.vobject.size()), objects);
}

void tst_WalkDevice::passesInTheirOrder()
{
    const struct_EtherCatDevice device =
        readDevice("<Sm DefaultSize='128'>MBoxOut</Sm><Sm DefaultSize='9'>Inputs</Sm>"
                   "<TxPdo Sm='1' OSFac='1' OSMin='1' OSMax='11' OSIndexInc='1'><Name>P</Name>"
                   "<Entry><BitLen>16</BitLen></Entry></TxPdo>"
                   "<Slots><Slot SlotIndexIncrement='5'/><Slot SlotIndexIncrement='6'/></Slots>");
    QCOMPARE(device.TxPdo.vpdo.size(), std::size_t{11});
    // The lengths come last, so they count the samples: nine of two bytes, the tenth and eleventh are on none.
    QCOMPARE(device.vSM.at(0).Length, 128.0F);
    QCOMPARE(device.vSM.at(1).Length, 18.0F);
    QCOMPARE(device.Slots.Attributes.SlotIndexIncrement, 5U);
    QCOMPARE(device.Slots.vslot.at(1).Attributes.SlotIndexIncrement, 5U);
}

void tst_WalkDevice::unknownSyncManagerAddsNothing()
{
    g_xmlfiledevices.clear();
    setDocument("<EtherCATInfo><Vendor/><Device><Sm>Outputs</Sm><RxPdo Sm='1'/></Device></EtherCATInfo>");
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(read_xmldevice(QStringLiteral("bad.xml"))), std::out_of_range);
    QVERIFY(g_xmlfiledevices.empty());
}

static const testMain::Registration<tst_WalkDevice, QCoreApplication> registration;
#include "tst_WalkDevice.moc"
