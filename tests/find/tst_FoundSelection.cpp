// The latest revision of each product, and identities that are there several times.
// Covers selection.cpp.
#include "find/selection.h"
#include "testMain.h"

#include <QtTest>

#include <vector>

class tst_FoundSelection : public QObject
{
    Q_OBJECT

private slots:
    static void chosen_data();
    static void chosen();
};

void tst_FoundSelection::chosen_data()
{
    QTest::addColumn<bool>("latest");
    QTest::addColumn<bool>("duplicates");
    QTest::addColumn<QString>("expected");
    QTest::addRow("latest") << true << false << "bcdef";
    QTest::addRow("duplicates") << false << true << "bc";
    QTest::addRow("both") << true << true << "bc";
}

void tst_FoundSelection::chosen()
{
    QFETCH(bool, latest);
    QFETCH(bool, duplicates);
    using find::FoundKind;
    const std::vector<find::Found> all{
        {FoundKind::Device, 1, 1, 1, {}, "a", 0}, {FoundKind::Device, 1, 1, 2, {}, "b", 0},
        {FoundKind::Device, 1, 1, 2, {}, "c", 0}, {FoundKind::Device, 1, 2, 0, {}, "d", 0},
        {FoundKind::Device, 2, 1, 1, {}, "e", 0}, {FoundKind::Module, 1, 2, 0, {}, "f", 0},
    };
    find::Selection selection(latest, duplicates);
    QVERIFY(selection.needsAll());
    for (const find::Found& each : all)
        selection.learn(each);
    std::string names;
    for (const find::Found& each : all)
        if (selection.takes(each))
            names += each.name;
    QTEST(QString::fromStdString(names), "expected");
}

static const testMain::Registration<tst_FoundSelection, testMain::NoApplication> registration;
#include "tst_FoundSelection.moc"
