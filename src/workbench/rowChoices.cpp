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
        const bool isPress = event->type() == QEvent::MouseButtonPress;
        if (!isPress && event->type() != QEvent::MouseButtonRelease)
            return QObject::eventFilter(watched, event);
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && isPress) {
            m_before = currentRow();
            m_pressed = m_view.indexAt(mouse->pos());
        } else if (mouse->button() == Qt::LeftButton && !isClick(mouse->pos()) && currentRow() != m_before) {
            QMetaObject::invokeMethod(
                &m_view, [this] { clickCurrent(); }, Qt::QueuedConnection); // after the release
        }
        return QObject::eventFilter(watched, event);
    }

private:
    [[nodiscard]] QModelIndex currentRow() const { return m_view.currentIndex().siblingAtColumn(0); }

    /// Whether the view takes a release for a click: it does where the press was, but not on the arrow of an item that
    /// has others below it.
    [[nodiscard]] bool isClick(const QPoint& place) const
    {
        const QModelIndex released = m_view.indexAt(place);
        const bool isArrow = released.model() != nullptr && released.model()->hasChildren(released)
                             && !m_view.visualRect(released).contains(place);
        return released.isValid() && released == m_pressed && !isArrow;
    }

    void clickCurrent()
    {
        if (const QModelIndex current = m_view.currentIndex(); current.isValid())
            emit m_view.clicked(current);
    }

    QAbstractItemView& m_view;
    QPersistentModelIndex m_before; ///< first cell of the row that was current before the last press
    QPersistentModelIndex m_pressed; ///< cell of the last press; not valid beside the rows
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
