// One element of a run of modules: identity, profile and dictionary. PDOs and startup commands have tests of their own.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_ModuleSection : public QObject
{
    Q_OBJECT

private slots:
    static void type();
    static void missingType();
    static void typeNumbers_data();
    static void typeNumbers();
    static void typeNamesAreExact();
    static void laterTypeOverrides();
    static void moduleName_data();
    static void moduleName();
    static void profileNumber_data();
    static void profileNumber();
    static void dictionary();
    static void dictionaryElsewhere_data();
    static void dictionaryElsewhere();
    static void tagOfTheModuleDoesNotCount();
    static void childrenAreExact();
    static void nullPointers();
};

namespace {

struct_module moduleOf(const QString& children)
{
    return readSection(read_device_Module, QStringLiteral("<Module>%1</Module>").arg(children));
}

} // namespace

void tst_ModuleSection::type()
{
    const ModuleTypeAttributes type = moduleOf("<Type ModuleIdent='#x00000010' ModuleClass='IO' ModulePdoGroup='2' "
                                               "SRA_ParamterSupported='1'>MB-8DI</Type>")
                                          .TypeAttributes;
    QCOMPARE(type.ModuleIdent, 16U);
    QCOMPARE(text(type.ModuleClass), QStringLiteral("IO"));
    QCOMPARE(type.ModulePdoGroup, 2);
    QCOMPARE(type.SRA_ParamterSupported, true);
    QCOMPARE(text(type.Name), QStringLiteral("MB-8DI"));
}

void tst_ModuleSection::missingType()
{
    const struct_module module = moduleOf(QString());
    QCOMPARE(module.TypeAttributes.ModuleIdent, 0U);
    QVERIFY(module.TypeAttributes.ModuleClass.empty());
    QCOMPARE(module.TypeAttributes.ModulePdoGroup, 0);
    QCOMPARE(module.TypeAttributes.SRA_ParamterSupported, false);
    QVERIFY(module.TypeAttributes.Name.empty());
    QVERIFY(module.Name.empty());
    QCOMPARE(module.m_profileNO, 0U);
    QVERIFY(module.RxPdo.vpdo.empty() && module.TxPdo.vpdo.empty() && module.Mailbox.COE.vinitcmd.empty());
}

void tst_ModuleSection::typeNumbers_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<unsigned int>("expected");
    QTest::addColumn<bool>("flag");
    QTest::addRow("decimal") << "20" << 20U << true;
    QTest::addRow("hexadecimal") << "#x20" << 32U << false;
    QTest::addRow("all bits") << "#xFFFFFFFF" << 0xFFFFFFFFU << false;
    QTest::addRow("true is a number") << "true" << 1U << true;
    QTest::addRow("no number") << "none" << 0U << false;
    QTest::addRow("zero") << "0" << 0U << false;
}

void tst_ModuleSection::typeNumbers()
{
    QFETCH(QString, value);
    QFETCH(unsigned int, expected);
    QFETCH(bool, flag);
    const ModuleTypeAttributes type =
        moduleOf(QStringLiteral("<Type ModuleIdent='%1' ModulePdoGroup='%1' SRA_ParamterSupported='%1' "
                                "ModuleClass='%1'/>")
                     .arg(value))
            .TypeAttributes;
    QCOMPARE(type.ModuleIdent, expected);
    QCOMPARE(type.ModulePdoGroup, static_cast<int>(expected));
    QCOMPARE(type.SRA_ParamterSupported, flag);
    QCOMPARE(text(type.ModuleClass), value);
}

void tst_ModuleSection::typeNamesAreExact()
{
    const ModuleTypeAttributes type =
        moduleOf("<Type moduleIdent='1' ModuleID='1' moduleclass='x' ModulePDOGroup='1' SRA_ParameterSupported='1'/>")
            .TypeAttributes;
    QCOMPARE(type.ModuleIdent, 0U);
    QVERIFY(type.ModuleClass.empty());
    QCOMPARE(type.ModulePdoGroup, 0);
    QCOMPARE(type.SRA_ParamterSupported, false);
}

void tst_ModuleSection::laterTypeOverrides()
{
    const ModuleTypeAttributes type =
        moduleOf("<Type ModuleIdent='1' ModuleClass='A'>B</Type><Type ModuleIdent='2'/>").TypeAttributes;
    QCOMPARE(type.ModuleIdent, 2U);
    QCOMPARE(text(type.ModuleClass), QStringLiteral("A"));
    QVERIFY(type.Name.empty());
}

void tst_ModuleSection::moduleName_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("expected");
    QTest::addRow("one") << "<Name>A</Name>"
                         << "A";
    QTest::addRow("the last one counts, whatever its language")
        << QStringLiteral("<Name LcId='1033'>A</Name><Name LcId='2052'>模块</Name>") << QStringLiteral("模块");
    QTest::addRow("the last one counts, also when it is empty") << "<Name>A</Name><Name/>"
                                                                << "";
    QTest::addRow("CDATA") << "<Name><![CDATA[A & B]]></Name>"
                           << "A & B";
    QTest::addRow("a mark written out stays, unlike in a device's name") << "<Name>&lt;![CDATA[A]]&gt;</Name>"
                                                                         << "<![CDATA[A]]>";
    QTest::addRow("the name of a PDO is not the module's") << "<RxPdo><Name>B</Name></RxPdo>"
                                                           << "";
}

void tst_ModuleSection::moduleName()
{
    QFETCH(QString, xml);
    QFETCH(QString, expected);
    QCOMPARE(text(moduleOf(xml).Name), expected);
}

void tst_ModuleSection::profileNumber_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("drive") << "<Profile><ProfileNo>402</ProfileNo></Profile>" << 402U;
    QTest::addRow("hexadecimal") << "<Profile><ProfileNo>#x1389</ProfileNo></Profile>" << 5001U;
    QTest::addRow("the last one counts") << "<Profile><ProfileNo>402</ProfileNo><ProfileNo>401</ProfileNo></Profile>"
                                         << 401U;
    QTest::addRow("a second profile") << "<Profile><ProfileNo>402</ProfileNo></Profile><Profile><ProfileNo>401"
                                         "</ProfileNo></Profile>"
                                      << 401U;
    QTest::addRow("a channel is not looked into, unlike a device's")
        << "<Profile><ChannelInfo><ProfileNo>402</ProfileNo></ChannelInfo></Profile>" << 0U;
    QTest::addRow("outside of the profile") << "<ProfileNo>402</ProfileNo>" << 0U;
    QTest::addRow("none") << "<Profile/>" << 0U;
}

void tst_ModuleSection::profileNumber()
{
    QFETCH(QString, xml);
    QFETCH(unsigned int, expected);
    QCOMPARE(moduleOf(xml).m_profileNO, expected);
}

void tst_ModuleSection::dictionary()
{
    const struct_module module =
        moduleOf("<Profile><Dictionary><DataTypes><DataType><Name>DT8000</Name></DataType></DataTypes><Objects><Object>"
                 "<Index>#x8000</Index></Object></Objects><Objects><Object><Index>#x8001</Index></Object></Objects>"
                 "</Dictionary></Profile><Profile><Dictionary><Objects><Object/></Objects></Dictionary></Profile>");
    QCOMPARE(module.Dictionary.vdatatype.size(), std::size_t{1});
    QCOMPARE(text(module.Dictionary.vdatatype[0].Name), QStringLiteral("DT8000"));
    QCOMPARE(module.Dictionary.vobject.size(), std::size_t{3});
    QCOMPARE(int{module.Dictionary.vobject[0].index}, 0x8000);
    QCOMPARE(int{module.Dictionary.vobject[1].index}, 0x8001);
    QCOMPARE(int{module.Dictionary.vobject[2].index}, 0);
}

void tst_ModuleSection::dictionaryElsewhere_data()
{
    QTest::addColumn<QString>("xml");
    const QString lists =
        QStringLiteral("<DataTypes><DataType/></DataTypes><Objects><Object><Index>1</Index></Object></Objects>");
    QTest::addRow("outside of the profile") << "<Dictionary>" + lists + "</Dictionary>";
    QTest::addRow("outside of the dictionary") << "<Profile>" + lists + "</Profile>";
    QTest::addRow("in a channel") << "<Profile><ChannelInfo><Dictionary>" + lists
                                         + "</Dictionary></ChannelInfo></Profile>";
    QTest::addRow("in other case") << "<Profile><dictionary>" + lists + "</dictionary></Profile>";
    QTest::addRow("a list of another name") << "<Profile><Dictionary><objects><Object/></objects><DataType/>"
                                               "</Dictionary></Profile>";
}

void tst_ModuleSection::dictionaryElsewhere()
{
    QFETCH(QString, xml);
    const struct_module module = moduleOf(xml);
    QVERIFY(module.Dictionary.vdatatype.empty());
    QVERIFY(module.Dictionary.vobject.empty());
}

void tst_ModuleSection::tagOfTheModuleDoesNotCount()
{
    const struct_module module = readSection(read_device_Module, "<Other><Type ModuleIdent='3'/></Other>");
    QCOMPARE(module.TypeAttributes.ModuleIdent, 3U);
}

void tst_ModuleSection::childrenAreExact()
{
    const struct_module module =
        moduleOf("text<!-- x --><type ModuleIdent='1'/><name>A</name><Rxpdo/><txPdo/><TxPDO/><mailbox><CoE><InitCmd/>"
                 "</CoE></mailbox><profile><ProfileNo>1</ProfileNo></profile><Info><Name>A</Name></Info>");
    QCOMPARE(module.TypeAttributes.ModuleIdent, 0U);
    QVERIFY(module.Name.empty());
    QVERIFY(module.RxPdo.vpdo.empty());
    QVERIFY(module.TxPdo.vpdo.empty());
    QVERIFY(module.Mailbox.COE.vinitcmd.empty());
    QCOMPARE(module.m_profileNO, 0U);
}

void tst_ModuleSection::nullPointers()
{
    struct_module module;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<Module><Name>A</Name></Module>"), true));
    QDomElement element = document.documentElement();
    read_device_Module(nullptr, &module);
    read_device_Module(&element, nullptr);
    QVERIFY(module.Name.empty());
}

static const testMain::Registration<tst_ModuleSection, QCoreApplication> registration;
#include "tst_ModuleSection.moc"
