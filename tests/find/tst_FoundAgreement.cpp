// What is found against what loading gives, with the places of the tree: samples, real ESI files if their folder is
// there, and files at random.
#include "esi/esiFile.h"
#include "esi/fileElements.h"
#include "esi/xml/placeCursor.h"
#include "find/esiScan.h"
#include "find/foundLines.h"
#include "testMain.h"
#include "xml/randomXml.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QtTest>

class tst_FoundAgreement : public QObject
{
    Q_OBJECT

private slots:
    static void files_data();
    static void files();
    static void randomFiles();
};

namespace {

std::vector<find::Found> devicesOf(const struct_FilenameDevice& file, const std::vector<int>& lines)
{
    std::vector<find::Found> devices;
    for (std::size_t index = 0; index < file.device.size(); ++index) {
        const struct_EtherCatDevice& device = file.device[index];
        devices.push_back({find::FoundKind::Device, file.Vendor_Id, device.TypeAttributes.Product_Code,
                           device.TypeAttributes.Revision_No, device.TypeAttributes.type, device.Name,
                           static_cast<std::uint64_t>(lines.at(index))});
    }
    return devices;
}

std::vector<find::Found> modulesOf(const struct_FilenameDevice& file, const std::vector<int>& lines)
{
    std::vector<find::Found> modules;
    for (const struct_commentmodule& group : file.vcommentmodule)
        for (const struct_module& module : group.vmodule)
            modules.push_back({find::FoundKind::Module, file.Vendor_Id, module.TypeAttributes.ModuleIdent, 0,
                               module.TypeAttributes.Name, module.Name,
                               static_cast<std::uint64_t>(lines.at(modules.size()))});
    return modules;
}

std::vector<int> moduleLinesOf(const FileElements& elements)
{
    std::vector<int> lines;
    for (const xml::Element& list : elements.moduleLists) {
        ModuleRun run;
        for (const xml::Node node : list.children())
            if (run.take(node))
                lines.push_back(node.place().line);
    }
    return lines;
}

/// What loading gives, or what it says is wrong.
QStringList loaded(const QByteArray& bytes)
{
    const EsiTreeResult read = esiTreeOf(bytes.toStdString());
    if (!read.tree.has_value())
        return {QStringLiteral("%1:%2: %3").arg(read.reason.line).arg(read.reason.column).arg(read.reason.text)};
    const EsiLoadResult file = declaredFileFrom(*read.tree, QStringLiteral("test.xml"), Dictionaries::AreSkipped);
    if (file.status == EsiLoadStatus::NotEsi)
        return {QStringLiteral("no ESI file")};
    if (file.status != EsiLoadStatus::Loaded)
        return {file.reason.text};
    std::vector<int> lines;
    xml::PlaceCursor cursor(*read.tree);
    const FileElements elements = walkFile(read.tree->root(), [&](const DeviceElements& device) {
        lines.push_back(cursor.moveTo(device.device.placeKey()).line);
    });
    return linesOf(devicesOf(file.file, lines)) + linesOf(modulesOf(file.file, moduleLinesOf(elements)));
}

QStringList found(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const find::EsiScan scan = find::scanEsi(buffer, find::Wanted::DevicesAndModules);
    if (scan.fault.has_value())
        return {QStringLiteral("%1:%2: %3").arg(scan.fault->line).arg(scan.fault->column).arg(scan.fault->message)};
    return scan.isEsi ? linesOf(scan.found) : QStringList{QStringLiteral("no ESI file")};
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_FoundAgreement::files_data()
{
    QTest::addColumn<QString>("path");
    const QString real = qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), real})
        for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name))
            QTest::addRow("%s", qPrintable(file.fileName())) << file.filePath();
}

void tst_FoundAgreement::files()
{
    QFETCH(QString, path);
    const QByteArray bytes = contentOf(path);
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(found(bytes), loaded(bytes));
}

void tst_FoundAgreement::randomFiles()
{
    constexpr int count = 4000;
    RandomXml files(20261122);
    int withDevices = 0;
    for (int number = 0; number < count; ++number) {
        const QByteArray bytes = files.next();
        const QStringList lines = found(bytes);
        QVERIFY2(lines == loaded(bytes),
                 (bytes + "\nfound:\n" + lines.join('\n').toUtf8() + "\nloaded:\n" + loaded(bytes).join('\n').toUtf8())
                     .constData());
        withDevices += lines.join(' ').contains(QLatin1String("device ")) ? 1 : 0;
    }
    QVERIFY2(withDevices > count / 40, qPrintable(QString::number(withDevices)));
}

static const testMain::Registration<tst_FoundAgreement, testMain::NoApplication> registration;
#include "tst_FoundAgreement.moc"
