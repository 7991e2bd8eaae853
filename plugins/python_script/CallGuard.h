// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps C++ exceptions out of the interpreter's frames.
#pragma once

#include "PythonApi.h"

#include <cxxabi.h>

#include <exception>
#include <new>

namespace python {

/// Turns the exception that is being handled into a Python error.
inline void raiseCurrentException() noexcept
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        PyErr_SetString(PyExc_Exception, "out of memory");
    } catch (const std::exception& error) {
        PyErr_SetString(PyExc_Exception, error.what());
    } catch (...) {
        PyErr_SetString(PyExc_Exception, "unknown error in the host");
    }
}

/// A handler for a method table: calls `Handler`, which may throw. A thread that the interpreter
/// ends while it goes down unwinds through here: that must reach the thread's end, so neither is it
/// swallowed nor are these functions noexcept. It is no object either: what is caught by its name
/// is a reference to nothing, which the sanitizers would report; and they take the stack of what
/// was unwound for still in use.
template<PyCFunction Handler>
__attribute__((no_sanitize("address", "null"))) PyObject* guarded(PyObject* self, PyObject* args)
{
    try {
        return Handler(self, args);
    } catch (const abi::__forced_unwind&) {
        throw;
    } catch (...) {
        raiseCurrentException();
        return nullptr;
    }
}

/// The same for slots of one object, such as tp_str.
template<unaryfunc Handler>
__attribute__((no_sanitize("address", "null"))) PyObject* guardedSlot(PyObject* self)
{
    try {
        return Handler(self);
    } catch (const abi::__forced_unwind&) {
        throw;
    } catch (...) {
        raiseCurrentException();
        return nullptr;
    }
}

/// A type's slot is a plain pointer, whatever function it holds.
template<class Function>
void* slotOf(Function* function)
{
    return reinterpret_cast<void*>(function);
}

} // namespace python
