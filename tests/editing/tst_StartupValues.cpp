// What can be set in a startup command by hand.
#include "editing/startupValues.h"
#include "testMain.h"

#include <QtTest>

class tst_StartupValues : public QObject
{
    Q_OBJECT

private slots:
    static void setInACommandOfADevice();
    static void setInACommandOfAModule();
    static void readBack();
};

/// The text follows the data; comment and mark stay.
void tst_StartupValues::setInACommandOfADevice()
{
    struct_InitCmd command;
    command.Comment = "stays";
    command.bIfCA = 1;
    command.strData = "old";
    setStartupValues(command, {0x12010, 0x107, 0x10002, 0xFFFFFFFF});
    QCOMPARE(int(command.Index), 0x2010);
    QCOMPARE(int(command.SubIndex), 7); // 8 bits
    QCOMPARE(int(command.DataBytes), 2);
    QCOMPARE(command.Data, 0xFFFFFFFFU);
    QCOMPARE(command.strData, std::string("0xffffffff"));
    QCOMPARE(command.Comment, std::string("stays"));
    QCOMPARE(int(command.bIfCA), 1);
}

void tst_StartupValues::setInACommandOfAModule()
{
    struct_moduleInitCmd command;
    setStartupValues(command, {0x12010, 0x10107, 0x10002, 10});
    QCOMPARE(int(command.indexAttributes.index), 0x2010);
    QCOMPARE(int(command.SubIndex), 0x107); // 16 bits
    QCOMPARE(int(command.DataBytes), 2);
    QCOMPARE(command.strData, std::string("0xa"));
}

void tst_StartupValues::readBack()
{
    struct_moduleInitCmd command;
    setStartupValues(command, {0x2010, 0x107, 2, 10});
    const StartupValues values = startupValuesOf(command);
    QCOMPARE(values.index, 0x2010U);
    QCOMPARE(values.subIndex, 0x107U);
    QCOMPARE(values.dataBytes, 2U);
    QCOMPARE(values.data, 10U);
}

static const testMain::Registration<tst_StartupValues, testMain::NoApplication> registration;
#include "tst_StartupValues.moc"
