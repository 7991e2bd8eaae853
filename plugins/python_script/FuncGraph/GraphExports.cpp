// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Graph`: drawing into a picture, copying a series to the clipboard.
#include "FuncGraph/GraphClipboard.h"
#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphMethods.h"
#include "FuncGraph/GraphRendering.h"
#include "FuncGraph/GraphType.h"
#include "FuncGraph/PictureCanvas.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <CxImageData.h>

namespace {

PyObject* noneOrError(const char* error)
{
    return error == nullptr ? python::newNone() : python::raise(Refusal{error});
}

} // namespace

PyObject* fx_pygraph_DrawIntoImage(PyObject* self, PyObject* imageObject)
{
    const CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    Outcome<CxImageData*> image = fx_pyimg_imageArgument(imageObject);
    if (!image)
        return python::raise(image.refusal());
    if (const char* error = picture_canvas::formatError(*image.value()->picBuf()))
        return python::raise(Refusal{error});
    return noneOrError(fx_script_DrawIntoImage(graph, image.value()));
}

PyObject* fx_pygraph_CopySeriesDataToClipboard(PyObject* self, PyObject* args)
{
    CxGraphData* graph = fx_pygraph_dataOrError(self);
    if (graph == nullptr)
        return nullptr;
    int number = 0;
    if (!PyArg_ParseTuple(args, "i", &number))
        return nullptr;
    // Unlike all other methods this one counts from 1. The least integer has no predecessor.
    const CxGraphData::CxSeries* series = number > 0 ? graph->seriesAt(number - 1) : nullptr;
    return noneOrError(series != nullptr ? graph_clipboard::copy(*series) : nullptr);
}
