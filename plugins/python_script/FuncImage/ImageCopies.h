// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// New pictures: allocated, copied, with red and blue exchanged. Free of Python.
#pragma once

#include "Refusal.h"

#include <memory>

class CxImageData;

namespace image_copies {

using NewImage = Outcome<std::unique_ptr<CxImageData>>;

/// A cleared picture. The element type is the smallest unsigned one that holds `bpc` bits; 3 and 4
/// channels are marked as RGB. Refused for numbers below 1, more than 32 bits, and without memory.
NewImage allocated(int width, int height, int channels, int bpc);

/// An independent deep copy by the host; null when it makes none.
std::unique_ptr<CxImageData> cloneOrNull(CxImageData& image);
/// The same, refused when the host makes none.
NewImage cloneOf(CxImageData& image);

/// A copy with red and blue exchanged; the acquisition record goes along.
NewImage withRedAndBlueSwapped(CxImageData& image);

} // namespace image_copies
