// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The rectangle that a measurement's arguments stand for.
#include "FuncImage/MeasuredRect.h"

#include <algorithm>
#include <limits>

namespace {

/// The last coordinate of a span; sizes near the range's end do not wrap around.
int lastOf(int first, int size, quint32 whole)
{
    const qint64 length = size < 1 ? qint64{whole} - first : qint64{size};
    return static_cast<int>(std::clamp<qint64>(first + length - 1, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

} // namespace

QRect measuredRect(const SxPicBufInfo& info, int x, int y, int w, int h)
{
    return {QPoint(x, y), QPoint(lastOf(x, w, info.width), lastOf(y, h, info.height))};
}
