// windowSetUp.h - how the window comes up: title, size and font.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QWidget;

/// Font family of the workbench, asked for by name; where it is missing the system finds another.
inline QString textFamily()
{
    return QStringLiteral("Microsoft YaHei");
}

/// Font of the application on a screen of the given width.
/// @param base         font whose other properties are kept
/// @param screenWidth  pixels; above 4089 the text is 14 point, otherwise 12
[[nodiscard]] QFont applicationFont(QFont base, int screenWidth);

/// Gives the main window its flags, title, minimum size (1400 x 800) and a size by the screen: 0.55 of its width and
/// 0.6 of its height, but not less than the minimum.
void setUpMainWindow(QWidget& window, const QRect& screen);
