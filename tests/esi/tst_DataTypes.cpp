// The `DataTypes` element of a dictionary. Every test runs for the dictionary of a device and of a module.
// Covers dictionarySections.cpp.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <vector>

class tst_DataTypes : public QObject
{
    Q_OBJECT

private slots:
    static void dataType();
    static void number_data();
    static void number();
    static void anyTagIsADataType();
    static void nothingIsADataType_data();
    static void nothingIsADataType();
    static void emptyDataTypeIsAppendedCleared();
    static void subItem();
    static void access_data();
    static void access();
    static void category_data();
    static void category();
    static void arrayInfo();
    static void enumInfo();
    static void listsInDocumentOrder();
    static void laterValueCounts();
    static void texts_data();
    static void texts();
    static void namesAreExact();
    static void attributesAreNotRead();
    static void secondElementAppends();
    static void nullPointers();
};

namespace {

/// All fields of a data type as one text.
QString described(const struct_DataTypes& type)
{
    QStringList parts{text(type.Name), text(type.BaseType), QString::number(type.BitSize), QString::number(type.index)};
    for (const DataTypeSubItem& item : type.vsubitem)
        parts << QStringLiteral("sub %1 %2 %3 %4 %5 flags %6 %7 %8 %9")
                     .arg(item.SubIdx)
                     .arg(text(item.Name), text(item.Type))
                     .arg(item.BitSize)
                     .arg(item.BitOffs)
                     .arg(item.flag.Access)
                     .arg(item.flag.Category)
                     .arg(item.flag.Backup)
                     .arg(item.flag.Setting);
    for (const ArrayInfo& array : type.varrayinfo)
        parts << QStringLiteral("array %1 %2").arg(array.LBound).arg(array.Elements);
    for (const EnumInfo& value : type.venuminfo)
        parts << QStringLiteral("enum %1 %2 %3").arg(text(value.Name)).arg(value.Enum).arg(text(value.Comment));
    return parts.join('|');
}

QStringList described(const std::vector<struct_DataTypes>& types)
{
    QStringList parts;
    for (const struct_DataTypes& type : types)
        parts << described(type);
    return parts;
}

/// The data types that both readers make of the same XML; they must not differ in anything but the list.
std::vector<struct_DataTypes> dataTypesOf(const QString& children)
{
    const QString xml = QStringLiteral("<DataTypes>%1</DataTypes>").arg(children);
    std::vector<struct_DataTypes> ofDevice = readSection(read_device_DataTypes, xml).Dictionary.vdatatype;
    const struct_module module = readSection(read_device_moduleDataTypes, xml);
    if (described(ofDevice) != described(module.Dictionary.vdatatype) || !module.Dictionary.vobject.empty())
        qFatal("the readers of device and module differ on %s", qPrintable(xml));
    return ofDevice;
}

/// The one data type with these children.
struct_DataTypes dataTypeOf(const QString& children)
{
    return dataTypesOf(QStringLiteral("<DataType>%1</DataType>").arg(children)).at(0);
}

/// The one sub-item with these children.
DataTypeSubItem subItemOf(const QString& children)
{
    return dataTypeOf(QStringLiteral("<SubItem>%1</SubItem>").arg(children)).vsubitem.at(0);
}

} // namespace

void tst_DataTypes::dataType()
{
    const struct_DataTypes type = dataTypeOf("<Index>#x0800</Index><Name>DT1018</Name><BaseType>USINT</BaseType>"
                                             "<BitSize>144</BitSize><Comment>not read</Comment>");
    QCOMPARE(text(type.Name), QStringLiteral("DT1018"));
    QCOMPARE(text(type.BaseType), QStringLiteral("USINT"));
    QCOMPARE(type.BitSize, 144);
    QCOMPARE(int{type.index}, 0); // never read
    QVERIFY(type.vsubitem.empty());
    QVERIFY(type.varrayinfo.empty());
    QVERIFY(type.venuminfo.empty());
}

void tst_DataTypes::number_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("decimal") << "12" << 12;
    QTest::addRow("hexadecimal") << "#x12" << 18;
    QTest::addRow("no bytes are swapped") << "0A0B" << 0x0A0B;
    QTest::addRow("a length with the top bit is negative") << "#xFFFFFFFF" << -1;
    QTest::addRow("no number") << "none" << 0;
    QTest::addRow("empty") << "" << 0;
    QTest::addRow("negative") << "-1" << 0;
}

void tst_DataTypes::number()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const struct_DataTypes type = dataTypeOf(
        QStringLiteral("<BitSize>%1</BitSize><SubItem><SubIdx>%1</SubIdx><BitSize>%1</BitSize><BitOffs>%1</BitOffs>"
                       "<Flags><Backup>%1</Backup><Setting>%1</Setting></Flags></SubItem>"
                       "<ArrayInfo><LBound>%1</LBound><Elements>%1</Elements></ArrayInfo>"
                       "<EnumInfo><Enum>%1</Enum></EnumInfo>")
            .arg(value));
    QCOMPARE(type.BitSize, expected);
    QCOMPARE(type.vsubitem.at(0).SubIdx, static_cast<std::uint32_t>(expected));
    QCOMPARE(type.vsubitem.at(0).BitSize, expected);
    QCOMPARE(type.vsubitem.at(0).BitOffs, expected);
    QCOMPARE(type.vsubitem.at(0).flag.Backup, expected);
    QCOMPARE(type.vsubitem.at(0).flag.Setting, expected);
    QCOMPARE(type.varrayinfo.at(0).LBound, expected);
    QCOMPARE(type.varrayinfo.at(0).Elements, expected);
    QCOMPARE(type.venuminfo.at(0).Enum, expected);
}

void tst_DataTypes::anyTagIsADataType()
{
    QCOMPARE(described(dataTypesOf("<DataType><Name>A</Name></DataType><Other><Name>B</Name></Other>"
                                   "<Name><BitSize>8</BitSize></Name>")),
             (QStringList{"A||0|0", "B||0|0", "||8|0"}));
}

void tst_DataTypes::nothingIsADataType_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addRow("nothing") << "";
    QTest::addRow("a text") << "text";
    QTest::addRow("a comment") << "<!-- DataType -->";
    QTest::addRow("a CDATA section") << "<![CDATA[<DataType/>]]>";
    QTest::addRow("an instruction") << "<?DataType x?>";
}

void tst_DataTypes::nothingIsADataType()
{
    QFETCH(QString, xml);
    QVERIFY(dataTypesOf(xml).empty());
}

void tst_DataTypes::emptyDataTypeIsAppendedCleared()
{
    QCOMPARE(described(dataTypesOf("<DataType><Name>A</Name><BaseType>B</BaseType><BitSize>1</BitSize><SubItem/>"
                                   "</DataType><DataType/>")),
             (QStringList{"A|B|1|0|sub 0   0 0 flags 0 0 0 0", "||0|0"}));
}

void tst_DataTypes::subItem()
{
    const DataTypeSubItem item =
        subItemOf("<SubIdx>#x11</SubIdx><Name>Gain</Name><Type>UDINT</Type><BitSize>32</BitSize><BitOffs>16</BitOffs>"
                  "<Comment>not read</Comment><Flags><Access>ro</Access><Category>m</Category>"
                  "<PdoMapping>T</PdoMapping><Backup>1</Backup><Setting>2</Setting></Flags>");
    QCOMPARE(item.SubIdx, 17U);
    QCOMPARE(text(item.Name), QStringLiteral("Gain"));
    QCOMPARE(text(item.Type), QStringLiteral("UDINT"));
    QCOMPARE(item.BitSize, 32);
    QCOMPARE(item.BitOffs, 16);
    QCOMPARE(item.flag.Access, ro);
    QCOMPARE(item.flag.Category, m);
    QCOMPARE(item.flag.Backup, 1);
    QCOMPARE(item.flag.Setting, 2);
}

void tst_DataTypes::access_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<int>("expected");
    QTest::addRow("lower case") << "<Access>rw</Access>" << int{rw};
    QTest::addRow("upper case") << "<Access>RW</Access>" << int{rw};
    QTest::addRow("write only") << "<Access>wo</Access>" << int{wo};
    QTest::addRow("restrictions to some states are not read")
        << "<Access WriteRestrictions='PreOP' ReadRestrictions='OP'>rw</Access>" << int{rw};
    QTest::addRow("unknown") << "<Access>rx</Access>" << int{UnknownType};
    QTest::addRow("with a blank") << "<Access> rw</Access>" << int{UnknownType};
    QTest::addRow("empty") << "<Access/>" << int{UnknownType};
    QTest::addRow("none") << "" << int{UnknownType};
    QTest::addRow("the last one counts") << "<Access>ro</Access><Access>rw</Access>" << int{rw};
    QTest::addRow("the last one counts, also when it is unknown") << "<Access>ro</Access><Access/>" << int{UnknownType};
}

void tst_DataTypes::access()
{
    QFETCH(QString, xml);
    QFETCH(int, expected);
    QCOMPARE(static_cast<int>(subItemOf(QStringLiteral("<Flags>%1</Flags>").arg(xml)).flag.Access), expected);
}

void tst_DataTypes::category_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("expected");
    QTest::addRow("mandatory") << "m" << int{m};
    QTest::addRow("optional") << "o" << int{o};
    QTest::addRow("conditional, upper case") << "C" << int{c};
    QTest::addRow("unknown") << "x" << int{UnknownType};
}

void tst_DataTypes::category()
{
    QFETCH(QString, value);
    QFETCH(int, expected);
    const QString xml = QStringLiteral("<Flags><Category>%1</Category></Flags>").arg(value);
    QCOMPARE(static_cast<int>(subItemOf(xml).flag.Category), expected);
}

void tst_DataTypes::arrayInfo()
{
    const struct_DataTypes type = dataTypeOf("<ArrayInfo><LBound>1</LBound><Elements>5</Elements><Other>9</Other>"
                                             "</ArrayInfo><ArrayInfo><Elements>7</Elements></ArrayInfo>");
    QCOMPARE(described(type), QStringLiteral("||0|0|array 1 5|array 0 7"));
}

void tst_DataTypes::enumInfo()
{
    const struct_DataTypes type =
        dataTypeOf(QStringLiteral("<EnumInfo><Text>not read</Text><Name>Off</Name><Enum>0</Enum><Comment>no output"
                                  "</Comment></EnumInfo><EnumInfo><Name>开</Name><Enum>#x10</Enum></EnumInfo>"));
    QCOMPARE(type.venuminfo.size(), std::size_t{2});
    QCOMPARE(described(type), QStringLiteral("||0|0|enum Off 0 no output|enum 开 16 "));
}

void tst_DataTypes::listsInDocumentOrder()
{
    QCOMPARE(described(dataTypeOf("<SubItem><SubIdx>2</SubIdx></SubItem><ArrayInfo/><SubItem><SubIdx>1</SubIdx>"
                                  "</SubItem><EnumInfo/><SubItem/>")),
             QStringLiteral("||0|0|sub 2   0 0 flags 0 0 0 0|sub 1   0 0 flags 0 0 0 0|sub 0   0 0 flags 0 0 0 0"
                            "|array 0 0|enum  0 "));
}

void tst_DataTypes::laterValueCounts()
{
    QCOMPARE(described(dataTypeOf("<Name>A</Name><BaseType>B</BaseType><BitSize>1</BitSize>"
                                  "<Name>C</Name><BaseType/><BitSize>x</BitSize>")),
             QStringLiteral("C||0|0"));
    QCOMPARE(described(dataTypeOf("<SubItem><Flags><Access>ro</Access></Flags><Flags><Backup>1</Backup></Flags>"
                                  "<Name>A</Name><Name>B</Name></SubItem>")),
             QStringLiteral("||0|0|sub 0 B  0 0 flags 16 0 1 0"));
}

void tst_DataTypes::texts_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expected");
    QTest::addRow("plain") << "abc"
                           << "abc";
    QTest::addRow("Chinese") << QStringLiteral("转速") << QStringLiteral("转速");
    QTest::addRow("entities") << "a&amp;b &lt;c&#62;"
                              << "a&b <c>";
    QTest::addRow("CDATA") << "<![CDATA[a<b]]>"
                           << "a<b";
    QTest::addRow("text and CDATA") << "a<![CDATA[&]]>b"
                                    << "a&b";
    QTest::addRow("a comment in between") << "a<!-- x -->b"
                                          << "ab";
    QTest::addRow("a comment after it") << "a<!-- x -->"
                                        << "a";
    QTest::addRow("a comment alone") << "<!-- x -->"
                                     << "";
    QTest::addRow("an element in between") << "a<b>c</b>d"
                                           << "acd";
    QTest::addRow("an element alone") << "<b>c</b>"
                                      << "c";
    QTest::addRow("an instruction") << "a<?x y?>"
                                    << "a";
    QTest::addRow("blanks stay") << " a  b "
                                 << " a  b ";
}

void tst_DataTypes::texts()
{
    QFETCH(QString, xml);
    QFETCH(QString, expected);
    QCOMPARE(text(dataTypeOf(QStringLiteral("<Name>%1</Name>").arg(xml)).Name), expected);
    QCOMPARE(text(subItemOf(QStringLiteral("<Name>%1</Name>").arg(xml)).Name), expected);
}

void tst_DataTypes::namesAreExact()
{
    QCOMPARE(described(dataTypeOf("<name>A</name><Basetype>B</Basetype><Bitsize>1</Bitsize><Subitem/><Arrayinfo/>"
                                  "<Enuminfo/><SubItems/>")),
             QStringLiteral("||0|0"));
    QCOMPARE(described(dataTypeOf("<SubItem><Subidx>1</Subidx><SubIndex>1</SubIndex><BitOffset>1</BitOffset><flags>"
                                  "<Access>ro</Access></flags><Flags><access>ro</access></Flags></SubItem>")),
             QStringLiteral("||0|0|sub 0   0 0 flags 0 0 0 0"));
    QCOMPARE(described(dataTypeOf("<Access>ro</Access><SubItem><Access>ro</Access></SubItem>")),
             QStringLiteral("||0|0|sub 0   0 0 flags 0 0 0 0"));
}

void tst_DataTypes::attributesAreNotRead()
{
    QCOMPARE(described(dataTypesOf("<DataType Name='A' BitSize='8'><SubItem SubIdx='1' Name='B'><Flags Access='ro'/>"
                                   "</SubItem></DataType>")),
             QStringList{"||0|0|sub 0   0 0 flags 0 0 0 0"});
}

void tst_DataTypes::secondElementAppends()
{
    const QString xml = QStringLiteral("<DataTypes><DataType><Name>%1</Name></DataType></DataTypes>");
    const struct_EtherCatDevice device = readSection(read_device_DataTypes, xml.arg("A"));
    QCOMPARE(described(readSection(read_device_DataTypes, xml.arg("B"), device).Dictionary.vdatatype),
             (QStringList{"A||0|0", "B||0|0"}));
    const struct_module module = readSection(read_device_moduleDataTypes, xml.arg("A"));
    QCOMPARE(described(readSection(read_device_moduleDataTypes, xml.arg("B"), module).Dictionary.vdatatype),
             (QStringList{"A||0|0", "B||0|0"}));
}

void tst_DataTypes::nullPointers()
{
    struct_EtherCatDevice device;
    struct_module module;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<DataTypes><DataType/></DataTypes>"), true));
    QDomElement element = document.documentElement();
    read_device_DataTypes(nullptr, &device);
    read_device_DataTypes(&element, nullptr);
    read_device_moduleDataTypes(nullptr, &module);
    read_device_moduleDataTypes(&element, nullptr);
    QVERIFY(device.Dictionary.vdatatype.empty());
    QVERIFY(module.Dictionary.vdatatype.empty());
}

static const testMain::Registration<tst_DataTypes, QCoreApplication> registration;
#include "tst_DataTypes.moc"
