// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Black and white points out of a picture's values.
#include "app/Brightness.h"

#include "core/ValueCounts.h"

namespace vistrel {

namespace {

constexpr double tailOfPercentiles = 0.005;

ValueRange wantedRange(const Brightness& brightness, const SxPicBuf& buffer)
{
    switch (brightness.mode) {
    case Brightness::Mode::Extremes:
        return extremesOf(buffer).value_or(fullRange(buffer));
    case Brightness::Mode::Percentiles:
        return percentilesOf(buffer, tailOfPercentiles).value_or(fullRange(buffer));
    case Brightness::Mode::Chosen:
        return brightness.chosen;
    case Brightness::Mode::FullScale:
        break;
    }
    return fullRange(buffer);
}

} // namespace

ValueRange rangeFor(const Brightness& brightness, const SxPicBuf& buffer)
{
    ValueRange range = wantedRange(brightness, buffer);
    // A picture of one value has no contrast to show: it is black.
    if (!(range.white > range.black))
        range.white = range.black + 1.0;
    return range;
}

} // namespace vistrel
