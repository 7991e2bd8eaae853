// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scaling for every element type and any number of channels, only where the result is seen.
#pragma once

#include "core/PixelRect.h"

#include <SxPicBuf.h>

namespace vistrel {

enum class Interpolation { Area, Linear };

/// Area when no side grows: every source pixel then counts; linear otherwise.
Interpolation interpolationFor(const PixelRect& from, const PixelRect& to);

/// Scales the rectangle `from`, which lies inside the source, to the rectangle `to`, and writes the
/// part of it that lies inside the target. The pictures have the same element type and channels,
/// are aligned and not packed, and do not overlap.
void resample(const SxPicBuf& source, const PixelRect& from, const SxPicBuf& target,
              const PixelRect& to, Interpolation interpolation);

} // namespace vistrel
