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
    static void freshFile_data() { files(); }
    void freshFile();
    static void everyDeviceClicked_data() { files(); }
    void everyDeviceClicked();

private:
    static void files();
    void compareWindow(const QString& path, const QByteArray& choices);
};

void tst_CommandLikeWindow::files()
{
    const QString realFiles =
        qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
    QTest::addColumn<QString>("path");
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), realFiles})
        for (const QString& name : QDir(folder).entryList({"*.xml"}, QDir::Files))
            if (!name.contains("_bad"))
                QTest::addRow("%s", qPrintable(name)) << QDir(folder).filePath(name);
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

void tst_CommandLikeWindow::freshFile()
{
    QFETCH(QString, path);
    open(path);
    compareWindow(path, {});
}

/// The template of the file selects every device and changes nothing.
void tst_CommandLikeWindow::everyDeviceClicked()
{
    QFETCH(QString, path);
    open(path);
    for (int device = 0; device < treeItem(*m_window, 0)->childCount(); ++device) {
        deviceTree(*m_window)->scrollToItem(treeItem(*m_window, 0, device));
        select(device);
    }
    const CommandRun choices = runHere({"choices", path});
    for (const QByteArray& line : choices.errors.split('\n'))
        QVERIFY2(line.isEmpty() || line.endsWith("[startup-data]"), line.constData());
    compareWindow(path, choices.output);
}

static const testMain::Registration<tst_CommandLikeWindow, QApplication> registration;
#include "tst_CommandLikeWindow.moc"
