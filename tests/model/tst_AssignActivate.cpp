// The bits of the assign-activate word that have a name.
#include "model/assignActivate.h"
#include "testMain.h"

#include <QtTest>

class tst_AssignActivate : public QObject
{
    Q_OBJECT

private slots:
    static void bits_data();
    static void bits();
};

void tst_AssignActivate::bits_data()
{
    QTest::addColumn<unsigned>("word");
    QTest::addColumn<QString>("expected"); // cyclic mode, SYNC 0, SYNC 1
    QTest::addRow("none") << 0U << "000";
    QTest::addRow("cyclic mode") << 0x100U << "100";
    QTest::addRow("SYNC 0") << 0x200U << "010";
    QTest::addRow("SYNC 1") << 0x400U << "001";
    QTest::addRow("all three") << 0x700U << "111";
    QTest::addRow("all bits but these") << 0xFFFFF8FFU << "000";
}

void tst_AssignActivate::bits()
{
    QFETCH(unsigned, word);
    QFETCH(QString, expected);
    QString found;
    for (const AssignActivateBit bit :
         {AssignActivateBit::CyclicMode, AssignActivateBit::Sync0, AssignActivateBit::Sync1})
        found += isActive(word, bit) ? '1' : '0';
    QCOMPARE(found, expected);
}

static const testMain::Registration<tst_AssignActivate, QCoreApplication> registration;
#include "tst_AssignActivate.moc"
