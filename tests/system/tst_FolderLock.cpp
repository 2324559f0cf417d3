// One run at a time writes into a folder.
#include "system/folderLock.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <cerrno>

#include <unistd.h>

class tst_FolderLock : public QObject
{
    Q_OBJECT

private slots:
    static void oneHolder()
    {
        const SystemPlace place;
        os::FolderLock first(place.folder());
        os::FolderLock second(place.folder());
        QVERIFY(first.tryLock() == os::LockAnswer::Held);
        QCOMPARE(place.names(), QStringList{".ktl.lock"});
        QVERIFY(second.tryLock() == os::LockAnswer::InUse);
        first.release();
        QCOMPARE(place.names(), QStringList());
        QVERIFY(second.tryLock() == os::LockAnswer::Held);
    }

    /// The lock goes with its object.
    static void end()
    {
        const SystemPlace place;
        {
            os::FolderLock lock(place.folder());
            QVERIFY(lock.tryLock() == os::LockAnswer::Held);
        }
        QCOMPARE(place.names(), QStringList());
    }

    /// Whoever does not hold the lock removes nothing.
    static void fileOfAnother()
    {
        const SystemPlace place;
        os::FolderLock first(place.folder());
        QVERIFY(first.tryLock() == os::LockAnswer::Held);
        {
            os::FolderLock second(place.folder());
            QVERIFY(second.tryLock() == os::LockAnswer::InUse);
            second.removeFile();
        }
        QCOMPARE(place.names(), QStringList{".ktl.lock"});
    }

    /// A file that a dead run has left over blocks nobody.
    static void leftOver()
    {
        const SystemPlace place;
        QVERIFY(!place.make(".ktl.lock", "").empty());
        os::FolderLock lock(place.folder());
        QVERIFY(lock.tryLock() == os::LockAnswer::Held);
    }

    /// A link is not followed.
    static void link()
    {
        const SystemPlace place;
        QVERIFY(!place.make("target", "").empty());
        QCOMPARE(symlink("target", place.path(".ktl.lock").c_str()), 0);
        os::FolderLock lock(place.folder());
        QVERIFY(lock.tryLock() == os::LockAnswer::Failed);
        QCOMPARE(errno, ELOOP);
    }

    static void noFolder()
    {
        const SystemPlace place;
        os::FolderLock lock(place.path("gone"));
        QVERIFY(lock.tryLock() == os::LockAnswer::Failed);
        QCOMPARE(errno, ENOENT);
    }
};

static const testMain::Registration<tst_FolderLock, testMain::NoApplication> registration;
#include "tst_FolderLock.moc"
