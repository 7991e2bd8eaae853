// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Rectangles of pixels whose corners cannot overflow.
#pragma once

#include <SxPicBufInfo.h>

#include <algorithm>

namespace vistrel {

/// Half-open intervals in 64 bits, so that sums of any two ints fit.
struct PixelRect {
    qint64 left = 0;
    qint64 top = 0;
    qint64 right = 0;  ///< the first column beside it
    qint64 bottom = 0; ///< the first line below it

    static PixelRect ofSize(qint64 x, qint64 y, qint64 w, qint64 h)
    {
        return {.left = x, .top = y, .right = x + w, .bottom = y + h};
    }
    static PixelRect of(const SxPicBufInfo& info) { return ofSize(0, 0, info.width, info.height); }

    qint64 width() const { return right - left; }
    qint64 height() const { return bottom - top; }
    bool isEmpty() const { return left >= right || top >= bottom; }

    PixelRect movedBy(qint64 dx, qint64 dy) const
    {
        return {.left = left + dx, .top = top + dy, .right = right + dx, .bottom = bottom + dy};
    }
    PixelRect within(const PixelRect& other) const
    {
        return {.left = std::max(left, other.left),
                .top = std::max(top, other.top),
                .right = std::min(right, other.right),
                .bottom = std::min(bottom, other.bottom)};
    }
};

} // namespace vistrel
