// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Graph`: a line chart that a script builds, then draws into a picture.
//
//     class Graph:
//         def add_series(self) -> int: ...
//         def series_add_point(self, series: int, x: float, y: float, /) -> None: ...
//         ...
#pragma once

#include "PythonApi.h"

struct CxGraphData;

/// The instance record. The model lives outside Python's heap and belongs to the object.
struct SxPyGraph {
    PyObject_HEAD CxGraphData* graphData; ///< null before __init__ and after deallocation
};

/// The type object; null until the module was made, or when making it failed.
extern PyObject* TxPyGraphType;
extern PyMethodDef px_graph_meths[];

/// Makes the type, with its help texts. A failure is logged and leaves TxPyGraphType null.
void fx_pygraphs_TypeReady();
/// Adds the type to the module as "Graph". 1 on success, 0 on failure.
int fx_pygraphs_TypeAdd(PyObject* module);

/// The model behind a graph object; null with Python's error set when there is none.
CxGraphData* fx_pygraph_dataOrError(PyObject* self);

/// Deletes the model. As the type's deallocator it never gives the object's own memory back, nor
/// the object's reference to its type: that is how the type is meant to be.
void fx_pygraph_Free(PyObject* self);
