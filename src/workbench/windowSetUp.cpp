#include "workbench/windowSetUp.h"

#include <QWidget>

namespace {

/// Point size by the last pixel column of the screen.
int pointSizeFor(int lastColumn)
{
    constexpr int lastColumnOfSmallScreens = 1898;
    constexpr int lastColumnOfMiddleScreens = 4088;
    constexpr int smallScreen = 12;
    constexpr int middleScreen = 12; // a band of its own, so that its size can differ from that of small screens
    constexpr int largeScreen = 14;
    if (lastColumn <= lastColumnOfSmallScreens)
        return smallScreen;
    return lastColumn <= lastColumnOfMiddleScreens ? middleScreen : largeScreen;
}

} // namespace

QFont applicationFont(QFont base, int screenWidth)
{
    base.setFamily(textFamily());
    base.setPointSize(pointSizeFor(screenWidth - 1));
    return base;
}

void setUpMainWindow(QWidget& window, const QRect& screen)
{
    constexpr int minWidth = 1400;
    constexpr int minHeight = 800;
    constexpr double shareOfWidth = 0.55;
    constexpr double shareOfHeight = 0.6;
    window.setStyleSheet(QString());
    window.setWindowFlags(Qt::Window);
    window.setWindowTitle(QStringLiteral("Kinetra Xml Parser"));
    window.setMinimumSize(minWidth, minHeight);
    window.resize(static_cast<int>(screen.width() * shareOfWidth), static_cast<int>(screen.height() * shareOfHeight));
}
