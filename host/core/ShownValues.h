// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of every element type and layout as 8-bit ones for the screen.
#pragma once

#include "core/ValueRange.h"

#include <opencv2/core.hpp>

namespace vistrel {

/// Whether the picture is shown in grey: one channel that is no raw colour.
bool isShownGrey(const SxPicBuf& buffer);

// The buffer's pixels must be aligned and fit a matrix. These throw what OpenCV throws.

/// All values as bytes, in the buffer's own memory when that holds them already. Not for packed
/// pictures.
cv::Mat bytesOf(const SxPicBuf& buffer, const ValueRange& range);

/// Red, green, blue, alpha. Packed pictures are always shown in their full range.
void convertToRgba(const SxPicBuf& buffer, const ValueRange& range, cv::Mat& target);

} // namespace vistrel
