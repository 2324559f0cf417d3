// Small files that stand for large ones: what is copied, and what counts several times, stays within its limits.
#include "esi/hostileFile.h"

#include "esi/derivation/copyLimit.h"
#include "esi/xmlLimits.h"

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
    static void manySyncManagersAndPdos();
    static void cleanupTestCase();
};

namespace {

const QByteArray mailbox = "<Mailbox><CoE PdoAssign='1' PdoConfig='1'/></Mailbox>";
const QByteArray entry = "<Entry><Index>#x7000</Index><BitLen>8</BitLen></Entry>";
const QByteArray modularProfile = "<Profile><ProfileNo>5002</ProfileNo></Profile>";
const QString tooMany = QStringLiteral("the PDOs and modules of the file stand for more than 1073741824 bytes");

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
    QCOMPARE(ending.error.message, tooMany);
    QCOMPARE(ending.error.line, 1);
    QCOMPARE(ending.error.column, 1);
}

void tst_HostileCopies::manyCopies_data()
{
    QTest::addColumn<QByteArray>("content");
    const int samples = sized(65000);
    QTest::addRow("samples with entries") << inDevice(mailbox + oversampled(samples, entry.repeated(8)));
    QTest::addRow("samples of some PDOs") << inDevice(mailbox + oversampled(samples, {}).repeated(5));
    QTest::addRow("modules with entries") << withModules(sized(9000), "<RxPdo>" + entry.repeated(100) + "</RxPdo>");
    QTest::addRow("modules with a dictionary") << withModules(sized(2200), dictionary(500));
    QTest::addRow("sync managers with the same number")
        << inDevice(mailbox + QByteArray("<Sm>Outputs</Sm>").repeated(sized(30000))
                    + QByteArray("<RxPdo Sm='0'/>").repeated(sized(15000)));
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
    QCOMPARE(load(QByteArray(one).replace(device, device.repeated(1000))).error.message, tooMany);
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
    QVERIFY(load(nested(mostInEachOther)).status == EsiLoadStatus::Loaded);
    for (const int depth : {mostInEachOther + 1, 400}) {
        loadOneBefore();
        const Ending ending = load(nested(depth));
        QVERIFY(ending.status == EsiLoadStatus::NotWellFormed);
        QCOMPARE(ending.error.message, message);
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
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<bool>("isRead");
    const auto group = [](int length) {
        return "<SlotGroupData SlotGroup='1'><Name>" + QByteArray(length, 'x') + "</Name></SlotGroupData>";
    };
    QTest::addRow("longest name") << group(longestGroupNames) << true;
    QTest::addRow("one character too long") << group(longestGroupNames + 1) << false;
    QTest::addRow("several names that are too long together") << group(1000).repeated(5) << false;
    QTest::addRow("as many in another list of slots")
        << group(3000) + "</Slots><Slots>" + group(3000) + "<Slot SlotGroup='1'/>" << true;
    QTest::addRow("lists of slots inside of one") << ("<Slots>" + group(3000) + "</Slots>").repeated(2) << false;
    QTest::addRow("a long text beside the groups") << "<Name>" + QByteArray(100000, 'x') + "</Name>" << true;
}

void tst_HostileCopies::groupNames()
{
    QFETCH(QByteArray, groups);
    QFETCH(bool, isRead);
    const Ending ending = load(inDevice("<Slots>" + groups + "<Slot SlotGroup='1'/></Slots>"));
    QVERIFY(ending.status == (isRead ? EsiLoadStatus::Loaded : EsiLoadStatus::NotWellFormed));
    QCOMPARE(ending.error.message,
             isRead ? QString() : QStringLiteral("the names of the slot groups are longer than 4096 characters"));
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

QTEST_GUILESS_MAIN(tst_HostileCopies)
#include "tst_HostileCopies.moc"
