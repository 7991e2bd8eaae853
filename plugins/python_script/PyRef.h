// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The owner of references to Python objects.
#pragma once

#include "PythonApi.h"

#include <utility>

namespace python {

/// Owns one reference, or none. Move-only; must be used and destroyed with the interpreter lock
/// held. take() and retain() say where the reference comes from.
class PyRef {
public:
    PyRef() = default;
    PyRef(PyRef&& other) noexcept
        : m_object(other.release())
    {
    }
    PyRef(const PyRef&) = delete;
    PyRef& operator=(PyRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~PyRef() { Py_XDECREF(m_object); }

    /// Takes over a new reference, as most functions of the API return it; null is allowed.
    static PyRef take(PyObject* newReference) { return PyRef(newReference); }
    /// Adds a reference to a borrowed one; null is allowed.
    static PyRef retain(PyObject* borrowed)
    {
        Py_XINCREF(borrowed);
        return PyRef(borrowed);
    }

    /// Borrowed; null when there is none.
    PyObject* get() const { return m_object; }
    /// Hands the reference to the caller.
    [[nodiscard]] PyObject* release() { return std::exchange(m_object, nullptr); }
    explicit operator bool() const { return m_object != nullptr; }

private:
    explicit PyRef(PyObject* owned)
        : m_object(owned)
    {
    }

    PyObject* m_object = nullptr;
};

/// A new reference to None, True or False, as a handler returns them.
inline PyObject* newNone() { return PyRef::retain(Py_None).release(); }
inline PyObject* newBool(bool value) { return PyRef::retain(value ? Py_True : Py_False).release(); }

/// Adds a type to a module under its short name. 1 on success; 0 when there is no type or the
/// module does not take it.
inline int addType(PyObject* module, const char* name, PyObject* type)
{
    PyRef reference = PyRef::retain(type);
    if (!reference)
        return 0;
    if (PyModule_AddObject(module, name, reference.get()) != 0) {
        PyErr_Clear(); // the module goes without it
        return 0;
    }
    static_cast<void>(reference.release()); // the module has taken it over
    return 1;
}

} // namespace python
