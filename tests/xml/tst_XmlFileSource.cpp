// Files are read in blocks while they are parsed: what lies across the end of a block, or after the first one, reads
// as it does in a small file.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/xmlFileSource.h"
#include "esi/xml/xmlLimits.h"
#include "testMain.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QTextCodec>
#include <QtTest>

#include <sys/stat.h>

#include <fcntl.h>
#include <thread>
#include <unistd.h>

class tst_XmlFileSource : public QObject
{
    Q_OBJECT

private slots:
    static void acrossTheEndOfABlock_data();
    static void acrossTheEndOfABlock();
    static void placeOfAnError_data();
    static void placeOfAnError();
    static void documentTypeAfterABlock_data();
    static void documentTypeAfterABlock();
    static void undeclaredEntityInALargeFile();
    static void textEndsInALaterBlock();
    static void pipe_data();
    static void pipe();
};

namespace {

constexpr int blockSize = XmlFileSource::blockSize;

struct Parsed
{
    bool isRead = false;
    QDomDocument document;
    XmlFormatError error;

    [[nodiscard]] QDomElement root() const { return document.documentElement(); }
};

Parsed parsed(const QByteArray& content)
{
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("file.xml"), content));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        qFatal("cannot open the test file");
    Parsed result;
    result.isRead = parseXml(file, result.document, result.error);
    return result;
}

/// Parses from a pipe into which the content is written in pieces of some bytes.
Parsed parsedFromPipe(const QByteArray& content, int pieceSize)
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("pipe.xml")));
    if (mkfifo(path.constData(), 0600) != 0)
        qFatal("cannot make a pipe");
    std::thread writer([&content, &path, pieceSize] {
        const int pipe = open(path.constData(), O_WRONLY);
        bool isWritten = pipe >= 0;
        for (int start = 0; isWritten && start < content.size(); start += pieceSize) {
            const QByteArray piece = content.mid(start, pieceSize);
            isWritten = write(pipe, piece.constData(), static_cast<std::size_t>(piece.size())) == piece.size();
        }
        close(pipe);
    });
    Parsed result;
    QFile file(QFile::decodeName(path));
    const bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Text);
    result.isRead = isOpen && parseXml(file, result.document, result.error);
    writer.join();
    return result;
}

QByteArray comment(int size)
{
    return "<!--" + QByteArray(size - 7, 'x') + "-->";
}

/// Entities and a document that uses one of them.
QByteArray referring(int references)
{
    return "<!DOCTYPE a [<!ENTITY e 'v'>]>\n<a>" + QByteArray("&e;").repeated(references) + "</a>";
}

} // namespace

void tst_XmlFileSource::acrossTheEndOfABlock_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QString>("text");
    QTest::addRow("UTF-8 of three bytes") << QByteArray("UTF-8") << QStringLiteral("伺服");
    QTest::addRow("UTF-8 of four bytes") << QByteArray("UTF-8") << QString::fromUcs4(U"\U0001F600");
    QTest::addRow("GB18030 of two and four bytes") << QByteArray("GB18030") << QStringLiteral("伺µ服");
    QTest::addRow("little-endian, pairs")
        << QByteArray("UTF-16LE") << QStringLiteral("伺") + QString::fromUcs4(U"\U0001F600");
    QTest::addRow("line end of two characters") << QByteArray("UTF-8") << QStringLiteral("a\r\nb");
    QTest::addRow("character reference") << QByteArray("UTF-8") << QStringLiteral("<&>");
}

/// The text is at each place around the end of the first block.
void tst_XmlFileSource::acrossTheEndOfABlock()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QString, text);
    const QTextCodec* codec = QTextCodec::codecForName(encoding);
    QVERIFY(codec != nullptr);
    const auto encoded = [codec](const QString& characters) {
        QTextCodec::ConverterState withoutMark(QTextCodec::IgnoreHeader);
        return codec->fromUnicode(characters.constData(), characters.size(), &withoutMark);
    };
    const QByteArray start =
        encoded(QStringLiteral("<?xml version='1.0' encoding='%1'?><a k='").arg(QString::fromLatin1(encoding)));
    const QByteArray end = encoded(QStringLiteral("'>") + text.toHtmlEscaped() + QStringLiteral("</a>"));
    const int widthOfX = encoded(QStringLiteral("x")).size();
    for (int place = blockSize - 14 * widthOfX; place <= blockSize + widthOfX; place += widthOfX) {
        const int room = (place - start.size()) / widthOfX;
        const Parsed result = parsed(start + encoded(QString(room, QLatin1Char('x'))) + end);
        QVERIFY2(result.isRead, qPrintable(result.error.message));
        QCOMPARE(result.root().text(), text);
        QCOMPARE(result.root().attribute(QStringLiteral("k")).size(), room);
    }
}

void tst_XmlFileSource::placeOfAnError_data()
{
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::addRow("LF") << QByteArray("\n");
    QTest::addRow("CR") << QByteArray("\r");
    QTest::addRow("CR LF") << QByteArray("\r\n");
}

/// Lines and columns are counted from the start of the file. Blocks of an even size end between lines and, one
/// character further, inside the line end of two.
void tst_XmlFileSource::placeOfAnError()
{
    QFETCH(QByteArray, lineEnd);
    constexpr int lines = 40000;
    const QByteArray line = "<b/>" + lineEnd;
    for (const char* start : {"<a>", "<a >", "<a  >"}) {
        const Parsed result = parsed(start + lineEnd + line.repeated(lines) + "<c></d>");
        QVERIFY(!result.isRead);
        QCOMPARE(result.error.line, lines + 2);
        QVERIFY2(result.error.column >= 4 && result.error.column <= 7,
                 qPrintable(QString::number(result.error.column)));
    }
}

void tst_XmlFileSource::documentTypeAfterABlock_data()
{
    QTest::addColumn<int>("commentSize");
    QTest::addRow("in the first block") << 100;
    QTest::addRow("its mark lies across the end of the first block") << blockSize - 4;
    QTest::addRow("right after the first block") << blockSize;
    QTest::addRow("in the second block") << blockSize + 100;
    QTest::addRow("in the fifth block") << 4 * blockSize + 100;
}

/// However long the comments before it, a declaration is known before the parser sees it.
void tst_XmlFileSource::documentTypeAfterABlock()
{
    QFETCH(int, commentSize);
    const QByteArray start = comment(commentSize) + "\n";

    const Parsed within = parsed(start + referring(maxReferences));
    QVERIFY2(within.isRead, qPrintable(within.error.message));
    QCOMPARE(within.root().text(), QString(maxReferences, QLatin1Char('v')));

    const Parsed beyond = parsed(start + referring(maxReferences + 1));
    QVERIFY(!beyond.isRead);
    QCOMPARE(beyond.error.message,
             QStringLiteral("a file that declares entities has more than 250 references to entities"));
    QCOMPARE(beyond.error.line, 3);
    QCOMPARE(beyond.error.column, int{sizeof "<a>"} + 3 * maxReferences);

    const Parsed late = parsed(start + "<!DOCTYPE a [<!ENTITY e 'v'>]><a>" + comment(2 * blockSize)
                               + QByteArray("&e;").repeated(maxReferences + 1) + "</a>");
    QVERIFY2(!late.isRead && late.error.message == beyond.error.message, "references in a later block count as well");

    const Parsed tooLong = parsed(start + "<!DOCTYPE a [" + QByteArray(2 * blockSize, ' ') + "]><a/>");
    QVERIFY(!tooLong.isRead);
    QCOMPARE(tooLong.error.message, QStringLiteral("the document type declaration is longer than 4096 characters"));
    QCOMPARE(tooLong.error.line, 2);
    QCOMPARE(tooLong.error.column, 1);
}

/// The file is parsed twice then, from its start.
void tst_XmlFileSource::undeclaredEntityInALargeFile()
{
    const QByteArray children = QByteArray("<b/>").repeated(blockSize);
    const Parsed result = parsed("<a>" + children + "<c k='1&u;2'>one&u;two</c></a>");
    QVERIFY2(result.isRead, qPrintable(result.error.message));
    QCOMPARE(result.root().childNodes().size(), blockSize + 1);
    const QDomElement last = result.root().lastChildElement();
    QCOMPARE(last.childNodes().size(), 3);
    QVERIFY(last.childNodes().at(1).isEntityReference());
}

/// What follows a character that is none is never read, in whatever block.
void tst_XmlFileSource::textEndsInALaterBlock()
{
    const QByteArray notACharacter = QStringLiteral("\uFFFE").toUtf8();
    const QByteArray document = "<a>" + QByteArray("<b/>").repeated(blockSize) + "</a>";
    const Parsed whole = parsed(document + notACharacter + QByteArray("<z").repeated(blockSize));
    QVERIFY2(whole.isRead, qPrintable(whole.error.message));
    QCOMPARE(whole.root().childNodes().size(), blockSize);
    QVERIFY(!parsed(document.chopped(4) + notACharacter + "</a>").isRead);
}

void tst_XmlFileSource::pipe_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("pieceSize");
    const QByteArray declaration = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    const QByteArray large = declaration + "<a><b k='\xB5'>" + QByteArray(3 * blockSize, 'x') + "\xB5</b></a>";
    QTest::addRow("small file, byte by byte") << declaration + "<a><b k='\xB5'>\xB5</b></a>" << 1;
    QTest::addRow("large file, in pieces of an odd size") << large << 1001;
    QTest::addRow("large file, in pieces of more than a block") << large << blockSize + 1;
    QTest::addRow("undeclared entity, so that it is parsed twice")
        << declaration + "<a><b k='\xB5&u;'>" + QByteArray(blockSize, 'x') + "\xB5</b></a>" << 1001;
}

/// A pipe tells no size, gives as much as it holds, and gives it once.
void tst_XmlFileSource::pipe()
{
    QFETCH(QByteArray, content);
    QFETCH(int, pieceSize);
    const Parsed result = parsedFromPipe(content, pieceSize);
    QVERIFY2(result.isRead, qPrintable(result.error.message));
    const QDomElement child = result.root().firstChildElement();
    QCOMPARE(child.attribute(QStringLiteral("k")), QStringLiteral("µ"));
    QVERIFY(child.text().endsWith(QStringLiteral("µ")));
    QCOMPARE(child.text().size(), content.indexOf("\xB5</b>") - content.indexOf('>', content.indexOf("<b")));
}

static const testMain::Registration<tst_XmlFileSource, QCoreApplication> registration;
#include "tst_XmlFileSource.moc"
