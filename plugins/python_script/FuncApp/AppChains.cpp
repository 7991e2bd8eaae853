// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for processing chains and video recording.
#include "FuncApp/AppChains.h"

#include "FuncApp/AppModule.h"
#include "FuncApp/ChainActions.h"
#include "FuncApp/ChainConf.h"
#include "FuncApp/GuiThread.h"
#include "FuncApp/ViewActions.h"
#include "HostServices.h"
#include "PyErrors.h"

#include <QtXml/QDomDocument>

using host_services::resolvedPath;
using python::PyRef;

namespace {

constexpr char notADictionary[] = "Config parameter is not of the dictionary type";

} // namespace

PyObject* fx_pyapp_AddChainObject(PyObject* self, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* name = nullptr;
    PyObject* settings = nullptr;
    if (!PyArg_ParseTuple(args, "s|O", &name, &settings))
        return nullptr;
    if (settings != nullptr && !PyDict_Check(settings))
        return python::raise(Refusal{notADictionary});

    QDomDocument document;
    QDomElement conf = document.createElement(QStringLiteral("conf"));
    python::ErrorState leftOver;
    if (settings != nullptr)
        leftOver = chain_conf::fill(conf, settings);
    const auto inserted = chain_actions::insertElement(QString::fromUtf8(name), conf);
    // An entry that could not be read stops nothing, but its error is still there in the end.
    leftOver.restore();
    if (!inserted)
        return python::raise(inserted.refusal());
    return python::finishCall(*fx_pyapp_function("add_chain_object"), self,
                              PyRef::take(python::newNone()));
}

PyObject* fx_pyapp_RecordVideoToFile(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    const char* path = nullptr;
    int viewId = view_actions::activeView;
    if (!PyArg_ParseTuple(args, "s|i", &path, &viewId))
        return nullptr;
    return python::newBool(view_actions::startRecording(resolvedPath(path), viewId));
}

PyObject* fx_pyapp_StopVideoRecording(PyObject*, PyObject* args)
{
    if (!gui_thread::isAllowed())
        return nullptr;
    int viewId = view_actions::activeView;
    if (!PyArg_ParseTuple(args, "|i", &viewId))
        return nullptr;
    view_actions::stopRecording(viewId);
    return python::newNone();
}
