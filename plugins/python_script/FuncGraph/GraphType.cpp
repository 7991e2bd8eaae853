// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Graph`: method table, slots, creation.
#include "FuncGraph/GraphType.h"

#include "CallGuard.h"
#include "CxPythonScriptPlugin.h"
#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphMessages.h"
#include "FuncGraph/GraphMethods.h"
#include "Logging.h"
#include "PyErrors.h"

#include <new>

using python::guarded;
using python::slotOf;

PyObject* TxPyGraphType = nullptr;

PyMethodDef px_graph_meths[] = {
    {"add_series", guarded<fx_pygraph_AddSeries>, METH_NOARGS, nullptr},
    {"series_add_point", guarded<fx_pygraph_SeriesAddPoint>, METH_VARARGS, nullptr},
    {"series_set_line_color", guarded<fx_pygraph_SeriesSetLineColor>, METH_VARARGS, nullptr},
    {"get_series_count", guarded<fx_pygraph_GetSeriesCount>, METH_NOARGS, nullptr},
    {"set_x_axis_range", guarded<fx_pygraph_SetXAxisRange>, METH_VARARGS, nullptr},
    {"set_x_axis_range_auto", guarded<fx_pygraph_SetXAxisRangeAuto>, METH_VARARGS, nullptr},
    {"set_y_axis_range", guarded<fx_pygraph_SetYAxisRange>, METH_VARARGS, nullptr},
    {"set_y_axis_range_auto", guarded<fx_pygraph_SetYAxisRangeAuto>, METH_VARARGS, nullptr},
    {"set_background_color", guarded<fx_pygraph_SetBackgroundColor>, METH_VARARGS, nullptr},
    {"set_axes_color", guarded<fx_pygraph_SetAxesColor>, METH_VARARGS, nullptr},
    {"set_grid_color", guarded<fx_pygraph_SetGridColor>, METH_VARARGS, nullptr},
    {"set_dark_color_theme", guarded<fx_pygraph_SetDarkColorTheme>, METH_VARARGS, nullptr},
    {"draw_into_image", guarded<fx_pygraph_DrawIntoImage>, METH_O, nullptr},
    {"copy_series_data_to_clipboard", guarded<fx_pygraph_CopySeriesDataToClipboard>, METH_VARARGS,
     nullptr},
    {nullptr, nullptr, 0, nullptr},
};

namespace {

SxPyGraph& record(PyObject* self) { return *reinterpret_cast<SxPyGraph*>(self); }

/// Ignores its arguments. A model that the object had before is abandoned, not deleted: that is how
/// the type is meant to be. Without memory for a model the object stays empty.
int fx_pygraph_Init(PyObject* self, PyObject*, PyObject*)
{
    record(self).graphData = new (std::nothrow) CxGraphData;
    return 0;
}

PyType_Slot TxPyGraphType_Slots[] = {
    {Py_tp_dealloc, slotOf(fx_pygraph_Free)},
    {Py_tp_methods, px_graph_meths},
    {Py_tp_init, slotOf(fx_pygraph_Init)},
    {Py_tp_new, slotOf(PyType_GenericNew)},
    {0, nullptr},
};

PyType_Spec TxPyGraphType_Spec{"vistrel.Graph", sizeof(SxPyGraph), 0, Py_TPFLAGS_DEFAULT,
                               TxPyGraphType_Slots};

} // namespace

void fx_pygraphs_TypeReady()
{
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", nullptr, "graphObj", px_graph_meths);
    TxPyGraphType = PyType_FromSpec(&TxPyGraphType_Spec);
    if (TxPyGraphType == nullptr) {
        logCritical("fx_pygraphs_TypeReady(): %1",
                    QStringLiteral("Failed to register vistrel.GraphType"));
        PyErr_Clear(); // the module is made without the type
    }
}

int fx_pygraphs_TypeAdd(PyObject* module)
{
    return python::addType(module, "Graph", TxPyGraphType);
}

CxGraphData* fx_pygraph_dataOrError(PyObject* self)
{
    CxGraphData* graph = self != nullptr ? record(self).graphData : nullptr;
    if (graph == nullptr)
        python::raise(Refusal{graph_messages::emptyObject});
    return graph;
}

void fx_pygraph_Free(PyObject* self)
{
    if (self == nullptr)
        return;
    delete record(self).graphData;
    record(self).graphData = nullptr;
}
