// editorWindow.h - what the three editor windows have in common.
#pragma once

#include <QString>

#include <cstdint>

class QKeyEvent;
class QModelIndex;
class QPushButton;
class QTableView;
class QWidget;

/// What an editor tells its parent when it closes. The parent only refreshes; the text carries nothing.
inline QString closingText()
{
    return QStringLiteral("Hello parent");
}

/// Makes an editor a frameless dialog that blocks the input of its parent as long as it is open, and puts it over the
/// parent, if it has one. Without a frame its two buttons, and Esc and Enter, are the ways out.
void setUpEditorWindow(QWidget& editor);

/// Keys as in any dialog: Esc cancels, and Enter presses the button that has the focus or, from a field, saves.
/// @return  false if it was another key
bool pressByKey(const QWidget& editor, const QKeyEvent& event, QPushButton& save, QPushButton& cancel);

/// Frees the form of an editor that has closed, once the running handlers are done: a closed editor stays a child of
/// its parent until that goes, and a long session must not fill memory with fields that nobody sees any more.
void releaseForm(QWidget& editor);

/// Low 8 bits of a position.
/// ODD, KEPT: an editor addresses files, devices and modules by one byte, so that with more than 256 of them it works
/// on another one, where one would expect the one that was selected. Pinned by tst_SmEditor::positionsHaveEightBits.
[[nodiscard]] constexpr std::int16_t lowByte(int position) noexcept
{
    constexpr unsigned byteMask = 0xFF;
    return static_cast<std::int16_t>(static_cast<unsigned>(position) & byteMask);
}

/// A table of the parent by its object name, at any depth; null if it has none.
[[nodiscard]] QTableView* tableOf(const QWidget& parent, const char* name);

/// Current row of a table of the parent, -1 if none is current.
[[nodiscard]] std::int16_t currentRowIn(const QWidget& parent, const char* tableName);
