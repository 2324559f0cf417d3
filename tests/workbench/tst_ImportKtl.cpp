// Opening KTL files: the dialog, what the tree shows afterwards, and what is said of files that cannot be opened.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/ktlFiles.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/ordinaryUser.h"
#include "workbench/windowParts.h"

#include <QTableView>
#include <QTemporaryDir>

#include <memory>

class tst_ImportKtl : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fileDialog();
    void cancelSaysSoOnceAndRefillsTheTree();
    void oneFile();
    void runsOfAFileAreFilesOfTheirOwn();
    void severalFilesInTheirOrder();
    void sameFileTwice();
    void behindEsiFiles();
    void chinesePath();
    void cannotBeOpened();
    void oneBadFileDoesNotStopTheOthers();
    void brokenFile_data();
    void brokenFile();
    void selectionStays();
    void everyDeviceCanBeLookedAt();

private:
    /// Runs the import action and answers what comes up.
    void open(DialogDriver& dialogs);
    /// Texts of the tree: a file as it is, a device after a blank.
    [[nodiscard]] QStringList treeTexts() const;
    QString write(const QString& name, const QByteArray& content) { return writeFile(m_folder->path(), name, content); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_ImportKtl::init()
{
    resetModel();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir::setCurrent(m_folder->path()));
    keepSettingsIn(m_folder->path());
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_ImportKtl::cleanup()
{
    m_window.reset();
    QDir::setCurrent(QDir::rootPath());
    m_folder.reset();
    resetModel();
}

void tst_ImportKtl::open(DialogDriver& dialogs)
{
    dialogs.during([this] { part<QAction>(*m_window, "actionInPort_ktl")->trigger(); });
    QCOMPARE(dialogs.problem(), QString());
    QVERIFY2(QGuiApplication::overrideCursor() == nullptr, "the waiting cursor is left over");
}

QStringList tst_ImportKtl::treeTexts() const
{
    QStringList texts;
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        texts.append(((*item)->parent() != nullptr ? QStringLiteral(" ") : QString()) + (*item)->text(0));
    return texts;
}

void tst_ImportKtl::fileDialog()
{
    DialogDriver dialogs({cancelling(), pressing(QMessageBox::Ok)});
    open(dialogs);
    const SeenDialog dialog = dialogs.seen(0);
    QCOMPARE(dialog.title, QStringLiteral("文件对话框！"));
    QCOMPARE(dialog.parent, m_window.get());
    QCOMPARE(dialog.directory, QDir::currentPath());
    QCOMPARE(dialog.nameFilters, QStringList("KTL文件(*ktl)"));
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(dialog.fileMode, QFileDialog::ExistingFiles);
}

void tst_ImportKtl::cancelSaysSoOnceAndRefillsTheTree()
{
    g_xmlfiledevices = {fileWith("/ktl/loaded.ktl", {"Loaded before"})};
    QCOMPARE(treeTexts(), QStringList());
    DialogDriver dialogs({cancelling(), pressing(QMessageBox::Ok)});
    open(dialogs);
    const SeenDialog box = dialogs.seen(1);
    QCOMPARE(box.title, QStringLiteral("ktl parser"));
    QCOMPARE(box.text, QStringLiteral("Please select a ktl file to open"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window.get());
    QCOMPARE(treeTexts(), QStringList({"loaded.ktl", " Loaded before"}));
}

void tst_ImportKtl::oneFile()
{
    const QString path = write("drive.ktl", ktlOfProducts({0x1A, 0x2B}));
    DialogDriver dialogs({choosing(path)});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"drive.ktl", " 0x1a", " 0x2b"}));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(g_xmlfiledevices[0].xmlfilepath), path);
    QCOMPARE(stateOf(treeItem(*m_window, 0, 1)), 2);
}

void tst_ImportKtl::runsOfAFileAreFilesOfTheirOwn()
{
    DialogDriver dialogs({choosing(write("a.ktl", ktlOfProducts({1}) + ktlOfProducts({2, 3})))});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"a.ktl", " 0x1", "a.ktl", " 0x2", " 0x3"}));
}

void tst_ImportKtl::severalFilesInTheirOrder()
{
    const QString last = write("a.ktl", ktlOfProducts({1}));
    const QString first = write("z.ktl", ktlOfProducts({26}));
    const QString between = write("m.ktl", ktlOfProducts({}));
    DialogDriver dialogs({choosing({first, between, last})});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"z.ktl", " 0x1a", "a.ktl", " 0x1"}));
}

void tst_ImportKtl::sameFileTwice()
{
    const QString path = write("a.ktl", ktlOfProducts({1}));
    for (int run = 0; run < 2; ++run) {
        DialogDriver dialogs({choosing(path)});
        open(dialogs);
    }
    QCOMPARE(treeTexts(), QStringList({"a.ktl", " 0x1", "a.ktl", " 0x1"}));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2});
}

void tst_ImportKtl::behindEsiFiles()
{
    DialogDriver esi({choosing(write("a.xml", esiText({"A"}).toUtf8()))});
    esi.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
    QCOMPARE(esi.problem(), QString());
    DialogDriver ktl({choosing(write("b.ktl", ktlOfProducts({1})))});
    open(ktl);
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A", "b.ktl", " 0x1"}));
}

void tst_ImportKtl::chinesePath()
{
    const QString path = write("伺服 驱动器.ktl", ktlOfProducts({1}));
    DialogDriver dialogs({choosing(path)});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"伺服 驱动器.ktl", " 0x1"}));
    QCOMPARE(QString::fromStdString(g_xmlfiledevices[0].xmlfilepath), path);
}

void tst_ImportKtl::cannotBeOpened()
{
    const QString path = write("closed.ktl", ktlOfProducts({1}));
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read every file.");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    open(dialogs);
    const SeenDialog box = dialogs.seen(1);
    QCOMPARE(box.title, QStringLiteral("ktl parser"));
    QCOMPARE(box.text, "File open failure again " + path + ":\n Unknown ecoding error.");
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window.get());
    QVERIFY(!box.underWaitCursor);
    QVERIFY(g_xmlfiledevices.empty());
}

/// A file that nobody may read, between two that can be read.
void tst_ImportKtl::oneBadFileDoesNotStopTheOthers()
{
    const QStringList paths = {write("a.ktl", ktlOfProducts({1})), write("closed.ktl", ktlOfProducts({2})),
                               write("b.ktl", ktlOfProducts({3}))};
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(paths[1], QFile::Permissions()));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read every file.");
    DialogDriver dialogs({choosing(paths), pressing(QMessageBox::Ok)});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"a.ktl", " 0x1", "b.ktl", " 0x3"}));
}

void tst_ImportKtl::brokenFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("shown");
    const QByteArray run = ktlOfProducts({1});
    QTest::addRow("empty") << QByteArray() << QStringList();
    QTest::addRow("no KTL file") << QByteArray("<EtherCATInfo/>") << QStringList();
    QTest::addRow("cut in the middle") << run.left(60) << QStringList();
    QTest::addRow("second run cut") << run + run.left(60) << QStringList({"broken.ktl", " 0x1"});
    QTest::addRow("rubbish after the first run")
        << run + QByteArray(100, '\xFF') << QStringList({"broken.ktl", " 0x1"});
    QTest::addRow("an end item alone") << run.right(12) << QStringList();
}

void tst_ImportKtl::brokenFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, shown);
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    DialogDriver dialogs({choosing(write("broken.ktl", content))}); // no box comes up
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"loaded.xml", " Loaded before"}) + shown);
}

void tst_ImportKtl::selectionStays()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    currentfileindex = 0;
    currentdeviceindex = 0;
    part<QLineEdit>(*m_window, "TypeEdit")->setText("shown");
    DialogDriver dialogs({choosing(write("a.ktl", ktlOfProducts({1})))});
    open(dialogs);
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QStringLiteral("shown"));
}

/// Every sample, exported and read back: each device shows in all tabs.
void tst_ImportKtl::everyDeviceCanBeLookedAt()
{
    const QDir samples(QStringLiteral(KINETRA_SOURCE_DIR "/samples"));
    QStringList paths;
    for (const QString& name : samples.entryList({"*.xml"}, QDir::Files))
        paths.append(samples.filePath(name));
    DialogDriver esi({choosing(paths)});
    esi.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
    QCOMPARE(esi.problem(), QString());
    const QByteArray ktl = ktlOf(g_xmlfiledevices);
    std::size_t devices = 0;
    for (const struct_FilenameDevice& file : g_xmlfiledevices)
        devices += file.device.size();
    g_xmlfiledevices.clear();
    DialogDriver dialogs({choosing(write("all.ktl", ktl))});
    open(dialogs);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
    QCOMPARE(g_xmlfiledevices[0].device.size(), devices);
    for (int device = 0; device < static_cast<int>(devices); ++device) {
        deviceTree(*m_window)->scrollToItem(treeItem(*m_window, 0, device));
        clickItem(*m_window, treeItem(*m_window, 0, device));
        QCOMPARE(currentdeviceindex, device);
        const struct_EtherCatDevice& shown = g_xmlfiledevices[0].device[static_cast<std::size_t>(device)];
        QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QString::fromStdString(shown.TypeAttributes.type));
        QCOMPARE(part<QTableView>(*m_window, "SmView")->model()->rowCount(), static_cast<int>(shown.vSM.size()));
        QCOMPARE(part<QTableView>(*m_window, "PdoListView")->model()->rowCount(),
                 static_cast<int>(shown.RxPdo.vpdo.size() + shown.TxPdo.vpdo.size()));
    }
}

static const testMain::Registration<tst_ImportKtl, QApplication> registration;
#include "tst_ImportKtl.moc"
