// The characters of files that hold nothing which only the parser of documents can judge.
#include "esi/xml/plainText.h"
#include "testMain.h"

#include <QtTest>

class tst_PlainText : public QObject
{
    Q_OBJECT

private slots:
    static void texts_data();
    static void texts();
    static void everyByteInEveryPlace_data();
    static void everyByteInEveryPlace();
};

namespace {

QByteArray plainTextOf(const QByteArray& file)
{
    const std::optional<std::string> text = xml::plainText(file.toStdString());
    return text.has_value() ? QByteArray::fromStdString(*text) : "none";
}

} // namespace

void tst_PlainText::texts_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("text");
    const QByteArray latin1 = "<?xml version='1.0' encoding='iso-8859-1'?>";
    QTest::addRow("ASCII") << QByteArray("<a>\t\r\n~\x7F</a>") << QByteArray("<a>\t\r\n~\x7F</a>");
    QTest::addRow("UTF-8") << QByteArray("\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBD")
                           << QByteArray("\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBD");
    QTest::addRow("the mark is left out") << QByteArray("\xEF\xBB\xBFx") << QByteArray("x");
    QTest::addRow("Latin-1") << latin1 + "\x80\xE9\xFF" << latin1 + "\xC2\x80\xC3\xA9\xC3\xBF";
    QTest::addRow("a first byte too high") << QByteArray("\xF5\x80\x80\x80") << QByteArray("none");
    QTest::addRow("beyond the last character") << QByteArray("\xF4\x90\x80\x80") << QByteArray("none");
    QTest::addRow("a surrogate") << QByteArray("\xED\xA0\x80") << QByteArray("none");
    QTest::addRow("a long form of two bytes") << QByteArray("\xC1\xBF") << QByteArray("none");
    QTest::addRow("a long form of three bytes") << QByteArray("\xE0\x9F\xBF") << QByteArray("none");
    QTest::addRow("a long form of four bytes") << QByteArray("\xF0\x8F\xBF\xBF") << QByteArray("none");
    QTest::addRow("a last byte too few") << QByteArray("\xF0\x9F\x98") << QByteArray("none");
    QTest::addRow("a rest without beginning") << QByteArray("\x80") << QByteArray("none");
    QTest::addRow("U+FFFE") << QByteArray("\xEF\xBF\xBE") << QByteArray("none");
    QTest::addRow("U+FFFD") << QByteArray("\xEF\xBF\xBD") << QByteArray("\xEF\xBF\xBD");
    QTest::addRow("a mark inside") << QByteArray("x\xEF\xBB\xBF") << QByteArray("none");
}

void tst_PlainText::texts()
{
    QFETCH(QByteArray, file);
    QTEST(plainTextOf(file), "text");
}

void tst_PlainText::everyByteInEveryPlace_data()
{
    QTest::addColumn<int>("position");
    for (int position = 0; position < 17; ++position)
        QTest::addRow("position %d", position) << position;
}

/// Bytes are looked at eight at a time; among ASCII, all but controls and the upper half are plain.
void tst_PlainText::everyByteInEveryPlace()
{
    QFETCH(int, position);
    for (int byte = 0; byte < 256; ++byte) {
        QByteArray file(17, 'x');
        file[position] = static_cast<char>(byte);
        const bool isBlank = byte == '\t' || byte == '\n' || byte == '\r';
        const bool isPlain = isBlank || (byte >= 0x20 && byte < 0x80);
        QVERIFY2(plainTextOf(file) == (isPlain ? file : QByteArray("none")), qPrintable(QString::number(byte)));
    }
}

static const testMain::Registration<tst_PlainText, testMain::NoApplication> registration;
#include "tst_PlainText.moc"
