// The table of rules: what holds for each row.
#include "check/rules/rules.h"
#include "testMain.h"

#include <QRegularExpression>
#include <QtTest>

#include <set>
#include <string_view>

class tst_Rules : public QObject
{
    Q_OBJECT

private slots:
    static void rows_data();
    static void rows();
    static void codesAreUnique();
    static void byCode();
};

namespace {

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), static_cast<int>(view.size()));
}

} // namespace

void tst_Rules::rows_data()
{
    QTest::addColumn<int>("index");
    const std::vector<const check::Rule*>& rules = check::allRules();
    for (std::size_t index = 0; index < rules.size(); ++index)
        QTest::newRow(text(rules[index]->code).toUtf8().constData()) << static_cast<int>(index);
}

void tst_Rules::rows()
{
    QFETCH(int, index);
    const check::Rule& rule = *check::allRules().at(static_cast<std::size_t>(index));
    static const QRegularExpression codeForm(QStringLiteral("^[a-z]+[0-9]*(-[a-z0-9]+)*$"));
    QVERIFY(codeForm.match(text(rule.code)).hasMatch());
    QVERIFY(!rule.summary.empty());
    QVERIFY2(rule.summary.size() <= 60, "the summary has to fit on a line after code and severity");
    QVERIFY(rule.summary.back() != '.');
    for (const std::string_view sentences : {rule.what, rule.why, rule.remedy}) {
        QVERIFY(!sentences.empty());
        QCOMPARE(sentences.back(), '.');
        QVERIFY2(!text(sentences).contains(QStringLiteral("  ")), "two blanks where lines of the source meet");
    }
    QVERIFY(!rule.example.empty());
}

void tst_Rules::codesAreUnique()
{
    std::set<std::string_view> codes;
    for (const check::Rule* const rule : check::allRules())
        QVERIFY2(codes.insert(rule->code).second, text(rule->code).toUtf8().constData());
    QVERIFY(codes.size() >= 45);
}

void tst_Rules::byCode()
{
    for (const check::Rule* const rule : check::allRules())
        QCOMPARE(check::ruleNamed(rule->code), rule);
    QVERIFY(check::ruleNamed("no-such-rule") == nullptr);
    QVERIFY(check::ruleNamed("") == nullptr);
}

static const testMain::Registration<tst_Rules, testMain::NoApplication> registration;
#include "tst_Rules.moc"
