// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An event loop with a deadline and an eye on interrupts.
#include "app/EventWait.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSocketNotifier>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vistrel {

namespace {

using std::chrono::milliseconds;

/// A timer takes no more than 2^31 ms: longer waits go in steps.
constexpr milliseconds longestStep = std::chrono::hours(24);
/// From here on (30 years) the time is taken for endless; the clock's range ends at 292 years.
constexpr double endlessSeconds = 1e9;

QDeadlineTimer deadlineAfter(double seconds)
{
    if (seconds >= endlessSeconds)
        return QDeadlineTimer(QDeadlineTimer::Forever, Qt::PreciseTimer);
    const auto nanoseconds = std::chrono::nanoseconds(std::llround(seconds * 1e9));
    return QDeadlineTimer(nanoseconds, Qt::PreciseTimer);
}

milliseconds nextStep(const QDeadlineTimer& deadline)
{
    if (deadline.isForever())
        return longestStep;
    const auto remaining = std::chrono::ceil<milliseconds>(deadline.remainingTimeAsDuration());
    return std::min(remaining, longestStep);
}

} // namespace

EventWait::EventWait()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &EventWait::onTimer);
}

void EventWait::runFor(double seconds)
{
    if (!(seconds > 0.0)) { // this way round, for what is not a number
        QCoreApplication::processEvents();
        return;
    }
    m_deadline = deadlineAfter(seconds);
    run();
}

void EventWait::runUntilFinished()
{
    m_deadline = QDeadlineTimer(QDeadlineTimer::Forever);
    run();
}

void EventWait::run()
{
    QSocketNotifier notifier(QSocketNotifier::Read);
    if (m_interrupts.descriptor() >= 0) {
        notifier.setSocket(m_interrupts.descriptor());
        notifier.setEnabled(true);
        connect(&notifier, &QSocketNotifier::activated, &m_loop, &QEventLoop::quit);
    }
    m_timer.start(nextStep(m_deadline));
    m_loop.exec();
    m_timer.stop();
}

void EventWait::onTimer()
{
    if (m_deadline.hasExpired())
        finish();
    else
        m_timer.start(nextStep(m_deadline));
}

} // namespace vistrel
