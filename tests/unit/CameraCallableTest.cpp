// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The body of a camera's dynamic attributes, bound to what no look-up binds it to; the memory of
// texts.
#include "PythonTest.h"

#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraType.h"
#include "FuncCamera/TextCache.h"

#include <QtCore/QString>

#include <vector>

using python::PyRef;

namespace {

class CameraCallable : public PythonTest {
protected:
    CameraCallable() { fx_pycams_TypeReady(); }

    static void expectNone(const PyRef& self)
    {
        ASSERT_NE(self.get(), nullptr);
        const PyRef result = PyRef::take(fx_pycam_setget_camera_parameter(self.get(), nullptr));
        EXPECT_EQ(result.get(), Py_None);
        EXPECT_EQ(takeError(), "(none)");
    }
};

TEST_F(CameraCallable, BoundToNoTupleIsNone) { expectNone(PyRef::retain(Py_None)); }

TEST_F(CameraCallable, BoundToATupleWithoutACameraIsNone)
{
    expectNone(PyRef::take(Py_BuildValue("(is)", 5, "get_gain_db")));
    expectNone(PyRef::take(Py_BuildValue("(s)", "get_gain_db")));
    expectNone(PyRef::take(PyTuple_New(0)));
}

TEST_F(CameraCallable, BoundToSomethingElseThanAParametersNameIsNone)
{
    const PyRef camera = PyRef::take(PyObject_CallObject(TxPyCameraType, nullptr));
    expectNone(PyRef::take(Py_BuildValue("(Oi)", camera.get(), 5)));
    expectNone(PyRef::take(Py_BuildValue("(Os)", camera.get(), "open_device")));
}

class TextMemory : public PythonTest {
protected:
    static PyRef newText(const char* text) { return PyRef::take(PyUnicode_FromString(text)); }

    TextCache<QString> cache;
};

TEST_F(TextMemory, KnowsTheVeryObjectOnly)
{
    const PyRef text = newText("a text");
    const PyRef equal = newText("a text");
    EXPECT_TRUE(cache.find(text.get()).isEmpty());
    cache.add(text.get(), QStringLiteral("made"));
    EXPECT_EQ(cache.find(text.get()).toStdString(), "made");
    EXPECT_TRUE(cache.find(equal.get()).isEmpty());
    EXPECT_TRUE(cache.find(nullptr).isEmpty());
}

TEST_F(TextMemory, HoldsTheTextUntilAnotherTakesItsPlace)
{
    PyRef text = newText("a text");
    const Py_ssize_t before = Py_REFCNT(text.get());
    cache.add(text.get(), QStringLiteral("made"));
    cache.add(text.get(), QStringLiteral("made again"));
    EXPECT_EQ(Py_REFCNT(text.get()), before + 1);
    // They are kept: the address of one that has gone would be given to the next one.
    std::vector<PyRef> others;
    while (others.size() < 10'000 && Py_REFCNT(text.get()) != before) {
        others.push_back(PyRef::take(PyUnicode_FromFormat("text %zu", others.size())));
        cache.add(others.back().get(), QStringLiteral("other"));
    }
    EXPECT_EQ(Py_REFCNT(text.get()), before);
    EXPECT_TRUE(cache.find(text.get()).isEmpty());
}

TEST_F(TextMemory, DoesNotHoldObjectsOfAScriptNorLongTexts)
{
    run("class Name(str): pass\nname = Name('a text')");
    const PyRef names = PyRef::retain(PyModule_GetDict(PyImport_AddModule("__main__")));
    PyObject* const derived = PyDict_GetItemString(names.get(), "name");
    cache.add(derived, QStringLiteral("made"));
    EXPECT_TRUE(cache.find(derived).isEmpty());
    const PyRef longText = newText(std::string(1000, 'x').c_str());
    cache.add(longText.get(), QStringLiteral("made"));
    EXPECT_TRUE(cache.find(longText.get()).isEmpty());
}

TEST_F(TextMemory, ForgetsWithoutTouchingTheTexts)
{
    const PyRef text = newText("a text");
    cache.add(text.get(), QStringLiteral("made"));
    const Py_ssize_t before = Py_REFCNT(text.get());
    cache.forget();
    EXPECT_TRUE(cache.find(text.get()).isEmpty());
    EXPECT_EQ(Py_REFCNT(text.get()), before);
}

} // namespace
