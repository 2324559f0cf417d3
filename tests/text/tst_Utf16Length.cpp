// Lengths in the units of UTF-16.
#include "testMain.h"
#include "text/utf16Length.h"

#include <QtTest>

class tst_Utf16Length : public QObject
{
    Q_OBJECT

private slots:
    static void lengths_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("length");
        QTest::addRow("empty") << QByteArray() << 0;
        QTest::addRow("ASCII") << QByteArray("0A0B") << 4;
        QTest::addRow("two bytes") << QByteArray("\xC3\xA9") << 1;
        QTest::addRow("three bytes") << QByteArray("\xE4\xB8\xAD\xE4\xB8\xAD") << 2;
        QTest::addRow("four bytes are a pair") << QByteArray("x\xF0\x9F\x98\x80") << 3;
    }

    static void lengths()
    {
        QFETCH(QByteArray, text);
        QTEST(static_cast<int>(utf16Length(text.toStdString())), "length");
    }
};

static const testMain::Registration<tst_Utf16Length, testMain::NoApplication> registration;
#include "tst_Utf16Length.moc"
