// pdoEditor.h - the editor of PDO entries as a test uses it.
#pragma once

#include "workbench/editorParts.h"
#include "workbench/pdoeditwin.h"
#include "workbench/viewParts.h"

#include <QComboBox>

/// The editor that is open, null if none is.
inline PdoEditWin* openEditor(const QWidget& window)
{
    return openEditorIn<PdoEditWin>(window);
}

inline QComboBox& linkList(const PdoEditWin& editor)
{
    return *part<QComboBox>(editor, "LinkTo");
}

/// The words of the offered links, in order.
inline QStringList offeredLinks(const PdoEditWin& editor)
{
    QStringList words;
    for (int index = 0; index < linkList(editor).count(); ++index)
        words.append(linkList(editor).itemText(index));
    return words;
}

/// Makes the offered link with these words current.
inline void chooseLink(const PdoEditWin& editor, const QString& words)
{
    linkList(editor).setCurrentIndex(linkList(editor).findText(words));
}
