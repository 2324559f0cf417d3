// The command gives the bytes and the warnings of the window, for each sample and each real ESI file: as the files are
// loaded, and with every device clicked once.
#include "editing/exportChecks.h"
#include "testMain.h"
#include "workbench/windowAndCommand.h"

class tst_CommandLikeWindow : public WindowAndCommandFixture
{
    Q_OBJECT

private slots:
    void init() { begin({}); }
    void cleanup() { end(); }
    static void sameBytes_data();
    void sameBytes();

private:
    void openOnce(const QString& path);
    void clickEveryDevice();
    void compareWindow(const QString& path, const QByteArray& choices);

    struct_FilenameDevice m_opened; ///< the file that was opened last, as it was then
    QString m_openedPath;
};

/// The two rows of a file follow each other, so that it is opened once.
void tst_CommandLikeWindow::sameBytes_data()
{
    const QString realFiles =
        qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("areClicked");
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), realFiles})
        for (const QString& name : QDir(folder).entryList({"*.xml"}, QDir::Files))
            if (!name.contains("_bad")) {
                QTest::addRow("%s as it is loaded", qPrintable(name)) << QDir(folder).filePath(name) << false;
                QTest::addRow("%s, every device clicked", qPrintable(name)) << QDir(folder).filePath(name) << true;
            }
}

/// The box that says in the window what the command warns of; empty where only the command does.
static QString boxOf(const QString& warning)
{
    static const QHash<QString, QString> boxes{
        {"sync-managers", "存在设备sm通道大于4个，控制器不支持sm 大于4个以上。请谨慎操作 %1:"},
        {"slot-pdo-increment", "存在设备多个slot的SlotPdoIncrement不一致，控制器不支持。请谨慎操作 %1:"},
        {"slot-index-increment", "存在设备多个slot的SlotIndexIncrement不一致，控制器不支持。请谨慎操作 %1:"},
        {"startup-commands", "设备的startup启动项超过254个。固件必须升级大于20240929 %1:"},
    };
    const QString code = warning.section('[', -1).section(']', 0, 0);
    const QString box = boxes.value(code);
    return box.isEmpty() ? box : box.arg(warning.section('"', 1, 1));
}

/// Compares the export of what is loaded. What the command warns of is what the boxes say that come up; besides, it
/// warns of values that no export carries.
void tst_CommandLikeWindow::compareWindow(const QString& path, const QByteArray& choices)
{
    int boxes = 0;
    for (const struct_EtherCatDevice& device : g_xmlfiledevices.at(0).device)
        boxes += exportWarnings(device).size();
    const QByteArray window =
        exportedByWindow(std::vector<DialogAnswer>(std::size_t(boxes), pressing(QMessageBox::Ok)));
    const CommandRun run = convert({path}, timeShownIn(window), choices);
    QStringList told;
    for (const QByteArray& line : run.errors.split('\n'))
        if (!line.isEmpty() && !line.endsWith("[startup-data]"))
            told += boxOf(QString::fromUtf8(line));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(told, m_warnings);
    compareItems(contentOfFile(m_command), window);
}

/// Opens a file by the dialog, unless it is the one that was opened last.
void tst_CommandLikeWindow::openOnce(const QString& path)
{
    if (m_openedPath == path) {
        load({m_opened});
        return;
    }
    open(path);
    m_opened = g_xmlfiledevices.at(0);
    m_openedPath = path;
}

void tst_CommandLikeWindow::clickEveryDevice()
{
    for (int device = 0; device < treeItem(*m_window, 0)->childCount(); ++device) {
        deviceTree(*m_window)->scrollToItem(treeItem(*m_window, 0, device));
        select(device);
    }
}

/// The template of a file selects every device and changes nothing.
void tst_CommandLikeWindow::sameBytes()
{
    QFETCH(QString, path);
    QFETCH(bool, areClicked);
    openOnce(path);
    if (!areClicked) {
        compareWindow(path, {});
        return;
    }
    clickEveryDevice();
    const CommandRun choices = runHere({"choices", path});
    for (const QByteArray& line : choices.errors.split('\n'))
        QVERIFY2(line.isEmpty() || line.endsWith("[startup-data]"), line.constData());
    compareWindow(path, choices.output);
}

static const testMain::Registration<tst_CommandLikeWindow, QApplication> registration;
#include "tst_CommandLikeWindow.moc"
