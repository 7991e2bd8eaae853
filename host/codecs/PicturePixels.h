// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Picture buffers as OpenCV sees them.
#pragma once

#include <SxPicBuf.h>

#include <QtCore/QString>

#include <opencv2/core.hpp>

namespace vistrel {

/// The pixels of a picture in a type that OpenCV has.
struct PictureValues {
    cv::Mat pixels;             ///< shares the picture's memory where it can
    unsigned bpc = 0;           ///< significant bits, never more than the picture's elements hold
    std::size_t valueBytes = 0; ///< size of a value in the picture
    bool isFloat = false;
    bool isUnsigned = false;
    bool isRgb = false; ///< whether red comes first
};

/// What a picture holds, for people: "3 channels of unsigned 16-bit values".
QString describePixels(const SxPicBufInfo& info);

/// The values of a picture; without pixels when OpenCV has no type that holds them all exactly.
/// Unsigned values of 32 bits and integers of 64 bits become doubles.
PictureValues valuesOf(const SxPicBuf& picture);

/// Allocates a buffer for decoded pixels and copies them into it, with red first. False without
/// memory, and for pixels that no buffer can hold.
bool storePixels(const cv::Mat& pixels, SxPicBuf& picture);

} // namespace vistrel
