// messages.h - boxes that tell something and want nothing but an Ok.
#pragma once

#include <QString>

class QWidget;

/// Title of boxes on files and devices.
inline QString fileMatters()
{
    return QStringLiteral("xml parser");
}

/// Title of boxes on the import of KTL files.
inline QString ktlMatters()
{
    return QStringLiteral("ktl parser");
}

/// Title of boxes on the selection.
inline QString selectionMatters()
{
    return QStringLiteral("warning");
}

/// Title of boxes on refused module actions.
inline QString refusedActions()
{
    return QStringLiteral("操作警告");
}

// Each shows a box with one Ok button and waits for the answer. Texts are plain: a name from a file that looks like
// markup is shown as it stands.

void warn(QWidget* parent, const QString& title, const QString& text);
void inform(QWidget* parent, const QString& title, const QString& text);
void tellAbout(QWidget* parent, const QString& title, const QString& text); ///< the about box of the window system
void tellOfEnd(QWidget* parent, const QString& title, const QString& text); ///< for an error that ends the program
