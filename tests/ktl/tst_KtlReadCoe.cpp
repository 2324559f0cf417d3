// The CoE item read back: flags, commands, and how many of them there are.
#include "ktl/ktlReading.h"
#include "testMain.h"

#include <QtTest>

class tst_KtlReadCoe : public QObject
{
    Q_OBJECT

private slots:
    void flagsOfCoe_data();
    void flagsOfCoe();
    void commands();
    void commandCount_data();
    void commandCount();
};

void tst_KtlReadCoe::flagsOfCoe_data()
{
    QTest::addColumn<int>("place");
    const char* const names[] = {"SdoInfo",      "PdoAssign",      "PdoUpload",  "PdoConfig",
                                 "SegmentedSdo", "CompleteAccess", "DiagHistory"};
    for (int place = 0; place < 7; ++place)
        QTest::addRow("%s", names[place]) << place;
}

void tst_KtlReadCoe::flagsOfCoe()
{
    QFETCH(int, place);
    QByteArray flags = zeros(8);
    flags[place] = '\x02';
    const CoeAttributes coe = deviceReadFrom(ktlItem(40006, flags)).Mailbox.COE.Attributes;
    const QList<bool> read{coe.SdoInfo,      coe.PdoAssign,      coe.PdoUpload,  coe.PdoConfig,
                           coe.SegmentedSdo, coe.CompleteAccess, coe.DiagHistory};
    for (int other = 0; other < read.size(); ++other)
        QCOMPARE(read[other], other == place);
}

void tst_KtlReadCoe::commands()
{
    const QByteArray first = bytes("03 00  12 1C  01  00  02 00  00 16 00 00");
    const QByteArray second = bytes("01 80  00 16  FF  01  10 00  FF FF FF FF");
    const struct_EtherCatDevice device = deviceReadFrom(ktlItem(40006, zeros(7) + bytes("02") + first + second));
    const std::vector<struct_InitCmd>& read = device.Mailbox.COE.InitCmd.vinitcmd;
    QCOMPARE(read.size(), std::size_t(2));
    QCOMPARE(int(read[0].Transition), int(IP_PS));
    QCOMPARE(int(read[0].Index), 0x1C12);
    QCOMPARE(int(read[0].SubIndex), 1);
    QCOMPARE(int(read[0].bIfCA), 0);
    QCOMPARE(int(read[0].DataBytes), 2);
    QCOMPARE(read[0].Data, 0x1600U);
    QCOMPARE(read[0].Comment, std::string("TEMP"));
    QCOMPARE(read[0].strData, std::string("0x1600"));
    QCOMPARE(int(read[1].Transition), 0x8001);
    QCOMPARE(int(read[1].SubIndex), 255);
    QCOMPARE(int(read[1].bIfCA), 1);
    QCOMPARE(int(read[1].DataBytes), 16);
    QCOMPARE(read[1].Data, 0xFFFFFFFFU);
    QCOMPARE(read[1].strData, std::string("0xffffffff"));
    QVERIFY(read[1].m_CADataList.empty());
    QVERIFY(device.mMailbox.COE.vinitcmd.empty());
    QVERIFY(device.Mailbox.EOE.InitCmd.vinitcmd.empty());
}

void tst_KtlReadCoe::commandCount_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<int>("size"); // the whole item
    QTest::addColumn<int>("expected");
    QTest::addRow("none") << 0 << 16 << 0;
    QTest::addRow("254: the most that the byte counts") << 254 << 16 + 254 * 12 << 254;
    QTest::addRow("255 commands") << 255 << 16 + 255 * 12 << 255;
    QTest::addRow("320 commands") << 255 << 3856 << 320;
    QTest::addRow("255 and room for fewer") << 255 << 16 + 20 * 12 << 20;
    QTest::addRow("255 and room for a part of one") << 255 << 16 + 20 * 12 + 8 << 20;
    QTest::addRow("255 in an item of a head") << 255 << 16 << 0;
    QTest::addRow("17, and room for 300: the room wins") << 17 << 16 + 300 * 12 << 300;
    QTest::addRow("17, and room for 255: the room wins") << 17 << 16 + 255 * 12 << 255;
    QTest::addRow("17, and room for 254 and a part: the byte wins") << 17 << 16 + 254 * 12 + 8 << 17;
    QTest::addRow("2, and values of complete accesses after them") << 2 << 16 + 2 * 12 + 100 << 2;
    QTest::addRow("2, and a full block of values after them: read as commands") << 2 << 16 + 2 * 12 + 4096 << 343;
    QTest::addRow("17, and room for 5") << 17 << 16 + 5 * 12 << 5;
    QTest::addRow("17, and room for 5 and a part: the rest of it is 0") << 17 << 16 + 5 * 12 + 4 << 6;
}

void tst_KtlReadCoe::commandCount()
{
    QFETCH(int, byte);
    QFETCH(int, size);
    QFETCH(int, expected);
    QByteArray body = zeros(7) + QByteArray(1, static_cast<char>(byte)) + QByteArray(size - 16, '\x11');
    const struct_EtherCatDevice device = deviceReadFrom(ktlItem(40006, body));
    const std::vector<struct_InitCmd>& read = device.Mailbox.COE.InitCmd.vinitcmd;
    QCOMPARE(int(read.size()), expected);
    if (!read.empty()) {
        const bool isWhole = 16 + 12 * expected <= size;
        QCOMPARE(int(read.back().Index), 0x1111);
        QCOMPARE(read.back().Data, isWhole ? 0x11111111U : 0U);
    }
}

static const testMain::Registration<tst_KtlReadCoe, QCoreApplication> registration;
#include "tst_KtlReadCoe.moc"
