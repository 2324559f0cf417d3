// The rows of the Startup tab: the commands of three lists.
// Covers mainwindow_startup.cpp.
#include "testMain.h"
#include "workbench/editorParts.h"
#include "workbench/startupBuilders.h"
#include "workbench/startupeditwin.h"
#include "workbench/tabFixture.h"

#include <QAbstractItemModelTester>

#include <cstdint>

class tst_StartupTab : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(StartupTab); }
    void cleanup() { end(); }
    void rows();
    static void completeAccess_data();
    void completeAccess();
    static void colour_data();
    void colour();
    void otherRowsKeepTheirColour();
    void countsHaveSixteenBits();
    void clickOnAFileEmptiesTheTable();
    void fillsDoNotAddUp();
    static void nothingIsShownWithoutADevice_data();
    void nothingIsShownWithoutADevice();
    void modelKeepsItsContract();

private:
    QTableView& commands() { return table(window(), "StartupView"); }
};

void tst_StartupTab::rows()
{
    struct_EtherCatDevice device = deviceWithCommands();
    struct_InitCmd& coe = device.Mailbox.COE.InitCmd.vinitcmd[0];
    coe.Transition = PS;
    coe.Index = 0x6060;
    coe.SubIndex = 10;
    coe.DataBytes = 1;
    coe.Comment = "运行模式";
    coe.bIfCA = 1;
    device.Mailbox.COE.InitCmd.vinitcmd[1].Transition = IP_PS;
    struct_InitCmd& eoe = device.Mailbox.EOE.InitCmd.vinitcmd[0];
    eoe.Transition = IP;
    eoe.Index = 0x1234;
    eoe.SubIndex = 7;
    eoe.DataBytes = 300;
    struct_moduleInitCmd& ofModule = device.mMailbox.COE.vinitcmd[0];
    ofModule.Transition = SO;
    ofModule.indexAttributes.index = 0x8000;
    ofModule.SubIndex = 300;
    ofModule.DataBytes = 2;
    ofModule.Comment = "download pdo";
    show({device});
    QCOMPARE(allTexts(commands()),
             QVector<QStringList>({{"PS", "COE", "0x6060:10", "0x1", "1", "运行模式", "0x1"},
                                   {"IP_PS", "COE", "0x00:0", "0x00", "2", "", "0x00"},
                                   {"IP", "EOE", "0x1234 C 0", "0x12c", "3", "", "0x00"},
                                   {"SO", "COE", "0x8000:300", "0x2", "4", "download pdo", "0x00"},
                                   {"", "COE", "0x00:0", "0x00", "5", "", "0x00"}}));
}

void tst_StartupTab::completeAccess_data()
{
    QTest::addColumn<bool>("completeAccess");
    QTest::addColumn<QStringList>("indexes");
    QTest::addRow("with complete access") << true << QStringList{"0x00 C 0", "0x00:0", "0x00:0", "0x00:0", "0x00:0"};
    QTest::addRow("without") << false << QStringList{"0x00:0", "0x00:0", "0x00:0", "0x00:0", "0x00:0"};
}

void tst_StartupTab::completeAccess()
{
    QFETCH(bool, completeAccess);
    struct_EtherCatDevice device = deviceWithCommands();
    device.Mailbox.COE.Attributes.CompleteAccess = completeAccess;
    device.Mailbox.COE.InitCmd.vinitcmd[0].Comment = "download pdo";
    device.Mailbox.EOE.InitCmd.vinitcmd[0].Comment = "download pdo";
    device.mMailbox.COE.vinitcmd[0].Comment = "download pdo";
    show({device});
    QTEST(columnTexts(commands(), 2), "indexes");
}

void tst_StartupTab::colour_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("isRed");
    QTest::addRow("assignment of outputs") << 0x1C12 << false;
    QTest::addRow("assignment of inputs") << 0x1C13 << false;
    QTest::addRow("assignment of the next sync manager") << 0x1C14 << true;
    QTest::addRow("assignment of the one before") << 0x1C11 << true;
    QTest::addRow("other object") << 0x8000 << true;
    QTest::addRow("no index") << 0 << true;
}

void tst_StartupTab::colour()
{
    constexpr int moduleRow = 3;
    QFETCH(int, index);
    QFETCH(bool, isRed);
    struct_EtherCatDevice device = deviceWithCommands();
    device.mMailbox.COE.vinitcmd[0].indexAttributes.index = static_cast<std::uint16_t>(index);
    show({device});
    const QAbstractItemModel* const model = commands().model();
    QCOMPARE(model->columnCount(), 7);
    for (int column = 0; column < 7; ++column) {
        const QVariant foreground = model->index(moduleRow, column).data(Qt::ForegroundRole);
        QCOMPARE(foreground.isValid(), isRed);
        if (isRed)
            QCOMPARE(foreground.value<QBrush>(), QBrush(QColor(255, 0, 0, 255), Qt::SolidPattern));
    }
}

void tst_StartupTab::otherRowsKeepTheirColour()
{
    show({deviceWithCommands()});
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 7; ++column)
            QVERIFY(!commands().model()->index(row, column).data(Qt::ForegroundRole).isValid());
}

void tst_StartupTab::countsHaveSixteenBits()
{
    struct_EtherCatDevice device = deviceWithCommands();
    device.Mailbox.COE.InitCmd.vinitcmd.resize(65536 + 1); // counts as 1
    show({device});
    QCOMPARE(columnTexts(commands(), 4), QStringList({"1", "3", "4", "5"}));
    chooseFromMenu(commands(), "delete", 1); // the row of the EoE command
    QCOMPARE(startupValues(loadedDevice().Mailbox.EOE.InitCmd.vinitcmd), QString());
    QCOMPARE(loadedDevice().Mailbox.COE.InitCmd.vinitcmd.size(), std::size_t(65536 + 1));
}

void tst_StartupTab::clickOnAFileEmptiesTheTable()
{
    show({deviceWithCommands()});
    QCOMPARE(commands().model()->rowCount(), 5);
    clickDevice(-1);
    QCOMPARE(commands().model()->rowCount(), 0);
}

void tst_StartupTab::fillsDoNotAddUp()
{
    show({deviceWithCommands()});
    QVERIFY(callSlot(window(), "device_startup_display"));
    clickDevice(0);
    QCOMPARE(columnTexts(commands(), 4), QStringList({"1", "2", "3", "4", "5"}));
}

void tst_StartupTab::nothingIsShownWithoutADevice_data()
{
    addSelectionsWithoutADevice();
}

void tst_StartupTab::nothingIsShownWithoutADevice()
{
    show({deviceWithCommands()});
    QFETCH(int, file);
    QFETCH(int, device);
    currentfileindex = file;
    currentdeviceindex = device;
    QVERIFY(callSlot(window(), "device_startup_display"));
    QCOMPARE(columnTexts(commands(), 4), QStringList({"1", "2", "3", "4", "5"})); // as it was
}

void tst_StartupTab::modelKeepsItsContract()
{
    const QAbstractItemModelTester tester(commands().model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    show({deviceWithCommands(), deviceNamed("Plain")});
    chooseFromMenu(commands(), "add", 2);
    press(*openEditorIn<Startupeditwin>(window()), "StartupSavebutton");
    chooseFromMenu(commands(), "delete", 5);
    clickDevice(1);
    clickDevice(0);
    QCOMPARE(commands().model()->rowCount(), 5);
    clickDevice(-1);
    QCOMPARE(commands().model()->rowCount(), 0);
}

static const testMain::Registration<tst_StartupTab, QApplication> registration;
#include "tst_StartupTab.moc"
