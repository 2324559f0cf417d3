// How tables are set up and filled.
#include "testMain.h"
#include "workbench/tableViews.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

class tst_TableViews : public QObject
{
    Q_OBJECT

private slots:
    static void columns();
    static void options_data();
    static void options();
    static void rowsAreNotEditedAndSelectedAsAWhole();
    static void narrowColumnMakesAllTextSmaller();
    static void cells();
    static void colour();
    static void rowsGoAndColumnsStay();
};

void tst_TableViews::columns()
{
    QTableView view;
    QStandardItemModel model;
    setUpTableView(view, model, {{"Index", "Name", "Last"}, {60, 90}, {}});
    QCOMPARE(view.model(), &model);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Name"));
    QCOMPARE(view.columnWidth(0), 60);
    QCOMPARE(view.columnWidth(1), 90);
    QVERIFY(view.horizontalHeader()->stretchLastSection());
}

void tst_TableViews::options_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<bool>("stretches");
    QTest::addColumn<bool>("hasMenu");
    QTest::addRow("none") << 0 << false << false;
    QTest::addRow("stretched sections") << int(StretchSections) << true << false;
    QTest::addRow("menu") << int(CustomMenu) << false << true;
    QTest::addRow("all") << int(StretchSections | FitColumns | FitRows | CustomMenu) << true << true;
}

void tst_TableViews::options()
{
    QFETCH(int, options);
    QTableView view;
    QStandardItemModel model;
    setUpTableView(view, model, {{"A", "B"}, {60}, TableOptions(options)});
    QTEST(view.horizontalHeader()->sectionResizeMode(0) == QHeaderView::Stretch, "stretches");
    QTEST(view.contextMenuPolicy() == Qt::CustomContextMenu, "hasMenu");
}

void tst_TableViews::rowsAreNotEditedAndSelectedAsAWhole()
{
    QTableView view;
    QStandardItemModel model;
    setUpTableView(view, model, {{"A", "B"}, {60}, {}});
    QCOMPARE(view.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(view.selectionBehavior(), QAbstractItemView::SelectRows);
}

void tst_TableViews::narrowColumnMakesAllTextSmaller()
{
    QTableView wide;
    QTableView narrow;
    QStandardItemModel model;
    setUpTableView(wide, model, {{"A", "B"}, {500}, {}, {0, QStringLiteral("0x6040:10")}});
    setUpTableView(narrow, model, {{"A", "B"}, {30}, {}, {0, QStringLiteral("0x6040:10")}});
    QCOMPARE(wide.font().pointSize(), 9);
    QVERIFY(narrow.font().pointSize() < 9);
    QCOMPARE(narrow.horizontalHeader()->font().pointSize(), narrow.font().pointSize());
}

void tst_TableViews::cells()
{
    QStandardItemModel model;
    appendRow(model, {QStringLiteral("text"), QStringLiteral(""), QString()});
    appendRows(model, QVector<int>{7, 8}, [](int number) { return QStringList{QString::number(number)}; });
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.item(0, 0)->text(), QStringLiteral("text"));
    QVERIFY(model.item(0, 1) != nullptr);
    QCOMPARE(model.item(0, 1)->text(), QString());
    QVERIFY(model.item(0, 2) == nullptr);
    QCOMPARE(model.item(2, 0)->text(), QStringLiteral("8"));
}

void tst_TableViews::colour()
{
    QStandardItemModel model;
    appendRow(model, {QStringLiteral("usual")});
    appendRow(model, {QStringLiteral("red"), QString()}, colourOfModules());
    QCOMPARE(model.item(0)->foreground().style(), Qt::NoBrush);
    QCOMPARE(model.item(1)->foreground().color(), QColor(255, 0, 0, 255));
}

void tst_TableViews::rowsGoAndColumnsStay()
{
    QStandardItemModel model;
    model.setHorizontalHeaderLabels({QStringLiteral("A"), QStringLiteral("B")});
    appendRow(model, {QStringLiteral("1"), QStringLiteral("2")});
    removeAllRows(model);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("A"));
}

static const testMain::Registration<tst_TableViews, QApplication> registration;
#include "tst_TableViews.moc"
