// The manual page and the completion of `ktl` against what the command itself says of its options.
#include "cli/commandRun.h"
#include "cli/workplace.h"

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
    const QString help = QString::fromUtf8(runKtl(subCommand + QStringList{"--help"}).output);
    return wordsIn(help.section(QStringLiteral("Examples:"), 0, 0), QStringLiteral("^ .*--([a-z]+)"));
}

static QStringList subCommandsInHelp()
{
    const QString help = QString::fromUtf8(runKtl({"--help"}).output);
    const QString list = help.section(QStringLiteral("Sub-commands:"), 1).section(QStringLiteral("Options:"), 0, 0);
    QStringList names = wordsIn(list, QStringLiteral("^  ([a-z]+) ")).values();
    names.sort();
    return names;
}

void tst_Manual::subCommands()
{
    const QStringList names{"choices", "convert", "dump", "show"};
    QCOMPARE(subCommandsInHelp(), names);
    QStringList inPage = wordsIn(packagingFile("ktl.1.in"), QStringLiteral("^\\.SY \"ktl ([a-z]+)\"")).values();
    inPage.sort();
    QCOMPARE(inPage, names);
}

void tst_Manual::optionsOfThePage()
{
    QSet<QString> options = optionsInHelp({});
    for (const QString& name : subCommandsInHelp())
        options += optionsInHelp({name});
    QVERIFY(options.contains(QStringLiteral("choices")));
    QCOMPARE(wordsIn(packagingFile("ktl.1.in"), QStringLiteral("\\\\-\\\\-([a-z]+)")), options);
}

void tst_Manual::optionsOfTheCompletion_data()
{
    QTest::addColumn<QString>("subCommand");
    for (const QString& name : subCommandsInHelp())
        QTest::addRow("%s", qPrintable(name)) << name;
}

/// Of each sub-command its own.
void tst_Manual::optionsOfTheCompletion()
{
    QFETCH(QString, subCommand);
    const QSet<QString> options = optionsInHelp({subCommand});
    QVERIFY(options.contains(QStringLiteral("version")));
    const QString row =
        QRegularExpression(QStringLiteral("^ +'%1 .*$").arg(subCommand), QRegularExpression::MultilineOption)
            .match(packagingFile("ktl.bash"))
            .captured();
    QCOMPARE(wordsIn(row, QStringLiteral("--([a-z]+)")), options);
}

QTEST_GUILESS_MAIN(tst_Manual)
#include "tst_Manual.moc"
