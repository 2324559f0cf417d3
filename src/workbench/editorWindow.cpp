#include "workbench/editorWindow.h"

#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QTableView>
#include <QWidget>

void setUpEditorWindow(QWidget& editor)
{
    constexpr QPoint placeInParent(500, 150);
    constexpr QColor textOfReports(85, 85, 85);
    editor.setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    editor.setWindowModality(Qt::WindowModal);
    // Disabled fields are there to be read, so their text is as dark as in the main window.
    QPalette palette = editor.palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, textOfReports);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, textOfReports);
    editor.setPalette(palette);
    if (const QWidget* parent = editor.parentWidget())
        editor.move(parent->mapToGlobal(QPoint(0, 0)) + placeInParent);
}

bool pressByKey(const QWidget& editor, const QKeyEvent& event, QPushButton& save, QPushButton& cancel)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        cancel.click();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        (editor.focusWidget() == &cancel ? cancel : save).click();
        return true;
    default:
        return false;
    }
}

void releaseForm(QWidget& editor)
{
    const QList<QWidget*> parts = editor.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* part : parts)
        part->deleteLater();
}

QTableView* tableOf(const QWidget& parent, const char* name)
{
    return parent.findChild<QTableView*>(QLatin1String(name));
}

std::int16_t currentRowIn(const QWidget& parent, const char* tableName)
{
    const QTableView* const table = tableOf(parent, tableName);
    const bool hasRow = table != nullptr && table->currentIndex().isValid();
    return static_cast<std::int16_t>(hasRow ? table->currentIndex().row() : -1);
}
