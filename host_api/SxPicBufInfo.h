// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Geometry and pixel format of a picture buffer.
#pragma once

#include "ExImageDataType.h"

#include <cstddef>

/// What is needed to allocate a picture. The field order and widths are part of the binary
/// interface; the assertions below hold them.
struct SxPicBufInfo {
    quint32 width = 0;      ///< pixels a line
    quint32 height = 0;     ///< lines
    quint32 stride = 0;     ///< bytes from line to line; 0 lets the allocator choose
    quint32 channels = 0;   ///< values a pixel
    quint32 bpc = 0;        ///< significant bits of a value; may be less than the element holds
    quint32 blackLevel = 0; ///< value of a black pixel
    ExImageDataType dataType = ExImageDataType::None;
    ExDataStorageFormat storageFormat = ExDataStorageFormat::Unknown;
    ExColorFilterArray colorFilterArray = ExColorFilterArray::None;
    /// Colour channels lie in the order red, green, blue (, alpha); false: blue, green, red.
    bool isRgb = false;

    /// Bytes of one pixel: channels times the element's size; 2 for packed 5-6-5, whatever
    /// `channels` says.
    quint32 bytesPerPixel() const;
};

static_assert(offsetof(SxPicBufInfo, width) == 0 && offsetof(SxPicBufInfo, height) == 4
              && offsetof(SxPicBufInfo, stride) == 8 && offsetof(SxPicBufInfo, channels) == 12
              && offsetof(SxPicBufInfo, bpc) == 16 && offsetof(SxPicBufInfo, blackLevel) == 20
              && offsetof(SxPicBufInfo, dataType) == 24
              && offsetof(SxPicBufInfo, storageFormat) == 28
              && offsetof(SxPicBufInfo, colorFilterArray) == 32
              && offsetof(SxPicBufInfo, isRgb) == 36 && sizeof(SxPicBufInfo) == 40);
