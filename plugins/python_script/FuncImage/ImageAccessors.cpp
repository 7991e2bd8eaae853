// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: text form and the get_ methods for geometry and frame numbers. On an empty
// object these methods give a null result without an exception; the interpreter reports that
// itself.
#include "FuncImage/ImageDescription.h"
#include "FuncImage/ImageMessages.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "PyText.h"

#include <SxPicBuf.h>

namespace {

PyObject* unsignedOrNull(PyObject* self, quint32 SxPicBuf::*field)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return buffer != nullptr ? PyLong_FromLongLong(buffer->*field) : nullptr;
}

} // namespace

PyObject* fx_pyimg_ToString(PyObject* self)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return python::newText(buffer != nullptr ? image_description::textOf(*buffer)
                                             : QString::fromUtf8(image_messages::emptyObject))
        .release();
}

PyObject* fx_pyimg_GetWidth(PyObject* self, PyObject*)
{
    return unsignedOrNull(self, &SxPicBuf::width);
}

PyObject* fx_pyimg_GetHeight(PyObject* self, PyObject*)
{
    return unsignedOrNull(self, &SxPicBuf::height);
}

PyObject* fx_pyimg_GetChannels(PyObject* self, PyObject*)
{
    return unsignedOrNull(self, &SxPicBuf::channels);
}

PyObject* fx_pyimg_GetBpc(PyObject* self, PyObject*)
{
    return unsignedOrNull(self, &SxPicBuf::bpc);
}

PyObject* fx_pyimg_GetFrameNumber(PyObject* self, PyObject*)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return buffer != nullptr ? PyLong_FromLong(buffer->frameNumber) : nullptr;
}

PyObject* fx_pyimg_GetTimeStamp(PyObject* self, PyObject*)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return buffer != nullptr ? PyLong_FromLongLong(buffer->timestampUs) : nullptr;
}

PyObject* fx_pyimg_GetBytesPerPixel(PyObject* self, PyObject*)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return buffer != nullptr ? PyLong_FromUnsignedLong(buffer->bytesPerPixel()) : nullptr;
}
