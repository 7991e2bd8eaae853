// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The object that the host loads: a provider of Python as its script language.
#pragma once

#include "PythonApi.h"

#include <CxScriptLangInterface.h>

#include <QtCore/QMutex>
#include <QtCore/QObject>

#include <list>
#include <string>

/// The host's environment of the current run, or of the last one; null before the first. Written at
/// the start of every run and never cleared. It is read at call time by every script function.
extern IxScriptEnvironment* g_pScriptPlugin;

/// Embeds one interpreter, which starts with the first run and ends with this object. All runs must
/// come from one thread: the interpreter lock stays with it.
class CxPythonScriptPlugin : public QObject, public CxScriptLangInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kovra.Vistrel.CxPythonScriptPlugin")
    Q_INTERFACES(CxScriptLangInterface)

public:
    CxPythonScriptPlugin() = default;
    ~CxPythonScriptPlugin() override;

    bool init() override;
    QString languageVersion() override;
    QString runScript(const QString& script, IxScriptEnvironment* env, const QString& pythonHome,
                      StartHook startHook, void* userData, OutputCallback outputCallback) override;
    void addImageVariable(const QString& name, CxImageData* image) override;

    /// Names in `__main__`, as UTF-8, in the order in which they were bound. Keys that are no texts
    /// are left out.
    std::list<std::string> listLocalVariables();
    /// Removes every name from `__main__` that is not in the list.
    void deleteNewLocalVariables(const std::list<std::string>& before);
    /// Logs every name of `__main__` with its value: a help for developers.
    void dumpLocalVariables();

    /// Fills the documentation of a module's function table and of a type's method table from the
    /// host; either may be null. Both are changed in place before the module or type is made. Does
    /// nothing before the first run.
    static void addHelpToPythonFunctions(const char* moduleName, PyMethodDef* moduleFunctions,
                                         const char* typeName, PyMethodDef* typeMethods);

    /// The prefix of all log lines about failures of the interpreter.
    static constexpr char failurePattern[] = "CxPythonScriptPlugin::runScript(): %1";

private:
    /// One run with the lock held. What the script writes to standard error goes to `errors`.
    void runLocked(const QByteArray& script, const QString& pythonHome, StartHook startHook,
                   void* userData, OutputCallback outputCallback, std::string& errors);
    /// Starts the interpreter unless it runs.
    void ensureStarted(const QString& pythonHome);

    QMutex m_lock; ///< held for the whole of each run
    bool m_initialised = false;
};
