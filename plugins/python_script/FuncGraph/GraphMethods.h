// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Methods of `vistrel.Graph`, by the file that defines them.
#pragma once

#include "PythonApi.h"

// GraphSeries.cpp
PyObject* fx_pygraph_AddSeries(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SeriesAddPoint(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SeriesSetLineColor(PyObject* self, PyObject* args);
PyObject* fx_pygraph_GetSeriesCount(PyObject* self, PyObject* args);

// GraphAppearance.cpp
PyObject* fx_pygraph_SetXAxisRange(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetXAxisRangeAuto(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetYAxisRange(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetYAxisRangeAuto(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetBackgroundColor(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetAxesColor(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetGridColor(PyObject* self, PyObject* args);
PyObject* fx_pygraph_SetDarkColorTheme(PyObject* self, PyObject* args);

// GraphExports.cpp
PyObject* fx_pygraph_DrawIntoImage(PyObject* self, PyObject* imageObject);
PyObject* fx_pygraph_CopySeriesDataToClipboard(PyObject* self, PyObject* args);
