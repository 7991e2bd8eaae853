// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Copies rectangles between pictures, and within one.
#include "core/PicBufRects.h"

#include <CxPicBufAPI.h>

#include "core/PicBufView.h"

#include <cstring>
#include <functional>

namespace {

using vistrel::PixelRect;

quint8* pixelAt(const SxPicBuf& buffer, qint64 x, qint64 y)
{
    return buffer.data + static_cast<std::size_t>(y) * buffer.stride
           + static_cast<std::size_t>(x) * buffer.bytesPerPixel();
}

/// The two pictures may be one: lines are moved in the order in which none is overwritten unread.
void moveLines(const SxPicBuf& target, const SxPicBuf& source, const PixelRect& from, qint64 dx,
               qint64 dy)
{
    const std::size_t bytes = static_cast<std::size_t>(from.width()) * source.bytesPerPixel();
    const auto moveLine = [&](qint64 y) {
        std::memmove(pixelAt(target, from.left + dx, y + dy), pixelAt(source, from.left, y), bytes);
    };
    const bool isUpwards = std::less<>()(pixelAt(target, from.left + dx, from.top + dy),
                                         pixelAt(source, from.left, from.top));
    if (isUpwards) {
        for (qint64 y = from.top; y < from.bottom; ++y)
            moveLine(y);
    } else {
        for (qint64 y = from.bottom - 1; y >= from.top; --y)
            moveLine(y);
    }
}

} // namespace

bool vistrel::copyClipped(const SxPicBuf& target, const SxPicBuf& source, const PixelRect& from,
                          qint64 dx, qint64 dy)
{
    const PixelRect inside =
        from.within(PixelRect::of(source)).within(PixelRect::of(target).movedBy(-dx, -dy));
    if (inside.isEmpty())
        return false;
    moveLines(target, source, inside, dx, dy);
    return true;
}

bool CxPicBufAPI::CopyRect(SxPicBuf& target, int targetX, int targetY, const SxPicBuf& source,
                           int x, int y, int w, int h)
{
    if (!vistrel::hasPixels(source) || !vistrel::hasPixels(target)
        || !vistrel::haveSamePixels(source, target))
        return false;
    return vistrel::copyClipped(target, source, PixelRect::ofSize(x, y, w, h), qint64{targetX} - x,
                                qint64{targetY} - y);
}
