// The words that are offered for the device classes.
#include "editing/deviceTypeTexts.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QtTest>

class tst_DeviceTypeTexts : public QObject
{
    Q_OBJECT

private slots:
    static void entries_data();
    static void entries();
    static void numbersThatAreNoType_data();
    static void numbersThatAreNoType();
    static void advice();
};

void tst_DeviceTypeTexts::entries_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text"); // its number is one higher than the type's
    QTest::addRow("block") << 0 << "IOBlock"
                           << "1:IOBlock(单IO模块)";
    QTest::addRow("single drive") << 1 << "SingleDriver"
                                  << "2:SingleDriver(单电机)";
    QTest::addRow("multi-axis drive") << 2 << "MultiDriver"
                                      << "3:MultiDriver(多电机)";
    QTest::addRow("coupler that finds its modules") << 3 << "PnpIOBlock"
                                                    << "4:耦合器支持上电识别模块，有F050字典，不需要预置";
    QTest::addRow("special device") << 4 << "Special"
                                    << "5:特殊设备,手动插入模块，和耦合器本身成整体设备";
    QTest::addRow("preset coupler") << 5 << "ManualIOBlock"
                                    << "6:耦合器不能识别模块，需要预置手动插入模块，没有F050字典";
}

void tst_DeviceTypeTexts::entries()
{
    QFETCH(int, type);
    const DeviceTypeText* const entry = deviceTypeTextOf(type);
    QVERIFY(entry != nullptr);
    QCOMPARE(int(entry - deviceTypeTexts), type); // the list is in the order of the types
    QTEST(QString::fromUtf8(entry->name), "name");
    QTEST(QString::fromUtf8(entry->text), "text");
}

void tst_DeviceTypeTexts::numbersThatAreNoType_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addRow("past the types") << qint64(6);
    QTest::addRow("negative") << qint64(-1);
    QTest::addRow("a type in its low 32 bits only") << (qint64(1) << 32U);
}

void tst_DeviceTypeTexts::numbersThatAreNoType()
{
    QFETCH(qint64, number);
    QVERIFY(deviceTypeTextOf(number) == nullptr);
}

void tst_DeviceTypeTexts::advice()
{
    QCOMPARE(moduleListAdvice(deviceNamed("C-100")),
             QStringLiteral("当前设备支持写F030，建议配置设备类型为类型4。请谨慎操作 C-100:\n"));
}

static const testMain::Registration<tst_DeviceTypeTexts, testMain::NoApplication> registration;
#include "tst_DeviceTypeTexts.moc"
