// The readers of the sections by their fixed names: each reads an element of a document into a record.
#include "esi/xmlparsing.h"
#include "model/deviceRecords.h"
#include "model/moduleRecords.h"
#include "testMain.h"

#include <QDomDocument>
#include <QtTest>

using DeviceReader = void (*)(QDomElement*, struct_EtherCatDevice*);
using ModuleReader = void (*)(QDomElement*, struct_module*);
Q_DECLARE_METATYPE(DeviceReader)
Q_DECLARE_METATYPE(ModuleReader)

class tst_SectionFronts : public QObject
{
    Q_OBJECT

private slots:
    static void devices_data();
    static void devices();
    static void modules_data();
    static void modules();
    static void elementInItsDocument();
};

namespace {

QDomDocument documentOf(const QString& xml)
{
    QDomDocument document;
    if (!document.setContent(xml, true))
        qFatal("the XML of this test is not well-formed: %s", qPrintable(xml));
    return document;
}

/// How much is in a device, each list counted in a place of its own.
int contentOf(const struct_EtherCatDevice& device)
{
    return static_cast<int>(device.TypeAttributes.Product_Code + 10 * device.Mailbox.COE.InitCmd.vinitcmd.size()
                            + 100 * device.vFmmu.size() + 1000 * device.vSM.size() + 10000 * device.vopmode.size()
                            + 100000 * device.RxPdo.vpdo.size() + 1000000 * device.TxPdo.vpdo.size()
                            + 10000000 * (device.Dictionary.vdatatype.size() + 2 * device.Dictionary.vobject.size())
                            + 100000000 * device.Slots.vslot.size());
}

int contentOf(const struct_module& module)
{
    return static_cast<int>(module.TypeAttributes.ModuleIdent + 10 * module.Dictionary.vdatatype.size()
                            + 100 * module.Dictionary.vobject.size());
}

/// Reads an element, and then with each pointer null, which changes nothing.
template<typename Record> int contentAfter(void (*read)(QDomElement*, Record*), const QString& xml)
{
    QDomElement element = documentOf(xml).documentElement();
    Record record;
    read(&element, &record);
    read(nullptr, &record);
    read(&element, nullptr);
    return contentOf(record);
}

} // namespace

void tst_SectionFronts::devices_data()
{
    QTest::addColumn<DeviceReader>("read");
    QTest::addColumn<QString>("element");
    QTest::addColumn<int>("content");
    const auto row = [](const char* what, DeviceReader read, const char* element, int content) {
        QTest::addRow("%s", what) << read << QString::fromLatin1(element) << content;
    };
    row("product", read_device_Productinfo, "<Type ProductCode='7'/>", 7);
    row("mailbox", read_device_Mailboxinfo, "<Mailbox><CoE><InitCmd/><InitCmd/></CoE></Mailbox>", 20);
    row("FMMU", read_device_Fmmuinfo, "<Fmmu>Inputs</Fmmu>", 100);
    row("sync manager", read_device_SMinfo, "<Sm>Inputs</Sm>", 1000);
    row("distributed clocks", read_device_Dcinfo, "<Dc><OpMode/><OpMode/><OpMode/></Dc>", 30000);
    row("output PDO", read_device_RxPdoinfo, "<RxPdo/>", 100000);
    row("input PDO", read_device_TxPdoinfo, "<TxPdo/>", 1000000);
    row("data types", read_device_DataTypes, "<DataTypes><DataType/></DataTypes>", 10000000);
    row("objects", read_device_Objects, "<Objects><Object/></Objects>", 20000000);
    row("slots", read_device_Slotsinfo, "<Slots><Slot/><Slot/></Slots>", 200000000);
}

void tst_SectionFronts::devices()
{
    QFETCH(DeviceReader, read);
    QFETCH(QString, element);
    QTEST(contentAfter(read, element), "content");
}

void tst_SectionFronts::modules_data()
{
    QTest::addColumn<ModuleReader>("read");
    QTest::addColumn<QString>("element");
    QTest::addColumn<int>("content");
    const auto row = [](const char* what, ModuleReader read, const char* element, int content) {
        QTest::addRow("%s", what) << read << QString::fromLatin1(element) << content;
    };
    row("module", read_device_Module, "<Module><Type ModuleIdent='5'/></Module>", 5);
    row("module with a dictionary", read_device_Module,
        "<Module><Profile><Dictionary><DataTypes><DataType/></DataTypes><Objects><Object/></Objects></Dictionary>"
        "</Profile></Module>",
        110);
    row("data types", read_device_moduleDataTypes, "<DataTypes><DataType/><DataType/></DataTypes>", 20);
    row("objects", read_device_moduleObjects, "<Objects><Object/></Objects>", 100);
}

void tst_SectionFronts::modules()
{
    QFETCH(ModuleReader, read);
    QFETCH(QString, element);
    QTEST(contentAfter(read, element), "content");
}

/// What is beside the element in its document is not read.
void tst_SectionFronts::elementInItsDocument()
{
    const QDomDocument document =
        documentOf(QStringLiteral("<Device><Sm>Outputs</Sm><Sm StartAddress='4096'>Inputs</Sm><Sm/></Device>"));
    QDomElement second = document.documentElement().firstChildElement().nextSiblingElement();
    struct_EtherCatDevice device;
    read_device_SMinfo(&second, &device);
    QCOMPARE(device.vSM.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(device.vSM.front().Name), QStringLiteral("Inputs"));
    QCOMPARE(static_cast<int>(device.vSM.front().Attributes.StartAddress), 4096);
}

static const testMain::Registration<tst_SectionFronts, testMain::NoApplication> registration;
#include "tst_SectionFronts.moc"
