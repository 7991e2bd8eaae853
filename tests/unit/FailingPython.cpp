// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of the Python library that fail on demand.
#include "PythonApi.h"

#include "FailingPython.h"

#include <QtCore/QDebug>

#include <dlfcn.h>

#include <cstring>
#include <stdexcept>

namespace {

FailingPython* g_failing = nullptr;
QStringList g_lines;

bool isNamed(const char* FailingPython::*field, const char* name)
{
    return g_failing != nullptr && g_failing->*field != nullptr
           && std::strcmp(g_failing->*field, name) == 0;
}

template<class Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

FailingPython::FailingPython() { g_failing = this; }

FailingPython::~FailingPython() { g_failing = nullptr; }

CollectedLog::CollectedLog()
{
    g_lines.clear();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        g_lines.append(message);
    });
}

CollectedLog::~CollectedLog() { qInstallMessageHandler(nullptr); }

bool CollectedLog::hasLineEndingWith(const QString& text) const
{
    for (const QString& line : g_lines) {
        if (line.endsWith(text))
            return true;
    }
    return false;
}

extern "C" {

PyObject* PyType_FromSpec(PyType_Spec* spec)
{
    if (isNamed(&FailingPython::typeName, spec->name)) {
        PyErr_SetString(PyExc_MemoryError, "no type on demand");
        return nullptr;
    }
    return next<PyObject*(PyType_Spec*)>("PyType_FromSpec")(spec);
}

PyObject* PyModule_Create2(PyModuleDef* definition, int apiVersion)
{
    if (isNamed(&FailingPython::madeModule, definition->m_name)) {
        PyErr_SetString(PyExc_MemoryError, "no module on demand");
        return nullptr;
    }
    return next<PyObject*(PyModuleDef*, int)>("PyModule_Create2")(definition, apiVersion);
}

int PyModule_AddObject(PyObject* module, const char* name, PyObject* value)
{
    if (isNamed(&FailingPython::addedName, name)) {
        PyErr_SetString(PyExc_MemoryError, "not added on demand");
        return -1;
    }
    return next<int(PyObject*, const char*, PyObject*)>("PyModule_AddObject")(module, name, value);
}

PyObject* PyImport_AddModule(const char* name)
{
    if (g_failing != nullptr && g_failing->mainModule && std::strcmp(name, "__main__") == 0) {
        PyErr_SetString(PyExc_MemoryError, "no module on demand");
        return nullptr;
    }
    return next<PyObject*(const char*)>("PyImport_AddModule")(name);
}

int PyImport_AppendInittab(const char* name, PyObject* (*initialiser)())
{
    if (isNamed(&FailingPython::moduleName, name))
        return -1;
    return next<int(const char*, PyObject* (*)())>("PyImport_AppendInittab")(name, initialiser);
}

void Py_Finalize()
{
    next<void()>("Py_Finalize")();
    if (g_failing != nullptr && g_failing->finalizeThrows)
        throw std::runtime_error("finalised badly on demand");
}
}
