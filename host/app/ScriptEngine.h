// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The script plugin: found, loaded, run and ended.
#pragma once

#include "app/InterruptHandover.h"

#include <CxScriptLangInterface.h>

#include <QtCore/QString>
#include <QtCore/QtGlobal>

namespace vistrel {

/// Owns the plugin's object. Its end ends the interpreter; the plugin's code stays loaded, because
/// libraries that scripts imported cannot be unloaded. One thread.
class ScriptEngine {
public:
    ScriptEngine() = default;
    ~ScriptEngine();
    Q_DISABLE_COPY_MOVE(ScriptEngine)

    /// Where the plugin lies beside this program, in a build tree or installed; empty when it does
    /// not.
    static QString defaultPluginFile();

    /// Loads the plugin; an empty `file` means the default one. False with the reason in `error`.
    /// Called once.
    bool load(const QString& file, QString& error);

    // The following need a plugin that was loaded.

    QString languageVersion() { return m_plugin->languageVersion(); }
    /// Runs a script and returns what it wrote to standard error. SIGINT goes to the script
    /// meanwhile. For the arguments see CxScriptLangInterface::runScript.
    QString run(const QString& script, IxScriptEnvironment& environment, const QString& pythonHome,
                CxScriptLangInterface::OutputCallback output);
    /// Binds an image to a name that scripts see; only after the first run. The image stays the
    /// caller's and must outlive the engine.
    void addImage(const QString& name, CxImageData& image)
    {
        m_plugin->addImageVariable(name, &image);
    }

    /// Who gets SIGINT while no script runs.
    InterruptHandover& interrupts() { return m_interrupts; }

private:
    CxScriptLangInterface* m_plugin = nullptr;
    InterruptHandover m_interrupts;
};

} // namespace vistrel
