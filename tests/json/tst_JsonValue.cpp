// Values of a JSON file that has been read.
#include "testMain.h"
#include "json/jsonText.h"
#include "json/jsonValue.h"

#include <QtTest>

class tst_JsonValue : public QObject
{
    Q_OBJECT

private slots:
    void kinds();
    void membersInTheirOrder();
    void elements();
    static void shown_data();
    void shown();

private:
    const json::Parsing m_parsing =
        json::parse(R"({"text": "单\n", "whole": 4294967296, "part": -0.25, "flag": true, "none": null,)"
                    R"( "list": [1, {}], "object": {"b": 1, "a": 2}, "noList": [], "noMember": {}})");
};

void tst_JsonValue::kinds()
{
    const json::Value file = m_parsing.value();
    QVERIFY(file.isThere() && file.isObject() && !file.isList());
    QCOMPARE(file.member(QLatin1String("text")).text(), std::make_optional(QStringLiteral("单\n")));
    QCOMPARE(file.member(QLatin1String("text")).number(), std::optional<double>());
    QCOMPARE(file.member(QLatin1String("whole")).number(), std::make_optional(4294967296.0));
    QCOMPARE(file.member(QLatin1String("part")).number(), std::make_optional(-0.25));
    QCOMPARE(file.member(QLatin1String("part")).text(), std::optional<QString>());
    QCOMPARE(file.member(QLatin1String("flag")).number(), std::optional<double>());
    QCOMPARE(file.member(QLatin1String("flag")).flag(), std::make_optional(true));
    QCOMPARE(file.member(QLatin1String("text")).flag(), std::optional<bool>());
    QVERIFY(file.member(QLatin1String("none")).isThere() && file.member(QLatin1String("none")).isNull());
    QVERIFY(file.member(QLatin1String("list")).isList());
    const json::Value missing = file.member(QLatin1String("missing"));
    QVERIFY(!missing.isThere() && !missing.isNull() && !missing.isObject() && !missing.isList());
    QVERIFY(!missing.member(QLatin1String("a")).isThere());
}

void tst_JsonValue::membersInTheirOrder()
{
    const json::Value object = m_parsing.value().member(QLatin1String("object"));
    QCOMPARE(object.keys(), (QStringList{"b", "a"}));
    QCOMPARE(m_parsing.value().member(QLatin1String("list")).keys(), QStringList());
}

void tst_JsonValue::elements()
{
    const json::Value list = m_parsing.value().member(QLatin1String("list"));
    QCOMPARE(list.size(), std::size_t{2});
    QCOMPARE(list.element(0).number(), std::make_optional(1.0));
    QVERIFY(list.element(1).isObject());
    QVERIFY(!list.element(2).isThere());
    QCOMPARE(m_parsing.value().size(), std::size_t{0}); // an object has none
}

void tst_JsonValue::shown_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* key, const char* expected) {
        QTest::addRow("%s", key) << QString::fromLatin1(key) << QString::fromUtf8(expected);
    };
    row("text", "\"单\n\"");
    row("whole", "4294967296");
    row("part", "-0.25");
    row("flag", "true");
    row("none", "null");
    row("list", "[...]");
    row("noList", "[]");
    row("object", "{...}");
    row("noMember", "{}");
}

void tst_JsonValue::shown()
{
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QCOMPARE(m_parsing.value().member(QLatin1String(key.toLatin1())).shown(), expected);
}

static const testMain::Registration<tst_JsonValue, testMain::NoApplication> registration;
#include "tst_JsonValue.moc"
