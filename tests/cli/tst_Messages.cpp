// docs/messages.md against what the command and the window say, and how the command cuts what is too long.
#include "check/rules/rules.h"
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "editing/exportChecks.h"
#include "testMain.h"
#include "workbench/modelBuilders.h"

#include <QRegularExpression>
#include <QtTest>

class tst_Messages : public QObject
{
    Q_OBJECT

private slots:
    static void codesOfThePage();
    static void rulesOfThePage();
    static void exitStatuses_data();
    static void exitStatuses();
    static void wordsOfTheWindow_data();
    static void wordsOfTheWindow();
    static void manyMistakes_data();
    static void manyMistakes();
    static void longText();
    static void longCode();
};

namespace {

QString page()
{
    return QString::fromUtf8(contentOf(QStringLiteral(KINETRA_SOURCE_DIR "/docs/messages.md")));
}

/// Rows of the page's tables whose first cell fits a pattern, each in its cells.
QList<QStringList> rowsWith(const QString& firstCell)
{
    QList<QStringList> rows;
    const QRegularExpression row(QStringLiteral("^\\| %1 \\| .*\\|$").arg(firstCell),
                                 QRegularExpression::MultilineOption);
    for (QRegularExpressionMatchIterator match = row.globalMatch(page()); match.hasNext();) {
        QStringList cells;
        for (const QString& cell : match.next().captured().split(QLatin1Char('|')).mid(1))
            cells += cell.trimmed();
        rows += cells;
    }
    return rows;
}

QList<QStringList> codeRows()
{
    return rowsWith(QStringLiteral("`[a-z-]+`"));
}

/// The words of the window in the row of a code.
QString windowWords(const QString& code)
{
    for (const QStringList& row : codeRows())
        if (row.value(0) == QLatin1Char('`') + code + QLatin1Char('`'))
            return row.value(4);
    return {};
}

QByteArray choicesOf(int devices)
{
    QByteArrayList choices;
    for (int device = 0; device < devices; ++device)
        choices += "{\"device\": \"none\"}";
    return R"({"format": "kinetra-choices", "version": 1, "devices": [)" + choices.join(',') + "]}";
}

} // namespace

/// The command names its codes where it is given one that it does not know; the page has them in the same order.
void tst_Messages::codesOfThePage()
{
    const CommandRun run = runHere({"convert", sample(), "--ignore", "none"});
    const QString list = QString::fromUtf8(run.errors).section("there are ", 1).section(" (see", 0, 0);
    QStringList codes;
    for (const QStringList& row : codeRows())
        codes += row.value(0).mid(1).chopped(1);
    QVERIFY(codes.size() > 5);
    QCOMPARE(codes, list.split(QStringLiteral(", ")));
}

/// Beside the codes are those of rules about the same, where there are such.
void tst_Messages::rulesOfThePage()
{
    int rules = 0;
    for (const QStringList& row : codeRows()) {
        if (row.value(1).isEmpty())
            continue;
        QVERIFY2(check::ruleNamed(row.value(1).mid(1).chopped(1).toStdString()) != nullptr, qPrintable(row.value(1)));
        ++rules;
    }
    QVERIFY(rules > 5);
}

void tst_Messages::exitStatuses_data()
{
    QTest::addColumn<QString>("command"); // of a shell, with the program as $0
    QTest::addColumn<int>("status");
    QTest::addRow("done") << "\"$0\" convert five.xml -o a.ktl" << 0;
    QTest::addRow("a warning that counts") << "\"$0\" convert five.xml -o b.ktl --strict" << 1;
    QTest::addRow("an input that is not there") << "\"$0\" convert none.xml -o c.ktl" << 2;
    QTest::addRow("a full disk") << "\"$0\" choices five.xml > /dev/full" << 3;
}

/// Each has a row on the page.
void tst_Messages::exitStatuses()
{
    QFETCH(QString, command);
    QFETCH(int, status);
    const Workplace place;
    place.make(QStringLiteral("five.xml"), esiWith("<Device><Type>A</Type><Name>A</Name>"
                                                   + QByteArray("<Sm>Outputs</Sm>").repeated(5) + "</Device>"));
    CommandStart start;
    start.folder = place.folder();
    start.program = QStringLiteral("bash");
    QCOMPARE(runKtl({"-c", command, KTL_PROGRAM}, start).exitCode, status);
    QCOMPARE(rowsWith(QString::number(status)).size(), 1);
}

void tst_Messages::wordsOfTheWindow_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("code");
    QTest::addRow("sync managers") << int(ExportWarning::SyncManagers) << "sync-managers";
    QTest::addRow("PDO step") << int(ExportWarning::SlotPdoIncrement) << "slot-pdo-increment";
    QTest::addRow("index step") << int(ExportWarning::SlotIndexIncrement) << "slot-index-increment";
    QTest::addRow("commands") << int(ExportWarning::StartupCommands) << "startup-commands";
}

/// What the window says of a device that has the fault.
void tst_Messages::wordsOfTheWindow()
{
    QFETCH(int, kind);
    QFETCH(QString, code);
    const auto warning = static_cast<ExportWarning>(kind);
    struct_EtherCatDevice device = deviceNamed("NAME");
    device.vSM.resize(warning == ExportWarning::SyncManagers ? 5 : 4);
    device.Mailbox.COE.InitCmd.vinitcmd.resize(warning == ExportWarning::StartupCommands ? 255 : 254);
    device.Slots.Attributes.SlotPdoIncrement = 1;
    device.Slots.Attributes.SlotIndexIncrement = 1;
    device.Slots.vslot.resize(1);
    device.Slots.vslot[0].Attributes.SlotPdoIncrement = warning == ExportWarning::SlotPdoIncrement ? 2 : 1;
    device.Slots.vslot[0].Attributes.SlotIndexIncrement = warning == ExportWarning::SlotIndexIncrement ? 2 : 1;
    const QStringList said = exportWarnings(device);
    QCOMPARE(said.size(), 1);
    QCOMPARE(windowWords(code), said.first().trimmed());
}

void tst_Messages::manyMistakes_data()
{
    QTest::addColumn<int>("mistakes");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QByteArray>("last");
    QTest::addRow("20: all are told") << 20 << 20 << QByteArray("devices[19].device: ");
    QTest::addRow("21") << 21 << 21 << QByteArray("... and 1 more");
    QTest::addRow("many") << 500 << 21 << QByteArray("... and 480 more");
}

/// Of one file.
void tst_Messages::manyMistakes()
{
    QFETCH(int, mistakes);
    QFETCH(int, lines);
    QFETCH(QByteArray, last);
    const Workplace place;
    place.make(QStringLiteral("c.json"), choicesOf(mistakes));
    const CommandRun run = runHere({"convert", sample(), "-o", "out.ktl", "--choices", "c.json"}, place.folder());
    const QList<QByteArray> told = run.errors.trimmed().split('\n');
    QCOMPARE(told.size(), lines);
    QVERIFY2(told.last().startsWith("c.json: error: " + last), told.last().constData());
    QCOMPARE(run.exitCode, 2);
}

/// A line stays one that people read, whatever is in it.
void tst_Messages::longText()
{
    const CommandRun run = runHere({QString(50000, QLatin1Char('x'))});
    QVERIFY(run.errors.startsWith("ktl: error: \"xxxx"));
    QVERIFY(run.errors.size() < 2100);
    QCOMPARE(run.exitCode, 2);
}

/// 80 characters of a value, so that what is after it can be read.
void tst_Messages::longCode()
{
    const CommandRun run = runHere({"convert", sample(), "--ignore", QString(5000, QLatin1Char('x'))});
    QVERIFY2(
        run.errors.startsWith("ktl: error: \"" + QByteArray(80, 'x') + "...\" is no code of a warning; there are "),
        run.errors.constData());
}

static const testMain::Registration<tst_Messages, QCoreApplication> registration;
#include "tst_Messages.moc"
