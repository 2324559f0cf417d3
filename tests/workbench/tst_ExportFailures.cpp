// Every way in which an export fails: what is said, and what is left on disk.
#include "testMain.h"
#include "workbench/exportFixture.h"
#include "workbench/ordinaryUser.h"

#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QListView>

class tst_ExportFailures : public ExportFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { end(); }
    void emptyPath();
    void readOnlyFile();
    void readOnlyFolder();
    void vanishedFolder();
    static void fullDisk_data();
    void fullDisk();
    void fullDiskForTheDump();
    void dumpCannotBeCreated();
    void cannotBeReopened();
    void rangeErrorOfAPdo();
    void exportAfterARangeError();

private:
    static QString writeFailure(const QString& path)
    {
        return QStringLiteral("File write failure %1:\n Unknown ecoding error.").arg(path);
    }
    /// Opens the folder of the test to every user.
    void openFolder();
};

void tst_ExportFailures::init()
{
    begin({fileOfProducts("a.xml", {1, 2})});
}

void tst_ExportFailures::openFolder()
{
    for (const QString& folder : {m_folder->path(), m_out.path()})
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
}

namespace {

/// Files without a path, as a place that is no folder may offer them.
class FilesWithoutPath final : public QIdentityProxyModel
{
public:
    using QIdentityProxyModel::QIdentityProxyModel;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        return role == QFileSystemModel::FilePathRole ? QVariant(QString()) : QIdentityProxyModel::data(index, role);
    }
};

} // namespace

void tst_ExportFailures::emptyPath()
{
    const QString file = writeFile(m_out, "offered.ktl", QByteArray("stays"));
    const auto chooseNoPath = [&file](QWidget& widget) {
        auto& dialog = static_cast<QFileDialog&>(widget);
        auto* const model = dialog.findChild<QFileSystemModel*>();
        QVERIFY(QTest::qWaitFor([&] { return model->rowCount(model->index(dialog.directory().path())) > 0; }));
        auto* const files = new FilesWithoutPath(&dialog);
        dialog.setProxyModel(files);
        dialog.findChild<QListView*>("listView")
            ->selectionModel()
            ->select(files->mapFromSource(model->index(file)),
                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QCOMPARE(dialog.selectedFiles(), QStringList(""));
        static_cast<QDialog&>(dialog).accept();
    };
    const DialogAnswer choosingNoPath = {DialogAnswer::Kind::FileDialog, chooseNoPath};
    DialogDriver dialogs({choosingNoPath, pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), "File path is empty :\n");
    QCOMPARE(outFiles(), QStringList("offered.ktl"));
    QCOMPARE(contentOfFile(file), QByteArray("stays"));
}

void tst_ExportFailures::readOnlyFile()
{
    const QString path = writeFile(m_out, "a.ktl", QByteArray("stays"));
    openFolder();
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x4444)));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may write every file.");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Yes), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(2), "The file does not have write permission " + path + ":\n");
    QCOMPARE(contentOfFile(path), QByteArray("stays"));
    QCOMPARE(outFiles(), QStringList("a.ktl"));
}

void tst_ExportFailures::readOnlyFolder()
{
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(m_out.path(), QFile::Permissions(0x5555)));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(),
             "The system refuses to give up the rights of root, and root may write in every folder.");
    const QString path = outPath("a.ktl");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), writeFailure(path));
    QCOMPARE(outFiles(), QStringList());
}

void tst_ExportFailures::vanishedFolder()
{
    QVERIFY(m_out.mkdir(QStringLiteral("stick")));
    const QString path = outPath("stick/a.ktl");
    const auto pullTheStick = [this] { QVERIFY(m_out.rmdir(QStringLiteral("stick"))); };
    DialogDriver dialogs({choosing(QStringList(path), pullTheStick), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), writeFailure(path));
    QCOMPARE(outFiles(), QStringList());
}

void tst_ExportFailures::fullDisk_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<bool>("append");
    QTest::addRow("shows when the file is closed") << 1 << false;
    QTest::addRow("shows while devices are written") << 2000 << false;
    QTest::addRow("on appending") << 1 << true;
}

void tst_ExportFailures::fullDisk()
{
    QFETCH(int, devices);
    QFETCH(bool, append);
    const QString path = outPath("a.ktl");
    QVERIFY2(QFile::exists(QStringLiteral("/dev/full")) && QFile::link(QStringLiteral("/dev/full"), path),
             "The system has no device that is always full.");
    struct_FilenameDevice file = fileOfProducts("a.xml", {});
    file.device.resize(static_cast<std::size_t>(devices));
    load({file});
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Yes),
                          pressing(append ? QMessageBox::No : QMessageBox::Yes), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(3), writeFailure(path));
    QCOMPARE(outFiles(), QStringList("a.ktl")); // no dump
}

void tst_ExportFailures::fullDiskForTheDump()
{
    const QString path = outPath("a.ktl");
    const QString dumpPath = path + ".txt";
    QVERIFY2(QFile::exists(QStringLiteral("/dev/full")) && QFile::link(QStringLiteral("/dev/full"), dumpPath),
             "The system has no device that is always full.");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), writeFailure(dumpPath));
    QCOMPARE(runsIn(contentOfFile(path)), QStringList({"1", "2", "end"}));
}

void tst_ExportFailures::dumpCannotBeCreated()
{
    QVERIFY(m_out.mkdir(QStringLiteral("a.ktl.txt"))); // a folder is where the dump should be
    const QString path = outPath("a.ktl");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), writeFailure(path + ".txt"));
    QCOMPARE(runsIn(contentOfFile(path)), QStringList({"1", "2", "end"}));
}

void tst_ExportFailures::cannotBeReopened()
{
    const QString path = writeFile(m_out, "a.ktl", QByteArray());
    openFolder();
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x2222))); // may be written, but not read
    DialogDriver dialogs(
        {choosing(path), pressing(QMessageBox::Yes), pressing(QMessageBox::Yes), pressing(QMessageBox::Ok)});
    {
        const OrdinaryUser user;
        QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read every file.");
        runExport(dialogs);
    }
    compareWarning(dialogs.seen(3), "File open failure again " + path + ":\n Unknown ecoding error.");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x6666)));
    QCOMPARE(runsIn(contentOfFile(path)), QStringList({"1", "2", "end"}));
    QCOMPARE(outFiles(), QStringList("a.ktl"));
}

void tst_ExportFailures::rangeErrorOfAPdo()
{
    g_xmlfiledevices[0].device[1].vSM.resize(2);
    g_xmlfiledevices[0].device[1].TxPdo.vpdo = {pdoOn(1), pdoOn(2)}; // the device has no sync manager 2
    const QString path = outPath("a.ktl");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    runExport(dialogs);
    compareWarning(dialogs.seen(1), writeFailure(path));
    // As far as it was written: both General items and the first PDO, but neither the second PDO nor an end item.
    QString problem;
    QList<std::uint32_t> types = typesOf(itemsOf(contentOfFile(path), &problem));
    QCOMPARE(problem, QString());
    QCOMPARE(types.count(40000), 2);
    QCOMPARE(types.count(40004), 1);
    QCOMPARE(types.count(0), 0);
    QCOMPARE(outFiles(), QStringList("a.ktl")); // no dump
}

void tst_ExportFailures::exportAfterARangeError()
{
    g_xmlfiledevices[0].device[0].RxPdo.vpdo = {pdoOn(0)};
    DialogDriver failing({choosing(outPath("a.ktl")), pressing(QMessageBox::Ok)});
    runExport(failing);
    g_xmlfiledevices[0].device[0].vSM.resize(1);
    DialogDriver dialogs({choosing(outPath("a.ktl")), pressing(QMessageBox::Yes), pressing(QMessageBox::Yes)});
    runExport(dialogs);
    QCOMPARE(runsIn(contentOfFile(outPath("a.ktl"))), QStringList({"1", "2", "end"}));
    QCOMPARE(dumpProblem(outPath("a.ktl")), QString());
}

static const testMain::Registration<tst_ExportFailures, QApplication> registration;
#include "tst_ExportFailures.moc"
