// New files and their places: all are moved, or none.
#include "system/fileMoves.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <cerrno>

class tst_FileMoves : public QObject
{
    Q_OBJECT

private slots:
    static void toFreeName()
    {
        const SystemPlace place;
        QVERIFY(os::moveToFreeName(place.make("new", "fresh"), place.path("file")));
        QCOMPARE(place.names(), QStringList{"file"});
        QCOMPARE(place.content("file"), QByteArray("fresh"));
    }

    static void toTakenName()
    {
        const SystemPlace place;
        QCOMPARE(place.make("file", "old"), place.path("file"));
        QVERIFY(!os::moveToFreeName(place.make("new", "fresh"), place.path("file")));
        QCOMPARE(errno, EEXIST);
        QCOMPARE(place.content("file"), QByteArray("old"));
        QCOMPARE(place.content("new"), QByteArray("fresh"));
    }

    static void bothFiles()
    {
        const SystemPlace place;
        QCOMPARE(place.make("one", "old"), place.path("one"));
        const std::vector<os::FileMove> moves{{place.make("a", "1"), place.path("one"), place.path("kept1"), true},
                                              {place.make("b", "2"), place.path("two"), place.path("kept2"), false}};
        QVERIFY(os::moveAll(moves) == nullptr);
        QCOMPARE(place.content("one"), QByteArray("1"));
        QCOMPARE(place.content("two"), QByteArray("2"));
        QCOMPARE(place.content("kept1"), QByteArray("old"));
    }

    /// A place where a file has to be replaced may be empty.
    static void nothingToReplace()
    {
        const SystemPlace place;
        const std::vector<os::FileMove> moves{{place.make("a", "1"), place.path("one"), place.path("kept1"), true}};
        QVERIFY(os::moveAll(moves) == nullptr);
        QCOMPARE(place.names(), QStringList{"one"});
    }

    static void secondFails_data()
    {
        QTest::addColumn<bool>("hasOld");
        QTest::addRow("the first place was taken") << true;
        QTest::addRow("the first place was free") << false;
    }

    /// The second place is taken by a file that must stay: the first place is as it was before.
    static void secondFails()
    {
        QFETCH(bool, hasOld);
        const SystemPlace place;
        if (hasOld)
            QCOMPARE(place.make("one", "old"), place.path("one"));
        QCOMPARE(place.make("two", "precious"), place.path("two"));
        const std::vector<os::FileMove> moves{{place.make("a", "1"), place.path("one"), place.path("kept1"), true},
                                              {place.make("b", "2"), place.path("two"), place.path("kept2"), false}};
        QVERIFY(os::moveAll(moves) == &moves[1]);
        QCOMPARE(errno, EEXIST);
        QCOMPARE(place.content("two"), QByteArray("precious"));
        QCOMPARE(place.content("one"), hasOld ? QByteArray("old") : QByteArray("cannot be read"));
    }
};

static const testMain::Registration<tst_FileMoves, testMain::NoApplication> registration;
#include "tst_FileMoves.moc"
