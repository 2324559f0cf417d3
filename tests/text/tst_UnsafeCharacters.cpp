// Characters that must not reach a terminal as they are.
#include "testMain.h"
#include "text/unsafeCharacters.h"

#include <QtTest>

class tst_UnsafeCharacters : public QObject
{
    Q_OBJECT

private slots:
    static void characters_data()
    {
        QTest::addColumn<int>("first"); // of a range, with the characters beside it that are not in it
        QTest::addColumn<int>("last");
        QTest::addColumn<bool>("isOfDirection");
        QTest::addRow("controls of ASCII") << 0x00 << 0x1F << false;
        QTest::addRow("controls after ASCII") << 0x7F << 0x9F << false;
        QTest::addRow("Arabic letter mark") << 0x061C << 0x061C << true;
        QTest::addRow("marks") << 0x200E << 0x200F << true;
        QTest::addRow("embeddings and overrides") << 0x202A << 0x202E << true;
        QTest::addRow("isolates") << 0x2066 << 0x2069 << true;
    }

    static void characters()
    {
        QFETCH(int, first);
        QFETCH(int, last);
        QFETCH(bool, isOfDirection);
        for (int code = first; code <= last; ++code) {
            QVERIFY(isUnsafe(QChar(code)));
            QCOMPARE(changesDirection(QChar(code)), isOfDirection);
        }
        if (first > 0)
            QVERIFY(!isUnsafe(QChar(first - 1)));
        QVERIFY(!isUnsafe(QChar(last + 1)));
    }
};

static const testMain::Registration<tst_UnsafeCharacters, testMain::NoApplication> registration;
#include "tst_UnsafeCharacters.moc"
