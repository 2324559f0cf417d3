// The records of ESI files, straight from their bytes and through a document: the same in every field that `ktl show`
// tells, and the same error where there is one.
#include "cli/workplace.h"
#include "esi/esiFile.h"
#include "show/showWriter.h"
#include "sized.h"
#include "testMain.h"
#include "xml/randomXml.h"

#include <QDomDocument>
#include <QtTest>

#include <sstream>
#include <stdexcept>

class tst_RecordsOfBothRoads : public QObject
{
    Q_OBJECT

private slots:
    static void files_data();
    static void files();
    static void realFilesArePlain();
    static void randomFiles();
};

namespace {

/// How loading ended, with all that was read.
std::string outcomeOf(EsiLoadResult loaded)
{
    std::ostringstream out;
    out << static_cast<int>(loaded.status) << ':' << loaded.reason.line << ':' << loaded.reason.column << ':'
        << loaded.reason.text.toStdString() << '\n';
    show::ShownFile file;
    file.setEsi(std::move(loaded.file), [&](const show::ExportProblem& problem) { out << problem.text.toStdString(); });
    show::Form form;
    form.isJson = true;
    show::Writer writer(out, form);
    writer.begin();
    writer.show(file);
    writer.end();
    return out.str();
}

std::string outcomeByDocument(const QString& path)
{
    try {
        QDomDocument document;
        return outcomeOf(loadEsiFile(path, document));
    } catch (const std::out_of_range& error) {
        return error.what();
    }
}

/// @param plainFiles  counts the files that were read straight from their bytes
std::string outcomeByBytes(const QString& path, int& plainFiles)
{
    try {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return "cannot be opened";
        EsiLoadResult loaded = loadOpenEsiFile(file, path, Dictionaries::AreRead);
        plainFiles += loaded.road == EsiRoad::Plain ? 1 : 0;
        return outcomeOf(std::move(loaded));
    } catch (const std::out_of_range& error) {
        return error.what();
    }
}

QFileInfoList esiFilesIn(const QString& folder)
{
    return QDir(folder).entryInfoList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
}

QString realFolder()
{
    return qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
}

} // namespace

void tst_RecordsOfBothRoads::files_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), realFolder()})
        for (const QFileInfo& file : esiFilesIn(folder))
            QTest::addRow("%s", qPrintable(file.fileName())) << file.filePath();
}

void tst_RecordsOfBothRoads::files()
{
    QFETCH(QString, path);
    int plainFiles = 0;
    QVERIFY(outcomeByBytes(path, plainFiles) == outcomeByDocument(path));
}

/// At most one in ten needs a document; of the samples none.
void tst_RecordsOfBothRoads::realFilesArePlain()
{
    int plainSamples = 0;
    const QFileInfoList samples = esiFilesIn(QStringLiteral(KINETRA_SOURCE_DIR "/samples"));
    for (const QFileInfo& file : samples)
        static_cast<void>(outcomeByBytes(file.filePath(), plainSamples));
    QCOMPARE(plainSamples, samples.size());
    int plainFiles = 0;
    const QFileInfoList real = esiFilesIn(realFolder());
    for (const QFileInfo& file : real)
        static_cast<void>(outcomeByBytes(file.filePath(), plainFiles));
    QVERIFY2(10 * plainFiles >= 9 * real.size(), qPrintable(QString::number(plainFiles)));
}

void tst_RecordsOfBothRoads::randomFiles()
{
    constexpr int count = sized(1500);
    const Workplace place;
    RandomXml files(20240929);
    int plainFiles = 0;
    for (int number = 0; number < count; ++number) {
        const QByteArray bytes = files.next();
        const QString path = place.make(QStringLiteral("random.xml"), bytes);
        QVERIFY2(outcomeByBytes(path, plainFiles) == outcomeByDocument(path), bytes.constData());
    }
    QVERIFY2(plainFiles > count / 3, qPrintable(QString::number(plainFiles)));
}

static const testMain::Registration<tst_RecordsOfBothRoads, QCoreApplication> registration;
#include "tst_RecordsOfBothRoads.moc"
