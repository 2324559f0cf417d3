// Selectors of devices: which devices they mean, why one cannot be used, and which devices may have been meant.
#include "choices/deviceSelectors.h"

#include "testMain.h"

class tst_DeviceSelectors : public QObject
{
    Q_OBJECT

private slots:
    static void devices_data();
    static void devices();
    static void problems_data();
    static void problems();
    static void onlyOneDevice();
    static void noDeviceAtAll();
    static void candidates_data();
    static void candidates();
    static void candidatesAreCut();
    static void labels();
};

namespace {

struct_EtherCatDevice deviceOf(const char* name, const char* type, std::uint32_t product, std::uint32_t revision)
{
    struct_EtherCatDevice device;
    device.Name = name;
    device.TypeAttributes.type = type;
    device.TypeAttributes.Product_Code = product;
    device.TypeAttributes.Revision_No = revision;
    return device;
}

/// Two devices of vendor 0x10, and two of vendor 0x20.
std::vector<struct_FilenameDevice> twoFiles()
{
    std::vector<struct_FilenameDevice> files(2);
    files[0].Vendor_Id = 0x10;
    files[0].device = {deviceOf("Drive", "D-1", 1, 1), deviceOf("Drive", "D-2", 1, 2)};
    files[1].Vendor_Id = 0x20;
    files[1].device = {deviceOf("Coupler", "Coupler", 5, 1), deviceOf("7", "K-7", 6, 1)};
    return files;
}

/// "file.device" of each, in their order.
QString placesOf(const choices::MeantDevices& meant)
{
    QStringList places;
    for (const auto& [file, device] : meant.devices)
        places += QStringLiteral("%1.%2").arg(file).arg(device);
    return places.join(QLatin1Char(' '));
}

const QString first = QStringLiteral(R"(device 1 "Drive" (0x10:0x1:0x1), type "D-1")");
const QString second = QStringLiteral(R"(device 2 "Drive" (0x10:0x1:0x2), type "D-2")");
const QString third = QStringLiteral(R"(device 3 "Coupler" (0x20:0x5:0x1))");
const QString fourth = QStringLiteral(R"(device 4 "7" (0x20:0x6:0x1), type "K-7")");

} // namespace

void tst_DeviceSelectors::devices_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("places");
    QTest::addRow("number over all files") << "3"
                                           << "1.0";
    QTest::addRow("type") << "D-2"
                          << "0.1";
    QTest::addRow("name that is the type too") << "Coupler"
                                               << "1.0";
    QTest::addRow("identity") << "0x10:0x1:0x2"
                              << "0.1";
    QTest::addRow("identity in other forms") << "16:#x1:2"
                                             << "0.1";
    QTest::addRow("vendor and product") << "0x20:5"
                                        << "1.0";
    QTest::addRow("pattern of names") << "Dri*"
                                      << "0.0 0.1";
    QTest::addRow("pattern of types") << "*-*"
                                      << "0.0 0.1 1.1";
    QTest::addRow("any device of a vendor") << "0x20:*"
                                            << "1.0 1.1";
    QTest::addRow("any device with a revision") << "*:*:1"
                                                << "0.0 1.0 1.1";
    QTest::addRow("all") << "*"
                         << "0.0 0.1 1.0 1.1";
}

void tst_DeviceSelectors::devices()
{
    QFETCH(QString, selector);
    const std::vector<struct_FilenameDevice> files = twoFiles();
    const choices::MeantDevices meant = choices::DeviceSelectors(files).devicesOf(selector);
    QCOMPARE(meant.problem, QString());
    QTEST(placesOf(meant), "places");
    QCOMPARE(meant.count, meant.devices.size());
}

void tst_DeviceSelectors::problems_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("problem");
    QTest::addRow("digits are never a name") << "7" << 0 << "there is no device 7: the numbers go from 1 to 4";
    QTest::addRow("numbers begin with 1") << "0" << 0 << "there is no device 0: the numbers go from 1 to 4";
    QTest::addRow("empty") << "" << 0 << "a selector of a device is empty";
    QTest::addRow("case counts") << "drive" << 0 << "no device of the given files is \"drive\"";
    QTest::addRow("name of two") << "Drive" << 2 << "\"Drive\" means 2 devices instead of one";
    QTest::addRow("identity of two") << "0x10:1" << 2 << "\"0x10:1\" means 2 devices instead of one";
    QTest::addRow("another revision") << "0x20:5:2" << 0 << "no device of the given files is \"0x20:5:2\"";
    QTest::addRow("pattern of none") << "X*" << 0 << "no device of the given files is \"X*\"";
    QTest::addRow("range") << "1-3" << 0
                           << "no device of the given files is \"1-3\"; a selector takes no list and no range of "
                              "numbers; each device has one of its own";
}

void tst_DeviceSelectors::problems()
{
    QFETCH(QString, selector);
    const std::vector<struct_FilenameDevice> files = twoFiles();
    const choices::MeantDevices meant = choices::DeviceSelectors(files).devicesOf(selector);
    QTEST(meant.problem, "problem");
    QTEST(static_cast<int>(meant.count), "count");
    QVERIFY(meant.devices.empty());
}

/// Where one device is asked for, a pattern has to fit one only.
void tst_DeviceSelectors::onlyOneDevice()
{
    const std::vector<struct_FilenameDevice> files = twoFiles();
    const choices::DeviceSelectors selectors(files);
    QCOMPARE(placesOf(selectors.deviceOf("K*")), QStringLiteral("1.1"));
    QCOMPARE(selectors.deviceOf("D*").problem, QStringLiteral("\"D*\" means 2 devices instead of one"));
}

void tst_DeviceSelectors::noDeviceAtAll()
{
    const std::vector<struct_FilenameDevice> files;
    QCOMPARE(choices::DeviceSelectors(files).devicesOf("1").problem, QStringLiteral("the given files hold no device"));
}

void tst_DeviceSelectors::candidates_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QStringList>("lines");
    QTest::addRow("all that it means") << "Drive" << QStringList{first, second};
    QTest::addRow("a letter is missing") << "Couplr" << QStringList{third};
    QTest::addRow("case does not count") << "COUPLER" << QStringList{third};
    QTest::addRow("another word") << "Gateway" << QStringList();
    // Two digits are others for the drives, one for the coupler.
    QTest::addRow("identities by their distance") << "0x20:0x6:0x9" << QStringList{fourth, third, first, second};
    QTest::addRow("an identity of another kind") << "0x7e570002:0x5001" << QStringList();
    QTest::addRow("none for a number") << "9" << QStringList();
    QTest::addRow("none for a pattern") << "Couplr*" << QStringList();
    QTest::addRow("none for nothing") << "" << QStringList();
}

void tst_DeviceSelectors::candidates()
{
    QFETCH(QString, selector);
    const std::vector<struct_FilenameDevice> files = twoFiles();
    QTEST(choices::DeviceSelectors(files).candidatesOf(selector, 20), "lines");
}

void tst_DeviceSelectors::candidatesAreCut()
{
    const std::vector<struct_FilenameDevice> files = twoFiles();
    QCOMPARE(choices::DeviceSelectors(files).candidatesOf("Drive", 1),
             (QStringList{first, QStringLiteral("... and 1 more")}));
}

void tst_DeviceSelectors::labels()
{
    const std::vector<struct_FilenameDevice> files = twoFiles();
    QCOMPARE(choices::DeviceSelectors(files).labelOf({1, 1}), QStringLiteral("device 4 \"7\" (0x20:0x6:0x1)"));
}

static const testMain::Registration<tst_DeviceSelectors, testMain::NoApplication> registration;
#include "tst_DeviceSelectors.moc"
