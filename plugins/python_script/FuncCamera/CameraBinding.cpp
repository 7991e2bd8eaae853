// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: binding an object to one of the opened cameras, and its text form.
#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraSearch.h"
#include "FuncCamera/CameraType.h"
#include "PyErrors.h"
#include "PyText.h"

#include <CxCameraParameters.h>

namespace {

/// Binds the object and returns None, or raises why not: it then keeps the binding it has.
PyObject* bindOrError(PyObject* self, Outcome<void*> handle)
{
    if (!handle)
        return python::raise(handle.refusal());
    fx_pycam_record(self)->cameraHandle = handle.value();
    return python::newNone();
}

PyObject* openByField(PyObject* self, PyObject* args, QString SxCameraInfo::*field)
{
    const char* text = nullptr;
    if (!PyArg_ParseTuple(args, "s", &text))
        return nullptr;
    return bindOrError(self, camera_search::byField(field, QString::fromUtf8(text)));
}

} // namespace

PyObject* fx_pycam_ToString(PyObject* self)
{
    const CxCameraParameters* parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters == nullptr)
        return PyUnicode_FromString("camera(disconnected)");
    const SxCameraInfo& info = parameters->cameraInfo();
    return python::newText(
               QStringLiteral("camera(%1, sn: %2)").arg(info.deviceName, info.serialNumber))
        .release();
}

PyObject* fx_pycam_Open(PyObject* self, PyObject* args)
{
    int index = 0;
    if (!PyArg_ParseTuple(args, "|i", &index))
        return nullptr;
    return bindOrError(self, camera_search::atIndex(index));
}

PyObject* fx_pycam_OpenByUserId(PyObject* self, PyObject* args)
{
    return openByField(self, args, &SxCameraInfo::userId);
}

PyObject* fx_pycam_OpenBySN(PyObject* self, PyObject* args)
{
    return openByField(self, args, &SxCameraInfo::serialNumber);
}

PyObject* fx_pycam_OpenByPath(PyObject* self, PyObject* args)
{
    return openByField(self, args, &SxCameraInfo::instancePath);
}

PyObject* fx_pycam_Close(PyObject* self, PyObject*)
{
    // The camera stays open in the host.
    fx_pycam_record(self)->cameraHandle = nullptr;
    return python::newNone();
}
