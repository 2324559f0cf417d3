// main.cpp - program entry of the workbench.
#include "workbench/mainwindow.h"
#include "workbench/terminateHandler.h"
#include "workbench/windowSetUp.h"

#include <QApplication>
#include <QScreen>

int qMain(int argc, char** argv)
{
    installTerminateHandler();
    const QApplication application(argc, argv);
    // Where the font family that the window asks for is missing, its Chinese texts still come from one even font.
    QFont::insertSubstitution(textFamily(), QStringLiteral("Noto Sans CJK SC"));
    MainWindow window;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const QFont font = applicationFont(QApplication::font(), screen.width());
    setUpMainWindow(window, screen);
    QApplication::setFont(font);
    window.show();
    return QApplication::exec();
}

int main(int argc, char** argv)
{
    return qMain(argc, argv);
}
