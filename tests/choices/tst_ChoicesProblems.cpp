// The list of what is wrong with a choices file: how many problems are kept, how they are worded, and their kinds.
#include "choices/problems.h"

#include "testMain.h"

class tst_ChoicesProblems : public QObject
{
    Q_OBJECT

private slots:
    static void pathInFront();
    static void placeOfAText();
    static void allAreCountedAndTwentyKept();
    static void explained_data();
    static void explained();
    static void namesOfKinds();
};

using choices::ProblemCode;
using choices::Problems;

void tst_ChoicesProblems::pathInFront()
{
    Problems problems;
    problems.add(ProblemCode::Form, "devices[0].links", "{} is not a list");
    problems.add(ProblemCode::Size, "", "not enough memory");
    QCOMPARE(problems.count(), std::size_t(2));
    QCOMPARE(problems.kept()[0].text, QStringLiteral("devices[0].links: {} is not a list"));
    QCOMPARE(problems.kept()[0].line, 0);
    QCOMPARE(problems.kept()[1].text, QStringLiteral("not enough memory"));
    QVERIFY(problems.kept()[1].code == ProblemCode::Size);
}

void tst_ChoicesProblems::placeOfAText()
{
    Problems problems;
    problems.add({ProblemCode::Json, "no JSON", 3, 7});
    QCOMPARE(problems.kept()[0].text, QStringLiteral("no JSON"));
    QCOMPARE(problems.kept()[0].line, 3);
    QCOMPARE(problems.kept()[0].column, 7);
}

void tst_ChoicesProblems::allAreCountedAndTwentyKept()
{
    Problems problems;
    for (int number = 1; number <= 25; ++number)
        problems.add(ProblemCode::Row, "", QString::number(number));
    QCOMPARE(problems.count(), std::size_t(25));
    QCOMPARE(problems.kept().size(), std::size_t(20));
    QCOMPARE(problems.kept().back().text, QStringLiteral("20"));
}

void tst_ChoicesProblems::explained_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("texts");
    QTest::addRow("the first of the kinds") << 0 << "link check! row check";
    QTest::addRow("not one before the start") << 2 << "link check row! check";
    QTest::addRow("none is left") << 4 << "link check row check";
    QTest::addRow("a start that is not kept") << 99 << "link check row check";
}

/// Words are added to the first problem of some kinds.
void tst_ChoicesProblems::explained()
{
    QFETCH(int, from);
    Problems problems;
    problems.add(ProblemCode::Link, "", "link");
    problems.add(ProblemCode::Check, "", "check");
    problems.add(ProblemCode::Row, "", "row");
    problems.add(ProblemCode::Check, "", "check");
    problems.explain(static_cast<std::size_t>(from), {ProblemCode::Check, ProblemCode::Row}, "!");
    QStringList texts;
    for (const choices::Problem& problem : problems.kept())
        texts += problem.text;
    QTEST(texts.join(' '), "texts");
}

/// Scripts rely on the names.
void tst_ChoicesProblems::namesOfKinds()
{
    const QStringList names{"size",         "json",    "form",         "no-device",   "several-devices",
                            "device-twice", "setting", "module",       "module-type", "module-place",
                            "link",         "row",     "startup-data", "check",       "sync-manager"};
    QCOMPARE(choices::problemCodeNames(), names);
    for (int kind = 0; kind < names.size(); ++kind)
        QCOMPARE(QString(choices::nameOf(static_cast<ProblemCode>(kind))), names[kind]);
}

static const testMain::Registration<tst_ChoicesProblems, testMain::NoApplication> registration;
#include "tst_ChoicesProblems.moc"
