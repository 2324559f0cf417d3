// docs/show.md: it names every key and column that the command prints.
#include "cli/showRun.h"
#include "testMain.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class tst_ShowDoc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyKey();
    void everyColumn_data();
    void everyColumn();
    void everyItemOfTheExample();

private:
    QTemporaryDir m_folder;
    QString m_page;
};

namespace {

/// Adds the keys of a value, but for the fields of items: another page has those.
void addKeys(QSet<QString>& keys, const QJsonValue& value)
{
    for (const QJsonValue& element : value.toArray())
        addKeys(keys, element);
    const QJsonObject object = value.toObject();
    for (const QString& key : object.keys()) {
        keys.insert(key);
        const bool hasFieldNames = object.contains("fields") && (key == "fields" || key == "records");
        if (!hasFieldNames)
            addKeys(keys, object.value(key));
    }
}

} // namespace

void tst_ShowDoc::initTestCase()
{
    QFile file(QStringLiteral(KINETRA_SOURCE_DIR "/docs/show.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_page = QString::fromUtf8(file.readAll());
}

void tst_ShowDoc::everyKey()
{
    QStringList paths;
    for (const QString& name : sampleNames())
        paths.append(sample(name));
    const QString ktl = m_folder.filePath("all.ktl");
    QCOMPARE(runHere(QStringList{"convert"} + paths + QStringList{"-o", ktl}).exitCode, 0);
    QSet<QString> keys;
    addKeys(keys, filesIn(runShow(QStringList{"--json", ktl} + paths)));
    QVERIFY(keys.size() > 100);
    QStringList missing;
    for (const QString& key : keys)
        if (!m_page.contains('`' + key + '`'))
            missing.append(key);
    QCOMPARE(missing, QStringList());
}

void tst_ShowDoc::everyColumn_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"dictionary", "pdo", "startup"})
        QTest::addRow("%s", table) << QString::fromLatin1(table);
}

/// In their order: the common ones, then those of the table's own row.
void tst_ShowDoc::everyColumn()
{
    QFETCH(QString, table);
    const QString printed =
        QString::fromUtf8(runShow({"--csv", table, sample("io-block.xml")}).output).section("\r\n", 0, 0);
    const QStringList lines =
        m_page.mid(m_page.indexOf("\n## 8")).split('\n').filter(QRegularExpression("^\\| `" + table + "` \\|"));
    QCOMPARE(lines.size(), 1);
    QStringList columns{"file", "device", "deviceName", "owner"};
    QRegularExpressionMatchIterator names =
        QRegularExpression("`(\\w+)`").globalMatch(lines.first().section('|', 3, 3));
    while (names.hasNext())
        columns.append(names.next().captured(1));
    QCOMPARE(printed, columns.join(','));
}

/// The text of the page is that of the first device of the sample.
void tst_ShowDoc::everyItemOfTheExample()
{
    const QString ktl = m_folder.filePath("example.ktl");
    QCOMPARE(runHere({"convert", sample("io-block.xml"), "-o", ktl}).exitCode, 0);
    const QString printed = QString::fromUtf8(runShow({"--full", ktl}).output);
    const int begin = printed.indexOf("@0x00000034");
    const QString item = printed.mid(begin, printed.indexOf("  record 2", begin) - begin);
    QVERIFY(item.size() > 300);
    QVERIFY2(m_page.contains("\n    " + item.trimmed().replace("\n", "\n    ")), qPrintable(item));
}

static const testMain::Registration<tst_ShowDoc, QCoreApplication> registration;
#include "tst_ShowDoc.moc"
