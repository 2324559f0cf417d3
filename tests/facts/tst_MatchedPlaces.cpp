// Which elements records come from.
#include "facts/matchedPlaces.h"
#include "testMain.h"

#include <QtTest>

class tst_MatchedPlaces : public QObject
{
    Q_OBJECT

private slots:
    static void elements_data();
    static void elements();
};

void tst_MatchedPlaces::elements_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QList<int>>("records");
    QTest::addColumn<QList<int>>("taken"); // -1 for a record that comes from no element
    QTest::addRow("in order") << QList<int>{7, 8, 9} << QList<int>{7, 8, 9} << QList<int>{0, 1, 2};
    QTest::addRow("one was removed") << QList<int>{7, 8, 9} << QList<int>{7, 9} << QList<int>{0, 2};
    QTest::addRow("one was added") << QList<int>{7, 8} << QList<int>{7, 5, 8} << QList<int>{0, -1, 1};
    QTest::addRow("moved") << QList<int>{7, 8, 9} << QList<int>{9, 7, 8} << QList<int>{2, 0, 1};
    QTest::addRow("equal ones in their order") << QList<int>{7, 7, 8} << QList<int>{7, 7, 8} << QList<int>{0, 1, 2};
    QTest::addRow("equal ones after a move") << QList<int>{7, 8, 7} << QList<int>{8, 7, 7} << QList<int>{1, 2, 0};
    QTest::addRow("more than there are") << QList<int>{7} << QList<int>{7, 7} << QList<int>{0, -1};
    QTest::addRow("none") << QList<int>{} << QList<int>{7} << QList<int>{-1};
}

void tst_MatchedPlaces::elements()
{
    QFETCH(QList<int>, keys);
    QFETCH(QList<int>, records);
    facts::MatchedPlaces<int> places;
    for (int index = 0; index < keys.size(); ++index)
        places.add(keys[index], static_cast<facts::Where>(100 + index));
    QList<int> taken;
    for (const int record : records) {
        const std::optional<std::size_t> found = places.take(record);
        taken += found.has_value() ? static_cast<int>(*found) : -1;
        if (found.has_value())
            QCOMPARE(places.whereOf(*found), static_cast<facts::Where>(100 + *found));
    }
    QTEST(taken, "taken");
}

static const testMain::Registration<tst_MatchedPlaces, testMain::NoApplication> registration;
#include "tst_MatchedPlaces.moc"
