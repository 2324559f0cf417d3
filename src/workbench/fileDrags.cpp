#include "workbench/fileDrags.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

namespace {

/// Refuses drags of files for the widgets that it watches; the toolkit then offers them to the parent.
class FileDragFilter : public QObject
{
public:
    explicit FileDragFilter(QWidget& window)
        : QObject(&window)
    {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Where a drag has not entered, it neither moves nor drops.
        if (event->type() != QEvent::DragEnter || !static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls())
            return QObject::eventFilter(watched, event);
        event->ignore();
        return true;
    }
};

} // namespace

void passFileDragsToWindow(QWidget& window)
{
    auto* const filter = new FileDragFilter(window);
    for (QWidget* part : window.findChildren<QWidget*>())
        if (part->acceptDrops())
            part->installEventFilter(filter);
}
