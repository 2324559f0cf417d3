// waitCursor.h - the waiting cursor while files are read or written.
#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the waiting cursor as long as it lives. Message boxes are shown outside of its life.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    WaitCursor(WaitCursor&&) = delete;
    WaitCursor& operator=(WaitCursor&&) = delete;
};
