// Files dropped on the window: what is let in, how the kind of a file is told, and every message.
#include "testMain.h"
#include "workbench/dialogDriver.h"
#include "workbench/ktlFiles.h"
#include "workbench/modelBuilders.h"
#include "workbench/ordinaryUser.h"
#include "workbench/windowParts.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QDomDocument>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

class tst_FileDrop : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void filesAreLetIn();
    void anythingElseIsRefused_data();
    void anythingElseIsRefused();
    void dropWithoutFiles();
    void dropOnTheWindow();
    static void dropOnAPart_data();
    void dropOnAPart();
    void textGoesToTheField();
    void kindOfFile_data();
    void kindOfFile();
    void urlsThatAreNoFiles();
    void badFilesDoNotStopTheOthers();
    void fileThatDoesNotExist_data();
    void fileThatDoesNotExist();
    void cannotBeRead_data();
    void cannotBeRead();
    void notWellFormed();
    void brokenKtlFileSaysNothing();
    void sameFileTwice();

private:
    /// Drops urls on the window and answers what comes up.
    void drop(DialogDriver& dialogs, const QList<QUrl>& urls);
    void dropFiles(DialogDriver& dialogs, const QStringList& paths);
    /// Texts of the tree: a file as it is, a device after a blank.
    [[nodiscard]] QStringList treeTexts() const;
    QString write(const QString& name, const QByteArray& content) { return writeFile(m_folder->path(), name, content); }
    QString writeEsi(const QString& name) { return write(name, esiText({"A"}).toUtf8()); }
    QString writeKtl(const QString& name) { return write(name, ktlOfProducts({1})); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

/// Compares a box with a warning that wants nothing but an Ok.
void compareWarning(const SeenDialog& box, const QString& title, const QString& text, const QWidget* parent)
{
    QCOMPARE(box.title, title);
    QCOMPARE(box.text, text);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(static_cast<const QWidget*>(box.parent), parent);
    QVERIFY(!box.underWaitCursor);
}

/// Sends a drop to the window itself: the toolkit passes one on only where it was let in.
void sendDrop(QObject& window, const QMimeData& data)
{
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    window.event(&event);
}

/// Drags over a part of the window and drops there, as the window system sends it.
void dragAndDrop(QWidget& part, const QMimeData& data)
{
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&part, &enter);
    QVERIFY(enter.isAccepted());
    QDragMoveEvent move(QPoint(6, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&part, &move);
    QDropEvent event(QPointF(6, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&part, &event);
}

} // namespace

void tst_FileDrop::init()
{
    resetModel();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_window = std::make_unique<MainWindow>();
    showWindow(*m_window);
}

void tst_FileDrop::cleanup()
{
    m_window.reset();
    m_folder.reset();
    resetModel();
}

void tst_FileDrop::drop(DialogDriver& dialogs, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    dialogs.during([&] { sendDrop(*m_window, data); });
    QCOMPARE(dialogs.problem(), QString());
    QVERIFY2(QGuiApplication::overrideCursor() == nullptr, "the waiting cursor is left over");
}

void tst_FileDrop::dropFiles(DialogDriver& dialogs, const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    drop(dialogs, urls);
}

QStringList tst_FileDrop::treeTexts() const
{
    QStringList texts;
    for (QTreeWidgetItemIterator item(deviceTree(*m_window)); *item != nullptr; ++item)
        texts.append(((*item)->parent() != nullptr ? QStringLiteral(" ") : QString()) + (*item)->text(0));
    return texts;
}

/// Whatever the files are: that is looked at when they are dropped.
void tst_FileDrop::filesAreLetIn()
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("http://localhost/picture.png"))});
    QDragEnterEvent event(QPoint(10, 10), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.setDropAction(Qt::MoveAction);
    event.ignore();
    QApplication::sendEvent(m_window.get(), &event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), event.proposedAction());
}

void tst_FileDrop::anythingElseIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("text") << "/esi/drive.xml";
    QTest::addRow("nothing") << "";
}

void tst_FileDrop::anythingElseIsRefused()
{
    QFETCH(QString, text);
    QMimeData data;
    if (!text.isEmpty())
        data.setText(text);
    QDragEnterEvent event(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.accept();
    QTest::ignoreMessage(QtDebugMsg, "无效文件哦");
    QApplication::sendEvent(m_window.get(), &event);
    QVERIFY(!event.isAccepted());
}

/// The tree is not filled again.
void tst_FileDrop::dropWithoutFiles()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    QMimeData data;
    data.setText(writeEsi("a.xml"));
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    dialogs.during([&] { sendDrop(*m_window, data); });
    QCOMPARE(dialogs.problem(), QString());
    compareWarning(dialogs.seen(0), "warning", "file does not exist\n", m_window.get());
    QCOMPARE(treeTexts(), QStringList());
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{1});
}

/// The whole way, as the window system sends it.
void tst_FileDrop::dropOnTheWindow()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeEsi("a.xml")), QUrl::fromLocalFile(writeKtl("b.ktl"))});
    dragAndDrop(*m_window, data);
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A", "b.ktl", " 0x1"}));
}

void tst_FileDrop::dropOnAPart_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"ConfigModuleEdit", "comboBox_DeviceType", "comboBox_Dc", "DeviceTree", "StartupView"})
        QTest::addRow("%s", name) << name;
}

/// A file manager hands the path over as a text too.
void tst_FileDrop::dropOnAPart()
{
    QFETCH(QString, name);
    auto* target = m_window->findChild<QWidget*>(name);
    target->setEnabled(true);
    if (auto* const list = qobject_cast<QComboBox*>(target))
        target = list->lineEdit();
    else if (auto* const rows = qobject_cast<QAbstractScrollArea*>(target))
        target = rows->viewport();
    const auto* const field = qobject_cast<QLineEdit*>(target);
    const QString textBefore = field != nullptr ? field->text() : QString();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeEsi("a.xml"))});
    data.setText(m_folder->filePath("a.xml"));
    dragAndDrop(*target, data);
    QCOMPARE(treeTexts(), QStringList({"a.xml", " A"}));
    QCOMPARE(field != nullptr ? field->text() : QString(), textBefore);
}

void tst_FileDrop::textGoesToTheField()
{
    auto* const field = part<QLineEdit>(*m_window, "ConfigModuleEdit");
    field->setEnabled(true);
    field->clear();
    QMimeData data;
    data.setText("0xF030");
    dragAndDrop(*field, data);
    QCOMPARE(field->text(), QStringLiteral("0xF030"));
}

void tst_FileDrop::kindOfFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kind");
    const struct
    {
        const char* words;
        const char* name;
        const char* kind;
    } rows[] = {
        {"xml", "a.xml", "xml"},
        {"ktl", "a.ktl", "ktl"},
        {"more after xml", "a.xmlbak", "xml"},
        {"more after ktl", "b.ktl2", "ktl"},
        {"more before ktl", "b.oldktl", "ktl"},
        {"the last suffix counts", "a.xml.ktl", "ktl"},
        {"the last suffix counts, the other way round", "a.ktl.xml", "xml"},
        {"xml is looked for first", "a.ktlxml", "xml"},
        {"no point: the whole name", "my-xml-file", "xml"},
        {"no point, ktl", "ktl", "ktl"},
        {"nothing before the dot", ".xml", "xml"},
        {"Chinese name", "伺服.ktl", "ktl"},
        {"capitals", "a.XML", ""},
        {"capitals of ktl", "a.KTL", ""},
        {"the dump beside a KTL file", "a.ktl.txt", ""},
        {"a point at the end", "xml.", ""},
        {"a folder's name does not count", "xml.ktl/a.txt", ""},
    };
    for (const auto& row : rows)
        QTest::addRow("%s", row.words) << row.name << row.kind;
}

/// A file of the right content is loaded, whatever it is called, once its kind is told.
void tst_FileDrop::kindOfFile()
{
    QFETCH(QString, name);
    QFETCH(QString, kind);
    QVERIFY(QDir(m_folder->path()).mkpath(QFileInfo(m_folder->filePath(name)).path()));
    const QString path = kind == "ktl" ? writeKtl(name) : writeEsi(name);
    QVERIFY(!path.isEmpty());
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {})};
    if (kind.isEmpty()) {
        DialogDriver dialogs({pressing(QMessageBox::Ok)});
        dropFiles(dialogs, {path});
        compareWarning(dialogs.seen(0), "xml parser", "The file unsupport be read " + path + ":\n", m_window.get());
        QCOMPARE(treeTexts(), QStringList("loaded.xml"));
        return;
    }
    DialogDriver dialogs({});
    dropFiles(dialogs, {path});
    const QString device = kind == "ktl" ? QStringLiteral(" 0x1") : QStringLiteral(" A");
    QCOMPARE(treeTexts(), QStringList({"loaded.xml", name, device}));
    QCOMPARE(QString::fromStdString(g_xmlfiledevices[1].xmlfilepath), path);
}

/// They are passed over without a word, and the tree is filled once at the end.
void tst_FileDrop::urlsThatAreNoFiles()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {})};
    DialogDriver dialogs({});
    drop(dialogs, {QUrl(QStringLiteral("http://localhost/a.xml")), QUrl::fromLocalFile(writeKtl("b.ktl")),
                   QUrl(QStringLiteral("mailto:somebody"))});
    QCOMPARE(treeTexts(), QStringList({"loaded.xml", "b.ktl", " 0x1"}));
}

void tst_FileDrop::badFilesDoNotStopTheOthers()
{
    const QStringList paths{
        writeKtl("a.ktl"), write("b.xml", "<EtherCATInfo>"), writeEsi("c.xml"),           write("d.xml", "<Other/>"),
        writeEsi("e.txt"), m_folder->filePath("f.xml"),      m_folder->filePath("g.ktl"), writeKtl("h.ktl")};
    DialogDriver dialogs(std::vector<DialogAnswer>(5, pressing(QMessageBox::Ok)));
    dropFiles(dialogs, paths);
    QCOMPARE(dialogs.seen(0).icon, QMessageBox::Information);
    compareWarning(dialogs.seen(1), "xml parser", "this xml file not is ethercat xml\n", m_window.get());
    compareWarning(dialogs.seen(2), "xml parser", "The file unsupport be read " + paths[4] + ":\n", m_window.get());
    QVERIFY(dialogs.seen(3).text.contains(paths[5]));
    QVERIFY(dialogs.seen(4).text.contains(paths[6]));
    QCOMPARE(treeTexts(), QStringList({"a.ktl", " 0x1", "c.xml", " A", "h.ktl", " 0x1"}));
}

void tst_FileDrop::fileThatDoesNotExist_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const QString ofXml("The file cannot be read %1:\nNo such file or directory.");
    const QString ofKtl("File open failure again %1:\n Unknown ecoding error.");
    QTest::addRow("xml") << QString("gone.xml") << QString("xml parser") << ofXml;
    QTest::addRow("ktl") << QString("gone.ktl") << QString("ktl parser") << ofKtl;
    QTest::addRow("ktl, with a mark that looks like a placeholder")
        << QString("gone %1.ktl") << QString("ktl parser") << ofKtl;
}

void tst_FileDrop::fileThatDoesNotExist()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    QFETCH(QString, text);
    const QString path = m_folder->filePath(name);
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    dropFiles(dialogs, {path});
    compareWarning(dialogs.seen(0), title, text.arg(path), m_window.get());
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_FileDrop::cannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addRow("xml") << "closed.xml"
                         << "xml parser"
                         << "The file cannot be read %1:\nPermission denied.";
    QTest::addRow("ktl") << "closed.ktl"
                         << "ktl parser"
                         << "File open failure again %1:\n Unknown ecoding error.";
}

void tst_FileDrop::cannotBeRead()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    QFETCH(QString, text);
    const QString path = writeKtl(name);
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const OrdinaryUser user;
    QVERIFY2(user.isOrdinary(), "The system refuses to give up the rights of root, and root may read every file.");
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    dropFiles(dialogs, {path});
    compareWarning(dialogs.seen(0), title, text.arg(path), m_window.get());
    QVERIFY(g_xmlfiledevices.empty());
}

void tst_FileDrop::notWellFormed()
{
    const QByteArray content = "<EtherCATInfo>\n<Vendor>\n  </Other></EtherCATInfo>";
    QDomDocument document;
    QString message;
    int line = 0;
    int column = 0;
    QVERIFY(!document.setContent(content, true, &message, &line, &column));
    DialogDriver dialogs({pressing(QMessageBox::Ok)});
    dropFiles(dialogs, {write("broken.xml", content)});
    QCOMPARE(dialogs.seen(0).title, QStringLiteral("xml parser"));
    QVERIFY(dialogs.seen(0).text.startsWith(QStringLiteral("XML Field format error， 行:3, 列:")));
    QVERIFY(dialogs.seen(0).text.endsWith(":\n" + message));
    QCOMPARE(dialogs.seen(0).icon, QMessageBox::Information);
    QCOMPARE(dialogs.seen(0).parent, m_window.get());
}

/// Nothing is added, and the tree is filled again.
void tst_FileDrop::brokenKtlFileSaysNothing()
{
    g_xmlfiledevices = {fileWith("/esi/loaded.xml", {"Loaded before"})};
    DialogDriver dialogs({});
    dropFiles(dialogs, {write("broken.ktl", QByteArray(100, '\xFF'))});
    QCOMPARE(treeTexts(), QStringList({"loaded.xml", " Loaded before"}));
}

void tst_FileDrop::sameFileTwice()
{
    const QString path = writeKtl("a.ktl");
    DialogDriver dialogs({});
    dropFiles(dialogs, {path, path});
    QCOMPARE(treeTexts(), QStringList({"a.ktl", " 0x1", "a.ktl", " 0x1"}));
}

static const testMain::Registration<tst_FileDrop, QApplication> registration;
#include "tst_FileDrop.moc"
