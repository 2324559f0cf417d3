#include "workbench/tableFont.h"

#include <QAbstractItemView>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>

/// Pixels that a cell needs for a text. Cells lay out their text, and that may take more than the sum of its letters.
static qreal widthInCell(const QString& text, const QFont& font, const QAbstractItemView& view)
{
    QTextLayout layout(text, font, &view);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.naturalTextWidth();
}

QFont fittingFont(QFont font, const QString& text, int room, const QAbstractItemView& view)
{
    const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
    while (font.pointSize() > 1 && widthInCell(text, font, view) > room - 2 * margin)
        font.setPointSize(font.pointSize() - 1);
    return font;
}

int rowHeightFor(int textHeight) noexcept
{
    constexpr int minHeight = 26; // the usual four sync managers and three FMMUs fit the window at its minimum height
    // The extra share is for Chinese letters, which may come from another, taller font.
    constexpr int tenthsOfText = 13;
    constexpr int tenths = 10;
    return std::max(minHeight, (textHeight * tenthsOfText + tenths - 1) / tenths);
}
