// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// New pictures: allocated, copied, with red and blue exchanged. Free of Python.
#pragma once

#include "Refusal.h"

#include <ExImageDataType.h>

#include <memory>
#include <optional>

class CxImageData;
struct SxPicBuf;

namespace image_copies {

using NewImage = Outcome<std::unique_ptr<CxImageData>>;

/// An image that has taken over the buffer's pixels.
std::unique_ptr<CxImageData> imageAround(const SxPicBuf& buffer);

/// The smallest unsigned element type that holds so many bits; nothing above 32.
std::optional<ExImageDataType> unsignedTypeFor(int bpc);

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
