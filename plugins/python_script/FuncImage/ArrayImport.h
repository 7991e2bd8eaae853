// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made from foreign pixel memory, narrowed to the smallest type that holds their values.
// Free of Python.
#pragma once

#include "FuncImage/ArrayPixels.h"
#include "FuncImage/ImageCopies.h"

struct SxPicBuf;
struct SxPicBufInfo;

namespace array_import {

/// A picture with the source's pixels. Refused when there is no memory for it, or the source's own
/// cannot be read.
image_copies::NewImage imported(const ArraySource& source);

/// Whether pixels of that layout are taken for red, green, blue.
bool isRgbByLayout(const SxPicBufInfo& info);

/// An image that has taken over the buffer's pixels, or those of a narrowed copy.
std::unique_ptr<CxImageData> narrowedImage(SxPicBuf& buffer);

} // namespace array_import

/// Makes a copy of the smallest element type that holds the source's values. False when the source
/// itself is the best, or the copy cannot be made: `target` then has no pixels.
/// The source's bpc is updated where its bit depth is detected.
bool fx_img_convertToBestBpc(SxPicBuf& target, SxPicBuf& source);
