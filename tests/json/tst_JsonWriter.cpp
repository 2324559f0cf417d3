// JSON as it is written: lines, commas, blanks and escapes.
#include "testMain.h"
#include "json/jsonWriter.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QtTest>

#include <limits>
#include <sstream>

class tst_JsonWriter : public QObject
{
    Q_OBJECT

private slots:
    static void layouts_data();
    static void layouts();
    static void texts_data();
    static void texts();
    static void values_data();
    static void values();
    static void fractions_data();
    static void fractions();
    static void numbers();
    static void undefinedMembers();
    static void manyTexts();
    static void longText_data();
    static void longText();
    static void goesOnInTheStream();
};

namespace {

constexpr json::Layout numbered{2, false};
constexpr json::Layout lettered{2, true};

/// What `write(writer)` writes.
template<typename Write> QByteArray writtenBy(const json::Layout& layout, Write write)
{
    std::ostringstream out;
    json::Writer writer(out, layout);
    write(writer);
    return QByteArray::fromStdString(out.str());
}

/// An object with a list of two objects, of which the first has a list in it.
void writeNested(json::Writer& writer, json::Spread outer, json::Spread inner)
{
    writer.openObject(outer);
    writer.key("a");
    writer.number(1);
    writer.openList("list", outer);
    writer.openObject(inner);
    writer.openList("b");
    writer.flag(true);
    writer.null();
    writer.closeList();
    writer.key("c");
    writer.text(std::string_view("d"));
    writer.closeObject();
    writer.openObject(inner);
    writer.closeObject();
    writer.closeList();
    writer.openList("empty");
    writer.closeList();
    writer.closeObject();
}

} // namespace

Q_DECLARE_METATYPE(json::Spread)

void tst_JsonWriter::layouts_data()
{
    QTest::addColumn<int>("indentation");
    QTest::addColumn<json::Spread>("outer");
    QTest::addColumn<json::Spread>("inner");
    QTest::addColumn<QByteArray>("expected");
    using json::Spread;
    QTest::addRow("lines throughout") << 2 << Spread::Lines << Spread::Lines
                                      << QByteArray(
                                             "{\n  \"a\": 1,\n  \"list\": [\n    {\n      \"b\": [\n"
                                             "        true,\n        null\n      ],\n      \"c\": \"d\"\n    },\n"
                                             "    {}\n  ],\n  \"empty\": []\n}");
    QTest::addRow("an object to a line") << 1 << Spread::Lines << Spread::OneLine
                                         << QByteArray("{\n \"a\": 1,\n \"list\": [\n  {\"b\": [true, null], "
                                                       "\"c\": \"d\"},\n  {}\n ],\n \"empty\": []\n}");
    QTest::addRow("all on one line, where lists cannot spread")
        << 2 << Spread::OneLine << Spread::Lines
        << QByteArray("{\"a\": 1, \"list\": [{\"b\": [true, null], \"c\": \"d\"}, {}], \"empty\": []}");
    QTest::addRow("tight within a line") << 2 << Spread::OneLine << Spread::Tight
                                         << QByteArray("{\"a\": 1, \"list\": [{\"b\":[true,null],\"c\":\"d\"}, {}], "
                                                       "\"empty\": []}");
}

void tst_JsonWriter::layouts()
{
    QFETCH(int, indentation);
    QFETCH(json::Spread, outer);
    QFETCH(json::Spread, inner);
    QFETCH(QByteArray, expected);
    const json::Layout layout{static_cast<std::size_t>(indentation), false};
    QCOMPARE(writtenBy(layout, [=](json::Writer& writer) { writeNested(writer, outer, inner); }), expected);
}

void tst_JsonWriter::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("withNumbers");
    QTest::addColumn<QByteArray>("withLetters");
    const auto row = [](const char* name, const QByteArray& text, const QByteArray& numbers,
                        const QByteArray& letters) { QTest::addRow("%s", name) << text << numbers << letters; };
    row("plain", "a b~", R"("a b~")", R"("a b~")");
    row("empty", "", R"("")", R"("")");
    row("quote and backslash", R"(a"\b)", R"("a\"\\b")", R"("a\"\\b")");
    row("slash", "a/b", R"("a/b")", R"("a/b")");
    row("control with a letter", "a\b\f\n\r\tb", R"("a\u0008\u000c\u000a\u000d\u0009b")", R"("a\b\f\n\r\tb")");
    row("control without a letter", "\x1B\x01", R"("\u001b\u0001")", R"("\u001b\u0001")");
    row("delete and C1 control", "\x7F\xC2\x9B", R"("\u007f\u009b")", R"("\u007f\u009b")");
    row("change of direction", "\xE2\x80\xAE", R"("\u202e")", R"("\u202e")");
    row("Chinese and emoji", "单\xF0\x9F\x94\xA7", "\"单\xF0\x9F\x94\xA7\"", "\"单\xF0\x9F\x94\xA7\"");
    row("byte that is no UTF-8", "a\xFF", "\"a\xEF\xBF\xBD\"", "\"a\xEF\xBF\xBD\"");
}

/// As bytes and as Qt's text, and as a key.
void tst_JsonWriter::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, withNumbers);
    QFETCH(QByteArray, withLetters);
    const auto asBytes = [&](json::Writer& writer) { writer.text(std::string_view(text.toStdString())); };
    QCOMPARE(writtenBy(numbered, asBytes), withNumbers);
    QCOMPARE(writtenBy(lettered, asBytes), withLetters);
    QCOMPARE(writtenBy(numbered, [&](json::Writer& writer) { writer.text(QString::fromUtf8(text)); }), withNumbers);
    const auto asKey = [&](json::Writer& writer) {
        writer.openObject(json::Spread::Tight);
        writer.key(text.toStdString());
        writer.null();
        writer.closeObject();
    };
    QCOMPARE(writtenBy(lettered, asKey), '{' + withLetters + ":null}");
}

void tst_JsonWriter::values_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("null") << QJsonValue() << QByteArray("null");
    QTest::addRow("undefined") << QJsonValue(QJsonValue::Undefined) << QByteArray("null");
    QTest::addRow("flag") << QJsonValue(false) << QByteArray("false");
    QTest::addRow("negative number") << QJsonValue(-7) << QByteArray("-7");
    QTest::addRow("number of 32 bits") << QJsonValue(4294967295.0) << QByteArray("4294967295");
    QTest::addRow("round number that would be shorter with an exponent")
        << QJsonValue(1000000) << QByteArray("1000000");
    QTest::addRow("number with a fraction") << QJsonValue(0.5) << QByteArray("0.5");
    QTest::addRow("text") << QJsonValue("a\nb") << QByteArray("\"a\\nb\"");
    QTest::addRow("list") << QJsonValue(QJsonArray{1, "b", QJsonArray()}) << QByteArray("[1,\"b\",[]]");
    QTest::addRow("object, by its keys in order") << QJsonValue(QJsonObject{{"b", 1}, {"a", QJsonObject{{"c", true}}}})
                                                  << QByteArray("{\"a\":{\"c\":true},\"b\":1}");
}

void tst_JsonWriter::values()
{
    QFETCH(QJsonValue, value);
    QFETCH(QByteArray, expected);
    QCOMPARE(writtenBy(lettered, [&](json::Writer& writer) { writer.value(value); }), expected);
}

void tst_JsonWriter::fractions_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("digit after the point") << 1.4F << QByteArray("1.4");
    QTest::addRow("whole") << 4.0F << QByteArray("4");
    QTest::addRow("negative") << -0.3F << QByteArray("-0.3");
    QTest::addRow("infinite") << std::numeric_limits<float>::infinity() << QByteArray("null");
    QTest::addRow("no number") << std::numeric_limits<float>::quiet_NaN() << QByteArray("null");
}

void tst_JsonWriter::fractions()
{
    QFETCH(float, number);
    QFETCH(QByteArray, expected);
    QCOMPARE(writtenBy(numbered, [=](json::Writer& writer) { writer.fraction(number); }), expected);
}

void tst_JsonWriter::numbers()
{
    const QByteArray written = writtenBy(numbered, [](json::Writer& writer) {
        writer.openList(json::Spread::OneLine);
        for (const std::int64_t number :
             {std::int64_t{0}, std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
            writer.number(number);
        writer.closeList();
    });
    QCOMPARE(written, QByteArray("[0, 9223372036854775807, -9223372036854775808]"));
}

/// They are left out, the first one too, without a comma in their place.
void tst_JsonWriter::undefinedMembers()
{
    const QJsonValue nothing(QJsonValue::Undefined);
    const auto write = [&](json::Writer& writer) {
        writer.openList();
        writer.line({{"a", nothing}, {"b", 1}, {"c", nothing}, {"d", QJsonArray{1, 2}}});
        writer.line({{"a", nothing}});
        writer.closeList();
    };
    QCOMPARE(writtenBy(numbered, write), QByteArray("[\n  {\"b\": 1, \"d\": [1,2]},\n  {}\n]"));
}

/// More than is gathered for the stream at a time, in texts of 3 bytes that end at any place of a chunk.
void tst_JsonWriter::manyTexts()
{
    constexpr int count = 10000;
    const auto write = [](json::Writer& writer) {
        writer.openList(json::Spread::Tight);
        for (int element = 0; element < count; ++element)
            writer.text(std::string_view("a"));
        writer.closeList();
    };
    QCOMPARE(writtenBy(numbered, write), QByteArray(R"(["a")") + QByteArray(R"(,"a")").repeated(count - 1) + ']');
}

void tst_JsonWriter::longText_data()
{
    QTest::addColumn<int>("length");
    constexpr int chunk = 8192;
    for (const int length : {chunk - 2, chunk - 1, chunk, chunk + 1, 3 * chunk})
        QTest::addRow("%d", length) << length;
}

/// Between two short ones.
void tst_JsonWriter::longText()
{
    QFETCH(int, length);
    const QByteArray text(length, 'b');
    const auto write = [&](json::Writer& writer) {
        writer.openList(json::Spread::Tight);
        for (const QByteArray& each : {QByteArray("a"), text, QByteArray("c")})
            writer.text(std::string_view(each.constData(), static_cast<std::size_t>(each.size())));
        writer.closeList();
    };
    QCOMPARE(writtenBy(numbered, write), R"(["a",")" + text + R"(","c"])");
}

/// A complete value is in the stream, so that its owner can write on.
void tst_JsonWriter::goesOnInTheStream()
{
    std::ostringstream out;
    out << "before ";
    json::Writer writer(out, numbered);
    writer.openObject();
    writer.closeObject();
    out << " after";
    QCOMPARE(out.str(), std::string("before {} after"));
}

static const testMain::Registration<tst_JsonWriter, testMain::NoApplication> registration;
#include "tst_JsonWriter.moc"
