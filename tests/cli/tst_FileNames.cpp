// Names of files that are no UTF-8, or that the locale does not know: `ktl` reads and writes them all.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "system/fileNameCodec.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextCodec>
#include <QtTest>

class tst_FileNames : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { QTextCodec::setCodecForLocale(m_codecBefore); }
    static void everyName_data();
    static void everyName();
    static void proposedName_data();
    static void proposedName();
    static void anyLocale_data();
    static void anyLocale();
    static void messages_data();
    static void messages();
    static void results();

private:
    QTextCodec* m_codecBefore = nullptr;
};

namespace {

const QString fixedDate = QStringLiteral("--date=2026-11-21");

void addNames()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addRow("Chinese") << QByteArray("\xE6\x8E\xA7\xE5\x88\xB6");
    QTest::addRow("Chinese in another encoding") << QByteArray("\xBF\xD8\xD6\xC6");
    QTest::addRow("beyond sixteen bits") << QByteArray("\xF0\x9F\x98\x80");
    QTest::addRow("a byte that begins nothing") << QByteArray("a\xFFz");
    QTest::addRow("a character that is cut") << QByteArray("a\xE6\x8E");
    QTest::addRow("a character written too long") << QByteArray("\xC0\xAF");
    QTest::addRow("a surrogate") << QByteArray("\xED\xB3\xBF");
    QTest::addRow("a byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                     "a");
    QTest::addRow("beyond the last character") << QByteArray("\xF4\x90\x80\x80");
    QTest::addRow("a colon in front") << QByteArray(":a");
}

/// Runs the command, which must have nothing to say. @return  its results
QByteArray resultsOf(const QStringList& arguments, const Workplace& place)
{
    const CommandRun run = runHere(arguments, place.folder());
    return run.exitCode == 0 && run.errors.isEmpty() ? run.output : "failed: " + run.errors;
}

} // namespace

/// The process of the test keeps names of files as the command does.
void tst_FileNames::initTestCase()
{
    m_codecBefore = QTextCodec::codecForLocale();
    os::keepFileNames();
}

void tst_FileNames::everyName_data()
{
    addNames();
}

/// As an argument, as a choices file and as an output, alone and in a folder of that name.
void tst_FileNames::everyName()
{
    QFETCH(QByteArray, name);
    const Workplace place;
    const QString text = QFile::decodeName(name);
    QVERIFY(QDir().mkdir(place.folder() + '/' + text));
    QCOMPARE(resultsOf({"convert", sample(), "-o", "plain.ktl", fixedDate}, place), QByteArray());
    const QByteArray plain = place.content(QStringLiteral("plain.ktl"));
    for (const QString& at : {text, text + '/' + text}) {
        const auto path = [&](const char* ending) { return place.folder() + '/' + at + QLatin1String(ending); };
        QVERIFY(QFile::copy(sample(), path(".xml")));
        const QByteArray choices = resultsOf({"choices", at + ".xml"}, place);
        QFile choicesFile(path(".json"));
        QVERIFY(choicesFile.open(QIODevice::WriteOnly) && choicesFile.write(choices) == choices.size());
        choicesFile.close();
        const QStringList convert{"convert", at + ".xml", "-o", at + ".ktl", fixedDate};
        QCOMPARE(resultsOf(convert + QStringList{"--choices", at + ".json"}, place), QByteArray());
        QCOMPARE(resultsOf(convert + QStringList{"--force"}, place), QByteArray());
        QCOMPARE(contentOf(path(".ktl")), plain);
        QCOMPARE(resultsOf(convert + QStringList{"--append"}, place), QByteArray());
        QCOMPARE(resultsOf({"dump", at + ".ktl"}, place), contentOf(path(".ktl.txt")));
        QVERIFY(resultsOf({"show", at + ".xml", at + ".ktl"}, place).contains(": KTL file, "));
    }
}

void tst_FileNames::proposedName_data()
{
    addNames();
}

/// The name of the ESI file up to its first dot, byte by byte, and the vendor id.
void tst_FileNames::proposedName()
{
    QFETCH(QByteArray, name);
    const Workplace place;
    const QString path = place.folder() + '/' + QFile::decodeName(name);
    QVERIFY(QFile::copy(sample(), path + ".xml"));
    const CommandRun run = runHere({"convert", QFile::decodeName(name) + ".xml"}, place.folder());
    QVERIFY2(run.errors.startsWith("ktl: note: writes "), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFileInfo(path + "-0x7e570003.ktl").size() > 0);
    QVERIFY(QFileInfo(path + "-0x7e570003.ktl.txt").size() > 0);
}

void tst_FileNames::anyLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("pattern"); // of printf
    for (const char* locale : {"C", "C.UTF-8"}) {
        QTest::addRow("Chinese, %s", locale) << locale << "\\346\\216\\247";
        QTest::addRow("a byte that begins nothing, %s", locale) << locale << "a\\377b";
    }
}

/// The program keeps the names of its arguments, whatever the locale is. The shell makes the name and removes the file.
void tst_FileNames::anyLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, pattern);
    const Workplace place;
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("sh");
    start.variables = QStringList{"LC_ALL=" + locale};
    const QString line = "name=$(printf '" + pattern
                         + "') && cp \"$1\" \"$name.xml\" && \"$0\" convert \"$name.xml\" -o \"$name.ktl\" && "
                           "mv \"$name.ktl\" out.ktl && rm \"$name.xml\" \"$name.ktl.txt\"";
    const CommandRun run = runKtl({"-c", line, KTL_PROGRAM, sample()}, start);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(place.names(), QStringList{"out.ktl"});
}

void tst_FileNames::messages_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("shown");
    QTest::addRow("byte that is no UTF-8") << QByteArray("a\xFFz") << QByteArray("a\\xffz");
    QTest::addRow("two such bytes") << QByteArray("\xBF\xD8") << QByteArray("\\xbf\\xd8");
    QTest::addRow("Chinese") << QByteArray("\xE6\x8E\xA7") << QByteArray("\xE6\x8E\xA7");
    QTest::addRow("beyond sixteen bits") << QByteArray("\xF0\x9F\x98\x80") << QByteArray("\xF0\x9F\x98\x80");
}

/// A byte that is no UTF-8 is a backslash, "x" and two digits.
void tst_FileNames::messages()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, shown);
    const Workplace place;
    for (const QStringList& command :
         {QStringList{"show"}, QStringList{"dump"}, QStringList{"choices"}, QStringList{"convert", "-o", "out.ktl"}}) {
        const CommandRun run = runHere(command + QStringList{QFile::decodeName(name) + ".xml"}, place.folder());
        QCOMPARE(run.errors, shown + ".xml: error: the file cannot be read: No such file or directory\n");
        QCOMPARE(run.exitCode, 2);
    }
}

/// Results stay valid UTF-8.
void tst_FileNames::results()
{
    const Workplace place;
    const QString name = QFile::decodeName("a\xFFz.xml");
    QVERIFY(QFile::copy(sample(), place.folder() + '/' + name));
    const QByteArray json = resultsOf({"show", "--json", name}, place);
    const QJsonArray files = QJsonDocument::fromJson(json).object().value("files").toArray();
    QCOMPARE(files.at(0).toObject().value("file").toString(), QStringLiteral("a\uFFFDz.xml"));
    QVERIFY(resultsOf({"show", "--csv", "pdo", name}, place).contains("\r\na\xEF\xBF\xBDz.xml,1,"));
    QVERIFY(resultsOf({"show", name}, place).startsWith("a\xEF\xBF\xBDz.xml: ESI file, 2 devices\n"));
}

static const testMain::Registration<tst_FileNames, QCoreApplication> registration;
#include "tst_FileNames.moc"
