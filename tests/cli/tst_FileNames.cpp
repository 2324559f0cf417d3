// Names of files that are no UTF-8, or that the locale does not know: `ktl` reads and writes them all.
#include "cli/showRun.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QtTest>

class tst_FileNames : public QObject
{
    Q_OBJECT

private slots:
    void everyName_data();
    void everyName();
    void proposedName_data();
    void proposedName();
    void messages_data();
    void messages();
    void results();
};

namespace {

/// Runs lines of the shell, in which "$0" is the command and $name what printf makes of the pattern. They work in a
/// folder of their own that the shell clears away: the test itself cannot name what is in it.
CommandRun runWithName(const QByteArray& pattern, const QString& lines, const QString& folder, const char* locale = "C")
{
    CommandStart start;
    start.folder = folder;
    start.program = QStringLiteral("sh");
    start.variables = QStringList{QStringLiteral("LC_ALL=") + QString::fromLatin1(locale)};
    const QString line = "name=$(printf '" + QString::fromLatin1(pattern) + "'); mkdir work && cd work && (" + lines
                         + "); ended=$?; cd .. && rm -r work; exit $ended";
    return runKtl({"-c", line, KTL_PROGRAM}, start);
}

void addNames()
{
    QTest::addColumn<QByteArray>("pattern"); // of printf
    QTest::addColumn<QByteArray>("locale");
    for (const char* locale : {"C", "C.UTF-8"}) {
        const auto row = [&](const char* what, const QByteArray& pattern) {
            QTest::addRow("%s, %s", what, locale) << pattern << QByteArray(locale);
        };
        row("Chinese", "\\346\\216\\247\\345\\210\\266");
        row("Chinese in another encoding", "\\277\\330\\326\\306");
        row("beyond sixteen bits", "\\360\\237\\230\\200");
        row("a byte that begins nothing", "a\\377b");
        row("a character that is cut", "a\\346\\216");
        row("a character written too long", "\\300\\257");
        row("a surrogate", "\\355\\263\\277");
        row("a byte order mark", "\\357\\273\\277a");
        row("beyond the last character", "\\364\\220\\200\\200");
        row("a colon in front", ":a");
    }
}

} // namespace

void tst_FileNames::everyName_data()
{
    addNames();
}

/// As an argument, as a choices file and as an output, alone and in a folder of that name.
void tst_FileNames::everyName()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, locale);
    const Workplace place;
    const QString lines = "set -e; mkdir \"$name\"; for at in \"$name\" \"$name/$name\"; do"
                          "  cp '"
                          + sample()
                          + "' \"$at.xml\";"
                            "  \"$0\" choices \"$at.xml\" > \"$at.json\";"
                            "  \"$0\" convert \"$at.xml\" -o \"$at.ktl\" --choices \"$at.json\" --date 2026-11-21;"
                            "  \"$0\" convert \"$at.xml\" -o \"$at.ktl\" --force --date 2026-11-21;"
                            "  cp \"$at.ktl\" ../out.ktl;"
                            "  \"$0\" convert \"$at.xml\" -o \"$at.ktl\" --append --date 2026-11-21;"
                            "  \"$0\" dump \"$at.ktl\" | cmp - \"$at.ktl.txt\";"
                            "  \"$0\" show \"$at.xml\" \"$at.ktl\" > shown;"
                            "done";
    const CommandRun run = runWithName(pattern, lines, place.folder(), locale.constData());
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(runKtl({"convert", sample(), "-o", "plain.ktl", "--date", "2026-11-21"}, place.folder()).exitCode, 0);
    QCOMPARE(place.content("out.ktl"), place.content("plain.ktl"));
}

void tst_FileNames::proposedName_data()
{
    addNames();
}

/// The name of the ESI file up to its first dot, byte by byte, and the vendor id.
void tst_FileNames::proposedName()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, locale);
    const Workplace place;
    const QString lines = "cp '" + sample()
                          + "' \"$name.xml\"; \"$0\" convert \"$name.xml\" && "
                            "test -s \"$name-0x7e570003.ktl\" && test -s \"$name-0x7e570003.ktl.txt\"";
    const CommandRun run = runWithName(pattern, lines, place.folder(), locale.constData());
    QVERIFY2(run.errors.startsWith("ktl: note: writes "), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.exitCode, 0);
}

void tst_FileNames::messages_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QByteArray>("shown");
    QTest::addRow("byte that is no UTF-8") << QByteArray("a\\377b") << QByteArray("a\\xffb");
    QTest::addRow("two such bytes") << QByteArray("\\277\\330") << QByteArray("\\xbf\\xd8");
    QTest::addRow("Chinese") << QByteArray("\\346\\216\\247") << QByteArray("\xE6\x8E\xA7");
    QTest::addRow("beyond sixteen bits") << QByteArray("\\360\\237\\230\\200") << QByteArray("\xF0\x9F\x98\x80");
}

/// A byte that is no UTF-8 stands as a backslash, "x" and two digits.
void tst_FileNames::messages()
{
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, shown);
    const Workplace place;
    const QByteArray reason = ": error: the file cannot be read: No such file or directory\n";
    for (const char* command : {"show", "dump", "choices", "convert -o out.ktl"}) {
        const QString line = QStringLiteral("exec \"$0\" %1 \"$name.xml\"").arg(QLatin1String(command));
        const CommandRun run = runWithName(pattern, line, place.folder());
        QCOMPARE(run.errors, shown + ".xml" + reason);
        QCOMPARE(run.exitCode, 2);
    }
}

/// Results stay valid UTF-8.
void tst_FileNames::results()
{
    const Workplace place;
    const QString copy = "cp '" + sample() + "' \"$name.xml\"; exec \"$0\" show ";
    const CommandRun json = runWithName("a\\377b", copy + "--json \"$name.xml\"", place.folder());
    QCOMPARE(filesIn(json).at(0).toObject().value("file").toString(), QStringLiteral("a\uFFFDb.xml"));
    const CommandRun csv = runWithName("a\\377b", copy + "--csv pdo \"$name.xml\"", place.folder());
    QVERIFY(csv.output.contains("\r\na\xEF\xBF\xBD"
                                "b.xml,1,"));
    const CommandRun text = runWithName("a\\377b", copy + "\"$name.xml\"", place.folder());
    QVERIFY(text.output.startsWith("a\xEF\xBF\xBD"
                                   "b.xml: ESI file, 2 devices\n"));
}

static const testMain::Registration<tst_FileNames, QCoreApplication> registration;
#include "tst_FileNames.moc"
