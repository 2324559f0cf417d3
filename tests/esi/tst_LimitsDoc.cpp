// docs/esi-limits.md: its table names every limit, with the number that holds.
#include "esi/derivation/copyLimit.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

class tst_LimitsDoc : public QObject
{
    Q_OBJECT

private slots:
    void limits_data();
    void limits();
    void everyLimitHasARow();
    void everyRowIsALimit();
};

namespace {

struct Limit
{
    const char* name; ///< of the constant
    std::uint64_t value;
    QString what; ///< beginning of the row
};

const std::vector<Limit>& allLimits()
{
    static const std::vector<Limit> limits{
        {"maxXmlFileBytes", maxXmlFileBytes, "size of the file"},
        {"maxNodes", maxNodes,
         "elements, attributes, comments, CDATA sections, processing instructions and references "
         "to undeclared entities, all together"},
        {"maxNodes", maxNodes, "texts"},
        {"maxDevices", maxDevices, "elements `Device`"},
        {"maxModules", maxModules, "elements directly in elements `Modules`"},
        {"maxNesting", maxNesting, "depth of nesting; the root element is at depth 1"},
        {"maxAttributes", maxAttributes, "attributes of one element"},
        {"maxPrefixes", maxPrefixes, "different namespace prefixes"},
        {"maxInEachOther", maxInEachOther, "elements `Device` inside each other, and elements `Slots`"},
        {"maxDeviceParents", maxDeviceParents, "elements with \"Device\" in their names inside each other"},
        {"maxGroupNameCopies", maxGroupNameCopies,
         "names of the slot groups of a device, once for each of its slots; all devices together"},
        {"maxDocumentTypeLength", maxDocumentTypeLength, "document type declaration"},
        {"maxNestedReferences", maxNestedReferences,
         "references to entities in the document type declaration, predefined ones too"},
        {"maxReferences", maxReferences, "references to entities in a file that declares entities itself"},
        {"maxCopiedBytes", maxCopiedBytes,
         "what is made of a file: samples of oversampled PDOs, default modules in their slots, and the startup "
         "commands "
         "for both"},
    };
    return limits;
}

QString contentOf(const char* path)
{
    QFile file(QStringLiteral(KINETRA_SOURCE_DIR "/") + QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Rows of the table of the page, each with its cells.
QVector<QStringList> rowsOfPage()
{
    QVector<QStringList> rows;
    for (const QString& line : contentOf("docs/esi-limits.md").split('\n'))
        if (line.startsWith("| "))
            rows.append(line.mid(2).chopped(2).split(" | "));
    return rows.mid(2); // after the head
}

} // namespace

void tst_LimitsDoc::limits_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<quint64>("value");
    for (const Limit& limit : allLimits())
        QTest::addRow("%s", qPrintable(limit.what)) << limit.what << quint64(limit.value);
}

void tst_LimitsDoc::limits()
{
    QFETCH(QString, what);
    QFETCH(quint64, value);
    QStringList numbers;
    for (const QStringList& row : rowsOfPage())
        if (row.first() == what && row.size() == 4)
            numbers.append(row.at(1).section(' ', 0, 0));
    QCOMPARE(numbers, QStringList{QLocale(QLocale::English).toString(value)});
}

/// The headers declare no limit that the rows of this test, and with them the page, leave out.
void tst_LimitsDoc::everyLimitHasARow()
{
    const QRegularExpression constant("^inline constexpr \\S+ (\\w+) =", QRegularExpression::MultilineOption);
    QStringList missing;
    int count = 0;
    for (const char* header : {"src/esi/xml/xmlLimits.h", "src/esi/derivation/copyLimit.h"})
        for (auto match = constant.globalMatch(contentOf(header)); match.hasNext(); ++count) {
            const QString name = match.next().captured(1);
            const auto isOfName = [&](const Limit& limit) { return name == QLatin1String(limit.name); };
            if (std::none_of(allLimits().begin(), allLimits().end(), isOfName))
                missing.append(name);
        }
    QCOMPARE(missing, QStringList());
    QCOMPARE(count, 14);
}

/// The page names no limit that does not hold.
void tst_LimitsDoc::everyRowIsALimit()
{
    QStringList ofPage;
    for (const QStringList& row : rowsOfPage())
        ofPage.append(row.first());
    QStringList expected;
    for (const Limit& limit : allLimits())
        expected.append(limit.what);
    QCOMPARE(ofPage, expected);
}

static const testMain::Registration<tst_LimitsDoc, QCoreApplication> registration;
#include "tst_LimitsDoc.moc"
