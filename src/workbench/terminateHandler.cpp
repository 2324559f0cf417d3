#include "workbench/terminateHandler.h"

#include "esi/terminationReason.h"
#include "workbench/messages.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

bool isAnyWindowVisible()
{
    if (QCoreApplication::instance() == nullptr)
        return false;
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget* window) { return window->isVisible(); });
}

[[noreturn]] void endWithReason()
{
    const QString reason = terminationReason();
    std::cerr << reason.toStdString() << std::endl;
    if (isAnyWindowVisible()) {
        while (QGuiApplication::overrideCursor() != nullptr)
            QGuiApplication::restoreOverrideCursor();
        reportFatal(QApplication::activeWindow(), fileTitle(), reason);
    }
    std::abort();
}

} // namespace

void installTerminateHandler()
{
    std::set_terminate(endWithReason);
}
