// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions that talk to the user: they parse their arguments, the workers do the rest.
#include "FuncApp/AppUser.h"

#include "FuncApp/GuiThread.h"
#include "FuncApp/UserActions.h"
#include "HostServices.h"
#include "Interrupts.h"
#include "PyErrors.h"
#include "PyText.h"

#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

#include <QtCore/QDebug>

using host_services::application;
using host_services::environment;
using host_services::resolvedPath;
using python::newNone;

PyObject* fx_pyapp_MessageBox(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* title = nullptr;
    const char* text = nullptr;
    const char* button1 = nullptr;
    const char* button2 = nullptr;
    const char* button3 = nullptr;
    if (!PyArg_ParseTuple(args, "ss|sss", &title, &text, &button1, &button2, &button3))
        return nullptr;
    if (!python::isUninterrupted())
        return nullptr;
    return PyLong_FromLong(user_actions::messageBox(
        QString::fromUtf8(title), QString::fromUtf8(text),
        {QString::fromUtf8(button1), QString::fromUtf8(button2), QString::fromUtf8(button3)}));
}

PyObject* fx_pyapp_ShowNotification(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* text = nullptr;
    if (!PyArg_ParseTuple(args, "s", &text))
        return nullptr;
    application().showNotification(QString::fromUtf8(text));
    return newNone();
}

PyObject* fx_pyapp_PrintToErrorLog(PyObject*, PyObject* args)
{
    const char* text = nullptr;
    if (!PyArg_ParseTuple(args, "s", &text))
        return nullptr;
    // The text alone: the script's words, not a message of the plugin.
    qCritical() << QString::fromUtf8(text);
    return newNone();
}

PyObject* fx_pyapp_AskUserForString(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* title = nullptr;
    const char* label = nullptr;
    if (!PyArg_ParseTuple(args, "ss", &title, &label))
        return nullptr;
    if (!python::isUninterrupted())
        return nullptr;
    return python::newText(
               user_actions::askForString(QString::fromUtf8(title), QString::fromUtf8(label)))
        .release();
}

PyObject* fx_pyapp_AddMenuItem(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* title = nullptr;
    const char* script = nullptr;
    const char* submenu = nullptr;
    const char* extra = nullptr;
    if (!PyArg_ParseTuple(args, "ss|ss", &title, &script, &submenu, &extra))
        return nullptr;
    const auto added =
        user_actions::addMenuItem(QString::fromUtf8(title), QString::fromUtf8(script),
                                  QString::fromUtf8(submenu), QString::fromUtf8(extra));
    return added ? newNone() : python::raise(added.refusal());
}

PyObject* fx_pyapp_GetWorkingDirectory(PyObject*, PyObject*)
{
    return python::newText(environment().workingDirectory()).release();
}

PyObject* fx_pyapp_PlaySound(PyObject*, PyObject* args)
{
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    application().playSound(resolvedPath(path));
    return newNone();
}
