// The files of a call: their order, links, and folders that cannot be read.
#include "find/fileList.h"
#include "testMain.h"
#include "workbench/ordinaryUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_FileList : public QObject
{
    Q_OBJECT

private slots:
    void order();
    void links();
    void unreadable();
    static void named();

private:
    static QStringList below(const QTemporaryDir& folder, const find::FileList& list)
    {
        QStringList paths;
        for (const QString& path : list.paths)
            paths += QDir(folder.path()).relativeFilePath(path);
        return paths;
    }
};

static void make(const QTemporaryDir& folder, const QString& name)
{
    QVERIFY(QDir(folder.path()).mkpath(QFileInfo(name).path()));
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void tst_FileList::order()
{
    const QTemporaryDir folder;
    for (const char* const name : {"b.xml", "B.xml", "a/z.xml", "a/c/y.xml", "a.xml", ".hidden"})
        make(folder, QString::fromLatin1(name));
    const find::FileList list = find::listFiles({folder.filePath("b.xml"), folder.path() + "/"});
    QCOMPARE(below(folder, list), QStringList({"b.xml", ".hidden", "B.xml", "a/c/y.xml", "a/z.xml", "a.xml", "b.xml"}));
    QCOMPARE(list.named, std::set<int>{0});
    QVERIFY(list.unreadable.empty());
}

void tst_FileList::links()
{
    const QTemporaryDir folder;
    make(folder, "a/x.xml");
    QVERIFY(QFile::link(folder.path(), folder.filePath("a/loop")));
    QVERIFY(QFile::link(folder.filePath("a/x.xml"), folder.filePath("b.xml")));
    QVERIFY(QFile::link(folder.filePath("gone"), folder.filePath("c.xml")));
    QVERIFY(QFile::link(folder.filePath("a"), folder.filePath("d")));
    QCOMPARE(below(folder, find::listFiles({folder.path()})), QStringList({"a/x.xml", "b.xml"}));
    QCOMPARE(below(folder, find::listFiles({folder.filePath("d")})), QStringList{"d/x.xml"});
}

void tst_FileList::unreadable()
{
    const QTemporaryDir folder;
    make(folder, "a/x.xml");
    make(folder, "b.xml");
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions()));
    find::FileList list;
    {
        const OrdinaryUser user;
        QVERIFY2(user.isOrdinary(),
                 "The system refuses to give up the rights of root, and root may read every folder.");
        list = find::listFiles({folder.path()});
    }
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions(0x7777)));
    QCOMPARE(below(folder, list), QStringList{"b.xml"});
    QCOMPARE(list.unreadable.size(), std::size_t{1});
    QCOMPARE(list.unreadable[0].first, folder.filePath("a"));
    QCOMPARE(list.unreadable[0].second, QStringLiteral("Permission denied"));
}

/// Whether they are there is for those to say who open them.
void tst_FileList::named()
{
    const find::FileList list = find::listFiles({"gone.xml", "-", ""});
    QCOMPARE(list.paths, QStringList({"gone.xml", "-", ""}));
    QCOMPARE(list.named, (std::set<int>{0, 1, 2}));
}

static const testMain::Registration<tst_FileList, QCoreApplication> registration;
#include "tst_FileList.moc"
