#pragma once

#include <QApplication>

/// Shows the waiting cursor everywhere while it lives.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};
