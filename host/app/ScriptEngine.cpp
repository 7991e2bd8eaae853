// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds, loads and calls the script plugin.
#include "app/ScriptEngine.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QPluginLoader>

#include <array>

namespace vistrel {

namespace {

/// Relative to the program's folder: in a build tree, installed.
constexpr std::array pluginPlaces = {
    "../plugins/libvistrel_python_script.so",
    "../lib/vistrel/plugins/libvistrel_python_script.so",
};

QString tr(const char* text) { return QCoreApplication::translate("ScriptEngine", text); }

} // namespace

ScriptEngine::~ScriptEngine() { delete m_plugin; }

QString ScriptEngine::defaultPluginFile()
{
    for (const char* place : pluginPlaces) {
        const QFileInfo file(QCoreApplication::applicationDirPath() + u'/'
                             + QString::fromLatin1(place));
        if (file.exists())
            return file.canonicalFilePath();
    }
    return {};
}

bool ScriptEngine::load(const QString& file, QString& error)
{
    const QString path = file.isEmpty() ? defaultPluginFile() : QFileInfo(file).absoluteFilePath();
    if (!QFileInfo(path).isFile()) {
        error = path.isEmpty() ? tr("there is no script plugin beside the program")
                               : tr("there is no script plugin %1").arg(path);
        return false;
    }
    QPluginLoader loader(path);
    QObject* object = loader.instance();
    if (!object) {
        error = tr("%1 cannot be loaded as a plugin: %2").arg(path, loader.errorString());
        return false;
    }
    auto* plugin = qobject_cast<CxScriptLangInterface*>(object);
    if (!plugin || !plugin->init()) {
        error = plugin ? tr("the script plugin %1 cannot be used").arg(path)
                       : tr("%1 is a plugin, but not one for scripts").arg(path);
        delete object;
        return false;
    }
    m_plugin = plugin;
    return true;
}

QString ScriptEngine::run(const QString& script, IxScriptEnvironment& environment,
                          const QString& pythonHome, CxScriptLangInterface::OutputCallback output)
{
    const InterruptHandover::Run interrupts(m_interrupts);
    return m_plugin->runScript(script, &environment, pythonHome, nullptr, nullptr, output);
}

} // namespace vistrel
