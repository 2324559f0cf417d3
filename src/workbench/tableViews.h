// tableViews.h - how the tables of the main window are set up and filled.
#pragma once

#include <QBrush>
#include <QFlags>
#include <QStringList>

#include <vector>

class QStandardItemModel;
class QTableView;

/// What a table does besides showing its rows.
enum TableOption
{
    StretchSections = 1, ///< all sections share the width of the table
    FitColumns = 2, ///< columns first take the width of their contents; given widths win
    FitRows = 4, ///< rows take the height of their contents
    CustomMenu = 8, ///< a right click asks for a menu
};
Q_DECLARE_FLAGS(TableOptions, TableOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(TableOptions)

/// A text that a column of fixed width shows in full, whatever the font.
struct TextToFit
{
    int column = -1; ///< negative: there is no such text
    QString text;
};

/// Columns of a table and how they take their widths.
struct TableColumns
{
    QStringList headers;
    std::vector<int> widths; ///< pixels, for the first columns; the last column stretches
    TableOptions options;
    TextToFit textToFit = {}; ///< where it does not fit at the usual size, all text of the table is smaller
};

/// Gives a view its model, its columns and the look that all tables share: rows are selected as a whole and nothing is
/// edited in place.
void setUpTableView(QTableView& view, QStandardItemModel& model, const TableColumns& columns);

/// Removes all rows; columns and headers stay.
void removeAllRows(QStandardItemModel& model);

/// Appends a row of cells.
/// @param cells       a null text leaves its cell without an item, an empty one sets an empty item
/// @param foreground  colour of the whole row; a brush without a style leaves the usual one
void appendRow(QStandardItemModel& model, const QStringList& cells, const QBrush& foreground = {});

/// Appends a row for each record, in order.
/// @param rowOf  the cells of one record
template<typename Records, typename RowOf>
void appendRows(QStandardItemModel& model, const Records& records, RowOf rowOf, const QBrush& foreground = {})
{
    for (const auto& record : records)
        appendRow(model, rowOf(record), foreground);
}

/// Colour of what modules brought into a device.
[[nodiscard]] QBrush colourOfModules();
