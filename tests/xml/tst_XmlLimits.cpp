// Limits of XML files: the last that is read, the first that is not, and where it is.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"
#include "xml/parsedFile.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QtTest>

class tst_XmlLimits : public QObject
{
    Q_OBJECT

private slots:
    static void attributes_data();
    static void attributes();
    static void prefixes_data();
    static void prefixes();
    static void largestFile();
};

static_assert(maxXmlFileBytes == 268435456 && maxNesting == 1000 && maxAttributes == 100 && maxPrefixes == 16);

namespace {

const QString tooManyAttributes = QStringLiteral("an element has more than 100 attributes");
const QString tooManyPrefixes = QStringLiteral("the file has more than 16 namespace prefixes");

/// `count` pieces of which each has its number, from 0, in place of "%1".
QString numbered(const QString& piece, int count)
{
    QString all;
    for (int number = 0; number < count; ++number)
        all += piece.arg(number);
    return all;
}

void compareMessage(const QString& content, const QString& message)
{
    const Parsed result = parsed(content);
    QCOMPARE(result.error.message, message);
    QCOMPARE(result.isRead, message.isEmpty());
}

} // namespace

void tst_XmlLimits::attributes_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString different = QStringLiteral(" k%1='1'");
    QTest::addRow("a hundred") << "<a>\n<b" + numbered(different, 100) + "/></a>" << QString();
    QTest::addRow("one more") << "<a>\n<b" + numbered(different, 101) + "/></a>" << tooManyAttributes;
    QTest::addRow("one more, repeated") << "<a>\n<b" + QStringLiteral(" k='1'").repeated(101) + "/></a>"
                                        << tooManyAttributes;
    QTest::addRow("far more") << "<a>\n<b" + numbered(different, 100000) + "/></a>" << tooManyAttributes;
    QTest::addRow("a hundred on each of two")
        << "<a>\n<b" + numbered(different, 100) + "/><c" + numbered(different, 100) + "/></a>" << QString();
    QTest::addRow("from an entity") << "<!DOCTYPE a [<!ENTITY x \"<b" + numbered(QStringLiteral(" k%1=''"), 101)
                                           + "/>\">]>\n<a>&x;</a>"
                                    << tooManyAttributes;
}

void tst_XmlLimits::attributes()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
    if (!message.isEmpty()) {
        const XmlFormatError error = parsed(content).error;
        QCOMPARE(error.line, 2);
        QVERIFY(error.column > 1);
    }
}

void tst_XmlLimits::prefixes_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString declaration = QStringLiteral(" xmlns:k%1='urn:%1'");
    QTest::addRow("sixteen") << "<a" + numbered(declaration, 16) + "><b/></a>" << QString();
    QTest::addRow("one more") << "<a" + numbered(declaration, 17) + "/>" << tooManyPrefixes;
    QTest::addRow("one more without a prefix")
        << "<a" + numbered(declaration, 16) + " xmlns='urn:a'/>" << tooManyPrefixes;
    QTest::addRow("one more further down")
        << "<a" + numbered(declaration, 16) + "><b xmlns:p='urn:p'/></a>" << tooManyPrefixes;
    QTest::addRow("far more") << "<a" + numbered(declaration, 100000) + "/>" << tooManyPrefixes;
    QTest::addRow("one for many namespaces")
        << "<a>" + numbered(QStringLiteral("<b xmlns='urn:%1'/>"), 1000) + "</a>" << QString();
    QTest::addRow("the same ones on many elements")
        << "<a>" + QStringLiteral("<b xmlns='urn:a' xmlns:p='urn:p'/>").repeated(1000) + "</a>" << QString();
}

void tst_XmlLimits::prefixes()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    compareMessage(content, message);
    if (!message.isEmpty())
        QCOMPARE(parsed(content).error.line, 1);
}

/// The file has a hole in place of its bytes, so it takes no room on the disk.
void tst_XmlLimits::largestFile()
{
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("large.xml"), "<a/>"));
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Text));
    QVERIFY(file.resize(qint64{maxXmlFileBytes} + 1));
    QDomDocument document;
    XmlFormatError error;
    QVERIFY(!parseXml(file, document, error));
    QCOMPARE(error.message, QStringLiteral("the file is larger than 268435456 bytes"));
    QCOMPARE(error.line, 1);
    QCOMPARE(error.column, 1);
}

static const testMain::Registration<tst_XmlLimits, QCoreApplication> registration;
#include "tst_XmlLimits.moc"
