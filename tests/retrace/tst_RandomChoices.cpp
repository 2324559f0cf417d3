// Choices by chance, made, exported, and found again in the export: with the choices that are found, the export has the
// same bytes. KINETRA_RANDOM_CHOICES sets how many times for each sample, KINETRA_RANDOM_SEED the first seed.
#include "choices/appliedChoices.h"
#include "choices/writer.h"
#include "ktl/ktlExport.h"
#include "ktl/reading/ktlItemWalk.h"
#include "randomChoices.h"
#include "retrace/exportedRun.h"
#include "retrace/runRetrace.h"
#include "sized.h"
#include "system/cStreams.h"
#include "testMain.h"

class tst_RandomChoices : public QObject
{
    Q_OBJECT

private slots:
    static void foundAgain_data();
    static void foundAgain();
};

namespace {

using Bytes = std::vector<unsigned char>;

QString realFilesFolder()
{
    return qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
}

/// A number of the environment.
int numberOf(const char* variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

QByteArray textOf(const choices::FileChoices& choices)
{
    std::ostringstream text;
    choices::writeChoices(text, choices, {});
    return QByteArray::fromStdString(text.str());
}

/// Prints a text line by line: long messages are cut.
void tell(const char* what, const QByteArray& text)
{
    for (const QByteArray& line : text.split('\n'))
        qInfo("%s: %s", what, line.constData());
}

/// The export of files with the choices of a text; empty if they do not fit.
Bytes exportWith(const std::vector<struct_FilenameDevice>& loaded, const QByteArray& text)
{
    AppliedChoices made = applied(loaded, text);
    if (!made.problems.isEmpty()) {
        qWarning("%s", qPrintable(made.problems.join("\n")));
        return {};
    }
    os::MemoryFile written;
    int code = 0;
    const auto isSelected = [&](std::size_t file, std::size_t device) {
        return !made.made.exported.has_value() || made.made.exported->count({file, device}) > 0;
    };
    const QDateTime time(QDate(2026, 11, 22), QTime(19, 30, 59), Qt::UTC);
    if (!writeDevices(written.stream(), made.files, isSelected, &code, time))
        return {};
    written.finish();
    return {written.data(), written.data() + written.size()};
}

} // namespace

void tst_RandomChoices::foundAgain_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<int>("times");
    const int times = numberOf("KINETRA_RANDOM_CHOICES", sized(75));
    QStringList samples;
    for (const QString& name : QDir(KINETRA_SOURCE_DIR "/samples").entryList({"*.xml"}, QDir::Files)) {
        samples += QStringLiteral(KINETRA_SOURCE_DIR "/samples/") + name;
        QTest::addRow("%s", qPrintable(name)) << QStringList{samples.constLast()} << times;
    }
    QTest::addRow("all samples") << samples << times;
    QTest::addRow("the same devices twice") << samples + samples << times;
    const QDir real(realFilesFolder());
    for (const QString& name : real.entryList({"*.xml"}, QDir::Files))
        if (!name.contains("_bad"))
            QTest::addRow("%s", qPrintable(name)) << QStringList{real.filePath(name)} << (times + 24) / 25;
}

void tst_RandomChoices::foundAgain()
{
    QFETCH(QStringList, paths);
    QFETCH(int, times);
    std::vector<struct_FilenameDevice> files;
    for (const QString& path : paths)
        for (struct_FilenameDevice& file : loadedFile(path))
            files.push_back(std::move(file));
    QCOMPARE(files.size(), static_cast<std::size_t>(paths.size()));
    const int firstSeed = numberOf("KINETRA_RANDOM_SEED", 1);
    for (int seed = firstSeed; seed < firstSeed + times; ++seed) {
        const QByteArray made = textOf(RandomChoices(files, static_cast<std::uint32_t>(seed)).next());
        const Bytes bytes = exportWith(files, made);
        QVERIFY2(!bytes.empty(), made.constData());
        const KtlWalk walk = walkItems(bytes);
        if (retrace::runsWithDevices(walk).empty())
            continue; // the file has no device
        const retrace::ExportedRun run = retrace::exportedRunAt(bytes, walk, 1);
        const QByteArray found = textOf(retrace::retracedRun(files, run.blocks).choices);
        if (exportWith(files, found) == bytes)
            continue;
        tell("made", made);
        tell("found", found);
        QFAIL(qPrintable(QStringLiteral("the choices of seed %1 are not found").arg(seed)));
    }
}

static const testMain::Registration<tst_RandomChoices, testMain::NoApplication> registration;
#include "tst_RandomChoices.moc"
