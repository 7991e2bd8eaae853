// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting while the host's events are handled.
#pragma once

#include "app/InterruptWatch.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace vistrel {

/// One wait: it ends when its time is over, when somebody calls finish(), or when the user
/// interrupts the program. GUI thread.
class EventWait : public QObject {
    Q_OBJECT

public:
    EventWait();

    /// Handles events for that many seconds. With 0, a negative or no number it handles those that
    /// are there and returns.
    void runFor(double seconds);
    /// Handles events until finish() is called.
    void runUntilFinished();
    /// Ends the wait that is under way.
    void finish() { m_loop.quit(); }

private:
    void run();
    void onTimer();

    // First, so that as little as possible lies between the interpreter's last look and this one.
    const InterruptWatch m_interrupts;
    QEventLoop m_loop;
    QTimer m_timer;
    QDeadlineTimer m_deadline;
};

} // namespace vistrel
