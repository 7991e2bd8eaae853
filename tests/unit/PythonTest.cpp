// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The base of tests of the plugin's helpers.
#include "PythonTest.h"

#include "ErrorState.h"

#include <QtCore/QCoreApplication>

using python::PyRef;

namespace {

PyObject* mainNames() { return PyModule_GetDict(PyImport_AddModule("__main__")); }

PyRef evaluate(const char* text, int kind)
{
    const PyRef code = PyRef::take(Py_CompileString(text, "<test>", kind));
    return PyRef::take(code ? PyEval_EvalCode(code.get(), mainNames(), mainNames()) : nullptr);
}

} // namespace

PythonTest::PythonTest() { Py_Initialize(); }

PythonTest::~PythonTest() { Py_Finalize(); }

std::string PythonTest::value(const char* expression)
{
    const PyRef result = evaluate(expression, Py_eval_input);
    const PyRef text = PyRef::take(result ? PyObject_Str(result.get()) : nullptr);
    if (!text) {
        ADD_FAILURE() << expression << ": " << takeError();
        return {};
    }
    return python::utf8Of(text.get()).value_or("(no UTF-8)");
}

void PythonTest::run(const char* statements)
{
    if (!evaluate(statements, Py_file_input))
        ADD_FAILURE() << statements << ": " << takeError();
}

std::string PythonTest::takeError()
{
    if (PyErr_Occurred() == nullptr)
        return "(none)";
    const python::ErrorState error = python::ErrorState::fetch();
    const PyRef text = PyRef::take(PyObject_Repr(error.value()));
    return python::utf8Of(text.get()).value_or("(no UTF-8)");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
