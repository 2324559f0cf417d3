// Hidden folders for files that are not complete yet.
#include "system/scratchFolder.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <cerrno>

#include <sys/stat.h>

class tst_ScratchFolder : public QObject
{
    Q_OBJECT

private slots:
    /// Its owner alone can enter it.
    static void made()
    {
        const SystemPlace place;
        const std::string scratch = os::makeScratchFolder(place.folder());
        QCOMPARE(place.names().size(), 1);
        QVERIFY(QRegularExpression("^\\.ktl-\\w{6}$").match(place.names().constFirst()).hasMatch());
        QCOMPARE(scratch, place.path(place.names().constFirst().toLatin1().constData()));
        struct stat status = {};
        QCOMPARE(stat(scratch.c_str(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0700U);
    }

    static void cannotBeMade()
    {
        const SystemPlace place;
        QCOMPARE(os::makeScratchFolder(place.path("gone")), std::string());
        QCOMPARE(errno, ENOENT);
    }

    static void removed_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("left"); // empty if the folder is gone
        QTest::addRow("empty") << QStringList{} << QStringList{};
        QTest::addRow("with all of its files")
            << QStringList{"new.ktl", "new.ktl.txt", "kept.ktl", "kept.ktl.txt"} << QStringList{};
        QTest::addRow("with a file of somebody else") << QStringList{"new.ktl", "letter"} << QStringList{"letter"};
    }

    static void removed()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, left);
        const SystemPlace place;
        const std::string scratch = os::makeScratchFolder(place.folder());
        const QString name = place.names().constFirst();
        for (const QString& file : files)
            QVERIFY(!place.make((name + '/' + file).toLatin1().constData(), "content").empty());
        os::removeScratchFolder(scratch);
        QCOMPARE(place.names(), left.isEmpty() ? QStringList() : QStringList{name});
        QCOMPARE(QDir(QFile::decodeName(scratch.c_str())).entryList(QDir::Files), left);
    }

    /// Only folders with such a name go.
    static void leftOver()
    {
        const SystemPlace place;
        for (const char* name : {".ktl-abcdef", ".ktl-abcdefg", ".ktl-abcde", "ktl-abcdef"})
            QVERIFY(QDir().mkdir(QFile::decodeName(place.path(name).c_str())));
        QVERIFY(!place.make(".ktl-ABCDEF", "a file").empty());
        os::removeLeftScratchFolders(place.folder());
        QStringList names = place.names();
        names.sort();
        QCOMPARE(names, (QStringList{".ktl-ABCDEF", ".ktl-abcde", ".ktl-abcdefg", "ktl-abcdef"}));
    }
};

static const testMain::Registration<tst_ScratchFolder, testMain::NoApplication> registration;
#include "tst_ScratchFolder.moc"
