// The heads of a file one after another, and the number of items that they begin.
#include "ktl/ktlBytes.h"
#include "ktl/reading/itemHeads.h"
#include "ktl/reading/itemLimit.h"
#include "testMain.h"

#include <QtTest>

class tst_ItemHeads : public QObject
{
    Q_OBJECT

private slots:
    static void heads_data();
    static void heads();
    static void limit();
    static void numberOfItems_data();
    static void numberOfItems();
};

void tst_ItemHeads::heads_data()
{
    QTest::addColumn<QByteArray>("file"); // items without content
    QTest::addColumn<QString>("expected"); // type and size of each, and how the items end
    const QByteArray item = le32(40001) + le32(8);
    QTest::addRow("two items") << item + le32(7) + le32(9) << "40001:8 7:9 end";
    QTest::addRow("an empty file: size is still 0") << QByteArray() << "impossible 0:0";
    QTest::addRow("first head cut inside its size") << le32(40001) + zeros(3) << "impossible 40001:0";
    QTest::addRow("later head cut inside its type") << item + zeros(3) << "40001:8 end";
    QTest::addRow("later head cut inside its size: the size before it stays")
        << item + le32(7) + zeros(3) << "40001:8 end";
    QTest::addRow("later head cut after a negative type") << item + le32(0xFFFFFFFF) << "40001:8 impossible -1:8";
    QTest::addRow("size 7") << item + le32(1) + le32(7) + item << "40001:8 impossible 1:7";
    QTest::addRow("negative size") << le32(1) + le32(0x80000000) << "impossible 1:-2147483648";
    QTest::addRow("negative type") << le32(0x80000000) + le32(8) << "impossible -2147483648:8";
}

void tst_ItemHeads::heads()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    const FileHandle ktl = streamWith(file);
    std::rewind(ktl.get());
    ItemHeads items(ktl.get());
    QString found;
    while (items.next())
        found += QStringLiteral("%1:%2 ").arg(items.type()).arg(items.size());
    found += items.endAtImpossibleHead() ? QStringLiteral("impossible %1:%2").arg(items.type()).arg(items.size())
                                         : QStringLiteral("end");
    QCOMPARE(found, expected);
}

void tst_ItemHeads::limit()
{
    const FileHandle ktl = streamWith((le32(1) + le32(8)).repeated(2001));
    std::rewind(ktl.get());
    ItemHeads items(ktl.get());
    int count = 0;
    while (items.next())
        ++count;
    QCOMPARE(count, 2000);
    QVERIFY(!items.endAtImpossibleHead());
}

void tst_ItemHeads::numberOfItems_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("expected");
    const QByteArray item = le32(40001) + le32(12) + zeros(4);
    QTest::addRow("none") << QByteArray() << 0;
    QTest::addRow("three") << item.repeated(3) << 3;
    QTest::addRow("more than are read") << item.repeated(2500) << 2500;
    QTest::addRow("up to a head that cannot be") << item.repeated(2) + le32(1) + le32(7) + item << 2;
    QTest::addRow("a head that is cut is none") << item.repeated(2) + le32(40001) + zeros(3) << 2;
    QTest::addRow("an item that is cut counts") << item.chopped(4) << 1;
}

void tst_ItemHeads::numberOfItems()
{
    QFETCH(QByteArray, file);
    QFETCH(int, expected);
    const FileHandle ktl = streamWith(file);
    QCOMPARE(countItems(ktl.get()), static_cast<std::size_t>(expected));
}

static const testMain::Registration<tst_ItemHeads, QCoreApplication> registration;
#include "tst_ItemHeads.moc"
