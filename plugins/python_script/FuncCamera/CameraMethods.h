// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Slots and methods of `vistrel.Camera`, by the file that defines them.
#pragma once

#include "PythonApi.h"

// CameraBinding.cpp
PyObject* fx_pycam_ToString(PyObject* self);
PyObject* fx_pycam_Open(PyObject* self, PyObject* args);
PyObject* fx_pycam_OpenByUserId(PyObject* self, PyObject* args);
PyObject* fx_pycam_OpenBySN(PyObject* self, PyObject* args);
PyObject* fx_pycam_OpenByPath(PyObject* self, PyObject* args);
PyObject* fx_pycam_Close(PyObject* self, PyObject* args);

// CameraParameters.cpp
PyObject* fx_pycam_SetParam(PyObject* self, PyObject* args);
PyObject* fx_pycam_GetParam(PyObject* self, PyObject* args);

// CameraAttributes.cpp
PyObject* fx_pycam_GetAttrO(PyObject* self, PyObject* name);
/// The body of dynamic attributes. `self` is a tuple of camera and attribute name, everything else
/// gives None; the argument is null for those that take none.
PyObject* fx_pycam_setget_camera_parameter(PyObject* self, PyObject* argument);

// CameraControl.cpp
PyObject* fx_pycam_GetDeviceInfoString(PyObject* self, PyObject* args);
PyObject* fx_pycam_SetRoi(PyObject* self, PyObject* args);
PyObject* fx_pycam_GetRoi(PyObject* self, PyObject* args);
PyObject* fx_pycam_StartAcquisition(PyObject* self, PyObject* args);
PyObject* fx_pycam_StopAcquisition(PyObject* self, PyObject* args);
PyObject* fx_pycam_SaveSettingsToFile(PyObject* self, PyObject* args);
PyObject* fx_pycam_LoadSettingsFromFile(PyObject* self, PyObject* args);

// CameraCapture.cpp
PyObject* fx_pycam_AskUserCaptureImage(PyObject* self, PyObject* args);

// CameraRestart.cpp
PyObject* fx_pycam_RestartWithDefaultSettings(PyObject* self, PyObject* args);
