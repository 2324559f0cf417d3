// tableViews.h - how the tables of the main window are set up and filled.
#pragma once

#include <QStringList>

#include <vector>

class QStandardItemModel;
class QTableView;

/// Columns of a table and how they take their widths.
struct TableColumns
{
    QStringList headers;
    std::vector<int> widths; ///< pixels, for the first columns; the last column stretches
    bool stretchSections = false; ///< all sections share the width of the table
    bool fitColumns = false; ///< columns first take the width of their contents; given widths win
    bool fitRows = false; ///< rows take the height of their contents
    bool customMenu = false; ///< a right click asks for a menu
};

/// Gives a view its model, its columns and the look that all tables share: rows are selected as a whole and nothing is
/// edited in place.
void setUpTableView(QTableView& view, QStandardItemModel& model, const TableColumns& columns);

/// Removes all rows; columns and headers stay.
void removeAllRows(QStandardItemModel& model);
