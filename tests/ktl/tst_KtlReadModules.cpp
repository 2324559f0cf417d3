// Modules read back: the group that each one makes, its PDOs and its startup commands.
#include "ktl/ktlReading.h"
#include "testMain.h"

#include <QtTest>

class tst_KtlReadModules : public QObject
{
    Q_OBJECT

private slots:
    void module();
    void modulePdos_data();
    void modulePdos();
    void moduleCommands();
    void duplicates_data();
    void duplicates();
    void itemsOfADuplicateAreDropped();
    void openModuleIsNotLookedAt();
    void itemsWithoutAModule();
};

void tst_KtlReadModules::module()
{
    const Reading reading = readingOf(ktlItem(40013, bytes("44 33 22 11  FE FF FF FF  02 07 08 00")) + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    QCOMPARE(reading.files[0].xmlfilepath, std::string("/ktl/伺服.ktl"));
    QVERIFY(reading.files[0].device.empty());
    QCOMPARE(reading.files[0].vcommentmodule.size(), std::size_t(1));
    const struct_commentmodule& group = reading.files[0].vcommentmodule[0];
    QCOMPARE(group.comment, std::string("Module"));
    QCOMPARE(group.vmodule.size(), std::size_t(1));
    const struct_module& read = group.vmodule[0];
    QCOMPARE(read.TypeAttributes.ModuleIdent, 0x11223344U);
    QCOMPARE(read.TypeAttributes.ModulePdoGroup, -2);
    QVERIFY(read.TypeAttributes.SRA_ParamterSupported);
    QCOMPARE(read.TypeAttributes.Name, std::string("Module"));
    QCOMPARE(read.TypeAttributes.ModuleClass, std::string("Module"));
    QCOMPARE(read.Name, std::string("TEMP"));
    QCOMPARE(read.m_profileNO, 0U);
    QVERIFY(read.RxPdo.vpdo.empty() && read.TxPdo.vpdo.empty() && read.Mailbox.COE.vinitcmd.empty());
}

void tst_KtlReadModules::modulePdos_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<bool>("isOutput");
    QTest::addRow("ModuleTPDOEntry") << 40102U << false;
    QTest::addRow("ModuleRPDOEntry") << 40103U << true;
}

void tst_KtlReadModules::modulePdos()
{
    QFETCH(uint, type);
    QFETCH(bool, isOutput);
    const QByteArray head = bytes("01  02  34 12  02 00 00 00  FD FF FF FF  01 16  78 56");
    const QByteArray first = bytes("02 09  00 70  34 12  08 01  F7 FF FF FF");
    const QByteArray second = bytes("00 00  01 70  02 00  FF FF  00 00 00 00");
    const QByteArray other = ktlItem(type, zeros(20));
    const struct_module module = moduleReadFrom(ktlItem(type, head + le32(2) + first + second) + other);
    const std::vector<modulePdo>& pdos = isOutput ? module.RxPdo.vpdo : module.TxPdo.vpdo;
    QVERIFY((isOutput ? module.TxPdo.vpdo : module.RxPdo.vpdo).empty());
    QCOMPARE(pdos.size(), std::size_t(2));
    QVERIFY(pdos[0].Attributes.Fixed);
    QVERIFY(pdos[0].Attributes.Mandatory);
    QCOMPARE(pdos[0].Attributes.SM, 2);
    QCOMPARE(pdos[0].Attributes.SU, -3);
    QCOMPARE(int(pdos[0].indexAttributes.index), 0x1601);
    QVERIFY(!pdos[0].indexAttributes.DependOnSlot);
    QCOMPARE(pdos[0].Name, std::string(isOutput ? "RPDO" : "TPDO"));
    QCOMPARE(pdos[0].size, 0.0F);
    QCOMPARE(pdos[0].vEntry.size(), std::size_t(2));
    const struct_moduleEntry& entry = pdos[0].vEntry[0];
    QVERIFY(entry.indexAttributes.DependOnSlot);
    QVERIFY(!entry.indexAttributes.m_DependOnSlotGroup);
    QCOMPARE(int(entry.indexAttributes.index), 0x7000);
    QCOMPARE(int(entry.SubIndex), 0x1234);
    QCOMPARE(entry.BitLen, 0x108);
    QCOMPARE(entry.Linkto, -9);
    QCOMPARE(entry.Name, std::string("TEMP"));
    QCOMPARE(entry.DataType, std::string("TEMP"));
    QCOMPARE(entry.Comment, std::string("TEMP"));
    QCOMPARE(entry.Offs, 0.0F);
    QVERIFY(!pdos[0].vEntry[1].indexAttributes.DependOnSlot);
    QCOMPARE(pdos[0].vEntry[1].BitLen, 65535);
    QVERIFY(!pdos[1].Attributes.Fixed);
    QVERIFY(!pdos[1].Attributes.Mandatory);
    QCOMPARE(pdos[1].Attributes.SM, 0);
    QVERIFY(pdos[1].vEntry.empty());
}

void tst_KtlReadModules::moduleCommands()
{
    const QByteArray first = bytes("02 01 01 04  00 80  09 09  02 00  05  01  44 33 22 11");
    const QByteArray second = bytes("00 00 00 FF  01 80  00 00  00 00  FF  00  00 00 00 00");
    const struct_module module = moduleReadFrom(ktlItem(40104, le32(2) + first + second));
    const std::vector<struct_moduleInitCmd>& read = module.Mailbox.COE.vinitcmd;
    QCOMPARE(read.size(), std::size_t(2));
    QVERIFY(read[0].indexAttributes.DependOnSlot);
    QVERIFY(!read[0].indexAttributes.DependOnSlotGroup);
    QVERIFY(!read[0].indexAttributes.AdaptAutomatically);
    QCOMPARE(int(read[0].indexAttributes.index), 0x8000);
    QCOMPARE(int(read[0].SubIndex), 5);
    QCOMPARE(int(read[0].DataBytes), 4);
    QCOMPARE(read[0].Data, 0x11223344U);
    QCOMPARE(int(read[0].Transition), 0);
    QCOMPARE(int(read[0].bIfCA), 0);
    QCOMPARE(read[0].Comment, std::string("IniCmd"));
    QCOMPARE(read[0].strData, std::string("IniCmd"));
    QVERIFY(!read[1].indexAttributes.DependOnSlot);
    QCOMPARE(int(read[1].SubIndex), 255);
    QCOMPARE(int(read[1].DataBytes), 255);
}

void tst_KtlReadModules::duplicates_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QList<uint>>("idents"); // one per group
    const QByteArray device = generalItem();
    const QByteArray end = endItem();
    QTest::addRow("two modules") << device + moduleItem(1) + moduleItem(2) + end << QList<uint>{1, 2};
    QTest::addRow("the same one after the other") << device + moduleItem(1) + moduleItem(1) + end << QList<uint>{1};
    QTest::addRow("again after another") << device + moduleItem(1) + moduleItem(2) + moduleItem(1) + end
                                         << QList<uint>{1, 2};
    QTest::addRow("three times, and one after them")
        << moduleItem(1).repeated(3) + moduleItem(2) + end << QList<uint>{1, 2};
    QTest::addRow("copies of each device of a file")
        << (device + moduleItem(1) + moduleItem(2)).repeated(3) + end << QList<uint>{1, 2};
    QTest::addRow("copies of a device with one module") << (device + moduleItem(7)).repeated(2) + end << QList<uint>{7};
    QTest::addRow("ident 0 is an ident") << device + moduleItem(0) + moduleItem(0) + end << QList<uint>{0};
    QTest::addRow("no module") << device + end << QList<uint>{};
}

void tst_KtlReadModules::duplicates()
{
    QFETCH(QByteArray, file);
    QFETCH(QList<uint>, idents);
    const Reading reading = readingOf(file);
    QCOMPARE(reading.files.size(), std::size_t(1));
    QList<uint> read;
    for (const struct_commentmodule& group : reading.files[0].vcommentmodule) {
        QCOMPARE(group.vmodule.size(), std::size_t(1));
        QCOMPARE(group.comment, std::string("Module"));
        read.append(group.vmodule[0].TypeAttributes.ModuleIdent);
    }
    QCOMPARE(read, idents);
}

/// A ModuleType item with an item of each kind after it.
static QByteArray moduleWithItems(std::uint32_t ident)
{
    return moduleItem(ident) + ktlItem(40103, zeros(20)) + ktlItem(40102, zeros(20))
           + ktlItem(40104, le32(1) + zeros(16));
}

/// They go to no module, not even to the one that was there first.
void tst_KtlReadModules::itemsOfADuplicateAreDropped()
{
    const Reading reading = readingOf((generalItem() + moduleWithItems(1)).repeated(2) + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    QCOMPARE(reading.files[0].device.size(), std::size_t(2));
    QCOMPARE(reading.files[0].vcommentmodule.size(), std::size_t(1));
    const struct_module& read = reading.files[0].vcommentmodule[0].vmodule[0];
    QCOMPARE(read.RxPdo.vpdo.size(), std::size_t(1));
    QCOMPARE(read.TxPdo.vpdo.size(), std::size_t(1));
    QCOMPARE(read.Mailbox.COE.vinitcmd.size(), std::size_t(1));
}

/// Applied by themselves, without anything that closes the group in between, items add up in it.
void tst_KtlReadModules::openModuleIsNotLookedAt()
{
    struct_FilenameDevice file;
    struct_EtherCatDevice device;
    struct_commentmodule modules;
    const QByteArray item = moduleItem(1);
    QVERIFY(device_ktlupdatexmldata(&file, item.constData(), &device, &modules));
    QVERIFY(device_ktlupdatexmldata(&file, item.constData(), &device, &modules));
    QVERIFY(device_ktlupdatexmldata(&file, moduleItem(2).constData(), &device, &modules));
    QCOMPARE(modules.vmodule.size(), std::size_t(3));
    const QByteArray pdo = ktlItem(40102, zeros(20));
    QVERIFY(device_ktlupdatexmldata(&file, pdo.constData(), &device, &modules));
    QCOMPARE(modules.vmodule[2].TxPdo.vpdo.size(), std::size_t(1)); // the last one
    QVERIFY(modules.vmodule[0].TxPdo.vpdo.empty());
    file.vcommentmodule.resize(1); // a closed group without modules is like none
    file.vcommentmodule.push_back(modules);
    struct_commentmodule next;
    QVERIFY(device_ktlupdatexmldata(&file, item.constData(), &device, &next));
    QCOMPARE(next.comment, std::string("Module"));
    QVERIFY(next.vmodule.empty()); // the first of a closed group
    QVERIFY(device_ktlupdatexmldata(&file, moduleItem(2).constData(), &device, &next));
    QCOMPARE(next.vmodule.size(), std::size_t(1)); // not the first of one
}

void tst_KtlReadModules::itemsWithoutAModule()
{
    const QByteArray items = moduleWithItems(1).mid(20);
    const Reading reading = readingOf(items + generalItem() + items + moduleItem(1) + endItem());
    QCOMPARE(reading.files.size(), std::size_t(1));
    QCOMPARE(reading.files[0].device.size(), std::size_t(1));
    QCOMPARE(reading.files[0].vcommentmodule.size(), std::size_t(1));
    const struct_module& read = reading.files[0].vcommentmodule[0].vmodule[0];
    QVERIFY(read.RxPdo.vpdo.empty() && read.TxPdo.vpdo.empty() && read.Mailbox.COE.vinitcmd.empty());
    QVERIFY(reading.files[0].device[0].RxPdo.vpdo.empty());
    QVERIFY(readingOf(items + endItem()).files.empty());
}

static const testMain::Registration<tst_KtlReadModules, QCoreApplication> registration;
#include "tst_KtlReadModules.moc"
