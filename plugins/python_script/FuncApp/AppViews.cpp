// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for views and files: they parse their arguments, the workers do the rest.
#include "FuncApp/AppViews.h"

#include "FuncApp/GuiThread.h"
#include "FuncApp/ViewActions.h"
#include "FuncImage/ImageType.h"
#include "HostServices.h"
#include "Interrupts.h"
#include "PyErrors.h"

#include <CxImageData.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

using host_services::application;
using host_services::resolvedPath;
using python::newNone;
using python::raise;
using view_actions::activeView;

namespace {

/// None, or the refusal's error.
PyObject* noneOrError(Outcome<bool> outcome)
{
    return outcome ? newNone() : raise(outcome.refusal());
}

/// An integer, or the refusal's error.
PyObject* integerOrError(Outcome<int> outcome)
{
    return outcome ? PyLong_FromLong(outcome.value()) : raise(outcome.refusal());
}

} // namespace

PyObject* fx_pyapp_OpenFile(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed("vistrel.open_file: running GUI function from non-main thread"))
        return nullptr;
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    return integerOrError(view_actions::openFile(resolvedPath(path)));
}

PyObject* fx_pyapp_SaveToFile(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    return noneOrError(view_actions::saveActiveView(resolvedPath(path)));
}

PyObject* fx_pyapp_DuplicateView(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "|i", &viewId))
        return nullptr;
    return PyLong_FromLong(view_actions::duplicateView(viewId));
}

PyObject* fx_pyapp_GetActiveViewId(PyObject*, PyObject*)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    return PyLong_FromLong(application().activeViewId());
}

PyObject* fx_pyapp_ActivateView(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "|i", &viewId))
        return nullptr;
    application().activateView(viewId);
    return newNone();
}

PyObject* fx_pyapp_CloseView(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "|i", &viewId))
        return nullptr;
    view_actions::closeView(viewId);
    return newNone();
}

PyObject* fx_pyapp_TileViews(PyObject*, PyObject*)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    application().tileViews();
    return newNone();
}

PyObject* fx_pyapp_SwitchFullScreen(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    int on = 0;
    if (!PyArg_ParseTuple(args, "p", &on))
        return nullptr;
    application().setFullScreen(on > 0);
    return newNone();
}

PyObject* fx_pyapp_WaitForNextFrame(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    double timeout = -1.0;
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "|di", &timeout, &viewId))
        return nullptr;
    if (!python::isUninterrupted())
        return nullptr;
    Outcome<bool> frameCame = view_actions::waitForNextFrame(timeout, viewId);
    return frameCame ? python::newBool(frameCame.value()) : raise(frameCame.refusal());
}

PyObject* fx_pyapp_Wait(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    double seconds = 0.0;
    if (!PyArg_ParseTuple(args, "d", &seconds))
        return nullptr;
    if (!python::isUninterrupted())
        return nullptr;
    host_services::environment().wait(seconds);
    return newNone();
}

PyObject* fx_pyapp_GetViewImage(PyObject*, PyObject* args)
{
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "|i", &viewId))
        return nullptr;
    auto image = view_actions::takeViewImage(viewId);
    return fx_pyimg_newOwnerOrError(std::move(image));
}

PyObject* fx_pyapp_SetViewImage(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    PyObject* image = nullptr;
    int viewId = activeView;
    if (!PyArg_ParseTuple(args, "O|i", &image, &viewId))
        return nullptr;
    Outcome<CxImageData*> data = fx_pyimg_imageArgument(image);
    return data ? noneOrError(view_actions::putViewImage(*data.value(), viewId))
                : raise(data.refusal());
}

PyObject* fx_pyapp_NewViewWithImage(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    PyObject* image = nullptr;
    const char* title = nullptr;
    if (!PyArg_ParseTuple(args, "O|s", &image, &title))
        return nullptr;
    Outcome<CxImageData*> data = fx_pyimg_imageArgument(image);
    return data ? integerOrError(
               view_actions::newViewWithImage(*data.value(), QString::fromUtf8(title)))
                : raise(data.refusal());
}
