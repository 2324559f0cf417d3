// exportFixture.h - a window with loaded files, a folder to export into, and a look at what an export wrote.
#pragma once

#include "ktl/ktlItems.h"
#include "workbench/dialogDriver.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QDir>
#include <QTemporaryDir>

#include <initializer_list>
#include <memory>
#include <string>

/// A loaded file whose devices differ by their product codes.
inline struct_FilenameDevice fileOfProducts(const std::string& path, std::initializer_list<std::uint32_t> productCodes)
{
    struct_FilenameDevice file;
    file.xmlfilepath = path;
    for (const std::uint32_t productCode : productCodes) {
        file.device.push_back(deviceNamed("device " + std::to_string(productCode)));
        file.device.back().TypeAttributes.Product_Code = productCode;
    }
    return file;
}

/// The runs in a KTL file: the product code of each device, and "end" for each end item.
/// What is no sequence of items gives its problem.
inline QStringList runsIn(const QByteArray& ktl)
{
    QString problem;
    QStringList runs;
    for (const KtlItem& item : itemsOf(ktl, &problem)) {
        if (item.type == 40000)
            runs.append(QString::number(item.u32(12)));
        else if (item.type == 0)
            runs.append(QStringLiteral("end"));
    }
    return problem.isEmpty() ? runs : QStringList(problem);
}

/// Empty if the text dump beside a KTL file shows every word of it, else what is wrong.
inline QString dumpProblem(const QString& ktlPath)
{
    QString problem;
    const std::vector<KtlItem> items = itemsOf(contentOfFile(ktlPath), &problem);
    const std::vector<DumpItem> shown = dumpItemsOf(contentOfFile(ktlPath + ".txt"), &problem);
    if (!problem.isEmpty())
        return problem;
    if (shown.size() != items.size())
        return QStringLiteral("%1 of %2 items are shown").arg(shown.size()).arg(items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        QByteArray words;
        for (const std::uint32_t word : shown[index].words)
            for (unsigned int shift = 0; shift < 32; shift += 8)
                words.append(static_cast<char>((word >> shift) & 0xFFU));
        if (shown[index].type != items[index].type || words != items[index].content.mid(8))
            return QStringLiteral("item %1 is shown as another one").arg(index);
    }
    return {};
}

/// Base of the tests of an export: each starts with a new window and an empty folder, which is the current one.
class ExportFixture : public QObject
{
protected:
    void begin(std::initializer_list<struct_FilenameDevice> files)
    {
        resetModel();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        const QDir top(m_folder->path());
        QVERIFY(top.mkdir(QStringLiteral("settings")) && top.mkdir(QStringLiteral("out")));
        keepSettingsIn(top.filePath(QStringLiteral("settings")));
        m_out.setPath(top.filePath(QStringLiteral("out")));
        QVERIFY(QDir::setCurrent(m_out.path()));
        m_window = std::make_unique<MainWindow>();
        showWindow(*m_window);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        load(files);
    }

    void end()
    {
        m_window.reset();
        QDir::setCurrent(QDir::rootPath());
        m_folder.reset();
        resetModel();
    }

    void load(std::initializer_list<struct_FilenameDevice> files)
    {
        g_xmlfiledevices = files;
        m_window->DeviceDisplayUpdate();
    }

    /// Runs the export action; all dialogs must come as the script says, none of them under the waiting cursor.
    void runExport(DialogDriver& dialogs)
    {
        dialogs.during([this] { part<QAction>(*m_window, "actionexport")->trigger(); });
        QCOMPARE(dialogs.problem(), QString());
        for (std::size_t step = 0; step < dialogs.count(); ++step)
            QVERIFY(!dialogs.seen(step).underWaitCursor);
        QVERIFY2(QGuiApplication::overrideCursor() == nullptr, "the waiting cursor is left over");
    }

    /// Runs an export that asks for nothing but a new path.
    void exportTo(const QString& path)
    {
        DialogDriver dialogs({choosing(path)});
        runExport(dialogs);
    }

    /// A warning of the export: an Ok box over the window.
    void compareWarning(const SeenDialog& box, const QString& text, const QString& title = QStringLiteral("xml parser"))
    {
        QCOMPARE(box.text, text);
        QCOMPARE(box.textFormat, Qt::PlainText); // names of devices and files are no markup
        QCOMPARE(box.title, title);
        QCOMPARE(box.icon, QMessageBox::Warning);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(box.parent, static_cast<QWidget*>(m_window.get()));
    }

    [[nodiscard]] QString outPath(const QString& name) const { return m_out.filePath(name); }
    [[nodiscard]] QStringList outFiles() const
    {
        return QDir(m_out.path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QDir m_out;
    std::unique_ptr<MainWindow> m_window;
};
