// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which values of a picture are shown black and white.
#pragma once

#include "core/ValueRange.h"

namespace vistrel {

/// How a view finds its black and white point.
struct Brightness {
    enum class Mode {
        FullScale,   ///< 0 and the largest value of the significant bits
        Extremes,    ///< the smallest and the largest value of each picture
        Percentiles, ///< as the extremes, but half a percent of the pixels may lie beyond each
        Chosen,      ///< always `chosen`
    };

    Mode mode = Mode::FullScale;
    ValueRange chosen;

    bool operator==(const Brightness&) const = default;
};

/// The black and the white point for a picture; white is always the larger one. Packed pictures
/// are always shown in their full scale.
ValueRange rangeFor(const Brightness& brightness, const SxPicBuf& buffer);

} // namespace vistrel
