// Values as JSON: their layout, and what is written where memory ends in the middle of it.
#include "show/showJson.h"
#include "testMain.h"

#include <QtTest>

#include <new>
#include <sstream>

class tst_ShowJson : public QObject
{
    Q_OBJECT

private slots:
    void memoryEnds_data();
    void memoryEnds();
    void allIsWritten();
    void withoutALastMember();
};

Q_DECLARE_METATYPE(show::Object)

namespace {

/// A list whose last element cannot be made.
show::Value brokenList(std::size_t count, const show::Value& element)
{
    return {show::List{count, [=](std::size_t index) -> show::Value {
                           if (index + 1 == count)
                               throw std::bad_alloc();
                           return element;
                       }}};
}

show::Member isComplete(bool isWhole)
{
    return {"complete", show::flag(isWhole)};
}

} // namespace

void tst_ShowJson::memoryEnds_data()
{
    QTest::addColumn<show::Object>("object");
    QTest::addColumn<QByteArray>("json");
    const show::Value inner{show::Object{{"a", show::decimal(1)}}};
    QTest::addRow("in a list of numbers")
        << show::Object{{"list", brokenList(3, show::decimal(7))}, {"after", show::decimal(8)}}
        << QByteArray("{\n \"list\": [7, 7, null],\n \"after\": 8,\n"
                      " \"complete\": false\n}");
    QTest::addRow("in a list of objects") << show::Object{{"list", brokenList(2, inner)}}
                                          << QByteArray("{\n \"list\": [\n  {\"a\": 1},\n  null\n ],\n"
                                                        " \"complete\": false\n}");
    QTest::addRow("at the first element")
        << show::Object{{"list", brokenList(1, inner)}} << QByteArray("{\n \"list\": null,\n \"complete\": false\n}");
    QTest::addRow("deep inside")
        << show::Object{{"outer", {show::Object{{"list", brokenList(2, inner)}, {"b", show::flag(true)}}}}}
        << QByteArray("{\n \"outer\": {\n  \"list\": [\n   {\"a\": 1},\n   null\n  ],\n  \"b\": true\n },\n"
                      " \"complete\": false\n}");
    QTest::addRow("in front of another list")
        << show::Object{{"list", brokenList(2, inner)}, {"next", brokenList(2, inner)}}
        << QByteArray("{\n \"list\": [\n  {\"a\": 1},\n  null\n ],\n \"next\": null,\n \"complete\": false\n}");
    const show::Value broken{show::Object{{"x", brokenList(1, inner)}}};
    const show::Value two{show::List{2, [=](std::size_t index) { return index == 0 ? broken : inner; }}};
    QTest::addRow("in the first of two objects")
        << show::Object{{"list", two}} << QByteArray("{\n \"list\": [\n  null\n ],\n \"complete\": false\n}");
}

/// Every key is there, whatever was begun is closed, and the caller learns of it.
void tst_ShowJson::memoryEnds()
{
    QFETCH(show::Object, object);
    QFETCH(QByteArray, json);
    std::ostringstream out;
    QVERIFY_EXCEPTION_THROWN(show::writeJson(out, object, isComplete), std::bad_alloc);
    QCOMPARE(QByteArray::fromStdString(out.str()), json);
}

void tst_ShowJson::allIsWritten()
{
    std::ostringstream out;
    show::writeJson(out, {{"a", show::decimal(1)}}, isComplete);
    QCOMPARE(QByteArray::fromStdString(out.str()), QByteArray("{\n \"a\": 1,\n \"complete\": true\n}"));
}

void tst_ShowJson::withoutALastMember()
{
    std::ostringstream out;
    QVERIFY_EXCEPTION_THROWN(show::writeJson(out, brokenList(2, show::decimal(7))), std::bad_alloc);
    QCOMPARE(QByteArray::fromStdString(out.str()), QByteArray("[7, null]"));
}

static const testMain::Registration<tst_ShowJson, testMain::NoApplication> registration;
#include "tst_ShowJson.moc"
