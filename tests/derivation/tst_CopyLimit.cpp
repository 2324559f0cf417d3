// What the passes would make of a file, held against the limit before they run.
#include "derivation/oversampledPdo.h"
#include "esi/derivation/copyLimit.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <string>

class tst_CopyLimit : public QObject
{
    Q_OBJECT

private slots:
    static void usualFile();
    static void samplesOfOnePdo_data();
    static void samplesOfOnePdo();
    static void devicesAddUp();
    static void defaultModules_data();
    static void defaultModules();
};

namespace {

constexpr std::size_t megabyte = 1024 * 1024;

/// A device with a PDO of so many samples, whose name is one megabyte long.
struct_EtherCatDevice deviceWithSamples(int samples)
{
    struct_EtherCatDevice device;
    device.TxPdo.vpdo = {oversampledPdo("", 1, samples)};
    device.TxPdo.vpdo[0].Name.assign(megabyte, 'x');
    return device;
}

} // namespace

void tst_CopyLimit::usualFile()
{
    struct_FilenameDevice file;
    QVERIFY(isWithinCopyLimit(file));
    file.device = {deviceWithSamples(10)};
    QVERIFY(isWithinCopyLimit(file));
}

/// 256 megabytes are the limit, and each sample takes one and a little more.
void tst_CopyLimit::samplesOfOnePdo_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<bool>("isWithin");
    QTest::addRow("255 samples") << 255 << true;
    QTest::addRow("256 samples") << 256 << false;
    QTest::addRow("a range without an end stays as declared") << 65535 << true;
}

void tst_CopyLimit::samplesOfOnePdo()
{
    QFETCH(int, samples);
    QFETCH(bool, isWithin);
    static_assert(maxCopiedBytes == 256 * megabyte);
    struct_FilenameDevice file;
    file.device = {deviceWithSamples(samples)};
    QCOMPARE(isWithinCopyLimit(file), isWithin);
}

void tst_CopyLimit::devicesAddUp()
{
    struct_FilenameDevice file;
    file.device = {deviceWithSamples(128), deviceWithSamples(127)};
    QVERIFY(isWithinCopyLimit(file));
    file.device.push_back(deviceWithSamples(2));
    QVERIFY(!isWithinCopyLimit(file));
}

/// The PDO of a module is copied into the slot and into the list of the device.
void tst_CopyLimit::defaultModules_data()
{
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<bool>("isDefault");
    QTest::addColumn<bool>("isWithin");
    QTest::addRow("127 slots") << 127 << true << true;
    QTest::addRow("128 slots") << 128 << true << false;
    QTest::addRow("modules that are no defaults are not copied") << 1000 << false << true;
}

void tst_CopyLimit::defaultModules()
{
    QFETCH(int, slotCount);
    QFETCH(bool, isDefault);
    QFETCH(bool, isWithin);
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    file.vcommentmodule[0].vmodule.resize(1);
    struct_module& module = file.vcommentmodule[0].vmodule[0];
    module.TypeAttributes.ModuleIdent = 1;
    module.RxPdo.vpdo.resize(1);
    module.RxPdo.vpdo[0].Name.assign(megabyte, 'x');
    struct_Slot slot;
    slot.Attributes.MaxInstances = 1;
    slot.ModuleIdent.resize(1);
    slot.ModuleIdent[0].ModuleIdent = 1;
    slot.ModuleIdent[0].Attributes.Default = isDefault ? 1 : 0;
    file.device.resize(1);
    file.device[0].Slots.vslot.assign(static_cast<std::size_t>(slotCount), slot);
    QCOMPARE(isWithinCopyLimit(file), isWithin);
}

static const testMain::Registration<tst_CopyLimit, QCoreApplication> registration;
#include "tst_CopyLimit.moc"
