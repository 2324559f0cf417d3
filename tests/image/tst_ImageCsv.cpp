// Process images as comma-separated values.
// Covers imageCsv.cpp.
#include "image/imageParts.h"
#include "testMain.h"

#include <QtTest>

class tst_ImageCsv : public QObject
{
    Q_OBJECT

private slots:
    static void rows();
    static void longNames();
};

void tst_ImageCsv::rows()
{
    const QByteArray place = "a.xml,2,\"Drive, left\",0x7e57,0x1,0x20,inputs,3,";
    QCOMPARE(imageParts::written(image::Form::Csv, imageParts::deviceWith({imageParts::mixedArea()})).split('\n'),
             (QList<QByteArray>{
                 "file,device,deviceName,vendorId,productCode,revisionNo,direction,syncManager,byte,bit,bitLength,kind,"
                 "pdo,pdoName,slot,index,subIndex,name,type,link\r",
                 place + "0,0,1,entry,0x1a00,Status,,0x6000,1,Ready,UINT,NONE Type\r",
                 place + "0,1,12,entry,0x1a00,Status,,0x6001,1,Level,UINT,NONE Type\r",
                 place + "1,5,2,gap,0x1a00,Status,,0x0,0,,,NONE Type\r",
                 place + "1,7,3,entry,0x1a10,Module,2,0x6010,1,Mode,UINT,NONE Type\r",
                 place + "2,2,6,padding,,,,,,,,\r", ""}));
}

/// A name that is in many rows is cut, so that a file of some megabytes makes no table of gigabytes. One of a single
/// row is whole.
void tst_ImageCsv::longNames()
{
    image::Area area = imageParts::mixedArea();
    area.pdos[0].name.assign(1000000, 'p');
    area.pdos[0].rows[0].name.assign(1000000, 'n');
    const QByteArray table = imageParts::written(image::Form::Csv, imageParts::deviceWith({area}));
    QCOMPARE(table.count(QByteArray(256, 'p') + "...,"), 3);
    QVERIFY(!table.contains(QByteArray(257, 'p')));
    QVERIFY(table.count('n') > 1000000);
}

static const testMain::Registration<tst_ImageCsv, testMain::NoApplication> registration;
#include "tst_ImageCsv.moc"
