// tableFont.h - the text of tables and trees: how large it is where a column is narrow, and how high its rows are.
#pragma once

#include <QFont>
#include <QString>

class QAbstractItemView;

/// Point size of the cells and headers of tables, for which the widths of their columns are made.
constexpr int usualTablePoints = 9;

/// The largest font, up to the given one, in which a cell shows a text in full. Widths are in pixels: a wider font,
/// or a screen with more dots per inch, would cut the text off.
/// @param room  pixels that a cell of the view has for its text and the margins beside it
[[nodiscard]] QFont fittingFont(QFont font, const QString& text, int room, const QAbstractItemView& view);

/// Height of the row of a table in pixels.
/// @param textHeight  of the font, in pixels
/// @return            1.3 times that, rounded up, and at least 26
[[nodiscard]] int rowHeightFor(int textHeight) noexcept;
