// The command gives the bytes and the warnings of the window, for each sample and each real ESI file: as the files are
// loaded, and with every device clicked once.
#include "editing/exportChecks.h"
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

/// Compares the export of what is loaded. The warnings that the command tells are the boxes that come up.
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
        if (!line.isEmpty())
            told += QString::fromUtf8(line).section(QStringLiteral(": warning: "), 1).trimmed();
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
    const CommandRun choices = runKtl({"choices", path});
    QCOMPARE(choices.errors, QByteArray());
    compareWindow(path, choices.output);
}

QTEST_MAIN(tst_CommandLikeWindow)
#include "tst_CommandLikeWindow.moc"
