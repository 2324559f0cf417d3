// messages.h - boxes that tell something and want nothing but an Ok.
#pragma once

#include <QString>

class QWidget;

/// Title of boxes about files and devices.
inline QString fileTitle()
{
    return QStringLiteral("xml parser");
}

/// Title of boxes about the import of KTL files.
inline QString ktlTitle()
{
    return QStringLiteral("ktl parser");
}

/// Title of boxes about the selection.
inline QString selectionTitle()
{
    return QStringLiteral("warning");
}

/// Title of boxes about refused module actions.
inline QString refusalTitle()
{
    return QStringLiteral("操作警告");
}

// Each shows a box with one Ok button and waits for the answer. Texts are plain: a name from a file that looks like
// markup is shown as it is.

void warn(QWidget* parent, const QString& title, const QString& text);
void inform(QWidget* parent, const QString& title, const QString& text);
void showAbout(QWidget* parent, const QString& title, const QString& text); ///< the about box of the window system
void reportFatal(QWidget* parent, const QString& title, const QString& text); ///< for an error that ends the program
