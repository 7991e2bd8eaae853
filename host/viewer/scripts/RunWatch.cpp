// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// States of a run, and the texts for them.
#include "viewer/scripts/RunWatch.h"

#include "app/ScriptRuns.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>

namespace vistrel {

namespace {

constexpr int clockMs = 200;
constexpr int eventsEveryMs = 25;
constexpr int eventsForMs = 20;

/// A script that was interrupted and lets the exception through says so in its last line.
bool endsByInterrupt(const QString& errors)
{
    return errors.trimmed().section(u'\n', -1).startsWith(QLatin1String("KeyboardInterrupt"));
}

RunWatch::Ending endingOf(RunWatch::State state, const QString& errors)
{
    if (errors.isEmpty())
        return RunWatch::Ending::Finished;
    const bool stopped = state == RunWatch::State::StopRequested && endsByInterrupt(errors);
    return stopped ? RunWatch::Ending::Stopped : RunWatch::Ending::Failed;
}

} // namespace

RunWatch::RunWatch(ScriptRuns& runs, const QString& companion)
    : m_runs(runs)
    , m_companion(companion)
{
    m_clock.setInterval(clockMs);
    m_sinceEvents.start();
    connect(&m_clock, &QTimer::timeout, this, &RunWatch::showProgress);
    connect(&m_runs, &ScriptRuns::started, this, &RunWatch::begin);
    connect(&m_runs, &ScriptRuns::ended, this, &RunWatch::end);
    connect(&m_runs, &ScriptRuns::refused, this, &RunWatch::setStatus);
    connect(&m_companion, &StopCompanion::stopRequested, this, &RunWatch::noteRequest);
}

void RunWatch::begin(const QString& name)
{
    m_name = QFileInfo(name).fileName();
    m_state = State::Running;
    m_sinceStart.start();
    m_companion.begin(m_name);
    m_clock.start();
    showProgress();
}

void RunWatch::stop()
{
    if (m_state == State::Idle)
        return;
    m_companion.noteRequest();
    noteRequest();
    m_runs.interrupt();
}

void RunWatch::noteRequest()
{
    // What the companion says may arrive after the end of the run.
    if (m_state == State::Idle)
        return;
    m_state = State::StopRequested;
    showProgress();
}

void RunWatch::end(const QString& name, const QString& errors)
{
    const Ending ending = endingOf(m_state, errors);
    m_state = State::Idle;
    m_clock.stop();
    m_companion.end();
    switch (ending) {
    case Ending::Finished:
        setStatus(tr("%1 finished in %2").arg(m_name, elapsed()));
        break;
    case Ending::Stopped:
        setStatus(tr("%1 stopped after %2").arg(m_name, elapsed()));
        break;
    case Ending::Failed:
        setStatus(tr("%1 failed after %2").arg(m_name, elapsed()));
        break;
    }
    Q_EMIT ended(ending, name, errors);
}

void RunWatch::showProgress()
{
    setStatus(m_state == State::StopRequested
                  ? tr("Stop requested; %1 has not ended yet (%2)").arg(m_name, elapsed())
                  : tr("%1 is running (%2)").arg(m_name, elapsed()));
}

void RunWatch::setStatus(const QString& text)
{
    m_statusText = text;
    Q_EMIT changed();
}

QString RunWatch::elapsed() const
{
    return tr("%1 s").arg(static_cast<double>(m_sinceStart.elapsed()) / 1000.0, 0, 'f', 1);
}

void RunWatch::giveWayToEvents()
{
    if (QThread::currentThread() != thread() || m_sinceEvents.elapsed() < eventsEveryMs)
        return;
    QCoreApplication::processEvents(QEventLoop::AllEvents, eventsForMs);
    m_sinceEvents.restart();
}

} // namespace vistrel
