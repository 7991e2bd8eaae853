// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How deep scripts may run each other. Two things end before long: Python's recursion limit, and
// the stack of the thread. A script that is started with the last of either cannot even print its
// error, so some of both is kept.
#include "FuncApp/ScriptDepth.h"

#include "PyRef.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>

using python::PyRef;

namespace script_depth {

namespace {

constexpr char tooDeep[] = "maximum recursion depth exceeded while running a script";

/// Calls that must be left to a script: for printing an error with its traceback, and, before
/// Python 3.10, more than the 50 that end the process when they are used up after an overflow.
constexpr int callsToKeep = 60;
/// Stack that must be left, in bytes: compiling takes most of it, 170 KiB for 90 brackets in each
/// other. Of a small stack it is the half.
constexpr std::size_t stackToKeep = std::size_t{512} * 1024;

// No interface tells the depth, and what counts as a call differs from version to version, so as
// many calls are made as are to be kept. Nothing here is ever released: it goes with its
// interpreter.

/// A function of Python that calls itself.
constexpr char stepDownSource[] = "lambda step, calls: calls and step(step, calls - 1)";
PyObject* g_stepDown = nullptr;
/// Equal towers of tuples in each other; comparing them nests calls in C, which 3.12 counts apart.
PyObject* g_tower = nullptr;
PyObject* g_otherTower = nullptr;

/// How far the calling thread's stack may be used when a script starts; null when that cannot be
/// had.
const std::byte* endOfRoom()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return nullptr;
    void* lowest = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return static_cast<const std::byte*>(lowest) + std::min(stackToKeep, size / 2);
}

bool isStackLeft()
{
    // Looked up once a thread: for the first one the C library reads a file of the kernel's.
    static thread_local const std::byte* const end = endOfRoom();
    return end == nullptr || static_cast<const std::byte*>(__builtin_frame_address(0)) >= end;
}

bool areCallsLeft()
{
    return PyRef::take(PyObject_CallFunction(g_stepDown, "Oi", g_stepDown, callsToKeep))
           && PyObject_RichCompareBool(g_tower, g_otherTower, Py_EQ) >= 0;
}

/// Null with Python's error set when there is no memory.
PyObject* newTower()
{
    PyRef tower = PyRef::take(PyTuple_New(0));
    for (int height = 0; tower && height < callsToKeep; ++height)
        tower = PyRef::take(Py_BuildValue("(O)", tower.get()));
    return tower.release();
}

} // namespace

bool prepare()
{
    const PyRef names = PyRef::take(PyDict_New());
    const PyRef code = PyRef::take(Py_CompileString(stepDownSource, "<vistrel>", Py_eval_input));
    g_stepDown = names && code ? PyEval_EvalCode(code.get(), names.get(), names.get()) : nullptr;
    g_tower = newTower();
    g_otherTower = newTower();
    return g_stepDown != nullptr && g_tower != nullptr && g_otherTower != nullptr;
}

bool isRoomForAnother()
{
    if (isStackLeft()) {
        if (areCallsLeft())
            return true;
        if (PyErr_ExceptionMatches(PyExc_RecursionError) == 0)
            return false; // an interrupt
    }
    // Anew, without the calls that it took to find out.
    PyErr_SetString(PyExc_RecursionError, tooDeep);
    return false;
}

} // namespace script_depth
