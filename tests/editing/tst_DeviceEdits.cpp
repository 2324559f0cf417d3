// What selecting a device does to it, and its settings, without a window.
#include "editing/deviceEdits.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QtTest>

class tst_DeviceEdits : public QObject
{
    Q_OBJECT

private slots:
    static void axesOfSelection_data();
    static void axesOfSelection();
    static void chosenType_data();
    static void chosenType();
    static void entryThatIsCurrent();
    static void listStaysAtTheChosenType();
    static void chosenTypeOnly();
    static void typedAxes_data();
    static void typedAxes();
    static void possibleAxes_data();
    static void possibleAxes();
    static void operationModes_data();
    static void operationModes();
    static void moduleIndexes();
    static void minimumSize();
    static void typesWithModuleIndexes_data();
    static void typesWithModuleIndexes();
};

/// A device with four slots, two of them named as axes; without slot groups all four count.
static struct_EtherCatDevice deviceWithSlots(int type, std::uint16_t axes)
{
    struct_EtherCatDevice device = deviceOfType(type);
    device.m_iDriveAxies = axes;
    device.Slots.vslot.resize(4);
    return device;
}

void tst_DeviceEdits::axesOfSelection_data()
{
    QTest::addColumn<int>("before"); // type of the device that was selected before, -1 for none
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("axes");
    QTest::addRow("the list starts at the first type") << -1 << 0 << 7;
    QTest::addRow("a single drive has one") << -1 << 1 << 1;
    QTest::addRow("a multi-axis drive keeps its axes") << -1 << 2 << 7;
    QTest::addRow("a coupler has none") << -1 << 3 << 0;
    QTest::addRow("a special device has none") << -1 << 4 << 0;
    QTest::addRow("a preset coupler has none") << -1 << 5 << 0;
    QTest::addRow("the list is at the type already") << 4 << 4 << 7;
    QTest::addRow("the list comes back to the first type") << 4 << 0 << 0;
    QTest::addRow("a type that the list does not have") << 4 << 6 << 7;
}

void tst_DeviceEdits::axesOfSelection()
{
    QFETCH(int, before);
    QFETCH(int, type);
    QFETCH(int, axes);
    DeviceClicks selection;
    struct_EtherCatDevice earlier = deviceOfType(before);
    if (before >= 0)
        selection.select(earlier);
    struct_EtherCatDevice device = deviceWithSlots(type, 7);
    selection.select(device);
    QCOMPARE(int(device.m_iDriveAxies), axes);
    QCOMPARE(int(device.m_iDeviceType), type);
}

void tst_DeviceEdits::chosenType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("axes");
    QTest::addRow("block") << 0 << 0;
    QTest::addRow("single drive") << 1 << 1;
    QTest::addRow("multi-axis drive counts its slots") << 2 << 4;
    QTest::addRow("coupler") << 3 << 0;
    QTest::addRow("special") << 4 << 0;
}

void tst_DeviceEdits::chosenType()
{
    QFETCH(int, type);
    QFETCH(int, axes);
    DeviceClicks selection;
    struct_EtherCatDevice device = deviceWithSlots(5, 7);
    selection.select(device);
    QVERIFY(selection.chooseType(device, static_cast<std::uint16_t>(type)));
    QCOMPARE(int(device.m_iDeviceType), type);
    QCOMPARE(int(device.m_iDriveAxies), axes);
}

void tst_DeviceEdits::entryThatIsCurrent()
{
    DeviceClicks selection;
    struct_EtherCatDevice device = deviceWithSlots(2, 7);
    selection.select(device);
    QVERIFY(!selection.chooseType(device, 2));
    QCOMPARE(int(device.m_iDriveAxies), 7); // not counted by the slots
}

/// The choice moves the list, so the next device of that type keeps its axes, and one of the former type does not.
void tst_DeviceEdits::listStaysAtTheChosenType()
{
    for (const auto& [type, axes] : {std::pair(4, 7), std::pair(0, 0)}) {
        DeviceClicks selection;
        struct_EtherCatDevice device = deviceWithSlots(0, 7);
        selection.select(device);
        QVERIFY(selection.chooseType(device, 4));
        struct_EtherCatDevice next = deviceWithSlots(type, 7);
        selection.select(next);
        QCOMPARE(int(next.m_iDriveAxies), axes);
    }
}

/// Only type and axes change, also where the type is the current entry of the list; the list moves along.
void tst_DeviceEdits::chosenTypeOnly()
{
    DeviceClicks selection;
    struct_EtherCatDevice device = deviceWithSlots(4, 7);
    selection.select(device);
    device.mTxPdo.mpdo.resize(2);
    for (const auto& [type, axes] : {std::pair(4, 0), std::pair(2, 4), std::pair(1, 1)}) {
        device.m_iDriveAxies = 7;
        selection.chooseTypeOnly(device, static_cast<std::uint16_t>(type));
        QCOMPARE(int(device.m_iDeviceType), type);
        QCOMPARE(int(device.m_iDriveAxies), axes);
        QCOMPARE(device.mTxPdo.mpdo.size(), std::size_t(2));
        struct_EtherCatDevice next = deviceWithSlots(type, 7);
        DeviceClicks copy = selection;
        copy.select(next);
        QCOMPARE(int(next.m_iDriveAxies), 7);
    }
}

void tst_DeviceEdits::typedAxes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<unsigned int>("typed");
    QTest::addColumn<int>("axes");
    QTest::addRow("multi-axis drive") << 2 << 3U << 3;
    QTest::addRow("16 bits are held") << 2 << 0x10005U << 5;
    QTest::addRow("single drive has none to set") << 1 << 3U << 0;
    QTest::addRow("special device") << 4 << 3U << 0;
}

void tst_DeviceEdits::typedAxes()
{
    QFETCH(int, type);
    QFETCH(unsigned int, typed);
    QFETCH(int, axes);
    struct_EtherCatDevice device = deviceWithSlots(type, 7);
    setDriveAxes(device, typed);
    QCOMPARE(int(device.m_iDriveAxies), axes);
}

void tst_DeviceEdits::possibleAxes_data()
{
    QTest::addColumn<int>("loadedType");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("taken"); // of the axes from 0 to 9
    QTest::addRow("its own, those of the file, and none of its type") << 4 << 4 << "0 5 7";
    QTest::addRow("a single drive of the file") << 1 << 1 << "0 1 5 7";
    QTest::addRow("its own and none with another type") << 0 << 4 << "0 7";
    QTest::addRow("any of a multi-axis drive") << 4 << 2 << "0 1 2 3 4 5 6 7 8 9";
}

/// A device that has seven axes now, and five in the file.
void tst_DeviceEdits::possibleAxes()
{
    QFETCH(int, loadedType);
    QFETCH(int, type);
    QStringList taken;
    for (std::uint16_t axes = 0; axes < 10; ++axes) {
        struct_EtherCatDevice device = deviceWithSlots(type, 7);
        const bool isTaken = chooseDriveAxes(device, axes, {static_cast<std::uint16_t>(loadedType), 5});
        QCOMPARE(int(device.m_iDriveAxies), isTaken ? int(axes) : 7);
        if (isTaken)
            taken += QString::number(axes);
    }
    QTEST(taken.join(' '), "taken");
    const struct_EtherCatDevice device = deviceWithSlots(type, 7);
    QCOMPARE(int(typeAndAxesOf(device).deviceType), type);
    QCOMPARE(int(typeAndAxesOf(device).driveAxes), 7);
}

void tst_DeviceEdits::operationModes_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("isChosen");
    QTest::addColumn<QString>("modes");
    QTest::addRow("first stays") << 0 << true << "abc";
    QTest::addRow("second") << 1 << true << "bac";
    QTest::addRow("third changes places with the first") << 2 << true << "cba";
    QTest::addRow("there is no fourth") << 3 << false << "abc";
}

void tst_DeviceEdits::operationModes()
{
    QFETCH(int, position);
    QFETCH(bool, isChosen);
    QFETCH(QString, modes);
    struct_EtherCatDevice device;
    for (const char* name : {"a", "b", "c"}) {
        device.vopmode.emplace_back();
        device.vopmode.back().Name = name;
    }
    QCOMPARE(chooseOperationMode(device, std::size_t(position)), isChosen);
    QString order;
    for (const Struct_DCOpMode& mode : device.vopmode)
        order += QString::fromStdString(mode.Name);
    QCOMPARE(order, modes);
}

void tst_DeviceEdits::moduleIndexes()
{
    struct_EtherCatDevice device;
    setModuleIndexes(device, 0x1F030, 0x1F050); // 16 bits are held
    QCOMPARE(int(device.configindex), 0xF030);
    QCOMPARE(int(device.detectindex), 0xF050);
}

void tst_DeviceEdits::minimumSize()
{
    struct_SM syncManager;
    syncManager.Attributes.MaxSize = 3;
    setMinSize(syncManager, 65535);
    QCOMPARE(int(syncManager.Attributes.MinSize), 65535); // also above the maximum size
    setMinSize(syncManager, 0x10005); // 16 bits are held
    QCOMPARE(int(syncManager.Attributes.MinSize), 5);
    QCOMPARE(int(syncManager.Attributes.MaxSize), 3);
}

void tst_DeviceEdits::typesWithModuleIndexes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("takes");
    for (const int type : {0, 1, 2, 5})
        QTest::addRow("type %d has none", type) << type << false;
    for (const int type : {3, 4})
        QTest::addRow("type %d has them", type) << type << true;
}

void tst_DeviceEdits::typesWithModuleIndexes()
{
    QFETCH(int, type);
    QFETCH(bool, takes);
    QCOMPARE(takesModuleIndexes(static_cast<std::uint16_t>(type)), takes);
}

static const testMain::Registration<tst_DeviceEdits, QCoreApplication> registration;
#include "tst_DeviceEdits.moc"
