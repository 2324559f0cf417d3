// A template that is applied as it is: it does no more than to select each device.
#include "choices/appliedChoices.h"
#include "choices/choicesTexts.h"
#include "ktl/ktlBytes.h"
#include "ktl/ktlExport.h"
#include "testMain.h"

class tst_ChoicesFedBack : public QObject
{
    Q_OBJECT

private slots:
    static void sameBytes_data();
    static void sameBytes();
};

namespace {

QString realFilesFolder()
{
    return qEnvironmentVariable("KINETRA_ESI_DIR", QStringLiteral(KINETRA_SOURCE_DIR "/../shared/esi"));
}

/// A choices file that only names the devices of a file.
QByteArray selectionsOf(const struct_FilenameDevice& file)
{
    QByteArrayList selections;
    for (std::size_t number = 1; number <= file.device.size(); ++number)
        selections += "{\"device\": " + QByteArray::number(static_cast<qulonglong>(number)) + '}';
    return choicesWith(selections.join(','));
}

QByteArray exportOf(std::vector<struct_FilenameDevice>& files)
{
    return writtenBy([&](std::FILE* out) {
        const QDateTime exportTime(QDate(2026, 11, 21), QTime(10, 0));
        int errorCode = 0;
        QVERIFY(writeDevices(
            out, files, [](std::size_t, std::size_t) { return true; }, &errorCode, exportTime));
    });
}

} // namespace

void tst_ChoicesFedBack::sameBytes_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& folder : {QStringLiteral(KINETRA_SOURCE_DIR "/samples"), realFilesFolder()})
        for (const QString& name : QDir(folder).entryList({"*.xml"}, QDir::Files))
            if (!name.contains("_bad"))
                QTest::addRow("%s", qPrintable(name)) << QDir(folder).filePath(name);
}

void tst_ChoicesFedBack::sameBytes()
{
    QFETCH(QString, path);
    const std::vector<struct_FilenameDevice> files = loadedFile(path);
    QCOMPARE(files.size(), std::size_t(1));
    AppliedChoices unedited = applied(files, templateOf(files));
    AppliedChoices selected = applied(files, selectionsOf(files.front()));
    QCOMPARE(unedited.problems, QStringList());
    QCOMPARE(selected.problems, QStringList());
    QVERIFY(unedited.made.couplers == selected.made.couplers);
    const QByteArray bytes = exportOf(unedited.files);
    QVERIFY(!bytes.isEmpty());
    QVERIFY(bytes == exportOf(selected.files));
}

static const testMain::Registration<tst_ChoicesFedBack, testMain::NoApplication> registration;
#include "tst_ChoicesFedBack.moc"
