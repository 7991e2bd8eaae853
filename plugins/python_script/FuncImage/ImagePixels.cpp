// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: methods that read, write and draw single pixels.
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "FuncImage/PixelAccess.h"
#include "PlainIntegers.h"
#include "PyErrors.h"

#include <SxPicBuf.h>

namespace {

/// What both drawing methods are given.
struct Drawing {
    long long value = 0;
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int channel = 0;
};

using DrawFunction = void (*)(SxPicBuf&, int, int, int, int, int, long long);

/// The object's buffer, with the integers of the arguments stored; null with an error set.
template<class... Integers>
SxPicBuf* bufferAndIntegers(PyObject* self, PyObject* args, const char* format,
                            Integers&... targets)
{
    if (python::takePlainIntegers(args, format, targets...))
        return fx_pyimg_buffer(self);
    return fx_pyimg_bufferAndArguments(self, args, format, &targets...);
}

/// Parses, checks the range and draws.
PyObject* draw(PyObject* self, PyObject* args, DrawFunction function)
{
    Drawing d;
    SxPicBuf* buffer =
        bufferAndIntegers(self, args, "Liiii|i", d.value, d.x1, d.y1, d.x2, d.y2, d.channel);
    if (buffer == nullptr)
        return nullptr;
    const char* error = pixel_access::rangeError(*buffer, d.x1, d.y1, d.x2, d.y2, d.channel);
    if (error != nullptr)
        return python::raise(Refusal{error});
    function(*buffer, d.x1, d.y1, d.x2, d.y2, d.channel, d.value);
    return python::newNone();
}

} // namespace

PyObject* fx_pyimg_GetPixelValue(PyObject* self, PyObject* args)
{
    int x = 0;
    int y = 0;
    int channel = 0;
    const SxPicBuf* buffer = bufferAndIntegers(self, args, "ii|i", x, y, channel);
    if (buffer == nullptr)
        return nullptr;
    if (const char* error = pixel_access::rangeError(*buffer, x, y, channel))
        return python::raise(Refusal{error});
    return PyLong_FromLongLong(pixel_access::valueAt(*buffer, x, y, channel));
}

PyObject* fx_pyimg_SetPixelValue(PyObject* self, PyObject* args)
{
    long long value = 0;
    int x = 0;
    int y = 0;
    int channel = 0;
    SxPicBuf* buffer = bufferAndIntegers(self, args, "Lii|i", value, x, y, channel);
    if (buffer == nullptr)
        return nullptr;
    if (const char* error = pixel_access::rangeError(*buffer, x, y, channel))
        return python::raise(Refusal{error});
    fx_setPicPixelValue(*buffer, x, y, channel, value);
    return python::newNone();
}

PyObject* fx_pyimg_DrawPixelLine(PyObject* self, PyObject* args)
{
    return draw(self, args, fx_drawPicPixelLine);
}

PyObject* fx_pyimg_DrawPixelRect(PyObject* self, PyObject* args)
{
    return draw(self, args, pixel_access::drawRect);
}
