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
    void closedWays();
    static void named();
    static void folderWithNameOfStream();

private:
    static find::FileList listOf(const QStringList& paths)
    {
        return find::listFiles(paths, [](const QString& path) { return path == QLatin1String("-"); });
    }
    /// What a user without the rights of root finds, who may read every folder.
    static find::FileList listOfOrdinaryUser(const QString& path, bool& isOrdinary)
    {
        const OrdinaryUser user;
        isOrdinary = user.isOrdinary();
        return isOrdinary ? listOf({path}) : find::FileList();
    }
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
    const find::FileList list = listOf({folder.filePath("b.xml"), folder.path() + "/"});
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
    QVERIFY(QFile::link(folder.filePath("ring"), folder.filePath("ring")));
    QVERIFY(listOf({folder.path()}).unreadable.empty());
    QCOMPARE(below(folder, listOf({folder.path()})), QStringList({"a/x.xml", "b.xml"}));
    QCOMPARE(below(folder, listOf({folder.filePath("d")})), QStringList{"d/x.xml"});
}

void tst_FileList::unreadable()
{
    const QTemporaryDir folder;
    make(folder, "a/x.xml");
    make(folder, "b.xml");
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions()));
    bool isOrdinary = false;
    const find::FileList list = listOfOrdinaryUser(folder.path(), isOrdinary);
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions(0x7777)));
    QVERIFY2(isOrdinary, "The system refuses to give up the rights of root.");
    QCOMPARE(below(folder, list), QStringList{"b.xml"});
    QCOMPARE(list.unreadable.size(), std::size_t{1});
    QCOMPARE(list.unreadable[0].path, folder.filePath("a"));
    QCOMPARE(list.unreadable[0].reason, QStringLiteral("Permission denied"));
    QVERIFY(list.unreadable[0].isFolder);
}

/// A folder that can be listed and not entered, and a link into a closed one: what is there is not known.
void tst_FileList::closedWays()
{
    const QTemporaryDir folder;
    make(folder, "a/x.xml");
    make(folder, "closed/y.xml");
    QVERIFY(QFile::link(folder.filePath("closed/y.xml"), folder.filePath("link.xml")));
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions(0x4444)));
    QVERIFY(QFile::setPermissions(folder.filePath("closed"), QFile::Permissions()));
    bool isOrdinary = false;
    const find::FileList list = listOfOrdinaryUser(folder.path(), isOrdinary);
    QVERIFY(QFile::setPermissions(folder.filePath("a"), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath("closed"), QFile::Permissions(0x7777)));
    QVERIFY2(isOrdinary, "The system refuses to give up the rights of root.");
    QVERIFY(list.paths.isEmpty());
    QStringList told;
    for (const find::UnreadablePath& each : list.unreadable)
        told +=
            QDir(folder.path()).relativeFilePath(each.path) + (each.isFolder ? ": folder: " : ": file: ") + each.reason;
    QCOMPARE(told, QStringList({"a/x.xml: file: Permission denied", "closed: folder: Permission denied",
                                "link.xml: file: Permission denied"}));
}

/// Whether they are there is for those to say who open them.
void tst_FileList::named()
{
    const find::FileList list = listOf({"gone.xml", "-", ""});
    QCOMPARE(list.paths, QStringList({"gone.xml", "-", ""}));
    QCOMPARE(list.named, (std::set<int>{0, 1, 2}));
}

/// A stream is meant, whatever there is in the working folder.
void tst_FileList::folderWithNameOfStream()
{
    const QTemporaryDir folder;
    make(folder, "-/x.xml");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const find::FileList stream = listOf({"-"});
    const find::FileList inFolder = listOf({"./-"});
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(stream.paths, QStringList{"-"});
    QCOMPARE(stream.named, std::set<int>{0});
    QCOMPARE(inFolder.paths, QStringList{"./-/x.xml"});
}

static const testMain::Registration<tst_FileList, QCoreApplication> registration;
#include "tst_FileList.moc"
