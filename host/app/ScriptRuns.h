// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The runs of a program's scripts: one at a time, watched by whoever wants to.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

namespace vistrel {

class ScriptEngine;
class ScriptEnvironment;

/// Runs texts, files and what is chosen in the script menu. A run that is asked for while another
/// one is on (events are handled while a script waits) is refused with a line in the log.
/// GUI thread, one at a time.
class ScriptRuns : public QObject {
    Q_OBJECT

public:
    /// Receives what a script prints, piece by piece, on the thread that prints. It may throw: that
    /// ends the script, and its run has failed.
    using Output = std::function<void(const QString& text)>;

    /// Engine, with its plugin loaded before the first run, and environment must outlive this.
    ScriptRuns(ScriptEngine& engine, ScriptEnvironment& environment);
    /// Entries of the script menu find nobody to run them from now on.
    ~ScriptRuns() override;

    /// For the run that starts the interpreter; see CxScriptLangInterface::runScript.
    void setPythonHome(const QString& folder) { m_pythonHome = folder; }
    void setOutput(Output output) { m_output = std::move(output); }

    bool isRunning() const { return m_running; }

    /// Runs a text to its end; whether it wrote nothing to standard error. False also when it was
    /// refused.
    /// @param name  of the script, for those who watch.
    bool run(const QString& text, const QString& name = {});
    /// Runs a file; false also when it cannot be read, which leaves a line in the log.
    bool runFile(const QString& path);
    /// Raises KeyboardInterrupt in the script that runs, if any; a wait of the host ends by it. A
    /// script that gives SIGINT its default action runs on, with a line in the log.
    void interrupt() const;

Q_SIGNALS:
    void started(const QString& name);
    /// @param errors  what the script wrote to standard error.
    void ended(const QString& name, const QString& errors);
    /// A script was not run at all; the log holds the same text.
    void refused(const QString& reason);

private:
    QString runNow(const QString& text);
    bool refuse(const QString& name, const QString& reason);

    ScriptEngine& m_engine;
    ScriptEnvironment& m_environment;
    QString m_pythonHome;
    Output m_output;
    bool m_running = false;
};

} // namespace vistrel
