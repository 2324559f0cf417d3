// Device class and number of axes by profile number.
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_DeviceClass : public QObject
{
    Q_OBJECT

private slots:
    static void classOfProfile_data();
    static void classOfProfile();
    static void noDevice();
};

void tst_DeviceClass::classOfProfile_data()
{
    constexpr int untouched = 7; // the axes that the device has before
    QTest::addColumn<int>("profile");
    QTest::addColumn<int>("hasSlots");
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("deviceType");
    QTest::addColumn<int>("axes");
    QTest::addRow("no profile, no slots: I/O block") << 0 << 0 << 0 << 0 << untouched;
    QTest::addRow("no profile, slots: coupler that knows its modules") << 0 << 1 << 3 << 3 << untouched;
    QTest::addRow("drive with slots: an axis per slot") << 402 << 1 << 3 << 2 << 3;
    QTest::addRow("drive with a Slots element but no slot in it") << 402 << 1 << 0 << 2 << 0;
    QTest::addRow("drive with slots, number of slots cut to 16 bits") << 402 << 1 << 65537 << 2 << 1;
    QTest::addRow("drive without slots: one axis") << 402 << 0 << 0 << 1 << 1;
    QTest::addRow("the flag counts for a drive, not the list") << 402 << 0 << 3 << 1 << 1;
    QTest::addRow("modular profile without slots") << 5001 << 0 << 0 << 3 << untouched;
    QTest::addRow("modular profile with slots") << 5001 << 1 << 3 << 3 << untouched;
    QTest::addRow("any other profile without slots") << 401 << 0 << 0 << 4 << untouched;
    QTest::addRow("any other profile with slots") << 5003 << 1 << 3 << 4 << untouched;
    QTest::addRow("negative profile") << -1 << 0 << 0 << 4 << untouched;
    QTest::addRow("any value but 0 means slots") << 402 << -1 << 2 << 2 << 2;
    QTest::addRow("any value but 0 means slots, without a profile") << 0 << 2 << 2 << 3 << untouched;
}

void tst_DeviceClass::classOfProfile()
{
    QFETCH(int, profile);
    QFETCH(int, hasSlots);
    QFETCH(int, slotCount);
    QFETCH(int, deviceType);
    QFETCH(int, axes);
    struct_EtherCatDevice device;
    device.m_iDeviceType = 99;
    device.m_iDriveAxies = 7;
    device.Slots.vslot.resize(static_cast<std::size_t>(slotCount));

    QCOMPARE(SetXmlTypeToDevice(&device, profile, hasSlots), 0);

    QCOMPARE(int{device.m_iDeviceType}, deviceType);
    QCOMPARE(int{device.m_iDriveAxies}, axes);
}

void tst_DeviceClass::noDevice()
{
    QCOMPARE(SetXmlTypeToDevice(nullptr, 402, 1), 10);
}

static const testMain::Registration<tst_DeviceClass, QCoreApplication> registration;
#include "tst_DeviceClass.moc"
