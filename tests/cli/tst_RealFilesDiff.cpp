// Files of vendors and the samples, compared: with themselves, with what is exported of them, and device by device in
// both directions. The former come from the folder that KINETRA_ESI_DIR names.
#include "cli/commandInProcess.h"
#include "cli/treeInput.h"
#include "cli/workplace.h"
#include "diff/compareDevices.h"
#include "diff/diffParts.h"
#include "testMain.h"

#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

class tst_RealFilesDiff : public QObject
{
    Q_OBJECT

private slots:
    static void withItself_data() { addFiles(); }
    static void withItself();
    void reformatted();
    void withItsExport_data() { addFiles(); }
    void withItsExport();
    static void bothDirections_data() { addFiles(); }
    static void bothDirections();

private:
    static void addFiles();

    Workplace m_place;
};

void tst_RealFilesDiff::addFiles()
{
    QTest::addColumn<QString>("path");
    const QString realFiles =
        qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), realFiles})
        for (const QFileInfo& file : QDir(folder).entryInfoList({"*.xml"}, QDir::Files, QDir::Name))
            QTest::addRow("%s", qPrintable(file.fileName())) << file.filePath();
}

/// Nothing differs; a file that cannot be read is told once for each side.
void tst_RealFilesDiff::withItself()
{
    QFETCH(QString, path);
    const CommandRun run =
        runHere({"diff", path, QFileInfo(path).path() + "/./" + QFileInfo(path).fileName(), "--all"});
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors.count('\n'), run.exitCode);
    QVERIFY(run.exitCode == 0 || (run.exitCode == 2 && !path.startsWith(sample({}))));
}

/// Line feeds of another system, and comments between all tags but those of a profile, whose number they would hide.
void tst_RealFilesDiff::reformatted()
{
    static const QRegularExpression gap(QStringLiteral(">\\s+<(?=/?[A-Za-z])(?!ProfileNo)"));
    for (const QFileInfo& file : QDir(sample({})).entryInfoList({"*.xml"}, QDir::Files)) {
        const QString content = QString::fromUtf8(contentOf(file.filePath()));
        QString edited = content;
        edited.replace(gap, QStringLiteral(">\r\n<!-- > --> <"));
        QVERIFY(edited.count("<!-- > -->") > content.count('\n') / 2);
        const CommandRun run = runHere({"diff", file.filePath(), m_place.make("edited.xml", edited.toUtf8())});
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.exitCode, 0);
    }
}

/// Nothing differs; in the other direction, nothing that weighs, with what a KTL file cannot have.
void tst_RealFilesDiff::withItsExport()
{
    QFETCH(QString, path);
    const QString ktl = m_place.path("export.ktl");
    const bool isExported = runHere({"convert", path, "-o", ktl, "--force", "--no-dump"}).exitCode == 0;
    const CommandRun forward = runHere({"diff", path, ktl});
    const CommandRun backward = runHere({"diff", ktl, path, "--all", "--weight=behaviour"});
    for (const CommandRun& run : {forward, backward}) {
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.exitCode, isExported ? 0 : 2);
    }
    if (isExported)
        QCOMPARE(runHere({"diff", ktl, ktl}).exitCode, 0);
}

/// What has changed is told alike, and what has come in one direction has gone in the other.
void tst_RealFilesDiff::bothDirections()
{
    QFETCH(QString, path);
    cli::TreeInput input = cli::readTreeInput(path, cli::AcceptedInputs::EsiAndKtl);
    QCOMPARE(input.tree.has_value(), !input.fault.has_value());
    if (!input.tree.has_value())
        return;
    diff::Source file(*input.tree, input.record, input.areComplete);
    const auto differencesOf = [&](std::size_t before, std::size_t after) {
        std::vector<diff::Difference> differences;
        diff::compareSources(file, file, {{{before, after, false}}, false, false, diff::Weight::Text},
                             [&](const diff::ComparedDevices& compared) { differences = compared.differences; });
        return differences;
    };
    constexpr std::size_t mostDevices = 12; // of a file of many devices the first ones
    for (std::size_t device = 1; device < std::min(file.devices().size(), mostDevices); ++device)
        QCOMPARE(diffParts::withoutDirection(differencesOf(device, device - 1)),
                 diffParts::withoutDirectionSwapped(differencesOf(device - 1, device)));
}

static const testMain::Registration<tst_RealFilesDiff, QCoreApplication> registration;
#include "tst_RealFilesDiff.moc"
