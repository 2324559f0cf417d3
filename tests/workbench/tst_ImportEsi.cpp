// Opening ESI files: the dialog, what the tree shows afterwards, and every way in which it fails.
// Covers mainwindow_files.cpp.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/ordinaryUser.h"
#include "workbench/windowParts.h"

#include <QDomDocument>
#include <QTemporaryDir>

#include <memory>

class tst_ImportEsi : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fileDialog();
    void cancelSaysSoOnceAndRefillsTheTree();
    void oneFile();
    void severalFilesInTheirOrder();
    void severalRunsAddUp();
    void samePathTwice();
    void backslashInAName();
    void selectionStays();
    void cannotBeRead();
    static void notWellFormed_data();
    void notWellFormed();
    void notAnEsiFile();
    static void failureLeavesEarlierFilesOut_data();
    void failureLeavesEarlierFilesOut();
    void nestedAsDeepAsAllowed();
    void nestedTooDeep();
    static void itemText_data();
    void itemText();
    void treeIsCheckedAndExpanded();

private:
    /// Runs the open action and answers what comes up.
    void open(DialogDriver& dialogs);
    /// Texts of the tree: a file as it is, a device after a blank.
    [[nodiscard]] QStringList treeTexts() const;
    QString write(const QString& name, const QString& content) { return writeFile(m_folder->path(), name, content); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

void tst_ImportEsi::init()
{
    resetModel();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir::setCurrent(m_folder->path()));
    keepSettingsIn(m_folder->path());
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_ImportEsi::cleanup()
{
    m_window.reset();
    QDir::setCurrent(QDir::rootPath());
    m_folder.reset();
    resetModel();
}

void tst_ImportEsi::open(DialogDriver& dialogs)
{
    dialogs.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
    QCOMPARE(dialogs.problem(), QString());
    QVERIFY2(QGuiApplication::overrideCursor() == nullptr, "the waiting cursor is left over");
}

QStringList tst_ImportEsi::treeTexts() const
{
    QStringList texts;
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        texts.append(((*item)->parent() != nullptr ? QStringLiteral(" ") : QString()) + (*item)->text(0));
    return texts;
}

void tst_ImportEsi::fileDialog()
{
    DialogDriver dialogs({cancelling(), pressing(QMessageBox::Ok)});
    open(dialogs);
    const SeenDialog dialog = dialogs.seen(0);
    QCOMPARE(dialog.title, QStringLiteral("文件对话框！"));
    QCOMPARE(dialog.parent, m_window.get());
    QCOMPARE(dialog.directory, QDir::currentPath());
    QCOMPARE(dialog.nameFilters, QStringList("XML文件(*xml)"));
    QCOMPARE(dialog.acceptMode, QFileDialog::AcceptOpen);
    QCOMPARE(dialog.fileMode, QFileDialog::ExistingFiles);
}

void tst_ImportEsi::cancelSaysSoOnceAndRefillsTheTree()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    QCOMPARE(treeTexts(), QStringList());
    DialogDriver dialogs({cancelling(), pressing(QMessageBox::Ok)});
    open(dialogs);
    const SeenDialog box = dialogs.seen(1);
    QCOMPARE(box.title, QStringLiteral("xml parser"));
    QCOMPARE(box.text, QStringLiteral("Please select a xml file to open"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_window.get());
    QCOMPARE(treeTexts(), QStringList({"loaded.xml", " Loaded before"}));
}

void tst_ImportEsi::oneFile()
{
    const QString path = write("drive.xml", esiText({"Drive", "伺服驱动器"}));
    DialogDriver dialogs({choosing(path)});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"drive.xml", " Drive", " 伺服驱动器"}));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(g_xmlfiledevices[0].xmlfilepath), path);
}

void tst_ImportEsi::severalFilesInTheirOrder()
{
    const QString last = write("a.xml", esiText({"A"}));
    const QString first = write("z.xml", esiText({"Z"}));
    const QString between = write("m.xml", esiText({}));
    DialogDriver dialogs({choosing({first, between, last})});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"z.xml", " Z", "m.xml", "a.xml", " A"}));
}

void tst_ImportEsi::severalRunsAddUp()
{
    DialogDriver first({choosing(write("a.xml", esiText({"A"})))});
    open(first);
    DialogDriver second({choosing(write("b.xml", esiText({"B"})))});
    open(second);
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A", "b.xml", " B"}));
}

void tst_ImportEsi::samePathTwice()
{
    const QString path = write("a.xml", esiText({"A"}));
    for (int run = 0; run < 2; ++run) {
        DialogDriver dialogs({choosing(path)});
        open(dialogs);
    }
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A", "a.xml", " A"}));
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2});
}

void tst_ImportEsi::backslashInAName()
{
    DialogDriver dialogs({choosing(write("C:\\esi\\a.xml", esiText({"A"})))});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList({"C:\\esi\\a.xml", " A"}));
}

void tst_ImportEsi::selectionStays()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    currentfileindex = 0;
    currentdeviceindex = 0;
    part<QLineEdit>(*m_window, "TypeEdit")->setText("shown");
    DialogDriver dialogs({choosing(write("a.xml", esiText({"A"})))});
    open(dialogs);
    QCOMPARE(currentfileindex, 0);
    QCOMPARE(currentdeviceindex, 0);
    QCOMPARE(part<QLineEdit>(*m_window, "TypeEdit")->text(), QStringLiteral("shown"));
}

void tst_ImportEsi::cannotBeRead()
{
    const QString path = write("closed.xml", esiText({"A"}));
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read every file.");
    DialogDriver dialogs({choosing(path), pressing(QMessageBox::Ok)});
    open(dialogs);
    QCOMPARE(dialogs.seen(1).title, QStringLiteral("xml parser"));
    QCOMPARE(dialogs.seen(1).text, "The file cannot be read " + path + ":\nPermission denied.");
    QCOMPARE(dialogs.seen(1).icon, QMessageBox::Warning);
    QCOMPARE(dialogs.seen(1).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(!dialogs.seen(1).underWaitCursor);
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_ImportEsi::notWellFormed_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("line");
    QTest::addRow("wrong end tag in the third line") << "<EtherCATInfo>\n<Vendor>\n  </Other></EtherCATInfo>" << 3;
    QTest::addRow("cut off") << "<EtherCATInfo>\n<Vendor/>" << 2;
    QTest::addRow("attribute without quotes") << "<EtherCATInfo Version=1/>" << 1;
    QTest::addRow("empty file") << "" << 1;
}

void tst_ImportEsi::notWellFormed()
{
    QFETCH(QString, content);
    QFETCH(int, line);
    QDomDocument document;
    QString message;
    int parserLine = 0;
    int column = 0;
    QVERIFY(!document.setContent(content.toUtf8(), true, &message, &parserLine, &column));
    QCOMPARE(parserLine, line);
    DialogDriver dialogs({choosing(write("broken.xml", content)), pressing(QMessageBox::Ok)});
    open(dialogs);
    QCOMPARE(dialogs.seen(1).title, QStringLiteral("xml parser"));
    QCOMPARE(dialogs.seen(1).text,
             QStringLiteral("XML Field format error， 行:%1, 列:%2:\n").arg(line).arg(column) + message);
    QCOMPARE(dialogs.seen(1).icon, QMessageBox::Information);
    QCOMPARE(dialogs.seen(1).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(dialogs.seen(1).parent, m_window.get());
    QVERIFY(!dialogs.seen(1).underWaitCursor);
}

void tst_ImportEsi::notAnEsiFile()
{
    DialogDriver dialogs({choosing(write("other.xml", "<Other/>")), pressing(QMessageBox::Ok)});
    open(dialogs);
    QCOMPARE(dialogs.seen(1).title, QStringLiteral("xml parser"));
    QCOMPARE(dialogs.seen(1).text, QStringLiteral("this xml file not is ethercat xml\n"));
    QCOMPARE(dialogs.seen(1).icon, QMessageBox::Warning);
    QCOMPARE(dialogs.seen(1).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(!dialogs.seen(1).underWaitCursor);
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_ImportEsi::failureLeavesEarlierFilesOut_data()
{
    QTest::addColumn<QString>("content");
    QTest::addRow("not well-formed") << "<EtherCATInfo>";
    QTest::addRow("not ESI") << "<Other/>";
}

void tst_ImportEsi::failureLeavesEarlierFilesOut()
{
    QFETCH(QString, content);
    g_xmlfiledevices = {fileWith("/esi/shown.xml", {"Shown"})};
    m_window->DeviceDisplayUpdate();
    const QStringList paths = {write("first.xml", esiText({"First"})), write("broken.xml", content),
                               write("after.xml", esiText({"After"}))};
    DialogDriver dialogs({choosing(paths), pressing(QMessageBox::Ok)});
    open(dialogs);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2}); // the file after the broken one was not read
    QCOMPARE(g_xmlfiledevices[1].device[0].Name, std::string("First"));
    QCOMPARE(treeTexts(), QStringList({"shown.xml", " Shown"}));
    DialogDriver next({cancelling(), pressing(QMessageBox::Ok)});
    open(next);
    QCOMPARE(treeTexts(), QStringList({"shown.xml", " Shown", "first.xml", " First"}));
}

/// An ESI file with so many elements one in another, the root counted.
static QString nestedEsi(int depth)
{
    return QStringLiteral("<EtherCATInfo><Vendor/>%1%2</EtherCATInfo>")
        .arg(QStringLiteral("<x>").repeated(depth - 1), QStringLiteral("</x>").repeated(depth - 1));
}

void tst_ImportEsi::nestedAsDeepAsAllowed()
{
    DialogDriver dialogs({choosing(write("deep.xml", nestedEsi(1000)))});
    open(dialogs);
    QCOMPARE(treeTexts(), QStringList("deep.xml"));
}

void tst_ImportEsi::nestedTooDeep()
{
    DialogDriver dialogs({choosing(write("deep.xml", nestedEsi(1001))), pressing(QMessageBox::Ok)});
    open(dialogs);
    const QRegularExpression text(QStringLiteral("^XML Field format error， 行:1, 列:(\\d+):\n.+$"));
    const QRegularExpressionMatch match = text.match(dialogs.seen(1).text);
    QVERIFY2(match.hasMatch(), qPrintable(dialogs.seen(1).text));
    // 23 characters come before the first <x>; the one that is too deep is the thousandth, of three characters each.
    const int column = match.captured(1).toInt();
    QVERIFY2(column >= 23 + 999 * 3 && column <= 23 + 1000 * 3 + 1, qPrintable(match.captured(1)));
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_ImportEsi::itemText_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    QTest::addRow("last part of a path") << "/esi/Example/drive.v2.xml"
                                         << "drive.v2.xml";
    QTest::addRow("no folder") << "drive.xml"
                               << "drive.xml";
    QTest::addRow("backslashes show whole") << "C:\\esi\\drive.xml"
                                            << "C:\\esi\\drive.xml";
    QTest::addRow("both kinds of slash") << "C:/esi\\drive.xml"
                                         << "esi\\drive.xml";
    QTest::addRow("a slash at the end leaves nothing") << "/esi/"
                                                       << "";
    QTest::addRow("Chinese") << "/esi/伺服 驱动器.xml"
                             << "伺服 驱动器.xml";
}

void tst_ImportEsi::itemText()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    g_xmlfiledevices = {fileWith(path.toStdString(), {})};
    m_window->DeviceDisplayUpdate();
    QCOMPARE(treeItem(*m_window, 0)->text(0), text);
}

void tst_ImportEsi::treeIsCheckedAndExpanded()
{
    g_xmlfiledevices = {fileWith("a.xml", {"A1", "A2"}), fileWith("b.xml", {"B1"})};
    m_window->DeviceDisplayUpdate();
    setState(treeItem(*m_window, 0), 0);
    setState(treeItem(*m_window, 0, 1), 0);
    treeItem(*m_window, 1)->setExpanded(false);
    m_window->DeviceDisplayUpdate();
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A1", " A2", "b.xml", " B1"}));
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        QCOMPARE(stateOf(*item), 2);
    QVERIFY(treeItem(*m_window, 0)->isExpanded());
    QVERIFY(treeItem(*m_window, 1)->isExpanded());
}

static const testMain::Registration<tst_ImportEsi, QApplication> registration;
#include "tst_ImportEsi.moc"
