// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: methods that hand the pixels out (bytes, copies, a picture for array libraries).
#include "FuncImage/ImageCopies.h"
#include "FuncImage/ImageMessages.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <CxImageData.h>

PyObject* fx_pyimg_ToBytes(PyObject* self, PyObject*)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    if (buffer == nullptr)
        return python::raise(Refusal{image_messages::emptyObject});
    return PyBytes_FromStringAndSize(reinterpret_cast<const char*>(buffer->data),
                                     static_cast<Py_ssize_t>(buffer->dataSize()));
}

PyObject* fx_pyimg_GetImageDataRaw(PyObject* self, PyObject* args)
{
    return fx_pyimg_ToBytes(self, args);
}

PyObject* fx_pyimg_GetImageDataNumpy(PyObject* self, PyObject* args)
{
    int keepOrder = 0;
    if (!PyArg_ParseTuple(args, "|p", &keepOrder))
        return nullptr;
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    if (buffer == nullptr)
        return nullptr;
    if (keepOrder != 0 || !buffer->isRgb)
        return python::PyRef::retain(self).release();
    return fx_pyimg_newOwnerOrError(
        image_copies::withRedAndBlueSwapped(*fx_pyimg_getImageObjectData(self)));
}

PyObject* fx_pyimg_NewCopy(PyObject* self, PyObject*)
{
    CxImageData* image = fx_pyimg_getImageObjectData(self);
    return image != nullptr ? fx_pyimg_newOwnerOrError(image_copies::cloneOf(*image)) : nullptr;
}
