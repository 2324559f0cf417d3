// Encodings of files: by the byte order mark, else by the declaration, and what becomes of bytes that make no sense.
#include "esi/xml/boundedXmlReader.h"
#include "esi/xml/xmlDecoding.h"
#include "testMain.h"
#include "xml/temporaryFile.h"

#include <QDomDocument>
#include <QtTest>

class tst_XmlDecoding : public QObject
{
    Q_OBJECT

private slots:
    static void declared_data();
    static void declared();
    static void mark_data();
    static void mark();
    static void declarationForms_data();
    static void declarationForms();
    static void invalidBytes_data();
    static void invalidBytes();
    static void nonCharactersEndTheText_data();
    static void nonCharactersEndTheText();
    static void fromFile_data();
    static void fromFile();
};

namespace {

const QByteArray utf8Mark = "\xEF\xBB\xBF";
const QByteArray servoInUtf8 = "\xE4\xBC\xBA\xE6\x9C\x8D"; // 伺服, U+4F3A U+670D
const QByteArray servoInGb = "\xCB\xC5\xB7\xFE"; // the same in GB2312, GBK and GB18030
const QString servo = QStringLiteral("伺服");

QByteArray declaring(const char* encoding)
{
    return QByteArray(R"(<?xml version="1.0" encoding=")") + encoding + R"("?>)";
}

QByteArray littleEndian(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        bytes += static_cast<char>(c.cell());
        bytes += static_cast<char>(c.row());
    }
    return bytes;
}

QByteArray bigEndian(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        bytes += static_cast<char>(c.row());
        bytes += static_cast<char>(c.cell());
    }
    return bytes;
}

/// Each character in four bytes, the lowest first.
QByteArray fourBytes(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text)
        bytes += littleEndian(QString(c)) + QByteArray(2, '\0');
    return bytes;
}

QByteArray fourBytesBigEndian(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text)
        bytes += QByteArray(2, '\0') + bigEndian(QString(c));
    return bytes;
}

/// A document with the text in an element and in an attribute.
QByteArray withText(const QByteArray& text)
{
    return "<a k=\"" + text + "\">" + text + "</a>";
}

QString withText(const QString& text)
{
    return "<a k=\"" + text + "\">" + text + "</a>";
}

} // namespace

void tst_XmlDecoding::declared_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::addRow("UTF-8") << QByteArray("UTF-8") << servoInUtf8 << servo;
    QTest::addRow("UTF-8 in small letters") << QByteArray("utf-8") << servoInUtf8 << servo;
    QTest::addRow("Latin 1") << QByteArray("ISO-8859-1") << QByteArray("\xB5m") << QStringLiteral("µm");
    QTest::addRow("Latin 1 in small letters")
        << QByteArray("iso-8859-1") << QByteArray("\xB5m") << QStringLiteral("µm");
    QTest::addRow("Latin 1 without the first hyphen")
        << QByteArray("ISO8859-1") << QByteArray("\xB5m") << QStringLiteral("µm");
    QTest::addRow("Windows Latin") << QByteArray("windows-1252") << QByteArray("\x80") << QStringLiteral("€");
    QTest::addRow("GB2312") << QByteArray("GB2312") << servoInGb << servo;
    QTest::addRow("GB2312 in small letters") << QByteArray("gb2312") << servoInGb << servo;
    QTest::addRow("GBK") << QByteArray("GBK") << servoInGb + "\xE9\x46" << servo + QStringLiteral("镕");
    QTest::addRow("GB18030 of one, two and four bytes")
        << QByteArray("GB18030") << servoInGb + "\x81\x30\x85\x38m" << servo + QStringLiteral("µm");
    QTest::addRow("unknown name, read as UTF-8") << QByteArray("NOSUCH-1") << servoInUtf8 << servo;
    QTest::addRow("empty name, read as UTF-8") << QByteArray("") << servoInUtf8 << servo;
    QTest::addRow("two bytes declared in single bytes, read as UTF-8") << QByteArray("UTF-16") << servoInUtf8 << servo;
    QTest::addRow("four bytes declared in single bytes, read as UTF-8") << QByteArray("UTF-32") << servoInUtf8 << servo;
}

void tst_XmlDecoding::declared()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const QByteArray declaration = declaring(encoding.constData());
    QCOMPARE(decodedXml(declaration + withText(bytes)), QString::fromLatin1(declaration) + withText(expected));
}

void tst_XmlDecoding::mark_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QByteArray littleMark = "\xFF\xFE";
    const QByteArray bigMark = "\xFE\xFF";
    const QByteArray fourByteMark("\xFF\xFE\0\0", 4);
    const auto row = [](const char* name, const QByteArray& start, const QString& text, auto encode) {
        QTest::addRow("%s", name) << start + encode(text) << text;
    };
    const auto utf8 = [](const QString& text) { return text.toUtf8(); };
    const auto declaredAs = [](const char* encoding) {
        return QString::fromLatin1(declaring(encoding)) + withText(servo);
    };
    row("UTF-8, nothing declared", utf8Mark, withText(servo), utf8);
    row("UTF-8, declared", utf8Mark, declaredAs("utf-8"), utf8);
    row("UTF-8 against Latin 1", utf8Mark, declaredAs("ISO-8859-1"), utf8);
    row("UTF-8 against GB2312", utf8Mark, declaredAs("GB2312"), utf8);
    row("UTF-8 against UTF-16", utf8Mark, declaredAs("UTF-16"), utf8);
    row("little-endian, nothing declared", littleMark, withText(servo), littleEndian);
    row("little-endian, declared", littleMark, declaredAs("UTF-16"), littleEndian);
    row("little-endian against UTF-8", littleMark, declaredAs("UTF-8"), littleEndian);
    row("little-endian against Latin 1", littleMark, declaredAs("ISO-8859-1"), littleEndian);
    row("little-endian against the other order", littleMark, declaredAs("UTF-16BE"), littleEndian);
    row("big-endian, nothing declared", bigMark, withText(servo), bigEndian);
    row("big-endian, declared", bigMark, declaredAs("UTF-16"), bigEndian);
    row("big-endian against UTF-8", bigMark, declaredAs("UTF-8"), bigEndian);
    row("big-endian against GB2312", bigMark, declaredAs("GB2312"), bigEndian);
    row("big-endian against the other order", bigMark, declaredAs("UTF-16LE"), bigEndian);
    row("four bytes", fourByteMark, declaredAs("UTF-8"), fourBytes);
    row("little-endian without a mark", {}, declaredAs("UTF-16"), littleEndian);
    row("big-endian without a mark", {}, declaredAs("UTF-16"), bigEndian);
    row("four bytes without a mark", {}, declaredAs("UTF-32"), fourBytes);
    row("four bytes without a mark, nothing declared", {}, withText(servo), fourBytes);
    row("four bytes without a mark against UTF-8", {}, declaredAs("UTF-8"), fourBytes);
    row("four bytes without a mark, big-endian", {}, declaredAs("UTF-32"), fourBytesBigEndian);
    row("four bytes without a mark, big-endian, nothing declared", {}, withText(servo), fourBytesBigEndian);
    row("nothing but a mark", utf8Mark, {}, utf8);
    row("nothing but a mark of two bytes", littleMark, {}, utf8);
    row("no byte at all", {}, {}, utf8);
    row("of two marks one is left out", utf8Mark, QChar(0xFEFF) + withText(servo), utf8);
    row("a mark inside the text stays", {}, withText(servo + QChar(0xFEFF) + servo), utf8);
}

void tst_XmlDecoding::mark()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QCOMPARE(decodedXml(bytes), expected);
}

void tst_XmlDecoding::declarationForms_data()
{
    QTest::addColumn<QByteArray>("declaration");
    QTest::addColumn<QString>("expected");
    const QString micro = QStringLiteral("µ");
    const QString invalid = QChar(QChar::ReplacementCharacter);
    QTest::addRow("single quotes and blanks") << QByteArray("<?xml version='1.0' encoding = 'ISO-8859-1' ?>") << micro;
    QTest::addRow("on two lines") << QByteArray("<?xml version=\"1.0\"\r\n\tencoding=\"ISO-8859-1\"?>") << micro;
    QTest::addRow("with standalone") << QByteArray(R"(<?xml version="1.0" encoding="ISO-8859-1" standalone="yes"?>)")
                                     << micro;
    QTest::addRow("no declaration") << QByteArray() << invalid;
    QTest::addRow("no encoding") << QByteArray(R"(<?xml version="1.0"?>)") << invalid;
    QTest::addRow("not at the start") << QByteArray(R"(<!-- --><?xml version="1.0" encoding="ISO-8859-1"?>)")
                                      << invalid;
    QTest::addRow("in the next instruction")
        << QByteArray(R"(<?xml version="1.0"?><?p encoding="ISO-8859-1"?>)") << invalid;
    QTest::addRow("another instruction") << QByteArray(R"(<?xmlish encoding="ISO-8859-1"?>)") << invalid;
}

void tst_XmlDecoding::declarationForms()
{
    QFETCH(QByteArray, declaration);
    QFETCH(QString, expected);
    QCOMPARE(decodedXml(declaration + withText(QByteArray("\xB5"))),
             QString::fromLatin1(declaration) + withText(expected));
}

void tst_XmlDecoding::invalidBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("kept"); // what is still in the text, in UTF-8
    QTest::addRow("UTF-8 cut short") << QByteArray("<a>x\xE4\xBCy</a>") << QByteArray("y</a>");
    QTest::addRow("UTF-8 cut short at the end") << QByteArray("<a/>\xE4\xBC") << QByteArray("<a/>");
    QTest::addRow("overlong form of a bracket") << QByteArray("<a>\xC0\xBCy</a>") << QByteArray("y</a>");
    QTest::addRow("surrogate in UTF-8") << QByteArray("<a>\xED\xA0\x80y</a>") << QByteArray("y</a>");
    QTest::addRow("bytes that UTF-8 never has") << QByteArray("<a>\xFF\xFE\xF8y</a>") << QByteArray("y</a>");
    QTest::addRow("GB2312") << declaring("GB2312") + "<a>\xFF\xFFy</a>" << QByteArray("</a>");
    QTest::addRow("GB2312 cut short at the end") << declaring("GB2312") + "<a/>\xCB" << QByteArray("<a/>");
    QTest::addRow("GB18030") << declaring("GB18030") + "<a>\x81\x30\x81y</a>" << QByteArray("</a>");
    QTest::addRow("US-ASCII") << declaring("US-ASCII") + "<a>\xB5y</a>" << QByteArray("y</a>");
    QTest::addRow("UTF-16 with an odd byte") << QByteArray("\xFF\xFE<\0a\0/\0>\0x", 11) << QByteArray("<a/>");
}

void tst_XmlDecoding::invalidBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, kept);
    const QString text = decodedXml(bytes);
    QVERIFY2(text.contains(QString::fromUtf8(kept)), qPrintable(text));

    // The parser takes the replacement for a character like any other.
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("file.xml"), bytes));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QDomDocument document;
    XmlFormatError error;
    QVERIFY2(parseXml(file, document, error), qPrintable(error.message));
    QCOMPARE(document.documentElement().tagName(), QStringLiteral("a"));
}

void tst_XmlDecoding::nonCharactersEndTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addRow("U+FFFE") << QStringLiteral("<a>x\uFFFEy</a>") << QStringLiteral("<a>x");
    QTest::addRow("U+FFFF") << QStringLiteral("<a>x\uFFFFy</a>") << QStringLiteral("<a>x");
    QTest::addRow("at the start") << QStringLiteral("\uFFFF<a/>") << QString();
    QTest::addRow("the first of two counts") << QStringLiteral("<a/>\uFFFE \uFFFF") << QStringLiteral("<a/>");
    QTest::addRow("U+FFFD is a character") << QStringLiteral("<a>\uFFFD</a>") << QStringLiteral("<a>\uFFFD</a>");
}

void tst_XmlDecoding::nonCharactersEndTheText()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(decodedXml(text.toUtf8()), expected);
}

void tst_XmlDecoding::fromFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addRow("UTF-8 with a mark against Latin 1")
        << utf8Mark + declaring("ISO-8859-1") + "\r\n" + withText(servoInUtf8);
    QTest::addRow("GB2312") << declaring("GB2312") + "\r\n" + withText(servoInGb);
    const QString text = QString::fromLatin1(declaring("UTF-8")) + "\r\n" + withText(servo);
    QTest::addRow("little-endian against UTF-8") << "\xFF\xFE" + littleEndian(text);
    QTest::addRow("big-endian against UTF-8") << "\xFE\xFF" + bigEndian(text);
    QTest::addRow("four bytes without a mark, more than is read at a time")
        << fourBytes("<!--" + QString(40000, 'x') + "-->" + withText(servo));
    QTest::addRow("four bytes without a mark, big-endian") << fourBytesBigEndian(text);
}

/// A file of two bytes per character has line ends that are no CR LF in its bytes, and bytes 0x0D that are no line
/// ends.
void tst_XmlDecoding::fromFile()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir folder;
    QFile file(writeFile(folder, QStringLiteral("file.xml"), bytes));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QDomDocument document;
    XmlFormatError error;
    QVERIFY2(parseXml(file, document, error), qPrintable(error.message));
    QCOMPARE(document.documentElement().text(), servo);
    QCOMPARE(document.documentElement().attribute(QStringLiteral("k")), servo);
}

static const testMain::Registration<tst_XmlDecoding, QCoreApplication> registration;
#include "tst_XmlDecoding.moc"
