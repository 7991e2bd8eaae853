// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Constants, paths, menu entries, waiting and help texts for scripts.
#include "app/ScriptEnvironment.h"

#include "app/EventWait.h"
#include "app/ImageView.h"
#include "app/ScriptMenu.h"
#include "cameras/ParameterNames.h"
#include "core/Log.h"
#include "help/HelpTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtWidgets/QMenu>

namespace vistrel {

namespace {

QString withHomeExpanded(const QString& path)
{
    const bool isHome = path == QLatin1String("~") || path.startsWith(QLatin1String("~/"));
    return isHome ? QDir::homePath() + path.mid(1) : path;
}

} // namespace

ScriptEnvironment::ScriptEnvironment()
    : m_workingDirectory(QDir::currentPath())
{
    for (const QString& name : parameterNames())
        m_parameterNames.append({name.toUpper(), name});
    for (const ParameterEnumValue& value : parameterEnumValues())
        m_enumValues.append({value.name, value.value});
}

void ScriptEnvironment::setWorkingDirectory(const QString& path)
{
    const std::scoped_lock lock(m_mutex);
    m_workingDirectory = QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

bool ScriptEnvironment::isApiParamName(const QString& name) { return isKnownParameterName(name); }

QString ScriptEnvironment::workingDirectory()
{
    const std::scoped_lock lock(m_mutex);
    return m_workingDirectory;
}

QString ScriptEnvironment::resolvePath(const QString& path)
{
    const QDir folder(workingDirectory());
    return QDir::cleanPath(folder.absoluteFilePath(withHomeExpanded(path)));
}

bool ScriptEnvironment::isGuiThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

void ScriptEnvironment::addMenuItem(QMenu* menu, const QString& title, const QString& script,
                                    const QString& shortcut)
{
    const QString path = resolvePath(script);
    QAction* entry = addScriptEntry(*menu, title, shortcut);
    entry->setStatusTip(path);
    QObject::connect(entry, &QAction::triggered, menu, [this, path] { runMenuItem(path); });
}

void ScriptEnvironment::runMenuItem(const QString& path) const
{
    if (m_menuHandler)
        m_menuHandler(path);
    else
        logError(QObject::tr("Nothing runs scripts from menus: %1").arg(path));
}

bool ScriptEnvironment::waitForNextFrame(CxMdiView* view, double timeout)
{
    EventWait wait;
    const QPointer<ImageView> guard(dynamic_cast<ImageView*>(view));
    if (!guard)
        return false;
    const quint64 before = guard->frameCount();
    for (const auto ending :
         {&ImageView::frameTaken, &ImageView::streamStopped, &ImageView::closing})
        QObject::connect(guard, ending, &wait, &EventWait::finish);
    QObject::connect(guard, &QObject::destroyed, &wait, &EventWait::finish);

    if (timeout < 0.0 && guard->isStreaming())
        wait.runUntilFinished();
    else
        wait.runFor(timeout);
    return guard && !guard->isClosed() && guard->frameCount() > before;
}

void ScriptEnvironment::wait(double seconds) { EventWait().runFor(seconds); }

const char* ScriptEnvironment::functionHelp(const char* module, const char* function)
{
    return vistrel::functionHelp(module, function);
}

const char* ScriptEnvironment::methodHelp(const char* type, const char* method)
{
    return vistrel::methodHelp(type, method);
}

} // namespace vistrel
