#include "workbench/rowChoices.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPersistentModelIndex>
#include <QVariant>

namespace {

/// The current row of a view, by its first cell, and the state of its check box, if it has one.
struct CurrentRow
{
    explicit CurrentRow(const QAbstractItemView& view)
        : firstCell(view.currentIndex().siblingAtColumn(0))
        , checkState(firstCell.data(Qt::CheckStateRole))
    {}

    [[nodiscard]] bool isLike(const CurrentRow& other) const
    {
        return firstCell == other.firstCell && checkState == other.checkState;
    }

    QPersistentModelIndex firstCell;
    QVariant checkState;
};

/// Watches the keys of a view, and belongs to it.
class KeysAsClicks : public QObject
{
public:
    explicit KeysAsClicks(QAbstractItemView& view)
        : QObject(&view)
        , m_view(view)
    {
        view.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const CurrentRow before(m_view);
        watched->event(event);
        if (const QModelIndex current = m_view.currentIndex(); current.isValid() && !before.isLike(CurrentRow(m_view)))
            emit m_view.clicked(current);
        return true; // the view has had the key
    }

private:
    QAbstractItemView& m_view;
};

/// Watches the left button over a view, and belongs to it. A drag that ends on another row than it began on makes that
/// row current, while the view takes it for no click.
class DragsAsClicks : public QObject
{
public:
    explicit DragsAsClicks(QAbstractItemView& view)
        : QObject(&view)
        , m_view(view)
    {
        view.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            m_pressed = m_view.indexAt(static_cast<QMouseEvent*>(event)->pos()).siblingAtColumn(0);
        else if (event->type() == QEvent::MouseButtonRelease && m_pressed.isValid()
                 && m_view.currentIndex().siblingAtColumn(0) != m_pressed)
            QMetaObject::invokeMethod(
                &m_view, [this] { clickCurrent(); }, Qt::QueuedConnection); // after the release
        return QObject::eventFilter(watched, event);
    }

private:
    void clickCurrent()
    {
        if (const QModelIndex current = m_view.currentIndex(); current.isValid())
            emit m_view.clicked(current);
    }

    QAbstractItemView& m_view;
    QPersistentModelIndex m_pressed; ///< first cell of the row on which the last press was
};

} // namespace

void makeDragsClick(QAbstractItemView& view)
{
    new DragsAsClicks(view);
}

void makeKeysClick(QAbstractItemView& view)
{
    new KeysAsClicks(view);
}

void makeOtherButtonsClick(QAbstractItemView& view)
{
    QObject::connect(&view, &QAbstractItemView::pressed, &view, [&view](const QModelIndex& index) {
        if (QGuiApplication::mouseButtons() != Qt::LeftButton)
            emit view.clicked(index);
    });
}
