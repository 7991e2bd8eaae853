// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Graph`: methods on series and their points.
#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphMethods.h"
#include "FuncGraph/GraphType.h"
#include "PyRef.h"

PyObject* fx_pygraph_AddSeries(PyObject* self, PyObject*)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    return graph != nullptr ? PyLong_FromSsize_t(graph->addSeries()) : nullptr;
}

PyObject* fx_pygraph_SeriesAddPoint(PyObject* self, PyObject* args)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int index = 0;
    double x = 0.0;
    double y = 0.0;
    if (!PyArg_ParseTuple(args, "idd", &index, &x, &y))
        return nullptr;
    // An index without a series is no error.
    if (CxGraphData::CxSeries* series = graph->seriesAt(index))
        series->points.append(QPointF(x, y));
    return python::newNone();
}

PyObject* fx_pygraph_SeriesSetLineColor(PyObject* self, PyObject* args)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int index = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0; // taken and dropped: lines are opaque
    if (!PyArg_ParseTuple(args, "iiii|i", &index, &red, &green, &blue, &alpha))
        return nullptr;
    if (CxGraphData::CxSeries* series = graph->seriesAt(index))
        series->lineColor.setRgb(red, green, blue, 255);
    return python::newNone();
}

PyObject* fx_pygraph_GetSeriesCount(PyObject* self, PyObject*)
{
    const CxGraphData* graph = fx_pygraph_dataOrError(self);
    return graph != nullptr ? PyLong_FromSsize_t(graph->series.size()) : nullptr;
}
