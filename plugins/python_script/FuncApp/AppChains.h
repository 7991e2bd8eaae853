// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for processing chains and video recording.
#pragma once

#include "PythonApi.h"

PyObject* fx_pyapp_AddChainObject(PyObject* self, PyObject* args);
PyObject* fx_pyapp_RecordVideoToFile(PyObject* self, PyObject* args);
PyObject* fx_pyapp_StopVideoRecording(PyObject* self, PyObject* args);
