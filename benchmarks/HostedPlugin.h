// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The plugin file that ships, loaded into the reference host, for benchmarks of whole runs.
#pragma once

#include "app/HostApplication.h"

#include <CxScriptLangInterface.h>
#include <IxScriptEnvironment.h>

#include <QtCore/QPluginLoader>
#include <QtCore/QtDebug>

#include <cstdlib>
#include <memory>

/// Ends the program: a benchmark of what fails says nothing.
[[noreturn]] inline void fail(const QString& reason)
{
    qCritical().noquote() << reason;
    std::exit(1);
}

/// Lives as long as the interpreter; one in a process.
class HostedPlugin {
public:
    explicit HostedPlugin(IxScriptEnvironment& environment)
        : m_environment(environment)
    {
        QPluginLoader loader(QStringLiteral(VISTREL_PLUGIN_FILE));
        m_plugin.reset(qobject_cast<CxScriptLangInterface*>(loader.instance()));
        if (!m_plugin || !m_plugin->init())
            fail(loader.errorString());
    }

    void run(const QString& script, CxScriptLangInterface::OutputCallback output)
    {
        const QString errors =
            m_plugin->runScript(script, &m_environment, QString(), nullptr, nullptr, output);
        if (!errors.isEmpty())
            fail(errors);
    }

private:
    IxScriptEnvironment& m_environment;
    std::unique_ptr<CxScriptLangInterface> m_plugin;
};
