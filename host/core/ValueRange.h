// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Black and white among a picture's values.
#pragma once

#include <SxPicBuf.h>

namespace vistrel {

/// The values that are shown black and white; those between in proportion. White is the larger.
struct ValueRange {
    double black = 0.0;
    double white = 255.0;

    bool operator==(const ValueRange&) const = default;
};

/// From 0 to full scale of the significant bits, or to a floating-point picture's saturation.
ValueRange fullRange(const SxPicBuf& buffer);

} // namespace vistrel
