// docs/check.md against the table of rules, and what the command prints.
#include "check/rules/rules.h"
#include "cli/commandInProcess.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QtTest>

class tst_CheckDoc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void rulesOfThePage();
    void textsOfRules_data();
    void textsOfRules();
    void tableOfCounts();
    void keysOfJson();

private:
    QString m_page;
};

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

QStringList allCodes()
{
    QStringList codes;
    for (const check::Rule* const rule : check::allRules())
        codes += textOf(rule->code);
    return codes;
}

/// A text as it is in the page but for line feeds: what Markdown would take for marks has a backslash.
QString inMarkdown(const QString& text)
{
    QString escaped = text.simplified();
    for (const char mark : {'<', '*'})
        escaped.replace(QLatin1Char(mark), QString('\\') + QLatin1Char(mark));
    return escaped;
}

} // namespace

void tst_CheckDoc::initTestCase()
{
    m_page = QString::fromUtf8(contentOf(QStringLiteral(KINETRA_SOURCE_DIR "/docs/check.md")));
    QVERIFY(m_page.contains("\n## Rules\n"));
}

/// Each rule has a section, and no other code has one; they are in the order of the table.
void tst_CheckDoc::rulesOfThePage()
{
    QStringList codes;
    QRegularExpressionMatchIterator heads =
        QRegularExpression("^### `([^`]+)`$", QRegularExpression::MultilineOption).globalMatch(m_page);
    while (heads.hasNext())
        codes += heads.next().captured(1);
    QCOMPARE(codes, allCodes());
}

void tst_CheckDoc::textsOfRules_data()
{
    QTest::addColumn<QString>("code");
    for (const QString& code : allCodes())
        QTest::addRow("%s", qPrintable(code)) << code;
}

/// Of each rule all that `--explain` tells.
void tst_CheckDoc::textsOfRules()
{
    QFETCH(QString, code);
    const check::Rule* const rule = check::ruleNamed(code.toStdString());
    QString section = m_page.section("\n### `" + code + "`\n", 1).section("\n### ", 0, 0);
    const QString example =
        "\n\n    " + textOf(rule->example).replace("\n", "\n    ").replace("\n    \n", "\n\n") + '\n';
    QVERIFY2(section.contains(example), qPrintable("the page lacks:" + example));
    section = section.simplified();
    const QStringList parts{"**" + textOf(nameOf(rule->severity)) + "**: " + inMarkdown(textOf(rule->summary)) + '.',
                            inMarkdown(textOf(rule->what)), "Why it matters: " + inMarkdown(textOf(rule->why)),
                            "What to do: " + inMarkdown(textOf(rule->remedy))};
    for (const QString& part : parts)
        QVERIFY2(section.contains(part), qPrintable("the page lacks: " + part));
}

/// A rule that is gone is not counted any more, and the rows add up to the numbers before them.
void tst_CheckDoc::tableOfCounts()
{
    const QString table = m_page.section("\n## What the rules find in real files\n", 1).section("\n## ", 0, 0);
    QVERIFY(!table.isEmpty());
    const QRegularExpressionMatch totals =
        QRegularExpression("There are (\\d+) findings, (\\d+) of them notes").match(table.simplified());
    QVERIFY(totals.hasMatch());
    int findings = 0;
    int notes = 0;
    QRegularExpressionMatchIterator rows =
        QRegularExpression("^\\| `([^`]+)` \\| (\\d+) \\|", QRegularExpression::MultilineOption).globalMatch(table);
    while (rows.hasNext()) {
        const QRegularExpressionMatch row = rows.next();
        const check::Rule* const rule = check::ruleNamed(row.captured(1).toStdString());
        QVERIFY2(rule != nullptr, qPrintable(row.captured(1)));
        findings += row.captured(2).toInt();
        notes += rule->severity == check::Severity::Note ? row.captured(2).toInt() : 0;
    }
    QCOMPARE(findings, totals.captured(1).toInt());
    QCOMPARE(notes, totals.captured(2).toInt());
}

void tst_CheckDoc::keysOfJson()
{
    const Workplace place;
    place.make("n.xml", esiWith("<Device><Sm>Inputs</Sm></Device>"));
    const CommandRun run = runHere({"check", "n.xml", "--json", "--only=product-code"}, place.folder());
    const QJsonObject json = QJsonDocument::fromJson(run.output).object();
    const QJsonObject file = json.value("files").toArray().at(0).toObject();
    const QJsonObject finding = file.value("findings").toArray().at(0).toObject();
    const QJsonObject device = finding.value("device").toObject();
    QVERIFY(!device.isEmpty());
    for (const QJsonObject& object : {json, file, finding, device, json.value("summary").toObject()})
        for (const QString& key : object.keys())
            QVERIFY2(m_page.contains('`' + key + '`'), qPrintable(key));
}

static const testMain::Registration<tst_CheckDoc, QCoreApplication> registration;
#include "tst_CheckDoc.moc"
