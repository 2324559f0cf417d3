// The manual page and the completion of `ktl` against what the command itself says of its options.
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class tst_Manual : public QObject
{
    Q_OBJECT

private slots:
    void subCommands();
    void optionsOfThePage();
    void optionsOfTheCompletion_data();
    void optionsOfTheCompletion();
    void codesOfTheCompletions();
};

static QString packagingFile(const char* name)
{
    return QString::fromUtf8(contentOf(QStringLiteral(KINETRA_SOURCE_DIR "/packaging/") + QString::fromLatin1(name)));
}

static QSet<QString> wordsIn(const QString& text, const QString& pattern)
{
    QSet<QString> words;
    QRegularExpressionMatchIterator match =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (match.hasNext())
        words.insert(match.next().captured(1));
    return words;
}

/// Long options that a help lists, without their hyphens.
static QSet<QString> optionsInHelp(const QStringList& subCommand)
{
    const QString help = QString::fromUtf8(runHere(subCommand + QStringList{"--help"}).output);
    return wordsIn(help.section(QStringLiteral("Examples:"), 0, 0),
                   QStringLiteral("^ +(?:-[a-z0-9], )?--([a-z][a-z-]*)"));
}

static QStringList subCommandsInHelp()
{
    const QString help = QString::fromUtf8(runHere({"--help"}).output);
    const QString list = help.section(QStringLiteral("Sub-commands:"), 1).section(QStringLiteral("Options:"), 0, 0);
    QStringList names = wordsIn(list, QStringLiteral("^  ([a-z]+) ")).values();
    names.removeOne(QStringLiteral("help")); // it has no options
    names.sort();
    return names;
}

void tst_Manual::subCommands()
{
    const QStringList names{"check", "choices", "convert", "diff", "dump", "find", "image", "show"};
    QCOMPARE(subCommandsInHelp(), names);
    QStringList inPage = wordsIn(packagingFile("ktl.1.in"), QStringLiteral("^\\.SY \"ktl ([a-z]+)\"")).values();
    QVERIFY(inPage.removeOne(QStringLiteral("help")));
    inPage.sort();
    QCOMPARE(inPage, names);
}

void tst_Manual::optionsOfThePage()
{
    QSet<QString> options = optionsInHelp({});
    for (const QString& name : subCommandsInHelp())
        options += optionsInHelp({name});
    QVERIFY(options.contains(QStringLiteral("choices")));
    QSet<QString> inPage;
    const QSet<QString> words = wordsIn(packagingFile("ktl.1.in"), QStringLiteral(R"(\\-\\-([a-z]+(?:\\-[a-z]+)*))"));
    for (QString word : words)
        inPage.insert(word.remove(QLatin1Char('\\')));
    QCOMPARE(inPage, options);
}

namespace {

/// Where a completion names the options of a sub-command, and how.
struct Completion
{
    const char* file;
    const char* block; ///< pattern of the text about the sub-command %1
    const char* option; ///< pattern of a long option in it
    bool sharesHelp; ///< `--help` and `--version` are named once, for all sub-commands
};

} // namespace

static const Completion completions[] = {
    {"ktl.bash", "^ +['\"]%1 (?:.*\\\\\n)*.*$", "--([a-z][a-z-]*)", false},
    {"ktl.fish", "^__ktl_option %1 (?:.*\\\\\n)*.*$", "--long-option ([a-z-]+)", true},
    {"ktl.zsh", "^        %1\\)\n(?:.*\n)*?            ;;$", "--([a-z][a-z-]*)[=\\[}]", true},
};

void tst_Manual::optionsOfTheCompletion_data()
{
    QTest::addColumn<QString>("subCommand");
    QTest::addColumn<int>("completion");
    int number = 0;
    for (const Completion& completion : completions) {
        for (const QString& name : subCommandsInHelp())
            QTest::addRow("%s of %s", qPrintable(name), completion.file) << name << number;
        ++number;
    }
}

/// Of each sub-command its own.
void tst_Manual::optionsOfTheCompletion()
{
    QFETCH(QString, subCommand);
    QFETCH(int, completion);
    const Completion& used = completions[completion];
    QSet<QString> options = optionsInHelp({subCommand});
    QVERIFY(options.contains(QStringLiteral("version")));
    if (used.sharesHelp)
        options -= {QStringLiteral("help"), QStringLiteral("version")};
    QSet<QString> offered;
    const QString pattern = QString::fromLatin1(used.block).arg(subCommand);
    const QString text = packagingFile(used.file);
    QRegularExpressionMatchIterator blocks =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    QVERIFY(blocks.hasNext());
    while (blocks.hasNext())
        offered += wordsIn(blocks.next().captured(), QString::fromLatin1(used.option));
    QCOMPARE(offered, options);
}

/// Those of the warnings, which the command lists where it is given another one.
void tst_Manual::codesOfTheCompletions()
{
    const CommandRun run = runHere({"convert", sample(), "--ignore", "none"});
    const QString list =
        QString::fromUtf8(run.errors).section(QStringLiteral("there are "), 1).section(QStringLiteral(" (see"), 0, 0);
    const QStringList codes = list.split(QStringLiteral(", "));
    QVERIFY(codes.contains(QStringLiteral("sync-managers")));
    for (const Completion& completion : completions)
        for (const QString& code : codes)
            QVERIFY2(packagingFile(completion.file).contains(code), qPrintable(code + completion.file));
}

static const testMain::Registration<tst_Manual, QCoreApplication> registration;
#include "tst_Manual.moc"
