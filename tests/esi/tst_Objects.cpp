// The `Objects` element of a dictionary. Every test runs for the dictionary of a device and of a module.
// Covers dictionarySections.cpp.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <vector>

class tst_Objects : public QObject
{
    Q_OBJECT

private slots:
    static void object();
    static void index_data();
    static void index();
    static void flags();
    static void access_data();
    static void access();
    static void defaultData_data();
    static void defaultData();
    static void subItem();
    static void subItemDefault_data();
    static void subItemDefault();
    static void limits_data();
    static void limits();
    static void limitsOfTheObject();
    static void nestedSubItem();
    static void subItemsInDocumentOrder();
    static void anyTagIsAnObject();
    static void emptyObjectIsAppendedCleared();
    static void laterValueCounts();
    static void namesAreExact();
    static void attributesAreNotRead();
    static void secondElementAppends();
    static void nullPointers();
};

namespace {

/// All fields of default and limits as one text.
QString described(const struct_ObjectInfo& info)
{
    QStringList parts{QStringLiteral("'%1' %2 %3..%4")
                          .arg(text(info.DefaultString), QString::number(info.DefaultValue, 16))
                          .arg(info.MinData)
                          .arg(info.MaxData)};
    for (const struct_Subitem& item : info.vsubitem)
        parts << QStringLiteral("%1 (%2)").arg(text(item.Name), described(item.Info.Info));
    return parts.join('|');
}

/// All fields of an object as one text.
QString described(const struct_Object& object)
{
    const ObjectFlags& flags = object.flags;
    return QStringLiteral("%1 %2 %3 %4 %5")
               .arg(object.index, 0, 16)
               .arg(text(object.Name), text(object.Type), text(object.Comment))
               .arg(object.BitSize)
           + QStringLiteral(" flags %1 %2 %3 %4 %5 %6 %7 ")
                 .arg(flags.Access)
                 .arg(flags.Category)
                 .arg(flags.PdoMapping)
                 .arg(flags.SafetyMapping)
                 .arg(flags.SdoAccess)
                 .arg(flags.Backup)
                 .arg(flags.Setting)
           + described(object.Info);
}

QStringList described(const std::vector<struct_Object>& objects)
{
    QStringList parts;
    for (const struct_Object& object : objects)
        parts << described(object);
    return parts;
}

/// `described` for an object of which only the name is known.
QString onlyNamed(const QString& name)
{
    return QStringLiteral("0 %1   0 flags 0 0 0 0 0 0 0 '' 0 0..0").arg(name);
}

/// The objects that both readers make of the same XML; they must not differ in anything but the list.
std::vector<struct_Object> objectsOf(const QString& children)
{
    const QString xml = QStringLiteral("<Objects>%1</Objects>").arg(children);
    std::vector<struct_Object> ofDevice = readSection(read_device_Objects, xml).Dictionary.vobject;
    const struct_module module = readSection(read_device_moduleObjects, xml);
    if (described(ofDevice) != described(module.Dictionary.vobject) || !module.Dictionary.vdatatype.empty())
        qFatal("the readers of device and module differ on %s", qPrintable(xml));
    return ofDevice;
}

/// The one object with these children.
struct_Object objectOf(const QString& children)
{
    return objectsOf(QStringLiteral("<Object>%1</Object>").arg(children)).at(0);
}

/// The one sub-item with these children, of an object of that type.
struct_Subitem subItemOf(const QString& children, const QString& typeOfObject = QStringLiteral("DT2000"))
{
    return objectOf(QStringLiteral("<Type>%1</Type><Info><SubItem>%2</SubItem></Info>").arg(typeOfObject, children))
        .Info.vsubitem.at(0);
}

} // namespace

void tst_Objects::object()
{
    const struct_Object object =
        objectOf("<Index>#x6040</Index><Name>Controlword</Name><Comment>state machine</Comment><Type>UINT</Type>"
                 "<BitSize>16</BitSize><Info><DefaultData>0100</DefaultData></Info><Properties>not read</Properties>");
    QCOMPARE(int{object.index}, 0x6040);
    QCOMPARE(text(object.Name), QStringLiteral("Controlword"));
    QCOMPARE(text(object.Comment), QStringLiteral("state machine"));
    QCOMPARE(text(object.Type), QStringLiteral("UINT"));
    QCOMPARE(object.BitSize, 16);
    QCOMPARE(object.Info.DefaultValue, 1U);
    QVERIFY(object.Info.DefaultString.empty());
    QVERIFY(object.Info.vsubitem.empty());
}

void tst_Objects::index_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("hexadecimal") << "#x1018" << 0x1018;
    QTest::addRow("decimal") << "4120" << 0x1018;
    QTest::addRow("cut to 16 bits") << "#x12345" << 0x2345;
    QTest::addRow("no number") << "none" << 0;
}

void tst_Objects::index()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    QCOMPARE(int{objectOf(QStringLiteral("<Index>%1</Index>").arg(value)).index}, expected);
}

void tst_Objects::flags()
{
    const ObjectFlags flags =
        objectOf("<Flags><Access>rw</Access><Category>o</Category><PdoMapping>R</PdoMapping><SafetyMapping>T"
                 "</SafetyMapping><SdoAccess>ro</SdoAccess><Backup>1</Backup><Setting>#x10</Setting></Flags>")
            .flags;
    QCOMPARE(flags.Access, rw);
    QCOMPARE(flags.Category, o);
    QCOMPARE(flags.PdoMapping, UnknownType); // these three are never read
    QCOMPARE(flags.SafetyMapping, UnknownType);
    QCOMPARE(flags.SdoAccess, UnknownType);
    QCOMPARE(flags.Backup, 1);
    QCOMPARE(flags.Setting, 16);
}

void tst_Objects::access_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("lower case") << "rw" << int{rw};
    QTest::addRow("upper case") << "RW" << int{rw};
    QTest::addRow("unknown") << "readonly" << int{UnknownType};
}

void tst_Objects::access()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const QString xml = QStringLiteral("<Flags><Access ReadRestrictions='OP'>%1</Access></Flags>").arg(value);
    QCOMPARE(static_cast<int>(objectOf(xml).flags.Access), expected);
}

void tst_Objects::defaultData_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<unsigned int>("expectedNumber");
    const auto withType = [](const char* type, const char* data) {
        return QStringLiteral("<Type>%1</Type><Info><DefaultData>%2</DefaultData></Info>").arg(type, data);
    };
    QTest::addRow("string") << withType("STRING(8)", "ABC") << "ABC" << 0U;
    QTest::addRow("part of the type") << withType("VISIBLE_STRING(8)", "0A0B") << "0A0B" << 0U;
    QTest::addRow("string in lower case is no string") << withType("String(8)", "0A0B") << "" << 0x0B0AU;
    QTest::addRow("bytes are swapped") << withType("UINT", "0A0B") << "" << 0x0B0AU;
    QTest::addRow("four bytes") << withType("UDINT", "78563412") << "" << 0x12345678U;
    QTest::addRow("a mark stops the swap") << withType("UINT", "#x0A0B") << "" << 0x0A0BU;
    QTest::addRow("an odd first digit is dropped") << withType("UINT", "ABC") << "" << 0xBCU;
    QTest::addRow("more than four bytes") << withType("ULINT", "0102030405") << "" << 0U;
    QTest::addRow("no type") << "<Info><DefaultData>0A0B</DefaultData></Info>"
                             << "" << 0x0B0AU;
    QTest::addRow("a type after the default comes too late")
        << "<Info><DefaultData>0A0B</DefaultData></Info><Type>STRING(2)</Type>"
        << "" << 0x0B0AU;
    QTest::addRow("the type as it is, each time")
        << "<Type>STRING(2)</Type><Info><DefaultData>0A</DefaultData></Info><Type>UINT</Type><Info><DefaultData>0B"
           "</DefaultData></Info>"
        << "0A" << 0x0BU;
    QTest::addRow("the last one counts")
        << "<Type>USINT</Type><Info><DefaultData>01</DefaultData><DefaultData>02</DefaultData></Info>"
        << "" << 2U;
    QTest::addRow("a default outside of Info") << "<Type>USINT</Type><DefaultData>01</DefaultData>"
                                               << "" << 0U;
}

void tst_Objects::defaultData()
{
    QFETCH(QString, xml);
    QFETCH(QString, expectedText);
    QFETCH(unsigned int, expectedNumber);
    const struct_Object object = objectOf(xml);
    QCOMPARE(text(object.Info.DefaultString), expectedText);
    QCOMPARE(object.Info.DefaultValue, expectedNumber);
}

void tst_Objects::subItem()
{
    const struct_Subitem item = subItemOf("<Name>Gain</Name><Type>not read</Type><Info><MinData>1</MinData><MaxData>99"
                                          "</MaxData><DefaultData>0A00</DefaultData></Info>");
    QCOMPARE(text(item.Name), QStringLiteral("Gain"));
    QCOMPARE(item.Info.Info.MinData, 1U);
    QCOMPARE(item.Info.Info.MaxData, 99U);
    QCOMPARE(item.Info.Info.DefaultValue, 10U);
    QVERIFY(item.Info.Info.DefaultString.empty());
}

void tst_Objects::subItemDefault_data()
{
    QTest::addColumn<QString>("typeOfObject");
    QTest::addColumn<QString>("subItem");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<unsigned int>("expectedNumber");
    const QString info = QStringLiteral("<Info><DefaultData>0A0B</DefaultData></Info>");
    QTest::addRow("number") << "DT2000" << info << "" << 0x0B0AU;
    QTest::addRow("an object of a string type has sub-items with texts") << "STRING(4)" << info << "0A0B" << 0U;
    QTest::addRow("a string type of its own does not count") << "DT2000"
                                                             << "<Type>STRING(4)</Type>" + info << "" << 0x0B0AU;
    QTest::addRow("outside of Info") << "DT2000"
                                     << "<DefaultData>0A0B</DefaultData>"
                                     << "" << 0U;
}

void tst_Objects::subItemDefault()
{
    QFETCH(QString, typeOfObject);
    QFETCH(QString, subItem);
    QFETCH(QString, expectedText);
    QFETCH(unsigned int, expectedNumber);
    const struct_ObjectInfo info = subItemOf(subItem, typeOfObject).Info.Info;
    QCOMPARE(text(info.DefaultString), expectedText);
    QCOMPARE(info.DefaultValue, expectedNumber);
}

void tst_Objects::limits_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("decimal") << "10" << 10U;
    QTest::addRow("no bytes are swapped") << "0A0B" << 0x0A0BU;
    QTest::addRow("marked") << "#x0A0B" << 0x0A0BU;
    QTest::addRow("all bits") << "#xFFFFFFFF" << 0xFFFFFFFFU;
    QTest::addRow("negative") << "-10" << 0U;
}

void tst_Objects::limits()
{
    QFETCH(QString, value);
    QFETCH(unsigned int, expected);
    QCOMPARE(subItemOf(QStringLiteral("<Info><MinData>%1</MinData></Info>").arg(value)).Info.Info.MinData, expected);
    QCOMPARE(subItemOf(QStringLiteral("<Info><MaxData>%1</MaxData></Info>").arg(value)).Info.Info.MaxData, expected);
    const struct_Subitem ofAString =
        subItemOf(QStringLiteral("<Info><MinData>%1</MinData></Info>").arg(value), QStringLiteral("STRING(4)"));
    QCOMPARE(ofAString.Info.Info.MinData, expected);
}

void tst_Objects::limitsOfTheObject()
{
    const struct_Object object =
        objectOf("<Type>UINT</Type><Info><MinData>1</MinData><MaxData>2</MaxData></Info><MinData>3</MinData>");
    QCOMPARE(object.Info.MinData, 0U);
    QCOMPARE(object.Info.MaxData, 0U);
}

void tst_Objects::nestedSubItem()
{
    const QString inner = QStringLiteral("<SubItem><Name>B</Name><Info><DefaultData>02</DefaultData></Info></SubItem>");
    const struct_Object object =
        objectOf(QStringLiteral("<Info><SubItem><Name>A</Name><Info><DefaultData>01</DefaultData>%1</Info>%1</SubItem>"
                                "</Info>")
                     .arg(inner));
    QCOMPARE(described(object.Info), QStringLiteral("'' 0 0..0|A ('' 1 0..0)"));
}

void tst_Objects::subItemsInDocumentOrder()
{
    const struct_Object object =
        objectOf("<Info><SubItem><Name>A</Name></SubItem><DefaultData>05</DefaultData><SubItem/></Info>"
                 "<Info><SubItem><Name>C</Name></SubItem></Info>");
    QCOMPARE(described(object.Info), QStringLiteral("'' 5 0..0|A ('' 0 0..0)| ('' 0 0..0)|C ('' 0 0..0)"));
}

void tst_Objects::anyTagIsAnObject()
{
    QCOMPARE(described(objectsOf("text<!-- Object --><Object><Name>A</Name></Object><Other><Name>B</Name></Other>")),
             (QStringList{onlyNamed("A"), onlyNamed("B")}));
}

void tst_Objects::emptyObjectIsAppendedCleared()
{
    const std::vector<struct_Object> objects =
        objectsOf("<Object><Index>1</Index><Name>A</Name><Type>STRING(2)</Type><BitSize>16</BitSize><Flags><Access>ro"
                  "</Access></Flags><Info><DefaultData>ab</DefaultData></Info></Object><Object/>");
    QCOMPARE(objects.size(), std::size_t{2});
    QCOMPARE(described(objects[0]), QStringLiteral("1 A STRING(2)  16 flags 16 0 0 0 0 0 0 'ab' 0 0..0"));
    QCOMPARE(described(objects[1]), onlyNamed(QString()));
}

void tst_Objects::laterValueCounts()
{
    QCOMPARE(described(objectOf("<Index>1</Index><Name>A</Name><Type>B</Type><BitSize>1</BitSize><Comment>C</Comment>"
                                "<Index>2</Index><Name/><Type>D</Type><BitSize>x</BitSize><Comment>E</Comment>"
                                "<Flags><Access>ro</Access></Flags><Flags><Backup>1</Backup></Flags>")),
             QStringLiteral("2  D E 0 flags 16 0 0 0 0 1 0 '' 0 0..0"));
    QCOMPARE(described(subItemOf("<Name>A</Name><Name>B</Name><Info><MinData>1</MinData></Info><Info><MaxData>2"
                                 "</MaxData></Info>")
                           .Info.Info),
             QStringLiteral("'' 0 1..2"));
}

void tst_Objects::namesAreExact()
{
    QCOMPARE(described(objectOf("<index>1</index><name>A</name><type>B</type><Bitsize>1</Bitsize><comment>C</comment>"
                                "<info><DefaultData>01</DefaultData></info><flags><Access>ro</Access></flags>"
                                "<Info><Defaultdata>01</Defaultdata><Subitem/></Info>")),
             onlyNamed(QString()));
    QCOMPARE(described(subItemOf("<name>A</name><info><MinData>1</MinData></info><Info><Mindata>1</Mindata><Maxdata>1"
                                 "</Maxdata><Name>A</Name></Info>")
                           .Info.Info),
             QStringLiteral("'' 0 0..0"));
}

void tst_Objects::attributesAreNotRead()
{
    QCOMPARE(described(objectsOf("<Object Index='1' Name='A'><Flags Access='ro'/><Info DefaultData='01'/></Object>")),
             QStringList{onlyNamed(QString())});
}

void tst_Objects::secondElementAppends()
{
    const QString xml = QStringLiteral("<Objects><Object><Name>%1</Name></Object></Objects>");
    const QStringList expected{onlyNamed("A"), onlyNamed("B")};
    const struct_EtherCatDevice device = readSection(read_device_Objects, xml.arg("A"));
    QCOMPARE(described(readSection(read_device_Objects, xml.arg("B"), device).Dictionary.vobject), expected);
    const struct_module module = readSection(read_device_moduleObjects, xml.arg("A"));
    QCOMPARE(described(readSection(read_device_moduleObjects, xml.arg("B"), module).Dictionary.vobject), expected);
}

void tst_Objects::nullPointers()
{
    struct_EtherCatDevice device;
    struct_module module;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<Objects><Object/></Objects>"), true));
    QDomElement element = document.documentElement();
    read_device_Objects(nullptr, &device);
    read_device_Objects(&element, nullptr);
    read_device_moduleObjects(nullptr, &module);
    read_device_moduleObjects(&element, nullptr);
    QVERIFY(device.Dictionary.vobject.empty());
    QVERIFY(module.Dictionary.vobject.empty());
}

static const testMain::Registration<tst_Objects, QCoreApplication> registration;
#include "tst_Objects.moc"
