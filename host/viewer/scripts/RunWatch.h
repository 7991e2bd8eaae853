// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a person is told of the script that runs, and how it is stopped.
#pragma once

#include "viewer/scripts/StopCompanion.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace vistrel {

class ScriptRuns;

/// Follows the runs and says what is so: a stop counts as requested, and nothing more, until the
/// script has ended. GUI thread.
class RunWatch : public QObject {
    Q_OBJECT

public:
    enum class State { Idle, Running, StopRequested };
    enum class Ending { Finished, Stopped, Failed };

    /// The runs must outlive the watch.
    explicit RunWatch(ScriptRuns& runs, const QString& companion = StopCompanion::programFile());

    State state() const { return m_state; }
    /// One line for the status bar; changes with the time while a script runs.
    const QString& statusText() const { return m_statusText; }

    /// Interrupts the script that runs, if any; may be repeated.
    void stop();
    /// Handles events that wait, at most some forty times a second however often it is called.
    /// Does nothing on other threads than its own.
    void giveWayToEvents();

Q_SIGNALS:
    /// State or text have changed.
    void changed();
    /// @param errors  what the script wrote to standard error.
    void ended(vistrel::RunWatch::Ending ending, const QString& name, const QString& errors);

private:
    void begin(const QString& name);
    void end(const QString& name, const QString& errors);
    void noteRequest();
    void showProgress();
    void setStatus(const QString& text);
    QString elapsed() const;

    ScriptRuns& m_runs;
    StopCompanion m_companion;
    State m_state = State::Idle;
    QString m_name;
    QString m_statusText;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceEvents;
    QTimer m_clock;
};

} // namespace vistrel
