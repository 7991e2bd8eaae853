// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Graph`: methods on axis ranges and colours.
#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphMethods.h"
#include "FuncGraph/GraphType.h"
#include "PyRef.h"

namespace {

PyObject* setRange(PyObject* self, PyObject* args, double CxGraphData::*minimum,
                   double CxGraphData::*maximum, bool CxGraphData::*automatic)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    double from = 0.0;
    double to = 0.0;
    if (!PyArg_ParseTuple(args, "dd", &from, &to))
        return nullptr;
    graph->*minimum = from;
    graph->*maximum = to;
    graph->*automatic = false;
    return python::newNone();
}

PyObject* setAutomatic(PyObject* self, PyObject* args, bool CxGraphData::*automatic)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int on = 0;
    if (!PyArg_ParseTuple(args, "p", &on))
        return nullptr;
    graph->*automatic = on != 0;
    return python::newNone();
}

PyObject* setColor(PyObject* self, PyObject* args, QColor CxGraphData::*color)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0; // taken and dropped: charts are opaque
    if (!PyArg_ParseTuple(args, "iii|i", &red, &green, &blue, &alpha))
        return nullptr;
    (graph->*color).setRgb(red, green, blue, 255);
    return python::newNone();
}

} // namespace

PyObject* fx_pygraph_SetXAxisRange(PyObject* self, PyObject* args)
{
    return setRange(self, args, &CxGraphData::xMinimum, &CxGraphData::xMaximum,
                    &CxGraphData::xAutomatic);
}

PyObject* fx_pygraph_SetXAxisRangeAuto(PyObject* self, PyObject* args)
{
    return setAutomatic(self, args, &CxGraphData::xAutomatic);
}

PyObject* fx_pygraph_SetYAxisRange(PyObject* self, PyObject* args)
{
    return setRange(self, args, &CxGraphData::yMinimum, &CxGraphData::yMaximum,
                    &CxGraphData::yAutomatic);
}

PyObject* fx_pygraph_SetYAxisRangeAuto(PyObject* self, PyObject* args)
{
    return setAutomatic(self, args, &CxGraphData::yAutomatic);
}

PyObject* fx_pygraph_SetBackgroundColor(PyObject* self, PyObject* args)
{
    return setColor(self, args, &CxGraphData::backgroundColor);
}

PyObject* fx_pygraph_SetAxesColor(PyObject* self, PyObject* args)
{
    return setColor(self, args, &CxGraphData::axesColor);
}

PyObject* fx_pygraph_SetGridColor(PyObject* self, PyObject* args)
{
    return setColor(self, args, &CxGraphData::gridColor);
}

PyObject* fx_pygraph_SetDarkColorTheme(PyObject* self, PyObject* args)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int on = 1;
    if (!PyArg_ParseTuple(args, "|p", &on))
        return nullptr;
    graph->setDarkColorTheme(on != 0);
    return python::newNone();
}
