// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Module functions for views and files.
#pragma once

#include "PythonApi.h"

PyObject* fx_pyapp_OpenFile(PyObject* self, PyObject* args);
PyObject* fx_pyapp_SaveToFile(PyObject* self, PyObject* args);
PyObject* fx_pyapp_DuplicateView(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetActiveViewId(PyObject* self, PyObject* args);
PyObject* fx_pyapp_ActivateView(PyObject* self, PyObject* args);
PyObject* fx_pyapp_CloseView(PyObject* self, PyObject* args);
PyObject* fx_pyapp_TileViews(PyObject* self, PyObject* args);
PyObject* fx_pyapp_SwitchFullScreen(PyObject* self, PyObject* args);
PyObject* fx_pyapp_WaitForNextFrame(PyObject* self, PyObject* args);
PyObject* fx_pyapp_Wait(PyObject* self, PyObject* args);
PyObject* fx_pyapp_GetViewImage(PyObject* self, PyObject* args);
PyObject* fx_pyapp_SetViewImage(PyObject* self, PyObject* args);
PyObject* fx_pyapp_NewViewWithImage(PyObject* self, PyObject* args);
