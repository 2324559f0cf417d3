// What the user may do with a file.
#include "system/fileAccess.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <unistd.h>

class tst_FileAccess : public QObject
{
    Q_OBJECT

private slots:
    static void file()
    {
        const SystemPlace place;
        const std::string path = place.make("file", "");
        QVERIFY(os::isThere(path));
        QVERIFY(os::isWritable(path));
    }

    static void nothing()
    {
        const SystemPlace place;
        QVERIFY(!os::isThere(place.path("gone")));
        QVERIFY(!os::isWritable(place.path("gone")));
    }

    /// A link to nothing is not there.
    static void brokenLink()
    {
        const SystemPlace place;
        QCOMPARE(symlink("gone", place.path("link").c_str()), 0);
        QVERIFY(!os::isThere(place.path("link")));
    }

    /// A file without write permission can be written by root alone.
    static void readOnly()
    {
        const SystemPlace place;
        const std::string path = place.make("file", "");
        QVERIFY(QFile::setPermissions(QFile::decodeName(path.c_str()), QFileDevice::ReadOwner));
        QVERIFY(os::isThere(path));
        QCOMPARE(os::isWritable(path), geteuid() == 0);
    }
};

static const testMain::Registration<tst_FileAccess, testMain::NoApplication> registration;
#include "tst_FileAccess.moc"
