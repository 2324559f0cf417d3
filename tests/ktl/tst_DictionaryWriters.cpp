// Items of the objects by which modules are configured and detected, byte for byte, and the look-ups they rest on.
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "model/dictionaryBuilders.h"
#include "testMain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

namespace {

/// Bytes of a sub-object item as the format has them.
QByteArray subObject(std::uint32_t subIndex, std::uint32_t bits, std::uint32_t access, std::uint32_t minimum = 0,
                     std::uint32_t maximum = 0)
{
    return le32(40012) + le32(28) + le32(subIndex) + le32(bits) + le16(access) + le16(0) + le32(minimum)
           + le32(maximum);
}

/// Bytes of an object item; its size is 0.
QByteArray objectBytes(std::uint32_t type, std::uint32_t index, std::uint32_t bits, std::uint32_t access,
                       std::uint32_t minimum = 0, std::uint32_t maximum = 0)
{
    return le32(type) + le32(0) + le16(index) + le16(0) + le32(bits) + le16(access) + le16(0) + le32(minimum)
           + le32(maximum);
}

const std::uint32_t configItem = 40010;
const std::uint32_t detectItem = 40009;
const std::uint32_t readOnly = 16;
const std::uint32_t readAndWrite = 17;

/// A device with a dictionary; 0xF030 is its configuration, 0xF050 its detection of modules.
struct_EtherCatDevice deviceWith(const std::vector<struct_DataTypes>& dataTypes,
                                 const std::vector<struct_Object>& objects)
{
    struct_EtherCatDevice device;
    device.Dictionary.vdatatype = dataTypes;
    device.Dictionary.vobject = objects;
    device.configindex = 0xF030;
    device.detectindex = 0xF050;
    return device;
}

QByteArray objectsOf(struct_EtherCatDevice device)
{
    return writtenBy([&](std::FILE* out) { KTL_write_device_Objects(out, &device); });
}

struct_KTL_ObjectType scannedObject()
{
    struct_KTL_ObjectType object{};
    object.index = 0xF030;
    object.flags.Access = readOnly;
    return object;
}

/// What a scan of a type writes, for a device and for a module, which write the same.
QByteArray scanOf(const std::vector<struct_DataTypes>& dataTypes, const std::vector<struct_Object>& objects,
                  const std::string& type)
{
    struct_EtherCatDevice device = deviceWith(dataTypes, objects);
    struct_module module;
    module.Dictionary.vdatatype = dataTypes;
    module.Dictionary.vobject = objects;
    const struct_KTL_ObjectType object = scannedObject();
    const QByteArray ofDevice =
        writtenBy([&](std::FILE* out) { KTL_write_device_ObjectScan(out, &device, type, &object); });
    const QByteArray ofModule =
        writtenBy([&](std::FILE* out) { KTL_write_device_ObjectmoduleScan(out, &module, type, &object); });
    return ofDevice == ofModule ? ofDevice : QByteArray("device and module differ");
}

} // namespace

using DataTypes = std::vector<struct_DataTypes>;
using Objects = std::vector<struct_Object>;
Q_DECLARE_METATYPE(DataTypes)
Q_DECLARE_METATYPE(Objects)

class tst_DictionaryWriters : public QObject
{
    Q_OBJECT

private slots:
    void whichObjects_data();
    void whichObjects();
    void objectItem();
    void objectWithItsSubObjects();
    void scan_data();
    void scan();
    void limitsOfASubItem_data();
    void limitsOfASubItem();
    void circle();
    void hugeArray();
    void dataTypeSize();
    void objectInfo();
    void nullArguments();
    void noExportWritesThem();
};

void tst_DictionaryWriters::whichObjects_data()
{
    QTest::addColumn<int>("configIndex");
    QTest::addColumn<int>("detectIndex");
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<QByteArray>("expected");
    const Objects three{object(0xF050, "UDINT"), object(0x1018, "UDINT"), object(0xF030, "UDINT")};
    const QByteArray detect = objectBytes(detectItem, 0xF050, 32, readOnly);
    const QByteArray config = objectBytes(configItem, 0xF030, 32, readOnly);
    QTest::addRow("the two, in the order of the dictionary") << 0xF030 << 0xF050 << three << detect + config;
    QTest::addRow("configuration only") << 0xF030 << 0xF051 << three << config;
    QTest::addRow("detection only") << 0xF031 << 0xF050 << three << detect;
    QTest::addRow("neither") << 0x1000 << 0x2000 << three << QByteArray();
    QTest::addRow("one object for both is the configuration")
        << 0xF030 << 0xF030 << three << objectBytes(configItem, 0xF030, 32, readOnly);
    QTest::addRow("an index that is there twice is written twice")
        << 0xF030 << 0xF050 << Objects{three[2], three[2]} << config + config;
    QTest::addRow("no index entered, no object 0") << 0 << 0 << three << QByteArray();
    QTest::addRow("no index entered, and an object 0")
        << 0 << 0 << Objects{three[0], object(0, "UDINT")} << objectBytes(configItem, 0, 32, readOnly);
    QTest::addRow("no configuration entered, and an object 0")
        << 0 << 0xF050 << Objects{three[0], object(0, "UDINT")} << detect + objectBytes(configItem, 0, 32, readOnly);
    QTest::addRow("no dictionary") << 0xF030 << 0xF050 << Objects{} << QByteArray();
}

void tst_DictionaryWriters::whichObjects()
{
    QFETCH(int, configIndex);
    QFETCH(int, detectIndex);
    QFETCH(Objects, objects);
    QFETCH(QByteArray, expected);
    struct_EtherCatDevice device = deviceWith({}, objects);
    device.configindex = static_cast<std::uint16_t>(configIndex);
    device.detectindex = static_cast<std::uint16_t>(detectIndex);
    QCOMPARE(objectsOf(device).toHex(' '), expected.toHex(' '));
}

/// Every byte of the item. The fifth to eighth are its size, which stays 0; 28 would be "1C 00 00 00".
void tst_DictionaryWriters::objectItem()
{
    struct_Object config = object(0xF030, "UDINT");
    config.BitSize = -2;
    config.flags.Access = static_cast<NMTOKEN>(0x10011);
    config.Info.MinData = 0x11223344;
    config.Info.MaxData = 0x55667788;
    QCOMPARE(objectsOf(deviceWith({}, {config})),
             bytes("4A 9C 00 00  00 00 00 00  30 F0  00 00  FE FF FF FF  11 00  00 00  44 33 22 11  88 77 66 55"));
}

void tst_DictionaryWriters::objectWithItsSubObjects()
{
    const DataTypes dataTypes{record("DTF030", {subItem(0, "USINT"), subItem(1, "UINT"), subItem(2, "UDINT")}),
                              array("DTF050ARR", 1, 2), sized("UINT", 16)};
    const Objects objects{object(0xF030, "DTF030"), object(0xF050, "DTF050ARR")};
    const QByteArray config =
        objectBytes(configItem, 0xF030, 32, readOnly) + subObject(1, 16, readAndWrite) + subObject(2, 16, readAndWrite);
    const QByteArray detect =
        objectBytes(detectItem, 0xF050, 32, readOnly) + subObject(1, 16, readOnly) + subObject(2, 16, readOnly);
    QCOMPARE(objectsOf(deviceWith(dataTypes, objects)).toHex(' '), (config + detect).toHex(' '));
}

void tst_DictionaryWriters::scan_data()
{
    QTest::addColumn<DataTypes>("dataTypes");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("expected");
    const DataTypeSubItem count = subItem(0, "USINT");
    const auto sub = [](std::uint32_t subIndex) { return subObject(subIndex, 16, readAndWrite); };
    const auto element = [](std::uint32_t subIndex) { return subObject(subIndex, 24, readOnly); };
    const struct_DataTypes threeBytes = sized("UINT24", 24);
    const struct_DataTypes two = record("DT1", {count, subItem(1, "UINT"), subItem(2, "UINT")});
    const auto row = [](const char* name, const DataTypes& dataTypes, const char* type, const QByteArray& expected) {
        QTest::addRow("%s", name) << dataTypes << QByteArray(type) << expected;
    };
    row("simple type", {sized("UINT", 16)}, "UINT", {});
    row("a type without DT is not looked up", {record("Pair", {count, subItem(1, "UINT")})}, "Pair", {});
    row("type that the dictionary does not have", {two}, "DT2", {});
    row("whole names only, in their letters", {two}, "DT", {});
    row("record without its first sub-item", {two}, "DT1", sub(1) + sub(2));
    row("the first sub-item has no item whatever its sub-index",
        {record("DT1", {subItem(7, "UINT"), subItem(0, "UINT")})}, "DT1", sub(0));
    row("the sub-index has all its bits", {record("DT1", {count, subItem(0x12345678, "UINT")})}, "DT1",
        sub(0x12345678));
    row("record named twice", {two, sized("UINT", 16), two}, "DT1", sub(1) + sub(2) + sub(1) + sub(2));
    row("nested record comes first and has no item of its own",
        {record("DT2", {count, subItem(4, "DT1"), subItem(5, "UINT")}), two}, "DT2", sub(1) + sub(2) + sub(5));
    row("DT anywhere in the name of a sub-item's type", {record("DT1", {count, subItem(1, "WIDTH")})}, "DT1", {});
    row("array from 1", {array("DT1", 1, 4, "UINT24"), threeBytes}, "DT1",
        element(1) + element(2) + element(3) + element(4));
    row("array from 0 has one more", {array("DT1", 0, 2, "UINT24"), threeBytes}, "DT1",
        element(0) + element(1) + element(2));
    row("array from its last element on", {array("DT1", 3, 3, "UINT24"), threeBytes}, "DT1", element(3));
    row("lower bound above the number of elements", {array("DT1", 4, 3, "UINT24"), threeBytes}, "DT1", {});
    row("base type that is not there has no bits", {array("DT1", 1, 1, "UINT24")}, "DT1", subObject(1, 0, readOnly));
    struct_DataTypes both = array("DT1", 1, 1, "UINT24");
    both.vsubitem = two.vsubitem;
    both.varrayinfo.push_back({10, 12});
    row("sub-items, then the elements of the first bounds", {both, threeBytes}, "DT1", sub(1) + sub(2) + element(1));
    struct_DataTypes wide = record("DT1", {count, subItem(1, "UINT")});
    wide.vsubitem[1].flag.Access = static_cast<NMTOKEN>(0x20010);
    wide.vsubitem[1].BitSize = -1;
    row("low 16 bits of the access, bits as they are", {wide}, "DT1", subObject(1, 0xFFFFFFFF, readOnly));
}

void tst_DictionaryWriters::scan()
{
    QFETCH(DataTypes, dataTypes);
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, expected);
    QCOMPARE(scanOf(dataTypes, {}, type.toStdString()).toHex(' '), expected.toHex(' '));
}

/// An object with limits for each of its sub-items: minimum and maximum of the n-th are 10n + base and 20n + base.
static struct_Object limited(std::uint16_t index, std::uint32_t subItems, std::uint32_t base)
{
    struct_Object made = object(index, "DT1");
    for (std::uint32_t number = 0; number < subItems; ++number) {
        made.Info.vsubitem.emplace_back();
        made.Info.vsubitem.back().Info.Info.MinData = 10 * number + base;
        made.Info.vsubitem.back().Info.Info.MaxData = 20 * number + base;
    }
    return made;
}

void tst_DictionaryWriters::limitsOfASubItem_data()
{
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<uint>("minimum");
    QTest::addColumn<uint>("maximum");
    QTest::addRow("place 2 of the object") << Objects{limited(0xF030, 3, 1000)} << 1020U << 1040U;
    QTest::addRow("too few sub-items") << Objects{limited(0xF030, 2, 1000)} << 0U << 0U;
    QTest::addRow("the first of that index has too few, the second enough")
        << Objects{limited(0xF030, 2, 1000), limited(0xF030, 3, 2000), limited(0xF030, 4, 3000)} << 2020U << 2040U;
    QTest::addRow("another object") << Objects{limited(0xF031, 3, 1000)} << 0U << 0U;
}

/// The object is the one that is written, not one that the name of the type tells of.
void tst_DictionaryWriters::limitsOfASubItem()
{
    QFETCH(Objects, objects);
    QFETCH(uint, minimum);
    QFETCH(uint, maximum);
    const DataTypes dataTypes{record("DTF031", {subItem(0, "USINT"), subItem(2, "UINT")})};
    QCOMPARE(scanOf(dataTypes, objects, "DTF031").toHex(' '),
             subObject(2, 16, readAndWrite, minimum, maximum).toHex(' '));
}

/// Data types that name each other are followed once around.
void tst_DictionaryWriters::circle()
{
    const DataTypes dataTypes{record("DT1", {subItem(0, "USINT"), subItem(1, "DT2"), subItem(2, "UINT")}),
                              record("DT2", {subItem(0, "USINT"), subItem(3, "DT1"), subItem(4, "UINT")})};
    QCOMPARE(scanOf(dataTypes, {}, "DT1").toHex(' '),
             (subObject(4, 16, readAndWrite) + subObject(2, 16, readAndWrite)).toHex(' '));
}

/// An object has no more rows than 16 bits can count; nothing asks for more memory or time than that.
void tst_DictionaryWriters::hugeArray()
{
    QElapsedTimer timer;
    timer.start();
    const QByteArray written = scanOf({array("DT1", 0, std::numeric_limits<int>::max())}, {}, "DT1");
    QCOMPARE(written.size(), 65536 * 28);
    QCOMPARE(written.right(28), subObject(65535, 0, readOnly));
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void tst_DictionaryWriters::dataTypeSize()
{
    struct_EtherCatDevice device = deviceWith({sized("UINT", 16), sized("uint", 8), sized("UINT", 99)}, {});
    struct_module module;
    module.Dictionary.vdatatype = {sized("UINT", 12)};
    QCOMPARE(KTL_get_device_datatypeSize(&device, "UINT"), 16); // the first of that name
    QCOMPARE(KTL_get_device_datatypeSize(&device, "uint"), 8);
    QCOMPARE(KTL_get_device_datatypeSize(&device, "UIN"), 0);
    QCOMPARE(KTL_get_device_datatypeSize(&device, ""), 0);
    QCOMPARE(KTL_get_device_datatypemoduleSize(&module, "UINT"), 12);
    QCOMPARE(KTL_get_device_datatypemoduleSize(&module, "uint"), 0);
}

void tst_DictionaryWriters::objectInfo()
{
    const Objects objects{objectWithDefaults(0xF030, "DT1", {7}), objectWithDefaults(0xF030, "DT1", {8, 9})};
    struct_EtherCatDevice device = deviceWith({}, objects);
    struct_module module;
    module.Dictionary.vobject = objects;
    QCOMPARE(KTL_get_device_objectInfo(&device, 0xF030, 0).DefaultValue, 7U);
    QCOMPARE(KTL_get_device_objectInfo(&device, 0xF030, 1).DefaultString, std::string("text 9"));
    QCOMPARE(KTL_get_device_objectmoduleInfo(&module, 0xF030, 0).DefaultValue, 7U);
    QCOMPARE(KTL_get_device_objectmoduleInfo(&module, 0xF030, 1).DefaultString, std::string("text 9"));
    const std::vector<str_Info> empty{KTL_get_device_objectInfo(&device, 0xF030, 2),
                                      KTL_get_device_objectInfo(&device, 0x1F030, 0),
                                      KTL_get_device_objectmoduleInfo(&module, 0xF031, 0)};
    for (const str_Info& info : empty) {
        QCOMPARE(info.DefaultString, std::string());
        QCOMPARE(info.DefaultValue, 0U);
        QCOMPARE(info.MinData, 0U);
        QCOMPARE(info.MaxData, 0U);
        QVERIFY(info.vsubitem.empty());
    }
}

void tst_DictionaryWriters::nullArguments()
{
    struct_EtherCatDevice device = deviceWith({array("DT1", 1, 1)}, {object(0xF030, "DT1")});
    struct_module module;
    module.Dictionary.vdatatype = device.Dictionary.vdatatype;
    const struct_KTL_ObjectType object = scannedObject();
    KTL_write_device_Objects(nullptr, &device);
    KTL_write_device_ObjectScan(nullptr, &device, "DT1", &object);
    KTL_write_device_ObjectmoduleScan(nullptr, &module, "DT1", &object);
    const QByteArray written = writtenBy([&](std::FILE* out) {
        KTL_write_device_Objects(out, nullptr);
        KTL_write_device_ObjectScan(out, nullptr, "DT1", &object);
        KTL_write_device_ObjectScan(out, &device, "DT1", nullptr);
        KTL_write_device_ObjectmoduleScan(out, nullptr, "DT1", &object);
        KTL_write_device_ObjectmoduleScan(out, &module, "DT1", nullptr);
    });
    QCOMPARE(written, QByteArray());
    QCOMPARE(KTL_get_device_datatypeSize(nullptr, "DT1"), 0);
    QCOMPARE(KTL_get_device_datatypemoduleSize(nullptr, "DT1"), 0);
    QCOMPARE(KTL_get_device_objectInfo(nullptr, 0, 0).DefaultValue, 0U);
    QCOMPARE(KTL_get_device_objectmoduleInfo(nullptr, 0, 0).DefaultValue, 0U);
}

void tst_DictionaryWriters::noExportWritesThem()
{
    std::vector<struct_FilenameDevice> files(1);
    files[0].device = {deviceWith({array("DT1", 1, 1)}, {object(0xF030, "DT1"), object(0xF050, "DT1")})};
    const auto all = [](std::size_t /*file*/, std::size_t /*device*/) { return true; };
    int code = 0;
    const QByteArray written = writtenBy([&](std::FILE* out) { QVERIFY(writeDevices(out, files, all, &code)); });
    QCOMPARE(written.size(), 52 + 12 + 16 + 12); // General, EoE, CoE and end
}

static const testMain::Registration<tst_DictionaryWriters, QCoreApplication> registration;
#include "tst_DictionaryWriters.moc"
