// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One run after the other.
#include "app/ScriptRuns.h"

#include "app/ScriptEngine.h"
#include "app/ScriptEnvironment.h"
#include "app/ScriptFile.h"
#include "core/Log.h"

#include <QtCore/QScopedValueRollback>

#include <csignal>

namespace vistrel {

namespace {

/// Of the run that is on: the plugin's callback takes no object along.
const ScriptRuns::Output* currentOutput = nullptr;

void forwardOutput(const QString& text, bool)
{
    if (currentOutput && *currentOutput)
        (*currentOutput)(text);
}

bool endsTheProgram(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    return (current.sa_flags & SA_SIGINFO) == 0 && current.sa_handler == SIG_DFL;
}

} // namespace

ScriptRuns::ScriptRuns(ScriptEngine& engine, ScriptEnvironment& environment)
    : m_engine(engine)
    , m_environment(environment)
{
    m_environment.setMenuHandler([this](const QString& path) { runFile(path); });
}

ScriptRuns::~ScriptRuns() { m_environment.setMenuHandler(nullptr); }

bool ScriptRuns::run(const QString& text, const QString& name)
{
    if (m_running)
        return refuse(name, tr("another script is running"));
    Q_EMIT started(name);
    const QString errors = runNow(text);
    Q_EMIT ended(name, errors);
    return errors.isEmpty();
}

QString ScriptRuns::runNow(const QString& text)
{
    const QScopedValueRollback<bool> running(m_running, true);
    const QScopedValueRollback<const Output*> output(currentOutput, &m_output);
    return m_engine.run(text, m_environment, m_pythonHome, forwardOutput);
}

bool ScriptRuns::runFile(const QString& path)
{
    QString error;
    const std::optional<QString> text = readScriptFile(path, error);
    return text ? run(*text, path) : refuse(path, error);
}

void ScriptRuns::interrupt() const
{
    // As Ctrl-C does: the interpreter's own handler, which is there only during a run.
    if (!m_running)
        return;
    if (endsTheProgram(SIGINT))
        logError(tr("The script that runs cannot be interrupted: it has given the signal its "
                    "default action, which would end the program"));
    else
        std::raise(SIGINT);
}

bool ScriptRuns::refuse(const QString& name, const QString& reason)
{
    const QString line = tr("The script %1 was not run: %2").arg(name, reason);
    logError(line);
    Q_EMIT refused(line);
    return false;
}

} // namespace vistrel
