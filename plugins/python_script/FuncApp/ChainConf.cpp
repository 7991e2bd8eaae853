// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a chain element.
#include "FuncApp/ChainConf.h"

#include "PyText.h"

#include <QtXml/QDomElement>

using python::PyRef;

namespace chain_conf {

namespace {

/// The text of a str; null with the encoder's error set when it has no UTF-8 form.
std::optional<QString> encoded(PyObject* object)
{
    const PyRef bytes = PyRef::take(PyUnicode_AsUTF8String(object));
    char* data = nullptr;
    Py_ssize_t size = 0;
    if (!bytes || PyBytes_AsStringAndSize(bytes.get(), &data, &size) != 0)
        return std::nullopt;
    return QString::fromUtf8(data, size);
}

/// May leave an error set.
void setAttribute(QDomElement& conf, const QString& key, PyObject* value)
{
    // First of all, so that True and False are written as 1 and 0: they are integers too.
    if (PyLong_Check(value))
        conf.setAttribute(key, qlonglong{static_cast<qint32>(PyLong_AsLong(value))});
    else if (PyFloat_Check(value))
        conf.setAttribute(key, PyFloat_AsDouble(value));
    else if (PyUnicode_Check(value)) {
        if (const auto text = encoded(value))
            conf.setAttribute(key, *text);
    }
}

} // namespace

python::ErrorState fill(QDomElement& conf, PyObject* dictionary)
{
    python::ErrorState lastError;
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    // Nothing in the loop runs code of the script, so the dictionary stays as it is.
    while (PyDict_Next(dictionary, &position, &key, &value) != 0) {
        if (const auto name = encoded(key))
            setAttribute(conf, *name, value);
        if (PyErr_Occurred() != nullptr)
            lastError = python::ErrorState::fetch();
    }
    return lastError;
}

} // namespace chain_conf
