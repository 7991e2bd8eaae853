// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Errors at the border to Python: a result with an error set, refusals, exceptions of the host.
#include "PythonTest.h"

#include "CallGuard.h"
#include "ErrorState.h"
#include "PythonVersion.h"

#include <stdexcept>

using python::PyRef;

namespace {

PyMethodDef g_leavesError;
PyMethodDef g_leavesErrorRaw;

/// Returns None while a ValueError is pending, as the interpreter must not see it.
PyObject* leavesErrorRaw(PyObject*, PyObject*)
{
    PyErr_SetString(PyExc_ValueError, "the cause");
    return python::newNone();
}

/// The same, ended by the helper.
PyObject* leavesError(PyObject* self, PyObject*)
{
    PyErr_SetString(PyExc_ValueError, "the cause");
    return python::finishCall(g_leavesError, self, PyRef::retain(Py_None));
}

PyObject* leavesNoError(PyObject* self, PyObject* argument)
{
    return python::finishCall(g_leavesError, self, PyRef::retain(argument));
}

class PyErrors : public PythonTest {
protected:
    PyErrors()
    {
        g_leavesError = {"leaves_error", leavesError, METH_O, nullptr};
        g_leavesErrorRaw = {"leaves_error", leavesErrorRaw, METH_O, nullptr};
        bind("leaves_error", g_leavesError);
        bind("leaves_error_raw", g_leavesErrorRaw);
        static PyMethodDef passes{"passes", leavesNoError, METH_O, nullptr};
        bind("passes", passes);
    }

    /// Binds a function in `__main__`; its self is a tuple, as that of a bound method is an object.
    static void bind(const char* name, PyMethodDef& method)
    {
        const PyRef self = PyRef::take(PyTuple_New(0));
        PyRef function = PyRef::take(PyCFunction_NewEx(&method, self.get(), nullptr));
        if (PyModule_AddObject(PyImport_AddModule("__main__"), name, function.get()) == 0)
            static_cast<void>(function.release());
    }
};

TEST_F(PyErrors, AResultWithAnErrorIsTheSameInThreeHundredCallsOfAWarmLoop)
{
    run("def attempt(function):\n"
        "    seen = []\n"
        "    for number in range(300):\n"
        "        try:\n"
        "            function(number)\n"
        "        except SystemError as error:\n"
        "            seen.append((str(error), repr(error.__cause__), repr(error.__context__)))\n"
        "    return seen\n"
        "seen = attempt(leaves_error)\n");
    EXPECT_EQ(value("len(seen)"), "300");
    EXPECT_EQ(value("len(set(seen))"), "1");
}

TEST_F(PyErrors, AResultWithAnErrorReadsAsTheInterpretersOwn)
{
    // The first, cold call of a function that breaks the rule shows what the interpreter says.
    run("def text_of(function):\n"
        "    try:\n"
        "        function(1)\n"
        "    except SystemError as error:\n"
        "        return (str(error), repr(error.__cause__), error.__cause__ is error.__context__,\n"
        "                error.__suppress_context__)\n");
    EXPECT_EQ(value("text_of(leaves_error)"), value("text_of(leaves_error_raw)"));
    EXPECT_NE(value("text_of(leaves_error)").find("ValueError('the cause')"), std::string::npos);
}

TEST_F(PyErrors, WithoutAnErrorTheResultPasses)
{
    run("import sys\nthing = object()\n");
    EXPECT_EQ(value("passes(5)"), "5");
    EXPECT_EQ(value("sys.getrefcount(passes(thing))"), value("sys.getrefcount(thing)"));
}

TEST_F(PyErrors, ARefusalIsABaseExceptionWithItsText)
{
    EXPECT_EQ(python::raise(Refusal{"no such thing"}), nullptr);
    EXPECT_EQ(takeError(), "Exception('no such thing')");
}

TEST_F(PyErrors, ASilentRefusalSetsNothing)
{
    EXPECT_EQ(python::raise(silentRefusal), nullptr);
    EXPECT_EQ(takeError(), "(none)");
}

PyObject* throwsRuntimeError(PyObject*, PyObject*) { throw std::runtime_error("host says no"); }
PyObject* throwsBadAlloc(PyObject*, PyObject*) { throw std::bad_alloc(); }
PyObject* throwsNumber(PyObject*) { throw 5; }

TEST_F(PyErrors, ExceptionsOfTheHostBecomeErrorsOfTheScript)
{
    EXPECT_EQ(python::guarded<throwsRuntimeError>(nullptr, nullptr), nullptr);
    EXPECT_EQ(takeError(), "Exception('host says no')");
    EXPECT_EQ(python::guarded<throwsBadAlloc>(nullptr, nullptr), nullptr);
    EXPECT_EQ(takeError(), "Exception('out of memory')");
    EXPECT_EQ(python::guardedSlot<throwsNumber>(nullptr), nullptr);
    EXPECT_EQ(takeError(), "Exception('unknown error in the host')");
}

TEST_F(PyErrors, ACapturedErrorCanBePutBack)
{
    PyErr_SetString(PyExc_KeyError, "kept");
    python::ErrorState state = python::ErrorState::fetch();
    EXPECT_EQ(PyErr_Occurred(), nullptr);
    state.restore();
    EXPECT_EQ(takeError(), "KeyError('kept')");
}

TEST_F(PyErrors, CapturingNoErrorGivesNone)
{
    python::ErrorState state = python::ErrorState::fetch();
    EXPECT_EQ(state.value(), nullptr);
    state.restore();
    EXPECT_EQ(PyErr_Occurred(), nullptr);
}

TEST(PythonVersion, LanguageVersionIsCutAtTheFirstBlank)
{
    EXPECT_EQ(python::languageVersionOf("3.8.10 (default, Nov 14)"),
              QStringLiteral("Python 3.8.10"));
}

TEST(PythonVersion, ATextWithoutABlankOrStartingWithOneIsAppendedWhole)
{
    EXPECT_EQ(python::languageVersionOf("3.8.10"), QStringLiteral("Python 3.8.10"));
    EXPECT_EQ(python::languageVersionOf(" 3.8.10 x"), QStringLiteral("Python  3.8.10 x"));
    EXPECT_EQ(python::languageVersionOf(""), QStringLiteral("Python "));
}

TEST(PythonVersion, ComparesWithTheRunningInterpreter)
{
    EXPECT_TRUE(python::isAtLeast(3, 8));
    EXPECT_FALSE(python::isAtLeast(3, 99));
    EXPECT_FALSE(python::isAtLeast(4, 0));
}

} // namespace
