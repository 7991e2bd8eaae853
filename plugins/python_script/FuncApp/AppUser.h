// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions that talk to the user.
#pragma once

#include "PythonApi.h"

PyObject* fx_pyapp_MessageBox(PyObject* self, PyObject* args);
PyObject* fx_pyapp_ShowNotification(PyObject* self, PyObject* args);
PyObject* fx_pyapp_PrintToErrorLog(PyObject* self, PyObject* args);
PyObject* fx_pyapp_AskUserForString(PyObject* self, PyObject* args);
PyObject* fx_pyapp_AddMenuItem(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetWorkingDirectory(PyObject* self, PyObject* args);
PyObject* fx_pyapp_PlaySound(PyObject* self, PyObject* args);
