// Small files that stand for large ones: what is copied, and what counts several times, stays within its limits.
#include "esi/hostileFile.h"

#include "esi/derivation/copyLimit.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"

#include <QtTest>

#include <sys/resource.h>

#include <cstddef>

class tst_HostileCopies : public QObject
{
    Q_OBJECT

private slots:
    static void init();
    static void tooManyCopies_data();
    static void tooManyCopies();
    static void manyCopies_data();
    static void manyCopies();
    static void defaultModulesOnly();
    static void copiesOfAllDevicesCount();
    static void inEachOther_data();
    static void inEachOther();
    static void besideEachOther();
    static void groupNames_data();
    static void groupNames();
    static void groupNamesInTwoLanguages();
    static void manyListsOfSlots();
    static void manySyncManagersAndPdos();
    static void cleanupTestCase();
};

namespace {

const QByteArray mailbox = "<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>";
const QByteArray entry = "<Entry><Index>#x7000</Index><BitLen>8</BitLen></Entry>";
const QByteArray modularProfile = "<Profile><ProfileNo>5002</ProfileNo></Profile>";
const QString tooMany = QStringLiteral("the PDOs and modules of the file stand for more than 268435456 bytes");

/// A PDO of both directions with this content that stands for some samples.
QByteArray oversampled(int samples, const QByteArray& content)
{
    QByteArray pdos;
    for (const char* direction : {"RxPdo", "TxPdo"})
        pdos += QByteArray("<") + direction + " OSFac='1' OSMin='1' OSMax='" + QByteArray::number(samples)
                + "' OSIndexInc='1'>" + content + "</" + direction + ">";
    return pdos;
}

/// A file with a modular device of some slots, each with the module, and the content of the module.
QByteArray withModules(int slotCount, const QByteArray& module, const QByteArray& slotMarks = "Default='1'")
{
    const QByteArray slot = "<Slot MaxInstances='1'><ModuleIdent " + slotMarks + ">7</ModuleIdent></Slot>";
    return inDevice(mailbox + modularProfile + "<Slots>" + slot.repeated(slotCount) + "</Slots>")
        .replace("</Devices>", "</Devices><Modules><!-- all --><Module><Type ModuleIdent='7'>M</Type>" + module
                                   + "</Module></Modules>");
}

QByteArray dictionary(int objects)
{
    const QByteArray object = "<Object><Index>#x2000</Index><Name>n</Name><Type>UINT</Type></Object>";
    return "<Profile><Dictionary><Objects>" + object.repeated(objects) + "</Objects></Dictionary></Profile>";
}

} // namespace

void tst_HostileCopies::init()
{
    loadOneBefore();
}

void tst_HostileCopies::tooManyCopies_data()
{
    QTest::addColumn<QByteArray>("content");
    const int samples = 65534;
    QTest::addRow("samples with many entries") << inDevice(mailbox + oversampled(samples, entry.repeated(2000)));
    QTest::addRow("samples of many PDOs") << inDevice(oversampled(samples, {}).repeated(1000));
    QTest::addRow("samples with a long name")
        << inDevice(oversampled(samples, "<Name>" + QByteArray(100000, 'x') + "</Name>"));
    QTest::addRow("samples with a long name of an entry")
        << inDevice(oversampled(samples, "<Entry><Name>" + QByteArray(100000, 'x') + "</Name></Entry>"));
    QTest::addRow("modules with many entries") << withModules(9000, "<RxPdo>" + entry.repeated(3000) + "</RxPdo>");
    QTest::addRow("modules with many inputs") << withModules(9000, "<TxPdo>" + entry.repeated(3000) + "</TxPdo>");
    QTest::addRow("modules with many PDOs") << withModules(9000, QByteArray("<TxPdo/>").repeated(3000));
    QTest::addRow("modules with a large dictionary") << withModules(20000, dictionary(3000));
    QTest::addRow("modules with a long name") << withModules(9000, "<Name>" + QByteArray(1000000, 'x') + "</Name>");
    QTest::addRow("modules with many commands") << withModules(
        9000, "<Mailbox><CoE>" + QByteArray("<InitCmd><Index>1</Index></InitCmd>").repeated(3000) + "</CoE></Mailbox>");
    QTest::addRow("one slot with its module many times")
        << withModules(1, dictionary(3000))
               .replace("<ModuleIdent Default='1'>7</ModuleIdent>", QByteArray("<ModuleIdent Default='1'>7"
                                                                               "</ModuleIdent>")
                                                                        .repeated(20000));
    QTest::addRow("sync managers with the same number") << inDevice(
        mailbox + QByteArray("<Sm>Outputs</Sm>").repeated(100000) + QByteArray("<RxPdo Sm='0'/>").repeated(100000));
}

/// Refused before a single copy is made.
void tst_HostileCopies::tooManyCopies()
{
    QFETCH(QByteArray, content);
    const Ending ending = load(content);
    QVERIFY(ending.status == EsiLoadStatus::NotWellFormed);
    QCOMPARE(ending.error.text, tooMany);
    QCOMPARE(ending.error.line, 1);
    QCOMPARE(ending.error.column, 1);
}

void tst_HostileCopies::manyCopies_data()
{
    QTest::addColumn<QByteArray>("content");
    const int samples = sized(16000);
    QTest::addRow("samples with entries") << inDevice(mailbox + oversampled(samples, entry.repeated(8)));
    QTest::addRow("samples of some PDOs") << inDevice(mailbox + oversampled(samples, {}).repeated(5));
    QTest::addRow("modules with entries") << withModules(sized(2200), "<RxPdo>" + entry.repeated(100) + "</RxPdo>");
    QTest::addRow("modules with a dictionary") << withModules(sized(550), dictionary(500));
    QTest::addRow("sync managers with the same number")
        << inDevice(mailbox + QByteArray("<Sm>Outputs</Sm>").repeated(sized(30000))
                    + QByteArray("<RxPdo Sm='0'/>").repeated(sized(3700)));
    QTest::addRow("a range without end, which is not copied")
        << inDevice(mailbox + oversampled(65535, entry.repeated(5000)));
}

/// What comes near the limit is still loaded in time.
void tst_HostileCopies::manyCopies()
{
    QFETCH(QByteArray, content);
    QVERIFY(load(content).status == EsiLoadStatus::Loaded);
    QCOMPARE(g_xmlfiledevices.at(1).device.size(), std::size_t{1});
}

/// Modules that a slot may take but does not have from the start make no copies.
void tst_HostileCopies::defaultModulesOnly()
{
    const QByteArray module = dictionary(3000);
    QVERIFY(load(withModules(20000, module, "Default='0'")).status == EsiLoadStatus::Loaded);
    QVERIFY(loadedDevice().mDictionary.mobject.empty());
    loadOneBefore();
    QVERIFY(load(withModules(20000, module).replace("MaxInstances='1'", "MaxInstances='0'")).status
            == EsiLoadStatus::Loaded);
    QVERIFY(loadedDevice().mDictionary.mobject.empty());
}

/// The limit is one for the file: each of these devices is far below it.
void tst_HostileCopies::copiesOfAllDevicesCount()
{
    const QByteArray device = "<Device>" + oversampled(10000, entry) + "</Device>";
    const QByteArray one = "<EtherCATInfo><Vendor/>" + device + "</EtherCATInfo>";
    QVERIFY(load(one).status == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().RxPdo.vpdo.size(), std::size_t{10000});
    loadOneBefore();
    QCOMPARE(load(QByteArray(one).replace(device, device.repeated(1000))).error.text, tooMany);
}

void tst_HostileCopies::inEachOther_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("message");
    QTest::addRow("devices") << QByteArray("<Device>") << QByteArray("</Device>")
                             << "more than 8 devices stand in each other";
    QTest::addRow("devices apart from each other")
        << QByteArray("<Device><a>") << QByteArray("</a></Device>") << "more than 8 devices stand in each other";
    QTest::addRow("lists of slots") << QByteArray("<Slots>") << QByteArray("</Slots>")
                                    << "more than 8 lists of slots stand in each other";
    QTest::addRow("lists of slots that count as a device's")
        << QByteArray("<Slots><MyDevice>") << QByteArray("</MyDevice></Slots>")
        << "more than 8 lists of slots stand in each other";
}

void tst_HostileCopies::inEachOther()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, end);
    QFETCH(QString, message);
    const auto nested = [&](int depth) {
        return "<EtherCATInfo><Vendor/>" + start.repeated(depth) + "<Slot/>" + end.repeated(depth) + "</EtherCATInfo>";
    };
    QVERIFY(load(nested(maxInEachOther)).status == EsiLoadStatus::Loaded);
    for (const int depth : {maxInEachOther + 1, 400}) {
        loadOneBefore();
        const Ending ending = load(nested(depth));
        QVERIFY(ending.status == EsiLoadStatus::NotWellFormed);
        QCOMPARE(ending.error.text, message);
    }
}

void tst_HostileCopies::besideEachOther()
{
    const QByteArray devices = QByteArray("<Device><Slots><Slot/></Slots></Device>").repeated(1000);
    QVERIFY(load("<EtherCATInfo><Vendor/>" + devices + "</EtherCATInfo>").status == EsiLoadStatus::Loaded);
    QCOMPARE(g_xmlfiledevices.at(1).device.size(), std::size_t{1000});
}

void tst_HostileCopies::groupNames_data()
{
    QTest::addColumn<QByteArray>("content"); // of the device
    QTest::addColumn<bool>("isRead");
    const auto text = [](int length) { return QByteArray(length, 'x'); };
    const auto name = [&](int length) { return "<Name>" + text(length) + "</Name>"; };
    const auto group = [](const QByteArray& content) {
        return "<SlotGroupData SlotGroup='1'>" + content + "</SlotGroupData>";
    };
    const auto inSlots = [](const QByteArray& content) { return "<Slots>" + content + "</Slots>"; };
    const QByteArray slot = "<Slot SlotGroup='1'/>";
    const QByteArray manySlots = slot.repeated(1024); // so 65536 characters are left, 3 of them for an arrow
    QTest::addRow("longest name") << inSlots(manySlots + group(name(65533))) << true;
    QTest::addRow("one character too long") << inSlots(manySlots + group(name(65534))) << false;
    QTest::addRow("one slot too many") << inSlots(slot + manySlots + group(name(65533))) << false;
    QTest::addRow("the slots after the names") << inSlots(group(name(65534)) + manySlots) << false;
    QTest::addRow("several names") << inSlots(manySlots + group(name(4093)).repeated(16)) << true;
    QTest::addRow("several names that are too long together")
        << inSlots(manySlots + group(name(4093)).repeated(15) + group(name(4094))) << false;
    QTest::addRow("arrows alone") << inSlots(manySlots + group(name(0).repeated(21845))) << true; // 65535 characters
    QTest::addRow("too many arrows") << inSlots(manySlots + group(name(0).repeated(21846))) << false;
    QTest::addRow("an element in the name is part of it")
        << inSlots(manySlots + group("<Name>" + text(65532) + "<b>xx</b></Name>")) << false;
    const auto nameInName = [&](int length) { // two arrows, this text, and twice that of the inner name
        return group("<Name>" + group(name(32761)) + text(length) + "</Name>");
    };
    QTest::addRow("a name in a group in the name is part of both") << inSlots(manySlots + nameInName(8)) << true;
    QTest::addRow("a name in a group in the name is too long in both") << inSlots(manySlots + nameInName(9)) << false;
    QTest::addRow("in another list of slots") << inSlots(manySlots) + inSlots(group(name(65534))) << false;
    QTest::addRow("lists of slots in each other, of which each reads the name and the slots")
        << inSlots("<aDevice>" + inSlots(slot.repeated(256) + group(name(65533))) + "</aDevice>") << true;
    QTest::addRow("lists of slots in each other with a name too long")
        << inSlots("<aDevice>" + inSlots(slot.repeated(256) + group(name(65534))) + "</aDevice>") << false;
    QTest::addRow("two devices") << inSlots(manySlots + group(name(32765))) + "</Device><Device>"
                                        + inSlots(manySlots + group(name(32765)))
                                 << true;
    QTest::addRow("two devices with names that are too long together")
        << inSlots(manySlots + group(name(32765))) + "</Device><Device>" + inSlots(manySlots + group(name(32766)))
        << false;
    QTest::addRow("names without slots") << inSlots(group(name(1000000))).repeated(10) << true;
    QTest::addRow("a long text in a group beside its name")
        << inSlots(manySlots + group(name(10) + "<ImageData16x14>" + text(100000) + "</ImageData16x14>")) << true;
    QTest::addRow("a long text beside the groups") << inSlots(manySlots + name(100000)) << true;
    QTest::addRow("a long name of a slot") << inSlots(manySlots + "<Slot>" + name(100000) + "</Slot>") << true;
}

/// The names of the groups of a device, times its slots, make 64 Mi characters at most.
void tst_HostileCopies::groupNames()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isRead);
    const Ending ending = load(inDevice(content));
    QCOMPARE(ending.error.text, isRead ? QString()
                                       : QStringLiteral("the names of the slot groups add more than 67108864 "
                                                        "characters to the names of the slots"));
    QVERIFY(ending.status == (isRead ? EsiLoadStatus::Loaded : EsiLoadStatus::NotWellFormed));
}

/// A large device as somebody might build it.
void tst_HostileCopies::groupNamesInTwoLanguages()
{
    const QByteArray slot = "<Slot SlotGroup='%1'><Name>S</Name></Slot>";
    const QByteArray group = "<SlotGroupData SlotGroup='%1'><Name LcId='1033'>Group %1 of the distributed "
                             "inputs</Name><Name LcId='2052'>\xE7\xAC\xAC %1 \xE7\xBB\x84</Name><ImageData16x14>"
                             + QByteArray(1000, '0') + "</ImageData16x14></SlotGroupData>";
    QVERIFY(load(inDevice("<Slots>" + numbered(slot + slot, 1, 160) + numbered(group, 1, 160) + "</Slots>")).status
            == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().Slots.vslot.size(), std::size_t{320});
    QCOMPARE(QString::fromStdString(loadedDevice().Slots.vslot[319].Name),
             QStringLiteral("S-->Group 160 of the distributed inputs-->第 160 组"));
}

/// A list without groups asks nothing of the slots that came before.
void tst_HostileCopies::manyListsOfSlots()
{
    const int count = sized(200000);
    QVERIFY(load(inDevice("<Slots>" + QByteArray("<Slot/>").repeated(count) + "</Slots>"
                          + QByteArray("<Slots/>").repeated(count)))
                .status
            == EsiLoadStatus::Loaded);
    QCOMPARE(loadedDevice().Slots.vslot.size(), static_cast<std::size_t>(count));
}

/// Sync managers and PDOs in numbers that have nothing to do with each other.
void tst_HostileCopies::manySyncManagersAndPdos()
{
    const QByteArray content = inDevice(mailbox + QByteArray("<Sm>Outputs</Sm>").repeated(sized(100000))
                                        + QByteArray("<RxPdo/>").repeated(sized(100000)));
    QVERIFY(load(content).status == EsiLoadStatus::Loaded);
    QVERIFY(loadedDevice().mMailbox.COE.vinitcmd.empty());
}

void tst_HostileCopies::cleanupTestCase()
{
    g_xmlfiledevices.clear();
    rusage usage{};
    QCOMPARE(getrusage(RUSAGE_SELF, &usage), 0);
    QVERIFY2(usage.ru_maxrss < 2 * 1024 * 1024, "the program took more than 2 GiB"); // the figure is in KiB
}

static const testMain::Registration<tst_HostileCopies, QCoreApplication> registration;
#include "tst_HostileCopies.moc"
