// The collection of findings.
#include "check/rules/report.h"
#include "testMain.h"

#include <QtTest>

class tst_Report : public QObject
{
    Q_OBJECT

private slots:
    static void orderOfTheFile();
    static void owner();
    static void limitOfARule();
};

namespace {

constexpr check::Rule ruleNamedA{"a", check::Severity::Error, {}, {}, {}, {}, {}, {}};
constexpr check::Rule ruleNamedB{"b", check::Severity::Note, {}, {}, {}, {}, {}, {}};

} // namespace

void tst_Report::orderOfTheFile()
{
    check::Report report;
    report.turnTo(ruleNamedA, {});
    report.add(20, QStringLiteral("a at 20"));
    report.add(10, QStringLiteral("a at 10"));
    report.turnTo(ruleNamedB, {});
    report.add(10, QStringLiteral("b at 10"));
    QStringList texts;
    for (const check::Finding& finding : report.take().list)
        texts += finding.text;
    QCOMPARE(texts, QStringList({"a at 10", "b at 10", "a at 20"}));
    QVERIFY(report.take().list.empty());
}

void tst_Report::owner()
{
    check::Report report;
    report.turnTo(ruleNamedA, {check::OwnerKind::Device, 2});
    report.add(1, {});
    report.addAbout({check::OwnerKind::Module, 5}, 2, {});
    const check::Findings findings = report.take();
    QCOMPARE(findings.list.at(0).rule->code, std::string_view("a"));
    QVERIFY(findings.list.at(0).owner.kind == check::OwnerKind::Device);
    QCOMPARE(findings.list.at(0).owner.index, std::size_t{2});
    QVERIFY(findings.list.at(1).owner.kind == check::OwnerKind::Module);
    QCOMPARE(findings.list.at(1).owner.index, std::size_t{5});
}

void tst_Report::limitOfARule()
{
    check::Report report;
    for (const check::Rule* const rule : {&ruleNamedA, &ruleNamedB}) {
        report.turnTo(*rule, {});
        for (std::size_t count = 0; count < check::Report::maxOfRule + 3; ++count)
            report.add(0, {});
    }
    const check::Findings findings = report.take();
    QCOMPARE(findings.list.size(), 2 * check::Report::maxOfRule);
    QCOMPARE(findings.omissions.size(), std::size_t{2});
    QCOMPARE(findings.omissions.at(0).rule, &ruleNamedA);
    QCOMPARE(findings.omissions.at(0).count, std::size_t{3});
    QCOMPARE(findings.omissions.at(1).rule, &ruleNamedB);
}

static const testMain::Registration<tst_Report, testMain::NoApplication> registration;
#include "tst_Report.moc"
