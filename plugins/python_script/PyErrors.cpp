// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How errors reach a script, and how a script's errors reach the user.
#include "PyErrors.h"

#include "CallGuard.h"
#include "ErrorState.h"
#include "PythonVersion.h"

namespace python {

namespace {

/// Writes a text to sys.stderr; what cannot be written is lost, as with Python's own tracebacks.
void writeToStandardError(const char* text)
{
    PyObject* stream = PySys_GetObject("stderr");
    if (stream == nullptr || stream == Py_None || PyFile_WriteString(text, stream) != 0)
        PyErr_Clear();
}

/// The text form of an object; what UTF-8 cannot hold is written as an escape.
PyRef printableText(PyObject* object)
{
    const PyRef text = PyRef::take(PyObject_Str(object));
    PyRef bytes = PyRef::take(
        text ? PyUnicode_AsEncodedString(text.get(), "utf-8", "backslashreplace") : nullptr);
    if (!bytes)
        PyErr_Clear();
    return bytes;
}

void writeToStandardError(PyObject* object)
{
    const PyRef text = printableText(object);
    if (text)
        writeToStandardError(PyBytes_AsString(text.get()));
}

/// What a SystemExit was given; the error itself when that cannot be had.
PyRef codeOf(const ErrorState& error)
{
    PyRef code = PyRef::take(PyObject_GetAttrString(error.value(), "code"));
    if (code)
        return code;
    PyErr_Clear();
    return PyRef::retain(error.value());
}

/// The pending error is a SystemExit: says why the script ended, where there is something to say.
void reportSystemExit()
{
    const ErrorState error = ErrorState::fetch();
    const PyRef code = codeOf(error);
    if (code.get() == Py_None)
        return;
    if (PyLong_Check(code.get())) {
        const long number = PyLong_AsLong(code.get()); // -1 for what does not fit, which is not 0
        PyErr_Clear();
        if (number == 0)
            return;
        writeToStandardError("script ended with exit status ");
    }
    writeToStandardError(code.get());
    writeToStandardError("\n");
}

/// Stands in for sys.excepthook while PyErr_Print runs: a script's hook that raises SystemExit
/// would end the process.
PyObject* callHookOfScript(PyObject* hook, PyObject* args)
{
    PyRef result = PyRef::take(PyObject_CallObject(hook, args));
    if (!result && PyErr_ExceptionMatches(PyExc_SystemExit)) {
        reportSystemExit();
        return newNone();
    }
    return result.release();
}

PyMethodDef safeHook{"excepthook", guarded<callHookOfScript>, METH_VARARGS, nullptr};

/// Prints the pending error by sys.excepthook.
void printByHook()
{
    PyRef hook = PyRef::retain(PySys_GetObject("excepthook"));
    if (!hook) {
        PyErr_Print();
        return;
    }
    ErrorState error = ErrorState::fetch();
    const PyRef standIn = PyRef::take(PyCFunction_NewEx(&safeHook, hook.get(), nullptr));
    PySys_SetObject("excepthook", standIn.get());
    error.restore();
    PyErr_Print();
    // A hook may have put another one in its place; that one stays.
    if (PySys_GetObject("excepthook") == standIn.get())
        PySys_SetObject("excepthook", hook.get());
}

} // namespace

PyObject* raise(Refusal refusal)
{
    if (refusal.message != nullptr)
        PyErr_SetString(PyExc_Exception, refusal.message);
    return nullptr;
}

PyObject* finishCall(PyMethodDef& method, PyObject* self, PyRef result)
{
    if (PyErr_Occurred() == nullptr)
        return result.release();
    const ErrorState cause = ErrorState::fetch();
    const PyRef callable = PyRef::take(PyCFunction_NewEx(&method, self, nullptr));
    PyErr_Format(PyExc_SystemError,
                 isAtLeast(3, 10) ? "%R returned a result with an exception set"
                                  : "%R returned a result with an error set",
                 callable.get());
    ErrorState error = ErrorState::fetch();
    error.chainTo(cause);
    error.restore();
    return nullptr;
}

void printPendingError()
{
    if (PyErr_Occurred() == nullptr)
        return;
    if (PyErr_ExceptionMatches(PyExc_SystemExit) != 0)
        reportSystemExit();
    else
        printByHook();
}

} // namespace python
