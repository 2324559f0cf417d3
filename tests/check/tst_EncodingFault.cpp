// Contents that contradict the encoding that a file declares.
// Covers encodingRules.cpp.
#include "checkParts.h"
#include "testMain.h"

#include "check/encodingFault.h"

#include <QtTest>

class tst_EncodingFault : public QObject
{
    Q_OBJECT

private slots:
    static void lossy_data();
    static void lossy();
    static void contradiction_data();
    static void contradiction();
    static void everyPlace();
    static void findings();
};

/// "line:column: text" of a fault of the given kind, or nothing.
static QString faultIn(const QByteArray& bytes, bool isLossy)
{
    const auto fault = check::encodingFaultOf({bytes.data(), static_cast<std::size_t>(bytes.size())});
    return fault.has_value() && fault->isLossy == isLossy
               ? QStringLiteral("%1:%2: %3").arg(fault->place.line).arg(fault->place.column).arg(fault->text)
               : QString();
}

static QByteArray declaring(const char* encoding)
{
    return "<?xml version=\"1.0\" encoding=\"" + QByteArray(encoding) + "\"?>\n";
}

static QByteArray utf16(const QByteArray& ascii)
{
    QByteArray wide;
    for (const char letter : ascii) {
        wide += letter;
        wide += '\0';
    }
    return wide;
}

void tst_EncodingFault::lossy_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("fault");
    const QString declared =
        QStringLiteral("2:4: byte 0xe4 is not valid UTF-8, as which the file is read: the character "
                       "is lost");
    QTest::addRow("declared") << declaring("UTF-8") + "<a>\xE4</a>" << declared;
    QTest::addRow("in lower case") << declaring("utf-8") + "<a>\xE4</a>" << declared;
    QTest::addRow("an encoding that nobody knows") << declaring("UTF-9") + "<a>\xE4</a>" << declared;
    QTest::addRow("after other characters, CR and LF end lines")
        << declaring("UTF-8") + "<a>\r\r\n\n\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xE4</a>"
        << QString(declared).replace("2:4", "5:4");
    QTest::addRow("not declared")
        << QByteArray("<a>\xFC</a>")
        << QStringLiteral(
               "1:4: byte 0xfc is not valid UTF-8, as which a file without declaration is read: the character "
               "is lost");
    QTest::addRow("with a mark") << QByteArray("\xEF\xBB\xBF<a>\xFC</a>")
                                 << QStringLiteral("1:4: byte 0xfc is not valid UTF-8, as which a file without "
                                                   "declaration is read: the character is lost");
    const std::array<const char*, 9> invalid{"\x80",         "\xC0\x80",         "\xC1\xBF",         "\xE0\x9F\xBF",
                                             "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xE2\x82",
                                             "\xC3"};
    for (const char* const bytes : invalid)
        QTest::addRow("invalid: %s", QByteArray(bytes).toHex().data())
            << declaring("UTF-8") + "<a>" + bytes + "</a>"
            << QString(declared).replace("e4", QString::fromLatin1(QByteArray(bytes, 1).toHex()));
    QTest::addRow("cut at the end") << declaring("UTF-8") + "<a>\xE4" << declared;
    for (const char* const bytes : {"", "a", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                    "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        QTest::addRow("valid: %s", QByteArray(bytes).toHex().data())
            << declaring("UTF-8") + "<a>" + bytes + "</a>" << QString();
    QTest::addRow("declared as what it is") << declaring("ISO-8859-1") + "<a>\xE4</a>" << QString();
    QTest::addRow("empty") << QByteArray() << QString();
}

void tst_EncodingFault::lossy()
{
    QFETCH(QByteArray, bytes);
    QTEST(faultIn(bytes, true), "fault");
}

void tst_EncodingFault::contradiction_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("fault");
    const auto hidden = [](const char* encoding) {
        return QStringLiteral("2:4: the file declares \"%1\", but its characters are in UTF-8, here \"\u00e4\"")
            .arg(QLatin1String(encoding));
    };
    for (const char* const encoding : {"ISO-8859-1", "windows-1252", "iso-8859-15"})
        QTest::addRow("UTF-8 behind %s", encoding) << declaring(encoding) + "<a>\xC3\xA4</a>" << hidden(encoding);
    QTest::addRow("one of its characters is none") << declaring("ISO-8859-1") + "<a>\xC3\xA4 \xE4</a>" << QString();
    QTest::addRow("plain ASCII") << declaring("ISO-8859-1") + "<a>a</a>" << QString();
    QTest::addRow("more than one byte for a character") << declaring("GB2312") + "<a>\xC3\xA4</a>" << QString();
    const QByteArray mark = "\xEF\xBB\xBF";
    QTest::addRow("mark of UTF-8") << mark + declaring("ISO-8859-1") + "<a/>"
                                   << QStringLiteral(
                                          "1:1: the file declares \"ISO-8859-1\", but its first bytes are those "
                                          "of UTF-8");
    QTest::addRow("UTF-16 with mark") << "\xFF\xFE" + utf16(declaring("UTF-8") + "<a/>")
                                      << QStringLiteral(
                                             "1:1: the file declares \"UTF-8\", but its first bytes are those "
                                             "of UTF-16");
    QTest::addRow("UTF-16 without mark") << utf16(declaring("utf-8") + "<a/>")
                                         << QStringLiteral("1:1: the file declares \"utf-8\", but its first bytes are "
                                                           "those of UTF-16");
    QTest::addRow("mark of UTF-8, declared") << mark + declaring("utf-8") + "<a>\xC3\xA4</a>" << QString();
    QTest::addRow("mark of UTF-8, nothing declared") << mark + "<a>\xC3\xA4</a>" << QString();
    QTest::addRow("UTF-16, declared") << "\xFF\xFE" + utf16(declaring("UTF-16LE") + "<a/>") << QString();
    QTest::addRow("UTF-16, nothing declared") << "\xFF\xFE" + utf16("<a/>") << QString();
}

void tst_EncodingFault::contradiction()
{
    QFETCH(QByteArray, bytes);
    QTEST(faultIn(bytes, false), "fault");
}

// Text is passed over eight bytes at a time.
void tst_EncodingFault::everyPlace()
{
    constexpr int length = 20;
    for (int position = 0; position < length; ++position) {
        QByteArray bytes(length, 'a');
        bytes[position] = '\xFF';
        const auto fault = check::encodingFaultOf({bytes.data(), static_cast<std::size_t>(length)});
        QVERIFY(fault.has_value());
        QCOMPARE(fault->place.column, position + 1);
    }
}

// The finding has the place of the fault, and is among the others by it.
void tst_EncodingFault::findings()
{
    const check::Findings found =
        checkParts::LoadedFile(
            "<?xml version='1.0' encoding='UTF-8'?>\n<EtherCATInfo>\n<A/><!-- \xE4 --><Vendor><Id>1</Id></Vendor>\n"
            "<Descriptions><Devices B='1'/></Descriptions></EtherCATInfo>")
            .findings();
    QStringList lines;
    for (const check::Finding& finding : found.list)
        lines += QStringLiteral("%1 %2")
                     .arg(finding.place.line)
                     .arg(QString::fromStdString(std::string(finding.rule->code)));
    QCOMPARE(lines, (QStringList{"3 schema-element", "3 file-encoding-lossy", "4 schema-attribute"}));

    const QByteArray hidden =
        "<?xml version='1.0' encoding='ISO-8859-1'?>\n<EtherCATInfo><!--\xC3\xA4--></EtherCATInfo>";
    QCOMPARE(checkParts::findingsOf("file-encoding", hidden),
             QStringList{QStringLiteral("2:19: the file declares \"ISO-8859-1\", but its characters are in UTF-8, here "
                                        "\"\u00e4\"")});
}

static const testMain::Registration<tst_EncodingFault, testMain::NoApplication> registration;
#include "tst_EncodingFault.moc"
