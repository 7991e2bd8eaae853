// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The services that every script run gets from the reference host.
#pragma once

#include <IxScriptEnvironment.h>

#include <functional>
#include <mutex>

namespace vistrel {

class ScriptEnvironment : public IxScriptEnvironment {
public:
    /// Runs a script file that was chosen in a menu. `path` is absolute.
    using MenuHandler = std::function<void(const QString& path)>;

    ScriptEnvironment();

    /// Without a handler a chosen entry only leaves a line in the log.
    void setMenuHandler(MenuHandler handler) { m_menuHandler = std::move(handler); }
    /// Sets the folder against which script paths are resolved; the process's own at first. Any
    /// thread.
    void setWorkingDirectory(const QString& path);

    QList<SxApiParamDef>& apiParamDefs() override { return m_parameterNames; }
    QList<SxApiParamEnumVal>& apiParamEnumVals() override { return m_enumValues; }
    bool isApiParamName(const QString& name) override;
    QString workingDirectory() override;
    QString resolvePath(const QString& path) override;
    bool isGuiThread() override;
    /// The script's path is resolved now, because the folder may be another one when the entry is
    /// chosen. `shortcut` is what scripts give as extra text; see addScriptEntry.
    void addMenuItem(QMenu* menu, const QString& title, const QString& script,
                     const QString& shortcut) override;
    bool waitForNextFrame(CxMdiView* view, double timeout) override;
    void wait(double seconds) override;
    const char* functionHelp(const char* module, const char* function) override;
    const char* methodHelp(const char* type, const char* method) override;

private:
    void runMenuItem(const QString& path) const;

    QList<SxApiParamDef> m_parameterNames;
    QList<SxApiParamEnumVal> m_enumValues;
    MenuHandler m_menuHandler;
    std::mutex m_mutex; // guards the working directory
    QString m_workingDirectory;
};

} // namespace vistrel
