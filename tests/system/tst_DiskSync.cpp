// Bringing files to the disk.
#include "system/diskSync.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <cerrno>

class tst_DiskSync : public QObject
{
    Q_OBJECT

private slots:
    static void file()
    {
        const SystemPlace place;
        QVERIFY(os::syncFile(place.make("file", "content")));
        QCOMPARE(place.content("file"), QByteArray("content"));
    }

    static void noFile()
    {
        const SystemPlace place;
        QVERIFY(!os::syncFile(place.path("gone")));
        QCOMPARE(errno, ENOENT);
    }

    /// A device that keeps nothing cannot be asked, which is no failure.
    static void cannotBeAsked() { QVERIFY(os::syncFile("/dev/null")); }
};

static const testMain::Registration<tst_DiskSync, testMain::NoApplication> registration;
#include "tst_DiskSync.moc"
