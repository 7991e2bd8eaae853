// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for shared variables.
#pragma once

#include "PythonApi.h"

PyObject* fx_pyapp_SetGlobalVariableImg(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetGlobalVariableImg(PyObject* self, PyObject* args);
PyObject* fx_pyapp_SetGlobalVariableInt(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetGlobalVariableInt(PyObject* self, PyObject* args);
PyObject* fx_pyapp_SetGlobalVariableString(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetGlobalVariableString(PyObject* self, PyObject* args);
