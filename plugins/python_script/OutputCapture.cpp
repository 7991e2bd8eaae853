// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `emb`.
//
//     class stdout_object:
//         def write(self, text: str) -> int: ...
//         def flush(self, *ignored) -> None: ...
#include "OutputCapture.h"

#include "CallGuard.h"
#include "Logging.h"
#include "PyRef.h"

#include <exception>

namespace emb {

using python::PyRef;

namespace {

/// The instance record. Python clears an instance's memory, which makes an empty std::function.
/// Nothing destroys the sink: sinks hold plain pointers only.
struct StdoutObject {
    PyObject_HEAD Sink sink;
};

PyObject* g_stdoutType = nullptr;
std::exception_ptr g_sinkFailure;

/// One redirected stream.
struct Redirection {
    const char* name;
    PyRef capture; ///< the object that is installed, or none
    /// The stream that was there before. A reference of our own: a script may drop the one that
    /// sys.__stdout__ holds.
    PyRef saved;

    void set(Sink sink);
    void reset();
    /// Forgets both without touching them: they went with an earlier interpreter.
    void abandon();
};

// Never destroyed: at the end of the process the interpreter is gone, and its objects with it.
Redirection& g_stdout = *new Redirection{"stdout", {}, {}};
Redirection& g_stderr = *new Redirection{"stderr", {}, {}};

/// sys.stdout or sys.stderr becomes the stream; a `sys` that does not take it is left as it is.
void install(const char* name, PyObject* stream)
{
    if (PySys_SetObject(name, stream) != 0)
        PyErr_Clear();
}

void Redirection::set(Sink sink)
{
    if (g_stdoutType == nullptr)
        return;
    if (!capture) {
        saved = PyRef::retain(PySys_GetObject(name));
        capture = PyRef::take(PyObject_CallObject(g_stdoutType, nullptr));
    }
    if (!capture) {
        PyErr_Clear();
        return;
    }
    reinterpret_cast<StdoutObject*>(capture.get())->sink = std::move(sink);
    install(name, capture.get());
}

void Redirection::reset()
{
    if (saved)
        install(name, saved.get());
    saved = PyRef();
    // A script may have kept the object; the sink points into a run that is over.
    if (capture)
        reinterpret_cast<StdoutObject*>(capture.get())->sink = nullptr;
    capture = PyRef();
}

void Redirection::abandon()
{
    static_cast<void>(capture.release());
    static_cast<void>(saved.release());
}

/// Hands a text to a sink and keeps what it throws.
bool passOn(const Sink& sink, const char* text)
{
    if (!g_sinkFailure) {
        try {
            sink(text);
            return true;
        } catch (...) {
            g_sinkFailure = std::current_exception();
        }
    }
    raiseSinkFailure();
    return false;
}

PyObject* Stdout_write(PyObject* self, PyObject* args)
{
    const Sink& sink = reinterpret_cast<StdoutObject*>(self)->sink;
    if (!sink)
        return PyLong_FromLong(0);
    const char* text = nullptr;
    if (!PyArg_ParseTuple(args, "s", &text))
        return nullptr;
    const std::size_t size = std::char_traits<char>::length(text);
    return passOn(sink, text) ? PyLong_FromSize_t(size) : nullptr;
}

PyObject* Stdout_flush(PyObject*, PyObject*) { return Py_BuildValue(""); }

PyMethodDef g_stdoutMethods[] = {
    {"write", python::guarded<Stdout_write>, METH_VARARGS, "sys.stdout.write"},
    {"flush", python::guarded<Stdout_flush>, METH_VARARGS, "sys.stdout.flush"},
    {nullptr, nullptr, 0, nullptr},
};

PyType_Slot g_stdoutSlots[] = {
    {Py_tp_methods, g_stdoutMethods},
    {Py_tp_new, python::slotOf(PyType_GenericNew)},
    {0, nullptr},
};

PyType_Spec g_stdoutSpec{"emb.stdout_object", sizeof(StdoutObject), 0, Py_TPFLAGS_DEFAULT,
                         g_stdoutSlots};

PyModuleDef g_module{
    PyModuleDef_HEAD_INIT, "emb", nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};

} // namespace

PyObject* PyInit_emb()
{
    g_stdout.abandon();
    g_stderr.abandon();
    g_stdoutType = PyType_FromSpec(&g_stdoutSpec);
    if (g_stdoutType == nullptr) {
        logCritical("PyInit_emb(): %1", QStringLiteral("Failed to register emb.StdOutType"));
        return nullptr;
    }
    PyRef module = PyRef::take(PyModule_Create2(&g_module, PYTHON_ABI_VERSION));
    if (!module)
        return nullptr;
    python::addType(module.get(), "stdout_object", g_stdoutType);
    return module.release();
}

void set_stdout(Sink sink) { g_stdout.set(std::move(sink)); }

void set_stderr(Sink sink) { g_stderr.set(std::move(sink)); }

void reset_stdout() { g_stdout.reset(); }

void reset_stderr() { g_stderr.reset(); }

bool raiseSinkFailure()
{
    if (g_sinkFailure)
        PyErr_SetString(PyExc_SystemExit, "the output of this run cannot be written");
    return static_cast<bool>(g_sinkFailure);
}

void rethrowSinkFailure()
{
    if (g_sinkFailure)
        std::rethrow_exception(std::exchange(g_sinkFailure, nullptr));
}

} // namespace emb
