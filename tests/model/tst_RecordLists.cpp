// What holds for the records as a whole: short names, token numbers, values that own what is under them, the stores.
#include "model/XMLParsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <type_traits>

static_assert(std::is_same_v<str_FilenameDevice, struct_FilenameDevice>);
static_assert(std::is_same_v<str_EtherCatDevice, struct_EtherCatDevice>);
static_assert(std::is_same_v<str_DataTypes, struct_DataTypes>);
static_assert(std::is_same_v<str_Object, struct_Object>);
static_assert(std::is_same_v<str_Info, struct_ObjectInfo>);
static_assert(std::is_same_v<str_ObjectSubitem, struct_Subitem>);
static_assert(std::is_same_v<str_PDOList, struct_PDOList>);
static_assert(std::is_same_v<str_EntryPDOContent, struct_EntryPDOContent>);
static_assert(std::is_same_v<str_InitCmd, struct_InitCmd>);
static_assert(std::is_same_v<str_SM, struct_SM>);
static_assert(std::is_same_v<str_Slot, struct_Slot>);
static_assert(std::is_same_v<str_ModuleClass, struct_ModuleClass>);
static_assert(std::is_same_v<str_ModuleIdent, struct_ModuleIdent>);
static_assert(std::is_same_v<str_slotmodule, struct_slotmodule>);
static_assert(std::is_same_v<str_module, struct_module>);
static_assert(std::is_same_v<str_moduleEntry, struct_moduleEntry>);
static_assert(std::is_same_v<str_moduleInitCmd, struct_moduleInitCmd>);
static_assert(std::is_same_v<str_commentmodule, struct_commentmodule>);
static_assert(std::is_same_v<Str_Fmmu, Struct_Fmmu>);
static_assert(std::is_same_v<Str_DCOpMode, Struct_DCOpMode>);
static_assert(std::is_same_v<Str_DCSm, Struct_DCSm>);
static_assert(std::is_same_v<Str_DCPdo, Struct_DCPdo>);
static_assert(sizeof(NMTOKEN) == 4);

class tst_RecordLists : public QObject
{
    Q_OBJECT

private slots:
    static void tokenNumber_data();
    static void tokenNumber();
    static void aCopyOwnsEverythingUnderIt();
    static void listOfFilesStartsEmpty();
    static void documentStartsEmpty();
};

void tst_RecordLists::tokenNumber_data()
{
    QTest::addColumn<unsigned int>("token");
    QTest::addColumn<unsigned int>("number");
    QTest::addRow("no token") << unsigned{UnknownType} << 0U;
    QTest::addRow("INIT to PREOP") << unsigned{IP} << 1U;
    QTest::addRow("PREOP to SAFEOP") << unsigned{PS} << 2U;
    QTest::addRow("INIT to PREOP and PREOP to SAFEOP") << unsigned{IP_PS} << 3U;
    QTest::addRow("PREOP to INIT") << unsigned{PI} << 4U;
    QTest::addRow("SAFEOP to PREOP") << unsigned{SP} << 5U;
    QTest::addRow("SAFEOP to OP") << unsigned{SO} << 6U;
    QTest::addRow("SAFEOP to INIT") << unsigned{SI} << 7U;
    QTest::addRow("OP to SAFEOP") << unsigned{OS} << 8U;
    QTest::addRow("OP to PREOP") << unsigned{OP} << 9U;
    QTest::addRow("OP to INIT") << unsigned{OI} << 10U;
    QTest::addRow("INIT to BOOT") << unsigned{IB} << 11U;
    QTest::addRow("BOOT to INIT") << unsigned{BI} << 12U;
    QTest::addRow("mandatory") << unsigned{m} << 13U;
    QTest::addRow("optional") << unsigned{o} << 14U;
    QTest::addRow("conditional") << unsigned{c} << 15U;
    QTest::addRow("read only") << unsigned{ro} << 16U;
    QTest::addRow("read and write") << unsigned{rw} << 17U;
    QTest::addRow("write only") << unsigned{wo} << 18U;
    QTest::addRow("mapping t") << unsigned{t} << 19U;
    QTest::addRow("mapping r") << unsigned{r} << 20U;
    QTest::addRow("mapping tr") << unsigned{::tr} << 21U;
    QTest::addRow("product code not checked") << unsigned{NONE} << 22U;
    QTest::addRow("product code equal") << unsigned{EQ} << 23U;
}

void tst_RecordLists::tokenNumber()
{
    QFETCH(unsigned int, token);
    QFETCH(unsigned int, number);
    QCOMPARE(token, number);
}

void tst_RecordLists::aCopyOwnsEverythingUnderIt()
{
    struct_FilenameDevice file;
    file.device.resize(1);
    file.device[0].RxPdo.vpdo.resize(1);
    file.device[0].RxPdo.vpdo[0].Entry.vPdo_c.resize(1);
    file.device[0].RxPdo.vpdo[0].Entry.vPdo_c[0].Name = "Controlword";

    const struct_FilenameDevice copy = file;
    file.device[0].RxPdo.vpdo[0].Entry.vPdo_c[0].Name = "changed";
    file.device[0].RxPdo.vpdo[0].Entry.vPdo_c.resize(2);

    QCOMPARE(copy.device[0].RxPdo.vpdo[0].Entry.vPdo_c.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(copy.device[0].RxPdo.vpdo[0].Entry.vPdo_c[0].Name), QStringLiteral("Controlword"));
}

void tst_RecordLists::listOfFilesStartsEmpty()
{
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_RecordLists::documentStartsEmpty()
{
    QVERIFY(domDocument.documentElement().isNull());
}

static const testMain::Registration<tst_RecordLists, QCoreApplication> registration;
#include "tst_RecordLists.moc"
