// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for shared variables. They may be called on any thread.
#include "FuncApp/AppVariables.h"

#include "FuncApp/GlobalVariables.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

using python::newNone;

namespace {

/// What a script gets to see of a stored image: an object that shares it.
PyObject* borrowerOrNone(CxImageData* image)
{
    return image != nullptr ? fx_pyimg_createNewImageObject(image, false) : newNone();
}

} // namespace

PyObject* fx_pyapp_SetGlobalVariableImg(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    PyObject* object = nullptr;
    if (!PyArg_ParseTuple(args, "sO", &name, &object))
        return nullptr;
    Outcome<CxImageData*> image = fx_pyimg_imageArgument(object);
    if (!image && image.refusal().message != nullptr)
        return python::raise(image.refusal());
    // An empty image object is no error here: it takes the variable's image away.
    global_variables::setImage(QString::fromUtf8(name), image ? image.value() : nullptr);
    return newNone();
}

PyObject* fx_pyapp_GetGlobalVariableImg(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    if (!PyArg_ParseTuple(args, "s", &name))
        return nullptr;
    return global_variables::readImage(QString::fromUtf8(name), borrowerOrNone);
}

PyObject* fx_pyapp_SetGlobalVariableInt(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    int value = 0;
    if (!PyArg_ParseTuple(args, "si", &name, &value))
        return nullptr;
    global_variables::setInt(QString::fromUtf8(name), value);
    return newNone();
}

PyObject* fx_pyapp_GetGlobalVariableInt(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    if (!PyArg_ParseTuple(args, "s", &name))
        return nullptr;
    return global_variables::readInt(QString::fromUtf8(name), PyLong_FromLong);
}

PyObject* fx_pyapp_SetGlobalVariableString(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    const char* value = nullptr;
    if (!PyArg_ParseTuple(args, "ss", &name, &value))
        return nullptr;
    global_variables::setString(QString::fromUtf8(name), QString::fromUtf8(value));
    return newNone();
}

PyObject* fx_pyapp_GetGlobalVariableString(PyObject*, PyObject* args)
{
    const char* name = nullptr;
    if (!PyArg_ParseTuple(args, "s", &name))
        return nullptr;
    return global_variables::readString(QString::fromUtf8(name), [](const QString& text) {
        return PyUnicode_FromString(text.toUtf8().constData());
    });
}
