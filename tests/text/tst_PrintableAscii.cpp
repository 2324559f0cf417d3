// The bytes of nearly all texts.
#include "testMain.h"
#include "text/printableAscii.h"

#include <QtTest>

class tst_PrintableAscii : public QObject
{
    Q_OBJECT

private slots:
    static void bytes_data()
    {
        QTest::addColumn<int>("byte");
        QTest::addColumn<bool>("expected");
        QTest::addRow("zero") << 0x00 << false;
        QTest::addRow("last control before the blank") << 0x1F << false;
        QTest::addRow("blank") << 0x20 << true;
        QTest::addRow("tilde") << 0x7E << true;
        QTest::addRow("delete") << 0x7F << false;
        QTest::addRow("first byte after ASCII") << 0x80 << false;
        QTest::addRow("last byte") << 0xFF << false;
    }

    /// Alone, and in a text.
    static void bytes()
    {
        QFETCH(int, byte);
        QFETCH(bool, expected);
        const auto character = static_cast<char>(byte);
        QCOMPARE(isPrintableAscii(character), expected);
        QCOMPARE(isPrintableAscii(std::string{'a', character, 'b'}), expected);
    }

    static void emptyText() { QVERIFY(isPrintableAscii("")); }
};

static const testMain::Registration<tst_PrintableAscii, testMain::NoApplication> registration;
#include "tst_PrintableAscii.moc"
