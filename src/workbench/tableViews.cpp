#include "workbench/tableViews.h"

#include "workbench/tableFont.h"
#include "workbench/windowSetUp.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

static QFont usualFont()
{
    return {textFamily(), usualTablePoints};
}

/// Gives a table, whose columns have their widths already, its font and the height of its rows.
static void setUpText(QTableView& view, const TextToFit& toFit)
{
    QFont font = usualFont();
    if (toFit.column >= 0) {
        const int gridLine = view.showGrid() ? 1 : 0;
        font = fittingFont(font, toFit.text, view.columnWidth(toFit.column) - gridLine, view);
    }
    view.setFont(font);
    view.horizontalHeader()->setFont(font); // a view with a style sheet does not pass its font on
    view.setWordWrap(false); // rows are one line high
    const int rowHeight = rowHeightFor(view.fontMetrics().height());
    view.verticalHeader()->setMinimumSectionSize(rowHeight);
    view.verticalHeader()->setDefaultSectionSize(rowHeight);
}

void setUpTableView(QTableView& view, QStandardItemModel& model, const TableColumns& columns)
{
    constexpr int minHeight = 30;
    model.setHorizontalHeaderLabels(columns.headers);
    model.setColumnCount(columns.headers.size());
    view.setModel(&model);
    view.horizontalHeader()->setStretchLastSection(true);
    view.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft);
    view.horizontalHeader()->setFont(usualFont()); // sets the minimum width of a column
    view.setStyleSheet(QStringLiteral("QHeaderView::section { background:grey; color:black;min-height:2.5em;}"));
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setMinimumHeight(minHeight);
    if (columns.options.testFlag(StretchSections))
        view.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    if (columns.options.testFlag(CustomMenu))
        view.setContextMenuPolicy(Qt::CustomContextMenu);
    if (columns.options.testFlag(FitColumns))
        view.resizeColumnsToContents();
    if (columns.options.testFlag(FitRows))
        view.resizeRowsToContents();
    for (std::size_t column = 0; column < columns.widths.size(); ++column)
        view.setColumnWidth(static_cast<int>(column), columns.widths[column]);
    setUpText(view, columns.textToFit);
}

void removeAllRows(QStandardItemModel& model)
{
    model.removeRows(0, model.rowCount());
}

void appendRow(QStandardItemModel& model, const QStringList& cells, const QBrush& foreground)
{
    QList<QStandardItem*> items;
    items.reserve(cells.size());
    for (const QString& cell : cells) {
        items.append(cell.isNull() ? nullptr : new QStandardItem(cell));
        if (items.last() != nullptr && foreground.style() != Qt::NoBrush)
            items.last()->setForeground(foreground);
    }
    model.appendRow(items);
}

QBrush colourOfModules()
{
    constexpr QColor red(255, 0, 0, 255);
    return red;
}
