// pdoEditor.h - the editor of PDO entries as a test uses it.
#pragma once

#include "workbench/pdoeditwin.h"
#include "workbench/viewParts.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

/// The editor that is open, null if none is. Editors that have closed stay children of the window.
inline PdoEditWin* openEditor(const QWidget& window)
{
    PdoEditWin* open = nullptr;
    for (PdoEditWin* editor : window.findChildren<PdoEditWin*>())
        if (editor->isVisible())
            open = editor;
    return open;
}

/// Chooses an entry of a context menu of a row; no box may come up.
/// @return  the problem that came, empty if none
inline QString chooseInMenu(QTableView& view, int row, const QString& entry)
{
    DialogDriver driver({choosingEntry(entry)});
    driver.during([&] { rightClickRow(view, row); });
    return driver.problem();
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

inline void pressSave(const PdoEditWin& editor)
{
    QTest::mouseClick(part<QPushButton>(editor, "PdoSavebutton"), Qt::LeftButton);
}

inline void pressCancel(const PdoEditWin& editor)
{
    QTest::mouseClick(part<QPushButton>(editor, "CancelButton"), Qt::LeftButton);
}

/// Text of a field of the form.
inline QString field(const PdoEditWin& editor, const char* name)
{
    return part<QLineEdit>(editor, name)->text();
}
