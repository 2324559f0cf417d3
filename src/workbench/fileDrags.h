// fileDrags.h - files are dropped anywhere on the window.
#pragma once

class QWidget;

/// Keeps drags of files from the parts of a window that would take them, so that the window itself gets them: a text
/// field would show the path instead. Parts that are made later are not reached. Dragged text still goes to the fields.
void passFileDragsToWindow(QWidget& window);
