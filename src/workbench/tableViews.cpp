#include "workbench/tableViews.h"

#include "workbench/startup.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

void setUpTableView(QTableView& view, QStandardItemModel& model, const TableColumns& columns)
{
    constexpr int leastHeight = 30;
    constexpr int rowHeight = 26; // the usual four sync managers and three FMMUs fit the least height of the window
    model.setHorizontalHeaderLabels(columns.headers);
    model.setColumnCount(columns.headers.size());
    view.setModel(&model);
    view.verticalHeader()->setMinimumSectionSize(rowHeight);
    view.verticalHeader()->setDefaultSectionSize(rowHeight);
    view.horizontalHeader()->setStretchLastSection(true);
    view.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft);
    // The fonts come before the style sheet: with that in place a view no longer hands a font on to its cells.
    const QFont tableFont(textFamily(), columns.pointSize);
    view.setFont(tableFont);
    view.horizontalHeader()->setFont(tableFont);
    view.setStyleSheet(QStringLiteral("QHeaderView::section { background:grey; color:black;min-height:2.5em;}"));
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setMinimumHeight(leastHeight);
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
