// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names in `__main__`, the namespace in which every script runs.
#include "CxPythonScriptPlugin.h"
#include "FuncImage/ImageType.h"
#include "Interpreter.h"
#include "Logging.h"
#include "PyText.h"

#include <algorithm>

using python::PyRef;

namespace {

/// The dictionary of `__main__`, or none when it cannot be had. Held, because objects that are
/// deleted from it may run code that drops the module.
PyRef mainNames()
{
    if (!interpreter::isRunning())
        return {};
    PyObject* mainModule = PyImport_AddModule("__main__");
    PyObject* names = mainModule != nullptr ? PyModule_GetDict(mainModule) : nullptr;
    if (names == nullptr)
        PyErr_Clear();
    return PyRef::retain(names);
}

/// str() of an object as UTF-8; nothing when it has none.
std::optional<std::string> textOf(PyObject* object)
{
    const PyRef text = PyRef::take(PyObject_Str(object));
    if (!text) {
        PyErr_Clear();
        return std::nullopt;
    }
    return python::utf8Of(text.get());
}

/// Calls `visit` with every key of `__main__`, in the order of binding. The keys are a copy, so the
/// dictionary may change meanwhile.
template<class Visitor>
void forEachKey(const PyRef& names, Visitor visit)
{
    if (!names)
        return;
    const PyRef keys = PyRef::take(PyDict_Keys(names.get()));
    if (!keys) {
        PyErr_Clear();
        return;
    }
    for (Py_ssize_t i = 0; i < PyList_Size(keys.get()); ++i)
        visit(PyList_GetItem(keys.get(), i));
}

} // namespace

void CxPythonScriptPlugin::addImageVariable(const QString& name, CxImageData* image)
{
    // Another plugin object may have stopped the interpreter.
    if (!m_initialised || !interpreter::isRunning() || image == nullptr)
        return;
    PyRef object = PyRef::take(fx_pyimg_createNewImageObject(image, false));
    PyObject* mainModule = PyImport_AddModule("__main__");
    if (object && mainModule != nullptr
        && PyModule_AddObject(mainModule, name.toUtf8().constData(), object.get()) == 0)
        static_cast<void>(object.release()); // the module has taken it over
    PyErr_Clear();
}

std::list<std::string> CxPythonScriptPlugin::listLocalVariables()
{
    std::list<std::string> names;
    forEachKey(mainNames(), [&names](PyObject* key) {
        if (auto name = python::utf8Of(key))
            names.push_back(std::move(*name));
    });
    return names;
}

void CxPythonScriptPlugin::deleteNewLocalVariables(const std::list<std::string>& before)
{
    std::list<std::string> added;
    for (std::string& name : listLocalVariables()) {
        if (std::find(before.begin(), before.end(), name) == before.end())
            added.push_back(std::move(name));
    }
    const PyRef names = mainNames();
    for (const std::string& name : added) {
        // With its length: a name may hold a NUL.
        const PyRef key = PyRef::take(
            PyUnicode_FromStringAndSize(name.data(), static_cast<Py_ssize_t>(name.size())));
        if (!names || !key || PyObject_DelItem(names.get(), key.get()) != 0)
            PyErr_Clear();
    }
}

void CxPythonScriptPlugin::dumpLocalVariables()
{
    const PyRef names = mainNames();
    forEachKey(names, [&names](PyObject* key) {
        const PyRef value = PyRef::retain(PyDict_GetItem(names.get(), key));
        const auto keyText = textOf(key);
        const auto valueText = value ? textOf(value.get()) : std::nullopt;
        if (keyText && valueText) {
            logCritical(QStringLiteral("%1: %2").arg(QString::fromStdString(*keyText),
                                                     QString::fromStdString(*valueText)));
        }
    });
}
