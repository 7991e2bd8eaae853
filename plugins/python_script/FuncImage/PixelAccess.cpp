// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Single channel values of a picture and lines of one channel value.
#include "FuncImage/PixelAccess.h"

#include "FuncImage/ImageMessages.h"

#include <SxPicBuf.h>

#include <cstdlib>
#include <cstring>

namespace {

/// Calls `work` with a value of the type that the buffer's elements are stored as; not at all for
/// types that pixels are not accessed of. So each caller's loop is made once for each type.
template<class Work>
void withElementType(const SxPicBuf& buffer, Work work)
{
    switch (buffer.dataType) {
    case ExImageDataType::UInt8:
        work(quint8{});
        break;
    case ExImageDataType::UInt16:
        work(quint16{});
        break;
    case ExImageDataType::Int32:
        work(qint32{});
        break;
    case ExImageDataType::UInt32:
        work(quint32{});
        break;
    default:
        break;
    }
}

template<class Element>
quint8* addressOf(const SxPicBuf& buffer, int x, int y, int channel)
{
    const qint64 element = qint64{x} * buffer.channels + channel;
    return buffer.data + qint64{y} * buffer.stride + element * static_cast<qint64>(sizeof(Element));
}

// Lines may begin at any byte: elements are copied, not accessed in place.
template<class Element>
void store(quint8* address, Element value)
{
    std::memcpy(address, &value, sizeof(value));
}

template<class Element>
Element load(const quint8* address)
{
    Element value{};
    std::memcpy(&value, address, sizeof(value));
    return value;
}

/// One direction of a line: how many pixels it spans, and the bytes to the next pixel.
struct Run {
    qint64 length;
    qint64 step;
};

Run runOf(int from, int to, qint64 bytesPerStep)
{
    const qint64 delta = qint64{to} - from;
    return {std::abs(delta), delta < 0 ? -bytesPerStep : bytesPerStep};
}

/// Bresenham's walk along the longer direction. An error term of exactly 0 takes the step aside:
/// that decides between two equally near pixels.
template<class Element>
void walk(quint8* address, Run longer, Run shorter, Element value)
{
    qint64 error = 2 * shorter.length - longer.length;
    store(address, value);
    for (qint64 i = 0; i < longer.length; ++i) {
        if (error >= 0) {
            address += shorter.step;
            error -= 2 * longer.length;
        }
        address += longer.step;
        error += 2 * shorter.length;
        store(address, value);
    }
}

bool isOutside(int coordinate, quint32 size)
{
    return coordinate < 0 || static_cast<quint32>(coordinate) >= size;
}

} // namespace

void fx_setPicPixelValue(SxPicBuf& buffer, int x, int y, int channel, long long value)
{
    withElementType(buffer, [&](auto element) {
        using Element = decltype(element);
        store(addressOf<Element>(buffer, x, y, channel), static_cast<Element>(value));
    });
}

void fx_drawPicPixelLine(SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel,
                         long long value)
{
    withElementType(buffer, [&](auto element) {
        using Element = decltype(element);
        const Run across =
            runOf(x1, x2, qint64{buffer.channels} * static_cast<qint64>(sizeof(Element)));
        const Run down = runOf(y1, y2, buffer.stride);
        const bool isSteep = across.length <= down.length;
        walk(addressOf<Element>(buffer, x1, y1, channel), isSteep ? down : across,
             isSteep ? across : down, static_cast<Element>(value));
    });
}

namespace pixel_access {

long long valueAt(const SxPicBuf& buffer, int x, int y, int channel)
{
    long long value = 0;
    withElementType(buffer, [&](auto element) {
        using Element = decltype(element);
        value = load<Element>(addressOf<Element>(buffer, x, y, channel));
    });
    return value;
}

void drawRect(SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel, long long value)
{
    fx_drawPicPixelLine(buffer, x1, y1, x2, y1, channel, value);
    fx_drawPicPixelLine(buffer, x1, y2, x2, y2, channel, value);
    fx_drawPicPixelLine(buffer, x1, y1, x1, y2, channel, value);
    fx_drawPicPixelLine(buffer, x2, y1, x2, y2, channel, value);
}

const char* rangeError(const SxPicBuf& buffer, int x, int y, int channel)
{
    if (isOutside(x, buffer.width))
        return "x-coordinate out of range";
    if (isOutside(y, buffer.height))
        return "y-coordinate out of range";
    return isOutside(channel, buffer.channels) ? image_messages::channelOutOfRange : nullptr;
}

const char* rangeError(const SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel)
{
    if (isOutside(x1, buffer.width))
        return "x1-coordinate out of range";
    if (isOutside(y1, buffer.height))
        return "y1-coordinate out of range";
    if (isOutside(x2, buffer.width))
        return "x2-coordinate out of range";
    if (isOutside(y2, buffer.height))
        return "y2-coordinate out of range";
    return isOutside(channel, buffer.channels) ? image_messages::channelOutOfRange : nullptr;
}

} // namespace pixel_access
