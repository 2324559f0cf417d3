// fileDrags.h - files are dropped on the window, wherever in it.
#pragma once

class QWidget;

/// Lets drags of files pass by the parts of a window that would take them, so that the window itself gets them: a text
/// field would show the path instead. Parts that are made later are not reached. Dragged text still goes to the fields.
void passFileDragsToWindow(QWidget& window);
