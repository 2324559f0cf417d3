// The lengths of sync managers, computed from the PDOs whenever the sync managers are shown.
#include "esi/derivation/smLengths.h"
#include "testMain.h"
#include "workbench/syncManagerBuilders.h"
#include "workbench/tabFixture.h"

#include <stdexcept>

using Lengths = QVector<float>;

class tst_SyncManagerLengths : public TabFixture
{
    Q_OBJECT

private slots:
    void init() { begin(GeneralTab); }
    void cleanup() { end(); }
    static void lengths_data();
    void lengths();
    void everyDisplayComputesAgain();
    static void unknownSyncManager_data();
    static void unknownSyncManager();

private:
    QTableView& smView() { return table(window(), "SmView"); }
    QTableView& syncView() { return table(window(), "SyncManagerView"); }
};

/// PDOs as "manager:size manager:size ...".
template<typename Pdo> static std::vector<Pdo> pdosFrom(const QString& text, float Pdo::*size)
{
    std::vector<Pdo> made;
    for (const QString& each : text.split(' ', Qt::SkipEmptyParts)) {
        made.emplace_back();
        made.back().Attributes.SM = each.section(':', 0, 0).toInt();
        made.back().*size = each.section(':', 1).toFloat();
    }
    return made;
}

void tst_SyncManagerLengths::lengths_data()
{
    QTest::addColumn<QVector<int>>("types");
    QTest::addColumn<QStringList>("pdos"); // Rx, Tx, Rx of modules, Tx of modules
    QTest::addColumn<Lengths>("expected"); // each sync manager starts from 100
    const QVector<int> usual{1, 2, 3, 4};
    QTest::addRow("no PDOs: mailboxes keep theirs, the others start from 0")
        << usual << QStringList{"", "", "", ""} << Lengths{100, 100, 0, 0};
    QTest::addRow("unknown kinds start from 0 too")
        << QVector<int>{0, 5} << QStringList{"", "", "", ""} << Lengths{0, 0};
    QTest::addRow("Rx on outputs") << usual << QStringList{"2:6", "", "", ""} << Lengths{100, 100, 6, 0};
    QTest::addRow("Tx on inputs") << usual << QStringList{"", "3:8", "", ""} << Lengths{100, 100, 0, 8};
    QTest::addRow("Rx of a module") << usual << QStringList{"", "", "2:5", ""} << Lengths{100, 100, 5, 0};
    QTest::addRow("Tx of a module") << usual << QStringList{"", "", "", "3:7"} << Lengths{100, 100, 0, 7};
    QTest::addRow("all of them add up") << usual << QStringList{"2:1 2:2", "3:3 3:4", "2:5 2:6", "3:7 3:8"}
                                        << Lengths{100, 100, 14, 22};
    QTest::addRow("no carry from the tenths")
        << usual << QStringList{"2:1.4 2:1.4", "", "", ""} << Lengths{100, 100, 1.4F + 1.4F, 0};
    QTest::addRow("on no sync manager") << usual << QStringList{"-1:6 -2:6", "-1:6", "-1:6", "-1:6"}
                                        << Lengths{100, 100, 0, 0};
    QTest::addRow("Rx on inputs is left out") << usual << QStringList{"3:6", "", "3:6", ""} << Lengths{100, 100, 0, 0};
    QTest::addRow("Tx on outputs is left out") << usual << QStringList{"", "2:6", "", "2:6"} << Lengths{100, 100, 0, 0};
    QTest::addRow("on a mailbox") << usual << QStringList{"0:6 1:6", "0:6 1:6", "0:6 1:6", "0:6 1:6"}
                                  << Lengths{100, 100, 0, 0};
    QTest::addRow("the position counts, not the kind")
        << QVector<int>{4, 3, 3} << QStringList{"2:1 1:2", "0:3", "", ""} << Lengths{3, 2, 1};
}

void tst_SyncManagerLengths::lengths()
{
    QFETCH(QVector<int>, types);
    QFETCH(QStringList, pdos);
    QFETCH(Lengths, expected);
    struct_EtherCatDevice device = deviceNamed("Drive");
    for (const int type : types)
        device.vSM.push_back(syncManager(9, type, "", 100)); // its number is not what PDOs name
    device.RxPdo.vpdo = pdosFrom(pdos[0], &struct_PDOList::Size);
    device.TxPdo.vpdo = pdosFrom(pdos[1], &struct_PDOList::Size);
    device.mRxPdo.mpdo = pdosFrom(pdos[2], &modulePdo::size);
    device.mTxPdo.mpdo = pdosFrom(pdos[3], &modulePdo::size);
    show({device}); // without slots the lists of modules stay as they are
    QStringList shown;
    for (const float length : qAsConst(expected))
        shown.append(QString::number(double(length), 'f', 2));
    QCOMPARE(allTexts(syncView()).size(), shown.size());
    for (int row = 0; row < expected.size(); ++row) {
        QCOMPARE(allTexts(syncView())[row][1], shown[row]);
        QCOMPARE(loadedDevice().vSM[std::size_t(row)].Length, expected[row]);
    }
}

void tst_SyncManagerLengths::everyDisplayComputesAgain()
{
    show({usualDevice()});
    loadedDevice().RxPdo.vpdo[0].Size = 9.0F;
    QVERIFY(callSlot(window(), "device_sm_display"));
    QCOMPARE(allTexts(smView())[2][2], QString("0x9"));
    loadedDevice().RxPdo.vpdo.clear();
    clickDevice(0);
    QCOMPARE(allTexts(smView())[2][2], QString("0x00"));
    QCOMPARE(allTexts(smView())[0][2], QString("0x80")); // a mailbox is never computed
}

void tst_SyncManagerLengths::unknownSyncManager_data()
{
    QTest::addColumn<QStringList>("pdos");
    QTest::addRow("Rx") << QStringList{"4:1", "", "", ""};
    QTest::addRow("Tx") << QStringList{"", "4:1", "", ""};
    QTest::addRow("Rx of a module") << QStringList{"", "", "4:1", ""};
    QTest::addRow("Tx of a module") << QStringList{"", "", "", "4:1"};
}

void tst_SyncManagerLengths::unknownSyncManager()
{
    QFETCH(QStringList, pdos);
    struct_EtherCatDevice device = usualDevice();
    device.RxPdo.vpdo = pdosFrom(pdos[0], &struct_PDOList::Size);
    device.TxPdo.vpdo = pdosFrom(pdos[1], &struct_PDOList::Size);
    device.mRxPdo.mpdo = pdosFrom(pdos[2], &modulePdo::size);
    device.mTxPdo.mpdo = pdosFrom(pdos[3], &modulePdo::size);
    QVERIFY_EXCEPTION_THROWN(updateProcessDataLengths(device), std::out_of_range);
}

static const testMain::Registration<tst_SyncManagerLengths, QApplication> registration;
#include "tst_SyncManagerLengths.moc"
