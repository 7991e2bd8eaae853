// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Who gets Ctrl-C: the script while one runs, the program otherwise.
#pragma once

#include <QtCore/QtGlobal>

#include <csignal>
#include <optional>

namespace vistrel {

/// Keeps the interpreter's SIGINT handler while no script runs. The interpreter installs it when it
/// starts, which is during a run, and leaves it there; an interrupt after the run would then end
/// nothing but the next script.
class InterruptHandover {
public:
    /// Between construction and destruction of a Run, SIGINT belongs to the interpreter.
    class Run {
    public:
        explicit Run(InterruptHandover& handover);
        ~Run();
        Q_DISABLE_COPY_MOVE(Run)

    private:
        InterruptHandover& m_handover;
    };

    /// What SIGINT does between runs, after the first one: SIG_DFL, or SIG_IGN where an interrupt
    /// may be meant for a script that has just ended.
    void setBetweenRuns(void (*action)(int)) { m_betweenRuns = action; }

private:
    std::optional<struct sigaction> m_handler;
    void (*m_betweenRuns)(int) = SIG_DFL;
};

} // namespace vistrel
