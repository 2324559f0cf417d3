// The cells of the tables' rows, record by record; those of PDOs are in tst_PdoRowTexts.
#include "testMain.h"
#include "workbench/rowTexts.h" // first, so that the header compiles on its own

#include <QtTest>

#include <cstdint>
#include <string>

Q_DECLARE_METATYPE(StartupList)

class tst_RowTexts : public QObject
{
    Q_OBJECT

private slots:
    static void decimals_data();
    static void decimals();
    static void brackets();
    static void fmmu_data();
    static void fmmu();
    static void syncManager_data();
    static void syncManager();
    static void length_data();
    static void length();
    static void startupIndex_data();
    static void startupIndex();
    static void startupOfDevice_data();
    static void startupOfDevice();
    static void startupOfModule();
    static void transition_data();
    static void transition();
    static void everyStartupCellHasAnItem();
};

void tst_RowTexts::decimals_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("shown");
    QTest::addRow("nothing") << 0.0F << "0.00";
    QTest::addRow("half") << 4.5F << "4.50";
    QTest::addRow("bytes and bits") << 1.4F << "1.40";
    QTest::addRow("sum without a carry") << 1.4F + 1.4F << "2.80";
    QTest::addRow("third decimal is rounded") << 0.128F << "0.13";
    QTest::addRow("large numbers have no exponent") << 1048576.0F << "1048576.00";
}

void tst_RowTexts::decimals()
{
    QFETCH(float, value);
    QFETCH(QString, shown);
    QCOMPARE(twoDecimals(value), shown);
}

void tst_RowTexts::brackets()
{
    QCOMPARE(bracketed(0x1C12), QString("(0x1c12)"));
    QCOMPARE(bracketed(0), QString("(0x00)"));
}

void tst_RowTexts::fmmu_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned int>("sm");
    QTest::addColumn<unsigned int>("su");
    QTest::addColumn<bool>("opOnly");
    QTest::addColumn<QStringList>("cells");
    QTest::addRow("outputs") << "Outputs" << 2U << 0U << false << QStringList{"Outputs", "0x2", "0x00", "0x00"};
    QTest::addRow("only in operation") << "Inputs" << 3U << 1U << true << QStringList{"Inputs", "0x3", "0x1", "0x1"};
    QTest::addRow("greatest numbers") << "输出" << 0xFFFFFFFFU << 0xABCDU << true
                                      << QStringList{"输出", "0xffffffff", "0xabcd", "0x1"};
    QTest::addRow("cleared") << "" << 0U << 0U << false << QStringList{"", "0x00", "0x00", "0x00"};
}

void tst_RowTexts::fmmu()
{
    QFETCH(QString, name);
    QFETCH(unsigned int, sm);
    QFETCH(unsigned int, su);
    QFETCH(bool, opOnly);
    Struct_Fmmu record;
    record.m_Name = name.toStdString();
    record.m_Sm = sm;
    record.m_Su = su;
    record.m_OpOnly = opOnly;
    QTEST(fmmuRow(record), "cells");
}

void tst_RowTexts::syncManager_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<unsigned int>("control");
    QTest::addColumn<QStringList>("sizes"); // address, least, most, default
    QTest::addColumn<QStringList>("cells");
    // 38 + 65536 is 65574, 0x10026.
    QTest::addRow("mailbox") << 0 << 38U << QStringList{"4096", "34", "256", "128"}
                             << QStringList{"0", "0x1000", "0x00", "0x10026", "0x22", "0x100", "0x80"};
    QTest::addRow("nothing set") << 3 << 0U << QStringList{"0", "0", "0", "0"}
                                 << QStringList{"3", "0x00", "0x00", "0x10000", "0x00", "0x00", "0x00"};
    // The bit is added, so one that is set already carries on: 0x10064 + 0x10000.
    QTest::addRow("bit 16 is set already") << 10 << 0x10064U << QStringList{"0", "0", "0", "0"}
                                           << QStringList{"10", "0x00", "0x00", "0x20064", "0x00", "0x00", "0x00"};
    QTest::addRow("greatest numbers") << 255 << 0xFFFEFFFFU << QStringList{"65535", "65535", "65535", "65535"}
                                      << QStringList{"255",    "0xffff", "0x00",  "0xffffffff",
                                                     "0xffff", "0xffff", "0xffff"};
}

void tst_RowTexts::syncManager()
{
    QFETCH(int, number);
    QFETCH(unsigned int, control);
    QFETCH(QStringList, sizes);
    struct_SM record;
    record.SM = static_cast<std::uint8_t>(number);
    record.Attributes.ControlByte = control;
    record.Attributes.StartAddress = sizes[0].toUShort();
    record.Attributes.MinSize = sizes[1].toUShort();
    record.Attributes.MaxSize = sizes[2].toUShort();
    record.Attributes.DefaultSize = sizes[3].toUShort();
    QTEST(smRow(record), "cells");
    QCOMPARE(record.Attributes.ControlByte, control); // only what is shown has the bit
}

void tst_RowTexts::length_data()
{
    QTest::addColumn<float>("length");
    QTest::addColumn<QString>("inBytes"); // table of the General tab
    QTest::addColumn<QString>("withDecimals"); // small table of the Process Data tab
    QTest::addRow("nothing") << 0.0F << "0x00"
                             << "0.00";
    QTest::addRow("half") << 4.5F << "0x4"
                          << "4.50";
    QTest::addRow("tenths are dropped, not rounded") << 15.9F << "0xf"
                                                     << "15.90";
    QTest::addRow("less than a byte") << 0.7F << "0x00"
                                      << "0.70";
    QTest::addRow("whole") << 128.0F << "0x80"
                           << "128.00";
}

void tst_RowTexts::length()
{
    QFETCH(float, length);
    struct_SM record;
    record.SM = 2;
    record.Name = "Outputs";
    record.Length = length;
    QTEST(smRow(record).value(2), "inBytes");
    QCOMPARE(syncRow(record).size(), 3);
    QCOMPARE(syncRow(record).value(0), QString("2"));
    QTEST(syncRow(record).value(1), "withDecimals");
    QCOMPARE(syncRow(record).value(2), QString("Outputs"));
}

void tst_RowTexts::startupIndex_data()
{
    QTest::addColumn<StartupList>("list");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<bool>("completeAccess");
    QTest::addColumn<QString>("shown");
    struct Case
    {
        const char* comment;
        const char* coe; // without complete access
        const char* coeComplete; // with it
        const char* eoe; // whatever the device takes
    };
    const char* const plain = "0x1c12:17";
    const char* const whole = "0x1c12 C 0";
    const Case cases[] = {
        {"", plain, plain, whole},
        {"set homing", plain, plain, whole},
        {"download pdo", plain, whole, plain},
        {"download pdo 0x1C12 count", plain, whole, plain},
        {"please download pdo", plain, whole, plain},
        {"clear pdo", plain, whole, whole},
        {"clear pdo 0x1C12 entries", plain, whole, whole},
        {"clear pdo, download pdo", plain, whole, plain},
        {"Download PDO", plain, plain, whole},
        {"download  pdo", plain, plain, whole},
        {"Clear Pdo", plain, plain, whole},
    };
    for (const Case& each : cases) {
        QTest::addRow("CoE '%s'", each.comment) << StartupList::DeviceCoe << each.comment << false << each.coe;
        QTest::addRow("CoE '%s', complete access", each.comment)
            << StartupList::DeviceCoe << each.comment << true << each.coeComplete;
        QTest::addRow("EoE '%s'", each.comment) << StartupList::DeviceEoe << each.comment << false << each.eoe;
        QTest::addRow("EoE '%s', complete access", each.comment)
            << StartupList::DeviceEoe << each.comment << true << each.eoe;
        QTest::addRow("module '%s'", each.comment) << StartupList::ModuleCoe << each.comment << false << plain;
        QTest::addRow("module '%s', complete access", each.comment)
            << StartupList::ModuleCoe << each.comment << true << plain;
    }
}

void tst_RowTexts::startupIndex()
{
    constexpr int indexColumn = 2;
    QFETCH(StartupList, list);
    QFETCH(QString, comment);
    QFETCH(bool, completeAccess);
    QString shown;
    if (list == StartupList::ModuleCoe) {
        struct_moduleInitCmd command;
        command.indexAttributes.index = 0x1C12;
        command.SubIndex = 17;
        command.Comment = comment.toStdString();
        shown = startupRow(command, list, completeAccess).value(indexColumn);
    } else {
        struct_InitCmd command;
        command.Index = 0x1C12;
        command.SubIndex = 17;
        command.Comment = comment.toStdString();
        shown = startupRow(command, list, completeAccess).value(indexColumn);
    }
    QTEST(shown, "shown");
}

void tst_RowTexts::startupOfDevice_data()
{
    QTest::addColumn<StartupList>("list");
    QTest::addColumn<QStringList>("cells");
    QTest::addRow("CoE") << StartupList::DeviceCoe
                         << QStringList{"PS", "COE", "0x6060:255", "0x4", "0x8 as given", "运行模式", "0x1"};
    QTest::addRow("EoE") << StartupList::DeviceEoe
                         << QStringList{"PS", "EOE", "0x6060 C 0", "0x4", "0x8 as given", "运行模式", "0x1"};
}

void tst_RowTexts::startupOfDevice()
{
    QFETCH(StartupList, list);
    struct_InitCmd command;
    command.Transition = PS;
    command.Index = 0x6060;
    command.SubIndex = 255;
    command.bIfCA = 1;
    command.DataBytes = 4;
    command.Data = 99; // the text counts, not the number
    command.strData = "0x8 as given";
    command.Comment = QStringLiteral("运行模式").toStdString();
    QTEST(startupRow(command, list, false), "cells");
}

void tst_RowTexts::startupOfModule()
{
    struct_moduleInitCmd command;
    command.Transition = IP_PS;
    command.indexAttributes.index = 0x8000;
    command.SubIndex = 65535;
    command.DataBytes = 65535;
    command.strData = "0x00";
    command.Comment = "filter";
    command.bIfCA = 255;
    QCOMPARE(startupRow(command, StartupList::ModuleCoe, true),
             QStringList({"IP_PS", "COE", "0x8000:65535", "0xffff", "0x00", "filter", "0xff"}));
}

void tst_RowTexts::transition_data()
{
    QTest::addColumn<unsigned int>("transition");
    QTest::addColumn<QString>("shown");
    QTest::addRow("none") << 0U << "";
    QTest::addRow("init to pre-operational") << 1U << "IP";
    QTest::addRow("pre-operational to safe-operational") << 2U << "PS";
    QTest::addRow("both") << 3U << "IP_PS";
    QTest::addRow("safe-operational to operational") << 6U << "SO";
    QTest::addRow("not in the list") << 99U << "";
}

void tst_RowTexts::transition()
{
    QFETCH(unsigned int, transition);
    struct_InitCmd command;
    command.Transition = static_cast<NMTOKEN>(transition);
    QTEST(startupRow(command, StartupList::DeviceCoe, false).value(0), "shown");
    struct_moduleInitCmd ofModule;
    ofModule.Transition = static_cast<NMTOKEN>(transition);
    QTEST(startupRow(ofModule, StartupList::ModuleCoe, false).value(0), "shown");
}

void tst_RowTexts::everyStartupCellHasAnItem()
{
    // A null text would leave its cell without an item, and so without the colour of its row.
    for (const QString& cell : startupRow(struct_moduleInitCmd{}, StartupList::ModuleCoe, false))
        QVERIFY(!cell.isNull());
    for (const QString& cell : startupRow(struct_InitCmd{}, StartupList::DeviceEoe, false))
        QVERIFY(!cell.isNull());
}

static const testMain::Registration<tst_RowTexts, testMain::NoApplication> registration;
#include "tst_RowTexts.moc"
