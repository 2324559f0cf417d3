// elision.h - whether a cell shows its text in full.
#pragma once

#include <QAbstractItemView>
#include <QImage>

/// Whether a cell is drawn with dots in place of the end of its text. The view has to be on the screen.
inline bool isElided(QAbstractItemView& view, const QModelIndex& index)
{
    const auto drawn = [&](Qt::TextElideMode mode) {
        view.setTextElideMode(mode);
        return view.viewport()->grab(view.visualRect(index)).toImage();
    };
    const QImage inFull = drawn(Qt::ElideNone);
    return drawn(Qt::ElideRight) != inFull;
}
