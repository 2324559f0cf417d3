// messages.h - the one front for message boxes.
#pragma once

#include <QString>

class QWidget;

/// Title of boxes on files and devices.
inline const QString& fileMatters()
{
    static const QString title = QStringLiteral("xml parser");
    return title;
}

/// Title of boxes on the selection.
inline const QString& selectionMatters()
{
    static const QString title = QStringLiteral("warning");
    return title;
}

/// Shows a warning with one Ok button and waits for the answer.
void warn(QWidget* parent, const QString& title, const QString& text);

/// Shows an information with one Ok button and waits for the answer.
void inform(QWidget* parent, const QString& title, const QString& text);
