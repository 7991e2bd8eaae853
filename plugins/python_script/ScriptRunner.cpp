// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One run of a script.
#include "CxPythonScriptPlugin.h"
#include "FuncApp/AppScripts.h"
#include "Interpreter.h"
#include "Logging.h"
#include "OutputCapture.h"

#include <QtCore/QScopedValueRollback>

#include <stdexcept>

namespace {

/// The interpreter cannot be started; what() is a text for the user.
class CannotStart : public std::runtime_error {
public:
    explicit CannotStart(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
};

/// sys.stderr goes to a text while this lives.
class CollectedErrors {
public:
    explicit CollectedErrors(std::string& errors)
    {
        emb::set_stderr([target = &errors](const std::string& text) { *target += text; });
    }
    CollectedErrors(const CollectedErrors&) = delete;
    CollectedErrors& operator=(const CollectedErrors&) = delete;
    ~CollectedErrors() { emb::reset_stderr(); }
};

/// sys.stdout goes to the host's callback while this lives; without a callback it is left alone.
class ForwardedOutput {
public:
    explicit ForwardedOutput(CxScriptLangInterface::OutputCallback callback)
        : m_isActive(callback != nullptr)
    {
        if (m_isActive) {
            emb::set_stdout([callback](const std::string& text) {
                callback(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())),
                         false);
            });
        }
    }
    ForwardedOutput(const ForwardedOutput&) = delete;
    ForwardedOutput& operator=(const ForwardedOutput&) = delete;
    ~ForwardedOutput()
    {
        if (m_isActive)
            emb::reset_stdout();
    }

private:
    bool m_isActive;
};

/// Removes the names that a run has added to `__main__`, also when the run fails.
class NewNames {
public:
    NewNames(CxPythonScriptPlugin& plugin, const std::list<std::string>& before)
        : m_plugin(plugin)
        , m_before(before)
    {
    }
    NewNames(const NewNames&) = delete;
    NewNames& operator=(const NewNames&) = delete;
    ~NewNames()
    {
        try {
            m_plugin.deleteNewLocalVariables(m_before);
        } catch (...) { // without memory for their list they stay until the next run
        }
    }

private:
    CxPythonScriptPlugin& m_plugin;
    const std::list<std::string>& m_before;
};

/// Drops a Ctrl-C that came while no script ran: it must not end the script that comes next.
void dropStaleInterrupt()
{
    if (PyErr_CheckSignals() != 0)
        PyErr_Clear();
}

QString decoded(const std::string& utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

QString CxPythonScriptPlugin::runScript(const QString& script, IxScriptEnvironment* env,
                                        const QString& pythonHome, StartHook startHook,
                                        void* userData, OutputCallback outputCallback)
{
    // Waiting for the lock would wait for this very call.
    static thread_local bool isRunning = false;
    if (isRunning)
        return QStringLiteral("a script cannot be started from within the run of another one");
    const QScopedValueRollback<bool> running(isRunning, true);
    g_pScriptPlugin = env;
    QString result;
    std::string errors;
    const QMutexLocker lock(&m_lock);
    try {
        runLocked(script.toUtf8(), pythonHome, startHook, userData, outputCallback, errors);
        result = decoded(errors);
    } catch (const CannotStart& reason) {
        result = QString::fromUtf8(reason.what());
        logCritical(failurePattern, result);
    } catch (...) {
        result = QStringLiteral("Python rasied exception");
        logCritical(failurePattern, result);
        // What the script had to say until then is not lost.
        if (!errors.empty())
            logCritical(failurePattern, decoded(errors));
    }
    return result;
}

void CxPythonScriptPlugin::ensureStarted(const QString& pythonHome)
{
    // Another plugin object may have stopped the interpreter that this one shared.
    if (m_initialised && interpreter::isRunning())
        return;
    const QString reason = interpreter::reasonNotToStart(pythonHome);
    if (!reason.isEmpty())
        throw CannotStart(reason);
    interpreter::start(pythonHome, *g_pScriptPlugin, this);
    m_initialised = true;
}

void CxPythonScriptPlugin::runLocked(const QByteArray& script, const QString& pythonHome,
                                     StartHook startHook, void* userData,
                                     OutputCallback outputCallback, std::string& errors)
{
    ensureStarted(pythonHome);
    const std::list<std::string> before = listLocalVariables();
    if (startHook != nullptr)
        startHook(nullptr, userData);
    const CollectedErrors collected(errors);
    {
        const NewNames newNames(*this, before);
        const ForwardedOutput forwarded(outputCallback);
        dropStaleInterrupt();
        fx_pyapp_RunPythonString(script.constData());
    }
    emb::rethrowSinkFailure();
}
