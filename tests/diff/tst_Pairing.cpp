// Which parts of two lists belong together.
#include "diff/pairing.h"
#include "testMain.h"

#include <QtTest>

#include <algorithm>

class tst_Pairing : public QObject
{
    Q_OBJECT

private slots:
    static void byKey_data();
    static void byKey();
    static void inSequence_data();
    static void inSequence();
    static void longSequences();
};

namespace {

std::vector<char> keysIn(const QByteArray& text)
{
    return {text.begin(), text.end()};
}

/// "a0-1 c2- -3*": key and places, `*` for what has moved.
QString wordsOf(const std::vector<diff::Pair>& pairs)
{
    QStringList words;
    for (const diff::Pair& pair : pairs)
        words += (pair.before ? QString::number(*pair.before) : QString()) + '-'
                 + (pair.after ? QString::number(*pair.after) : QString()) + (pair.isMoved ? "*" : "");
    return words.join(' ');
}

/// As above with the sides exchanged, in the order of the words.
QString mirrorOf(std::vector<diff::Pair> pairs)
{
    for (diff::Pair& pair : pairs)
        std::swap(pair.before, pair.after);
    QStringList words = wordsOf(pairs).split(' ');
    words.sort();
    return words.join(' ');
}

QString sorted(const QString& words)
{
    QStringList list = words.split(' ');
    list.sort();
    return list.join(' ');
}

} // namespace

void tst_Pairing::byKey_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("pairs");
    QTest::newRow("the same") << QByteArray("abc") << QByteArray("abc") << "0-0 1-1 2-2";
    QTest::newRow("another order") << QByteArray("abc") << QByteArray("cab") << "0-1 1-2 2-0";
    QTest::newRow("the second of a key with the second") << QByteArray("aab") << QByteArray("baa") << "0-1 1-2 2-0";
    QTest::newRow("gone and come") << QByteArray("ab") << QByteArray("bc") << "0- 1-0 -1";
    QTest::newRow("more of a key") << QByteArray("a") << QByteArray("aa") << "0-0 -1";
}

void tst_Pairing::byKey()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(wordsOf(diff::pairsByKey(keysIn(before), keysIn(after))), "pairs");
}

void tst_Pairing::inSequence_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("pairs"); ///< in the order of their words
    QTest::newRow("the same") << QByteArray("abc") << QByteArray("abc") << "0-0 1-1 2-2";
    QTest::newRow("the last is the first now") << QByteArray("abcd") << QByteArray("dabc") << "0-1 1-2 2-3 3-0*";
    QTest::newRow("the first is the last now") << QByteArray("abcd") << QByteArray("bcda") << "0-3* 1-0 2-1 3-2";
    QTest::newRow("inserted, nothing moved") << QByteArray("abc") << QByteArray("abxc") << "-2 0-0 1-1 2-3";
    QTest::newRow("removed from a run of equal ones") << QByteArray("aaab") << QByteArray("aab") << "0-0 1-1 2- 3-2";
    QTest::newRow("inserted before a run of equal ones") << QByteArray("aa") << QByteArray("xaa") << "-0 0-1 1-2";
    QTest::newRow("all others") << QByteArray("ab") << QByteArray("xy") << "-0 -1 0- 1-";
}

void tst_Pairing::inSequence()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QTEST(sorted(wordsOf(diff::pairsInSequence(keysIn(before), keysIn(after)))), "pairs");
    QFETCH(const QString, pairs);
    QCOMPARE(mirrorOf(diff::pairsInSequence(keysIn(after), keysIn(before))), pairs);
}

/// Two that have changed places can be told in two ways; both directions choose the same one. Long lists take no time.
void tst_Pairing::longSequences()
{
    std::vector<int> before(100000);
    for (std::size_t index = 0; index < before.size(); ++index)
        before[index] = static_cast<int>(index * 7919 % 100003);
    std::vector<int> after(before.rbegin(), before.rend());
    std::swap(after[10], after[20]);
    std::vector<diff::Pair> there = diff::pairsInSequence(before, after);
    std::vector<diff::Pair> back = diff::pairsInSequence(after, before);
    for (diff::Pair& pair : back)
        std::swap(pair.before, pair.after);
    const auto byBefore = [](const diff::Pair& left, const diff::Pair& right) { return *left.before < *right.before; };
    std::sort(there.begin(), there.end(), byBefore);
    std::sort(back.begin(), back.end(), byBefore);
    QVERIFY(std::equal(there.begin(), there.end(), back.begin(), back.end(),
                       [](const diff::Pair& left, const diff::Pair& right) {
                           return left.after == right.after && left.isMoved == right.isMoved;
                       }));
}

static const testMain::Registration<tst_Pairing, testMain::NoApplication> registration;
#include "tst_Pairing.moc"
