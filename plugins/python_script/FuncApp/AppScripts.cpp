// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of Python that run in the main namespace.
#include "FuncApp/AppScripts.h"

#include "FuncApp/ScriptDepth.h"
#include "HostServices.h"
#include "OutputCapture.h"
#include "PyErrors.h"

#include <QtCore/QFile>

using python::PyRef;

namespace {

constexpr char cannotOpenScript[] = "given script file can't be opened.";

Outcome<QByteArray> scriptIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return Refusal{cannotOpenScript};
    return file.readAll();
}

} // namespace

PyObject* fx_pyapp_RunScript(PyObject*, PyObject* args)
{
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    Outcome<QByteArray> script = scriptIn(host_services::resolvedPath(path));
    if (!script)
        return python::raise(script.refusal());
    if (!script_depth::isRoomForAnother())
        return nullptr;
    fx_pyapp_RunPythonString(script.value().constData());
    // A script's own errors end with it; output that cannot be written ends those around it too.
    return emb::raiseSinkFailure() ? nullptr : python::newNone();
}

void fx_pyapp_RunPythonString(const char* text)
{
    const PyRef code = PyRef::take(Py_CompileString(text, "<string>", Py_file_input));
    PyObject* mainModule = code ? PyImport_AddModule("__main__") : nullptr;
    if (mainModule != nullptr) {
        PyObject* names = PyModule_GetDict(mainModule);
        const PyRef result = PyRef::take(PyEval_EvalCode(code.get(), names, names));
        // A Ctrl-C during the very last instruction still belongs to this script.
        if (result)
            PyErr_CheckSignals();
    }
    python::printPendingError();
}
