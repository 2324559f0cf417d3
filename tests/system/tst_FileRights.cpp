// Permissions of the file that is replaced; those of owners and groups are tested with the command, as other users.
#include "system/fileRights.h"
#include "system/systemPlace.h"
#include "testMain.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

unsigned modeOf(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

} // namespace

class tst_FileRights : public QObject
{
    Q_OBJECT

private slots:
    static void permissions_data()
    {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600U, 0640U, 0664U, 0777U, 0444U})
            QTest::addRow("%o", mode) << mode;
    }

    static void permissions()
    {
        QFETCH(uint, mode);
        const SystemPlace place;
        const std::string oldFile = place.make("old", "");
        const std::string newFile = place.make("new", "");
        QCOMPARE(chmod(oldFile.c_str(), mode), 0);
        os::takeOverRights(newFile, oldFile);
        QCOMPARE(modeOf(newFile), mode);
    }

    static void noOldFile()
    {
        const SystemPlace place;
        const std::string newFile = place.make("new", "");
        QCOMPARE(chmod(newFile.c_str(), 0640), 0);
        os::takeOverRights(newFile, place.path("gone"));
        QCOMPARE(modeOf(newFile), 0640U);
    }

    static void notOurs_data()
    {
        QTest::addColumn<bool>("isLink");
        QTest::addRow("a link to another file") << true;
        QTest::addRow("a file with a second name") << false;
    }

    /// What somebody else may have put there is left alone.
    static void notOurs()
    {
        QFETCH(bool, isLink);
        const SystemPlace place;
        const std::string oldFile = place.make("old", "");
        const std::string other = place.make("other", "");
        QCOMPARE(chmod(oldFile.c_str(), 0666), 0);
        QCOMPARE(chmod(other.c_str(), 0600), 0);
        const std::string newFile = place.path("new");
        QCOMPARE(isLink ? symlink(other.c_str(), newFile.c_str()) : link(other.c_str(), newFile.c_str()), 0);
        os::takeOverRights(newFile, oldFile);
        QCOMPARE(modeOf(other), 0600U);
    }
};

static const testMain::Registration<tst_FileRights, testMain::NoApplication> registration;
#include "tst_FileRights.moc"
