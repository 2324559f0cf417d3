// Numbers in words that people read.
#include "model/deviceType.h"
#include "model/pdoLink.h"
#include "model/syncDirection.h"
#include "show/showWords.h"
#include "testMain.h"

#include <QtTest>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class tst_ShowWords : public QObject
{
    Q_OBJECT

private slots:
    static void hexadecimal();
    static void pairsOfBytes();
    static void names();
    static void bitsOfAssignActivate();
    static void processData();
    static void counts();
    static void times_data();
    static void times();
    static void meanings_data();
    static void meanings();
};

void tst_ShowWords::hexadecimal()
{
    QCOMPARE(show::hexText(0), std::string("0x0"));
    QCOMPARE(show::hexText(0x1C12), std::string("0x1c12"));
    QCOMPARE(show::hexText(-2), std::string("-0x2"));
    QCOMPARE(show::hexText(0xFFFFFFFF), std::string("0xffffffff"));
    QCOMPARE(show::hexText(INT64_MIN), std::string("-0x8000000000000000"));
}

void tst_ShowWords::pairsOfBytes()
{
    const unsigned char content[] = {0x00, 0x9C, 0x0F, 0xFF};
    const ItemBytes item(content, sizeof content);
    QCOMPARE(show::bytesText(item, 0, 4), std::string("00 9c 0f ff"));
    QCOMPARE(show::bytesText(item, 1, 2), std::string("9c"));
    QCOMPARE(show::bytesText(item, 2, 2), std::string());
}

void tst_ShowWords::names()
{
    QCOMPARE(show::deviceTypeName(KTL_DEVICE_TYPE_MultiDriver), std::string("MultiDriver"));
    QCOMPARE(show::deviceTypeName(-1), std::string());
    QCOMPARE(show::directionName(KTL_Outputs), std::string("Outputs"));
    QCOMPARE(show::directionName(200), std::string());
    QCOMPARE(show::linkWords(KTL_PDO_TYPE_DOUT), std::string("DOUT Type"));
    QCOMPARE(show::linkWords(12345), std::string("12345"));
    QCOMPARE(show::tokenName(3), std::string("IP_PS"));
    QCOMPARE(show::tokenName(0), std::string());
}

void tst_ShowWords::bitsOfAssignActivate()
{
    const std::vector<std::string> expected{"bit 0", "bit 8: cyclic operation enabled", "bit 9: SYNC 0",
                                            "bit 10: SYNC 1", "bit 31"};
    QCOMPARE(show::assignActivateWords(0x80000701), expected);
    QVERIFY(show::assignActivateWords(0).empty());
}

void tst_ShowWords::processData()
{
    QCOMPARE(show::dataDirection(true), std::string_view("inputs"));
    QCOMPARE(show::dataDirection(false), std::string_view("outputs"));
    QCOMPARE(show::identityText(0x7E570002, 0x5001, 0), std::string("0x7e570002:0x5001:0x00"));
    QCOMPARE(show::pdoLabel(0x1600, "Control", -1), std::string("PDO 0x1600 \"Control\""));
    QCOMPARE(show::pdoLabel(0x1A01, "", 2), std::string("PDO 0x1a01, slot 3"));
    QCOMPARE(show::withName(0x1600, std::string(121, 'x')), "0x1600 \"" + std::string(117, 'x') + "...\"");
    QCOMPARE(show::objectText(0x6000, 17), std::string("0x6000:17"));
    QCOMPARE(show::placeText(15), std::string("1.7"));
}

void tst_ShowWords::counts()
{
    QCOMPARE(show::counted(0, "byte"), std::string("0 bytes"));
    QCOMPARE(show::counted(1, "byte"), std::string("1 byte"));
    QCOMPARE(show::counted(2, "entry", "entries"), std::string("2 entries"));
}

void tst_ShowWords::times_data()
{
    QTest::addColumn<qint64>("nanoseconds");
    QTest::addColumn<QString>("text");
    QTest::addRow("whole milliseconds") << qint64{2000000} << QStringLiteral("2 ms");
    QTest::addRow("whole microseconds") << qint64{1250000} << QStringLiteral("1250 us");
    QTest::addRow("fraction") << qint64{62500} << QStringLiteral("62.5 us");
    QTest::addRow("zeros behind the point") << qint64{1001} << QStringLiteral("1.001 us");
    QTest::addRow("less than one") << qint64{50} << QStringLiteral("0.05 us");
    QTest::addRow("negative") << qint64{-50500} << QStringLiteral("-50.5 us");
    QTest::addRow("lowest of its records") << qint64{INT32_MIN} << QStringLiteral("-2147483.648 us");
}

void tst_ShowWords::times()
{
    QFETCH(qint64, nanoseconds);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(show::timeText(nanoseconds)), text);
}

void tst_ShowWords::meanings_data()
{
    QTest::addColumn<int>("meaning");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("words");
    const auto row = [](const char* name, KtlMeaning meaning, int number, const char* words) {
        QTest::addRow("%s", name) << static_cast<int>(meaning) << number << QString::fromLatin1(words);
    };
    row("number", KtlMeaning::Number, 4, "");
    row("device type", KtlMeaning::DeviceType, KTL_DEVICE_TYPE_IOBlock, "IOBlock");
    row("direction", KtlMeaning::Direction, KTL_MBoxIn, "MBoxIn");
    row("link", KtlMeaning::Link, KTL_PDO_TYPE_DIN, "DIN Type");
    row("transition", KtlMeaning::Transition, 2, "PS");
    row("DC word", KtlMeaning::AssignActivate, 0x300, "bit 8: cyclic operation enabled, bit 9: SYNC 0");
}

void tst_ShowWords::meanings()
{
    QFETCH(int, meaning);
    QFETCH(int, number);
    QFETCH(QString, words);
    QCOMPARE(QString::fromStdString(show::wordsOf(static_cast<KtlMeaning>(meaning), number)), words);
}

static const testMain::Registration<tst_ShowWords, testMain::NoApplication> registration;
#include "tst_ShowWords.moc"
