// The JSON of `ktl show` where memory ends in the middle of it.
#include "show/showJson.h"
#include "testMain.h"

#include <QtTest>

#include <new>
#include <sstream>

class tst_JsonOfShow : public QObject
{
    Q_OBJECT

private slots:
    void memoryEnds_data();
    void memoryEnds();
    void allIsWritten();
    void withoutALastMember();
};

Q_DECLARE_METATYPE(ShowObject)

namespace {

/// A list of so many elements, of which the last cannot be made.
ShowValue brokenList(std::size_t count, const ShowValue& element)
{
    return {ShowList{count, [=](std::size_t index) -> ShowValue {
                         if (index + 1 == count)
                             throw std::bad_alloc();
                         return element;
                     }}};
}

ShowMember isComplete(bool isWhole)
{
    return {"complete", flag(isWhole)};
}

} // namespace

void tst_JsonOfShow::memoryEnds_data()
{
    QTest::addColumn<ShowObject>("object");
    QTest::addColumn<QByteArray>("json");
    const ShowValue inner{ShowObject{{"a", decimal(1)}}};
    QTest::addRow("in a list of numbers") << ShowObject{{"list", brokenList(3, decimal(7))}, {"after", decimal(8)}}
                                          << QByteArray("{\n \"list\": [7, 7, null],\n \"after\": 8,\n"
                                                        " \"complete\": false\n}");
    QTest::addRow("in a list of objects") << ShowObject{{"list", brokenList(2, inner)}}
                                          << QByteArray("{\n \"list\": [\n  {\"a\": 1},\n  null\n ],\n"
                                                        " \"complete\": false\n}");
    QTest::addRow("at the first element")
        << ShowObject{{"list", brokenList(1, inner)}} << QByteArray("{\n \"list\": null,\n \"complete\": false\n}");
    QTest::addRow("deep inside")
        << ShowObject{{"outer", {ShowObject{{"list", brokenList(2, inner)}, {"b", flag(true)}}}}}
        << QByteArray("{\n \"outer\": {\n  \"list\": [\n   {\"a\": 1},\n   null\n  ],\n  \"b\": true\n },\n"
                      " \"complete\": false\n}");
    QTest::addRow("in front of another list")
        << ShowObject{{"list", brokenList(2, inner)}, {"next", brokenList(2, inner)}}
        << QByteArray("{\n \"list\": [\n  {\"a\": 1},\n  null\n ],\n \"next\": null,\n \"complete\": false\n}");
    const ShowValue broken{ShowObject{{"x", brokenList(1, inner)}}};
    const ShowValue two{ShowList{2, [=](std::size_t index) { return index == 0 ? broken : inner; }}};
    QTest::addRow("in the first of two objects")
        << ShowObject{{"list", two}} << QByteArray("{\n \"list\": [\n  null\n ],\n \"complete\": false\n}");
}

/// Every key is there, whatever was begun is closed, and the caller learns of it.
void tst_JsonOfShow::memoryEnds()
{
    QFETCH(ShowObject, object);
    QFETCH(QByteArray, json);
    std::ostringstream out;
    QVERIFY_EXCEPTION_THROWN(writeJson(out, object, isComplete), std::bad_alloc);
    QCOMPARE(QByteArray::fromStdString(out.str()), json);
}

void tst_JsonOfShow::allIsWritten()
{
    std::ostringstream out;
    writeJson(out, {{"a", decimal(1)}}, isComplete);
    QCOMPARE(QByteArray::fromStdString(out.str()), QByteArray("{\n \"a\": 1,\n \"complete\": true\n}"));
}

void tst_JsonOfShow::withoutALastMember()
{
    std::ostringstream out;
    QVERIFY_EXCEPTION_THROWN(writeJson(out, brokenList(2, decimal(7))), std::bad_alloc);
    QCOMPARE(QByteArray::fromStdString(out.str()), QByteArray("[7, null]"));
}

static const testMain::Registration<tst_JsonOfShow, testMain::NoApplication> registration;
#include "tst_JsonOfShow.moc"
