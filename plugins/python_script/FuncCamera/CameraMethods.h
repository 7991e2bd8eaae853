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

// CameraControl.cpp
PyObject* fx_pycam_StartAcquisition(PyObject* self, PyObject* args);
PyObject* fx_pycam_StopAcquisition(PyObject* self, PyObject* args);
