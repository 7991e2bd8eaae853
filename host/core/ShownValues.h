// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of every element type and layout as 8-bit ones for the screen.
#pragma once

#include "core/ValueRange.h"

#include <opencv2/core.hpp>

namespace vistrel {

/// Whether the picture is shown in grey: one channel that is no raw colour.
bool isShownGrey(const SxPicBuf& buffer);
/// Whether each pixel has been seen through one colour of a filter.
bool isRaw(const SxPicBuf& buffer);

// The buffer's pixels must be aligned and fit a matrix. These throw what OpenCV throws.

/// All values as bytes, in the buffer's own memory when that holds them already. Not for packed
/// pictures.
cv::Mat bytesOf(const SxPicBuf& buffer, const ValueRange& range);

/// Red, green, blue, alpha. Packed pictures are always shown in their full range.
void convertToRgba(const SxPicBuf& buffer, const ValueRange& range, cv::Mat& target);
/// The same for bytes that bytesOf() has made of a buffer of this layout, of any size. Not for
/// packed pictures.
void convertBytesToRgba(const SxPicBuf& layout, const cv::Mat& bytes, cv::Mat& target);

/// Red, green, blue of a raw picture with even sides at half its size: a pixel for each cell of the
/// filter. Nothing is made up between pixels, which is what takes the time at full size.
cv::Mat coloursOfCells(const SxPicBuf& buffer, const ValueRange& range);

} // namespace vistrel
