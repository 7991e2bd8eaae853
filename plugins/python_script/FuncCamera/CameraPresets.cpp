// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shading presets with the calling convention of a camera's methods.
#include "FuncCamera/CameraPresets.h"

#include "CallGuard.h"
#include "FuncCamera/CameraType.h"
#include "FuncCamera/ShadingPresets.h"
#include "PyRef.h"

namespace {

PyObject* activatePreset(PyObject* self, PyObject* args)
{
    CxCameraParameters* parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters == nullptr)
        return nullptr;
    const char* name = nullptr;
    if (!PyArg_ParseTuple(args, "|s", &name))
        return nullptr;
    shading_presets::activate(*parameters, QString::fromUtf8(name));
    return python::newNone();
}

PyObject* createPreset(PyObject* self, PyObject* args)
{
    const char* name = nullptr;
    const char* description = nullptr;
    const char* target = nullptr;
    if (!PyArg_ParseTuple(args, "ss|s", &name, &description, &target))
        return nullptr;
    CxCameraParameters* parameters = fx_pycam_parameters(fx_pycam_record(self));
    if (parameters == nullptr)
        return nullptr;
    shading_presets::create(*parameters, QString::fromUtf8(name), QString::fromUtf8(description),
                            QString::fromUtf8(target));
    return python::newNone();
}

} // namespace

// No table guards these calls, so that they guard themselves.

PyObject* fx_pycam_ActivateShadingPreset(PyObject* self, PyObject* args)
{
    return python::guarded<activatePreset>(self, args);
}

PyObject* fx_pycam_CreateShadingPreset(PyObject* self, PyObject* args)
{
    return python::guarded<createPreset>(self, args);
}
