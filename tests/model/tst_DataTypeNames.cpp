// What the name of a data type tells: structured or simple, text or number.
#include "model/dataTypeNames.h"
#include "testMain.h"

#include <QtTest>

class tst_DataTypeNames : public QObject
{
    Q_OBJECT

private slots:
    static void structured_data();
    static void structured();
    static void text_data();
    static void text();
};

void tst_DataTypeNames::structured_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("expected");
    QTest::addRow("mark and object index") << QByteArray("DT1C12") << true;
    QTest::addRow("mark alone") << QByteArray("DT") << true;
    QTest::addRow("mark at the end") << QByteArray("AxisDT") << true;
    QTest::addRow("mark within a word") << QByteArray("WIDTH") << true;
    QTest::addRow("lower case") << QByteArray("dt1C12") << false;
    QTest::addRow("letters apart") << QByteArray("D_T") << false;
    QTest::addRow("unsigned number") << QByteArray("UDINT") << false;
    QTest::addRow("empty") << QByteArray() << false;
}

void tst_DataTypeNames::structured()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, expected);
    QCOMPARE(isStructuredType(name.constData()), expected);
}

void tst_DataTypeNames::text_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("expected");
    QTest::addRow("of a length") << QByteArray("STRING(12)") << true;
    QTest::addRow("mark at the end") << QByteArray("VISIBLE_STRING") << true;
    QTest::addRow("lower case") << QByteArray("string(12)") << false;
    QTest::addRow("part of the mark") << QByteArray("STRIN") << false;
    QTest::addRow("number") << QByteArray("UINT") << false;
    QTest::addRow("empty") << QByteArray() << false;
}

void tst_DataTypeNames::text()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, expected);
    QCOMPARE(isStringType(name.constData()), expected);
}

static const testMain::Registration<tst_DataTypeNames, testMain::NoApplication> registration;
#include "tst_DataTypeNames.moc"
