// Texts that fit a pattern, and texts that nearly are another.
#include "testMain.h"
#include "text/textMatching.h"

#include <QtTest>

class tst_TextMatching : public QObject
{
    Q_OBJECT

private slots:
    static void patterns_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("fits");
        const auto row = [](const char* name, const char* text, const char* pattern, bool fits) {
            QTest::addRow("%s", name) << text << pattern << fits;
        };
        row("no star: the same", "MB-1", "MB-1", true);
        row("no star: another case", "MB-1", "mb-1", false);
        row("no star: a beginning", "MB-1", "MB", false);
        row("a star alone", "MB-1", "*", true);
        row("a star alone, and no text", "", "*", true);
        row("a star for nothing", "MB-1", "MB-1*", true);
        row("a beginning", "MB-1", "MB*", true);
        row("an end", "MB-1", "*-1", true);
        row("beginning and end share no character", "aba", "ab*ba", false);
        row("beginning and end side by side", "abba", "ab*ba", true);
        row("parts in their order", "one two three", "*two*ee", true);
        row("parts in another order", "one two three", "*three*two*", false);
        row("a part that the end needs", "abc", "*c*c", false);
        row("a part twice", "abab", "*ab*ab*", true);
        row("a part once that is asked for twice", "ab", "*ab*ab*", false);
    }

    static void patterns()
    {
        QFETCH(QString, text);
        QFETCH(QString, pattern);
        QFETCH(bool, fits);
        QCOMPARE(fitsPattern(text, pattern), fits);
    }

    static void distances_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("distance");
        const auto row = [](const char* name, const char* word, const char* text, int distance) {
            QTest::addRow("%s", name) << word << text << distance;
        };
        row("the same", "axis", "axis", 0);
        row("a beginning", "ax", "axis", 0);
        row("another case", "AXIS", "axis 7", 0);
        row("one changed", "axos", "axis 7", 1);
        row("one missing", "ais", "axis", 1);
        row("one too many", "axiis", "axis", 1);
        row("two side by side in the wrong order", "aixs", "axis", 2);
        row("no text", "axis", "", 4);
        row("no word", "", "axis", 0);
        row("nothing in common", "abc", "xyz", 3);
    }

    static void distances()
    {
        QFETCH(QString, word);
        QFETCH(QString, text);
        QFETCH(int, distance);
        QCOMPARE(distanceToBeginning(word, text), distance);
    }
};

static const testMain::Registration<tst_TextMatching, testMain::NoApplication> registration;
#include "tst_TextMatching.moc"
