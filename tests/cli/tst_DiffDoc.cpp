// docs/diff.md against what the command prints of files that differ in everything.
#include "cli/commandInProcess.h"
#include "cli/differingFiles.h"
#include "cli/workplace.h"
#include "diff/sections.h"
#include "testMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class tst_DiffDoc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void valuesOfThePage();
    void weightsOfThePage();
    void wordsOfThePage();
    void keysOfJson();

private:
    void collect(const QStringList& arguments);

    Workplace m_place;
    QString m_page;
    QMap<QString, QSet<QString>> m_weights; ///< by "area value", those that were printed
    QString m_lines;
    QSet<QString> m_keys; ///< of JSON
};

namespace {

/// A row of the table of values.
struct ValueRow
{
    QString name; ///< "area value"
    QString words;
    QString weight; ///< "breaking", or "breaking; behaviour where the bits stay the same"
};

QList<ValueRow> rowsOf(const QString& page)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\| `([a-z-]+)` \\| [^|]+ \\| `([A-Za-z0-9]+)` \\| ([^|]+) \\| ([^|]+) \\|$"),
        QRegularExpression::MultilineOption);
    QList<ValueRow> rows;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(page);
    while (matches.hasNext()) {
        const QRegularExpressionMatch row = matches.next();
        rows.append({row.captured(1) + ' ' + row.captured(2), row.captured(3), row.captured(4)});
    }
    return rows;
}

void addKeys(const QJsonObject& object, QSet<QString>& keys)
{
    for (auto member = object.begin(); member != object.end(); ++member) {
        keys.insert(member.key());
        addKeys(member->toObject(), keys);
        for (const QJsonValueRef item : member->toArray())
            addKeys(item.toObject(), keys);
    }
}

/// The name of a difference in the table, where PDOs and startup commands of modules have no rows of their own.
QString nameOf(const QJsonObject& difference)
{
    const QString part = difference.value("part").toString();
    QString area = difference.value("area").toString();
    if (area == "module" && part.contains("xPdo 0x"))
        area = "pdo";
    else if (area == "module" && part.contains("startup command"))
        area = "startup";
    return area + ' ' + difference.value("value").toString();
}

/// A KTL file with other counts, support of SDO, and a fixed entry: no export of an ESI file has these differences.
QByteArray changedKtl(QByteArray file)
{
    for (const int offset : {26, 28, 50}) // SDO support, slots and modules, all in the first item
        file[offset] = static_cast<char>(file.at(offset) ^ 1);
    const int pdo = file.indexOf(QByteArray("\x43\x9C\0\0", 4)); // the code of an item with an output PDO
    constexpr int headBytes = 28;
    file[pdo + headBytes] = 1; // the first byte of its first entry
    return file;
}

/// A startup command that writes a whole object: only those that are made from PDOs do, and these are not compared.
std::vector<diff::Difference> differencesOfCompleteAccess()
{
    facts::CommandFacts before;
    facts::CommandFacts after;
    after.isCompleteAccess = true;
    diff::Comparison comparison(diff::Sides::Esi, false);
    compareStartup({before}, {after}, diff::Area::Startup, {}, comparison);
    return comparison.take();
}

} // namespace

void tst_DiffDoc::collect(const QStringList& arguments)
{
    const QStringList call = QStringList{"diff"} + arguments;
    const CommandRun lines = runHere(call, m_place.folder());
    QCOMPARE(lines.errors, QByteArray());
    QCOMPARE(lines.exitCode, 1);
    m_lines += QString::fromUtf8(lines.output);
    const QJsonObject json =
        QJsonDocument::fromJson(runHere(call + QStringList{"--json"}, m_place.folder()).output).object();
    addKeys(json, m_keys);
    for (const QJsonValue pair : json.value("devices").toArray())
        for (const QJsonValue difference : pair.toObject().value("differences").toArray())
            if (const QJsonObject one = difference.toObject(); one.value("change") == "changed")
                m_weights[nameOf(one)].insert(one.value("weight").toString());
}

void tst_DiffDoc::initTestCase()
{
    m_page = QString::fromUtf8(contentOf(QStringLiteral(KINETRA_SOURCE_DIR "/docs/diff.md")));
    for (const int side : {1, 2}) {
        m_place.make(QStringLiteral("%1.xml").arg(side), sideOf(differingDevice, side));
        m_place.make(QStringLiteral("plain%1.xml").arg(side), sideOf(differingPlainDevices, side));
    }
    m_place.make("choices.json", R"({"format": "kinetra-choices", "version": 1, "devices": [
        {"device": "1", "links": [{"pdo": 0, "entry": 0, "link": "AOUT16"}]}]})");
    QCOMPARE(
        runHere({"convert", "plain2.xml", "-o", "plain2.ktl", "--force", "--choices=choices.json"}, m_place.folder())
            .exitCode,
        0);
    collect({"1.xml", "2.xml"});
    collect({"1.xml", "2.xml", "--device=1", "--with=1"});
    collect({"plain1.xml", "plain2.xml"});
    collect({"plain2.xml", "plain2.ktl"});
    m_place.make("changed.ktl", changedKtl(m_place.content("plain2.ktl")));
    collect({"plain2.ktl", "changed.ktl"});
    for (const diff::Difference& difference : differencesOfCompleteAccess())
        if (difference.key == "completeAccess")
            m_weights["startup completeAccess"].insert("behaviour");
}

/// Each value that is printed has a row, and no row is of another one.
void tst_DiffDoc::valuesOfThePage()
{
    QSet<QString> inPage;
    for (const ValueRow& row : rowsOf(m_page))
        inPage.insert(row.name);
    const QStringList printed = m_weights.keys();
    QCOMPARE(inPage - QSet<QString>(printed.begin(), printed.end()), QSet<QString>());
    QCOMPARE(QSet<QString>(printed.begin(), printed.end()) - inPage, QSet<QString>());
}

void tst_DiffDoc::weightsOfThePage()
{
    QMap<QString, QSet<QString>> inPage;
    for (const ValueRow& row : rowsOf(m_page))
        for (const QString weight : {"breaking", "behaviour", "text"})
            if (row.weight.contains(weight))
                inPage[row.name].insert(weight);
    for (auto value = m_weights.begin(); value != m_weights.end(); ++value)
        QVERIFY2(inPage.value(value.key()) == *value, qPrintable(value.key()));
}

void tst_DiffDoc::wordsOfThePage()
{
    const QList<ValueRow> rows = rowsOf(m_page);
    QVERIFY(!rows.isEmpty());
    for (const ValueRow& row : rows)
        QVERIFY2(m_lines.contains(' ' + row.words + ": "), qPrintable(row.words));
}

void tst_DiffDoc::keysOfJson()
{
    QVERIFY(m_keys.contains("placeAfter") && m_keys.contains("offset"));
    for (const QString& key : qAsConst(m_keys))
        QVERIFY2(m_page.contains('`' + key + '`'), qPrintable(key));
}

static const testMain::Registration<tst_DiffDoc, QCoreApplication> registration;
#include "tst_DiffDoc.moc"
