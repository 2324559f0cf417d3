// The cheapest steps from one list to another.
#include "retrace/alignment.h"
#include "testMain.h"

#include <algorithm>
#include <numeric>

namespace {

using retrace::Cost;
using retrace::Step;
using List = std::vector<int>;

/// A letter can change between small and capital; every element can be removed; every one can be added.
struct LetterCosts
{
    const List& before;
    const List& after;

    [[nodiscard]] Cost stay(std::size_t from, std::size_t to) const
    {
        if (before[from] == after[to])
            return 0;
        constexpr int caseBit = 'a' ^ 'A';
        constexpr int lastLetter = 'z';
        const bool areOneLetter = (before[from] ^ after[to]) == caseBit && before[from] <= lastLetter;
        return areOneLetter ? 1 : 2 * retrace::impossible;
    }
    [[nodiscard]] static Cost remove(std::size_t /*from*/) { return 2; }
    [[nodiscard]] static Cost add(std::size_t /*to*/, bool isFirst) { return isFirst ? retrace::impossible : 2; }
};

std::vector<Step> stepsFrom(const List& before, const List& after)
{
    return retrace::Alignment(before.size(), after.size(), LetterCosts{before, after}).steps();
}

List lettersOf(const QString& text)
{
    List letters;
    for (const QChar letter : text)
        letters.push_back(letter.unicode());
    return letters;
}

/// "a" stays, "a>A" changes, "-a" is removed, "+a" is added.
QString wordOf(const Step& step, const List& before, const List& after)
{
    const QString is = step.before.has_value() ? QString(QChar(before[*step.before])) : QString();
    const QString becomes = step.after.has_value() ? QString(QChar(after[*step.after])) : QString();
    if (is.isEmpty())
        return '+' + becomes;
    if (becomes.isEmpty())
        return '-' + is;
    return is == becomes ? is : is + '>' + becomes;
}

/// How many elements stay or change, are removed, and are added.
QString countsOf(const std::vector<Step>& steps)
{
    const auto count = [&](bool hasBefore, bool hasAfter) {
        return std::count_if(steps.begin(), steps.end(), [&](const Step& step) {
            return step.before.has_value() == hasBefore && step.after.has_value() == hasAfter;
        });
    };
    return QStringLiteral("%1 stay, %2 removed, %3 added")
        .arg(count(true, true))
        .arg(count(true, false))
        .arg(count(false, true));
}

/// `count` numbers from `first` on between two ends.
List between(int before, int first, int count, int after)
{
    List list(static_cast<std::size_t>(count));
    std::iota(list.begin(), list.end(), first);
    list.insert(list.begin(), before);
    list.push_back(after);
    return list;
}

} // namespace

Q_DECLARE_METATYPE(List)

class tst_Alignment : public QObject
{
    Q_OBJECT

private slots:
    static void steps_data();
    static void steps();
    static void longLists_data();
    static void longLists();
    static void eachElementOnce();
};

void tst_Alignment::steps_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("expected");
    QTest::addRow("same lists") << "abc"
                                << "abc"
                                << "a b c";
    QTest::addRow("both empty") << ""
                                << ""
                                << "";
    QTest::addRow("nothing before") << ""
                                    << "ab"
                                    << "+a +b";
    QTest::addRow("nothing after") << "abc"
                                   << ""
                                   << "-a -b -c";
    QTest::addRow("removed at the beginning") << "abc"
                                              << "bc"
                                              << "-a b c";
    QTest::addRow("removed in the middle") << "abc"
                                           << "ac"
                                           << "a -b c";
    QTest::addRow("removed at the end") << "abc"
                                        << "ab"
                                        << "a b -c";
    QTest::addRow("added in the middle") << "ab"
                                         << "axb"
                                         << "a +x b";
    QTest::addRow("added at the end") << "ab"
                                      << "abx"
                                      << "a b +x";
    QTest::addRow("two added in one place") << "ab"
                                            << "axyb"
                                            << "a +x +y b";
    QTest::addRow("changed") << "abc"
                             << "aBc"
                             << "a b>B c";
    QTest::addRow("all changed") << "ab"
                                 << "AB"
                                 << "a>A b>B";
    QTest::addRow("replaced") << "a"
                              << "x"
                              << "-a +x";
    QTest::addRow("removed and added apart") << "abcd"
                                             << "acdx"
                                             << "a -b c d +x";
    // 1 to change a and 2 to add the other one, where to remove a and add both takes 6.
    QTest::addRow("changed to add behind it, not before") << "ab"
                                                          << "Aab"
                                                          << "a>A +a b";
    // 2 to remove and 4 to add, where to add before the first one cannot be.
    QTest::addRow("removed to add behind it") << "b"
                                              << "xb"
                                              << "-b +x +b";
    QTest::addRow("removed among the same, from the beginning") << "aaa"
                                                                << "aa"
                                                                << "a a -a";
    QTest::addRow("added among the same, from the beginning") << "aa"
                                                              << "aaa"
                                                              << "a a +a";
    QTest::addRow("the same at both ends share no element") << "aba"
                                                            << "aa"
                                                            << "a -b a";
    QTest::addRow("half of a repeated list") << "abab"
                                             << "ab"
                                             << "a b -a -b";
    QTest::addRow("removed before the last one") << "ab"
                                                 << "b"
                                                 << "-a b";
}

void tst_Alignment::steps()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    const List from = lettersOf(before);
    const List to = lettersOf(after);
    QStringList words;
    for (const Step& step : stepsFrom(from, to))
        words += wordOf(step, from, to);
    QTEST(words.join(' '), "expected");
}

/// The ends differ, so that nothing of the table is saved: of n and m elements it has (n + 1) * (m + 1) cells,
/// 4,000,000 at most. The numbers are no letters but themselves.
void tst_Alignment::longLists_data()
{
    QTest::addColumn<List>("before");
    QTest::addColumn<List>("after");
    QTest::addColumn<QString>("expected");
    // The list after has an element more at its beginning and one less at its end.
    List shifted = between(20'000, 9'999, 1997, 30'000);
    QTest::addRow("1999 elements fill the table")
        << between(40'000, 10'000, 1997, 50'000) << shifted << "1996 stay, 3 removed, 3 added";
    shifted = between(20'000, 9'999, 1998, 30'000);
    QTest::addRow("2000 elements are paired place by place")
        << between(40'000, 10'000, 1998, 50'000) << shifted << "0 stay, 2000 removed, 2000 added";
    QTest::addRow("2000 elements in the same places")
        << between(40'000, 10'000, 1998, 50'000) << between(20'000, 10'000, 1998, 30'000)
        << "1998 stay, 2 removed, 2 added";
    QTest::addRow("more before than after")
        << between(40'000, 10'000, 2998, 50'000) << between(20'000, 10'000, 1498, 30'000)
        << "1498 stay, 1502 removed, 2 added";
    QTest::addRow("more after than before")
        << between(40'000, 10'000, 1498, 50'000) << between(20'000, 10'000, 2998, 30'000)
        << "1498 stay, 2 removed, 1502 added";
}

void tst_Alignment::longLists()
{
    QFETCH(List, before);
    QFETCH(List, after);
    QTEST(countsOf(stepsFrom(before, after)), "expected");
}

/// Also where the lists are paired place by place between a head and a tail of their own.
void tst_Alignment::eachElementOnce()
{
    List before = between(40'000, 10'000, 2998, 50'000);
    List after = between(20'000, 10'000, 1498, 30'000);
    before.insert(before.begin(), 1);
    after.insert(after.begin(), 1);
    before.push_back(2);
    after.push_back(2);
    std::size_t nextBefore = 0;
    std::size_t nextAfter = 0;
    for (const Step& step : stepsFrom(before, after)) {
        QVERIFY(step.before.has_value() || step.after.has_value());
        if (step.before.has_value())
            QCOMPARE(*step.before, nextBefore++);
        if (step.after.has_value())
            QCOMPARE(*step.after, nextAfter++);
    }
    QCOMPARE(nextBefore, before.size());
    QCOMPARE(nextAfter, after.size());
}

static const testMain::Registration<tst_Alignment, testMain::NoApplication> registration;
#include "tst_Alignment.moc"
