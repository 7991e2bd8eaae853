// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: methods that derive a new picture or change one in place. In-place methods
// return None whatever the host reports.
#include "FuncImage/ImageConversions.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

namespace {

/// The buffer of another image that a script passes; refused as fx_pyimg_imageArgument does.
Outcome<SxPicBuf*> bufferArgument(PyObject* object)
{
    Outcome<CxImageData*> image = fx_pyimg_imageArgument(object);
    if (!image)
        return image.refusal();
    SxPicBuf* buffer = image.value()->picBuf();
    if (buffer == nullptr)
        return silentRefusal;
    return buffer;
}

/// Calls `operation` with the own buffer and the other image's.
template<class Operation>
PyObject* withOther(PyObject* self, PyObject* other, Operation operation)
{
    SxPicBuf* own = fx_pyimg_buffer(self);
    if (own == nullptr)
        return nullptr;
    Outcome<SxPicBuf*> buffer = bufferArgument(other);
    if (!buffer)
        return python::raise(buffer.refusal());
    operation(*own, *buffer.value());
    return python::newNone();
}

} // namespace

PyObject* fx_pyimg_ToRgb(PyObject* self, PyObject*)
{
    const SxPicBuf* buffer = fx_pyimg_buffer(self);
    return buffer != nullptr ? fx_pyimg_newOwnerOrError(image_conversions::toRgb(*buffer))
                             : nullptr;
}

PyObject* fx_pyimg_ExtractChannel(PyObject* self, PyObject* args)
{
    int channel = 0;
    const SxPicBuf* buffer = fx_pyimg_bufferAndArguments(self, args, "i", &channel);
    if (buffer == nullptr)
        return nullptr;
    return fx_pyimg_newOwnerOrError(image_conversions::channelOf(*buffer, channel));
}

PyObject* fx_pyimg_ConvertBpc(PyObject* self, PyObject* args)
{
    int bpc = 0;
    int scale = 1;
    const SxPicBuf* buffer = fx_pyimg_bufferAndArguments(self, args, "i|p", &bpc, &scale);
    if (buffer == nullptr)
        return nullptr;
    return fx_pyimg_newOwnerOrError(image_conversions::withBpc(*buffer, bpc, scale != 0));
}

PyObject* fx_pyimg_Crop(PyObject* self, PyObject* args)
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    const SxPicBuf* buffer = fx_pyimg_bufferAndArguments(self, args, "iiii", &x, &y, &w, &h);
    if (buffer == nullptr)
        return nullptr;
    return fx_pyimg_newOwnerOrError(image_conversions::cropped(*buffer, x, y, w, h));
}

PyObject* fx_pyimg_Resize(PyObject* self, PyObject* args)
{
    int newWidth = 0;
    int newHeight = 0;
    int x = 0;
    int y = 0;
    // By default one pixel is scaled up, an old habit that scripts rely on: the whole picture takes
    // an explicit w and h of 0.
    int w = 1;
    int h = 1;
    const SxPicBuf* buffer =
        fx_pyimg_bufferAndArguments(self, args, "ii|iiii", &newWidth, &newHeight, &x, &y, &w, &h);
    if (buffer == nullptr)
        return nullptr;
    return fx_pyimg_newOwnerOrError(
        image_conversions::resized(*buffer, newWidth, newHeight, x, y, w, h));
}

PyObject* fx_pyimg_CopyTo(PyObject* self, PyObject* target)
{
    return withOther(self, target, [](const SxPicBuf& own, SxPicBuf& other) {
        CxPicBufAPI::CopyPicBuf(other, own, true);
    });
}

PyObject* fx_pyimg_CopyRectTo(PyObject* self, PyObject* args)
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    PyObject* target = nullptr;
    int targetX = 0;
    int targetY = 0;
    if (!PyArg_ParseTuple(args, "iiiiOii", &x, &y, &w, &h, &target, &targetX, &targetY))
        return nullptr;
    return withOther(self, target, [&](const SxPicBuf& own, SxPicBuf& other) {
        CxPicBufAPI::CopyRect(other, targetX, targetY, own, x, y, w, h);
    });
}

PyObject* fx_pyimg_ResizeTo(PyObject* self, PyObject* target)
{
    return withOther(self, target,
                     [](const SxPicBuf& own, SxPicBuf& other) { CxPicBufAPI::Resize(own, other); });
}

PyObject* fx_pyimg_ResizeRectTo(PyObject* self, PyObject* args)
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    PyObject* target = nullptr;
    int targetX = 0;
    int targetY = 0;
    int targetW = 0;
    int targetH = 0;
    if (!PyArg_ParseTuple(args, "iiiiOiiii", &x, &y, &w, &h, &target, &targetX, &targetY, &targetW,
                          &targetH))
        return nullptr;
    return withOther(self, target, [&](const SxPicBuf& own, SxPicBuf& other) {
        CxPicBufAPI::ResizeRect(own, x, y, w, h, other, targetX, targetY, targetW, targetH);
    });
}

PyObject* fx_pyimg_Add(PyObject* self, PyObject* other)
{
    return withOther(self, other, CxPicBufAPI::Add);
}

PyObject* fx_pyimg_Subtract(PyObject* self, PyObject* other)
{
    return withOther(self, other, CxPicBufAPI::Subtract);
}

PyObject* fx_pyimg_DivideByValue(PyObject* self, PyObject* args)
{
    int divisor = 0;
    SxPicBuf* buffer = fx_pyimg_bufferAndArguments(self, args, "i", &divisor);
    if (buffer == nullptr)
        return nullptr;
    CxPicBufAPI::DivideByValue(*buffer, divisor);
    return python::newNone();
}
