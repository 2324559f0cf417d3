// The comments on odd rules of src: what each has to say, and that the tests that it names are there.
#include "model/projectSources.h"
#include "testMain.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QtTest>

namespace {

constexpr const char* mark = "ODD, KEPT:";

/// The comments of a file that have lines of their own, each on one line.
QStringList commentsOf(const QString& path)
{
    static const QRegularExpression slashes("^///? ?");
    QStringList comments;
    bool isOpen = false;
    for (const QString& line : contentOf(path).split('\n')) {
        QString words = line.trimmed();
        const bool isComment = words.startsWith("//");
        words.remove(slashes);
        if (isComment && isOpen)
            comments.last() += ' ' + words;
        else if (isComment)
            comments.append(words);
        isOpen = isComment;
    }
    return comments;
}

/// What a comment says of odd rules, rule by rule: each ends before the next one, or before a tag such as "@param".
QStringList oddRulesOf(const QString& comment)
{
    QStringList rules = comment.split(mark).mid(1);
    for (QString& rule : rules)
        rule = rule.section(" @", 0, 0).simplified();
    return rules;
}

/// All odd rules, each with its file in front.
QStringList allOddRules()
{
    QStringList rules;
    for (const QString& path : sourcesUnder("src"))
        for (const QString& comment : commentsOf(path))
            for (const QString& rule : oddRulesOf(comment))
                rules.append(QFileInfo(path).fileName() + ": " + rule);
    return rules;
}

/// Texts of the test programs by their names.
QHash<QString, QString> testPrograms()
{
    QHash<QString, QString> programs;
    for (const QString& path : sourcesUnder("tests"))
        programs.insert(QFileInfo(path).baseName(), contentOf(path));
    return programs;
}

} // namespace

class tst_OddRules : public QObject
{
    Q_OBJECT

private slots:
    static void everyRuleHasTheMark();
    static void everyRuleTellsWhatOneWouldExpect();
    static void everyRuleIsPinned();
    static void everyPinIsATest();
    static void noRuleIsLong();
};

/// The form counts: what has another one is not read by the tests below.
void tst_OddRules::everyRuleHasTheMark()
{
    static const QRegularExpression word("\\bODD\\b");
    QStringList without;
    for (const QString& path : sourcesUnder("src"))
        if (const QString content = contentOf(path); content.count(word) != commentsOf(path).join('\n').count(mark))
            without.append(path);
    QCOMPARE(without.join('\n'), QString());
    QVERIFY(!allOddRules().isEmpty());
}

void tst_OddRules::everyRuleTellsWhatOneWouldExpect()
{
    QStringList silent;
    for (const QString& rule : allOddRules())
        if (!rule.contains("one would", Qt::CaseInsensitive))
            silent.append(rule);
    QCOMPARE(silent.join('\n'), QString());
}

void tst_OddRules::everyRuleIsPinned()
{
    QStringList loose;
    for (const QString& rule : allOddRules())
        if (!rule.contains(" Pinned by tst_"))
            loose.append(rule);
    QCOMPARE(loose.join('\n'), QString());
}

/// A test function that a comment names is defined in the program of its class.
void tst_OddRules::everyPinIsATest()
{
    static const QRegularExpression pin("\\b(tst_\\w+)::(\\w+)");
    const QHash<QString, QString> programs = testPrograms();
    QStringList missing;
    for (const QString& path : sourcesUnder("src"))
        for (auto match = pin.globalMatch(commentsOf(path).join('\n')); match.hasNext();) {
            const QRegularExpressionMatch named = match.next();
            if (!programs.value(named.captured(1)).contains("\nvoid " + named.captured(0) + "()\n"))
                missing.append(QFileInfo(path).fileName() + ": " + named.captured(0));
        }
    QCOMPARE(missing.join('\n'), QString());
}

void tst_OddRules::noRuleIsLong()
{
    constexpr int maxWords = 60;
    QStringList tooLong;
    for (const QString& rule : allOddRules())
        if (rule.count(' ') > maxWords) // the first word is the name of the file
            tooLong.append(rule);
    QCOMPARE(tooLong.join('\n'), QString());
}

static const testMain::Registration<tst_OddRules, QCoreApplication> registration;
#include "tst_OddRules.moc"
