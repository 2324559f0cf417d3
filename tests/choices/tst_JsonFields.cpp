// Fields of a JSON object, held against what they have to be: numbers, counts, texts, lists, and the keys themselves.
#include "choices/jsonFields.h"
#include "testMain.h"
#include "json/jsonText.h"

class tst_JsonFields : public QObject
{
    Q_OBJECT

private slots:
    static void numbers_data();
    static void numbers();
    static void counts_data();
    static void counts();
    static void texts_data();
    static void texts();
    static void flags();
    static void countsOrTexts();
    static void lists_data();
    static void lists();
    static void keys_data();
    static void keys();
    static void keysThatAreNotThere();
    static void paths();
};

using choices::JsonFields;
using choices::JsonKey;
using choices::Problems;

namespace {

const QLatin1String key("key");
const std::array oneKey{JsonKey{key, false}};

/// An object with that value, at the place "at".
struct OneField
{
    explicit OneField(const QByteArray& value)
        : parsing(json::parse("{\"key\": " + value + '}'))
        , fields(parsing.value(), QStringLiteral("at"), oneKey, problems)
    {}

    /// The only problem; empty if there is none.
    [[nodiscard]] QString problem() const
    {
        return problems.count() == 1 ? problems.kept().front().text : QString::number(problems.count());
    }

    json::Parsing parsing;
    Problems problems;
    JsonFields fields;
};

const QString none = QStringLiteral("0"); // problems

qint64 shown(const std::optional<std::uint32_t>& number)
{
    return number.has_value() ? qint64{*number} : -1;
}

} // namespace

void tst_JsonFields::numbers_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint64>("number"); // -1 for none
    QTest::addColumn<QString>("problem");
    QTest::addRow("whole") << QByteArray("7") << qint64{7} << none;
    QTest::addRow("whole in another form") << QByteArray("7.0e1") << qint64{70} << none;
    QTest::addRow("text") << QByteArray("\"7\"") << qint64{7} << none;
    QTest::addRow("hexadecimal") << QByteArray("\"0x1F\"") << qint64{31} << none;
    QTest::addRow("hexadecimal of ESI files") << QByteArray("\"#x1f\"") << qint64{31} << none;
    QTest::addRow("maximum") << QByteArray("65535") << qint64{65535} << none;
    const QString range = " is not a number from 0 to 65535";
    QTest::addRow("one more") << QByteArray("65536") << qint64{-1} << "at.key: 65536" + range;
    QTest::addRow("one more as a text") << QByteArray("\"0x10000\"") << qint64{-1} << "at.key: \"0x10000\"" + range;
    QTest::addRow("negative") << QByteArray("-1") << qint64{-1} << "at.key: -1" + range;
    QTest::addRow("broken") << QByteArray("1.5") << qint64{-1} << "at.key: 1.5" + range;
    QTest::addRow("33 bits are not cut") << QByteArray("4294967296") << qint64{-1} << "at.key: 4294967296" + range;
    QTest::addRow("a word") << QByteArray("\"two\"") << qint64{-1} << "at.key: \"two\"" + range;
    QTest::addRow("nothing") << QByteArray("null") << qint64{-1} << "at.key: null" + range;
    QTest::addRow("a list") << QByteArray("[1]") << qint64{-1} << "at.key: [...]" + range;
}

void tst_JsonFields::numbers()
{
    QFETCH(QByteArray, value);
    OneField field(value);
    QTEST(shown(field.fields.number(key, 65535)), "number");
    QTEST(field.problem(), "problem");
}

void tst_JsonFields::counts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint64>("number");
    QTest::addColumn<QString>("problem");
    const QString range = " is not a number from 0 to 9 or a name";
    QTest::addRow("whole") << QByteArray("9") << qint64{9} << none;
    QTest::addRow("too large") << QByteArray("10") << qint64{-1} << "at.key: 10" + range;
    QTest::addRow("text with a number") << QByteArray("\"7\"") << qint64{-1} << "at.key: \"7\"" + range;
}

void tst_JsonFields::counts()
{
    QFETCH(QByteArray, value);
    OneField field(value);
    QTEST(shown(field.fields.count(key, 9, QLatin1String("a name"))), "number");
    QTEST(field.problem(), "problem");
}

void tst_JsonFields::texts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    QTest::addRow("text") << QByteArray("\"a b\"") << "a b" << none;
    QTest::addRow("empty text") << QByteArray("\"\"") << "" << none;
    QTest::addRow("number") << QByteArray("1") << "no text"
                            << "at.key: 1 is not a text";
    QTest::addRow("object") << QByteArray("{}") << "no text"
                            << "at.key: {} is not a text";
}

void tst_JsonFields::texts()
{
    QFETCH(QByteArray, value);
    OneField field(value);
    QTEST(field.fields.text(key).value_or("no text"), "text");
    QTEST(field.problem(), "problem");
}

void tst_JsonFields::flags()
{
    OneField set(QByteArray("true"));
    QCOMPARE(set.fields.flag(key), std::make_optional(true));
    QCOMPARE(set.problem(), none);
    QCOMPARE(OneField(QByteArray("false")).fields.flag(key), std::make_optional(false));
    OneField text(QByteArray("\"true\""));
    QVERIFY(!text.fields.flag(key).has_value());
    QCOMPARE(text.problem(), QStringLiteral("at.key: \"true\" is not true or false"));
}

/// A value that is a number or a text, wherever it stands.
void tst_JsonFields::countsOrTexts()
{
    const QLatin1String aName("a name");
    OneField field(QByteArray(R"([7, "7", true])"));
    const json::Value list = field.fields.value(key);
    const choices::CountOrText count = choices::countOrTextIn(list.element(0), "x", aName, field.problems);
    QCOMPARE(count.count.value(), 7U);
    QCOMPARE(count.text, QString());
    const choices::CountOrText text = choices::countOrTextIn(list.element(1), "x", aName, field.problems);
    QVERIFY(!text.count.has_value());
    QCOMPARE(text.text, QStringLiteral("7"));
    QCOMPARE(field.problem(), none);
    static_cast<void>(choices::countOrTextIn(list.element(2), "at[2]", aName, field.problems));
    QCOMPARE(field.problem(), QStringLiteral("at[2]: true is not a number from 0 to 4294967295 or a name"));
}

void tst_JsonFields::lists_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("visited");
    QTest::addColumn<QString>("problem");
    QTest::addRow("two values") << QByteArray(R"(["a", "b"])") << "at.key[0]=a at.key[1]=b" << none;
    QTest::addRow("empty") << QByteArray("[]") << "" << none;
    QTest::addRow("object") << QByteArray(R"({"a": 1})") << ""
                            << "at.key: {...} is not a list";
    QTest::addRow("nothing") << QByteArray("null") << ""
                             << "at.key: null is not a list";
}

void tst_JsonFields::lists()
{
    QFETCH(QByteArray, value);
    OneField field(value);
    QStringList visited;
    field.fields.forEach(key, [&](const auto& element, const QString& path) {
        visited += path + '=' + element.text().value_or(QString());
    });
    QTEST(visited.join(' '), "visited");
    QTEST(field.problem(), "problem");
}

void tst_JsonFields::keys_data()
{
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QString>("problem"); // the first of them
    QTest::addRow("needed ones") << QByteArray(R"({"first": 1})") << "";
    QTest::addRow("all") << QByteArray(R"({"second": 1, "first": 1})") << "";
    QTest::addRow("about is passed over") << QByteArray(R"({"first": 1, "about": [{}]})") << "";
    QTest::addRow("a needed one is missing") << QByteArray(R"({"second": 1})") << "at: the key \"first\" is missing";
    QTest::addRow("null is there") << QByteArray(R"({"first": null})") << "";
    QTest::addRow("unknown") << QByteArray(R"({"first": 1, "First": 1})")
                             << "at: \"First\" is no key here (known: first, second)";
    QTest::addRow("no object") << QByteArray("[]") << "at: [] is no object with keys and values";
}

void tst_JsonFields::keys()
{
    QFETCH(QByteArray, object);
    const std::array twoKeys{JsonKey{QLatin1String("first"), true}, JsonKey{QLatin1String("second"), false}};
    const auto parsing = json::parse(object);
    Problems problems;
    const JsonFields fields(parsing.value(), "at", twoKeys, problems);
    QTEST(problems.count() == 0 ? QString() : problems.kept().front().text, "problem");
    QVERIFY(problems.count() < 2);
}

void tst_JsonFields::keysThatAreNotThere()
{
    const auto parsing = json::parse("{}");
    Problems problems;
    JsonFields fields(parsing.value(), "at", oneKey, problems);
    QVERIFY(!fields.has(key));
    QVERIFY(!fields.number(key, 1).has_value());
    QVERIFY(!fields.count(key, 1).has_value());
    QVERIFY(!fields.text(key).has_value());
    QVERIFY(!fields.flag(key).has_value());
    fields.forEach(key, [](const auto&, const QString&) { QFAIL("there is no value"); });
    QCOMPARE(problems.count(), std::size_t(0));
}

/// The file itself has no path.
void tst_JsonFields::paths()
{
    const auto parsing = json::parse("{}");
    Problems problems;
    QCOMPARE(JsonFields(parsing.value(), "devices[0]", oneKey, problems).pathOf(key), QStringLiteral("devices[0].key"));
    QCOMPARE(JsonFields(parsing.value(), "", oneKey, problems).pathOf(key), QStringLiteral("key"));
}

static const testMain::Registration<tst_JsonFields, testMain::NoApplication> registration;
#include "tst_JsonFields.moc"
