// rowChoices.h - what is edited is always what is shown: keys and other buttons choose a row as a click does.
#pragma once

class QAbstractItemView;

/// Lets each key that moves the current row of a view, or toggles its check box, do what a click on that row does. A
/// row that the program makes current still has no effect. No other event filter of the view gets its keys after this.
void makeKeysClick(QAbstractItemView& view);

/// Lets a drag of the left button from one row to another do what a click on the last row does.
void makeDragsClick(QAbstractItemView& view);

/// Lets a press of another button than the left one do what a click on its row does, since it makes the row current.
void makeOtherButtonsClick(QAbstractItemView& view);
