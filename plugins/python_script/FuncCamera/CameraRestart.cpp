// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Camera`: restarting the camera.
#include "FuncCamera/CameraRestart.h"

#include "FuncCamera/CameraMethods.h"
#include "FuncCamera/CameraType.h"
#include "FuncCamera/RestartedCamera.h"
#include "Interrupts.h"
#include "PyRef.h"

void* fx_script_restartCamera(void* cameraHandle)
{
    return restarted_camera::find(cameraHandle, python::isUninterrupted);
}

PyObject* fx_pycam_RestartWithDefaultSettings(PyObject* self, PyObject*)
{
    pycam_userdata* const camera = fx_pycam_record(self);
    void* const handle = fx_script_restartCamera(camera->cameraHandle);
    if (PyErr_Occurred() != nullptr)
        return nullptr;
    // Without a new one the old handle stays; by now it may name no camera.
    if (handle != nullptr)
        camera->cameraHandle = handle;
    return python::newBool(handle != nullptr);
}
