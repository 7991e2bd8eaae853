// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Camera`: a thin handle on one of the host's opened cameras.
//
//     class Camera:
//         def open_device(self, index: int = 0, /) -> None: ...
//         ...
#pragma once

#include "PythonApi.h"

class CxCameraParameters;

/// The instance record. It owns nothing: the host may close the camera at any time, so every use
/// looks the handle up again.
struct pycam_userdata {
    PyObject_HEAD void* cameraHandle; ///< null: not bound
};

/// The type object; null until the module was made, or when making it failed.
extern PyObject* TxPyCameraType;
extern PyMethodDef px_camera_meths[];

/// Makes the type, with its help texts. A failure is logged and leaves TxPyCameraType null.
void fx_pycams_TypeReady();
/// Adds the type to the module as "Camera". 1 on success, 0 on failure.
int fx_pycams_TypeAdd(PyObject* module);
/// The module's function get_number_devices.
PyObject* fx_pycams_GetCount(PyObject* self, PyObject* args);

/// The camera's parameters as the host has them now; null when the object is not bound or the host
/// has closed the camera.
CxCameraParameters* fx_pycam_parameters(const pycam_userdata* camera);

/// The record of an object that is known to be a camera.
inline pycam_userdata* fx_pycam_record(PyObject* self)
{
    return reinterpret_cast<pycam_userdata*>(self);
}
