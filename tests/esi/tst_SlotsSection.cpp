// The `Slots` element of a device: its attributes and its slots.
#include "esi/readSection.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>

class tst_SlotsSection : public QObject
{
    Q_OBJECT

private slots:
    static void attributesOfTheWhole();
    static void attributesAreExact();
    static void onlyTheIncrementsAreReset();
    static void slotDefaults();
    static void slotAttributes();
    static void mostInstances_data();
    static void mostInstances();
    static void slotGroup_data();
    static void slotGroup();
    static void slotsAtAnyDepthInOrder();
    static void slotName_data();
    static void slotName();
    static void moduleClass_data();
    static void moduleClass();
    static void moduleIdent_data();
    static void moduleIdent();
    static void secondElementAdds();
    static void nullPointers();
};

namespace {

/// The one slot of a `Slots` element.
struct_Slot slotOf(const QString& attributes, const QString& children = {})
{
    return readSection(read_device_Slotsinfo,
                       QStringLiteral("<Slots><Slot %1>%2</Slot></Slots>").arg(attributes, children))
        .Slots.vslot.at(0);
}

} // namespace

void tst_SlotsSection::attributesOfTheWhole()
{
    const SlotsAttributes whole =
        readSection(read_device_Slotsinfo,
                    "<Slots DownloadModuleIdentList='1' DownloadModuleAddressList='true' SlotIndexIncrement='#x10' "
                    "SlotPdoIncrement='2' IdentifyModuleBy='ident' DownloadModuleListTransition='PS' MaxSlotCount='64' "
                    "MaxSlotGroupCount='4' SlotGroupIndexIncrement='#x800' SlotGroupPdoIncrement='#x40'/>")
            .Slots.Attributes;
    QCOMPARE(whole.DownloadModuleIdentList, true);
    QCOMPARE(whole.DownloadModuleAddressList, true);
    QCOMPARE(whole.SlotIndexIncrement, 16U);
    QCOMPARE(whole.SlotPdoIncrement, 2U);
    QCOMPARE(text(whole.IdentifyModuleBy), QStringLiteral("ident"));
    QCOMPARE(whole.m_DownloadModuleListTransition, PS);
    QCOMPARE(whole.m_MaxSlotCount, 64U);
    QCOMPARE(whole.m_MaxSlotGroupCount, 4U);
    QCOMPARE(whole.m_SlotGroupIndexIncrement, 0x800U);
    QCOMPARE(whole.m_SlotGroupPdoIncrement, 0x40U);
}

void tst_SlotsSection::attributesAreExact()
{
    const SlotsAttributes whole =
        readSection(read_device_Slotsinfo,
                    "<Slots downloadModuleIdentList='1' slotIndexIncrement='1' SlotPDOIncrement='1' MaxSlots='1'/>")
            .Slots.Attributes;
    QCOMPARE(whole.DownloadModuleIdentList, false);
    QCOMPARE(whole.SlotIndexIncrement, 0U);
    QCOMPARE(whole.SlotPdoIncrement, 0U);
    QCOMPARE(whole.m_MaxSlotCount, 0U);
}

void tst_SlotsSection::onlyTheIncrementsAreReset()
{
    struct_EtherCatDevice before;
    before.Slots.Attributes.DownloadModuleIdentList = true;
    before.Slots.Attributes.DownloadModuleAddressList = true;
    before.Slots.Attributes.m_DownloadModuleListTransition = PS;
    before.Slots.Attributes.IdentifyModuleBy = "ident";
    before.Slots.Attributes.m_MaxSlotCount = 1;
    before.Slots.Attributes.m_MaxSlotGroupCount = 2;
    before.Slots.Attributes.SlotIndexIncrement = 3;
    before.Slots.Attributes.SlotPdoIncrement = 4;
    before.Slots.Attributes.m_SlotGroupIndexIncrement = 5;
    before.Slots.Attributes.m_SlotGroupPdoIncrement = 6;

    const SlotsAttributes whole = readSection(read_device_Slotsinfo, "<Slots/>", before).Slots.Attributes;

    QCOMPARE(whole.SlotIndexIncrement, 0U);
    QCOMPARE(whole.SlotPdoIncrement, 0U);
    QCOMPARE(whole.m_SlotGroupIndexIncrement, 0U);
    QCOMPARE(whole.m_SlotGroupPdoIncrement, 0U);
    QCOMPARE(whole.DownloadModuleIdentList, true);
    QCOMPARE(whole.DownloadModuleAddressList, true);
    QCOMPARE(whole.m_DownloadModuleListTransition, PS);
    QCOMPARE(text(whole.IdentifyModuleBy), QStringLiteral("ident"));
    QCOMPARE(whole.m_MaxSlotCount, 1U);
    QCOMPARE(whole.m_MaxSlotGroupCount, 2U);
}

void tst_SlotsSection::slotDefaults()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Slotsinfo, "<Slots SlotIndexIncrement='1' SlotPdoIncrement='2' SlotGroupIndexIncrement='3' "
                               "SlotGroupPdoIncrement='4'><Slot/></Slots>");
    const SlotAttributes& attributes = device.Slots.vslot.at(0).Attributes;
    QCOMPARE(attributes.SlotIndexIncrement, 1U);
    QCOMPARE(attributes.SlotPdoIncrement, 2U);
    QCOMPARE(attributes.m_SlotGroupIndexIncrement, 3U);
    QCOMPARE(attributes.m_SlotGroupPdoIncrement, 4U);
    QCOMPARE(attributes.m_SlotGroup, -1);
    QCOMPARE(attributes.MinInstances, 0U);
    QCOMPARE(attributes.MaxInstances, 0U);
}

void tst_SlotsSection::slotAttributes()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Slotsinfo,
        "<Slots SlotIndexIncrement='1' SlotPdoIncrement='2' SlotGroupIndexIncrement='3' SlotGroupPdoIncrement='4'>"
        "<Slot MinInstances='1' MaxInstances='#xA' SlotPdoIncrement='12' SlotIndexIncrement='11' SlotGroup='5' "
        "SlotGroupIndexIncrement='13' SlotGroupPdoIncrement='14'/><Slot slotIndexIncrement='9' "
        "minInstances='9'/></Slots>");
    const SlotAttributes& own = device.Slots.vslot.at(0).Attributes;
    QCOMPARE(own.MinInstances, 1U);
    QCOMPARE(own.MaxInstances, 10U);
    QCOMPARE(own.SlotIndexIncrement, 11U);
    QCOMPARE(own.SlotPdoIncrement, 12U);
    QCOMPARE(own.m_SlotGroup, 5);
    QCOMPARE(own.m_SlotGroupIndexIncrement, 13U);
    QCOMPARE(own.m_SlotGroupPdoIncrement, 14U);
    const SlotAttributes& next = device.Slots.vslot.at(1).Attributes;
    QVERIFY2(next.SlotIndexIncrement == 1, "the next slot starts from the device again, and names are exact");
    QCOMPARE(next.MinInstances, 0U);
}

void tst_SlotsSection::mostInstances_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<unsigned int>("expected");
    QTest::addRow("missing") << "" << 0U;
    QTest::addRow("one") << "MaxInstances='1'" << 1U;
    QTest::addRow("limit") << "MaxInstances='16'" << 16U;
    QTest::addRow("one above the limit") << "MaxInstances='17'" << 16U;
    QTest::addRow("far above the limit") << "MaxInstances='1000'" << 16U;
    QTest::addRow("all bits") << "MaxInstances='#xFFFFFFFF'" << 16U;
    QTest::addRow("negative does not convert") << "MaxInstances='-1'" << 0U;
}

void tst_SlotsSection::mostInstances()
{
    QFETCH(QString, attribute);
    QFETCH(unsigned int, expected);
    // The least number has no such limit.
    const struct_Slot slot = slotOf(attribute + " MinInstances='1000'");
    QCOMPARE(slot.Attributes.MaxInstances, expected);
    QCOMPARE(slot.Attributes.MinInstances, 1000U);
}

void tst_SlotsSection::slotGroup_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<int>("expected");
    QTest::addRow("missing") << "" << -1;
    QTest::addRow("first group") << "SlotGroup='0'" << 0;
    QTest::addRow("second group") << "SlotGroup='1'" << 1;
    QTest::addRow("read as unsigned: -1 does not convert and is group 0") << "SlotGroup='-1'" << 0;
    QTest::addRow("stored as signed: all bits are no group") << "SlotGroup='#xFFFFFFFF'" << -1;
}

void tst_SlotsSection::slotGroup()
{
    QFETCH(QString, attribute);
    QFETCH(int, expected);
    QCOMPARE(slotOf(attribute).Attributes.m_SlotGroup, expected);
}

void tst_SlotsSection::slotsAtAnyDepthInOrder()
{
    const struct_EtherCatDevice device = readSection(
        read_device_Slotsinfo, "<Slots><Slot><Name>a</Name></Slot><Group><Inner><Slot><Name>b</Name></Slot></Inner>"
                               "</Group><slot/><Slot2/><Slot><Name>c</Name></Slot></Slots>");
    QCOMPARE(device.Slots.vslot.size(), std::size_t{3});
    QCOMPARE(text(device.Slots.vslot[0].Name), QStringLiteral("a"));
    QCOMPARE(text(device.Slots.vslot[1].Name), QStringLiteral("b"));
    QCOMPARE(text(device.Slots.vslot[2].Name), QStringLiteral("c"));
    QVERIFY(device.Slots.vslot[0].slotmodule.empty());
}

void tst_SlotsSection::slotName_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("expected");
    QTest::addRow("one") << "<Name>Axis 1</Name>"
                         << "Axis 1";
    QTest::addRow("the last one counts") << "<Name>a</Name><Name>b</Name>"
                                         << "b";
    QTest::addRow("the last one counts, also when it is empty") << "<Name>a</Name><Name/>"
                                                                << "";
    QTest::addRow("not that of a deeper element") << "<Other><Name>x</Name></Other>"
                                                  << "";
    QTest::addRow("none") << ""
                          << "";
}

void tst_SlotsSection::slotName()
{
    QFETCH(QString, children);
    QFETCH(QString, expected);
    QCOMPARE(text(slotOf(QString(), children).Name), expected);
}

void tst_SlotsSection::moduleClass_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QStringList>("expected"); // "class|name" per record
    QTest::addRow("class and name make a record each")
        << "<ModuleClass><Class>IO</Class><Name>Terminals</Name></ModuleClass>" << QStringList{"IO|", "|Terminals"};
    QTest::addRow("a text makes an empty record") << "<ModuleClass>IO</ModuleClass>" << QStringList{"|"};
    QTest::addRow("a comment makes an empty record") << "<ModuleClass><!-- IO --></ModuleClass>" << QStringList{"|"};
    QTest::addRow("another tag makes an empty record")
        << "<ModuleClass><class>IO</class></ModuleClass>" << QStringList{"|"};
    QTest::addRow("an empty element makes none") << "<ModuleClass/>" << QStringList{};
    QTest::addRow("two elements") << "<ModuleClass><Class>A</Class></ModuleClass><ModuleClass><Class>B</Class>"
                                     "</ModuleClass>"
                                  << QStringList{"A|", "B|"};
}

void tst_SlotsSection::moduleClass()
{
    QFETCH(QString, children);
    QFETCH(QStringList, expected);
    QStringList found;
    for (const struct_ModuleClass& moduleClass : slotOf(QString(), children).ModuleClass)
        found << text(moduleClass.Class) + '|' + text(moduleClass.Name);
    QCOMPARE(found, expected);
}

void tst_SlotsSection::moduleIdent_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QStringList>("expected"); // "ident" or "ident default" per record, in decimal
    QTest::addRow("one") << "<ModuleIdent>#x1000</ModuleIdent>" << QStringList{"4096"};
    QTest::addRow("two in document order")
        << "<ModuleIdent>#x1000</ModuleIdent><ModuleIdent>5</ModuleIdent>" << QStringList{"4096", "5"};
    QTest::addRow("default 1") << "<ModuleIdent Default='1'>5</ModuleIdent>" << QStringList{"5 default"};
    QTest::addRow("default true") << "<ModuleIdent Default='true'>5</ModuleIdent>" << QStringList{"5 default"};
    QTest::addRow("default is stored as 1, whatever the number")
        << "<ModuleIdent Default='7'>5</ModuleIdent>" << QStringList{"5 default"};
    QTest::addRow("default 0") << "<ModuleIdent Default='0'>5</ModuleIdent>" << QStringList{"5"};
    QTest::addRow("default in other case") << "<ModuleIdent default='1'>5</ModuleIdent>" << QStringList{"5"};
    QTest::addRow("an empty element makes none") << "<ModuleIdent Default='1'/>" << QStringList{};
    QTest::addRow("a record per child node, each with the whole text")
        << "<ModuleIdent>#x10<!-- terminal -->00</ModuleIdent>" << QStringList{"4096", "4096", "4096"};
    QTest::addRow("other case") << "<moduleIdent>5</moduleIdent>" << QStringList{};
}

void tst_SlotsSection::moduleIdent()
{
    QFETCH(QString, children);
    QFETCH(QStringList, expected);
    QStringList found;
    for (const struct_ModuleIdent& ident : slotOf(QString(), children).ModuleIdent) {
        QVERIFY(ident.Attributes.Default <= 1);
        found << QString::number(ident.ModuleIdent) + (ident.Attributes.Default == 1 ? " default" : "");
    }
    QCOMPARE(found, expected);
}

void tst_SlotsSection::secondElementAdds()
{
    const struct_EtherCatDevice first =
        readSection(read_device_Slotsinfo, "<Slots SlotIndexIncrement='5'><Slot><Name>a</Name></Slot></Slots>");
    const struct_EtherCatDevice both =
        readSection(read_device_Slotsinfo, "<Slots><Slot><Name>b</Name></Slot></Slots>", first);
    QCOMPARE(both.Slots.vslot.size(), std::size_t{2});
    QCOMPARE(both.Slots.vslot[0].Attributes.SlotIndexIncrement, 5U);
    QCOMPARE(both.Slots.vslot[1].Attributes.SlotIndexIncrement, 0U);
    QCOMPARE(both.Slots.Attributes.SlotIndexIncrement, 0U);
}

void tst_SlotsSection::nullPointers()
{
    struct_EtherCatDevice device;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<Slots><Slot/></Slots>"), true));
    QDomElement element = document.documentElement();
    read_device_Slotsinfo(nullptr, &device);
    read_device_Slotsinfo(&element, nullptr);
    QVERIFY(device.Slots.vslot.empty());
}

static const testMain::Registration<tst_SlotsSection, QCoreApplication> registration;
#include "tst_SlotsSection.moc"
