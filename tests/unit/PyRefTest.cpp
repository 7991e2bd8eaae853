// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The owner of references: counts at every move.
#include "PythonTest.h"

using python::PyRef;

namespace {

class PyRefs : public PythonTest {
protected:
    /// An object that nobody else holds, and its count.
    PyObject* object = PyList_New(0);
    Py_ssize_t count() const { return Py_REFCNT(object); }
};

TEST_F(PyRefs, TakeAddsNoReferenceAndReleasesIt)
{
    Py_ssize_t inside = 0;
    PyRef keeper = PyRef::retain(object);
    {
        const PyRef owner = PyRef::take(object);
        inside = count();
    }
    EXPECT_EQ(inside, 2);
    EXPECT_EQ(count(), 1);
}

TEST_F(PyRefs, RetainAddsOne)
{
    const PyRef owner = PyRef::take(object);
    {
        const PyRef second = PyRef::retain(object);
        EXPECT_EQ(count(), 2);
    }
    EXPECT_EQ(count(), 1);
}

TEST_F(PyRefs, MovingLeavesTheSourceEmpty)
{
    PyRef first = PyRef::take(object);
    const PyRef second = std::move(first);
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): what moving leaves is the question
    EXPECT_EQ(second.get(), object);
    EXPECT_EQ(count(), 1);
}

TEST_F(PyRefs, AssignmentReleasesTheOldReference)
{
    PyRef keeper = PyRef::take(object);
    PyRef other = PyRef::retain(object);
    other = PyRef::take(PyList_New(0));
    EXPECT_EQ(count(), 1);
    other = PyRef();
    EXPECT_FALSE(other);
}

TEST_F(PyRefs, ReleaseHandsTheReferenceOver)
{
    PyRef owner = PyRef::take(object);
    PyObject* const mine = owner.release();
    EXPECT_EQ(mine, object);
    EXPECT_FALSE(owner);
    EXPECT_EQ(count(), 1);
    const PyRef cleanUp = PyRef::take(mine);
}

TEST_F(PyRefs, NullIsAllowedEverywhere)
{
    const PyRef cleanUp = PyRef::take(object);
    PyRef none = PyRef::take(nullptr);
    const PyRef alsoNone = PyRef::retain(nullptr);
    EXPECT_FALSE(none);
    EXPECT_FALSE(alsoNone);
    EXPECT_EQ(none.release(), nullptr);
}

TEST_F(PyRefs, ATypeIsAddedWithoutLosingAReference)
{
    const PyRef owner = PyRef::take(object);
    const PyRef module = PyRef::take(PyModule_New("probe"));
    EXPECT_EQ(python::addType(module.get(), "Thing", object), 1);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(python::addType(module.get(), "Nothing", nullptr), 0);
    EXPECT_EQ(python::addType(object, "NotAModule", object), 0);
    PyErr_Clear();
    EXPECT_EQ(count(), 2);
}

} // namespace
