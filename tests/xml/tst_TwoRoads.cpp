// Files at random, read straight from their bytes and through a document.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/documentTree.h"
#include "esi/xml/plainScanner.h"
#include "testMain.h"
#include "xml/outline.h"
#include "xml/randomXml.h"
#include "xml/sameTree.h"

#include <QBuffer>
#include <QDomDocument>
#include <QtTest>

class tst_TwoRoads : public QObject
{
    Q_OBJECT

private slots:
    static void sameTrees_data();
    static void sameTrees();
};

namespace {

/// The tree of a file by its document; nothing if it is refused.
std::optional<xml::Tree> treeByDocument(QByteArray file)
{
    QBuffer buffer(&file);
    QDomDocument document;
    XmlFormatError error;
    if (!buffer.open(QIODevice::ReadOnly) || !parseXml(buffer, document, error))
        return std::nullopt;
    return xml::treeOf(document.documentElement());
}

} // namespace

void tst_TwoRoads::sameTrees_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

/// What is read straight from its bytes is what the document holds, and never what it refuses. Of a thousand files
/// both roads take many, or the comparison would say nothing.
void tst_TwoRoads::sameTrees()
{
    QFETCH(unsigned, seed);
    RandomXml files(seed);
    int plainFiles = 0;
    int refusedFiles = 0;
    for (int number = 0; number < 1000; ++number) {
        const QByteArray file = files.next();
        const std::optional<xml::Tree> plain = xml::treeOfPlainXml(file.toStdString());
        const std::optional<xml::Tree> byDocument = treeByDocument(file);
        plainFiles += plain.has_value() ? 1 : 0;
        refusedFiles += byDocument.has_value() ? 0 : 1;
        if (!plain.has_value())
            continue;
        QVERIFY2(byDocument.has_value(), file.constData());
        if (!areSame(plain->root(), byDocument->root()))
            QCOMPARE(outlineOf(*plain), outlineOf(*byDocument) + "\nin " + file);
    }
    QVERIFY2(plainFiles > 300, qPrintable(QString::number(plainFiles)));
    QVERIFY2(refusedFiles > 50, qPrintable(QString::number(refusedFiles)));
}

static const testMain::Registration<tst_TwoRoads, testMain::NoApplication> registration;
#include "tst_TwoRoads.moc"
