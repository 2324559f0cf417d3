// How large the text of a narrow column is, and how high rows are.
#include "testMain.h"
#include "workbench/tableFont.h"

#include <QTableView>
#include <QtTest>

class tst_TableFont : public QObject
{
    Q_OBJECT

private slots:
    static void rowHeights_data();
    static void rowHeights();
    static void enoughRoomKeepsTheFont();
    static void lessRoomMakesItSmaller();
    static void neverBelowOnePoint();
    static void everythingElseStays();
};

void tst_TableFont::rowHeights_data()
{
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("height");
    QTest::addRow("no text") << 0 << 26;
    QTest::addRow("twenty, the last at the minimum") << 20 << 26;
    QTest::addRow("21 make 27.3, rounded up") << 21 << 28;
    QTest::addRow("thirty make 39") << 30 << 39;
}

void tst_TableFont::rowHeights()
{
    QFETCH(int, text);
    QTEST(rowHeightFor(text), "height");
}

namespace {

QFont twentyPoints()
{
    QFont font = QApplication::font();
    font.setPointSize(20);
    return font;
}

} // namespace

void tst_TableFont::enoughRoomKeepsTheFont()
{
    const QTableView view;
    QCOMPARE(fittingFont(twentyPoints(), QStringLiteral("0x1a00"), 10000, view), twentyPoints());
}

/// Each room gives the largest size that fits, so more room never gives a smaller one.
void tst_TableFont::lessRoomMakesItSmaller()
{
    const QTableView view;
    int before = 1;
    for (int room = 20; room <= 300; room += 20) {
        const int size = fittingFont(twentyPoints(), QStringLiteral("0x1a00"), room, view).pointSize();
        QVERIFY(size >= before && size <= 20);
        before = size;
    }
    QCOMPARE(before, 20);
    QVERIFY(fittingFont(twentyPoints(), QStringLiteral("0x1a00"), 40, view).pointSize() < 20);
}

void tst_TableFont::neverBelowOnePoint()
{
    const QTableView view;
    QCOMPARE(fittingFont(twentyPoints(), QStringLiteral("0x1a00"), 0, view).pointSize(), 1);
}

void tst_TableFont::everythingElseStays()
{
    const QTableView view;
    QFont font = twentyPoints();
    font.setBold(true);
    QFont fitting = fittingFont(font, QStringLiteral("0x1a00"), 40, view);
    fitting.setPointSize(20);
    QCOMPARE(fitting, font);
}

static const testMain::Registration<tst_TableFont, QApplication> registration;
#include "tst_TableFont.moc"
