// Samples, and every real ESI file if the folder of them is there: what is found, and that exports of theirs are
// checked without a finding about the items.
#include "checkParts.h"
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "ktl/writing/ktlFile.h"
#include "testMain.h"

#include <QDateTime>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QtTest>

#include <vector>

class tst_CheckedFiles : public QObject
{
    Q_OBJECT

private slots:
    static void samples_data();
    static void samples();
    static void allFiles_data();
    static void allFiles();
};

namespace {

QString samplesFolder()
{
    return QStringLiteral(KINETRA_SOURCE_DIR "/samples");
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What is found, as "line:column: text [rule]".
QStringList allLines(const check::Findings& findings)
{
    QStringList lines;
    for (const check::Finding& finding : findings.list)
        lines += QStringLiteral("%1:%2: %3 [%4]")
                     .arg(finding.place.line)
                     .arg(finding.place.column)
                     .arg(finding.text,
                          QString::fromUtf8(finding.rule->code.data(), static_cast<int>(finding.rule->code.size())));
    return lines;
}

/// Codes of the findings in an export of all devices that are about its items.
QStringList itemFindings(const struct_FilenameDevice& file)
{
    std::vector<struct_FilenameDevice> files{file};
    int error = 0;
    bool isWritten = false;
    const QByteArray ktl = writtenBy([&](std::FILE* out) {
        isWritten = writeDevices(
            out, files, [](std::size_t, std::size_t) { return true; }, &error, QDateTime::currentDateTime());
    });
    if (!isWritten)
        return {QStringLiteral("not written")};
    QStringList codes;
    for (const check::Finding& finding : check::checkKtl({ktl.begin(), ktl.end()}).list)
        if (finding.rule->code.substr(0, 4) == "ktl-")
            codes += QString::fromUtf8(finding.rule->code.data(), static_cast<int>(finding.rule->code.size()));
    return codes;
}

/// Adds a row for each file of a folder.
/// @return  how many there are
int addFiles(const QString& folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files)
        QTest::addRow("%s", qPrintable(file.fileName())) << file.filePath();
    return files.size();
}

} // namespace

void tst_CheckedFiles::samples_data()
{
    QTest::addColumn<QString>("path");
    QVERIFY(addFiles(samplesFolder()) > 0);
}

void tst_CheckedFiles::samples()
{
    QFETCH(QString, path);
    const checkParts::LoadedFile loaded(contentsOf(path));
    QVERIFY(loaded.read.tree.has_value());
    // Those that samples/README.md names.
    static const QHash<QString, QStringList> expected{
        {"servo-drive.xml",
         {"1710:13: the command for 0x2f10:0 has a value of 8 bytes, the format carries 4 and writes 0 "
          "[startup-data-lost]",
          "1710:13: the command for 0x2f10:0: the dictionary has no object 0x2f10 [startup-object]"}},
        {"oversampling-terminal.xml",
         {"28:9: of PDO 0x1600, the samples after the ninth (3) go out on no sync manager [pdo-oversampling-samples]"}},
        {"dual-axis-drive.xml",
         {"30:9: sync manager 2 goes out with 0 bytes, its PDOs take 16 [sync-manager-length]",
          "31:9: sync manager 3 goes out with 4 bytes, its PDOs take 20 [sync-manager-length]"}}};
    QCOMPARE(allLines(loaded.findings()), expected.value(QFileInfo(path).fileName()));
}

void tst_CheckedFiles::allFiles_data()
{
    QTest::addColumn<QString>("path");
    QVERIFY(addFiles(samplesFolder()) > 0);
    addFiles(qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi")));
}

/// A file that has no tree is one that the workbench does not load either.
void tst_CheckedFiles::allFiles()
{
    QFETCH(QString, path);
    const checkParts::LoadedFile loaded(contentsOf(path));
    if (!loaded.read.tree.has_value()) {
        QDomDocument document;
        QVERIFY(loadEsiFile(path, document).status == EsiLoadStatus::NotWellFormed);
        return;
    }
    for (const check::Finding& finding : loaded.findings().list) {
        QVERIFY(finding.place.line > 0);
        QVERIFY(!finding.text.isEmpty());
    }
    QCOMPARE(itemFindings(loaded.file), QStringList());
}

static const testMain::Registration<tst_CheckedFiles, testMain::NoApplication> registration;
#include "tst_CheckedFiles.moc"
